// INSERT in the block of a dimension.

#include <gtest/gtest.h>

#include <string>

#include "composite/insert.h"
#include "support/block_stream.h"

namespace hexlume::dim_insert_test {
namespace {

constexpr int32_t dimensionColor = 6;  // magenta

// From (1000, -1000) to (3000, -2000) in a block that is neither moved, scaled nor turned.
const std::string slanted = LineOf(Ends(10, 90, 30, 80));
const std::string slantedOnLayer0 = LineOf("8 0\n" + Ends(10, 90, 30, 80));

std::string SlantedStroke(COLORREF color = black, int32_t width = 0) {
  return Stroke(color, 1000, -1000, 3000, -2000, width);
}

// From (1000, 2000) to (2000, 1000) in hundredths of the model, from the block's origin.
const std::string nearOrigin = LineOf(Ends(10, 20, 20, 10));

class DimInsertTest : public BlockStreamTest {
 protected:
  DimInsertTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    SetInsertLayer("WALLS");
    AddBlock("A", slantedOnLayer0);
    AddBlock("NEAR", nearOrigin);
    AddBlock("EMPTY", "");
  }

  // The listing of one insert with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 INSERT\n" + groups + "0 CIRCLE\n40 7\n"); }

  std::string DrawText(const std::string& text) {
    OpenAt(text);
    return ListCalls([this](Canvas canvas) { Insert(canvas); });
  }

  void Insert(Canvas canvas) { result = DrawDimInsert({RunOn(canvas), offsetX, offsetY, dimensionColor}); }

  // The colour that an insert with these groups hands on: no entity of its block changes it.
  int32_t ColorOf(const std::string& groups) {
    EXPECT_EQ("", Draw("2 EMPTY\n" + groups));
    return state.dimColor;
  }

  double offsetX = 0.0;
  double offsetY = 0.0;
};

// Group 2.

TEST_F(DimInsertTest, the_block_of_its_name_is_drawn) {
  EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000), Draw("2 NEAR\n10 0\n20 0\n"));
}

TEST_F(DimInsertTest, a_block_is_looked_up_with_its_case) {
  AddBlock("Abc", slanted);
  EXPECT_EQ("", Draw("2 ABC\n10 0\n20 0\n"));
  EXPECT_EQ(SlantedStroke(), Draw("2 Abc\n10 0\n20 0\n"));
}

TEST_F(DimInsertTest, of_two_blocks_of_one_name_the_first_is_drawn) {
  AddBlock("TWICE", slanted);
  AddBlock("TWICE", nearOrigin);
  EXPECT_EQ(SlantedStroke(), Draw("2 TWICE\n"));
}

TEST_F(DimInsertTest, a_second_name_that_no_block_has_leaves_the_first) {
  AddBlock("B", slanted);
  EXPECT_EQ(SlantedStroke(), Draw("2 NEAR\n2 B\n2 GONE\n"));
}

TEST_F(DimInsertTest, without_a_known_block_nothing_is_drawn_and_the_place_in_the_file_is_kept) {
  for (const char* groups : {"2 GONE\n10 1\n20 2\n", "10 1\n20 2\n", ""}) {
    EXPECT_EQ("", Draw(groups)) << groups;
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "CIRCLE")) << groups;
    ReadGroup(stream);
    EXPECT_TRUE(AtGroup(40, "7")) << groups;
  }
}

// Groups 10 and 20.

TEST_F(DimInsertTest, its_point_is_added_to_the_dimensions_offset) {
  offsetX = 300.0;
  offsetY = 400.0;
  // Its origin: (500 + 300, 700 + 400).
  EXPECT_EQ(Stroke(black, 1800, -6900, 2800, -7900), Draw("2 NEAR\n10 5\n20 7\n"));
}

TEST_F(DimInsertTest, its_point_is_not_scaled) {
  EXPECT_EQ(Stroke(black, 2500, -5300, 4500, -7300), Draw("41 2\n42 2\n2 NEAR\n10 5\n20 7\n"));
}

TEST_F(DimInsertTest, without_a_point_the_block_lies_at_the_models_origin_and_not_at_the_offset) {
  offsetX = 300.0;
  offsetY = 400.0;
  EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000), Draw("2 NEAR\n"));
}

TEST_F(DimInsertTest, the_blocks_base_point_is_not_subtracted) {
  AddBlock("BASE", nearOrigin, "10 5\n20 5\n30 0\n");
  EXPECT_EQ(Stroke(black, 1500, -7300, 2500, -8300), Draw("2 BASE\n10 5\n20 7\n"));
}

// Groups 41, 42 and 50.

