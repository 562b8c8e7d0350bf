#include "composite/hatch_boundary.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "composite/hatch_arc.h"
#include "driver/group_reader.h"
#include "driver/work_budget.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// Edges of a path.
constexpr int32_t lineEdge = 1;
constexpr int32_t arcEdge = 2;
constexpr int32_t ellipseEdge = 3;
constexpr int32_t splineEdge = 4;

double Radians(double degrees) {
  return degrees * pi / 180.0;
}

// Corners. X and Y are separate groups: the X is stored in the next free place until the Y
// completes the corner.

bool HasRoom(const HatchBoundary& boundary) {
  if (boundary.pointCount < hatchCornerLimit) return true;
  NoteBound(hatchCornersBound);
  return false;
}

POINT& NextCorner(HatchBoundary& boundary) {
  if (boundary.pointCount >= boundary.points.size()) boundary.points.resize(boundary.pointCount + 1);
  return boundary.points[boundary.pointCount];
}

void WidenX(HatchExtent& extent, int32_t x) {
  extent.left = std::min(extent.left, x);
  extent.right = std::max(extent.right, x);
}

void WidenY(HatchExtent& extent, int32_t y) {
  extent.top = std::max(extent.top, y);
  extent.bottom = std::min(extent.bottom, y);
}

void StoreX(HatchBoundary& boundary, double x) {
  if (!HasRoom(boundary)) return;
  const int32_t sheetX = ModelToSheet(x, 0.0).x;
  NextCorner(boundary).x = sheetX;
  WidenX(boundary.extent, sheetX);
}

void StoreY(HatchBoundary& boundary, double y) {
  if (!HasRoom(boundary)) return;
  const int32_t sheetY = ModelToSheet(0.0, y).y;
  NextCorner(boundary).y = sheetY;
  ++boundary.pointCount;
  WidenY(boundary.extent, sheetY);
}

void AddCorner(HatchBoundary& boundary, double centreX, double centreY, double radians) {
  constexpr int64_t stepsOfCorner = 150;
  CountSteps(stepsOfCorner);
  StoreX(boundary, state.entRadius * std::cos(radians) + centreX);
  StoreY(boundary, state.entRadius * std::sin(radians) + centreY);
}

// Arcs, with one corner per degree.

void AddBulgeCorner(HatchBoundary& boundary, double degrees) {
  AddCorner(boundary, state.entCentreX, state.entCentreY, Radians(degrees));
}

// From (prevX, prevY) to (entX[0], entY[0]).
void AddBulgeArc(HatchBoundary& boundary, bool unmirrorsStart) {
  double start = 0.0;
  double sweep = 0.0;
  ArcFromBulge(boundary.bulge, boundary.prevX, boundary.prevY, start, sweep);
  AddBulgeCorner(boundary, start);
  double end = 0.0;
  if (boundary.bulge > 0.0) {
    // Only after the first corner, and only for a negative angle, that of the first quadrant.
    if (unmirrorsStart && start < 0.0) start = -start;
    end = start + sweep;
    for (int32_t i = WrapAdd(Trunc(start), 1); i < Trunc(end - 1.0); ++i) AddBulgeCorner(boundary, i);
  } else {
    end = start - sweep;
    for (int32_t i = Trunc(start); i > Trunc(1.0 + end); --i) AddBulgeCorner(boundary, i);
  }
  AddBulgeCorner(boundary, end);
}

void AddEdgeArc(HatchBoundary& boundary) {
  const bool isCounterClockwise = boundary.closedFlag == 1;
  if (!isCounterClockwise) {
    boundary.arcEnd = 360.0 - boundary.arcEnd;
    boundary.arcStart = 360.0 - boundary.arcStart;
    boundary.arcEndRad = Radians(boundary.arcEnd);
    boundary.arcStartRad = Radians(boundary.arcStart);
  }
  const double sweep =
      isCounterClockwise ? boundary.arcEnd - boundary.arcStart : boundary.arcStart - boundary.arcEnd;
  const int32_t count = Trunc(sweep + 1.0);
  const double x = state.entX[0];
  const double y = state.entY[0];
  AddCorner(boundary, x, y, boundary.arcStartRad);
  for (int32_t i = 1; i < count && HasRoom(boundary); ++i)
    AddCorner(boundary, x, y, Radians(boundary.arcStart + (isCounterClockwise ? i : -i)));
  AddCorner(boundary, x, y, boundary.arcEndRad);
}

