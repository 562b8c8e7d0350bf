// A path on a cairo context for coordinates of any size. Cairo stores coordinates in 24 bits and wraps larger
// ones, so the parts of a path that are far outside of the picture are moved closer, but not inside.
#pragma once

#include <cairo.h>

namespace hexlume {

struct Point {
  double x, y;
};

// The limit of the visible area. No surface and no pen is that large.
constexpr double farthestSeen = 65536;

// A path in the units of the context, which must have no transformation. Only one can be built at a time.
class PlayerPath {
 public:
  explicit PlayerPath(cairo_t* pathContext);  // starts an empty path

  void MoveTo(Point point);
  // These add to the path. If it is empty, LineTo starts it at its point and CurveTo at its
  // first control point.
  void LineTo(Point point);
  void CurveTo(Point control1, Point control2, Point end);
  // Adds a line to the start of the arc, and the arc: a part of an ellipse with horizontal and vertical axes.
  // Angles are in radians, from the right, clockwise.
  void ArcTo(Point centre, double radiusX, double radiusY, double start, double sweep);
  void Close();

  Point Current() const { return current; }

 private:
  void AddLine(Point from, Point to, int splits);
  void AddCurve(const Point (&points)[4], int splits);

  cairo_t* context;
  Point current{0, 0};
  bool begun = false;
};

}  // namespace hexlume
