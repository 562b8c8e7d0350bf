// The stroke that drawings have most.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

// Draws a line with a solid pen of its own. Points by value come in registers: a point that was just stored as two numbers is
// slow to load as one.
inline void StrokeByCalls(HDC dc, int width, COLORREF color, POINT start, POINT end) {
  const HPEN pen = CreatePen(PS_SOLID, width, color);
  const HGDIOBJ previous = SelectObject(dc, pen);
  MoveToEx(dc, start.x, start.y, nullptr);
  LineTo(dc, end.x, end.y);
  SelectObject(dc, previous);
  DeleteObject(pen);
}

// The same, where the system can do it faster.
void StrokeLine(HDC dc, int width, COLORREF color, POINT start, POINT end);

}  // namespace hexlume
