// Which pixels lie in a polygon or an ellipse, as GDI's regions have it.
#pragma once

#include <pixman.h>

#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// The pixels within a polygon, as rectangles in rows; equal rows that follow each other are one. A row
// belongs to the edges that begin on it or above and end below it, and a span of it begins, and ends in front
// of, the first whole x that isn't left of an edge. False, with nothing of use in boxes, if that would take
// too much time or memory.
bool ScanPolygon(const POINT* points, int count, int fillMode, std::vector<pixman_box32_t>& boxes);

// The pixels of the ellipse in a box with left <= right and top <= bottom, right and bottom exclusive.
bool ScanEllipse(const RECT& box, std::vector<pixman_box32_t>& boxes);

}  // namespace hexlume
