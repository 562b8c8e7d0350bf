// ARC in a block.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/arc.h"
#include "support/arc_strokes.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::block_arc_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

class BlockArcTest : public ConverterTest {
 protected:
  BlockArcTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    SetInsertLayer("WALLS");
  }

  // The listing of one arc with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 ARC\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawBlockArc({RunOn(canvas), blockOriginX, blockOriginY, insertColor});
    });
  }

  // The listing of the quarter below in dashes.
  std::string Dashed(COLORREF color, int32_t slot, int32_t count, int32_t family) {
    return ListCalls([&](Canvas canvas) {
      const HPEN pen = CreatePen(family, 0, color);
      const HGDIOBJ previousPen = SelectObject(canvas, pen);
      const HGDIOBJ previousBrush = SelectObject(canvas, GetStockObject(NULL_BRUSH));
      DashArc(canvas, 5000, -5000, 1000, -37.0, -90.0, 10000, 5000, color,
              state.ltypes.at(static_cast<size_t>(slot)).dashes, count, 0);
      SelectObject(canvas, previousBrush);
      SelectObject(canvas, previousPen);
      DeleteObject(pen);
    });
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
};

const std::string centre = "10 50\n20 50\n";
const std::string place = centre + "40 10\n";

// From 37 to 127 degrees: it starts at (cos, sin) * 1000 = (798.6, 601.8) from (5000, -5000).
const std::string quarter = place + "50 37\n51 127\n";

std::string QuarterArc(COLORREF color, const std::string& style = "PS_SOLID") {
  return HeldArc(color, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -90)\n", style);
}

// What is left of an arc that is dropped with its pen and brush selected.
std::string Left(const std::string& style, COLORREF color) {
  std::string listing = InPenAndBrush(style, 0, color, "");
  return listing.substr(0, listing.find("SelectObject(WHITE_BRUSH)"));
}

TEST_F(BlockArcTest, it_is_drawn_within_a_pen_and_a_hollow_brush) {
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

// Centre and radius.

TEST_F(BlockArcTest, its_centre_is_scaled_and_moved_and_its_radius_takes_the_x_scale) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // (20 * 200 + 500, 20 * 300 + 1000) = (4500, 7000), radius 10 * 200: 1597.3 and 1203.6.
  EXPECT_EQ(HeldArc(black, "MoveToEx(6097, -1797)\nAngleArc(4500, -3000, 2000, -37, -90)\n"),
            Draw("10 20\n20 20\n40 10\n50 37\n51 127\n"));
}

TEST_F(BlockArcTest, nothing_is_added_to_the_radius) {
  // 999.99995: 797.8 and 601.2 of 999.
  EXPECT_EQ(HeldArc(black, "MoveToEx(5797, -4399)\nAngleArc(5000, -5000, 999, -37, -90)\n"),
            Draw(centre + "40 9.9999995\n50 37\n51 127\n"));
  Draw(quarter);
  EXPECT_EQ(1000.0, state.blockRadius);
}

TEST_F(BlockArcTest, a_negative_x_scale_makes_it_too_small) {
  blockOriginX = 10000.0;
  state.insertScaleX = -1.0;
  EXPECT_EQ("", Draw(quarter));
}

