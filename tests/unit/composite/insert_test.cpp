// INSERT in the ENTITIES section.

#include "composite/insert.h"

#include <gtest/gtest.h>

#include <string>

#include "entities/entity_dispatch.h"
#include "support/block_stream.h"

namespace hexlume::insert_test {
namespace {

// From (1000, -1000) to (3000, -2000) in a block that is neither moved, scaled nor turned.
const std::string slanted = LineOf(Ends(10, 90, 30, 80));
// The same one with the colour of the insert.
const std::string slantedOnLayer0 = LineOf("8 0\n" + Ends(10, 90, 30, 80));

std::string SlantedStroke(COLORREF color = black, int32_t width = 0) {
  return Stroke(color, 1000, -1000, 3000, -2000, width);
}

// From (1000, 2000) to (2000, 1000) in hundredths of the model, from the block's origin.
const std::string nearOrigin = LineOf(Ends(10, 20, 20, 10));

class InsertTest : public BlockStreamTest {
 protected:
  InsertTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    AddBlock("A", slantedOnLayer0);
    AddBlock("NEAR", nearOrigin);
  }

  // The listing of one insert with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 INSERT\n" + groups + "0 CIRCLE\n40 7\n"); }

  std::string DrawText(const std::string& text) {
    OpenAt(text);
    return ListCalls([this](Canvas canvas) { Insert(canvas); });
  }

  void Insert(Canvas canvas) { result = DrawInsert({RunOn(canvas)}); }
};

// Group 2.

TEST_F(InsertTest, the_block_of_its_name_is_drawn) {
  EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000), Draw("2 NEAR\n10 0\n20 0\n"));
}

TEST_F(InsertTest, a_block_is_looked_up_with_its_case) {
  AddBlock("Abc", slanted);
  EXPECT_EQ("", Draw("2 ABC\n10 0\n20 0\n"));
  EXPECT_EQ("", Draw("2 abc\n10 0\n20 0\n"));
  EXPECT_EQ(SlantedStroke(), Draw("2 Abc\n10 0\n20 0\n"));
}

TEST_F(InsertTest, of_two_blocks_of_one_name_the_first_is_drawn) {
  AddBlock("TWICE", slanted);
  AddBlock("TWICE", nearOrigin);
  EXPECT_EQ(SlantedStroke(), Draw("2 TWICE\n"));
}

TEST_F(InsertTest, a_second_name_takes_the_place_of_the_first) {
  AddBlock("B", slanted);
  EXPECT_EQ(SlantedStroke(), Draw("2 NEAR\n2 B\n"));
}

TEST_F(InsertTest, a_second_name_that_no_block_has_leaves_the_first) {
  AddBlock("B", slanted);
  EXPECT_EQ(SlantedStroke(), Draw("2 B\n2 GONE\n"));
}

TEST_F(InsertTest, without_a_known_block_nothing_is_drawn_and_the_place_in_the_file_is_kept) {
  for (const char* groups : {"2 GONE\n10 1\n20 2\n", "2 \n10 1\n20 2\n", "10 1\n20 2\n", ""}) {
    EXPECT_EQ("", Draw(groups)) << groups;
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "CIRCLE")) << groups;
    ReadGroup(stream);
    EXPECT_TRUE(AtGroup(40, "7")) << groups;
  }
}

