#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "support/metafile_canvas.h"
#include "support/plain_canvas.h"

namespace hexlume::dash_ellipse_test {
namespace {

constexpr COLORREF red = 0x0000FF;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

using Pattern = std::vector<double>;

struct Turn {
  int32_t centreX, centreY, mirror;
};
constexpr Turn upright = {1000, 500, 0};
constexpr Turn turned = {1000, 500, 1};  // (x, y) becomes (2000 - x, -1000 - y)

struct Radials {
  int32_t xStart, yStart, xEnd, yEnd;
};
constexpr Radials whole = {0, 0, 0, 0};

// The ellipses have their centre at (100, -2000) and, unless stated otherwise, the semi-axes -1400 and 200.
// Half the sum of their squares, 1,960,000 and 40,000, is that of the mean radius of 1000. A point is at
// 100 - trunc(1400 cos) and -2000 - trunc(200 sin): angle 0 is at the left, and the walk goes
// counter-clockwise.
std::string ListEllipse(int32_t rx, int32_t ry, const Radials& radials, const Pattern& pattern,
                        const Turn& turn = upright) {
  return ListCalls([&](Canvas canvas) {
    DashEllipse(canvas, 100, -2000, 1500, -2200, -1299, -1801, radials.xStart, radials.yStart, radials.xEnd,
                radials.yEnd, rx, ry, turn.centreX, turn.centreY, red, pattern.data(),
                static_cast<int32_t>(pattern.size()), turn.mirror);
  });
}

// The length of so many degrees at a mean radius of 1000.
constexpr double Along(double degrees) {
  return degrees * pi * 1000.0 / 180.0;
}

// Elements in degrees.
std::string ListDashes(const Radials& radials, Pattern degrees, const Turn& turn = upright) {
  for (double& element : degrees) element = Along(element);
  return ListEllipse(-1400, 200, radials, degrees, turn);
}

std::string InPenAndHollowBrush(const std::string& strokes) {
  return "CreatePen(1, PS_SOLID, 0, 0x0000FF)\nSelectObject(1)\nSelectObject(NULL_BRUSH)\n" + strokes +
         "SelectObject(BLACK_PEN)\nDeleteObject(1)\nSelectObject(WHITE_BRUSH)\n";
}

// The box 1500, -2200, -1299, -1801 gets another unit at its far corner: -1298, -1802. The record has it
// sorted, and smaller by one at the right and the top.
std::string Part(int32_t xStart, int32_t yStart, int32_t xEnd, int32_t yEnd) {
  return "Arc(-1298, -2200, 1499, -1803, " + std::to_string(xStart) + ", " + std::to_string(yStart) + ", " +
         std::to_string(xEnd) + ", " + std::to_string(yEnd) + ")\n";
}

// Drawn as it would be without a pattern.
std::string Solid(const Radials& radials) {
  return InPenAndHollowBrush(Part(radials.xStart, radials.yStart, radials.xEnd, radials.yEnd));
}

// The walk

TEST(DashEllipse, a_whole_ellipse_is_cut_after_a_turn) {
  // 0 to 100 (-243.1, 197.0), gap to 145 (-1146.8, 114.7), to 245 (-591.7, -181.3), gap to 290 (478.8,
  // -187.9), where 70 of the 100 are left.
  EXPECT_EQ(ListDashes(whole, {100, -45}),
            InPenAndHollowBrush(Part(-1300, -2000, 343, -2196) + Part(1246, -2114, 691, -1819) +
                                Part(-378, -1813, -1300, -2000)));
}

TEST(DashEllipse, the_signs_of_the_axes_tell_the_start_and_the_sense) {
  // The same angles, all offsets negated.
  EXPECT_EQ(ListEllipse(1400, -200, whole, {Along(100), Along(-45)}),
            InPenAndHollowBrush(Part(1500, -2000, -143, -1804) + Part(-1046, -1886, -491, -2181) +
                                Part(578, -2187, 1500, -2000)));
}

TEST(DashEllipse, the_pattern_starts_again_when_it_runs_out) {
  // 0 to 100, gap to 145, to 180 (-1400, 0), gap to 190 (-1378.7, -34.7), to 290, gap to 335 (1268.8, -84.5),
  // where 25 of the 35 are left.
  EXPECT_EQ(ListDashes(whole, {100, -45, 35, -10}),
            InPenAndHollowBrush(Part(-1300, -2000, 343, -2196) + Part(1246, -2114, 1500, -2000) +
                                Part(1478, -1966, -378, -1813) + Part(-1168, -1916, -1300, -2000)));
}

TEST(DashEllipse, only_count_elements_are_used) {
  const double pattern[] = {Along(100), Along(-45), Along(1), Along(-1)};
  EXPECT_EQ(ListCalls([&pattern](Canvas canvas) {
              DashEllipse(canvas, 100, -2000, 1500, -2200, -1299, -1801, 0, 0, 0, 0, -1400, 200, 1000, 500,
                          red, pattern, 2, 0);
            }),
            ListDashes(whole, {100, -45}));
}

TEST(DashEllipse, behind_a_pattern_of_odd_length_a_dash_follows_a_dash) {
  // 0 to 250, gap to 290; from there to 335, and in the next round to 540, cut.
  EXPECT_EQ(ListDashes(whole, {250, -40, 45}),
            InPenAndHollowBrush(Part(-1300, -2000, 578, -1813) + Part(-378, -1813, -1168, -1916) +
                                Part(-378, -1813, -1300, -2000)));
}

TEST(DashEllipse, a_gap_past_the_end_draws_nothing_more) {
  EXPECT_EQ(ListDashes(whole, {100, -300}), InPenAndHollowBrush(Part(-1300, -2000, 343, -2196)));
}

TEST(DashEllipse, a_dash_or_gap_up_to_the_very_end_doesnt_end_the_walk) {
  // A power of two as mean radius keeps the angle of the dash exactly that of the end: 1024 * 1024 is half of
  // the squares' sum. After a gap of 0 a dot is there, and the next gap ends the walk.
  EXPECT_EQ(ListEllipse(-1024, 1024, whole, {1024.0 * 6.283185307, 0, 0, -1}),
            InPenAndHollowBrush(Part(-924, -2000, -924, -2000) + "Ellipse(-925, -2001, -924, -2000)\n"));
}

// Dash or gap

TEST(DashEllipse, a_dash_is_told_by_its_even_place_even_if_it_is_negative) {
  // From 0 back to -35 (1146.8, -114.7), gap of 180 to 145, back to 110 (-478.8, 187.9), gap to 290, back to
  // 255 (-362.3, -193.2), gap past the end.
  EXPECT_EQ(ListDashes(whole, {-35, -180}),
            InPenAndHollowBrush(Part(-1300, -2000, -1046, -1886) + Part(1246, -2114, 578, -2187) +
                                Part(-378, -1813, 462, -1807)));
}

TEST(DashEllipse, a_gap_is_told_by_its_odd_place_even_if_it_is_positive) {
  // 0 to 250, back to 145, from where 250 are cut at 360.
  EXPECT_EQ(ListDashes(whole, {250, 105}),
            InPenAndHollowBrush(Part(-1300, -2000, 578, -1813) + Part(1246, -2114, -1300, -2000)));
}

// Dots

TEST(DashEllipse, the_gap_behind_a_dot_is_its_own) {
  // 0 to 100, gap to 145, dot, gap to 190, 190 to 290, gap to 335, dot, gap past the end.
  EXPECT_EQ(ListDashes(whole, {100, -45, 0, -45}),
            InPenAndHollowBrush(Part(-1300, -2000, 343, -2196) + "Ellipse(1245, -2115, 1246, -2114)\n" +
                                Part(1478, -1966, -378, -1813) + "Ellipse(-1169, -1917, -1168, -1916)\n"));
}

TEST(DashEllipse, dots_alone_stand_a_gap_apart) {
  // At 0, 145 and 290. Their brush is hollow.
  const std::string dots = InPenAndHollowBrush(
      "Ellipse(-1301, -2001, -1300, -2000)\nEllipse(1245, -2115, 1246, -2114)\n"
      "Ellipse(-379, -1814, -378, -1813)\n");
  EXPECT_EQ(ListDashes(whole, {0, -145}), dots);
  EXPECT_EQ(ListDashes(whole, {-0.0, -145}), dots);
}

TEST(DashEllipse, an_element_of_0_5_is_a_dash) {
  // 0.0005 radians: 1399.9998 and 0.1.
  EXPECT_EQ(ListEllipse(-1400, 200, whole, {0.5, Along(-400)}),
            InPenAndHollowBrush(Part(-1300, -2000, -1299, -2000)));
  EXPECT_EQ(ListEllipse(-1400, 200, whole, {-0.5, Along(-400)}),
            InPenAndHollowBrush(Part(-1300, -2000, -1299, -2000)));
}

// The angles of the ends. A dash that is much too long goes from one to the other. Right of the centre is
// angle 0, the point (-1300, -2000).

constexpr Radials fromRight = {150, -2000, 0, 0};

std::string DashFrom(int32_t dx, int32_t down) {
  return ListDashes({100 + dx, -2000 - down, 150, -2000}, {1e6, -1});
}
std::string DashTo(int32_t dx, int32_t down) {
  return ListDashes({fromRight.xStart, fromRight.yStart, 100 + dx, -2000 - down}, {1e6, -1});
}
std::string PartFrom(int32_t x, int32_t y) {
  return InPenAndHollowBrush(Part(x, y, -1300, -2000));
}
std::string PartTo(int32_t x, int32_t y) {
  return InPenAndHollowBrush(Part(-1300, -2000, x, y));
}

TEST(DashEllipse, a_radial_to_the_right_is_angle_0) {
  EXPECT_EQ(DashFrom(1, 0), PartFrom(-1300, -2000));
  EXPECT_EQ(DashTo(1, 0), PartTo(-1300, -2000));
}

TEST(DashEllipse, a_radial_to_the_lower_right_has_the_inverse_of_its_tangent) {
  // atan(2) = 63.4 degrees: 626.1, 178.9. atan(0.5) = 26.6 degrees: 1252.2, 89.4.
  EXPECT_EQ(DashFrom(1000, 500), PartFrom(-526, -2178));
  EXPECT_EQ(DashTo(1000, 500), PartTo(-526, -2178));
  EXPECT_EQ(DashFrom(500, 1000), PartFrom(-1152, -2089));
  EXPECT_EQ(DashTo(500, 1000), PartTo(-1152, -2089));
}

TEST(DashEllipse, a_radial_to_the_upper_right_has_the_inverse_of_its_tangent) {
  // -63.4 degrees: 626.1, -178.9. -26.6 degrees: 1252.2, -89.4.
  EXPECT_EQ(DashFrom(1000, -500), PartFrom(-526, -1822));
  EXPECT_EQ(DashTo(1000, -500), PartTo(-526, -1822));
  EXPECT_EQ(DashFrom(500, -1000), PartFrom(-1152, -1911));
  EXPECT_EQ(DashTo(500, -1000), PartTo(-1152, -1911));
}

TEST(DashEllipse, a_radial_straight_down_is_three_quarters_of_a_turn) {
  EXPECT_EQ(DashFrom(0, 1), PartFrom(100, -1800));
  EXPECT_EQ(DashTo(0, 1), PartTo(100, -1800));
}

TEST(DashEllipse, a_radial_to_the_lower_left_is_another_angle_at_the_start_than_at_the_end) {
  // 270 + 63.4 = 333.4 degrees: 1252.2, -89.4. 270 - 63.4 = 206.6 degrees: -1252.2, -89.4.
  EXPECT_EQ(DashFrom(-1000, 500), PartFrom(-1152, -1911));
  EXPECT_EQ(DashTo(-1000, 500), PartTo(1352, -1911));
  // 270 + 26.6 = 296.6 degrees: 626.1, -178.9. 270 - 26.6 = 243.4 degrees: -626.1, -178.9.
  EXPECT_EQ(DashFrom(-500, 1000), PartFrom(-526, -1822));
  EXPECT_EQ(DashTo(-500, 1000), PartTo(726, -1822));
}

TEST(DashEllipse, a_radial_straight_up_or_without_length_is_a_quarter_of_a_turn) {
  EXPECT_EQ(DashFrom(0, -1), PartFrom(100, -2200));
  EXPECT_EQ(DashTo(0, -1), PartTo(100, -2200));
  EXPECT_EQ(DashFrom(0, 0), PartFrom(100, -2200));
  EXPECT_EQ(DashTo(0, 0), PartTo(100, -2200));
}

TEST(DashEllipse, a_radial_to_the_left_is_half_a_turn) {
  EXPECT_EQ(DashFrom(-1, 0), PartFrom(1500, -2000));
  EXPECT_EQ(DashTo(-1, 0), PartTo(1500, -2000));
}

TEST(DashEllipse, a_radial_to_the_upper_left_is_the_inverse_of_its_tangent_less_than_a_quarter) {
  // atan(1000 / -500) + 90 = 26.6 degrees: 1252.2, 89.4. atan(500 / -1000) + 90 = 63.4: 626.1, 178.9.
  EXPECT_EQ(DashFrom(-1000, -500), PartFrom(-1152, -2089));
  EXPECT_EQ(DashTo(-1000, -500), PartTo(-1152, -2089));
  EXPECT_EQ(DashFrom(-500, -1000), PartFrom(-526, -2178));
  EXPECT_EQ(DashTo(-500, -1000), PartTo(-526, -2178));
}

TEST(DashEllipse, an_end_before_the_start_is_reached_a_turn_later) {
  // From 180 to 0, that is to 360: 180 to 245, gap to 290, where 65 reach 355 (1394.7, -17.4); gap past 360.
  EXPECT_EQ(ListDashes({99, -2000, 101, -2000}, {65, -45}),
            InPenAndHollowBrush(Part(1500, -2000, 691, -1819) + Part(-378, -1813, -1294, -1983)));
}

TEST(DashEllipse, an_end_behind_the_start_is_reached_in_the_same_turn) {
  // From 0 to 90 (0, 200): to 65 (591.7, 181.3), gap past the end.
  EXPECT_EQ(ListDashes({150, -2000, 100, -1999}, {65, -45}), PartTo(-491, -2181));
}

TEST(DashEllipse, equal_ends_are_one_arc_all_the_way_around) {
  EXPECT_EQ(ListDashes({150, -2000, 170, -2000}, {10, -5}), PartTo(-1300, -2000));
}

TEST(DashEllipse, one_coordinate_other_than_0_makes_a_part) {
  // Both ends are near 87 degrees: 69.2 to 70.0, and 199.7.
  for (const Radials& radials :
       {Radials{1, 0, 0, 0}, Radials{0, 1, 0, 0}, Radials{0, 0, 1, 0}, Radials{0, 0, 0, -1}})
    EXPECT_EQ(ListDashes(radials, {1e6, -1}), InPenAndHollowBrush(Part(31, -2199, 31, -2199)));
}

TEST(DashEllipse, radials_wrap_around) {
  // INT32_MIN - 100 is INT32_MAX - 99 and -2000 - INT32_MIN is INT32_MIN - 2000, INT32_MAX - 1999: a quotient
  // near 1, 45 degrees: 989.9, 141.4.
  EXPECT_EQ(ListDashes({INT32_MIN, INT32_MIN, 150, -2000}, {1e6, -1}), PartFrom(-889, -2141));
}

// The mean radius

TEST(DashEllipse, half_the_sum_of_the_squares_loses_its_fraction) {
  // (1 + 0) / 2 is 0, which makes the first dash endless: to the end at 360 degrees. Of a mean radius of 0.7
  // it would be 81 degrees long.
  EXPECT_EQ(ListEllipse(-1, 0, whole, {1, -1}), InPenAndHollowBrush(Part(99, -2000, 99, -2000)));
}

TEST(DashEllipse, the_squares_wrap_around) {
  // 65536 * 65536 is 0, and half of 100 the square of the mean radius. To 100 degrees: -11380.2, 9.8.
  EXPECT_EQ(ListEllipse(-65536, 10, whole, {Along(100) / 1000 * std::sqrt(50.0), -100}),
            InPenAndHollowBrush(Part(-65436, -2000, 11480, -2009)));
}

TEST(DashEllipse, where_the_squares_wrap_below_0_it_is_drawn_solid) {
  // 46341 * 46341 is 2^31 + 4633.
  EXPECT_EQ(ListEllipse(-46341, 0, whole, {1000, -500}), Solid(whole));
}

TEST(DashEllipse, where_their_sum_wraps_below_0_it_is_drawn_solid) {
  // 2^30 + 2^30.
  EXPECT_EQ(ListEllipse(-32768, 32768, whole, {1000, -500}), Solid(whole));
}

TEST(DashEllipse, below_that_a_large_ellipse_is_walked) {
  // 32767 * 32767 * 2 / 2: 32767 is the mean radius. To 100 degrees: -5689.93, 32269.2.
  EXPECT_EQ(ListEllipse(-32767, 32767, whole, {Along(100) * 32.767, Along(-300) * 32.767}),
            InPenAndHollowBrush(Part(-32667, -2000, 5789, -34269)));
}

TEST(DashEllipse, without_a_mean_radius_the_first_dash_ends_the_walk) {
  EXPECT_EQ(ListEllipse(0, 0, whole, {1, -1}), InPenAndHollowBrush(Part(100, -2000, 100, -2000)));
}

TEST(DashEllipse, without_a_mean_radius_the_first_gap_ends_the_walk) {
  EXPECT_EQ(ListEllipse(0, 0, whole, {0, -1}), InPenAndHollowBrush("Ellipse(99, -2001, 100, -2000)\n"));
}

TEST(DashEllipse, without_a_mean_radius_what_leads_backwards_or_nowhere_is_drawn_solid) {
  for (const Pattern& pattern : {Pattern{0, 0}, Pattern{-1, 1}, Pattern{-1, -1}, Pattern{0, 1}})
    EXPECT_EQ(ListEllipse(0, 0, whole, pattern), Solid(whole));
}

// Turned sheets. The centre becomes (1900, 1000), the box 500, 1200, 3299, 801 and with its unit 3300, 800.

std::string TurnedPart(int32_t xStart, int32_t yStart, int32_t xEnd, int32_t yEnd) {
  return InPenAndHollowBrush("Arc(500, 800, 3299, 1199, " + std::to_string(xStart) + ", " +
                             std::to_string(yStart) + ", " + std::to_string(xEnd) + ", " +
                             std::to_string(yEnd) + ")\n");
}

TEST(DashEllipse, a_turned_whole_ellipse_is_one_solid_stroke) {
  // The zeros become (2000, -1000), 100 to the right and 2000 down: atan(0.05) = 2.9 degrees: 1398.3, 9.99.
  EXPECT_EQ(ListDashes(whole, {100, -45}, turned), TurnedPart(502, 991, 502, 991));
}

TEST(DashEllipse, a_turned_part_has_its_ends_turned_first) {
  // (1100, -2500) becomes (900, 1500), to the upper left: 26.6 degrees, 1252.2, 89.4. (150, -2000) becomes
  // (1850, 1000), to the left: 180 degrees.
  EXPECT_EQ(ListDashes({1100, -2500, 150, -2000}, {1e6, -1}, turned), TurnedPart(648, 911, 3300, 1000));
}

TEST(DashEllipse, zeros_that_turn_to_zeros_are_a_whole_ellipse) {
  // About (0, 0): the centre becomes (-100, 2000), the box -1500, 2200, 1299, 1801 and with its unit 1300,
  // 1800.
  EXPECT_EQ(ListDashes(whole, {100, -300}, {0, 0, 1}),
            InPenAndHollowBrush("Arc(-1500, 1800, 1299, 2199, -1500, 2000, 143, 1804)\n"));
}

TEST(DashEllipse, a_point_that_turns_to_zeros_is_a_whole_ellipse) {
  // (2000, -1000) becomes (0, 0). The walk starts at (1900 - 1400, 1000) and goes to 100 degrees.
  EXPECT_EQ(ListDashes({2000, -1000, 2000, -1000}, {100, -300}, turned), TurnedPart(500, 1000, 2143, 804));
}

TEST(DashEllipse, a_turned_solid_ellipse_has_its_points_turned_too) {
  EXPECT_EQ(ListDashes({1100, -2500, 150, -2000}, {0, 0}, turned), TurnedPart(900, 1500, 1850, 1000));
  EXPECT_EQ(ListDashes(whole, {0, 0}, turned), TurnedPart(2000, -1000, 2000, -1000));
}

// Patterns that lead nowhere

constexpr Radials part = {1100, -2500, 150, -2000};

TEST(DashEllipse, a_pattern_of_dots_alone_is_drawn_solid) {
  for (const Pattern& pattern : {Pattern{0, 0}, Pattern{0, -0.0}, Pattern{0, 0, 0, 0, 0, 0}, Pattern{0}}) {
    EXPECT_EQ(ListEllipse(-1400, 200, whole, pattern), Solid(whole));
    EXPECT_EQ(ListEllipse(-1400, 200, part, pattern), Solid(part));
  }
}

TEST(DashEllipse, a_pattern_without_elements_is_drawn_solid) {
  const double pattern[] = {Along(100), Along(-45)};
  for (const int32_t count : {0, -1, INT32_MIN}) {
    EXPECT_EQ(ListCalls([&pattern, count](Canvas canvas) {
                DashEllipse(canvas, 100, -2000, 1500, -2200, -1299, -1801, 0, 0, 0, 0, -1400, 200, 1000, 500,
                            red, pattern, count, 0);
              }),
              Solid(whole));
  }
}

TEST(DashEllipse, a_lone_dash_is_drawn_solid_but_by_angles_if_it_gets_to_the_end) {
  EXPECT_EQ(ListDashes(part, {1}), Solid(part));
  EXPECT_EQ(ListDashes(part, {400}), PartFrom(-526, -2178));
}

TEST(DashEllipse, a_pattern_that_walks_backwards_or_nowhere_is_drawn_solid) {
  for (const Pattern& degrees : {Pattern{-5, 10}, Pattern{4, 10}, Pattern{10, 10}, Pattern{-5, -4},
                                 Pattern{0, 4}, Pattern{10, -4, 2, 17}, Pattern{-5}})
    EXPECT_EQ(ListDashes(whole, degrees), Solid(whole));
}

TEST(DashEllipse, a_first_round_that_gains_only_a_rounding_error_isnt_enough) {
  // There and back by 0.86 from half a turn, over 4.0, from where on doubles are twice as far apart: the
  // first time that leads a little past half a turn, and then nowhere.
  constexpr Radials upperHalf = {50, -2000, 150, -2000};
  EXPECT_EQ(ListEllipse(-1400, 200, upperHalf, {860, 860}), Solid(upperHalf));
}

TEST(DashEllipse, a_pattern_that_leads_backwards_past_the_end_first_is_walked) {
  // A dash of 400 is cut at the end; where it went on, 500 back would lead nowhere.
  EXPECT_EQ(ListDashes(part, {400, 500}), PartFrom(-526, -2178));
}

TEST(DashEllipse, an_element_that_is_no_number_leads_nowhere) {
  for (const Pattern& pattern : {Pattern{nan, -5}, Pattern{10, nan}, Pattern{10, -5, nan, -5}})
    EXPECT_EQ(ListEllipse(-1400, 200, part, pattern), Solid(part));
  // Unless the walk ends before it.
  EXPECT_EQ(ListEllipse(-1400, 200, part, {Along(400), nan}), PartFrom(-526, -2178));
}

TEST(DashEllipse, an_endless_dash_is_cut_at_the_end) {
  for (const double length : {1e10, 1e300, infinity})
    EXPECT_EQ(ListEllipse(-1400, 200, part, {length, -5}), PartFrom(-526, -2178));
}

TEST(DashEllipse, an_endless_gap_ends_the_walk) {
  EXPECT_EQ(ListEllipse(-1400, 200, whole, {Along(100), -infinity}), PartTo(343, -2196));
}

TEST(DashEllipse, endless_elements_that_lead_backwards_are_drawn_solid) {
  for (const Pattern& pattern :
       {Pattern{-infinity, -5}, Pattern{10, infinity}, Pattern{-infinity, -infinity}})
    EXPECT_EQ(ListEllipse(-1400, 200, part, pattern), Solid(part));
}

TEST(DashEllipse, a_walk_ends_after_ten_million_elements) {
  // 5,000,000 dots, each 3e-16 radians after the one before it.
  const HDC canvas = CreatePlainCanvas();
  const double pattern[] = {0, -1e-11};
  DashEllipse(canvas, 100, -2000, -29900, -32000, 30100, 28000, 0, 0, 0, 0, 30000, 30000, 1000, 500, red,
              pattern, 2, 0);
  DeleteDC(canvas);
}

TEST(DashEllipse, points_and_boxes_wrap_around) {
  // The centre at INT32_MAX and INT32_MIN, from it 1400 to the right, and 243 and 197 at 100 degrees; the box
  // to INT32_MAX and INT32_MIN, each with its unit: INT32_MIN and INT32_MAX. The record sorts -5, 7 and them.
  const double pattern[] = {Along(100), Along(-300)};
  EXPECT_EQ(ListCalls([&pattern](Canvas canvas) {
              DashEllipse(canvas, INT32_MAX, INT32_MIN, -5, 7, INT32_MAX, INT32_MIN, 0, 0, 0, 0, 1400, 200,
                          1000, 500, red, pattern, 2, 0);
            }),
            InPenAndHollowBrush("Arc(-2147483648, 7, -6, 2147483646, -2147482249, -2147483648, 2147483404, "
                                "2147483452)\n"));
}

}  // namespace
}  // namespace hexlume::dash_ellipse_test
