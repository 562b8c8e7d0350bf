// CIRCLE in a block.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/circle.h"
#include "support/arc_strokes.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::block_circle_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

class BlockCircleTest : public ConverterTest {
 protected:
  BlockCircleTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    SetInsertLayer("WALLS");
  }

  // The listing of one circle with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 CIRCLE\n" + groups + "0 ARC\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawBlockCircle({RunOn(canvas), blockOriginX, blockOriginY, insertColor});
    });
  }

  // The listing of the circle below in dashes.
  std::string Dashed(COLORREF color, int32_t slot, int32_t count, int32_t family) {
    return ListCalls([&](Canvas canvas) {
      const HPEN pen = CreatePen(family, 0, color);
      const HGDIOBJ previousPen = SelectObject(canvas, pen);
      const HGDIOBJ previousBrush = SelectObject(canvas, GetStockObject(NULL_BRUSH));
      DashArc(canvas, 5000, -5000, 1000, -0.0, -360.0, 10000, 5000, color,
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
const std::string circle = centre + "40 10\n";

std::string WholeCircle(COLORREF color, int32_t width = 0) {
  return HeldArc(color, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n", "PS_SOLID", width);
}

TEST_F(BlockCircleTest, it_is_a_round_within_a_pen_and_a_hollow_brush) {
  EXPECT_EQ(WholeCircle(black), Draw(circle));
}

// Centre and radius.

TEST_F(BlockCircleTest, its_centre_is_scaled_and_moved_and_its_radius_takes_the_x_scale) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // (20 * 200 + 500, 20 * 300 + 1000) = (4500, 7000), radius 10 * 200.
  EXPECT_EQ(HeldArc(black, "MoveToEx(6500, -3000)\nAngleArc(4500, -3000, 2000, -0, -360)\n"),
            Draw("10 20\n20 20\n40 10\n"));
}

TEST_F(BlockCircleTest, nothing_is_added_to_the_radius) {
  EXPECT_EQ(HeldArc(black, "MoveToEx(5999, -5000)\nAngleArc(5000, -5000, 999, -0, -360)\n"),
            Draw(centre + "40 9.9999995\n"));
  Draw(circle);
  EXPECT_EQ(1000.0, state.blockRadius);
}

TEST_F(BlockCircleTest, its_centre_is_turned_about_the_blocks_origin_and_kept_so) {
  blockOriginX = 5000.0;
  blockOriginY = 1000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (2000, -1000) from the origin becomes (1000, 2000). Y: 3000.5 - 10000 = -6999.5, cut to -6999.
  EXPECT_EQ(HeldArc(black, "MoveToEx(7000, -6999)\nAngleArc(6000, -6999, 1000, -0, -360)\n"),
            Draw("10 20\n20 -10\n40 10\n"));
  EXPECT_NEAR(6000.0, state.blockX[0], 1e-6);
  EXPECT_NEAR(3000.0, state.blockY[0], 1e-6);
  EXPECT_EQ(0.0, state.entX[0]);
  EXPECT_EQ(0.0, state.dimX[0]);
}

TEST_F(BlockCircleTest, each_missing_number_comes_from_the_block_circle_before_it) {
  Draw(circle);
  EXPECT_EQ(HeldArc(black, "MoveToEx(7000, -5000)\nAngleArc(6000, -5000, 1000, -0, -360)\n"),
            Draw("10 60\n"));
  EXPECT_EQ(HeldArc(black, "MoveToEx(7000, -6000)\nAngleArc(6000, -6000, 1000, -0, -360)\n"),
            Draw("20 40\n"));
  EXPECT_EQ(HeldArc(black, "MoveToEx(8000, -6000)\nAngleArc(6000, -6000, 2000, -0, -360)\n"),
            Draw("40 20\n"));
}

TEST_F(BlockCircleTest, angles_and_extrusion_are_ignored) {
  EXPECT_EQ(WholeCircle(black), Draw(circle + "50 37\n51 127\n210 0\n220 0\n230 -1\n"));
}

// Groups 6, 8, 39 and 62.

TEST_F(BlockCircleTest, code_6_takes_whole_names_in_any_case_with_a_record) {
  DefineLtype(2, {300, -200});
  EXPECT_EQ(Dashed(black, 2, 2, 1), Draw("6 Dashed\n" + circle));
  EXPECT_EQ(WholeCircle(black), Draw("6 MY_DASHED_LINE\n" + circle));
  EXPECT_EQ(WholeCircle(black), Draw("6 HIDDEN\n" + circle));
}

TEST_F(BlockCircleTest, each_family_walks_its_elements) {
  DefineLtype(0, {0, -200, 50, -50, 50, -50});
  DefineLtype(7, {300, -100, 50, -100, 40, -40});
  DefineLtype(11, {300, -100, 100, -50, 50, -50});
  EXPECT_EQ(Dashed(black, 0, 2, 2), Draw("6 DOT\n" + circle));
  EXPECT_EQ(Dashed(black, 7, 4, 3), Draw("6 CENTER2\n" + circle));
  EXPECT_EQ(Dashed(black, 11, 6, 4), Draw("6 PHANTOM\n" + circle));
}

TEST_F(BlockCircleTest, a_name_other_than_continuous_clears_the_layers_family) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(Dashed(black, 4, 2, 1), Draw("8 DASHES\n6 Continuous\n" + circle));
  EXPECT_EQ(WholeCircle(black), Draw("8 DASHES\n6 CONTINUOS\n" + circle));
  EXPECT_EQ(WholeCircle(black), Draw("8 DASHES\n6 BYLAYER\n" + circle));
}

TEST_F(BlockCircleTest, by_block_lets_colour_0_keep_the_layers_colour) {
  EXPECT_EQ(WholeCircle(blue, 3), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + circle));
  EXPECT_EQ(WholeCircle(blue, 3), Draw("8 DOORS\n6 ByBlock\n62 0\n" + circle));
  EXPECT_EQ(WholeCircle(black, 3), Draw("8 DOORS\n6 byblock\n62 0\n" + circle));
}

TEST_F(BlockCircleTest, layer_0_takes_the_inserts_colour) {
  EXPECT_EQ(WholeCircle(magenta), Draw("8 0\n" + circle));
  SetInsertLayer("GONE");
  EXPECT_EQ(WholeCircle(countColor), Draw("8 0\n" + circle));
}

TEST_F(BlockCircleTest, another_layer_gives_its_colour_and_its_width_to_the_outer_pen) {
  EXPECT_EQ(WholeCircle(blue, 3), Draw("8 DOORS\n" + circle));
}

TEST_F(BlockCircleTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + circle));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(BlockCircleTest, code_39_is_the_width_of_the_outer_pen_in_hundreds) {
  EXPECT_EQ(WholeCircle(black, 2), Draw("39 250\n" + circle));
}

TEST_F(BlockCircleTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(WholeCircle(cyan), Draw("62 130\n" + circle));
}

TEST_F(BlockCircleTest, colour_0_is_black_or_the_inserts_with_the_inherit_flag) {
  EXPECT_EQ(WholeCircle(black, 3), Draw("8 DOORS\n62 0\n" + circle));
  EXPECT_EQ(WholeCircle(magenta), Draw("8 0\n62 0\n" + circle));
  SetInsertLayer("0");
  EXPECT_EQ(WholeCircle(magenta, 3), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + circle));
}