TEST_F(DimInsertTest, scales_are_set) {
  // X 1000 and 2000 times 3, Y 2000 and 1000 times 1.5.
  EXPECT_EQ(Stroke(black, 3000, -7000, 6000, -8500), Draw("2 NEAR\n41 2\n41 3\n42 4\n42 1.5\n"));
}

TEST_F(DimInsertTest, an_arrow_block_at_scale_0_is_drawn_at_scale_1) {
  for (const char* scale : {"0", "0.0", "-0", "", "none"}) {
    const std::string value = std::string(scale) + "\n";
    EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000),
              Draw("2 NEAR\n41 2\n41 " + value + "42 3\n42 " + value))
        << scale;
  }
}

TEST_F(DimInsertTest, a_negative_x_scale_mirrors_the_block) {
  // X: 5000 - 2 * 1000 and 5000 - 2 * 2000. A line of this scope isn't sorted.
  EXPECT_EQ(Stroke(black, 3000, -8000, 1000, -9000), Draw("2 NEAR\n10 50\n20 0\n41 -2\n"));
}

TEST_F(DimInsertTest, a_negative_y_scale_mirrors_the_block) {
  // Y: 5000 - 2 * 2000 and 5000 - 2 * 1000.
  EXPECT_EQ(Stroke(black, 1000, -9000, 2000, -7000), Draw("2 NEAR\n10 0\n20 50\n42 -2\n"));
}

TEST_F(DimInsertTest, its_angle_in_degrees_turns_the_block_about_its_insertion_point) {
  AddBlock("TURNED", LineOf(Ends(20, 0, 20, -10)), "10 5\n20 5\n30 0\n");
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (2000, 0) and (2000, -1000) become (0, 2000) and (1000, 2000), from (5000, 1000). Y: 3000.5 - 10000.
  EXPECT_EQ(Stroke(black, 5000, -6999, 6000, -6999), Draw("2 TURNED\n10 50\n20 10\n50 90\n"));
}

TEST_F(DimInsertTest, its_angle_is_set_and_takes_pi_with_10_decimals) {
  Draw("2 A\n50 45\n50 90\n");
  EXPECT_DOUBLE_EQ(1.57079632675, state.insertAngle);
}

TEST_F(DimInsertTest, scales_and_angle_are_left_as_they_are) {
  Draw("2 A\n41 2\n42 -3\n50 180\n");
  EXPECT_EQ(2.0, state.insertScaleX);
  EXPECT_EQ(-3.0, state.insertScaleY);
  EXPECT_DOUBLE_EQ(3.1415926535, state.insertAngle);
}

// Group 8, and the colour.

TEST_F(DimInsertTest, without_a_layer_and_a_colour_it_hands_the_dimensions_colour_on) {
  state.entColor = 4;
  EXPECT_EQ(SlantedStroke(magenta), Draw("2 A\n"));
  EXPECT_EQ(4, state.entColor);
  state.dimColor = 3;
  EXPECT_EQ(dimensionColor, ColorOf(""));
}

TEST_F(DimInsertTest, its_layer_gives_the_colour) {
  EXPECT_EQ(SlantedStroke(blue), Draw("8 DOORS\n2 A\n"));
  EXPECT_EQ(5, ColorOf("8 DOORS\n"));
}

TEST_F(DimInsertTest, of_two_layers_of_one_name_the_first_gives_the_colour) {
  AddLayer("DOORS", {}, 4);
  EXPECT_EQ(5, ColorOf("8 DOORS\n"));
}

TEST_F(DimInsertTest, an_unknown_layer_leaves_the_colour) {
  EXPECT_EQ(dimensionColor, ColorOf("8 GONE\n"));
  EXPECT_EQ(5, ColorOf("8 DOORS\n8 GONE\n"));
}

TEST_F(DimInsertTest, on_layer_0_it_takes_the_dimensions_colour_and_not_a_layers) {
  EXPECT_EQ(SlantedStroke(magenta), Draw("8 0\n2 A\n"));
  EXPECT_EQ(dimensionColor, ColorOf("8 0\n"));
  EXPECT_EQ(dimensionColor, ColorOf("8 DOORS\n8 0\n"));
}

TEST_F(DimInsertTest, on_layer_0_of_a_dimension_on_an_unknown_layer_its_colour_is_minus_1) {
  SetInsertLayer("GONE");
  EXPECT_EQ(-1, ColorOf("8 0\n"));
  // The line's own -1 gives way to the insert's, which is -1 as well.
  AddBlock("B", LineOf("62 -1\n8 DOORS\n" + Ends(10, 90, 30, 80)));
  EXPECT_EQ(SlantedStroke(countColor, 3), Draw("8 0\n2 B\n"));
}

