// Strokes on an image of 40 by 30 pixels, black on white: a pixel is 255 less its covered part of 255.
#include "tools/hexlume/picture/stroke_raster.h"

#include <gtest/gtest.h>

namespace hexlume::stroke_raster_test {
namespace {

constexpr uint32_t white = 0xFFFFFF, black = 0;

class StrokeRasterTest : public testing::Test {
 protected:
  uint32_t At(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
  // Of a gray.
  uint32_t Level(int x, int y) const { return At(x, y) & 0xFF; }

  bool IsMarked(int left, int top, int right, int bottom) const {
    for (int y = top; y < bottom; ++y)
      for (int x = left; x < right; ++x)
        if (At(x, y) != white) return true;
    return false;
  }

  static constexpr int width = 40, height = 30;
  std::vector<uint32_t> pixels = std::vector<uint32_t>(width * height, white);
  StrokeRaster raster{{reinterpret_cast<uint8_t*>(pixels.data()), width, height, 4 * width}};
};

TEST_F(StrokeRasterTest, a_stroke_along_a_row_of_pixels_fills_them) {
  raster.DrawLine({5, 10.5}, {15, 10.5}, 1, black);
  for (int x = 5; x < 15; ++x) EXPECT_EQ(black, At(x, 10)) << x;
  EXPECT_FALSE(IsMarked(0, 0, 40, 10));
  EXPECT_FALSE(IsMarked(0, 11, 40, 30));
}

// It is from 9.75 to 10.75: a quarter of one pixel, 64 of 255, and three quarters of the next, 191.
TEST_F(StrokeRasterTest, pixels_have_the_part_that_is_covered) {
  raster.DrawLine({10.25, 5}, {10.25, 20}, 1, black);
  EXPECT_EQ(255u - 64, Level(9, 12));
  EXPECT_EQ(255u - 191, Level(10, 12));
  EXPECT_EQ(white, At(8, 12));
  EXPECT_EQ(white, At(11, 12));
}

// The stroke covers |x - y| < sqrt(0.5). Of a pixel on the diagonal two triangles of (1 - 0.7071)^2 / 2 are left
// out: 1 - 0.0858, or 233 of 255. Of a pixel beside it a triangle of 0.7071^2 / 2 = 0.25 is covered, 64 of 255.
TEST_F(StrokeRasterTest, a_slanted_stroke) {
  raster.DrawLine({2, 2}, {25, 25}, 1, black);
  EXPECT_EQ(255u - 233, Level(10, 10));
  EXPECT_EQ(255u - 64, Level(11, 10));
  EXPECT_EQ(255u - 64, Level(10, 11));
  EXPECT_EQ(white, At(12, 10));
}

// The stroke goes down by 1 in 4, so half of it measures 0.5 * sqrt(17) / 4 = 0.515 across. At x = 20 it ends 0.515
// and at x = 21 0.765 below the upper edge of row 5: 0.64 of the pixel, 163 of 255.
TEST_F(StrokeRasterTest, a_flat_stroke) {
  raster.DrawLine({0, 0}, {40, 10}, 1, black);
  EXPECT_NEAR(255 - 163, static_cast<int>(Level(20, 5)), 1);
}

TEST_F(StrokeRasterTest, a_wide_stroke_has_an_inside_and_round_ends) {
  raster.DrawLine({15, 15}, {25, 15}, 10, black);
  for (int y = 10; y < 20; ++y) EXPECT_EQ(black, At(20, y)) << y;
  EXPECT_EQ(white, At(20, 9));
  EXPECT_EQ(white, At(20, 20));
  EXPECT_EQ(black, At(11, 15));
  EXPECT_EQ(white, At(10, 10));  // its nearest corner is 5.66 pixels from the end
}

TEST_F(StrokeRasterTest, without_length_it_is_a_disc) {
  raster.DrawLine({20, 15}, {20, 15}, 10, black);
  EXPECT_EQ(black, At(20, 15));
  EXPECT_EQ(black, At(16, 15));
  EXPECT_EQ(black, At(20, 18));
  EXPECT_FALSE(IsMarked(0, 0, 15, 30));
  EXPECT_FALSE(IsMarked(25, 0, 40, 30));
}

// Half of the first column and of the last one.
TEST_F(StrokeRasterTest, beyond_the_edges_it_is_cut_off) {
  raster.DrawLine({0, -100}, {0, 100}, 1, black);
  raster.DrawLine({40, -1e5}, {40, 1e5}, 1, black);
  for (int y = 0; y < height; ++y) {
    EXPECT_EQ(255u - 128, Level(0, y)) << y;
    EXPECT_EQ(255u - 128, Level(39, y)) << y;
  }
  EXPECT_FALSE(IsMarked(1, 0, 39, 30));
  raster.DrawLine({-100, -50}, {140, -50}, 1, black);
  raster.DrawLine({-1e5, 70}, {1e5, 80}, 60, black);
  EXPECT_FALSE(IsMarked(1, 0, 39, 30));
  raster.DrawLine({-1e5, 15.5}, {1e5, 15.5}, 1, black);
  for (int x = 0; x < width; ++x) EXPECT_EQ(black, At(x, 15)) << x;
}

// Half of 0x204060 and half of white, with 128 parts of 255 for the colour.
TEST_F(StrokeRasterTest, colours_are_mixed) {
  raster.DrawLine({0, 10}, {40, 10}, 1, 0x204060);
  // 255 - 128 * (255 - 32) / 255 = 143.06, 255 - 128 * 191 / 255 = 159.1, 255 - 128 * 159 / 255 = 175.2
  EXPECT_EQ(0x8F9FAFu, At(20, 10));
}

TEST_F(StrokeRasterTest, a_clip_region_leaves_only_its_pixels) {
  raster.Clip({{5, 10, 8, 12}, {20, 10, 30, 12}, {0, 20, 40, 21}});
  raster.DrawLine({0, 10.5}, {40, 10.5}, 1, black);
  raster.DrawLine({10.5, 0}, {10.5, 30}, 1, black);
  for (int x = 0; x < width; ++x)
    EXPECT_EQ((x >= 5 && x < 8) || (x >= 20 && x < 30) ? black : white, At(x, 10)) << x;
  for (int y = 11; y < height; ++y) EXPECT_EQ(y == 20 ? black : white, At(10, y)) << y;
  EXPECT_FALSE(IsMarked(0, 0, 40, 10));
  raster.RemoveClip();
  raster.DrawPixel(35, 25, black);
  EXPECT_EQ(black, At(35, 25));
}

TEST_F(StrokeRasterTest, boxes_of_a_clip_region_may_overlap_and_be_beyond_the_image) {
  raster.Clip({{-50, -50, 10, 10}, {5, 5, 20, 40}, {100, 100, 200, 200}});
  for (int y = 0; y < height; ++y) raster.DrawLine({-10, y + 0.5}, {60, y + 0.5}, 1, black);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const bool isInside = (x < 10 && y < 10) || (x >= 5 && x < 20 && y >= 5);
      EXPECT_EQ(isInside ? black : white, At(x, y)) << x << ' ' << y;
    }
  }
}

TEST_F(StrokeRasterTest, an_empty_clip_region_leaves_nothing) {
  raster.Clip({});
  raster.DrawLine({0, 15}, {40, 15}, 10, black);
  raster.DrawPixel(3, 3, black);
  EXPECT_FALSE(IsMarked(0, 0, 40, 30));
}

TEST_F(StrokeRasterTest, a_pixel_beyond_the_image_is_nothing) {
  for (const auto& [x, y] : {std::pair(-1, 5), std::pair(40, 5), std::pair(5, -1), std::pair(5, 30)})
    raster.DrawPixel(x, y, black);
  EXPECT_FALSE(IsMarked(0, 0, 40, 30));
}

}  // namespace
}  // namespace hexlume::stroke_raster_test
