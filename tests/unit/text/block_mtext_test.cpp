// MTEXT in a block: what it does otherwise than in the ENTITIES section.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/known_metrics.h"
#include "support/metafile_canvas.h"
#include "support/mtext_calls.h"
#include "support/text_groups.h"
#include "text/mtext.h"

namespace hexlume::block_mtext_test {
namespace {

const char gothic[] = "\uFF2D\uFF33 \u30B4\u30B7\u30C3\u30AF";

// Texts at (2000, 5000), on the sheet (2000, -5000), in a font of the height 1000.
class BlockMTextTest : public ConverterTest {
 protected:
  BlockMTextTest() {
    knownMetrics = {};
    knownMetrics.aveCharWidth = 400;
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {}, 5);
    SetInsertLayer("WALLS");
  }

  std::string Draw(const std::string& groups) { return DrawText("10 20\n20 50\n40 10\n" + groups); }

  std::string DrawText(const std::string& groups) {
    stream = StreamOf("0 MTEXT\n" + groups + "0 CIRCLE\n");
    ReadGroup(stream);
    thrown = 0;
    return ListCalls([this](Canvas canvas) {
      SetTextCharacterExtra(canvas, 7);
      try {
        result = DrawBlockMText({RunOn(canvas), blockOriginX, blockOriginY});
      } catch (int32_t code) {
        thrown = code;
      }
      characterExtra = SetTextCharacterExtra(canvas, 0);
    });
  }

  // A text of so many lines in another entity.
  static void SetEntLines(int32_t count) {
    std::string breaks;
    for (int32_t i = 1; i < count; ++i) breaks += "\\P";
    BoundedCopy(state.entText, breaks.c_str());
  }

  // "A", "B" and "C", as many as there are heights of the sheet for.
  std::string DrawLines(int32_t attach, size_t count, const std::string& groups = "") {
    SetEntLines(static_cast<int32_t>(count));
    return Draw("71 " + std::to_string(attach) + "\n" + groups +
                std::string("1 A\\PB\\PC\\PD").substr(0, 3 * count) + "\n");
  }

  static std::string Lines(int32_t align, const std::vector<int32_t>& heights) {
    std::vector<POINT> points;
    for (const int32_t y : heights) points.push_back({2000, y});
    return LineCalls(Font(), 400, align, points);
  }

  static TextFont Font(int32_t height = 1000, int32_t escapement = 3600) {
    return {height, 0, escapement, 0, 0, gothic};
  }

