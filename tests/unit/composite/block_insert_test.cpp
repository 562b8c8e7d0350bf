// INSERT in a block.

#include <gtest/gtest.h>

#include <string>

#include "composite/insert.h"
#include "support/block_stream.h"

namespace hexlume::block_insert_test {
namespace {

constexpr COLORREF yellow = 0x00FFFF;
constexpr COLORREF white = 0xFFFFFF;

// From (1000, -1000) to (3000, -2000) in a block that is neither moved, scaled nor turned.
const std::string slanted = LineOf(Ends(10, 90, 30, 80));
const std::string slantedOnLayer0 = LineOf("8 0\n" + Ends(10, 90, 30, 80));

std::string SlantedStroke(COLORREF color = black, int32_t width = 0) {
  return Stroke(color, 1000, -1000, 3000, -2000, width);
}

// From (1000, 2000) to (2000, 1000) in hundredths of the model, from the block's origin.
const std::string nearOrigin = LineOf(Ends(10, 20, 20, 10));

class BlockInsertTest : public BlockStreamTest {
 protected:
  BlockInsertTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    SetInsertLayer("WALLS");
    AddBlock("A", slantedOnLayer0);
    AddBlock("NEAR", nearOrigin);
  }

  // The listing of one insert with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 INSERT\n" + groups + "0 CIRCLE\n40 7\n"); }

  std::string DrawText(const std::string& text) {
    OpenAt(text);
    return ListCalls([this](Canvas canvas) { Insert(canvas); });
  }

  void Insert(Canvas canvas) {
    result = DrawBlockInsert({RunOn(canvas), blockOriginX, blockOriginY, 0, byBlockFlag});
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
  int32_t byBlockFlag = 0;
};

// Group 2.

TEST_F(BlockInsertTest, the_block_of_its_name_is_drawn) {
  EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000), Draw("2 NEAR\n10 0\n20 0\n"));
}

TEST_F(BlockInsertTest, a_block_is_looked_up_with_its_case) {
  AddBlock("Abc", slanted);
  EXPECT_EQ("", Draw("2 ABC\n10 0\n20 0\n"));
  EXPECT_EQ(SlantedStroke(), Draw("2 Abc\n10 0\n20 0\n"));
}

TEST_F(BlockInsertTest, of_two_blocks_of_one_name_the_first_is_drawn) {
  AddBlock("TWICE", slanted);
  AddBlock("TWICE", nearOrigin);
  EXPECT_EQ(SlantedStroke(), Draw("2 TWICE\n"));
}

TEST_F(BlockInsertTest, a_second_name_that_no_block_has_leaves_the_first) {
  AddBlock("B", slanted);
  EXPECT_EQ(SlantedStroke(), Draw("2 NEAR\n2 B\n2 GONE\n"));
}

TEST_F(BlockInsertTest, without_a_known_block_nothing_is_drawn_and_the_place_in_the_file_is_kept) {
  for (const char* groups : {"2 GONE\n10 1\n20 2\n", "10 1\n20 2\n", ""}) {
    EXPECT_EQ("", Draw(groups)) << groups;
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "CIRCLE")) << groups;
    ReadGroup(stream);
    EXPECT_TRUE(AtGroup(40, "7")) << groups;
  }
}

// Groups 10 and 20.

TEST_F(BlockInsertTest, its_point_is_scaled_by_the_block_around_it_and_added_to_its_origin) {
  blockOriginX = 500.0;
  blockOriginY = 700.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // Its origin: 500 * 2 + 500 = 1500 and 400 * 3 + 700 = 1900. The block's line: 1000 * 2 + 1500 and
  // 2000 * 2 + 1500; 2000 * 3 + 1900 and 1000 * 3 + 1900.
  EXPECT_EQ(Stroke(black, 3500, -2100, 5500, -5100), Draw("2 NEAR\n10 5\n20 4\n"));
}

TEST_F(BlockInsertTest, its_point_is_not_turned_by_the_block_around_it) {
  AddBlock("TURNED", LineOf(Ends(20, 0, 20, -10)));
  blockOriginX = 1000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // Its origin is (4000 + 1000, 1000). About it (2000, 0) and (2000, -1000) become (0, 2000) and (1000,
  // 2000). Y: 3000.5 - 10000.
  EXPECT_EQ(Stroke(black, 5000, -6999, 6000, -6999), Draw("2 TURNED\n10 40\n20 10\n"));
}

