// ELLIPSE across the edges of the view.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "driver/group_reader.h"
#include "entities/ellipse.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::ellipse_cut_test {
namespace {

// Centre, end of the major axis and ratio.
std::string Shape(double centreX, double centreY, double axisX, double axisY, double ratio) {
  return Ends(centreX, centreY, axisX, axisY) + "40 " + std::to_string(ratio) + "\n";
}

// L = 4500, T = -4600, R = 5500, B = -5400 about (5000, -5000). An edge 300 off the centre cuts half a chord
// of sqrt(400 * 400 - 300 * 300 * 400 * 400 / (500 * 500)) = 320, whether it is vertical or, as the half
// height serves for both, horizontal.
const std::string plainShape = Shape(50, 50, -5, 0, 0.8);
const std::string plainBox = "4500, -5401, 5500, -4601";  // as recorded, of the corners R + 1 and B - 1

const std::string allRound = "41 0\n42 6.28318530718\n";

std::string WholeInBox(const std::string& box) {
  return InPen(black, "SelectObject(NULL_BRUSH)\nEllipse(" + box + ")\n") + "SelectObject(WHITE_BRUSH)\n";
}
std::string ArcInBox(const std::string& box, const std::string& start, const std::string& end) {
  return InPen(black, "Arc(" + box + ", " + start + ", " + end + ")\n");
}
std::string PlainArc(const std::string& start, const std::string& end) {
  return ArcInBox(plainBox, start, end);
}

// The groups of a part between two directions, in degrees counter-clockwise from the right.
std::string FromTo(double startDegrees, double endDegrees) {
  char groups[80];
  std::snprintf(groups, sizeof groups, "41 %.11f\n42 %.11f\n", pi * (startDegrees + 180.0) / 180.0,
                pi * (endDegrees + 180.0) / 180.0);
  return groups;
}

// Where radials of 5000 - 500 = 4500 end: 4500 / sqrt 2 is 3181.98.
const std::string right = "9500, -5000";
const std::string upperRight = "8181, -1818";
const std::string up = "5000, -500";
const std::string upperLeft = "1818, -1818";
const std::string left = "500, -5000";
const std::string lowerLeft = "1818, -8181";
const std::string down = "5000, -9500";
const std::string lowerRight = "8181, -8181";

class EllipseCutTest : public ConverterTest {
 protected:
  std::string Draw(const std::string& groups) {
    stream = StreamOf("0 ELLIPSE\n" + groups + "0 CIRCLE\n");
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { DrawEllipse({RunOn(canvas)}); });
  }
  std::string DrawWhole() { return Draw(plainShape + allRound); }
  std::string DrawPart(double startDegrees, double endDegrees) {
    return Draw(plainShape + FromTo(startDegrees, endDegrees));
  }
};

// Whole ellipses, each edge by itself.

TEST_F(EllipseCutTest, the_right_edge_beyond_the_centre_leaves_what_is_left_of_it) {
  view.right = 5300;
  EXPECT_EQ(PlainArc("5300, -4680", "5300, -5320"), DrawWhole());
}

TEST_F(EllipseCutTest, a_left_edge_beyond_the_centre_leaves_what_is_right_of_it) {
  view.left = 5300;
  EXPECT_EQ(PlainArc("5300, -5320", "5300, -4680"), DrawWhole());
}

TEST_F(EllipseCutTest, the_left_edge_before_the_centre_leaves_what_is_right_of_it) {
  view.left = 4700;
  EXPECT_EQ(PlainArc("4700, -5320", "4700, -4680"), DrawWhole());
}

TEST_F(EllipseCutTest, a_right_edge_before_the_centre_leaves_what_is_left_of_it) {
  view.right = 4700;
  EXPECT_EQ(PlainArc("4700, -4680", "4700, -5320"), DrawWhole());
}

TEST_F(EllipseCutTest, the_top_edge_above_the_centre_leaves_what_is_below_it) {
  view.top = 4700;
  EXPECT_EQ(PlainArc("4680, -4700", "5320, -4700"), DrawWhole());
}

