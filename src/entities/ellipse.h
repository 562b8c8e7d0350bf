// ELLIPSE, in the ENTITIES section and in a block; a dimension's blocks don't know it. Both return the result
// of their last ReadGroup.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

int32_t DrawEllipse(Canvas canvas, TextStream& stream, const ViewRect& view);

// The block's origin is in model units times 100; insertColor is what its INSERT hands on.
int32_t DrawBlockEllipse(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                         int32_t insertColor, const ViewRect& view, int32_t byBlockFlag);

}  // namespace hexlume
