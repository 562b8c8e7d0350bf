// LINE in the ENTITIES section.

#include "entities/line.h"

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::line_test {
namespace {

class LineTest : public ConverterTest {
 protected:
  // The listing of one line with these groups, and of nothing after it.
  std::string Draw(const std::string& groups) { return DrawText("0 LINE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawLine({RunOn(canvas)}); });
  }
};

// From (1000, -1000) to (3000, -2000), slope -0.5.
const std::string slanted = Ends(10, 90, 30, 80);
// From (1000, -1000) to (1700, -1000).
const std::string horizontal = Ends(10, 90, 17, 90);
// That one with dashes of 300 and gaps of 200: 1000..1300, and from 1500 to 1800, cut to 1700.
const char twoDashes[] =
    "MoveToEx(1000, -1000)\nLineTo(1300, -1000)\nMoveToEx(1500, -1000)\nLineTo(1700, -1000)\n";
// With dashes of 300 and 500 and gaps of 100: 1000..1300, and from 1400 to 1900, cut to 1700.
const char longDashes[] =
    "MoveToEx(1000, -1000)\nLineTo(1300, -1000)\nMoveToEx(1400, -1000)\nLineTo(1700, -1000)\n";

// Coordinates.

TEST_F(LineTest, goes_from_group_10_to_group_11_in_hundredths) {
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw(slanted));
}

TEST_F(LineTest, the_points_are_kept_in_ent_x_and_ent_y) {
  Draw(slanted);
  EXPECT_EQ(1000.0, state.entX[0]);
  EXPECT_EQ(9000.0, state.entY[0]);
  EXPECT_EQ(3000.0, state.entX[1]);
  EXPECT_EQ(8000.0, state.entY[1]);
  EXPECT_EQ(0.0, state.blockX[0]);
  EXPECT_EQ(0.0, state.dimX[0]);
}

TEST_F(LineTest, neither_the_inserts_scale_nor_its_angle_counts) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = 1.0;
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw(slanted));
}

TEST_F(LineTest, other_codes_are_ignored) {
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw("5 2A\n100 AcDbLine\n67 1\n48 3\n60 1\n" + slanted +
                                                          "30 7\n31 8\n12 5\n22 5\n210 1\n370 200\n"));
}

TEST_F(LineTest, a_line_with_no_code_11_draws_to_the_end_point_of_the_line_before_it) {
  Draw(slanted);
  // From (2000, -1000) to (3000, -2000), slope -1.
  EXPECT_EQ(Stroke(black, 2000, -1000, 3000, -2000), Draw("10 20\n20 90\n"));
}

TEST_F(LineTest, each_missing_coordinate_comes_from_the_line_before_it) {
  Draw(slanted);
  // Only the start's Y and the end's X are new: slope -0.5.
  EXPECT_EQ(Stroke(black, 1000, -1500, 2000, -2000), Draw("20 85\n11 20\n"));
}

TEST_F(LineTest, a_coordinate_beyond_all_numbers_becomes_the_smallest) {
  // 1E+302 is the greater model X and so point b; a horizontal line's b is only held to the right.
  EXPECT_EQ(Stroke(black, 1000, -1000, -2147483647 - 1, -1000), Draw("10 1E+300\n20 90\n11 10\n21 90\n"));
}

// Group 6.

TEST_F(LineTest, code_6_searches_keywords_with_a_record) {
  DefineLtype(2, {300, -200});
  EXPECT_EQ(InPen(black, twoDashes), Draw("6 MY_DASHED_LINE\n" + horizontal));
}

TEST_F(LineTest, code_6_without_a_record_is_solid) {
  DefineLtype(2, {300, -200});
  EXPECT_EQ(Stroke(black, 1000, -1000, 1700, -1000), Draw("6 HIDDEN\n" + horizontal));
  EXPECT_EQ(Stroke(black, 1000, -1000, 1700, -1000), Draw("6 Dashed\n" + horizontal));
}

