// LWPOLYLINE, at each place where one can stand. Origins are in model units times 100, insertColor is what an
// INSERT hands on; all return the result of their last ReadGroup.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// In the ENTITIES section.
int32_t DrawLwPolyline(Canvas canvas, TextStream& stream, const ViewRect& view);

// In a block.
int32_t DrawBlockLwPolyline(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                            int32_t insertColor, int32_t byBlockFlag, const ViewRect& view);

// In a block that is inserted in a dimension's block.
int32_t DrawDimInsertLwPolyline(TextStream& stream, Canvas canvas, double blockOriginX, double blockOriginY,
                                const ViewRect& view, int32_t insertColor);

}  // namespace hexlume
