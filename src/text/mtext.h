// MTEXT, in the ENTITIES section, in a block and in the block of a dimension: one TextOutA for each
// paragraph. Origins and offsets are in model units times 100; all return the result of their last ReadGroup.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

int32_t DrawMText(Canvas canvas, TextStream& stream, const ViewRect& view, int32_t wholeTextClip,
                  int32_t halfWidthFont);

int32_t DrawBlockMText(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                       const ViewRect& view, int32_t wholeTextClip, int32_t halfWidthFont);

int32_t DrawDimMText(Canvas canvas, TextStream& stream, double baseX, double baseY, const ViewRect& view,
                     int32_t wholeTextClip, int32_t halfWidthFont);

// Adds the number of "\P" in entText to count.
void CountLines(int32_t& count);

}  // namespace hexlume
