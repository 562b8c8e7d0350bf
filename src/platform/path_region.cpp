// The GDI of a system processes every row of every edge. For a vertical wall of some metres at full size that
// takes minutes, and more memory than a process has, for a few rectangles. An ellipse of some metres
// overflows its 64-bit equation and never ends. So large paths are scanned here.
#include "platform/path_region.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "platform/ellipse_scan.h"
#include "platform/polygon_scan.h"

namespace hexlume {

namespace {

constexpr int64_t mostSystemRows = int64_t{1} << 24;  // sum over all edges: some seconds
constexpr double mostSystemEllipse = static_cast<double>(int64_t{1} << 60);

int64_t RowsOf(const POINT* points, int count) {
  int64_t rows = 0;
  for (int i = 0; i < count; ++i) {
    const POINT& before = points[i == 0 ? count - 1 : i - 1];
    rows += std::abs(static_cast<int64_t>(points[i].y) - before.y);
  }
  return rows;
}

}  // namespace

HRGN CreatePathRegion(const POINT* points, int count) {
  if (RowsOf(points, count) <= mostSystemRows) return CreatePolygonRgn(points, count, ALTERNATE);
  std::vector<RECT> boxes;
  return ScanPolygon(points, count, ALTERNATE, boxes) ? CreateBoxRegion(boxes) : nullptr;
}

HRGN CreateEllipseRegion(const POINT& corner, const POINT& opposite) {
  const RECT box = OrderedBox(corner.x, corner.y, opposite.x, opposite.y);
  const double width = static_cast<double>(box.right) - box.left;
  const double height = static_cast<double>(box.bottom) - box.top;
  if (width * height * std::max(width, height) <= mostSystemEllipse)
    return CreateEllipticRgn(box.left, box.top, box.right, box.bottom);
  std::vector<RECT> boxes;
  return ScanEllipse(box, boxes) ? CreateBoxRegion(boxes) : nullptr;
}

}  // namespace hexlume