TEST_F(EllipseCutTest, a_bottom_edge_above_the_centre_leaves_what_is_above_it) {
  view.bottom = 4700;
  EXPECT_EQ(PlainArc("5320, -4700", "4680, -4700"), DrawWhole());
}

TEST_F(EllipseCutTest, the_bottom_edge_below_the_centre_leaves_what_is_above_it) {
  view.bottom = 5300;
  EXPECT_EQ(PlainArc("5320, -5300", "4680, -5300"), DrawWhole());
}

TEST_F(EllipseCutTest, a_top_edge_below_the_centre_leaves_what_is_below_it) {
  view.top = 5300;
  EXPECT_EQ(PlainArc("4680, -5300", "5320, -5300"), DrawWhole());
}

TEST_F(EllipseCutTest, another_distance_cuts_another_chord) {
  // 400 off the centre of 500: 400 * 0.6. 100 off: 400 * sqrt(1 - 0.04) = 391.9.
  view.right = 5400;
  EXPECT_EQ(PlainArc("5400, -4760", "5400, -5240"), DrawWhole());
  view.right = 5100;
  EXPECT_EQ(PlainArc("5100, -4609", "5100, -5391"), DrawWhole());
  view.right = 20000;
  // 350 off the centre of 400: the half width of 500 gives 400 * sqrt(1 - 0.49) = 285.7.
  view.top = 4650;
  EXPECT_EQ(PlainArc("4715, -4650", "5285, -4650"), DrawWhole());
}

TEST_F(EllipseCutTest, odd_sizes_keep_their_half_units_but_for_one_in_each_direction) {
  // L = 5000.2 - 500.5 = 4499.7, R = 5500.7, T = 5000.2 + 400.4 - 10000 = -4599.4, B = -5400.2: 1001 by 801.
  const std::string groups = Shape(50.002, 50.002, -5.005, 0, 0.8) + allRound;
  const std::string box = "4499, -5401, 5500, -4600";
  // 500.5 - (5500 - 5467) = 467.5 off, of a half width of 500: 400.5 * sqrt(1 - 0.935^2) = 142.04.
  view = {0, 0, 5467, 10000};
  EXPECT_EQ(ArcInBox(box, "5467, -4857", "5467, -5141"), Draw(groups));
  // 400.5 - (4652 - 4599) = 347.5 off, of a half width of 500.5: 400 * sqrt(1 - 0.694306^2) = 287.87.
  view = {0, 4652, 20000, 10000};
  EXPECT_EQ(ArcInBox(box, "4713, -4652", "5287, -4652"), Draw(groups));
  // 400.5 - (4608 - 4599) = 391.5 off: 400 * sqrt(1 - 0.782218^2) = 249.20.
  view = {0, 4608, 20000, 10000};
  EXPECT_EQ(ArcInBox(box, "4751, -4608", "5249, -4608"), Draw(groups));
}

TEST_F(EllipseCutTest, an_edge_through_the_centre_does_not_cut) {
  view.right = 5000;
  EXPECT_EQ(WholeInBox(plainBox), DrawWhole());
  view = {5000, 0, 20000, 10000};
  EXPECT_EQ(WholeInBox(plainBox), DrawWhole());
  view = {0, 5000, 20000, 10000};
  EXPECT_EQ(WholeInBox(plainBox), DrawWhole());
  view = {0, 0, 20000, 5000};
  EXPECT_EQ(WholeInBox(plainBox), DrawWhole());
}

TEST_F(EllipseCutTest, an_edge_that_touches_the_box_does_not_cut) {
  view = {4500, 4600, 5500, 5400};
  EXPECT_EQ(WholeInBox(plainBox), DrawWhole());
}

