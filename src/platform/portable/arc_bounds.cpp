#include "platform/portable/arc_bounds.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace hexlume {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double quarter = pi / 2;

int32_t WrapSum(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

int32_t WrapDifference(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

int32_t ToInt(double value) {
  return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int32_t>(value) : INT32_MIN;
}

struct Circle {
  POINT centre;
  SIZE radius;
};

double AngleOf(POINT point, POINT centre) {
  return std::atan2(static_cast<double>(WrapDifference(point.y, centre.y)),
                    static_cast<double>(WrapDifference(point.x, centre.x)));
}

POINT PointAt(const Circle& circle, double angle) {
  return {ToInt(circle.centre.x + circle.radius.cx * std::cos(angle)),
          ToInt(circle.centre.y + circle.radius.cy * std::sin(angle))};
}

// Where the arc crosses the axes of its ellipse, its bounds extend to the side of the box.
void ReachSides(RECT& bounds, const RECT& box, double from, double to) {
  for (int side = static_cast<int>(std::ceil(from / quarter)); side * quarter <= to; ++side) {
    switch (side & 3) {
      case 0: bounds.right = WrapDifference(box.right, 1); break;
      case 1: bounds.bottom = WrapDifference(box.bottom, 1); break;
      case 2: bounds.left = box.left; break;
      case 3: bounds.top = box.top; break;
    }
  }
}

}  // namespace

RECT ArcBounds(const RECT& box, POINT start, POINT end) {
  const Circle circle = {{WrapSum(box.left, box.right) / 2, WrapSum(box.top, box.bottom) / 2},
                         {WrapDifference(box.right, box.left) / 2, WrapDifference(box.bottom, box.top) / 2}};
  double to = AngleOf(start, circle.centre);
  const double from = AngleOf(end, circle.centre);
  const POINT first = PointAt(circle, to);
  const POINT last = PointAt(circle, from);
  RECT bounds = {std::min(first.x, last.x), std::min(first.y, last.y), std::max(first.x, last.x),
                 std::max(first.y, last.y)};
  if (to < from) to += 2 * pi;
  ReachSides(bounds, box, from, to);
  return bounds;
}

POINT PointOnCircle(int x, int y, DWORD radius, FLOAT angle) {
  const double radians = static_cast<double>(angle) * pi / 180;
  return {ToInt(std::floor(x + std::cos(radians) * radius + 0.5)),
          ToInt(std::floor(y - std::sin(radians) * radius + 0.5))};
}

RECT CircleBox(int x, int y, DWORD radius) {
  const int32_t reach = static_cast<int32_t>(radius);
  const int32_t left = WrapDifference(x, reach);
  const int32_t top = WrapDifference(y, reach);
  const int32_t right = WrapSum(x, reach);
  const int32_t bottom = WrapSum(y, reach);
  return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
}

}  // namespace hexlume
