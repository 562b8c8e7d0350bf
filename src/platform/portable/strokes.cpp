// Moves, lines, points and curves.
#include <algorithm>

#include "platform/portable/arc_bounds.h"
#include "platform/portable/device_context.h"

using namespace hexlume;

BOOL MoveToEx(HDC dc, int x, int y, POINT* previous) {
  if (!IsOpen(dc)) return 0;
  dc->writer.Append(EmfPointRecord{emrMoveToEx, sizeof(EmfPointRecord), {x, y}});
  if (previous) *previous = dc->position;
  dc->position = {x, y};
  return 1;
}

BOOL LineTo(HDC dc, int x, int y) {
  if (!IsOpen(dc)) return 0;
  dc->writer.Append(EmfPointRecord{emrLineTo, sizeof(EmfPointRecord), {x, y}});
  AddLogicalBounds(*dc, {dc->position.x, dc->position.y, x, y});
  dc->position = {x, y};
  return 1;
}

// A metafile has no pixels, so there is no colour to return.
COLORREF SetPixel(HDC dc, int x, int y, COLORREF color) {
  constexpr COLORREF noColor = 0xFFFFFFFF;
  if (!IsOpen(dc)) return noColor;
  dc->writer.Append(EmfSetPixelRecord{emrSetPixelV, sizeof(EmfSetPixelRecord), {x, y}, color});
  AddLogicalBounds(*dc, {x, y, x, y});
  return noColor;
}

// A radius of 0, or one that doesn't fit an int32, is recorded, but draws nothing and fails.
BOOL AngleArc(HDC dc, int x, int y, DWORD radius, FLOAT startAngle, FLOAT sweep) {
  if (!IsOpen(dc)) return 0;
  dc->writer.Append(
      EmfAngleArcRecord{emrAngleArc, sizeof(EmfAngleArcRecord), {x, y}, radius, startAngle, sweep});
  if (radius == 0 || radius > INT32_MAX) return 0;
  const POINT start = PointOnCircle(x, y, radius, startAngle);
  const POINT end = PointOnCircle(x, y, radius, startAngle + sweep);
  RECT drawn = ArcBounds(CircleBox(x, y, radius), start, end);
  drawn.left = std::min(drawn.left, dc->position.x);
  drawn.top = std::min(drawn.top, dc->position.y);
  drawn.right = std::max(drawn.right, dc->position.x);
  drawn.bottom = std::max(drawn.bottom, dc->position.y);
  AddLogicalBounds(*dc, drawn);
  dc->position = end;
  return 1;
}
