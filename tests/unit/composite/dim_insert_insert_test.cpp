// INSERT in a block that is inserted in a dimension's block.

#include <gtest/gtest.h>

#include <string>

#include "composite/insert.h"
#include "support/block_stream.h"

namespace hexlume::dim_insert_insert_test {
namespace {

// From (1000, -1000) to (3000, -2000) in a block that is neither moved, scaled nor turned.
const std::string slanted = LineOf(Ends(10, 90, 30, 80));
const std::string slantedOnLayer0 = LineOf("8 0\n" + Ends(10, 90, 30, 80));

std::string SlantedStroke(COLORREF color = black, int32_t width = 0) {
  return Stroke(color, 1000, -1000, 3000, -2000, width);
}

// From (1000, 2000) to (2000, 1000) in hundredths of the model, from the block's origin.
const std::string nearOrigin = LineOf(Ends(10, 20, 20, 10));

class DimInsertInsertTest : public BlockStreamTest {
 protected:
  DimInsertInsertTest() {
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

  void Insert(Canvas canvas) { result = DrawDimInsertInsert({RunOn(canvas), blockOriginX, blockOriginY}); }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
};

// Group 2.

TEST_F(DimInsertInsertTest, the_block_of_its_name_is_drawn) {
  EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000), Draw("2 NEAR\n10 0\n20 0\n"));
}

TEST_F(DimInsertInsertTest, a_block_is_looked_up_with_its_case) {
  AddBlock("Abc", slanted);
  EXPECT_EQ("", Draw("2 ABC\n10 0\n20 0\n"));
  EXPECT_EQ(SlantedStroke(), Draw("2 Abc\n10 0\n20 0\n"));
}

TEST_F(DimInsertInsertTest, of_blocks_of_one_name_the_last_is_drawn) {
  AddBlock("OFTEN", nearOrigin);
  AddBlock("OFTEN", nearOrigin);
  AddBlock("OFTEN", slanted);
  EXPECT_EQ(SlantedStroke(), Draw("2 OFTEN\n"));
}

TEST_F(DimInsertInsertTest, a_second_name_that_no_block_has_leaves_the_first) {
  AddBlock("B", slanted);
  EXPECT_EQ(SlantedStroke(), Draw("2 NEAR\n2 B\n2 GONE\n"));
}

TEST_F(DimInsertInsertTest, without_a_known_block_nothing_is_drawn_and_the_place_in_the_file_is_kept) {
  for (const char* groups : {"2 GONE\n10 1\n20 2\n", "10 1\n20 2\n", ""}) {
    EXPECT_EQ("", Draw(groups)) << groups;
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "CIRCLE")) << groups;
    ReadGroup(stream);
    EXPECT_TRUE(AtGroup(40, "7")) << groups;
  }
}

// Groups 10 and 20.

TEST_F(DimInsertInsertTest, its_point_is_added_to_the_outer_origin_unscaled) {
  blockOriginX = 500.0;
  blockOriginY = 700.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // Its origin: (500 + 500, 400 + 700). X 1000 * 2 + 1000 and 2000 * 2 + 1000, Y 2000 * 3 + 1100 and
  // 1000 * 3 + 1100.
  EXPECT_EQ(Stroke(black, 3000, -2900, 5000, -5900), Draw("2 NEAR\n10 5\n20 4\n"));
}

TEST_F(DimInsertInsertTest, its_point_is_not_turned_by_the_block_around_it) {
  AddBlock("TURNED", LineOf(Ends(20, 0, 20, -10)));
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (2000, 0) and (2000, -1000) become (0, 2000) and (1000, 2000), from (5000, 1000). Y: 3000.5 - 10000.
  EXPECT_EQ(Stroke(black, 5000, -6999, 6000, -6999), Draw("2 TURNED\n10 50\n20 10\n"));
}