TEST_F(BlockInsertTest, its_own_scales_count_for_its_point_only_where_they_stand_in_front_of_it) {
  // After: the origin is (500, 400). X: 1000 * 2 + 500 and 2000 * 2 + 500; Y: 2000 * 3 + 400 and
  // 1000 * 3 + 400.
  EXPECT_EQ(Stroke(black, 2500, -3600, 4500, -6600), Draw("2 NEAR\n10 5\n20 4\n41 2\n42 3\n"));
  // In front: (1000, 1200).
  EXPECT_EQ(Stroke(black, 3000, -2800, 5000, -5800), Draw("2 NEAR\n41 2\n42 3\n10 5\n20 4\n"));
}

TEST_F(BlockInsertTest, without_a_point_the_block_lies_at_the_models_origin_and_not_at_the_parents) {
  blockOriginX = 500.0;
  blockOriginY = 700.0;
  EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000), Draw("2 NEAR\n"));
}

// Groups 41, 42 and 50.

TEST_F(BlockInsertTest, scales_multiply) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 0.5;
  // X: 1000 and 2000 by 2 * 1.5; Y: 2000 and 1000 by 0.5 * 4.
  EXPECT_EQ(Stroke(black, 3000, -6000, 6000, -8000), Draw("2 NEAR\n10 0\n20 0\n41 1.5\n42 4\n"));
  // A second one multiplies as well.
  EXPECT_EQ(Stroke(black, 3000, -6000, 6000, -8000), Draw("2 NEAR\n10 0\n20 0\n41 3\n41 0.5\n42 2\n42 2\n"));
}

TEST_F(BlockInsertTest, a_scale_of_0_leaves_that_of_the_block_around_it) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  for (const char* scale : {"0", "0.0", "-0", "", "none"}) {
    const std::string value = std::string(scale) + "\n";
    EXPECT_EQ(Stroke(black, 2000, -4000, 4000, -7000), Draw("2 NEAR\n41 " + value + "42 " + value)) << scale;
  }
}

TEST_F(BlockInsertTest, a_negative_x_scale_mirrors_the_block) {
  // X: 5000 - 2 * 1000 and 5000 - 2 * 2000.
  EXPECT_EQ(Stroke(black, 1000, -9000, 3000, -8000), Draw("2 NEAR\n10 50\n20 0\n41 -2\n"));
}

TEST_F(BlockInsertTest, a_negative_y_scale_mirrors_the_block) {
  // Y: 5000 - 2 * 2000 and 5000 - 2 * 1000.
  EXPECT_EQ(Stroke(black, 1000, -9000, 2000, -7000), Draw("2 NEAR\n10 0\n20 50\n42 -2\n"));
}

TEST_F(BlockInsertTest, angles_add_up) {
  AddBlock("TURNED", LineOf(Ends(20, 0, 20, -10)));
  state.insertAngle = 30.0 * 3.1415926535 / 180.0;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // 30 + 60 = 90 degrees: as the turned block above, from (5000, 1000).
  EXPECT_EQ(Stroke(black, 5000, -6999, 6000, -6999), Draw("2 TURNED\n10 50\n20 10\n50 60\n"));
  EXPECT_EQ(Stroke(black, 5000, -6999, 6000, -6999), Draw("2 TURNED\n10 50\n20 10\n50 100\n50 -40\n"));
}

// The base point.

TEST_F(BlockInsertTest, a_base_point_is_subtracted_with_all_scales_and_unturned) {
  AddBlock("BASE", LineOf(Ends(10, -20, 20, -30)), "10 5\n20 5\n30 0\n");
  state.insertScaleX = 4.0;
  state.insertScaleY = 4.0;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // Its point: 500 * 4 = 2000. Scales 4 * 0.5 = 2: the origin is 2000 - 500 * 2 = 1000. (2000, -4000) and
  // (4000, -6000) become (4000, 2000) and (6000, 4000). Y: 3000.5 - 10000 and 5000.5 - 10000.
  EXPECT_EQ(Stroke(black, 5000, -6999, 7000, -4999), Draw("2 BASE\n10 5\n20 5\n41 0.5\n42 0.5\n50 90\n"));
}

// Group 62, and the groups that don't count.

TEST_F(BlockInsertTest, its_colour_is_the_drawings_number_itself) {
  EXPECT_EQ(SlantedStroke(red), Draw("2 A\n62 1\n"));
  EXPECT_EQ(SlantedStroke(yellow), Draw("2 A\n62 2\n"));
  EXPECT_EQ(SlantedStroke(white), Draw("2 A\n62 7\n"));
  EXPECT_EQ(SlantedStroke(black), Draw("2 A\n62 8\n"));
  EXPECT_EQ(SlantedStroke(black), Draw("2 A\n62 130\n"));  // an ENTITIES one makes that cyan
  EXPECT_EQ(SlantedStroke(black), Draw("2 A\n62 256\n"));
  EXPECT_EQ(SlantedStroke(countColor), Draw("2 A\n62 -1\n"));
}

