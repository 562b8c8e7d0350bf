// Strokes in an entity's line type, solid or walked dash by dash.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "entities/converter_rules.h"

namespace hexlume {

// The stroke of a dashed pattern starts at a.
void DrawStyledLine(Canvas canvas, const POINT& a, const POINT& b, const LineStyle& style, int32_t color);

}  // namespace hexlume
