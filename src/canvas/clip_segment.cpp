// Cuts a slanted segment to the view. The segment's Y is negative on the sheet, the view's is positive. Some
// comparisons and assignments below use an edge without negating it: this decides which segments are drawn
// and must stay so.

#include "canvas/canvas.h"
#include "driver/numbers.h"

namespace hexlume {

// Returns false if nothing of the segment is left.
static bool Cut(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t x1, int32_t x2, int32_t y1,
                int32_t y2, ClippedSegment& result) {
  // y = x * slope + offset
  const double slope = static_cast<double>(WrapSub(y2, y1)) / WrapSub(x2, x1);
  const double offset = y2 - x2 * slope;
  const bool rising = slope > 0;
  const int32_t upperEdge = WrapNegate(top);
  const int32_t lowerEdge = WrapNegate(bottom);
  result = {x1, y1, x2, y2};

  if (x1 < left) {
    const int32_t y = Trunc(left * slope + offset);
    if (top < WrapNegate(y) && WrapNegate(y) < bottom) {
      result.startX = left;
      result.startY = y;
    } else if (rising) {
      // y isn't negated: on a normal sheet this drops a rising segment that reaches the left edge below the
      // view, even if it would enter through the lower edge.
      if (y < top) return false;
      // bottom isn't negated either.
      result.startX = Trunc((offset + bottom) / slope);
      result.startY = bottom;
      if (result.startX > right) return false;
    } else {
      // Nor is y negated here: on a normal sheet this drops nothing.
      if (y > bottom) return false;
      result.startX = Trunc((upperEdge - offset) / slope);
      result.startY = upperEdge;
      if (result.startX > right) return false;
    }
  }

  // The end's y is recomputed even if the end is inside, and can differ by a unit.
  if (x2 > right) result.endX = right;
  result.endY = Trunc(result.endX * slope + offset);
  if (top <= WrapNegate(result.endY) && WrapNegate(result.endY) <= bottom) return true;

  result.endY = rising ? upperEdge : lowerEdge;
  result.endX = Trunc((result.endY - offset) / slope);
  return true;
}

ClippedSegment ClipSegment(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t x1, int32_t x2,
                           int32_t y1, int32_t y2) {
  ClippedSegment result;
  if (!Cut(left, top, right, bottom, x1, x2, y1, y2, result)) return {-1, -1, -1, -1};
  return result;
}

ClippedSegment DimClipSegment(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t x1,
                              int32_t x2, int32_t y1, int32_t y2) {
  ClippedSegment result;
  if (!Cut(left, top, right, bottom, x1, x2, y1, y2, result)) return {0, 0, 0, 0};
  return result;
}

}  // namespace hexlume
