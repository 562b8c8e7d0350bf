// A frame of 1000 by 1000, on MM_HIMETRIC: on the sheet Y goes from 0 down to -1000.
#include "tools/hexlume/metafile/sheet_ink.h"

#include <gtest/gtest.h>

#include "support/picture_text.h"

namespace hexlume::sheet_ink_test {
namespace {

constexpr uint32_t blackBrush = 0x80000004;

SheetInk InkOf(const Words& records) {
  const Words metafile = SmallMetafile(records);
  return FindInk(BytesOf(metafile), 4 * metafile.size());
}

TEST(SheetInk, a_metafile_that_draws_nothing) {
  EXPECT_EQ(SheetInk::none, InkOf({}));
  EXPECT_EQ(SheetInk::none, InkOf(PenRecords(1, 0, 10, 0) + MoveToRecord(500, -500)));
}

TEST(SheetInk, lines) {
  EXPECT_EQ(SheetInk::within, InkOf(LineRecords(-500, -500, 100, -500)));
  EXPECT_EQ(SheetInk::beside, InkOf(LineRecords(-500, -500, -1, -500)));
  EXPECT_EQ(SheetInk::beside, InkOf(LineRecords(500, 1, 500, 100)));
  EXPECT_EQ(SheetInk::beside, InkOf(LineRecords(1001, -500, 2000, -500) + LineToRecord(2000, -5000)));
  EXPECT_EQ(SheetInk::within, InkOf(LineRecords(1001, -500, 2000, -500) + LineRecords(0, 0, 10, -10)));
}

TEST(SheetInk, shapes) {
  const auto shapeAt = [](int32_t x) {
    const std::vector<int32_t> points{x, -100, x + 100, -100, x + 100, -200, x, -200};
    return std::vector<Words>{PointsRecord(2, points),
                              PointsRecord(3, points),
                              Points16Record(85, points),
                              Points16Record(86, points),
                              Record(15, {Word(x), Word(-100), 0}),
                              MoveToRecord(x + 50, -100) + AngleArcRecord(x + 50, -100, 49, 0, 90),
                              Record(42, Ints({x, -200, x + 100, -100})),
                              Record(45, Ints({x, -200, x + 100, -100, x, 0, x, 0})),
                              FillRegionRecord(blackBrush, {x, -200, x + 100, -100}),
                              TextRecord(x, -100, u"A", {10})};
  };
  for (const Words& shape : shapeAt(500)) EXPECT_EQ(SheetInk::within, InkOf(shape)) << shape[0];
  for (const Words& shape : shapeAt(2000)) EXPECT_EQ(SheetInk::beside, InkOf(shape)) << shape[0];
}

// The arc begins at (2000, -500), and ends at (2000 + 100 cos 180, -500): beside. A line goes on from there.
TEST(SheetInk, a_line_goes_on_where_an_arc_has_ended) {
  const Words arc = MoveToRecord(2100, -500) + AngleArcRecord(2000, -500, 100, 0, 180);
  EXPECT_EQ(SheetInk::beside, InkOf(arc + LineToRecord(1800, -500)));
  EXPECT_EQ(SheetInk::within, InkOf(arc + LineToRecord(900, -500)));
}

// They are 40 long, and 80 at most in any direction.
TEST(SheetInk, texts_go_on_from_their_reference_point) {
  EXPECT_EQ(SheetInk::within, InkOf(TextRecord(-79, -500, u"AB", {20, 20})));
  EXPECT_EQ(SheetInk::beside, InkOf(TextRecord(-81, -500, u"AB", {20, 20})));
  EXPECT_EQ(SheetInk::within, InkOf(TextRecord(500, -1079, u"AB", {20, 20})));
  EXPECT_EQ(SheetInk::beside, InkOf(TextRecord(500, -1081, u"AB", {20, 20})));
}

// A pixel of the device is 10 units wide.
TEST(SheetInk, what_a_clip_region_beside_the_sheet_leaves_is_beside_it) {
  const Words line = LineRecords(0, 0, 500, -500);
  EXPECT_EQ(SheetInk::within, InkOf(ClipRecord(1, {10, 10, 20, 20}) + line));
  EXPECT_EQ(SheetInk::beside, InkOf(ClipRecord(1, {110, 10, 120, 20}) + line));
  EXPECT_EQ(SheetInk::beside, InkOf(ClipRecord(1, {}) + line));
  EXPECT_EQ(SheetInk::within, InkOf(ClipRecord(1, {110, 10, 120, 20}) + line + NoClipRecord() + line));
}

TEST(SheetInk, malformed_records_are_passed_over) {
  EXPECT_EQ(SheetInk::within, InkOf(Record(54, {1}) + LineRecords(0, 0, 500, -500)));
  EXPECT_EQ(SheetInk::none, FindInk(reinterpret_cast<const uint8_t*>("MZ"), 2));
}

}  // namespace
}  // namespace hexlume::sheet_ink_test
