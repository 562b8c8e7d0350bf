// TEXT that is fitted between two points (group 72 of 5), in the ENTITIES section.

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

namespace hexlume::text_fit_test {
namespace {

// The first point at (3000, 6000 - 10000), and a cell of 200 * 1.1 = 220.
const std::string fitted = "10 30\n20 60\n40 2\n72 5\n";

// Two kanji, and as the listing has them.
const std::string kanjiPair = "\x8C\xB4\x8C\xB4";
const std::string kanjiPairListed = "\xE5\x8E\x9F\xE5\x8E\x9F";

class TextFitTest : public ConverterTest {
 protected:
  TextFitTest() { knownMetrics = {}; }
  ~TextFitTest() override { DeleteLeftObjects(); }

  std::string Draw(const std::string& text, const std::string& groups) {
    stream = StreamOf("0 TEXT\n1 " + text + "\n" + fitted + groups);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawText({RunOn(canvas)}); });
  }

  void UseHalfWidth() {
    halfWidthFont = 1;
    drawn.face = "";
  }

  TextCall drawn;
};

// With the mapper's width.

TEST_F(TextFitTest, one_that_runs_to_the_right_has_a_negative_width_and_keeps_its_height) {
  // (3000 - 9000) / 4 = -1500; 1.8 times that is less than 220.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 220, -1500), "ABCD")), Draw("ABCD", "11 90\n21 60\n"));
}

TEST_F(TextFitTest, one_that_runs_to_the_left_is_raised_for_its_width) {
  // (3000 - 2000) / 4 = 250; 250 * 1.8 = 450.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 450, 250), "ABCD")), Draw("ABCD", "11 20\n21 60\n"));
}

TEST_F(TextFitTest, a_cell_that_is_high_enough_stays) {
  // (3000 - 2500) / 5 = 100, 180 < 220; (3000 - 2511) / 4 = 122.25, 122 * 1.8 = 219.6; 123 * 1.8 = 221.4.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 220, 100), "ABCDE")), Draw("ABCDE", "11 25\n"));
  EXPECT_EQ(Listing(WithText(Sized(drawn, 220, 122), "ABCD")), Draw("ABCD", "11 25.11\n"));
  EXPECT_EQ(Listing(WithText(Sized(drawn, 221, 123), "ABCD")), Draw("ABCD", "11 25.08\n"));
}

TEST_F(TextFitTest, one_that_stands_upright_takes_its_width_from_y) {
  // (6000 - 5200) / 4 = 200; 200 * 1.8 = 360.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 360, 200), "ABCD")), Draw("ABCD", "11 30\n21 52\n"));
  // (6000 - 9000) / 4.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 220, -750), "ABCD")), Draw("ABCD", "11 30\n21 90\n"));
}

TEST_F(TextFitTest, a_width_below_1_counts_as_none) {
  // (3000 - 2997) / 4 is cut to 0.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 360, 200), "ABCD")), Draw("ABCD", "11 29.97\n21 52\n"));
}

TEST_F(TextFitTest, equal_points_leave_the_mapper_the_width_and_the_height_as_it_was) {
  EXPECT_EQ(Listing(WithText(drawn, "ABCD")), Draw("ABCD", "41 3\n11 30\n21 60\n"));
}

TEST_F(TextFitTest, the_second_point_can_be_that_of_the_entity_before) {
  state.entX[1] = 2000.0;
  EXPECT_EQ(Listing(WithText(Sized(drawn, 450, 250), "ABCD")), Draw("ABCD", ""));
}

TEST_F(TextFitTest, the_width_is_divided_by_the_scale) {
  state.drawScale = 2.0;
  // (3000 - 2000) / 4 / 2 = 125, 125 * 1.8 = 225 > 110; 3000 / 2, 6000 / 2 - 10000.
  EXPECT_EQ(Listing(WithText(PlacedAt(Sized(drawn, 225, 125), 1500, -7000), "ABCD")),
            Draw("ABCD", "11 20\n21 60\n"));
  // (6000 - 5200) / 4 / 2 = 100, 180.
  EXPECT_EQ(Listing(WithText(PlacedAt(Sized(drawn, 180, 100), 1500, -7000), "ABCD")),
            Draw("ABCD", "11 30\n21 52\n"));
}

