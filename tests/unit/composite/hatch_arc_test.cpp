// The circle of a bulge in a hatch's boundary.

#include "composite/hatch_arc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "canvas/canvas.h"
#include "driver/conv_state.h"

namespace hexlume::hatch_arc_test {
namespace {

struct SolvedArc {
  double radius, centreX, centreY;
  double startAngle, sweep;
};

SolvedArc SolveArc(double bulge, double x0, double y0, double endX, double endY) {
  state.entX[0] = endX;
  state.entY[0] = endY;
  SolvedArc arc = {};
  ArcFromBulge(bulge, x0, y0, arc.startAngle, arc.sweep);
  arc.radius = state.entRadius;
  arc.centreX = state.entCentreX;
  arc.centreY = state.entCentreY;
  return arc;
}

// The constants of the angles have ten decimals, so that measures of some thousand units are about 1e-6 off.
constexpr double tolerance = 1e-6;

void ExpectCircle(const SolvedArc& arc, double radius, double centreX, double centreY) {
  EXPECT_NEAR(arc.radius, radius, tolerance);
  EXPECT_NEAR(arc.centreX, centreX, tolerance);
  EXPECT_NEAR(arc.centreY, centreY, tolerance);
}

// A quarter circle: the tangent of 22.5 degrees.
const double quarter = std::sqrt(2.0) - 1.0;

// The circle. A positive bulge runs counter-clockwise, with the centre to the left of the way.

TEST(HatchArc, a_bulge_of_1_is_a_half_circle) {
  const SolvedArc arc = SolveArc(1.0, 0, 0, 100, 0);
  ExpectCircle(arc, 50, 50, 0);
  EXPECT_NEAR(arc.sweep, 180.0, tolerance);
}

TEST(HatchArc, pi_has_ten_decimals) {
  // The exact 4 atan 1 over the shorter pi is 1 + 2.858e-11; times 180.
  EXPECT_NEAR(SolveArc(1.0, 0, 0, 100, 0).sweep, 180.0000000051446, 1e-12);
}

TEST(HatchArc, the_sweep_is_positive_for_either_sign_and_may_exceed_half_a_turn) {
  EXPECT_NEAR(SolveArc(quarter, 0, 0, 100, 100).sweep, 90.0, tolerance);
  EXPECT_NEAR(SolveArc(-quarter, 0, 0, 100, 100).sweep, 90.0, tolerance);
  // The tangent of 67.5 degrees.
  EXPECT_NEAR(SolveArc(quarter + 2.0, 0, 0, 100, 100).sweep, 270.0, tolerance);
}

TEST(HatchArc, a_positive_arc_that_ends_higher_has_its_centre_left_of_the_way) {
  ExpectCircle(SolveArc(quarter, 100, 0, 0, 100), 100, 0, 0);
}

TEST(HatchArc, a_negative_arc_that_ends_higher_has_its_centre_right_of_the_way) {
  ExpectCircle(SolveArc(-quarter, 100, 0, 0, 100), 100, 100, 100);
}

TEST(HatchArc, a_positive_arc_that_ends_lower_has_its_centre_left_of_the_way) {
  ExpectCircle(SolveArc(quarter, 0, 100, 100, 0), 100, 100, 100);
}

TEST(HatchArc, a_negative_arc_that_ends_lower_has_its_centre_right_of_the_way) {
  ExpectCircle(SolveArc(-quarter, 0, 100, 100, 0), 100, 0, 0);
}

TEST(HatchArc, level_vertices_count_as_an_arc_that_ends_lower) {
  // Half the chord of 200 and 45 degrees: 100 above it or below.
  ExpectCircle(SolveArc(quarter, 0, 0, 200, 0), 100 * std::sqrt(2.0), 100, 100);
  ExpectCircle(SolveArc(-quarter, 0, 0, 200, 0), 100 * std::sqrt(2.0), 100, -100);
  ExpectCircle(SolveArc(quarter, 200, 0, 0, 0), 100 * std::sqrt(2.0), 100, -100);
  ExpectCircle(SolveArc(-quarter, 200, 0, 0, 0), 100 * std::sqrt(2.0), 100, 100);
}

TEST(HatchArc, more_than_half_a_turn_has_its_centre_on_the_other_side) {
  // Three quarters of the circle, from (100, 0) the long way to (0, 100).
  ExpectCircle(SolveArc(quarter + 2.0, 100, 0, 0, 100), 100, 100, 100);
  ExpectCircle(SolveArc(-quarter - 2.0, 100, 0, 0, 100), 100, 0, 0);
}

TEST(HatchArc, equal_vertices_give_a_radius_of_0_and_their_place) {
  const SolvedArc arc = SolveArc(1.0, 300, 400, 300, 400);
  ExpectCircle(arc, 0, 300, 400);
  EXPECT_NEAR(arc.startAngle, 90.0, tolerance);
}

TEST(HatchArc, the_result_stands_in_the_places_of_the_entities_section_alone) {
  state = {};
  SolveArc(1.0, 0, 0, 100, 0);
  EXPECT_EQ(100.0, state.entX[0]);
  EXPECT_EQ(0.0, state.blockRadius);
  EXPECT_EQ(0.0, state.dimRadius);
}

// The start angle, of vertices on a circle of 100 about (0, 0): from there a quarter of the circle on.

double StartOf(double degrees, double bulge) {
  const double exactPi = 3.14159265358979;
  const double start = degrees * exactPi / 180.0;
  const double end = (degrees + (bulge < 0.0 ? -90.0 : 90.0)) * exactPi / 180.0;
  const SolvedArc arc =
      SolveArc(bulge, 100 * std::cos(start), 100 * std::sin(start), 100 * std::cos(end), 100 * std::sin(end));
  ExpectCircle(arc, 100, 0, 0);
  return arc.startAngle;
}

TEST(HatchArc, in_the_first_quadrant_the_start_angle_is_negated) {
  EXPECT_NEAR(StartOf(30, quarter), -30.0, tolerance);
  EXPECT_NEAR(StartOf(30, -quarter), -30.0, tolerance);
  EXPECT_NEAR(StartOf(89, quarter), -89.0, tolerance);
}

TEST(HatchArc, left_of_the_centre_the_start_angle_is_taken_from_360) {
  EXPECT_NEAR(StartOf(91, quarter), 269.0, tolerance);
  EXPECT_NEAR(StartOf(120, quarter), 240.0, tolerance);
  EXPECT_NEAR(StartOf(120, -quarter), 240.0, tolerance);
  EXPECT_NEAR(StartOf(180, quarter), 180.0, tolerance);
  EXPECT_NEAR(StartOf(200, quarter), 160.0, tolerance);
  EXPECT_NEAR(StartOf(269, -quarter), 91.0, tolerance);
}

TEST(HatchArc, in_the_fourth_quadrant_the_start_angle_is_negated_and_a_turn_added) {
  // -300 + 360 = 60, and another 360.
  EXPECT_NEAR(StartOf(300, quarter), 420.0, tolerance);
  EXPECT_NEAR(StartOf(300, -quarter), 420.0, tolerance);
  EXPECT_NEAR(StartOf(271, quarter), 449.0, tolerance);
}

TEST(HatchArc, straight_above_and_below_the_centre_the_start_angle_is_exact) {
  EXPECT_NEAR(StartOf(90, quarter), 90.0, tolerance);
  EXPECT_NEAR(StartOf(90, -quarter), 90.0, tolerance);
  EXPECT_NEAR(StartOf(270, quarter), 270.0, tolerance);
  EXPECT_NEAR(StartOf(270, -quarter), 270.0, tolerance);
}

TEST(HatchArc, on_the_level_of_the_centre_the_start_angle_is_0_or_180) {
  EXPECT_NEAR(StartOf(0, quarter), 0.0, tolerance);
  EXPECT_NEAR(StartOf(180, -quarter), 180.0, tolerance);
}

TEST(HatchArc, less_than_a_thousandth_beside_the_centre_counts_as_straight_above_it) {
  // The centres are 0.0004 to the right and to the left of the start.
  EXPECT_NEAR(SolveArc(1.0, 0, 0, 0.0008, 0).startAngle, 90.0, tolerance);
  EXPECT_NEAR(SolveArc(1.0, 0, 0, -0.0008, 0).startAngle, 90.0, tolerance);
  // 0.002 makes whole thousandths.
  EXPECT_NEAR(SolveArc(1.0, 0, 0, 0.004, 0).startAngle, 180.0, tolerance);
  EXPECT_NEAR(SolveArc(1.0, 0, 0, -0.004, 0).startAngle, 0.0, tolerance);
}

TEST(HatchArc, less_than_a_thousandth_below_the_centre_counts_as_above_it) {
  EXPECT_NEAR(SolveArc(1.0, 0, 0, 0, 0.0008).startAngle, 90.0, tolerance);
  EXPECT_NEAR(SolveArc(1.0, 0, 0, 0, 0.004).startAngle, 270.0, tolerance);
}

TEST(HatchArc, more_than_two_billion_thousandths_right_of_the_centre_count_as_left_of_it) {
  // 3,000,000 right of the centre, which no int32 holds in thousandths: 180 - atan(0 / -3000000), not 0.
  EXPECT_NEAR(SolveArc(1.0, 6000000, 0, 0, 0).startAngle, 180.0, tolerance);
  EXPECT_NEAR(SolveArc(1.0, 4000000, 0, 0, 0).startAngle, 0.0, tolerance);
}

TEST(HatchArc, absurd_numbers_do_no_harm) {
  const double infinity = std::numeric_limits<double>::infinity();
  SolveArc(infinity, 0, 0, 100, 0);
  SolveArc(1e300, 0, 0, 100, 50);
  SolveArc(1e-300, 0, 100, 100, 50);
  SolveArc(1.0, infinity, 0, 100, 0);
  EXPECT_TRUE(std::isnan(SolveArc(1.0, 0, 0, infinity, infinity).startAngle));
}

}  // namespace
}  // namespace hexlume::hatch_arc_test
