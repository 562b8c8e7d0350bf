// TEXT in a block, where it differs from one in the ENTITIES section.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "canvas/left_objects.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/known_metrics.h"
#include "support/metafile_canvas.h"
#include "support/text_calls.h"
#include "support/text_groups.h"
#include "text/text.h"
#include "text/text_font.h"

namespace hexlume::block_text_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

// At (3000, 6000 - 10000), in a cell of 200 * 1.1 = 220.
const std::string place = "10 30\n20 60\n";
const std::string sized = place + "40 2\n";
const std::string plain = "1 AB\n" + sized;

// The kanji of origin, and as the listing has it.
const std::string kanji = "\x8C\xB4";
const std::string kanjiListed = "\xE5\x8E\x9F";

class BlockTextTest : public ConverterTest {
 protected:
  BlockTextTest() { knownMetrics = {}; }
  ~BlockTextTest() override { DeleteLeftObjects(); }

  std::string Draw(const std::string& groups) { return DrawGroups("0 TEXT\n" + groups + "0 CIRCLE\n40 7\n"); }

  std::string DrawGroups(const std::string& groups) {
    stream = StreamOf(groups);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { DrawOn(canvas); });
  }

  void DrawOn(Canvas canvas) {
    result = DrawBlockText({RunOn(canvas), blockOriginX, blockOriginY, insertColor});
  }

  // In half-width mode a Latin text is shifted: 110 * 0.47 = 51.7 to the right, and up by 1.
  void UseHalfWidth() {
    halfWidthFont = 1;
    drawn.width = 110;
    drawn.face = "";
    drawn.x = 3051;
    drawn.y = -3999;
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
  TextCall drawn;  // what plain leaves
};

TEST_F(BlockTextTest, it_is_one_text_in_a_font_of_its_own) {
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(BlockTextTest, it_leaves_the_next_entity_in_the_buffer) {
  Draw(plain);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(BlockTextTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Listing(drawn), DrawGroups("0 TEXT\n" + plain));
  EXPECT_EQ(0, result);
}

TEST_F(BlockTextTest, it_uses_the_places_of_the_block_and_settles_the_face) {
  state.entX[0] = 1.0;
  state.entY[0] = 2.0;
  state.entColor = 4;
  BoundedCopy(state.entText, "outer");
  Draw(plain + "62 1\n");
  EXPECT_EQ(1.0, state.entX[0]);
  EXPECT_EQ(2.0, state.entY[0]);
  EXPECT_EQ(4, state.entColor);
  EXPECT_STREQ("outer", state.entText);
  EXPECT_STREQ("AB", state.blockText);
  EXPECT_STREQ(gothicFace, state.entFace);
  UseHalfWidth();
  Draw(plain);
  EXPECT_STREQ("", state.entFace);
}

TEST_F(BlockTextTest, what_it_lacks_is_that_of_the_text_before) {
  Draw(plain + "62 1\n");
  EXPECT_EQ(Listing(Colored(drawn, red)), Draw("40 2\n"));
}

// Group 1.

TEST_F(BlockTextTest, leading_alignment_codes_fall_away) {
  EXPECT_EQ(Listing(drawn), Draw("1 \\A1;\\A0;AB\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn, "")), Draw("1 \\A\n" + sized));
}

// Groups 8 and 62.

TEST_F(BlockTextTest, layer_0_is_that_of_the_insert) {
  SetInsertLayer("WALLS");
  AddLayer("0", {}, 3);
  AddLayer("WALLS", {}, 1);
  AddLayer("DOORS", {}, 5);
  EXPECT_EQ(Listing(Colored(drawn, red)), Draw("8 0\n" + plain));
  EXPECT_EQ(Listing(Colored(drawn, blue)), Draw("8 DOORS\n" + plain));
}

TEST_F(BlockTextTest, layer_0_of_an_unknown_insert_leaves_the_colour_of_the_text_before) {
  SetInsertLayer("NOWHERE");
  AddLayer("0", {}, 3);
  state.blockColor = 4;
  EXPECT_EQ(Listing(Colored(drawn, cyan)), Draw("8 0\n" + plain));
}

TEST_F(BlockTextTest, the_inserts_colour_counts_for_nothing) {
  SetInsertLayer("0");
  AddLayer("0", {}, 3);
  EXPECT_EQ(Listing(Colored(drawn, green)), Draw("8 0\n" + plain));
  EXPECT_EQ(Listing(drawn), Draw("8 0\n62 0\n" + plain));
}

TEST_F(BlockTextTest, on_a_left_out_layer_it_ends_with_the_layer_in_the_buffer) {
  SetInsertLayer("WALLS");
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 WALLS\n" + plain));
  EXPECT_EQ("", Draw("8 0\n" + plain));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(BlockTextTest, group_62_is_a_colour_of_the_drawing) {
  AddLayer("DOORS", {}, 5);
  EXPECT_EQ(Listing(Colored(drawn, magenta)), Draw("8 DOORS\n62 200\n" + plain));
  EXPECT_EQ(Listing(drawn), Draw("8 DOORS\n62 0\n" + plain));
}

// Coordinates.

TEST_F(BlockTextTest, its_point_is_scaled_and_moved) {
  blockOriginX = 500.0;
  blockOriginY = -300.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 1.0;
  // 30 * 200 + 500, 60 * 100 - 300 - 10000.
  EXPECT_EQ(Listing(PlacedAt(drawn, 6500, -4300)), Draw(plain));
}

TEST_F(BlockTextTest, neither_its_point_nor_its_font_is_turned) {
  state.insertAngle = 1.0;
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(BlockTextTest, its_height_follows_the_y_scale) {
  state.insertScaleX = 3.0;
  state.insertScaleY = 1.5;
  state.drawScale = 2.0;
  // 200 / 2 * 1.5 = 150, * 1.1 = 165; 30 * 300 / 2; 60 * 150 / 2 - 10000.
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, 165, 0), 4500, -5500)), Draw(plain));
}

TEST_F(BlockTextTest, its_height_is_cut_behind_the_scale) {
  state.insertScaleY = 1.25;
  // 1.01 * 100 * 1.25 = 126.25, cut to 126; 126 * 1.1 = 138.6. 60 * 125 - 10000.
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, 138, 0), 3000, -2500)), Draw("1 AB\n" + place + "40 1.01\n"));
}