TEST_F(LineTest, a_code_6_dashdotdot_takes_the_record_of_its_own_slot) {
  DefineLtype(0, {0, -50});
  DefineLtype(1, {60, -50});
  DefineLtype(5, {70, -50, 0, -50});
  DefineLtype(9, {300, -100, 500, -100, 0, -100});
  EXPECT_EQ(InPen(black, longDashes), Draw("6 DASHDOTDOT\n" + horizontal));
}

TEST_F(LineTest, a_code_6_phantom2_takes_its_record_and_is_solid_without) {
  DefineLtype(10, {100, -100});
  EXPECT_EQ(Stroke(black, 1000, -1000, 1700, -1000), Draw("6 PHANTOM2\n" + horizontal));
  DefineLtype(11, {300, -100, 500, -100, 0, -100});
  EXPECT_EQ(InPen(black, longDashes), Draw("6 PHANTOM2\n" + horizontal));
}

TEST_F(LineTest, continuous_keeps_the_layers_family_and_any_other_name_clears_it) {
  DefineLtype(4, {300, -200});
  AddLayer("WALLS", {1, 4, 0}, 0);
  EXPECT_EQ(InPen(black, twoDashes), Draw("8 WALLS\n6 CONTINUOUS\n" + horizontal));
  const std::string solid = Stroke(black, 1000, -1000, 1700, -1000);
  EXPECT_EQ(solid, Draw("8 WALLS\n6 Continuous\n" + horizontal));
  EXPECT_EQ(solid, Draw("8 WALLS\n6 BYLAYER\n" + horizontal));
}

TEST_F(LineTest, by_block_means_nothing_here) {
  AddLayer("WALLS", {}, 1);
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw("8 WALLS\n6 BYBLOCK\n62 0\n" + slanted));
}

// Group 8.

TEST_F(LineTest, code_8_takes_over_the_layers_colour_and_width) {
  AddLayer("WALLS", {0, 0, 3}, 5);
  EXPECT_EQ(Stroke(blue, 1000, -1000, 3000, -2000, 3), Draw("8 WALLS\n" + slanted));
}

TEST_F(LineTest, an_unknown_layer_leaves_everything) {
  AddLayer("WALLS", {0, 0, 3}, 5);
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw("8 Walls\n" + slanted));
}

TEST_F(LineTest, layer_0_is_a_layer_like_any_other) {
  AddLayer("WALLS", {}, 5);
  AddLayer("0", {}, 1);
  SetInsertLayer("WALLS");
  EXPECT_EQ(Stroke(red, 1000, -1000, 3000, -2000), Draw("8 0\n" + slanted));
}

TEST_F(LineTest, a_layers_negative_colour_is_black) {
  AddLayer("OFF", {}, -5);
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw("8 OFF\n" + slanted));
}

TEST_F(LineTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("10 10\n8 WALLS\n20 90\n11 30\n21 80\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(20, "90"));
  // What came before the layer has been read, what came after it hasn't.
  EXPECT_EQ(1000.0, state.entX[0]);
  EXPECT_EQ(0.0, state.entX[1]);
}

// Group 62.

TEST_F(LineTest, code_62_is_mapped) {
  EXPECT_EQ(Stroke(green, 1000, -1000, 3000, -2000), Draw("62 3\n" + slanted));
  EXPECT_EQ(Stroke(magenta, 1000, -1000, 3000, -2000), Draw("62 200\n" + slanted));
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw("62 2\n" + slanted));
}

TEST_F(LineTest, by_layer_and_by_block_as_explicit_colours_are_black) {
  AddLayer("WALLS", {}, 1);
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw("8 WALLS\n62 256\n" + slanted));
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw("8 WALLS\n62 0\n" + slanted));
}

TEST_F(LineTest, a_code_62_of_minus_1_is_the_colour_of_index_minus_1) {
  EXPECT_EQ(Stroke(countColor, 1000, -1000, 3000, -2000), Draw("62 -1\n" + slanted));
}

TEST_F(LineTest, any_other_negative_code_62_is_black) {
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw("62 -5\n" + slanted));
}

