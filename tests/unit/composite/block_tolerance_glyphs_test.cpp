// The symbols of tolerances in a block.

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "composite/tolerance_glyphs.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/tolerance_calls.h"

namespace hexlume::block_tolerance_glyphs_test {
namespace {

class BlockToleranceGlyphsTest : public ConverterTest {
 protected:
  BlockToleranceGlyphsTest() {
    state.blockColor = 1;
    state.blockX[0] = 5000.0;
    state.blockY[0] = 3000.0;
    // Half a unit away from zero, so that the last digit of a product decides nothing.
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }

  std::string Draw(char symbol, double height = 1000.0) {
    return ListCalls([&](Canvas canvas) { width = DrawBlockToleranceGlyphs(canvas, symbol, height); });
  }

  double width = -1.0;
};

bool HasLetter(char symbol) {
  return symbol == 'l' || symbol == 'm' || symbol == 'p' || symbol == 's';
}

// Strokes in a font of their own, within the pen.
std::string InFont(int height, const std::string& calls) {
  return ToleranceFont(height, 2) + calls + "SelectObject(SYSTEM_FONT)\nDeleteObject(2)\n";
}

class EachBlockToleranceGlyphTest : public BlockToleranceGlyphsTest,
                                    public testing::WithParamInterface<SymbolCase> {};

TEST_P(EachBlockToleranceGlyphTest, it_is_drawn_in_one_pen_and_its_letter_in_a_font) {
  const std::string calls = GetParam().calls;
  // 1000 * 0.7.
  EXPECT_EQ(InPen(red, HasLetter(GetParam().symbol) ? InFont(700, calls) : calls), Draw(GetParam().symbol));
  EXPECT_DOUBLE_EQ(GetParam().width * 1000.0, width);
}

INSTANTIATE_TEST_SUITE_P(AllSymbols, EachBlockToleranceGlyphTest, testing::ValuesIn(symbolCases),
                         [](const testing::TestParamInfo<SymbolCase>& info) { return NameOf(info.param); });

TEST_F(BlockToleranceGlyphsTest, q_advances_by_the_height_and_draws_nothing) {
  EXPECT_EQ(InPen(red, ""), Draw('q', 350.0));
  EXPECT_EQ(350.0, width);
}

TEST_F(BlockToleranceGlyphsTest, a_letter_without_a_symbol_draws_nothing_and_is_0_wide) {
  for (const char symbol : {'A', 'L', 'M', '`', '{', '\0', '\xFF'}) {
    EXPECT_EQ(InPen(red, ""), Draw(symbol)) << symbol;
    EXPECT_EQ(0.0, width) << symbol;
  }
}

TEST_F(BlockToleranceGlyphsTest, its_colour_is_that_of_block_color) {
  state.blockColor = 4;
  state.entColor = 3;
  EXPECT_EQ(InPen(cyan, "MoveToEx(5200, -6500)\nLineTo(6300, -6500)\n"), Draw('u'));
}

TEST_F(BlockToleranceGlyphsTest, it_stands_at_block_x_and_block_y_and_leaves_them) {
  state.blockX[0] = 2000.0;
  state.blockY[0] = 100.0;
  state.entX[0] = 1.0;
  state.entY[0] = 2.0;
  EXPECT_EQ(InPen(red, "MoveToEx(2200, -9400)\nLineTo(3300, -9400)\n"), Draw('u'));
  EXPECT_EQ(2000.0, state.blockX[0]);
  EXPECT_EQ(100.0, state.blockY[0]);
}

TEST_F(BlockToleranceGlyphsTest, neither_the_inserts_scale_nor_its_angle_counts) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = halfPi;
  EXPECT_EQ(InPen(red, "MoveToEx(5200, -6500)\nLineTo(6300, -6500)\n"), Draw('u'));
  EXPECT_EQ(InPen(red, "MoveToEx(6050, -6500)\nAngleArc(5625, -6500, 425, 0, 360)\n"), Draw('e'));
}

TEST_F(BlockToleranceGlyphsTest, some_radii_are_rounded_and_others_cut) {
  // 0.3 * 1006 = 301.8, about 5000 + 0.5 * 1006 for n and 5000 + 0.75 * 1006 for g, and -7000 + 503.
  EXPECT_NE(std::string::npos, Draw('n', 1006.0).find("AngleArc(5503, -6497, 302, 0, 360)\n"));
  EXPECT_NE(std::string::npos, Draw('g', 1006.0).find("AngleArc(5755, -6497, 301, 0, 360)\n"));
}

TEST_F(BlockToleranceGlyphsTest, the_height_of_its_letters_font_is_cut) {
  // 999 * 0.7 = 699.3; the circle's radius is 424.575 + 0.5, about 5624.375 and -6500.5, and the letter
  // is at 5449.55, -7000 + 149.85; all but the radius half a unit further out by the shift.
  EXPECT_EQ(InPen(red, InFont(699,
                              "MoveToEx(6049, -6501)\nAngleArc(5624, -6501, 425, 0, 360)\nSetTextAlign(8)\n"
                              "ExtTextOutW(5450, -6850, 0, \"S\")\n")),
            Draw('s', 999.0));
}

TEST_F(BlockToleranceGlyphsTest, the_drawings_scale_places_its_strokes_and_leaves_its_radius_and_its_font) {
  state.drawScale = 2.0;
  // X: (5000 + 1050) / 2, 5625 / 2 + 0.5 = 2813, 5450 / 2. Y: 3500 / 2 - 10000, 3150 / 2 - 10000 = -8425.
  EXPECT_EQ(InPen(red, InFont(700,
                              "MoveToEx(3025, -8250)\nAngleArc(2813, -8250, 425, 0, 360)\nSetTextAlign(8)\n"
                              "ExtTextOutW(2725, -8425, 0, \"P\")\n")),
            Draw('p'));
  EXPECT_EQ(1250.0, width);
}

TEST_F(BlockToleranceGlyphsTest, it_does_not_turn_on_a_turned_sheet) {
  state.rotated = 1;
  EXPECT_EQ(InPen(red, "MoveToEx(5200, -6500)\nLineTo(6300, -6500)\n"), Draw('u'));
}

TEST_F(BlockToleranceGlyphsTest, a_height_beyond_the_sheets_numbers_gives_the_lowest_one) {
  // The radius is that number's bits: 2^31.
  const std::string letter =
      InFont(INT32_MIN,
             "MoveToEx(-2147483648, -2147483648)\nAngleArc(-2147483648, -2147483648, 2147483648, 0, 360)\n"
             "SetTextAlign(8)\nExtTextOutW(-2147483648, -2147483648, 0, \"L\")\n");
  EXPECT_EQ(InPen(red, letter), Draw('l', std::numeric_limits<double>::infinity()));
  EXPECT_EQ(InPen(red, letter), Draw('l', std::numeric_limits<double>::quiet_NaN()));
}

}  // namespace
}  // namespace hexlume::block_tolerance_glyphs_test