TEST_F(DimInsertInsertTest, without_a_point_the_block_lies_at_the_models_origin_and_not_at_the_outer_one) {
  blockOriginX = 500.0;
  blockOriginY = 700.0;
  EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000), Draw("2 NEAR\n"));
}

TEST_F(DimInsertInsertTest, its_blocks_base_point_is_subtracted) {
  AddBlock("BASE", nearOrigin, "10 5\n20 5\n30 0\n");
  state.insertScaleY = 3.0;
  // The origin: 1000 - 500 * 2 = 0 and 2000 - 500 * 3 = 500.
  EXPECT_EQ(Stroke(black, 2000, -3500, 4000, -6500), Draw("2 BASE\n10 10\n20 20\n41 2\n"));
}

// Groups 41, 42 and 50.

TEST_F(DimInsertInsertTest, an_x_scale_is_set_in_place_of_the_outer_one) {
  state.insertScaleX = 2.0;
  EXPECT_EQ(Stroke(black, 3000, -8000, 6000, -9000), Draw("2 NEAR\n41 3\n"));
}

TEST_F(DimInsertInsertTest, an_x_scale_of_0_is_1) {
  state.insertScaleX = 2.0;
  for (const char* scale : {"0", "-0", "", "none"})
    EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000), Draw("2 NEAR\n41 " + std::string(scale) + "\n"))
        << scale;
}

TEST_F(DimInsertInsertTest, a_negative_x_scale_mirrors_the_block) {
  // X: 5000 - 2 * 1000 and 5000 - 2 * 2000, sorted.
  EXPECT_EQ(Stroke(black, 1000, -9000, 3000, -8000), Draw("2 NEAR\n10 50\n41 -2\n"));
}

TEST_F(DimInsertInsertTest, a_y_scale_is_not_read) {
  state.insertScaleY = 3.0;
  EXPECT_EQ(Stroke(black, 1000, -4000, 2000, -7000), Draw("2 NEAR\n42 2\n"));
  EXPECT_EQ(3.0, state.insertScaleY);
}

TEST_F(DimInsertInsertTest, without_a_scale_the_outer_one_counts) {
  state.insertScaleX = 2.0;
  EXPECT_EQ(Stroke(black, 2000, -8000, 4000, -9000), Draw("2 NEAR\n"));
}

TEST_F(DimInsertInsertTest, its_angle_is_set_in_place_of_the_outer_one) {
  AddBlock("TURNED", LineOf(Ends(20, 0, 20, -10)));
  state.insertAngle = 1.0;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  EXPECT_EQ(Stroke(black, 5000, -6999, 6000, -6999), Draw("2 TURNED\n10 50\n20 10\n50 45\n50 90\n"));
  EXPECT_DOUBLE_EQ(1.57079632675, state.insertAngle);
}

// Group 62, and the groups that don't count.

TEST_F(DimInsertInsertTest, its_colour_is_mapped) {
  EXPECT_EQ(SlantedStroke(magenta), Draw("2 A\n62 6\n"));
  EXPECT_EQ(SlantedStroke(cyan), Draw("2 A\n62 130\n"));
  EXPECT_EQ(SlantedStroke(black), Draw("2 A\n62 2\n"));
  EXPECT_EQ(SlantedStroke(black), Draw("2 A\n62 7\n"));
  EXPECT_EQ(SlantedStroke(black), Draw("2 A\n62 6\n62 0\n"));
  EXPECT_EQ(SlantedStroke(countColor), Draw("2 A\n62 -1\n"));
}

TEST_F(DimInsertInsertTest, without_a_colour_it_hands_black_on) {
  state.entColor = 6;
  state.dimColor = 5;
  EXPECT_EQ(SlantedStroke(black), Draw("2 A\n"));
}

