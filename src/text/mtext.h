// MTEXT in the ENTITIES section, in a block and in a dimension's block: one TextOutA for each paragraph.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

int32_t DrawMText(const EntityRun& run);
int32_t DrawBlockMText(const BlockRun& run);
int32_t DrawDimMText(const EntityRun& run);

}  // namespace hexlume
