// The steps that the dash walkers share. The length of an element is each walker's own rule.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/numbers.h"
#include "driver/run_watch.h"

namespace hexlume {

// The most elements of a walk. Each one is stored in the metafile, so an extremely long walk would use
// up the memory.
constexpr int32_t maxWalkElements = 10000000;

// Whether a walk may draw its element of this index.
inline bool MayStep(int32_t index) {
  constexpr int64_t stepsOfElement = 30;
  constexpr int64_t bytesOfElement = 12;  // in addition to those of a stroke
  CountWork(stepsOfElement, bytesOfElement);
  if (index == maxWalkElements) NoteBound(dashesBound);
  return index < maxWalkElements && !RunHasEnded();
}

// Doesn't change the current position.
inline void DrawDot(Canvas canvas, int32_t x, int32_t y) {
  CountStroke();
  Ellipse(canvas, WrapSub(x, 1), WrapAdd(y, 1), WrapAdd(x, 1), WrapSub(y, 1));
}

// On curves every second element is a gap, whatever its sign.
inline bool IsGapPlace(int32_t index) {
  return index % 2 == 1;
}

}  // namespace hexlume
