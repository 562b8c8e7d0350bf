#include "platform/metafile_handle.h"

namespace hexlume {

void* MetafileHandle(const std::vector<uint8_t>&) {
  return nullptr;
}

}  // namespace hexlume
