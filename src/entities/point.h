// POINT, in the ENTITIES section and in a block; a dimension's blocks don't know it. Both return the result
// of their last ReadGroup.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

int32_t DrawPoint(TextStream& stream, Canvas canvas, const HeaderVars& headerVars);

// The block's origin is in model units times 100; insertColor is what its INSERT hands on.
int32_t DrawBlockPoint(TextStream& stream, Canvas canvas, const HeaderVars& headerVars, double blockOriginX,
                       double blockOriginY, int32_t insertColor);

}  // namespace hexlume
