// Regions of paths that are too tall for some systems.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

// What CreatePolygonRgn makes of a polygon in ALTERNATE mode, however many rows its edges cross. Null if it
// would take too many rectangles.
HRGN CreatePathRegion(const POINT* points, int count);

}  // namespace hexlume
