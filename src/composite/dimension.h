// DIMENSION, in the ENTITIES section alone: the block that the drawing's own program made for it is played
// back as it is.
#pragma once

#include <cstdint>

#include "entities/entity_run.h"

namespace hexlume {

int32_t DrawDimension(const EntityRun& run);

}  // namespace hexlume
