// A paragraph with a fraction, drawn in pieces.

#include "text/stacked_fraction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "driver/bounded_copy.h"
#include "support/converter_test.h"
#include "support/known_metrics.h"
#include "support/metafile_canvas.h"
#include "support/mtext_calls.h"

namespace hexlume::stacked_fraction_test {
namespace {

const char gothic[] = "\uFF2D\uFF33 \u30B4\u30B7\u30C3\u30AF";

struct Size {
  int32_t height, width;
};

// Lines from (2000, 5000) on, on the sheet from (2000, -5000), in characters of 500 by 1000. Without a code
// for it the parts are as large. The upper part is 0.5 * 1000 above the baseline.
class StackedFractionTest : public ConverterTest {
 protected:
  StackedFractionTest() {
    knownMetrics = {};
    // Cuts become roundings: what is worked out through angles falls next to a whole number.
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }

  std::string Draw(const std::string& text) {
    BoundedCopy(state.entText, text.c_str());
    return ListCalls([this](Canvas canvas) {
      DrawStackedFraction(canvas, height, width, escapement, attach, angle, 2000.0, 5000.0, halfWidthFont);
    });
  }

  std::string Piece(int32_t x, int32_t y, const std::string& text, const Size& size = {1000, 500}) const {
    const TextFont font = {size.height, size.width, escapement, 0, 0, halfWidthFont != 0 ? "" : gothic};
    return SelectCalls(font) + ColorCall("0x000000") + AlignCall(8) + "SetBkMode(TRANSPARENT)\n" +
           TextOutCall(x, y, text) + restoreCalls;
  }

  // Where the line starts: the place of its first piece, which is "5".
  bool StartsAt(int32_t x, int32_t y, const std::string& text) {
    return Draw(text).find(TextOutCall(x, y, "5")) != std::string::npos;
  }

