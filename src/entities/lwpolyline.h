// LWPOLYLINE in all scopes except the block of a dimension.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// In the ENTITIES section.
int32_t DrawLwPolyline(const EntityRun& run);

// In a block.
int32_t DrawBlockLwPolyline(const BlockRun& run);

// In a block that is inserted in a dimension's block.
int32_t DrawDimInsertLwPolyline(const BlockRun& run);

}  // namespace hexlume
