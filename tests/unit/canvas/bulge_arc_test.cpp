#include <gtest/gtest.h>

#include <cmath>

#include "canvas/canvas.h"
#include "driver/conv_state.h"

namespace hexlume::bulge_arc_test {
namespace {

struct SolvedArc {
  double radius, centreX, centreY;
  double startAngle, sweep;
};

SolvedArc SolveArc(double bulge, double startX, double startY, double x, double y) {
  state.entX[0] = startX;
  state.entY[0] = startY;
  SolvedArc arc = {};
  BulgeArcCentre(bulge, x, y, &arc.startAngle, &arc.sweep);
  arc.radius = state.entRadius;
  arc.centreX = state.entCentreX;
  arc.centreY = state.entCentreY;
  return arc;
}

// The constants of the angles have ten decimals, so that measures of some thousand units are about 1e-6 off.
constexpr double tolerance = 1e-6;

// An angle's distance from another, which may be 360 degrees away.
double Apart(double degrees, double otherDegrees) {
  return std::fabs(std::remainder(degrees - otherDegrees, 360.0));
}

void ExpectArc(const SolvedArc& arc, double radius, double centreX, double centreY, double startAngle) {
  EXPECT_NEAR(arc.radius, radius, tolerance);
  EXPECT_NEAR(arc.centreX, centreX, tolerance);
  EXPECT_NEAR(arc.centreY, centreY, tolerance);
  EXPECT_NEAR(Apart(arc.startAngle, startAngle), 0.0, tolerance) << arc.startAngle;
}

TEST(BulgeArc, a_bulge_of_1_is_a_half_circle) {
  // Half the chord of 100 is the radius, its middle the centre, which sees (100, 0) at 0 degrees.
  const SolvedArc arc = SolveArc(1.0, 0, 0, 100, 0);
  ExpectArc(arc, 50, 50, 0, 0);
  EXPECT_NEAR(arc.sweep, 180.0, tolerance);
}

TEST(BulgeArc, pi_has_ten_decimals) {
  // The exact 4 atan 1 over the shorter pi is 1 + 2.858e-11; times 180.
  EXPECT_NEAR(SolveArc(1.0, 0, 0, 100, 0).sweep, 180.0000000051446, 1e-12);
}

// A quarter circle: the tangent of 22.5 degrees.
const double quarter = std::sqrt(2.0) - 1.0;

TEST(BulgeArc, a_positive_arc_from_a_lower_start_has_its_centre_right_of_the_chord) {
  // From (100, 0) to (0, 100), seen from (100, 100) to the left.
  ExpectArc(SolveArc(quarter, 100, 0, 0, 100), 100, 100, 100, 180);
}

TEST(BulgeArc, a_negative_arc_from_a_lower_start_has_its_centre_left_of_the_chord) {
  // Seen from (0, 0) upward, which is 90 degrees, negated 270.
  ExpectArc(SolveArc(-quarter, 100, 0, 0, 100), 100, 0, 0, 270);
}

TEST(BulgeArc, a_positive_arc_to_a_lower_end_has_its_centre_left_of_the_chord) {
  // From the lower end (100, 0) to (0, 100); seen from (0, 0) to the right.
  ExpectArc(SolveArc(quarter, 0, 100, 100, 0), 100, 0, 0, 0);
}

TEST(BulgeArc, a_negative_arc_to_a_lower_end_has_its_centre_right_of_the_chord) {
  // Seen from (100, 100) downward, which is 270 degrees, negated 90.
  ExpectArc(SolveArc(-quarter, 0, 100, 100, 0), 100, 100, 100, 90);
}

TEST(BulgeArc, level_vertices_count_as_a_lower_start) {
  // The centre is half the chord of 200 away from its middle: below it for a start at the left, above it
  // for one at the right. It sees (300, 50) at 45 degrees, negated 315, and (100, 50) at 225 degrees, negated
  // 135.
  const double radius = 100 * std::sqrt(2.0);
  ExpectArc(SolveArc(quarter, 100, 50, 300, 50), radius, 200, -50, 315);
  ExpectArc(SolveArc(quarter, 300, 50, 100, 50), radius, 200, 150, 135);
}

TEST(BulgeArc, a_bulge_above_1_is_more_than_a_half_circle) {
  // The tangent of 67.5 degrees: three quarters of a circle, on the other side of the same chord.
  const SolvedArc arc = SolveArc(std::sqrt(2.0) + 1.0, 100, 0, 0, 100);
  ExpectArc(arc, 100, 0, 0, 270);
  EXPECT_NEAR(arc.sweep, 270.0, tolerance);
}

TEST(BulgeArc, the_sweep_is_positive_for_a_negative_bulge) {
  EXPECT_NEAR(SolveArc(quarter, 100, 0, 0, 100).sweep, 90.0, tolerance);
  EXPECT_EQ(SolveArc(-quarter, 100, 0, 0, 100).sweep, SolveArc(quarter, 100, 0, 0, 100).sweep);
}

// Chords into all quadrants and along both axes, with flat, half and wide arcs of both signs.
TEST(BulgeArc, both_vertices_lie_on_the_circle_wherever_the_chord_points) {
  constexpr double startX = 1200, startY = -3400;
  constexpr double chords[][2] = {{500, 0},  {400, 300},   {300, 400},   {0, 500},  {-300, 400}, {-400, 300},
                                  {-500, 0}, {-400, -300}, {-300, -400}, {0, -500}, {300, -400}, {400, -300}};
  for (const auto& chord : chords) {
    for (const double bulge : {0.1, 0.5, 1.0, 1.5, 4.0, -0.1, -0.5, -1.0, -1.5, -4.0}) {
      const double x = startX + chord[0];
      const double y = startY + chord[1];
      SCOPED_TRACE(testing::Message() << "to (" << x << ", " << y << ") with bulge " << bulge);
      const SolvedArc arc = SolveArc(bulge, startX, startY, x, y);
      // The sagitta is bulge times half the chord of 500: r = 250 * (1 + bulge^2) / (2 * bulge).
      const double size = std::fabs(bulge);
      EXPECT_NEAR(arc.radius, 125 * (1 + size * size) / size, tolerance);
      EXPECT_NEAR(std::hypot(startX - arc.centreX, startY - arc.centreY), arc.radius, tolerance);
      EXPECT_NEAR(std::hypot(x - arc.centreX, y - arc.centreY), arc.radius, tolerance);
      // The way is counterclockwise from (x, y) to the start for a positive bulge. Left of it, at this share
      // of the chord from its middle, is the centre.
      const double share = (1 - bulge * bulge) / (4 * bulge);
      EXPECT_NEAR(arc.centreX, startX + chord[0] / 2 + share * chord[1], tolerance);
      EXPECT_NEAR(arc.centreY, startY + chord[1] / 2 - share * chord[0], tolerance);
      // The start angle is that of (x, y), negated.
      const double seen = std::atan2(y - arc.centreY, x - arc.centreX) * 180.0 / pi;
      EXPECT_NEAR(Apart(arc.startAngle, -seen), 0.0, tolerance) << arc.startAngle;
      EXPECT_GE(arc.startAngle, 0.0);
      EXPECT_LE(arc.startAngle, 360.0);
      EXPECT_NEAR(arc.sweep, 4 * std::atan(size) * 180.0 / pi, tolerance);
    }
  }
}

// The start angle where the centre's X is exactly that of (x, y): so far out a double can't represent a step of 5.
constexpr double farOut = 1e17;

TEST(BulgeArc, straight_below_the_centre_the_start_angle_is_90) {
  EXPECT_DOUBLE_EQ(SolveArc(1.0, farOut, 0, farOut, -10).startAngle, 90.0);
}

TEST(BulgeArc, straight_above_the_centre_the_start_angle_is_270) {
  EXPECT_DOUBLE_EQ(SolveArc(1.0, farOut, 0, farOut, 10).startAngle, 270.0);
}

TEST(BulgeArc, equal_vertices_give_radius_0_and_the_centre_at_the_vertex) {
  const SolvedArc arc = SolveArc(0.5, 70, -30, 70, -30);
  EXPECT_EQ(arc.radius, 0.0);
  EXPECT_EQ(arc.centreX, 70.0);
  EXPECT_EQ(arc.centreY, -30.0);
  // Neither right of the centre nor below it.
  EXPECT_DOUBLE_EQ(arc.startAngle, 270.0);
  // 4 atan 0.5 = 106.26 degrees.
  EXPECT_NEAR(arc.sweep, 106.2602047, tolerance);
}

TEST(BulgeArc, a_chord_too_short_to_be_squared_gives_no_centre_unless_it_leads_right) {
  // The square of 5e-201 is 0, and the chord's direction is asked of a quotient by 0.
  EXPECT_TRUE(std::isnan(SolveArc(0.5, 1e-200, 0, 0, 0).centreX));
  EXPECT_EQ(SolveArc(0.5, 0, 0, 1e-200, 0).centreX, 0.0);
}

TEST(BulgeArc, every_scope_has_fields_of_its_own) {
  ConvState& s = state;
  // Half circles up to a vertex 20, 40 and 60 above the start.
  s.entX[0] = 100, s.entY[0] = 1000;
  s.blockX[0] = 200, s.blockY[0] = 2000;
  s.dimX[0] = 300, s.dimY[0] = 3000;
  s.entRadius = s.entCentreX = s.entCentreY = -1;
  s.blockRadius = s.blockCentreX = s.blockCentreY = -1;
  s.dimRadius = s.dimCentreX = s.dimCentreY = -1;
  double startAngle = 0;
  double sweep = 0;

  BlockBulgeArcCentre(1.0, 200, 2040, &startAngle, &sweep);
  EXPECT_NEAR(s.blockRadius, 20, tolerance);
  EXPECT_NEAR(s.blockCentreX, 200, tolerance);
  EXPECT_NEAR(s.blockCentreY, 2020, tolerance);
  EXPECT_NEAR(startAngle, 270, tolerance);
  EXPECT_NEAR(sweep, 180, tolerance);
  EXPECT_EQ(s.entRadius, -1);
  EXPECT_EQ(s.dimRadius, -1);

  DimBulgeArcCentre(1.0, 300, 3060, &startAngle, &sweep);
  EXPECT_NEAR(s.dimRadius, 30, tolerance);
  EXPECT_NEAR(s.dimCentreX, 300, tolerance);
  EXPECT_NEAR(s.dimCentreY, 3030, tolerance);
  EXPECT_EQ(s.entRadius, -1);
  EXPECT_EQ(s.entCentreX, -1);
  EXPECT_EQ(s.entCentreY, -1);

  BulgeArcCentre(1.0, 100, 1020, &startAngle, &sweep);
  EXPECT_NEAR(s.entRadius, 10, tolerance);
  EXPECT_NEAR(s.entCentreX, 100, tolerance);
  EXPECT_NEAR(s.entCentreY, 1010, tolerance);
  EXPECT_NEAR(s.blockRadius, 20, tolerance);
  EXPECT_NEAR(s.dimRadius, 30, tolerance);
  // The start vertices stay.
  EXPECT_EQ(s.entX[0], 100);
  EXPECT_EQ(s.blockY[0], 2000);
  EXPECT_EQ(s.dimX[0], 300);
}

}  // namespace
}  // namespace hexlume::bulge_arc_test
