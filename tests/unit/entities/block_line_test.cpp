// LINE in a block.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/line.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::block_line_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

class BlockLineTest : public ConverterTest {
 protected:
  BlockLineTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    SetInsertLayer("WALLS");
  }

  // The listing of one line with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 LINE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawBlockLine({RunOn(canvas), blockOriginX, blockOriginY, insertColor});
    });
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
};

// From (1000, -1000) to (3000, -2000), slope -0.5.
const std::string slanted = Ends(10, 90, 30, 80);
// From (1000, -1000) to (1700, -1000).
const std::string horizontal = Ends(10, 90, 17, 90);
// That one with dashes of 300 and gaps of 200: 1000..1300, and from 1500 to 1800, cut to 1700.
const char twoDashes[] =
    "MoveToEx(1000, -1000)\nLineTo(1300, -1000)\nMoveToEx(1500, -1000)\nLineTo(1700, -1000)\n";

std::string SlantedStroke(COLORREF color, int32_t width = 0) {
  return Stroke(color, 1000, -1000, 3000, -2000, width);
}
std::string HorizontalStroke(COLORREF color) {
  return Stroke(color, 1000, -1000, 1700, -1000);
}

// Coordinates.

TEST_F(BlockLineTest, its_points_are_scaled_and_moved_to_the_blocks_origin) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // X: 10 * 200 + 500 = 2500 and 20 * 200 + 500 = 4500; Y: 20 * 300 + 1000 = 7000 and 10 * 300 + 1000 = 4000.
  EXPECT_EQ(Stroke(black, 2500, -3000, 4500, -6000), Draw(Ends(10, 20, 20, 10)));
}

TEST_F(BlockLineTest, its_points_are_turned_about_the_blocks_origin) {
  blockOriginX = 5000.0;
  blockOriginY = 1000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (2000, 0) and (2000, -1000) from the origin become (0, 2000) and (1000, 2000). Y: 3000.5 - 10000 =
  // -6999.5, cut to -6999.
  EXPECT_EQ(Stroke(black, 5000, -6999, 6000, -6999), Draw(Ends(20, 0, 20, -10)));
}

TEST_F(BlockLineTest, the_points_are_kept_in_block_x_and_block_y_before_the_turn) {
  blockOriginX = 500.0;
  state.insertScaleX = 2.0;
  state.insertAngle = halfPi;
  Draw(slanted);
  EXPECT_EQ(2500.0, state.blockX[0]);
  EXPECT_EQ(9000.0, state.blockY[0]);
  EXPECT_EQ(6500.0, state.blockX[1]);
  EXPECT_EQ(8000.0, state.blockY[1]);
  EXPECT_EQ(0.0, state.entX[0]);
  EXPECT_EQ(0.0, state.dimX[0]);
}

TEST_F(BlockLineTest, each_missing_coordinate_comes_from_the_block_line_before_it) {
  Draw(slanted);
  // From (2000, -1000) to (3000, -2000).
  EXPECT_EQ(Stroke(black, 2000, -1000, 3000, -2000), Draw("10 20\n"));
}

// Group 6.

TEST_F(BlockLineTest, code_6_takes_whole_names_in_any_case_with_a_record) {
  DefineLtype(2, {300, -200});
  EXPECT_EQ(InPen(black, twoDashes), Draw("6 DASHED\n" + horizontal));
  EXPECT_EQ(InPen(black, twoDashes), Draw("6 Dashed\n" + horizontal));
  EXPECT_EQ(HorizontalStroke(black), Draw("6 MY_DASHED_LINE\n" + horizontal));
  EXPECT_EQ(HorizontalStroke(black), Draw("6 HIDDEN\n" + horizontal));
}

TEST_F(BlockLineTest, a_name_other_than_continuous_clears_the_layers_family) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(InPen(black, twoDashes), Draw("8 DASHES\n6 CONTINUOUS\n" + horizontal));
  EXPECT_EQ(HorizontalStroke(black), Draw("8 DASHES\n6 CONTINUOS\n" + horizontal));
  EXPECT_EQ(HorizontalStroke(black), Draw("8 DASHES\n6 BYLAYER\n" + horizontal));
}

