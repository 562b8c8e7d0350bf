#include "platform/module_file.h"

#include <unistd.h>

namespace hexlume {

// The library is in a folder of shared libraries, where a file of the same name with another extension isn't
// its own and must not be deleted when it is loaded. So no path is given.
bool ModuleFileName(char*, size_t) {
  return false;
}

void DeleteFileIfThere(const char* path) {
  unlink(path);
}

}  // namespace hexlume
