// INSERT in a block.

#include <gtest/gtest.h>

#include <string>

#include "composite/insert.h"
#include "support/block_stream.h"

namespace hexlume {
namespace {

constexpr COLORREF yellow = 0x00FFFF;
constexpr COLORREF white = 0xFFFFFF;

// From (1000, -1000) to (3000, -2000) in a block that is neither moved, scaled nor turned.
const std::string slanted = LineOf(Ends(10, 90, 30, 80));
const std::string slantedOnLayer0 = LineOf("8 0\n" + Ends(10, 90, 30, 80));

std::string SlantedStroke(COLORREF colour = black, int32_t width = 0) {
  return Stroke(colour, 1000, -1000, 3000, -2000, width);
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
    result =
        DrawBlockInsert(headerVars, stream, canvas, blockOriginX, blockOriginY, view, 0, 0, 0, byBlockFlag);
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
  // Behind: the origin is (500, 400). X: 1000 * 2 + 500 and 2000 * 2 + 500; Y: 2000 * 3 + 400 and
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

}  // namespace
}  // namespace hexlume
