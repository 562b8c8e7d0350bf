// A web page has no files: its drawings are bytes in memory.
#include "platform/mapped_file.h"

namespace hexlume {

std::unique_ptr<MappedFile> MappedFile::Open(const char*, int64_t) {
  return nullptr;
}

MappedFile::~MappedFile() = default;

}  // namespace hexlume
