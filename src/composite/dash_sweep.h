// A family of dashed lines while its rows are drawn. Each dash is truncated by itself, so the slope of a row
// is that of its truncated dashes.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "composite/hatch_families.h"

namespace hexlume {

// Has 64 bits, so that a step beyond the last coordinate doesn't wrap around.
struct HatchPlace {
  int64_t x, y;
};

// All values are mirrored so that the lines go to the right and upward, whatever their quadrant.
struct DashSweep {
  Canvas canvas;
  int32_t mirrorX, mirrorY;          // -1 or 1
  int64_t left, top, right, bottom;  // of the extent
  double stepX, stepY;               // length of a period that includes the dashes of earlier families
  HatchPlace offset;                 // from one row to the next
  HatchPlace period;                 // sum of the dashes' moves
  HatchPlace moves[hatchDashLimit];
  const HatchFamily& family;
  int32_t& strokesLeft;
};

// A length in whole units.
int64_t Units(double length);

void MoveBy(HatchPlace& pen, const HatchPlace& step, int64_t count);

// How many steps cover a distance; 0 if the step doesn't advance.
int64_t StepsOver(int64_t distance, int64_t step);

// Move by whole periods: back while the pen is right of the left edge or above the bottom edge, forward while
// it is more than a period's step before that edge.
void SkipBackToLeft(const DashSweep& sweep, HatchPlace& pen);
void SkipBackToBottom(const DashSweep& sweep, HatchPlace& pen);
void SkipForwardToLeft(const DashSweep& sweep, HatchPlace& pen);
void SkipForwardToBottom(const DashSweep& sweep, HatchPlace& pen);

// Draws whole periods from the row's start until the row has left the extent.
void PlayRow(DashSweep& sweep, HatchPlace pen);

// The side of a row on which the next one is: positive on the left, negative on the right, 0 on
// the same line.
double SideOfNextRow(const DashSweep& sweep);

// Draws the rows of a family from 0 to below 90 degrees. offX and offY are the sweep's offset
// with its fractions.
void DrawForwardRows(DashSweep& sweep, double offX, double offY);

}  // namespace hexlume
