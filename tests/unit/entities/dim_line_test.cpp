// LINE in the block of a dimension.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/line.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::dim_line_test {
namespace {

class DimLineTest : public ConverterTest {
 protected:
  DimLineTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {0, 0, 2}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    SetInsertLayer("WALLS");
  }

  // The listing of one line with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 LINE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawDimLine({RunOn(canvas), offsetX, offsetY}); });
  }

  double offsetX = 0.0;
  double offsetY = 0.0;
};

// From (1000, -1000) to (3000, -2000), slope -0.5.
const std::string slanted = Ends(10, 90, 30, 80);

std::string SlantedStroke(COLORREF color, int32_t width = 0) {
  return Stroke(color, 1000, -1000, 3000, -2000, width);
}

// Coordinates.

TEST_F(DimLineTest, its_points_are_moved_by_the_offset) {
  offsetX = 500.0;
  offsetY = -1000.0;
  EXPECT_EQ(Stroke(black, 1500, -2000, 3500, -3000), Draw(slanted));
}

TEST_F(DimLineTest, neither_the_inserts_scale_nor_its_angle_counts) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = 1.0;
  EXPECT_EQ(SlantedStroke(black), Draw(slanted));
}

TEST_F(DimLineTest, the_points_are_kept_in_ent_x_and_ent_y_with_the_offset) {
  offsetX = 500.0;
  offsetY = -1000.0;
  Draw(slanted);
  EXPECT_EQ(1500.0, state.entX[0]);
  EXPECT_EQ(8000.0, state.entY[0]);
  EXPECT_EQ(3500.0, state.entX[1]);
  EXPECT_EQ(7000.0, state.entY[1]);
  EXPECT_EQ(0.0, state.blockX[0]);
  EXPECT_EQ(0.0, state.dimX[0]);
}

TEST_F(DimLineTest, a_missing_coordinate_comes_from_the_line_before_it_with_that_ones_offset) {
  offsetX = 500.0;
  Draw(slanted);
  offsetX = 0.0;
  // From (1000, -1000) to (3500, -1000): the end's X is 3000 + 500.
  EXPECT_EQ(Stroke(black, 1000, -1000, 3500, -1000), Draw("10 10\n21 90\n"));
}

// Group 6.

TEST_F(DimLineTest, code_6_is_not_read) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(SlantedStroke(black), Draw("6 HIDDEN\n" + slanted));
  ExcludeFamily(1);
  EXPECT_EQ(SlantedStroke(black), Draw("6 HIDDEN\n" + slanted));
}

TEST_F(DimLineTest, code_6_does_not_clear_the_layers_family) {
  AddLayer("DASHES", {1, 4, 0}, 0);
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("8 DASHES\n6 BYLAYER\n" + slanted));
}

// Group 8.

TEST_F(DimLineTest, layer_0_is_replaced_by_the_inserts_layer) {
  EXPECT_EQ(SlantedStroke(red, 2), Draw("8 0\n" + slanted));
}

TEST_F(DimLineTest, layer_0_on_an_insert_of_an_unknown_layer_leaves_everything) {
  SetInsertLayer("GONE");
  EXPECT_EQ(SlantedStroke(black), Draw("8 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(blue), Draw("62 5\n8 0\n" + slanted));
}

TEST_F(DimLineTest, layer_0_on_an_insert_of_layer_0_is_layer_0) {
  SetInsertLayer("0");
  EXPECT_EQ(SlantedStroke(green), Draw("8 0\n" + slanted));
}

TEST_F(DimLineTest, another_layer_gives_its_own_colour_and_width) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n" + slanted));
}

TEST_F(DimLineTest, an_unknown_layer_leaves_everything) {
  EXPECT_EQ(SlantedStroke(black), Draw("8 GONE\n" + slanted));
}

TEST_F(DimLineTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("8 DOORS\n" + slanted));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
  ReadGroup(stream);
  EXPECT_EQ(10, state.groupCode);
}

TEST_F(DimLineTest, layer_0_is_excluded_with_the_inserts_layer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + slanted));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(DimLineTest, an_excluded_layer_0_does_not_count_under_another_inserts_layer) {
  ExcludeLayer("0");
  EXPECT_EQ(SlantedStroke(red, 2), Draw("8 0\n" + slanted));
}

// Group 62.

TEST_F(DimLineTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(SlantedStroke(green, 3), Draw("8 DOORS\n62 3\n" + slanted));
  EXPECT_EQ(SlantedStroke(cyan, 3), Draw("8 DOORS\n62 130\n" + slanted));
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n62 256\n" + slanted));
}

TEST_F(DimLineTest, colour_0_keeps_the_layers_colour) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n62 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(red, 2), Draw("8 0\n62 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(black), Draw("62 0\n" + slanted));
}

TEST_F(DimLineTest, what_colour_0_keeps_is_mapped) {
  AddLayer("WHITE", {}, 7);
  EXPECT_EQ(Stroke(0xFFFFFF, 1000, -1000, 3000, -2000), Draw("8 WHITE\n" + slanted));
  EXPECT_EQ(SlantedStroke(black), Draw("8 WHITE\n62 0\n" + slanted));
}

TEST_F(DimLineTest, a_negative_colour_stays_negative) {
  EXPECT_EQ(SlantedStroke(black), Draw("62 -3\n" + slanted));
  EXPECT_EQ(SlantedStroke(countColor), Draw("62 -1\n" + slanted));
}

