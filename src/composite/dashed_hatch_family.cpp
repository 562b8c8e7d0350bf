// Families of dashed lines. Their places depend on the truncated offsets, which add up from row to row, on
// the phase, which is kept by skipping whole periods only, and on the clip region. Each dash is truncated by
// itself, so the slope of a row is that of its truncated dashes.

#include <cmath>
#include <cstdlib>

#include "composite/dash_sweep.h"
#include "driver/numbers.h"

namespace hexlume {

namespace {

// Moves the start of a row to that of the next one. Returns false if no further row meets the extent. Rows
// that move to the right start at the lower edge, rows that move up at the left edge. Horizontal rows can
// start at the left edge only, vertical ones at the lower edge only.
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
  if (toTheRight) {
    const double lowest = static_cast<double>(sweep.bottom) - sweep.stepY;
    return row.x <= sweep.right && static_cast<double>(row.y) >= lowest;
  }
  const double leftmost = static_cast<double>(sweep.left) - sweep.stepX;
  return row.y <= sweep.top && static_cast<double>(row.x) >= leftmost;
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
  if (sweep.period.y == 0) {  // nearly horizontal rows
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
    // Nearly horizontal rows start at the top.
    MoveBy(row, sweep.offset, -StepsOver(sweep.top - row.y, -sweep.offset.y));
    SkipForwardToLeft(sweep, row);
  }
  PlayRows(sweep, row);
  if (SideOfNextRow(sweep) == 0.0) return;

  sweep.offset = {-sweep.offset.x, -sweep.offset.y};
  row = base;
  // If rows fall, the first one is drawn a second time.
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
  // Dashes that don't advance would be drawn for ever.
  if (sweep.period.x == 0 && sweep.period.y == 0) return;
  if (family.angle < halfPi) {
    DrawForwardRows(sweep, offX * turn, offY * turn);
  } else {
    DrawRows(sweep);
  }
}

}  // namespace hexlume
