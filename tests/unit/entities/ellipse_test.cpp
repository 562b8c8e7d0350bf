// ELLIPSE in the ENTITIES section, inside the view.

#include "entities/ellipse.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::ellipse_test {
namespace {

// A stroke with the hollow brush, as a whole ellipse is drawn.
std::string Whole(COLORREF color, const std::string& box) {
  std::string calls = InPen(color, "SelectObject(NULL_BRUSH)\nEllipse(" + box + ")\n");
  return calls + "SelectObject(WHITE_BRUSH)\n";
}

std::string Part(COLORREF color, const std::string& box, const std::string& radials) {
  return InPen(color, "Arc(" + box + ", " + radials + ")\n");
}

// Centre, end of the major axis and ratio.
std::string Shape(double centreX, double centreY, double axisX, double axisY, double ratio) {
  return Ends(centreX, centreY, axisX, axisY) + "40 " + std::to_string(ratio) + "\n";
}

// The major axis points left: its box, as it falls out, has its left on the left and its top at the top. L
// = 5000 - 500 = 4500, T = 5000 + 0.8 * 500 - 10000 = -4600, R = 5500, B = -5400.
const std::string plainShape = Shape(50, 50, -5, 0, 0.8);
// R + 1 = 5501 and B - 1 = -5401; the record is smaller by one at the right and the top.
const std::string plainBox = "4500, -5401, 5500, -4601";

const std::string allRound = "41 0\n42 6.28318530718\n";
// A quarter from the axis' end on. With A = 5000 - 500 = 4500 its radials end at (5000 - 4500, 5000) and
// (5000, 5000 - 4500).
const std::string quarter = "41 0\n42 1.57079632675\n";
const std::string quarterRadials = "500, -5000, 5000, -9500";

class EllipseTest : public ConverterTest {
 protected:
  // The listing of one ellipse with these groups, and of nothing after it.
  std::string Draw(const std::string& groups) { return DrawText("0 ELLIPSE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawEllipse({RunOn(canvas)}); });
  }
};

// The box.

TEST_F(EllipseTest, a_whole_ellipse_in_the_view_has_its_right_and_bottom_a_unit_further) {
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + allRound));
}

TEST_F(EllipseTest, with_an_axis_to_the_right_the_box_is_passed_as_it_falls_out) {
  // L = 5500, T = -5400, R + 1 = 4501, B - 1 = -4601.
  EXPECT_EQ(Whole(black, "4501, -5400, 5499, -4602"), Draw(Shape(50, 50, 5, 0, 0.8) + allRound));
}

TEST_F(EllipseTest, an_axis_along_y_stands_upright) {
  // Upward: L = 5000 + 400, T = 5000 - 500 - 10000 = -5500, R + 1 = 4601, B - 1 = -4501.
  EXPECT_EQ(Whole(black, "4601, -5500, 5399, -4502"), Draw(Shape(50, 50, 0, 5, 0.8) + allRound));
  // Downward: L = 4600, T = -4500, R + 1 = 5401, B - 1 = -5501.
  EXPECT_EQ(Whole(black, "4600, -5501, 5400, -4501"), Draw(Shape(50, 50, 0, -5, 0.8) + allRound));
}

TEST_F(EllipseTest, a_slanted_axis_gives_an_axis_parallel_ellipse_of_its_x_part) {
  // L = 4700, T = 5000 + 0.5 * 300 - 10000 = -4850, R + 1 = 5301, B - 1 = -5151.
  EXPECT_EQ(Whole(black, "4700, -5151, 5300, -4851"), Draw(Shape(50, 50, -3, 4, 0.5) + allRound));
}

TEST_F(EllipseTest, an_axis_lies_along_y_up_to_an_x_part_below_a_hundredth) {
  const std::string upright = "4600, -5501, 5400, -4501";
  EXPECT_EQ(Whole(black, upright), Draw(Shape(50, 50, 0.001, -5, 0.8) + allRound));
  EXPECT_EQ(Whole(black, upright), Draw(Shape(50, 50, 0.0099, -5, 0.8) + allRound));
  EXPECT_EQ(Whole(black, upright), Draw(Shape(50, 50, -0.0099, -5, 0.8) + allRound));
  // Half sizes of -1 and 800 * -1: L = 4999, T = -4200, R + 1 = 5002, B - 1 = -5801.
  EXPECT_EQ(Whole(black, "4999, -5801, 5001, -4201"), Draw(Shape(50, 50, -0.01, -5, 800) + allRound));
}