TEST_F(BlockLineTest, by_block_lets_colour_0_keep_the_layers_colour) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n6 ByBlock\n62 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n6 byblock\n62 0\n" + slanted));
}

TEST_F(BlockLineTest, by_block_behind_the_colour_comes_too_late) {
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n62 0\n6 BYBLOCK\n" + slanted));
}

// Group 8.

TEST_F(BlockLineTest, layer_0_takes_the_inserts_colour) {
  EXPECT_EQ(SlantedStroke(magenta), Draw("8 0\n" + slanted));
}

TEST_F(BlockLineTest, layer_0_takes_style_and_width_of_the_inserts_layer) {
  DefineLtype(4, {300, -200});
  AddLayer("DASHES", {1, 4, 2}, 1);
  SetInsertLayer("DASHES");
  EXPECT_EQ(InPen(magenta, twoDashes, 2), Draw("8 0\n" + horizontal));
}

TEST_F(BlockLineTest, layer_0_of_an_insert_on_an_unknown_layer_is_nearly_black) {
  SetInsertLayer("GONE");
  EXPECT_EQ(SlantedStroke(countColor), Draw("8 0\n" + slanted));
}

TEST_F(BlockLineTest, another_layer_gives_its_own_colour_and_width) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("8 DOORS\n" + slanted));
}

TEST_F(BlockLineTest, an_unknown_layer_leaves_everything) {
  EXPECT_EQ(SlantedStroke(black), Draw("8 GONE\n" + slanted));
}

TEST_F(BlockLineTest, a_colour_of_minus_1_in_front_of_a_known_layer_gives_way_to_the_inserts) {
  EXPECT_EQ(SlantedStroke(magenta, 3), Draw("62 -1\n8 DOORS\n" + slanted));
}

TEST_F(BlockLineTest, without_any_layer_or_colour_it_is_black) {
  EXPECT_EQ(SlantedStroke(black), Draw(slanted));
}

TEST_F(BlockLineTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("8 DOORS\n" + slanted));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
  ReadGroup(stream);
  EXPECT_EQ(10, state.groupCode);
}

TEST_F(BlockLineTest, layer_0_is_excluded_with_the_inserts_layer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + slanted));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(BlockLineTest, an_excluded_layer_0_does_not_count_under_another_inserts_layer) {
  ExcludeLayer("0");
  EXPECT_EQ(SlantedStroke(magenta), Draw("8 0\n" + slanted));
}

// Group 62.

TEST_F(BlockLineTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(SlantedStroke(green, 3), Draw("8 DOORS\n62 3\n" + slanted));
  EXPECT_EQ(SlantedStroke(cyan), Draw("8 0\n62 130\n" + slanted));
  EXPECT_EQ(SlantedStroke(black), Draw("8 0\n62 7\n" + slanted));
  EXPECT_EQ(SlantedStroke(black), Draw("8 0\n62 256\n" + slanted));
}

TEST_F(BlockLineTest, a_negative_colour_stays_negative) {
  EXPECT_EQ(SlantedStroke(black), Draw("8 0\n62 -3\n" + slanted));
  EXPECT_EQ(SlantedStroke(countColor), Draw("8 0\n62 -1\n" + slanted));
}

TEST_F(BlockLineTest, colour_0_is_black_without_the_inherit_flag) {
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n62 0\n" + slanted));
}

TEST_F(BlockLineTest, colour_0_keeps_the_inserts_colour_on_layer_0) {
  EXPECT_EQ(SlantedStroke(magenta), Draw("8 0\n62 0\n" + slanted));
}

TEST_F(BlockLineTest, colour_0_keeps_the_nearly_black_of_an_unknown_layer) {
  SetInsertLayer("GONE");
  EXPECT_EQ(SlantedStroke(countColor), Draw("8 0\n62 0\n" + slanted));
}

