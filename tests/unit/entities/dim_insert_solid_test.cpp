// SOLID and TRACE in a block that is inserted in a dimension's block.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/solid.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/shape_text.h"
#include "support/text_groups.h"

namespace hexlume::dim_insert_solid_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

class DimInsertSolidTest : public ConverterTest {
 protected:
  DimInsertSolidTest() {
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
      result = DrawDimInsertSolid({RunOn(canvas), blockOriginX, blockOriginY, insertColor});
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

TEST_F(DimInsertSolidTest, a_square_told_in_zigzag_is_filled_as_a_square) {
  EXPECT_EQ(Filled(black), Draw(square));
}

TEST_F(DimInsertSolidTest, its_corners_are_moved_to_the_blocks_origin) {
  blockOriginX = 500.0;
  blockOriginY = 700.0;
  // X: 100 x + 500; Y: 100 y + 700 - 10000.
  EXPECT_EQ(FilledQuad(black, "600, -9100, 1000, -9000, 1300, -8800, 800, -8900"),
            Draw("10 1\n20 2\n11 5\n21 3\n12 3\n22 4\n13 8\n23 5\n"));
}

TEST_F(DimInsertSolidTest, its_corners_are_neither_scaled_nor_turned) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = halfPi;
  EXPECT_EQ(Filled(black), Draw(square));
}

TEST_F(DimInsertSolidTest, its_corners_are_kept_with_the_origin) {
  blockOriginX = 500.0;
  blockOriginY = 700.0;
  Draw("10 1\n20 2\n11 3\n21 4\n12 5\n22 6\n13 7\n23 8\n");
  const double x[] = {600.0, 800.0, 1000.0, 1200.0};
  const double y[] = {900.0, 1100.0, 1300.0, 1500.0};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(x[i], state.dimX[i]);
    EXPECT_EQ(y[i], state.dimY[i]);
    EXPECT_EQ(0.0, state.entX[i]);
    EXPECT_EQ(0.0, state.blockX[i]);
  }
}

TEST_F(DimInsertSolidTest, three_corners_take_the_fourth_that_such_an_entity_before_left) {
  state.entX[3] = 7000.0;
  state.dimX[3] = 5000.0;
  state.dimY[3] = 9500.0;
  const std::string threeCorners = "10 10\n20 80\n11 30\n21 80\n12 10\n22 90\n";
  EXPECT_EQ(FilledQuad(black, "1000, -2000, 3000, -2000, 5000, -500, 1000, -1000"), Draw(threeCorners));
}

TEST_F(DimInsertSolidTest, elevation_thickness_and_extrusion_are_ignored) {
  EXPECT_EQ(Filled(black), Draw("30 5\n31 5\n32 5\n33 5\n39 700\n210 0\n220 0\n230 -1\n" + square));
}

// The view, and the turned sheet.

