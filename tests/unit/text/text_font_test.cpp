// The font of drawn text.

#include "text/text_font.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "driver/bounded_copy.h"
#include "platform/code_page_932.h"
#include "support/converter_test.h"
#include "support/host_locale.h"
#include "support/metafile_canvas.h"

namespace hexlume::text_font_test {
namespace {

// MS Gothic in full-width letters, a blank and katakana.
const std::string gothic = "\xEF\xBC\xAD\xEF\xBC\xB3 \xE3\x82\xB4\xE3\x82\xB7\xE3\x83\x83\xE3\x82\xAF";

// A font whose every field is other than text's.
LOGFONTA OtherFont() {
  LOGFONTA font = {};
  font.lfHeight = 220;
  font.lfWidth = -110;
  font.lfEscapement = 3300;
  font.lfOrientation = 15;
  font.lfWeight = 700;
  font.lfItalic = 1;
  font.lfUnderline = 1;
  font.lfStrikeOut = 1;
  font.lfCharSet = 0;
  font.lfOutPrecision = 3;
  font.lfClipPrecision = 1;
  font.lfQuality = 2;
  font.lfPitchAndFamily = 49;
  std::strcpy(font.lfFaceName, "Other");
  return font;
}

// What settling a font in this face throws, 0 if nothing.
int32_t ThrownBySettling(const std::string& face) {
  LOGFONTA font = OtherFont();
  try {
    SettleFont(font, face.c_str());
  } catch (int32_t code) {
    return code;
  }
  EXPECT_EQ(face, font.lfFaceName);
  return 0;
}

// A text of this single byte. Katakana are letters from A6 on; A1 to A5 are marks.
void ExpectClass(int byte) {
  const bool letter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
  const bool digit = byte >= '0' && byte <= '9';
  const bool mark = byte == '-' || byte == '.' || byte == ',';
  const bool katakana = byte >= 0xA6 && byte <= 0xDF;
  const char text[] = {static_cast<char>(byte), '\0'};
  EXPECT_EQ(letter || digit || mark || katakana ? 0 : 1, ClassifyText(text)) << byte;
}

class TextFontTest : public ConverterTest {
 protected:
  static std::string DrawText(int32_t height, int32_t width, int32_t escapement, double x, double y,
                              int32_t halfWidthFont) {
    return ListCalls(
        [=](Canvas canvas) { DrawFontText(canvas, height, width, escapement, x, y, halfWidthFont); });
  }
};

// The record of a font.

TEST_F(TextFontTest, the_face_of_half_width_cells_is_the_default_one) {
  EXPECT_STREQ("", FaceFor(1));
  EXPECT_STREQ("", FaceFor(-1));
  EXPECT_STREQ("\x82\x6C\x82\x72\x20\x83\x53\x83\x56\x83\x62\x83\x4E", FaceFor(0));
}

TEST_F(TextFontTest, settling_keeps_what_a_text_chooses_and_sets_the_rest) {
  LOGFONTA font = OtherFont();
  SettleFont(font, "FACE");
  EXPECT_EQ(220, font.lfHeight);
  EXPECT_EQ(-110, font.lfWidth);
  EXPECT_EQ(3300, font.lfEscapement);
  EXPECT_EQ(15, font.lfOrientation);
  EXPECT_EQ(1, font.lfItalic);
  EXPECT_EQ(0, font.lfWeight);
  EXPECT_EQ(0, font.lfUnderline);
  EXPECT_EQ(0, font.lfStrikeOut);
  EXPECT_EQ(128, font.lfCharSet);
  EXPECT_EQ(0, font.lfOutPrecision);
  EXPECT_EQ(16, font.lfClipPrecision);
  EXPECT_EQ(0, font.lfQuality);
  EXPECT_EQ(0, font.lfPitchAndFamily);
  EXPECT_STREQ("FACE", font.lfFaceName);
}

TEST_F(TextFontTest, the_default_face_replaces_another) {
  LOGFONTA font = OtherFont();
  SettleFont(font, defaultFace);
  EXPECT_STREQ("", font.lfFaceName);
}

TEST_F(TextFontTest, a_face_of_31_bytes_fits) {
  EXPECT_EQ(0, ThrownBySettling(std::string(31, 'f')));
}

TEST_F(TextFontTest, a_face_of_32_bytes_throws) {
  EXPECT_EQ(textTooLongCode, ThrownBySettling(std::string(32, 'f')));
}

TEST_F(TextFontTest, every_field_goes_to_the_metafile) {
  LOGFONTA font = OtherFont();
  SettleFont(font, gothicFace);
  EXPECT_EQ("CreateFont(1, 220, -110, 3300, 15, 0, 1, 0, 0, 128, 0, 16, 0, 0, \"" + gothic +
                "\")\nSelectObject(1)\nSelectObject(SYSTEM_FONT)\nDeleteObject(1)\n",
            ListCalls([&font](Canvas canvas) { RestoreFont(canvas, SelectNewFont(canvas, font)); }));
}

TEST_F(TextFontTest, a_new_font_remembers_the_one_before) {
  LOGFONTA font = OtherFont();
  SettleFont(font, defaultFace);
  const std::string record = "220, -110, 3300, 15, 0, 1, 0, 0, 128, 0, 16, 0, 0, \"\")\n";
  EXPECT_EQ(
      "CreateFont(1, " + record + "SelectObject(1)\nCreateFont(2, " + record +
          "SelectObject(2)\nSelectObject(1)\nDeleteObject(2)\nSelectObject(SYSTEM_FONT)\nDeleteObject(1)\n",
      ListCalls([&font](Canvas canvas) {
        const SelectedFont outer = SelectNewFont(canvas, font);
        RestoreFont(canvas, SelectNewFont(canvas, font));
        RestoreFont(canvas, outer);
      }));
}

// What a text consists of.

TEST_F(TextFontTest, of_single_bytes_letters_digits_three_marks_and_katakana_are_latin) {
  for (int byte = 1; byte <= 0xFF; ++byte) ExpectClass(byte);
}

TEST_F(TextFontTest, the_hosts_locale_changes_no_class) {
  for (const char* locale : hostLocales) {
    SCOPED_TRACE(locale);
    const HostLocale selected(locale);
    for (int byte = 1; byte <= 0xFF; ++byte) ExpectClass(byte);
    EXPECT_EQ(1, ClassifyText("\x90\x7D"));
    EXPECT_EQ(1, FitCount("\x90\x7D"));
    EXPECT_EQ(2, FitCount("\xB6\xDE"));
  }
}

TEST_F(TextFontTest, a_byte_counts_wherever_it_stands) {
  EXPECT_EQ(0, ClassifyText("12.5"));
  EXPECT_EQ(0, ClassifyText("-1,234.5A"));
  EXPECT_EQ(1, ClassifyText("12/5"));
  EXPECT_EQ(1, ClassifyText("/125"));
  EXPECT_EQ(1, ClassifyText("125/"));
  EXPECT_EQ(1, ClassifyText("12 5"));
  EXPECT_EQ(1, ClassifyText("(1)"));
}

TEST_F(TextFontTest, every_lead_byte_makes_a_text_kanji) {
  for (int lead = 0x80; lead <= 0xFF; ++lead) {
    if (!IsLeadByte(static_cast<uint8_t>(lead))) continue;
    const char text[] = {'A', static_cast<char>(lead), 'A', '\0'};
    EXPECT_EQ(1, ClassifyText(text)) << lead;
  }
}

TEST_F(TextFontTest, one_double_byte_character_is_kanji) {
  EXPECT_EQ(1, ClassifyText("\x90\x7D"));  // U+56F3
  EXPECT_EQ(1, ClassifyText("\x82\x60"));  // full-width A
}

TEST_F(TextFontTest, two_single_bytes_are_looked_at_one_by_one) {
  EXPECT_EQ(0, ClassifyText("A1"));
  EXPECT_EQ(0, ClassifyText("\xB6\xDE"));  // half-width katakana
  EXPECT_EQ(1, ClassifyText("A/"));
}

TEST_F(TextFontTest, a_double_byte_character_behind_latin_is_kanji) {
  EXPECT_EQ(1, ClassifyText("A1-\x90\x7D"));
}

TEST_F(TextFontTest, a_lead_byte_alone_is_kanji) {
  EXPECT_EQ(1, ClassifyText("12\x90"));
}

TEST_F(TextFontTest, an_empty_text_is_latin) {
  EXPECT_EQ(0, ClassifyText(""));
}

// The count of a fit text.

TEST_F(TextFontTest, a_fit_text_counts_bytes) {
  EXPECT_EQ(0, FitCount(""));
  EXPECT_EQ(1, FitCount("A"));
  EXPECT_EQ(2, FitCount("AB"));
  EXPECT_EQ(2, FitCount("\xB6\xDE"));
  EXPECT_EQ(3, FitCount("A\x90\x7D"));
  EXPECT_EQ(4, FitCount("\x90\x7D\x90\x7D"));
  EXPECT_EQ(255, FitCount(std::string(255, 'x').c_str()));
}

TEST_F(TextFontTest, one_double_byte_character_counts_as_one) {
  EXPECT_EQ(1, FitCount("\x90\x7D"));
  EXPECT_EQ(1, FitCount("\x83\x5C"));  // with the trail byte 5C
}

// The metrics of real fonts.

TEST_F(TextFontTest, a_fonts_average_width_is_above_0) {
  ListCalls([](Canvas canvas) {
    for (const int32_t height : {2, 10, 220, 5000})
      EXPECT_GT(MeasureAveCharWidth(canvas, height, 0), 0) << height;
    for (const int32_t height : {220, 5000})
      EXPECT_LE(MeasureAveCharWidth(canvas, height, 0), height) << height;
  });
}

TEST_F(TextFontTest, a_larger_font_is_wider) {
  ListCalls([](Canvas canvas) {
    EXPECT_GT(MeasureAveCharWidth(canvas, 2000, 0), 5 * MeasureAveCharWidth(canvas, 200, 0));
  });
}

TEST_F(TextFontTest, measuring_makes_a_font_and_deletes_it) {
  EXPECT_EQ(
      "CreateFont(1, 220, 0, 3300, 0, 0, 0, 0, 0, 128, 0, 16, 0, 0, \"\")\nSelectObject(1)\n"
      "SelectObject(SYSTEM_FONT)\nDeleteObject(1)\n",
      ListCalls([](Canvas canvas) { MeasureAveCharWidth(canvas, 220, 3300); }));
}

TEST_F(TextFontTest, a_measured_font_has_a_height_and_a_descent_within_it) {
  ListCalls([](Canvas canvas) {
    LOGFONTA font = {};
    font.lfHeight = 1000;
    SettleFont(font, gothicFace);
    const SelectedFont selected = SelectNewFont(canvas, font);
    const TEXTMETRICA metrics = MeasureFont(canvas);
    RestoreFont(canvas, selected);
    EXPECT_GT(metrics.tmDescent, 0);
    EXPECT_LT(metrics.tmDescent, 500);
    EXPECT_GT(metrics.tmAveCharWidth, 0);
  });
}

// One piece of text.

TEST_F(TextFontTest, a_text_is_drawn_in_a_font_of_its_own) {
  std::strcpy(state.entText, "A\x90\x7D");
  state.entColor = 1;
  // 3000.9, cut to 3000; 6000.5 - 10000 = -3999.5, cut to -3999.
  EXPECT_EQ(
      "CreateFont(1, 220, 110, 3300, 0, 0, 0, 0, 0, 128, 0, 16, 0, 0, \"" + gothic +
          "\")\nSelectObject(1)\nSetTextColor(0x0000FF)\nSetTextAlign(8)\nSetBkMode(TRANSPARENT)\n"
          "ExtTextOutW(3000, -3999, 0, \"A\xE5\x9B\xB3\")\nSelectObject(SYSTEM_FONT)\nDeleteObject(1)\n",
      DrawText(220, 110, 3300, 3000.9, 6000.5, 0));
}

TEST_F(TextFontTest, a_text_with_half_width_cells_has_the_default_face) {
  std::strcpy(state.entText, "A");
  EXPECT_EQ(
      "CreateFont(1, 220, 110, 3300, 0, 0, 0, 0, 0, 128, 0, 16, 0, 0, \"\")\nSelectObject(1)\n"
      "SetTextColor(0x000000)\nSetTextAlign(8)\nSetBkMode(TRANSPARENT)\nExtTextOutW(3000, -4000, 0, \"A\")\n"
      "SelectObject(SYSTEM_FONT)\nDeleteObject(1)\n",
      DrawText(220, 110, 3300, 3000.0, 6000.0, 1));
}

TEST_F(TextFontTest, a_texts_place_is_one_of_the_model) {
  std::strcpy(state.entText, "A");
  state.drawScale = 2.0;
  state.originX = 1000.0;
  state.shiftY = 20.0;
  // (3000 - 1000) / 2; 6000 / 2 - 10000 + 20.
  EXPECT_NE(std::string::npos, DrawText(220, 110, 0, 3000.0, 6000.0, 1).find("ExtTextOutW(1000, -6980, 0,"));
}

TEST_F(TextFontTest, a_turned_sheet_does_not_move_a_piece_of_text) {
  std::strcpy(state.entText, "A");
  state.rotated = 1;
  EXPECT_NE(std::string::npos, DrawText(220, 110, 0, 3000.0, 6000.0, 1).find("ExtTextOutW(3000, -4000, 0,"));
}

TEST_F(TextFontTest, an_empty_piece_is_drawn_with_no_characters) {
  state.entText[0] = '\0';
  EXPECT_NE(std::string::npos,
            DrawText(220, 110, 0, 3000.0, 6000.0, 1).find("ExtTextOutW(3000, -4000, 0, \"\")"));
}

TEST_F(TextFontTest, the_color_before_the_table_is_that_of_its_count) {
  std::strcpy(state.entText, "A");
  state.entColor = -1;
  EXPECT_NE(std::string::npos, DrawText(220, 110, 0, 3000.0, 6000.0, 1).find("SetTextColor(0x000007)"));
}

}  // namespace
}  // namespace hexlume::text_font_test