TEST_F(DimLineTest, the_colour_is_kept_in_ent_color_and_starts_at_0) {
  state.blockColor = 4;
  state.dimColor = 4;
  Draw("62 1\n" + slanted);
  EXPECT_EQ(1, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(SlantedStroke(black), Draw("62 0\n" + slanted));
}

// Group 39, and the order of the groups.

TEST_F(DimLineTest, code_39_is_the_pen_width_in_hundreds) {
  EXPECT_EQ(SlantedStroke(black, 2), Draw("39 250\n" + slanted));
}

TEST_F(DimLineTest, code_8_overwrites_what_stands_before_it_and_not_what_stands_behind) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("62 1\n39 700\n8 DOORS\n" + slanted));
  EXPECT_EQ(SlantedStroke(red, 7), Draw("8 DOORS\n62 1\n39 700\n" + slanted));
}

// The end of the groups.

TEST_F(DimLineTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(slanted);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimLineTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(SlantedStroke(red), DrawText("0 LINE\n62 1\n" + slanted));
  EXPECT_EQ(0, result);
}

// Ordering, by the X of the model.

TEST_F(DimLineTest, a_line_is_drawn_from_its_smaller_model_x) {
  EXPECT_EQ(SlantedStroke(black), Draw(Ends(30, 80, 10, 90)));
}

TEST_F(DimLineTest, a_line_with_equal_x_is_drawn_from_its_second_point_to_its_first) {
  EXPECT_EQ(Stroke(black, 1000, -2000, 1000, -1000), Draw(Ends(10, 90, 10, 80)));
}

TEST_F(DimLineTest, the_model_x_decides_even_where_the_sheet_x_is_the_same) {
  // 1000.1 and 1000.4 are both cut to 1000.
  EXPECT_EQ(Stroke(black, 1000, -1000, 1000, -2000), Draw(Ends(10.001, 90, 10.004, 80)));
  EXPECT_EQ(Stroke(black, 1000, -2000, 1000, -1000), Draw(Ends(10.004, 90, 10.001, 80)));
}

// The view.

TEST_F(DimLineTest, a_line_beyond_one_edge_is_dropped) {
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ("", Draw(Ends(5, 80, 9.99, 81)));
  EXPECT_EQ("", Draw(Ends(30.01, 80, 40, 81)));
  EXPECT_EQ("", Draw(Ends(15, 90.01, 16, 95)));
  EXPECT_EQ("", Draw(Ends(15, 69.99, 16, 65)));
  EXPECT_EQ(1, result);
}

TEST_F(DimLineTest, an_axis_parallel_line_is_clamped) {
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ(Stroke(black, 1000, -2000, 3000, -2000), Draw(Ends(5, 80, 95, 80)));
  EXPECT_EQ(Stroke(black, 2000, -3000, 2000, -1000), Draw(Ends(20, 99, 20, 5)));
}

TEST_F(DimLineTest, a_slanted_line_is_not_cut) {
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ(Stroke(black, 0, -500, 4000, -3500), Draw(Ends(0, 95, 40, 65)));
}

TEST_F(DimLineTest, a_slanted_line_that_misses_the_view_past_a_corner_is_drawn) {
  view = {0, 0, 1000, 1000};
  // From (-1000, -3200) to (500, -200): where the other twins find nothing left of it.
  EXPECT_EQ(Stroke(black, -1000, -3200, 500, -200), Draw(Ends(-10, 68, 5, 98)));
}

// Drawing, filter, monochrome and the turned sheet.

TEST_F(DimLineTest, a_layers_dashes_are_not_drawn) {
  DefineLtype(4, {300, -200});
  DefineLtype(0, {0, -200});
  DefineLtype(6, {300, -200, 0, -200});
  DefineLtype(10, {300, -200, 0, -200, 0, -200});
  AddLayer("HIDDEN", {1, 4, 0}, 0);
  AddLayer("DOT", {2, 0, 0}, 0);
  AddLayer("CENTER", {3, 6, 0}, 0);
  AddLayer("DIVIDE", {4, 10, 0}, 0);
  for (const char* layer : {"HIDDEN", "DOT", "CENTER", "DIVIDE"})
    EXPECT_EQ(SlantedStroke(black), Draw("8 " + std::string(layer) + "\n" + slanted)) << layer;
}

TEST_F(DimLineTest, a_layers_family_is_filtered) {
  AddLayer("DASHES", {1, 4, 0}, 0);
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("8 DASHES\n" + slanted));
  EXPECT_EQ(1, result);
  EXPECT_EQ(SlantedStroke(black), Draw(slanted));
}

TEST_F(DimLineTest, the_filter_stands_behind_the_groups) {
  AddLayer("DASHES", {1, 4, 0}, 0);
  ExcludeFamily(1);
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DASHES\n8 DOORS\n" + slanted));
}

TEST_F(DimLineTest, with_monochrome_on_every_line_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n" + slanted));
  EXPECT_EQ(SlantedStroke(black), Draw("62 1\n" + slanted));
}

TEST_F(DimLineTest, on_a_turned_sheet_the_end_becomes_the_start) {
  state.rotated = 1;
  // (20000 - 3000, -10000 + 2000) to (20000 - 1000, -10000 + 1000)
  EXPECT_EQ(Stroke(black, 17000, -8000, 19000, -9000), Draw(slanted));
}

}  // namespace
}  // namespace hexlume::dim_line_test
