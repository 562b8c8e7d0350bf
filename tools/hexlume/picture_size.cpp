#include <algorithm>
#include <cmath>

#include "tools/hexlume/picture.h"

namespace hexlume {
namespace {

int32_t Pixels(double hundredths, int32_t dotsPerInch) {
  constexpr double hundredthsOfAnInch = 2540;
  constexpr double mostOnASide = 20000;
  const double pixels = std::round(hundredths * dotsPerInch / hundredthsOfAnInch);
  if (pixels > mostOnASide) throw PictureError("the picture would be larger than 20000 pixels on a side");
  return static_cast<int32_t>(std::max(pixels, 1.0));
}

}  // namespace

PixelSize PictureSize(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t dotsPerInch) {
  if (right <= left || bottom <= top) throw PictureError("the metafile's frame is empty");
  return {Pixels(static_cast<double>(right) - left, dotsPerInch),
          Pixels(static_cast<double>(bottom) - top, dotsPerInch)};
}

}  // namespace hexlume
