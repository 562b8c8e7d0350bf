// SOLID and TRACE in a block.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/solid.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/shape_text.h"
#include "support/text_groups.h"

namespace hexlume::block_solid_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

class BlockSolidTest : public ConverterTest {
 protected:
  BlockSolidTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    AddLayer("DASHES", {1, 4, 2}, 1);
    SetInsertLayer("WALLS");
  }

  // The listing of one solid with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 SOLID\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawBlockSolid({RunOn(canvas), blockOriginX, blockOriginY, insertColor});
    });
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
};

// A rectangle in zigzag, and its outline: 100 x, 100 y - 10000, the last two exchanged.
const std::string square = "10 10\n20 80\n11 30\n21 80\n12 10\n22 90\n13 30\n23 90\n";
const std::string outline = "1000, -2000, 3000, -2000, 3000, -1000, 1000, -1000";

std::string Filled(COLORREF color, const std::string& style = "PS_SOLID") {
  return FilledQuad(color, outline, style);
}

// Coordinates.

TEST_F(BlockSolidTest, a_square_told_in_zigzag_is_filled_as_a_square) {
  EXPECT_EQ(Filled(black), Draw(square));
}

TEST_F(BlockSolidTest, its_corners_are_scaled_and_moved_to_the_blocks_origin) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // X: 200 x + 500; Y: 300 y + 1000 - 10000.
  EXPECT_EQ(FilledQuad(black, "700, -8400, 1500, -8100, 2100, -7500, 1100, -7800"),
            Draw("10 1\n20 2\n11 5\n21 3\n12 3\n22 4\n13 8\n23 5\n"));
}

TEST_F(BlockSolidTest, all_four_corners_are_turned_about_the_blocks_origin) {
  blockOriginX = 5000.0;
  blockOriginY = 1000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (x, y) from the origin becomes (-y, x): (1000, 0), (2000, 100), (1000, -200), (2000, -300) become (0,
  // 1000),
  // (-100, 2000), (200, 1000) and (300, 2000). With the origin and the shift Y is 2000.5 - 10000 = -7999.5,
  // cut to -7999, or 3000.5 - 10000 = -6999.5, cut to -6999.
  EXPECT_EQ(FilledQuad(black, "5000, -7999, 4900, -6999, 5300, -6999, 5200, -7999"),
            Draw("10 10\n20 0\n11 20\n21 1\n12 10\n22 -2\n13 20\n23 -3\n"));
}

TEST_F(BlockSolidTest, its_corners_are_kept_before_the_turn) {
  blockOriginX = 500.0;
  blockOriginY = 700.0;
  state.insertScaleX = 2.0;
  state.insertAngle = halfPi;
  Draw("10 1\n20 2\n11 3\n21 4\n12 5\n22 6\n13 7\n23 8\n");
  const double x[] = {700.0, 1100.0, 1500.0, 1900.0};
  const double y[] = {900.0, 1100.0, 1300.0, 1500.0};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(x[i], state.blockX[i]);
    EXPECT_EQ(y[i], state.blockY[i]);
    EXPECT_EQ(0.0, state.entX[i]);
    EXPECT_EQ(0.0, state.dimX[i]);
  }
}

TEST_F(BlockSolidTest, three_corners_take_the_fourth_that_a_blocks_entity_before_left) {
  state.entX[3] = 7000.0;
  state.blockX[3] = 5000.0;
  state.blockY[3] = 9500.0;
  const std::string threeCorners = "10 10\n20 80\n11 30\n21 80\n12 10\n22 90\n";
  EXPECT_EQ(FilledQuad(black, "1000, -2000, 3000, -2000, 5000, -500, 1000, -1000"), Draw(threeCorners));
}

TEST_F(BlockSolidTest, elevation_thickness_and_extrusion_are_ignored) {
  EXPECT_EQ(Filled(black), Draw("30 5\n31 5\n32 5\n33 5\n39 700\n210 0\n220 0\n230 -1\n" + square));
}

// The view, and the turned sheet.

