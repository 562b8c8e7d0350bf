// Which pixels a polygon has, as GDI's regions have it.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// No region gets more rectangles than this.
constexpr size_t mostRegionBoxes = size_t{1} << 24;

// The pixels within a polygon, as rectangles in rows; equal rows that follow each other are one. A row
// belongs to the edges that begin on it or above and end below it, and a span of it begins, and ends before,
// the first whole x that isn't left of an edge. False, with nothing of use in boxes, if that would take too
// much time or memory.
bool ScanPolygon(const POINT* points, int count, int fillMode, std::vector<RECT>& boxes);

}  // namespace hexlume
