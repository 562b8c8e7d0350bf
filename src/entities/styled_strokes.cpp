#include "entities/styled_strokes.h"

namespace hexlume {

void DrawStyledLine(Canvas canvas, const POINT& a, const POINT& b, const LineStyle& style, int32_t color) {
  const Dashes dashes = DashesOf(style);
  if (dashes.count == 0)
    PenLine(canvas, a.x, a.y, b.x, b.y, state.centreX, state.centreY, style.width, ColorAt(color),
            state.rotated);
  else
    DashLine(canvas, a.x, a.y, b.x, b.y, state.centreX, state.centreY, style.width, ColorAt(color),
             dashes.elements, dashes.count, state.rotated);
}

}  // namespace hexlume
