#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "support/metafile_canvas.h"
#include "support/plain_canvas.h"

namespace hexlume::dash_line_test {
namespace {

// A sheet turned about (1000, -500): (x, y) becomes (2000 - x, -1000 - y).
constexpr int32_t centreX = 1000;
constexpr int32_t centreY = 500;
constexpr COLORREF red = 0x0000FF;

using Pattern = std::vector<double>;

std::string ListDashes(int32_t x1, int32_t y1, int32_t x2, int32_t y2, const Pattern& pattern,
                       int32_t mirror = 0) {
  return ListCalls([&](Canvas canvas) {
    DashLine(canvas, x1, y1, x2, y2, centreX, centreY, 0, red, pattern.data(),
             static_cast<int32_t>(pattern.size()), mirror);
  });
}

// Strokes between the records of the walk's one pen.
std::string InPen(const std::string& strokes, int32_t width = 0) {
  return "CreatePen(1, PS_SOLID, " + std::to_string(width) + ", 0x0000FF)\nSelectObject(1)\n" + strokes +
         "SelectObject(BLACK_PEN)\nDeleteObject(1)\n";
}

// The pen

TEST(DashLine, dashes_are_solid_strokes_of_the_lines_width) {
  const double pattern[] = {40, -20};
  EXPECT_EQ(ListCalls([&pattern](Canvas canvas) {
              DashLine(canvas, 0, -100, 50, -100, centreX, centreY, 35, red, pattern, 2, 0);
            }),
            InPen("MoveToEx(0, -100)\nLineTo(40, -100)\n", 35));
}

TEST(DashLine, the_pattern_starts_again_when_it_runs_out) {
  // 10, gap to 15, 30, gap to 35, 55, gap to 60; again 70, gap to 75, 90, gap past the end.
  EXPECT_EQ(ListDashes(0, -100, 90, -100, {10, -5, 15, -5, 20, -5}),
            InPen("MoveToEx(0, -100)\nLineTo(10, -100)\nMoveToEx(15, -100)\nLineTo(30, -100)\n"
                  "MoveToEx(35, -100)\nLineTo(55, -100)\nMoveToEx(60, -100)\nLineTo(70, -100)\n"
                  "MoveToEx(75, -100)\nLineTo(90, -100)\n"));
}

TEST(DashLine, only_count_elements_are_used) {
  const double pattern[] = {40, -20, 5, -5};
  EXPECT_EQ(ListCalls([&pattern](Canvas canvas) {
              DashLine(canvas, 0, -100, 110, -100, centreX, centreY, 0, red, pattern, 2, 0);
            }),
            InPen("MoveToEx(0, -100)\nLineTo(40, -100)\nMoveToEx(60, -100)\nLineTo(100, -100)\n"));
}

// Vertical lines

TEST(DashLine, a_vertical_line_is_walked_downward_from_either_end) {
  // -250, gap to -300, -450, gap to -500, which isn't below the end; the next dash is cut there.
  const std::string downward = InPen(
      "MoveToEx(0, -100)\nLineTo(0, -250)\nMoveToEx(0, -300)\nLineTo(0, -450)\nMoveToEx(0, -500)\n"
      "LineTo(0, -500)\n");
  EXPECT_EQ(ListDashes(0, -100, 0, -500, {150, -50}), downward);
  EXPECT_EQ(ListDashes(0, -500, 0, -100, {150, -50}), downward);
}

TEST(DashLine, a_vertical_dash_is_cut_at_the_end) {
  EXPECT_EQ(ListDashes(3, -100, 3, -150, {40, -5}),
            InPen("MoveToEx(3, -100)\nLineTo(3, -140)\nMoveToEx(3, -145)\nLineTo(3, -150)\n"));
}

TEST(DashLine, a_vertical_dash_up_to_the_very_end_doesnt_end_the_walk) {
  EXPECT_EQ(ListDashes(3, -100, 3, -200, {100, 10}),
            InPen("MoveToEx(3, -100)\nLineTo(3, -200)\nLineTo(3, -200)\n"));
}

TEST(DashLine, a_vertical_gap_past_the_end_draws_nothing_more) {
  EXPECT_EQ(ListDashes(3, -100, 3, -150, {40, -11}), InPen("MoveToEx(3, -100)\nLineTo(3, -140)\n"));
}

TEST(DashLine, vertical_dashes_and_gaps_lose_their_fraction) {
  // -105, gap of 2.9 to -107, -112, gap of at least a unit to -113; -118, gap to -120, cut there.
  EXPECT_EQ(
      ListDashes(3, -100, 3, -120, {5.7, -2.9, 5.7, -0.3}),
      InPen("MoveToEx(3, -100)\nLineTo(3, -105)\nMoveToEx(3, -107)\nLineTo(3, -112)\nMoveToEx(3, -113)\n"
            "LineTo(3, -118)\nMoveToEx(3, -120)\nLineTo(3, -120)\n"));
}

TEST(DashLine, a_vertical_dot_is_a_small_circle_and_doesnt_move) {
  // The dot's box is 2..4, -141..-139; the record is smaller by one at the right and the top.
  EXPECT_EQ(ListDashes(3, -100, 3, -160, {30, -10, 0, -10}),
            InPen("MoveToEx(3, -100)\nLineTo(3, -130)\nMoveToEx(3, -140)\nEllipse(2, -141, 3, -140)\n"
                  "MoveToEx(3, -150)\nLineTo(3, -160)\n"));
}

TEST(DashLine, a_line_without_length_ends_at_its_first_dash) {
  EXPECT_EQ(ListDashes(7, -9, 7, -9, {5, -5}), InPen("MoveToEx(7, -9)\nLineTo(7, -9)\n"));
}

TEST(DashLine, a_line_without_length_ends_at_a_first_gap_with_nothing_drawn) {
  EXPECT_EQ(ListDashes(7, -9, 7, -9, {-5, 5}), InPen("MoveToEx(7, -9)\n"));
}

TEST(DashLine, a_line_without_length_draws_a_leading_dot_and_goes_on) {
  EXPECT_EQ(ListDashes(7, -9, 7, -9, {0, 5}),
            InPen("MoveToEx(7, -9)\nEllipse(6, -10, 7, -9)\nLineTo(7, -9)\n"));
  EXPECT_EQ(ListDashes(7, -9, 7, -9, {0, -5}), InPen("MoveToEx(7, -9)\nEllipse(6, -10, 7, -9)\n"));
}

// Horizontal lines

TEST(DashLine, a_horizontal_line_is_walked_from_its_first_end) {
  // 40, gap to 50, 90, gap to 100, cut there; backwards 60, gap to 50, 10, gap to 0, cut there.
  EXPECT_EQ(ListDashes(0, -100, 100, -100, {40, -10}),
            InPen("MoveToEx(0, -100)\nLineTo(40, -100)\nMoveToEx(50, -100)\nLineTo(90, -100)\n"
                  "MoveToEx(100, -100)\nLineTo(100, -100)\n"));
  EXPECT_EQ(ListDashes(100, -100, 0, -100, {40, -10}),
            InPen("MoveToEx(100, -100)\nLineTo(60, -100)\nMoveToEx(50, -100)\nLineTo(10, -100)\n"
                  "MoveToEx(0, -100)\nLineTo(0, -100)\n"));
}

TEST(DashLine, a_horizontal_dash_is_cut_at_the_end_in_either_direction) {
  EXPECT_EQ(ListDashes(0, -100, 70, -100, {40, -10}),
            InPen("MoveToEx(0, -100)\nLineTo(40, -100)\nMoveToEx(50, -100)\nLineTo(70, -100)\n"));
  EXPECT_EQ(ListDashes(70, -100, 0, -100, {40, -10}),
            InPen("MoveToEx(70, -100)\nLineTo(30, -100)\nMoveToEx(20, -100)\nLineTo(0, -100)\n"));
}

TEST(DashLine, a_horizontal_gap_past_the_end_draws_nothing_more_in_either_direction) {
  EXPECT_EQ(ListDashes(0, -100, 50, -100, {40, -11}), InPen("MoveToEx(0, -100)\nLineTo(40, -100)\n"));
  EXPECT_EQ(ListDashes(50, -100, 0, -100, {40, -11}), InPen("MoveToEx(50, -100)\nLineTo(10, -100)\n"));
}

TEST(DashLine, a_horizontal_dash_of_5_7_advances_5_units) {
  // 5, gap to 6, 11, gap to 12, cut there.
  EXPECT_EQ(ListDashes(0, -100, 12, -100, {5.7, -1}),
            InPen("MoveToEx(0, -100)\nLineTo(5, -100)\nMoveToEx(6, -100)\nLineTo(11, -100)\n"
                  "MoveToEx(12, -100)\nLineTo(12, -100)\n"));
}

TEST(DashLine, a_horizontal_gap_of_0_3_advances_a_unit) {
  // 5, gap to 6, 11, gap to 12, cut at 15.
  EXPECT_EQ(ListDashes(0, -100, 15, -100, {5, -0.3}),
            InPen("MoveToEx(0, -100)\nLineTo(5, -100)\nMoveToEx(6, -100)\nLineTo(11, -100)\n"
                  "MoveToEx(12, -100)\nLineTo(15, -100)\n"));
}

TEST(DashLine, a_horizontal_dash_up_to_the_very_end_doesnt_end_the_walk) {
  // The gap after it does.
  EXPECT_EQ(ListDashes(0, -100, 100, -100, {40, -20}),
            InPen("MoveToEx(0, -100)\nLineTo(40, -100)\nMoveToEx(60, -100)\nLineTo(100, -100)\n"));
  // A dash after it has no length.
  EXPECT_EQ(ListDashes(0, -100, 100, -100, {100, 10}),
            InPen("MoveToEx(0, -100)\nLineTo(100, -100)\nLineTo(100, -100)\n"));
}

TEST(DashLine, a_horizontal_dot_is_a_small_circle_and_doesnt_move) {
  // The dot's box is 29..31, -101..-99.
  EXPECT_EQ(ListDashes(0, -100, 45, -100, {20, -10, 0, -10}),
            InPen("MoveToEx(0, -100)\nLineTo(20, -100)\nMoveToEx(30, -100)\nEllipse(29, -101, 30, -100)\n"
                  "MoveToEx(40, -100)\nLineTo(45, -100)\n"));
}

TEST(DashLine, a_dot_is_0_up_to_below_1) {
  const std::string dotted = ListDashes(0, -100, 45, -100, {20, -10, 0, -10});
  EXPECT_EQ(ListDashes(0, -100, 45, -100, {20, -10, 0.5, -10}), dotted);
  EXPECT_EQ(ListDashes(0, -100, 45, -100, {20, -10, 0.999, -10}), dotted);
  EXPECT_EQ(ListDashes(0, -100, 45, -100, {20, -10, -0.0, -10}), dotted);
  // A dash of 1, to 31, then a gap to 41.
  EXPECT_EQ(ListDashes(0, -100, 45, -100, {20, -10, 1, -10}),
            InPen("MoveToEx(0, -100)\nLineTo(20, -100)\nMoveToEx(30, -100)\nLineTo(31, -100)\n"
                  "MoveToEx(41, -100)\nLineTo(45, -100)\n"));
}

// Sloped lines. With a rise of 4 to a run of 3 a length l ends at x = trunc(0.6 l + 0.5) and y = trunc(0.8 l
// + 0.5), or trunc(-0.8 l + 0.5) downhill.

TEST(DashLine, on_a_sloped_line_every_gap_is_a_unit_longer) {
  // l = 10: 6.5, -7.5. l = 10 + 5 + 1 = 16: 10.1, -12.3. l = 26: 16.1 is cut at 15, -20.3.
  EXPECT_EQ(ListDashes(0, -100, 15, -120, {10, -5}),
            InPen("MoveToEx(0, -100)\nLineTo(6, -107)\nMoveToEx(10, -112)\nLineTo(15, -120)\n"));
}

TEST(DashLine, a_sloped_dash_of_5_7_advances_5_7) {
  // l = 5.7: 3.92, -4.06. l = 7.7: 5.12, -5.66. l = 13.4: 8.54, -10.22. l = 15.4: 9.74, -11.82. l
  // = 21.1: 13.16 and -16.38, both cut. With dashes of 5 the first would end at -3.5.
  EXPECT_EQ(
      ListDashes(0, -100, 9, -112, {5.7, -1}),
      InPen("MoveToEx(0, -100)\nLineTo(3, -104)\nMoveToEx(5, -105)\nLineTo(8, -110)\nMoveToEx(9, -111)\n"
            "LineTo(9, -112)\n"));
}

TEST(DashLine, a_sloped_gap_of_0_3_advances_1_3) {
  // l = 10: 6.5, -7.5. l = 11.3: 7.28, -8.54. l = 21.3: 13.28, -16.54. l = 22.6: 14.06, -17.58. l = 32.6:
  // both cut. After two gaps of a unit l would be 22: 13.7.
  EXPECT_EQ(ListDashes(0, -100, 15, -120, {10, -0.3}),
            InPen("MoveToEx(0, -100)\nLineTo(6, -107)\nMoveToEx(7, -108)\nLineTo(13, -116)\n"
                  "MoveToEx(14, -117)\nLineTo(15, -120)\n"));
}

TEST(DashLine, on_a_rising_line_the_half_rounds_and_on_a_falling_one_it_shortens) {
  // l = 10: 6.5, 8.5. l = 16: 10.1, 13.3. l = 26: 16.1 and 21.3, both cut.
  EXPECT_EQ(ListDashes(0, -120, 15, -100, {10, -5}),
            InPen("MoveToEx(0, -120)\nLineTo(6, -112)\nMoveToEx(10, -107)\nLineTo(15, -100)\n"));
  // 7 down for the 8 up.
  EXPECT_EQ(ListDashes(0, -100, 15, -120, {10, -5}),
            InPen("MoveToEx(0, -100)\nLineTo(6, -107)\nMoveToEx(10, -112)\nLineTo(15, -120)\n"));
}

TEST(DashLine, the_last_sloped_dash_can_end_a_unit_off_the_end) {
  // Run 4, fall 3, l = 50.7: 40.56 + 0.5 = 41.06 is cut at 40, -30.42 + 0.5 = -29.92 stays short of -30.
  EXPECT_EQ(ListDashes(0, -100, 40, -130, {50.7, -5}), InPen("MoveToEx(0, -100)\nLineTo(40, -129)\n"));
}

TEST(DashLine, a_sloped_dash_past_the_end_in_y_alone_ends_the_walk) {
  // Run 1, fall 100, l = 120: x = 1.2 + 0.5, no more than 1; y = -119.99 + 0.5 is cut at -100.
  EXPECT_EQ(ListDashes(0, -100, 1, -200, {120, -5}), InPen("MoveToEx(0, -100)\nLineTo(1, -200)\n"));
  EXPECT_EQ(ListDashes(0, -200, 1, -100, {120, -5}), InPen("MoveToEx(0, -200)\nLineTo(1, -100)\n"));
}

TEST(DashLine, a_sloped_gap_past_the_end_in_x_alone_ends_the_walk) {
  // Run 100, fall 1, l = 10 + 99 + 1 = 110: x = 110.5, y = -1.1 + 0.5, still 0. At l = 10: 10.5, 0.4.
  EXPECT_EQ(ListDashes(0, -100, 100, -101, {10, -99}), InPen("MoveToEx(0, -100)\nLineTo(10, -100)\n"));
}

TEST(DashLine, a_sloped_gap_past_the_end_in_y_alone_ends_the_walk) {
  // Run 1, 100 down or up, l = 110: x = 1.1 + 0.5, no more than 1; y = -109.99 + 0.5 or 110.49.
  // At l = 10: x = 0.6, y = -9.9995 + 0.5 or 10.4995.
  EXPECT_EQ(ListDashes(0, -100, 1, -200, {10, -99}), InPen("MoveToEx(0, -100)\nLineTo(0, -109)\n"));
  EXPECT_EQ(ListDashes(0, -200, 1, -100, {10, -99}), InPen("MoveToEx(0, -200)\nLineTo(0, -190)\n"));
}

TEST(DashLine, a_sloped_gap_to_the_very_end_goes_on) {
  // l = 10: 6.5, -7.5. l = 25: 15.5, -19.5. l = 35: both cut.
  EXPECT_EQ(ListDashes(0, -100, 15, -120, {10, -14}),
            InPen("MoveToEx(0, -100)\nLineTo(6, -107)\nMoveToEx(15, -119)\nLineTo(15, -120)\n"));
}

TEST(DashLine, a_sloped_dash_up_to_the_very_end_doesnt_end_the_walk) {
  // l = 25: 15.5, 20.5. l = 25.7: 15.92, -20.06. The second dash has no length.
  EXPECT_EQ(ListDashes(0, -120, 15, -100, {25, 10}),
            InPen("MoveToEx(0, -120)\nLineTo(15, -100)\nLineTo(15, -100)\n"));
  EXPECT_EQ(ListDashes(0, -100, 15, -120, {25.7, 10}),
            InPen("MoveToEx(0, -100)\nLineTo(15, -120)\nLineTo(15, -120)\n"));
}

TEST(DashLine, a_sloped_dot_is_drawn_where_the_last_element_ended) {
  // At the start, box -1..1, -101..-99. l = 10: 6.5, -7.5. l = 16: 10.1, -12.3.
  EXPECT_EQ(
      ListDashes(0, -100, 9, -112, {0, 10, 0.5, -5}),
      InPen("MoveToEx(0, -100)\nEllipse(-1, -101, 0, -100)\nLineTo(6, -107)\nEllipse(5, -108, 6, -107)\n"));
}

TEST(DashLine, an_unsorted_sloped_line_ends_at_its_first_dash) {
  // Run -30, rise 40: the angle is that of a fall, l = 10 gives 6.5 and -7.5; x is cut, y isn't past -100.
  EXPECT_EQ(ListDashes(30, -140, 0, -100, {10, -5}), InPen("MoveToEx(30, -140)\nLineTo(0, -147)\n"));
}

TEST(DashLine, an_unsorted_sloped_line_ends_at_a_first_gap_with_nothing_drawn) {
  EXPECT_EQ(ListDashes(30, -140, 0, -100, {-5, 10}), InPen("MoveToEx(30, -140)\n"));
}

// Turned sheets

TEST(DashLine, a_turned_horizontal_line_is_walked_from_its_turned_second_end) {
  // (100, -100) becomes (1900, -900), (0, -100) becomes (2000, -900).
  EXPECT_EQ(ListDashes(0, -100, 100, -100, {40, -10}, 1),
            InPen("MoveToEx(1900, -900)\nLineTo(1940, -900)\nMoveToEx(1950, -900)\nLineTo(1990, -900)\n"
                  "MoveToEx(2000, -900)\nLineTo(2000, -900)\n"));
}

TEST(DashLine, a_turned_vertical_line_is_still_walked_downward) {
  // From (2000, -500) to (2000, -900).
  EXPECT_EQ(ListDashes(0, -100, 0, -500, {150, -50}, 1),
            InPen("MoveToEx(2000, -500)\nLineTo(2000, -650)\nMoveToEx(2000, -700)\nLineTo(2000, -850)\n"
                  "MoveToEx(2000, -900)\nLineTo(2000, -900)\n"));
}

TEST(DashLine, a_turned_sloped_line_is_still_walked_towards_growing_x) {
  // From (1985, -900) to (2000, -880). l = 10: 6.5, 8.5. l = 16: 10.1, 13.3. l = 26: both cut.
  EXPECT_EQ(ListDashes(0, -120, 15, -100, {10, -5}, 1),
            InPen("MoveToEx(1985, -900)\nLineTo(1991, -892)\nMoveToEx(1995, -887)\nLineTo(2000, -880)\n"));
}

// Patterns that lead nowhere

TEST(DashLine, a_pattern_of_dots_alone_is_drawn_solid) {
  EXPECT_EQ(ListDashes(0, -100, 100, -100, {0, 0}), InPen("MoveToEx(0, -100)\nLineTo(100, -100)\n"));
  EXPECT_EQ(ListDashes(100, -100, 0, -100, {0.5, 0.999}), InPen("MoveToEx(100, -100)\nLineTo(0, -100)\n"));
  EXPECT_EQ(ListDashes(0, -500, 0, -100, {0, 0}), InPen("MoveToEx(0, -100)\nLineTo(0, -500)\n"));
  EXPECT_EQ(ListDashes(0, -100, 15, -120, {0, -0.0}), InPen("MoveToEx(0, -100)\nLineTo(15, -120)\n"));
}

TEST(DashLine, a_solid_line_on_a_turned_sheet_is_turned_too) {
  EXPECT_EQ(ListDashes(0, -100, 15, -120, {0, 0}, 1), InPen("MoveToEx(1985, -880)\nLineTo(2000, -900)\n"));
}

TEST(DashLine, a_pattern_without_elements_is_drawn_solid) {
  const double pattern[] = {10, -5};
  for (const int32_t count : {0, -1, INT32_MIN}) {
    EXPECT_EQ(ListCalls([&pattern, count](Canvas canvas) {
                DashLine(canvas, 0, -100, 100, -100, centreX, centreY, 25, red, pattern, count, 0);
              }),
              InPen("MoveToEx(0, -100)\nLineTo(100, -100)\n", 25));
  }
}

TEST(DashLine, an_element_that_is_no_number_does_nothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(ListDashes(0, -100, 100, -100, {nan, 0}), InPen("MoveToEx(0, -100)\nLineTo(100, -100)\n"));
  EXPECT_EQ(ListDashes(0, -100, 100, -100, {nan, 40, nan, -10}), ListDashes(0, -100, 100, -100, {40, -10}));
  EXPECT_EQ(ListDashes(0, -100, 0, -500, {nan, 150, nan, -50}), ListDashes(0, -100, 0, -500, {150, -50}));
  EXPECT_EQ(ListDashes(0, -100, 15, -120, {nan, 10, nan, -5}), ListDashes(0, -100, 15, -120, {10, -5}));
}

// Elements and lines of absurd length

const Pattern endlessLengths = {2147483647.0, 2147483648.0, 1e10, 1e300,
                                std::numeric_limits<double>::infinity()};

TEST(DashLine, an_endless_dash_is_cut_at_the_end) {
  for (const double length : endlessLengths) {
    EXPECT_EQ(ListDashes(0, -100, 100, -100, {length, -5}), InPen("MoveToEx(0, -100)\nLineTo(100, -100)\n"));
    EXPECT_EQ(ListDashes(100, -100, 0, -100, {length, -5}), InPen("MoveToEx(100, -100)\nLineTo(0, -100)\n"));
    EXPECT_EQ(ListDashes(0, -100, 0, -500, {length, -5}), InPen("MoveToEx(0, -100)\nLineTo(0, -500)\n"));
    EXPECT_EQ(ListDashes(0, -100, 15, -120, {length, -5}), InPen("MoveToEx(0, -100)\nLineTo(15, -120)\n"));
    EXPECT_EQ(ListDashes(0, -120, 15, -100, {length, -5}), InPen("MoveToEx(0, -120)\nLineTo(15, -100)\n"));
  }
}

TEST(DashLine, an_endless_gap_ends_the_walk) {
  for (const double length : endlessLengths) {
    EXPECT_EQ(ListDashes(0, -100, 100, -100, {10, -length}), InPen("MoveToEx(0, -100)\nLineTo(10, -100)\n"));
    EXPECT_EQ(ListDashes(100, -100, 0, -100, {10, -length}),
              InPen("MoveToEx(100, -100)\nLineTo(90, -100)\n"));
    EXPECT_EQ(ListDashes(0, -100, 0, -500, {10, -length}), InPen("MoveToEx(0, -100)\nLineTo(0, -110)\n"));
    EXPECT_EQ(ListDashes(0, -100, 15, -120, {10, -length}), InPen("MoveToEx(0, -100)\nLineTo(6, -107)\n"));
    EXPECT_EQ(ListDashes(0, -120, 15, -100, {10, -length}), InPen("MoveToEx(0, -120)\nLineTo(6, -112)\n"));
  }
}

TEST(DashLine, a_straight_line_from_the_first_to_the_last_coordinate_ends) {
  // 2147483647 lead to 0, the gap to -1, again 2147483647 to the last coordinate; the gap is past it.
  EXPECT_EQ(
      ListDashes(INT32_MAX, -100, INT32_MIN, -100, {2147483647.0, -1}),
      InPen("MoveToEx(2147483647, -100)\nLineTo(0, -100)\nMoveToEx(-1, -100)\nLineTo(-2147483648, -100)\n"));
  EXPECT_EQ(ListDashes(5, INT32_MIN, 5, INT32_MAX, {2147483647.0, -1}),
            InPen("MoveToEx(5, 2147483647)\nLineTo(5, 0)\nMoveToEx(5, -1)\nLineTo(5, -2147483648)\n"));
  // -1, gap to 0, 2147483647, which is the end itself.
  EXPECT_EQ(ListDashes(INT32_MIN, -100, INT32_MAX, -100, {2147483647.0, -1}),
            InPen("MoveToEx(-2147483648, -100)\nLineTo(-1, -100)\nMoveToEx(0, -100)\n"
                  "LineTo(2147483647, -100)\n"));
}

// The position at the end of a walk.
POINT EndOfWalk(int32_t x1, int32_t y1, int32_t x2, int32_t y2, const Pattern& pattern) {
  const HDC canvas = CreatePlainCanvas();
  DashLine(canvas, x1, y1, x2, y2, centreX, centreY, 0, red, pattern.data(),
           static_cast<int32_t>(pattern.size()), 0);
  POINT position = {};
  MoveToEx(canvas, 0, 0, &position);
  DeleteDC(canvas);
  return position;
}

TEST(DashLine, a_sloped_line_too_wide_for_its_own_slope_ends) {
  // The run of 2^32 - 1 wraps to -1, and the walk climbs where the line falls, until X is past the end.
  const POINT end = EndOfWalk(INT32_MIN, -100, INT32_MAX, -400, {1e9, 1e9});
  EXPECT_EQ(end.x, INT32_MAX);
}

TEST(DashLine, a_walk_ends_after_ten_million_elements) {
  // Gaps of 2 and 1 units from the top: 15,000,000 units.
  const POINT end = EndOfWalk(0, INT32_MIN, 0, INT32_MAX, {-2, -1});
  EXPECT_EQ(end.x, 0);
  EXPECT_EQ(end.y, INT32_MAX - 15000000);
}

TEST(DashLine, a_walk_of_many_thousand_dashes_reaches_its_end) {
  // An A0 sheet's length in dashes and gaps of a unit.
  const POINT end = EndOfWalk(0, -100, 118900, -100, {1, -1});
  EXPECT_EQ(end.x, 118900);
}

}  // namespace
}  // namespace hexlume::dash_line_test
