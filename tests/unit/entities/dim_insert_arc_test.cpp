// ARC in a block that is inserted in a dimension's block.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/arc.h"
#include "support/arc_strokes.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::dim_insert_arc_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

class DimInsertArcTest : public ConverterTest {
 protected:
  DimInsertArcTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    SetInsertLayer("WALLS");
    wholeSheet = 1;
  }

  // The listing of one arc with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 ARC\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawDimInsertArc({RunOn(canvas), blockOriginX, blockOriginY, insertColor});
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

TEST_F(DimInsertArcTest, it_is_drawn_within_a_pen_and_a_hollow_brush) {
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

// Centre and radius.

TEST_F(DimInsertArcTest, its_centre_is_scaled_and_moved_and_its_radius_is_not) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // (20 * 200 + 500, 20 * 300 + 1000) = (4500, 7000).
  EXPECT_EQ(HeldArc(black, "MoveToEx(5298, -2399)\nAngleArc(4500, -3000, 1000, -37, -90)\n"),
            Draw("10 20\n20 20\n40 10\n50 37\n51 127\n"));
}

TEST_F(DimInsertArcTest, nothing_is_added_to_the_radius) {
  // 999.99995: 797.8 and 601.2 of 999.
  EXPECT_EQ(HeldArc(black, "MoveToEx(5797, -4399)\nAngleArc(5000, -5000, 999, -37, -90)\n"),
            Draw(centre + "40 9.9999995\n50 37\n51 127\n"));
  Draw(quarter);
  EXPECT_EQ(1000.0, state.dimRadius);
}

TEST_F(DimInsertArcTest, its_centre_is_turned_and_kept_so_and_its_angles_are_not_turned) {
  blockOriginX = 5000.0;
  blockOriginY = 1000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (2000, -1000) from the origin becomes (1000, 2000). Y: 3000.5 - 10000 = -6999.5, cut to -6999.
  EXPECT_EQ(HeldArc(black, "MoveToEx(6798, -6398)\nAngleArc(6000, -6999, 1000, -37, -90)\n"),
            Draw("10 20\n20 -10\n40 10\n50 37\n51 127\n"));
  EXPECT_NEAR(6000.0, state.dimX[0], 1e-6);
  EXPECT_NEAR(3000.0, state.dimY[0], 1e-6);
  EXPECT_EQ(0.0, state.entX[0]);
  EXPECT_EQ(0.0, state.blockX[0]);
}

TEST_F(DimInsertArcTest, each_missing_number_comes_from_the_arc_of_its_scope_before_it) {
  Draw(quarter);
  EXPECT_EQ(HeldArc(black, "MoveToEx(6798, -4399)\nAngleArc(6000, -5000, 1000, -37, -90)\n"),
            Draw("10 60\n50 37\n51 127\n"));
  EXPECT_EQ(HeldArc(black, "MoveToEx(6798, -5399)\nAngleArc(6000, -6000, 1000, -37, -90)\n"),
            Draw("20 40\n50 37\n51 127\n"));
  EXPECT_EQ(HeldArc(black, "MoveToEx(7597, -4797)\nAngleArc(6000, -6000, 2000, -37, -90)\n"),
            Draw("40 20\n50 37\n51 127\n"));
}

// Angles.

TEST_F(DimInsertArcTest, angles_above_360_stay) {
  EXPECT_EQ(HeldArc(black, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -397, -450)\n"),
            Draw(place + "50 397\n51 847\n"));
}

