// The steps that the dash walkers share. How far an element leads is each walker's own.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/numbers.h"
#include "driver/run_watch.h"

namespace hexlume {

// Every element is kept in the metafile. A walk of absurd length ends after so many, or memory would run out.
constexpr int32_t maxWalkElements = 10000000;

// Without a change of the current position.
inline void DrawDot(Canvas canvas, int32_t x, int32_t y) {
  CountStroke();
  Ellipse(canvas, WrapSub(x, 1), WrapAdd(y, 1), WrapAdd(x, 1), WrapSub(y, 1));
}

// On curves an element is a gap by its place in the pattern, whatever its sign.
inline bool IsGapPlace(int32_t index) {
  return index % 2 == 1;
}

}  // namespace hexlume
