#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>

#include "platform/gdi.h"
#include "platform/portable/font_face.h"
#include "platform/portable/font_measure.h"

namespace hexlume::portable_font_test {

namespace {

constexpr const char* gothic = "\x82\x6C\x82\x72\x20\x83\x53\x83\x56\x83\x62\x83\x4E";

LOGFONTA Font(LONG height, LONG width = 0, const char* face = "") {
  LOGFONTA font = {};
  font.lfHeight = height;
  font.lfWidth = width;
  font.lfCharSet = SHIFTJIS_CHARSET;
  std::memcpy(font.lfFaceName, face, std::min(std::strlen(face), sizeof font.lfFaceName - 1));
  return font;
}

// A context in MM_HIMETRIC, given up at the end.
class PortableFont : public testing::Test {
 protected:
  void SetUp() override {
    const FaceMeasures& face = FaceOf(Font(0)).Measures();
    isMeasuredFace = face.unitsPerEm == 2048 && face.ascent == 1802 && face.descent == 401;
    SetMapMode(dc, MM_HIMETRIC);
  }
  void TearDown() override { DeleteDC(dc); }

  TEXTMETRICA Metrics(const LOGFONTA& font) {
    const HFONT made = CreateFontIndirectA(&font);
    const HGDIOBJ before = SelectObject(dc, made);
    TEXTMETRICA metrics = {};
    EXPECT_EQ(GetTextMetricsA(dc, &metrics), 1);
    SelectObject(dc, before);
    DeleteObject(made);
    return metrics;
  }

