// A file's bytes as memory of the process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace hexlume {

// If another program shortens the file meanwhile, an access beyond its new end is a fault, which ends a conversion.
class MappedFile {
 public:
  // Null if the file can't be opened or mapped, is no file (a pipe, a folder), or has fewer bytes.
  static std::unique_ptr<MappedFile> Open(const char* path, int64_t leastSize);

  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  std::string_view Bytes() const { return {static_cast<const char*>(start), size}; }

 private:
  MappedFile(void* place, size_t byteCount) : start(place), size(byteCount) {}

  void* start;
  size_t size;
};

}  // namespace hexlume
