// DIMENSION: its own groups, and the way to its block and back.

#include "composite/dimension.h"

#include <gtest/gtest.h>

#include <string>

#include "composite/block_dispatch.h"
#include "entities/block_level.h"
#include "platform/fault_guard.h"
#include "support/block_stream.h"
#include "support/mtext_calls.h"

namespace hexlume::dimension_test {
namespace {

// From (1000, -1000) to (3000, -2000) in a block that isn't moved.
const std::string slanted = LineOf(Ends(10, 90, 30, 80));
const std::string slantedOnLayer0 = LineOf("8 0\n" + Ends(10, 90, 30, 80));

std::string SlantedStroke(COLORREF color = black, int32_t width = 0) {
  return Stroke(color, 1000, -1000, 3000, -2000, width);
}

class DimensionTest : public BlockStreamTest {
 protected:
  DimensionTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    AddBlock("*D1", slanted);
    AddBlock("EMPTY", "");
    // Its colour is the dimension's, as that of any other insert without one.
    AddBlock("COLOURED", "0 INSERT\n2 LINE0\n10 0\n20 0\n");
    AddBlock("LINE0", slantedOnLayer0);
  }

  // The listing of one dimension with these groups.
  std::string Draw(const std::string& groups) {
    return DrawText("0 DIMENSION\n" + groups + "0 CIRCLE\n40 7\n");
  }

  std::string DrawText(const std::string& text) {
    OpenAt(text);
    return ListCalls([this](Canvas canvas) { Dimension(canvas); });
  }

  void Dimension(Canvas canvas) { result = DrawDimension({RunOn(canvas)}); }

  // The colour that a dimension with these groups has: no entity of its block changes it.
  int32_t ColorOf(const std::string& groups) {
    EXPECT_EQ("", Draw("2 EMPTY\n" + groups));
    return state.entColor;
  }
};

// Group 2.

TEST_F(DimensionTest, the_block_of_its_name_is_drawn) {
  EXPECT_EQ(SlantedStroke(), Draw("2 *D1\n"));
}

TEST_F(DimensionTest, a_block_is_looked_up_with_its_case) {
  AddBlock("*d2", slanted);
  EXPECT_EQ("", Draw("2 *D2\n"));
  EXPECT_EQ(SlantedStroke(), Draw("2 *d2\n"));
}

TEST_F(DimensionTest, of_two_blocks_of_one_name_the_first_is_drawn) {
  AddBlock("*D1", LineOf("62 1\n" + Ends(0, 0, 10, 10)));
  EXPECT_EQ(SlantedStroke(), Draw("2 *D1\n"));
}

TEST_F(DimensionTest, a_second_name_that_no_block_has_leaves_the_first) {
  EXPECT_EQ(SlantedStroke(), Draw("2 EMPTY\n2 *D1\n2 GONE\n"));
}

TEST_F(DimensionTest, without_a_known_block_nothing_is_drawn_and_the_place_in_the_file_is_kept) {
  for (const char* groups : {"2 GONE\n12 1\n22 2\n", "12 1\n22 2\n", ""}) {
    EXPECT_EQ("", Draw(groups)) << groups;
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "CIRCLE")) << groups;
    ReadGroup(stream);
    EXPECT_TRUE(AtGroup(40, "7")) << groups;
  }
}

