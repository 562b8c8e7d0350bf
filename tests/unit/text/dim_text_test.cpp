// TEXT in the block of a dimension, where it differs from one in the ENTITIES section.

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

namespace hexlume::dim_text_test {
namespace {

// At (3000, 6000 - 10000), in a cell of 200.
const std::string place = "10 30\n20 60\n";
const std::string sized = place + "40 2\n";
const std::string plain = "1 AB\n" + sized;

class DimTextTest : public ConverterTest {
 protected:
  DimTextTest() {
    knownMetrics = {};
    knownMetrics.descent = 40;  // counts for nothing here
    drawn.height = 200;
  }
  ~DimTextTest() override { DeleteLeftObjects(); }

  std::string Draw(const std::string& groups) { return DrawGroups("0 TEXT\n" + groups + "0 CIRCLE\n40 7\n"); }

  std::string DrawGroups(const std::string& groups) {
    stream = StreamOf(groups);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { DrawOn(canvas); });
  }

  void DrawOn(Canvas canvas) { result = DrawDimText({RunOn(canvas), offsetX, offsetY}); }

  // 200 * 1.1 = 220 high and half as wide.
  void UseHalfWidth() {
    halfWidthFont = 1;
    drawn.height = 220;
    drawn.width = 110;
    drawn.face = "";
  }

  double offsetX = 0.0;
  double offsetY = 0.0;
  TextCall drawn;  // what plain leaves
};

TEST_F(DimTextTest, it_is_one_text_in_a_font_of_its_own) {
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(DimTextTest, it_leaves_the_next_entity_in_the_buffer) {
  Draw(plain);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimTextTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Listing(drawn), DrawGroups("0 TEXT\n" + plain));
  EXPECT_EQ(0, result);
}

TEST_F(DimTextTest, it_starts_in_black_and_settles_the_face) {
  state.entColor = 4;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  EXPECT_STREQ(gothicFace, state.entFace);
  UseHalfWidth();
  Draw(plain);
  EXPECT_STREQ("", state.entFace);
}

TEST_F(DimTextTest, leading_alignment_codes_fall_away) {
  EXPECT_EQ(Listing(drawn), Draw("1 \\A1;\\A0;AB\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn, "")), Draw("1 \\A\n" + sized));
}

// Groups 8 and 62.

TEST_F(DimTextTest, a_layer_gives_the_colour_and_layer_0_is_one_like_any_other) {
  SetInsertLayer("WALLS");
  AddLayer("WALLS", {}, 5);
  AddLayer("0", {}, 1);
  EXPECT_EQ(Listing(Colored(drawn, blue)), Draw("8 WALLS\n" + plain));
  EXPECT_EQ(Listing(Colored(drawn, red)), Draw("8 0\n" + plain));
}

TEST_F(DimTextTest, on_a_left_out_layer_it_ends_with_the_layer_in_the_buffer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 WALLS\n" + plain));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(DimTextTest, a_group_62_of_0_keeps_the_layers_colour) {
  AddLayer("WALLS", {}, 5);
  EXPECT_EQ(Listing(Colored(drawn, blue)), Draw("8 WALLS\n62 0\n" + plain));
  EXPECT_EQ(Listing(Colored(drawn, magenta)), Draw("8 WALLS\n62 200\n" + plain));
  EXPECT_EQ(Listing(drawn), Draw("8 WALLS\n62 256\n" + plain));
}

// Coordinates.

TEST_F(DimTextTest, its_points_are_moved_and_stand_in_swapped_places) {
  offsetX = 500.0;
  offsetY = -300.0;
  EXPECT_EQ(Listing(PlacedAt(drawn, 3500, -4300)), Draw(plain + "11 70\n21 80\n"));
  EXPECT_EQ(7500.0, state.entX[0]);
  EXPECT_EQ(3500.0, state.entX[1]);
  EXPECT_EQ(7700.0, state.entY[0]);
  EXPECT_EQ(5700.0, state.entY[1]);
}

TEST_F(DimTextTest, without_group_10_it_stands_at_the_second_point_of_the_entity_before) {
  state.entX[0] = 9000.0;
  state.entY[0] = 9000.0;
  state.entX[1] = 1000.0;
  state.entY[1] = 2000.0;
  EXPECT_EQ(Listing(PlacedAt(drawn, 1000, -8000)), Draw("1 AB\n40 2\n"));
}

TEST_F(DimTextTest, the_insert_neither_scales_nor_turns_it) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = 1.0;
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

// Groups 40 to 51.

TEST_F(DimTextTest, its_height_has_no_factor) {
  // 1.239 * 100 / 1 = 123.9.
  EXPECT_EQ(Listing(Sized(drawn, 123, 0)), Draw("1 AB\n" + place + "40 1.239\n"));
  state.drawScale = 2.0;
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, 100, 0), 1500, -7000)), Draw(plain));
}

