// SOLID and TRACE in the ENTITIES section and in the block of a dimension.
#include "entities/solid.h"

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/shape_text.h"
#include "support/text_groups.h"

namespace hexlume::solid_test {
namespace {

class SolidTest : public ConverterTest {
 protected:
  // The listing of one solid with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 SOLID\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawSolid({RunOn(canvas), offsetX, offsetY}); });
  }

  double offsetX = 0.0;
  double offsetY = 0.0;
};

// A rectangle as the format gives it, in zigzag: left and right below, left and right above.
const std::string square = "10 10\n20 80\n11 30\n21 80\n12 10\n22 90\n13 30\n23 90\n";
// 100 x, 100 y - 10000, the last two exchanged.
const std::string outline = "1000, -2000, 3000, -2000, 3000, -1000, 1000, -1000";

std::string Filled(COLORREF color, const std::string& style = "PS_SOLID") {
  return FilledQuad(color, outline, style);
}

// Coordinates.

TEST_F(SolidTest, a_square_told_in_zigzag_is_filled_as_a_square) {
  EXPECT_EQ(Filled(black), Draw(square));
}

TEST_F(SolidTest, corners_told_around_make_a_bow_tie) {
  EXPECT_EQ(FilledQuad(black, "1000, -2000, 3000, -2000, 1000, -1000, 3000, -1000"),
            Draw("10 10\n20 80\n11 30\n21 80\n12 30\n22 90\n13 10\n23 90\n"));
}

TEST_F(SolidTest, its_corners_are_moved_by_the_offset) {
  offsetX = 500.0;
  offsetY = -700.0;
  EXPECT_EQ(FilledQuad(black, "1500, -2700, 3500, -2700, 3500, -1700, 1500, -1700"), Draw(square));
}

TEST_F(SolidTest, the_inserts_scale_and_angle_do_not_count) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = halfPi;
  EXPECT_EQ(Filled(black), Draw(square));
}

TEST_F(SolidTest, its_corners_lose_their_fractions_on_the_sheet) {
  state.drawScale = 3.0;
  // X: 1000 / 3 = 333.3 -> 333, 3000 / 3 = 1000; Y: 8000 / 3 - 10000 = -7333.3 -> -7333, 9000 / 3 - 10000.
  EXPECT_EQ(FilledQuad(black, "333, -7333, 1000, -7333, 1000, -7000, 333, -7000"), Draw(square));
}

TEST_F(SolidTest, its_corners_are_kept_with_the_offset) {
  offsetX = 500.0;
  offsetY = 700.0;
  Draw("10 1\n20 2\n11 3\n21 4\n12 5\n22 6\n13 7\n23 8\n");
  const double x[] = {600.0, 800.0, 1000.0, 1200.0};
  const double y[] = {900.0, 1100.0, 1300.0, 1500.0};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(x[i], state.entX[i]);
    EXPECT_EQ(y[i], state.entY[i]);
    EXPECT_EQ(0.0, state.blockX[i]);
    EXPECT_EQ(0.0, state.dimX[i]);
  }
}

TEST_F(SolidTest, each_missing_coordinate_comes_from_the_entity_before_it) {
  Draw(square);
  EXPECT_EQ(FilledQuad(black, "2000, -2000, 3000, -1500, 3000, -1000, 1000, -1000"), Draw("10 20\n21 85\n"));
}

TEST_F(SolidTest, three_corners_take_the_fourth_that_an_entity_before_left) {
  state.entX[3] = 5000.0;
  state.entY[3] = 9500.0;
  const std::string threeCorners = "10 10\n20 80\n11 30\n21 80\n12 10\n22 90\n";
  EXPECT_EQ(FilledQuad(black, "1000, -2000, 3000, -2000, 5000, -500, 1000, -1000"), Draw(threeCorners));
  // Where what was left is outside the view the three corners are lost with it.
  state.entX[3] = -100.0;
  EXPECT_EQ("", Draw(threeCorners));
}

TEST_F(SolidTest, a_triangle_whose_fourth_corner_is_the_third_comes_out_right) {
  EXPECT_EQ(FilledQuad(black, "1000, -2000, 3000, -2000, 1000, -1000, 1000, -1000"),
            Draw("10 10\n20 80\n11 30\n21 80\n12 10\n22 90\n13 10\n23 90\n"));
}

TEST_F(SolidTest, elevation_thickness_and_extrusion_are_ignored) {
  EXPECT_EQ(Filled(black),
            Draw("30 5\n31 5\n32 5\n33 5\n39 700\n50 1\n14 5\n24 5\n210 0\n220 0\n230 -1\n" + square));
}

// The view.

TEST_F(SolidTest, a_corner_outside_the_view_loses_the_whole_figure) {
  view = {1000, 1000, 3000, 2000};
  EXPECT_EQ(Filled(black), Draw(square));  // all corners on the edges
  const char* const corners[][2] = {{"10", "20"}, {"11", "21"}, {"12", "22"}, {"13", "23"}};
  for (const auto& corner : corners) {
    const std::string x = std::string(corner[0]) + " ";
    const std::string y = std::string(corner[1]) + " ";
    EXPECT_EQ("", Draw(square + x + "9.99\n" + y + "85\n")) << x;
    EXPECT_EQ("", Draw(square + x + "30.01\n" + y + "85\n")) << x;
    EXPECT_EQ("", Draw(square + x + "20\n" + y + "90.01\n")) << x;
    EXPECT_EQ("", Draw(square + x + "20\n" + y + "79.99\n")) << x;
    EXPECT_EQ(1, result);
    EXPECT_NE("", Draw(square + x + "20\n" + y + "85\n")) << x;
  }
}