// A fill is recorded in the sheet's units, a clip region in the device's.
void ToRegionUnits(Canvas canvas, const HatchBoundary& boundary, POINT* points, size_t count) {
  if (!boundary.solidFill) LPtoDP(canvas, points, static_cast<int>(count));
}

void AddPath(HatchBoundary& boundary, HatchPath path) {
  boundary.cornerSum += path.corners.size();
  if (boundary.paths.size() >= hatchPathLimit) {
    NoteBound(hatchPathsBound);
  } else if (boundary.cornerSum > hatchCornerSumLimit) {
    NoteBound(hatchCornersBound);
  } else if (FitsARegion(path)) {
    boundary.paths.push_back(std::move(path));
  }
}

void AddPolygon(Canvas canvas, HatchBoundary& boundary) {
  POINT* const points = boundary.points.data();
  ToRegionUnits(canvas, boundary, points, boundary.pointCount);
  AddPath(boundary, {false, {points, points + boundary.pointCount}});
}

// Always the whole ellipse, along X or Y.
void AddEllipse(Canvas canvas, HatchBoundary& boundary) {
  const double ratio = state.entRadius;
  const bool isAlongX = Trunc(state.entX[1]) != 0;
  const double a = isAlongX ? state.entX[1] : ratio * state.entY[1];
  const double b = isAlongX ? ratio * state.entX[1] : state.entY[1];
  POINT corners[] = {ModelToSheet(a + state.entX[0], state.entY[0] - b),
                     ModelToSheet(state.entX[0] - a, state.entY[0] + b)};
  // The right side widens the extent to the left and the left side to the right, and the Y of the far corner
  // isn't used. The start of a pattern's lines depends on it, so it must stay so.
  boundary.extent.left = std::min<int32_t>(boundary.extent.left, corners[0].x);
  boundary.extent.right = std::max<int32_t>(boundary.extent.right, corners[1].x);
  WidenY(boundary.extent, corners[0].y);
  ToRegionUnits(canvas, boundary, corners, 2);
  AddPath(boundary, {true, {corners[0], corners[1]}});
}

// Paths.

void ClosePath(HatchBoundary& boundary) {
  if (boundary.closedFlag != 1) return;
  if (boundary.bulge != 0.0) {
    boundary.prevX = state.entX[0];
    boundary.prevY = state.entY[0];
    state.entX[0] = state.entX[1];
    state.entY[0] = state.entY[1];
    AddBulgeArc(boundary, false);
  } else if (HasRoom(boundary)) {
    const POINT first = boundary.points[0];
    NextCorner(boundary) = first;
    ++boundary.pointCount;
  }
}

void FinishPath(Canvas canvas, HatchBoundary& boundary) {
  if (boundary.pointCount > 0) {
    ClosePath(boundary);
    AddPolygon(canvas, boundary);
  }
  boundary.pointCount = 0;
  boundary.bulge = 0.0;
}

// The path that no group 97 has finished.
void FinishLastPath(Canvas canvas, HatchBoundary& boundary) {
  if (boundary.pointCount > 0) ClosePath(boundary);
  if (boundary.pointCount > 2) AddPolygon(canvas, boundary);
}

// Groups. Centres and the ends of an ellipse's axes aren't corners.

bool IsCurve(const HatchBoundary& boundary) {
  return boundary.edgeType == arcEdge || boundary.edgeType == ellipseEdge;
}

