// LEADER: its vertices, a level hook behind the last one, and an arrowhead, which is a block of the drawing.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// In the ENTITIES section, the one place where it is drawn. Returns the result of its last ReadGroup.
int32_t DrawLeader(const HeaderVars& headerVars, TextStream& stream, Canvas canvas, const ViewRect& view,
                   int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont);

}  // namespace hexlume
