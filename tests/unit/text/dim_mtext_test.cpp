// MTEXT in the block of a dimension: what it does otherwise than in the ENTITIES section.

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

namespace hexlume::dim_mtext_test {
namespace {

const char gothic[] = "\uFF2D\uFF33 \u30B4\u30B7\u30C3\u30AF";

// Texts at (2000, 5000), on the sheet (2000, -5000), in a font of the height 1000 * 1.1.
class DimMTextTest : public ConverterTest {
 protected:
  DimMTextTest() {
    knownMetrics = {};
    knownMetrics.aveCharWidth = 400;
    state.entX[0] = 7000.0;
    state.entY[0] = 7000.0;
  }

  std::string Draw(const std::string& groups) { return DrawText("10 20\n20 50\n40 10\n" + groups); }

  std::string DrawText(const std::string& groups) {
    stream = StreamOf("0 MTEXT\n" + groups + "0 CIRCLE\n");
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawDimMText({RunOn(canvas), offsetX, offsetY}); });
  }

  std::string DrawLines(int32_t attach, size_t count, const std::string& groups = "") {
    return Draw("71 " + std::to_string(attach) + "\n" + groups +
                std::string("1 A\\PB\\PC\\PD").substr(0, 3 * count) + "\n");
  }

  static TextFont Font(int32_t height = 1100, int32_t escapement = 3600) {
    return {height, 0, escapement, 0, 0, gothic};
  }

  static std::string Lines(int32_t align, const std::vector<int32_t>& heights) {
    std::vector<POINT> points;
    for (const int32_t y : heights) points.push_back({2000, y});
    return LineCalls(Font(), 400, align, points);
  }

  static std::string Drawn(const std::string& text, const TextFont& font = Font(),
                           const std::string& color = "0x000000") {
    return AlignCall(8) + ParagraphCalls(font, 400, 2000, -5000, text, color);
  }

  double offsetX = 0.0;
  double offsetY = 0.0;
};

// Groups.