TEST_F(DimensionTest, a_block_without_a_name_is_no_block) {
  blocks += "0 BLOCK\n70 0\n" + slanted + "0 ENDBLK\n";
  EXPECT_EQ("", Draw("2 \n"));
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

// Groups 12 and 22.

TEST_F(DimensionTest, its_offset_moves_all_entities_of_its_block) {
  const std::string low = LineOf(Ends(10, 50, 30, 40));
  AddBlock("LOW", low);
  AddBlock("*D2", low + "0 CIRCLE\n10 20\n20 10\n40 5\n0 INSERT\n2 LOW\n10 0\n20 0\n");
  // By (1000, 2000).
  EXPECT_EQ(Stroke(black, 2000, -3000, 4000, -4000) +
                InPen(black, "MoveToEx(3500, -7000)\nAngleArc(3000, -7000, 500, -0, -360)\n") +
                Stroke(black, 2000, -3000, 4000, -4000),
            Draw("2 *D2\n12 10\n22 20\n"));
}

TEST_F(DimensionTest, an_offset_is_of_0_unless_told_and_the_last_one_counts) {
  EXPECT_EQ(Stroke(black, 1500, -1000, 3500, -2000), Draw("2 *D1\n12 70\n12 5\n"));
  EXPECT_EQ(Stroke(black, 1000, -1700, 3000, -2700), Draw("2 *D1\n22 70\n22 -7\n"));
  EXPECT_EQ(SlantedStroke(), Draw("2 *D1\n"));
}

// The measuring points.

TEST_F(DimensionTest, its_points_are_kept_in_the_entitys_places) {
  Draw("2 EMPTY\n10 1\n20 2\n11 3\n21 4\n12 50\n22 60\n13 5\n23 6\n14 7\n24 8\n");
  EXPECT_EQ(100.0, state.entX[0]);
  EXPECT_EQ(200.0, state.entY[0]);
  EXPECT_EQ(300.0, state.entX[1]);
  EXPECT_EQ(400.0, state.entY[1]);
  EXPECT_EQ(500.0, state.entX[2]);
  EXPECT_EQ(600.0, state.entY[2]);
  EXPECT_EQ(700.0, state.entX[3]);
  EXPECT_EQ(800.0, state.entY[3]);
}

TEST_F(DimensionTest, groups_15_and_25_share_the_place_of_13_and_23) {
  Draw("2 EMPTY\n13 5\n23 6\n15 9\n25 10\n");
  EXPECT_EQ(900.0, state.entX[2]);
  EXPECT_EQ(1000.0, state.entY[2]);
  Draw("2 EMPTY\n15 9\n25 10\n13 5\n23 6\n");
  EXPECT_EQ(500.0, state.entX[2]);
  EXPECT_EQ(600.0, state.entY[2]);
}

TEST_F(DimensionTest, groups_30_and_above_16_are_not_read) {
  for (double& x : state.entX) x = 11.0;
  for (double& y : state.entY) y = 12.0;
  Draw("2 EMPTY\n30 1\n31 2\n33 3\n16 4\n26 5\n17 6\n27 7\n40 8\n50 9\n51 9\n52 9\n53 9\n54 9\n");
  for (const double x : state.entX) EXPECT_EQ(11.0, x);
  for (const double y : state.entY) EXPECT_EQ(12.0, y);
}

TEST_F(DimensionTest, an_entity_of_the_block_without_a_point_takes_that_of_the_dimension) {
  // Its own point is moved by the offset, that of the dimension isn't.
  AddBlock("*D2", LineOf("10 5\n20 60\n"));
  EXPECT_EQ(SlantedStroke(), Draw("2 *D2\n11 30\n21 80\n12 5\n22 30\n"));
}

// Group 8, and the colour.

TEST_F(DimensionTest, its_layer_gives_the_colour_and_becomes_that_of_layer_0) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n2 LINE0\n"));
  EXPECT_EQ(5, ColorOf("8 DOORS\n"));
  EXPECT_STREQ("DOORS", state.insertLayer);
}

TEST_F(DimensionTest, its_colour_goes_down_to_the_inserts_of_its_block) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n2 COLOURED\n"));
}

TEST_F(DimensionTest, its_own_group_62_does_not_count) {
  EXPECT_EQ(5, ColorOf("8 DOORS\n62 1\n"));
  EXPECT_EQ(5, ColorOf("62 1\n8 DOORS\n"));
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n62 1\n2 COLOURED\n"));
}

TEST_F(DimensionTest, on_layer_0_its_colour_is_that_layers) {
  EXPECT_EQ(3, ColorOf("8 0\n"));
  EXPECT_EQ(SlantedStroke(green), Draw("8 0\n2 LINE0\n"));
}

TEST_F(DimensionTest, of_two_layers_of_one_name_the_first_gives_the_colour) {
  AddLayer("DOORS", {}, 4);
  EXPECT_EQ(5, ColorOf("8 DOORS\n"));
}

TEST_F(DimensionTest, on_an_unknown_layer_its_colour_is_that_of_the_entity_before) {
  state.entColor = 4;
  EXPECT_EQ(4, ColorOf("8 GONE\n"));
  EXPECT_STREQ("GONE", state.insertLayer);
  EXPECT_EQ(4, ColorOf(""));
  EXPECT_EQ(5, ColorOf("8 DOORS\n8 GONE\n"));
}