TEST_F(EllipseCutTest, an_edge_a_unit_inside_the_box_cuts) {
  // 499 off the centre: 400 * sqrt(1 - 0.996004) = 25.3. 399 off: 400 * sqrt(1 - 0.636804) = 241.1.
  view = {0, 0, 5499, 10000};
  EXPECT_EQ(PlainArc("5499, -4975", "5499, -5025"), DrawWhole());
  view = {4501, 0, 20000, 10000};
  EXPECT_EQ(PlainArc("4501, -5025", "4501, -4975"), DrawWhole());
  view = {0, 4601, 20000, 10000};
  EXPECT_EQ(PlainArc("4759, -4601", "5241, -4601"), DrawWhole());
  view = {0, 0, 20000, 5399};
  EXPECT_EQ(PlainArc("5241, -5399", "4759, -5399"), DrawWhole());
}

TEST_F(EllipseCutTest, a_cut_on_the_sheets_left_edge_has_0_for_its_x) {
  // L = -300, R = 700 about 200, 200 off: 400 * sqrt(1 - 0.16) = 366.6.
  EXPECT_EQ(ArcInBox("-300, -5401, 700, -4601", "0, -5366", "0, -4634"),
            Draw(Shape(2, 50, -5, 0, 0.8) + allRound));
}

TEST_F(EllipseCutTest, a_cut_on_the_sheets_top_edge_has_0_for_its_y) {
  // T = 200, B = -600 about -200: 400 * sqrt(1 - 0.16) = 366.6.
  EXPECT_EQ(ArcInBox("4500, -601, 5500, 199", "4634, 0", "5366, 0"),
            Draw(Shape(50, 98, -5, 0, 0.8) + allRound));
}

TEST_F(EllipseCutTest, a_cut_counts_if_any_of_its_four_numbers_is_not_0) {
  // 300 off each edge, so the half chord of 320 ends in the sheet's corner.
  view = {0, -1000, 20000, 10000};
  EXPECT_EQ(ArcInBox("-200, -721, 800, 79", "0, -640", "0, 0"), Draw(Shape(3, 96.8, -5, 0, 0.8) + allRound));
  EXPECT_EQ(ArcInBox("-200, -81, 800, 719", "0, 0", "0, 640"), Draw(Shape(3, 103.2, -5, 0, 0.8) + allRound));
  view = {-1000, 0, 20000, 10000};
  EXPECT_EQ(ArcInBox("-820, -701, 180, 99", "-640, 0", "0, 0"), Draw(Shape(-3.2, 97, -5, 0, 0.8) + allRound));
  EXPECT_EQ(ArcInBox("-180, -701, 820, 99", "0, 0", "640, 0"), Draw(Shape(3.2, 97, -5, 0, 0.8) + allRound));
}

// An axis to the right: L = 5500, T = -5400, R = 4500, B = -4600. The box is about, and only an edge beyond
// the centre is seen.

const std::string mirroredBox = "4501, -5400, 5499, -4602";

TEST_F(EllipseCutTest, in_a_mirrored_box_edges_beyond_the_centre_cut) {
  const std::string shape = Shape(50, 50, 5, 0, 0.8);
  view = {5300, 0, 20000, 10000};
  EXPECT_EQ(ArcInBox(mirroredBox, "5300, -5320", "5300, -4680"), Draw(shape + allRound));
  view = {0, 0, 4700, 10000};
  EXPECT_EQ(ArcInBox(mirroredBox, "4700, -4680", "4700, -5320"), Draw(shape + allRound));
  view = {0, 0, 20000, 4700};
  EXPECT_EQ(ArcInBox(mirroredBox, "5320, -4700", "4680, -4700"), Draw(shape + allRound));
  view = {0, 5300, 20000, 10000};
  EXPECT_EQ(ArcInBox(mirroredBox, "4680, -5300", "5320, -5300"), Draw(shape + allRound));
}

