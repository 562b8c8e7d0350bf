// The directory of the drawing's blocks and their places in the file.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Called when the section's name BLOCKS has been read. Adds each block to the directory, up to the end of the
// section. Returns the result of its last ReadGroup. Any failure is reported as `throw faultCode`.
int32_t ReadBlocks(TextStream& stream);

// Reads the groups of one BLOCK into an entry, up to the next group 0: the block's first entity or its end.
// Returns the result of its last ReadGroup.
int32_t ReadBlockHeader(TextStream& stream, BlockEntry& block);

}  // namespace hexlume