TEST_F(DimensionTest, without_a_layer_that_of_the_insert_before_stays) {
  SetInsertLayer("DOORS");
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("2 LINE0\n"));
}

TEST_F(DimensionTest, the_colours_of_its_blocks_entities_do_not_reach_an_insert_behind_them) {
  AddBlock("*D2", LineOf("62 1\n" + Ends(0, 0, 10, 10)) + "0 INSERT\n2 LINE0\n10 0\n20 0\n");
  EXPECT_EQ(Stroke(red, 0, -10000, 1000, -9000) + SlantedStroke(blue, 3), Draw("8 DOORS\n2 *D2\n"));
}

TEST_F(DimensionTest, in_monochrome_its_colour_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(0, ColorOf("8 DOORS\n"));
  state.entColor = 4;
  EXPECT_EQ(0, ColorOf("8 GONE\n"));
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n2 COLOURED\n"));
}

TEST_F(DimensionTest, on_an_excluded_layer_it_is_walked_and_its_entities_are_asked_one_by_one) {
  ExcludeLayer("DOORS");
  EXPECT_EQ(SlantedStroke(), Draw("8 DOORS\n2 *D1\n"));
  AddBlock("*D2", LineOf("8 DOORS\n" + Ends(0, 0, 10, 10)) + LineOf("8 0\n" + Ends(0, 0, 10, 10)) + slanted);
  EXPECT_EQ(SlantedStroke(), Draw("8 DOORS\n2 *D2\n"));
  EXPECT_EQ(Stroke(red, 0, -10000, 1000, -9000) + SlantedStroke(), Draw("8 WALLS\n2 *D2\n"));
}

TEST_F(DimensionTest, a_name_of_254_characters_fits) {
  const std::string name(254, 'L');
  AddLayer(name.c_str(), {0, 0, 9}, 5);
  EXPECT_EQ(SlantedStroke(blue, 9), Draw("8 " + name + "\n2 LINE0\n"));
}

// Groups that don't count.

TEST_F(DimensionTest, its_text_style_type_and_measure_are_ignored) {
  ExcludeFamily(1);
  EXPECT_EQ(SlantedStroke(),
            Draw("5 2F\n6 HIDDEN\n1 override\n3 STANDARD\n39 700\n40 5\n41 2\n42 25.4\n50 90\n"
                 "51 45\n52 30\n53 20\n70 32\n71 5\n72 1\n210 0\n220 0\n230 -1\n2 *D1\n"));
  EXPECT_STREQ("", state.entText);
}

TEST_F(DimensionTest, its_style_and_dimscale_are_not_asked) {
  headerVars.dimScaleSet = 1;
  headerVars.dimScale = 7.0;
  state.dimStyles.Add({"STANDARD", "_DOT", "", 7.0, 7.0, 7.0});
  EXPECT_EQ(SlantedStroke(), Draw("3 STANDARD\n2 *D1\n"));
}

// What is handed down.

TEST_F(DimensionTest, the_view_and_the_whole_sheet_reach_its_blocks_entities) {
  AddBlock("*D2", "0 INSERT\n2 LONG\n10 0\n20 0\n");
  AddBlock("LONG", LineOf(Ends(5, 80, 95, 80)));
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ("", Draw("2 *D2\n"));
  wholeSheet = 1;
  EXPECT_EQ(Stroke(black, 1000, -2000, 3000, -2000), Draw("2 *D2\n"));
}

TEST_F(DimensionTest, the_texts_options_reach_its_blocks_texts) {
  AddBlock("*D2", "0 TEXT\n8 WALLS\n10 30\n20 60\n40 2\n1 12\n");
  const std::string rest = ColorCall("0x0000FF") + "SetTextAlign(8)\nSetBkMode(TRANSPARENT)\n" +
                           TextOutCall(3000, -4000, "12") + restoreCalls;
  const std::string gothic = "\xEF\xBC\xAD\xEF\xBC\xB3 \xE3\x82\xB4\xE3\x82\xB7\xE3\x83\x83\xE3\x82\xAF";
  EXPECT_EQ(SelectCalls({200, 0, 0, 0, 0, gothic}) + rest, Draw("2 *D2\n"));
  halfWidthFont = 1;
  // 200 * 1.1 = 220 high and half as wide.
  EXPECT_EQ(SelectCalls({220, 110, 0}) + rest, Draw("2 *D2\n"));
  // It reaches up to 3780.
  view.top = 3781;
  EXPECT_EQ(SelectCalls({220, 110, 0}) + rest, Draw("2 *D2\n"));
  wholeTextClip = 2;
  EXPECT_EQ("", Draw("2 *D2\n"));
  view.top = 3780;
  EXPECT_EQ(SelectCalls({220, 110, 0}) + rest, Draw("2 *D2\n"));
}