TEST_F(TextFitTest, the_text_counts_as_it_is_drawn) {
  // Phi, a blank and "(5)": 2 + 1 + 3 bytes. (3000 - 1800) / 6 = 200, 360.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 360, 200), "\xCF\x86 (5)")), Draw("%%c (5)", "11 18\n"));
}

TEST_F(TextFitTest, one_double_byte_character_counts_as_1) {
  // (3000 - 2800) / 1 = 200.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 360, 200), "\xE5\x8E\x9F")), Draw("\x8C\xB4", "11 28\n"));
  // Two letters count as 2, two characters as 4.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 360, 200), "AB")), Draw("AB", "11 26\n"));
  EXPECT_EQ(Listing(WithText(Sized(drawn, 360, 200), kanjiPairListed)), Draw(kanjiPair, "11 22\n"));
}

TEST_F(TextFitTest, without_a_character_the_width_is_no_width) {
  // 1000 / 0, -1000 / 0, and 0 / 0, which is no number.
  for (const char* x : {"20", "40", "30"}) {
    const std::string groups = std::string("11 ") + x + "\n21 60\n";
    EXPECT_EQ(Listing(WithText(Sized(drawn, 220, INT32_MIN), "")), Draw("", groups));
  }
}

TEST_F(TextFitTest, a_fitted_text_without_height_gets_one_from_its_width) {
  EXPECT_EQ(Listing(WithText(Sized(drawn, 450, 250), "ABCD")), Draw("ABCD", "40 0\n11 20\n"));
}

TEST_F(TextFitTest, a_fitted_text_without_height_and_width_is_dropped) {
  EXPECT_EQ("", Draw("ABCD", "40 0\n11 30\n21 60\n"));
}

TEST_F(TextFitTest, the_height_at_the_views_top_is_that_before_the_fit) {
  wholeTextClip = 2;
  view.top = 3780;
  EXPECT_EQ(Listing(WithText(Sized(drawn, 450, 250), "ABCD")), Draw("ABCD", "11 20\n"));
}

// In half-width cells.

TEST_F(TextFitTest, in_half_width_mode_it_is_drawn_in_full_width_and_keeps_its_height) {
  UseHalfWidth();
  // Four full-width letters, 8 bytes: (3000 - 9000) / 8 = -750.
  const std::string wide = "\xEF\xBC\xA1\xEF\xBC\xA2\xEF\xBC\xA3\xEF\xBC\xA4";
  EXPECT_EQ(Listing(WithText(Sized(drawn, 220, -750), wide)), Draw("ABCD", "11 90\n21 60\n"));
  // (3000 - 1400) / 8 = 200: no 1.8 here.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 220, 200), wide)), Draw("ABCD", "11 14\n21 60\n"));
}

TEST_F(TextFitTest, in_half_width_mode_it_takes_y_where_x_gives_nothing) {
  UseHalfWidth();
  const std::string wide = "\xEF\xBC\xA1\xEF\xBC\xA2\xEF\xBC\xA3\xEF\xBC\xA4";
  // (6000 - 5200) / 8.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 220, 100), wide)), Draw("ABCD", "11 30\n21 52\n"));
  EXPECT_EQ(Listing(WithText(Sized(drawn, 220, 0), wide)), Draw("ABCD", "11 30\n21 60\n"));
}

TEST_F(TextFitTest, in_half_width_mode_the_width_is_divided_by_the_scale) {
  UseHalfWidth();
  state.drawScale = 2.0;
  const std::string wide = "\xEF\xBC\xA1\xEF\xBC\xA2\xEF\xBC\xA3\xEF\xBC\xA4";
  // (3000 - 1400) / 8 / 2; 100 * 1.1.
  EXPECT_EQ(Listing(WithText(PlacedAt(Sized(drawn, 110, 100), 1500, -7000), wide)),
            Draw("ABCD", "11 14\n21 60\n"));
}