TEST_F(InsertTest, a_block_without_a_name_is_not_drawn_for_an_insert_of_an_empty_name) {
  blocks += "0 BLOCK\n70 0\n10 0\n20 0\n" + slanted + "0 ENDBLK\n";
  EXPECT_EQ("", Draw("2 \n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

// Group 8.

TEST_F(InsertTest, its_layer_gives_the_colour_and_stands_for_layer_0) {
  // The width of 3 is that of the layer, which the block's line looks up by the insert's name.
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n2 A\n"));
  EXPECT_STREQ("DOORS", state.insertLayer);
  EXPECT_EQ(5, state.entColor);
}

TEST_F(InsertTest, on_layer_0_it_hands_that_layer_on) {
  EXPECT_EQ(SlantedStroke(green), Draw("8 0\n2 A\n"));
  EXPECT_STREQ("0", state.insertLayer);
}

TEST_F(InsertTest, an_unknown_layer_is_handed_on_and_leaves_the_colour) {
  state.entColor = 4;
  // The block's line finds no layer of that name, and its colour stays at -1.
  EXPECT_EQ(SlantedStroke(countColor), Draw("8 GONE\n2 A\n"));
  EXPECT_STREQ("GONE", state.insertLayer);
  EXPECT_EQ(4, state.entColor);
}

TEST_F(InsertTest, of_two_layers_of_one_name_the_first_gives_the_colour) {
  AddLayer("DOORS", {}, 4);
  Draw("8 DOORS\n2 A\n");
  EXPECT_EQ(5, state.entColor);
}

TEST_F(InsertTest, on_an_excluded_layer_it_is_walked_and_its_entities_are_asked_one_by_one) {
  AddBlock("B", slantedOnLayer0 + LineOf("8 DOORS\n" + Ends(10, 20, 20, 10)));
  ExcludeLayer("WALLS");
  EXPECT_EQ(Stroke(blue, 1000, -8000, 2000, -9000, 3), Draw("8 WALLS\n2 B\n"));
  EXPECT_EQ(1, state.entColor);
}

TEST_F(InsertTest, the_layer_of_an_insert_stays_until_the_next_one) {
  Draw("8 WALLS\n2 A\n");
  EXPECT_STREQ("WALLS", state.insertLayer);
  EXPECT_EQ(SlantedStroke(red), Draw("2 A\n"));
}

// Group 62, and the colour.

TEST_F(InsertTest, a_colour_behind_the_layer_is_mapped) {
  EXPECT_EQ(SlantedStroke(magenta), Draw("8 WALLS\n62 6\n2 A\n"));
  EXPECT_EQ(SlantedStroke(cyan), Draw("8 WALLS\n62 130\n2 A\n"));
  EXPECT_EQ(SlantedStroke(black), Draw("8 WALLS\n62 2\n2 A\n"));
  EXPECT_EQ(SlantedStroke(black), Draw("8 WALLS\n62 7\n2 A\n"));
  EXPECT_EQ(SlantedStroke(black), Draw("8 WALLS\n62 256\n2 A\n"));
}

TEST_F(InsertTest, a_layer_behind_the_colour_overwrites_it) {
  EXPECT_EQ(SlantedStroke(red), Draw("62 6\n8 WALLS\n2 A\n"));
}

TEST_F(InsertTest, without_a_layer_and_a_colour_that_of_the_entity_before_it_counts) {
  SetInsertLayer("WALLS");
  state.entColor = 6;
  EXPECT_EQ(SlantedStroke(magenta), Draw("2 A\n"));
  EXPECT_EQ(6, state.entColor);
}

TEST_F(InsertTest, a_negative_colour_is_handed_on) {
  EXPECT_EQ(SlantedStroke(countColor), Draw("8 WALLS\n62 -1\n2 A\n"));
  EXPECT_EQ(SlantedStroke(black), Draw("8 WALLS\n62 -5\n2 A\n"));
}

TEST_F(InsertTest, with_monochrome_on_its_colour_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(SlantedStroke(black), Draw("8 WALLS\n62 6\n2 A\n"));
  EXPECT_EQ(0, state.entColor);
}

// Groups 10 and 20.

TEST_F(InsertTest, its_point_moves_the_block) {
  // (1000 + 500, 2000 + 700) to (2000 + 500, 1000 + 700)
  EXPECT_EQ(Stroke(black, 1500, -7300, 2500, -8300), Draw("2 NEAR\n10 5\n20 7\n"));
}

TEST_F(InsertTest, each_coordinate_is_0_without_its_group) {
  EXPECT_EQ(Stroke(black, 1500, -8000, 2500, -9000), Draw("2 NEAR\n10 5\n"));
  EXPECT_EQ(Stroke(black, 1000, -7300, 2000, -8300), Draw("2 NEAR\n20 7\n"));
}

TEST_F(InsertTest, its_point_is_not_scaled) {
  // Twice (1000, 2000) and (2000, 1000), from (500, 700).
  EXPECT_EQ(Stroke(black, 2500, -5300, 4500, -7300), Draw("41 2\n42 2\n2 NEAR\n10 5\n20 7\n"));
}

// Groups 41, 42 and 50.

TEST_F(InsertTest, without_scales_and_an_angle_it_draws_at_scale_1_and_angle_0) {
  EXPECT_EQ(SlantedStroke(red), Draw("8 WALLS\n2 A\n10 0\n20 0\n"));
  EXPECT_EQ(1.0, state.insertScaleX);
  EXPECT_EQ(1.0, state.insertScaleY);
  EXPECT_EQ(0.0, state.insertAngle);
}

TEST_F(InsertTest, each_axis_has_its_own_scale) {
  // X 1000 and 2000 times 3, Y 2000 and 1000 times 1.5.
  EXPECT_EQ(Stroke(black, 3000, -7000, 6000, -8500), Draw("2 NEAR\n41 3\n42 1.5\n"));
}

TEST_F(InsertTest, an_x_scale_that_is_not_above_0_is_1) {
  for (const char* scale : {"0", "-2", "-0.5", "", "none", "-0"})
    EXPECT_EQ(Stroke(black, 1000, -6000, 2000, -8000), Draw("2 NEAR\n42 2\n41 " + std::string(scale) + "\n"))
        << scale;
}

TEST_F(InsertTest, a_y_scale_that_is_not_above_0_is_1) {
  for (const char* scale : {"0", "-2", "-0.5", "", "none", "-0"})
    EXPECT_EQ(Stroke(black, 2000, -8000, 4000, -9000), Draw("2 NEAR\n41 2\n42 " + std::string(scale) + "\n"))
        << scale;
}

TEST_F(InsertTest, a_scale_is_set_and_not_multiplied) {
  EXPECT_EQ(Stroke(black, 3000, -6000, 6000, -8000), Draw("2 NEAR\n41 2\n41 3\n42 3\n42 2\n"));
  EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000), Draw("2 NEAR\n41 2\n41 0\n42 2\n42 0\n"));
}

TEST_F(InsertTest, its_angle_in_degrees_turns_the_block_about_its_origin) {
  AddBlock("TURNED", LineOf(Ends(20, 0, 20, -10)));
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (2000, 0) and (2000, -1000) become (0, 2000) and (1000, 2000), from (5000, 1000). Y: 3000.5 - 10000 =
  // -6999.5, cut to -6999.
  EXPECT_EQ(Stroke(black, 5000, -6999, 6000, -6999), Draw("2 TURNED\n10 50\n20 10\n50 90\n"));
}

TEST_F(InsertTest, its_angle_is_set_and_takes_pi_with_10_decimals) {
  Draw("2 A\n50 45\n50 90\n");
  EXPECT_DOUBLE_EQ(1.57079632675, state.insertAngle);
  Draw("2 A\n50 -180\n");
  EXPECT_DOUBLE_EQ(-3.1415926535, state.insertAngle);
}

TEST_F(InsertTest, scales_and_angle_are_left_as_they_are) {
  Draw("2 A\n41 2\n42 3\n50 180\n");
  EXPECT_EQ(2.0, state.insertScaleX);
  EXPECT_EQ(3.0, state.insertScaleY);
  EXPECT_DOUBLE_EQ(3.1415926535, state.insertAngle);
}

// The base point.

TEST_F(InsertTest, a_block_of_base_5_5_inserted_at_5_5_at_scale_2_has_its_origin_at_minus_500) {
  AddBlock("BASE", nearOrigin, "10 5\n20 5\n30 0\n");
  // 500 - 5 * 100 * 2 = -500. X: 1000 * 2 - 500 and 2000 * 2 - 500; Y: 2000 * 2 - 500 and 1000 * 2 - 500.
  EXPECT_EQ(Stroke(black, 1500, -6500, 3500, -8500), Draw("2 BASE\n10 5\n20 5\n41 2\n42 2\n"));
}

TEST_F(InsertTest, such_a_block_turns_about_that_origin_and_not_about_its_insertion_point) {
  AddBlock("BASE", LineOf(Ends(10, -20, 20, -30)), "10 5\n20 5\n30 0\n");
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (2000, -4000) and (4000, -6000) from the origin become (4000, 2000) and (6000, 4000); with the origin
  // (3500, 1500) and (5500, 3500). Y: 1500.5 - 10000 and 3500.5 - 10000.
  EXPECT_EQ(Stroke(black, 3500, -8499, 5500, -6499), Draw("2 BASE\n10 5\n20 5\n41 2\n42 2\n50 90\n"));
}

// Group 230.

TEST_F(InsertTest, an_extrusion_of_minus_1_behind_the_point_negates_its_x_alone) {
  EXPECT_EQ(Stroke(black, 1500, -7300, 2500, -8300), Draw("2 NEAR\n10 -5\n20 7\n230 -1\n"));
  EXPECT_EQ(Stroke(black, 1500, -7300, 2500, -8300), Draw("2 NEAR\n10 -5\n20 7\n230 -1.0\n"));
}

TEST_F(InsertTest, an_extrusion_in_front_of_the_point_has_no_effect) {
  EXPECT_EQ(Stroke(black, 1500, -7300, 2500, -8300), Draw("2 NEAR\n230 -1\n10 5\n20 7\n"));
}

TEST_F(InsertTest, another_extrusion_has_no_effect) {
  for (const char* value : {"1", "0", "-2", "-0.9", ""})
    EXPECT_EQ(Stroke(black, 1500, -7300, 2500, -8300),
              Draw("2 NEAR\n10 5\n20 7\n230 " + std::string(value) + "\n"))
        << value;
}

// Groups that don't count.

TEST_F(InsertTest, rows_columns_and_what_else_it_may_have_are_ignored) {
  EXPECT_EQ(SlantedStroke(red),
            Draw("5 2F\n330 1F\n100 AcDbEntity\n8 WALLS\n2 A\n10 0\n20 0\n30 9\n39 700\n43 5\n44 50\n45 60\n"
                 "66 1\n67 1\n70 3\n71 2\n210 5\n220 6\n"));
  EXPECT_EQ(1.0, state.insertScaleX);
  EXPECT_EQ(1.0, state.insertScaleY);
}

TEST_F(InsertTest, its_line_type_is_not_handed_on) {
  DefineLtype(4, {300, -200});
  AddBlock("BY_BLOCK", LineOf("6 BYBLOCK\n" + Ends(10, 90, 30, 80)));
  EXPECT_EQ(SlantedStroke(), Draw("6 HIDDEN\n2 BY_BLOCK\n"));
}

// The view.

TEST_F(InsertTest, what_it_draws_is_cut_to_the_view) {
  AddBlock("LONG", LineOf(Ends(5, 80, 95, 80)));
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ(Stroke(black, 1000, -2000, 3000, -2000), Draw("2 LONG\n"));
}

// The way back.

TEST_F(InsertTest, behind_it_the_next_entitys_group_stands_in_the_buffer) {
  Draw("2 A\n10 0\n20 0\n");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(40, "7"));
}

