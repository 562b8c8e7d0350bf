#include "platform/file_size.h"

#include <io.h>
#include <windows.h>

namespace hexlume {

int64_t SizeOfFile(std::FILE* file) {
  return _filelengthi64(_fileno(file));
}

bool CanBeReadAgain(std::FILE* file) {
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
  return GetFileType(handle) == FILE_TYPE_DISK;
}

}  // namespace hexlume
