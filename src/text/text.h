// TEXT in each of the four scopes: one TextOutA in a font of its own.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// In the ENTITIES section.
int32_t DrawText(const EntityRun& run);

// In a block.
int32_t DrawBlockText(const BlockRun& run);

// In the block of a dimension.
int32_t DrawDimText(const EntityRun& run);

// TEXT and MTEXT in a block that is inserted in a dimension's block.
int32_t DrawDimInsertText(const BlockRun& run);

}  // namespace hexlume