TEST_F(DimInsertSolidTest, a_corner_outside_the_view_loses_the_whole_figure) {
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

TEST_F(DimInsertSolidTest, on_a_turned_sheet_the_figure_is_turned) {
  state.rotated = 1;
  // 20000 - x, -10000 - y
  EXPECT_EQ(FilledQuad(black, "19000, -8000, 17000, -8000, 17000, -9000, 19000, -9000"), Draw(square));
}

// Groups 6, 8 and 62.

TEST_F(DimInsertSolidTest, the_family_of_its_line_type_is_the_outlines_style) {
  DefineLtypes({0, 4, 6, 10, 11});
  EXPECT_EQ(Filled(black, "PS_DOT"), Draw("6 DOT\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASH"), Draw("6 hidden\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASHDOT"), Draw("6 Center\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASHDOTDOT"), Draw("6 DIVIDE\n" + square));
  EXPECT_EQ(Filled(black, "PS_DASHDOTDOT"), Draw("6 PHANTOM\n" + square));
  EXPECT_EQ(Filled(black), Draw("6 MY_HIDDEN_LINE\n" + square));
}

TEST_F(DimInsertSolidTest, a_line_type_without_a_record_changes_nothing) {
  for (const char* name : {"DOT", "HIDDEN", "CENTER", "DIVIDE", "PHANTOM2"})
    EXPECT_EQ(Filled(black), Draw("6 " + std::string(name) + "\n" + square)) << name;
  EXPECT_EQ(Filled(red, "PS_DASH"), Draw("8 DASHES\n6 CENTER\n" + square));
}

TEST_F(DimInsertSolidTest, center2_with_its_record_is_in_its_list_and_phantom2_never_has_one) {
  DefineLtypes({7, 11});
  EXPECT_EQ(Filled(black, "PS_DASHDOT"), Draw("6 CENTER2\n" + square));
  EXPECT_EQ(Filled(black), Draw("6 PHANTOM2\n" + square));
}

TEST_F(DimInsertSolidTest, only_continuous_and_continuos_clear_the_layers_family) {
  EXPECT_EQ(Filled(red), Draw("8 DASHES\n6 CONTINUOUS\n" + square));
  EXPECT_EQ(Filled(red), Draw("8 DASHES\n6 Continuos\n" + square));
  EXPECT_EQ(Filled(red, "PS_DASH"), Draw("8 DASHES\n6 BYLAYER\n" + square));
}

TEST_F(DimInsertSolidTest, by_block_does_not_let_colour_0_keep_the_layers_colour) {
  for (const char* name : {"BYBLOCK", "ByBlock", "byblock"})
    EXPECT_EQ(Filled(black), Draw("8 DOORS\n6 " + std::string(name) + "\n62 0\n" + square)) << name;
}

TEST_F(DimInsertSolidTest, layer_0_takes_the_inserts_colour_and_its_layers_style) {
  EXPECT_EQ(Filled(magenta), Draw("8 0\n" + square));
  SetInsertLayer("DASHES");
  EXPECT_EQ(Filled(magenta, "PS_DASH"), Draw("8 0\n" + square));
}

TEST_F(DimInsertSolidTest, layer_0_of_an_insert_on_an_unknown_layer_is_nearly_black) {
  SetInsertLayer("GONE");
  EXPECT_EQ(Filled(countColor), Draw("8 0\n" + square));
}

TEST_F(DimInsertSolidTest, another_layer_gives_its_own_colour_but_no_width) {
  EXPECT_EQ(Filled(blue), Draw("8 DOORS\n" + square));
}

TEST_F(DimInsertSolidTest, an_unknown_layer_leaves_everything) {
  EXPECT_EQ(Filled(black), Draw("8 GONE\n" + square));
}

TEST_F(DimInsertSolidTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("8 DOORS\n" + square));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
}

TEST_F(DimInsertSolidTest, layer_0_is_excluded_with_the_inserts_layer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + square));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(DimInsertSolidTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(Filled(cyan), Draw("8 0\n62 130\n" + square));
  EXPECT_EQ(Filled(black), Draw("8 0\n62 7\n" + square));
}

TEST_F(DimInsertSolidTest, colour_0_keeps_the_inserts_colour_on_layer_0_alone) {
  EXPECT_EQ(Filled(magenta), Draw("8 0\n62 0\n" + square));
  EXPECT_EQ(Filled(black), Draw("8 DOORS\n62 0\n" + square));
}

TEST_F(DimInsertSolidTest, on_an_insert_of_layer_0_colour_0_does_not_take_the_inserts_colour) {
  SetInsertLayer("0");
  EXPECT_EQ(Filled(black), Draw("8 DOORS\n62 0\n" + square));
}

TEST_F(DimInsertSolidTest, the_colour_is_kept_in_dim_color_and_starts_at_0) {
  state.entColor = 4;
  state.blockColor = 4;
  Draw("62 1\n" + square);
  EXPECT_EQ(1, state.dimColor);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(Filled(black), Draw(square));
}

TEST_F(DimInsertSolidTest, with_monochrome_on_every_solid_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Filled(black), Draw("8 0\n" + square));
  EXPECT_EQ(Filled(black), Draw("8 DOORS\n62 1\n" + square));
}

TEST_F(DimInsertSolidTest, an_excluded_family_is_not_drawn) {
  DefineLtypes({4});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + square));
  EXPECT_EQ(1, result);
  EXPECT_EQ(Filled(black), Draw("6 HIDDEN\n6 CONTINUOUS\n" + square));
}

// The end of the groups, and bad input.

TEST_F(DimInsertSolidTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(square);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimInsertSolidTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Filled(red), DrawText("0 SOLID\n62 1\n" + square));
  EXPECT_EQ(0, result);
}

TEST_F(DimInsertSolidTest, a_corner_that_is_no_number_or_too_large_lies_outside) {
  EXPECT_EQ("", Draw(square + "12 1e999\n"));
  EXPECT_EQ("", Draw(square + "23 -1e30\n"));
}

}  // namespace
}  // namespace hexlume::dim_insert_solid_test