TEST_F(BlockTextTest, in_a_block_upside_down_its_height_is_negative) {
  state.insertScaleY = -1.0;
  blockOriginY = 10000.0;
  // 10000 - 6000 - 10000.
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, -220, 0), 3000, -6000)), Draw(plain));
}

// Groups 41, 50, 51, 72 and 73.

TEST_F(BlockTextTest, group_41_is_a_factor_on_half_the_height) {
  EXPECT_EQ(Listing(Sized(drawn, 220, 165)), Draw(plain + "41 1.5\n"));
  EXPECT_EQ(Listing(drawn), Draw("41 1.5\n" + plain));
  UseHalfWidth();
  EXPECT_EQ(Listing(drawn), Draw(plain + "41 1.5\n"));
}

TEST_F(BlockTextTest, its_angle_counts_up_from_0) {
  EXPECT_EQ(Listing(Leaning(drawn, 300)), Draw(plain + "50 30\n"));
  EXPECT_EQ(Listing(Leaning(drawn, 0)), Draw(plain + "50 0\n"));
  EXPECT_EQ(Listing(Leaning(drawn, -123)), Draw(plain + "50 -12.39\n"));
}

TEST_F(BlockTextTest, oblique_and_vertical_alignment_change_nothing) {
  EXPECT_EQ(Listing(drawn), Draw(plain + "51 15\n73 2\n"));
}

TEST_F(BlockTextTest, no_alignment_but_the_fit_moves_or_stretches_it) {
  EXPECT_EQ(Listing(drawn), Draw(plain + "11 90\n21 20\n72 1\n"));
}

// The view, colour and turn.

