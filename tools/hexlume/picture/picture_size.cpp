#include <algorithm>
#include <cmath>

#include "tools/hexlume/picture/picture.h"

namespace hexlume {
namespace {

int32_t Pixels(double hundredths, double perHundredth) {
  constexpr double mostOnASide = 20000;
  const double pixels = std::round(hundredths * perHundredth);
  if (pixels > mostOnASide) throw PictureError("the picture would be larger than 20000 pixels on a side");
  return static_cast<int32_t>(std::max(pixels, 1.0));
}

}  // namespace

PixelSize PictureSize(int32_t left, int32_t top, int32_t right, int32_t bottom,
                      const PictureSettings& settings) {
  if (right <= left || bottom <= top) throw PictureError("the metafile's frame is empty");
  constexpr double hundredthsOfAnInch = 2540, hundredthsOfAMetre = 100'000;
  const double width = static_cast<double>(right) - left, height = static_cast<double>(bottom) - top;
  const double perHundredth = settings.longestSide ? *settings.longestSide / std::max(width, height)
                                                   : settings.dotsPerInch / hundredthsOfAnInch;
  // A PNG file has 31 bits for them.
  const double perMetre = std::min(std::round(perHundredth * hundredthsOfAMetre), 2147483647.0);
  return {Pixels(width, perHundredth), Pixels(height, perHundredth), static_cast<int32_t>(perMetre)};
}

}  // namespace hexlume