TEST_F(DimInsertArcTest, start_0_and_end_0_make_a_whole_circle) {
  EXPECT_EQ(HeldArc(black, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n"),
            Draw(place + "50 0\n51 0\n"));
}

TEST_F(DimInsertArcTest, the_points_are_found_by_the_angles_before_they_are_rounded) {
  // 16777217 is 137 degrees and 46603 rounds: (5000 - 731.4, 5000 + 682.0), which is 4318 down. The float
  // next to it is 136 degrees, at 4280, 4305.
  view = {4000, 4310, 4275, 4330};
  EXPECT_NE("", Draw(place + "50 16777217\n51 0\n"));
  view = {4276, 4290, 4290, 4309};
  EXPECT_EQ("", Draw(place + "50 16777217\n51 0\n"));
}

// Groups 6, 8, 39 and 62.

TEST_F(DimInsertArcTest, code_6_gives_the_family_alone_and_needs_no_record) {
  EXPECT_EQ(QuarterArc(black, "PS_DASH"), Draw("6 Dashed\n" + quarter));
  EXPECT_EQ(QuarterArc(black, "PS_DOT"), Draw("6 DOT\n" + quarter));
  EXPECT_EQ(QuarterArc(black, "PS_DASHDOT"), Draw("6 CENTER\n" + quarter));
  EXPECT_EQ(QuarterArc(black, "PS_DASHDOTDOT"), Draw("6 PHANTOM\n" + quarter));
  DefineLtype(2, {300, -200});
  EXPECT_EQ(QuarterArc(black, "PS_DASH"), Draw("6 DASHED\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("6 MY_DASHED_LINE\n" + quarter));
}

TEST_F(DimInsertArcTest, the_dashes_are_those_of_its_layer) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(Dashed(black, 4, 2, 1), Draw("8 DASHES\n" + quarter));
  EXPECT_EQ(Dashed(black, 4, 2, 1), Draw("8 DASHES\n6 DASHED\n" + quarter));
  EXPECT_EQ(Dashed(black, 4, 2, 2), Draw("8 DASHES\n6 DOT\n" + quarter));
}

TEST_F(DimInsertArcTest, each_family_walks_its_elements) {
  DefineLtype(4, {300, -200, 50, -50, 50, -50});
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(Dashed(black, 4, 4, 3), Draw("8 DASHES\n6 CENTER\n" + quarter));
  EXPECT_EQ(Dashed(black, 4, 6, 4), Draw("8 DASHES\n6 PHANTOM\n" + quarter));
}

TEST_F(DimInsertArcTest, only_continuous_and_continuos_clear_the_layers_family) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(QuarterArc(black), Draw("8 DASHES\n6 Continuous\n" + quarter));
  EXPECT_EQ(QuarterArc(black), Draw("8 DASHES\n6 CONTINUOS\n" + quarter));
  EXPECT_EQ(Dashed(black, 4, 2, 1), Draw("8 DASHES\n6 BYLAYER\n" + quarter));
  EXPECT_EQ(Dashed(black, 4, 2, 1), Draw("8 DASHES\n6 CENTER2\n" + quarter));
  EXPECT_EQ(Dashed(black, 4, 2, 1), Draw("8 DASHES\n6 PHANTOM2\n" + quarter));
}

TEST_F(DimInsertArcTest, by_block_in_any_case_lets_colour_0_keep_the_layers_colour) {
  EXPECT_EQ(QuarterArc(blue), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + quarter));
  EXPECT_EQ(QuarterArc(blue), Draw("8 DOORS\n6 byblock\n62 0\n" + quarter));
}

TEST_F(DimInsertArcTest, layer_0_takes_the_inserts_colour) {
  EXPECT_EQ(QuarterArc(magenta), Draw("8 0\n" + quarter));
  SetInsertLayer("GONE");
  EXPECT_EQ(QuarterArc(countColor), Draw("8 0\n" + quarter));
}

TEST_F(DimInsertArcTest, another_layer_gives_its_own_colour_and_no_width) {
  EXPECT_EQ(QuarterArc(blue), Draw("8 DOORS\n" + quarter));
}

TEST_F(DimInsertArcTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + quarter));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(DimInsertArcTest, code_39_is_ignored) {
  EXPECT_EQ(QuarterArc(black), Draw("39 500\n" + quarter));
}

TEST_F(DimInsertArcTest, an_extrusion_changes_nothing) {
  EXPECT_EQ(QuarterArc(black), Draw(quarter + "210 0\n220 0\n230 -1\n"));
}

TEST_F(DimInsertArcTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(QuarterArc(cyan), Draw("8 DOORS\n62 130\n" + quarter));
}

TEST_F(DimInsertArcTest, colour_0_is_black_or_the_inserts_with_the_inherit_flag) {
  EXPECT_EQ(QuarterArc(black), Draw("8 DOORS\n62 0\n" + quarter));
  EXPECT_EQ(QuarterArc(magenta), Draw("8 0\n62 0\n" + quarter));
}

