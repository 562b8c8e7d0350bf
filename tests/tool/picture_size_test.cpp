#include <gtest/gtest.h>

#include "tools/hexlume/picture/picture.h"

namespace hexlume::picture_size_test {
namespace {

PictureSettings AtResolution(int32_t dotsPerInch) {
  PictureSettings settings;
  settings.dotsPerInch = dotsPerInch;
  return settings;
}

PictureSettings WithLongestSide(int32_t pixels) {
  PictureSettings settings;
  settings.longestSide = pixels;
  return settings;
}

void ExpectSize(int32_t width, int32_t height, int32_t dotsPerMetre, const PixelSize& size) {
  EXPECT_EQ(width, size.width);
  EXPECT_EQ(height, size.height);
  EXPECT_EQ(dotsPerMetre, size.dotsPerMetre);
}

// 210 mm are 8.2677 inches, 297 mm 11.6929; 96 dots per inch are 3779.53 per metre.
TEST(PictureSize, by_the_resolution) {
  ExpectSize(794, 1123, 3780, PictureSize(0, 0, 21000, 29700, AtResolution(96)));
  ExpectSize(1, 1, 39, PictureSize(0, 0, 1, 1, AtResolution(1)));
}

// The longer side has 256 pixels, the other 256 * 210 / 297 = 181.01; 256 pixels on 0.297 m are 861.95 per metre.
TEST(PictureSize, by_the_longest_side) {
  ExpectSize(181, 256, 862, PictureSize(0, 0, 21000, 29700, WithLongestSide(256)));
  ExpectSize(256, 181, 862, PictureSize(-29700, 100, 0, 21100, WithLongestSide(256)));
  ExpectSize(10, 1, 1000, PictureSize(0, 0, 1000, 1, WithLongestSide(10)));
}

TEST(PictureSize, a_picture_has_limits) {
  EXPECT_THROW(PictureSize(0, 0, 21000, 29700, AtResolution(100000)), PictureError);
  EXPECT_THROW(PictureSize(0, 0, 0, 29700, WithLongestSide(10)), PictureError);
}

}  // namespace
}  // namespace hexlume::picture_size_test
