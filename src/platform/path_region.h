// Regions of paths of any size.
#pragma once

#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// Returns the region that CreatePolygonRgn makes of a polygon in ALTERNATE mode, for edges of any height.
// Returns null if it would have too many rectangles.
HRGN CreatePathRegion(const POINT* points, int count);

// Returns the region that CreateEllipticRgn makes of the box of two corners, for a box of any size. In a
// large ellipse, equal rows are joined. Returns null if the ellipse is too large to scan.
HRGN CreateEllipseRegion(const POINT& corner, const POINT& opposite);

// Returns the region of rectangles in rows, from top to bottom and left to right.
HRGN CreateBoxRegion(const std::vector<RECT>& boxes);

}  // namespace hexlume
