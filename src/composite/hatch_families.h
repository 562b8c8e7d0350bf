// The two kinds of families of parallel lines that a hatch's pattern consists of. Neither looks at the
// boundary: they sweep over its extent.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"

namespace hexlume {

constexpr int32_t hatchDashLimit = 100;  // dashes of one line of a pattern: those beyond aren't drawn

// Lines, dashes, dots and gaps that one hatch may take. A denser one ends there: every stroke is kept in the
// metafile, and memory would run out.
constexpr int32_t hatchStrokeLimit = 4'000'000;

// The extent of the boundary in sheet units: top is its largest Y.
struct HatchExtent {
  int32_t left, top, right, bottom;
};

// A family as its groups tell it, in sheet units.
struct HatchFamily {
  double angle = 0.0;  // radians, of whole degrees
  int32_t baseX = 0;   // where its first line starts
  int32_t baseY = 0;   //
  double offX = 0.0;   // from a line to the next
  double offY = 0.0;   //
  int32_t period = 0;  // of its dashes, and of those of the families in front of it
  double dashes[hatchDashLimit] = {};
  int32_t dashCount = 0;
};

// Both count down what is left of the hatch's strokes, and draw no more than that.
void DrawContinuousFamily(Canvas canvas, const HatchFamily& family, const HatchExtent& extent,
                          int32_t& strokesLeft);
void DrawDashedFamily(Canvas canvas, const HatchFamily& family, const HatchExtent& extent,
                      int32_t& strokesLeft);

}  // namespace hexlume
