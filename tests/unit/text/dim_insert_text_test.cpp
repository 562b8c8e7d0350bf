// TEXT and MTEXT in a block that is inserted in a dimension's block, where they differ from TEXT in the
// ENTITIES section.

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

namespace hexlume::dim_insert_text_test {
namespace {

// At (3000, 6000 - 10000), in a cell of 200 * 1.1 = 220, half as wide.
const std::string place = "10 30\n20 60\n";
const std::string sized = place + "40 2\n";
const std::string plain = "1 AB\n" + sized;

// Two kanji, and as the listing has them.
const std::string kanjiPair = "\x8C\xB4\x8C\xB4";
const std::string kanjiPairListed = "\xE5\x8E\x9F\xE5\x8E\x9F";

class DimInsertTextTest : public ConverterTest {
 protected:
  DimInsertTextTest() {
    knownMetrics = {};
    knownMetrics.descent = 40;  // counts for nothing here
    drawn.width = 110;
    drawn.face = "";
  }
  ~DimInsertTextTest() override { DeleteLeftObjects(); }

  std::string Draw(const std::string& groups) { return DrawGroups("0 TEXT\n" + groups + "0 CIRCLE\n40 7\n"); }

  std::string DrawGroups(const std::string& groups) {
    stream = StreamOf(groups);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { DrawOn(canvas); });
  }

  void DrawOn(Canvas canvas) { result = DrawDimInsertText({RunOn(canvas), blockOriginX, blockOriginY}); }

