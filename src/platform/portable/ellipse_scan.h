// Which pixels an ellipse has, as GDI's regions have it.
#pragma once

#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// The pixels of the ellipse in a box with left <= right and top <= bottom, right and bottom exclusive. False,
// with nothing of use in boxes, if that would take too much time or memory.
bool ScanEllipse(const RECT& box, std::vector<RECT>& boxes);

}  // namespace hexlume