// Six kanji, 12 bytes and so 12 + 12 / 6 = 14 cells; in the cell of Japanese text, 220 / 1.3 = 169 high.
TEST_F(TextFitTest, in_half_width_mode_a_full_width_text_gets_a_sixth_more_cells) {
  UseHalfWidth();
  const std::string six = kanjiPair + kanjiPair + kanjiPair;
  const std::string sixListed = kanjiPairListed + kanjiPairListed + kanjiPairListed;
  // (3000 - 1600) / 14.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 169, 100), sixListed)), Draw(six, "11 16\n"));
}

TEST_F(TextFitTest, a_sixth_of_less_than_six_cells_is_none) {
  UseHalfWidth();
  // (3000 - 2600) / 4.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 169, 100), kanjiPairListed)), Draw(kanjiPair, "11 26\n"));
}

TEST_F(TextFitTest, half_width_katakana_join_with_their_voice_marks) {
  UseHalfWidth();
  // Ka, a voice mark and na: 3 bytes become ga and na, 4 bytes. (3000 - 2600) / 4.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 220, 100), "\xE3\x82\xAC\xE3\x83\x8A")),
            Draw("\xB6\xDE\xC5", "11 26\n"));
}

TEST_F(TextFitTest, the_blank_that_opens_empty_brackets_counts) {
  UseHalfWidth();
  // Full-width brackets and two blanks, 8 bytes; 8 + 8 / 6 = 9. (3000 - 2100) / 9.
  EXPECT_EQ(Listing(WithText(Sized(drawn, 169, 100), "\xEF\xBC\x88\xE3\x80\x80\xE3\x80\x80\xEF\xBC\x89")),
            Draw("\x81\x69\x81\x40\x81\x6A", "11 21\n"));
}

TEST_F(TextFitTest, in_half_width_mode_the_width_is_no_width_without_a_character_either) {
  UseHalfWidth();
  for (const char* x : {"20", "40", "30"})
    EXPECT_EQ(Listing(WithText(Sized(drawn, 220, INT32_MIN), "")),
              Draw("", std::string("11 ") + x + "\n21 60\n"));
}

TEST_F(TextFitTest, in_half_width_mode_the_fitted_text_is_what_must_be_whole) {
  UseHalfWidth();
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  // 3000 + 8 * 100.
  view.right = 3800;
  EXPECT_NE(FontListing(Sized(drawn, 220, 200)), Draw("ABCD", "11 14\n"));
  view.right = 3799;
  EXPECT_EQ(FontListing(Sized(drawn, 220, 200)), Draw("ABCD", "11 14\n"));
}

TEST_F(TextFitTest, a_text_that_does_not_fit_in_full_width_throws_before_it_has_a_font) {
  UseHalfWidth();
  const std::string fits = std::string(127, 'x');
  EXPECT_NE("", Draw(fits, "11 14\n"));
  EXPECT_EQ(254u, std::string(state.entText).size());
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  stream = StreamOf("0 TEXT\n1 " + fits + "x\n" + fitted);
  ReadGroup(stream);
  int32_t thrown = 0;
  try {
    DrawText({RunOn(canvas)});
  } catch (int32_t code) {
    thrown = code;
  }
  EXPECT_EQ(textTooLongCode, thrown);
  const std::string listing = ListAndDelete(CloseEnhMetaFile(canvas));
  EXPECT_EQ(std::string::npos, listing.find("CreateFont")) << listing;
}

TEST_F(TextFitTest, only_a_fitted_text_is_drawn_in_full_width) {
  UseHalfWidth();
  EXPECT_EQ(Listing(Sized(drawn, 220, 110)), Draw("AB", "72 3\n"));
  EXPECT_EQ(Listing(Sized(drawn, 220, 110)), Draw("AB", "72 0\n11 90\n"));
}

// On a sheet that is turned.

TEST_F(TextFitTest, on_a_turned_sheet_its_width_stays) {
  state.rotated = 1;
  // 20000 - 3000, -10000 + 4000.
  EXPECT_EQ(Listing(WithText(PlacedAt(Leaning(Sized(drawn, 450, 250), -1800), 17000, -6000), "ABCD")),
            Draw("ABCD", "11 20\n"));
}

}  // namespace
}  // namespace hexlume::text_fit_test