  // The distance of characters that a text sets on a canvas where it was 7.
  int32_t ExtraBehind(const std::string& groups) {
    int32_t extra = 0;
    ListCalls([&](Canvas canvas) {
      SetTextCharacterExtra(canvas, 7);
      stream = StreamOf("0 TEXT\n" + groups);
      ReadGroup(stream);
      DrawOn(canvas);
      extra = SetTextCharacterExtra(canvas, 0);
    });
    return extra;
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
  TextCall drawn;  // what plain leaves
};

TEST_F(DimInsertTextTest, it_is_one_text_in_a_font_of_its_own_and_of_the_default_face) {
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(DimInsertTextTest, it_leaves_the_next_entity_in_the_buffer) {
  Draw(plain);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimInsertTextTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Listing(drawn), DrawGroups("0 TEXT\n" + plain));
  EXPECT_EQ(0, result);
}

TEST_F(DimInsertTextTest, it_uses_the_places_of_the_inserted_block_and_leaves_the_face) {
  state.entFace = "outer";
  state.entX[0] = 1.0;
  state.blockX[0] = 2.0;
  Draw(plain + "62 1\n");
  EXPECT_STREQ("outer", state.entFace);
  EXPECT_EQ(1.0, state.entX[0]);
  EXPECT_EQ(2.0, state.blockX[0]);
  EXPECT_STREQ("", state.entText);
  EXPECT_STREQ("", state.blockText);
  EXPECT_STREQ("AB", state.dimText);
  // The place, the text and the colour stay for the next one.
  EXPECT_EQ(Listing(Colored(drawn, red)), Draw("40 2\n"));
}

// Group 1 and the strings.

TEST_F(DimInsertTextTest, alignment_codes_stay) {
  EXPECT_EQ(Listing(WithText(drawn, "\\\\A1;AB")), Draw("1 \\A1;AB\n" + sized));
}

TEST_F(DimInsertTextTest, its_percent_codes_are_those_of_a_block) {
  EXPECT_EQ(Listing(WithText(drawn,
                             "10\xC2\xB0"
                             "C")),
            Draw("1 10%%dC\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn, "AB")), Draw("1 A%%CB\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn, "AB")), Draw("1 %%uAB\n" + sized));
}

TEST_F(DimInsertTextTest, all_other_codes_stay_as_they_are_written) {
  EXPECT_EQ(Listing(WithText(drawn, "{\\\\C1;A}\\\\PB\\\\S1^2;\\\\U+2205")),
            Draw("1 {\\C1;A}\\PB\\S1^2;\\U+2205\n" + sized));
}

TEST_F(DimInsertTextTest, japanese_text_has_the_cell_of_latin_text) {
  EXPECT_EQ(Listing(WithText(drawn, kanjiPairListed)), Draw("1 " + kanjiPair + "\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn, "\xEF\xBC\x88\xE3\x80\x80\xEF\xBC\x89")),
            Draw("1 \x81\x69\x81\x40\x81\x6A\n" + sized));
}

// Groups 8 and 62.

TEST_F(DimInsertTextTest, layer_0_is_that_of_the_insert) {
  SetInsertLayer("WALLS");
  AddLayer("0", {}, 3);
  AddLayer("WALLS", {}, 1);
  AddLayer("DOORS", {}, 5);
  EXPECT_EQ(Listing(Colored(drawn, red)), Draw("8 0\n" + plain));
  EXPECT_EQ(Listing(Colored(drawn, blue)), Draw("8 DOORS\n" + plain));
}

TEST_F(DimInsertTextTest, without_layer_and_group_62_the_colour_is_that_of_the_text_before) {
  SetInsertLayer("NOWHERE");
  state.dimColor = 4;
  EXPECT_EQ(Listing(Colored(drawn, cyan)), Draw(plain));
  EXPECT_EQ(Listing(Colored(drawn, cyan)), Draw("8 0\n" + plain));
}

TEST_F(DimInsertTextTest, on_a_left_out_layer_it_ends_with_the_layer_in_the_buffer) {
  SetInsertLayer("WALLS");
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + plain));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(DimInsertTextTest, group_62_is_a_colour_of_the_drawing) {
  AddLayer("DOORS", {}, 5);
  EXPECT_EQ(Listing(Colored(drawn, magenta)), Draw("8 DOORS\n62 200\n" + plain));
  EXPECT_EQ(Listing(drawn), Draw("8 DOORS\n62 0\n" + plain));
}

// Coordinates.

TEST_F(DimInsertTextTest, its_points_are_moved_and_neither_scaled_nor_turned) {
  blockOriginX = 500.0;
  blockOriginY = -300.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = 1.0;
  EXPECT_EQ(Listing(PlacedAt(drawn, 3500, -4300)), Draw(plain + "11 70\n21 80\n"));
  EXPECT_EQ(3500.0, state.dimX[0]);
  EXPECT_EQ(7500.0, state.dimX[1]);
  EXPECT_EQ(5700.0, state.dimY[0]);
  EXPECT_EQ(7700.0, state.dimY[1]);
}

// Groups 40 to 51.

TEST_F(DimInsertTextTest, its_cell_is_a_tenth_higher_and_half_as_wide) {
  // 1.239 * 100 = 123.9, 123 * 1.1 = 135.3, 135 / 2.
  EXPECT_EQ(Listing(Sized(drawn, 135, 67)), Draw("1 AB\n" + place + "40 1.239\n"));
  state.drawScale = 2.0;
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, 110, 55), 1500, -7000)), Draw(plain));
}

TEST_F(DimInsertTextTest, group_41_is_a_factor_on_the_width) {
  EXPECT_EQ(Listing(Sized(drawn, 220, 165)), Draw(plain + "41 1.5\n"));
  EXPECT_EQ(Listing(Sized(drawn, 220, 36)), Draw(plain + "41 0.333\n"));
  EXPECT_EQ(Listing(drawn), Draw("41 1.5\n" + plain));
}

TEST_F(DimInsertTextTest, its_angle_is_its_orientation_too) {
  TextCall turned = Leaning(drawn, 3300);
  turned.orientation = 3300;
  EXPECT_EQ(Listing(turned), Draw(plain + "50 30\n"));
  turned.escapement = turned.orientation = 3600;
  EXPECT_EQ(Listing(turned), Draw(plain + "50 0\n"));
}