TEST_F(EllipseCutTest, in_a_mirrored_box_edges_before_the_centre_do_not_cut) {
  const std::string shape = Shape(50, 50, 5, 0, 0.8);
  view = {0, 0, 5300, 10000};
  EXPECT_EQ(WholeInBox(mirroredBox), Draw(shape + allRound));
  view = {4700, 0, 20000, 10000};
  EXPECT_EQ(WholeInBox(mirroredBox), Draw(shape + allRound));
  view = {0, 4700, 20000, 10000};
  EXPECT_EQ(WholeInBox(mirroredBox), Draw(shape + allRound));
  view = {0, 0, 20000, 5300};
  EXPECT_EQ(WholeInBox(mirroredBox), Draw(shape + allRound));
}

// Two edges: the later one's cut takes the place of the earlier one's. (L, T) in the view lets the right and
// the bottom edge cut, (R, B) the left and the top one; with a negative ratio the other two pairs.

TEST_F(EllipseCutTest, the_bottom_edge_overwrites_the_right_one) {
  for (const LONG edge : {5300, 4700}) {
    view = {0, 0, edge, 5300};
    EXPECT_EQ(PlainArc("5320, -5300", "4680, -5300"), DrawWhole());
    view = {0, 0, edge, 4700};
    EXPECT_EQ(PlainArc("5320, -4700", "4680, -4700"), DrawWhole());
  }
}

TEST_F(EllipseCutTest, the_top_edge_overwrites_the_left_one) {
  for (const LONG edge : {5300, 4700}) {
    view = {edge, 4700, 20000, 10000};
    EXPECT_EQ(PlainArc("4680, -4700", "5320, -4700"), DrawWhole());
    view = {edge, 5300, 20000, 10000};
    EXPECT_EQ(PlainArc("4680, -5300", "5320, -5300"), DrawWhole());
  }
}

TEST_F(EllipseCutTest, with_a_negative_ratio_top_and_bottom_overwrite_the_other_sides_too) {
  // L = 4500, T = -5400, R = 5500, B = -4600: B - 1 = -4601.
  const std::string groups = Shape(50, 50, -5, 0, -0.8) + allRound;
  const std::string box = "4500, -5400, 5500, -4602";
  for (const LONG edge : {5300, 4700}) {
    view = {0, 5300, edge, 10000};
    EXPECT_EQ(ArcInBox(box, "4680, -5300", "5320, -5300"), Draw(groups));
    view = {edge, 0, 20000, 4700};
    EXPECT_EQ(ArcInBox(box, "5320, -4700", "4680, -4700"), Draw(groups));
  }
}

// Large and tall ellipses.

TEST_F(EllipseCutTest, the_square_of_a_large_half_width_wraps_around) {
  // L = -30000, R = 70000, T = -2000, B = -8000. 50000 * 50000 wraps to -1794967296. 30000 off the centre:
  // sqrt(3000 * 3000 + 30000 * 30000 * 3000 * 3000 / 1794967296) = sqrt(13512616) = 3675.9.
  view = {-40000, 0, 50000, 10000};
  EXPECT_EQ(ArcInBox("-30000, -8001, 70000, -2001", "50000, -1325", "50000, -8675"),
            Draw(Shape(200, 50, -500, 0, 0.06) + allRound));
}

TEST_F(EllipseCutTest, a_square_of_0_leaves_the_ellipse_whole) {
  // 65536 * 65536 wraps to 0. The root is none, -2147483648 as a number, which taken from -5000 and added to
  // it gives the same: an arc that ends where it starts. L = 10000 - 65536, T = 5000 + 3276.8 - 10000.
  view = {-60000, 0, 20000, 10000};
  EXPECT_EQ(ArcInBox("-55536, -8277, 75536, -1724", "20000, 2147478648", "20000, 2147478648"),
            Draw(Shape(100, 50, -655.36, 0, 0.05) + allRound));
}

TEST_F(EllipseCutTest, a_tall_ellipse_cut_far_from_its_centre_is_drawn_whole) {
  // L = 4800, T = -4500, R = 5200, B = -5500. 300 off the centre, more than the half width of 200: no root.
  // 5000 - -2147483648 wraps to -2147478648.
  view.top = 4700;
  EXPECT_EQ(ArcInBox("4800, -5501, 5200, -4501", "-2147478648, -4700", "-2147478648, -4700"),
            Draw(Shape(50, 50, 0, -5, 0.4) + allRound));
}