TEST_F(EllipseTest, corners_lose_their_fractions_each_by_itself) {
  // L = 5000.5 - 333.3 = 4667.2, T = 5000.5 + 166.65 - 10000 = -4832.85, R = 5333.8, B = 5000.5 - 166.65
  // - 10000 = -5166.15.
  EXPECT_EQ(Whole(black, "4667, -5167, 5333, -4833"), Draw(Shape(50.005, 50.005, -3.333, 0, 0.5) + allRound));
}

TEST_F(EllipseTest, the_fields_of_the_record_are_those_of_the_section) {
  Draw(plainShape + allRound);
  EXPECT_EQ(5000.0, state.entX[0]);
  EXPECT_EQ(5000.0, state.entY[0]);
  EXPECT_EQ(-500.0, state.entX[1]);
  EXPECT_EQ(0.0, state.entY[1]);
  EXPECT_EQ(0.8, state.entRadius);
  EXPECT_EQ(0.0, state.blockX[0]);
  EXPECT_EQ(0.0, state.blockRadius);
  EXPECT_EQ(0.0, state.dimRadius);
}

TEST_F(EllipseTest, neither_the_inserts_scale_nor_its_angle_counts) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = 1.0;
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + allRound));
}

TEST_F(EllipseTest, without_a_40_it_takes_the_ratio_of_the_entity_before_it) {
  state.entRadius = 0.5;
  // L = 4500, T = 5000 + 250 - 10000 = -4750, R + 1 = 5501, B - 1 = -5251.
  EXPECT_EQ(Whole(black, "4500, -5251, 5500, -4751"), Draw(Ends(50, 50, -5, 0) + allRound));
}

TEST_F(EllipseTest, each_missing_coordinate_comes_from_the_entity_before_it) {
  Draw(plainShape + allRound);
  // Moved to the right, then upward, then narrower.
  EXPECT_EQ(Whole(black, "5500, -5401, 6500, -4601"), Draw("10 60\n" + allRound));
  EXPECT_EQ(Whole(black, "5500, -4401, 6500, -3601"), Draw("20 60\n" + allRound));
  EXPECT_EQ(Whole(black, "5750, -4201, 6250, -3801"), Draw("11 -2.5\n" + allRound));
  // Upright: half sizes of -0.8 * 500 and -500.
  EXPECT_EQ(Whole(black, "5600, -4501, 6400, -3501"), Draw("11 0\n21 -5\n" + allRound));
}

TEST_F(EllipseTest, extrusion_thickness_and_other_codes_are_ignored) {
  EXPECT_EQ(Whole(black, plainBox), Draw("100 AcDbEllipse\n67 1\n39 500\n" + plainShape + allRound +
                                         "30 7\n31 7\n12 5\n22 5\n50 30\n210 0\n220 0\n230 -1\n370 200\n"));
}

TEST_F(EllipseTest, the_width_of_its_layer_does_not_count) {
  AddLayer("WALLS", {0, 0, 3}, 0);
  EXPECT_EQ(Whole(black, plainBox), Draw("8 WALLS\n" + plainShape + allRound));
  EXPECT_EQ(Part(black, plainBox, quarterRadials), Draw("8 WALLS\n" + plainShape + quarter));
}

TEST_F(EllipseTest, the_end_of_the_file_draws_what_it_has) {
  EXPECT_EQ(Whole(black, plainBox), DrawText("0 ELLIPSE\n" + plainShape + allRound));
  EXPECT_EQ(0, result);
}

