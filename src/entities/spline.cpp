// SPLINE: one PolyBezier. Every spline is treated as cubic, open and unweighted. Its points are converted to
// the sheet when they are read, so knots are inserted in whole units.
#include "entities/spline.h"

#include <algorithm>
#include <vector>

#include "driver/group_reader.h"
#include "driver/work_budget.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"
#include "entities/knot_insertion.h"

namespace hexlume {

namespace {

// The groups read so far.
struct SplineGroups {
  std::vector<POINT> control, fit;
  std::vector<double> knots;
  int32_t controlCount = 0;
  int32_t fitCount = 0;
  size_t pointIndex = 0;  // next free place, first for control points and then for fit points
  bool firstFit = true;   // until a fit point has been read
};

constexpr auto bound = static_cast<size_t>(maxSplinePoints);

// All places beyond the bound share one element: it shows that the bound was exceeded.
POINT& PointAt(std::vector<POINT>& points, size_t place) {
  place = std::min(place, bound);
  if (place >= points.size()) points.resize(place + 1);
  return points[place];
}

void SetX(std::vector<POINT>& points, size_t place, double x) {
  PointAt(points, place).x = ModelToSheet(x, 0.0).x;
}

void SetY(std::vector<POINT>& points, size_t place, double y) {
  PointAt(points, place).y = ModelToSheet(0.0, y).y;
}

// Fit points start at place 0 again.
void StartFit(SplineGroups& spline) {
  if (spline.firstFit) spline.pointIndex = 0;
  spline.firstFit = false;
}

void AddKnot(SplineGroups& spline, double knot) {
  if (spline.knots.size() <= bound) spline.knots.push_back(knot);
}

bool ExceedsBound(const SplineGroups& spline) {
  return spline.control.size() > bound || spline.fit.size() > bound || spline.knots.size() > bound;
}

// Counts points that are computed and written.
void CountPoints(size_t count) {
  constexpr int64_t stepsOfPoint = 40;
  constexpr int64_t bytesOfPoint = 8;
  const auto points = static_cast<int64_t>(count);
  CountWork(points * stepsOfPoint, points * bytesOfPoint);
}

// Without control points: straight spans from fit point to fit point, each a curve whose handles are its own
// end points. The number of spans is fitCount or, if it is 0, the number of points read.
std::vector<POINT> StraightSpans(const SplineGroups& spline) {
  const size_t count = spline.fitCount != 0 ? static_cast<size_t>(spline.fitCount) : spline.pointIndex;
  if (count > (bound - 1) / 3) {  // true for a negative count too
    if (spline.fitCount >= 0) NoteBound(splinePointsBound);
    return {};
  }
  CountPoints(3 * count + 1);
  if (IsOverBudget()) return {};
  std::vector<POINT> points;
  for (size_t i = 0; i < count; ++i) {
    const POINT start = ElementAt(spline.fit, i);
    points.push_back(start);
    points.push_back(start);
    points.push_back(i + 1 < count ? ElementAt(spline.fit, i + 1) : start);
  }
  points.push_back(count > 0 ? points.back() : POINT{});
  return points;
}

// The points of the curves. Empty if a count is invalid or the bound is exceeded.
std::vector<POINT> BezierPoints(const SplineGroups& spline) {
  if (ExceedsBound(spline)) NoteBound(splinePointsBound);
  if (ExceedsBound(spline) || spline.controlCount < 0) return {};
  if (spline.controlCount == 0) return StraightSpans(spline);
  // Each knot gives at most two points.
  CountPoints(static_cast<size_t>(std::min(spline.controlCount, maxSplinePoints)) + 2 * spline.knots.size());
  if (IsOverBudget()) return {};
  std::vector<POINT> points;
  if (!InsertKnots(spline.control, spline.knots, spline.controlCount, maxSplinePoints, points)) {
    NoteBound(splinePointsBound);
    return {};
  }
  if (spline.fitCount == 0) return points;
  // Fit points replace the ends of all curves, however many fit points there are.
  for (size_t i = 0; i < points.size(); i += 3) points[i] = ElementAt(spline.fit, i / 3);
  return points;
}

}  // namespace

int32_t DrawSpline(const EntityRun& run) {
  LineStyle style;
  SplineGroups spline;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveLinetype(value, style); break;
      case 8:
        if (!ResolveLayer(value, style, state.entColor)) return more;
        break;
      case 10: SetX(spline.control, spline.pointIndex, GroupHundredths()); break;
      case 11:
        StartFit(spline);
        SetX(spline.fit, spline.pointIndex, GroupHundredths());
        break;
      case 20: SetY(spline.control, spline.pointIndex++, GroupHundredths()); break;
      case 21: SetY(spline.fit, spline.pointIndex++, GroupHundredths()); break;
      case 40: AddKnot(spline, GroupNumber()); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 73: spline.controlCount = Atoi(value); break;
      case 74: spline.fitCount = Atoi(value); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);

  std::vector<POINT> points = BezierPoints(spline);
  if (points.empty()) return more;
  PenBezier(run.canvas, points.data(), static_cast<int32_t>(points.size()), state.centreX, state.centreY,
            style.width, ColorAt(state.entColor), style.family, state.rotated);
  return more;
}

int32_t DrawBlockSpline(const BlockRun& run) {
  LineStyle style;
  SplineGroups spline;
  int32_t inherit = 0;
  state.blockColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveBlockLinetype(value, style, inherit); break;
      case 8:
        if (!ResolveInheritedLayer(style, state.blockColor, run.insertColor, inherit)) return more;
        break;
      // Scaled and moved, but not turned.
      case 10: SetX(spline.control, spline.pointIndex, BlockX(GroupNumber(), run.blockOriginX)); break;
      case 11:
        StartFit(spline);
        SetX(spline.fit, spline.pointIndex, BlockX(GroupNumber(), run.blockOriginX));
        break;
      case 20: SetY(spline.control, spline.pointIndex++, BlockY(GroupNumber(), run.blockOriginY)); break;
      case 21: SetY(spline.fit, spline.pointIndex++, BlockY(GroupNumber(), run.blockOriginY)); break;
      case 40: AddKnot(spline, GroupNumber()); break;
      case 62: ResolveBlockColor(value, state.blockColor, run.insertColor, inherit); break;
      case 73: spline.controlCount = Atoi(value); break;
      case 74: spline.fitCount = Atoi(value); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.blockColor);

  std::vector<POINT> points = BezierPoints(spline);
  if (points.empty()) return more;
  // Always drawn with the thinnest pen, whatever the layer's width.
  PenBezier(run.canvas, points.data(), static_cast<int32_t>(points.size()), state.centreX, state.centreY, 0,
            ColorAt(state.blockColor), style.family, state.rotated);
  return more;
}

}  // namespace hexlume
