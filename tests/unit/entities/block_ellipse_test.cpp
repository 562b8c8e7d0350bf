// ELLIPSE in a block.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "driver/group_reader.h"
#include "entities/ellipse.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::block_ellipse_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

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

// L = 4500, T = -4600, R = 5500, B = -5400 about (5000, -5000).
const std::string plainShape = Shape(50, 50, -5, 0, 0.8);
const std::string plainBox = "4500, -5401, 5500, -4601";  // as recorded, of the corners R + 1 and B - 1

const std::string allRound = "41 0\n42 6.28318530718\n";
// Down from the left. With A = 5000 - 500 = 4500 its radials end 4500 from the centre.
const std::string quarter = "41 0\n42 1.57079632675\n";
const std::string quarterRadials = "500, -5000, 5000, -9500";
// From the bottom through the right to the top, with the same radials.
const std::string rightHalf = "41 1.57079632675\n42 4.71238898025\n";

class BlockEllipseTest : public ConverterTest {
 protected:
  BlockEllipseTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    SetInsertLayer("WALLS");
  }

  // The listing of one ellipse with these groups, and of nothing after it.
  std::string Draw(const std::string& groups) { return DrawText("0 ELLIPSE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawBlockEllipse({RunOn(canvas), blockOriginX, blockOriginY, insertColor, byBlockFlag});
    });
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
  int32_t byBlockFlag = 0;
};

// Coordinates.

TEST_F(BlockEllipseTest, an_unscaled_one_is_drawn_like_that_of_the_section) {
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + allRound));
  EXPECT_EQ(Part(black, plainBox, quarterRadials), Draw(plainShape + quarter));
}

TEST_F(BlockEllipseTest, the_axis_is_scaled_and_the_centre_moved_as_well) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 0.5;
  // Centre (50 * 200 + 500, 50 * 50 + 1000), half sizes -1000 and, by the ratio alone, -800: L = 9500, T =
  // 3500
  // + 800 - 10000 = -5700, R + 1 = 11501, B - 1 = -7301.
  EXPECT_EQ(Whole(black, "9500, -7301, 11500, -5701"), Draw(plainShape + allRound));
  // Half sizes 0.8 * -250 and -250: L = 10300, T = 3500 + 250 - 10000, R + 1 = 10701, B - 1 = -6751.
  EXPECT_EQ(Whole(black, "10300, -6751, 10700, -6251"), Draw(Shape(50, 50, 0, -5, 0.8) + allRound));
}

TEST_F(BlockEllipseTest, the_scaled_axis_tells_whether_it_lies_along_x) {
  state.insertScaleX = 0.01;
  // 0.9 * 100 * 0.01 = 0.9. Half sizes 0.8 * -500 and -500 about (50, 5000): L = -350, R + 1 = 451.
  view.left = -1000;
  EXPECT_EQ(Whole(black, "-350, -5501, 450, -4501"), Draw(Shape(50, 50, -0.9, -5, 0.8) + allRound));
}

TEST_F(BlockEllipseTest, its_centre_is_turned_and_its_axis_is_not) {
  blockOriginX = 5000.0;
  blockOriginY = 1000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = -0.5;
  // (4000, 2000) from the origin becomes (-2000, 4000): the centre is (3000, 5000).
  const std::string box = "2500, -5401, 3500, -4601";
  EXPECT_EQ(Whole(black, box), Draw(Shape(40, 20, -5, 0, 0.8) + allRound));
  // A = 3000 - 500 = 2500, of the turned centre; the angles aren't turned.
  EXPECT_EQ(Part(black, box, "500, -5000, 3000, -7500"), Draw(Shape(40, 20, -5, 0, 0.8) + quarter));
  // Upright: A = 5000 - 500 = 4500.
  EXPECT_EQ(Part(black, "2600, -5501, 3400, -4501", "3000, -9500, 7500, -5000"),
            Draw(Shape(40, 20, 0, -5, 0.8) + quarter));
}

TEST_F(BlockEllipseTest, half_a_turn_takes_its_centre_to_the_other_side_of_the_origin) {
  blockOriginX = 9000.0;
  blockOriginY = 6000.0;
  state.insertAngle = pi;
  state.shiftX = 0.5;
  state.shiftY = -0.5;
  // (4000, 2000) from the origin becomes (-4000, -2000): the centre is (5000, 4000).
  EXPECT_EQ(Whole(black, "4500, -6401, 5500, -5601"), Draw(Shape(40, 20, -5, 0, 0.8) + allRound));
}

