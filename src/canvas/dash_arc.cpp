// The dashed arc, drawn by angles.

#include <cmath>

#include "canvas/canvas.h"
#include "canvas/dash_steps.h"
#include "canvas/primitive_steps.h"
#include "driver/numbers.h"

namespace hexlume {

namespace {

// The state of a walk along an arc, counter-clockwise.
struct ArcWalk {
  double radius;
  double endDegrees;  // negated
  double angle;       // radians: end of the last gap
  double dashAngle;   // radians: length of the last dash; 0 before the first
  bool ended;
};

bool IsDot(double element) {
  return Trunc(element) == 0;
}

void StepOn(ArcWalk& walk, double element, int32_t index) {
  const double negatedEnd = walk.endDegrees * pi / 180.0;
  if (IsGapPlace(index)) {
    // The dash before the gap is added here. After a dot this is the dash before the dot once more, so the
    // gap is longer by that dash.
    walk.angle = (walk.dashAngle - element / walk.radius) + walk.angle;
    walk.ended = negatedEnd > -walk.angle;
  } else if (!IsDot(element)) {
    walk.dashAngle = element / walk.radius;
    walk.ended = negatedEnd > -(walk.dashAngle + walk.angle);
    if (walk.ended) walk.dashAngle = walk.endDegrees * pi / -180.0 - walk.angle;
  }
}

// From the second round of the pattern on, each round advances by the same angle. The first can differ, as
// its dots and gaps may have no dash before them. If the second round doesn't advance, no later one does.
bool ReachesEnd(ArcWalk walk, const double* pattern, int32_t count) {
  double roundStart = walk.angle;
  for (int32_t round = 0; round < 2; ++round) {
    roundStart = walk.angle;
    for (int32_t i = 0; i < count; ++i) {
      StepOn(walk, pattern[i], i);
      if (walk.ended) return true;
    }
  }
  return walk.angle > roundStart && std::isfinite(walk.endDegrees);
}

POINT PointOnArc(const POINT& centre, const ArcWalk& walk) {
  const double negated = -walk.angle;
  return {WrapAdd(centre.x, Trunc(std::cos(negated) * walk.radius)),
          WrapSub(centre.y, Trunc(std::sin(negated) * walk.radius))};
}

void DrawDash(Canvas canvas, const POINT& centre, int32_t radius, const ArcWalk& walk) {
  CountStroke();
  AngleArc(canvas, centre.x, centre.y, static_cast<DWORD>(radius),
           static_cast<float>(-180.0 * walk.angle / pi), static_cast<float>(walk.dashAngle * -180.0 / pi));
}

void DrawDashes(Canvas canvas, const POINT& centre, int32_t radius, ArcWalk walk, const double* pattern,
                int32_t count) {
  POINT position = PointOnArc(centre, walk);
  for (int32_t i = 0; !walk.ended && MayStep(i); ++i) {
    const int32_t index = i % count;
    StepOn(walk, pattern[index], index);
    if (IsGapPlace(index)) {
      position = PointOnArc(centre, walk);
      MoveToEx(canvas, position.x, position.y, nullptr);
    } else if (IsDot(pattern[index])) {
      DrawDot(canvas, position.x, position.y);
    } else {
      DrawDash(canvas, centre, radius, walk);
    }
  }
}

}  // namespace

void DashArc(Canvas canvas, int32_t x, int32_t y, int32_t radius, double startAngle, double sweep,
             int32_t centreX, int32_t centreY, COLORREF color, const double* pattern, int32_t count,
             int32_t mirror) {
  const POINT centre = PlacePoint(x, y, centreX, centreY, mirror);
  if (mirror) startAngle += 180.0;
  if (startAngle < -360.0) startAngle += 360.0;
  const ArcWalk walk = {static_cast<double>(radius), startAngle + sweep, -(pi * startAngle / 180.0), 0.0,
                        false};

  const SelectedPen pen = SelectNewPen(canvas, PS_SOLID, 0, color);
  const POINT start = PointOnArc(centre, walk);
  MoveToEx(canvas, start.x, start.y, nullptr);
  if (ReachesEnd(walk, pattern, count)) {
    DrawDashes(canvas, centre, radius, walk, pattern, count);
  } else {
    AngleArc(canvas, centre.x, centre.y, static_cast<DWORD>(radius), static_cast<float>(startAngle),
             static_cast<float>(sweep));
  }
  RestorePen(canvas, pen);
}

}  // namespace hexlume
