// How a cubic B-spline becomes the Bezier curves that GDI knows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// An array of a spline as the file gives it: a place that no group wrote reads as zeros.
template <typename Element>
Element ElementAt(const std::vector<Element>& elements, size_t place) {
  return place < elements.size() ? elements[place] : Element{};
}

// Inserts each interior knot two times more, so that the first controlCount points become the ends and the
// handles of Bezier curves. Points are rounded to whole units with each insertion. False if there would be
// more than maxCount of them.
bool InsertKnots(const std::vector<POINT>& control, const std::vector<double>& knots, int32_t controlCount,
                 int32_t maxCount, std::vector<POINT>& result);

}  // namespace hexlume