TEST_F(BlockEllipseTest, the_fields_of_the_record_are_those_of_the_block_with_the_turned_centre) {
  blockOriginX = 500.0;
  state.insertScaleX = 2.0;
  state.insertAngle = halfPi;
  Draw(Shape(50, 50, -5, 1, 0.8) + allRound);
  // (10000, 5000) from the origin (500, 0) becomes (-5000, 10000). A right angle of a short pi is 1e-6 off.
  EXPECT_NEAR(-4500.0, state.blockX[0], 1e-5);
  EXPECT_NEAR(10000.0, state.blockY[0], 1e-5);
  EXPECT_EQ(-1000.0, state.blockX[1]);
  EXPECT_EQ(100.0, state.blockY[1]);
  EXPECT_EQ(0.8, state.blockRadius);
  EXPECT_EQ(0.0, state.entX[0]);
  EXPECT_EQ(0.0, state.entRadius);
  EXPECT_EQ(0.0, state.dimRadius);
}

TEST_F(BlockEllipseTest, without_a_centre_the_next_one_turns_the_turned_centre_again) {
  blockOriginX = 9000.0;
  blockOriginY = 6000.0;
  state.insertAngle = pi;
  state.shiftX = 0.5;
  state.shiftY = -0.5;
  // (4000, 2000) from the origin becomes (-4000, -2000), and (4000, 2000) the next time: 13000, 8000.
  Draw(Shape(40, 20, -5, 0, 0.8) + allRound);
  EXPECT_EQ(Whole(black, "12500, -2401, 13500, -1601"), Draw("11 -5\n21 0\n40 0.8\n" + allRound));
}

TEST_F(BlockEllipseTest, each_missing_group_comes_from_the_block_entity_before_it) {
  Draw(plainShape + allRound);
  EXPECT_EQ(Whole(black, "5500, -5401, 6500, -4601"), Draw("10 60\n" + allRound));
  EXPECT_EQ(Whole(black, "5500, -4401, 6500, -3601"), Draw("20 60\n" + allRound));
  EXPECT_EQ(Whole(black, "5750, -4201, 6250, -3801"), Draw("11 -2.5\n" + allRound));
  EXPECT_EQ(Whole(black, "5600, -4501, 6400, -3501"), Draw("11 0\n21 -5\n" + allRound));
  // Half sizes 0.4 * -500 and -500.
  EXPECT_EQ(Whole(black, "5800, -4501, 6200, -3501"), Draw("40 0.4\n" + allRound));
}

TEST_F(BlockEllipseTest, extrusion_thickness_and_other_codes_are_ignored) {
  EXPECT_EQ(Whole(black, plainBox), Draw("39 500\n67 1\n" + plainShape + allRound +
                                         "30 7\n31 7\n12 5\n50 30\n210 0\n220 0\n230 -1\n"));
}

TEST_F(BlockEllipseTest, the_flag_of_its_insert_is_not_read) {
  byBlockFlag = 1;
  EXPECT_EQ(Whole(blue, plainBox), Draw("8 DOORS\n" + plainShape + allRound));
  EXPECT_EQ(Whole(black, plainBox), Draw("8 DOORS\n62 0\n" + plainShape + allRound));
}

// Whole and partial, view and cut.

TEST_F(BlockEllipseTest, degrees_lose_their_fractions_before_the_test_for_a_whole_one) {
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + "41 0.0017453\n42 6.28318530718\n"));
  EXPECT_EQ(Part(black, plainBox, "500, -5078, 500, -5000"),
            Draw(plainShape + "41 0.017453293\n42 6.28318530718\n"));
}

TEST_F(BlockEllipseTest, without_a_corner_in_the_view_it_is_dropped) {
  view = {4501, 4601, 5499, 5399};
  EXPECT_EQ("", Draw(plainShape + allRound));
  EXPECT_EQ("", Draw(plainShape + quarter));
  view = {4400, 4500, 4600, 4700};
  EXPECT_NE("", Draw(plainShape + allRound));
  view = {5400, 5300, 5600, 5500};
  EXPECT_NE("", Draw(plainShape + allRound));
}

