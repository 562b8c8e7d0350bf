#include "platform/file_size.h"

#include <sys/stat.h>

namespace hexlume {

int64_t SizeOfFile(std::FILE* file) {
  struct stat facts;
  return fstat(fileno(file), &facts) == 0 ? facts.st_size : 0;
}

bool CanBeReadAgain(std::FILE* file) {
  struct stat facts;
  return fstat(fileno(file), &facts) == 0 && S_ISREG(facts.st_mode);
}

}  // namespace hexlume
