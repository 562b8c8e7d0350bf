// POLYLINE with its VERTEX entities, in the ENTITIES section and in a block. A dimension's blocks don't draw
// it. The group after the last VERTEX is left in the buffer.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

int32_t DrawPolyline(const EntityRun& run);
int32_t DrawBlockPolyline(const BlockRun& run);

}  // namespace hexlume
