// DIMENSION, in the ENTITIES section only. Draws the block that the CAD program has stored for it.
#pragma once

#include <cstdint>

#include "entities/entity_run.h"

namespace hexlume {

int32_t DrawDimension(const EntityRun& run);

}  // namespace hexlume
