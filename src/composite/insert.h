// INSERT, in each of the four scopes: a block is played back from the file at a place, scale and
// angle. Each reader saves the group at hand and the place in the file, lets a dispatcher draw the block, and
// goes back, so that its caller finds the next entity as if nothing had happened.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// In the ENTITIES section. The caller has set the insert's scales to 1 and its angle to 0. Returns the result
// of the dispatcher that it ran, which is 1 always, or 0 if the file ends right after the insert's name.
int32_t DrawInsert(const EntityRun& run);

// In a block. Scales and angle add up to those of the block around it, and are put back for it afterwards.
int32_t DrawBlockInsert(const BlockRun& run);

// In the block of a dimension. The caller has set the insert's scales to 1 and its angle to 0. Returns 1, or
// 0, as DrawInsert does.
int32_t DrawDimInsert(const EntityRun& run);

// In a block that is inserted in a dimension's block.
int32_t DrawDimInsertInsert(const BlockRun& run);

}  // namespace hexlume
