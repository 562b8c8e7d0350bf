// ARC in the ENTITIES section and in a dimension's block, uncut.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/arc.h"
#include "support/arc_strokes.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::arc_test {
namespace {

class ArcTest : public ConverterTest {
 protected:
  ArcTest() { wholeSheet = 1; }

  // The listing of one arc with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 ARC\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawArc({RunOn(canvas), offsetX, offsetY}); });
  }

  // The listing of an arc of centre (5000, -5000), radius 1000 and these angles, walked in dashes within the
  // pen that is around it.
  std::string Dashed(COLORREF color, double startAngle, double sweep, int32_t slot, int32_t count,
                     int32_t family, int32_t mirror = 0) {
    return ListCalls([&](Canvas canvas) {
      const HPEN pen = CreatePen(family, 0, color);
      const HGDIOBJ previousPen = SelectObject(canvas, pen);
      const HGDIOBJ previousBrush = SelectObject(canvas, GetStockObject(NULL_BRUSH));
      DashArc(canvas, 5000, -5000, 1000, startAngle, sweep, 10000, 5000, color,
              state.ltypes.at(static_cast<size_t>(slot)).dashes, count, mirror);
      SelectObject(canvas, previousBrush);
      SelectObject(canvas, previousPen);
      DeleteObject(pen);
    });
  }

  double offsetX = 0.0;
  double offsetY = 0.0;
};

const std::string centre = "10 50\n20 50\n";
const std::string place = centre + "40 10\n";

// From 37 to 127 degrees: it starts at (cos, sin) * 1000 = (798.6, 601.8) from (5000, -5000).
const std::string quarter = place + "50 37\n51 127\n";
const std::string quarterCalls = "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -90)\n";

std::string QuarterArc(COLORREF color, const std::string& style = "PS_SOLID") {
  return HeldArc(color, quarterCalls, style);
}

// Angles.

TEST_F(ArcTest, it_is_drawn_by_its_negated_angles_within_a_pen_and_a_hollow_brush) {
  EXPECT_EQ(
      "CreatePen(1, PS_SOLID, 0, 0x000000)\nSelectObject(1)\nSelectObject(NULL_BRUSH)\n"
      "CreatePen(2, PS_SOLID, 0, 0x000000)\nSelectObject(2)\n"
      "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -90)\n"
      "SelectObject(1)\nDeleteObject(2)\n"
      "SelectObject(WHITE_BRUSH)\nSelectObject(BLACK_PEN)\nDeleteObject(1)\n",
      Draw(quarter));
}