TEST_F(EllipseCutTest, a_part_of_such_an_ellipse_is_drawn_as_it_is) {
  view.top = 4700;
  const std::string box = "4800, -5501, 5200, -4501";
  // Angles counted from below. To the right and up, and, across the left where the cut points, in two.
  EXPECT_EQ(ArcInBox(box, "9500, -5000", "5000, -500"),
            Draw(Shape(50, 50, 0, -5, 0.4) + "41 1.57079632675\n42 3.1415926535\n"));
  const std::string none = "-2147478648, -4700";
  EXPECT_EQ(ArcInBox(box, none, "5000, -9500") + ArcInBox(box, "5000, -500", none),
            Draw(Shape(50, 50, 0, -5, 0.4) + "41 3.1415926535\n42 0\n"));
}

// Parts. At each edge: both ends inside; the start beyond the edge; the end beyond it; both beyond it, with
// the view in between; both beyond it with nothing of the part in the view, which draws the same; both
// inside, with the edge in between.

TEST_F(EllipseCutTest, a_part_across_the_right_edge_beyond_the_centre) {
  view.right = 5300;
  const std::string cutStart = "5300, -4680";
  const std::string cutEnd = "5300, -5320";
  EXPECT_EQ(PlainArc(up, down), DrawPart(90, -90));
  EXPECT_EQ(PlainArc(cutStart, left), DrawPart(0, -180));
  EXPECT_EQ(PlainArc(left, cutEnd), DrawPart(-180, 0));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(45, -45));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(-45, 45));
  EXPECT_EQ(PlainArc(cutStart, up) + PlainArc(down, cutEnd), DrawPart(-90, 90));
}

TEST_F(EllipseCutTest, a_part_across_a_left_edge_beyond_the_centre) {
  view.left = 5300;
  const std::string cutStart = "5300, -5320";
  const std::string cutEnd = "5300, -4680";
  EXPECT_EQ(PlainArc(lowerRight, upperRight), DrawPart(-45, 45));
  EXPECT_EQ(PlainArc(cutStart, right), DrawPart(-90, 0));
  EXPECT_EQ(PlainArc(right, cutEnd), DrawPart(0, 90));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(-90, 90));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(90, -90));
  EXPECT_EQ(PlainArc(cutStart, lowerRight) + PlainArc(upperRight, cutEnd), DrawPart(45, -45));
}

TEST_F(EllipseCutTest, a_part_across_the_left_edge_before_the_centre) {
  view.left = 4700;
  const std::string cutStart = "4700, -5320";
  const std::string cutEnd = "4700, -4680";
  EXPECT_EQ(PlainArc(down, up), DrawPart(-90, 90));
  EXPECT_EQ(PlainArc(cutStart, right), DrawPart(-180, 0));
  EXPECT_EQ(PlainArc(right, cutEnd), DrawPart(0, -180));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(-135, 135));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(135, -135));
  EXPECT_EQ(PlainArc(cutStart, down) + PlainArc(up, cutEnd), DrawPart(90, -90));
}

TEST_F(EllipseCutTest, a_part_across_a_right_edge_before_the_centre) {
  view.right = 4700;
  const std::string cutStart = "4700, -4680";
  const std::string cutEnd = "4700, -5320";
  EXPECT_EQ(PlainArc(upperLeft, lowerLeft), DrawPart(135, -135));
  EXPECT_EQ(PlainArc(cutStart, left), DrawPart(90, -180));
  EXPECT_EQ(PlainArc(left, cutEnd), DrawPart(-180, -90));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(90, -90));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(-90, 90));
  EXPECT_EQ(PlainArc(cutStart, upperLeft) + PlainArc(lowerLeft, cutEnd), DrawPart(-135, 135));
}

