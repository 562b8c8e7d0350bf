// TOLERANCE: a feature control frame from one string, its boxes, symbols and text.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/text_stream.h"

namespace hexlume {

// In the ENTITIES section.
int32_t DrawTolerance(TextStream& stream, Canvas canvas);

// In a block; the origin is in model units times 100. Both return the result of their last ReadGroup.
int32_t DrawBlockTolerance(TextStream& stream, Canvas canvas, double blockOriginX, double blockOriginY);

}  // namespace hexlume
