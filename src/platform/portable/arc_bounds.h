// Bounds and end points of arcs.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

// Returns what an elliptic arc adds to the metafile's bounds, in logical units, right and bottom inclusive.
// As in GDI, the arc is taken counterclockwise with Y downward, whatever the map mode and the arc direction
// are, so the bounds of some arcs are too large or too small. Sums wrap around; if the box overflows, the
// sides of the bounds may be in the wrong order.
RECT ArcBounds(const RECT& box, POINT start, POINT end);

// Returns the point of a circle at an angle in degrees. A coordinate that doesn't fit an
// int32 becomes INT32_MIN.
POINT PointOnCircle(int x, int y, DWORD radius, FLOAT angle);

// Returns the bounding box of a circle. Its sides wrap around, and are then sorted.
RECT CircleBox(int x, int y, DWORD radius);

}  // namespace hexlume
