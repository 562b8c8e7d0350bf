// A file's bytes as memory of the process.
#pragma once

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace hexlume {

// If another program shortens the file, the bytes that are lost are read as 0, and IsShortened says so. On Linux that needs a
// guard (fault_guard.h) around every access.
class MappedFile {
 public:
  // Null if the path can't be opened or mapped, names something else than a file (a pipe, a folder), or a file with fewer
  // bytes.
  static std::unique_ptr<MappedFile> Open(const char* path, size_t leastSize);

  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  std::string_view Bytes() const { return {start, size}; }

  // Whether lost bytes were read.
  bool IsShortened() const { return shortened != 0; }

  // Says that the bytes before this place were read. They leave the memory of the process until they are read again.
  void Passed(size_t place);

 private:
  friend struct LostPages;

  MappedFile(char* firstByte, size_t byteCount);

  char* start;
  size_t size;
  size_t passed = 0;  // a multiple of the page size
  volatile std::sig_atomic_t shortened = 0;
  MappedFile* older;  // next entry in the list of mapped files
};

}  // namespace hexlume
