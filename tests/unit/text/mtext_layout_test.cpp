// Where the paragraphs of an MTEXT in the ENTITIES section are, and which of them the view holds.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/known_metrics.h"
#include "support/metafile_canvas.h"
#include "support/mtext_calls.h"
#include "support/text_groups.h"
#include "text/mtext.h"

namespace hexlume::mtext_layout_test {
namespace {

// Texts at (2000, 5000), on the sheet (2000, -5000), in a font of the height 1000 * 1.1 = 1100. That is the
// step from line to line, too, and the gap is 1100 / 1.2 * 1.67 - 1100 = 430.83.
class MTextLayoutTest : public ConverterTest {
 protected:
  MTextLayoutTest() {
    knownMetrics = {};
    knownMetrics.aveCharWidth = 400;
  }

  std::string Draw(int32_t attach, const std::string& groups) {
    stream =
        StreamOf("0 MTEXT\n10 20\n20 50\n40 10\n71 " + std::to_string(attach) + "\n" + groups + "0 CIRCLE\n");
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { DrawMText({RunOn(canvas)}); });
  }

  // Lines at these heights of the sheet.
  static std::string Lines(int32_t align, const std::vector<int32_t>& heights) {
    std::vector<POINT> points;
    for (const int32_t y : heights) points.push_back({2000, y});
    return LineCalls({}, 400, align, points);
  }
};

const char oneLine[] = "1 A\n";
const char twoLines[] = "1 A\\PB\n";
const char threeLines[] = "1 A\\PB\\PC\n";
const char fourLines[] = "1 A\\PB\\PC\\PD\n";

// The upper row: 5000, 5000 - 1530.83 = 3469.17, 5000 - 3061.67 = 1938.33; less 10000.

TEST_F(MTextLayoutTest, attachment_1_steps_down_from_the_top_left) {
  EXPECT_EQ(Lines(0, {-5000}), Draw(1, oneLine));
  EXPECT_EQ(Lines(0, {-5000, -6530}), Draw(1, twoLines));
  EXPECT_EQ(Lines(0, {-5000, -6530, -8061}), Draw(1, threeLines));
}

TEST_F(MTextLayoutTest, attachment_2_steps_down_from_the_top_centre) {
  EXPECT_EQ(Lines(6, {-5000}), Draw(2, oneLine));
  EXPECT_EQ(Lines(6, {-5000, -6530}), Draw(2, twoLines));
  EXPECT_EQ(Lines(6, {-5000, -6530, -8061}), Draw(2, threeLines));
}

TEST_F(MTextLayoutTest, attachment_3_steps_down_from_the_top_right) {
  EXPECT_EQ(Lines(2, {-5000}), Draw(3, oneLine));
  EXPECT_EQ(Lines(2, {-5000, -6530}), Draw(3, twoLines));
  EXPECT_EQ(Lines(2, {-5000, -6530, -8061}), Draw(3, threeLines));
}

// The middle row. One line: 5000 - 550. Two: 5000 and 5000 - 1100. Three: 5000 - 550 + 1100 = 5550,
// 5000 - 550 - 1100 = 3350 and 5000 - 550 - 2200 = 2250.

TEST_F(MTextLayoutTest, attachment_4_spreads_the_lines_about_the_middle) {
  EXPECT_EQ(Lines(8, {-5550}), Draw(4, oneLine));
  EXPECT_EQ(Lines(8, {-5000, -6100}), Draw(4, twoLines));
  EXPECT_EQ(Lines(8, {-4450, -6650, -7750}), Draw(4, threeLines));
}

TEST_F(MTextLayoutTest, attachment_5_spreads_the_lines_about_the_middle) {
  EXPECT_EQ(Lines(14, {-5550}), Draw(5, oneLine));
  EXPECT_EQ(Lines(14, {-5000, -6100}), Draw(5, twoLines));
  EXPECT_EQ(Lines(14, {-4450, -6650, -7750}), Draw(5, threeLines));
}

// The first of three lines is at 5000 - 550 + 0.
TEST_F(MTextLayoutTest, attachment_6_has_its_upper_lines_a_line_lower) {
  EXPECT_EQ(Lines(10, {-5550}), Draw(6, oneLine));
  EXPECT_EQ(Lines(10, {-5000, -6100}), Draw(6, twoLines));
  EXPECT_EQ(Lines(10, {-5550, -6650, -7750}), Draw(6, threeLines));
}

// 5000 + 1100, 5000, 5000 - 2 * 1100, 5000 - 3 * 1100.
TEST_F(MTextLayoutTest, four_lines_of_attachment_4_are_placed_from_the_texts_own_point) {
  EXPECT_EQ(Lines(8, {-3900, -5000, -7200, -8300}), Draw(4, fourLines));
}

// 5000 + 1100 = 6100, 6100 + 0, 6100 - 2 * 1100 = 3900, 3900 - 3 * 1100 = 600.
TEST_F(MTextLayoutTest, four_lines_of_attachments_5_and_6_add_up_their_steps) {
  EXPECT_EQ(Lines(14, {-3900, -3900, -6100, -9400}), Draw(5, fourLines));
  EXPECT_EQ(Lines(10, {-3900, -3900, -6100, -9400}), Draw(6, fourLines));
}

// The lower row: the last line at 5000, those above it 1530.83 and 3061.67 higher.

TEST_F(MTextLayoutTest, attachment_7_steps_down_to_the_bottom_left) {
  EXPECT_EQ(Lines(8, {-5000}), Draw(7, oneLine));
  EXPECT_EQ(Lines(8, {-3469, -5000}), Draw(7, twoLines));
  EXPECT_EQ(Lines(8, {-1938, -3469, -5000}), Draw(7, threeLines));
}

TEST_F(MTextLayoutTest, attachment_8_steps_down_to_the_bottom_centre) {
  EXPECT_EQ(Lines(14, {-5000}), Draw(8, oneLine));
  EXPECT_EQ(Lines(14, {-3469, -5000}), Draw(8, twoLines));
  EXPECT_EQ(Lines(14, {-1938, -3469, -5000}), Draw(8, threeLines));
}

TEST_F(MTextLayoutTest, attachment_9_steps_down_to_the_bottom_right) {
  EXPECT_EQ(Lines(10, {-5000}), Draw(9, oneLine));
  EXPECT_EQ(Lines(10, {-3469, -5000}), Draw(9, twoLines));
  EXPECT_EQ(Lines(10, {-1938, -3469, -5000}), Draw(9, threeLines));
}

TEST_F(MTextLayoutTest, lines_of_any_other_attachment_overprint) {
  EXPECT_EQ(Lines(noAlign, {-5000}), Draw(0, oneLine));
  EXPECT_EQ(Lines(noAlign, {-5000, -5000}), Draw(0, twoLines));
  EXPECT_EQ(Lines(noAlign, {-5000, -5000, -5000}), Draw(0, threeLines));
  EXPECT_EQ(Lines(noAlign, {-5000, -5000, -5000}), Draw(10, threeLines));
  EXPECT_EQ(Lines(noAlign, {-5000, -5000, -5000}), Draw(-1, threeLines));
}

// The line factor.

// 2 * 1530.83 = 3061.67 from line to line.
TEST_F(MTextLayoutTest, the_line_factor_spreads_the_upper_and_the_lower_row) {
  EXPECT_EQ(Lines(0, {-5000, -8061}), Draw(1, std::string("44 2\n") + twoLines));
  EXPECT_EQ(Lines(14, {-1938, -5000}), Draw(8, std::string("44 2\n") + twoLines));
}

TEST_F(MTextLayoutTest, the_line_factor_leaves_the_middle_row) {
  EXPECT_EQ(Lines(8, {-5000, -6100}), Draw(4, std::string("44 2\n") + twoLines));
  EXPECT_EQ(Lines(14, {-4450, -6650, -7750}), Draw(5, std::string("44 2\n") + threeLines));
}

TEST_F(MTextLayoutTest, the_line_factor_is_each_texts_own) {
  Draw(1, std::string("44 2\n") + twoLines);
  EXPECT_EQ(Lines(0, {-5000, -6530}), Draw(1, twoLines));
}

// A height of 550 on the sheet makes a step of 1100, but a gap of 550 / 1.2 * 1.67 - 550 = 215.42:
// (5000 - 1315.42) / 2 - 10000 = -8157.7.
TEST_F(MTextLayoutTest, the_gap_does_not_follow_the_scale) {
  state.drawScale = 2.0;
  EXPECT_EQ(LineCalls({550}, 400, 0, {{1000, -7500}, {1000, -8157}}), Draw(1, twoLines));
  // 5000 + 1315.42 = 6315.42.
  EXPECT_EQ(LineCalls({550}, 400, 8, {{1000, -6842}, {1000, -7500}}), Draw(7, twoLines));
}

// Turned texts.

TEST_F(MTextLayoutTest, an_odd_middle_row_steps_across_an_upright_text) {
  state.shiftY = -0.5;
  // 550 back is to the right; of three lines the first is 550 forth, the others are 1650 and 2750 back.
  EXPECT_EQ(LineCalls({1100, 0, 2700}, 400, 14, {{2550, -5000}}),
            Draw(5, std::string("11 0\n21 1\n") + oneLine));
  EXPECT_EQ(LineCalls({1100, 0, 2700}, 400, 8, {{1450, -5000}, {3650, -5000}, {4750, -5000}}),
            Draw(4, std::string("11 0\n21 1\n") + threeLines));
}

TEST_F(MTextLayoutTest, an_odd_middle_row_steps_across_a_rising_text) {
  state.shiftX = 0.5;
  state.shiftY = -0.5;
  // Sine 0.6 and cosine 0.8: 2000 + 0.6 * 550 and 5000 - 0.8 * 550.
  EXPECT_EQ(LineCalls({1100, 0, 3231}, 400, 14, {{2330, -5440}}),
            Draw(5, std::string("11 4\n21 3\n") + oneLine));
  // The first of three is at 5000 + 550 for 5, and at 5000 - 550 for 6.
  EXPECT_EQ(LineCalls({1100, 0, 3231}, 400, 14, {{1670, -4560}, {2990, -6320}, {3650, -7200}}),
            Draw(5, std::string("11 4\n21 3\n") + threeLines));
  EXPECT_EQ(LineCalls({1100, 0, 3231}, 400, 10, {{2330, -5440}, {2990, -6320}, {3650, -7200}}),
            Draw(6, std::string("11 4\n21 3\n") + threeLines));
}

TEST_F(MTextLayoutTest, a_text_to_the_left_steps_as_if_it_went_to_the_right) {
  state.shiftX = 0.5;
  state.shiftY = -0.5;
  // The slope 3 / 4 again.
  EXPECT_EQ(LineCalls({1100, 0, 1431}, 400, 14, {{2330, -5440}}),
            Draw(5, std::string("11 -4\n21 3\n") + oneLine));
}

TEST_F(MTextLayoutTest, a_falling_text_steps_to_the_other_side) {
  state.shiftX = 0.5;
  state.shiftY = -0.5;
  EXPECT_EQ(LineCalls({1100, 0, 368}, 400, 14, {{1670, -5440}}),
            Draw(5, std::string("11 4\n21 -3\n") + oneLine));
  // Straight down, sine -1.
  EXPECT_EQ(LineCalls({1100, 0, 900}, 400, 14, {{1450, -5000}}),
            Draw(5, std::string("11 0\n21 -1\n") + oneLine));
}

TEST_F(MTextLayoutTest, all_other_rows_step_along_y_whatever_the_direction) {
  const std::string upright = "11 0\n21 1\n";
  EXPECT_EQ(LineCalls({1100, 0, 2700}, 400, 0, {{2000, -5000}, {2000, -6530}}), Draw(1, upright + twoLines));
  EXPECT_EQ(LineCalls({1100, 0, 2700}, 400, 8, {{2000, -5000}, {2000, -6100}}), Draw(4, upright + twoLines));
  EXPECT_EQ(LineCalls({1100, 0, 2700}, 400, 8, {{2000, -3469}, {2000, -5000}}), Draw(7, upright + twoLines));
}

TEST_F(MTextLayoutTest, on_a_turned_sheet_each_line_turns_about_the_middle) {
  state.rotated = 1;
  // (20000 - 2000, -10000 + 5000) and (20000 - 2000, -10000 + 6530).
  EXPECT_EQ(LineCalls({1100, 0, 1800}, 400, 0, {{18000, -5000}, {18000, -3470}}), Draw(1, twoLines));
}

// The view.

const std::string nothingOf1 = AlignCall(8) + AlignCall(0);

TEST_F(MTextLayoutTest, the_view_holds_a_text_by_its_anchor) {
  view = {2000, 5000, 2000, 5000};
  EXPECT_EQ(Lines(0, {-5000}), Draw(1, oneLine));
  view = {2001, 0, 20000, 10000};
  EXPECT_EQ(nothingOf1, Draw(1, oneLine));
  view = {0, 5001, 20000, 10000};
  EXPECT_EQ(nothingOf1, Draw(1, oneLine));
  view = {0, 0, 1999, 10000};
  EXPECT_EQ(nothingOf1, Draw(1, oneLine));
  view = {0, 0, 20000, 4999};
  EXPECT_EQ(nothingOf1, Draw(1, oneLine));
}

TEST_F(MTextLayoutTest, a_line_out_of_the_view_ends_the_text) {
  view = {0, 0, 20000, 6529};
  EXPECT_EQ(Lines(0, {-5000}) + nothingOf1, Draw(1, threeLines));
  // Of the lower row the first line is the highest: those below it, in the view, are dropped with it.
  view = {0, 1939, 20000, 10000};
  EXPECT_EQ(AlignCall(8) + AlignCall(8), Draw(7, threeLines));
}

// Whole texts. The texts have a width of 400 a byte.

TEST_F(MTextLayoutTest, a_whole_text_of_the_upper_row_hangs_within_the_view) {
  wholeTextClip = 2;
  view = {0, 0, 20000, 6100};
  EXPECT_EQ(Lines(0, {-5000}), Draw(1, oneLine));
  EXPECT_EQ(Lines(2, {-5000}), Draw(3, oneLine));
  view.bottom = 6099;
  EXPECT_EQ(nothingOf1, Draw(1, oneLine));
  EXPECT_EQ(AlignCall(8) + AlignCall(6), Draw(2, oneLine));
  EXPECT_EQ(AlignCall(8) + AlignCall(2), Draw(3, oneLine));
}

TEST_F(MTextLayoutTest, a_whole_text_of_the_middle_row_lies_within_the_view) {
  wholeTextClip = 2;
  // The line is at -5550, and half the height goes to each side.
  view = {0, 5000, 20000, 6100};
  EXPECT_EQ(Lines(8, {-5550}), Draw(4, oneLine));
  EXPECT_EQ(Lines(10, {-5550}), Draw(6, oneLine));
  view = {0, 5001, 20000, 6100};
  EXPECT_EQ(AlignCall(8) + AlignCall(8), Draw(4, oneLine));
  EXPECT_EQ(AlignCall(8) + AlignCall(10), Draw(6, oneLine));
  view = {0, 5000, 20000, 6099};
  EXPECT_EQ(AlignCall(8) + AlignCall(14), Draw(5, oneLine));
}

TEST_F(MTextLayoutTest, a_whole_text_of_the_lower_row_stands_within_the_view) {
  wholeTextClip = 2;
  view = {0, 3900, 20000, 5000};
  EXPECT_EQ(Lines(8, {-5000}), Draw(7, oneLine));
  EXPECT_EQ(Lines(10, {-5000}), Draw(9, oneLine));
  view.top = 3901;
  EXPECT_EQ(AlignCall(8) + AlignCall(8), Draw(7, oneLine));
  EXPECT_EQ(AlignCall(8) + AlignCall(14), Draw(8, oneLine));
  EXPECT_EQ(AlignCall(8) + AlignCall(10), Draw(9, oneLine));
}

TEST_F(MTextLayoutTest, without_an_attachment_no_height_is_too_large) {
  wholeTextClip = 1;
  view = {0, 5000, 20000, 5000};
  EXPECT_EQ(Lines(noAlign, {-5000}), Draw(10, oneLine));
}

// A text that turns out to be too wide leaves its font selected.
std::string LeftCalls(int32_t align) {
  return AlignCall(8) + (align == noAlign ? "" : AlignCall(align)) + MeasureCalls({}) +
         SelectCalls({1100, 400});
}

TEST_F(MTextLayoutTest, a_whole_text_on_the_left_ends_within_the_view) {
  wholeTextClip = 1;
  view.right = 2400;
  EXPECT_EQ(Lines(0, {-5000}), Draw(1, oneLine));
  view.right = 2399;
  EXPECT_EQ(LeftCalls(0), Draw(1, oneLine));
  EXPECT_EQ(LeftCalls(8), Draw(4, oneLine));
  EXPECT_EQ(LeftCalls(8), Draw(7, twoLines));
  EXPECT_EQ(LeftCalls(noAlign), Draw(10, oneLine));
}

TEST_F(MTextLayoutTest, a_whole_text_in_the_middle_lies_within_the_view) {
  wholeTextClip = 1;
  view = {1800, 0, 2200, 10000};
  EXPECT_EQ(Lines(6, {-5000}), Draw(2, oneLine));
  view = {1801, 0, 2200, 10000};
  EXPECT_EQ(LeftCalls(6), Draw(2, oneLine));
  EXPECT_EQ(LeftCalls(14), Draw(8, oneLine));
  view = {1800, 0, 2199, 10000};
  EXPECT_EQ(LeftCalls(14), Draw(5, oneLine));
}

TEST_F(MTextLayoutTest, a_whole_text_on_the_right_starts_within_the_view) {
  wholeTextClip = 1;
  view.left = 1600;
  EXPECT_EQ(Lines(2, {-5000}), Draw(3, oneLine));
  EXPECT_EQ(Lines(noAlign, {-5000}), Draw(0, oneLine));
  view.left = 1601;
  EXPECT_EQ(LeftCalls(2), Draw(3, oneLine));
  EXPECT_EQ(LeftCalls(10), Draw(6, oneLine));
  EXPECT_EQ(LeftCalls(10), Draw(9, oneLine));
  EXPECT_EQ(LeftCalls(noAlign), Draw(0, oneLine));
}

TEST_F(MTextLayoutTest, a_negative_attachment_has_no_width_but_for_its_thirds) {
  wholeTextClip = 1;
  view = {2000, 0, 2000, 10000};
  EXPECT_EQ(Lines(noAlign, {-5000}), Draw(-1, oneLine));
  EXPECT_EQ(Lines(noAlign, {-5000}), Draw(-2, oneLine));
  EXPECT_EQ(LeftCalls(noAlign), Draw(-3, oneLine));
}

TEST_F(MTextLayoutTest, the_width_of_a_whole_text_does_not_follow_the_code_w) {
  wholeTextClip = 1;
  view.right = 2400;
  EXPECT_EQ(LineCalls({}, 800, 0, {{2000, -5000}}), Draw(1, "1 \\W2;A\n"));
}

TEST_F(MTextLayoutTest, only_the_clip_of_1_tests_the_width) {
  wholeTextClip = 2;
  view.right = 2000;
  EXPECT_EQ(Lines(0, {-5000}), Draw(1, oneLine));
}

}  // namespace
}  // namespace hexlume::mtext_layout_test
