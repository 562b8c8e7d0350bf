#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "support/metafile_canvas.h"
#include "support/plain_canvas.h"

namespace hexlume::dash_arc_test {
namespace {

// A sheet turned about (1000, -500): (x, y) becomes (2000 - x, -1000 - y).
constexpr int32_t centreX = 1000;
constexpr int32_t centreY = 500;
constexpr COLORREF red = 0x0000FF;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

// The arcs have their centre at (100, -2000) and a radius of 1000, unless stated otherwise. A point is at
// 100 + trunc(1000 cos) and -2000 + trunc(1000 sin), and so do the dots.
using Pattern = std::vector<double>;

// The length of an arc of so many degrees.
constexpr double Along(double degrees) {
  return degrees * pi * 1000.0 / 180.0;
}

std::string ListArc(int32_t radius, double startAngle, double sweep, const Pattern& pattern,
                    int32_t mirror = 0) {
  return ListCalls([&](Canvas canvas) {
    DashArc(canvas, 100, -2000, radius, startAngle, sweep, centreX, centreY, red, pattern.data(),
            static_cast<int32_t>(pattern.size()), mirror);
  });
}

// Elements in degrees.
std::string ListDashes(double startAngle, double sweep, Pattern degrees, int32_t mirror = 0) {
  for (double& element : degrees) element = Along(element);
  return ListArc(1000, startAngle, sweep, degrees, mirror);
}

// Strokes between the records of the walk's one pen.
std::string InPen(const std::string& strokes) {
  return "CreatePen(1, PS_SOLID, 0, 0x0000FF)\nSelectObject(1)\n" + strokes +
         "SelectObject(BLACK_PEN)\nDeleteObject(1)\n";
}

const char* const atStart = "MoveToEx(1100, -2000)\n";

// The arc from 0 degrees drawn as one stroke.
std::string Solid(const std::string& sweep) {
  return InPen(atStart + ("AngleArc(100, -2000, 1000, 0, " + sweep) + ")\n");
}

int CountOf(const std::string& call, const std::string& listing) {
  int count = 0;
  for (size_t at = listing.find(call); at != std::string::npos; at = listing.find(call, at + 1)) ++count;
  return count;
}

// The walk

TEST(DashArc, an_arc_is_walked_counter_clockwise_in_solid_strokes) {
  // At 14 degrees 970.3, 241.9; at 28 degrees 882.9, 469.5; at 42 degrees, past the end, 743.1, 669.1.
  EXPECT_EQ(ListDashes(0, -40, {10, -4}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -10)\n"
                  "MoveToEx(1070, -1759)\nAngleArc(100, -2000, 1000, -14, -10)\n"
                  "MoveToEx(982, -1531)\nAngleArc(100, -2000, 1000, -28, -10)\n"
                  "MoveToEx(843, -1331)\n"));
}

TEST(DashArc, an_arc_starts_where_the_negated_angle_points) {
  // At 217 degrees -798.6, -601.8, truncated towards the centre.
  EXPECT_EQ(ListDashes(-217, -9, {10, -4}),
            InPen("MoveToEx(-698, -2601)\nAngleArc(100, -2000, 1000, -217, -9)\n"));
}

TEST(DashArc, the_pattern_starts_again_when_it_runs_out) {
  // 0 to 3, gap to 5; 10 and its gap to 18 (951.06, 309.02); again 3, gap to 23 (920.5, 390.7), where 2 are
  // left of the 10. At 5 degrees 996.2, 87.2.
  EXPECT_EQ(ListDashes(0, -25, {3, -2, 10, -3}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -3)\n"
                  "MoveToEx(1096, -1913)\nAngleArc(100, -2000, 1000, -5, -10)\n"
                  "MoveToEx(1051, -1691)\nAngleArc(100, -2000, 1000, -18, -3)\n"
                  "MoveToEx(1020, -1610)\nAngleArc(100, -2000, 1000, -23, -2)\n"));
}

