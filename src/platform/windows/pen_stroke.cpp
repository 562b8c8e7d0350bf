#include "platform/pen_stroke.h"

namespace hexlume {

void StrokeLine(HDC dc, int width, COLORREF color, const POINT& start, const POINT& end) {
  const HPEN pen = CreatePen(PS_SOLID, width, color);
  const HGDIOBJ previous = SelectObject(dc, pen);
  MoveToEx(dc, start.x, start.y, nullptr);
  LineTo(dc, end.x, end.y);
  SelectObject(dc, previous);
  DeleteObject(pen);
}

}  // namespace hexlume
