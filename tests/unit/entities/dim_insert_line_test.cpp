// LINE in a block that is inserted in a dimension's block.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/line.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::dim_insert_line_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

class DimInsertLineTest : public ConverterTest {
 protected:
  DimInsertLineTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {0, 0, 2}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    AddLayer("DASHES", {1, 4, 0}, 0);
    SetInsertLayer("WALLS");
  }

  // The listing of one line with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 LINE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawDimInsertLine({RunOn(canvas), blockOriginX, blockOriginY, insertColor});
    });
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
};

// From (1000, -1000) to (3000, -2000).
const std::string slanted = Ends(10, 90, 30, 80);

std::string SlantedStroke(COLORREF color, int32_t width = 0) {
  return Stroke(color, 1000, -1000, 3000, -2000, width);
}

// Coordinates.

TEST_F(DimInsertLineTest, its_points_are_scaled_and_moved_to_the_blocks_origin) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // X: 10 * 200 + 500 = 2500 and 20 * 200 + 500 = 4500; Y: 20 * 300 + 1000 = 7000 and 10 * 300 + 1000 = 4000.
  EXPECT_EQ(Stroke(black, 2500, -3000, 4500, -6000), Draw(Ends(10, 20, 20, 10)));
}

TEST_F(DimInsertLineTest, its_points_are_turned_about_the_blocks_origin) {
  blockOriginX = 5000.0;
  blockOriginY = 1000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (2000, 0) and (2000, -1000) from the origin become (0, 2000) and (1000, 2000). Y: 3000.5 - 10000 =
  // -6999.5, cut to -6999.
  EXPECT_EQ(Stroke(black, 5000, -6999, 6000, -6999), Draw(Ends(20, 0, 20, -10)));
}

TEST_F(DimInsertLineTest, the_points_are_kept_in_dim_x_and_dim_y_before_the_turn) {
  blockOriginX = 500.0;
  state.insertScaleX = 2.0;
  state.insertAngle = halfPi;
  Draw(slanted);
  EXPECT_EQ(2500.0, state.dimX[0]);
  EXPECT_EQ(9000.0, state.dimY[0]);
  EXPECT_EQ(6500.0, state.dimX[1]);
  EXPECT_EQ(8000.0, state.dimY[1]);
  EXPECT_EQ(0.0, state.entX[0]);
  EXPECT_EQ(0.0, state.blockX[0]);
}

TEST_F(DimInsertLineTest, each_missing_coordinate_comes_from_such_a_line_before_it) {
  Draw(slanted);
  EXPECT_EQ(Stroke(black, 2000, -1000, 3000, -2000), Draw("10 20\n"));
}

// Group 6. It shows by the filter alone: the stroke is always solid.

TEST_F(DimInsertLineTest, code_6_takes_the_family_of_whole_names_in_any_case_without_a_record) {
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + slanted));
  EXPECT_EQ("", Draw("6 dashed2\n" + slanted));
  EXPECT_EQ(SlantedStroke(black), Draw("6 MY_HIDDEN_LINE\n" + slanted));
  EXPECT_EQ(SlantedStroke(black), Draw("6 DOT\n" + slanted));
}

TEST_F(DimInsertLineTest, center2_and_phantom2_are_not_in_its_list) {
  ExcludeFamily(3);
  ExcludeFamily(4);
  EXPECT_EQ("", Draw("6 CENTER\n" + slanted));
  EXPECT_EQ("", Draw("6 PHANTOM\n" + slanted));
  EXPECT_EQ(SlantedStroke(black), Draw("6 CENTER2\n" + slanted));
  EXPECT_EQ(SlantedStroke(black), Draw("6 PHANTOM2\n" + slanted));
}

TEST_F(DimInsertLineTest, only_continuous_and_continuos_clear_the_layers_family) {
  ExcludeFamily(1);
  EXPECT_EQ(SlantedStroke(black), Draw("8 DASHES\n6 CONTINUOUS\n" + slanted));
  EXPECT_EQ(SlantedStroke(black), Draw("8 DASHES\n6 CONTINUOS\n" + slanted));
  EXPECT_EQ("", Draw("8 DASHES\n6 BYLAYER\n" + slanted));
  EXPECT_EQ("", Draw("8 DASHES\n6 CENTER2\n" + slanted));
}

TEST_F(DimInsertLineTest, by_block_in_any_case_lets_colour_0_keep_the_layers_colour) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n6 ByBlock\n62 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n6 byblock\n62 0\n" + slanted));
}

