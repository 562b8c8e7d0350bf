// MTEXT in the ENTITIES section: its groups, its codes and its font. A sheet unit is 0.01 of the drawing's.

#include "text/mtext.h"

#include <gtest/gtest.h>

#include <string>

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/known_metrics.h"
#include "support/metafile_canvas.h"
#include "support/mtext_calls.h"
#include "support/text_groups.h"

namespace hexlume {
namespace {

class MTextTest : public ConverterTest {
 protected:
  MTextTest() {
    knownMetrics = {};
    knownMetrics.descent = 77;  // isn't to be looked at
    knownMetrics.aveCharWidth = 400;
  }

  // The listing of one text with these groups, of height 10 at (20, 80) unless they tell otherwise.
  std::string Draw(const std::string& groups) { return DrawText("10 20\n20 80\n40 10\n" + groups); }

  std::string DrawText(const std::string& groups) {
    stream = StreamOf("0 MTEXT\n" + groups + "0 CIRCLE\n");
    ReadGroup(stream);
    return ListCalls(
        [this](Canvas canvas) { result = DrawMText(canvas, stream, view, wholeTextClip, halfWidthFont); });
  }

  // One paragraph at (2000, -2000) without an attachment. The font has the height 1000 * 1.1.
  static std::string Drawn(const std::string& text, const TextFont& font = {},
                           const std::string& color = "0x000000") {
    return AlignCall(8) + ParagraphCalls(font, 400, 2000, -2000, text, color);
  }

  int32_t wholeTextClip = 0;
  int32_t halfWidthFont = 0;
  TextStream stream;
  int32_t result = -1;
};

TEST_F(MTextTest, a_plain_text_is_measured_and_drawn_at_its_point) {
  EXPECT_EQ(
      "SetTextAlign(8)\n"
      "CreateFont(1, 1100, 0, 3600, 0, 0, 0, 0, 0, 128, 0, 16, 0, 0, \"\")\n"
      "SelectObject(1)\n"
      "SelectObject(SYSTEM_FONT)\n"
      "DeleteObject(1)\n"
      "CreateFont(1, 1100, 400, 3600, 0, 0, 0, 0, 0, 128, 0, 16, 0, 0, \"\")\n"
      "SelectObject(1)\n"
      "SetTextColor(0x000000)\n"
      "SetBkMode(TRANSPARENT)\n"
      "ExtTextOutW(2000, -2000, 0, \"Text\")\n"
      "SelectObject(SYSTEM_FONT)\n"
      "DeleteObject(1)\n",
      Draw("1 Text\n"));
}

// Height and width.

TEST_F(MTextTest, the_height_is_cut_on_the_sheet_and_then_made_a_tenth_larger) {
  state.drawScale = 2.0;
  // 11.1 * 100 / 2 = 555; 555 * 1.1 = 610.5. The point is (2000 / 2, 8000 / 2 - 10000).
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({610}, 400, 1000, -6000, "Text"),
            DrawText("10 20\n20 80\n40 11.1\n1 Text\n"));
  state.drawScale = 1.0;
  // 1.099 * 100 = 109.9, cut to 109; 109 * 1.1 = 119.9.
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({119}, 400, 2000, -2000, "Text"),
            DrawText("10 20\n20 80\n40 1.099\n1 Text\n"));
}

TEST_F(MTextTest, half_width_cells_are_measured_at_half_the_height) {
  halfWidthFont = 1;
  EXPECT_EQ(Drawn("Text", {1100, 550}), Draw("1 Text\n"));
}

TEST_F(MTextTest, the_code_t_counts_for_the_height_only_in_front_of_it) {
  // 10 * 100 * 2 * 1.1 = 2200.
  EXPECT_EQ(Drawn("Text", {2200}), DrawText("10 20\n20 80\n1 \\T2;Text\n40 10\n"));
  EXPECT_EQ(Drawn("Text"), Draw("1 \\T2;Text\n"));
}