  static std::string Drawn(const std::string& text, const TextFont& font = Font(),
                           const std::string& color = "0x000000") {
    return AlignCall(8) + ParagraphCalls(font, 400, 2000, -5000, text, color);
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
  int32_t characterExtra = 0;
  int32_t thrown = 0;
};

// Groups.

TEST_F(BlockMTextTest, a_plain_text_is_measured_and_drawn_at_its_point) {
  EXPECT_EQ(Drawn("Text"), Draw("1 Text\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(BlockMTextTest, its_buffers_are_the_blocks) {
  BoundedCopy(state.entText, "other");
  state.entColor = 4;
  state.entX[0] = 1.0;
  Draw("62 1\n1 Text\n");
  EXPECT_STREQ("Text", state.blockText);
  EXPECT_EQ(2000.0, state.blockX[0]);
  EXPECT_EQ(5000.0, state.blockY[0]);
  EXPECT_EQ(1, state.blockColor);
  EXPECT_STREQ("other", state.entText);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(1.0, state.entX[0]);
}

TEST_F(BlockMTextTest, its_colour_is_that_of_the_entity_before_unless_told) {
  state.blockColor = 5;
  EXPECT_EQ(Drawn("Text", Font(), "0xFF0000"), Draw("1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(), "0x00FF00"), Draw("62 3\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(), "0x000000"), Draw("8 DOORS\n62 0\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(), "0xFF0000"), Draw("8 DOORS\n1 Text\n"));
}

TEST_F(BlockMTextTest, layer_0_is_the_inserts_layer) {
  EXPECT_EQ(Drawn("Text", Font(), "0x0000FF"), Draw("8 0\n1 Text\n"));
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n1 Text\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(BlockMTextTest, with_monochrome_on_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Drawn("Text"), Draw("8 0\n1 Text\n"));
}

TEST_F(BlockMTextTest, its_point_is_scaled_and_moved) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 0.5;
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  // (2000 * 2 + 500, 5000 / 2 + 1000 - 10000); the height is 1000 / 2.
  EXPECT_EQ(AlignCall(8) + ParagraphCalls(Font(500), 400, 4500, -6500, "Text"), Draw("1 Text\n"));
}

TEST_F(BlockMTextTest, the_height_has_its_tenth_more_in_half_width_cells_alone) {
  EXPECT_EQ(Drawn("Text", Font(1000)), Draw("1 Text\n"));
  halfWidthFont = 1;
  EXPECT_EQ(Drawn("Text", {1100, 550}), Draw("1 Text\n"));
}

TEST_F(BlockMTextTest, the_code_t_counts_for_the_height_in_front_of_it) {
  EXPECT_EQ(Drawn("Text", Font(2000)), DrawText("10 20\n20 50\n1 \\T2;Text\n40 10\n"));
  EXPECT_EQ(Drawn("Text", Font(1000)), Draw("1 \\T2;Text\n"));
}

TEST_F(BlockMTextTest, group_50_and_group_44_change_nothing) {
  EXPECT_EQ(Drawn("Text"), Draw("50 45\n1 Text\n"));
  EXPECT_EQ(Lines(0, {-5000, -4000}), DrawLines(1, 2, "44 3\n"));
}

TEST_F(BlockMTextTest, other_groups_are_passed_over) {
  EXPECT_EQ(Drawn("Text"), Draw("3 Lost\n41 1\n42 5\n72 3\n73 1\n1 Text\n"));
}

// Text.

TEST_F(BlockMTextTest, only_the_alignment_code_is_cut_at_the_front) {
  EXPECT_EQ(Drawn("Text"), Draw("1 \\A1;\\A10;Text\n"));
  // The first of other codes goes with those in braces.
  EXPECT_EQ(Drawn("\\\\C3;Text"), Draw("1 \\H2.5;\\C3;Text\n"));
}

TEST_F(BlockMTextTest, an_alignment_code_without_its_end_takes_four_bytes) {
  EXPECT_EQ(Drawn("Text"), Draw("1 \\A1xText\n"));
  EXPECT_EQ(Drawn(""), Draw("1 \\A1\n"));
}

TEST_F(BlockMTextTest, all_characters_told_by_their_number_are_drawn) {
  EXPECT_EQ(Drawn("A\u3042B\u3044C"), Draw("1 A\\U+3042B\\U+3044C\n"));
  EXPECT_EQ(Drawn("\uFF71"), Draw("1 \\U+FF71\n"));
  EXPECT_EQ(Drawn("?B"), Draw("1 \\U+0E01B\n"));
}

TEST_F(BlockMTextTest, a_character_that_the_code_page_lacks_becomes_one_that_looks_alike) {
  EXPECT_EQ(Drawn("m2"), Draw("1 m\\U+00B2\n"));         // superscript 2
  EXPECT_EQ(Drawn("\u03BCm"), Draw("1 \\U+00B5m\n"));    // the micro sign: the Greek mu, 83 CA
  EXPECT_EQ(Drawn("??"), Draw("1 \\U+D83D\\U+DE00\n"));  // nothing is like half a pair of surrogates
}

TEST_F(BlockMTextTest, the_three_known_characters_become_symbols) {
  EXPECT_EQ(Drawn("\u03C65"), Draw("1 \\U+22055\n"));
  EXPECT_EQ(Drawn("90\u00B0"), Draw("1 90\\U+00B0\n"));
  EXPECT_EQ(Drawn("\u30FB\u30FBA"), Draw("1 \\U+25CF\\U+25CFA\n"));
}

TEST_F(BlockMTextTest, a_character_cut_off_by_the_texts_end_has_the_digits_that_are_there) {
  EXPECT_EQ(Drawn("AA"), Draw("1 A\\U+41\n"));
  EXPECT_EQ(Drawn("A"), Draw("1 A\\U+\n"));
  EXPECT_EQ(Drawn("A"), Draw("1 A\\U\n"));
  EXPECT_EQ(Drawn("AB"), Draw("1 A\\U+wxyzB\n"));
  EXPECT_EQ(Drawn("AB"), Draw("1 A\\U+0000B\n"));
}

TEST_F(BlockMTextTest, several_groups_1_gather) {
  EXPECT_EQ(Drawn("A\u3042BCD"), Draw("1 A\\U+3042B\n1 CD\n"));
}

TEST_F(BlockMTextTest, a_text_gathered_beyond_its_buffer_throws) {
  const std::string half(128, 'A');
  EXPECT_EQ(Drawn(half + half), Draw("1 " + half + "\n1 " + half + "\n"));
  EXPECT_EQ("", Draw("1 " + half + "\n1 " + half + "B\n"));
  EXPECT_EQ(textTooLongCode, thrown);
}

TEST_F(BlockMTextTest, percent_codes_are_the_blocks) {
  EXPECT_EQ(Drawn("10\u00B0C"), Draw("1 10%%dC\n"));
}

TEST_F(BlockMTextTest, codes_in_braces_go) {
  EXPECT_EQ(Drawn("a Red one"), Draw("1 a {\\C1;Red} one\n"));
}

TEST_F(BlockMTextTest, a_fraction_is_drawn_as_it_stands) {
  EXPECT_EQ(Drawn("5\\\\S1^ 2;mm"), Draw("1 5\\S1^ 2;mm\n"));
}

TEST_F(BlockMTextTest, the_codes_of_the_font_leave_the_text) {
  EXPECT_EQ(AlignCall(8) + ParagraphCalls(Font(), 800, 2000, -5000, "Text"), Draw("1 \\W2;Text\n"));
  EXPECT_EQ(Drawn("Text", {1000, 0, 3600, 15, 1, gothic}), Draw("1 \\Q15.9;Text\n"));
  // One byte of the very start for the one of the number.
  EXPECT_EQ(Drawn("A;CD"), Draw("1 AB\\T2;CD\n"));
}

// The face.

TEST_F(BlockMTextTest, the_half_width_option_alone_tells_the_face) {
  EXPECT_EQ(Drawn("Text", {1000, 0, 3600, 0, 0, gothic}), Draw("1 \\fArial|b0;Text\n"));
  EXPECT_STREQ("Arial", state.blockFaceName);
  EXPECT_STREQ("", state.entFaceName);
  halfWidthFont = 1;
  EXPECT_EQ(Drawn("Text", {1100, 550, 3600, 0, 0, ""}), Draw("1 \\fArial|b0;Text\n"));
}

// Direction.

TEST_F(BlockMTextTest, a_text_leaning_to_the_right_is_turned_as_in_the_drawing) {
  EXPECT_EQ(Drawn("Text", Font(1000, 3231)), Draw("11 4\n21 3\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(1000, 368)), Draw("11 4\n21 -3\n1 Text\n"));
}

TEST_F(BlockMTextTest, an_upright_text_falls_short_of_2700) {
  // With ten decimals of pi, the right angle of the arc tangent isn't worth 900: it is 900.00000003.
  EXPECT_EQ(Drawn("Text", Font(1000, 2699)), Draw("11 0\n21 1\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(1000, 900)), Draw("11 0\n21 -1\n1 Text\n"));
}

TEST_F(BlockMTextTest, a_text_leaning_to_the_left_is_turned_by_its_quadrant) {
  // 3600 - (36.8699 + 180) * 10 = 1431.301.
  EXPECT_EQ(Drawn("Text", Font(1000, 1431)), Draw("11 -4\n21 3\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(1000, 1800)), Draw("11 -1\n21 0\n1 Text\n"));
  // Downward there is no full turn: (-36.8699 + 360) * 10 = 3231.301.
  EXPECT_EQ(Drawn("Text", Font(1000, 3231)), Draw("11 -4\n21 -3\n1 Text\n"));
}

TEST_F(BlockMTextTest, a_text_without_a_direction_has_no_angle) {
  EXPECT_EQ(Drawn("Text", Font(1000, INT32_MIN)), Draw("11 0\n21 0\n1 Text\n"));
  // Its middle row has no place either.
  EXPECT_EQ(AlignCall(8) + AlignCall(14), Draw("11 0\n21 0\n71 5\n1 Text\n"));
}

// The insert's turn.

class TurnedBlockMTextTest : public BlockMTextTest {
 protected:
  TurnedBlockMTextTest() {
    blockOriginX = 8000.0;
    blockOriginY = 1000.0;
    state.insertAngle = halfPi;
    // Cuts become roundings.
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }
};

// (2000, 5000) from the origin becomes (-5000, 2000): 8000 - 5000 and 1000 + 2000.
TEST_F(TurnedBlockMTextTest, its_point_turns_about_the_blocks_origin_and_its_font_with_it) {
  EXPECT_EQ(AlignCall(8) + ParagraphCalls(Font(1000, 2700), 400, 3000, -7000, "Text"), Draw("1 Text\n"));
}

TEST_F(TurnedBlockMTextTest, its_lines_step_from_the_turned_point) {
  SetEntLines(2);
  EXPECT_EQ(LineCalls(Font(1000, 2700), 400, 0, {{3000, -7000}, {3000, -6000}}), Draw("71 1\n1 A\\PB\n"));
}

TEST_F(TurnedBlockMTextTest, the_font_turns_by_whole_degrees) {
  state.insertAngle = 45.7 * pi / 180.0;
  EXPECT_NE(std::string::npos, Draw("1 Text\n").find("CreateFont(1, 1000, 0, 3150, "));
}

TEST_F(TurnedBlockMTextTest, on_a_turned_sheet_both_turns_add_up) {
  state.rotated = 1;
  // 3600 - 900 - 1800, at (20000 - 3000, -10000 + 7000).
  EXPECT_EQ(AlignCall(8) + ParagraphCalls(Font(1000, 900), 400, 17000, -3000, "Text"), Draw("1 Text\n"));
}

// Paragraphs.

TEST_F(BlockMTextTest, as_many_paragraphs_are_drawn_as_another_text_has) {
  EXPECT_EQ(Drawn("A"), Draw("1 A\\PB\\PC\n"));
  SetEntLines(2);
  EXPECT_EQ(Lines(noAlign, {-5000, -5000}), Draw("1 A\\PB\\PC\n"));
}

TEST_F(BlockMTextTest, the_last_paragraph_is_drawn_again_where_there_are_too_few) {
  SetEntLines(3);
  TextFont next = Font();
  next.width = 400;
  EXPECT_EQ(Lines(noAlign, {-5000, -5000}) + Drawn("B", next), Draw("1 A\\PB\n"));
}

// The upper row: 5000, 6000, 7000.
TEST_F(BlockMTextTest, attachments_1_to_3_step_upward) {
  const int32_t aligns[] = {0, 6, 2};
  for (int32_t attach = 1; attach <= 3; ++attach) {
    const int32_t align = aligns[attach - 1];
    EXPECT_EQ(Lines(align, {-5000}), DrawLines(attach, 1));
    EXPECT_EQ(Lines(align, {-5000, -4000}), DrawLines(attach, 2));
    EXPECT_EQ(Lines(align, {-5000, -4000, -3000}), DrawLines(attach, 3));
  }
}

// The middle row. One line: 5000 - 500. Two: 5000 and 5000 - 1000. Three: 5000 - 500 + 1000 = 5500,
// 5500 - 500 - 1000 = 4000 and 4000 - 500 - 2000 = 1500.
TEST_F(BlockMTextTest, attachments_4_and_5_step_from_the_line_before) {
  for (const int32_t attach : {4, 5}) {
    const int32_t align = attach == 4 ? 8 : 14;
    EXPECT_EQ(Lines(align, {-5500}), DrawLines(attach, 1));
    EXPECT_EQ(Lines(align, {-5000, -6000}), DrawLines(attach, 2));
    EXPECT_EQ(Lines(align, {-4500, -6000, -8500}), DrawLines(attach, 3));
  }
}

// Three lines: 5000 - 500 + 0 = 4500, 4500 - 500 - 1000 = 3000 and 3000 - 500 - 2000 = 500.
TEST_F(BlockMTextTest, attachment_6_has_its_upper_lines_a_line_lower) {
  EXPECT_EQ(Lines(10, {-5500}), DrawLines(6, 1));
  EXPECT_EQ(Lines(10, {-5000, -6000}), DrawLines(6, 2));
  EXPECT_EQ(Lines(10, {-5500, -7000, -9500}), DrawLines(6, 3));
}

// 5000 + 1000, 6000 + 0, 6000 - 2000, 4000 - 3000.
TEST_F(BlockMTextTest, four_lines_of_the_middle_row_add_up_their_steps) {
  EXPECT_EQ(Lines(8, {-4000, -4000, -6000, -9000}), DrawLines(4, 4));
  EXPECT_EQ(Lines(14, {-4000, -4000, -6000, -9000}), DrawLines(5, 4));
  EXPECT_EQ(Lines(10, {-4000, -4000, -6000, -9000}), DrawLines(6, 4));
}

TEST_F(BlockMTextTest, an_odd_middle_row_steps_across_the_direction_from_the_line_before) {
  state.shiftY = -0.5;
  // 500 forth, which is to the left, then 1500 and 2500 back.
  EXPECT_EQ(LineCalls(Font(1000, 2699), 400, 8, {{1500, -5000}, {3000, -5000}, {5500, -5000}}),
            DrawLines(4, 3, "11 0\n21 1\n"));
}

// The lower row: 5000, 5000 - 1000, 4000 - 2000.
TEST_F(BlockMTextTest, attachments_7_to_9_step_downward_further_each_time) {
  const int32_t aligns[] = {8, 14, 10};
  for (int32_t attach = 7; attach <= 9; ++attach) {
    const int32_t align = aligns[attach - 7];
    EXPECT_EQ(Lines(align, {-5000}), DrawLines(attach, 1));
    EXPECT_EQ(Lines(align, {-5000, -6000}), DrawLines(attach, 2));
    EXPECT_EQ(Lines(align, {-5000, -6000, -8000}), DrawLines(attach, 3));
  }
}

TEST_F(BlockMTextTest, lines_of_any_other_attachment_overprint) {
  EXPECT_EQ(Lines(noAlign, {-5000, -5000, -5000}), DrawLines(0, 3));
  EXPECT_EQ(Lines(noAlign, {-5000, -5000, -5000}), DrawLines(10, 3));
}

// Spacing.

TEST_F(BlockMTextTest, where_arcs_run_clockwise_its_characters_are_spaced_by_half_their_width) {
  state.arcClockwise = 1;
  halfWidthFont = 1;
  Draw("1 A\n");
  EXPECT_EQ(275, characterExtra);
  // The second paragraph has the width that the first was measured with.
  SetEntLines(2);
  Draw("1 A\\PB\n");
  EXPECT_EQ(200, characterExtra);
}

TEST_F(BlockMTextTest, a_drawing_direction_takes_the_spacing_away) {
  state.arcClockwise = 1;
  halfWidthFont = 1;
  Draw("72 5\n1 A\n");
  EXPECT_EQ(0, characterExtra);
}

TEST_F(BlockMTextTest, elsewhere_the_spacing_stands) {
  halfWidthFont = 1;
  Draw("1 A\n");
  EXPECT_EQ(7, characterExtra);
}

// The view.

TEST_F(BlockMTextTest, a_line_out_of_the_view_ends_the_text) {
  view = {0, 4000, 20000, 10000};
  EXPECT_EQ(Lines(0, {-5000, -4000}) + AlignCall(8) + AlignCall(0), DrawLines(1, 3));
  EXPECT_EQ(1, result);
}

TEST_F(BlockMTextTest, a_whole_text_lies_within_the_view) {
  wholeTextClip = 1;
  view.right = 2400;
  EXPECT_EQ(Lines(0, {-5000}), DrawLines(1, 1));
  view.right = 2399;
  EXPECT_EQ(AlignCall(8) + AlignCall(0) + MeasureCalls(Font()) + SelectCalls({1000, 400, 3600, 0, 0, gothic}),
            DrawLines(1, 1));
  view = {0, 4001, 20000, 10000};
  EXPECT_EQ(AlignCall(8) + AlignCall(8), DrawLines(7, 1));
}

TEST_F(BlockMTextTest, without_a_height_nothing_is_drawn) {
  EXPECT_EQ(AlignCall(8), DrawText("10 20\n20 50\n1 Text\n"));
}

}  // namespace
}  // namespace hexlume::block_mtext_test
