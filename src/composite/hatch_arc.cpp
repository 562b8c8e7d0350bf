// The circle of a bulge in a hatch's boundary. It differs from a polyline's bulge: for level vertices it
// starts from the other one, and its start angle belongs to the other end of the arc.
#include "composite/hatch_arc.h"

#include <cmath>

#include "canvas/canvas.h"
#include "driver/conv_state.h"

namespace hexlume {

namespace {

double Degrees(double radians) {
  return radians * 180.0 / pi;
}

double Length(double dx, double dy) {
  return std::sqrt(dx * dx + dy * dy);
}

void PlaceCentre(double fromX, double fromY, double direction) {
  state.entCentreX = fromX + state.entRadius * std::cos(direction);
  state.entCentreY = fromY + state.entRadius * std::sin(direction);
}

// The angle of the vertex as seen from the centre, mirrored about the X axis; exactly above and below the
// centre it isn't mirrored. Both are wrong for an outline and must stay so.
double StartAngle(double x, double y) {
  const double dx = x - state.entCentreX;
  const double dy = state.entCentreY - y;
  const int32_t thousandths = Trunc(dx * 1000.0);
  if (thousandths < 0) return Degrees(pi - std::atan(dy / (state.entCentreX - x)));
  if (Trunc(dy * 1000.0) > 0) return Degrees((thousandths == 0 ? -halfPi : std::atan(dy / dx)) + twoPi);
  return Degrees(thousandths == 0 ? halfPi : std::atan(dy / dx));
}

}  // namespace

void ArcFromBulge(double bulge, double x0, double y0, double& startAngle, double& sweep) {
  const double endX = state.entX[0];
  const double endY = state.entY[0];
  const double angle = 4.0 * std::atan(std::fabs(bulge));
  const double halfAngle = angle * 0.5;
  const double middleX = x0 + (endX - x0) * 0.5;
  const double middleY = y0 + (endY - y0) * 0.5;
  const double chordToCentre = halfPi - halfAngle;
  sweep = Degrees(angle);

  // The centre is computed from the lower vertex, or from the end if both have the same Y.
  if (y0 < endY) {
    const double halfChord = Length(middleX - x0, middleY - y0);
    const double chordDirection = std::acos((middleX - x0) / halfChord);
    state.entRadius = halfChord / std::sin(halfAngle);
    PlaceCentre(x0, y0, bulge < 0.0 ? chordDirection - chordToCentre : chordDirection + chordToCentre);
  } else {
    const double halfChord = Length(middleX - endX, middleY - endY);
    const bool equalVertices = !(x0 < endX) && halfChord == 0.0;
    const double chordDirection = std::acos((middleX - endX) / (equalVertices ? 1.0 : halfChord));
    state.entRadius = halfChord / std::sin(halfAngle);
    PlaceCentre(endX, endY, bulge < 0.0 ? chordDirection + chordToCentre : chordDirection - chordToCentre);
  }
  startAngle = StartAngle(x0, y0);
  // The radius isn't negative in practice, and must not be.
  if (state.entRadius < 0.0) state.entRadius = -state.entRadius;
}

}  // namespace hexlume
