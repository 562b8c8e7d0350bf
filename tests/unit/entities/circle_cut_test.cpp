// What the edges of the view leave of a circle.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>

#include "driver/group_reader.h"
#include "entities/arc_rules.h"
#include "entities/circle.h"
#include "support/arc_strokes.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::circle_cut_test {
namespace {

// A circle about (5000, -5000) with a radius of 1000: from 4000 to 6000 across and down. Its corners that
// count are at (4000, 4000 down) and (6000, 6000 down). An edge through the middle of a radius leaves a cap
// of 500: (1000 - 500) / 1000 is the cosine of 60 degrees.
//
// pi is a little short, and the starts of strokes fall a little before their angles: of the halves below,
// those that are less than 500 by it are cut to 499.
class CircleCutTest : public ConverterTest {
 protected:
  std::string Draw(const std::string& groups = "10 50\n20 50\n40 10\n") {
    stream = StreamOf(groups);
    return ListCalls([&](Canvas canvas) { DrawCircle({RunOn(canvas)}); });
  }

  // What the view leaves of the circle.
  AngleRange Cut(const ViewRect& by, const AngleRange& uncut = {0.0, 360.0}) {
    return CutCircleToView(by, PlaceCircle(5000.0, 5000.0, 1000.0), 1000.0, uncut);
  }
};

void ExpectRange(double start, double sweep, const AngleRange& range) {
  EXPECT_NEAR(start, range.start, 1e-7);
  EXPECT_NEAR(sweep, range.sweep, 1e-7);
}

std::string Part(const std::string& calls) {
  return InPen(black, calls);
}

constexpr int32_t farRight = 20000;
constexpr int32_t farDown = 10000;

// Each row alone.

TEST_F(CircleCutTest, the_right_edge_cuts_a_cap_off) {
  view = {0, 0, 5500, farDown};
  // From 60, over 360 - 2 * 60.
  EXPECT_EQ(Part("MoveToEx(5500, -4134)\nAngleArc(5000, -5000, 1000, -60, -240)\n"), Draw());
}

TEST_F(CircleCutTest, right_of_the_left_edge_a_cap_is_left) {
  view = {5500, 0, farRight, farDown};
  // From 360 - 60, over 2 * 60.
  EXPECT_EQ(Part("MoveToEx(5499, -5866)\nAngleArc(5000, -5000, 1000, -300, -120)\n"), Draw());
}

TEST_F(CircleCutTest, the_left_edge_cuts_a_cap_off) {
  view = {4500, 0, farRight, farDown};
  // From 180 + 60, over 240.
  EXPECT_EQ(Part("MoveToEx(4500, -5866)\nAngleArc(5000, -5000, 1000, -240, -240)\n"), Draw());
}

TEST_F(CircleCutTest, left_of_the_right_edge_a_cap_is_left) {
  view = {0, 0, 4500, farDown};
  // From 180 - 60, over 120.
  EXPECT_EQ(Part("MoveToEx(4501, -4134)\nAngleArc(5000, -5000, 1000, -120, -120)\n"), Draw());
}

TEST_F(CircleCutTest, the_top_edge_cuts_a_cap_off) {
  view = {0, 4500, farRight, farDown};
  // From 90 + 60, over 240.
  EXPECT_EQ(Part("MoveToEx(4134, -4500)\nAngleArc(5000, -5000, 1000, -150, -240)\n"), Draw());
}

TEST_F(CircleCutTest, above_the_bottom_edge_the_cap_is_left_in_the_wrong_sense) {
  view = {0, 0, farRight, 4500};
  // From 90 - 60, back over 120.
  EXPECT_EQ(Part("MoveToEx(5866, -4501)\nAngleArc(5000, -5000, 1000, -30, 120)\n"), Draw());
}

TEST_F(CircleCutTest, the_bottom_edge_cuts_a_cap_off) {
  view = {0, 0, farRight, 5500};
  // From 270 + 60, over 240.
  EXPECT_EQ(Part("MoveToEx(5866, -5500)\nAngleArc(5000, -5000, 1000, -330, -240)\n"), Draw());
}

TEST_F(CircleCutTest, below_the_top_edge_a_cap_is_left) {
  view = {0, 5500, farRight, farDown};
  // From 270 - 60, over 120.
  EXPECT_EQ(Part("MoveToEx(4134, -5499)\nAngleArc(5000, -5000, 1000, -210, -120)\n"), Draw());
}

TEST_F(CircleCutTest, a_dashed_circle_is_cut_the_same_way) {
  DefineLtype(4, {300, -200});
  view = {0, 0, 5000, farDown};
  // The edge through the centre cuts nothing.
  EXPECT_EQ(ListCalls([](Canvas canvas) {
              DashArc(canvas, 5000, -5000, 1000, -0.0, -360.0, 10000, 5000, black, state.ltypes.at(4).dashes,
                      2, 0);
            }),
            Draw("6 HIDDEN\n10 50\n20 50\n40 10\n"));
  view = {0, 0, 5500, farDown};
  const double cap = std::acos(0.5) * 180.0 / pi;
  EXPECT_EQ(ListCalls([cap](Canvas canvas) {
              DashArc(canvas, 5000, -5000, 1000, -cap, -(360.0 - 2 * cap), 10000, 5000, black,
                      state.ltypes.at(4).dashes, 2, 0);
            }),
            Draw("6 HIDDEN\n10 50\n20 50\n40 10\n"));
}

// Which rows hold.

TEST_F(CircleCutTest, no_edge_touches_a_circle_that_just_fits) {
  ExpectRange(0.0, 360.0, Cut({4000, 4000, 6000, 6000}));
}

TEST_F(CircleCutTest, one_unit_less_is_cut) {
  // A cap of 1: 999 / 1000 is the cosine of 2.5625587 degrees: the root of 2 * 0.001,
  // and a twelfth of 0.001 of it.
  ExpectRange(2.5625587, 354.8748825, Cut({4000, 4000, 5999, 6000}));
  ExpectRange(182.5625587, 354.8748825, Cut({4001, 4000, 6000, 6000}));
  ExpectRange(92.5625587, 354.8748825, Cut({4000, 4001, 6000, 6000}));
  ExpectRange(272.5625587, 354.8748825, Cut({4000, 4000, 6000, 5999}));
}

TEST_F(CircleCutTest, an_edge_through_the_centre_cuts_nothing) {
  ExpectRange(0.0, 360.0, Cut({0, 0, 5000, farDown}));
  ExpectRange(0.0, 360.0, Cut({5000, 0, farRight, farDown}));
  ExpectRange(0.0, 360.0, Cut({0, 0, farRight, 5000}));
  ExpectRange(0.0, 360.0, Cut({0, 5000, farRight, farDown}));
}

TEST_F(CircleCutTest, an_edge_one_unit_beside_the_centre_does) {
  // 0.001 is the cosine of 89.9427042 degrees: the sine of a small angle is that angle, 0.0572958.
  ExpectRange(89.9427042, 180.1145916, Cut({0, 0, 5001, farDown}));
  ExpectRange(270.0572958, 179.8854084, Cut({5001, 0, farRight, farDown}));
  ExpectRange(269.9427042, 180.1145916, Cut({4999, 0, farRight, farDown}));
  ExpectRange(90.0572958, 179.8854084, Cut({0, 0, 4999, farDown}));
  ExpectRange(179.9427042, 180.1145916, Cut({0, 4999, farRight, farDown}));
  ExpectRange(0.0572958, -179.8854084, Cut({0, 0, farRight, 4999}));
  ExpectRange(359.9427042, 180.1145916, Cut({0, 0, farRight, 5001}));
  ExpectRange(180.0572958, 179.8854084, Cut({0, 5001, farRight, farDown}));
}

TEST_F(CircleCutTest, an_edge_that_only_touches_leaves_a_cap_of_nothing) {
  // The right end is on the left edge: from 360, over 0.
  view = {6000, 0, farRight, farDown};
  EXPECT_EQ(Part("MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -360, -0)\n"), Draw());
}

// The order. A view of no width has both edges on one side of the centre.

TEST_F(CircleCutTest, a_circle_across_a_corner_is_cut_by_the_upper_or_lower_edge_alone) {
  view = {0, 0, 5500, 5500};
  EXPECT_EQ(Part("MoveToEx(5866, -5500)\nAngleArc(5000, -5000, 1000, -330, -240)\n"), Draw());
  ExpectRange(150.0, 240.0, Cut({4500, 4500, farRight, farDown}));
  ExpectRange(150.0, 240.0, Cut({0, 4500, 5500, farDown}));
  ExpectRange(330.0, 240.0, Cut({4500, 0, farRight, 5500}));
}

TEST_F(CircleCutTest, each_row_overwrites_those_before_it) {
  ExpectRange(300.0, 120.0, Cut({5500, 0, 5500, farDown}));  // the cap left at the left edge, after the right
  ExpectRange(240.0, 240.0, Cut({4500, 0, 5500, farDown}));  // the left edge after the right
  ExpectRange(120.0, 120.0, Cut({4500, 0, 4500, farDown}));  // the cap left at the right edge, after the left
  ExpectRange(120.0, 120.0, Cut({5500, 0, 4500, farDown}));  // and after the cap left at the left edge
  ExpectRange(150.0, 240.0, Cut({0, 4500, 4500, farDown}));  // the top edge after the cap left at the right
  ExpectRange(30.0, -120.0, Cut({0, 4500, farRight, 4500}));  // the cap left at the bottom, after the top
  ExpectRange(330.0, 240.0, Cut({0, 4500, farRight, 5500}));  // the bottom edge after the top
  ExpectRange(210.0, 120.0, Cut({0, 5500, farRight, 5500}));  // the cap left at the top, after the bottom
  ExpectRange(210.0, 120.0, Cut({0, 5500, farRight, 4500}));  // and after the cap left at the bottom
}

// Numbers.

TEST_F(CircleCutTest, the_cap_is_the_sheets_and_the_radius_the_models) {
  state.drawScale = 2.0;
  // On the sheet a circle about (2500, -7500) with a radius of 500. A cap of 250 counts as one of 1000:
  // 0.75 is the cosine of 41.4096221 degrees.
  ExpectRange(41.4096221, 277.1807558, Cut({0, 0, 2750, farDown}));
}

TEST_F(CircleCutTest, a_cut_that_is_no_number_leaves_the_circle_whole) {
  state.drawScale = 0.25;
  // On the sheet (20000, 10000), radius 4000. A cap of 3000 of 1000: -2 is no cosine.
  ExpectRange(0.0, 360.0, Cut({0, -100000, 21000, 100000}));
  ExpectRange(0.0, 0.0, Cut({0, -100000, 21000, 100000}, {0.0, 0.0}));
}

TEST_F(CircleCutTest, a_row_overwrites_one_that_is_no_number_before_it) {
  state.drawScale = 0.25;
  // The left edge cuts a cap of 500.
  ExpectRange(240.0, 240.0, Cut({16500, -100000, 21000, 100000}));
}

TEST_F(CircleCutTest, a_row_that_is_no_number_overwrites_one_before_it) {
  state.drawScale = 0.25;
  // The right edge cuts a cap of 500, the left one of 3000.
  ExpectRange(0.0, 360.0, Cut({19000, -100000, 23500, 100000}));
}

TEST_F(CircleCutTest, a_circle_without_a_radius_stays_whole) {
  const SheetCircle point = PlaceCircle(5000.0, 5000.0, 0.0);
  // A cap of 0 of 0, and one of -1000.
  ExpectRange(0.0, 360.0, CutCircleToView({5001, 0, farRight, farDown}, point, 0.0, {0.0, 360.0}));
  ExpectRange(0.0, 360.0, CutCircleToView({6000, 0, farRight, farDown}, point, 0.0, {0.0, 360.0}));
  ExpectRange(0.0, 360.0, CutCircleToView({0, 0, farRight, farDown}, point, 0.0, {0.0, 360.0}));
}

TEST_F(CircleCutTest, a_radius_that_the_sheet_can_not_hold_is_cut_without_a_fault) {
  const double radius = 1e300;
  CutCircleToView({0, 0, farRight, farDown}, PlaceCircle(5000.0, 5000.0, radius), radius, {0.0, 360.0});
  ExpectRange(0.0, 360.0,
              CutCircleToView({5001, 0, farRight, farDown}, PlaceCircle(5000.0, 5000.0, HUGE_VAL), HUGE_VAL,
                              {0.0, 360.0}));
  // A sheet's coordinate can't be negated, and a depth wraps around.
  CutCircleToView({INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, PlaceCircle(1e300, -1e300, 1e12), 1e12,
                  {0.0, 360.0});
}

}  // namespace
}  // namespace hexlume::circle_cut_test
