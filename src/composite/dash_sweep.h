// A family of dashed lines while its rows are drawn. Each dash is truncated on its own, so a row's slope is
// that of its truncated dashes.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "composite/hatch_families.h"

namespace hexlume {

// In 64 bits, so that a step past the last coordinate is past the end.
struct HatchPlace {
  int64_t x, y;
};

// Everything is mirrored so that the lines run to the right and upward, whatever their quadrant.
struct DashSweep {
  Canvas canvas;
  int32_t mirrorX, mirrorY;          // -1 or 1
  int64_t left, top, right, bottom;  // of the extent
  double stepX, stepY;               // of a period that holds the dashes of the families before too
  HatchPlace offset;                 // from a row to the next
  HatchPlace period;                 // the dashes' moves in all
  HatchPlace moves[hatchDashLimit];
  const HatchFamily& family;
  int32_t& strokesLeft;
};

// A length in whole units.
int64_t Units(double length);

void MoveBy(HatchPlace& pen, const HatchPlace& step, int64_t count);

// How often a step must be taken to cover a distance; not at all if it leads nowhere.
int64_t StepsOver(int64_t distance, int64_t step);

// Whole periods, against the line while the pen is right of the left edge or above the bottom, along it while
// the pen is less than a period's step before that edge.
void SkipBackToLeft(const DashSweep& sweep, HatchPlace& pen);
void SkipBackToBottom(const DashSweep& sweep, HatchPlace& pen);
void SkipForwardToLeft(const DashSweep& sweep, HatchPlace& pen);
void SkipForwardToBottom(const DashSweep& sweep, HatchPlace& pen);

// Plays whole periods from the row's start until the row has left the extent.
void PlayRow(DashSweep& sweep, HatchPlace pen);

// On which side of a row the next one is: above 0 on the left, below 0 on the right, 0 on its own line.
double SideOfNextRow(const DashSweep& sweep);

// The rows of a family from 0 to below 90 degrees. The offset is that of the sweep with its fractions.
void DrawForwardRows(DashSweep& sweep, double offX, double offY);

}  // namespace hexlume
