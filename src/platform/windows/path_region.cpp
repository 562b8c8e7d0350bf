// The system walks over every row of every edge. An upright wall of some metres, drawn in its full size,
// would take it minutes and more memory than a process has, for a few rectangles. So a tall path is scanned
// here.
#include "platform/path_region.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "platform/polygon_scan.h"

namespace hexlume {

namespace {

constexpr int64_t mostSystemRows = int64_t{1} << 24;  // of all edges: seconds
constexpr size_t mostBoxesAtOnce = 256;               // ExtCreateRegion adds them one by one

int64_t RowsOf(const POINT* points, int count) {
  int64_t rows = 0;
  for (int i = 0; i < count; ++i) {
    const POINT& before = points[i == 0 ? count - 1 : i - 1];
    rows += std::abs(static_cast<int64_t>(points[i].y) - before.y);
  }
  return rows;
}

HRGN RegionOfFew(const RECT* boxes, size_t count) {
  std::vector<char> bytes(sizeof(RGNDATAHEADER) + count * sizeof(RECT));
  auto* const data = reinterpret_cast<RGNDATA*>(bytes.data());
  const RECT& first = boxes[0];
  const RECT& last = boxes[count - 1];
  data->rdh = {sizeof(RGNDATAHEADER),
               RDH_RECTANGLES,
               static_cast<DWORD>(count),
               0,
               {first.left, first.top, first.right, last.bottom}};
  auto* const places = reinterpret_cast<RECT*>(data->Buffer);
  for (size_t i = 0; i < count; ++i) {
    places[i] = boxes[i];
    data->rdh.rcBound.left = std::min(data->rdh.rcBound.left, boxes[i].left);
    data->rdh.rcBound.right = std::max(data->rdh.rcBound.right, boxes[i].right);
  }
  return ExtCreateRegion(nullptr, static_cast<DWORD>(bytes.size()), data);
}

// By halves, so that no rectangle is copied more often than the number of halvings.
HRGN RegionOf(const RECT* boxes, size_t count) {
  if (count <= mostBoxesAtOnce) return RegionOfFew(boxes, count);
  const HRGN upper = RegionOf(boxes, count / 2);
  const HRGN lower = RegionOf(boxes + count / 2, count - count / 2);
  const bool isDone = upper && lower && CombineRgn(upper, upper, lower, RGN_OR) != RGN_ERROR;
  if (lower) DeleteObject(lower);
  if (isDone) return upper;
  if (upper) DeleteObject(upper);
  return nullptr;
}

}  // namespace

HRGN CreatePathRegion(const POINT* points, int count) {
  if (RowsOf(points, count) <= mostSystemRows) return CreatePolygonRgn(points, count, ALTERNATE);
  std::vector<RECT> boxes;
  if (!ScanPolygon(points, count, ALTERNATE, boxes)) return nullptr;
  return boxes.empty() ? CreateRectRgn(0, 0, 0, 0) : RegionOf(boxes.data(), boxes.size());
}

}  // namespace hexlume
