// Returns the bytes of a metafile, as in a file.
#pragma once

#include <hexlume.h>

#include <cstdint>
#include <vector>

namespace hexlume {

inline std::vector<uint8_t> MetafileBytes(HENHMETAFILE metafile) {
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  bytes.resize(GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data()));
  return bytes;
}

}  // namespace hexlume