TEST_F(BlockEllipseTest, a_whole_one_is_cut_to_the_view) {
  // 300 off the centre: 400 * 0.8.
  view.right = 5300;
  EXPECT_EQ(Part(black, plainBox, "5300, -4680, 5300, -5320"), Draw(plainShape + allRound));
  view.bottom = 5300;
  EXPECT_EQ(Part(black, plainBox, "5320, -5300, 4680, -5300"), Draw(plainShape + allRound));
}

TEST_F(BlockEllipseTest, a_part_is_cut_to_the_view) {
  view.right = 5300;
  EXPECT_EQ(Part(black, plainBox, quarterRadials), Draw(plainShape + quarter));
  EXPECT_EQ(
      Part(black, plainBox, "5300, -4680, 5000, -500") + Part(black, plainBox, "5000, -9500, 5300, -5320"),
      Draw(plainShape + rightHalf));
}

// At each edge, on either side of the centre: the start beyond it; the end; both, whatever is between them;
// both in the view with the edge in between.

class BlockEllipseEdgeTest : public BlockEllipseTest {
 protected:
  struct Edge {
    ViewRect view;
    std::string cutStart, cutEnd;
    double towardsView;  // in degrees counter-clockwise from the right
  };

  // A part between two directions, counted from the one towards the middle of what the cut leaves.
  std::string DrawPart(const Edge& edge, double startDegrees, double endDegrees) {
    view = edge.view;
    char groups[80];
    std::snprintf(groups, sizeof groups, "41 %.11f\n42 %.11f\n",
                  pi * (edge.towardsView + startDegrees + 180.0) / 180.0,
                  pi * (edge.towardsView + endDegrees + 180.0) / 180.0);
    return Draw(plainShape + groups);
  }

  // Where the radial of 4500 in one of the four directions ends.
  static std::string Radial(double degrees) {
    const int32_t quarters = static_cast<int32_t>(degrees + 720.0) / 90 % 4;
    const char* const ends[] = {"9500, -5000", "5000, -500", "500, -5000", "5000, -9500"};
    return ends[quarters];
  }

  void ExpectCutParts(const Edge& edge) {
    const auto arc = [](const std::string& start, const std::string& end) {
      return Part(black, plainBox, start + ", " + end);
    };
    const std::string middle = Radial(edge.towardsView);
    const std::string whatIsLeft = arc(edge.cutStart, edge.cutEnd);
    EXPECT_EQ(arc(edge.cutStart, middle), DrawPart(edge, 180, 0));
    EXPECT_EQ(arc(middle, edge.cutEnd), DrawPart(edge, 0, 180));
    EXPECT_EQ(whatIsLeft, DrawPart(edge, 160, -160));
    EXPECT_EQ(whatIsLeft, DrawPart(edge, -160, 160));
    EXPECT_EQ(arc(edge.cutStart, middle) + arc(middle, edge.cutEnd), DrawPart(edge, 0, 0));
  }
};

// An edge 300 off the centre cuts half a chord of 320: see the plain shape.

TEST_F(BlockEllipseEdgeTest, a_part_across_the_right_edge) {
  ExpectCutParts({{0, 0, 5300, 10000}, "5300, -4680", "5300, -5320", -180});
  ExpectCutParts({{0, 0, 4700, 10000}, "4700, -4680", "4700, -5320", -180});
}

TEST_F(BlockEllipseEdgeTest, a_part_across_the_left_edge) {
  ExpectCutParts({{4700, 0, 20000, 10000}, "4700, -5320", "4700, -4680", 0});
  ExpectCutParts({{5300, 0, 20000, 10000}, "5300, -5320", "5300, -4680", 0});
}

TEST_F(BlockEllipseEdgeTest, a_part_across_the_top_edge) {
  ExpectCutParts({{0, 4700, 20000, 10000}, "4680, -4700", "5320, -4700", -90});
  ExpectCutParts({{0, 5300, 20000, 10000}, "4680, -5300", "5320, -5300", -90});
}

