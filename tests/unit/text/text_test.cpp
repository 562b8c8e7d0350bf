// TEXT in the ENTITIES section: its groups, and its steps up to the text on the canvas. Fitted texts have a
// file of their own.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "canvas/left_objects.h"
#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/known_metrics.h"
#include "support/metafile_canvas.h"
#include "support/text_calls.h"
#include "support/text_groups.h"
#include "text/text.h"
#include "text/text_font.h"

namespace hexlume::text_test {
namespace {

// At (3000, 6000 - 10000).
const std::string place = "10 30\n20 60\n";
// 200 high: the cell has 200 * 1.1 = 220.
const std::string sized = place + "40 2\n";
const std::string plain = "1 AB\n" + sized;

// A double-byte character: the kanji of origin, and as the listing has it.
const std::string kanji = "\x8C\xB4";
const std::string kanjiListed = "\xE5\x8E\x9F";

class TextTest : public ConverterTest {
 protected:
  TextTest() { knownMetrics = {}; }
  ~TextTest() override { DeleteLeftObjects(); }

  // The listing of one text with these groups.
  std::string Draw(const std::string& groups) { return DrawGroups("0 TEXT\n" + groups + "0 CIRCLE\n40 7\n"); }

  std::string DrawGroups(const std::string& groups) {
    stream = StreamOf(groups);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { DrawOn(canvas); });
  }

  void DrawOn(Canvas canvas) { result = DrawText({RunOn(canvas)}); }

  // The text and the cell in half-width mode: half as wide as high, in the default face.
  void UseHalfWidth() {
    halfWidthFont = 1;
    drawn.width = 110;
    drawn.face = "";
  }