TEST_F(LineTest, the_colour_is_kept_in_ent_color_and_starts_at_0) {
  state.blockColor = 4;
  state.dimColor = 4;
  Draw("62 1\n" + slanted);
  EXPECT_EQ(1, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw(slanted));
}

// Group 39, and the order of the groups.

TEST_F(LineTest, code_39_is_the_pen_width_in_hundreds) {
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000, 2), Draw("39 250\n" + slanted));
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000, 0), Draw("39 99\n" + slanted));
}

TEST_F(LineTest, code_8_behind_62_and_39_overwrites_them) {
  AddLayer("WALLS", {0, 0, 3}, 5);
  EXPECT_EQ(Stroke(blue, 1000, -1000, 3000, -2000, 3), Draw("62 1\n39 700\n8 WALLS\n" + slanted));
}

TEST_F(LineTest, code_62_and_39_behind_8_override_the_layer) {
  AddLayer("WALLS", {0, 0, 3}, 5);
  EXPECT_EQ(Stroke(red, 1000, -1000, 3000, -2000, 7), Draw("8 WALLS\n62 1\n39 700\n" + slanted));
}

TEST_F(LineTest, code_8_behind_6_overwrites_the_line_type) {
  DefineLtype(4, {300, -200});
  AddLayer("WALLS", {}, 0);
  EXPECT_EQ(Stroke(black, 1000, -1000, 1700, -1000), Draw("6 HIDDEN\n8 WALLS\n" + horizontal));
}

TEST_F(LineTest, code_6_behind_8_overrides_the_layers_line_type) {
  DefineLtype(1, {100, -100});
  DefineLtype(4, {300, -200});
  AddLayer("WALLS", {1, 1, 0}, 0);
  EXPECT_EQ(InPen(black, twoDashes), Draw("8 WALLS\n6 HIDDEN\n" + horizontal));
}

// The end of the groups.

TEST_F(LineTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(slanted);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(LineTest, the_next_entitys_group_stays_in_the_buffer_when_nothing_is_drawn) {
  EXPECT_EQ("", Draw(Ends(-30, 90, -10, 80)));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  ExcludeFamily(0);
  EXPECT_EQ("", Draw(slanted));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(LineTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Stroke(red, 1000, -1000, 3000, -2000), DrawText("0 LINE\n62 1\n" + slanted));
  EXPECT_EQ(0, result);
}

TEST_F(LineTest, a_file_that_ends_within_a_group_does_not_act_on_it) {
  stream = StreamOf("0 LINE\n" + slanted);
  for (const char byte : {'6', '2', '\n'}) stream.bytes.push_back(byte);
  ReadGroup(stream);
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000),
            ListCalls([this](Canvas canvas) { result = DrawLine({RunOn(canvas)}); }));
  EXPECT_EQ(0, result);
}

// Ordering.

TEST_F(LineTest, a_line_is_drawn_from_its_smaller_model_x) {
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw(Ends(30, 80, 10, 90)));
}

TEST_F(LineTest, a_line_with_equal_x_is_drawn_from_its_second_point_to_its_first) {
  EXPECT_EQ(Stroke(black, 1000, -2000, 1000, -1000), Draw(Ends(10, 90, 10, 80)));
  EXPECT_EQ(Stroke(black, 1000, -1000, 1000, -2000), Draw(Ends(10, 80, 10, 90)));
}

TEST_F(LineTest, the_model_x_decides_even_where_the_sheet_x_is_the_same) {
  // 1000.1 and 1000.4 are both cut to 1000.
  EXPECT_EQ(Stroke(black, 1000, -1000, 1000, -2000), Draw(Ends(10.001, 90, 10.004, 80)));
  EXPECT_EQ(Stroke(black, 1000, -2000, 1000, -1000), Draw(Ends(10.004, 90, 10.001, 80)));
}

TEST_F(LineTest, dashes_start_at_the_smaller_x) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(InPen(black, twoDashes), Draw("6 HIDDEN\n" + Ends(17, 90, 10, 90)));
}

// The view.

