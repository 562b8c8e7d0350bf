#include "composite/dash_sweep.h"

#include <algorithm>
#include <cmath>

#include "driver/numbers.h"
#include "driver/run_watch.h"

namespace hexlume {

namespace {

int32_t SheetPlace(int64_t place, int32_t mirror) {
  return static_cast<int32_t>(std::clamp<int64_t>(place * mirror, INT32_MIN, INT32_MAX));
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

}  // namespace

int64_t Units(double length) {
  constexpr double pastEveryEnd = 1e10;
  if (std::isnan(length)) return 0;
  return static_cast<int64_t>(std::clamp(length, -pastEveryEnd, pastEveryEnd));
}

void MoveBy(HatchPlace& pen, const HatchPlace& step, int64_t count) {
  pen.x += Units(static_cast<double>(step.x) * static_cast<double>(count));
  pen.y += Units(static_cast<double>(step.y) * static_cast<double>(count));
}

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

void PlayRow(DashSweep& sweep, HatchPlace pen) {
  do {
    for (int32_t i = 0; i < sweep.family.dashCount; ++i) {
      if (!TakeHatchStroke(sweep.strokesLeft)) return;
      const double dash = sweep.family.dashes[i];
      if (dash >= 0.0) CountStroke();
      const HatchPlace start = pen;
      MoveBy(pen, sweep.moves[i], 1);
      if (dash == 0.0) DrawDot(sweep, start);
      if (dash > 0.0) DrawDash(sweep, start, pen);
    }
  } while (pen.x <= sweep.right && pen.y <= sweep.top);
}

double SideOfNextRow(const DashSweep& sweep) {
  return static_cast<double>(sweep.period.x) * static_cast<double>(sweep.offset.y) -
         static_cast<double>(sweep.period.y) * static_cast<double>(sweep.offset.x);
}

}  // namespace hexlume
