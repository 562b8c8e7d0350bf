// SPLINE, in the ENTITIES section and in a block. A dimension's blocks have no SPLINE. Nothing of it is cut
// to the view.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// A spline of more points than this, read or made, isn't drawn: no drawing needs it, and a mistaken count
// could ask for any number.
constexpr int32_t maxSplinePoints = 1000000;

int32_t DrawSpline(const EntityRun& run);
int32_t DrawBlockSpline(const BlockRun& run);

}  // namespace hexlume