TEST_F(DimTextTest, in_half_width_mode_its_height_has_the_factor) {
  UseHalfWidth();
  EXPECT_EQ(Listing(drawn), Draw(plain));
  // 123 * 1.1 = 135.3, 135 / 2.
  EXPECT_EQ(Listing(Sized(drawn, 135, 67)), Draw("1 AB\n" + place + "40 1.239\n"));
}

TEST_F(DimTextTest, group_41_is_a_factor_on_the_width_and_leaves_none_at_0) {
  EXPECT_EQ(Listing(drawn), Draw(plain + "41 3\n"));
  UseHalfWidth();
  // 110 * 1.5; 110 * 0.333 = 36.63.
  EXPECT_EQ(Listing(Sized(drawn, 220, 165)), Draw(plain + "41 1.5\n"));
  EXPECT_EQ(Listing(Sized(drawn, 220, 36)), Draw(plain + "41 0.333\n"));
  EXPECT_EQ(Listing(drawn), Draw("41 1.5\n" + plain));
}

TEST_F(DimTextTest, its_angle_counts_down_from_a_whole_turn) {
  EXPECT_EQ(Listing(Leaning(drawn, 3300)), Draw(plain + "50 30\n"));
  EXPECT_EQ(Listing(Leaning(drawn, 3600)), Draw(plain + "50 0\n"));
}

TEST_F(DimTextTest, group_51_makes_it_oblique) {
  TextCall oblique = drawn;
  oblique.italic = 1;
  EXPECT_EQ(Listing(oblique), Draw(plain + "51 15\n"));
  EXPECT_EQ(Listing(oblique), Draw(plain + "51 -3\n"));
  // A second group takes nothing back.
  EXPECT_EQ(Listing(oblique), Draw(plain + "51 15\n51 0\n"));
  EXPECT_EQ(Listing(drawn), Draw(plain + "51 0\n"));
  EXPECT_EQ(Listing(drawn), Draw(plain + "51 0.9\n"));
}

TEST_F(DimTextTest, no_alignment_but_the_fit_moves_or_stretches_it) {
  EXPECT_EQ(Listing(drawn), Draw(plain + "11 90\n21 20\n72 1\n"));
}

// The view, colour and turn.

TEST_F(DimTextTest, a_point_beyond_an_edge_drops_it) {
  for (const ViewRect& outside : {ViewRect{3001, 0, 20000, 10000}, ViewRect{0, 0, 2999, 10000},
                                  ViewRect{0, 4001, 20000, 10000}, ViewRect{0, 0, 20000, 3999}}) {
    view = outside;
    EXPECT_EQ("", Draw(plain));
  }
  view = {3000, 4000, 3000, 4000};
  EXPECT_EQ(Listing(drawn), Draw(plain));
}

TEST_F(DimTextTest, a_text_that_must_be_whole_may_reach_up_to_the_views_top) {
  wholeTextClip = 2;
  view.top = 3800;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  view.top = 3801;
  EXPECT_EQ("", Draw(plain));
}

TEST_F(DimTextTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Listing(drawn), Draw(plain + "62 1\n"));
}

TEST_F(DimTextTest, on_a_turned_sheet_font_and_point_turn) {
  state.rotated = 1;
  EXPECT_EQ(Listing(PlacedAt(Leaning(drawn, 1500), 17000, -6000)), Draw(plain + "50 30\n"));
}

// Strings.

TEST_F(DimTextTest, its_percent_codes_are_those_of_the_entities) {
  EXPECT_EQ(Listing(WithText(drawn, "10\xC2\xB0\xC2\xB0")), Draw("1 10%%dC\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn,
                             "A\xCF\x86"
                             "B")),
            Draw("1 A%%CB\n" + sized));
}

TEST_F(DimTextTest, a_stacked_fraction_is_drawn_with_what_is_left_of_its_codes) {
  // The braces go, and what is between ";" and "}" and after stays: nothing here.
  EXPECT_EQ(Listing(WithText(drawn, "AB")), Draw("1 A{\\S1^2;}B\n" + sized));
  EXPECT_EQ(Listing(WithText(drawn, "A\\\\S1^2;")), Draw("1 A\\S1^2;\n" + sized));
}

TEST_F(DimTextTest, braces_and_their_codes_fall_away) {
  EXPECT_EQ(Listing(WithText(drawn, "Red more")), Draw("1 {\\C1;Red} more\n" + sized));
}

TEST_F(DimTextTest, japanese_text_is_neither_smaller_nor_placed_otherwise) {
  const std::string listed = "\xE5\x8E\x9F";
  EXPECT_EQ(Listing(WithText(drawn, listed)), Draw("1 \x8C\xB4\n" + sized));
  UseHalfWidth();
  EXPECT_EQ(Listing(WithText(drawn, listed)), Draw("1 \x8C\xB4\n" + sized));
}