TEST_F(BlockSolidTest, a_corner_outside_the_view_loses_the_whole_figure) {
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

TEST_F(BlockSolidTest, the_view_holds_the_turned_corners) {
  blockOriginX = 1000.0;
  blockOriginY = 9000.0;
  view = {0, 0, 1000, 10000};
  const std::string corners = "10 1\n20 5\n11 1\n21 5\n12 1\n22 5\n13 1\n23 5\n";
  EXPECT_EQ("", Draw(corners));  // at X = 1100
  state.insertAngle = halfPi;    // at X = 1000 - 500
  EXPECT_NE("", Draw(corners));
}

TEST_F(BlockSolidTest, on_a_turned_sheet_it_stays_where_it_is_on_the_upright_one) {
  state.rotated = 1;
  EXPECT_EQ(Filled(black), Draw(square));
}

// Groups 6, 8 and 62.

TEST_F(BlockSolidTest, the_family_of_its_line_type_is_the_outlines_style) {
  DefineLtypes({0, 4, 6, 10});
  EXPECT_EQ(Filled(black, "PS_DOT"), Draw("6 DOT\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASH"), Draw("6 HIDDEN\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASHDOT"), Draw("6 CENTER\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASHDOTDOT"), Draw("6 DIVIDE\n" + square));
}

TEST_F(BlockSolidTest, code_6_takes_whole_names_in_any_case_with_a_record) {
  DefineLtypes({4});
  EXPECT_EQ(Filled(black, "PS_DASH"), Draw("6 Hidden\n" + square));
  EXPECT_EQ(Filled(black), Draw("6 MY_HIDDEN_LINE\n" + square));
  EXPECT_EQ(Filled(black), Draw("6 DIVIDE\n" + square));
}

TEST_F(BlockSolidTest, any_name_but_continuous_clears_the_layers_family) {
  EXPECT_EQ(Filled(red, "PS_DASH"), Draw("8 DASHES\n6 CONTINUOUS\n" + square));
  EXPECT_EQ(Filled(red, "PS_DASH"), Draw("8 DASHES\n6 continuous\n" + square));
  EXPECT_EQ(Filled(red), Draw("8 DASHES\n6 CONTINUOS\n" + square));
  EXPECT_EQ(Filled(red), Draw("8 DASHES\n6 BYLAYER\n" + square));
}

TEST_F(BlockSolidTest, by_block_lets_colour_0_keep_the_layers_colour) {
  EXPECT_EQ(Filled(blue), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + square));
  EXPECT_EQ(Filled(blue), Draw("8 DOORS\n6 ByBlock\n62 0\n" + square));
  EXPECT_EQ(Filled(black), Draw("8 DOORS\n6 byblock\n62 0\n" + square));
}

TEST_F(BlockSolidTest, layer_0_takes_the_inserts_colour_and_its_layers_style) {
  EXPECT_EQ(Filled(magenta), Draw("8 0\n" + square));
  SetInsertLayer("DASHES");
  EXPECT_EQ(Filled(magenta, "PS_DASH"), Draw("8 0\n" + square));
}

TEST_F(BlockSolidTest, layer_0_of_an_insert_on_an_unknown_layer_is_nearly_black) {
  SetInsertLayer("GONE");
  EXPECT_EQ(Filled(countColor), Draw("8 0\n" + square));
}

TEST_F(BlockSolidTest, another_layer_gives_its_own_colour_but_no_width) {
  EXPECT_EQ(Filled(blue), Draw("8 DOORS\n" + square));
}

TEST_F(BlockSolidTest, an_unknown_layer_leaves_everything) {
  EXPECT_EQ(Filled(black), Draw("8 GONE\n" + square));
}

TEST_F(BlockSolidTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("8 DOORS\n" + square));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
}

TEST_F(BlockSolidTest, layer_0_is_excluded_with_the_inserts_layer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + square));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(BlockSolidTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(Filled(cyan), Draw("8 0\n62 130\n" + square));
  EXPECT_EQ(Filled(black), Draw("8 0\n62 7\n" + square));
}

TEST_F(BlockSolidTest, colour_0_keeps_the_inserts_colour_on_layer_0_alone) {
  EXPECT_EQ(Filled(magenta), Draw("8 0\n62 0\n" + square));
  EXPECT_EQ(Filled(black), Draw("8 DOORS\n62 0\n" + square));
}

TEST_F(BlockSolidTest, on_an_insert_of_layer_0_colour_0_takes_the_inserts_colour_with_the_flag) {
  SetInsertLayer("0");
  EXPECT_EQ(Filled(magenta), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + square));
  EXPECT_EQ(Filled(black), Draw("8 DOORS\n62 0\n" + square));
}

TEST_F(BlockSolidTest, the_colour_is_kept_in_block_color_and_starts_at_0) {
  state.entColor = 4;
  state.dimColor = 4;
  Draw("62 1\n" + square);
  EXPECT_EQ(1, state.blockColor);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(Filled(black), Draw(square));
}

TEST_F(BlockSolidTest, with_monochrome_on_every_solid_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Filled(black), Draw("8 0\n" + square));
  EXPECT_EQ(Filled(black), Draw("8 DOORS\n62 1\n" + square));
}

TEST_F(BlockSolidTest, an_excluded_family_is_not_drawn) {
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("8 DASHES\n" + square));
  EXPECT_EQ(1, result);
  EXPECT_EQ(Filled(red), Draw("8 DASHES\n6 BYLAYER\n" + square));
}

// The end of the groups, and bad input.

TEST_F(BlockSolidTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(square);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(BlockSolidTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Filled(red), DrawText("0 SOLID\n62 1\n" + square));
  EXPECT_EQ(0, result);
}

TEST_F(BlockSolidTest, a_corner_that_is_no_number_or_too_large_lies_outside) {
  EXPECT_EQ("", Draw(square + "12 1e999\n"));
  state.insertAngle = 1.0;
  EXPECT_EQ("", Draw(square + "23 1e999\n12 -1e999\n"));
}

}  // namespace
}  // namespace hexlume::block_solid_test
