// The lines of a hatch's pattern. They cover the extent of its boundary; the canvas's clip region cuts them.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "composite/hatch_families.h"
#include "driver/text_stream.h"

namespace hexlume {

// What the lines of a pattern fill.
struct HatchFill {
  HatchExtent extent;
  int32_t color;  // colour index. It isn't used: the selected pen and brush draw
};

// Reads the pattern's definition, from the group after the hatch's style up to group 98, and draws each
// family of lines when its last group has been read. The currently selected pen and brush are used.
void FillHatchLines(TextStream& stream, Canvas canvas, const HatchFill& fill);

}  // namespace hexlume
