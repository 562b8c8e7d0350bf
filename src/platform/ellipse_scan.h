// Finds the pixels of an ellipse as GDI's regions do.
#pragma once

#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// Returns the box of two opposite corners, with left <= right and top <= bottom.
RECT OrderedBox(int left, int top, int right, int bottom);

// Stores the pixels of the ellipse in an ordered box, one rectangle for each row. As in GDI, the last column
// and row aren't filled, also if the box has none. Returns false, with boxes unspecified, if this would take
// too much time or memory.
bool ScanEllipse(RECT box, std::vector<RECT>& boxes);

}  // namespace hexlume
