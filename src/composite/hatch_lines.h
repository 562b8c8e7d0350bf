// The lines of a hatch's pattern. They are swept over the extent of its boundary; the canvas's clip region
// cuts them.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "composite/hatch_families.h"
#include "driver/text_stream.h"

namespace hexlume {

// What the lines of a pattern are to fill.
struct HatchFill {
  HatchExtent extent;
  int32_t color;  // colour index of the hatch. It changes no stroke: the selected pen and brush draw.
};

// Reads the pattern's definition from the group behind the hatch's style on, up to its group 98, and draws
// each family of lines as soon as it is told. The extent is that of the boundary in sheet units: top is its
// largest Y. The pen and brush that stand selected do the drawing, so the colour isn't used.
void FillHatchLines(TextStream& stream, Canvas canvas, const HatchFill& fill);

}  // namespace hexlume
