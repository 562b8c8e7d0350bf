// A frame of 10 by 10 mm that is 20,000 pixels wide and high: an area as large as it takes 0.3 steps for each of its
// 400,000,000 pixels, 120,000,000. With what else it takes, 41 are within the 4,000,000,000 steps of a picture and the 1,000 for
// each byte of its drawing, and 42 aren't.
#include "tools/hexlume/picture/picture_cost.h"

#include <gtest/gtest.h>

#include "support/picture_text.h"

namespace hexlume::picture_cost_test {
namespace {

constexpr uint32_t blackBrush = 0x80000004, blackPen = 0x80000007;
constexpr PixelSize usual = {20000, 20000, 3779};  // 96 dots per inch

Words Times(int32_t count, const Words& records) {
  Words all;
  for (int32_t i = 0; i < count; ++i) all.insert(all.end(), records.begin(), records.end());
  return all;
}

// By a drawing of a megabyte.
bool IsWithin(const Words& records, PixelSize size = usual, int64_t drawingBytes = 1'000'000) {
  const Words metafile = SmallMetafile(records);
  MetafileBytes bytes{BytesOf(metafile), BytesOf(metafile) + 4 * metafile.size()};
  bytes.SetDrawingBytes(drawingBytes);
  try {
    RequireWork(bytes, size);
    return true;
  } catch (const PictureError&) {
    return false;
  }
}

// A side of a polygon takes 1,500 steps and 2 for each of 20,000 pixels, so three of them take 124,500.
TEST(PictureCost, areas) {
  const Words polygon = PointsRecord(3, {0, 0, 1000, 0, 1000, -1000, 0, -1000});
  EXPECT_TRUE(IsWithin(Times(41, polygon)));
  EXPECT_FALSE(IsWithin(Times(42, polygon)));
  const Words region = FillRegionRecord(blackBrush, {0, -1000, 1000, 0});
  EXPECT_TRUE(IsWithin(Times(41, region)));
  EXPECT_FALSE(IsWithin(Times(42, region)));
}

TEST(PictureCost, what_is_beside_the_picture_has_no_area) {
  EXPECT_TRUE(IsWithin(Times(42, PointsRecord(3, {2000, 0, 3000, 0, 3000, -1000, 2000, -1000}))));
}

// Strokes are longer on more dots: at 192 dots per inch twice as much is allowed.
TEST(PictureCost, more_dots_per_inch_allow_more) {
  const Words polygon = PointsRecord(3, {0, 0, 1000, 0, 1000, -1000, 0, -1000});
  EXPECT_TRUE(IsWithin(Times(82, polygon), {20000, 20000, 7560}));
  EXPECT_FALSE(IsWithin(Times(84, polygon), {20000, 20000, 7560}));
  EXPECT_FALSE(IsWithin(Times(42, polygon), {20000, 20000, 1890}));
}

// Half a megabyte allows 4,500,000,000 steps: 37 areas of 120,125,000.
TEST(PictureCost, larger_drawings_allow_more) {
  const Words polygon = PointsRecord(3, {0, 0, 1000, 0, 1000, -1000, 0, -1000});
  EXPECT_TRUE(IsWithin(Times(37, polygon), usual, 500'000));
  EXPECT_FALSE(IsWithin(Times(38, polygon), usual, 500'000));
  EXPECT_TRUE(IsWithin(Times(42, polygon), usual, 1'100'000));
}

// A line as wide as it is long covers the same area; with its 615,000 steps for the stroke still 41 are within.
TEST(PictureCost, wide_pens) {
  const Words lines = Times(42, LineRecords(0, 0, 1000, -500));
  EXPECT_TRUE(IsWithin(PenRecords(1, 0, 0, 0) + lines));
  EXPECT_FALSE(IsWithin(PenRecords(1, 0, 1000, 0) + lines));
  EXPECT_TRUE(IsWithin(PenRecords(1, 0, 1000, 0) + SelectRecord(blackPen) + lines));
  EXPECT_TRUE(IsWithin(PenRecords(1, 0, 1000, 0) + Times(41, LineRecords(0, 0, 1000, -500))));
}

// Each character of a font as high as the picture.
TEST(PictureCost, texts) {
  FontNumbers font;
  font.height = -1000;
  const auto text = [](size_t count) { return TextRecord(0, 0, std::u16string(count, u'A')); };
  EXPECT_TRUE(IsWithin(FontRecords(1, font) + text(41)));
  EXPECT_FALSE(IsWithin(FontRecords(1, font) + text(42)));
}

// A curve takes 30 steps for each pixel around it, also beyond the picture, and 3,000. The box is 100,000 times as wide as
// the frame: 8 * 10^9 pixels.
TEST(PictureCost, curves) {
  const Words ellipse = Record(42, Ints({0, -100'000'000, 100'000'000, 0}));
  EXPECT_FALSE(IsWithin(ellipse));
  EXPECT_FALSE(IsWithin(AngleArcRecord(0, 0, 50'000'000, 0, 90)));
  EXPECT_TRUE(IsWithin(Record(42, Ints({0, -1000, 1000, 0}))));
}

// 10,000 boxes take 15,000,000 steps, and 100,000 for each of the strokes that they cut. A thin line of 20,000 pixels takes
// 1,500 and 40,000, and its two records 1,000: 142,500. So 34,900 lines take 4.99 * 10^9 steps with the boxes.
TEST(PictureCost, clip_regions) {
  std::vector<int32_t> edges;
  for (int32_t i = 0; i < 10'000; ++i) edges.insert(edges.end(), {0, i, 1000, i + 1});
  const Words clip = ClipRecord(5, edges);
  const Words line = LineRecords(0, 0, 1000, -500);
  EXPECT_TRUE(IsWithin(clip + Times(34'900, line)));
  EXPECT_FALSE(IsWithin(clip + Times(35'100, line)));
  EXPECT_TRUE(IsWithin(clip + NoClipRecord() + Times(35'100, line)));
}

// A record takes 500 steps. An area takes 120,000,000, its three sides 124,500, its record 500; after 41 of them
// 5,000,000,000 - 41 * 120,125,000 = 74,875,000 steps are left: 149,750 records, with the map mode's and the end's.
TEST(PictureCost, records_that_draw_nothing) {
  const Words areas = Times(41, PointsRecord(3, {0, 0, 1000, 0, 1000, -1000, 0, -1000}));
  EXPECT_TRUE(IsWithin(areas + Times(149'700, MoveToRecord(1, 1))));
  EXPECT_FALSE(IsWithin(areas + Times(149'760, MoveToRecord(1, 1))));
}

TEST(PictureCost, malformed_records_are_left_to_the_system) {
  EXPECT_TRUE(IsWithin(Record(3, {1, 2})));
  EXPECT_TRUE(IsWithin({54, 5}));
  EXPECT_NO_THROW(RequireWork(MetafileBytes(), usual));
}

}  // namespace
}  // namespace hexlume::picture_cost_test
