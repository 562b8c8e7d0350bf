// POLYLINE with its VERTEX entities, in the ENTITIES section and in a block; a dimension's blocks don't know
// it. Both return the result of their last ReadGroup, with the group behind the last VERTEX in the buffer.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

int32_t DrawPolyline(Canvas canvas, TextStream& stream, const ViewRect& view);

// The block's origin is in model units times 100; insertColor is what its INSERT hands on.
int32_t DrawBlockPolyline(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                          int32_t insertColor, int32_t byBlockFlag, const ViewRect& view);

}  // namespace hexlume
