// What the system's own locale and mapping say of Japanese text.
#include <gtest/gtest.h>
#include <windows.h>

#include <clocale>
#include <string>

#include "platform/full_width.h"
#include "support/host_locale.h"
#include "text/text_font.h"

namespace hexlume::japanese_locale_windows_test {

namespace {

TEST(JapaneseLocaleWindows, a_text_makes_the_processs_locale_japanese) {
  const HostLocale selected("C");
  ClassifyText("A");
  const std::string japanese = std::setlocale(LC_ALL, nullptr);
  EXPECT_EQ(0u, japanese.find("Japanese")) << japanese;
}

// The system's mapping in its Japanese locale, whatever the user's is.
std::string SystemsWideText(const std::string& text) {
  constexpr LCID japanese = MAKELCID(MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT), SORT_DEFAULT);
  char wide[16] = {};
  const int length = LCMapStringA(japanese, LCMAP_FULLWIDTH, text.c_str(), static_cast<int>(text.size()),
                                  wide, static_cast<int>(sizeof wide));
  return std::string(wide, static_cast<size_t>(length));
}

TEST(JapaneseLocaleWindows, every_byte_widens_as_the_system_has_it) {
  for (int byte = 1; byte <= 0xFF; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(SystemsWideText(text), WidenText(text.c_str())) << byte;
  }
}

TEST(JapaneseLocaleWindows, every_katakana_with_a_voiced_mark_widens_as_the_system_has_it) {
  for (int byte = 0xA1; byte <= 0xDF; ++byte) {
    for (const int mark : {0xDE, 0xDF}) {
      const std::string text = {static_cast<char>(byte), static_cast<char>(mark)};
      EXPECT_EQ(SystemsWideText(text), WidenText(text.c_str())) << byte << ' ' << mark;
    }
  }
}

}  // namespace

}  // namespace hexlume::japanese_locale_windows_test