TEST_F(EllipseCutTest, a_part_across_the_top_edge_above_the_centre) {
  view.top = 4700;
  const std::string cutStart = "4680, -4700";
  const std::string cutEnd = "5320, -4700";
  EXPECT_EQ(PlainArc(left, right), DrawPart(-180, 0));
  EXPECT_EQ(PlainArc(cutStart, down), DrawPart(90, -90));
  EXPECT_EQ(PlainArc(down, cutEnd), DrawPart(-90, 90));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(135, 45));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(45, 135));
  EXPECT_EQ(PlainArc(cutStart, left) + PlainArc(right, cutEnd), DrawPart(0, -180));
}

TEST_F(EllipseCutTest, a_part_across_a_bottom_edge_above_the_centre) {
  view.bottom = 4700;
  const std::string cutStart = "5320, -4700";
  const std::string cutEnd = "4680, -4700";
  EXPECT_EQ(PlainArc(upperRight, upperLeft), DrawPart(45, 135));
  EXPECT_EQ(PlainArc(cutStart, up), DrawPart(0, 90));
  EXPECT_EQ(PlainArc(up, cutEnd), DrawPart(90, -180));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(0, -180));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(-180, 0));
  EXPECT_EQ(PlainArc(cutStart, upperRight) + PlainArc(upperLeft, cutEnd), DrawPart(135, 45));
}

TEST_F(EllipseCutTest, a_part_across_the_bottom_edge_below_the_centre) {
  view.bottom = 5300;
  const std::string cutStart = "5320, -5300";
  const std::string cutEnd = "4680, -5300";
  EXPECT_EQ(PlainArc(right, left), DrawPart(0, -180));
  EXPECT_EQ(PlainArc(cutStart, up), DrawPart(-90, 90));
  EXPECT_EQ(PlainArc(up, cutEnd), DrawPart(90, -90));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(-45, -135));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(-135, -45));
  EXPECT_EQ(PlainArc(cutStart, right) + PlainArc(left, cutEnd), DrawPart(-180, 0));
}

TEST_F(EllipseCutTest, a_part_across_a_top_edge_below_the_centre) {
  view.top = 5300;
  const std::string cutStart = "4680, -5300";
  const std::string cutEnd = "5320, -5300";
  EXPECT_EQ(PlainArc(lowerLeft, lowerRight), DrawPart(-135, -45));
  EXPECT_EQ(PlainArc(cutStart, down), DrawPart(-180, -90));
  EXPECT_EQ(PlainArc(down, cutEnd), DrawPart(-90, 0));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(-180, 0));
  EXPECT_EQ(PlainArc(cutStart, cutEnd), DrawPart(0, -180));
  EXPECT_EQ(PlainArc(cutStart, lowerLeft) + PlainArc(lowerRight, cutEnd), DrawPart(-45, -135));
}

TEST_F(EllipseCutTest, a_part_of_two_cut_ellipses_is_cut_by_the_last_edge_too) {
  view = {0, 0, 5300, 5300};
  EXPECT_EQ(PlainArc("5320, -5300", up), DrawPart(-90, 90));
}

TEST_F(EllipseCutTest, a_part_inside_a_view_that_does_not_cut_keeps_its_radials) {
  view = {4500, 4600, 5500, 5400};
  EXPECT_EQ(PlainArc(lowerLeft, upperRight), DrawPart(-135, 45));
}

TEST_F(EllipseCutTest, a_part_all_round_is_drawn_up_to_the_cut_on_both_sides) {
  view.right = 5300;
  EXPECT_EQ(PlainArc("5300, -4680", left) + PlainArc(left, "5300, -5320"), DrawPart(-180, -180));
  EXPECT_EQ(PlainArc("5300, -4680", "5300, -5320"), DrawPart(0, 0));
}

// An end's radial point, and not where the part ends on the ellipse, decides whether it stays.