TEST_F(InsertTest, the_longest_name_of_a_next_entity_is_kept_whole) {
  const std::string longest(254, 'N');
  DrawText("0 INSERT\n2 A\n0 " + longest + "\n");
  EXPECT_EQ(0, state.groupCode);
  EXPECT_EQ(longest, state.groupValue);
}

TEST_F(InsertTest, the_next_entity_of_the_section_is_read_as_if_the_block_had_not_been_there) {
  const std::string own = "0 LINE\n62 1\n" + Ends(50, 50, 60, 40);
  EXPECT_EQ(SlantedStroke(blue, 3) + Stroke(red, 5000, -5000, 6000, -6000) + SlantedStroke(blue, 3),
            DrawSection("0 INSERT\n8 DOORS\n2 A\n" + own + "0 INSERT\n8 DOORS\n2 A\n"));
}

TEST_F(InsertTest, one_insert_may_follow_the_other) {
  EXPECT_EQ(SlantedStroke(red) + SlantedStroke(blue, 3),
            DrawSection("0 INSERT\n8 WALLS\n2 A\n0 INSERT\n8 DOORS\n2 A\n"));
}

TEST_F(InsertTest, each_insert_of_the_section_starts_at_scale_1_and_angle_0) {
  state.insertScaleX = 5.0;
  state.insertScaleY = 5.0;
  state.insertAngle = 1.0;
  EXPECT_EQ(Stroke(black, 1000, -8000, 2000, -9000), DrawSection("0 INSERT\n2 NEAR\n"));
  EXPECT_EQ(Stroke(black, 2000, -4000, 4000, -7000) + Stroke(black, 1000, -8000, 2000, -9000),
            DrawSection("0 INSERT\n2 NEAR\n41 2\n42 3\n0 INSERT\n2 NEAR\n"));
  DrawSection("0 INSERT\n2 NEAR\n50 90\n0 INSERT\n2 NEAR\n");
  EXPECT_EQ(0.0, state.insertAngle);
}