TEST_F(DimTextTest, empty_brackets_stay_closed) {
  UseHalfWidth();
  EXPECT_EQ(Listing(WithText(drawn, "\xEF\xBC\x88\xE3\x80\x80\xEF\xBC\x89")),
            Draw("1 \x81\x69\x81\x40\x81\x6A\n" + sized));
}

// Fit: the second point less the first one in X, the first less the second in Y, without the scale.

TEST_F(DimTextTest, a_fitted_text_takes_its_width_from_its_points) {
  // (4000 - 3000) / 2 = 500, 500 * 1.8 = 900.
  EXPECT_EQ(Listing(Sized(drawn, 900, 500)), Draw(plain + "72 5\n11 40\n21 60\n"));
  // (2000 - 3000) / 2.
  EXPECT_EQ(Listing(Sized(drawn, 200, -500)), Draw(plain + "72 5\n11 20\n21 60\n"));
  // (6000 - 5600) / 2 = 200, 360.
  EXPECT_EQ(Listing(Sized(drawn, 360, 200)), Draw(plain + "72 5\n11 30\n21 56\n"));
  EXPECT_EQ(Listing(Sized(drawn, 200, -200)), Draw(plain + "72 5\n11 30\n21 64\n"));
  EXPECT_EQ(Listing(drawn), Draw(plain + "72 5\n11 30\n21 60\n"));
}

TEST_F(DimTextTest, the_scale_does_not_count_for_a_fitted_width) {
  state.drawScale = 2.0;
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, 900, 500), 1500, -7000)), Draw(plain + "72 5\n11 40\n"));
  EXPECT_EQ(Listing(PlacedAt(Sized(drawn, 360, 200), 1500, -7000)), Draw(plain + "72 5\n11 30\n21 56\n"));
}

TEST_F(DimTextTest, a_fitted_character_of_two_bytes_counts_as_1) {
  EXPECT_EQ(Listing(Sized(WithText(drawn, "\xE5\x8E\x9F"), 360, 200)),
            Draw("1 \x8C\xB4\n" + sized + "72 5\n11 32\n"));
}

TEST_F(DimTextTest, a_fitted_text_without_a_character_has_no_width) {
  EXPECT_EQ(Listing(Sized(WithText(drawn, ""), 200, INT32_MIN)), Draw("1 \n" + sized + "72 5\n11 20\n"));
  EXPECT_EQ(Listing(Sized(WithText(drawn, ""), 200, INT32_MIN)),
            Draw("1 \n" + sized + "72 5\n11 30\n21 60\n"));
}

TEST_F(DimTextTest, in_half_width_mode_a_fitted_text_is_a_plain_one) {
  UseHalfWidth();
  EXPECT_EQ(Listing(drawn), Draw(plain + "72 5\n11 90\n"));
}

// Size, width and squeeze.

TEST_F(DimTextTest, a_text_without_height_and_width_is_dropped) {
  EXPECT_EQ("", Draw("1 AB\n" + place));
  EXPECT_EQ("", Draw("1 AB\n" + place + "40 0.009\n"));
}

TEST_F(DimTextTest, its_font_is_measured_only_for_a_text_that_must_be_whole) {
  for (const int32_t clip : {0, 2}) {
    wholeTextClip = clip;
    Draw(plain);
    EXPECT_EQ(0, knownMetrics.calls);
  }
  wholeTextClip = 1;
  Draw(plain);
  EXPECT_EQ(1, knownMetrics.calls);
}

TEST_F(DimTextTest, no_descent_moves_it) {
  wholeTextClip = 1;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  EXPECT_EQ(6000.0, state.entY[1]);
}

TEST_F(DimTextTest, one_that_proves_too_wide_leaves_its_font) {
  knownMetrics.aveCharWidth = 100;
  wholeTextClip = 1;
  view.right = 3200;
  EXPECT_EQ(Listing(drawn), Draw(plain));
  view.right = 3199;
  EXPECT_EQ(FontListing(drawn), Draw(plain));
  EXPECT_EQ(1u, state.leftFonts.size());
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimTextTest, very_small_text_is_not_squeezed) {
  ListCalls([this](Canvas canvas) {
    stream = StreamOf("0 TEXT\n1 AB\n" + place + "40 0.05\n");
    ReadGroup(stream);
    DrawOn(canvas);
    EXPECT_EQ(0, SetTextCharacterExtra(canvas, 0));
  });
}

TEST_F(DimTextTest, numbers_beyond_all_bounds_do_not_stop_it) {
  for (const char* number : {"1e300", "-1e300", "2147483647", "-2147483648"}) {
    for (const char* group : {"10 ", "20 ", "40 ", "41 ", "50 "}) {
      Draw(plain + "72 5\n" + group + number + "\n");
      EXPECT_EQ(1, result);
    }
  }
}

}  // namespace
}  // namespace hexlume::dim_text_test
