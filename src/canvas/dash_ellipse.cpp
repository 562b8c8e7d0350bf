// The dashed ellipse, drawn by the angle of its parameter, so dashes are longer near the ends of
// the short axis.

#include <cmath>

#include "canvas/canvas.h"
#include "canvas/dash_steps.h"
#include "canvas/primitive_steps.h"
#include "driver/numbers.h"

namespace hexlume {

namespace {

struct EllipseShape {
  POINT centre, leftTop, rightBottom;
  int32_t rx, ry;
};

// The state of a walk along an ellipse, in radians. The signs of the axes decide where it starts and in which
// direction it goes.
struct EllipseWalk {
  double meanRadius;
  double endAngle;
  double angle;    // end of the last gap
  double dashEnd;  // end of the last dash, or place of the last dot
  bool ended;
};

// Unlike on lines and arcs, any element other than 0 is a dash.
bool IsDot(double element) {
  return element == 0.0;
}

void StepOn(EllipseWalk& walk, double element, int32_t index) {
  if (IsGapPlace(index)) {
    walk.angle = walk.dashEnd - element / walk.meanRadius;
    walk.ended = walk.angle > walk.endAngle;
  } else if (IsDot(element)) {
    walk.dashEnd = walk.angle;
  } else {
    walk.dashEnd = walk.angle + element / walk.meanRadius;
    walk.ended = walk.dashEnd > walk.endAngle;
    if (walk.ended) walk.dashEnd = walk.endAngle;
  }
}

// Each round of the pattern advances by the same angle, apart from rounding. If the second round doesn't
// advance, no later one does.
bool ReachesEnd(EllipseWalk walk, const double* pattern, int32_t count) {
  double roundStart = walk.angle;
  for (int32_t round = 0; round < 2; ++round) {
    roundStart = walk.angle;
    for (int32_t i = 0; i < count; ++i) {
      StepOn(walk, pattern[i], i);
      if (walk.ended) return true;
    }
  }
  return walk.angle > roundStart;
}

double MeanRadius(int32_t rx, int32_t ry) {
  // The squares wrap around for a large ellipse. If the sum becomes negative, the mean is NaN and the
  // walk never ends.
  return std::sqrt(static_cast<double>(WrapAdd(WrapMul(rx, rx), WrapMul(ry, ry)) / 2));
}

// The angle at which a walk starts, and that at which it ends, for a point dx to the right of the centre
// and dy below it. The quotients are inverted, and the two functions differ at the lower left. Dashes
// depend on both.
double AngleElsewhere(int32_t dx, int32_t dy) {
  if (dx > 0) return dy == 0 ? 0.0 : std::atan(static_cast<double>(dx) / dy);
  if (dx == 0) return dy > 0 ? threeHalvesPi : halfPi;
  return dy == 0 ? pi : std::atan(-static_cast<double>(dx) / dy) + halfPi;
}
double StartAngle(int32_t dx, int32_t dy) {
  if (dx < 0 && dy > 0) return threeHalvesPi - std::atan(static_cast<double>(dx) / dy);
  return AngleElsewhere(dx, dy);
}
double EndAngle(int32_t dx, int32_t dy) {
  if (dx < 0 && dy > 0) return threeHalvesPi + std::atan(static_cast<double>(dx) / dy);
  return AngleElsewhere(dx, dy);
}

EllipseWalk WalkBetween(const EllipseShape& ellipse, const POINT& start, const POINT& end) {
  EllipseWalk walk = {};
  walk.meanRadius = MeanRadius(ellipse.rx, ellipse.ry);
  walk.endAngle = twoPi;
  if (start.x == 0 && end.x == 0 && start.y == 0 && end.y == 0) return walk;

  const POINT& centre = ellipse.centre;
  walk.angle = StartAngle(WrapSub(start.x, centre.x), WrapSub(centre.y, start.y));
  walk.endAngle = EndAngle(WrapSub(end.x, centre.x), WrapSub(centre.y, end.y));
  if (walk.endAngle < walk.angle) walk.endAngle += twoPi;
  return walk;
}

POINT PointOnEllipse(const EllipseShape& ellipse, double angle) {
  return {WrapAdd(ellipse.centre.x, Trunc(std::cos(angle) * ellipse.rx)),
          WrapSub(ellipse.centre.y, Trunc(std::sin(angle) * ellipse.ry))};
}

// Widens the box by a unit, although the caller has widened it already.
void DrawPart(Canvas canvas, const EllipseShape& ellipse, const POINT& start, const POINT& end) {
  Arc(canvas, ellipse.leftTop.x, ellipse.leftTop.y, WrapAdd(ellipse.rightBottom.x, 1),
      WrapSub(ellipse.rightBottom.y, 1), start.x, start.y, end.x, end.y);
}

void DrawDashes(Canvas canvas, const EllipseShape& ellipse, EllipseWalk walk, const double* pattern,
                int32_t count) {
  for (int32_t i = 0; !walk.ended && MayStep(i); ++i) {
    const int32_t index = i % count;
    StepOn(walk, pattern[index], index);
    if (IsGapPlace(index)) continue;

    const POINT position = PointOnEllipse(ellipse, walk.angle);
    if (IsDot(pattern[index])) {
      DrawDot(canvas, position.x, position.y);
    } else {
      constexpr int64_t bytesOfArc = 28;  // more than those of a straight stroke
      CountStroke();
      CountWork(0, bytesOfArc);
      DrawPart(canvas, ellipse, position, PointOnEllipse(ellipse, walk.dashEnd));
    }
  }
}

}  // namespace

void DashEllipse(Canvas canvas, int32_t x, int32_t y, int32_t left, int32_t top, int32_t right,
                 int32_t bottom, int32_t xStart, int32_t yStart, int32_t xEnd, int32_t yEnd, int32_t rx,
                 int32_t ry, int32_t centreX, int32_t centreY, COLORREF color, const double* pattern,
                 int32_t count, int32_t mirror) {
  const EllipseShape ellipse = {PlacePoint(x, y, centreX, centreY, mirror),
                                PlacePoint(left, top, centreX, centreY, mirror),
                                PlacePoint(right, bottom, centreX, centreY, mirror), rx, ry};
  // On a turned sheet the two points of a whole ellipse aren't 0 any more, but equal: the first dash is
  // the whole ellipse.
  const POINT start = PlacePoint(xStart, yStart, centreX, centreY, mirror);
  const POINT end = PlacePoint(xEnd, yEnd, centreX, centreY, mirror);
  const EllipseWalk walk = WalkBetween(ellipse, start, end);

  const SelectedPen pen = SelectNewPen(canvas, PS_SOLID, 0, color);
  const HGDIOBJ brush = GetStockObject(NULL_BRUSH);
  const HGDIOBJ previousBrush = SelectObject(canvas, brush);
  if (ReachesEnd(walk, pattern, count)) {
    DrawDashes(canvas, ellipse, walk, pattern, count);
  } else {
    DrawPart(canvas, ellipse, start, end);
  }
  RestorePen(canvas, pen);
  SelectObject(canvas, previousBrush);
  // Deleting a stock object has no effect. The call is part of the fixed sequence.
  DeleteObject(brush);
}

}  // namespace hexlume