TEST_F(BlockInsertTest, without_a_colour_it_hands_black_on_whatever_the_one_around_it_had) {
  state.entColor = 6;
  state.blockColor = 5;
  EXPECT_EQ(SlantedStroke(black), Draw("2 A\n"));
  EXPECT_EQ(6, state.entColor);
}

TEST_F(BlockInsertTest, its_colour_is_kept_in_no_field) {
  state.entColor = 6;
  state.dimColor = 5;
  AddBlock("EMPTY", "");
  state.blockColor = 4;
  Draw("2 EMPTY\n62 1\n");
  EXPECT_EQ(6, state.entColor);
  EXPECT_EQ(5, state.dimColor);
  EXPECT_EQ(4, state.blockColor);
}

TEST_F(BlockInsertTest, its_layer_is_ignored) {
  EXPECT_EQ(SlantedStroke(black), Draw("8 DOORS\n2 A\n"));
  EXPECT_STREQ("WALLS", state.insertLayer);
  EXPECT_EQ(SlantedStroke(cyan), Draw("62 4\n8 0\n2 A\n"));
  EXPECT_STREQ("WALLS", state.insertLayer);
  ExcludeLayer("DOORS");
  EXPECT_EQ(SlantedStroke(black), Draw("8 DOORS\n2 A\n"));
}

TEST_F(BlockInsertTest, its_line_type_is_ignored) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ(SlantedStroke(), Draw("6 HIDDEN\n2 A\n6 ByBlock\n"));
}

TEST_F(BlockInsertTest, its_extrusion_is_ignored) {
  EXPECT_EQ(Stroke(black, 1500, -8000, 2500, -9000), Draw("2 NEAR\n10 5\n230 -1\n"));
}

TEST_F(BlockInsertTest, rows_columns_and_what_else_it_may_have_are_ignored) {
  EXPECT_EQ(SlantedStroke(),
            Draw("5 2F\n2 A\n10 0\n20 0\n30 9\n39 700\n43 5\n44 50\n45 60\n66 1\n70 3\n71 2\n"));
}

TEST_F(BlockInsertTest, with_monochrome_on_its_block_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(SlantedStroke(black), Draw("2 A\n62 6\n"));
}

// The way back.

TEST_F(BlockInsertTest, behind_it_the_next_entitys_group_stands_in_the_buffer) {
  Draw("2 A\n10 0\n20 0\n");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(40, "7"));
}

TEST_F(BlockInsertTest, scales_and_angle_are_put_back_for_the_block_around_it) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = 0.25;
  for (const char* name : {"A", "GONE"}) {
    Draw("2 " + std::string(name) + "\n41 5\n42 -7\n50 30\n");
    EXPECT_EQ(2.0, state.insertScaleX) << name;
    EXPECT_EQ(3.0, state.insertScaleY) << name;
    EXPECT_EQ(0.25, state.insertAngle) << name;
  }
}

TEST_F(BlockInsertTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has_and_scales_are_put_back) {
  EXPECT_EQ(Stroke(black, 2000, -8000, 4000, -9000), DrawText("0 INSERT\n2 NEAR\n41 2\n"));
  EXPECT_EQ(0, result);
  EXPECT_EQ(1.0, state.insertScaleX);
}

TEST_F(BlockInsertTest, a_file_may_end_behind_any_byte) {
  CutAfterEachByte("0 INSERT\n8 WALLS\n2 A\n10 5\n20 6\n41 2\n42 3\n50 30\n62 5\n", [this](Canvas canvas) {
    Insert(canvas);
    EXPECT_EQ(0, result);
    EXPECT_EQ(0, ReadGroup(stream));
    EXPECT_EQ(1.0, state.insertScaleX);
    EXPECT_EQ(1.0, state.insertScaleY);
    EXPECT_EQ(0.0, state.insertAngle);
  });
}

// Blocks in blocks, played back by an insert of the section.

class NestedInsertTest : public BlockInsertTest {
 protected:
  // The listing of one insert of the section with these groups.
  std::string DrawOuter(const std::string& groups) {
    OpenAt("0 INSERT\n" + groups + "0 CIRCLE\n40 7\n");
    return ListCalls([this](Canvas canvas) { result = DrawInsert({RunOn(canvas)}); });
  }
};

