// The steps that the drawing operations share: the turn of the sheet and the pen.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/numbers.h"
#include "driver/run_watch.h"

namespace hexlume {

// A point turned by 180 degrees about the middle of the sheet. The pivot's Y is positive, the sheet's is
// negative.
inline POINT TurnPoint(int32_t x, int32_t y, int32_t centreX, int32_t centreY) {
  return {WrapSub(WrapMul(2, centreX), x), WrapSub(WrapMul(-2, centreY), y)};
}

// The point as it lies on the sheet, turned or not.
inline POINT PlacePoint(int32_t x, int32_t y, int32_t centreX, int32_t centreY, int32_t mirror) {
  if (mirror) return TurnPoint(x, y, centreX, centreY);
  return {x, y};
}

struct LineEnds {
  POINT start, end;
};

// On a turned sheet the ends also swap roles, so that a line sorted from left to right stays sorted.
inline LineEnds PlaceLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t centreX, int32_t centreY,
                          int32_t mirror) {
  if (mirror) return {TurnPoint(x2, y2, centreX, centreY), TurnPoint(x1, y1, centreX, centreY)};
  return {{x1, y1}, {x2, y2}};
}

// A pen of our own, and the one it has replaced on the canvas.
struct SelectedPen {
  HPEN pen;
  HGDIOBJ previous;
};

inline SelectedPen SelectNewPen(Canvas canvas, int32_t style, int32_t width, COLORREF colour) {
  CountStroke();
  const HPEN pen = CreatePen(style, width, colour);
  return {pen, SelectObject(canvas, pen)};
}

inline void RestorePen(Canvas canvas, const SelectedPen& selected) {
  SelectObject(canvas, selected.previous);
  DeleteObject(selected.pen);
}

}  // namespace hexlume
