#include "platform/metafile_handle.h"

#include "platform/portable/device_context.h"

namespace hexlume {

void* MetafileHandle(const uint8_t*, size_t) {
  return nullptr;
}

uint8_t* BytesInPlace(HENHMETAFILE metafile) {
  return metafile->bytes.block.Start();
}

}  // namespace hexlume