TEST_F(EllipseTest, the_next_entity_is_left_in_the_buffer) {
  Draw(plainShape + allRound);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

// Layer, colour and line type.

TEST_F(EllipseTest, colours_come_from_the_layer_and_from_group_62) {
  AddLayer("WALLS", {}, 1);
  EXPECT_EQ(Whole(red, plainBox), Draw("8 WALLS\n" + plainShape + allRound));
  EXPECT_EQ(Whole(green, plainBox), Draw("8 WALLS\n62 3\n" + plainShape + allRound));
  EXPECT_EQ(Whole(red, plainBox), Draw("62 3\n8 WALLS\n" + plainShape + allRound));
  EXPECT_EQ(Whole(cyan, plainBox), Draw("62 130\n" + plainShape + allRound));
  EXPECT_EQ(Part(cyan, plainBox, quarterRadials), Draw("62 130\n" + plainShape + quarter));
}

TEST_F(EllipseTest, the_colour_of_the_entity_before_does_not_stay) {
  state.entColor = 5;
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + allRound));
}

TEST_F(EllipseTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Whole(black, plainBox), Draw("62 3\n" + plainShape + allRound));
}

TEST_F(EllipseTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw(plainShape + allRound + "8 WALLS\n62 3\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(EllipseTest, an_excluded_family_draws_nothing) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + plainShape + allRound));
  EXPECT_EQ("", Draw("6 HIDDEN\n" + plainShape + quarter));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + allRound));
}

TEST_F(EllipseTest, a_family_without_a_record_is_solid) {
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(Whole(black, plainBox), Draw("8 DASHES\n" + plainShape + allRound));
  EXPECT_EQ(Part(black, plainBox, quarterRadials), Draw("8 DASHES\n" + plainShape + quarter));
}

// The view: at least one of the corners (L, T) and (R, B) is in it.

TEST_F(EllipseTest, either_of_its_two_corners_in_the_view_is_enough) {
  view = {4400, 4500, 4600, 4700};
  EXPECT_NE("", Draw(plainShape + allRound));
  view = {5400, 5300, 5600, 5500};
  EXPECT_NE("", Draw(plainShape + allRound));
}

TEST_F(EllipseTest, the_other_two_corners_do_not_count) {
  view = {5400, 4500, 5600, 4700};
  EXPECT_EQ("", Draw(plainShape + allRound));
  view = {4400, 5300, 4600, 5500};
  EXPECT_EQ("", Draw(plainShape + allRound));
  // With a negative ratio they are the two that count.
  EXPECT_NE("", Draw(Shape(50, 50, -5, 0, -0.8) + allRound));
}

TEST_F(EllipseTest, corners_on_the_edges_of_the_view_are_inside) {
  view = {4500, 4600, 5500, 5400};
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + allRound));
  view = {4500, 4600, 4600, 4700};
  EXPECT_NE("", Draw(plainShape + allRound));
  view = {5400, 5300, 5500, 5400};
  EXPECT_NE("", Draw(plainShape + allRound));
}

TEST_F(EllipseTest, an_ellipse_around_the_view_is_dropped) {
  view = {4501, 4601, 5499, 5399};
  EXPECT_EQ("", Draw(plainShape + allRound));
  EXPECT_EQ("", Draw(plainShape + quarter));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

// Whole or partial.

TEST_F(EllipseTest, degrees_lose_their_fractions_before_the_test_for_a_whole_one) {
  // 0.1 degrees are 0.0017453 radians, 0.99 are 0.0172788, 360.96 are 6.3.
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + "41 0.0017453\n42 6.28318530718\n"));
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + "41 0.0172788\n42 6.28318530718\n"));
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + "41 -0.0172788\n42 6.28318530718\n"));
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + "41 0\n42 6.3\n"));
}

TEST_F(EllipseTest, a_start_of_a_degree_makes_it_partial) {
  // From the left on, at 1 degree: 5000 - 4500 * 0.99985 = 500.7, -5000 - 4500 * 0.017453 = -5078.5. The end
  // comes out as (500, -5000): 6.28318530718 - pi is pi and 2 * 10^-10 more.
  EXPECT_EQ(Part(black, plainBox, "500, -5078, 500, -5000"),
            Draw(plainShape + "41 0.017453293\n42 6.28318530718\n"));
}

TEST_F(EllipseTest, an_end_at_another_degree_makes_it_partial) {
  // 6.2831 radians are 359.995 degrees, 6.31 are 361.5.
  // 3.1415073: 500.00002, -4999.62. 3.1684073: 501.6, -5120.6.
  EXPECT_EQ(Part(black, plainBox, "500, -5000, 500, -4999"), Draw(plainShape + "41 0\n42 6.2831\n"));
  EXPECT_EQ(Part(black, plainBox, "500, -5000, 501, -5120"), Draw(plainShape + "41 0\n42 6.31\n"));
}

