// LEADER, in the ENTITIES section only: its vertices, a horizontal hook after the last one, and an arrowhead,
// which is a block of the drawing.
#pragma once

#include <cstdint>

#include "entities/entity_run.h"

namespace hexlume {

int32_t DrawLeader(const EntityRun& run);

}  // namespace hexlume
