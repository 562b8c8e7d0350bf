#include "host/utf8.h"

#include <gtest/gtest.h>

namespace hexlume {
namespace {

std::string CodePage932(const std::string& text, int64_t substituted) {
  std::string converted;
  EXPECT_EQ(substituted, AppendCodePage932(text, converted)) << text;
  return converted;
}

TEST(Utf8, characters_of_one_to_four_bytes) {
  EXPECT_EQ(U'A', FirstCharacter("AB").character);
  EXPECT_EQ(1u, FirstCharacter("AB").bytes);
  EXPECT_EQ(0xFCu, FirstCharacter("\xC3\xBC").character);
  EXPECT_EQ(0x56F3u, FirstCharacter("\xE5\x9B\xB3!").character);
  EXPECT_EQ(3u, FirstCharacter("\xE5\x9B\xB3!").bytes);
  EXPECT_EQ(0x1F4D0u, FirstCharacter("\xF0\x9F\x93\x90").character);
  EXPECT_EQ(4u, FirstCharacter("\xF0\x9F\x93\x90").bytes);
}

TEST(Utf8, what_is_none) {
  for (const char* const text : {
           "\x80",
           "\xBF",
           "\xC0\x80",
           "\xC1\xBF",
           "\xC3",
           "\xC3(",
           "\xE5\x9B",
           "\xE5\x9B(",
           "\xE0\x80\x80",
           "\xED\xA0\x80",      // half of a pair
           "\xF0\x8F\xBF\xBF",  // longer than needed
           "\xF4\x90\x80\x80",  // beyond the last character
           "\xF5\x80\x80\x80",
           "\xFF",
       }) {
    EXPECT_FALSE(IsUtf8(text));
    EXPECT_FALSE(IsUtf8(std::string("A") + text));
  }
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_TRUE(IsUtf8("A\xC3\xBC\xE5\x9B\xB3\xF0\x9F\x93\x90"));
}

TEST(Utf8, from_code_page_932_and_back) {
  const std::string text = "図面 ABC ﾊﾝｶｸ ～";
  const std::string converted = CodePage932(text, 0);
  EXPECT_EQ(text, ToUtf8(converted));
  EXPECT_EQ("\x90\x7D", converted.substr(0, 2));
}

TEST(Utf8, what_code_page_932_lacks_is_counted) {
  EXPECT_EQ("a??b", CodePage932("a\xF0\x9F\x93\x90\xEA\xB0\x80"
                                "b",
                                2));  // a ruler and a hangul
  EXPECT_EQ("?", CodePage932("?", 0));
  EXPECT_EQ("c", CodePage932("\xC2\xA9", 1));  // the sign of a copyright has a likeness
}

}  // namespace
}  // namespace hexlume
