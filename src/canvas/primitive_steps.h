// The steps that the drawing operations share: turning with the sheet, and the pen.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/numbers.h"
#include "driver/run_watch.h"

namespace hexlume {

// Turns a point by 180 degrees about the centre of the sheet. The Y of the centre is positive, the
// sheet's is negative.
inline POINT TurnPoint(int32_t x, int32_t y, int32_t centreX, int32_t centreY) {
  return {WrapSub(WrapMul(2, centreX), x), WrapSub(WrapMul(-2, centreY), y)};
}

// The point on the sheet, turned if mirror is set.
inline POINT PlacePoint(int32_t x, int32_t y, int32_t centreX, int32_t centreY, int32_t mirror) {
  if (mirror) return TurnPoint(x, y, centreX, centreY);
  return {x, y};
}

struct LineEnds {
  POINT start, end;
};

// On a turned sheet the ends are swapped too, so that a line sorted from left to right remains sorted.
inline LineEnds PlaceLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t centreX, int32_t centreY,
                          int32_t mirror) {
  if (mirror) return {TurnPoint(x2, y2, centreX, centreY), TurnPoint(x1, y1, centreX, centreY)};
  return {{x1, y1}, {x2, y2}};
}

// A new pen, and the one that it has replaced on the canvas.
struct SelectedPen {
  HPEN pen;
  HGDIOBJ previous;
};

// Counts a pen and its first stroke.
inline void CountPen() {
  constexpr int64_t stepsOfPen = 1800;
  constexpr int64_t bytesOfPen = 112;  // with its selection and a move
  CountStroke();
  CountWork(stepsOfPen, bytesOfPen);
}

inline SelectedPen SelectNewPen(Canvas canvas, int32_t style, int32_t width, COLORREF color) {
  CountPen();
  const HPEN pen = CreatePen(style, width, color);
  return {pen, SelectObject(canvas, pen)};
}

inline void RestorePen(Canvas canvas, const SelectedPen& selected) {
  SelectObject(canvas, selected.previous);
  DeleteObject(selected.pen);
}

}  // namespace hexlume
