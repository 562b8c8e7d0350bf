// TEXT, at each place where one can stand: one TextOutA in a font of its own. Origins and offsets are in
// model units times 100; all return the result of their last ReadGroup.
//   wholeTextClip   other than 0: a text that the view doesn't hold wholly is dropped
//   halfWidthFont   other than 0: half-width cells in the default face
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// In the ENTITIES section.
int32_t DrawText(Canvas canvas, TextStream& stream, const ViewRect& view, int32_t wholeTextClip,
                 int32_t halfWidthFont);

// In a block. insertColor is what its INSERT hands on.
int32_t DrawBlockText(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                      int32_t insertColor, const ViewRect& view, int32_t wholeTextClip,
                      int32_t halfWidthFont);

// In the block of a dimension, moved by an offset.
int32_t DrawDimText(Canvas canvas, TextStream& stream, double baseX, double baseY, const ViewRect& view,
                    int32_t wholeTextClip, int32_t halfWidthFont);

// In a block that is inserted in a dimension's block: TEXT and MTEXT alike.
int32_t DrawDimInsertText(Canvas canvas, TextStream& stream, double baseX, double baseY, const ViewRect& view,
                          int32_t wholeTextClip);

}  // namespace hexlume
