// The symbols of tolerances in the ENTITIES section.

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "composite/tolerance_glyphs.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/tolerance_calls.h"

namespace hexlume::tolerance_glyphs_test {
namespace {

class ToleranceGlyphsTest : public ConverterTest {
 protected:
  ToleranceGlyphsTest() {
    state.entColor = 1;
    state.entX[0] = 5000.0;
    state.entY[0] = 3000.0;
    // Half a unit away from zero, so that the last digit of a product decides nothing.
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }

  std::string Draw(char symbol, double height = 1000.0) {
    return ListCalls([&](Canvas canvas) { width = DrawToleranceGlyphs(canvas, symbol, height); });
  }

  double width = -1.0;
};

class EachToleranceGlyphTest : public ToleranceGlyphsTest, public testing::WithParamInterface<SymbolCase> {};

TEST_P(EachToleranceGlyphTest, it_is_drawn_in_one_pen_and_tells_its_width) {
  EXPECT_EQ(InPen(red, GetParam().calls), Draw(GetParam().symbol));
  EXPECT_DOUBLE_EQ(GetParam().width * 1000.0, width);
}

INSTANTIATE_TEST_SUITE_P(AllSymbols, EachToleranceGlyphTest, testing::ValuesIn(symbolCases),
                         [](const testing::TestParamInfo<SymbolCase>& info) { return NameOf(info.param); });

TEST_F(ToleranceGlyphsTest, q_advances_by_the_height_and_draws_nothing) {
  EXPECT_EQ(InPen(red, ""), Draw('q', 350.0));
  EXPECT_EQ(350.0, width);
}

TEST_F(ToleranceGlyphsTest, a_letter_without_a_symbol_draws_nothing_and_is_0_wide) {
  for (const char symbol : {'A', 'J', 'Z', '`', '{', '0', '\0', '\x81', '\xFF'}) {
    EXPECT_EQ(InPen(red, ""), Draw(symbol)) << symbol;
    EXPECT_EQ(0.0, width) << symbol;
  }
}

TEST_F(ToleranceGlyphsTest, its_colour_is_that_of_ent_color) {
  state.entColor = 4;
  state.blockColor = 3;
  EXPECT_EQ(InPen(cyan, "MoveToEx(5200, -6500)\nLineTo(6300, -6500)\n"), Draw('u'));
  state.entColor = -1;
  EXPECT_EQ(InPen(countColor, ""), Draw('q'));
}

TEST_F(ToleranceGlyphsTest, it_stands_at_ent_x_and_ent_y_and_leaves_them) {
  state.entX[0] = 2000.0;
  state.entY[0] = 100.0;
  state.blockX[0] = 1.0;
  state.blockY[0] = 2.0;
  EXPECT_EQ(InPen(red, "MoveToEx(2200, -9400)\nLineTo(3300, -9400)\n"), Draw('u'));
  EXPECT_EQ(2000.0, state.entX[0]);
  EXPECT_EQ(100.0, state.entY[0]);
}

// Radii.

TEST_F(ToleranceGlyphsTest, some_radii_are_rounded) {
  // 0.425 * 1006 = 427.55 and 0.3 * 1006 = 301.8; about 5000 + 0.625 * 1006 = 5628.75 (5500 + 1.8 for n) and
  // -7000 + 503.
  EXPECT_EQ(InPen(red, "MoveToEx(6056, -6497)\nAngleArc(5629, -6497, 428, 0, 360)\n"), Draw('e', 1006.0));
  EXPECT_NE(std::string::npos, Draw('l', 1006.0).find("AngleArc(5629, -6497, 428, 0, 360)\n"));
  EXPECT_NE(std::string::npos, Draw('m', 1006.0).find("AngleArc(5629, -6497, 428, 0, 360)\n"));
  EXPECT_NE(std::string::npos, Draw('n', 1006.0).find("AngleArc(5503, -6497, 302, 0, 360)\n"));
  EXPECT_NE(std::string::npos, Draw('p', 1006.0).find("AngleArc(5629, -6497, 428, 0, 360)\n"));
  EXPECT_NE(std::string::npos, Draw('s', 1006.0).find("AngleArc(5629, -6497, 428, 0, 360)\n"));
}

TEST_F(ToleranceGlyphsTest, both_radii_of_concentricity_are_rounded) {
  // 0.425 * 1007 = 427.975 and 0.225 * 1007 = 226.575; about 5629.375 and -7000 + 503.5, with half a unit of
  // shift -6497.
  const std::string calls = Draw('r', 1007.0);
  EXPECT_NE(std::string::npos, calls.find("AngleArc(5629, -6497, 428, 0, 360)\n")) << calls;
  EXPECT_NE(std::string::npos, calls.find("AngleArc(5629, -6497, 227, 0, 360)\n")) << calls;
}

TEST_F(ToleranceGlyphsTest, other_radii_are_cut) {
  // 0.3 * 1006 = 301.8, about 5000 + 0.75 * 1006; 0.325 * 1006 = 326.95.
  EXPECT_NE(std::string::npos, Draw('g', 1006.0).find("AngleArc(5755, -6497, 301, 0, 360)\n"));
  EXPECT_NE(std::string::npos, Draw('j', 1006.0).find("AngleArc(5629, -6497, 326, 0, 360)\n"));
  // 0.55 * 1007 = 553.85, about 5000 + 755.25, and -7000 + 201.4.
  EXPECT_NE(std::string::npos, Draw('d', 1007.0).find("AngleArc(5755, -6799, 553, 0, -180)\n"));
  EXPECT_NE(std::string::npos, Draw('k', 1007.0).find("AngleArc(5755, -6799, 553, 0, -180)\n"));
}

TEST_F(ToleranceGlyphsTest, the_drawings_scale_places_its_strokes_and_leaves_its_radius) {
  state.drawScale = 2.0;
  // X: (5000 + 1050) / 2, (5000 + 625) / 2 = 2812.5, with the shift 2813. Y: (3000 + 500) / 2 - 10000.
  EXPECT_EQ(InPen(red, "MoveToEx(3025, -8250)\nAngleArc(2813, -8250, 425, 0, 360)\n"), Draw('e'));
  EXPECT_EQ(1250.0, width);
}

TEST_F(ToleranceGlyphsTest, the_drawings_origin_and_shift_count) {
  state.originX = 1000.0;
  state.originY = -500.0;
  state.shiftX = 20.5;
  state.shiftY = -30.5;
  // 5200 - 1000 + 20 and 3500 + 500 - 10000 - 30.
  EXPECT_EQ(InPen(red, "MoveToEx(4220, -6030)\nLineTo(5320, -6030)\n"), Draw('u'));
}

TEST_F(ToleranceGlyphsTest, it_does_not_turn_on_a_turned_sheet) {
  state.rotated = 1;
  EXPECT_EQ(InPen(red, "MoveToEx(5200, -6500)\nLineTo(6300, -6500)\n"), Draw('u'));
}

TEST_F(ToleranceGlyphsTest, a_letter_in_its_circle_takes_the_font_that_stands_selected) {
  const std::string calls = ListCalls([](Canvas canvas) {
    const HFONT font = CreateToleranceFont(90);
    SelectObject(canvas, font);
    DrawToleranceGlyphs(canvas, 'm', 1000.0);
    SelectObject(canvas, GetStockObject(SYSTEM_FONT));
    DeleteObject(font);
  });
  EXPECT_EQ(ToleranceFont(90, 1) +
                "CreatePen(2, PS_SOLID, 0, 0x0000FF)\nSelectObject(2)\nMoveToEx(6050, -6500)\n"
                "AngleArc(5625, -6500, 425, 0, 360)\nSetTextAlign(8)\nExtTextOutW(5450, -6850, 0, \"M\")\n"
                "SelectObject(BLACK_PEN)\nDeleteObject(2)\nSelectObject(SYSTEM_FONT)\nDeleteObject(1)\n",
            calls);
}

// Absurd heights.

TEST_F(ToleranceGlyphsTest, without_a_height_all_falls_on_one_point) {
  EXPECT_EQ(InPen(red,
                  "MoveToEx(5000, -7000)\nLineTo(5000, -7000)\nMoveToEx(5000, -7000)\nLineTo(5000, -7000)\n"
                  "MoveToEx(5000, -7000)\nAngleArc(5000, -7000, 0, 0, 360)\n"),
            Draw('j', 0.0));
  EXPECT_EQ(0.0, width);
}

TEST_F(ToleranceGlyphsTest, a_height_beyond_the_sheets_numbers_gives_the_lowest_one) {
  // The radius is that number's bits: 2^31.
  const std::string arc =
      "MoveToEx(-2147483648, -2147483648)\nAngleArc(-2147483648, -2147483648, 2147483648, 0, 360)\n";
  EXPECT_EQ(InPen(red, arc), Draw('e', std::numeric_limits<double>::infinity()));
  EXPECT_EQ(InPen(red, arc), Draw('e', std::numeric_limits<double>::quiet_NaN()));
  EXPECT_EQ(InPen(red, arc), Draw('e', 1e300));
  EXPECT_EQ(InPen(red, arc), Draw('e', -1e300));
}

TEST_F(ToleranceGlyphsTest, a_negative_height_mirrors_its_strokes) {
  // 5000 - 1050 and -7000 - 500; with half a unit of shift -425 + 0.5 is cut to -424, as bits 2^32 - 424.
  EXPECT_EQ(InPen(red, "MoveToEx(3950, -7500)\nAngleArc(4375, -7500, 4294966872, 0, 360)\n"),
            Draw('e', -1000.0));
  EXPECT_EQ(-1250.0, width);
}

}  // namespace
}  // namespace hexlume::tolerance_glyphs_test
