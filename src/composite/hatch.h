// HATCH: its boundary becomes regions, which are filled or clip the lines of a pattern.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// In the ENTITIES section. Returns the result of its last ReadGroup.
int32_t DrawHatch(TextStream& stream, Canvas canvas);

// In a block inserted in a dimension's block: the solid arrowheads alone. The origin is in model units times
// 100. Returns the result of its last ReadGroup.
int32_t DrawDimInsertHatch(TextStream& stream, Canvas canvas, double originX, double originY);

}  // namespace hexlume