void ReadX(HatchBoundary& boundary, double x) {
  if (boundary.edgeType == splineEdge) {
    // The control points are used as corners.
    StoreX(boundary, x);
    return;
  }
  state.entX[0] = x;
  if (IsCurve(boundary)) return;
  if (boundary.pointCount == 0) state.entX[1] = x;
  if (boundary.bulge == 0.0) StoreX(boundary, x);
}

void ReadY(HatchBoundary& boundary, double y) {
  if (boundary.edgeType == splineEdge) {
    StoreY(boundary, y);
    return;
  }
  state.entY[0] = y;
  if (IsCurve(boundary)) return;
  if (boundary.pointCount == 0) state.entY[1] = y;
  if (boundary.bulge != 0.0) {
    AddBulgeArc(boundary, true);
    boundary.bulge = 0.0;
  } else {
    StoreY(boundary, y);
  }
}

void ReadEndX(HatchBoundary& boundary, double x) {
  state.entX[boundary.edgeType == lineEdge ? 0 : 1] = x;
  if (boundary.edgeType == lineEdge) StoreX(boundary, x);
}

void ReadEndY(HatchBoundary& boundary, double y) {
  state.entY[boundary.edgeType == lineEdge ? 0 : 1] = y;
  if (boundary.edgeType == lineEdge) StoreY(boundary, y);
}

void ReadBulge(HatchBoundary& boundary, double bulge) {
  boundary.bulge = bulge;
  boundary.prevX = state.entX[0];
  boundary.prevY = state.entY[0];
}

// Angles are rounded to floats.
void ReadStartAngle(HatchBoundary& boundary, double degrees) {
  boundary.arcStart = static_cast<float>(degrees);
  boundary.arcStartRad = Radians(boundary.arcStart);
}

void ReadEndAngle(HatchBoundary& boundary, double degrees) {
  boundary.arcEnd = static_cast<float>(degrees);
  if (boundary.arcEnd < boundary.arcStart) boundary.arcEnd += 360.0;
  boundary.arcEndRad = Radians(boundary.arcEnd);
}

// Returns false for an unknown style: reading continues.
bool ReadStyle(HatchBoundary& boundary, int32_t style) {
  switch (style) {
    case 0: boundary.combineMode = RGN_XOR; return true;
    case 1: boundary.combineMode = coveredOnce; return true;
    case 2: boundary.combineMode = RGN_OR; return true;
  }
  return false;
}

void ReadBoundaryGroup(Canvas canvas, HatchBoundary& boundary) {
  const char* value = state.groupValue;
  switch (state.groupCode) {
    case 10: ReadX(boundary, Hundredths(value)); break;
    case 11: ReadEndX(boundary, Hundredths(value)); break;
    case 20: ReadY(boundary, Hundredths(value)); break;
    case 21: ReadEndY(boundary, Hundredths(value)); break;
    case 40: state.entRadius = Atof(value) * (boundary.edgeType == arcEdge ? 100.0 : 1.0); break;
    case 42: ReadBulge(boundary, Atof(value)); break;
    case 50: ReadStartAngle(boundary, Atof(value)); break;
    case 51:
      ReadEndAngle(boundary, Atof(value));
      if (boundary.edgeType == ellipseEdge) AddEllipse(canvas, boundary);
      break;
    case 72: boundary.edgeType = Atoi(value); break;
    case 73:
      boundary.closedFlag = Atoi(value);
      if (boundary.edgeType == arcEdge) AddEdgeArc(boundary);
      break;
    case 97: FinishPath(canvas, boundary); break;
  }
}

}  // namespace

int32_t ReadHatchBoundary(TextStream& stream, Canvas canvas, HatchBoundary& boundary) {
  boundary.extent = {state.sheetWidth, WrapNegate(state.sheetHeight), 0, 0};
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    if (state.groupCode == 75 && ReadStyle(boundary, Atoi(state.groupValue))) break;
    ReadBoundaryGroup(canvas, boundary);
  }
  FinishLastPath(canvas, boundary);
  boundary.regions = MakeRegions(boundary.paths);
  return more;
}

}  // namespace hexlume
