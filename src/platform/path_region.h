// The regions of paths that are too large for some systems.
#pragma once

#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// What CreatePolygonRgn makes of a polygon in ALTERNATE mode, however many rows its edges cross. Null if it
// would take too many rectangles.
HRGN CreatePathRegion(const POINT* points, int count);

// What CreateEllipticRgn makes of the box of two corners, however large, but that equal rows of a large
// ellipse are one rectangle.
HRGN CreateEllipseRegion(const POINT& corner, const POINT& opposite);

// The region of these rectangles, which are in rows from the top and in each row from the left.
HRGN CreateBoxRegion(const std::vector<RECT>& boxes);

}  // namespace hexlume