TEST_F(DimInsertInsertTest, its_colour_is_kept_in_no_field) {
  AddBlock("EMPTY", "");
  state.entColor = 6;
  state.dimColor = 5;
  state.blockColor = 4;
  Draw("2 EMPTY\n62 1\n");
  EXPECT_EQ(6, state.entColor);
  EXPECT_EQ(5, state.dimColor);
  EXPECT_EQ(4, state.blockColor);
}

TEST_F(DimInsertInsertTest, its_layer_is_ignored) {
  EXPECT_EQ(SlantedStroke(black), Draw("8 DOORS\n2 A\n"));
  EXPECT_EQ(SlantedStroke(cyan), Draw("62 4\n8 0\n2 A\n"));
  EXPECT_STREQ("WALLS", state.insertLayer);
}

TEST_F(DimInsertInsertTest, line_type_extrusion_rows_and_columns_are_ignored) {
  ExcludeFamily(1);
  EXPECT_EQ(SlantedStroke(),
            Draw("5 2F\n6 HIDDEN\n2 A\n10 0\n20 0\n30 9\n39 700\n43 5\n44 50\n45 60\n66 1\n70 3\n71 2\n"));
  EXPECT_EQ(Stroke(black, 1500, -8000, 2500, -9000), Draw("2 NEAR\n10 5\n20 0\n230 -1\n"));
}

TEST_F(DimInsertInsertTest, with_monochrome_on_its_block_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(SlantedStroke(black), Draw("2 A\n62 6\n"));
}

// Its block is one of any insert: lines are dashed and cut there, which a dimension's own aren't.

TEST_F(DimInsertInsertTest, its_entities_are_those_of_a_block) {
  DefineLtype(4, {300, -200});
  AddBlock("DASHED", LineOf("6 HIDDEN\n" + Ends(10, 90, 17, 90)));
  EXPECT_EQ(InPen(black,
                  "MoveToEx(1000, -1000)\nLineTo(1300, -1000)\nMoveToEx(1500, -1000)\nLineTo(1700, "
                  "-1000)\n"),
            Draw("2 DASHED\n"));
  AddBlock("LONG", LineOf(Ends(5, 80, 95, 80)));
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ(Stroke(black, 1000, -2000, 3000, -2000), Draw("2 LONG\n"));
}

// The way back.

TEST_F(DimInsertInsertTest, behind_it_the_next_entitys_group_stands_in_the_buffer) {
  Draw("2 A\n10 0\n20 0\n");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(40, "7"));
}

TEST_F(DimInsertInsertTest, scale_and_angle_stay_for_what_follows_in_the_block_around_it) {
  AddBlock("OUTER", nearOrigin + "0 INSERT\n2 NEAR\n41 3\n50 0\n" + nearOrigin);
  OpenAt("0 INSERT\n2 OUTER\n41 2\n0 CIRCLE\n");
  const std::string calls = ListCalls([this](Canvas canvas) { result = DrawDimInsert({RunOn(canvas)}); });
  EXPECT_EQ(Stroke(black, 2000, -8000, 4000, -9000) + Stroke(black, 3000, -8000, 6000, -9000) +
                Stroke(black, 3000, -8000, 6000, -9000),
            calls);
  EXPECT_EQ(3.0, state.insertScaleX);
  Draw("2 A\n50 180\n");
  EXPECT_DOUBLE_EQ(3.1415926535, state.insertAngle);
}

TEST_F(DimInsertInsertTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(SlantedStroke(blue), DrawText("0 INSERT\n62 5\n2 A\n"));
  EXPECT_EQ(0, result);
}

TEST_F(DimInsertInsertTest, a_file_may_end_behind_any_byte) {
  CutAfterEachByte("0 INSERT\n8 0\n2 A\n10 5\n20 6\n41 2\n42 3\n50 30\n62 5\n", [this](Canvas canvas) {
    Insert(canvas);
    EXPECT_EQ(0, result);
    EXPECT_EQ(0, ReadGroup(stream));
  });
}

}  // namespace
}  // namespace hexlume::dim_insert_insert_test
