// LINE in the four scopes.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// In the ENTITIES section.
int32_t DrawLine(const EntityRun& run);

// In a block.
int32_t DrawBlockLine(const BlockRun& run);

// In the block of a dimension.
int32_t DrawDimLine(const EntityRun& run);

// In a block that is inserted in a dimension's block.
int32_t DrawDimInsertLine(const BlockRun& run);

}  // namespace hexlume
