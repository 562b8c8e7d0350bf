// The work of a picture in pixels. The frame is 1000 by 1000 units and pixels.
#include "tools/hexlume/picture/raster_canvas.h"

#include <gtest/gtest.h>

#include "support/picture_text.h"
#include "tools/hexlume/metafile/metafile_player.h"
#include "tools/hexlume/metafile/player_path.h"

namespace hexlume::raster_canvas_test {
namespace {

constexpr uint32_t blackBrush = 0x80000004;

// Whether a picture may take them with a million steps: 4,000,000,000 and 1,000 for each byte of a drawing.
bool IsWithin(int32_t count, const Words& records) {
  Words all;
  for (int32_t i = 0; i < count; ++i) all.insert(all.end(), records.begin(), records.end());
  const Words metafile = SmallMetafile(all);
  RasterCanvas canvas(1000, 1000, PictureWork(-3'999'000));
  try {
    EXPECT_TRUE(PlayMetafile(BytesOf(metafile), 4 * metafile.size(), canvas));
    return true;
  } catch (const PictureError&) {
    return false;
  }
}

// A circle takes 7,000 steps and 80 for each pixel of its way across and down, 8 times its radius of 100: 71,000. Its
// control points make the way up to 5% longer: 13 circles take at most 966,000, 15 at least 1,065,000.
TEST(RasterCanvas, the_work_of_curves) {
  const Words circle = MoveToRecord(600, -500) + AngleArcRecord(500, -500, 100, 0, 360);
  EXPECT_TRUE(IsWithin(13, circle));
  EXPECT_FALSE(IsWithin(15, circle));
}

// A path of 501 lines is stroked in pieces of 100, without a gap. Where they meet, at x = 100, 200 and so on, there is ink as
// beside them.
TEST(RasterCanvas, a_long_path_has_no_gaps) {
  PlayerPath path({65536, 0.02});
  path.MoveTo({0, 500});
  for (int32_t x = 1; x <= 501; ++x) path.LineTo({1.0 * x, 500});
  RasterCanvas canvas(1000, 1000);
  canvas.Stroke(path, {0, 3, {}});
  const RasterImage& image = canvas.Finish();
  const auto colorAt = [&image](int32_t x) { return image.Row(500)[x] & 0xFFFFFF; };
  for (int32_t x = 0; x <= 501; ++x) EXPECT_EQ(0u, colorAt(x)) << x;
  EXPECT_EQ(0xFFFFFFu, colorAt(504));
}

// Its work isn't only that of its length: 7,000 steps, 5,000 for each of 501 lines, whose length takes 40,080.
TEST(RasterCanvas, the_work_of_a_long_path) {
  PlayerPath path({65536, 0.02});
  path.MoveTo({0, 500});
  for (int32_t x = 1; x <= 501; ++x) path.LineTo({1.0 * x, 500});
  RasterCanvas canvas(1000, 1000, PictureWork(-3'999'000));
  EXPECT_THROW(canvas.Stroke(path, {0, 3, {}}), PictureError);
}

// 300 steps, 45 for each of 401 rows, and 2 for each of its (400 + 400 + 1) * 2 pixels at most: 21,549. 46 of them take
// 991,000.
TEST(RasterCanvas, the_work_of_lines) {
  const Words line = LineRecords(100, -100, 500, -500);
  EXPECT_TRUE(IsWithin(46, line));
  EXPECT_FALSE(IsWithin(47, line));
}

// 100 steps, 10 for each of the picture's 1,000 rows, and half a step for each of 400 * 400 pixels: 90,100.
TEST(RasterCanvas, the_work_of_areas) {
  const Words region = FillRegionRecord(blackBrush, {100, -500, 500, -100});
  EXPECT_TRUE(IsWithin(11, region));
  EXPECT_FALSE(IsWithin(12, region));
}

TEST(RasterCanvas, strokes_are_longer_on_more_dots_per_inch) {
  EXPECT_EQ(1, DotScale(1890));
  EXPECT_NEAR(2, DotScale(7559), 0.001);
  EXPECT_NEAR(3.125, DotScale(11811), 0.001);
}

}  // namespace
}  // namespace hexlume::raster_canvas_test