TEST_F(DimMTextTest, a_plain_text_is_measured_and_drawn_at_its_point) {
  EXPECT_EQ(Drawn("Text"), Draw("1 Text\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimMTextTest, its_point_is_moved_and_kept_in_the_second_place) {
  offsetX = 500.0;
  offsetY = -1000.0;
  EXPECT_EQ(AlignCall(8) + ParagraphCalls(Font(), 400, 2500, -6000, "Text"), Draw("1 Text\n"));
  EXPECT_EQ(2500.0, state.entX[1]);
  EXPECT_EQ(4000.0, state.entY[1]);
  EXPECT_EQ(7000.0, state.entX[0]);
  EXPECT_EQ(7000.0, state.entY[0]);
}

TEST_F(DimMTextTest, it_is_black_unless_a_layer_or_a_colour_tells) {
  AddLayer("WALLS", {}, 1);
  AddLayer("0", {}, 3);
  SetInsertLayer("WALLS");
  state.entColor = 5;
  EXPECT_EQ(Drawn("Text"), Draw("1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(), "0x0000FF"), Draw("8 WALLS\n1 Text\n"));
  EXPECT_EQ(Drawn("Text"), Draw("8 WALLS\n62 0\n1 Text\n"));
  // Layer "0" is a layer like any other.
  EXPECT_EQ(Drawn("Text", Font(), "0x00FF00"), Draw("8 0\n1 Text\n"));
}

TEST_F(DimMTextTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 WALLS\n1 Text\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(DimMTextTest, with_monochrome_on_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Drawn("Text"), Draw("62 1\n1 Text\n"));
}

TEST_F(DimMTextTest, the_height_has_its_tenth_more_in_both_modes) {
  EXPECT_EQ(Drawn("Text", {1100, 0, 3600, 0, 0, gothic}), Draw("1 Text\n"));
  halfWidthFont = 1;
  EXPECT_EQ(Drawn("Text", {1100, 550, 3600, 0, 0, ""}), Draw("1 Text\n"));
}

TEST_F(DimMTextTest, the_code_t_never_counts_for_the_height) {
  EXPECT_EQ(Drawn("Text"), DrawText("10 20\n20 50\n1 \\T2;Text\n40 10\n"));
}

TEST_F(DimMTextTest, groups_that_mean_something_elsewhere_are_passed_over) {
  EXPECT_EQ(Drawn("Text"), Draw("3 Lost\n41 1\n42 5\n50 45\n72 5\n73 1\n1 Text\n"));
  EXPECT_EQ(Lines(8, {-3900, -5000}), DrawLines(7, 2, "44 3\n"));
}

// Text.

TEST_F(DimMTextTest, an_alignment_code_at_the_front_takes_four_bytes) {
  EXPECT_EQ(Drawn("Text"), Draw("1 \\A1;\\A0;Text\n"));
  EXPECT_EQ(Drawn(";Text"), Draw("1 \\A10;Text\n"));
  EXPECT_EQ(Drawn(""), Draw("1 \\A1\n"));
}

TEST_F(DimMTextTest, the_scales_are_read_again_behind_an_alignment_code) {
  // First "\W3;" is found, then, four bytes on, "\W2;".
  EXPECT_EQ(AlignCall(8) + ParagraphCalls(Font(), 800, 2000, -5000, "3;\\\\W2;Text"),
            Draw("1 \\A\\W3;\\W2;Text\n"));
}

TEST_F(DimMTextTest, other_codes_at_the_front_are_left_to_the_braces) {
  EXPECT_EQ(Drawn("\\\\C3;Text"), Draw("1 \\H2.5;\\C3;Text\n"));
}

TEST_F(DimMTextTest, of_several_groups_1_the_last_one_counts) {
  EXPECT_EQ(Drawn("CD"), Draw("1 AB\n1 CD\n"));
}

TEST_F(DimMTextTest, characters_told_by_their_number_stay_but_for_the_three_symbols) {
  EXPECT_EQ(Drawn("A\\\\U+3042"), Draw("1 A\\U+3042\n"));
  EXPECT_EQ(Drawn("\u03C65"), Draw("1 \\U+22055\n"));
}

TEST_F(DimMTextTest, percent_codes_and_braces_are_expanded) {
  EXPECT_EQ(Drawn("10\u00B0\u00B0"), Draw("1 10%%dC\n"));
  EXPECT_EQ(Drawn("a Red one"), Draw("1 a {\\C1;Red} one\n"));
}

TEST_F(DimMTextTest, the_code_q_is_the_orientation_but_never_italic) {
  EXPECT_EQ(Drawn("Text", {1100, 0, 3600, 15, 0, gothic}), Draw("1 \\Q15.9;Text\n"));
}

TEST_F(DimMTextTest, the_half_width_option_alone_tells_the_face) {
  EXPECT_EQ(Drawn("Text"), Draw("1 \\fArial|b0;Text\n"));
  EXPECT_STREQ("", state.entFaceName);
  halfWidthFont = 1;
  EXPECT_EQ(Drawn("Text", {1100, 550, 3600, 0, 0, ""}), Draw("1 \\fArial|b0;Text\n"));
}

// Direction.

TEST_F(DimMTextTest, a_text_to_the_right_is_turned_as_in_the_drawing) {
  EXPECT_EQ(Drawn("Text", Font(1100, 3231)), Draw("11 4\n21 3\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(1100, 368)), Draw("11 4\n21 -3\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(1100, 2700)), Draw("11 0\n21 1\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(1100, 2700)), Draw("11 0\n21 0\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(1100, 900)), Draw("11 0\n21 -1\n1 Text\n"));
}

TEST_F(DimMTextTest, a_text_to_the_left_has_no_full_turn) {
  // (36.8699 + 180) * 10, (0 + 180) * 10, (-36.8699 + 360) * 10.
  EXPECT_EQ(Drawn("Text", Font(1100, 2168)), Draw("11 -4\n21 3\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(1100, 1800)), Draw("11 -1\n21 0\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", Font(1100, 3231)), Draw("11 -4\n21 -3\n1 Text\n"));
}

TEST_F(DimMTextTest, an_inserts_turn_does_not_count) {
  state.insertAngle = halfPi;
  state.insertScaleX = 2.0;
  state.insertScaleY = 2.0;
  EXPECT_EQ(Drawn("Text"), Draw("1 Text\n"));
}

TEST_F(DimMTextTest, on_a_turned_sheet_point_and_escapement_turn) {
  state.rotated = 1;
  EXPECT_EQ(AlignCall(8) + ParagraphCalls(Font(1100, 1800), 400, 18000, -5000, "Text"), Draw("1 Text\n"));
}

// Paragraphs.

// The upper row: 5000, 5000 + 1100, 6100 + 2200.
TEST_F(DimMTextTest, attachments_1_to_3_step_upward_further_each_time) {
  const int32_t aligns[] = {0, 6, 2};
  for (int32_t attach = 1; attach <= 3; ++attach) {
    const int32_t align = aligns[attach - 1];
    EXPECT_EQ(Lines(align, {-5000}), DrawLines(attach, 1));
    EXPECT_EQ(Lines(align, {-5000, -3900}), DrawLines(attach, 2));
    EXPECT_EQ(Lines(align, {-5000, -3900, -1700}), DrawLines(attach, 3));
  }
}

// The middle row. One line: 5000 - 550. Two: 5000 and 5000 - 1100. Three: 5000 - 550 + 1100 = 5550,
// 5550 - 550 - 1100 = 3900 and 3900 - 550 - 2200 = 1150.
TEST_F(DimMTextTest, attachments_4_and_5_step_from_the_line_before) {
  for (const int32_t attach : {4, 5}) {
    const int32_t align = attach == 4 ? 8 : 14;
    EXPECT_EQ(Lines(align, {-5550}), DrawLines(attach, 1));
    EXPECT_EQ(Lines(align, {-5000, -6100}), DrawLines(attach, 2));
    EXPECT_EQ(Lines(align, {-4450, -6100, -8850}), DrawLines(attach, 3));
  }
}

// Three lines: 5000 - 550 + 0 = 4450, 4450 - 550 - 1100 = 2800 and 2800 - 550 - 2200 = 50.
TEST_F(DimMTextTest, attachment_6_has_its_upper_lines_a_line_lower) {
  EXPECT_EQ(Lines(10, {-5550}), DrawLines(6, 1));
  EXPECT_EQ(Lines(10, {-5000, -6100}), DrawLines(6, 2));
  EXPECT_EQ(Lines(10, {-5550, -7200, -9950}), DrawLines(6, 3));
}

// 5000 + 1100, 6100 + 0, 6100 - 2200, 3900 - 3300.
TEST_F(DimMTextTest, four_lines_of_the_middle_row_add_up_their_steps) {
  EXPECT_EQ(Lines(8, {-3900, -3900, -6100, -9400}), DrawLines(4, 4));
  EXPECT_EQ(Lines(14, {-3900, -3900, -6100, -9400}), DrawLines(5, 4));
  EXPECT_EQ(Lines(10, {-3900, -3900, -6100, -9400}), DrawLines(6, 4));
}

TEST_F(DimMTextTest, an_odd_middle_row_steps_across_the_direction_from_the_texts_own_point) {
  state.shiftX = 0.5;
  state.shiftY = -0.5;
  // As all lines of an upright text are at 5000, 550 forth, 1650 and 2750 back.
  EXPECT_EQ(LineCalls(Font(1100, 2700), 400, 8, {{1450, -5000}, {3650, -5000}, {4750, -5000}}),
            DrawLines(4, 3, "11 0\n21 1\n"));
  // Sine 0.6 and cosine 0.8. 550 forth: 2000 - 330, 5000 + 440. From 5440: 5440 - 550 - 1100 = 3790, 1210
  // back: 2000 + 726, 5000 - 968. From 4032: 4032 - 550 - 2200 = 1282, 3718 back: 2000 + 2230.8, 5000 -
  // 2974.4.
  EXPECT_EQ(LineCalls(Font(1100, 3231), 400, 14, {{1670, -4560}, {2726, -5968}, {4231, -7974}}),
            DrawLines(5, 3, "11 4\n21 3\n"));
}

// The lower row, without a gap: 5000 + 2200, 5000 + 1100, 5000.
TEST_F(DimMTextTest, attachments_7_to_9_step_down_to_the_point) {
  const int32_t aligns[] = {8, 14, 10};
  for (int32_t attach = 7; attach <= 9; ++attach) {
    const int32_t align = aligns[attach - 7];
    EXPECT_EQ(Lines(align, {-5000}), DrawLines(attach, 1));
    EXPECT_EQ(Lines(align, {-3900, -5000}), DrawLines(attach, 2));
    EXPECT_EQ(Lines(align, {-2800, -3900, -5000}), DrawLines(attach, 3));
  }
}

TEST_F(DimMTextTest, lines_of_any_other_attachment_overprint) {
  EXPECT_EQ(Lines(noAlign, {-5000, -5000, -5000}), DrawLines(0, 3));
  EXPECT_EQ(Lines(noAlign, {-5000, -5000, -5000}), DrawLines(10, 3));
}

TEST_F(DimMTextTest, its_characters_are_never_spaced) {
  state.arcClockwise = 1;
  halfWidthFont = 1;
  int32_t characterExtra = 0;
  stream = StreamOf("0 MTEXT\n10 20\n20 50\n40 10\n1 A\n");
  ReadGroup(stream);
  ListCalls([&](Canvas canvas) {
    SetTextCharacterExtra(canvas, 7);
    DrawDimMText({RunOn(canvas)});
    characterExtra = SetTextCharacterExtra(canvas, 0);
  });
  EXPECT_EQ(7, characterExtra);
}

// Fractions.

TEST_F(DimMTextTest, a_fraction_is_drawn_at_the_texts_point) {
  halfWidthFont = 1;
  const std::string calls = Draw("1 \\S1^ 2;mm\n");
  // At the front it is no code to drop: an empty text is before it.
  EXPECT_EQ(0u, calls.find("CreateFont(1, 1100, 550, 3600, "));
  EXPECT_NE(std::string::npos, calls.find(TextOutCall(2000, -5000, "")));
  // After one byte of the part's width.
  EXPECT_NE(std::string::npos, calls.find(TextOutCall(2550, -5000, "mm")));
}

TEST_F(DimMTextTest, a_fraction_is_drawn_if_the_view_holds_another_entitys_point) {
  view = {7000, 3000, 7000, 3000};
  EXPECT_NE("", Draw("1 5\\S1^ 2;mm\n"));
  view = {0, 0, 6999, 10000};
  EXPECT_EQ("", Draw("1 5\\S1^ 2;mm\n"));
  EXPECT_EQ(1, result);
}

TEST_F(DimMTextTest, a_fraction_out_of_that_view_ends_the_text) {
  state.entX[0] = -1.0;
  EXPECT_EQ(AlignCall(8) + AlignCall(8) + ParagraphCalls(Font(), 400, 2000, -2800, "A"),
            Draw("71 7\n1 A\\P5\\S1^ 2;mm\\PB\n"));
}

// The view.

TEST_F(DimMTextTest, a_line_out_of_the_view_ends_the_text) {
  view = {0, 3900, 20000, 10000};
  EXPECT_EQ(Lines(0, {-5000, -3900}) + AlignCall(8) + AlignCall(0), DrawLines(1, 3));
  EXPECT_EQ(1, result);
}

TEST_F(DimMTextTest, a_whole_text_lies_within_the_view) {
  wholeTextClip = 1;
  view.right = 2400;
  EXPECT_EQ(Lines(0, {-5000}), DrawLines(1, 1));
  view.right = 2399;
  EXPECT_EQ(AlignCall(8) + AlignCall(0) + MeasureCalls(Font()) + SelectCalls({1100, 400, 3600, 0, 0, gothic}),
            DrawLines(1, 1));
  view = {0, 3901, 20000, 10000};
  EXPECT_EQ(AlignCall(8) + AlignCall(8), DrawLines(7, 1));
}

TEST_F(DimMTextTest, without_a_height_nothing_is_drawn) {
  EXPECT_EQ(AlignCall(8), DrawText("10 20\n20 50\n1 Text\n"));
}

}  // namespace
}  // namespace hexlume::dim_mtext_test
