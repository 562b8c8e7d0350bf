// Finds the pixels of a polygon as GDI's regions do.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// The largest number of rectangles in a region.
constexpr size_t mostRegionBoxes = size_t{1} << 24;

// Stores the pixels of a polygon as rectangles in rows; equal adjacent rows are joined. An edge covers the
// rows from its top (inclusive) to its bottom (exclusive). A span starts at the first whole x that isn't left
// of an edge, and ends before the first one that isn't left of the next edge. Returns false, with boxes
// unspecified, if this would take too much time or memory.
bool ScanPolygon(const POINT* points, int count, int fillMode, std::vector<RECT>& boxes);

}  // namespace hexlume