TEST_F(LineTest, a_line_with_both_ends_beyond_one_edge_is_dropped) {
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ("", Draw(Ends(5, 80, 9.99, 81)));    // both X below 1000
  EXPECT_EQ("", Draw(Ends(30.01, 80, 40, 81)));  // both X above 3000
  EXPECT_EQ("", Draw(Ends(15, 90.01, 16, 95)));  // -999, -500: both above 1000
  EXPECT_EQ("", Draw(Ends(15, 69.99, 16, 65)));  // -3001, -3500: both below 3000
}

TEST_F(LineTest, a_line_on_the_edge_is_drawn) {
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ(Stroke(black, 1000, -3000, 1000, -1000), Draw(Ends(10, 90, 10, 70)));
}

TEST_F(LineTest, a_horizontal_line_reaching_beyond_left_is_shortened_to_left) {
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ(Stroke(black, 1000, -2000, 2000, -2000), Draw(Ends(5, 80, 20, 80)));
}

TEST_F(LineTest, an_axis_parallel_line_is_clamped_on_every_side) {
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ(Stroke(black, 1000, -2000, 3000, -2000), Draw(Ends(5, 80, 95, 80)));
  EXPECT_EQ(Stroke(black, 2000, -3000, 2000, -1000), Draw(Ends(20, 99, 20, 5)));
}

TEST_F(LineTest, a_slanted_line_reaching_beyond_left_is_cut) {
  // From (-1000, -1000) to (1000, -2000), slope -0.5: at x = 0 it is at -1500.
  EXPECT_EQ(Stroke(black, 0, -1500, 1000, -2000), Draw(Ends(-10, 90, 10, 80)));
}

TEST_F(LineTest, a_slanted_line_of_which_nothing_is_left_is_dropped) {
  view = {0, 0, 1000, 1000};
  // From (-1000, -3200) to (500, -200), slope 2: it rises past the left edge at -1200, below the view.
  EXPECT_EQ("", Draw(Ends(-10, 68, 5, 98)));
}

// Drawing, by family. After the elements that count are others that would show.

TEST_F(LineTest, family_0_is_one_stroke_whatever_line_types_there_are) {
  DefineLtype(0, {300, -200});
  EXPECT_EQ(Stroke(black, 1000, -1000, 1700, -1000), Draw(horizontal));
  // Upward, where a walk along a pattern would run downward.
  EXPECT_EQ(Stroke(black, 1000, -2000, 1000, -1000), Draw(Ends(10, 90, 10, 80)));
}

TEST_F(LineTest, family_1_walks_two_elements) {
  DefineLtype(1, {300, -200, 50, -50, 50, -50});
  EXPECT_EQ(InPen(black, twoDashes), Draw("6 DASH\n" + horizontal));
}

TEST_F(LineTest, family_2_walks_two_elements) {
  DefineLtype(0, {0, -300, 50, -50, 50, -50});
  // Dots at 1000, 1300 and 1600; the gap to 1900 ends it.
  EXPECT_EQ(InPen(black, "MoveToEx(1000, -1000)\n" + Dot(1000, -1000) + "MoveToEx(1300, -1000)\n" +
                             Dot(1300, -1000) + "MoveToEx(1600, -1000)\n" + Dot(1600, -1000)),
            Draw("6 DOT\n" + horizontal));
}

TEST_F(LineTest, family_3_walks_four_elements) {
  DefineLtype(6, {300, -100, 0, -100, 50, -50});
  // 1000..1300, a dot at 1400, and from 1500 a dash to 1800, cut to 1700.
  EXPECT_EQ(InPen(black, "MoveToEx(1000, -1000)\nLineTo(1300, -1000)\nMoveToEx(1400, -1000)\n" +
                             Dot(1400, -1000) + "MoveToEx(1500, -1000)\nLineTo(1700, -1000)\n"),
            Draw("6 CENTER\n" + horizontal));
}