TEST_F(DimInsertArcTest, an_insert_on_layer_0_does_not_change_a_colour) {
  SetInsertLayer("0");
  EXPECT_EQ(QuarterArc(blue), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + quarter));
}

TEST_F(DimInsertArcTest, the_colour_is_kept_in_dim_color_and_starts_at_0) {
  state.entColor = 4;
  state.blockColor = 4;
  Draw("62 1\n" + quarter);
  EXPECT_EQ(1, state.dimColor);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

// Filter, monochrome and the end of the groups.

TEST_F(DimInsertArcTest, an_excluded_family_is_not_drawn) {
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + quarter));
  EXPECT_EQ(1, result);
}

TEST_F(DimInsertArcTest, with_monochrome_on_every_arc_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(QuarterArc(black), Draw("8 0\n" + quarter));
}

TEST_F(DimInsertArcTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(quarter);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimInsertArcTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(QuarterArc(red), DrawText("0 ARC\n62 1\n" + quarter));
  EXPECT_EQ(0, result);
}

// Size and view.

TEST_F(DimInsertArcTest, no_circle_is_too_small) {
  EXPECT_EQ(HeldArc(black, "MoveToEx(5000, -5000)\nAngleArc(5000, -5000, 0, -37, -90)\n"),
            Draw(centre + "40 0.001\n50 37\n51 127\n"));
}

TEST_F(DimInsertArcTest, it_is_drawn_if_its_start_or_its_end_lies_in_the_view) {
  // The start is at 5798, 4398 down, the end at 4398, 4201 down.
  view = {5798, 4398, 5798, 4398};
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
  view = {4398, 4201, 4398, 4201};
  EXPECT_EQ(QuarterArc(black), Draw(quarter));
}

TEST_F(DimInsertArcTest, with_both_ends_outside_the_view_it_is_dropped_without_a_pen) {
  view = {4500, 3500, 5500, 4500};
  EXPECT_EQ("", Draw(quarter));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

// The cut.

TEST_F(DimInsertArcTest, the_whole_sheet_leaves_it_uncut) {
  view = {0, 0, 5500, 10000};
  EXPECT_EQ(HeldArc(black, "MoveToEx(5000, -6000)\nAngleArc(5000, -5000, 1000, -270, -180)\n"),
            Draw(place + "50 270\n51 90\n"));
}

TEST_F(DimInsertArcTest, a_part_of_the_sheet_cuts_it) {
  view = {0, 0, 5500, 10000};
  // From 270 over 0 to 90, which is 450. The right edge leaves 60 to 300: 30 from its start.
  const std::string rest = HeldArc(black, "MoveToEx(5000, -6000)\nAngleArc(5000, -5000, 1000, -270, -30)\n");
  wholeSheet = 0;
  EXPECT_EQ(rest, Draw(place + "50 270\n51 90\n"));
  wholeSheet = 2;
  EXPECT_EQ(rest, Draw(place + "50 270\n51 90\n"));
}

// The turned sheet, and the system whose arcs run clockwise.

TEST_F(DimInsertArcTest, on_a_turned_sheet_the_arc_is_turned) {
  state.rotated = 1;
  EXPECT_EQ(HeldArc(black, "MoveToEx(14202, -5601)\nAngleArc(15000, -5000, 1000, 143, -90)\n"),
            Draw(quarter));
}

TEST_F(DimInsertArcTest, on_the_clockwise_system_gdi_draws_it_in_the_pens_style) {
  state.arcClockwise = 1;
  state.rotated = 1;
  // The box of 4000 to 6000, and the ends at (5798.6, -4398.2) and (4398.2, -4201.4).
  const std::string arcCall = "Arc(4000, -6001, 6000, -4001, 5798, -4398, 4398, -4201)\n";
  EXPECT_EQ(InPenAndBrush("PS_DASH", 0, black, arcCall), Draw("6 HIDDEN\n" + quarter));
  // One end in the view is enough.
  view = {4398, 4201, 4398, 4201};
  EXPECT_EQ(InPenAndBrush("PS_SOLID", 0, black, arcCall), Draw(quarter));
}

}  // namespace
}  // namespace hexlume::dim_insert_arc_test
