// SPLINE in the ENTITIES section and in a block. A dimension's blocks don't draw it. A spline isn't cut
// to the view.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// A spline with more points than this, read or computed, isn't drawn. Only a wrong count gives so many.
constexpr int32_t maxSplinePoints = 1000000;

int32_t DrawSpline(const EntityRun& run);
int32_t DrawBlockSpline(const BlockRun& run);

}  // namespace hexlume
