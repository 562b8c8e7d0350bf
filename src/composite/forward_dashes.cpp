// Families of dashed lines from 0 to below 90 degrees. Each row is computed from the one before it by the
// truncated offsets and by whole periods. A pass ends by its own test, whether or not its rows are visible,
// and a family whose rows start inside the extent can leave a part of it empty.

#include <algorithm>
#include <cmath>

#include "composite/dash_sweep.h"
#include "driver/numbers.h"

namespace hexlume {

namespace {

// One pass over the rows.
struct RowPass {
  bool (*beginNext)(const DashSweep& sweep, HatchPlace& row);  // returns false if the pass ends
  bool endsAtTheRight;                                         // otherwise above the top edge
  bool endsBelow;                                              // also ends horizontal rows below the extent
  bool canSkip;                                                // whether skipping periods advances
};

// Rows that fall.

bool BeginNextFalling(const DashSweep& sweep, HatchPlace& row) {
  row.x += sweep.offset.x;
  if (row.x > sweep.right) return false;
  row.y += sweep.offset.y;
  if (Trunc(sweep.stepY) != 0) SkipForwardToBottom(sweep, row);
  return true;
}

bool BeginPreviousFalling(const DashSweep& sweep, HatchPlace& row) {
  MoveBy(row, sweep.offset, 1);
  if (row.y > sweep.top) return false;
  SkipForwardToLeft(sweep, row);
  return true;
}

// Rows that rise, with the offset on the right of the line.

bool BeginNextOnTheRight(const DashSweep& sweep, HatchPlace& row) {
  row.x += sweep.offset.x;
  if (row.x > sweep.right) return false;
  row.y += sweep.offset.y;
  if (sweep.stepY != 0.0) SkipBackToBottom(sweep, row);
  return true;
}

bool BeginPreviousOnTheRight(const DashSweep& sweep, HatchPlace& row) {
  row.x += sweep.offset.x;
  if (row.x > sweep.right && Trunc(sweep.stepY) == 0) return false;
  row.y += sweep.offset.y;
  if (sweep.stepY <= 0.0 && row.y < sweep.bottom) return false;
  if (row.y > sweep.top) return false;
  // To the edge itself, not to a period before it.
  MoveBy(row, sweep.period, StepsOver(sweep.left - row.x, sweep.period.x));
  return row.y < sweep.top;
}

// Rows that rise, with the offset on the left of the line or along it.

bool BeginNextOnTheLeft(const DashSweep& sweep, HatchPlace& row) {
  MoveBy(row, sweep.offset, 1);
  SkipBackToLeft(sweep, row);
  return row.y <= sweep.top;
}

bool BeginPreviousOnTheLeft(const DashSweep& sweep, HatchPlace& row) {
  row.x += sweep.offset.x;
  if (row.x > sweep.right) return false;
  row.y += sweep.offset.y;
  if (sweep.stepY <= 0.0 && row.y < sweep.bottom) return false;
  SkipForwardToBottom(sweep, row);
  return true;
}

// Passes that would never end. Truncation can prevent rows from moving toward the end of their pass.

bool MovesTowardTheEnd(const DashSweep& sweep, const RowPass& pass) {
  if (pass.endsBelow && sweep.stepY <= 0.0 && sweep.offset.y < 0) return true;
  if (!pass.canSkip) return (pass.endsAtTheRight ? sweep.offset.x : sweep.offset.y) > 0;
  return pass.endsAtTheRight ? SideOfNextRow(sweep) < 0.0 : SideOfNextRow(sweep) > 0.0;
}

// Whether no later row can start where the pass ends, as each starts on the line of this one or further back.
bool NeverEnds(const DashSweep& sweep, const RowPass& pass, const HatchPlace& row) {
  if (MovesTowardTheEnd(sweep, pass)) return false;
  const HatchPlace& period = sweep.period;
  // For the second pass over rising rows, the top edge itself is an end too.
  const int64_t lastY = pass.endsBelow ? sweep.top - 1 : sweep.top;
  if (sweep.offset.x == 0 && sweep.offset.y == 0)
    return pass.endsAtTheRight ? row.x <= sweep.right : row.y <= lastY;
  if (!pass.canSkip) return true;
  if (pass.endsAtTheRight) {
    const int64_t afterSkip = Units(static_cast<double>(sweep.bottom) - sweep.stepY) + 1 + period.y;
    const auto rise = static_cast<double>(std::max({row.y, sweep.bottom, afterSkip}) - row.y);
    const double x = static_cast<double>(row.x + sweep.offset.x) +
                     rise * static_cast<double>(period.x) / static_cast<double>(period.y);
    return x <= static_cast<double>(sweep.right);
  }
  const int64_t farthest = std::max(row.x, sweep.left + period.x);
  if (pass.endsBelow && farthest > sweep.right && Trunc(sweep.stepY) == 0) return false;
  const double y = static_cast<double>(row.y) + static_cast<double>(farthest - row.x) *
                                                    static_cast<double>(period.y) /
                                                    static_cast<double>(period.x);
  return y <= static_cast<double>(lastY);
}

// Whether neither this row nor any later one meets the extent.
bool IsLeftBehind(const DashSweep& sweep, const HatchPlace& row) {
  const bool toTheLeft = SideOfNextRow(sweep) > 0.0;
  const auto x = static_cast<double>((toTheLeft ? sweep.left : sweep.right) - row.x);
  const auto y = static_cast<double>((toTheLeft ? sweep.top : sweep.bottom) - row.y);
  const double side = static_cast<double>(sweep.period.x) * y - static_cast<double>(sweep.period.y) * x;
  return toTheLeft ? side < 0.0 : side > 0.0;
}

// Returns false if all rows are the same.
bool PlayRows(DashSweep& sweep, const RowPass& pass, HatchPlace row) {
  bool isGone = false;
  do {
    PlayRow(sweep, row);
    if (sweep.strokesLeft <= 0 || !pass.beginNext(sweep, row)) return true;
    if (!NeverEnds(sweep, pass, row)) continue;
    if (SideOfNextRow(sweep) == 0.0) return false;
    isGone = IsLeftBehind(sweep, row);
  } while (!isGone);
  return true;
}

void TurnOffset(DashSweep& sweep) {
  sweep.offset = {-sweep.offset.x, -sweep.offset.y};
}

HatchPlace BaseOf(const DashSweep& sweep) {
  return {sweep.family.baseX, sweep.family.baseY};
}

void DrawFallingRows(DashSweep& sweep) {
  const bool nearlyLevel = Trunc(sweep.stepY) == 0;
  HatchPlace row = BaseOf(sweep);
  SkipBackToLeft(sweep, row);
  if (nearlyLevel) {
    // Starts at the top, and at the left edge whatever the phase.
    MoveBy(row, sweep.offset, -StepsOver(sweep.top - row.y, -sweep.offset.y));
    row.x = std::max(row.x, sweep.left);
  }
  if (!PlayRows(sweep, {BeginNextFalling, true, false, !nearlyLevel && sweep.period.y > 0}, row)) return;
  TurnOffset(sweep);
  // Starts at the base, so its row is drawn a second time.
  PlayRows(sweep, {BeginPreviousFalling, false, false, sweep.period.x > 0}, BaseOf(sweep));
}

void DrawRisingRows(DashSweep& sweep, bool onTheLeft) {
  const bool skipsAlongX = sweep.period.x > 0;
  const bool skipsAlongY = sweep.period.y > 0;
  HatchPlace row = BaseOf(sweep);
  SkipBackToLeft(sweep, row);
  const RowPass next = onTheLeft
                           ? RowPass{BeginNextOnTheLeft, false, false, skipsAlongX}
                           : RowPass{BeginNextOnTheRight, true, false, skipsAlongY && sweep.stepY != 0.0};
  if (!PlayRows(sweep, next, row)) return;
  TurnOffset(sweep);
  row = BaseOf(sweep);
  MoveBy(row, sweep.offset, 1);
  const RowPass previous = onTheLeft ? RowPass{BeginPreviousOnTheLeft, true, true, skipsAlongY}
                                     : RowPass{BeginPreviousOnTheRight, false, true, skipsAlongX};
  PlayRows(sweep, previous, row);
}

}  // namespace

void DrawForwardRows(DashSweep& sweep, double offX, double offY) {
  if (offY < 0.0) {
    DrawFallingRows(sweep);
  } else {
    DrawRisingRows(sweep, !(sweep.family.angle > std::atan(offY / offX)));
  }
}

}  // namespace hexlume
