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
#include "text/mtext_codes.h"

namespace hexlume::mtext_test {
namespace {

class MTextTest : public ConverterTest {
 protected:
  MTextTest() {
    knownMetrics = {};
    knownMetrics.descent = 77;  // isn't to be looked at
    knownMetrics.aveCharWidth = 400;
  }

  // The listing of one text with these groups, of height 10 at (20, 80) unless they say otherwise.
  std::string Draw(const std::string& groups) { return DrawText("10 20\n20 80\n40 10\n" + groups); }

  std::string DrawText(const std::string& groups) {
    stream = StreamOf("0 MTEXT\n" + groups + "0 CIRCLE\n");
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawMText({RunOn(canvas)}); });
  }

  // What drawing a text with these groups throws; 0 if nothing.
  int32_t Thrown(const std::string& groups) {
    stream = StreamOf("0 MTEXT\n10 20\n20 80\n40 10\n" + groups);
    ReadGroup(stream);
    int32_t code = 0;
    ListCalls([&](Canvas canvas) {
      try {
        DrawMText({RunOn(canvas)});
      } catch (int32_t thrown) {
        code = thrown;
      }
    });
    return code;
  }

  // One paragraph at (2000, -2000) without an attachment. The font has the height 1000 * 1.1.
  static std::string Drawn(const std::string& text, const TextFont& font = {},
                           const std::string& color = "0x000000") {
    return AlignCall(8) + ParagraphCalls(font, 400, 2000, -2000, text, color);
  }
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
  EXPECT_EQ(Drawn("Text"), ListCalls([this](Canvas canvas) { result = DrawMText({RunOn(canvas)}); }));
  EXPECT_EQ(0, result);
}