TEST_F(BlockArcTest, a_negative_y_scale_mirrors_its_centre_alone) {
  blockOriginY = 10000.0;
  state.insertScaleY = -1.0;
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

TEST_F(BlockArcTest, its_centre_is_turned_about_the_blocks_origin_and_kept_so) {
  blockOriginX = 5000.0;
  blockOriginY = 1000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (2000, -1000) from the origin becomes (1000, 2000). Y: 3000.5 - 10000 = -6999.5, cut to -6999. The angles
  // gain 90 degrees: 127 to 217, from -601.8 and 798.6.
  EXPECT_EQ(HeldArc(black, "MoveToEx(5399, -6201)\nAngleArc(6000, -6999, 1000, -127, -90)\n"),
            Draw("10 20\n20 -10\n40 10\n50 37\n51 127\n"));
  EXPECT_NEAR(6000.0, state.blockX[0], 1e-6);
  EXPECT_NEAR(3000.0, state.blockY[0], 1e-6);
  EXPECT_EQ(0.0, state.entX[0]);
  EXPECT_EQ(0.0, state.dimX[0]);
}

TEST_F(BlockArcTest, an_arc_without_a_centre_turns_that_of_the_arc_before_once_more) {
  blockOriginX = 5000.0;
  blockOriginY = 5000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = -0.5;
  Draw("10 20\n20 0\n40 10\n50 37\n51 127\n");
  // (2000, 0) from the origin has become (0, 2000) and becomes (-2000, 0).
  EXPECT_EQ(HeldArc(black, "MoveToEx(2399, -4202)\nAngleArc(3000, -5000, 1000, -127, -90)\n"),
            Draw("50 37\n51 127\n"));
}

TEST_F(BlockArcTest, each_missing_number_comes_from_the_block_arc_before_it) {
  Draw(quarter);
  EXPECT_EQ(HeldArc(black, "MoveToEx(6798, -4399)\nAngleArc(6000, -5000, 1000, -37, -90)\n"),
            Draw("10 60\n50 37\n51 127\n"));
  EXPECT_EQ(HeldArc(black, "MoveToEx(6798, -5399)\nAngleArc(6000, -6000, 1000, -37, -90)\n"),
            Draw("20 40\n50 37\n51 127\n"));
  EXPECT_EQ(HeldArc(black, "MoveToEx(7597, -4797)\nAngleArc(6000, -6000, 2000, -37, -90)\n"),
            Draw("40 20\n50 37\n51 127\n"));
}

// Angles.

TEST_F(BlockArcTest, the_inserts_angle_is_added_to_both_angles) {
  blockOriginX = 5000.0;
  blockOriginY = 5000.0;
  state.insertAngle = 0.5;
  // 0.5 is 28.6478898 degrees. 65.6478898 becomes the float 65.6478882, as floats are 7.6 / 10^6 apart there,
  // and 155.6478898 the float 155.6478882, where they are 15 / 10^6 apart. 65.6 degrees: 412.3 and 911.0.
  EXPECT_EQ(HeldArc(black, "MoveToEx(5412, -4089)\nAngleArc(5000, -5000, 1000, -65.6478882, -90)\n"),
            Draw("10 0\n20 0\n40 10\n50 37\n51 127\n"));
}

TEST_F(BlockArcTest, a_sum_above_360_comes_back_by_a_round) {
  blockOriginX = 5000.0;
  blockOriginY = 5000.0;
  state.insertAngle = halfPi;
  // 307 + 90 = 397 is 37. 90 - (360 - 307) = 37, 37 + 90 = 127.
  EXPECT_EQ(QuarterArc(black), Draw("10 0\n20 0\n40 10\n50 307\n51 37\n"));
}

TEST_F(BlockArcTest, a_sum_far_above_360_comes_back_by_one_round_alone) {
  blockOriginX = 5000.0;
  blockOriginY = 5000.0;
  state.insertAngle = halfPi;
  // 667 + 90 = 757 becomes 397, and 847 + 90 = 937 becomes 577: 180 from it.
  EXPECT_EQ(HeldArc(black, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -397, -180)\n"),
            Draw("10 0\n20 0\n40 10\n50 667\n51 847\n"));
}

TEST_F(BlockArcTest, a_sum_of_360_stays) {
  // From 360 to 0 it is 360 - 360 + 0 = 0. Brought back, the start would be 0 and the arc a whole circle.
  EXPECT_EQ(HeldArc(black, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -360, -0)\n"),
            Draw(place + "50 360\n51 0\n"));
  EXPECT_EQ(HeldArc(black, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n"),
            Draw(place + "50 0\n51 360\n"));
}

TEST_F(BlockArcTest, angles_above_360_come_back_without_a_turn_too) {
  // 397 and 487.
  EXPECT_EQ(QuarterArc(black), Draw(place + "50 397\n51 487\n"));
}

TEST_F(BlockArcTest, missing_angles_are_0_and_take_no_turn) {
  blockOriginX = 5000.0;
  blockOriginY = 5000.0;
  state.insertAngle = halfPi;
  EXPECT_EQ(HeldArc(black, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n"),
            Draw("10 0\n20 0\n40 10\n"));
}

TEST_F(BlockArcTest, start_0_and_end_0_make_a_whole_circle) {
  EXPECT_EQ(HeldArc(black, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n"),
            Draw(place + "50 0\n51 0\n"));
}

TEST_F(BlockArcTest, the_points_are_found_by_the_angles_after_they_are_rounded) {
  // -16777217 is between the floats -16777216 and -16777218, and goes to the first: 224 degrees and -46604
  // rounds, at (5000 - 719.3, 5000 - 694.7), which is 5694 down. At 223 degrees it were 4268, 5681.
  view = {4275, 5690, 4285, 5700};
  EXPECT_NE(Left("PS_SOLID", black), Draw(place + "50 -16777217\n51 0\n"));
  view = {4260, 5675, 4274, 5689};
  EXPECT_EQ(Left("PS_SOLID", black), Draw(place + "50 -16777217\n51 0\n"));
}

// Groups 6, 8, 39 and 62.

TEST_F(BlockArcTest, code_6_takes_whole_names_in_any_case_with_a_record) {
  DefineLtype(2, {300, -200});
  EXPECT_EQ(Dashed(black, 2, 2, 1), Draw("6 Dashed\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("6 MY_DASHED_LINE\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("6 HIDDEN\n" + quarter));
}

TEST_F(BlockArcTest, each_family_walks_its_elements) {
  DefineLtype(0, {0, -200, 50, -50, 50, -50});
  DefineLtype(7, {300, -100, 50, -100, 40, -40});
  DefineLtype(11, {300, -100, 100, -50, 50, -50});
  EXPECT_EQ(Dashed(black, 0, 2, 2), Draw("6 DOT\n" + quarter));
  EXPECT_EQ(Dashed(black, 7, 4, 3), Draw("6 CENTER2\n" + quarter));
  EXPECT_EQ(Dashed(black, 11, 6, 4), Draw("6 PHANTOM\n" + quarter));
}

TEST_F(BlockArcTest, a_name_other_than_continuous_clears_the_layers_family) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(Dashed(black, 4, 2, 1), Draw("8 DASHES\n6 Continuous\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("8 DASHES\n6 CONTINUOS\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("8 DASHES\n6 BYLAYER\n" + quarter));
}

TEST_F(BlockArcTest, by_block_lets_colour_0_keep_the_layers_colour) {
  EXPECT_EQ(QuarterArc(blue), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + quarter));
  EXPECT_EQ(QuarterArc(blue), Draw("8 DOORS\n6 ByBlock\n62 0\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("8 DOORS\n6 byblock\n62 0\n" + quarter));
}

TEST_F(BlockArcTest, layer_0_takes_the_inserts_colour_and_the_style_of_its_layer) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 2}, 1);
  EXPECT_EQ(QuarterArc(magenta), Draw("8 0\n" + quarter));
  SetInsertLayer("DASHES");
  EXPECT_EQ(Dashed(magenta, 4, 2, 1), Draw("8 0\n" + quarter));
}

TEST_F(BlockArcTest, layer_0_of_an_insert_on_an_unknown_layer_is_nearly_black) {
  SetInsertLayer("GONE");
  EXPECT_EQ(QuarterArc(countColor), Draw("8 0\n" + quarter));
}

TEST_F(BlockArcTest, another_layer_gives_its_own_colour_and_no_width) {
  EXPECT_EQ(QuarterArc(blue), Draw("8 DOORS\n" + quarter));
}

TEST_F(BlockArcTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + quarter));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(BlockArcTest, code_39_is_ignored) {
  EXPECT_EQ(QuarterArc(black), Draw("39 500\n" + quarter));
}

TEST_F(BlockArcTest, an_extrusion_changes_nothing) {
  EXPECT_EQ(QuarterArc(black), Draw(quarter + "210 0\n220 0\n230 -1\n"));
}

TEST_F(BlockArcTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(QuarterArc(cyan), Draw("8 DOORS\n62 130\n" + quarter));
}

TEST_F(BlockArcTest, colour_0_is_black_or_the_inserts_with_the_inherit_flag) {
  EXPECT_EQ(QuarterArc(black), Draw("8 DOORS\n62 0\n" + quarter));
  EXPECT_EQ(QuarterArc(magenta), Draw("8 0\n62 0\n" + quarter));
}

TEST_F(BlockArcTest, on_an_insert_of_layer_0_colour_0_takes_the_inserts_colour_with_the_flag_alone) {
  SetInsertLayer("0");
  EXPECT_EQ(QuarterArc(magenta), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("8 DOORS\n62 0\n" + quarter));
}

TEST_F(BlockArcTest, the_colour_is_kept_in_block_color_and_starts_at_0) {
  state.entColor = 4;
  state.dimColor = 4;
  Draw("62 1\n" + quarter);
  EXPECT_EQ(1, state.blockColor);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

// Filter, monochrome and the end of the groups.

TEST_F(BlockArcTest, an_excluded_family_is_not_drawn_and_leaves_no_pen) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + quarter));
  EXPECT_EQ(1, result);
}

