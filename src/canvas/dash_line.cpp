// The dashed line. Vertical, horizontal and sloped lines use different rules, so their dashes are in
// different places. Don't unify them.

#include <algorithm>
#include <cmath>
#include <utility>

#include "canvas/canvas.h"
#include "canvas/dash_steps.h"
#include "canvas/primitive_steps.h"
#include "driver/numbers.h"

namespace hexlume {

// The kinds of pattern elements. NaN is none of them.
static bool IsDot(double element) {
  return element >= 0.0 && element < 1.0;
}
static bool IsDash(double element) {
  return element >= 1.0;
}
static bool IsGap(double element) {
  return element < 0.0;
}

// A pattern without a dash or gap never advances.
static bool Advances(const double* pattern, int32_t count) {
  return std::any_of(pattern, pattern + std::max(count, 0),
                     [](double element) { return IsDash(element) || IsGap(element); });
}

// A length in whole units. Positions have 64 bits, so that a step beyond the last coordinate
// doesn't wrap around.
static int64_t Units(double length) {
  constexpr double pastEveryEnd = 1e10;
  return static_cast<int64_t>(std::clamp(length, -pastEveryEnd, pastEveryEnd));
}

// On vertical and horizontal lines a gap is at least one unit long.
static int64_t GapUnits(double element) {
  return Units(std::min(element, -1.0));
}

static void MoveTo(Canvas canvas, int64_t x, int64_t y) {
  MoveToEx(canvas, static_cast<int32_t>(x), static_cast<int32_t>(y), nullptr);
}

static void DashTo(Canvas canvas, int64_t x, int64_t y) {
  CountStroke();
  LineTo(canvas, static_cast<int32_t>(x), static_cast<int32_t>(y));
}

static void DotAt(Canvas canvas, int64_t x, int64_t y) {
  DrawDot(canvas, static_cast<int32_t>(x), static_cast<int32_t>(y));
}

// Walks down from start to end, in whole units.
static void WalkVertical(Canvas canvas, const LineEnds& line, const double* pattern, int32_t count) {
  const int32_t x = line.start.x;
  const int32_t end = line.end.y;
  int64_t y = line.start.y;
  MoveTo(canvas, x, y);
  for (int32_t i = 0; MayStep(i); ++i) {
    const double element = pattern[i % count];
    if (IsDot(element)) {
      DotAt(canvas, x, y);
    } else if (IsDash(element)) {
      y -= Units(element);
      DashTo(canvas, x, y < end ? end : y);
      if (y < end) return;
    } else if (IsGap(element)) {
      y += GapUnits(element);
      if (y < end) return;
      MoveTo(canvas, x, y);
    }
  }
}

// From start to end in either direction, in whole units.
static void WalkHorizontal(Canvas canvas, const LineEnds& line, const double* pattern, int32_t count) {
  const int32_t y = line.start.y;
  const int64_t end = line.end.x;
  const int32_t direction = line.start.x > end ? -1 : 1;
  int64_t x = line.start.x;
  MoveTo(canvas, x, y);
  for (int32_t i = 0; MayStep(i); ++i) {
    const double element = pattern[i % count];
    if (IsDot(element)) {
      DotAt(canvas, x, y);
    } else if (IsDash(element)) {
      x += Units(element) * direction;
      const bool pastEnd = x * direction > end * direction;
      DashTo(canvas, pastEnd ? end : x, y);
      if (pastEnd) return;
    } else if (IsGap(element)) {
      x -= GapUnits(element) * direction;
      if (x * direction > end * direction) return;
      MoveTo(canvas, x, y);
    }
  }
}

// Walks towards greater X only: callers sort the ends. Each position is computed from the start and the whole
// length walked, so that dashes keep their fractions.
static void WalkSloped(Canvas canvas, const LineEnds& line, const double* pattern, int32_t count) {
  const int32_t dy = WrapSub(line.end.y, line.start.y);
  const int32_t dx = WrapSub(line.end.x, line.start.x);
  const double theta = std::atan(static_cast<double>(dy) / dx);
  const double unitX = std::cos(theta);
  const double unitY = std::sin(theta);
  double walked = 0.0;
  int64_t x = line.start.x;
  int64_t y = line.start.y;
  MoveTo(canvas, x, y);
  for (int32_t i = 0; MayStep(i); ++i) {
    const double element = pattern[i % count];
    if (IsDot(element)) DotAt(canvas, x, y);
    if (!IsDash(element) && !IsGap(element)) continue;

    // A gap is one unit longer than its element here, unlike on vertical and horizontal lines.
    walked = IsDash(element) ? walked + element : walked - element + 1.0;
    // Adding 0.5 rounds growing values; a falling Y is truncated towards the start.
    x = line.start.x + Units(unitX * walked + 0.5);
    y = line.start.y + Units(unitY * walked + 0.5);
    const bool pastX = x > line.end.x;
    const bool pastY = (dy > 0 && y > line.end.y) || (dy < 0 && y < line.end.y);
    if (IsDash(element)) {
      // X and Y are cut separately, so the last dash can end a unit off the line's end.
      DashTo(canvas, pastX ? line.end.x : x, pastY ? line.end.y : y);
    }
    if (pastX || pastY) return;
    if (IsGap(element)) MoveTo(canvas, x, y);
  }
}

void DashLine(Canvas canvas, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t centreX, int32_t centreY,
              int32_t penWidth, COLORREF color, const double* pattern, int32_t count, int32_t mirror) {
  LineEnds line = PlaceLine(x1, y1, x2, y2, centreX, centreY, mirror);
  const bool vertical = line.start.x == line.end.x;
  // A vertical line is always walked downward.
  if (vertical && line.start.y < line.end.y) std::swap(line.start, line.end);

  const SelectedPen pen = SelectNewPen(canvas, PS_SOLID, penWidth, color);
  if (!Advances(pattern, count)) {
    MoveTo(canvas, line.start.x, line.start.y);
    DashTo(canvas, line.end.x, line.end.y);
  } else if (vertical) {
    WalkVertical(canvas, line, pattern, count);
  } else if (line.start.y == line.end.y) {
    WalkHorizontal(canvas, line, pattern, count);
  } else {
    WalkSloped(canvas, line, pattern, count);
  }
  RestorePen(canvas, pen);
}

}  // namespace hexlume