TEST_F(LineTest, family_4_walks_six_elements) {
  DefineLtype(10, {200, -100, 0, -100, 0, -100});
  // 1000..1200, dots at 1300 and 1400, and from 1500 a dash to 1700, which is the end; the next gap ends it.
  EXPECT_EQ(InPen(black, "MoveToEx(1000, -1000)\nLineTo(1200, -1000)\nMoveToEx(1300, -1000)\n" +
                             Dot(1300, -1000) + "MoveToEx(1400, -1000)\n" + Dot(1400, -1000) +
                             "MoveToEx(1500, -1000)\nLineTo(1700, -1000)\n"),
            Draw("6 DIVIDE\n" + horizontal));
}

TEST_F(LineTest, dashes_take_colour_and_width) {
  DefineLtype(4, {300, -200});
  AddLayer("WALLS", {1, 4, 2}, 5);
  EXPECT_EQ(InPen(blue, twoDashes, 2), Draw("8 WALLS\n" + horizontal));
}

TEST_F(LineTest, a_layers_family_without_any_line_types_is_solid) {
  AddLayer("WALLS", {1, 4, 0}, 5);
  EXPECT_EQ(Stroke(blue, 1000, -1000, 1700, -1000), Draw("8 WALLS\n" + horizontal));
}

// Filter and monochrome.

TEST_F(LineTest, an_excluded_family_is_not_drawn) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + horizontal));
  EXPECT_EQ(Stroke(black, 1000, -1000, 1700, -1000), Draw(horizontal));
}

TEST_F(LineTest, the_filter_compares_the_family_and_not_the_pattern) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(4);
  EXPECT_EQ(InPen(black, twoDashes), Draw("6 HIDDEN\n" + horizontal));
}

TEST_F(LineTest, excluded_solid_lines_are_those_without_a_defined_line_type) {
  ExcludeFamily(0);
  EXPECT_EQ("", Draw(horizontal));
  EXPECT_EQ("", Draw("6 HIDDEN\n" + horizontal));
}

TEST_F(LineTest, a_layers_family_is_filtered) {
  AddLayer("WALLS", {3, 6, 0}, 5);
  ExcludeFamily(3);
  EXPECT_EQ("", Draw("8 WALLS\n" + horizontal));
}

TEST_F(LineTest, the_filter_stands_behind_the_groups) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ(Stroke(black, 1000, -1000, 1700, -1000), Draw("6 HIDDEN\n6 BYLAYER\n" + horizontal));
}

TEST_F(LineTest, with_monochrome_on_a_line_on_a_red_layer_is_black) {
  state.monochrome = 1;
  AddLayer("WALLS", {}, 1);
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw("8 WALLS\n" + slanted));
  EXPECT_EQ(Stroke(black, 1000, -1000, 3000, -2000), Draw("62 -1\n" + slanted));
}

TEST_F(LineTest, a_filtered_line_returns_before_monochrome_touches_its_colour) {
  state.monochrome = 1;
  ExcludeFamily(0);
  EXPECT_EQ("", Draw("62 1\n" + slanted));
  EXPECT_EQ(1, state.entColor);
}

// The turned sheet: a point (x, y) becomes (20000 - x, -10000 - y), and the ends swap.

TEST_F(LineTest, on_a_turned_sheet_the_end_becomes_the_start) {
  state.rotated = 1;
  EXPECT_EQ(Stroke(black, 17000, -8000, 19000, -9000), Draw(slanted));
}

TEST_F(LineTest, dashes_start_at_the_turned_end) {
  state.rotated = 1;
  DefineLtype(4, {300, -200});
  // From (18300, -9000) to (19000, -9000).
  EXPECT_EQ(InPen(black,
                  "MoveToEx(18300, -9000)\nLineTo(18600, -9000)\n"
                  "MoveToEx(18800, -9000)\nLineTo(19000, -9000)\n"),
            Draw("6 HIDDEN\n" + horizontal));
}

TEST_F(LineTest, the_view_is_that_of_the_unturned_sheet) {
  state.rotated = 1;
  view = {0, 0, 5000, 5000};
  EXPECT_EQ(Stroke(black, 17000, -8000, 19000, -9000), Draw(slanted));
}

}  // namespace
}  // namespace hexlume::line_test