TEST_F(MTextTest, the_code_w_scales_the_measured_width) {
  // 400 * 0.804 = 321.6.
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({}, 321, 2000, -2000, "Text"), Draw("1 \\W0.804;Text\n"));
}

TEST_F(MTextTest, the_width_of_one_paragraph_is_that_of_the_next_ones_measuring_font) {
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({}, 400, 2000, -2000, "A") + AlignCall(8) +
                ParagraphCalls({1100, 400}, 400, 2000, -2000, "B"),
            Draw("1 A\\PB\n"));
}

TEST_F(MTextTest, the_code_q_is_the_orientation_and_makes_it_italic) {
  EXPECT_EQ(Drawn("Text", {1100, 0, 3600, 15, 1}), Draw("1 \\Q15.9;Text\n"));
  EXPECT_EQ(Drawn("Text", {1100, 0, 3600, -7, 1}), Draw("1 \\Q-7;Text\n"));
}

TEST_F(MTextTest, an_oblique_angle_below_1_is_none) {
  EXPECT_EQ(Drawn("Text"), Draw("1 \\Q0.9;Text\n"));
}

TEST_F(MTextTest, the_scales_are_each_texts_own) {
  Draw("1 \\W2;\\Q15;\\T3;A\n");
  EXPECT_EQ(Drawn("Text"), DrawText("10 20\n20 80\n1 Text\n40 10\n"));
}

TEST_F(MTextTest, without_a_height_nothing_is_drawn_but_the_alignment_is_set) {
  EXPECT_EQ(AlignCall(8) + AlignCall(0), DrawText("10 20\n20 80\n71 1\n1 Text\n"));
  EXPECT_EQ(0, knownMetrics.calls);
}

TEST_F(MTextTest, a_height_of_0_drops_the_paragraphs_one_by_one) {
  EXPECT_EQ(AlignCall(8) + AlignCall(8), DrawText("10 20\n20 80\n1 A\\PB\n"));
}

TEST_F(MTextTest, absurd_heights_and_widths_do_no_harm) {
  Draw("40 1e300\n71 5\n1 A\\PB\\PC\n");
  Draw("40 -1e300\n71 9\n44 1e300\n1 A\\PB\n");
  wholeTextClip = 1;
  knownMetrics.aveCharWidth = INT32_MAX;
  Draw("1 \\W1e300;A\\PB\n");
  state.drawScale = 0.0;
  Draw("71 6\n1 A\\PB\\PC\n");
}

// Groups.

TEST_F(MTextTest, groups_that_mean_something_elsewhere_are_passed_over) {
  EXPECT_EQ(Drawn("Text"), Draw("7 STYLE\n3 Lost\n42 5\n43 5\n50 45\n72 5\n73 2\n30 7\n1 Text\n"));
}

TEST_F(MTextTest, a_reference_width_of_any_size_changes_nothing) {
  const std::string longText = "A long text that no line of a millimetre would hold";
  EXPECT_EQ(Drawn(longText), Draw("41 1\n1 " + longText + "\n"));
  EXPECT_EQ(Drawn(longText), Draw("41 0\n1 " + longText + "\n"));
}

TEST_F(MTextTest, of_a_long_text_only_the_last_chunk_is_drawn) {
  EXPECT_EQ(Drawn("last chunk"), Draw("3 The first and \n3 the second, \n1 last chunk\n"));
}

TEST_F(MTextTest, it_is_black_unless_a_layer_or_a_colour_tells) {
  AddLayer("WALLS", {}, 1);
  EXPECT_EQ(Drawn("Text", {}, "0x0000FF"), Draw("8 WALLS\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", {}, "0x00FF00"), Draw("8 WALLS\n62 3\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", {}, "0x0000FF"), Draw("62 3\n8 WALLS\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", {}, "0x000000"), Draw("8 WALLS\n62 0\n1 Text\n"));
  EXPECT_EQ(Drawn("Text"), Draw("8 GONE\n1 Text\n"));
}

TEST_F(MTextTest, with_monochrome_on_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Drawn("Text"), Draw("62 1\n1 Text\n"));
}

