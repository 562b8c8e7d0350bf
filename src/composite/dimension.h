// DIMENSION: the block that the drawing's own program made for it is played back, as it stands.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// In the ENTITIES section, the one place where it is drawn. Returns the result of its last ReadGroup.
int32_t DrawDimension(TextStream& stream, Canvas canvas, const HeaderVars& headerVars, const ViewRect& view,
                      int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont);

}  // namespace hexlume