TEST_F(BlockTextTest, a_point_beyond_an_edge_drops_it) {
  for (const ViewRect& outside : {ViewRect{3001, 0, 20000, 10000}, ViewRect{0, 0, 2999, 10000},
                                  ViewRect{0, 4001, 20000, 10000}, ViewRect{0, 0, 20000, 3999}}) {
    view = outside;
    EXPECT_EQ("", Draw(plain));
  }
  view = {3000, 4000, 3000, 4000};
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(BlockTextTest, it_is_looked_for_in_the_view_before_it_is_shifted) {
  UseHalfWidth();
  view = {3000, 4000, 3000, 4000};
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(BlockTextTest, a_text_that_must_be_whole_may_reach_up_to_the_views_top) {
  wholeTextClip = 2;
  view.top = 3780;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  view.top = 3781;
  EXPECT_EQ("", Draw(plain));
}

TEST_F(BlockTextTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Listing(drawn), Draw(plain + "62 1\n"));
}

TEST_F(BlockTextTest, on_a_turned_sheet_font_and_point_turn) {
  state.rotated = 1;
  // 300 - 1800; 20000 - 3000, -10000 + 4000.
  EXPECT_EQ(Listing(PlacedAt(Leaning(drawn, -1500), 17000, -6000)), Draw(plain + "50 30\n"));
}

// Strings.

TEST_F(BlockTextTest, its_percent_codes_are_those_of_a_block) {
  EXPECT_EQ(Listing(WithText(drawn,
                             "10\xC2\xB0"
                             "C")),
            Draw("1 10%%dC\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn, "AB")), Draw("1 A%%CB\n" + sized));
}

TEST_F(BlockTextTest, symbols_of_unicode_stay_as_they_are_written) {
  EXPECT_EQ(Listing(WithText(drawn, "\\\\U+2205 12")), Draw("1 \\U+2205 12\n" + sized));
}

TEST_F(BlockTextTest, codes_in_braces_and_fractions_stay_as_they_are_written) {
  EXPECT_EQ(Listing(WithText(drawn, "{\\\\C1;A}")), Draw("1 {\\C1;A}\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn, "\\\\S1^2;")), Draw("1 \\S1^2;\n" + sized));
}

TEST_F(BlockTextTest, an_alignment_code_within_it_does_not_make_it_japanese) {
  knownMetrics.descent = 40;
  EXPECT_EQ(Listing(PlacedAt(WithText(drawn, "A\\\\A1;B"), 3000, -4040)), Draw("1 A\\A1;B\n" + sized));
}

TEST_F(BlockTextTest, empty_brackets_stay_closed) {
  UseHalfWidth();
  EXPECT_EQ(
      Listing(PlacedAt(Sized(WithText(drawn, "\xEF\xBC\x88\xE3\x80\x80\xEF\xBC\x89"), 169, 84), 3000, -4000)),
      Draw("1 \x81\x69\x81\x40\x81\x6A\n" + sized));
}

TEST_F(BlockTextTest, a_latin_text_stands_lower_by_the_descent) {
  knownMetrics.descent = 40;
  EXPECT_EQ(Listing(PlacedAt(WithText(drawn, "12 5"), 3000, -4040)), Draw("1 12 5\n" + sized));
  EXPECT_EQ(5960.0, state.blockY[0]);
  EXPECT_EQ(Listing(WithText(drawn, "12/5")), Draw("1 12/5\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn, kanjiListed)), Draw("1 " + kanji + "\n" + sized));
}

TEST_F(BlockTextTest, in_half_width_mode_a_japanese_text_is_smaller_and_not_shifted) {
  UseHalfWidth();
  // 220 / 1.3 = 169.2, 169 / 2 = 84.
  EXPECT_EQ(Listing(PlacedAt(Sized(WithText(drawn, kanjiListed), 169, 84), 3000, -4000)),
            Draw("1 " + kanji + "\n" + sized));
}

// The shift of Latin text.

TEST_F(BlockTextTest, in_half_width_mode_a_latin_text_moves_right_by_its_width_and_up_by_1) {
  UseHalfWidth();
  EXPECT_EQ(Listing(drawn), Draw(plain + "21 20\n"));
  // 3000 + 110 * 0.47, 6000 + 1, 2000 + 1.
  EXPECT_DOUBLE_EQ(3051.7, state.blockX[0]);
  EXPECT_EQ(6001.0, state.blockY[0]);
  EXPECT_EQ(2001.0, state.blockY[1]);
}

TEST_F(BlockTextTest, outside_half_width_mode_a_latin_text_stays) {
  Draw(plain + "41 1\n21 20\n");
  EXPECT_EQ(3000.0, state.blockX[0]);
  EXPECT_EQ(6000.0, state.blockY[0]);
  EXPECT_EQ(2000.0, state.blockY[1]);
}

TEST_F(BlockTextTest, a_text_without_a_size_has_moved_up_before_it_is_dropped) {
  halfWidthFont = 1;
  EXPECT_EQ("", Draw("1 AB\n" + place + "21 20\n"));
  EXPECT_EQ(6001.0, state.blockY[0]);
  EXPECT_EQ(2001.0, state.blockY[1]);
}

TEST_F(BlockTextTest, shift_and_descent_add_up) {
  UseHalfWidth();
  knownMetrics.descent = 40;
  EXPECT_EQ(Listing(PlacedAt(drawn, 3051, -4039)), Draw(plain));
}

// Fit.

TEST_F(BlockTextTest, a_fitted_text_takes_its_width_from_its_points) {
  // (3000 - 2000) / 2 = 500, 500 * 1.8 = 900.
  EXPECT_EQ(Listing(Sized(drawn, 900, 500)), Draw(plain + "72 5\n11 20\n"));
  // (3000 - 4000) / 2.
  EXPECT_EQ(Listing(Sized(drawn, 220, -500)), Draw(plain + "72 5\n11 40\n"));
  // (6000 - 5600) / 2 = 200, 360.
  EXPECT_EQ(Listing(Sized(drawn, 360, 200)), Draw(plain + "72 5\n11 30\n21 56\n"));
  EXPECT_EQ(Listing(drawn), Draw(plain + "72 5\n11 30\n21 60\n"));
}

TEST_F(BlockTextTest, a_fitted_character_of_two_bytes_counts_as_1) {
  // 3000 - 2800.
  EXPECT_EQ(Listing(Sized(WithText(drawn, kanjiListed), 360, 200)),
            Draw("1 " + kanji + "\n" + sized + "72 5\n11 28\n"));
}

TEST_F(BlockTextTest, the_inserts_x_scale_counts_once_more_for_a_fitted_width_in_either_direction) {
  state.insertScaleX = 2.0;
  state.drawScale = 4.0;
  // (6000 - 4400) / 2 / 4 * 2 = 400, 720. 6000 / 4, 6000 / 4 - 10000.
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, 720, 400), 1500, -8500)), Draw(plain + "72 5\n11 22\n"));
  // (6000 - 5200) / 2 / 4 * 2 = 200, 360.
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, 360, 200), 1500, -8500)), Draw(plain + "72 5\n11 30\n21 52\n"));
}

