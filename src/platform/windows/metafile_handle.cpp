#include "platform/metafile_handle.h"

namespace hexlume {

void* MetafileHandle(const uint8_t* bytes, size_t size) {
  return SetEnhMetaFileBits(static_cast<UINT>(size), bytes);
}

uint8_t* BytesInPlace(HENHMETAFILE) {
  return nullptr;
}

}  // namespace hexlume