TEST(DashArc, only_count_elements_are_used) {
  const double pattern[] = {Along(10), Along(-4), Along(1), Along(-1)};
  EXPECT_EQ(ListCalls([&pattern](Canvas canvas) {
              DashArc(canvas, 100, -2000, 1000, 0, -40, centreX, centreY, red, pattern, 2, 0);
            }),
            ListDashes(0, -40, {10, -4}));
}

TEST(DashArc, behind_a_pattern_of_odd_length_a_dash_follows_a_dash) {
  // The places count: the third element is a dash, and so is the first of the next round, which starts at the
  // same angle. 10, gap to 14, dash of 2; then from 14 again 10, and the gap after it to 28.
  EXPECT_EQ(ListDashes(0, -27, {10, -4, 2}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -10)\n"
                  "MoveToEx(1070, -1759)\nAngleArc(100, -2000, 1000, -14, -2)\n"
                  "AngleArc(100, -2000, 1000, -14, -10)\nMoveToEx(982, -1531)\n"));
}

// Dash or gap

TEST(DashArc, a_dash_is_told_by_its_even_place_even_if_it_is_negative) {
  // From 14 back to 9, then a gap of 9 - 5 to 18; again 10, which is cut at 25.
  EXPECT_EQ(ListDashes(0, -25, {10, -4, -5, -9}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -10)\n"
                  "MoveToEx(1070, -1759)\nAngleArc(100, -2000, 1000, -14, 5)\n"
                  "MoveToEx(1051, -1691)\nAngleArc(100, -2000, 1000, -18, -7)\n"));
}

TEST(DashArc, a_gap_is_told_by_its_odd_place_even_if_it_is_positive) {
  // It takes 4 of the 10 back: the next dash goes from 6 (994.5, 104.5) and is cut at 15.
  EXPECT_EQ(ListDashes(0, -15, {10, 4}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -10)\n"
                  "MoveToEx(1094, -1896)\nAngleArc(100, -2000, 1000, -6, -9)\n"));
}

TEST(DashArc, a_pattern_of_two_gaps_gets_on_where_the_second_is_longer) {
  // From 0 back to -5, then to 5 (996.2, 87.2), back to 0, and to 10 (984.8, 173.6), past the end.
  EXPECT_EQ(ListDashes(0, -8, {-5, -10}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, 5)\n"
                  "MoveToEx(1096, -1913)\nAngleArc(100, -2000, 1000, -5, 5)\nMoveToEx(1084, -1827)\n"));
}

// Dots

TEST(DashArc, the_gap_behind_a_dot_is_longer_by_the_last_dash) {
  // 10, gap to 14; a dot there; 10 + 4 more to 28; 7 of the 10 are left.
  EXPECT_EQ(ListDashes(0, -35, {10, -4, 0, -4}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -10)\n"
                  "MoveToEx(1070, -1759)\nEllipse(1069, -1760, 1070, -1759)\n"
                  "MoveToEx(982, -1531)\nAngleArc(100, -2000, 1000, -28, -7)\n"));
}

TEST(DashArc, with_10_5_0_5_the_second_gap_advances_by_15) {
  // 10 and 5 units lead to the angle 0.015 (cos 999.89, sin 14.99), 10 and 5 more to 0.03 (999.55, 29.996).
  // 0.03 radians are 1.719 degrees.
  EXPECT_EQ(ListArc(1000, 0, -1.7, {10, -5, 0, -5}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -0.572957814)\n"
                  "MoveToEx(1099, -1986)\nEllipse(1098, -1987, 1099, -1986)\nMoveToEx(1099, -1971)\n"));
}

TEST(DashArc, before_the_first_dash_a_dots_gap_is_its_own) {
  // Dot at 0, gap to 4 (997.6, 69.8), 10 from there, gap to 18 (951.06, 309.02), dot, and now 10 + 4 to 32
  // (848.05, 529.9), where 8 are left.
  EXPECT_EQ(ListDashes(0, -40, {0, -4, 10, -4}),
            InPen("MoveToEx(1100, -2000)\nEllipse(1099, -2001, 1100, -2000)\n"
                  "MoveToEx(1097, -1931)\nAngleArc(100, -2000, 1000, -4, -10)\n"
                  "MoveToEx(1051, -1691)\nEllipse(1050, -1692, 1051, -1691)\n"
                  "MoveToEx(948, -1471)\nAngleArc(100, -2000, 1000, -32, -8)\n"));
}

