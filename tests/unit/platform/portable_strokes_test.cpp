// Where a box or a bound isn't plain arithmetic, it was measured from Windows' GDI under Wine.
#include "support/recorded_words.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace hexlume::portable_strokes_test {
namespace {

TEST(PortableStrokes, a_line_reaches_from_the_position_to_its_end) {
  const Words words = RecordedWords([](HDC dc) {
    MoveToEx(dc, 100, 20, nullptr);
    LineTo(dc, 30, 40);
    POINT position = {0, 0};
    MoveToEx(dc, 900, 900, &position);
    EXPECT_EQ(position.x, 30);
    EXPECT_EQ(position.y, 40);
  });
  EXPECT_EQ(BodyOf(words), Record(27, {100, 20}) + Record(54, {30, 40}) + Record(27, {900, 900}));
  EXPECT_EQ(BoundsOf(words), Ints({30, 20, 100, 40}));
}

TEST(PortableStrokes, lines_to_the_ends_of_int32_have_bounds) {
  const Words words = RecordedWords([](HDC dc) {
    MoveToEx(dc, INT32_MIN, INT32_MAX, nullptr);
    LineTo(dc, INT32_MAX, INT32_MIN);
  });
  EXPECT_EQ(BoundsOf(words), Ints({INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}));
}

TEST(PortableStrokes, a_pixel_has_no_colour_to_return) {
  const Words words = RecordedWords([](HDC dc) { EXPECT_EQ(SetPixel(dc, 1, 2, 0x123456), 0xFFFFFFFFu); });
  EXPECT_EQ(BodyOf(words), Record(15, {1, 2, 0x123456}));
}

TEST(PortableStrokes, an_ellipse_is_recorded_with_its_box_sorted_and_its_last_pixel_inside) {
  const Words words = RecordedWords([](HDC dc) { Ellipse(dc, 30, 50, 10, 20); });
  EXPECT_EQ(BodyOf(words), Record(42, {10, 20, 29, 49}));
  EXPECT_EQ(BoundsOf(words), Ints({10, 20, 29, 49}));
}

TEST(PortableStrokes, an_empty_box_draws_nothing) {
  const Words words = RecordedWords([](HDC dc) {
    EXPECT_EQ(Ellipse(dc, 10, 20, 10, 50), 0);
    EXPECT_EQ(Arc(dc, 10, 20, 30, 20, 1, 2, 3, 4), 0);
  });
  EXPECT_TRUE(BodyOf(words).empty());
}

// The upper right quarter: from the right side (110, 70), the last pixel of which is 109, to the top at (60,
// 20).
TEST(PortableStrokes, an_arcs_bounds_are_those_of_its_part) {
  const Words words = RecordedWords([](HDC dc) { Arc(dc, 10, 20, 110, 120, 110, 70, 60, 20); });
  EXPECT_EQ(BodyOf(words), Record(45, {10, 20, 109, 119, 110, 70, 60, 20}));
  EXPECT_EQ(BoundsOf(words), Ints({60, 20, 109, 70}));
}

// cos 90 = 0, sin 90 = 1: the end is above the centre where y grows downward.
TEST(PortableStrokes, an_angle_arc_moves_the_position_to_its_end) {
  const Words words = RecordedWords([](HDC dc) {
    MoveToEx(dc, 150, 50, nullptr);
    EXPECT_EQ(AngleArc(dc, 100, 50, 30, 0, 90), 1);
    POINT end = {0, 0};
    MoveToEx(dc, 0, 0, &end);
    EXPECT_EQ(end.x, 100);
    EXPECT_EQ(end.y, 20);
  });
  EXPECT_EQ(BoundsOf(words), Ints({100, 20, 150, 50}));
}

TEST(PortableStrokes, an_angle_arc_without_a_radius_is_recorded_but_fails) {
  const Words words = RecordedWords([](HDC dc) {
    EXPECT_EQ(AngleArc(dc, 1, 2, 0, 0, 90), 0);
    EXPECT_EQ(AngleArc(dc, 1, 2, static_cast<DWORD>(-700), 0, 90), 0);
    POINT position = {7, 7};
    MoveToEx(dc, 0, 0, &position);
    EXPECT_EQ(position.x, 0);
  });
  const Words first = Record(41, {1, 2, 0, 0, Word(90.0f)});
  EXPECT_EQ(BodyOf(words), first + Record(41, {1, 2, Word(-700), 0, Word(90.0f)}) + Record(27, {0, 0}));
  EXPECT_EQ(BoundsOf(words), Ints({0, 0, -1, -1}));
}

TEST(PortableStrokes, an_angle_arc_at_no_angle_ends_at_the_smallest_int32) {
  RecordedWords([](HDC dc) {
    for (const float angle : {std::nanf(""), std::numeric_limits<float>::infinity()}) {
      AngleArc(dc, 1, 2, 10, angle, 5);
      POINT end = {0, 0};
      MoveToEx(dc, 0, 0, &end);
      EXPECT_EQ(end.x, INT32_MIN);
      EXPECT_EQ(end.y, INT32_MIN);
    }
  });
}

TEST(PortableStrokes, points_that_all_fit_are_recorded_in_16_bits) {
  const POINT points[] = {{-32768, 32767}, {2, 3}};
  const Words words = RecordedWords([&points](HDC dc) { Polygon(dc, points, 2); });
  const Words small = Ints({-32768, 3, 2, 32767, 2}) + Words{Pair(-32768, 32767), Pair(2, 3)};
  EXPECT_EQ(BodyOf(words), Record(86, small));
}

TEST(PortableStrokes, one_point_that_does_not_fit_takes_all_to_32_bits) {
  const POINT points[] = {{32768, 1}, {2, 3}};
  const Words words = RecordedWords([&points](HDC dc) { Polygon(dc, points, 2); });
  EXPECT_EQ(BodyOf(words), Record(3, {2, 1, 32768, 3, 2, 32768, 1, 2, 3}));
}

TEST(PortableStrokes, curves_need_three_points_each_beside_the_first) {
  const POINT points[] = {{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}};
  RecordedWords([&points](HDC dc) {
    EXPECT_EQ(PolyBezier(dc, points, 3), 0);
    EXPECT_EQ(PolyBezier(dc, points, 5), 0);
    POINT position = {9, 9};
    MoveToEx(dc, 0, 0, &position);
    EXPECT_EQ(position.x, 0);
    EXPECT_EQ(PolyBezier(dc, points, 4), 1);
    MoveToEx(dc, 0, 0, &position);
    EXPECT_EQ(position.x, 4);
  });
}

TEST(PortableStrokes, no_points_are_not_looked_at) {
  const Words words = RecordedWords([](HDC dc) {
    EXPECT_EQ(PolyBezier(dc, nullptr, 4), 0);
    EXPECT_EQ(Polygon(dc, nullptr, 3), 0);
    EXPECT_EQ(LPtoDP(dc, nullptr, 0), 1);
  });
  EXPECT_TRUE(BodyOf(words).empty());
}

// 1000 * 1024 / 27100 = 37.79 and 1000 * 768 / 20300 = 37.83. 16777216 is 633943.5 in the single precision
// that counts, -1426063360 is -53885197.5: halves go up.
TEST(PortableStrokes, device_points_are_the_nearest_and_halves_go_up) {
  RecordedWords([](HDC dc) {
    SetMapMode(dc, MM_HIMETRIC);
    POINT points[] = {{1000, -1000}, {16777216, 0}, {-1426063360, 0}};
    EXPECT_EQ(LPtoDP(dc, points, 3), 1);
    EXPECT_EQ(points[0].x, 38);
    EXPECT_EQ(points[0].y, 38);
    EXPECT_EQ(points[1].x, 633944);
    EXPECT_EQ(points[2].x, -53885197);
  });
}

}  // namespace
}  // namespace hexlume::portable_strokes_test
