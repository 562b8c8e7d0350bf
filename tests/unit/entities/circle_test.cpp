// CIRCLE in the ENTITIES section and in a dimension's block, uncut.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/circle.h"
#include "support/arc_strokes.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::circle_test {
namespace {

class CircleTest : public ConverterTest {
 protected:
  // The listing of one circle with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 CIRCLE\n" + groups + "0 ARC\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawCircle({RunOn(canvas), offsetX, offsetY}); });
  }

  // The listing of the whole circle of centre (5000, -5000) and radius 1000 in dashes.
  std::string Dashed(COLORREF color, int32_t slot, int32_t count, int32_t mirror = 0) {
    return ListCalls([&](Canvas canvas) {
      DashArc(canvas, 5000, -5000, 1000, -0.0, -360.0, 10000, 5000, color,
              state.ltypes.at(static_cast<size_t>(slot)).dashes, count, mirror);
    });
  }

  double offsetX = 0.0;
  double offsetY = 0.0;
};

const std::string centre = "10 50\n20 50\n";
const std::string circle = centre + "40 10\n";

std::string WholeCircle(COLORREF color) {
  return InPen(color, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n");
}

// Its box of 4000 to 6000 across and -4000 to -6000 on the sheet, widened by one to the right and downward.
// The record has it sorted, and smaller by one at the right and the top.
const std::string ellipseCall = "Ellipse(4000, -6001, 6000, -4001)\n";

TEST_F(CircleTest, it_is_a_round_in_a_pen_of_its_own_with_none_around_it) {
  EXPECT_EQ(WholeCircle(black), Draw(circle));
}

// Centre and radius.

TEST_F(CircleTest, the_offset_moves_its_centre) {
  offsetX = 300.0;
  offsetY = -200.0;
  EXPECT_EQ(InPen(black, "MoveToEx(6300, -5200)\nAngleArc(5300, -5200, 1000, -0, -360)\n"), Draw(circle));
  EXPECT_EQ(5300.0, state.entX[0]);
  EXPECT_EQ(4800.0, state.entY[0]);
}

TEST_F(CircleTest, nothing_is_added_to_the_radius) {
  // 9.9999995 is 999.99995 in hundredths.
  EXPECT_EQ(InPen(black, "MoveToEx(5999, -5000)\nAngleArc(5000, -5000, 999, -0, -360)\n"),
            Draw(centre + "40 9.9999995\n"));
  Draw(circle);
  EXPECT_EQ(1000.0, state.entRadius);
}

TEST_F(CircleTest, each_missing_number_comes_from_the_circle_before_it) {
  Draw(circle);
  EXPECT_EQ(InPen(black, "MoveToEx(7000, -5000)\nAngleArc(6000, -5000, 1000, -0, -360)\n"), Draw("10 60\n"));
  EXPECT_EQ(InPen(black, "MoveToEx(7000, -6000)\nAngleArc(6000, -6000, 1000, -0, -360)\n"), Draw("20 40\n"));
  EXPECT_EQ(InPen(black, "MoveToEx(8000, -6000)\nAngleArc(6000, -6000, 2000, -0, -360)\n"), Draw("40 20\n"));
}

TEST_F(CircleTest, centre_and_radius_are_scaled_to_the_sheet_and_lose_their_fractions) {
  state.drawScale = 3.0;
  // 1666.7, 1666.7 - 10000 = -8333.3 and 333.3.
  EXPECT_EQ(InPen(black, "MoveToEx(1999, -8333)\nAngleArc(1666, -8333, 333, -0, -360)\n"), Draw(circle));
}

TEST_F(CircleTest, the_inserts_scale_and_angle_do_not_count) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = halfPi;
  EXPECT_EQ(WholeCircle(black), Draw(circle));
}

TEST_F(CircleTest, a_radius_of_0_is_drawn_at_its_centre) {
  EXPECT_EQ(InPen(black, "MoveToEx(5000, -5000)\nAngleArc(5000, -5000, 0, -0, -360)\n"),
            Draw(centre + "40 0\n"));
}

TEST_F(CircleTest, a_negative_radius_goes_to_the_system_as_it_is) {
  // 2^32 - 1000 for the system. The box is turned over: no edge of the view cuts it.
  EXPECT_EQ(InPen(black, "MoveToEx(4000, -5000)\nAngleArc(5000, -5000, 4294966296, -0, -360)\n"),
            Draw(centre + "40 -10\n"));
}