TEST(DashArc, dots_alone_stand_a_gap_apart) {
  // At 0, at 4, and not at 8 (990.3, 139.2), past the end.
  EXPECT_EQ(ListDashes(0, -6, {0, -4}),
            InPen("MoveToEx(1100, -2000)\nEllipse(1099, -2001, 1100, -2000)\n"
                  "MoveToEx(1097, -1931)\nEllipse(1096, -1932, 1097, -1931)\nMoveToEx(1090, -1861)\n"));
}

TEST(DashArc, a_dot_is_what_truncates_to_0) {
  const double dash = Along(10), gap = Along(-4);
  const std::string dotted = ListArc(1000, 0, -35, {dash, gap, 0, gap});
  for (const double dot : {0.5, 0.999, -0.5, -0.999, -0.0})
    EXPECT_EQ(ListArc(1000, 0, -35, {dash, gap, dot, gap}), dotted);
}

TEST(DashArc, an_element_of_1_is_a_dash) {
  // 0.001 radians are 0.05729578 degrees. The gap leads to 0.0573 + 10 = 10.0573 (984.6, 174.6).
  EXPECT_EQ(ListArc(1000, 0, -9, {1, Along(-10)}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -0.0572957806)\n"
                  "MoveToEx(1084, -1826)\n"));
  // Back by as much, and to 9.9427 (984.98, 172.7).
  EXPECT_EQ(ListArc(1000, 0, -9, {-1, Along(-10)}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, 0.0572957806)\n"
                  "MoveToEx(1084, -1828)\n"));
}

// The end

TEST(DashArc, a_dash_is_cut_at_the_end) {
  EXPECT_EQ(ListDashes(0, -21, {10, -4}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -10)\n"
                  "MoveToEx(1070, -1759)\nAngleArc(100, -2000, 1000, -14, -7)\n"));
}

TEST(DashArc, a_gap_past_the_end_draws_nothing_more) {
  EXPECT_EQ(ListDashes(0, -13, {10, -4}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -10)\nMoveToEx(1070, -1759)\n"));
}

TEST(DashArc, a_dash_or_gap_up_to_the_very_end_doesnt_end_the_walk) {
  // A power of two as radius keeps the angle of the dash exactly that of the end, at (100, -976). After the
  // dash and a gap of 0 a dot is there; the last gap is past the end by a little more than the dash.
  EXPECT_EQ(ListArc(1024, 0, -90, {1024.0 * (90.0 * pi / 180.0), 0, 0, -1}),
            InPen("MoveToEx(1124, -2000)\nAngleArc(100, -2000, 1024, 0, -90)\n"
                  "MoveToEx(100, -976)\nEllipse(99, -977, 100, -976)\nMoveToEx(-923, -2000)\n"));
}

TEST(DashArc, an_arc_without_sweep_ends_at_its_first_dash) {
  // Its dash of 0 times -180.
  EXPECT_EQ(ListDashes(0, 0, {10, -4}), Solid("-0"));
}

TEST(DashArc, an_arc_that_runs_clockwise_is_cut_at_its_first_dash) {
  EXPECT_EQ(ListDashes(0, 25, {10, -4}), Solid("25"));
}

TEST(DashArc, a_whole_circle_ends_where_it_started) {
  // 100, gap to 190 (-984.8, -173.6), 100 to 290, gap to 380, past 360.
  EXPECT_EQ(ListDashes(0, -360, {100, -90}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -100)\n"
                  "MoveToEx(-884, -2173)\nAngleArc(100, -2000, 1000, -190, -100)\nMoveToEx(1039, -1658)\n"));
}

// Angles

