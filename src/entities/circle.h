// CIRCLE in the four scopes.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// In the ENTITIES section and in the block of a dimension.
int32_t DrawCircle(const EntityRun& run);

// In a block.
int32_t DrawBlockCircle(const BlockRun& run);

// In a block that is inserted in a dimension's block.
int32_t DrawDimInsertCircle(const BlockRun& run);

}  // namespace hexlume