TEST_F(BlockTextTest, in_half_width_mode_a_fitted_text_is_drawn_in_full_width_and_keeps_its_height) {
  UseHalfWidth();
  // 4 bytes: (3000 - 2200) / 4 = 200; 200 * 0.47 = 94.
  EXPECT_EQ(Listing(PlacedAt(Sized(WithText(drawn, "\xEF\xBC\xA1\xEF\xBC\xA2"), 220, 200), 3094, -3999)),
            Draw(plain + "72 5\n11 22\n"));
  // (6000 - 5200) / 4.
  EXPECT_EQ(Listing(PlacedAt(Sized(WithText(drawn, "\xEF\xBC\xA1\xEF\xBC\xA2"), 220, 200), 3094, -3999)),
            Draw(plain + "72 5\n11 30\n21 52\n"));
}

TEST_F(BlockTextTest, in_half_width_mode_the_x_scale_does_not_count_once_more) {
  UseHalfWidth();
  state.insertScaleX = 2.0;
  state.drawScale = 4.0;
  // (6000 - 4400) / 4 / 4 = 100; 55 high; (6000 + 47) / 4 = 1511.75, (6000 + 1) / 4 = 1500.25.
  EXPECT_EQ(Listing(PlacedAt(Sized(WithText(drawn, "\xEF\xBC\xA1\xEF\xBC\xA2"), 55, 100), 1511, -8499)),
            Draw(plain + "72 5\n11 22\n"));
}

