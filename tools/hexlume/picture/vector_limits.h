// The measures of canvases for files of strokes. Their unit is a hundredth of a millimetre, so nearly all
// numbers of a metafile stay whole.
#pragma once

#include <algorithm>

#include "tools/hexlume/metafile/metafile_player.h"
#include "tools/hexlume/metafile/player_canvas.h"
#include "tools/hexlume/picture/picture.h"

namespace hexlume {

// Throws PictureError for a frame that can be no page.
inline void RequirePage(const MetafileFrame& frame) {
  constexpr double mostOnASide = 508'000;  // 14400 points, the limit of a PDF page
  if (frame.right <= frame.left || frame.bottom <= frame.top)
    throw PictureError("the metafile's frame is empty");
  const double width = static_cast<double>(frame.right) - frame.left,
               height = static_cast<double>(frame.bottom) - frame.top;
  if (std::max(width, height) > mostOnASide)
    throw PictureError("the picture would be larger than 14400 points (5080 mm) on a side");
}

inline CanvasMeasures VectorMeasures(const MetafileFrame& frame) {
  constexpr double hairline = 10;
  constexpr PathLimits limits = {2'000'000, 0.5};
  return {static_cast<double>(frame.right) - frame.left, static_cast<double>(frame.bottom) - frame.top,
          hairline, false, limits};
}

}  // namespace hexlume
