#include "tools/hexlume/metafile/player_path.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace hexlume {
namespace {

constexpr double halfPi = 1.57079632679489662;

// The number of bisections after which a piece of any length is short.
constexpr int mostSplits = 40;

Point Halfway(Point a, Point b) {
  return {a.x / 2 + b.x / 2, a.y / 2 + b.y / 2};
}

Point OnEllipse(Point centre, double radiusX, double radiusY, double angle) {
  return {centre.x + radiusX * std::cos(angle), centre.y + radiusY * std::sin(angle)};
}

// Returns the number of Bezier curves for an arc.
int CurvesOf(double radius, double sweep, double allowedStray) {
  // A curve over a quarter of a circle deviates by this part of the radius. The deviation decreases with the
  // sixth power of the sweep.
  constexpr double strayOfQuarter = 0.00028;
  const double perQuarter = std::pow(std::max(1.0, radius * strayOfQuarter / allowedStray), 1.0 / 6);
  return std::max(1, static_cast<int>(std::ceil(std::fabs(sweep) / halfPi * perQuarter)));
}

}  // namespace

void PlayerPath::MoveTo(Point point) {
  current = point;
  Add(Step::moveTo, Clamp(point));
}

void PlayerPath::LineTo(Point point) {
  if (steps.empty()) MoveTo(point);
  AddLine(current, point, mostSplits);
  current = point;
}

void PlayerPath::CurveTo(Point control1, Point control2, Point end) {
  if (steps.empty()) MoveTo(control1);
  AddCurve({current, control1, control2, end}, mostSplits);
  current = end;
}

void PlayerPath::ArcTo(Point centre, double radiusX, double radiusY, double start, double sweep) {
  const int curves = CurvesOf(std::max(radiusX, radiusY), sweep, limits.finest);
  const double step = sweep / curves;
  const double handle = 4.0 / 3.0 * std::tan(step / 4);
  Point from = OnEllipse(centre, radiusX, radiusY, start);
  LineTo(from);
  for (int i = 0; i < curves; ++i) {
    const double angle = start + i * step, next = angle + step;
    const Point to = OnEllipse(centre, radiusX, radiusY, next);
    CurveTo({from.x - handle * radiusX * std::sin(angle), from.y + handle * radiusY * std::cos(angle)},
            {to.x + handle * radiusX * std::sin(next), to.y - handle * radiusY * std::cos(next)}, to);
    from = to;
  }
}

void PlayerPath::Close() {
  if (!steps.empty()) steps.push_back(Step::close);
}

PlayerPath::Way PlayerPath::WayWithin(double height) const {
  Way way = {0, 0};
  for (size_t i = 1; i < points.size(); ++i) {
    const Point &from = points[i - 1], &to = points[i];
    way.length += std::fabs(to.x - from.x) + std::fabs(to.y - from.y);
    way.height += std::fabs(std::clamp(to.y, 0.0, height) - std::clamp(from.y, 0.0, height));
  }
  return way;
}

void PlayerPath::Add(Step step, Point point) {
  steps.push_back(step);
  points.push_back(point);
}

Point PlayerPath::Clamp(Point point) const {
  const double safe = 2 * limits.reach;
  return {std::clamp(point.x, -safe, safe), std::clamp(point.y, -safe, safe)};
}

bool PlayerPath::IsSafe(Point point) const {
  return std::fabs(point.x) <= 2 * limits.reach && std::fabs(point.y) <= 2 * limits.reach;
}

// Whether all points are on the same side of the visible area.
template <typename Points>
bool PlayerPath::AreBeyond(const Points& ends) const {
  const auto all = [&ends](auto test) { return std::all_of(std::begin(ends), std::end(ends), test); };
  const double reach = limits.reach;
  return all([reach](Point p) { return p.x < -reach; }) || all([reach](Point p) { return p.x > reach; }) ||
         all([reach](Point p) { return p.y < -reach; }) || all([reach](Point p) { return p.y > reach; });
}

void PlayerPath::AddLine(Point from, Point to, int splits) {
  const Point ends[] = {from, to};
  if ((IsSafe(from) && IsSafe(to)) || AreBeyond(ends) || splits == 0) {
    Add(Step::lineTo, Clamp(to));
    return;
  }
  const Point middle = Halfway(from, to);
  AddLine(from, middle, splits - 1);
  AddLine(middle, to, splits - 1);
}

void PlayerPath::AddCurve(const Point (&ends)[4], int splits) {
  const auto& [a, b, c, d] = ends;
  if (std::all_of(std::begin(ends), std::end(ends), [this](Point point) { return IsSafe(point); })) {
    Add(Step::curveTo, b);
    points.insert(points.end(), {c, d});
    return;
  }
  if (AreBeyond(ends) || splits == 0) {
    Add(Step::lineTo, Clamp(d));
    return;
  }
  const Point ab = Halfway(a, b), bc = Halfway(b, c), cd = Halfway(c, d);
  const Point abc = Halfway(ab, bc), bcd = Halfway(bc, cd);
  const Point middle = Halfway(abc, bcd);
  AddCurve({a, ab, abc, middle}, splits - 1);
  AddCurve({middle, bcd, cd, d}, splits - 1);
}

}  // namespace hexlume
