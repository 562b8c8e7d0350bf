// SPLINE, in the ENTITIES section and in a block; a dimension's blocks don't know it. Nothing of it is cut to
// the view. Both return the result of their last ReadGroup.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/text_stream.h"

namespace hexlume {

// A spline of more points than this, read or made, isn't drawn: no drawing needs it, and a mistaken count
// could ask for any number.
constexpr int32_t maxSplinePoints = 1000000;

int32_t DrawSpline(Canvas canvas, TextStream& stream);

// The block's origin is in model units times 100; insertColor is what its INSERT hands on.
int32_t DrawBlockSpline(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                        int32_t insertColor, int32_t byBlockFlag);

}  // namespace hexlume