TEST_F(ArcTest, start_0_and_end_0_make_a_whole_circle) {
  EXPECT_EQ(HeldArc(black, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n"),
            Draw(place + "50 0\n51 0\n"));
}

TEST_F(ArcTest, equal_angles_other_than_0_make_a_whole_circle) {
  EXPECT_EQ(HeldArc(black, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -360)\n"),
            Draw(place + "50 37\n51 37\n"));
}

TEST_F(ArcTest, from_350_to_10_it_sweeps_20_degrees) {
  // 350 degrees: 984.8 and -173.6.
  EXPECT_EQ(HeldArc(black, "MoveToEx(5984, -5173)\nAngleArc(5000, -5000, 1000, -350, -20)\n"),
            Draw(place + "50 350\n51 10\n"));
}

TEST_F(ArcTest, an_end_below_the_start_is_reached_past_360) {
  // 360 - 127 + 37 = 270. 127 degrees: -601.8 and 798.6.
  EXPECT_EQ(HeldArc(black, "MoveToEx(4399, -4202)\nAngleArc(5000, -5000, 1000, -127, -270)\n"),
            Draw(place + "50 127\n51 37\n"));
}

TEST_F(ArcTest, angles_beyond_a_round_stay) {
  // 397 is 37 and a round; from it to 847 it is 450.
  EXPECT_EQ(HeldArc(black, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -397, -450)\n"),
            Draw(place + "50 397\n51 847\n"));
  // -323 is 37 less a round; 127 - -323 = 450.
  EXPECT_EQ(HeldArc(black, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, 323, -450)\n"),
            Draw(place + "50 -323\n51 127\n"));
}

TEST_F(ArcTest, angles_are_rounded_to_floats_before_they_are_subtracted) {
  // Floats beyond 2^24 = 16777216 are even: 16777217 is between that and 16777218, 16777219 between
  // 16777218 and 16777220, and both go to the multiple of 4. The sweep of 2 becomes 4. 16777216 is 136
  // degrees and 46603 rounds: -719.3 and 694.7.
  EXPECT_EQ(HeldArc(black, "MoveToEx(4281, -4306)\nAngleArc(5000, -5000, 1000, -16777216, -4)\n"),
            Draw(place + "50 16777217\n51 16777219\n"));
}

TEST_F(ArcTest, the_points_are_found_by_the_angles_before_they_are_rounded) {
  // 16777217 is 137 degrees and 46603 rounds: (5000 - 731.4, 5000 + 682.0), which is 4318 down. At 136
  // degrees it were 4280, 4305. The end at (6000, 5000) is outside either way.
  view = {4000, 4310, 4275, 4330};
  EXPECT_NE("", Draw(place + "50 16777217\n51 0\n"));
  view = {4276, 4290, 4290, 4309};
  EXPECT_EQ("", Draw(place + "50 16777217\n51 0\n"));
}

TEST_F(ArcTest, missing_angles_are_0) {
  Draw(quarter);
  EXPECT_EQ(HeldArc(black, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n"), Draw(place));
  EXPECT_EQ(HeldArc(black, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -127)\n"),
            Draw(place + "51 127\n"));
  // 360 - 37 + 0
  EXPECT_EQ(HeldArc(black, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -323)\n"),
            Draw(place + "50 37\n"));
}

TEST_F(ArcTest, the_inserts_scale_and_angle_do_not_count) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = halfPi;
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

// Centre and radius.

TEST_F(ArcTest, the_offset_moves_its_centre) {
  offsetX = 300.0;
  offsetY = -200.0;
  EXPECT_EQ(HeldArc(black, "MoveToEx(6098, -4599)\nAngleArc(5300, -5200, 1000, -37, -90)\n"), Draw(quarter));
  EXPECT_EQ(5300.0, state.entX[0]);
  EXPECT_EQ(4800.0, state.entY[0]);
}

TEST_F(ArcTest, the_radius_gains_a_ten_thousandth) {
  // 9.9999995 is 999.99995 in hundredths: 1000.00005 with the addition.
  EXPECT_EQ(QuarterArc(black), Draw(centre + "40 9.9999995\n50 37\n51 127\n"));
  EXPECT_DOUBLE_EQ(1000.00005, state.entRadius);
}

TEST_F(ArcTest, each_missing_number_comes_from_the_arc_before_it) {
  Draw(quarter);
  // The centre's X is 6000.
  EXPECT_EQ(HeldArc(black, "MoveToEx(6798, -4399)\nAngleArc(6000, -5000, 1000, -37, -90)\n"),
            Draw("10 60\n50 37\n51 127\n"));
  // The centre's Y is 4000.
  EXPECT_EQ(HeldArc(black, "MoveToEx(6798, -5399)\nAngleArc(6000, -6000, 1000, -37, -90)\n"),
            Draw("20 40\n50 37\n51 127\n"));
  // The radius is 2000: 1597.3 and 1203.6.
  EXPECT_EQ(HeldArc(black, "MoveToEx(7597, -4797)\nAngleArc(6000, -6000, 2000, -37, -90)\n"),
            Draw("40 20\n50 37\n51 127\n"));
}

TEST_F(ArcTest, centre_and_radius_are_scaled_to_the_sheet) {
  state.drawScale = 2.0;
  // (2500, 2500 - 10000); 1000.0001 / 2 = 500: 399.3 and 300.9.
  EXPECT_EQ(HeldArc(black, "MoveToEx(2899, -7200)\nAngleArc(2500, -7500, 500, -37, -90)\n"), Draw(quarter));
}

TEST_F(ArcTest, the_sheets_radius_loses_its_fraction) {
  state.drawScale = 3.0;
  // 1666.7, 1666.7 - 10000 = -8333.3 and 333.3: 265.9 and 200.4 of 333.
  EXPECT_EQ(HeldArc(black, "MoveToEx(1931, -8133)\nAngleArc(1666, -8333, 333, -37, -90)\n"), Draw(quarter));
}

TEST_F(ArcTest, a_negative_radius_goes_to_the_system_as_it_is) {
  // -1000 + 0.0001 is cut to -999, 2^32 - 999 for the system: -797.8 and -601.2 from the centre.
  EXPECT_EQ(HeldArc(black, "MoveToEx(4203, -5601)\nAngleArc(5000, -5000, 4294966297, -37, -90)\n"),
            Draw(centre + "40 -10\n50 37\n51 127\n"));
}

TEST_F(ArcTest, a_radius_of_0_is_drawn_at_its_centre) {
  EXPECT_EQ(HeldArc(black, "MoveToEx(5000, -5000)\nAngleArc(5000, -5000, 0, -37, -90)\n"),
            Draw(centre + "40 0\n50 37\n51 127\n"));
}

TEST_F(ArcTest, an_extrusion_or_a_thickness_changes_nothing) {
  EXPECT_EQ(QuarterArc(black), Draw("39 500\n" + quarter + "30 7\n210 0\n220 0\n230 -1\n"));
}

TEST_F(ArcTest, an_arc_without_a_place_that_can_be_told_is_dropped) {
  EXPECT_EQ("", Draw("10 1e400\n20 50\n40 10\n"));
  EXPECT_EQ("", Draw(centre + "40 1e400\n"));
  EXPECT_EQ("", Draw(place + "50 1e400\n51 -1e400\n"));
}

TEST_F(ArcTest, huge_angles_are_drawn_as_they_are) {
  // No float holds 1e39: the start is infinite, and so is what is left of a round.
  const std::string listing = Draw(place + "50 1e39\n51 0\n");
  EXPECT_NE(std::string::npos, listing.find("AngleArc(5000, -5000, 1000, -inf, inf)\n"));
}

// Group 6.

TEST_F(ArcTest, code_6_takes_whole_names_in_any_case_with_a_record) {
  DefineLtype(2, {300, -200});
  const std::string dashed = Dashed(black, -37.0, -90.0, 2, 2, 1);
  EXPECT_EQ(dashed, Draw("6 DASHED\n" + quarter));
  EXPECT_EQ(dashed, Draw("6 Dashed\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("6 MY_DASHED_LINE\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("6 DASHED_\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("6 HIDDEN\n" + quarter));
}

TEST_F(ArcTest, each_keyword_has_its_family_and_slot) {
  struct Row {
    const char* name;
    int32_t family, slot, count;
  };
  const Row rows[] = {{"DOT", 2, 0, 2},        {"DASH", 1, 1, 2},    {"DASHED", 1, 2, 2},
                      {"DASHED2", 1, 3, 2},    {"HIDDEN", 1, 4, 2},  {"DASHDOT", 3, 5, 4},
                      {"CENTER", 3, 6, 4},     {"CENTER2", 3, 7, 4}, {"BORDER2", 3, 8, 4},
                      {"DASHDOTDOT", 4, 9, 6}, {"DIVIDE", 4, 10, 6}, {"PHANTOM", 4, 11, 6}};
  for (const Row& row : rows) {
    state.ltypes.clear();
    DefineLtype(row.slot, {100.0 + row.slot, -50, 40, -30, 20, -10});
    EXPECT_EQ(Dashed(black, -37.0, -90.0, row.slot, row.count, row.family),
              Draw("6 " + std::string(row.name) + "\n" + quarter))
        << row.name;
  }
}

TEST_F(ArcTest, phantom2_has_no_record_and_leaves_the_family) {
  DefineLtype(11, {300, -100, 100, -50, 50, -50});
  EXPECT_EQ(QuarterArc(black), Draw("6 PHANTOM2\n" + quarter));
}

TEST_F(ArcTest, continuous_clears_the_layers_family_in_both_spellings) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(QuarterArc(black), Draw("8 DASHES\n6 CONTINUOUS\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("8 DASHES\n6 Continuous\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("8 DASHES\n6 CONTINUOS\n" + quarter));
}

TEST_F(ArcTest, any_other_name_keeps_the_layers_family) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 0}, 0);
  const std::string dashed = Dashed(black, -37.0, -90.0, 4, 2, 1);
  EXPECT_EQ(dashed, Draw("8 DASHES\n6 BYLAYER\n" + quarter));
  EXPECT_EQ(dashed, Draw("8 DASHES\n6 CENTER\n" + quarter));
  EXPECT_EQ(dashed, Draw("8 DASHES\n6 CONTINUOUS2\n" + quarter));
}

// Group 8.

TEST_F(ArcTest, its_layer_gives_family_pattern_and_colour) {
  DefineLtype(6, {300, -100, 50, -100});
  AddLayer("AXES", {3, 6, 0}, 5);
  EXPECT_EQ(Dashed(blue, -37.0, -90.0, 6, 4, 3), Draw("8 AXES\n" + quarter));
}

TEST_F(ArcTest, its_layers_width_does_not_count) {
  AddLayer("WALLS", {0, 0, 70}, 1);
  EXPECT_EQ(QuarterArc(red), Draw("8 WALLS\n" + quarter));
}

TEST_F(ArcTest, layer_0_stays_layer_0) {
  AddLayer("0", {}, 3);
  AddLayer("WALLS", {}, 1);
  SetInsertLayer("WALLS");
  EXPECT_EQ(QuarterArc(green), Draw("8 0\n" + quarter));
}

TEST_F(ArcTest, an_unknown_layer_leaves_everything) {
  EXPECT_EQ(QuarterArc(red), Draw("62 1\n8 GONE\n" + quarter));
}

TEST_F(ArcTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("8 DOORS\n" + quarter));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
}

// Group 62.

TEST_F(ArcTest, a_colour_other_than_0_is_mapped) {
  AddLayer("DOORS", {}, 5);
  EXPECT_EQ(QuarterArc(red), Draw("8 DOORS\n62 1\n" + quarter));
  EXPECT_EQ(QuarterArc(cyan), Draw("8 DOORS\n62 130\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("8 DOORS\n62 7\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("8 DOORS\n62 256\n" + quarter));
  EXPECT_EQ(QuarterArc(countColor), Draw("8 DOORS\n62 -1\n" + quarter));
}

TEST_F(ArcTest, colour_0_leaves_the_layers_colour) {
  AddLayer("DOORS", {}, 5);
  EXPECT_EQ(QuarterArc(blue), Draw("8 DOORS\n62 0\n" + quarter));
  EXPECT_EQ(QuarterArc(blue), Draw("8 DOORS\n62 BYBLOCK\n" + quarter));
}

TEST_F(ArcTest, colour_0_leaves_a_layers_colour_that_the_map_would_change) {
  AddLayer("SNOW", {}, 7);
  EXPECT_EQ(QuarterArc(0xFFFFFF), Draw("8 SNOW\n62 0\n" + quarter));
}

TEST_F(ArcTest, the_colour_is_kept_in_ent_color_and_starts_at_0) {
  state.blockColor = 4;
  state.dimColor = 4;
  EXPECT_EQ(QuarterArc(red), Draw("62 1\n" + quarter));
  EXPECT_EQ(1, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

TEST_F(ArcTest, code_8_overwrites_what_stands_before_it) {
  AddLayer("DOORS", {}, 5);
  EXPECT_EQ(QuarterArc(blue), Draw("62 1\n8 DOORS\n" + quarter));
}

// Filter, monochrome and the end of the groups.

TEST_F(ArcTest, an_excluded_family_is_not_drawn) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + quarter));
  EXPECT_EQ(1, result);
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

TEST_F(ArcTest, with_monochrome_on_every_arc_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(QuarterArc(black), Draw("62 1\n" + quarter));
}

TEST_F(ArcTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(quarter);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(ArcTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(QuarterArc(red), DrawText("0 ARC\n62 1\n" + quarter));
  EXPECT_EQ(0, result);
}

// The view.

TEST_F(ArcTest, it_is_drawn_if_its_start_or_its_end_lies_in_the_view) {
  // The start is at 5798, 4398 down, the end at 4398, 4201 down.
  view = {5000, 4300, 6000, 5000};
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
  view = {4000, 4000, 4500, 4300};
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

TEST_F(ArcTest, an_arc_that_crosses_the_view_with_both_ends_outside_is_dropped) {
  view = {4500, 3500, 5500, 4500};
  EXPECT_EQ("", Draw(quarter));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(ArcTest, the_edges_of_the_view_count_in) {
  view = {5798, 4398, 5798, 4398};
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
  for (const ViewRect& beside : {ViewRect{5799, 4398, 5799, 4398}, ViewRect{5797, 4398, 5797, 4398},
                                 ViewRect{5798, 4399, 5798, 4399}, ViewRect{5798, 4397, 5798, 4397}}) {
    view = beside;
    EXPECT_EQ("", Draw(quarter)) << beside.left << ", " << beside.top;
  }
}

// Drawing.

TEST_F(ArcTest, a_family_without_a_pattern_of_the_drawing_shows_in_the_outer_pen_alone) {
  AddLayer("AXES", {3, 6, 0}, 0);
  EXPECT_EQ(QuarterArc(black, "PS_DASHDOT"), Draw("8 AXES\n" + quarter));
}

TEST_F(ArcTest, on_a_turned_sheet_the_arc_is_turned) {
  state.rotated = 1;
  // The centre is at (20000 - 5000, -10000 + 5000), the angle -37 + 180 = 143: -798.6 and -601.8.
  EXPECT_EQ(HeldArc(black, "MoveToEx(14202, -5601)\nAngleArc(15000, -5000, 1000, 143, -90)\n"),
            Draw(quarter));
}

TEST_F(ArcTest, a_dashed_arc_is_turned_by_its_walk) {
  DefineLtype(4, {300, -200});
  state.rotated = 1;
  EXPECT_EQ(Dashed(black, -37.0, -90.0, 4, 2, 1, 1), Draw("6 HIDDEN\n" + quarter));
}

// The system whose arcs run clockwise.

// The circle's box is 3999.9999 to 6000.0001 across and -3999.9999 to -6000.0001 on the sheet, widened by one
// to the right and downward. The record has it sorted, and smaller by one at the right and the top. The ends
// are at (5798.6, -4398.2) and (4398.2, -4201.4).
const std::string arcCall = "Arc(3999, -6001, 6000, -4000, 5798, -4398, 4398, -4201)\n";

TEST_F(ArcTest, on_the_clockwise_system_gdi_draws_from_start_to_end) {
  state.arcClockwise = 1;
  EXPECT_EQ(InPenAndBrush("PS_SOLID", 0, red, arcCall), Draw("62 1\n" + quarter));
}

TEST_F(ArcTest, on_the_clockwise_system_gdi_does_the_dashes) {
  state.arcClockwise = 1;
  DefineLtype(0, {0, -200});
  DefineLtype(4, {300, -200});
  DefineLtype(6, {300, -100, 50, -100});
  DefineLtype(11, {300, -100, 100, -50, 50, -50});
  EXPECT_EQ(InPenAndBrush("PS_DASH", 0, black, arcCall), Draw("6 HIDDEN\n" + quarter));
  EXPECT_EQ(InPenAndBrush("PS_DOT", 0, black, arcCall), Draw("6 DOT\n" + quarter));
  EXPECT_EQ(InPenAndBrush("PS_DASHDOT", 0, black, arcCall), Draw("6 CENTER\n" + quarter));
  EXPECT_EQ(InPenAndBrush("PS_DASHDOTDOT", 0, black, arcCall), Draw("6 PHANTOM\n" + quarter));
}

TEST_F(ArcTest, on_the_clockwise_system_a_turned_sheet_does_not_turn_it) {
  state.arcClockwise = 1;
  state.rotated = 1;
  EXPECT_EQ(InPenAndBrush("PS_SOLID", 0, black, arcCall), Draw(quarter));
}

TEST_F(ArcTest, on_the_clockwise_system_the_view_drops_it_but_does_not_cut_it) {
  state.arcClockwise = 1;
  wholeSheet = 0;
  view = {0, 0, 5000, 10000};
  EXPECT_EQ(InPenAndBrush("PS_SOLID", 0, black, arcCall), Draw(quarter));
  view = {0, 0, 4000, 10000};
  EXPECT_EQ("", Draw(quarter));
}

TEST_F(ArcTest, only_1_means_the_clockwise_system) {
  state.arcClockwise = 2;
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

}  // namespace
}  // namespace hexlume::arc_test