TEST_F(BlockLineTest, on_an_insert_of_layer_0_colour_0_takes_the_inserts_colour_with_the_flag_alone) {
  SetInsertLayer("0");
  EXPECT_EQ(SlantedStroke(magenta, 3), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n62 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(red, 3), Draw("8 DOORS\n6 BYBLOCK\n62 1\n" + slanted));
}

TEST_F(BlockLineTest, the_inherit_flag_is_each_lines_own) {
  EXPECT_EQ(SlantedStroke(magenta), Draw("8 0\n62 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n62 0\n" + slanted));
}

TEST_F(BlockLineTest, the_colour_is_kept_in_block_color_and_starts_at_0) {
  state.entColor = 4;
  state.dimColor = 4;
  Draw("62 1\n" + slanted);
  EXPECT_EQ(1, state.blockColor);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(SlantedStroke(black), Draw(slanted));
}

// Group 39, and the order of the groups.

TEST_F(BlockLineTest, code_39_is_the_pen_width_in_hundreds) {
  EXPECT_EQ(SlantedStroke(black, 2), Draw("39 250\n" + slanted));
}

TEST_F(BlockLineTest, code_8_overwrites_what_stands_before_it_and_not_what_stands_behind) {
  EXPECT_EQ(SlantedStroke(blue, 3), Draw("62 1\n39 700\n8 DOORS\n" + slanted));
  EXPECT_EQ(SlantedStroke(red, 7), Draw("8 DOORS\n62 1\n39 700\n" + slanted));
}

TEST_F(BlockLineTest, layer_0_behind_the_colour_overwrites_it_too) {
  EXPECT_EQ(SlantedStroke(magenta), Draw("62 1\n8 0\n" + slanted));
}

// The end of the groups.

