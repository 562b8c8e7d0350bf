#include "platform/metafile_handle.h"

#include <windows.h>

namespace hexlume {

void* MetafileHandle(const std::vector<uint8_t>& bytes) {
  return SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data());
}

}  // namespace hexlume