TEST_F(DimInsertTest, a_colour_of_minus_1_in_front_of_a_known_layer_gives_way_to_the_dimensions) {
  EXPECT_EQ(dimensionColor, ColorOf("62 -1\n8 DOORS\n"));
  EXPECT_EQ(-1, ColorOf("62 -1\n8 GONE\n"));
}

TEST_F(DimInsertTest, the_layer_of_the_dimension_stays_for_its_block) {
  // The width of 3 is that of the dimension's layer.
  SetInsertLayer("DOORS");
  EXPECT_EQ(SlantedStroke(red, 3), Draw("8 WALLS\n2 A\n"));
  EXPECT_STREQ("DOORS", state.insertLayer);
  Draw("8 0\n2 A\n");
  EXPECT_STREQ("DOORS", state.insertLayer);
}

TEST_F(DimInsertTest, on_an_excluded_layer_it_is_walked_and_its_entities_are_asked_one_by_one) {
  ExcludeLayer("DOORS");
  EXPECT_EQ(SlantedStroke(blue), Draw("8 DOORS\n2 A\n"));
  SetInsertLayer("DOORS");
  EXPECT_EQ("", Draw("8 WALLS\n2 A\n"));
}

// Group 62.

TEST_F(DimInsertTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(SlantedStroke(cyan), Draw("62 130\n2 A\n"));
  EXPECT_EQ(1, ColorOf("62 1\n"));
  EXPECT_EQ(0, ColorOf("62 2\n"));
  EXPECT_EQ(0, ColorOf("62 7\n"));
  EXPECT_EQ(0, ColorOf("62 256\n"));
  EXPECT_EQ(-3, ColorOf("62 -3\n"));
}

TEST_F(DimInsertTest, colour_0_leaves_it) {
  EXPECT_EQ(dimensionColor, ColorOf("62 0\n"));
  EXPECT_EQ(5, ColorOf("8 DOORS\n62 0\n"));
  EXPECT_EQ(4, ColorOf("62 4\n62 0.9\n"));
}

TEST_F(DimInsertTest, the_groups_act_in_the_order_of_the_file) {
  EXPECT_EQ(4, ColorOf("8 DOORS\n62 4\n"));
  EXPECT_EQ(5, ColorOf("62 4\n8 DOORS\n"));
  EXPECT_EQ(dimensionColor, ColorOf("62 4\n8 0\n"));
}

TEST_F(DimInsertTest, monochrome_is_left_to_the_blocks_entities) {
  state.monochrome = 1;
  EXPECT_EQ(dimensionColor, ColorOf(""));
  EXPECT_EQ(5, ColorOf("8 DOORS\n"));
  EXPECT_EQ(SlantedStroke(black), Draw("8 DOORS\n2 A\n"));
}

// Groups that don't count.

TEST_F(DimInsertTest, line_type_extrusion_rows_and_columns_are_ignored) {
  ExcludeFamily(1);
  EXPECT_EQ(SlantedStroke(magenta),
            Draw("5 2F\n6 HIDDEN\n2 A\n10 0\n20 0\n30 9\n39 700\n43 5\n44 50\n45 60\n66 1\n70 3\n71 2\n"));
  EXPECT_EQ(Stroke(black, 1500, -8000, 2500, -9000), Draw("2 NEAR\n10 5\n20 0\n230 -1\n"));
}

// What is handed down.

TEST_F(DimInsertTest, the_view_and_the_whole_sheet_reach_the_blocks_entities) {
  AddBlock("LONG", LineOf(Ends(5, 80, 95, 80)));
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ("", Draw("2 LONG\n"));
  wholeSheet = 1;
  EXPECT_EQ(Stroke(black, 1000, -2000, 3000, -2000), Draw("2 LONG\n"));
}

// The way back.

TEST_F(DimInsertTest, behind_it_the_next_entitys_group_stands_in_the_buffer) {
  Draw("2 A\n10 0\n20 0\n");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(40, "7"));
}

TEST_F(DimInsertTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(SlantedStroke(blue), DrawText("0 INSERT\n8 DOORS\n2 A\n"));
  EXPECT_EQ(1, result);
  EXPECT_EQ(0, ReadGroup(stream));
}

TEST_F(DimInsertTest, a_file_that_ends_right_behind_its_name_ends_its_caller) {
  EXPECT_EQ("", DrawText("0 INSERT\n"));
  EXPECT_EQ(0, result);
  EXPECT_EQ(dimensionColor, state.dimColor);
}

TEST_F(DimInsertTest, a_file_may_end_behind_any_byte) {
  CutAfterEachByte("0 INSERT\n8 0\n2 A\n10 5\n20 6\n41 2\n42 3\n50 30\n62 5\n", [this](Canvas canvas) {
    Insert(canvas);
    EXPECT_EQ(0, ReadGroup(stream));
  });
}

}  // namespace
}  // namespace hexlume::dim_insert_test