  TextCall drawn;  // what plain leaves
};

TEST_F(TextTest, it_is_one_text_in_a_font_of_its_own) {
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

// How it reads.

TEST_F(TextTest, it_leaves_the_next_entity_in_the_buffer) {
  Draw(plain);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(TextTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Listing(drawn), DrawGroups("0 TEXT\n" + plain));
  EXPECT_EQ(0, result);
}

TEST_F(TextTest, a_text_without_groups_is_drawn_in_the_place_of_the_one_before) {
  // The font lives for one entity: without group 40 there is no size, and nothing is drawn.
  Draw(plain + "62 1\n");
  EXPECT_EQ("", Draw(""));
  // With it all else stays.
  EXPECT_EQ(Listing(Colored(drawn, red)), Draw("40 2\n"));
}

TEST_F(TextTest, other_groups_change_nothing) {
  EXPECT_EQ(Listing(drawn), Draw(plain + "7 STYLE\n30 5\n39 300\n6 DASHED\n71 6\n73 3\n210 1\n"));
}

TEST_F(TextTest, unreadable_numbers_are_0) {
  // 0, 0 - 10000.
  EXPECT_EQ(Listing(PlacedAt(drawn, 0, -10000)), Draw("1 AB\n10 x\n20 y\n40 2\n72 z\n"));
}

// Group 1.

TEST_F(TextTest, leading_alignment_codes_fall_away) {
  EXPECT_EQ(Listing(drawn), Draw("1 \\A1;AB\n" + sized));
  EXPECT_EQ(Listing(drawn), Draw("1 \\A1;\\A2;\\A0;AB\n" + sized));
}

TEST_F(TextTest, four_bytes_fall_away_whatever_they_are) {
  EXPECT_EQ(Listing(WithText(drawn, "AB")), Draw("1 \\AxyAB\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn, ";AB")), Draw("1 \\A10;AB\n" + sized));
}

TEST_F(TextTest, an_alignment_code_that_is_cut_off_leaves_an_empty_text) {
  for (const char* code : {"\\A1", "\\A", "\\A1;", "\\A1;\\A"})
    EXPECT_EQ(Listing(WithText(drawn, "")), Draw(std::string("1 ") + code + "\n" + sized)) << code;
}

// The backslash that is left leads a code of its own, which has no ";".
TEST_F(TextTest, a_small_a_leads_no_alignment_code) {
  EXPECT_EQ(Listing(WithText(drawn, "\\\\a1AB")), Draw("1 \\a1AB\n" + sized));
}

TEST_F(TextTest, an_empty_text_is_a_call_without_characters) {
  EXPECT_EQ(Listing(WithText(drawn, "")), Draw("1 \n" + sized));
}

TEST_F(TextTest, an_empty_text_is_latin) {
  knownMetrics.descent = 40;
  // 6000 - 40 - 10000.
  EXPECT_EQ(Listing(WithText(PlacedAt(drawn, 3000, -4040), "")), Draw("1 \n" + sized));
}

TEST_F(TextTest, a_text_of_254_bytes_is_drawn) {
  const std::string text(254, 'x');
  EXPECT_EQ(Listing(WithText(drawn, text)), Draw("1 " + text + "\n" + sized));
}

// Group 8 and 62.

TEST_F(TextTest, a_layer_gives_the_colour) {
  AddLayer("WALLS", {}, 5);
  EXPECT_EQ(Listing(Colored(drawn, blue)), Draw("8 WALLS\n" + plain));
}

TEST_F(TextTest, an_unknown_layer_leaves_the_colour_of_the_entity_before) {
  state.entColor = 3;
  EXPECT_EQ(Listing(Colored(drawn, green)), Draw("8 NOWHERE\n" + plain));
  EXPECT_EQ(Listing(Colored(drawn, green)), Draw(plain));
}

TEST_F(TextTest, layer_0_is_a_layer_like_any_other) {
  SetInsertLayer("WALLS");
  AddLayer("WALLS", {}, 5);
  AddLayer("0", {}, 1);
  EXPECT_EQ(Listing(Colored(drawn, red)), Draw("8 0\n" + plain));
}

TEST_F(TextTest, on_a_left_out_layer_it_ends_with_the_layer_in_the_buffer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 WALLS\n" + plain));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(TextTest, group_62_overrides_the_layer_in_front_of_it) {
  AddLayer("WALLS", {}, 5);
  EXPECT_EQ(Listing(Colored(drawn, red)), Draw("8 WALLS\n62 1\n" + plain));
  EXPECT_EQ(Listing(Colored(drawn, blue)), Draw("62 1\n8 WALLS\n" + plain));
  EXPECT_EQ(Listing(Colored(drawn, magenta)), Draw("8 WALLS\n62 200\n" + plain));
}

TEST_F(TextTest, a_group_62_of_0_is_black) {
  AddLayer("WALLS", {}, 5);
  EXPECT_EQ(Listing(drawn), Draw("8 WALLS\n62 0\n" + plain));
}

TEST_F(TextTest, a_left_out_line_type_hides_no_text) {
  ExcludeFamily(0);
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

// Groups 40 and 41.

TEST_F(TextTest, the_height_is_cut_before_and_behind_the_factor) {
  // 1.239 * 100 = 123.9, cut to 123; 123 * 1.1 = 135.3.
  EXPECT_EQ(Listing(Sized(drawn, 135, 0)), Draw("1 AB\n" + place + "40 1.239\n"));
}

TEST_F(TextTest, the_height_is_divided_by_the_scale) {
  state.drawScale = 2.0;
  // 100 * 1.1 = 110; 3000 / 2 and 6000 / 2 - 10000.
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, 110, 0), 1500, -7000)), Draw(plain));
}

TEST_F(TextTest, in_half_width_mode_a_cell_is_half_as_wide_as_high_in_the_default_face) {
  UseHalfWidth();
  EXPECT_EQ(Listing(drawn), Draw(plain));
  // 30 * 1.1 = 33, 33 / 2 = 16.
  EXPECT_EQ(Listing(Sized(drawn, 33, 16)), Draw("1 AB\n" + place + "40 0.3\n"));
}

TEST_F(TextTest, any_value_but_0_is_half_width_mode) {
  UseHalfWidth();
  halfWidthFont = -7;
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(TextTest, group_41_is_a_factor_on_half_the_height) {
  // 1.5 * 220 * 0.5 = 165; 0.99 * 220 * 0.5 = 108.9.
  EXPECT_EQ(Listing(Sized(drawn, 220, 165)), Draw(plain + "41 1.5\n"));
  EXPECT_EQ(Listing(Sized(drawn, 220, 108)), Draw(plain + "41 0.99\n"));
}

TEST_F(TextTest, group_40_undoes_a_group_41_in_front_of_it) {
  EXPECT_EQ(Listing(drawn), Draw("41 1.5\n" + plain));
}

TEST_F(TextTest, in_half_width_mode_group_41_counts_for_nothing) {
  UseHalfWidth();
  EXPECT_EQ(Listing(drawn), Draw(plain + "41 3\n"));
}

// Groups 50, 51 and 72.

TEST_F(TextTest, an_angle_counts_down_from_a_whole_turn) {
  EXPECT_EQ(Listing(Leaning(drawn, 3300)), Draw(plain + "50 30\n"));
  EXPECT_EQ(Listing(Leaning(drawn, 3600)), Draw(plain + "50 0\n"));
  EXPECT_EQ(Listing(Leaning(drawn, -400)), Draw(plain + "50 400\n"));
  // 12.39 * 10 = 123.9, cut to 123.
  EXPECT_EQ(Listing(Leaning(drawn, 3477)), Draw(plain + "50 12.39\n"));
}

TEST_F(TextTest, without_an_angle_the_font_is_upright) {
  EXPECT_EQ(Listing(Leaning(drawn, 0)), Draw(plain));
}

TEST_F(TextTest, it_is_never_oblique) {
  EXPECT_EQ(Listing(drawn), Draw(plain + "51 15\n"));
}

TEST_F(TextTest, no_alignment_but_the_fit_moves_or_stretches_it) {
  for (const char* alignment : {"0", "1", "2", "3", "4", "6", "-5"})
    EXPECT_EQ(Listing(drawn), Draw(plain + "11 90\n21 20\n72 " + alignment + "\n")) << alignment;
}

// Steps 1 to 3: the view.

TEST_F(TextTest, its_point_may_lie_on_the_views_edges) {
  view = {3000, 4000, 20000, 10000};
  EXPECT_EQ(Listing(drawn), Draw(plain));
  view = {0, 0, 3000, 4000};
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(TextTest, a_point_beyond_an_edge_drops_it) {
  for (const ViewRect& outside : {ViewRect{3001, 0, 20000, 10000}, ViewRect{0, 0, 2999, 10000},
                                  ViewRect{0, 4001, 20000, 10000}, ViewRect{0, 0, 20000, 3999}}) {
    view = outside;
    EXPECT_EQ("", Draw(plain));
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  }
}

TEST_F(TextTest, origin_and_shift_move_it) {
  state.originX = 500.0;
  state.originY = 700.0;
  state.shiftX = 30.0;
  state.shiftY = 40.0;
  // 3000 - 500 + 30; 6000 - 700 - 10000 + 40.
  EXPECT_EQ(Listing(PlacedAt(drawn, 2530, -4660)), Draw(plain));
}

TEST_F(TextTest, a_text_that_must_be_whole_may_reach_up_to_the_views_top) {
  // 4000 - 220 = 3780.
  view.top = 3780;
  wholeTextClip = 2;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  view.top = 3781;
  EXPECT_EQ("", Draw(plain));
  wholeTextClip = 0;
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(TextTest, the_height_at_the_views_top_is_that_of_the_latin_cell) {
  UseHalfWidth();
  wholeTextClip = 2;
  view.top = 3781;
  EXPECT_EQ("", Draw("1 " + kanji + "\n" + sized));
}

TEST_F(TextTest, a_dropped_text_has_read_its_groups_all_the_same) {
  view.left = 3001;
  Draw(plain + "62 5\n");
  EXPECT_STREQ("AB", state.entText);
  EXPECT_EQ(5, state.entColor);
}

// Steps 4 and 5.

TEST_F(TextTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Listing(drawn), Draw(plain + "62 1\n"));
  EXPECT_EQ(0, state.entColor);
}

TEST_F(TextTest, on_a_turned_sheet_font_and_point_turn) {
  state.rotated = 1;
  // 2 * 10000 - 3000; 2 * -5000 - -4000. 3600 - 300 - 1800.
  EXPECT_EQ(Listing(PlacedAt(Leaning(drawn, 1500), 17000, -6000)), Draw(plain + "50 30\n"));
  EXPECT_EQ(Listing(PlacedAt(Leaning(drawn, -1800), 17000, -6000)), Draw(plain));
}

TEST_F(TextTest, on_a_turned_sheet_the_view_holds_the_point_that_is_not_turned) {
  state.rotated = 1;
  view = {0, 0, 5000, 5000};
  EXPECT_EQ(Listing(PlacedAt(Leaning(drawn, -1800), 17000, -6000)), Draw(plain));
}

// Steps 6 and 7: codes.

TEST_F(TextTest, percent_codes_are_expanded) {
  EXPECT_EQ(Listing(WithText(drawn,
                             "\xCF\x86"
                             "10")),
            Draw("1 %%c10\n" + sized));  // phi
  EXPECT_EQ(Listing(WithText(drawn, "10\xC2\xB0\xC2\xB0")), Draw("1 10%%dC\n" + sized));
}

TEST_F(TextTest, a_text_with_a_stacked_fraction_is_dropped_as_a_whole) {
  EXPECT_EQ("", Draw("1 A{\\S1^2;}B\n" + sized));
  EXPECT_EQ("", Draw("1 \\S\n" + sized));
  EXPECT_EQ(1, result);
}

TEST_F(TextTest, a_small_s_is_no_fraction) {
  EXPECT_EQ(Listing(WithText(drawn, "A\\\\s1")), Draw("1 A\\s1\n" + sized));
}

// The katakana of "so" ends in a backslash.
TEST_F(TextTest, a_trail_byte_in_front_of_an_s_counts_as_a_fraction) {
  EXPECT_EQ("", Draw("1 \x83\x5CS\n" + sized));
}

TEST_F(TextTest, percent_codes_go_before_a_fraction_is_looked_for) {
  EXPECT_EQ("", Draw("1 A\\%%uS\n" + sized));
}

TEST_F(TextTest, a_fraction_behind_the_end_that_a_degree_makes_is_none) {
  EXPECT_EQ(Listing(WithText(drawn, "9\xC2\xB0\xC2\xB0")), Draw("1 9%%d\\S1^2;\n" + sized));
}

TEST_F(TextTest, braces_and_their_codes_fall_away) {
  EXPECT_EQ(Listing(WithText(drawn, "Red more")), Draw("1 {\\C1;Red} more\n" + sized));
}

// Step 8: what counts as Latin, which the descent moves.

TEST_F(TextTest, a_latin_text_stands_lower_by_the_descent) {
  knownMetrics.descent = 40;
  for (const char* text : {"12.5", "12 5", "A-1,2", "( A )", "(A)", "abcXYZ089", "A", "\xB6\xC5"}) {
    const std::string listing = Draw(std::string("1 ") + text + "\n" + sized);
    EXPECT_NE(std::string::npos, listing.find("ExtTextOutW(3000, -4040,")) << text;
  }
}

TEST_F(TextTest, any_other_character_makes_it_japanese) {
  knownMetrics.descent = 40;
  for (const std::string text : {"12/5", "A+B", "((A))", "A_", "A:", "A'", "A%", "\xA1"})
    EXPECT_NE(std::string::npos, Draw("1 " + text + "\n" + sized).find("ExtTextOutW(3000, -4000,")) << text;
  EXPECT_EQ(Listing(WithText(drawn, "A" + kanjiListed)), Draw("1 A" + kanji + "\n" + sized));
}

TEST_F(TextTest, a_single_double_byte_character_is_japanese) {
  knownMetrics.descent = 40;
  EXPECT_EQ(Listing(WithText(drawn, kanjiListed)), Draw("1 " + kanji + "\n" + sized));
  // A full-width A, whose trail byte is a letter.
  EXPECT_EQ(Listing(WithText(drawn, "\xEF\xBC\xA1")), Draw("1 \x82\x60\n" + sized));
}

TEST_F(TextTest, blanks_and_brackets_are_drawn_though_they_do_not_count) {
  EXPECT_EQ(Listing(WithText(drawn, "12 (5)")), Draw("1 12 (5)\n" + sized));
}

// Step 9.

TEST_F(TextTest, in_half_width_mode_a_japanese_text_is_smaller) {
  UseHalfWidth();
  // 220 / 1.3 = 169.23; 169 / 2 = 84.
  EXPECT_EQ(Listing(Sized(WithText(drawn, kanjiListed), 169, 84)), Draw("1 " + kanji + "\n" + sized));
}

TEST_F(TextTest, in_half_width_mode_a_latin_text_keeps_its_height) {
  UseHalfWidth();
  EXPECT_EQ(Listing(WithText(drawn, "12.5")), Draw("1 12.5\n" + sized));
}

TEST_F(TextTest, outside_half_width_mode_a_japanese_text_keeps_its_cell) {
  EXPECT_EQ(Listing(Sized(WithText(drawn, kanjiListed), 220, 165)),
            Draw("1 " + kanji + "\n" + sized + "41 1.5\n"));
}

// Step 10.

TEST_F(TextTest, in_half_width_mode_empty_brackets_open_by_a_blank) {
  // Full-width brackets with one full-width blank, and with two.
  const std::string one = "\x81\x69\x81\x40\x81\x6A";
  const std::string oneListed = "\xEF\xBC\x88\xE3\x80\x80\xEF\xBC\x89";
  const std::string twoListed = "\xEF\xBC\x88\xE3\x80\x80\xE3\x80\x80\xEF\xBC\x89";
  EXPECT_EQ(Listing(WithText(drawn, oneListed)), Draw("1 " + one + "\n" + sized));
  UseHalfWidth();
  EXPECT_EQ(Listing(Sized(WithText(drawn, twoListed), 169, 84)), Draw("1 " + one + "\n" + sized));
}

// Steps 13 and 14.

TEST_F(TextTest, a_text_without_height_and_width_is_dropped) {
  EXPECT_EQ("", Draw("1 AB\n" + place));
  EXPECT_EQ("", Draw("1 AB\n" + place + "40 0\n"));
  EXPECT_EQ("", Draw("1 \n" + place));
  // 0.9 is no whole unit.
  EXPECT_EQ("", Draw("1 AB\n" + place + "40 0.009\n"));
}

TEST_F(TextTest, a_text_with_a_width_alone_is_drawn) {
  // Upside down: 2 * -100 * 1.1 = -220, and the width half of it.
  UseHalfWidth();
  EXPECT_EQ(Listing(Sized(drawn, -220, -110)), Draw("1 AB\n" + place + "40 -2\n"));
}

TEST_F(TextTest, the_face_is_settled_when_it_starts) {
  Draw(plain);
  EXPECT_STREQ(gothicFace, state.entFace);
  UseHalfWidth();
  Draw(plain);
  EXPECT_STREQ("", state.entFace);
}

// Step 15.

TEST_F(TextTest, the_descent_stays_with_the_next_text) {
  knownMetrics.descent = 40;
  Draw(plain);
  EXPECT_EQ(5960.0, state.entY[0]);
  EXPECT_EQ(Listing(PlacedAt(drawn, 3000, -4080)), Draw("40 2\n"));
}

TEST_F(TextTest, the_descent_goes_off_the_model_whatever_the_scale) {
  knownMetrics.descent = 40;
  state.drawScale = 4.0;
  // 200 / 4 = 50, 50 * 1.1 = 55; 3000 / 4 = 750; (6000 - 40) / 4 = 1490.
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, 55, 0), 750, -8510)), Draw(plain));
}

