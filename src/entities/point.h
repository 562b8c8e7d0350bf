// POINT in the ENTITIES section and in a block. A dimension's blocks don't draw it.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

int32_t DrawPoint(const EntityRun& run);
int32_t DrawBlockPoint(const BlockRun& run);

}  // namespace hexlume