  HDC dc = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  bool isMeasuredFace = false;  // IPAGothic
};

struct Measured {
  LONG height;
  LONG cell, ascent, descent, internalLeading, averageWidth, maxWidth;
};

std::ostream& operator<<(std::ostream& out, const Measured& row) {
  return out << row.height;
}

// GDI's answers under Wine with the font IPAGothic.
constexpr Measured measured[] = {
    {0, 423, 344, 79, 26, 212, 582},  // no height is 16 pixels, and so is less than one
    {26, 423, 344, 79, 26, 212, 582},
    {27, 26, 26, 0, 0, 26, 26},
    {100, 106, 79, 26, 0, 53, 106},
    {250, 238, 185, 53, 26, 106, 318},
    {500, 476, 396, 79, 26, 238, 662},
    {977, 925, 767, 159, 53, 450, 1270},
    {978, 978, 793, 185, 79, 450, 1297},  // 37 pixels
    {1000, 978, 793, 185, 79, 450, 1297},
    {2500, 2485, 2035, 449, 185, 1164, 3361},
    {3099, 3093, 2537, 555, 211, 1456, 4208},   // an ascent of 96 pixels is 2537.5
    {7278, 7269, 5947, 1322, 502, 3388, 9871},  // a width of 128 pixels is 3387.5
    {100000, 100020, 81808, 18212, 7031, 46552, 135447},
    {-161846, 174110, 142417, 31692, 12238, 81035,
     235775},                          // 6587 pixels are 174109.501 by the inverse scale
    {10000000, 26, 26, 0, 0, 26, 26},  // an em of more than 65535 pixels
    {INT32_MAX, 26, 26, 0, 0, 26, 26},
    {INT32_MIN, 26, 26, 0, 0, 26, 26},
    {-1000, 1057, 872, 185, 79, 503, 1429},  // an em of 37 pixels
};

TEST_F(PortableFont, a_height_gives_what_windows_measures) {
  if (!isMeasuredFace) GTEST_SKIP() << "IPAGothic isn't installed";
  for (const Measured& row : measured) {
    const TEXTMETRICA metrics = Metrics(Font(row.height));
    EXPECT_EQ(metrics.tmHeight, row.cell) << row;
    EXPECT_EQ(metrics.tmAscent, row.ascent) << row;
    EXPECT_EQ(metrics.tmDescent, row.descent) << row;
    EXPECT_EQ(metrics.tmInternalLeading, row.internalLeading) << row;
    EXPECT_EQ(metrics.tmAveCharWidth, row.averageWidth) << row;
    EXPECT_EQ(metrics.tmMaxCharWidth, row.maxWidth) << row;
  }
}

TEST_F(PortableFont, a_width_is_the_average_width_in_whole_pixels) {
  // By the scale of heights: 20000 * 768 / 20300 is 756.7, and 756 pixels are 20007.
  EXPECT_EQ(Metrics(Font(250, 20000)).tmAveCharWidth, 20007);
  EXPECT_EQ(Metrics(Font(250, -300)).tmAveCharWidth, 291);
  EXPECT_EQ(Metrics(Font(250, 27)).tmAveCharWidth, 26);
}

TEST_F(PortableFont, a_width_below_a_pixel_or_above_100_heights_is_none) {
  const LONG natural = Metrics(Font(250)).tmAveCharWidth;
  EXPECT_EQ(Metrics(Font(250, 26)).tmAveCharWidth, natural);
  EXPECT_EQ(Metrics(Font(250, 100000)).tmAveCharWidth, natural);
  EXPECT_EQ(Metrics(Font(250, INT32_MAX)).tmAveCharWidth, natural);
  EXPECT_EQ(Metrics(Font(250, INT32_MIN + 1)).tmAveCharWidth, natural);
}

TEST_F(PortableFont, the_width_without_an_absolute_value_stays) {
  EXPECT_EQ(Metrics(Font(250, INT32_MIN)).tmAveCharWidth, INT32_MIN);
  EXPECT_EQ(Metrics(Font(250, INT32_MIN)).tmMaxCharWidth, INT32_MIN);
  EXPECT_EQ(Metrics(Font(0, INT32_MIN)).tmAveCharWidth, Metrics(Font(0)).tmAveCharWidth);
}

TEST_F(PortableFont, the_width_without_an_absolute_value_stretches_characters_32768_times) {
  if (!isMeasuredFace) GTEST_SKIP() << "IPAGothic isn't installed";
  FontMeasure measure = {};
  measure.face = &FaceOf(Font(0));
  measure.ppem = 34;
  measure.averageWidth = INT32_MIN;
  EXPECT_EQ(CharacterPixels(measure, 'A'), 557056);  // 17 * 32768
  measure.ppem = 1054;
  EXPECT_EQ(CharacterPixels(measure, 'A'), 17268736);  // 527 * 32768
  // 1054 * 64 * 32768 = 2210398208 is more than 2^31 - 1 and wraps around to -2084569088, and a 64th is 32571392.
  EXPECT_EQ(CharacterPixels(measure, 0x56F3), 32571392);
}

TEST_F(PortableFont, a_turn_changes_no_measure) {
  LOGFONTA font = Font(1000);
  const TEXTMETRICA level = Metrics(font);
  font.lfEscapement = 900;
  font.lfOrientation = 150;
  EXPECT_EQ(Metrics(font).tmAveCharWidth, level.tmAveCharWidth);
  EXPECT_EQ(Metrics(font).tmDescent, level.tmDescent);
}

TEST_F(PortableFont, the_gothic_the_empty_face_and_an_unknown_one_are_the_same_face) {
  EXPECT_EQ(FaceOf(Font(0, 0, gothic)).Measures().averageWidth, FaceOf(Font(0)).Measures().averageWidth);
  EXPECT_EQ(FaceOf(Font(0, 0, "no such face")).Measures().averageWidth,
            FaceOf(Font(0)).Measures().averageWidth);
}

TEST_F(PortableFont, a_face_without_japanese_is_not_taken_for_japanese_text) {
  if (!isMeasuredFace) GTEST_SKIP() << "IPAGothic isn't installed";
  EXPECT_EQ(FaceOf(Font(0, 0, "DejaVu Sans")).Measures().ascent, 1802);
}

TEST_F(PortableFont, a_named_japanese_face_is_taken_under_both_its_names) {
  if (!isMeasuredFace) GTEST_SKIP() << "IPAGothic isn't installed";
  EXPECT_FALSE(FaceOf(Font(0, 0, "IPAPGothic")).Measures().isFixedPitch);
  EXPECT_EQ(FaceOf(Font(0, 0, "IPA \x82\x6F\x83\x53\x83\x56\x83\x62\x83\x4E")).Measures().ascent, 1802);
}

TEST_F(PortableFont, a_vertical_face_has_the_measures_of_its_family) {
  if (!isMeasuredFace) GTEST_SKIP() << "IPAGothic isn't installed";
  EXPECT_EQ(Metrics(Font(448, 0, "@IPAGothic")).tmAveCharWidth, 212);
  EXPECT_EQ(Metrics(Font(448, 0, "@ipagothic")).tmAveCharWidth, 212);
  EXPECT_EQ(Metrics(Font(448, 0, "@IPAPGothic")).tmAveCharWidth, 185);
}

TEST_F(PortableFont, all_vertical_faces_without_a_japanese_family_are_the_same_face) {
  const int32_t width = FaceOf(Font(0, 0, "@")).Measures().averageWidth;
  const int64_t advance = FaceOf(Font(0, 0, "@")).Advance(0x00B0, 1000);
  for (const char* face : {"@Arial", "@@IPAGothic", "@DejaVu Sans", "@no such face"}) {
    EXPECT_EQ(FaceOf(Font(0, 0, face)).Measures().averageWidth, width) << face;
    EXPECT_EQ(FaceOf(Font(0, 0, face)).Advance(0x00B0, 1000), advance) << face;
  }
}

TEST_F(PortableFont, only_a_vertical_face_advances_downward) {
  if (!isMeasuredFace) GTEST_SKIP() << "IPAGothic isn't installed";
  const FontFace& level = FaceOf(Font(0, 0, "IPAPGothic"));
  const FontFace& vertical = FaceOf(Font(0, 0, "@IPAPGothic"));
  // GDI's answers under Wine for a height of 16 pixels, an em of 16 * 2048 / 2203 = 15: the degree sign, the
  // section sign, a quotation mark and a letter.
  EXPECT_EQ((level.Advance(0x00B0, 15) + 32) / 64, 5);
  EXPECT_EQ((vertical.Advance(0x00B0, 15) + 32) / 64, 15);
  EXPECT_EQ((level.Advance(0x00A7, 15) + 32) / 64, 9);
  EXPECT_EQ((vertical.Advance(0x00A7, 15) + 32) / 64, 15);
  EXPECT_EQ((level.Advance(0x2018, 15) + 32) / 64, 6);
  EXPECT_EQ((vertical.Advance(0x2018, 15) + 32) / 64, 15);
  EXPECT_EQ(vertical.Advance('A', 15), level.Advance('A', 15));
}

// GDI's answers under Wine.
TEST_F(PortableFont, a_stretched_character_has_whole_pixels_and_counts_a_part_of_one) {
  if (!isMeasuredFace) GTEST_SKIP() << "IPAGothic isn't installed";
  FontMeasure measure = {};
  measure.face = &FaceOf(Font(0, 0, "@IPAPGothic"));
  measure.ppem = 7;
  measure.naturalWidth = 3;
  measure.averageWidth = 4;
  EXPECT_EQ(CharacterPixels(measure, 0x0001), 10);  // an em: 7 * 4 / 3 = 9.33
  // 197 * 125 / 108 = 228.01; with the factor cut to 75851 / 65536 it is 14592.43 64ths of a pixel, and 14592
  // are 228 pixels.
  measure.ppem = 232;
  measure.naturalWidth = 108;
  measure.averageWidth = 125;
  EXPECT_EQ(CharacterPixels(measure, 0x30BD), 228);
}

TEST_F(PortableFont, more_faces_than_are_kept_do_no_harm) {
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 40; ++i) {
      EXPECT_GT(FaceOf(Font(0, 0, ("face " + std::to_string(i)).c_str())).Measures().unitsPerEm, 0);
    }
  }
}

