// Ellipses, arcs, Bezier curves and polygons.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/portable/arc_bounds.h"
#include "platform/portable/device_context.h"

using namespace hexlume;

namespace {

// Returns the box of two opposite corners, with left <= right and top <= bottom.
RECT Sorted(int left, int top, int right, int bottom) {
  return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
}

bool IsEmpty(const RECT& box) {
  return box.left == box.right || box.top == box.bottom;
}

// Makes right and bottom inclusive, as in records. The box must not be empty.
RECT Inclusive(const RECT& box) {
  return {box.left, box.top, box.right - 1, box.bottom - 1};
}

RECT BoxOf(const POINT* points, DWORD count) {
  if (count == 0) return emptyBounds;
  RECT box = {points[0].x, points[0].y, points[0].x, points[0].y};
  for (DWORD i = 1; i < count; ++i) {
    box.left = std::min(box.left, points[i].x);
    box.top = std::min(box.top, points[i].y);
    box.right = std::max(box.right, points[i].x);
    box.bottom = std::max(box.bottom, points[i].y);
  }
  return box;
}

bool FitsIn16Bits(const RECT& box) {
  return box.left >= INT16_MIN && box.top >= INT16_MIN && box.right <= INT16_MAX && box.bottom <= INT16_MAX;
}

std::vector<EmfPoint16> In16Bits(const POINT* points, DWORD count) {
  std::vector<EmfPoint16> small(count);
  std::transform(points, points + count, small.begin(), [](const POINT& point) {
    return EmfPoint16{static_cast<int16_t>(point.x), static_cast<int16_t>(point.y)};
  });
  return small;
}

void AppendPoints(DeviceContext& dc, EmfType type, const RECT& box, DWORD count, const void* points,
                  size_t size) {
  const size_t total = sizeof(EmfPolyRecord) + size;
  const EmfPolyRecord record = {type, static_cast<uint32_t>(total), box, count};
  dc.writer.Append(&record, sizeof record, points, size);
}

// Records the points in 16 bits if all of them fit. The record's box is that of the points, in logical units.
void AppendPoly(DeviceContext& dc, EmfType type, EmfType type16, const POINT* points, DWORD count) {
  const RECT box = BoxOf(points, count);
  if (FitsIn16Bits(box)) {
    const std::vector<EmfPoint16> small = In16Bits(points, count);
    AppendPoints(dc, type16, box, count, small.data(), small.size() * sizeof(EmfPoint16));
  } else {
    AppendPoints(dc, type, box, count, points, count * sizeof(POINT));
  }
  AddLogicalBounds(dc, box);
}

}  // namespace

BOOL Ellipse(HDC dc, int left, int top, int right, int bottom) {
  const RECT box = Sorted(left, top, right, bottom);
  if (!IsOpen(dc) || IsEmpty(box)) return 0;
  const RECT inside = Inclusive(box);
  dc->writer.Append(EmfEllipseRecord{emrEllipse, sizeof(EmfEllipseRecord), inside});
  AddLogicalBounds(*dc, inside);
  return 1;
}

BOOL Arc(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd) {
  const RECT box = Sorted(left, top, right, bottom);
  if (!IsOpen(dc) || IsEmpty(box)) return 0;
  const POINT start = {xStart, yStart};
  const POINT end = {xEnd, yEnd};
  dc->writer.Append(EmfArcRecord{emrArc, sizeof(EmfArcRecord), Inclusive(box), start, end});
  AddLogicalBounds(*dc, ArcBounds(box, start, end));
  return 1;
}

// A wrong number of points is recorded, but the call fails and doesn't move the current position.
BOOL PolyBezier(HDC dc, const POINT* points, DWORD count) {
  if (!IsOpen(dc) || (!points && count != 0)) return 0;
  AppendPoly(*dc, emrPolyBezier, emrPolyBezier16, points, count);
  if (count < 4 || count % 3 != 1) return 0;
  dc->position = points[count - 1];
  return 1;
}

BOOL Polygon(HDC dc, const POINT* points, int count) {
  if (!IsOpen(dc) || !points || count < 2) return 0;
  AppendPoly(*dc, emrPolygon, emrPolygon16, points, static_cast<DWORD>(count));
  return 1;
}
