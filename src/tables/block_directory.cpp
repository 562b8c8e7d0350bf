#include "tables/block_directory.h"

namespace hexlume {

int32_t ReadBlocks(TextStream& stream) {
  return 0;
}

int32_t ReadBlockHeader(TextStream& stream, BlockEntry& block) {
  return 0;
}

}  // namespace hexlume