TEST_F(DimInsertTextTest, it_is_never_oblique) {
  EXPECT_EQ(Listing(drawn), Draw(plain + "51 15\n"));
}

TEST_F(DimInsertTextTest, no_alignment_but_the_fit_moves_or_stretches_it) {
  EXPECT_EQ(Listing(drawn), Draw(plain + "11 90\n21 20\n72 1\n"));
}

// The view, colour and turn.

TEST_F(DimInsertTextTest, a_point_beyond_an_edge_drops_it) {
  for (const ViewRect& outside : {ViewRect{3001, 0, 20000, 10000}, ViewRect{0, 0, 2999, 10000},
                                  ViewRect{0, 4001, 20000, 10000}, ViewRect{0, 0, 20000, 3999}}) {
    view = outside;
    EXPECT_EQ("", Draw(plain));
  }
  view = {3000, 4000, 3000, 4000};
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(DimInsertTextTest, a_text_that_must_be_whole_may_reach_up_to_the_views_top) {
  wholeTextClip = 2;
  view.top = 3780;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  view.top = 3781;
  EXPECT_EQ("", Draw(plain));
}

TEST_F(DimInsertTextTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Listing(drawn), Draw(plain + "62 1\n"));
}

TEST_F(DimInsertTextTest, on_a_turned_sheet_the_escapement_turns_but_not_the_orientation) {
  state.rotated = 1;
  TextCall turned = PlacedAt(Leaning(drawn, 1500), 17000, -6000);
  turned.orientation = 3300;
  EXPECT_EQ(Listing(turned), Draw(plain + "50 30\n"));
}

// Fit: the second point less the first one, without the scale.

TEST_F(DimInsertTextTest, a_fitted_text_takes_its_width_from_its_points_and_keeps_its_height) {
  // (4000 - 3000) / 4 = 250, (2000 - 3000) / 4, (6800 - 6000) / 4.
  const TextCall wide = WithText(drawn, kanjiPairListed);
  const std::string fitted = "1 " + kanjiPair + "\n" + sized + "72 5\n";
  EXPECT_EQ(Listing(Sized(wide, 220, 250)), Draw(fitted + "11 40\n21 60\n"));
  EXPECT_EQ(Listing(Sized(wide, 220, -250)), Draw(fitted + "11 20\n21 60\n"));
  EXPECT_EQ(Listing(Sized(wide, 220, 200)), Draw(fitted + "11 30\n21 68\n"));
  EXPECT_EQ(Listing(Sized(wide, 220, 0)), Draw(fitted + "11 30\n21 60\n"));
}

TEST_F(DimInsertTextTest, the_scale_does_not_count_for_a_fitted_width) {
  state.drawScale = 2.0;
  EXPECT_EQ(Listing(PlacedAt(Sized(WithText(drawn, kanjiPairListed), 110, 250), 1500, -7000)),
            Draw("1 " + kanjiPair + "\n" + sized + "72 5\n11 40\n"));
}

TEST_F(DimInsertTextTest, one_double_byte_character_counts_as_2) {
  // (3400 - 3000) / 2.
  EXPECT_EQ(Listing(Sized(WithText(drawn, "\xE5\x8E\x9F"), 220, 200)),
            Draw("1 \x8C\xB4\n" + sized + "72 5\n11 34\n"));
}

TEST_F(DimInsertTextTest, a_text_with_half_width_characters_gets_the_fitted_width_all_the_same) {
  // (4000 - 3000) / 2.
  EXPECT_EQ(Listing(Sized(drawn, 220, 500)), Draw(plain + "72 5\n11 40\n"));
}

