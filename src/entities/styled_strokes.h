// Strokes in an entity's line type, solid or dashed.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "entities/converter_rules.h"

namespace hexlume {

// Draws a line. A dash pattern starts at a.
void DrawStyledLine(Canvas canvas, const POINT& a, const POINT& b, const LineStyle& style, int32_t color);

}  // namespace hexlume