TEST_F(BlockLineTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(slanted);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(BlockLineTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(SlantedStroke(red), DrawText("0 LINE\n62 1\n" + slanted));
  EXPECT_EQ(0, result);
}

// Ordering, by the X of the sheet.

TEST_F(BlockLineTest, its_points_are_swapped_if_the_first_is_right_of_the_second_on_the_sheet) {
  EXPECT_EQ(SlantedStroke(black), Draw(Ends(30, 80, 10, 90)));
}

TEST_F(BlockLineTest, points_of_equal_sheet_x_keep_their_order) {
  EXPECT_EQ(Stroke(black, 1000, -1000, 1000, -2000), Draw(Ends(10, 90, 10, 80)));
  // 1000.4 and 1000.1 are both cut to 1000.
  EXPECT_EQ(Stroke(black, 1000, -1000, 1000, -2000), Draw(Ends(10.004, 90, 10.001, 80)));
}

TEST_F(BlockLineTest, the_order_is_that_of_the_sheet_under_a_mirroring_scale) {
  blockOriginX = 4000.0;
  state.insertScaleX = -1.0;
  // X: 4000 - 1000 = 3000 for the first point, 4000 - 3000 = 1000 for the second.
  EXPECT_EQ(Stroke(black, 1000, -2000, 3000, -1000), Draw(Ends(10, 90, 30, 80)));
}

// The view.

TEST_F(BlockLineTest, a_line_beyond_one_edge_is_dropped) {
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ("", Draw(Ends(5, 80, 9.99, 81)));
  EXPECT_EQ("", Draw(Ends(30.01, 80, 40, 81)));
  EXPECT_EQ("", Draw(Ends(15, 90.01, 16, 95)));
  EXPECT_EQ("", Draw(Ends(15, 69.99, 16, 65)));
  EXPECT_EQ(1, result);
}

TEST_F(BlockLineTest, an_axis_parallel_line_is_clamped) {
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ(Stroke(black, 1000, -2000, 3000, -2000), Draw(Ends(5, 80, 95, 80)));
  EXPECT_EQ(Stroke(black, 2000, -1000, 2000, -3000), Draw(Ends(20, 99, 20, 5)));
}

TEST_F(BlockLineTest, a_slanted_line_is_cut) {
  // From (-1000, -1000) to (1000, -2000), slope -0.5: at x = 0 it is at -1500.
  EXPECT_EQ(Stroke(black, 0, -1500, 1000, -2000), Draw(Ends(-10, 90, 10, 80)));
}

TEST_F(BlockLineTest, a_slanted_line_of_which_nothing_is_left_is_dropped) {
  view = {0, 0, 1000, 1000};
  // From (-1000, -3200) to (500, -200), slope 2: it rises past the left edge at -1200, below the view.
  EXPECT_EQ("", Draw(Ends(-10, 68, 5, 98)));
}

// Drawing, by family. After the elements that count are others that would show.

TEST_F(BlockLineTest, families_1_and_2_walk_two_elements) {
  DefineLtype(1, {300, -200, 50, -50, 50, -50});
  EXPECT_EQ(InPen(black, twoDashes), Draw("6 DASH\n" + horizontal));
  DefineLtype(0, {0, -400, 50, -50, 50, -50});
  // Dots at 1000 and 1400; the gap to 1800 ends it.
  EXPECT_EQ(InPen(black, "MoveToEx(1000, -1000)\n" + Dot(1000, -1000) + "MoveToEx(1400, -1000)\n" +
                             Dot(1400, -1000)),
            Draw("6 DOT\n" + horizontal));
}

TEST_F(BlockLineTest, family_3_walks_four_elements) {
  DefineLtype(7, {300, -100, 0, -100, 50, -50});
  // 1000..1300, a dot at 1400, and from 1500 a dash to 1800, cut to 1700.
  EXPECT_EQ(InPen(black, "MoveToEx(1000, -1000)\nLineTo(1300, -1000)\nMoveToEx(1400, -1000)\n" +
                             Dot(1400, -1000) + "MoveToEx(1500, -1000)\nLineTo(1700, -1000)\n"),
            Draw("6 CENTER2\n" + horizontal));
}

TEST_F(BlockLineTest, family_4_walks_six_elements) {
  DefineLtype(11, {300, -100, 100, -50, 0, -50});
  // 1000..1300, 1400..1500, a dot at 1550, and from 1600 a dash to 1900, cut to 1700.
  EXPECT_EQ(InPen(black,
                  "MoveToEx(1000, -1000)\nLineTo(1300, -1000)\nMoveToEx(1400, -1000)\n"
                  "LineTo(1500, -1000)\nMoveToEx(1550, -1000)\n" +
                      Dot(1550, -1000) + "MoveToEx(1600, -1000)\nLineTo(1700, -1000)\n"),
            Draw("6 PHANTOM\n" + horizontal));
}

TEST_F(BlockLineTest, the_elements_of_a_pattern_do_not_take_the_inserts_scale) {
  DefineLtype(4, {300, -200});
  state.insertScaleX = 0.5;
  // 20 * 100 * 0.5 = 1000 and 34 * 50 = 1700.
  EXPECT_EQ(InPen(black, twoDashes), Draw("6 HIDDEN\n" + Ends(20, 90, 34, 90)));
}

// Filter, monochrome and the turned sheet.

TEST_F(BlockLineTest, an_excluded_family_is_not_drawn) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + horizontal));
  EXPECT_EQ(1, result);
  EXPECT_EQ(HorizontalStroke(black), Draw(horizontal));
}

TEST_F(BlockLineTest, the_filter_stands_behind_the_groups) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ(HorizontalStroke(black), Draw("6 HIDDEN\n6 BYLAYER\n" + horizontal));
}

TEST_F(BlockLineTest, with_monochrome_on_every_line_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(SlantedStroke(black), Draw("8 0\n" + slanted));
  EXPECT_EQ(SlantedStroke(black, 3), Draw("8 DOORS\n62 1\n" + slanted));
  SetInsertLayer("GONE");
  EXPECT_EQ(SlantedStroke(black), Draw("8 0\n" + slanted));
}

TEST_F(BlockLineTest, on_a_turned_sheet_the_end_becomes_the_start) {
  state.rotated = 1;
  // (20000 - 3000, -10000 + 2000) to (20000 - 1000, -10000 + 1000)
  EXPECT_EQ(Stroke(black, 17000, -8000, 19000, -9000), Draw(slanted));
}

}  // namespace
}  // namespace hexlume::block_line_test
