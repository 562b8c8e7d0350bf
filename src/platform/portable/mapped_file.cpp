#include "platform/mapped_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "platform/portable/lost_pages.h"

namespace hexlume {

namespace {

// Newest first. Atomic for the signal handler, which runs on the thread that reads a file.
std::atomic<MappedFile*> newestFile = nullptr;

// Fewer pages aren't worth a system call.
constexpr size_t leastPassed = 1 << 20;

void* MapBytes(const char* path, size_t size) {
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return MAP_FAILED;
  void* const start = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  close(file);
  return start;
}

size_t PageOf(size_t place) {
  const auto pageSize = static_cast<size_t>(sysconf(_SC_PAGESIZE));
  return place / pageSize * pageSize;
}

}  // namespace

std::unique_ptr<MappedFile> MappedFile::Open(const char* path, size_t leastSize) {
  struct stat facts;
  // Opened only after this: a pipe would lose its writer when it is closed.
  if (stat(path, &facts) != 0 || !S_ISREG(facts.st_mode)) return nullptr;
  const auto size = static_cast<size_t>(facts.st_size);
  if (size == 0 || size < leastSize) return nullptr;
  void* const start = MapBytes(path, size);
  if (start == MAP_FAILED) return nullptr;
  return std::unique_ptr<MappedFile>(new MappedFile(static_cast<char*>(start), size));
}

MappedFile::MappedFile(char* firstByte, size_t byteCount)
    : start(firstByte), size(byteCount), older(newestFile) {
  newestFile = this;
}

MappedFile::~MappedFile() {
  if (newestFile == this) {
    newestFile = older;
  } else {
    MappedFile* newer = newestFile;
    while (newer->older != this) newer = newer->older;
    newer->older = older;
  }
  munmap(start, size);
}

void MappedFile::Passed(size_t place) {
  if (place < passed + leastPassed) return;
  const size_t page = PageOf(place);
  if (!IsShortened()) madvise(start + passed, page - passed, MADV_DONTNEED);
  passed = page;
}

bool LostPages::Replace(const void* address) noexcept {
  const int error = errno;
  const char* const lost = static_cast<const char*>(address);
  MappedFile* file = newestFile;
  while (file && !(lost >= file->start && lost < file->start + file->size)) file = file->older;
  if (!file) return false;
  const size_t firstLost = PageOf(static_cast<size_t>(lost - file->start));
  file->shortened = 1;
  const void* const zeros = mmap(file->start + firstLost, file->size - firstLost, PROT_READ,
                                 MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_FIXED, -1, 0);
  errno = error;
  return zeros != MAP_FAILED;
}

}  // namespace hexlume