TEST_F(DimInsertTextTest, a_fitted_text_without_a_character_has_no_width) {
  EXPECT_EQ(Listing(Sized(WithText(drawn, ""), 220, INT32_MIN)), Draw("1 \n" + sized + "72 5\n11 40\n"));
  EXPECT_EQ(Listing(Sized(WithText(drawn, ""), 220, INT32_MIN)),
            Draw("1 \n" + sized + "72 5\n11 30\n21 60\n"));
}

// The distance of characters.

TEST_F(DimInsertTextTest, the_distance_of_characters_stays) {
  EXPECT_EQ(7, ExtraBehind(plain));
  EXPECT_EQ(7, ExtraBehind(plain + "72 5\n11 40\n"));
  EXPECT_EQ(7, ExtraBehind("1 AB\n" + place + "40 0.05\n"));
}

TEST_F(DimInsertTextTest, where_arcs_run_clockwise_a_fitted_full_width_text_has_none) {
  state.arcClockwise = 1;
  EXPECT_EQ(0, ExtraBehind("1 " + kanjiPair + "\n" + sized + "72 5\n11 40\n"));
}

TEST_F(DimInsertTextTest, where_arcs_run_clockwise_any_other_fitted_text_has_half_its_width) {
  state.arcClockwise = 1;
  // (4000 - 3000) / 2 = 500, / 2; (1998 - 3000) / 2 = -501, / 2 = -250.
  EXPECT_EQ(250, ExtraBehind(plain + "72 5\n11 40\n"));
  EXPECT_EQ(-250, ExtraBehind(plain + "72 5\n11 19.98\n"));
}

TEST_F(DimInsertTextTest, where_arcs_run_clockwise_a_text_that_is_not_justified_has_half_its_width) {
  state.arcClockwise = 1;
  EXPECT_EQ(55, ExtraBehind(plain));                                       // 110 / 2
  EXPECT_EQ(82, ExtraBehind(plain + "41 1.5\n"));                          // 165 / 2
  EXPECT_EQ(55, ExtraBehind("1 " + kanjiPair + "\n" + sized + "72 0\n"));  // full width makes no difference
}

TEST_F(DimInsertTextTest, where_arcs_run_clockwise_a_text_of_any_other_justification_has_none) {
  state.arcClockwise = 1;
  for (const char* justify : {"1", "2", "3", "4", "6", "-1"})
    EXPECT_EQ(0, ExtraBehind(plain + "72 " + justify + "\n")) << justify;
}

TEST_F(DimInsertTextTest, where_arcs_run_clockwise_a_text_without_size_sets_the_distance_too) {
  state.arcClockwise = 1;
  EXPECT_EQ(0, ExtraBehind("1 AB\n" + place));
}

// Size and width.

TEST_F(DimInsertTextTest, a_text_without_height_and_width_is_dropped) {
  EXPECT_EQ("", Draw("1 AB\n" + place));
}

TEST_F(DimInsertTextTest, its_font_is_measured_only_for_a_text_that_must_be_whole) {
  for (const int32_t clip : {0, 2}) {
    wholeTextClip = clip;
    EXPECT_EQ(Listing(drawn), Draw(plain));
    EXPECT_EQ(0, knownMetrics.calls);
  }
  wholeTextClip = 1;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  EXPECT_EQ(1, knownMetrics.calls);
}

TEST_F(DimInsertTextTest, one_that_proves_too_wide_leaves_its_font) {
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  view.right = 3200;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  view.right = 3199;
  EXPECT_EQ(FontListing(drawn), Draw(plain));
  EXPECT_EQ(1u, state.leftFonts.size());
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimInsertTextTest, numbers_beyond_all_bounds_do_not_stop_it) {
  for (const char* number : {"1e300", "-1e300", "2147483647", "-2147483648"}) {
    for (const char* group : {"10 ", "20 ", "40 ", "41 ", "50 "}) {
      Draw(plain + "72 5\n" + group + number + "\n");
      EXPECT_EQ(1, result);
    }
  }
}

}  // namespace
}  // namespace hexlume::dim_insert_text_test
