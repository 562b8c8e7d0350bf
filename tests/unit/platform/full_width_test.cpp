#include "platform/full_width.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/code_page_932.h"
#include "support/host_locale.h"

namespace hexlume::full_width_test {

namespace {

// The expectations follow the rule, measured with the system's own mapping under Wine for every byte and
// pair.

std::string Bytes(int code) {
  if (code <= 0xFF) return std::string(1, static_cast<char>(code));
  return {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
}

// Of the characters from ! to ~ those that are neither letters nor digits, with their full-width forms. The
// two quotes are among IBM's characters; the backslash has none.
struct Symbol {
  char halfWidth;
  int fullWidth;
};
constexpr Symbol symbols[] = {
    {' ', 0x8140},  {'!', 0x8149}, {'"', 0xFA57}, {'#', 0x8194}, {'$', 0x8190}, {'%', 0x8193}, {'&', 0x8195},
    {'\'', 0xFA56}, {'(', 0x8169}, {')', 0x816A}, {'*', 0x8196}, {'+', 0x817B}, {',', 0x8143}, {'-', 0x817C},
    {'.', 0x8144},  {'/', 0x815E}, {':', 0x8146}, {';', 0x8147}, {'<', 0x8183}, {'=', 0x8181}, {'>', 0x8184},
    {'?', 0x8148},  {'@', 0x8197}, {'[', 0x816D}, {']', 0x816E}, {'\\', '\\'},  {'^', 0x814F}, {'_', 0x8151},
    {'`', 0x814D},  {'{', 0x816F}, {'|', 0x8162}, {'}', 0x8170}, {'~', 0x8160},
};

// From A1 to DD, as they are in the half-width row.
constexpr int katakana[] = {
    0x8142, 0x8175, 0x8176, 0x8141, 0x8145, 0x8392, 0x8340, 0x8342, 0x8344, 0x8346, 0x8348, 0x8383, 0x8385,
    0x8387, 0x8362, 0x815B, 0x8341, 0x8343, 0x8345, 0x8347, 0x8349, 0x834A, 0x834C, 0x834E, 0x8350, 0x8352,
    0x8354, 0x8356, 0x8358, 0x835A, 0x835C, 0x835E, 0x8360, 0x8363, 0x8365, 0x8367, 0x8369, 0x836A, 0x836B,
    0x836C, 0x836D, 0x836E, 0x8371, 0x8374, 0x8377, 0x837A, 0x837D, 0x837E, 0x8380, 0x8381, 0x8382, 0x8384,
    0x8386, 0x8388, 0x8389, 0x838A, 0x838B, 0x838C, 0x838D, 0x838F, 0x8393,
};

int WideByte(int byte) {
  if (byte >= '0' && byte <= '9') return 0x824F + byte - '0';
  if (byte >= 'A' && byte <= 'Z') return 0x8260 + byte - 'A';
  if (byte >= 'a' && byte <= 'z') return 0x8281 + byte - 'a';
  for (const Symbol& symbol : symbols) {
    if (symbol.halfWidth == byte) return symbol.fullWidth;
  }
  if (byte >= 0xA1 && byte <= 0xDD) return katakana[byte - 0xA1];
  if (byte == 0xDE || byte == 0xDF) return '?';
  return IsLeadByte(static_cast<uint8_t>(byte)) ? 0x8145 : byte;
}

// In the double-byte rows a voiced character follows the plain one, and a semi-voiced one that.
int JoinedBytes(int byte, int mark) {
  const bool takesVoice = (byte >= 0xB6 && byte <= 0xC4) || (byte >= 0xCA && byte <= 0xCE);
  if (mark == 0xDE && byte == 0xB3) return 0x8394;
  if (mark == 0xDE && (byte == 0xA6 || byte == 0xDC)) return '?';
  if (mark == 0xDE && takesVoice) return WideByte(byte) + 1;
  if (mark == 0xDF && byte >= 0xCA && byte <= 0xCE) return WideByte(byte) + 2;
  return 0;
}

std::string Widened(const std::string& text) {
  return WidenText(text.c_str());
}

TEST(FullWidth, an_empty_text_stays_empty) {
  EXPECT_EQ(Widened(""), "");
}

TEST(FullWidth, every_single_byte_has_its_full_width_form) {
  for (int byte = 1; byte <= 0xFF; ++byte) EXPECT_EQ(Widened(Bytes(byte)), Bytes(WideByte(byte))) << byte;
}

TEST(FullWidth, every_double_byte_character_stays_but_for_the_two_voice_marks) {
  for (int lead = 0x81; lead <= 0xFC; ++lead) {
    if (!IsLeadByte(static_cast<uint8_t>(lead))) continue;
    for (int trail = 1; trail <= 0xFF; ++trail) {
      const int code = lead << 8 | trail;
      const char16_t character = Utf16Character(Bytes(code).c_str(), 2);
      const bool isMark = code == 0x814A || code == 0x814B;
      EXPECT_EQ(Widened(Bytes(code)), Bytes(isMark ? '?' : CodePage932Bytes(character))) << code;
    }
  }
}

TEST(FullWidth, every_katakana_joins_with_the_marks_that_it_can_take) {
  for (int byte = 0xA1; byte <= 0xDF; ++byte) {
    for (const int mark : {0xDE, 0xDF}) {
      const int joined = JoinedBytes(byte, mark);
      const std::string expected = joined ? Bytes(joined) : Bytes(WideByte(byte)) + Bytes(WideByte(mark));
      EXPECT_EQ(Widened(Bytes(byte) + Bytes(mark)), expected) << byte << ' ' << mark;
    }
  }
}

TEST(FullWidth, the_hosts_locale_changes_nothing) {
  for (const char* locale : hostLocales) {
    const HostLocale selected(locale);
    for (int byte = 1; byte <= 0xFF; ++byte)
      EXPECT_EQ(Widened(Bytes(byte)), Bytes(WideByte(byte))) << locale << ' ' << byte;
    EXPECT_EQ(Widened("A\xB6\xDE\xCA\xDF\x90\x7D"), "\x82\x60\x83\x4B\x83\x70\x90\x7D") << locale;
  }
}

TEST(FullWidth, a_second_mark_joins_nothing) {
  EXPECT_EQ(Widened("\xB6\xDE\xDE"), "\x83\x4B?");
  EXPECT_EQ(Widened("\xCA\xDF\xDF"), "\x83\x70?");
}

TEST(FullWidth, a_full_width_katakana_takes_no_half_width_mark) {
  EXPECT_EQ(Widened("\x83\x4A\xDE"), "\x83\x4A?");
}

TEST(FullWidth, the_bytes_count_the_half_width_cells) {
  EXPECT_EQ(Widened("AB").size(), 4u);
  EXPECT_EQ(Widened("A\x83\x4A").size(), 4u);
  EXPECT_EQ(Widened("\xB6\xDE").size(), 2u);
}

}  // namespace

}  // namespace hexlume::full_width_test
