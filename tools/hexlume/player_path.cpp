#include "tools/hexlume/player_path.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace hexlume {
namespace {

constexpr double halfPi = 1.57079632679489662;

// The limit for coordinates passed to cairo.
constexpr double safe = 2 * farthestSeen;

// The number of bisections after which a piece of any length is short.
constexpr int mostSplits = 40;

bool IsSafe(Point point) {
  return std::fabs(point.x) <= safe && std::fabs(point.y) <= safe;
}

double Clamp(double coordinate) {
  return std::clamp(coordinate, -safe, safe);
}

Point Halfway(Point a, Point b) {
  return {a.x / 2 + b.x / 2, a.y / 2 + b.y / 2};
}

// Whether all points are on the same side of the visible area.
template <typename Points>
bool AreBeyond(const Points& points) {
  const auto all = [&points](auto test) { return std::all_of(std::begin(points), std::end(points), test); };
  return all([](Point p) { return p.x < -farthestSeen; }) ||
         all([](Point p) { return p.x > farthestSeen; }) ||
         all([](Point p) { return p.y < -farthestSeen; }) || all([](Point p) { return p.y > farthestSeen; });
}

Point OnEllipse(Point centre, double radiusX, double radiusY, double angle) {
  return {centre.x + radiusX * std::cos(angle), centre.y + radiusY * std::sin(angle)};
}

// Returns the number of Bezier curves for an arc.
int CurvesOf(double radius, double sweep) {
  // A curve over a quarter of a circle deviates by this part of the radius. The deviation decreases with the
  // sixth power of the sweep.
  constexpr double strayOfQuarter = 0.00028, allowedStray = 0.02;
  const double perQuarter = std::pow(std::max(1.0, radius * strayOfQuarter / allowedStray), 1.0 / 6);
  return std::max(1, static_cast<int>(std::ceil(std::fabs(sweep) / halfPi * perQuarter)));
}

}  // namespace

PlayerPath::PlayerPath(cairo_t* pathContext) : context(pathContext) {
  cairo_new_path(context);
}

void PlayerPath::MoveTo(Point point) {
  current = point;
  begun = true;
  cairo_move_to(context, Clamp(point.x), Clamp(point.y));
}

void PlayerPath::LineTo(Point point) {
  if (!begun) MoveTo(point);
  AddLine(current, point, mostSplits);
  current = point;
}

void PlayerPath::CurveTo(Point control1, Point control2, Point end) {
  if (!begun) MoveTo(control1);
  AddCurve({current, control1, control2, end}, mostSplits);
  current = end;
}

void PlayerPath::ArcTo(Point centre, double radiusX, double radiusY, double start, double sweep) {
  const int curves = CurvesOf(std::max(radiusX, radiusY), sweep);
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
  if (begun) cairo_close_path(context);
}

void PlayerPath::AddLine(Point from, Point to, int splits) {
  const Point ends[] = {from, to};
  if ((IsSafe(from) && IsSafe(to)) || AreBeyond(ends) || splits == 0) {
    cairo_line_to(context, Clamp(to.x), Clamp(to.y));
    return;
  }
  const Point middle = Halfway(from, to);
  AddLine(from, middle, splits - 1);
  AddLine(middle, to, splits - 1);
}

void PlayerPath::AddCurve(const Point (&points)[4], int splits) {
  const auto& [a, b, c, d] = points;
  if (std::all_of(std::begin(points), std::end(points), IsSafe)) {
    cairo_curve_to(context, b.x, b.y, c.x, c.y, d.x, d.y);
    return;
  }
  if (AreBeyond(points) || splits == 0) {
    cairo_line_to(context, Clamp(d.x), Clamp(d.y));
    return;
  }
  const Point ab = Halfway(a, b), bc = Halfway(b, c), cd = Halfway(c, d);
  const Point abc = Halfway(ab, bc), bcd = Halfway(bc, cd);
  const Point middle = Halfway(abc, bcd);
  AddCurve({a, ab, abc, middle}, splits - 1);
  AddCurve({middle, bcd, cd, d}, splits - 1);
}

}  // namespace hexlume