TEST_F(PortableFont, a_name_that_fills_its_field_needs_no_zero) {
  LOGFONTA font = Font(500);
  std::memset(font.lfFaceName, 'A', sizeof font.lfFaceName);
  EXPECT_EQ(Metrics(font).tmHeight, Metrics(Font(500)).tmHeight);
  font.lfFaceName[0] = '@';
  EXPECT_EQ(Metrics(font).tmHeight, Metrics(Font(500, 0, "@")).tmHeight);
}

TEST_F(PortableFont, without_a_font_of_its_own_a_context_has_one_of_16_pixels) {
  TEXTMETRICA metrics = {};
  EXPECT_EQ(GetTextMetricsA(dc, &metrics), 1);
  EXPECT_EQ(metrics.tmHeight, Metrics(Font(0)).tmHeight);
}

TEST_F(PortableFont, no_context_and_no_font_are_errors) {
  TEXTMETRICA metrics = {};
  EXPECT_EQ(GetTextMetricsA(nullptr, &metrics), 0);
  EXPECT_EQ(GetTextMetricsA(dc, nullptr), 0);
  EXPECT_EQ(CreateFontIndirectA(nullptr), nullptr);
}

TEST_F(PortableFont, a_font_made_of_arguments_is_the_same_font) {
  const HFONT made = CreateFontA(350, 0, 0, 0, 1, 0, 0, 0, SHIFTJIS_CHARSET, 0, 0, 2, 49, nullptr);
  const HGDIOBJ before = SelectObject(dc, made);
  TEXTMETRICA metrics = {};
  GetTextMetricsA(dc, &metrics);
  EXPECT_EQ(metrics.tmHeight, Metrics(Font(350)).tmHeight);
  SelectObject(dc, before);
  EXPECT_EQ(DeleteObject(made), 1);
}

}  // namespace

}  // namespace hexlume::portable_font_test
