// The walk of the drawing pass over a drawing's sections.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Reads a drawing from its start to its end, in the order of the file, and draws its entities as they come.
// An ENTITIES section draws with what tables there are at that moment. The last three arguments are the run
// options of ConversionRun.
void DrawSections(TextStream& stream, Canvas canvas, HeaderVars& headerVars, const ViewRect& view,
                  int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont);

}  // namespace hexlume
