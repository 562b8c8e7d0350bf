#include "platform/file_size.h"

#include <io.h>

namespace hexlume {

int64_t SizeOfFile(std::FILE* file) {
  return _filelengthi64(_fileno(file));
}

}  // namespace hexlume
