// Converts a cubic B-spline to Bezier curves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// Returns an element of a spline's array. A place that no group has set gives zeros.
template <typename Element>
Element ElementAt(const std::vector<Element>& elements, size_t place) {
  return place < elements.size() ? elements[place] : Element{};
}

// Inserts each interior knot two more times. The first controlCount points then become the end points and
// handles of Bezier curves. Points are truncated to whole units at each insertion. Returns false if there
// would be more than maxCount points.
bool InsertKnots(const std::vector<POINT>& control, const std::vector<double>& knots, int32_t controlCount,
                 int32_t maxCount, std::vector<POINT>& result);

}  // namespace hexlume