TEST(DashArc, a_start_below_minus_360_gains_a_turn_once) {
  // -370 is -10, -740 is -380; both 10 or 20 degrees up: 984.8, 173.6 and 939.7, 342.02.
  EXPECT_EQ(ListDashes(-370, -9, {10, -4}),
            InPen("MoveToEx(1084, -1827)\nAngleArc(100, -2000, 1000, -10, -9)\n"));
  EXPECT_EQ(ListDashes(-740, -9, {10, -4}),
            InPen("MoveToEx(1039, -1658)\nAngleArc(100, -2000, 1000, -380, -9)\n"));
}

TEST(DashArc, a_start_of_minus_360_stays) {
  EXPECT_EQ(ListDashes(-360, -9, {10, -4}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, -360, -9)\n"));
}

TEST(DashArc, angles_are_rounded_to_float) {
  // The float nearest to 0.1 is 0.100000001.
  EXPECT_EQ(ListDashes(-0.1, -40, {40.1, -4}),
            InPen("MoveToEx(1099, -1999)\nAngleArc(100, -2000, 1000, -0.100000001, -40)\n"));
  EXPECT_EQ(ListDashes(0, -0.1, {40.1, -4}), Solid("-0.100000001"));
}

TEST(DashArc, pi_has_ten_decimals) {
  // At 150 degrees the shorter pi gives a sine of 0.50000000006, the full one 0.49999999999999994 and a start
  // a unit lower.
  EXPECT_EQ(ListDashes(-150, -9, {10, -4}),
            InPen("MoveToEx(-766, -1500)\nAngleArc(100, -2000, 1000, -150, -9)\n"));
}

// Turned sheets

TEST(DashArc, a_turned_arc_starts_half_a_turn_on) {
  // The centre becomes (1900, 1000), the start 180 degrees. 10, gap to 194 (-970.3, -241.9), past 192.
  EXPECT_EQ(ListDashes(0, -12, {10, -4}, 1),
            InPen("MoveToEx(900, 1000)\nAngleArc(1900, 1000, 1000, 180, -10)\nMoveToEx(930, 759)\n"));
}

TEST(DashArc, a_turned_start_gains_its_half_turn_before_it_is_looked_at) {
  // -500 + 180 = -320, which is above -360: 320 degrees, 766.04 and -642.8.
  EXPECT_EQ(ListDashes(-500, -9, {10, -4}, 1),
            InPen("MoveToEx(2666, 358)\nAngleArc(1900, 1000, 1000, -320, -9)\n"));
}

// Patterns that lead nowhere

TEST(DashArc, a_pattern_of_dots_alone_is_drawn_solid) {
  for (const Pattern& pattern : {Pattern{0, 0}, Pattern{0.5, 0}, Pattern{0, 0, 0, 0, 0, 0}, Pattern{0}})
    EXPECT_EQ(ListArc(1000, 0, -35, pattern), Solid("-35"));
}

TEST(DashArc, a_pattern_without_elements_is_drawn_solid) {
  const double pattern[] = {Along(10), Along(-5)};
  for (const int32_t count : {0, -1, INT32_MIN}) {
    EXPECT_EQ(ListCalls([&pattern, count](Canvas canvas) {
                DashArc(canvas, 100, -2000, 1000, 0, -35, centreX, centreY, red, pattern, count, 0);
              }),
              Solid("-35"));
  }
}

TEST(DashArc, a_lone_dash_is_drawn_solid_but_to_the_end_if_it_gets_there) {
  EXPECT_EQ(ListDashes(0, -35, {10}), Solid("-35"));
  EXPECT_EQ(ListDashes(-9, -35, {36}), InPen("MoveToEx(1087, -1844)\nAngleArc(100, -2000, 1000, -9, -35)\n"));
}

TEST(DashArc, a_pattern_that_walks_backwards_or_nowhere_is_drawn_solid) {
  for (const Pattern& degrees : {Pattern{-5, 10}, Pattern{4, 10}, Pattern{10, 10}, Pattern{-5, -4},
                                 Pattern{0, 4}, Pattern{10, -4, 2, 17}, Pattern{-5}})
    EXPECT_EQ(ListDashes(0, -35, degrees), Solid("-35"));
}

TEST(DashArc, a_first_round_that_gets_on_isnt_enough) {
  // To 8, back to -2 and on to 6. The next round starts with the dash of -10 after it: to 4, and to 2.
  EXPECT_EQ(ListDashes(0, -35, {0, -8, -10, -8}), Solid("-35"));
  // Unless the first round gets there: at 8 degrees 990.3, 139.2.
  EXPECT_EQ(ListDashes(0, -7, {0, -8, -10, -8}),
            InPen("MoveToEx(1100, -2000)\nEllipse(1099, -2001, 1100, -2000)\nMoveToEx(1090, -1861)\n"));
}

TEST(DashArc, a_first_round_that_goes_backwards_does_no_harm) {
  // To -12 (978.1, -207.9), 10 from there, the gap to -1 (999.8, -17.5). Then with the dash of 10 after it
  // to -3 (998.6, -52.3), 10 from there, to 8 (990.3, 139.2); to 6 (994.5, 104.5), where 4 are left of
  // the 10.
  EXPECT_EQ(ListDashes(0, -10, {0, 12, 10, -1}),
            InPen("MoveToEx(1100, -2000)\nEllipse(1099, -2001, 1100, -2000)\n"
                  "MoveToEx(1078, -2207)\nAngleArc(100, -2000, 1000, 12, -10)\n"
                  "MoveToEx(1099, -2017)\nEllipse(1098, -2018, 1099, -2017)\n"
                  "MoveToEx(1098, -2052)\nAngleArc(100, -2000, 1000, 3, -10)\n"
                  "MoveToEx(1090, -1861)\nEllipse(1089, -1862, 1090, -1861)\n"
                  "MoveToEx(1094, -1896)\nAngleArc(100, -2000, 1000, -6, -4)\n"));
}

TEST(DashArc, a_solid_arc_on_a_turned_sheet_is_turned_too) {
  EXPECT_EQ(ListDashes(0, -35, {0, 0}, 1),
            InPen("MoveToEx(900, 1000)\nAngleArc(1900, 1000, 1000, 180, -35)\n"));
}

TEST(DashArc, a_solid_arc_starts_a_turn_later_from_below_minus_360_too) {
  EXPECT_EQ(ListDashes(-370, -35, {0, 0}),
            InPen("MoveToEx(1084, -1827)\nAngleArc(100, -2000, 1000, -10, -35)\n"));
}

// Absurd elements, radii and angles

TEST(DashArc, an_element_that_is_no_number_leads_nowhere) {
  const double dash = Along(10), gap = Along(-4);
  for (const Pattern& pattern : {Pattern{nan, gap}, Pattern{dash, nan}, Pattern{dash, gap, nan, gap}})
    EXPECT_EQ(ListArc(1000, 0, -35, pattern), Solid("-35"));
}

TEST(DashArc, behind_the_end_an_element_that_is_no_number_does_no_harm) {
  const double dash = Along(10), gap = Along(-4);
  EXPECT_EQ(ListArc(1000, 0, -9, {dash, nan}), Solid("-9"));
  EXPECT_EQ(ListArc(1000, 0, -13, {dash, gap, nan, nan}), ListDashes(0, -13, {10, -4}));
}

TEST(DashArc, an_endless_dash_is_cut_at_the_end) {
  for (const double length : {1e10, 1e300, infinity})
    EXPECT_EQ(ListArc(1000, 0, -35, {length, -5}), Solid("-35"));
}

TEST(DashArc, an_endless_gap_ends_the_walk) {
  // No point belongs to its angle: 100 + INT32_MIN, -2000 - INT32_MIN wrapped around.
  EXPECT_EQ(ListArc(1000, 0, -35, {Along(10), -infinity}),
            InPen("MoveToEx(1100, -2000)\nAngleArc(100, -2000, 1000, 0, -10)\n"
                  "MoveToEx(-2147483548, 2147481648)\n"));
}

TEST(DashArc, endless_elements_that_lead_backwards_are_drawn_solid) {
  for (const Pattern& pattern :
       {Pattern{-infinity, -5}, Pattern{10, infinity}, Pattern{-infinity, -infinity}})
    EXPECT_EQ(ListArc(1000, 0, -35, pattern), Solid("-35"));
}

TEST(DashArc, without_a_radius_the_first_dash_goes_to_the_end) {
  EXPECT_EQ(ListArc(0, 0, -35, {10, -5}), InPen("MoveToEx(100, -2000)\nAngleArc(100, -2000, 0, 0, -35)\n"));
}

TEST(DashArc, without_a_radius_the_first_gap_ends_the_walk) {
  EXPECT_EQ(
      ListArc(0, 0, -35, {0, -5}),
      InPen("MoveToEx(100, -2000)\nEllipse(99, -2001, 100, -2000)\nMoveToEx(-2147483548, 2147481648)\n"));
}

TEST(DashArc, without_a_radius_gaps_of_no_length_lead_nowhere) {
  EXPECT_EQ(ListArc(0, 0, -35, {0, 0}), InPen("MoveToEx(100, -2000)\nAngleArc(100, -2000, 0, 0, -35)\n"));
}

TEST(DashArc, a_negative_radius_leads_backwards) {
  // 4294966296 is -1000.
  EXPECT_EQ(ListDashes(0, -35, {10, -4}), ListArc(1000, 0, -35, {Along(10), Along(-4)}));
  EXPECT_EQ(ListArc(-1000, 0, -35, {Along(10), Along(-4)}),
            InPen("MoveToEx(-900, -2000)\nAngleArc(100, -2000, 4294966296, 0, -35)\n"));
}

TEST(DashArc, angles_that_are_no_numbers_end) {
  const Pattern pattern = {Along(10), Along(-4)};
  for (const double angle : {nan, infinity, -infinity}) {
    EXPECT_EQ(CountOf("AngleArc(100, -2000, 1000, ", ListArc(1000, angle, -35, pattern)), 1) << angle;
    EXPECT_EQ(CountOf("AngleArc(100, -2000, 1000, ", ListArc(1000, 0, angle, pattern)), 1) << angle;
  }
}

TEST(DashArc, an_angle_too_large_to_grow_is_drawn_solid) {
  // Its neighbours are 2 radians and more apart. 9.99999984e+17 is the float nearest to 1e18.
  const std::string calls = ListDashes(-1e18, -35, {10, -4});
  EXPECT_EQ(CountOf("AngleArc(100, -2000, 1000, -9.99999984e+17, -35)\n", calls), 1);
  EXPECT_EQ(CountOf("AngleArc", calls), 1);
}

TEST(DashArc, points_wrap_around) {
  // INT32_MAX + 1000.
  const double pattern[] = {Along(40), Along(-4)};
  EXPECT_EQ(ListCalls([&pattern](Canvas canvas) {
              DashArc(canvas, INT32_MAX, -2000, 1000, 0, -35, centreX, centreY, red, pattern, 2, 0);
            }),
            InPen("MoveToEx(-2147482649, -2000)\nAngleArc(2147483647, -2000, 1000, 0, -35)\n"));
}

TEST(DashArc, a_walk_ends_after_ten_million_elements) {
  // 5,000,000 gaps of a unit lead to 5000 radians of 17453: cos 0.154668, sin -0.987966.
  const HDC canvas = CreatePlainCanvas();
  const double pattern[] = {0, -1};
  DashArc(canvas, 100, -2000, 1000, 0, -1e6, centreX, centreY, red, pattern, 2, 0);
  POINT position = {};
  MoveToEx(canvas, 0, 0, &position);
  DeleteDC(canvas);
  EXPECT_EQ(position.x, 254);
  EXPECT_EQ(position.y, -2987);
}

}  // namespace
}  // namespace hexlume::dash_arc_test
