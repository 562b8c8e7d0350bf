// HATCH: its boundary is converted to regions, which are filled or clip the lines of a pattern.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// In the ENTITIES section.
int32_t DrawHatch(const EntityRun& run);

// In a block that is inserted in a dimension's block: solid arrowheads only.
int32_t DrawDimInsertHatch(const BlockRun& run);

}  // namespace hexlume