  int32_t height = 1000;
  int32_t width = 500;
  int32_t escapement = 3600;
  int32_t attach = 0;
  double angle = 0.0;
};

// The pieces.

TEST_F(StackedFractionTest, a_fraction_alone_stands_on_its_anchor) {
  // Nothing in front: the upper part is straight above, the lower one on the anchor. The empty text after it is
  // drawn, too.
  EXPECT_EQ(
      Piece(2000, -5000, "") + Piece(2000, -4500, "1") + Piece(2000, -5000, "2") + Piece(2500, -5000, ""),
      Draw("\\S1^ 2;"));
}

// In front is 1 * 500. The lower part is 1000 - 500 too high: at 500 along 45 degrees down, 353.55 each way.
// After is 1 * 500 more.
TEST_F(StackedFractionTest, a_fraction_stands_between_the_texts_around_it) {
  EXPECT_EQ(
      Piece(2000, -5000, "5") + Piece(2500, -4500, "1") + Piece(2354, -5354, "2") + Piece(3000, -5000, "mm"),
      Draw("5\\S1^ 2;mm"));
  EXPECT_STREQ("mm", state.entText);
}

TEST_F(StackedFractionTest, the_half_width_option_tells_the_face) {
  halfWidthFont = 1;
  EXPECT_EQ(
      Piece(2000, -5000, "5") + Piece(2500, -4500, "1") + Piece(2354, -5354, "2") + Piece(3000, -5000, "mm"),
      Draw("5\\S1^ 2;mm"));
}

TEST_F(StackedFractionTest, it_is_drawn_in_the_entitys_colour) {
  state.entColor = 1;
  const std::string calls = Draw("5\\S1^ 2;mm");
  EXPECT_NE(std::string::npos, calls.find(ColorCall("0x0000FF")));
  EXPECT_EQ(std::string::npos, calls.find(ColorCall("0x000000")));
}

TEST_F(StackedFractionTest, the_byte_behind_the_caret_goes_whatever_it_is) {
  EXPECT_EQ(
      Piece(2000, -5000, "") + Piece(2000, -4500, "1") + Piece(2000, -5000, "3") + Piece(2500, -5000, ""),
      Draw("\\S1^23;"));
  EXPECT_EQ(
      Piece(2000, -5000, "") + Piece(2000, -4500, "1") + Piece(2000, -5000, "") + Piece(2500, -5000, ""),
      Draw("\\S1^;"));
}

TEST_F(StackedFractionTest, only_the_caret_separates_the_parts) {
  EXPECT_EQ(
      Piece(2000, -5000, "") + Piece(2000, -4500, "1/2") + Piece(2000, -5000, "") + Piece(3500, -5000, "mm"),
      Draw("\\S1/2;mm"));
  EXPECT_EQ(
      Piece(2000, -5000, "") + Piece(2000, -4500, "1#2") + Piece(2000, -5000, "") + Piece(3500, -5000, "mm"),
      Draw("\\S1#2;mm"));
}

TEST_F(StackedFractionTest, a_fraction_without_an_end_has_the_text_in_front_of_it_behind_it_too) {
  EXPECT_EQ(
      Piece(2000, -5000, "5") + Piece(2500, -4500, "1") + Piece(2354, -5354, "2") + Piece(3000, -5000, "5"),
      Draw("5\\S1^ 2"));
}

TEST_F(StackedFractionTest, a_second_fraction_is_drawn_as_text) {
  EXPECT_EQ(Piece(2000, -5000, "5") + Piece(2500, -4500, "1") + Piece(2354, -5354, "2") +
                Piece(3000, -5000, "a\\\\S3^ 4;"),
            Draw("5\\S1^ 2;a\\S3^ 4;"));
}

TEST_F(StackedFractionTest, the_codes_around_the_fraction_go) {
  EXPECT_EQ(
      Piece(2000, -5000, "5") + Piece(2500, -4500, "1") + Piece(2354, -5354, "2") + Piece(3000, -5000, "mm"),
      Draw("\\A1;5{\\C1;\\S1^ 2;}mm"));
}

TEST_F(StackedFractionTest, behind_the_fraction_the_longer_part_counts) {
  EXPECT_EQ(
      Piece(2000, -5000, "") + Piece(2000, -4500, "1") + Piece(2000, -5000, "234") + Piece(3500, -5000, "m"),
      Draw("\\S1^ 234;m"));
  EXPECT_EQ(
      Piece(2000, -5000, "") + Piece(2000, -4500, "123") + Piece(2000, -5000, "4") + Piece(3500, -5000, "m"),
      Draw("\\S123^ 4;m"));
}

// The size of the parts.

TEST_F(StackedFractionTest, a_height_of_its_own_makes_the_parts_half_as_wide_as_high) {
  // 400 by 200: 500 - 400 is above the baseline, so that the lower part is on it. After is 1 * 200.
  const Size part = {400, 200};
  EXPECT_EQ(Piece(2000, -5000, "5") + Piece(2500, -4500, "1", part) + Piece(2500, -5000, "2", part) +
                Piece(2700, -5000, "mm"),
            Draw("5{\\H4;\\S1^ 2;}mm"));
}

TEST_F(StackedFractionTest, parts_half_as_high_as_the_text_stand_on_the_baseline) {
  const Size part = {500, 250};
  EXPECT_EQ(Piece(2000, -5000, "5") + Piece(2500, -4500, "1", part) + Piece(2500, -5000, "2", part) +
                Piece(2750, -5000, "mm"),
            Draw("5{\\H5;\\S1^ 2;}mm"));
}

TEST_F(StackedFractionTest, half_width_cells_are_a_tenth_higher) {
  halfWidthFont = 1;
  // 5.55 * 100 * 1.1 = 610.5; 610 / 2 = 305. 500 - 610 = -110: atan(110 / 500) = 12.407 degrees down, where
  // 500 is (488.32, 107.43).
  const Size part = {610, 305};
  EXPECT_EQ(Piece(2000, -5000, "5") + Piece(2500, -4500, "1", part) + Piece(2488, -5107, "2", part) +
                Piece(2805, -5000, "mm"),
            Draw("5{\\H5.55;\\S1^ 2;}mm"));
}

TEST_F(StackedFractionTest, a_relative_height_is_a_factor_on_both_sizes) {
  // 0.305 * 1000 and 0.305 * 500 = 152.5. The eight bytes in front stay: 8 * 500.
  const Size part = {305, 152};
  EXPECT_EQ(Piece(2000, -5000, "5\\\\H.305x{") + Piece(6500, -4500, "1", part) +
                Piece(6500, -5000, "2", part) + Piece(6652, -5000, "mm"),
            Draw("5\\H.305x{\\S1^ 2;mm"));
}

TEST_F(StackedFractionTest, without_a_width_the_font_is_measured) {
  width = 0;
  knownMetrics.aveCharWidth = 400;
  // 400 along, and then 400 more. The lower part: acos(400 / sqrt(400 * 400 + 500 * 500)) = 51.34 degrees
  // down, where 400 is (249.88, 312.35).
  const Size around = {1000, 400};
  EXPECT_EQ(MeasureCalls({1000, 0}) + Piece(2000, -5000, "5", around) + Piece(2400, -4500, "1", around) +
                Piece(2250, -5312, "2", around) + Piece(2800, -5000, "mm", around),
            Draw("5\\S1^ 2;mm"));
}

TEST_F(StackedFractionTest, a_font_that_measures_nothing_is_half_as_wide_as_high) {
  width = 0;
  height = 1003;
  state.shiftX = 0.6;
  state.shiftY = -0.3;
  // 1003 / 2 = 501 in front, and a rise of 501.5. The lower part is at its full distance: (501, -501.5).
  // After is 501.5.
  const Size around = {1003, 0};
  EXPECT_EQ(MeasureCalls({1003, 0}) + Piece(2000, -5000, "5", around) + Piece(2501, -4498, "1", around) +
                Piece(2501, -5501, "2", around) + Piece(2502, -5000, "mm", around),
            Draw("5\\S1^ 2;mm"));
}

// Brackets and signs.

// In front is (2 + 1) * 500, and 1 more for the one byte after. The lower part: acos(1501 / 1582.09) = 18.42
// degrees down, where 1501 is (1424.07, 474.37). After: 500 + 1500 + 1 + 500 / 2.
TEST_F(StackedFractionTest, brackets_lift_the_parts_by_the_bytes_behind) {
  EXPECT_EQ(
      Piece(2000, -5000, "(5") + Piece(3501, -4500, "1") + Piece(3424, -5474, "2") + Piece(4251, -5000, ")"),
      Draw("(5\\S1^ 2;)"));
}

// In front is 1500 + 500 / 2 = 1750. The lower part: 1750 * 1750 / 1820.03 and 1750 * 500 / 1820.03. After:
// 500 + 1500 + 250 + 250.
TEST_F(StackedFractionTest, brackets_lift_half_width_parts_by_half_their_width) {
  halfWidthFont = 1;
  EXPECT_EQ(
      Piece(2000, -5000, "(5") + Piece(3750, -4500, "1") + Piece(3683, -5481, "2") + Piece(4500, -5000, ")"),
      Draw("(5\\S1^ 2;)"));
}

// 1500 and 2 for the two bytes after; 500 + 1500 + 2. The lower part: 1502 * 1502 / 1583.04 = 1425.12 and
// 1502 * 500 / 1583.04 = 474.40.
TEST_F(StackedFractionTest, a_closing_bracket_further_behind_moves_nothing) {
  EXPECT_EQ(
      Piece(2000, -5000, "(5") + Piece(3502, -4500, "1") + Piece(3425, -5474, "2") + Piece(4002, -5000, "m)"),
      Draw("(5\\S1^ 2;m)"));
}

TEST_F(StackedFractionTest, a_closing_bracket_right_behind_moves_half_a_parts_width_further) {
  EXPECT_EQ(
      Piece(2000, -5000, "5") + Piece(2500, -4500, "1") + Piece(2354, -5354, "2") + Piece(3250, -5000, ")mm"),
      Draw("5\\S1^ 2;)mm"));
}

TEST_F(StackedFractionTest, half_width_parts_with_a_sign_are_set_off_by_a_blank) {
  halfWidthFont = 1;
  // After is 3 * 500.
  EXPECT_EQ(Piece(2000, -5000, "") + Piece(2000, -4500, " +1") + Piece(2000, -5000, " -2") +
                Piece(3500, -5000, "mm"),
            Draw("\\S+1^ -2;mm"));
  EXPECT_EQ(
      Piece(2000, -5000, "") + Piece(2000, -4500, "0") + Piece(2000, -5000, " -2") + Piece(3500, -5000, "mm"),
      Draw("\\S0^ -2;mm"));
}

TEST_F(StackedFractionTest, parts_with_a_sign_stay_in_brackets_and_in_full_width) {
  EXPECT_NE(std::string::npos, Draw("\\S+1^ -2;mm").find(TextOutCall(2000, -4500, "+1")));
  halfWidthFont = 1;
  EXPECT_NE(std::string::npos, Draw("(\\S+1^ -2;)").find("\"+1\""));
}

// Direction and scale.

TEST_F(StackedFractionTest, the_line_goes_by_whole_degrees) {
  escapement = 2705;
  // 89 degrees and a half are 89. The upper part: 707.11 along 134 degrees, (-491.20, 508.65). The lower one:
  // 500 along 44 degrees, (359.67, 347.33). The text after: 1000 along 89 degrees, (17.45, 999.85).
  EXPECT_EQ(
      Piece(2000, -5000, "5") + Piece(1509, -4491, "1") + Piece(2360, -4653, "2") + Piece(2017, -4000, "mm"),
      Draw("5\\S1^ 2;mm"));
}

TEST_F(StackedFractionTest, all_distances_are_the_models) {
  state.drawScale = 2.0;
  // Twice as long in the model, and as long on the sheet, from (1000, -7500) on.
  EXPECT_EQ(
      Piece(1000, -7500, "5") + Piece(1500, -7000, "1") + Piece(1354, -7854, "2") + Piece(2000, -7500, "mm"),
      Draw("5\\S1^ 2;mm"));
}

TEST_F(StackedFractionTest, a_lift_by_bytes_does_not_follow_the_scale) {
  state.drawScale = 2.0;
  // (2000 + 3000 + 1) / 2 = 2500.5, which the half of the shift makes 2501; half a part in the model is 500:
  // 2000
  // + 3000 + 1 + 500 + 1000 = 6501, half of it 3250.5.
  const std::string calls = Draw("(5\\S1^ 2;)");
  EXPECT_NE(std::string::npos, calls.find(TextOutCall(2501, -7000, "1")));
  EXPECT_NE(std::string::npos, calls.find(TextOutCall(3251, -7500, ")")));
}

TEST_F(StackedFractionTest, a_turned_sheet_does_not_move_it) {
  state.rotated = 1;
  EXPECT_EQ(
      Piece(2000, -5000, "5") + Piece(2500, -4500, "1") + Piece(2354, -5354, "2") + Piece(3000, -5000, "mm"),
      Draw("5\\S1^ 2;mm"));
}

// The estimated width, seen where attachment 9 moves the line by half of it.

TEST_F(StackedFractionTest, the_width_leaves_the_lower_part_out_and_takes_the_text_behind_for_small) {
  attach = 9;
  // 500 + 1 * 200 + 2 * 200 = 1100, whatever the lower part.
  EXPECT_TRUE(StartsAt(1450, -5000, "5{\\H4;\\S1^ 2;}mm"));
  EXPECT_TRUE(StartsAt(1450, -5000, "5{\\H4;\\S1^ 234;}mm"));
}

TEST_F(StackedFractionTest, the_width_of_brackets_has_all_pieces) {
  attach = 9;
  // (2 + 1) * 500 + 1 * 500 + (2 * 500 + (1 + 1) * 500) = 4000.
  EXPECT_NE(std::string::npos, Draw("(5\\S1^ 23;)").find(TextOutCall(0, -5000, "(5")));
}

TEST_F(StackedFractionTest, the_width_counts_a_closing_bracket_twice) {
  attach = 9;
  // 500 + 500 + (1 + 1) * 500 = 2000.
  EXPECT_TRUE(StartsAt(1000, -5000, "5\\S1^ 2;)"));
}

TEST_F(StackedFractionTest, the_width_is_reckoned_before_signs_are_set_off) {
  attach = 9;
  halfWidthFont = 1;
  // 500 + 2 * 500 + 2 * 500 = 2500.
  EXPECT_TRUE(StartsAt(750, -5000, "5\\S+1^ -2;mm"));
}

TEST_F(StackedFractionTest, the_width_is_the_models) {
  attach = 9;
  state.drawScale = 2.0;
  // 2 * (500 + 500 + 1000) = 4000, half of it off 2000.
  EXPECT_TRUE(StartsAt(0, -7500, "5\\S1^ 2;mm"));
}

TEST_F(StackedFractionTest, the_width_of_a_part_is_never_negative) {
  attach = 9;
  width = -100;
  // 2^32 - 100 for the one byte: 2000 - 2147483598. After it no sheet reaches.
  const std::string calls = Draw("\\S1^ 2;");
  EXPECT_NE(std::string::npos, calls.find(TextOutCall(-2147481597, -5000, "")));
  EXPECT_NE(std::string::npos, calls.find(TextOutCall(INT32_MIN, -5000, "")));
}

// The anchor.

TEST_F(StackedFractionTest, only_attachments_1_5_and_9_move_the_line) {
  // 500 + 500 + 1000 = 2000 wide.
  const POINT starts[] = {{2000, -5000}, {2000, -6000}, {2000, -5000}, {2000, -5000},
                          {2000, -5000}, {1000, -5500}, {2000, -5000}, {2000, -5000},
                          {2000, -5000}, {1000, -5000}, {2000, -5000}};
  for (attach = 0; attach <= 10; ++attach)
    EXPECT_TRUE(StartsAt(starts[attach].x, starts[attach].y, "5\\S1^ 2;mm")) << attach;
}

TEST_F(StackedFractionTest, attachment_1_moves_down_by_the_height_in_the_model) {
  state.drawScale = 2.0;
  double x = 10.0, y = 20.0;
  AnchorStackPart(30, 1, 1000.0, 1.0, x, y);
  EXPECT_EQ(10.0, x);
  EXPECT_EQ(-40.0, y);
}

TEST_F(StackedFractionTest, attachment_5_moves_back_and_down_along_the_angle) {
  state.drawScale = 2.0;
  double x = 10.0, y = 20.0;
  // (-500, -30), turned by a sine of 0.6 and a cosine of 0.8: (-400 + 18, -300 - 24).
  AnchorStackPart(30, 5, 1000.0, std::atan(0.75), x, y);
  EXPECT_NEAR(-372.0, x, 1e-9);
  EXPECT_NEAR(-304.0, y, 1e-9);
}

TEST_F(StackedFractionTest, attachment_9_moves_back_whatever_the_angle) {
  double x = 10.0, y = 20.0;
  AnchorStackPart(30, 9, 1000.0, 1.0, x, y);
  EXPECT_EQ(-490.0, x);
  EXPECT_EQ(20.0, y);
}

// The height of the parts.

class StackHeightTest : public ConverterTest {
 protected:
  static double HeightOf(const std::string& text) {
    BoundedCopy(state.entText, text.c_str());
    return ParseStackHeight();
  }
};

TEST_F(StackHeightTest, without_a_code_it_is_the_texts_own) {
  EXPECT_EQ(-1.0, HeightOf(""));
  EXPECT_EQ(-1.0, HeightOf("5h2;"));
}

TEST_F(StackHeightTest, a_height_is_scaled_to_the_sheet) {
  EXPECT_EQ(250.0, HeightOf("5{\\H2.5;"));
  state.drawScale = 2.0;
  EXPECT_EQ(125.0, HeightOf("5{\\H2.5;"));
}

TEST_F(StackHeightTest, a_relative_height_in_front_of_a_semicolon_counts_as_a_height) {
  EXPECT_EQ(75.0, HeightOf("{\\H0.75x;"));
}

TEST_F(StackHeightTest, the_last_code_counts) {
  EXPECT_EQ(300.0, HeightOf("\\H2;\\H3;"));
  EXPECT_EQ(-1.0, HeightOf("\\H2;\\H3"));
}

TEST_F(StackHeightTest, in_front_of_a_brace_a_factor_is_negative_and_a_height_scaled) {
  EXPECT_EQ(-0.75, HeightOf("\\H0.75x{\\C1"));
  EXPECT_EQ(200.0, HeightOf("\\H2{\\C1"));
  state.drawScale = 2.0;
  EXPECT_EQ(-0.75, HeightOf("\\H0.75x{"));
  EXPECT_EQ(100.0, HeightOf("\\H2{"));
}

TEST_F(StackHeightTest, a_semicolon_comes_before_a_brace) {
  EXPECT_EQ(75.0, HeightOf("\\H0.75x{\\C1;"));
}

TEST_F(StackHeightTest, a_code_with_neither_is_none) {
  EXPECT_EQ(-1.0, HeightOf("\\H2"));
  EXPECT_EQ(-1.0, HeightOf("\\H"));
}

TEST_F(StackHeightTest, a_code_without_a_number_is_0) {
  EXPECT_EQ(0.0, HeightOf("\\H;"));
  EXPECT_EQ(0.0, HeightOf("\\H{"));
}

// Bad input.

TEST_F(StackedFractionTest, a_text_that_fills_its_buffer_fits) {
  halfWidthFont = 1;
  std::string part = "-" + std::string(251, '1');
  EXPECT_NE(std::string::npos, Draw("\\S" + part + ";").find("\" " + part + "\""));
  part.resize(250);
  EXPECT_NE(std::string::npos, Draw("\\S^ " + part + ";").find("\" " + part + "\""));
}

TEST_F(StackedFractionTest, a_fraction_of_nothing_is_drawn) {
  EXPECT_EQ(Piece(2000, -5000, "") + Piece(2000, -4500, "") + Piece(2000, -5000, "") + Piece(2000, -5000, ""),
            Draw("\\S"));
}

TEST_F(StackedFractionTest, without_any_size_the_parts_have_no_place) {
  height = 0;
  // 0 / 0 is no angle.
  EXPECT_NE(std::string::npos, Draw("\\S1^ 2;").find(TextOutCall(INT32_MIN, INT32_MIN, "1")));
}

TEST_F(StackedFractionTest, absurd_sizes_do_no_harm) {
  attach = 5;
  for (const int32_t size : {INT32_MIN, -1, 0, INT32_MAX}) {
    for (const double scale : {0.0, -1.0, 1e300, std::numeric_limits<double>::infinity()}) {
      height = size;
      width = size;
      escapement = size;
      angle = scale;
      state.drawScale = scale;
      halfWidthFont = 1;
      Draw("(5{\\H1e300;\\S-1^ 2;)}mm");
      Draw("(5{\\H-1e300;\\S-1^ 2;)}mm");
      halfWidthFont = 0;
      Draw("5\\S1^ 2;)");
    }
  }
}

}  // namespace
}  // namespace hexlume::stacked_fraction_test
