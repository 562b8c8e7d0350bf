#include "platform/mapped_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hexlume {

std::unique_ptr<MappedFile> MappedFile::Open(const char* path, int64_t leastSize) {
  struct stat facts;
  // Only then is it opened: a pipe would lose its writer when it is closed.
  if (stat(path, &facts) != 0 || !S_ISREG(facts.st_mode) || facts.st_size < leastSize) return nullptr;
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return nullptr;
  const auto size = static_cast<size_t>(facts.st_size);
  void* const start = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  close(file);
  if (start == MAP_FAILED) return nullptr;
  return std::unique_ptr<MappedFile>(new MappedFile(start, size));
}

MappedFile::~MappedFile() {
  munmap(start, size);
}

}  // namespace hexlume
