#include "platform/module_file.h"

#include <unistd.h>

namespace hexlume {

// The library lies in a folder of shared libraries, where no host has ever left it a file. What stands beside
// it there belongs to others and must not be deleted by a load, so it tells no place.
bool ModuleFileName(char*, size_t) {
  return false;
}

void DeleteFileIfThere(const char* path) {
  unlink(path);
}

}  // namespace hexlume
