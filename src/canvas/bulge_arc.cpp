// The circle of a bulge between two vertices. The bulge is the tangent of a quarter of the arc's angle.

#include <cmath>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/work_budget.h"

namespace hexlume {

namespace {

// The fields of the record that hold one scope's circle.
struct ScopeCircle {
  double &radius, &centreX, &centreY;
};

}  // namespace

static double Degrees(double radians) {
  return radians * 180.0 / pi;
}

// The angle of (x, y) as seen from the centre in degrees, negated as AngleArc needs it.
static double NegatedAngle(double centreX, double centreY, double x, double y) {
  const double dx = x - centreX;
  const double dy = centreY - y;
  if (dx < 0) return Degrees(pi - std::atan(dy / (centreX - x)));
  if (dy > 0) return Degrees(dx == 0 ? halfPi : std::atan(dy / dx));
  return Degrees((dx == 0 ? -halfPi : std::atan(dy / dx)) + twoPi);
}

static double Midway(double a, double b) {
  return a < b ? a + (b - a) * 0.5 : b + (a - b) * 0.5;
}

static void SolveBulgeArc(double bulge, double startX, double startY, double x, double y,
                          const ScopeCircle& circle, double* startAngle, double* sweep) {
  constexpr int64_t stepsOfBulge = 500;  // with the cut at the view
  CountSteps(stepsOfBulge);
  const double angle = 4.0 * std::atan(std::fabs(bulge));
  const double halfAngle = angle * 0.5;

  // The centre is computed from the lower vertex, or from the start if both have the same Y.
  const bool endIsLower = y < startY;
  const double lowerX = endIsLower ? x : startX;
  const double lowerY = endIsLower ? y : startY;
  const double chordX = Midway(startX, x) - lowerX;
  const double chordY = Midway(startY, y) - lowerY;
  const double halfChord = std::sqrt(chordX * chordX + chordY * chordY);

  // For equal vertices a chord of 1 avoids a division by 0: the radius is 0 and the centre is the vertex.
  const bool equalVertices = !endIsLower && x >= startX && halfChord == 0;
  const double chordDirection = std::acos(chordX / (equalVertices ? 1.0 : halfChord));
  const double chordToCentre = halfPi - halfAngle;
  const bool centreLeftOfChord = endIsLower != (bulge < 0);
  const double centreDirection =
      centreLeftOfChord ? chordDirection + chordToCentre : chordDirection - chordToCentre;

  const double radius = halfChord / std::sin(halfAngle);
  circle.centreX = std::cos(centreDirection) * radius + lowerX;
  circle.centreY = std::sin(centreDirection) * radius + lowerY;
  // The radius isn't negative in practice, and must not be.
  circle.radius = std::fabs(radius);
  *startAngle = NegatedAngle(circle.centreX, circle.centreY, x, y);
  *sweep = Degrees(angle);
}

void BulgeArcCentre(double bulge, double x, double y, double* startAngle, double* sweep) {
  SolveBulgeArc(bulge, state.entX[0], state.entY[0], x, y,
                {state.entRadius, state.entCentreX, state.entCentreY}, startAngle, sweep);
}

void BlockBulgeArcCentre(double bulge, double x, double y, double* startAngle, double* sweep) {
  SolveBulgeArc(bulge, state.blockX[0], state.blockY[0], x, y,
                {state.blockRadius, state.blockCentreX, state.blockCentreY}, startAngle, sweep);
}

void DimBulgeArcCentre(double bulge, double x, double y, double* startAngle, double* sweep) {
  SolveBulgeArc(bulge, state.dimX[0], state.dimY[0], x, y,
                {state.dimRadius, state.dimCentreX, state.dimCentreY}, startAngle, sweep);
}

}  // namespace hexlume