TEST_F(EllipseTest, without_angles_it_starts_and_ends_at_one_point) {
  Draw(plainShape + quarter);
  EXPECT_EQ(Part(black, plainBox, "500, -5000, 500, -5000"), Draw(plainShape));
}

// Partial ellipses. With A = 4500, angles a of 1 and 2 radians after pi or pi / 2: cos 1 = 0.540302, sin 1
// = 0.841471, cos 2 = -0.416147, sin 2 = 0.909297.

const std::string fromOneToTwoAlongX = "41 4.1415926535\n42 5.1415926535\n";
const std::string fromOneToTwoAlongY = "41 2.57079632675\n42 3.57079632675\n";

TEST_F(EllipseTest, a_part_is_bounded_by_radials_as_long_as_axis_and_centre_together) {
  EXPECT_EQ(Part(black, plainBox, quarterRadials), Draw(plainShape + quarter));
  // 5000 + 2431.4, -5000 + 3786.6; 5000 - 1872.7, -5000 + 4091.8.
  EXPECT_EQ(Part(black, plainBox, "7431, -1213, 3127, -908"), Draw(plainShape + fromOneToTwoAlongX));
}

TEST_F(EllipseTest, an_axis_to_the_right_counts_its_angles_from_the_left_too) {
  // A = 5500: 5000 - 5500 and, a quarter on, -5000 - 5500.
  EXPECT_EQ(Part(black, "4501, -5400, 5499, -4602", "-500, -5000, 5000, -10500"),
            Draw(Shape(50, 50, 5, 0, 0.8) + quarter));
}

TEST_F(EllipseTest, an_upright_one_counts_its_angles_from_below) {
  // A = 5000 - 500.
  EXPECT_EQ(Part(black, "4600, -5501, 5400, -4501", "5000, -9500, 9500, -5000"),
            Draw(Shape(50, 50, 0, -5, 0.8) + quarter));
  EXPECT_EQ(Part(black, "4600, -5501, 5400, -4501", "7431, -1213, 3127, -908"),
            Draw(Shape(50, 50, 0, -5, 0.8) + fromOneToTwoAlongY));
}

TEST_F(EllipseTest, each_kind_of_axis_takes_its_own_coordinates_for_the_length) {
  // Along X, A = 6000 - 500 = 5500: 6000 + 2971.7, 2000 + 4628.1 - 10000; 6000 - 2288.8, 2000 + 5001.1 -
  // 10000.
  EXPECT_EQ(Part(black, "5500, -8401, 6500, -7601", "8971, -3371, 3711, -2998"),
            Draw(Shape(60, 20, -5, 7, 0.8) + fromOneToTwoAlongX));
  // Along Y, A = 2000 - 500 = 1500: 6000 + 810.5, -8000 + 1262.2; 6000 - 624.2, -8000 + 1363.9.
  EXPECT_EQ(Part(black, "5600, -8501, 6400, -7501", "6810, -6737, 5375, -6636"),
            Draw(Shape(60, 20, 0, -5, 0.8) + fromOneToTwoAlongY));
}

TEST_F(EllipseTest, a_negative_sum_turns_the_part_by_half_a_turn) {
  view = {-1000, 0, 20000, 10000};
  // A = 200 - 500 = -300: 200 - 162.1, -5000 - 252.4; 200 + 124.8, -5000 - 272.8.
  EXPECT_EQ(Part(black, "-300, -5401, 700, -4601", "37, -5252, 324, -5272"),
            Draw(Shape(2, 50, -5, 0, 0.8) + fromOneToTwoAlongX));
}

TEST_F(EllipseTest, a_sum_of_0_leaves_both_radials_on_the_centre) {
  EXPECT_EQ(Part(black, "0, -5401, 1000, -4601", "500, -5000, 500, -5000"),
            Draw(Shape(5, 50, -5, 0, 0.8) + fromOneToTwoAlongX));
}

// Turned sheets: (x, y) becomes (20000 - x, -10000 - y).