TEST_F(InsertTest, an_insert_of_no_known_block_does_not_disturb_the_section) {
  EXPECT_EQ(SlantedStroke(), DrawSection("0 INSERT\n2 GONE\n" + slanted));
}

TEST_F(InsertTest, an_attrib_behind_it_is_left_to_the_section) {
  for (const char* follow : {"66 1\n", "66 0\n", ""}) {
    DrawText("0 INSERT\n2 A\n" + std::string(follow) + "0 ATTRIB\n1 TEXT\n0 SEQEND\n");
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "ATTRIB"));
    ReadGroup(stream);
    EXPECT_TRUE(AtGroup(1, "TEXT"));
  }
}

// A block whose header ends the file has no base point, and the search for it takes all the rest.

TEST_F(InsertTest, behind_a_block_that_the_end_of_the_file_cuts_off_only_the_value_is_put_back) {
  blocks = "0 BLOCK\n2 OPEN\n0 ENDBLK\n";
  EXPECT_EQ("", DrawText("0 INSERT\n2 OPEN\n0 LINE\n62 1\n0 ENDSEC\n9 END\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(9, "LINE"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(62, "1"));
}

TEST_F(InsertTest, with_a_last_group_of_code_0_the_entity_behind_such_a_block_is_not_lost) {
  blocks = "0 BLOCK\n2 OPEN\n0 ENDBLK\n";
  EXPECT_EQ("", DrawText("0 INSERT\n2 OPEN\n0 LINE\n62 1\n0 ENDSEC\n0 EOF\n"));
  EXPECT_TRUE(AtGroup(0, "LINE"));
}

// A file that ends in the section.

TEST_F(InsertTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(SlantedStroke(red), DrawText("0 INSERT\n8 WALLS\n2 A\n"));
  EXPECT_EQ(1, result);
  EXPECT_EQ(0, ReadGroup(stream));
}

TEST_F(InsertTest, a_file_that_ends_right_behind_its_name_ends_the_section) {
  EXPECT_EQ("", DrawText("0 INSERT\n"));
  EXPECT_EQ(0, result);
}

TEST_F(InsertTest, a_file_that_ends_behind_the_name_of_a_block_called_insert_comes_to_its_end) {
  AddBlock("INSERT", slanted);
  OpenAt("2 ENTITIES\n0 INSERT\n2 INSERT\n");
  EXPECT_EQ("SetMapMode(MM_HIMETRIC)\n" + SlantedStroke(),
            ListCalls([this](Canvas canvas) { DrawEntities({RunOn(canvas)}); }));
}

TEST_F(InsertTest, a_file_may_end_behind_any_byte) {
  const std::string insert =
      "0 INSERT\n8 WALLS\n2 A\n6 ByBlock\n10 5\n20 6\n41 2\n42 3\n50 30\n62 5\n230 -1\n";
  CutAfterEachByte(insert, [this](Canvas canvas) {
    Insert(canvas);
    EXPECT_EQ(0, ReadGroup(stream));
  });
  CutAfterEachByte("2 ENTITIES\n" + insert, [this](Canvas canvas) {
    DrawEntities({RunOn(canvas)});
    EXPECT_EQ(0, ReadGroup(stream));
  });
}

}  // namespace
}  // namespace hexlume::insert_test
