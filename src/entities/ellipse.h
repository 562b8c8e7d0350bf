// ELLIPSE in the ENTITIES section and in a block. A dimension's blocks don't draw it.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

int32_t DrawEllipse(const EntityRun& run);
int32_t DrawBlockEllipse(const BlockRun& run);

}  // namespace hexlume