TEST_F(EllipseTest, a_turned_sheet_turns_corners_and_radials) {
  state.rotated = 1;
  // (4500, -4600) and (5501, -5401) become (15500, -5400) and (14499, -4599).
  EXPECT_EQ(Whole(black, "14499, -5400, 15499, -4600"), Draw(plainShape + allRound));
  EXPECT_EQ(Part(black, "14499, -5400, 15499, -4600", "19500, -5000, 15000, -500"),
            Draw(plainShape + quarter));
}

// Dashes: half sizes of 500 and, as B - T is -800, of -400.

std::string PlainDashes(std::initializer_list<double> pattern, const ViewRect& radials, int32_t mirror = 0) {
  return ListCalls([&](Canvas canvas) {
    DashEllipse(canvas, 5000, -5000, 4500, -4600, 5501, -5401, radials.left, radials.top, radials.right,
                radials.bottom, 500, -400, 10000, 5000, red, pattern.begin(),
                static_cast<int32_t>(pattern.size()), mirror);
  });
}

TEST_F(EllipseTest, a_dashed_ellipse_is_walked_all_round) {
  DefineLtype(0, {200, -300});
  DefineLtype(4, {300, -200});
  DefineLtype(6, {300, -100, 50, -100});
  DefineLtype(10, {300, -100, 0, -100, 0, -100});
  const std::string groups = "62 1\n" + plainShape + allRound;
  EXPECT_EQ(PlainDashes({200, -300}, {}), Draw("6 DOT\n" + groups));
  EXPECT_EQ(PlainDashes({300, -200}, {}), Draw("6 HIDDEN\n" + groups));
  EXPECT_EQ(PlainDashes({300, -100, 50, -100}, {}), Draw("6 CENTER\n" + groups));
  EXPECT_EQ(PlainDashes({300, -100, 0, -100, 0, -100}, {}), Draw("6 DIVIDE\n" + groups));
}

TEST_F(EllipseTest, a_dashed_part_is_walked_between_its_radials) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(PlainDashes({300, -200}, {500, -5000, 5000, -9500}),
            Draw("6 HIDDEN\n62 1\n" + plainShape + quarter));
}

TEST_F(EllipseTest, a_dashed_ellipse_is_turned_with_the_sheet) {
  DefineLtype(4, {300, -200});
  state.rotated = 1;
  EXPECT_EQ(PlainDashes({300, -200}, {}, 1), Draw("6 HIDDEN\n62 1\n" + plainShape + allRound));
  EXPECT_EQ(PlainDashes({300, -200}, {500, -5000, 5000, -9500}, 1),
            Draw("6 HIDDEN\n62 1\n" + plainShape + quarter));
}

TEST_F(EllipseTest, the_half_sizes_of_an_axis_to_the_right_are_turned_about) {
  DefineLtype(4, {300, -200});
  // L = 5500, T = -5400, R = 4500, B = -4600: half sizes of -500 and 400.
  const std::string dashes = ListCalls([](Canvas canvas) {
    const double pattern[] = {300, -200};
    DashEllipse(canvas, 5000, -5000, 5500, -5400, 4501, -4601, 0, 0, 0, 0, -500, 400, 10000, 5000, black,
                pattern, 2, 0);
  });
  EXPECT_EQ(dashes, Draw("6 HIDDEN\n" + Shape(50, 50, 5, 0, 0.8) + allRound));
}

// Bad input.

TEST_F(EllipseTest, absurd_numbers_do_no_harm) {
  view = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
  for (const char* number : {"1e300", "-1e300", "1e999", "21474836.47", "-21474836.48", "NAN", ""}) {
    for (const char* code : {"10 ", "11 ", "20 ", "21 ", "40 ", "41 ", "42 "}) {
      Draw(plainShape + quarter + code + number + "\n");
      EXPECT_TRUE(AtGroup(0, "CIRCLE"));
      Draw(plainShape + allRound + code + number + "\n");
      EXPECT_TRUE(AtGroup(0, "CIRCLE"));
    }
  }
}

TEST_F(EllipseTest, an_axis_without_length_gives_a_small_upright_one) {
  // L = R = 5000, T = B = -5000.
  EXPECT_EQ(Whole(black, "5000, -5001, 5000, -5001"), Draw(Shape(50, 50, 0, 0, 0.8) + allRound));
}

}  // namespace
}  // namespace hexlume::ellipse_test
