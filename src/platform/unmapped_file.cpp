// Where no file is mapped. On Windows a mapped one couldn't be shortened or replaced by another program meanwhile; a web page has
// no files, its drawings are bytes in memory.
#include "platform/mapped_file.h"

namespace hexlume {

std::unique_ptr<MappedFile> MappedFile::Open(const char*, size_t) {
  return nullptr;
}

MappedFile::~MappedFile() = default;

void MappedFile::Passed(size_t) {}

}  // namespace hexlume
