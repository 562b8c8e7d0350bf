// The values that are constant during a conversion. The dispatchers pass them to the converters in the record
// of their scope: EntityRun or BlockRun.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

struct ConversionRun {
  TextStream& stream;
  Canvas canvas;
  const HeaderVars& headerVars;
  const ViewRect& view;
  int32_t wholeTextClip = 0;  // other than 0: a text that isn't completely inside the view is dropped
  int32_t wholeSheet = 0;     // other than 0: the view is the whole sheet, so arcs aren't cut to it
  int32_t halfWidthFont = 0;  // other than 0: text is drawn in half-width cells of the default face
};

}  // namespace hexlume
