// Families of continuous lines. Each is drawn in two passes, which start at the family's first line and go
// along two edges of the extent. If the first line starts inside the extent, the part below or beside it can
// remain empty. It must stay so.

#include <algorithm>
#include <cmath>

#include "composite/hatch_families.h"
#include "driver/numbers.h"
#include "driver/run_watch.h"

namespace hexlume {

namespace {

// The state of a family being drawn.
struct LineSweep {
  Canvas canvas;
  const HatchExtent& extent;
  double angle, slope;
  double offX, offY;
  int32_t penX, penY;
  double rowX, rowY;  // exact start of the row, so that steps keep their fractions
  int32_t& strokesLeft;
};

void DrawStroke(LineSweep& sweep, int32_t dx, int32_t dy) {
  if (!TakeHatchStroke(sweep.strokesLeft)) return;
  CountStroke();
  MoveToEx(sweep.canvas, sweep.penX, sweep.penY, nullptr);
  LineTo(sweep.canvas, WrapAdd(sweep.penX, dx), WrapAdd(sweep.penY, dy));
}

void DrawRowTo(LineSweep& sweep, int32_t edgeX) {
  int32_t dx = WrapSub(edgeX, sweep.penX);
  // A sum, not a difference: below the sheet's top edge it only bounds the length, and the clip region does
  // the rest. If a boundary extends beyond the sheet's top, its lines end early.
  const int32_t dyLimit = WrapNegate(WrapAdd(sweep.extent.top, sweep.penY));
  if (dyLimit < dx * sweep.slope) {
    dx = Trunc(dyLimit / sweep.slope);
    DrawStroke(sweep, dx, dyLimit);
  } else {
    DrawStroke(sweep, dx, Trunc(dx * sweep.slope));
  }
}

constexpr double pastEveryPlace = 2147483648.0;

// Moves a row to its next place. Returns false if the place doesn't change or is beyond all coordinates.
bool StepTo(double next, double& exact, int32_t& place) {
  if (next == exact || !(std::abs(next) < pastEveryPlace)) return false;
  exact = next;
  place = Trunc(next);
  return true;
}

// Whether no later row can meet the extent. Each row is rise above the one before it.
bool LeftBehind(const LineSweep& sweep, double rise) {
  const HatchExtent& extent = sweep.extent;
  const double atLeft = sweep.penY + sweep.slope * (static_cast<double>(extent.left) - sweep.penX);
  const double atRight = sweep.penY + sweep.slope * (static_cast<double>(extent.right) - sweep.penX);
  return rise > 0.0 ? std::min(atLeft, atRight) > extent.top : std::max(atLeft, atRight) < extent.bottom;
}

// Starts the next row at nextX. Rows that move to the left never pass the right edge.
bool StepAcross(LineSweep& sweep, double nextX) {
  const double step = nextX - sweep.rowX;
  if (!StepTo(nextX, sweep.rowX, sweep.penX) || sweep.penX > sweep.extent.right) return false;
  return step > 0.0 || !LeftBehind(sweep, -step * sweep.slope);
}

// Starts the next row at nextY. Rows that move down never pass the top edge.
bool StepUp(LineSweep& sweep, double nextY) {
  const double step = nextY - sweep.rowY;
  if (!StepTo(nextY, sweep.rowY, sweep.penY) || sweep.penY > sweep.extent.top) return false;
  return step > 0.0 || !LeftBehind(sweep, step);
}

// The same for a pass that continues while rows start above the top edge.
bool StepAboveTop(LineSweep& sweep, double nextY) {
  const double step = nextY - sweep.rowY;
  if (!StepTo(nextY, sweep.rowY, sweep.penY) || sweep.penY < sweep.extent.top) return false;
  return step < 0.0 || !LeftBehind(sweep, step);
}

double NextRowY(const LineSweep& sweep) {
  return sweep.rowY + sweep.offY - sweep.slope * sweep.offX;
}

// The next line of a family of horizontal lines. Truncated steps fall behind the exact place and are
// corrected to it.
bool StepLevelLine(LineSweep& sweep, double& lineY) {
  int32_t exactY = 0;
  if (!StepTo(lineY + sweep.offY, lineY, exactY)) return false;
  sweep.penY = WrapAdd(sweep.penY, Trunc(sweep.offY));
  if (sweep.offY < 0.0) {
    sweep.penY = std::min(sweep.penY, exactY);
    return sweep.penY >= sweep.extent.bottom;
  }
  sweep.penY = std::max(sweep.penY, exactY);
  return sweep.penY <= sweep.extent.top;
}

// Lines above 90 degrees, up to 180: rows start along the lower edge, then from the right edge upward.
void DrawBackwardLines(LineSweep& sweep) {
  const HatchExtent& extent = sweep.extent;
  if (sweep.angle == pi) {
    sweep.penX = std::min(sweep.penX, extent.left);
    double lineY = sweep.rowY;
    // If the offset is negative, only the lines below the first one are drawn here.
    do {
      DrawStroke(sweep, WrapSub(extent.right, extent.left), 0);
    } while (sweep.strokesLeft > 0 && StepLevelLine(sweep, lineY));
  } else {
    double nextX = 0.0;
    do {
      DrawRowTo(sweep, extent.left);
      nextX = sweep.offY > 0.0 ? sweep.rowX + sweep.offX - sweep.offY / sweep.slope
                               : sweep.rowX + (sweep.offY / std::tan(pi - sweep.angle) + sweep.offX);
    } while (sweep.strokesLeft > 0 && StepAcross(sweep, nextX));
  }

  const bool rising = sweep.offY > 0.0;
  do {
    DrawRowTo(sweep, extent.left);
  } while (sweep.strokesLeft > 0 &&
           (rising ? StepUp(sweep, NextRowY(sweep)) : StepAboveTop(sweep, NextRowY(sweep))));
}

// Whether a step across vertical lines, measured along their slope, is beyond all coordinates.
bool StepsOutOfReach(const LineSweep& sweep) {
  return sweep.angle == halfPi && std::abs(sweep.offX * sweep.slope) >= pastEveryPlace;
}

// The first pass over lines that rise to the right: away from the first line along one edge.
bool StepForward(LineSweep& sweep) {
  // Vertical lines don't meet the left edge, whatever their offset.
  if (sweep.offY > 0.0 && !StepsOutOfReach(sweep)) return StepUp(sweep, NextRowY(sweep));
  return StepAcross(sweep, sweep.rowX + sweep.offX - sweep.offY / sweep.slope);
}

// The second pass, with the offsets negated.
bool StepBackward(LineSweep& sweep, double& lineX, double& lineY) {
  if (sweep.angle == 0.0) return StepLevelLine(sweep, lineY);
  if (sweep.angle == halfPi) {
    int32_t exactX = 0;
    if (Trunc(sweep.offX) == 0 || !StepTo(lineX + sweep.offX, lineX, exactX)) return false;
    sweep.penX = WrapAdd(sweep.penX, Trunc(sweep.offX));
    return sweep.penX >= sweep.extent.left;
  }
  if (sweep.offY > 0.0) return StepUp(sweep, NextRowY(sweep));
  // The quotient is added here and subtracted in the first pass: a family whose offset points up and to the
  // right has lines at another distance above the first one, and none below it.
  return StepAcross(sweep, sweep.rowX + (sweep.offY / sweep.slope + sweep.offX));
}

// Lines that rise to the right, from 0 to 90 degrees.
void DrawForwardLines(LineSweep& sweep) {
  const HatchExtent& extent = sweep.extent;
  const double baseX = sweep.rowX;
  const double baseY = sweep.rowY;
  if (sweep.penX > extent.left && sweep.angle != halfPi) {
    // Only the pen moves along its line: rows are counted from the base.
    sweep.penY = WrapSub(sweep.penY, Trunc(WrapSub(sweep.penX, extent.left) * sweep.slope));
    sweep.penX = extent.left;
  }
  const int32_t startX = sweep.penX;
  const int32_t startY = sweep.penY;
  do {
    DrawRowTo(sweep, extent.right);
  } while (sweep.strokesLeft > 0 && StepForward(sweep));

  sweep.offX = -sweep.offX;
  sweep.offY = -sweep.offY;
  // Lines that start beyond all coordinates aren't visible.
  if (sweep.offY > 0.0 && StepsOutOfReach(sweep)) return;
  sweep.penX = startX;
  sweep.penY = startY;
  sweep.rowX = baseX;
  sweep.rowY = baseY;
  if (sweep.offY > 0.0) {
    sweep.penY = WrapSub(WrapAdd(startY, Trunc(sweep.offY)), Trunc(sweep.offX * sweep.slope));
  } else {
    // An offset along a horizontal line counts as 0: dividing by the slope would move the rows
    // beyond all coordinates.
    const int32_t along = sweep.angle == 0.0 ? 0 : Trunc(sweep.offY / sweep.slope);
    sweep.penX = WrapAdd(WrapAdd(startX, Trunc(sweep.offX)), along);
  }
  double lineX = sweep.penX;
  double lineY = sweep.penY;
  do {
    DrawRowTo(sweep, extent.right);
  } while (sweep.strokesLeft > 0 && StepBackward(sweep, lineX, lineY));
}

}  // namespace

void DrawContinuousFamily(Canvas canvas, const HatchFamily& family, const HatchExtent& extent,
                          int32_t& strokesLeft) {
  // A line has no direction here.
  const double angle = family.angle > pi ? family.angle - pi : family.angle;
  const double turn = family.offX < 0.0 ? -1.0 : 1.0;
  LineSweep sweep = {canvas,
                     extent,
                     angle,
                     std::tan(angle),
                     family.offX * turn,
                     family.offY * turn,
                     family.baseX,
                     family.baseY,
                     static_cast<double>(family.baseX),
                     static_cast<double>(family.baseY),
                     strokesLeft};
  if (angle > halfPi) {
    DrawBackwardLines(sweep);
  } else {
    DrawForwardLines(sweep);
  }
}

}  // namespace hexlume