TEST_F(CircleTest, thickness_angles_and_extrusion_are_ignored) {
  EXPECT_EQ(WholeCircle(black), Draw("39 500\n" + circle + "50 37\n51 127\n210 0\n220 0\n230 -1\n"));
}

TEST_F(CircleTest, a_circle_without_a_place_that_can_be_told_is_dropped) {
  EXPECT_EQ("", Draw("10 1e400\n20 50\n40 10\n"));
  EXPECT_EQ("", Draw(centre + "40 1e400\n"));
}

// Group 6.

TEST_F(CircleTest, code_6_takes_whole_names_in_any_case_with_a_record) {
  DefineLtype(2, {300, -200});
  EXPECT_EQ(Dashed(black, 2, 2), Draw("6 DASHED\n" + circle));
  EXPECT_EQ(Dashed(black, 2, 2), Draw("6 dashed\n" + circle));
  EXPECT_EQ(WholeCircle(black), Draw("6 MY_DASHED_LINE\n" + circle));
  EXPECT_EQ(WholeCircle(black), Draw("6 HIDDEN\n" + circle));
}

TEST_F(CircleTest, each_family_walks_its_elements) {
  DefineLtype(0, {0, -200, 50, -50, 50, -50});
  DefineLtype(4, {300, -200, 50, -50, 50, -50});
  DefineLtype(6, {300, -100, 50, -100, 40, -40});
  DefineLtype(11, {300, -100, 100, -50, 50, -50});
  EXPECT_EQ(Dashed(black, 0, 2), Draw("6 DOT\n" + circle));
  EXPECT_EQ(Dashed(black, 4, 2), Draw("6 HIDDEN\n" + circle));
  EXPECT_EQ(Dashed(black, 6, 4), Draw("6 CENTER\n" + circle));
  EXPECT_EQ(Dashed(black, 11, 6), Draw("6 PHANTOM\n" + circle));
}

TEST_F(CircleTest, continuous_clears_the_layers_family_in_both_spellings) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(WholeCircle(black), Draw("8 DASHES\n6 continuous\n" + circle));
  EXPECT_EQ(WholeCircle(black), Draw("8 DASHES\n6 CONTINUOS\n" + circle));
}

TEST_F(CircleTest, any_other_name_keeps_the_layers_family) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(Dashed(black, 4, 2), Draw("8 DASHES\n6 BYLAYER\n" + circle));
}

// Groups 8 and 62.

TEST_F(CircleTest, its_layer_gives_family_pattern_and_colour_but_no_width) {
  DefineLtype(6, {300, -100, 50, -100});
  AddLayer("AXES", {3, 6, 70}, 5);
  AddLayer("WALLS", {0, 0, 70}, 1);
  EXPECT_EQ(Dashed(blue, 6, 4), Draw("8 AXES\n" + circle));
  EXPECT_EQ(WholeCircle(red), Draw("8 WALLS\n" + circle));
}

TEST_F(CircleTest, layer_0_stays_layer_0) {
  AddLayer("0", {}, 3);
  AddLayer("WALLS", {}, 1);
  SetInsertLayer("WALLS");
  EXPECT_EQ(WholeCircle(green), Draw("8 0\n" + circle));
}

TEST_F(CircleTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("8 DOORS\n" + circle));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
}

TEST_F(CircleTest, a_colour_other_than_0_is_mapped) {
  AddLayer("DOORS", {}, 5);
  EXPECT_EQ(WholeCircle(cyan), Draw("8 DOORS\n62 130\n" + circle));
  EXPECT_EQ(WholeCircle(black), Draw("8 DOORS\n62 2\n" + circle));
}

TEST_F(CircleTest, colour_0_leaves_the_layers_colour) {
  AddLayer("SNOW", {}, 7);
  EXPECT_EQ(WholeCircle(0xFFFFFF), Draw("8 SNOW\n62 0\n" + circle));
}

TEST_F(CircleTest, the_colour_is_kept_in_ent_color_and_starts_at_0) {
  state.blockColor = 4;
  state.dimColor = 4;
  EXPECT_EQ(WholeCircle(red), Draw("62 1\n" + circle));
  EXPECT_EQ(1, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(WholeCircle(black), Draw(circle));
}

// Filter, monochrome and the end of the groups.

TEST_F(CircleTest, an_excluded_family_is_not_drawn) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + circle));
  EXPECT_EQ(1, result);
  EXPECT_EQ(WholeCircle(black), Draw(circle));
}