TEST_F(TextTest, a_text_that_must_be_whole_may_reach_up_to_the_views_right) {
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  // 3000 + 2 * 100.
  view.right = 3200;
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(TextTest, one_that_proves_too_wide_leaves_its_font) {
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  view.right = 3199;
  EXPECT_EQ(FontListing(drawn), Draw(plain));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  EXPECT_EQ(1u, state.leftFonts.size());
}

TEST_F(TextTest, one_that_proves_too_wide_has_lost_its_descent) {
  knownMetrics.aveCharWidth = 100;
  knownMetrics.descent = 40;
  wholeTextClip = 1;
  view.right = 3199;
  Draw(plain);
  EXPECT_EQ(5960.0, state.entY[0]);
}

TEST_F(TextTest, the_width_is_measured_for_the_value_1_alone) {
  knownMetrics.aveCharWidth = 100;
  view.right = 3199;
  for (const int32_t clip : {0, 2, -1}) {
    wholeTextClip = clip;
    EXPECT_EQ(Listing(drawn), Draw(plain)) << clip;
  }
}

TEST_F(TextTest, the_width_is_that_of_all_bytes_of_the_text_as_it_is_drawn) {
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  // "A", phi and a kanji: 5 bytes; 3000 + 500.
  view.right = 3500;
  EXPECT_NE("", Draw("1 A%%c" + kanji + "\n" + sized));
  EXPECT_TRUE(state.leftFonts.empty());
  view.right = 3499;
  Draw("1 A%%c" + kanji + "\n" + sized);
  EXPECT_EQ(1u, state.leftFonts.size());
}

TEST_F(TextTest, the_next_text_puts_a_left_font_back) {
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  view.right = 3250;
  TextCall second = WithText(drawn, "C");
  second.handle = 2;
  second.previous = "1";
  const std::string listing = ListCalls([this](Canvas canvas) {
    for (const char* text : {"ABC", "C"}) {
      stream = StreamOf(std::string("0 TEXT\n1 ") + text + "\n" + sized);
      ReadGroup(stream);
      DrawOn(canvas);
    }
  });
  EXPECT_EQ(FontListing(drawn) + Listing(second), listing);
}

TEST_F(TextTest, twenty_thousand_texts_that_prove_too_wide_keep_no_more_fonts_than_the_limit) {
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  view.right = 3199;
  ListCalls([this](Canvas canvas) {
    for (int32_t i = 0; i < 20000; ++i) {
      stream = StreamOf("0 TEXT\n" + plain);
      ReadGroup(stream);
      DrawOn(canvas);
    }
  });
  EXPECT_EQ(leftObjectLimit, state.leftFonts.size());
}

// Step 17: very small texts. Setting the extra space anew returns what was set.

TEST_F(TextTest, a_cell_below_10_squeezes_it_and_all_texts_that_follow) {
  ListCalls([this](Canvas canvas) {
    stream = StreamOf("0 TEXT\n1 AB\n" + place + "40 0.09\n");  // 9 * 1.1 = 9.9
    ReadGroup(stream);
    DrawOn(canvas);
    stream = StreamOf("0 TEXT\n" + plain);
    ReadGroup(stream);
    DrawOn(canvas);
    EXPECT_EQ(-36, SetTextCharacterExtra(canvas, 0));
  });
}

TEST_F(TextTest, a_cell_of_10_squeezes_nothing) {
  ListCalls([this](Canvas canvas) {
    SetTextCharacterExtra(canvas, -36);
    stream = StreamOf("0 TEXT\n1 AB\n" + place + "40 0.1\n");  // 10 * 1.1 = 11
    ReadGroup(stream);
    DrawOn(canvas);
    stream = StreamOf("0 TEXT\n1 AB\n" + place + "40 0.0999999\n");  // 9 * 1.1 = 9.9
    EXPECT_EQ(-36, SetTextCharacterExtra(canvas, 0));
    ReadGroup(stream);
    DrawOn(canvas);
    EXPECT_EQ(-36, SetTextCharacterExtra(canvas, 0));
  });
}

TEST_F(TextTest, it_is_the_final_cell_that_counts_for_the_squeeze) {
  UseHalfWidth();
  ListCalls([this](Canvas canvas) {
    // 11 * 1.1 = 12.1; 12 / 1.3 = 9.2.
    stream = StreamOf("0 TEXT\n1 " + kanji + "\n" + place + "40 0.11\n");
    ReadGroup(stream);
    DrawOn(canvas);
    EXPECT_EQ(-36, SetTextCharacterExtra(canvas, 0));
  });
}

TEST_F(TextTest, a_cell_of_exactly_10_squeezes_nothing) {
  UseHalfWidth();
  ListCalls([this](Canvas canvas) {
    // 12 * 1.1 = 13.2; 13 / 1.3 = 10.
    stream = StreamOf("0 TEXT\n1 " + kanji + "\n" + place + "40 0.12\n");
    ReadGroup(stream);
    DrawOn(canvas);
    EXPECT_EQ(0, SetTextCharacterExtra(canvas, 0));
  });
}

TEST_F(TextTest, a_text_that_proves_too_wide_squeezes_nothing) {
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  view.right = 3199;
  ListCalls([this](Canvas canvas) {
    stream = StreamOf("0 TEXT\n1 AB\n" + place + "40 0.09\n");
    ReadGroup(stream);
    DrawOn(canvas);
    EXPECT_EQ(0, SetTextCharacterExtra(canvas, 0));
  });
}

// What a bad file holds.

TEST_F(TextTest, numbers_beyond_all_bounds_do_not_stop_it) {
  for (const char* number : {"1e300", "-1e300", "1e-300", "2147483647", "-2147483648", "0"}) {
    for (const int32_t half : {0, 1}) {
      halfWidthFont = half;
      for (const char* group : {"10 ", "20 ", "40 ", "41 ", "50 "}) {
        Draw(plain + "11 1\n21 1\n72 5\n" + group + number + "\n");
        EXPECT_EQ(1, result);
      }
    }
  }
}

TEST_F(TextTest, a_scale_of_0_does_not_stop_it) {
  state.drawScale = 0.0;
  view = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
  EXPECT_NE("", Draw(plain + "72 5\n"));
}

TEST_F(TextTest, on_a_turned_sheet_the_point_of_an_absurd_text_wraps_around) {
  state.rotated = 1;
  view = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
  // 20000 - -2147483648 is 2^31 + 20000, which wraps around to -2147463648; -10000 - -2147483648.
  EXPECT_EQ(Listing(PlacedAt(Leaning(drawn, -1800), -2147463648, 2147473648)),
            Draw("1 AB\n10 1e300\n20 1e300\n40 2\n"));
}

}  // namespace
}  // namespace hexlume::text_test
