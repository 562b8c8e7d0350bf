#include "platform/module_file.h"

namespace hexlume {

// A module has no file.
bool ModuleFileName(char*, size_t) {
  return false;
}

void DeleteFileIfThere(const char*) {}

}  // namespace hexlume