TEST_F(BlockEllipseEdgeTest, a_part_across_the_bottom_edge) {
  ExpectCutParts({{0, 0, 20000, 5300}, "5320, -5300", "4680, -5300", 90});
  ExpectCutParts({{0, 0, 20000, 4700}, "5320, -4700", "4680, -4700", 90});
}

// The direction of arcs.

TEST_F(BlockEllipseTest, where_arcs_had_to_be_told_their_direction_a_part_has_no_pen_of_its_own) {
  state.arcClockwise = 1;
  EXPECT_EQ("Arc(" + plainBox + ", " + quarterRadials + ")\n", Draw("62 1\n" + plainShape + quarter));
}

TEST_F(BlockEllipseTest, there_the_pieces_of_a_cut_part_have_none_either) {
  state.arcClockwise = 1;
  view.right = 5300;
  EXPECT_EQ(
      "Arc(" + plainBox + ", 5300, -4680, 5000, -500)\nArc(" + plainBox + ", 5000, -9500, 5300, -5320)\n",
      Draw(plainShape + rightHalf));
}

TEST_F(BlockEllipseTest, there_a_part_is_not_turned_with_its_sheet) {
  state.arcClockwise = 1;
  state.rotated = 1;
  EXPECT_EQ("Arc(" + plainBox + ", " + quarterRadials + ")\n", Draw(plainShape + quarter));
}

TEST_F(BlockEllipseTest, there_a_whole_one_is_drawn_as_ever) {
  state.arcClockwise = 1;
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + allRound));
  view.right = 5300;
  EXPECT_EQ(Part(black, plainBox, "5300, -4680, 5300, -5320"), Draw(plainShape + allRound));
}

TEST_F(BlockEllipseTest, only_1_counts_as_told) {
  state.arcClockwise = 2;
  EXPECT_EQ(Part(black, plainBox, quarterRadials), Draw(plainShape + quarter));
}

// Turned sheets: (x, y) becomes (20000 - x, -10000 - y).

TEST_F(BlockEllipseTest, a_turned_sheet_turns_corners_and_radials) {
  state.rotated = 1;
  EXPECT_EQ(Whole(black, "14499, -5400, 15499, -4600"), Draw(plainShape + allRound));
  EXPECT_EQ(Part(black, "14499, -5400, 15499, -4600", "19500, -5000, 15000, -500"),
            Draw(plainShape + quarter));
}

// Line types.

std::string PlainDashes(const ViewRect& radials) {
  return ListCalls([&radials](Canvas canvas) {
    const double pattern[] = {300, -200};
    DashEllipse(canvas, 5000, -5000, 4500, -4600, 5501, -5401, radials.left, radials.top, radials.right,
                radials.bottom, 500, -400, 10000, 5000, black, pattern, 2, 0);
  });
}

TEST_F(BlockEllipseTest, code_6_takes_whole_names_in_any_case_with_a_record) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(PlainDashes({}), Draw("6 HIDDEN\n" + plainShape + allRound));
  EXPECT_EQ(PlainDashes({}), Draw("6 Hidden\n" + plainShape + allRound));
  EXPECT_EQ(PlainDashes({500, -5000, 5000, -9500}), Draw("6 Hidden\n" + plainShape + quarter));
  EXPECT_EQ(Whole(black, plainBox), Draw("6 MY_HIDDEN\n" + plainShape + allRound));
  EXPECT_EQ(Whole(black, plainBox), Draw("6 DASHED\n" + plainShape + allRound));
}

TEST_F(BlockEllipseTest, where_arcs_had_to_be_told_their_direction_a_part_has_no_dashes) {
  DefineLtype(4, {300, -200});
  DefineLtype(5, {300, -200, 0, -200});
  DefineLtype(9, {300, -200, 0, -200, 0, -200});
  state.arcClockwise = 1;
  const std::string arc = "Arc(" + plainBox + ", " + quarterRadials + ")\n";
  EXPECT_EQ(arc, Draw("6 HIDDEN\n" + plainShape + quarter));
  EXPECT_EQ(arc, Draw("6 DASHDOT\n" + plainShape + quarter));
  EXPECT_EQ(arc, Draw("6 DASHDOTDOT\n" + plainShape + quarter));
  view.right = 5300;
  EXPECT_EQ(
      "Arc(" + plainBox + ", 5300, -4680, 5000, -500)\nArc(" + plainBox + ", 5000, -9500, 5300, -5320)\n",
      Draw("6 HIDDEN\n" + plainShape + rightHalf));
}