// Group 8.

TEST_F(DimInsertLineTest, layer_0_takes_the_inserts_colour_and_its_layers_width) {
  EXPECT_EQ(SlantedStroke(magenta, 2), Draw("8 0\n" + slanted));
}

TEST_F(DimInsertLineTest, layer_0_of_an_insert_on_an_unknown_layer_is_nearly_black) {
  SetInsertLayer("GONE");
  EXPECT_EQ(SlantedStroke(countColor), Draw("8 0\n" + slanted));
}

TEST_F(DimInsertLineTest, another_layer_gives_its_own_colour_and_width) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n" + slanted));
}

TEST_F(DimInsertLineTest, an_unknown_layer_leaves_everything) {
  EXPECT_EQ(SlantedStroke(black), Draw("8 GONE\n" + slanted));
}

TEST_F(DimInsertLineTest, a_colour_of_minus_1_in_front_of_a_known_layer_gives_way_to_the_inserts) {
  EXPECT_EQ(SlantedStroke(magenta, 3), Draw("62 -1\n8 DOORS\n" + slanted));
}

TEST_F(DimInsertLineTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("8 DOORS\n" + slanted));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
  ReadGroup(stream);
  EXPECT_EQ(10, state.groupCode);
}

TEST_F(DimInsertLineTest, layer_0_is_excluded_with_the_inserts_layer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + slanted));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

// Group 62.

TEST_F(DimInsertLineTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(SlantedStroke(green, 3), Draw("8 DOORS\n62 3\n" + slanted));
  EXPECT_EQ(SlantedStroke(cyan, 2), Draw("8 0\n62 130\n" + slanted));
  EXPECT_EQ(SlantedStroke(black, 2), Draw("8 0\n62 2\n" + slanted));
}

TEST_F(DimInsertLineTest, a_negative_colour_stays_negative) {
  EXPECT_EQ(SlantedStroke(black, 2), Draw("8 0\n62 -3\n" + slanted));
  EXPECT_EQ(SlantedStroke(countColor, 2), Draw("8 0\n62 -1\n" + slanted));
}

TEST_F(DimInsertLineTest, colour_0_is_black_without_the_inherit_flag) {
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n62 0\n" + slanted));
}

TEST_F(DimInsertLineTest, colour_0_keeps_the_inserts_colour_on_layer_0) {
  EXPECT_EQ(SlantedStroke(magenta, 2), Draw("8 0\n62 0\n" + slanted));
}

TEST_F(DimInsertLineTest, on_an_insert_of_layer_0_colour_0_does_not_take_the_inserts_colour) {
  SetInsertLayer("0");
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + slanted));
}

TEST_F(DimInsertLineTest, the_colour_is_kept_in_dim_color_and_starts_at_0) {
  state.entColor = 4;
  state.blockColor = 4;
  Draw("62 1\n" + slanted);
  EXPECT_EQ(1, state.dimColor);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(SlantedStroke(black), Draw(slanted));
}

// Group 39, and the order of the groups.

TEST_F(DimInsertLineTest, code_39_is_the_pen_width_in_hundreds) {
  EXPECT_EQ(SlantedStroke(black, 2), Draw("39 250\n" + slanted));
}

TEST_F(DimInsertLineTest, code_8_overwrites_what_stands_before_it_and_not_what_stands_behind) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("62 1\n39 700\n8 DOORS\n" + slanted));
  EXPECT_EQ(SlantedStroke(red, 7), Draw("8 DOORS\n62 1\n39 700\n" + slanted));
  EXPECT_EQ(SlantedStroke(magenta, 2), Draw("62 1\n8 0\n" + slanted));
}

// The end of the groups.

TEST_F(DimInsertLineTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(slanted);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimInsertLineTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(SlantedStroke(red), DrawText("0 LINE\n62 1\n" + slanted));
  EXPECT_EQ(0, result);
}

// There is no ordering.

TEST_F(DimInsertLineTest, it_goes_from_group_10_to_group_11_in_any_direction) {
  EXPECT_EQ(Stroke(black, 3000, -2000, 1000, -1000), Draw(Ends(30, 80, 10, 90)));
  EXPECT_EQ(Stroke(black, 1000, -1000, 1000, -2000), Draw(Ends(10, 90, 10, 80)));
}

// The view: (1000, -1000) to (3000, -3000) in canvas coordinates.

