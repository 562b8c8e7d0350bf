// Where arcs end and how far they reach.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

// What an arc from start to end of the ellipse in the box adds to the metafile's bounds, in logical units,
// right and bottom inclusive. GDI goes counterclockwise on a device whose y grows downward, whatever the map
// mode and the arc direction are, and so do we: the bounds of some arcs are too wide or too narrow by that.
// Sums wrap; an arc whose box overflows may have sides in the wrong order.
RECT ArcBounds(const RECT& box, POINT start, POINT end);

// The point of a circle at an angle in degrees. A coordinate that doesn't fit an int32 is INT32_MIN.
POINT PointOnCircle(int x, int y, DWORD radius, FLOAT angle);

// The box of a circle. Its sides wrap, and are then sorted.
RECT CircleBox(int x, int y, DWORD radius);

}  // namespace hexlume
