#include "composite/hatch_boundary.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "composite/hatch_arc.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// Edges of a path.
constexpr int32_t lineEdge = 1;
constexpr int32_t arcEdge = 2;
constexpr int32_t ellipseEdge = 3;
constexpr int32_t splineEdge = 4;

// The combineMode of a style that CombineRgn has no mode for; its own 4 isn't used.
constexpr int32_t coveredOnce = 4;

double Radians(double degrees) {
  return degrees * pi / 180.0;
}

// Corners. X and Y come with groups of their own: the X waits in the next free place until the Y completes
// the corner.

bool HasRoom(const HatchBoundary& boundary) {
  return boundary.pointCount < hatchCornerLimit;
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
  StoreX(boundary, state.entRadius * std::cos(radians) + centreX);
  StoreY(boundary, state.entRadius * std::sin(radians) + centreY);
}

// Arcs, a corner for each degree.

void AddBulgeCorner(HatchBoundary& boundary, double degrees) {
  AddCorner(boundary, state.entCentreX, state.entCentreY, Radians(degrees));
}

// From prevX, prevY to entX[0], entY[0].
void AddBulgeArc(HatchBoundary& boundary, bool unmirrorsStart) {
  double start = 0.0;
  double sweep = 0.0;
  ArcFromBulge(boundary.bulge, boundary.prevX, boundary.prevY, start, sweep);
  AddBulgeCorner(boundary, start);
  double end = 0.0;
  if (boundary.bulge > 0.0) {
    // Only now, behind the first corner, and only a negative one, that of the first quadrant.
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

// Regions.

bool FitsARegion(const POINT* points, size_t count) {
  int64_t rows = 0;
  for (size_t i = 0; i < count; ++i) {
    const POINT& point = points[i];
    for (const int64_t side : {point.x, point.y}) {
      if (std::abs(side) > regionReach) return false;
    }
    const POINT& before = points[i == 0 ? count - 1 : i - 1];
    rows += std::abs(static_cast<int64_t>(point.y) - before.y);
  }
  return rows <= regionRowLimit;
}

void AddRegion(HatchBoundary& boundary, Region region) {
  if (region && boundary.regions.size() < hatchRegionLimit) boundary.regions.push_back(std::move(region));
}

// A fill is recorded in the sheet's units, a clip region in the device's.
void ToRegionUnits(Canvas canvas, const HatchBoundary& boundary, POINT* points, size_t count) {
  if (!boundary.solidFill) LPtoDP(canvas, points, static_cast<int>(count));
}

void AddPathRegion(Canvas canvas, HatchBoundary& boundary) {
  POINT* const points = boundary.points.data();
  if (!FitsARegion(points, boundary.pointCount)) return;
  ToRegionUnits(canvas, boundary, points, boundary.pointCount);
  AddRegion(boundary, Region(CreatePolygonRgn(points, static_cast<int>(boundary.pointCount), ALTERNATE)));
}

// Always the whole ellipse, along X or Y.
void AddEllipseRegion(Canvas canvas, HatchBoundary& boundary) {
  const double ratio = state.entRadius;
  const bool isAlongX = Trunc(state.entX[1]) != 0;
  const double a = isAlongX ? state.entX[1] : ratio * state.entY[1];
  const double b = isAlongX ? ratio * state.entX[1] : state.entY[1];
  POINT corners[] = {ModelToSheet(a + state.entX[0], state.entY[0] - b),
                     ModelToSheet(state.entX[0] - a, state.entY[0] + b)};
  // The right side widens the extent to the left and the left side to the right, and the far corner's Y
  // doesn't count: the lines of a pattern start where they always have.
  boundary.extent.left = std::min<int32_t>(boundary.extent.left, corners[0].x);
  boundary.extent.right = std::max<int32_t>(boundary.extent.right, corners[1].x);
  WidenY(boundary.extent, corners[0].y);
  if (!FitsARegion(corners, 2)) return;
  ToRegionUnits(canvas, boundary, corners, 2);
  AddRegion(boundary, Region(CreateEllipticRgn(corners[0].x, corners[0].y, corners[1].x, corners[1].y)));
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
    AddPathRegion(canvas, boundary);
  }
  boundary.pointCount = 0;
  boundary.bulge = 0.0;
}

// The path that no group 97 has finished.
void FinishLastPath(Canvas canvas, HatchBoundary& boundary) {
  if (boundary.pointCount > 0) ClosePath(boundary);
  if (boundary.pointCount > 2) AddPathRegion(canvas, boundary);
}

// Groups. Centres, and the ends of an ellipse's axes, are no corners.

bool IsCurve(const HatchBoundary& boundary) {
  return boundary.edgeType == arcEdge || boundary.edgeType == ellipseEdge;
}

void ReadX(HatchBoundary& boundary, double x) {
  if (boundary.edgeType == splineEdge) {
    // The control points serve as corners.
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

// Angles come in through single precision.
void ReadStartAngle(HatchBoundary& boundary, double degrees) {
  boundary.arcStart = static_cast<float>(degrees);
  boundary.arcStartRad = Radians(boundary.arcStart);
}

void ReadEndAngle(HatchBoundary& boundary, double degrees) {
  boundary.arcEnd = static_cast<float>(degrees);
  if (boundary.arcEnd < boundary.arcStart) boundary.arcEnd += 360.0;
  boundary.arcEndRad = Radians(boundary.arcEnd);
}

// False for a value that is no style: reading goes on.
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
    case 10: ReadX(boundary, Atof(value) * 100.0); break;
    case 11: ReadEndX(boundary, Atof(value) * 100.0); break;
    case 20: ReadY(boundary, Atof(value) * 100.0); break;
    case 21: ReadEndY(boundary, Atof(value) * 100.0); break;
    case 40: state.entRadius = Atof(value) * (boundary.edgeType == arcEdge ? 100.0 : 1.0); break;
    case 42: ReadBulge(boundary, Atof(value)); break;
    case 50: ReadStartAngle(boundary, Atof(value)); break;
    case 51:
      ReadEndAngle(boundary, Atof(value));
      if (boundary.edgeType == ellipseEdge) AddEllipseRegion(canvas, boundary);
      break;
    case 72: boundary.edgeType = Atoi(value); break;
    case 73:
      boundary.closedFlag = Atoi(value);
      if (boundary.edgeType == arcEdge) AddEdgeArc(boundary);
      break;
    case 97: FinishPath(canvas, boundary); break;
  }
}

// Makes one of all, at the first place, with combine(first, second) for two that follow each other. What it
// makes grows, so neighbours are joined to pairs, then these, and so on, and not one after the other to the
// whole.
template <typename Combine>
void CombineNeighbours(size_t count, Combine combine) {
  for (size_t apart = 1; apart < count; apart *= 2)
    for (size_t i = 0; i + apart < count; i += 2 * apart) combine(i, i + apart);
}

void CombineByMode(HRGN result, std::vector<Region>& regions, int32_t mode) {
  CombineNeighbours(regions.size(), [&](size_t first, size_t second) {
    CombineRgn(regions[first].get(), regions[first].get(), regions[second].get(), mode);
    regions[second].reset();
  });
  CombineRgn(result, result, regions.front().get(), mode);
}

// What exactly one region covers: all without what any two share.
void CombineCoveredOnce(HRGN result, std::vector<Region>& regions) {
  const Region common(CreateRectRgn(0, 0, 0, 0));
  std::vector<Region> shared;
  for (size_t i = 0; i < regions.size(); ++i) shared.emplace_back(CreateRectRgn(0, 0, 0, 0));
  CombineNeighbours(regions.size(), [&](size_t first, size_t second) {
    const HRGN all = regions[first].get();
    CombineRgn(common.get(), all, regions[second].get(), RGN_AND);
    CombineRgn(shared[first].get(), shared[first].get(), shared[second].get(), RGN_OR);
    CombineRgn(shared[first].get(), shared[first].get(), common.get(), RGN_OR);
    CombineRgn(all, all, regions[second].get(), RGN_OR);
    shared[second].reset();
    regions[second].reset();
  });
  CombineRgn(result, regions.front().get(), shared.front().get(), RGN_XOR);
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
  return more;
}

Region CombineRegions(HatchBoundary& boundary) {
  Region result(CreateRectRgn(0, 0, 0, 0));
  // Without a style nothing is covered.
  if (boundary.regions.empty() || boundary.combineMode == -1) return result;
  if (boundary.combineMode == coveredOnce)
    CombineCoveredOnce(result.get(), boundary.regions);
  else
    CombineByMode(result.get(), boundary.regions, boundary.combineMode);
  return result;
}

}  // namespace hexlume
