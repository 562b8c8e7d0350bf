// Which pixels an ellipse has, as GDI's regions have it.
#pragma once

#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// A box with left <= right and top <= bottom, of two opposite corners in any order.
RECT OrderedBox(int left, int top, int right, int bottom);

// The pixels of the ellipse in an ordered box, a rectangle for each row. GDI takes the ellipse's last column
// and row off, even from a box without any. False, with nothing of use in boxes, if that would take too much
// time or memory.
bool ScanEllipse(RECT box, std::vector<RECT>& boxes);

}  // namespace hexlume
