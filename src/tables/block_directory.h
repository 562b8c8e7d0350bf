// The directory of the drawing's blocks: which there are, and where in the file each one stands.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Entered behind the section's name BLOCKS: notes each block up to the section's end. Returns the result of
// its last ReadGroup. Whatever fails in it comes out as `throw faultCode`.
int32_t ReadBlocks(TextStream& stream);

// Reads the groups of one BLOCK into an entry, up to the next group 0: the block's first entity, or its end.
// Returns the result of its last ReadGroup.
int32_t ReadBlockHeader(TextStream& stream, BlockEntry& block);

}  // namespace hexlume