TEST_F(EllipseCutTest, an_end_stays_up_to_the_views_left_and_right_edge) {
  // Of 4500 to the left and the right: 500 and 9500. The cut is that of the top edge.
  view = {500, 4700, 9500, 10000};
  EXPECT_EQ(PlainArc(left, right), DrawPart(-180, 0));
  view = {501, 4700, 9500, 10000};
  EXPECT_EQ(PlainArc("4680, -4700", right), DrawPart(-180, 0));
  view = {500, 4700, 9499, 10000};
  EXPECT_EQ(PlainArc(left, "5320, -4700"), DrawPart(-180, 0));
}

TEST_F(EllipseCutTest, an_end_above_or_below_the_view_stays_where_another_edge_cuts) {
  view = {0, 1000, 5300, 9000};
  EXPECT_EQ(PlainArc(up, down), DrawPart(90, -90));
  EXPECT_EQ(PlainArc("5300, -4680", up) + PlainArc(down, "5300, -5320"), DrawPart(-90, 90));
}

TEST_F(EllipseCutTest, where_a_level_edge_cuts_only_an_end_beyond_that_edge_gives_way) {
  view = {0, 4700, 20000, 9000};
  EXPECT_EQ(PlainArc(left, down), DrawPart(-180, -90));
  EXPECT_EQ(PlainArc(left, "5320, -4700"), DrawPart(-180, 90));
  view = {0, 1000, 20000, 5300};
  EXPECT_EQ(PlainArc(up, left), DrawPart(90, -180));
  EXPECT_EQ(PlainArc("5320, -5300", left), DrawPart(-90, -180));
}

// An axis of 5 to the left and the centre at x of 5.5 leave radials of 550 - 500 = 50: all are in the view.
// L = 50, R = 1050 about (550, -5000), cut at 850 as above.
class EllipseShortRadialsTest : public EllipseCutTest {
 protected:
  EllipseShortRadialsTest() { view.right = 850; }

  std::string DrawShort(double startDegrees, double endDegrees) {
    return Draw(Shape(5.5, 50, -5, 0, 0.8) + FromTo(startDegrees, endDegrees));
  }
  static std::string ShortArc(const std::string& start, const std::string& end) {
    return ArcInBox("50, -5401, 1050, -4601", start, end);
  }
};

TEST_F(EllipseShortRadialsTest, an_end_that_the_view_has_stays_also_towards_what_the_cut_takes_away) {
  EXPECT_EQ(ShortArc("600, -5000", "550, -4950"), DrawShort(0, 90));
  EXPECT_EQ(ShortArc("550, -5050", "600, -5000"), DrawShort(-90, 0));
  // From 26.6 degrees below the right to 26.6 above it. 50 * cos = 44.7, 50 * sin = 22.4: 550 + 44.7, -5000 -
  // 22.4 and -5000 + 22.4.
  EXPECT_EQ(ShortArc("594, -5022", "594, -4977"), DrawShort(-26.6, 26.6));
}

TEST_F(EllipseShortRadialsTest, only_a_part_that_leads_through_all_that_the_cut_takes_away_is_in_two) {
  EXPECT_EQ(ShortArc("850, -4680", "550, -4950") + ShortArc("550, -5050", "850, -5320"), DrawShort(-90, 90));
  EXPECT_EQ(ShortArc("600, -5000", "600, -5000"), DrawShort(0, 0));
}

// Ends on the cut: a circle of 500, 300 off whose centre half a chord is 400, with radials of 1000 - 500. The
// sheet's shift takes the centre from 10 to 50, and its halves keep the points from losing a unit. atan(4 /
// 3) is 53.13010235 degrees.

class EllipseEndsOnCutTest : public EllipseCutTest {
 protected:
  EllipseEndsOnCutTest() {
    state.shiftX = 4000.5;
    state.shiftY = -0.5;
    view.right = 5300;
  }

  std::string DrawCirclePart(double startDegrees, double endDegrees) {
    return Draw(Shape(10, 50, -5, 0, 1) + FromTo(startDegrees, endDegrees));
  }

