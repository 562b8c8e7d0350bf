// A path on a cairo context for coordinates of any size. Cairo keeps coordinates in 24 bits and wraps what is
// larger; here the parts of a path that lie far outside every picture are drawn closer, still outside.
#pragma once

#include <cairo.h>

namespace hexlume {

struct Point {
  double x, y;
};

// Nothing farther from 0 than this is seen on any picture: no surface is so large, no pen so wide.
constexpr double farthestSeen = 65536;

// A path in the context's own units, without a transformation. One at a time.
class PlayerPath {
 public:
  explicit PlayerPath(cairo_t* pathContext);  // begins an empty path

  void MoveTo(Point point);
  // Continue the path; the first of them begins it at its own start if nothing else did.
  void LineTo(Point point);
  void CurveTo(Point control1, Point control2, Point end);
  // Joins the start of the arc by a line and goes on along an ellipse with the axes' directions: angles in
  // radians from the right, growing downward.
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