TEST_F(BlockCircleTest, the_colour_is_kept_in_block_color_and_starts_at_0) {
  state.entColor = 4;
  state.dimColor = 4;
  Draw("62 1\n" + circle);
  EXPECT_EQ(1, state.blockColor);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(WholeCircle(black), Draw(circle));
}

// Filter, monochrome and the end of the groups.

TEST_F(BlockCircleTest, an_excluded_family_is_not_drawn) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + circle));
  EXPECT_EQ(1, result);
}

TEST_F(BlockCircleTest, with_monochrome_on_every_circle_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(WholeCircle(black), Draw("8 0\n" + circle));
}

TEST_F(BlockCircleTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(circle);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "ARC"));
}

TEST_F(BlockCircleTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(WholeCircle(red), DrawText("0 CIRCLE\n62 1\n" + circle));
  EXPECT_EQ(0, result);
}

// Size and view.

TEST_F(BlockCircleTest, no_circle_is_too_small) {
  EXPECT_EQ(HeldArc(black, "MoveToEx(5000, -5000)\nAngleArc(5000, -5000, 0, -0, -360)\n"),
            Draw(centre + "40 0.001\n"));
}

TEST_F(BlockCircleTest, one_of_two_corners_in_the_view_is_enough) {
  view = {6000, 6000, 6000, 6000};
  EXPECT_NE("", Draw(circle));
  view = {4000, 4000, 4000, 4000};
  EXPECT_NE("", Draw(circle));
}

TEST_F(BlockCircleTest, with_both_corners_outside_it_is_dropped_without_a_pen) {
  view = {4001, 4001, 5999, 5999};
  EXPECT_EQ("", Draw(circle));
  view = {5500, 3500, 6500, 4500};
  EXPECT_EQ("", Draw(circle));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "ARC"));
}

// The cut.

TEST_F(BlockCircleTest, it_is_always_cut) {
  view = {0, 0, 5500, 10000};
  // A cap of 500 of 1000 is cut off: 60 degrees to each side.
  EXPECT_EQ(HeldArc(black, "MoveToEx(5500, -4134)\nAngleArc(5000, -5000, 1000, -60, -240)\n"), Draw(circle));
}

TEST_F(BlockCircleTest, the_radius_of_the_cut_is_the_scaled_one) {
  state.insertScaleX = 2.0;
  view = {0, 0, 11000, 10000};
  // About (10000, -5000), radius 2000: a cap of 1000 is half of it.
  EXPECT_EQ(HeldArc(black, "MoveToEx(11000, -3268)\nAngleArc(10000, -5000, 2000, -60, -240)\n"),
            Draw(circle));
}

// The turned sheet, and the system whose arcs run clockwise.

TEST_F(BlockCircleTest, on_a_turned_sheet_the_circle_is_turned) {
  state.rotated = 1;
  EXPECT_EQ(HeldArc(black, "MoveToEx(14000, -5000)\nAngleArc(15000, -5000, 1000, 180, -360)\n"),
            Draw(circle));
}

TEST_F(BlockCircleTest, on_the_clockwise_system_it_is_an_ellipse_in_pen_and_hollow_brush) {
  state.arcClockwise = 1;
  state.rotated = 1;
  DefineLtype(4, {300, -200});
  view = {0, 0, 5500, 10000};
  EXPECT_EQ(InPenAndBrush("PS_DASH", 2, red, "Ellipse(4000, -6001, 6000, -4001)\n"),
            Draw("6 HIDDEN\n39 200\n62 1\n" + circle));
}

}  // namespace
}  // namespace hexlume::block_circle_test
