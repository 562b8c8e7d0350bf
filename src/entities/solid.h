// SOLID and TRACE, at each place where one can stand. Origins and offsets are in model units times 100; all
// return the result of their last ReadGroup.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// In the ENTITIES section, and in the block of a dimension, which moves it by an offset.
int32_t DrawSolid(Canvas canvas, TextStream& stream, double offsetX, double offsetY, const ViewRect& view);

// In a block. insertColor is what its INSERT hands on.
int32_t DrawBlockSolid(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                       int32_t insertColor, const ViewRect& view);

// In a block that is inserted in a dimension's block.
int32_t DrawDimInsertSolid(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                           const ViewRect& view, int32_t insertColor);

}  // namespace hexlume
