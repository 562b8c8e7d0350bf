// ARC in the four scopes.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// In the ENTITIES section and in the block of a dimension.
int32_t DrawArc(const EntityRun& run);

// In a block.
int32_t DrawBlockArc(const BlockRun& run);

// In a block that is inserted in a dimension's block.
int32_t DrawDimInsertArc(const BlockRun& run);

}  // namespace hexlume
