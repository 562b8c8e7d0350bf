// Files by their path in UTF-8, on every system.
#pragma once

#include <cstdint>
#include <cstdio>

namespace hexlume {

enum class FileTrouble {
  none,
  notFound,
  notAFile,    // a folder, a device, a pipe
  notAllowed,  // it is there, but can't be opened
  noMemory,
};

// A file opened for reading, or why it can't be.
struct OpenedFile {
  std::FILE* file;  // the caller closes it; null unless trouble is none
  FileTrouble trouble;
  int64_t size;  // bytes
};

OpenedFile OpenUtf8File(const char* path);

}  // namespace hexlume
