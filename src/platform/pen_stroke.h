// The stroke that drawings have most.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

// Draws a line with a solid pen of its own: CreatePen, SelectObject, MoveToEx, LineTo, SelectObject and DeleteObject.
void StrokeLine(HDC dc, int width, COLORREF color, const POINT& start, const POINT& end);

}  // namespace hexlume
