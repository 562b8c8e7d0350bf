#include "host/metafile_cut.h"

#include <cstring>

namespace hexlume {

namespace {

// Fields of an enhanced metafile that a cut changes, by their offset.
constexpr size_t recordSizeOffset = 4;
constexpr size_t byteCountOffset = 48;
constexpr size_t recordCountOffset = 52;

constexpr uint32_t endRecord[] = {14, 20, 0, 16, 20};  // type, size, no palette, its place, size

uint32_t WordAt(const MetafileBytes& bytes, size_t offset) {
  uint32_t word;
  std::memcpy(&word, bytes.Start() + offset, sizeof word);
  return word;
}

void StoreWord(const MetafileBytes& bytes, size_t offset, size_t value) {
  const auto word = static_cast<uint32_t>(value);
  std::memcpy(bytes.Start() + offset, &word, sizeof word);
}

}  // namespace

bool CutMetafile(MetafileBytes& metafile, size_t mostBytes) {
  if (metafile.Size() <= mostBytes) return false;
  size_t end = 0;
  uint32_t records = 0;
  for (;;) {
    const size_t next = end + WordAt(metafile, end + recordSizeOffset);
    if (next + sizeof endRecord > mostBytes) break;
    end = next;
    ++records;
  }
  if (records == 0) {
    metafile.Shorten(0);
    return true;
  }
  metafile.Shorten(end + sizeof endRecord);
  std::memcpy(metafile.Start() + end, endRecord, sizeof endRecord);
  StoreWord(metafile, byteCountOffset, metafile.Size());
  StoreWord(metafile, recordCountOffset, records + 1);
  return true;
}

}  // namespace hexlume