TEST_F(MTextTest, a_file_that_ends_behind_its_name_leaves_the_alignment_alone_to_be_set) {
  stream = StreamOf("0 MTEXT\n");
  ReadGroup(stream);
  state.entY[0] = 8000.0;
  EXPECT_EQ(AlignCall(8), ListCalls([this](Canvas canvas) { result = DrawMText({RunOn(canvas)}); }));
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

// Codes at the front.

TEST_F(MTextTest, codes_at_the_front_go_one_by_one) {
  EXPECT_EQ(Drawn("Text"), Draw("1 \\H2.5;\\C3;Text\n"));
}

TEST_F(MTextTest, a_code_at_the_front_without_its_end_takes_four_bytes) {
  EXPECT_EQ(Drawn("Text"), Draw("1 \\LxyText\n"));
  EXPECT_EQ(Drawn(""), Draw("1 \\Lxy\n"));
  EXPECT_EQ(Drawn(""), Draw("1 \\\n"));
}

TEST_F(MTextTest, a_break_or_a_fraction_at_the_front_is_a_code_like_any_other) {
  EXPECT_EQ(Drawn("xt"), Draw("1 \\PText\n"));
  EXPECT_EQ(Drawn("mm"), Draw("1 \\S1^ 2;mm\n"));
}

TEST_F(MTextTest, a_code_behind_a_face_at_the_front_stays) {
  EXPECT_EQ(Drawn("\\\\H2;Text", {1100, 0, 3600, 0, 0, "Arial"}), Draw("1 \\C3;\\fArial|b0;\\H2;Text\n"));
}

TEST_F(MTextTest, percent_codes_and_braces_are_expanded) {
  EXPECT_EQ(Drawn("10\u00B0\u00B0"), Draw("1 10%%dC\n"));
  EXPECT_EQ(Drawn("a Red one"), Draw("1 a {\\C1;Red} one\n"));
}

// Faces.

TEST_F(MTextTest, a_face_is_drawn_with_and_stays_for_the_texts_behind) {
  EXPECT_EQ(Drawn("Text", {1100, 0, 3600, 0, 0, "Arial"}), Draw("1 \\fArial|b0;Text\n"));
  EXPECT_STREQ("Arial", state.entFaceName);
  EXPECT_EQ(Drawn("More", {1100, 0, 3600, 0, 0, "Arial"}), Draw("1 More\n"));
  EXPECT_EQ(Drawn("Text more", {1100, 0, 3600, 0, 0, "Times"}), Draw("1 {\\fTimes|b0;Text} more\n"));
}

TEST_F(MTextTest, the_half_width_option_has_no_say_in_the_face) {
  halfWidthFont = 1;
  EXPECT_EQ(Drawn("Text", {1100, 550, 3600, 0, 0, "Arial"}), Draw("1 \\fArial|b0;Text\n"));
}

TEST_F(MTextTest, a_face_without_its_end_is_none) {
  EXPECT_EQ(Drawn("Text"), Draw("1 \\fArial;Text\n"));
}

TEST_F(MTextTest, a_face_of_31_bytes_fits_and_one_of_32_throws) {
  const std::string longest = "Abcdefghijklmnopqrstuvwxyz01234";
  EXPECT_EQ(Drawn("Text", {1100, 0, 3600, 0, 0, longest}), Draw("1 \\f" + longest + "|b0;Text\n"));
  EXPECT_EQ(textTooLongCode, Thrown("1 \\f" + longest + "5|b0;Text\n"));
}

TEST_F(MTextTest, a_face_that_is_too_long_does_no_harm_to_a_text_that_is_not_drawn) {
  const std::string tooLong = "Abcdefghijklmnopqrstuvwxyz012345";
  EXPECT_EQ(AlignCall(8), DrawText("10 -20\n20 80\n40 10\n1 \\f" + tooLong + "|b0;Text\n"));
  EXPECT_EQ(AlignCall(8), DrawText("10 20\n20 80\n40 0\n1 Text\n"));
}

// Several groups 1, and characters by their number.

TEST_F(MTextTest, several_groups_1_gather) {
  EXPECT_EQ(Drawn("ABCD"), Draw("1 AB\n1 CD\n"));
}

TEST_F(MTextTest, a_text_gathered_beyond_its_buffer_throws) {
  const std::string half(127, 'A');
  EXPECT_EQ(Drawn(half + half + "B"), Draw("1 " + half + "\n1 " + half + "\n1 B\n"));
  EXPECT_EQ(textTooLongCode, Thrown("1 " + half + "\n1 " + half + "\n1 BC\n"));
}

TEST_F(MTextTest, the_three_known_characters_become_symbols) {
  EXPECT_EQ(Drawn("\u03C6"), Draw("1 \\U+2205\n"));
  EXPECT_EQ(Drawn("90\u00B0"), Draw("1 90\\U+00B0\n"));
  EXPECT_EQ(Drawn("\u30FBA"), Draw("1 \\U+25CFA\n"));
}

TEST_F(MTextTest, any_other_character_stays_literal) {
  EXPECT_EQ(Drawn("\\\\U+3042"), Draw("1 \\U+3042\n"));
}

TEST_F(MTextTest, a_character_is_drawn_through_another_group_1_without_what_follows_it) {
  EXPECT_EQ(Drawn("A\u3042C"), Draw("1 A\\U+3042B\n1 C\n"));
  // A half-width katakana has one byte; a letter of no Japanese code page is a question mark.
  EXPECT_EQ(Drawn("\uFF71C"), Draw("1 \\U+FF71\n1 C\n"));
  EXPECT_EQ(Drawn("?C"), Draw("1 \\U+0E01\n1 C\n"));
  EXPECT_EQ(Drawn("\u3042\u3044C"), Draw("1 \\U+3042\n1 \\U+3044\n1 C\n"));
}

TEST_F(MTextTest, a_gathered_character_that_is_known_is_its_symbol) {
  EXPECT_EQ(Drawn("\u03C6C"), Draw("1 \\U+2205\n1 C\n"));
  EXPECT_EQ(Drawn("90\u00B0C"), Draw("1 90\\U+00B0\n1 C\n"));
  EXPECT_EQ(Drawn("\u30FBC"), Draw("1 \\U+25CF\n1 C\n"));
}

TEST_F(MTextTest, a_gathered_character_that_the_code_page_lacks_becomes_one_that_looks_alike) {
  EXPECT_EQ(Drawn("m2C"), Draw("1 m\\U+00B2\n1 C\n"));
}

TEST_F(MTextTest, a_character_cut_off_by_the_texts_end_has_the_digits_that_are_there) {
  EXPECT_EQ(Drawn("AAC"), Draw("1 A\\U+41\n1 C\n"));
  EXPECT_EQ(Drawn("AC"), Draw("1 A\\U+\n1 C\n"));
  EXPECT_EQ(Drawn("AC"), Draw("1 A\\U\n1 C\n"));
  EXPECT_EQ(Drawn("AC"), Draw("1 A\\U+wxyz\n1 C\n"));
  EXPECT_EQ(Drawn("AC"), Draw("1 A\\U+0000\n1 C\n"));
}

// Paragraphs.

TEST_F(MTextTest, a_break_at_the_end_gives_an_empty_paragraph) {
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({}, 400, 2000, -2000, "A") + AlignCall(8) +
                ParagraphCalls({1100, 400}, 400, 2000, -2000, ""),
            Draw("1 A\\P\n"));
}