// Six kanji have 12 bytes and 12 cells; 220 / 1.3 = 169.
TEST_F(BlockTextTest, in_half_width_mode_a_full_width_text_gets_no_sixth_more_cells) {
  UseHalfWidth();
  const std::string six = kanji + kanji + kanji + kanji + kanji + kanji;
  const std::string sixListed =
      kanjiListed + kanjiListed + kanjiListed + kanjiListed + kanjiListed + kanjiListed;
  // (3000 - 1800) / 12.
  EXPECT_EQ(Listing(PlacedAt(Sized(WithText(drawn, sixListed), 169, 100), 3000, -4000)),
            Draw("1 " + six + "\n" + sized + "72 5\n11 18\n"));
}

TEST_F(BlockTextTest, a_fitted_text_without_a_character_has_no_width) {
  EXPECT_EQ(Listing(Sized(WithText(drawn, ""), 220, INT32_MIN)), Draw("1 \n" + sized + "72 5\n11 20\n"));
  UseHalfWidth();
  // The shift of -2147483648 * 0.47 = -1009317314.56 goes with it: 3000 less that is cut to -1009314314.
  EXPECT_EQ(Listing(PlacedAt(Sized(WithText(drawn, ""), 220, INT32_MIN), -1009314314, -3999)),
            Draw("1 \n" + sized + "72 5\n11 20\n"));
}

TEST_F(BlockTextTest, a_text_that_does_not_fit_in_full_width_throws_before_it_has_a_font) {
  UseHalfWidth();
  EXPECT_NE("", Draw("1 " + std::string(128, 'x') + "\n" + sized + "72 5\n11 20\n"));
  EXPECT_EQ(256u, std::string(state.blockText).size());
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  stream = StreamOf("0 TEXT\n1 " + std::string(129, 'x') + "\n" + sized + "72 5\n11 20\n");
  ReadGroup(stream);
  int32_t thrown = 0;
  try {
    DrawOn(canvas);
  } catch (int32_t code) {
    thrown = code;
  }
  EXPECT_EQ(textTooLongCode, thrown);
  EXPECT_EQ(std::string::npos, ListAndDelete(CloseEnhMetaFile(canvas)).find("CreateFont"));
}

// Size, width and squeeze.

TEST_F(BlockTextTest, a_text_without_height_and_width_is_dropped) {
  EXPECT_EQ("", Draw("1 AB\n" + place));
  EXPECT_EQ(0, knownMetrics.calls);
}

TEST_F(BlockTextTest, its_font_is_always_measured) {
  Draw(plain);
  EXPECT_EQ(1, knownMetrics.calls);
}

TEST_F(BlockTextTest, one_that_proves_too_wide_leaves_its_font) {
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  view.right = 3200;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  view.right = 3199;
  EXPECT_EQ(FontListing(drawn), Draw(plain));
  EXPECT_EQ(1u, state.leftFonts.size());
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  wholeTextClip = 2;
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(BlockTextTest, the_shift_counts_for_its_width) {
  UseHalfWidth();
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  view.right = 3251;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  view.right = 3250;
  EXPECT_EQ(FontListing(drawn), Draw(plain));
}

TEST_F(BlockTextTest, very_small_text_is_not_squeezed) {
  ListCalls([this](Canvas canvas) {
    stream = StreamOf("0 TEXT\n1 AB\n" + place + "40 0.05\n");
    ReadGroup(stream);
    DrawOn(canvas);
    EXPECT_EQ(0, SetTextCharacterExtra(canvas, 0));
  });
}

TEST_F(BlockTextTest, numbers_beyond_all_bounds_do_not_stop_it) {
  for (const char* number : {"1e300", "-1e300", "2147483647", "-2147483648"}) {
    for (const char* group : {"10 ", "20 ", "40 ", "41 ", "50 "}) {
      Draw(plain + "72 5\n" + group + number + "\n");
      EXPECT_EQ(1, result);
    }
  }
}

}  // namespace
}  // namespace hexlume::block_text_test