class DimInsertLineViewTest : public DimInsertLineTest {
 protected:
  DimInsertLineViewTest() { view = {1000, 1000, 3000, 3000}; }
};

TEST_F(DimInsertLineViewTest, with_the_first_point_inside_the_second_is_clamped_by_its_coordinates) {
  // (2000, -2000) to (5000, -4000): both coordinates are clamped, so the line bends.
  EXPECT_EQ(Stroke(black, 2000, -2000, 3000, -3000), Draw(Ends(20, 80, 50, 60)));
  // (2000, -2000) to (500, -2500): only X is.
  EXPECT_EQ(Stroke(black, 2000, -2000, 1000, -2500), Draw(Ends(20, 80, 5, 75)));
}

TEST_F(DimInsertLineViewTest, with_the_second_point_inside_the_first_is_clamped_by_its_coordinates) {
  // (2500, -500) to (2000, -2000)
  EXPECT_EQ(Stroke(black, 2500, -1000, 2000, -2000), Draw(Ends(25, 95, 20, 80)));
}

TEST_F(DimInsertLineViewTest, a_point_on_the_edge_is_inside) {
  EXPECT_EQ(Stroke(black, 1000, -2000, 1000, -2500), Draw(Ends(10, 80, 0, 75)));
  EXPECT_EQ(Stroke(black, 3000, -3000, 3000, -3000), Draw(Ends(40, 65, 30, 70)));
}

TEST_F(DimInsertLineViewTest, a_line_across_the_view_with_both_ends_outside_is_dropped) {
  EXPECT_EQ("", Draw(Ends(5, 80, 95, 80)));
  EXPECT_EQ("", Draw(Ends(5, 95, 35, 65)));
  EXPECT_EQ(1, result);
}

TEST_F(DimInsertLineViewTest, with_the_whole_sheet_such_a_line_is_clamped) {
  wholeSheet = 1;
  EXPECT_EQ(Stroke(black, 1000, -2000, 3000, -2000), Draw(Ends(5, 80, 95, 80)));
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -3000), Draw(Ends(5, 95, 35, 65)));
  wholeSheet = -1;
  EXPECT_EQ(Stroke(black, 1000, -2000, 3000, -2000), Draw(Ends(5, 80, 95, 80)));
}

TEST_F(DimInsertLineViewTest, with_the_whole_sheet_a_line_beyond_one_edge_is_clamped_to_that_edge) {
  wholeSheet = 1;
  // (0, -1500) to (500, -2500)
  EXPECT_EQ(Stroke(black, 1000, -1500, 1000, -2500), Draw(Ends(0, 85, 5, 75)));
}

// Drawing, filter, monochrome and the turned sheet.

TEST_F(DimInsertLineTest, dashes_are_not_drawn) {
  DefineLtype(0, {0, -200});
  DefineLtype(4, {300, -200});
  DefineLtype(6, {300, -200, 0, -200});
  DefineLtype(10, {300, -200, 0, -200, 0, -200});
  EXPECT_EQ(SlantedStroke(black), Draw("8 DASHES\n" + slanted));
  for (const char* name : {"DOT", "HIDDEN", "CENTER", "DIVIDE"})
    EXPECT_EQ(SlantedStroke(black), Draw("6 " + std::string(name) + "\n" + slanted)) << name;
}

TEST_F(DimInsertLineTest, a_layers_family_is_filtered) {
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("8 DASHES\n" + slanted));
  EXPECT_EQ(1, result);
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DASHES\n8 DOORS\n" + slanted));
}

TEST_F(DimInsertLineTest, the_filter_comes_last_behind_monochrome) {
  state.monochrome = 1;
  ExcludeFamily(0);
  EXPECT_EQ("", Draw("62 1\n" + slanted));
  EXPECT_EQ(0, state.dimColor);
}

TEST_F(DimInsertLineTest, with_monochrome_on_every_line_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(SlantedStroke(black, 2), Draw("8 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n62 1\n" + slanted));
}

TEST_F(DimInsertLineTest, on_a_turned_sheet_the_end_becomes_the_start) {
  state.rotated = 1;
  // (20000 - 3000, -10000 + 2000) to (20000 - 1000, -10000 + 1000)
  EXPECT_EQ(Stroke(black, 17000, -8000, 19000, -9000), Draw(slanted));
}

}  // namespace
}  // namespace hexlume::dim_insert_line_test
