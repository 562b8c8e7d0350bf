// SOLID and TRACE in the four scopes. In a dimension's block TRACE isn't drawn.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// In the ENTITIES section and in the block of a dimension.
int32_t DrawSolid(const EntityRun& run);

// In a block.
int32_t DrawBlockSolid(const BlockRun& run);

// In a block that is inserted in a dimension's block.
int32_t DrawDimInsertSolid(const BlockRun& run);

}  // namespace hexlume
