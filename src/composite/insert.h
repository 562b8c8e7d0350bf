// INSERT in the four scopes: draws a block from the file at a place, with a scale and an angle. Each
// converter saves the current group and the place in the file, calls a dispatcher for the block and restores
// both, so that its caller continues with the next entity.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// In the ENTITIES section. The caller has set the insert's scales to 1 and its angle to 0. Returns the
// dispatcher's result, which is 1, or 0 if the file ends directly after the insert's name.
int32_t DrawInsert(const EntityRun& run);

// In a block. Combines scales and angle with those of the enclosing block and restores the latter at the end.
int32_t DrawBlockInsert(const BlockRun& run);

// In the block of a dimension. The caller has set the insert's scales to 1 and its angle to 0. Returns 1 or 0
// as DrawInsert does.
int32_t DrawDimInsert(const EntityRun& run);

// In a block that is inserted in a dimension's block.
int32_t DrawDimInsertInsert(const BlockRun& run);

}  // namespace hexlume
