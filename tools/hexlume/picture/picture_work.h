// The work of a picture. A metafile of strokes without end can take minutes, so it is counted, and a picture that takes more
// isn't made.
#pragma once

#include <cstdint>

#include "tools/hexlume/picture/picture.h"

namespace hexlume {

class PictureWork {
 public:
  // A step takes about a nanosecond. scale: how much longer strokes are than at 96 dpi.
  explicit PictureWork(double scale = 1) : left(static_cast<int64_t>(mostSteps * (scale > 1 ? scale : 1))) {}

  void Count(double steps) {
    left -= static_cast<int64_t>(steps);
    if (left < 0) throw PictureError("the picture takes more work than its bound (picture-work)");
  }

  // The regions of files of strokes are outlined in memory.
  static void RequireOutline(size_t boxes) {
    if (boxes > mostBoxes)
      throw PictureError(
          "a filled area has more rectangles than a picture of strokes may have (picture-boxes)");
  }

  static constexpr double mostSteps = 5e9;
  static constexpr size_t mostBoxes = 2'000'000;

 private:
  int64_t left;
};

}  // namespace hexlume
