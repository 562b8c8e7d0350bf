// The two kinds of families of parallel lines that make up a hatch's pattern. Both cover the extent of the
// boundary and don't use the boundary itself.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/run_watch.h"
#include "driver/work_budget.h"

namespace hexlume {

constexpr int32_t hatchDashLimit = 100;  // the most dashes of a pattern's line; further ones aren't drawn

// The most lines, dashes, dots and gaps of one hatch. A denser hatch is drawn up to this number, as each
// stroke takes memory in the metafile.
constexpr int32_t hatchStrokeLimit = 4'000'000;

// Takes one of the strokes that are left. Returns false if there is none, or if the run has ended.
inline bool TakeHatchStroke(int32_t& strokesLeft) {
  constexpr int64_t stepsOfElement = 30;
  constexpr int64_t bytesOfMove = 16;
  CountWork(stepsOfElement, bytesOfMove);
  if (RunHasEnded()) strokesLeft = 0;
  if (strokesLeft <= 0) return false;
  if (--strokesLeft == 0) NoteBound(hatchStrokesBound);
  return true;
}

// The extent of the boundary in sheet units. top is the largest Y.
struct HatchExtent {
  int32_t left, top, right, bottom;
};

// A family as given by its groups, in sheet units.
struct HatchFamily {
  double angle = 0.0;  // radians; a whole number of degrees
  int32_t baseX = 0;   // start of its first line
  int32_t baseY = 0;   //
  double offX = 0.0;   // from one line to the next
  double offY = 0.0;   //
  int32_t period = 0;  // length of its dashes and those of all families before it
  double dashes[hatchDashLimit] = {};
  int32_t dashCount = 0;
};

// Both subtract the strokes that they draw from strokesLeft, and draw no more than that.
void DrawContinuousFamily(Canvas canvas, const HatchFamily& family, const HatchExtent& extent,
                          int32_t& strokesLeft);
void DrawDashedFamily(Canvas canvas, const HatchFamily& family, const HatchExtent& extent,
                      int32_t& strokesLeft);

}  // namespace hexlume
