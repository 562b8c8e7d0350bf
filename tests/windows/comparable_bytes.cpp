#include "support/comparable_bytes.h"

#include <windows.h>

#include <cstddef>
#include <cstring>

namespace hexlume {

namespace {

// Bytes of a font record before the face's name.
constexpr size_t faceOffset = offsetof(EMREXTCREATEFONTINDIRECTW, elfw.elfLogFont.lfFaceName);

// The end of the face's name with its 0, in bytes from the start of the record.
size_t EndOfFace(const std::string& metafile, size_t record, size_t size) {
  size_t end = faceOffset;
  while (end + 2 <= size && (metafile[record + end] != 0 || metafile[record + end + 1] != 0)) end += 2;
  return end + 2;
}

}  // namespace

std::string ComparableBytes(std::string metafile) {
  for (size_t at = 0; at + sizeof(EMR) <= metafile.size();) {
    EMR record;
    std::memcpy(&record, metafile.data() + at, sizeof record);
    if (record.nSize < sizeof record || record.nSize > metafile.size() - at) break;
    if (record.iType == EMR_EXTCREATEFONTINDIRECTW)
      for (size_t i = EndOfFace(metafile, at, record.nSize); i < record.nSize; ++i) metafile[at + i] = 0;
    at += record.nSize;
  }
  return metafile;
}

}  // namespace hexlume