// The way back.

TEST_F(DimensionTest, behind_it_the_next_entitys_group_stands_in_the_buffer) {
  Draw("2 *D1\n10 0\n20 0\n");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(40, "7"));
}

TEST_F(DimensionTest, a_block_behind_it_in_the_file_is_reached_and_left) {
  // Blocks before the entities are the rule, but not a must.
  stream = StreamOf("0 DIMENSION\n2 *D9\n0 CIRCLE\n40 7\n0 BLOCK\n2 *D9\n" + slanted + "0 ENDBLK\n");
  ReadBlocks(stream);
  Seek(stream, 0);
  ReadGroup(stream);
  EXPECT_EQ(SlantedStroke(), ListCalls([this](Canvas canvas) { Dimension(canvas); }));
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(40, "7"));
}

TEST_F(DimensionTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(SlantedStroke(), DrawText("0 DIMENSION\n2 *D1\n"));
  EXPECT_EQ(0, result);
  EXPECT_EQ(0, ReadGroup(stream));
}

TEST_F(DimensionTest, a_file_that_ends_right_behind_its_name_ends_its_caller) {
  EXPECT_EQ("", DrawText("0 DIMENSION\n"));
  EXPECT_EQ(0, result);
}

TEST_F(DimensionTest, a_file_may_end_behind_any_byte) {
  CutAfterEachByte("0 DIMENSION\n8 0\n2 *D1\n10 5\n20 6\n12 2\n22 3\n13 30\n70 32\n1 12\n",
                   [this](Canvas canvas) {
                     Dimension(canvas);
                     EXPECT_EQ(0, ReadGroup(stream));
                   });
}

TEST_F(DimensionTest, a_block_that_the_end_of_the_file_cuts_off_is_drawn_as_far_as_it_goes) {
  stream = StreamOf("0 DIMENSION\n2 *D9\n0 CIRCLE\n40 7\n0 BLOCK\n2 *D9\n" + slanted);
  ReadBlocks(stream);
  Seek(stream, 0);
  ReadGroup(stream);
  EXPECT_EQ(SlantedStroke(), ListCalls([this](Canvas canvas) { Dimension(canvas); }));
  EXPECT_STREQ("CIRCLE", state.groupValue);
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(40, "7"));
}

TEST_F(DimensionTest, numbers_beyond_all_bounds_do_not_stop_it) {
  for (const char* number : {"1E+300", "-1E+300", "NAN", "INF", "-INF", "1E+999", ""}) {
    const std::string value = std::string(number) + "\n";
    Draw("2 *D1\n12 " + value + "22 " + value + "10 " + value + "24 " + value);
    EXPECT_TRUE(AtGroup(0, "CIRCLE")) << number;
  }
}

TEST_F(DimensionTest, its_block_is_never_too_long) {
  state.nestedBytes = nestedByteLimit;
  EXPECT_EQ(SlantedStroke() + SlantedStroke(), DrawSection("0 DIMENSION\n2 *D1\n0 DIMENSION\n2 *D1\n"));
}

TEST_F(DimensionTest, a_block_that_inserts_itself_ends_as_a_fault) {
  AddBlock("*D2", slanted + "0 INSERT\n2 SELF\n10 0\n20 -10\n");
  AddBlock("SELF", slanted + "0 INSERT\n2 SELF\n10 0\n20 -10\n");
  int32_t thrown = 0;
  OpenAt("0 DIMENSION\n2 *D2\n0 CIRCLE\n");
  const std::string strokes = ListCalls([&](Canvas canvas) {
    try {
      Dimension(canvas);
    } catch (int32_t code) {
      thrown = code;
    }
  });
  EXPECT_EQ(faultCode, thrown);
  EXPECT_EQ(0u, strokes.find(SlantedStroke() + Stroke(black, 1000, -2000, 3000, -3000) +
                             Stroke(black, 1000, -3000, 3000, -4000)));
}

}  // namespace
}  // namespace hexlume::dimension_test
