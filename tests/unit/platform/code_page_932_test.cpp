#include "platform/code_page_932.h"

#include <gtest/gtest.h>

namespace hexlume::code_page_932_test {

namespace {

constexpr char16_t userOfRow(int lead, int column) {
  return static_cast<char16_t>(0xE000 + (lead - 0xF0) * 188 + column);
}

char16_t Pair(int lead, int trail) {
  const char bytes[] = {static_cast<char>(lead), static_cast<char>(trail)};
  return Utf16Character(bytes, 2);
}

TEST(CodePage932, lead_bytes_are_81_to_9F_and_E0_to_FC) {
  for (int byte = 0; byte <= 0xFF; ++byte) {
    const bool isExpected = (byte >= 0x81 && byte < 0xA0) || (byte >= 0xE0 && byte < 0xFD);
    EXPECT_EQ(IsLeadByte(static_cast<uint8_t>(byte)), isExpected) << byte;
  }
}

TEST(CodePage932, bytes_below_81_stand_for_themselves) {
  for (int byte = 0; byte <= 0x80; ++byte) {
    const char text = static_cast<char>(byte);
    EXPECT_EQ(Utf16Character(&text, 1), byte);
  }
}

TEST(CodePage932, bytes_A1_to_DF_are_half_width_katakana) {
  EXPECT_EQ(Utf16Text("\xA1\xB1\xDF", 3), u"\xFF61\xFF71\xFF9F");
}

TEST(CodePage932, A0_and_the_last_three_bytes_are_private_characters) {
  EXPECT_EQ(Utf16Text("\xA0\xFD\xFE\xFF", 4), u"\xF8F0\xF8F1\xF8F2\xF8F3");
}

TEST(CodePage932, pairs_of_all_sources_have_their_characters) {
  EXPECT_EQ(Pair(0x81, 0x40), 0x3000);
  EXPECT_EQ(Pair(0x81, 0x60), 0xFF5E);  // the wave dash is Windows' full-width tilde
  EXPECT_EQ(Pair(0x82, 0x60), 0xFF21);
  EXPECT_EQ(Pair(0x82, 0xA0), 0x3042);
  EXPECT_EQ(Pair(0x83, 0x4A), 0x30AB);
  EXPECT_EQ(Pair(0x87, 0x40), 0x2460);  // NEC's row 13
  EXPECT_EQ(Pair(0x88, 0x9F), 0x4E9C);
  EXPECT_EQ(Pair(0x9F, 0xFC), 0x6ECC);
  EXPECT_EQ(Pair(0xE0, 0x40), 0x6F3E);
  EXPECT_EQ(Pair(0xED, 0x40), 0x7E8A);  // NEC's choice of IBM's characters
  EXPECT_EQ(Pair(0xFA, 0x40), 0x2170);  // IBM's characters
  EXPECT_EQ(Pair(0xFC, 0x4B), 0x9ED1);
}

TEST(CodePage932, the_users_own_characters_follow_each_other) {
  EXPECT_EQ(Pair(0xF0, 0x40), 0xE000);
  EXPECT_EQ(Pair(0xF0, 0x7E), userOfRow(0xF0, 62));
  EXPECT_EQ(Pair(0xF0, 0x80), userOfRow(0xF0, 63));
  EXPECT_EQ(Pair(0xF1, 0x40), userOfRow(0xF1, 0));
  EXPECT_EQ(Pair(0xF9, 0xFC), 0xE757);
}

TEST(CodePage932, a_pair_that_is_no_character_is_one_middle_dot) {
  EXPECT_EQ(Utf16Text("\x81\x20\x41", 3), u"\x30FB\x41");
  EXPECT_EQ(Utf16Text("\x81\xAD\x41", 3), u"\x30FB\x41");
  EXPECT_EQ(Utf16Text("\x81\x7F\x41", 3), u"\x30FB\x41");
  EXPECT_EQ(Utf16Text("\x85\x40\x41", 3), u"\x30FB\x41");
  EXPECT_EQ(Utf16Text("\x81\xFF\x41", 3), u"\x30FB\x41");
  EXPECT_EQ(Utf16Text("\xF0\x3F\x40", 3), u"\x30FB\x40");
  EXPECT_EQ(Utf16Text("\xF0\x7F\x40", 3), u"\x30FB\x40");
}

TEST(CodePage932, a_lead_byte_takes_neither_the_texts_end_nor_a_zero_along) {
  EXPECT_EQ(Utf16Text("A\x81", 2), u"A\x30FB");
  EXPECT_EQ(Utf16Text("\x81\0A", 3), std::u16string(u"\x30FB\0A", 3));
  EXPECT_EQ(Utf16Text("", 0), u"");
}

TEST(CodePage932, a_character_comes_back_as_the_bytes_that_windows_prefers) {
  EXPECT_EQ(CodePage932Bytes(u'\0'), 0);
  EXPECT_EQ(CodePage932Bytes(u'A'), 'A');
  EXPECT_EQ(CodePage932Bytes(0xFF71), 0xB1);
  EXPECT_EQ(CodePage932Bytes(0x3042), 0x82A0);
  EXPECT_EQ(CodePage932Bytes(0x30FB), 0x8145);
  EXPECT_EQ(CodePage932Bytes(0xFFE2), 0x81CA);  // also EEF9 and FA54
  EXPECT_EQ(CodePage932Bytes(0x2252), 0x81E0);  // also 8790
  EXPECT_EQ(CodePage932Bytes(0x2160), 0x8754);  // also FA4A
  EXPECT_EQ(CodePage932Bytes(0x2170), 0xFA40);  // also EEEF
  EXPECT_EQ(CodePage932Bytes(0xE000), 0xF040);
}

TEST(CodePage932, a_character_that_it_lacks_comes_back_as_one_that_looks_alike) {
  EXPECT_EQ(CodePage932Bytes(0x00A5), '\\');    // the yen sign, whose place the backslash takes
  EXPECT_EQ(CodePage932Bytes(0x00B2), '2');     // superscript
  EXPECT_EQ(CodePage932Bytes(0x00B5), 0x83CA);  // the micro sign: the Greek mu
  EXPECT_EQ(CodePage932Bytes(0x00E9), 'e');
  EXPECT_EQ(CodePage932Bytes(0x3094), 0x8394);  // hiragana vu: the katakana
}

TEST(CodePage932, a_character_that_it_lacks_and_nothing_is_like_comes_back_as_a_question_mark) {
  EXPECT_EQ(CodePage932Bytes(0x2205), '?');
  EXPECT_EQ(CodePage932Bytes(0x0E01), '?');
  EXPECT_EQ(CodePage932Bytes(0x3099), '?');
  EXPECT_EQ(CodePage932Bytes(0xFFFF), '?');
}

TEST(CodePage932, half_a_pair_of_surrogates_comes_back_as_a_question_mark) {
  for (int unit = 0xD800; unit <= 0xDFFF; ++unit)
    EXPECT_EQ(CodePage932Bytes(static_cast<char16_t>(unit)), '?') << unit;
}

TEST(CodePage932, every_pairs_character_comes_back_as_that_character) {
  for (int lead = 0x81; lead <= 0xFC; ++lead) {
    if (!IsLeadByte(static_cast<uint8_t>(lead))) continue;
    for (int trail = 1; trail <= 0xFF; ++trail) {
      const char16_t character = Pair(lead, trail);
      const uint16_t bytes = CodePage932Bytes(character);
      EXPECT_EQ(Pair(bytes >> 8, bytes & 0xFF), character) << lead << ' ' << trail;
    }
  }
}

}  // namespace

}  // namespace hexlume::code_page_932_test