TEST_F(BlockEllipseTest, there_a_whole_one_has_its_dashes) {
  DefineLtype(4, {300, -200});
  state.arcClockwise = 1;
  EXPECT_EQ(PlainDashes({}), Draw("6 HIDDEN\n" + plainShape + allRound));
}

TEST_F(BlockEllipseTest, a_name_other_than_continuous_clears_the_layers_family) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(PlainDashes({}), Draw("8 DASHES\n6 Continuous\n" + plainShape + allRound));
  EXPECT_EQ(Whole(black, plainBox), Draw("8 DASHES\n6 BYLAYER\n" + plainShape + allRound));
}

TEST_F(BlockEllipseTest, an_excluded_family_draws_nothing) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + plainShape + allRound));
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  ExcludeFamily(0);
  EXPECT_EQ("", Draw(plainShape + allRound));
}

// Layer and colour.

TEST_F(BlockEllipseTest, layer_0_takes_the_inserts_colour) {
  EXPECT_EQ(Whole(magenta, plainBox), Draw("8 0\n" + plainShape + allRound));
  EXPECT_EQ(Part(magenta, plainBox, quarterRadials), Draw("8 0\n" + plainShape + quarter));
}

TEST_F(BlockEllipseTest, layer_0_of_an_insert_on_an_unknown_layer_is_nearly_black) {
  SetInsertLayer("GONE");
  EXPECT_EQ(Whole(countColor, plainBox), Draw("8 0\n" + plainShape + allRound));
}

TEST_F(BlockEllipseTest, another_layer_gives_its_own_colour) {
  EXPECT_EQ(Whole(blue, plainBox), Draw("8 DOORS\n" + plainShape + allRound));
}

TEST_F(BlockEllipseTest, without_any_layer_or_colour_it_is_black) {
  state.blockColor = 5;
  EXPECT_EQ(Whole(black, plainBox), Draw(plainShape + allRound));
}

TEST_F(BlockEllipseTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(Whole(cyan, plainBox), Draw("8 0\n62 130\n" + plainShape + allRound));
  EXPECT_EQ(Whole(green, plainBox), Draw("8 DOORS\n62 3\n" + plainShape + allRound));
}

TEST_F(BlockEllipseTest, colour_0_keeps_the_colour_with_the_inherit_flag_alone) {
  EXPECT_EQ(Whole(magenta, plainBox), Draw("8 0\n62 0\n" + plainShape + allRound));
  EXPECT_EQ(Whole(black, plainBox), Draw("8 DOORS\n62 0\n" + plainShape + allRound));
  EXPECT_EQ(Whole(blue, plainBox), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + plainShape + allRound));
}

TEST_F(BlockEllipseTest, on_an_insert_of_layer_0_colour_0_takes_the_inserts_colour_with_the_flag_alone) {
  SetInsertLayer("0");
  EXPECT_EQ(Whole(magenta, plainBox), Draw("8 DOORS\n6 ByBlock\n62 0\n" + plainShape + allRound));
  EXPECT_EQ(Whole(black, plainBox), Draw("8 DOORS\n62 0\n" + plainShape + allRound));
}

TEST_F(BlockEllipseTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Whole(black, plainBox), Draw("8 0\n" + plainShape + allRound));
  EXPECT_EQ(Whole(black, plainBox), Draw("62 3\n" + plainShape + allRound));
}

TEST_F(BlockEllipseTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw(plainShape + allRound + "8 DOORS\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
}

TEST_F(BlockEllipseTest, layer_0_is_excluded_with_the_inserts_layer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + plainShape + allRound));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(BlockEllipseTest, the_end_of_the_file_draws_what_it_has) {
  EXPECT_EQ(Whole(black, plainBox), DrawText("0 ELLIPSE\n" + plainShape + allRound));
  EXPECT_EQ(0, result);
}

TEST_F(BlockEllipseTest, the_next_entity_is_left_in_the_buffer) {
  Draw(plainShape + allRound);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

}  // namespace
}  // namespace hexlume::block_ellipse_test
