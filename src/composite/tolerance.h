// TOLERANCE: a feature control frame with its boxes, symbols and text, given by one string.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// In the ENTITIES section.
int32_t DrawTolerance(const EntityRun& run);

// In a block.
int32_t DrawBlockTolerance(const BlockRun& run);

}  // namespace hexlume
