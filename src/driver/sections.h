// The drawing pass over the sections of a drawing.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Reads a drawing from start to end, in file order, and draws its entities as they are read. An ENTITIES
// section uses the tables read before it. For the last three arguments see ConversionRun.
void DrawSections(TextStream& stream, Canvas canvas, HeaderVars& headerVars, const ViewRect& view,
                  int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont);

}  // namespace hexlume
