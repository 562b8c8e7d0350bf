// The work of a picture. A metafile of strokes without end can take minutes, so it is counted, and a picture that takes more
// isn't made.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "tools/hexlume/picture/picture.h"

namespace hexlume {

// How much longer strokes are than at 96 dots per inch. Fewer dots take no less.
inline double DotScale(int32_t dotsPerMetre) {
  constexpr double metresOfAnInch = 0.0254, usualResolution = 96;
  return std::max(1.0, dotsPerMetre * metresOfAnInch / usualResolution);
}

// How far it is from one place to another within a picture of this width or height.
inline double LengthWithin(double from, double to, double most) {
  return std::fabs(std::clamp(from, 0.0, most) - std::clamp(to, 0.0, most));
}

class PictureWork {
 public:
  // A step takes about a nanosecond.
  explicit PictureWork(int64_t drawingBytes = 0, double scale = 1)
      : left(static_cast<int64_t>((leastSteps + stepsOfDrawingByte * static_cast<double>(drawingBytes)) *
                                  scale)) {}

  // Throws once: a book still ends its page.
  void Count(double steps) {
    left -= static_cast<int64_t>(steps);
    if (left >= 0) return;
    left = INT64_MAX;
    throw PictureError("the picture takes more work than its bound (picture-work)");
  }

  // The regions of files of strokes are outlined in memory.
  static void RequireOutline(size_t boxes) {
    if (boxes > mostBoxes)
      throw PictureError(
          "a filled area has more rectangles than a picture of strokes may have (picture-boxes)");
  }

  static constexpr double leastSteps = 4e9, stepsOfDrawingByte = 1000;
  static constexpr size_t mostBoxes = 2'000'000;

 private:
  int64_t left;
};

}  // namespace hexlume
