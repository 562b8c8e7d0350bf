// Strokes, shapes and regions of the player, pixel by pixel: 10 units a pixel.
#include "tools/hexlume/metafile/metafile_player.h"

#include <gtest/gtest.h>

#include "support/picture_canvas.h"

namespace hexlume::metafile_player_test {
namespace {

constexpr uint32_t white = 0xFFFFFF, black = 0, red = 0xFF0000, green = 0x00FF00;
constexpr uint32_t nullBrush = 0x80000005, nullPen = 0x80000008, blackBrush = 0x80000004;
constexpr uint32_t gdiRed = 0x0000FF;
constexpr uint32_t solid = 0, dash = 1, noPen = 5;
constexpr uint32_t polyBezier = 2, polygon = 3, polyBezier16 = 85, polygon16 = 86;

// Lines and pens.

TEST(MetafilePlayer, a_thin_line_is_a_pixel_wide_and_y_grows_upward) {
  const PictureCanvas canvas(LineRecords(100, -300, 900, -300));
  EXPECT_EQ(black, canvas.At(50, 30));
  EXPECT_EQ(black, canvas.At(12, 30));
  EXPECT_EQ(black, canvas.At(88, 30));
  EXPECT_FALSE(canvas.IsMarked(0, 0, 100, 30));
  EXPECT_FALSE(canvas.IsMarked(0, 31, 100, 100));
  EXPECT_FALSE(canvas.IsMarked(0, 30, 10, 31));
  EXPECT_FALSE(canvas.IsMarked(91, 30, 100, 31));
}

TEST(MetafilePlayer, a_line_goes_on_where_the_last_one_ended) {
  const PictureCanvas canvas(LineRecords(200, -200, 200, -800) + LineToRecord(800, -800));
  EXPECT_EQ(black, canvas.At(20, 50));
  EXPECT_EQ(black, canvas.At(50, 80));
}

TEST(MetafilePlayer, pens_have_a_width_a_colour_and_round_ends) {
  const PictureCanvas canvas(PenRecords(1, solid, 100, gdiRed) + LineRecords(200, -500, 800, -500));
  EXPECT_EQ(red, canvas.At(50, 45));
  EXPECT_EQ(red, canvas.At(50, 54));
  EXPECT_EQ(white, canvas.At(50, 44));
  EXPECT_EQ(white, canvas.At(50, 55));
  EXPECT_EQ(red, canvas.At(16, 50));    // 3.5 and 0.5 pixels from the end, of a pen's half of 5
  EXPECT_EQ(white, canvas.At(15, 45));  // 4.5 and 4.5
}

TEST(MetafilePlayer, a_wide_pen_makes_a_dot_of_a_line_without_length_and_a_thin_one_nothing) {
  EXPECT_EQ(black,
            PictureCanvas(PenRecords(1, solid, 100, 0) + LineRecords(500, -500, 500, -500)).At(48, 48));
  EXPECT_FALSE(PictureCanvas(LineRecords(500, -500, 500, -500)).IsMarked(0, 0, 100, 100));
}

TEST(MetafilePlayer, a_null_pen_draws_nothing) {
  EXPECT_FALSE(
      PictureCanvas(PenRecords(1, noPen, 100, 0) + LineRecords(0, 0, 1000, -1000)).IsMarked(0, 0, 100, 100));
  EXPECT_FALSE(
      PictureCanvas(SelectRecord(nullPen) + LineRecords(0, 0, 1000, -1000)).IsMarked(0, 0, 100, 100));
}

// A dash is 18 pixels of 96 to an inch long, a gap 6: here 47.6 and 15.9 pixels.
TEST(MetafilePlayer, dashes_of_a_thin_pen) {
  const PictureCanvas canvas(PenRecords(1, dash, 0, 0) + LineRecords(0, -500, 1000, -500));
  EXPECT_EQ(black, canvas.At(2, 50));
  EXPECT_EQ(black, canvas.At(45, 50));
  EXPECT_EQ(white, canvas.At(50, 50));
  EXPECT_EQ(white, canvas.At(61, 50));
  EXPECT_EQ(black, canvas.At(66, 50));
}

TEST(MetafilePlayer, a_pen_wider_than_a_pixel_has_no_dashes) {
  const PictureCanvas canvas(PenRecords(1, dash, 20, 0) + LineRecords(0, -500, 1000, -500));
  for (int x = 0; x < 100; ++x) EXPECT_EQ(black, canvas.At(x, 50)) << x;
}

TEST(MetafilePlayer, an_object_that_is_deleted_stays_selected_but_can_not_be_selected_again) {
  const Words deleted = Record(40, {1});
  EXPECT_EQ(red, PictureCanvas(PenRecords(1, solid, 100, gdiRed) + deleted + LineRecords(0, -500, 1000, -500))
                     .At(50, 50));
  EXPECT_EQ(black, PictureCanvas(PenRecords(1, solid, 100, gdiRed) + PenRecords(2, solid, 100, 0) + deleted +
                                 SelectRecord(1) + LineRecords(0, -500, 1000, -500))
                       .At(50, 50));
}

TEST(MetafilePlayer, a_pixel) {
  const PictureCanvas canvas(Record(15, {305, Word(-405), gdiRed}));
  EXPECT_EQ(red, canvas.At(30, 40));
  EXPECT_FALSE(canvas.IsMarked(0, 0, 100, 40));
  EXPECT_FALSE(canvas.IsMarked(0, 41, 100, 100));
  EXPECT_FALSE(canvas.IsMarked(0, 40, 30, 41));
  EXPECT_FALSE(canvas.IsMarked(31, 40, 100, 41));
}

// Arcs: a circle of 30 pixels about (50, 50), asked for at its corners, 21 pixels in both directions.

struct Quarters {
  bool upperRight, upperLeft, lowerLeft, lowerRight;
};

void ExpectQuarters(const Quarters& expected, const PictureCanvas& canvas) {
  EXPECT_EQ(expected.upperRight, canvas.IsMarked(70, 27, 73, 30));
  EXPECT_EQ(expected.upperLeft, canvas.IsMarked(27, 27, 30, 30));
  EXPECT_EQ(expected.lowerLeft, canvas.IsMarked(27, 70, 30, 73));
  EXPECT_EQ(expected.lowerRight, canvas.IsMarked(70, 70, 73, 73));
}

TEST(MetafilePlayer, angles_of_an_angle_arc_count_clockwise_where_y_grows_upward) {
  ExpectQuarters({false, false, false, true},
                 PictureCanvas(MoveToRecord(800, -500) + AngleArcRecord(500, -500, 300, 0, 90)));
  ExpectQuarters({true, false, false, false},
                 PictureCanvas(MoveToRecord(800, -500) + AngleArcRecord(500, -500, 300, 0, -90)));
  ExpectQuarters({true, true, true, false},
                 PictureCanvas(MoveToRecord(500, -800) + AngleArcRecord(500, -500, 300, 90, 270)));
}

TEST(MetafilePlayer, angles_of_an_angle_arc_count_counterclockwise_where_y_grows_downward) {
  ExpectQuarters({true, false, false, false}, PictureCanvas(SetMapModeRecord(1) + MoveToRecord(80, 50) +
                                                            AngleArcRecord(50, 50, 30, 0, 90)));
}

TEST(MetafilePlayer, an_angle_arc_is_joined_at_both_ends) {
  const PictureCanvas canvas(MoveToRecord(500, -500) + AngleArcRecord(500, -500, 300, 0, 90) +
                             LineToRecord(500, -500));
  EXPECT_TRUE(canvas.IsMarked(65, 49, 66, 52));
  EXPECT_TRUE(canvas.IsMarked(49, 65, 52, 66));
}

TEST(MetafilePlayer, an_angle_arc_of_several_turns_is_a_circle) {
  ExpectQuarters({true, true, true, true},
                 PictureCanvas(MoveToRecord(800, -500) + AngleArcRecord(500, -500, 300, 0, 3600)));
  ExpectQuarters({true, true, true, true},
                 PictureCanvas(MoveToRecord(800, -500) + AngleArcRecord(500, -500, 300, 0, -1e20f)));
}

TEST(MetafilePlayer, the_direction_of_arcs_does_not_touch_angle_arcs) {
  ExpectQuarters({false, false, false, true}, PictureCanvas(Record(57, {2}) + MoveToRecord(800, -500) +
                                                            AngleArcRecord(500, -500, 300, 0, 90)));
}

Words ArcRecord(int32_t xStart, int32_t yStart, int32_t xEnd, int32_t yEnd) {
  return Record(45, Ints({200, -800, 800, -200, xStart, yStart, xEnd, yEnd}));
}

TEST(MetafilePlayer, an_arc_runs_counterclockwise_from_its_start) {
  ExpectQuarters({true, false, false, false}, PictureCanvas(ArcRecord(900, -500, 500, -100)));
  ExpectQuarters({false, true, true, true}, PictureCanvas(ArcRecord(500, -100, 900, -500)));
}

TEST(MetafilePlayer, an_arc_runs_clockwise_if_told) {
  ExpectQuarters({false, true, true, true}, PictureCanvas(Record(57, {2}) + ArcRecord(900, -500, 500, -100)));
}

TEST(MetafilePlayer, an_arc_that_ends_where_it_starts_is_whole) {
  ExpectQuarters({true, true, true, true}, PictureCanvas(ArcRecord(900, -500, 900, -500)));
  ExpectQuarters({true, true, true, true}, PictureCanvas(ArcRecord(900, -500, 600, -500)));
}

TEST(MetafilePlayer, an_arc_leaves_the_current_position) {
  const PictureCanvas canvas(MoveToRecord(100, -100) + ArcRecord(900, -500, 500, -100) +
                             LineToRecord(100, -900));
  EXPECT_EQ(black, canvas.At(10, 50));
}

// Shapes.

TEST(MetafilePlayer, an_ellipse_is_filled_and_outlined) {
  const PictureCanvas canvas(BrushRecords(1, 0x00FF00) + PenRecords(2, solid, 40, gdiRed) +
                             Record(42, Ints({200, -800, 800, -200})));
  EXPECT_EQ(green, canvas.At(50, 50));
  EXPECT_EQ(red, canvas.At(20, 50));
  EXPECT_EQ(red, canvas.At(50, 79));
  EXPECT_EQ(white, canvas.At(24, 24));
}

TEST(MetafilePlayer, an_ellipse_without_brush_has_no_inside) {
  const PictureCanvas canvas(SelectRecord(nullBrush) + Record(42, Ints({200, -800, 800, -200})));
  EXPECT_FALSE(canvas.IsMarked(35, 35, 65, 65));
  EXPECT_TRUE(canvas.IsMarked(18, 49, 22, 51));
}

// Two squares, one in the other, that are walked in the same sense.
const std::vector<int32_t> squares{200, -200, 800, -200, 800, -800, 200, -800, 200, -200,
                                   400, -400, 600, -400, 600, -600, 400, -600, 400, -400};

TEST(MetafilePlayer, a_polygon_is_filled_by_the_rule_that_is_set) {
  const Words shape = SelectRecord(blackBrush) + SelectRecord(nullPen);
  const PictureCanvas alternate(shape + PointsRecord(polygon, squares));
  EXPECT_EQ(black, alternate.At(30, 30));
  EXPECT_EQ(white, alternate.At(50, 50));
  EXPECT_EQ(white, alternate.At(10, 10));
  const PictureCanvas winding(shape + Record(19, {2}) + PointsRecord(polygon, squares));
  EXPECT_EQ(black, winding.At(30, 30));
  EXPECT_EQ(black, winding.At(50, 50));
}

TEST(MetafilePlayer, a_polygon_is_closed_by_the_pen) {
  const PictureCanvas canvas(SelectRecord(nullBrush) + PenRecords(1, solid, 40, 0) +
                             PointsRecord(polygon, {200, -200, 800, -200, 800, -800}));
  EXPECT_EQ(black, canvas.At(50, 50));
}

TEST(MetafilePlayer, a_curve_passes_through_its_middle) {
  const PictureCanvas canvas(PointsRecord(polyBezier, {100, -500, 100, -900, 900, -900, 900, -500}));
  // (p0 + 3 p1 + 3 p2 + p3) / 8 = (500, -800).
  EXPECT_TRUE(canvas.IsMarked(50, 79, 51, 81));
  EXPECT_FALSE(canvas.IsMarked(0, 0, 100, 48));
}

TEST(MetafilePlayer, points_of_16_bits_draw_the_same) {
  EXPECT_EQ(PictureCanvas(PointsRecord(polygon, squares)), PictureCanvas(Points16Record(polygon16, squares)));
  const std::vector<int32_t> curve{100, -500, 100, -900, 900, -900, 900, -500};
  EXPECT_EQ(PictureCanvas(PointsRecord(polyBezier, curve)),
            PictureCanvas(Points16Record(polyBezier16, curve)));
}

// Regions.

TEST(MetafilePlayer, a_filled_region_is_in_logical_units) {
  const PictureCanvas canvas(BrushRecords(1, gdiRed) + FillRegionRecord(1, {200, -800, 400, -600}));
  EXPECT_EQ(red, canvas.At(20, 60));
  EXPECT_EQ(red, canvas.At(39, 79));
  EXPECT_FALSE(canvas.IsMarked(0, 0, 100, 60));
  EXPECT_FALSE(canvas.IsMarked(0, 80, 100, 100));
  EXPECT_FALSE(canvas.IsMarked(0, 60, 20, 80));
  EXPECT_FALSE(canvas.IsMarked(40, 60, 100, 80));
}

TEST(MetafilePlayer, neighbouring_rectangles_of_a_region_leave_no_seam) {
  const PictureCanvas canvas(BrushRecords(1, 0) +
                             FillRegionRecord(1, {203, -806, 407, -703, 203, -703, 407, -601}));
  for (int y = 61; y < 80; ++y) EXPECT_EQ(black, canvas.At(30, y)) << y;
}

TEST(MetafilePlayer, a_region_is_filled_by_a_stock_brush_too_and_never_by_a_pen) {
  EXPECT_EQ(black, PictureCanvas(FillRegionRecord(blackBrush, {0, -1000, 1000, 0})).At(50, 50));
  EXPECT_FALSE(PictureCanvas(FillRegionRecord(nullBrush, {0, -1000, 1000, 0})).IsMarked(0, 0, 100, 100));
  EXPECT_FALSE(PictureCanvas(PenRecords(1, solid, 0, 0) + FillRegionRecord(1, {0, -1000, 1000, 0}))
                   .IsMarked(0, 0, 100, 100));
}

const Words fillAll = FillRegionRecord(blackBrush, {0, -1000, 1000, 0});

TEST(MetafilePlayer, a_clip_region_is_in_pixels_of_the_device) {
  const PictureCanvas canvas(ClipRecord(1, {30, 40, 60, 70}) + fillAll);
  EXPECT_EQ(black, canvas.At(30, 40));
  EXPECT_EQ(black, canvas.At(59, 69));
  EXPECT_FALSE(canvas.IsMarked(0, 0, 100, 40));
  EXPECT_FALSE(canvas.IsMarked(0, 70, 100, 100));
  EXPECT_FALSE(canvas.IsMarked(0, 40, 30, 70));
  EXPECT_FALSE(canvas.IsMarked(60, 40, 100, 70));
}

TEST(MetafilePlayer, a_clip_region_is_taken_away_again) {
  EXPECT_EQ(black, PictureCanvas(ClipRecord(1, {30, 40, 60, 70}) + NoClipRecord() + fillAll).At(90, 90));
}

// In the mode's order: and, or, xor, difference, copy.
TEST(MetafilePlayer, clip_regions_are_combined) {
  const Words first = ClipRecord(5, {10, 10, 60, 60});
  const struct {
    uint32_t mode;
    bool inFirst, inBoth, inSecond;
  } rows[] = {{1, false, true, false},
              {2, true, true, true},
              {3, true, false, true},
              {4, true, false, false},
              {5, false, true, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.mode);
    const PictureCanvas canvas(first + ClipRecord(row.mode, {40, 40, 90, 90}) + fillAll);
    EXPECT_EQ(row.inFirst ? black : white, canvas.At(20, 20));
    EXPECT_EQ(row.inBoth ? black : white, canvas.At(50, 50));
    EXPECT_EQ(row.inSecond ? black : white, canvas.At(80, 80));
    EXPECT_EQ(white, canvas.At(95, 95));
  }
}

TEST(MetafilePlayer, an_empty_clip_region_lets_nothing_through) {
  EXPECT_FALSE(PictureCanvas(ClipRecord(1, {}) + fillAll).IsMarked(0, 0, 100, 100));
}

// The metafile as a whole.

TEST(MetafilePlayer, the_frame_is_read) {
  const Words metafile = SmallHeader() + EndRecord();
  MetafileFrame frame{};
  ASSERT_TRUE(
      ReadMetafileFrame(reinterpret_cast<const uint8_t*>(metafile.data()), 4 * metafile.size(), frame));
  EXPECT_EQ(0, frame.left);
  EXPECT_EQ(0, frame.top);
  EXPECT_EQ(1000, frame.right);
  EXPECT_EQ(1000, frame.bottom);
  EXPECT_FALSE(ReadMetafileFrame(reinterpret_cast<const uint8_t*>("MZ"), 2, frame));
}

TEST(MetafilePlayer, a_malformed_record_is_told_and_passed_over) {
  const PictureCanvas canvas(Record(54, {1}) + LineRecords(100, -300, 900, -300));
  EXPECT_FALSE(canvas.IsSound());
  EXPECT_EQ(black, canvas.At(50, 30));
  EXPECT_TRUE(PictureCanvas(Record(4242, {1, 2})).IsSound());
}

TEST(MetafilePlayer, without_an_end_record_it_is_malformed) {
  const Words metafile = SmallHeader() + LineRecords(0, -500, 1000, -500);
  EXPECT_FALSE(PictureCanvas(metafile.data(), 4 * metafile.size()).IsSound());
}

TEST(MetafilePlayer, a_device_without_size_is_malformed) {
  Words metafile = SmallHeader() + EndRecord();
  metafile[2 + 16] = 0;
  EXPECT_FALSE(PictureCanvas(metafile.data(), 4 * metafile.size()).IsSound());
}

}  // namespace
}  // namespace hexlume::metafile_player_test