  static std::string CircleArc(const std::string& start, const std::string& end) {
    return ArcInBox("4500, -5501, 5500, -4501", start, end);
  }

  static constexpr double cutStart = 53.13010235;
  static constexpr double cutEnd = -53.13010235;
  const std::string left = "4500, -5000";
  const std::string atCutStart = "5300, -4600";
  const std::string atCutEnd = "5300, -5400";
};

TEST_F(EllipseEndsOnCutTest, an_end_on_the_cut_stays) {
  EXPECT_EQ(CircleArc(atCutStart, left), DrawCirclePart(cutStart, -180));
  EXPECT_EQ(CircleArc(left, atCutEnd), DrawCirclePart(-180, cutEnd));
  EXPECT_EQ(CircleArc(atCutStart, atCutEnd), DrawCirclePart(cutStart, cutEnd));
}

TEST_F(EllipseEndsOnCutTest, a_part_from_the_cuts_end_has_no_piece_without_length) {
  EXPECT_EQ(CircleArc(atCutStart, left), DrawCirclePart(cutEnd, -180));
}

TEST_F(EllipseEndsOnCutTest, a_part_to_the_cuts_start_has_no_piece_without_length) {
  EXPECT_EQ(CircleArc(left, atCutEnd), DrawCirclePart(-180, cutStart));
}

TEST_F(EllipseEndsOnCutTest, a_part_of_just_what_the_cut_takes_away_is_not_drawn) {
  EXPECT_EQ("", DrawCirclePart(cutEnd, cutStart));
}

TEST_F(EllipseEndsOnCutTest, a_part_all_round_from_the_cut_ends_at_the_cut) {
  EXPECT_EQ(CircleArc(atCutStart, atCutEnd), DrawCirclePart(cutStart, cutStart));
  EXPECT_EQ(CircleArc(atCutStart, atCutEnd), DrawCirclePart(cutEnd, cutEnd));
}

// Dashes.

std::string PlainDashes(int32_t xStart, int32_t yStart, int32_t xEnd, int32_t yEnd) {
  return ListCalls([=](Canvas canvas) {
    const double pattern[] = {300, -200};
    DashEllipse(canvas, 5000, -5000, 4500, -4600, 5501, -5401, xStart, yStart, xEnd, yEnd, 500, -400, 10000,
                5000, black, pattern, 2, 0);
  });
}

TEST_F(EllipseCutTest, a_dashed_ellipse_is_walked_from_cut_to_cut) {
  DefineLtype(4, {300, -200});
  view.right = 5300;
  EXPECT_EQ(PlainDashes(5300, -4680, 5300, -5320), Draw("6 HIDDEN\n" + plainShape + allRound));
}

TEST_F(EllipseCutTest, the_dashes_of_each_piece_are_walked_by_themselves) {
  DefineLtype(4, {300, -200});
  view.right = 5300;
  const std::string groups = "6 HIDDEN\n" + plainShape;
  EXPECT_EQ(PlainDashes(5300, -4680, 500, -5000), Draw(groups + FromTo(0, -180)));
  EXPECT_EQ(PlainDashes(5300, -4680, 5000, -500) + PlainDashes(5000, -9500, 5300, -5320),
            Draw(groups + FromTo(-90, 90)));
}

// Turned sheets: the cut is made before the turn, which takes (x, y) to (20000 - x, -10000 - y).

TEST_F(EllipseCutTest, a_cut_ellipse_is_turned_with_its_sheet) {
  state.rotated = 1;
  view.right = 5300;
  EXPECT_EQ(ArcInBox("14499, -5400, 15499, -4600", "14700, -5320", "14700, -4680"), DrawWhole());
  EXPECT_EQ(ArcInBox("14499, -5400, 15499, -4600", "14700, -5320", "19500, -5000"), DrawPart(0, -180));
}

}  // namespace
}  // namespace hexlume::ellipse_cut_test
