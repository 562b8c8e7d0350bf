// A path for coordinates of any size. The parts of a path that are far outside of the picture are moved closer,
// but not inside, as what draws them has its limits: cairo stores coordinates in 24 bits and wraps larger ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace hexlume {

struct Point {
  double x, y;

  bool operator==(const Point& other) const { return x == other.x && y == other.y; }
  bool operator!=(const Point& other) const { return !(*this == other); }
};

// In the units of the canvas.
struct PathLimits {
  double reach;   // of the visible area. No canvas and no pen is that large
  double finest;  // what is smaller can't be seen
};

class PlayerPath {
 public:
  enum class Step : uint8_t { moveTo, lineTo, curveTo, close };

  explicit PlayerPath(const PathLimits& pathLimits) : limits(pathLimits) {}

  void MoveTo(Point point);
  // These add to the path. If it is empty, LineTo starts it at its point and CurveTo at its
  // first control point.
  void LineTo(Point point);
  void CurveTo(Point control1, Point control2, Point end);
  // Adds a line to the start of the arc, and the arc: a part of an ellipse with horizontal and vertical axes.
  // Angles are in radians, from the right, clockwise.
  void ArcTo(Point centre, double radiusX, double radiusY, double start, double sweep);
  void Close();

  // How long the path is, at least, and the sum of its ways up and down.
  struct Way {
    double length, height;
  };
  Way WayWithin(double height) const;

  size_t StepCount() const { return steps.size(); }

  // Calls MoveTo, LineTo, CurveTo and Close of the writer.
  template <typename Writer>
  void WriteTo(Writer&& writer) const {
    const Point* at = points.data();
    for (const Step step : steps) {
      switch (step) {
        case Step::moveTo: writer.MoveTo(*at++); break;
        case Step::lineTo: writer.LineTo(*at++); break;
        case Step::curveTo:
          writer.CurveTo(at[0], at[1], at[2]);
          at += 3;
          break;
        case Step::close: writer.Close(); break;
      }
    }
  }

 private:
  void Add(Step step, Point point);
  Point Clamp(Point point) const;
  bool IsSafe(Point point) const;
  template <typename Points>
  bool AreBeyond(const Points& points) const;
  void AddLine(Point from, Point to, int splits);
  void AddCurve(const Point (&points)[4], int splits);

  PathLimits limits;
  std::vector<Step> steps;
  std::vector<Point> points;
  Point current{0, 0};
};

}  // namespace hexlume
