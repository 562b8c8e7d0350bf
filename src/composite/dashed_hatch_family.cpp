// Families of dashed lines. Three things fix their picture: the truncated offsets, which add up from row to
// row, the phase, kept by skipping whole periods only, and the clip. Each dash is truncated on its own, so a
// row's slope is that of its truncated dashes.

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "composite/hatch_families.h"
#include "driver/numbers.h"
#include "driver/run_watch.h"

namespace hexlume {

namespace {

// In 64 bits, so that a step past the last coordinate is past the end.
struct HatchPlace {
  int64_t x, y;
};

// A family being drawn. Everything is mirrored so that its lines run to the right and upward, whatever their
// quadrant.
struct DashSweep {
  Canvas canvas;
  int32_t mirrorX, mirrorY;          // -1 or 1
  int64_t left, top, right, bottom;  // of the extent
  double stepX, stepY;               // of a period that holds the dashes of the families in front too
  HatchPlace offset;                 // from a row to the next
  HatchPlace period;                 // the dashes' moves in all
  HatchPlace moves[hatchDashLimit];
  const HatchFamily& family;
  int32_t& strokesLeft;
};

// A length in whole units.
int64_t Units(double length) {
  constexpr double pastEveryEnd = 1e10;
  if (std::isnan(length)) return 0;
  return static_cast<int64_t>(std::clamp(length, -pastEveryEnd, pastEveryEnd));
}

int32_t SheetPlace(int64_t place, int32_t mirror) {
  return static_cast<int32_t>(std::clamp<int64_t>(place * mirror, INT32_MIN, INT32_MAX));
}

void MoveBy(HatchPlace& pen, const HatchPlace& step, int64_t count) {
  pen.x += Units(static_cast<double>(step.x) * static_cast<double>(count));
  pen.y += Units(static_cast<double>(step.y) * static_cast<double>(count));
}

// How often a step must be taken to cover a distance; not at all if it leads nowhere.
int64_t StepsOver(int64_t distance, int64_t step) {
  return distance > 0 && step > 0 ? (distance - 1) / step + 1 : 0;
}

void SkipBackToLeft(const DashSweep& sweep, HatchPlace& pen) {
  MoveBy(pen, sweep.period, -StepsOver(pen.x - sweep.left, sweep.period.x));
}

void SkipBackToBottom(const DashSweep& sweep, HatchPlace& pen) {
  MoveBy(pen, sweep.period, -StepsOver(pen.y - sweep.bottom, sweep.period.y));
}

void SkipForwardToLeft(const DashSweep& sweep, HatchPlace& pen) {
  const int64_t edge = Units(std::ceil(static_cast<double>(sweep.left) - sweep.stepX));
  MoveBy(pen, sweep.period, StepsOver(edge - pen.x, sweep.period.x));
}

void SkipForwardToBottom(const DashSweep& sweep, HatchPlace& pen) {
  const int64_t edge = Units(std::ceil(static_cast<double>(sweep.bottom) - sweep.stepY));
  MoveBy(pen, sweep.period, StepsOver(edge - pen.y, sweep.period.y));
}

void DrawDot(const DashSweep& sweep, const HatchPlace& place) {
  const int32_t x = SheetPlace(place.x, sweep.mirrorX);
  const int32_t y = SheetPlace(place.y, sweep.mirrorY);
  Ellipse(sweep.canvas, WrapSub(x, 20), WrapAdd(y, 20), WrapAdd(x, 20), WrapSub(y, 20));
}

void DrawDash(const DashSweep& sweep, const HatchPlace& start, const HatchPlace& end) {
  MoveToEx(sweep.canvas, SheetPlace(start.x, sweep.mirrorX), SheetPlace(start.y, sweep.mirrorY), nullptr);
  LineTo(sweep.canvas, SheetPlace(end.x, sweep.mirrorX), SheetPlace(end.y, sweep.mirrorY));
}

// Plays whole periods from the row's start until the row has left the extent.
void PlayRow(DashSweep& sweep, HatchPlace pen) {
  do {
    for (int32_t i = 0; i < sweep.family.dashCount; ++i) {
      if (RunHasEnded()) sweep.strokesLeft = 0;
      if (sweep.strokesLeft <= 0) return;
      --sweep.strokesLeft;
      const double dash = sweep.family.dashes[i];
      if (dash >= 0.0) CountStroke();
      const HatchPlace start = pen;
      MoveBy(pen, sweep.moves[i], 1);
      if (dash == 0.0) DrawDot(sweep, start);
      if (dash > 0.0) DrawDash(sweep, start, pen);
    }
  } while (pen.x <= sweep.right && pen.y <= sweep.top);
}

// On which side of a row the next one lies: above 0 on the left, below 0 on the right, 0 on its own line.
double SideOfNextRow(const DashSweep& sweep) {
  return static_cast<double>(sweep.period.x) * static_cast<double>(sweep.offset.y) -
         static_cast<double>(sweep.period.y) * static_cast<double>(sweep.offset.x);
}

// Brings the start of a row to that of the next one; false where no further row meets the extent. Rows that
// move to the right begin at the lower edge, rows that move up at the left edge. Level rows can begin at the
// left edge only, upright ones at the lower edge.
bool BeginNextRow(const DashSweep& sweep, HatchPlace& row) {
  const bool toTheRight = SideOfNextRow(sweep) < 0.0;
  MoveBy(row, sweep.offset, 1);
  if (sweep.period.x == 0 || (toTheRight && sweep.period.y != 0)) {
    SkipBackToBottom(sweep, row);
    SkipForwardToBottom(sweep, row);
  } else {
    SkipBackToLeft(sweep, row);
    SkipForwardToLeft(sweep, row);
  }
  if (toTheRight) return row.x <= sweep.right && row.y >= sweep.bottom - sweep.stepY;
  return row.y <= sweep.top && row.x >= sweep.left - sweep.stepX;
}

void PlayRows(DashSweep& sweep, HatchPlace row) {
  do {
    PlayRow(sweep, row);
  } while (sweep.strokesLeft > 0 && SideOfNextRow(sweep) != 0.0 && BeginNextRow(sweep, row));
}

// The start of the first row, outside the extent.
HatchPlace Rewind(const DashSweep& sweep) {
  HatchPlace row = {int64_t{sweep.family.baseX} * sweep.mirrorX, int64_t{sweep.family.baseY} * sweep.mirrorY};
  if (sweep.family.angle == halfPi) {
    MoveBy(row, sweep.offset, -StepsOver(row.x - sweep.left, sweep.offset.x));
  }
  const bool nearlyLevel = sweep.period.y == 0;
  if ((sweep.family.angle < halfPi || nearlyLevel) && sweep.period.x != 0) {
    SkipBackToLeft(sweep, row);
  } else {
    SkipBackToBottom(sweep, row);
  }
  return row;
}

void DrawRows(DashSweep& sweep) {
  const HatchPlace base = Rewind(sweep);
  const bool falling = sweep.offset.y < 0;
  HatchPlace row = base;
  if (falling && Trunc(sweep.stepY) == 0) {
    // Nearly level rows fall from the top.
    MoveBy(row, sweep.offset, -StepsOver(sweep.top - row.y, -sweep.offset.y));
    SkipForwardToLeft(sweep, row);
  }
  PlayRows(sweep, row);
  if (SideOfNextRow(sweep) == 0.0) return;

  sweep.offset = {-sweep.offset.x, -sweep.offset.y};
  row = base;
  // Where rows fall, the first one is drawn a second time.
  if (!falling) MoveBy(row, sweep.offset, 1);
  PlayRows(sweep, row);
}

}  // namespace

void DrawDashedFamily(Canvas canvas, const HatchFamily& family, const HatchExtent& extent,
                      int32_t& strokesLeft) {
  if (family.angle < 0.0 || family.angle >= twoPi) return;
  const int32_t mirrorX = family.angle > halfPi && family.angle < threeHalvesPi ? -1 : 1;
  const int32_t mirrorY = family.angle >= pi ? -1 : 1;
  const double unitX = std::abs(std::cos(family.angle));
  const double unitY = std::abs(std::sin(family.angle));
  const double offX = family.offX * mirrorX;
  const double offY = family.offY * mirrorY;
  const double turn = offX < 0.0 ? -1.0 : 1.0;
  DashSweep sweep = {canvas,
                     mirrorX,
                     mirrorY,
                     mirrorX < 0 ? -int64_t{extent.right} : extent.left,
                     mirrorY < 0 ? -int64_t{extent.bottom} : extent.top,
                     mirrorX < 0 ? -int64_t{extent.left} : extent.right,
                     mirrorY < 0 ? -int64_t{extent.top} : extent.bottom,
                     family.angle == halfPi ? 0.0 : unitX * family.period,
                     unitY * family.period,
                     {Units(offX * turn), Units(offY * turn)},
                     {0, 0},
                     {},
                     family,
                     strokesLeft};
  for (int32_t i = 0; i < family.dashCount; ++i) {
    const double length = std::abs(family.dashes[i]);
    sweep.moves[i] = {Units(length * unitX), Units(length * unitY)};
    MoveBy(sweep.period, sweep.moves[i], 1);
  }
  // Dashes that lead nowhere would be played for ever.
  if (sweep.period.x == 0 && sweep.period.y == 0) return;
  DrawRows(sweep);
}

}  // namespace hexlume
