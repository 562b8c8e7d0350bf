// LINE, at each place where one can stand.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// In the ENTITIES section.
int32_t DrawLine(Canvas canvas, TextStream& stream, const ViewRect& view);

// In a block, whose origin is in model units times 100. insertColor is what its INSERT hands on.
int32_t DrawBlockLine(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                      int32_t insertColor, const ViewRect& view);

// In the block of a dimension, moved by an offset in model units times 100.
int32_t DrawDimLine(TextStream& stream, Canvas canvas, double offsetX, double offsetY, const ViewRect& view);

// In a block that is inserted in a dimension's block.
int32_t DrawDimInsertLine(TextStream& stream, Canvas canvas, double blockOriginX, double blockOriginY,
                          const ViewRect& view, int32_t wholeSheet, int32_t insertColor);

}  // namespace hexlume