TEST_F(BlockArcTest, with_monochrome_on_every_arc_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(QuarterArc(black), Draw("8 0\n" + quarter));
}

TEST_F(BlockArcTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(quarter);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(BlockArcTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(QuarterArc(red), DrawText("0 ARC\n62 1\n" + quarter));
  EXPECT_EQ(0, result);
}

// Its size, before there is a pen.

TEST_F(BlockArcTest, a_circle_of_less_than_3_units_is_dropped) {
  // A radius of 1 reaches from 4999 to 5001, and one of 1.5 from 4998.5, cut to 4998, to 5001.5.
  EXPECT_EQ("", Draw(centre + "40 0.01\n50 37\n51 127\n"));
  EXPECT_EQ(1, result);
  EXPECT_EQ(HeldArc(black, "MoveToEx(5000, -5000)\nAngleArc(5000, -5000, 1, -37, -90)\n"),
            Draw(centre + "40 0.015\n50 37\n51 127\n"));
}

TEST_F(BlockArcTest, both_its_width_and_its_height_count) {
  // About 5000.5 with a radius of 1.25: from 4999.25 to 5001.75, cut to 4999 and 5001, two units wide. From
  // -4998.5 to -5001, cut to -4998 and -5001, it is three high.
  state.shiftY = 0.25;
  EXPECT_EQ("", Draw("10 50.005\n20 50\n40 0.0125\n50 37\n51 127\n"));
  // About 5000: from 4998.75 to 5001.25, cut to 4998 and 5001, three wide. From -4999 to -5001.5, cut to
  // -5001, it is two high.
  state.shiftY = -0.25;
  EXPECT_EQ("", Draw("10 50\n20 50\n40 0.0125\n50 37\n51 127\n"));
}

// The view.

TEST_F(BlockArcTest, an_arc_that_starts_outside_the_view_is_dropped_with_pen_and_brush_left_selected) {
  // The start is at 5798, 4398 down, the end at 4398, 4201 down.
  view = {4000, 4000, 4500, 4300};
  EXPECT_EQ("CreatePen(1, PS_SOLID, 0, 0x0000FF)\nSelectObject(1)\nSelectObject(NULL_BRUSH)\n",
            Draw("62 1\n" + quarter));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(BlockArcTest, the_pen_left_selected_has_its_family_as_its_style) {
  DefineLtype(7, {300, -100, 0, -100});
  view = {0, 0, 100, 100};
  EXPECT_EQ(Left("PS_DASHDOT", black), Draw("6 CENTER2\n" + quarter));
}

TEST_F(BlockArcTest, an_arc_that_starts_in_the_view_is_drawn_wherever_it_ends) {
  view = {5000, 4300, 6000, 5000};
  // The cut by the top edge, at 700 of 1000 above the centre, overwrites that by the left.
  EXPECT_NE(std::string::npos, Draw(quarter).find("AngleArc"));
}

TEST_F(BlockArcTest, the_edges_of_the_view_count_in) {
  view = {5798, 4398, 5798, 4398};
  EXPECT_NE(std::string::npos, Draw(quarter).find("AngleArc"));
  view = {5799, 4398, 5799, 4398};
  EXPECT_EQ(Left("PS_SOLID", black), Draw(quarter));
}

// The cut.

TEST_F(BlockArcTest, it_is_always_cut) {
  view = {0, 0, 5500, 10000};
  // From 270 over 0 to 90, which is 450. The right edge leaves 60 to 300: 30 from its start.
  EXPECT_EQ(HeldArc(black, "MoveToEx(5000, -6000)\nAngleArc(5000, -5000, 1000, -270, -30)\n"),
            Draw(place + "50 270\n51 90\n"));
}

TEST_F(BlockArcTest, the_radius_of_the_cut_is_the_scaled_one) {
  state.insertScaleX = 2.0;
  view = {0, 0, 11000, 10000};
  // About (10000, -5000), radius 2000: a cap of 1000 is half of it.
  EXPECT_EQ(HeldArc(black, "MoveToEx(10000, -7000)\nAngleArc(10000, -5000, 2000, -270, -30)\n"),
            Draw(place + "50 270\n51 90\n"));
}

// The turned sheet, and the system whose arcs run clockwise.

TEST_F(BlockArcTest, on_a_turned_sheet_the_arc_is_turned) {
  state.rotated = 1;
  EXPECT_EQ(HeldArc(black, "MoveToEx(14202, -5601)\nAngleArc(15000, -5000, 1000, 143, -90)\n"),
            Draw(quarter));
}

// The box of 4000 to 6000, and the ends at (5798.6, -4398.2) and (4398.2, -4201.4).
const std::string arcCall = "Arc(4000, -6001, 6000, -4001, 5798, -4398, 4398, -4201)\n";

TEST_F(BlockArcTest, on_the_clockwise_system_gdi_draws_it_in_the_pens_style) {
  state.arcClockwise = 1;
  DefineLtype(4, {300, -200});
  state.rotated = 1;
  EXPECT_EQ(InPenAndBrush("PS_DASH", 0, black, arcCall), Draw("6 HIDDEN\n" + quarter));
}

TEST_F(BlockArcTest, on_the_clockwise_system_both_ends_must_lie_in_the_view) {
  state.arcClockwise = 1;
  view = {4000, 4000, 5800, 4400};
  EXPECT_EQ(InPenAndBrush("PS_SOLID", 0, black, arcCall), Draw(quarter));
  view = {5000, 4000, 5800, 4400};
  EXPECT_EQ(Left("PS_SOLID", black), Draw(quarter));
  view = {4000, 4000, 5000, 4400};
  EXPECT_EQ(Left("PS_SOLID", black), Draw(quarter));
}

}  // namespace
}  // namespace hexlume::block_arc_test