TEST_F(MTextTest, an_empty_text_is_one_empty_paragraph) {
  EXPECT_EQ(Drawn(""), Draw("1\n"));
}

TEST_F(MTextTest, a_trail_byte_5c_in_front_of_a_p_breaks_the_line) {
  // The katakana "so" loses its second byte.
  Draw("1 A\x83\x5CPB\n");
  EXPECT_STREQ("B", state.entText);
  EXPECT_EQ(2, knownMetrics.calls);
}

TEST_F(MTextTest, lines_are_counted_on_top_of_what_there_is) {
  int32_t count = 1;
  BoundedCopy(state.entText, "A\\PB\\P\\PC\\p");
  CountLines(count);
  EXPECT_EQ(4, count);
  BoundedCopy(state.entText, "");
  CountLines(count);
  EXPECT_EQ(4, count);
}

// Fractions.

// A piece in a font of half-width cells.
std::string PieceCalls(int32_t x, int32_t y, const std::string& text) {
  return SelectCalls({1100, 550}) + ColorCall("0x000000") + AlignCall(8) + "SetBkMode(TRANSPARENT)\n" +
         TextOutCall(x, y, text) + restoreCalls;
}

// "5", then 1 over 2, then "mm", from (2000, -2000) on. The parts are as high as the text. Before them
// is 1 * 550. The upper one is 0.5 * 1100 higher, the lower one at 550 along 45 degrees down: 550 *
// 0.7071 = 388.9. After them is 1 * 550 more.
const std::string fractionCalls = PieceCalls(2000, -2000, "5") + PieceCalls(2550, -1450, "1") +
                                  PieceCalls(2389, -2389, "2") + PieceCalls(3100, -2000, "mm");

class MTextFractionTest : public MTextTest {
 protected:
  MTextFractionTest() {
    halfWidthFont = 1;
    // Cuts become roundings: what is worked out through angles falls next to a whole number.
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }
};

TEST_F(MTextFractionTest, a_paragraph_with_a_fraction_is_drawn_in_pieces) {
  EXPECT_EQ(fractionCalls, Draw("1 5\\S1^ 2;mm\n"));
}

TEST_F(MTextFractionTest, the_paragraphs_around_a_fraction_are_drawn_as_ever) {
  knownMetrics.aveCharWidth = 550;
  const TextFont font = {1100, 550};
  EXPECT_EQ(AlignCall(8) + ParagraphCalls(font, 550, 2000, -2000, "A") + fractionCalls + AlignCall(8) +
                ParagraphCalls(font, 550, 2000, -2000, "B"),
            Draw("1 A\\P5\\S1^ 2;mm\\PB\n"));
}

TEST_F(MTextFractionTest, a_fraction_starts_where_the_paragraph_before_it_stood) {
  // At a line factor of 1.2 / 1.67 the gap is 0: the first of two lines of attachment 7 is at 8000 + 1100.
  Draw("71 7\n44 0.718562874251497\n1 A\\P5\\S1^ 2;mm\n");
  EXPECT_NEAR(9100.0, state.entY[0], 0.001);
}

TEST_F(MTextFractionTest, a_fraction_out_of_the_view_ends_the_text) {
  view.right = 1999;
  EXPECT_EQ("", Draw("1 5\\S1^ 2;mm\\PB\n"));
  view = {0, 2001, 20000, 10000};
  EXPECT_EQ("", Draw("1 5\\S1^ 2;mm\\PB\n"));
}

TEST_F(MTextFractionTest, a_fraction_may_leave_the_view_even_where_texts_are_kept_whole) {
  wholeTextClip = 1;
  view = {2000, 2000, 2000, 2000};
  EXPECT_EQ(fractionCalls, Draw("71 7\n1 5\\S1^ 2;mm\n"));
}

TEST_F(MTextFractionTest, a_fraction_is_turned_but_not_moved_on_a_turned_sheet) {
  state.rotated = 1;
  const std::string calls = Draw("1 5\\S1^ 2;mm\n");
  // Along (3600 - 1800) / 10 = 180 degrees; the first piece and the anchor stay where they are.
  EXPECT_NE(std::string::npos, calls.find(TextOutCall(2000, -2000, "5")));
  EXPECT_NE(std::string::npos, calls.find("CreateFont(1, 1100, 550, 1800, "));
  EXPECT_NE(std::string::npos, calls.find(TextOutCall(900, -2000, "mm")));
}

}  // namespace
}  // namespace hexlume::mtext_test