TEST_F(CircleTest, with_monochrome_on_every_circle_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(WholeCircle(black), Draw("62 1\n" + circle));
}

TEST_F(CircleTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(circle);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "ARC"));
}

TEST_F(CircleTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(WholeCircle(red), DrawText("0 CIRCLE\n62 1\n" + circle));
  EXPECT_EQ(0, result);
}

// The view. The corners that count are at (6000, 6000 down) and (4000, 4000 down).

TEST_F(CircleTest, the_edges_of_the_view_count_in) {
  view = {4000, 4000, 6000, 6000};
  EXPECT_EQ(WholeCircle(black), Draw(circle));
}

TEST_F(CircleTest, a_circle_all_around_the_view_is_dropped) {
  view = {4001, 4001, 5999, 5999};
  EXPECT_EQ("", Draw(circle));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "ARC"));
}

TEST_F(CircleTest, one_of_the_two_corners_in_the_view_is_enough) {
  view = {6000, 6000, 6000, 6000};
  EXPECT_NE("", Draw(circle));
  view = {4000, 4000, 4000, 4000};
  EXPECT_NE("", Draw(circle));
}

TEST_F(CircleTest, its_other_two_corners_do_not_count) {
  view = {5500, 3500, 6500, 4500};
  EXPECT_EQ("", Draw(circle));
  view = {3500, 5500, 4500, 6500};
  EXPECT_EQ("", Draw(circle));
}

TEST_F(CircleTest, a_circle_that_crosses_the_view_with_both_corners_outside_is_dropped) {
  view = {0, 4500, 20000, 5500};
  EXPECT_EQ("", Draw(circle));
  view = {4500, 0, 5500, 10000};
  EXPECT_EQ("", Draw(circle));
}

// The turned sheet, and the system whose arcs run clockwise.

TEST_F(CircleTest, on_a_turned_sheet_the_circle_is_turned) {
  DefineLtype(4, {300, -200});
  state.rotated = 1;
  // The centre is at (20000 - 5000, -10000 + 5000), the angle 180: (-1000, 0) from it.
  EXPECT_EQ(InPen(black, "MoveToEx(14000, -5000)\nAngleArc(15000, -5000, 1000, 180, -360)\n"), Draw(circle));
  EXPECT_EQ(Dashed(black, 4, 2, 1), Draw("6 HIDDEN\n" + circle));
}

TEST_F(CircleTest, on_the_clockwise_system_it_is_an_ellipse_in_whatever_is_selected) {
  state.arcClockwise = 1;
  EXPECT_EQ(ellipseCall, Draw(circle));
}

TEST_F(CircleTest, on_the_clockwise_system_the_canvas_fills_it_and_tells_its_colour) {
  state.arcClockwise = 1;
  stream = StreamOf("62 1\n" + circle);
  EXPECT_EQ("CreateBrushIndirect(1, BS_SOLID, 0x00FF00, 0)\nSelectObject(1)\n" + ellipseCall +
                "SelectObject(WHITE_BRUSH)\nDeleteObject(1)\n",
            ListCalls([this](Canvas canvas) {
              const HBRUSH brush = CreateSolidBrush(green);
              const HGDIOBJ previous = SelectObject(canvas, brush);
              DrawCircle({RunOn(canvas)});
              SelectObject(canvas, previous);
              DeleteObject(brush);
            }));
}

TEST_F(CircleTest, on_the_clockwise_system_line_type_and_turn_do_not_count) {
  state.arcClockwise = 1;
  state.rotated = 1;
  DefineLtype(4, {300, -200});
  EXPECT_EQ(ellipseCall, Draw("6 HIDDEN\n" + circle));
}

TEST_F(CircleTest, on_the_clockwise_system_the_view_drops_it_but_does_not_cut_it) {
  state.arcClockwise = 1;
  view = {0, 0, 5500, 10000};
  EXPECT_EQ(ellipseCall, Draw(circle));
  view = {0, 0, 3999, 10000};
  EXPECT_EQ("", Draw(circle));
}

TEST_F(CircleTest, on_the_clockwise_system_a_left_out_line_type_is_not_drawn_either) {
  state.arcClockwise = 1;
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + circle));
}

TEST_F(CircleTest, only_1_means_the_clockwise_system) {
  state.arcClockwise = 2;
  EXPECT_EQ(WholeCircle(black), Draw(circle));
}

}  // namespace
}  // namespace hexlume::circle_test
