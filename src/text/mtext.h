// MTEXT, in the ENTITIES section, in a block and in the block of a dimension: one TextOutA for each
// paragraph.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

int32_t DrawMText(const EntityRun& run);
int32_t DrawBlockMText(const BlockRun& run);
int32_t DrawDimMText(const EntityRun& run);

// Adds the number of "\P" in entText to count.
void CountLines(int32_t& count);

}  // namespace hexlume