TEST_F(NestedInsertTest, what_follows_a_nested_insert_is_drawn_with_the_outer_scales) {
  AddBlock("OUTER", "0 INSERT\n2 NEAR\n10 10\n20 5\n41 2\n42 2\n62 5\n" + nearOrigin);
  // Within the outer scale of 2 the nested one is at (2000, 1000) and has the scale 4: X 1000 * 4 + 2000
  // and 2000 * 4 + 2000, Y 2000 * 4 + 1000 and 1000 * 4 + 1000. The line itself: twice its coordinates.
  EXPECT_EQ(Stroke(black, 6000, -1000, 10000, -5000) + Stroke(black, 2000, -6000, 4000, -8000),
            DrawOuter("8 WALLS\n2 OUTER\n41 2\n42 2\n"));
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(NestedInsertTest, scales_multiply_down_a_chain_of_three) {
  AddBlock("INNER", "0 INSERT\n2 NEAR\n41 0.5\n42 5\n");
  AddBlock("OUTER", "0 INSERT\n2 INNER\n41 3\n42 0.25\n" + nearOrigin);
  // X 2 * 3 * 0.5 = 3, Y 2 * 0.25 * 5 = 2.5; then 2 and 2.
  EXPECT_EQ(Stroke(black, 3000, -5000, 6000, -7500) + Stroke(black, 2000, -6000, 4000, -8000),
            DrawOuter("2 OUTER\n41 2\n42 2\n"));
}

TEST_F(NestedInsertTest, a_nested_origin_is_found_from_the_outer_one) {
  AddBlock("OUTER", "0 INSERT\n2 NEAR\n10 3\n20 4\n", "10 1\n20 2\n30 0\n");
  // The outer origin: 1000 - 100 * 2 = 800 and 1000 - 200 * 2 = 600. The nested one: 300 * 2 + 800 = 1400 and
  // 400 * 2 + 600 = 1400. X 1000 * 2 + 1400 and 2000 * 2 + 1400, Y the other way round.
  EXPECT_EQ(Stroke(black, 3400, -4600, 5400, -6600), DrawOuter("2 OUTER\n10 10\n20 10\n41 2\n42 2\n"));
}

TEST_F(NestedInsertTest, angles_add_up_and_are_taken_back) {
  AddBlock("TURNED", LineOf(Ends(20, 0, 20, -10)));
  AddBlock("OUTER", "0 INSERT\n2 TURNED\n10 20\n20 0\n50 60\n0 INSERT\n2 TURNED\n10 40\n20 0\n50 60\n");
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // Each is turned by 30 + 60 degrees about where it is unturned: (3000, 1000) and (5000, 1000).
  EXPECT_EQ(Stroke(black, 3000, -6999, 4000, -6999) + Stroke(black, 5000, -6999, 6000, -6999),
            DrawOuter("2 OUTER\n10 10\n20 10\n50 30\n"));
  EXPECT_DOUBLE_EQ(30.0 * 3.1415926535 / 180.0, state.insertAngle);
}

TEST_F(NestedInsertTest, the_colour_of_the_outer_insert_is_not_inherited) {
  AddBlock("OUTER", slantedOnLayer0 + "0 INSERT\n2 A\n" + "0 INSERT\n2 A\n62 3\n" + slantedOnLayer0);
  EXPECT_EQ(SlantedStroke(magenta) + SlantedStroke(black) + SlantedStroke(green) + SlantedStroke(magenta),
            DrawOuter("8 WALLS\n62 6\n2 OUTER\n"));
}

TEST_F(NestedInsertTest, the_layer_stays_that_of_the_outer_insert) {
  AddBlock("OUTER", "0 INSERT\n8 WALLS\n2 A\n62 6\n");
  // The width of 3 is that of the outer insert's layer.
  EXPECT_EQ(SlantedStroke(magenta, 3), DrawOuter("8 DOORS\n2 OUTER\n"));
}

TEST_F(NestedInsertTest, a_nested_insert_of_no_known_block_does_not_disturb_the_outer_block) {
  AddBlock("OUTER", "0 INSERT\n2 GONE\n41 9\n" + slanted);
  EXPECT_EQ(SlantedStroke(), DrawOuter("2 OUTER\n"));
}

TEST_F(NestedInsertTest, a_block_may_be_played_back_many_times) {
  AddBlock("OUTER", "0 INSERT\n2 A\n0 INSERT\n2 A\n0 INSERT\n2 A\n");
  EXPECT_EQ(SlantedStroke() + SlantedStroke() + SlantedStroke(), DrawOuter("8 WALLS\n2 OUTER\n"));
}

}  // namespace
}  // namespace hexlume::block_insert_test