TEST_F(SolidTest, a_figure_that_holds_the_whole_view_is_dropped) {
  view = {1500, 1200, 2500, 1800};
  EXPECT_EQ("", Draw(square));
}

// Groups 6, 8 and 62.

TEST_F(SolidTest, the_family_of_its_line_type_is_the_outlines_style) {
  DefineLtypes({0, 4, 6, 10});
  EXPECT_EQ(Filled(black, "PS_DOT"), Draw("6 DOT\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASH"), Draw("6 HIDDEN\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASHDOT"), Draw("6 CENTER\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASHDOTDOT"), Draw("6 DIVIDE\n" + square));
}

TEST_F(SolidTest, code_6_takes_whole_names_in_any_case_with_a_record) {
  DefineLtypes({4});
  EXPECT_EQ(Filled(black, "PS_DASH"), Draw("6 hidden\n" + square));
  EXPECT_EQ(Filled(black), Draw("6 MY_HIDDEN_LINE\n" + square));
  EXPECT_EQ(Filled(black), Draw("6 DIVIDE\n" + square));
}

TEST_F(SolidTest, only_continuous_and_continuos_clear_the_layers_family) {
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(Filled(black), Draw("8 DASHES\n6 CONTINUOUS\n" + square));
  EXPECT_EQ(Filled(black), Draw("8 DASHES\n6 Continuos\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASH"), Draw("8 DASHES\n6 BYLAYER\n" + square));
}

TEST_F(SolidTest, a_layer_gives_style_and_colour_but_no_width) {
  AddLayer("FILLS", {3, 6, 25}, 5);
  EXPECT_EQ(Filled(blue, "PS_DASHDOT"), Draw("8 FILLS\n" + square));
  EXPECT_EQ(Filled(red, "PS_DASHDOT"), Draw("8 FILLS\n62 1\n" + square));
  EXPECT_EQ(Filled(blue, "PS_DASHDOT"), Draw("62 1\n8 FILLS\n" + square));
}

TEST_F(SolidTest, layer_0_stays_layer_0) {
  AddLayer("0", {}, 3);
  AddLayer("WALLS", {}, 1);
  SetInsertLayer("WALLS");
  EXPECT_EQ(Filled(green), Draw("8 0\n" + square));
}

TEST_F(SolidTest, an_unknown_layer_leaves_everything) {
  EXPECT_EQ(Filled(red), Draw("62 1\n8 GONE\n" + square));
}

TEST_F(SolidTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("FILLS");
  EXPECT_EQ("", Draw("8 FILLS\n" + square));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "FILLS"));
  EXPECT_EQ(0.0, state.entX[0]);
}

TEST_F(SolidTest, code_62_is_mapped) {
  EXPECT_EQ(Filled(cyan), Draw("62 130\n" + square));
  EXPECT_EQ(Filled(black), Draw("62 7\n" + square));
  EXPECT_EQ(Filled(countColor), Draw("62 -1\n" + square));
}

TEST_F(SolidTest, colour_0_is_black_whatever_the_layer_says) {
  AddLayer("FILLS", {}, 5);
  EXPECT_EQ(Filled(black), Draw("8 FILLS\n62 0\n" + square));
}

TEST_F(SolidTest, the_colour_is_kept_in_ent_color_and_starts_at_0) {
  state.blockColor = 4;
  state.dimColor = 4;
  Draw("62 1\n" + square);
  EXPECT_EQ(1, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(Filled(black), Draw(square));
}

TEST_F(SolidTest, an_excluded_family_is_not_drawn) {
  DefineLtypes({4});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + square));
  EXPECT_EQ(1, result);
  EXPECT_EQ(Filled(black), Draw("6 HIDDEN\n6 CONTINUOUS\n" + square));
}

TEST_F(SolidTest, with_monochrome_on_every_solid_is_black) {
  AddLayer("FILLS", {}, 5);
  state.monochrome = 1;
  EXPECT_EQ(Filled(black), Draw("8 FILLS\n62 1\n" + square));
}

TEST_F(SolidTest, on_a_turned_sheet_the_figure_is_turned) {
  state.rotated = 1;
  // 20000 - x, -10000 - y
  EXPECT_EQ(FilledQuad(black, "19000, -8000, 17000, -8000, 17000, -9000, 19000, -9000"), Draw(square));
}

// The end of the groups, and bad input.

TEST_F(SolidTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(square);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(SolidTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Filled(red), DrawText("0 SOLID\n62 1\n" + square));
  EXPECT_EQ(0, result);
}

TEST_F(SolidTest, a_file_may_end_behind_any_character_of_it) {
  const std::string text = "0 SOLID\n" + square;
  for (size_t length = 8; length <= text.size(); ++length) {
    DrawText(text.substr(0, length));
    EXPECT_EQ(0, result) << length;
  }
}

TEST_F(SolidTest, a_corner_that_is_no_number_or_too_large_lies_outside) {
  EXPECT_EQ("", Draw(square + "12 1e999\n"));
  EXPECT_EQ("", Draw(square + "23 -1e30\n"));
  EXPECT_EQ(FilledQuad(black, "0, -2000, 3000, -2000, 3000, -1000, 1000, -1000"), Draw(square + "10 x\n"));
}

}  // namespace
}  // namespace hexlume::solid_test