TEST_F(MTextTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 WALLS\n1 Text\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(MTextTest, a_missing_point_is_that_of_the_entity_before) {
  state.entX[0] = 3000.0;
  state.entY[0] = 6000.0;
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({}, 400, 3000, -4000, "Text"), DrawText("40 10\n1 Text\n"));
}

TEST_F(MTextTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw("1 Text\n");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(MTextTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  stream = StreamOf("0 MTEXT\n10 20\n20 80\n40 10\n1 Text\n");
  ReadGroup(stream);
  EXPECT_EQ(Drawn("Text"),
            ListCalls([this](Canvas canvas) { result = DrawMText(canvas, stream, view, 0, 0); }));
  EXPECT_EQ(0, result);
}

TEST_F(MTextTest, a_file_that_ends_behind_its_name_leaves_the_alignment_alone_to_be_set) {
  stream = StreamOf("0 MTEXT\n");
  ReadGroup(stream);
  state.entY[0] = 8000.0;
  EXPECT_EQ(AlignCall(8),
            ListCalls([this](Canvas canvas) { result = DrawMText(canvas, stream, view, 0, 0); }));
  EXPECT_EQ(0, result);
}

// Direction.

TEST_F(MTextTest, a_text_to_the_right_has_a_full_turn) {
  EXPECT_EQ(Drawn("Text"), Draw("11 1\n21 0\n1 Text\n"));
  EXPECT_EQ(Drawn("Text"), Draw("11 5\n1 Text\n"));
}

TEST_F(MTextTest, an_upright_text_is_at_2700) {
  EXPECT_EQ(Drawn("Text", {1100, 0, 2700}), Draw("11 0\n21 1\n1 Text\n"));
  // Without any direction it is upright too.
  EXPECT_EQ(Drawn("Text", {1100, 0, 2700}), Draw("11 0\n21 0\n1 Text\n"));
}

TEST_F(MTextTest, a_text_upside_down_is_at_900) {
  // 3600 - (-90 + 360) * 10.
  EXPECT_EQ(Drawn("Text", {1100, 0, 900}), Draw("11 0\n21 -2\n1 Text\n"));
}

TEST_F(MTextTest, a_rising_text_is_short_of_the_full_turn) {
  // atan(3 / 4) = 36.8699 degrees: 3600 - 368.699 = 3231.301.
  EXPECT_EQ(Drawn("Text", {1100, 0, 3231}), Draw("11 4\n21 3\n1 Text\n"));
}

TEST_F(MTextTest, a_falling_text_is_turned_by_its_slope) {
  // 3600 - (-36.8699 + 360) * 10 = 368.699.
  EXPECT_EQ(Drawn("Text", {1100, 0, 368}), Draw("11 4\n21 -3\n1 Text\n"));
}

TEST_F(MTextTest, a_text_to_the_left_has_no_full_turn) {
  // (180 - 0) * 10; (180 - 36.8699) * 10 = 1431.301; (180 + 36.8699) * 10 = 2168.699.
  EXPECT_EQ(Drawn("Text", {1100, 0, 1800}), Draw("11 -1\n21 0\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", {1100, 0, 1431}), Draw("11 -4\n21 3\n1 Text\n"));
  EXPECT_EQ(Drawn("Text", {1100, 0, 2168}), Draw("11 -4\n21 -3\n1 Text\n"));
}

TEST_F(MTextTest, the_direction_is_neither_scaled_nor_kept) {
  state.drawScale = 2.0;
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({550, 0, 3231}, 400, 1000, -6000, "A"), Draw("11 4\n21 3\n1 A\n"));
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({550}, 400, 1000, -6000, "B"), Draw("1 B\n"));
}

TEST_F(MTextTest, on_a_turned_sheet_point_and_escapement_turn) {
  state.rotated = 1;
  // (20000 - 2000, -10000 + 2000)
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({1100, 0, 1800}, 400, 18000, -8000, "Text"), Draw("1 Text\n"));
}

}  // namespace
}  // namespace hexlume
