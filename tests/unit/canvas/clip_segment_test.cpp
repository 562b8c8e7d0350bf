#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>

#include "canvas/canvas.h"

namespace hexlume {

static bool operator==(const ClippedSegment& a, const ClippedSegment& b) {
  return a.startX == b.startX && a.startY == b.startY && a.endX == b.endX && a.endY == b.endY;
}

static std::ostream& operator<<(std::ostream& out, const ClippedSegment& segment) {
  return out << '(' << segment.startX << ", " << segment.startY << ") to (" << segment.endX << ", "
             << segment.endY << ')';
}
}  // namespace hexlume

namespace hexlume::clip_segment_test {
namespace {

struct View {
  int32_t left, top, right, bottom;
};

constexpr View sheet = {0, 0, 1000, 1000};
constexpr ClippedSegment nothingLeft = {-1, -1, -1, -1};

ClippedSegment Clip(const View& view, int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  return ClipSegment(view.left, view.top, view.right, view.bottom, x1, x2, y1, y2);
}

ClippedSegment DimClip(const View& view, int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  return DimClipSegment(view.left, view.top, view.right, view.bottom, x1, x2, y1, y2);
}

ClippedSegment Segment(int32_t startX, int32_t startY, int32_t endX, int32_t endY) {
  return {startX, startY, endX, endY};
}

// In the comments a line is y = m x + b.

// Segments within the view

TEST(ClipSegment, a_segment_wholly_inside_comes_back) {
  EXPECT_EQ(Clip(sheet, 100, -100, 200, -300), Segment(100, -100, 200, -300));
  EXPECT_EQ(Clip(sheet, 100, -300, 200, -100), Segment(100, -300, 200, -100));
}

TEST(ClipSegment, the_end_of_a_segment_inside_can_come_back_a_unit_off) {
  // m = 0.28, b = -10. As doubles 25 * 0.28 is 7.000000000000001, and less 10 it is -2.999999999999999.
  EXPECT_EQ(Clip(sheet, 0, -10, 25, -3), Segment(0, -10, 25, -2));
}

TEST(ClipSegment, the_line_is_laid_through_the_segments_second_end) {
  // m = -58/14. As doubles 7 m is -29.000000000000004, so b = -60 - 7 m is -30.999999999999996, truncated to
  // -30. Through the first end b would be -31.000000000000004.
  EXPECT_EQ(Clip(sheet, -7, -2, 7, -60), Segment(0, -30, 7, -60));
}

TEST(ClipSegment, a_start_right_of_the_left_edge_stays_even_outside_the_view) {
  EXPECT_EQ(Clip(sheet, 100, -3000, 500, -100), Segment(100, -3000, 500, -100));
  EXPECT_EQ(Clip(sheet, 100, 300, 500, -100), Segment(100, 300, 500, -100));
}

TEST(ClipSegment, a_start_on_the_left_edge_stays) {
  EXPECT_EQ(Clip({50, 0, 1000, 1000}, 50, 300, 450, -100), Segment(50, 300, 450, -100));
}

// The left edge

TEST(ClipSegment, a_rising_segment_starts_where_it_crosses_the_left_edge) {
  // m = 2/3, b = -433.33.
  EXPECT_EQ(Clip(sheet, -100, -500, 500, -100), Segment(0, -433, 500, -100));
}

TEST(ClipSegment, a_falling_segment_starts_where_it_crosses_the_left_edge) {
  // m = -1, b = -200; at 150: -350.
  EXPECT_EQ(Clip({150, 0, 1000, 1000}, -100, -100, 500, -700), Segment(150, -350, 500, -700));
}

TEST(ClipSegment, a_rising_segment_from_below_the_left_edge_is_dropped) {
  // m = 1.93, b = -1066.67: below the view at its left edge, in it further right.
  EXPECT_EQ(Clip(sheet, -1000, -3000, 500, -100), nothingLeft);
}

TEST(ClipSegment, a_rising_segment_through_the_lower_left_corner_is_dropped) {
  // m = 1, b = -1000.
  EXPECT_EQ(Clip(sheet, -100, -1100, 500, -500), nothingLeft);
}

TEST(ClipSegment, a_falling_segment_below_the_left_edge_is_kept_left_of_the_view) {
  // m = -2, b = -2000: the upper edge is crossed at -1000, the lower one at -500.
  EXPECT_EQ(Clip(sheet, -1000, 0, 500, -3000), Segment(-1000, 0, -500, -1000));
}

TEST(ClipSegment, a_falling_segment_through_the_lower_left_corner_starts_at_the_upper_edge) {
  // m = -1, b = -1000: the upper edge is crossed at -1000, the lower one at 0.
  EXPECT_EQ(Clip(sheet, -100, -900, 100, -1100), Segment(-1000, 0, 0, -1000));
}

TEST(ClipSegment, a_falling_segment_from_above_the_left_edge_starts_at_the_upper_edge) {
  // m = -2, b = 600; the upper edge is at -100: (-100 - 600) / -2 = 350. At 500: -400.
  EXPECT_EQ(Clip({0, 100, 1000, 1000}, -100, 800, 500, -400), Segment(350, -100, 500, -400));
}

TEST(ClipSegment, a_start_at_the_upper_edge_is_truncated) {
  // m = -3, b = 700: 700 / 3 = 233.33. At 500: -800.
  EXPECT_EQ(Clip(sheet, -100, 1000, 500, -800), Segment(233, 0, 500, -800));
}

TEST(ClipSegment, a_falling_segment_from_higher_than_bottom_units_above_the_sheet_is_dropped) {
  // m = -2, b = 1001, 1001 and 1000 at the left edge. The second crosses the upper edge at 500.
  EXPECT_EQ(Clip(sheet, -100, 1201, 900, -799), nothingLeft);
  EXPECT_EQ(Clip(sheet, -100, 1200, 900, -800), Segment(500, 0, 900, -800));
}

TEST(ClipSegment, a_falling_segment_that_passes_above_the_view_is_dropped) {
  // m = -0.5; b = 502 crosses the upper edge at 1004, b = 500 at 1000, just within.
  EXPECT_EQ(Clip(sheet, -200, 602, 1800, -398), nothingLeft);
  EXPECT_EQ(Clip(sheet, -200, 600, 1800, -400), Segment(1000, 0, 1000, 0));
}

TEST(ClipSegment, a_rising_segment_above_the_left_edge_starts_at_bottom_with_its_sign_as_it_stands) {
  // m = 2, b = 100: start (100 + 1000) / 2. At 100: 300, above the view, so the end is at -100 / 2.
  EXPECT_EQ(Clip(sheet, -100, -100, 100, 300), Segment(550, 1000, -50, 0));
}

TEST(ClipSegment, a_rising_segment_through_the_upper_left_corner_counts_as_above_it) {
  // m = 1, b = 0: start 1000, not beyond right. At 100: 100, above the view, so the end is at 0.
  EXPECT_EQ(Clip(sheet, -100, -100, 100, 100), Segment(1000, 1000, 0, 0));
}

TEST(ClipSegment, a_rising_segment_above_the_left_edge_is_dropped_if_its_start_comes_out_beyond_right) {
  // As before, with 1000 beyond a right of 999.
  EXPECT_EQ(Clip({0, 0, 999, 1000}, -100, -100, 100, 100), nothingLeft);
}

TEST(ClipSegment, a_rising_segment_below_top_is_dropped_and_one_at_top_isnt) {
  // m = 1; at the left edge 39 and 40, against a top of 40. The second starts at 40 + 1000 and ends at -40
  // - 40.
  EXPECT_EQ(Clip({0, 40, 2000, 1000}, -100, -61, 100, 139), nothingLeft);
  EXPECT_EQ(Clip({0, 40, 2000, 1000}, -100, -60, 100, 140), Segment(1040, 1000, -80, -40));
}

// The right edge

TEST(ClipSegment, a_segment_ends_where_it_crosses_the_right_edge) {
  // m = 0.1, b = -300: -200 at 1000.
  EXPECT_EQ(Clip(sheet, 100, -290, 2000, -100), Segment(100, -290, 1000, -200));
  // m = -0.1, b = -90: -190 at 1000.
  EXPECT_EQ(Clip(sheet, 100, -100, 2000, -290), Segment(100, -100, 1000, -190));
}

TEST(ClipSegment, an_end_on_the_right_edge_stays) {
  EXPECT_EQ(Clip(sheet, 500, -600, 1000, -100), Segment(500, -600, 1000, -100));
}

TEST(ClipSegment, a_rising_end_beyond_right_and_above_the_view_moves_to_the_upper_edge) {
  // m = 1, b = -600: 400 at the right edge; 0 at 600, -100 at 500.
  EXPECT_EQ(Clip(sheet, 100, -500, 2000, 1400), Segment(100, -500, 600, 0));
  EXPECT_EQ(Clip({0, 100, 1000, 1000}, 100, -500, 2000, 1400), Segment(100, -500, 500, -100));
}

TEST(ClipSegment, a_falling_end_beyond_right_and_above_the_view_moves_to_the_lower_edge) {
  // m = -1, b = 3100: 2100 at the right edge, -1000 at 4100.
  EXPECT_EQ(Clip(sheet, 100, 3000, 2000, 1100), Segment(100, 3000, 4100, -1000));
}

TEST(ClipSegment, a_falling_end_beyond_right_and_below_the_view_moves_to_the_lower_edge) {
  // m = -1, b = -400: -1400 at the right edge, -1000 at 600.
  EXPECT_EQ(Clip(sheet, 100, -500, 2000, -2400), Segment(100, -500, 600, -1000));
}

TEST(ClipSegment, a_rising_end_below_the_view_moves_to_the_upper_edge) {
  // m = 1, b = -2000: -1500 at the end, 0 at 2000.
  EXPECT_EQ(Clip(sheet, 100, -1900, 500, -1500), Segment(100, -1900, 2000, 0));
}

TEST(ClipSegment, an_end_within_the_view_that_leaves_it_above_is_truncated) {
  // m = 3, b = -800: 400 at the end, 0 at 266.67.
  EXPECT_EQ(Clip(sheet, 100, -500, 400, 400), Segment(100, -500, 266, 0));
}

TEST(ClipSegment, an_end_on_the_upper_edge_by_truncation_is_inside) {
  // m = 0.1, b = -105.4: -5.4 at the right edge, so -5, the upper edge itself. It is crossed at 1004.
  EXPECT_EQ(Clip({0, 5, 1000, 1000}, 4, -105, 2004, 95), Segment(4, -105, 1000, -5));
}

TEST(ClipSegment, an_end_on_the_lower_edge_by_truncation_is_inside) {
  // m = -0.1, b = -800.4: -900.4 at the right edge, so -900, the lower edge itself. It is crossed at 996.
  EXPECT_EQ(Clip({0, 0, 1000, 900}, 6, -801, 2006, -1001), Segment(6, -801, 1000, -900));
}

TEST(ClipSegment, both_ends_can_be_cut) {
  // m = -0.5, b = -150: -150 at 0, -650 at 1000.
  EXPECT_EQ(Clip(sheet, -100, -100, 1900, -1100), Segment(0, -150, 1000, -650));
  // m = 0.5, b = -750: -750 at 0, -250 at 1000.
  EXPECT_EQ(Clip(sheet, -100, -800, 1900, 200), Segment(0, -750, 1000, -250));
}

// Segments that callers keep away

TEST(ClipSegment, a_level_segment_counts_as_falling) {
  EXPECT_EQ(Clip(sheet, -100, -10, 2000, -10), Segment(0, -10, 1000, -10));
  // The lower edge is crossed nowhere: 1000 / 0.
  EXPECT_EQ(Clip(sheet, 100, -2000, 500, -2000), Segment(100, -2000, INT32_MIN, -1000));
}

TEST(ClipSegment, an_upright_segment_has_no_crossing) {
  // m is infinite, the end's y no number.
  EXPECT_EQ(Clip(sheet, 5, -20, 5, -10), Segment(5, -20, INT32_MIN, 0));
  EXPECT_EQ(Clip(sheet, 5, -10, 5, -20), Segment(5, -10, INT32_MIN, -1000));
}

TEST(ClipSegment, a_segment_without_length_has_no_crossing) {
  EXPECT_EQ(Clip(sheet, 5, -10, 5, -10), Segment(5, -10, INT32_MIN, -1000));
}

TEST(ClipSegment, differences_of_extreme_coordinates_wrap_around) {
  // The run of 2^32 - 1 wraps to -1, so m = 200: at the left edge far below what an int32 holds.
  EXPECT_EQ(Clip(sheet, INT32_MIN, -100, INT32_MAX, -300), nothingLeft);
}

TEST(ClipSegment, an_edge_at_the_last_coordinate_wraps_around) {
  // m = -1, b = 0: 10 above the upper edge, which stays at INT32_MIN; nothing is inside, and the end is at
  // -1000.
  EXPECT_EQ(Clip({0, INT32_MAX, 1000, 1000}, 5, -5, 10, -10), Segment(5, -5, 1000, -1000));
}

// The twin of a dimension's inserted blocks

constexpr ClippedSegment allZero = {0, 0, 0, 0};

TEST(DimClipSegment, its_three_rejects_are_four_zeros) {
  // A rising segment from below the left edge.
  EXPECT_EQ(DimClip(sheet, -1000, -3000, 500, -100), allZero);
  // A falling one from higher than bottom units above the sheet.
  EXPECT_EQ(DimClip(sheet, -100, 1201, 900, -799), allZero);
  // A falling one that crosses the upper edge right of the view, at 1004.
  EXPECT_EQ(DimClip(sheet, -200, 602, 1800, -398), allZero);
}

TEST(DimClipSegment, a_rising_segment_that_crosses_the_lower_line_right_of_the_view_is_dropped_too) {
  // From above the sheet: m = 1, b = 100; 100 at the left edge isn't less than top. Bottom, positive as it
  // is, is taken to be crossed at 100 + 900, right of 500.
  EXPECT_EQ(DimClip({0, 50, 500, 900}, -100, 0, 400, 500), allZero);
  EXPECT_EQ(Clip({0, 50, 500, 900}, -100, 0, 400, 500), nothingLeft);
}

TEST(DimClipSegment, what_is_left_is_the_same) {
  EXPECT_EQ(DimClip(sheet, 100, -100, 200, -300), Segment(100, -100, 200, -300));
  EXPECT_EQ(DimClip(sheet, 0, -10, 25, -3), Segment(0, -10, 25, -2));
  // m = 2/3, b = -433.33.
  EXPECT_EQ(DimClip(sheet, -100, -500, 500, -100), Segment(0, -433, 500, -100));
  // m = -2, b = -2000: the upper edge is crossed at -1000, the lower one at -500.
  EXPECT_EQ(DimClip(sheet, -1000, 0, 500, -3000), Segment(-1000, 0, -500, -1000));
  // m = -0.5, b = -150: -150 at 0, -650 at 1000.
  EXPECT_EQ(DimClip(sheet, -100, -100, 1900, -1100), Segment(0, -150, 1000, -650));
  // m = 1, b = -400: 0 at 400; m = -1, b = -700: -1000 at 300.
  EXPECT_EQ(DimClip(sheet, 100, -300, 1100, 700), Segment(100, -300, 400, 0));
  EXPECT_EQ(DimClip(sheet, 100, -800, 1100, -1800), Segment(100, -800, 300, -1000));
}

TEST(DimClipSegment, it_takes_both_x_first) {
  EXPECT_EQ(DimClipSegment(0, 0, 1000, 1000, 100, 200, -100, -300), Segment(100, -100, 200, -300));
}

}  // namespace
}  // namespace hexlume::clip_segment_test
