#include "text/text_bytes.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace hexlume::text_bytes_test {
namespace {

// Where the sought bytes are found, -1 if nowhere.
int PlaceOf(const std::string& text, const char* sought) {
  const char* place = FindCharacters(text.c_str(), sought);
  return place == nullptr ? -1 : static_cast<int>(place - text.c_str());
}

TEST(IsLetter, of_all_bytes_the_latin_letters_and_the_katakana_from_A6_to_DF_are_letters) {
  const std::string latin = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  for (int byte = 0; byte <= 0xFF; ++byte) {
    const char character = static_cast<char>(byte);
    const bool isKatakana = byte > 0xA5 && byte < 0xE0;
    EXPECT_EQ(IsLetter(character), latin.find(character) != std::string::npos || isKatakana) << byte;
  }
}

TEST(IsLetter, punctuation_among_the_half_width_katakana_is_no_letter) {
  for (const char byte : std::string("\xA0\xA1\xA2\xA3\xA4\xA5")) EXPECT_FALSE(IsLetter(byte));
  EXPECT_TRUE(IsLetter('\xA6'));  // wo
  EXPECT_TRUE(IsLetter('\xDF'));  // the half-voiced mark
  EXPECT_FALSE(IsLetter('\xE0'));
}

TEST(IsDigit, of_all_bytes_0_to_9_are_digits) {
  const std::string digits = "0123456789";
  for (int byte = 0; byte <= 0xFF; ++byte) {
    const char character = static_cast<char>(byte);
    EXPECT_EQ(IsDigit(character), digits.find(character) != std::string::npos) << byte;
  }
}

TEST(TextBytes, the_classes_are_the_same_in_every_locale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"C", "", "ja_JP.UTF-8", "de_DE.ISO-8859-1", "C.UTF-8"}) {
    std::setlocale(LC_ALL, locale);
    EXPECT_TRUE(IsLetter('\xB1'));
    EXPECT_FALSE(IsLetter('\xE4'));
    EXPECT_EQ(CharacterCount("\x82\xA0"), 1u);
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST(CharacterCount, an_empty_text_has_none) {
  EXPECT_EQ(CharacterCount(""), 0u);
}

TEST(CharacterCount, a_single_byte_and_a_pair_are_one_character_each) {
  EXPECT_EQ(CharacterCount("A1"), 2u);
  EXPECT_EQ(CharacterCount("\xB1\xB2"), 2u);      // two half-width katakana
  EXPECT_EQ(CharacterCount("\x82\xA0"), 1u);      // a hiragana
  EXPECT_EQ(CharacterCount("A\x95\\B"), 3u);      // trail byte 5C
  EXPECT_EQ(CharacterCount("\x83\\\x94\\"), 2u);  // twice
}

TEST(CharacterCount, a_lead_byte_takes_any_byte_behind_it_along) {
  EXPECT_EQ(CharacterCount("\x81 "), 1u);
  EXPECT_EQ(CharacterCount("\x81\x81\x81"), 1u);  // a pair and a lead byte that the end cuts off
}

TEST(CharacterCount, a_lead_byte_that_the_texts_end_leaves_alone_is_not_counted) {
  EXPECT_EQ(CharacterCount("\x81"), 0u);
  EXPECT_EQ(CharacterCount("A\xFC"), 1u);
}

TEST(CharacterCount, every_byte_before_a_letter_counts_with_it_or_for_itself) {
  for (int byte = 1; byte <= 0xFF; ++byte) {
    const char text[] = {static_cast<char>(byte), 'A', '\0'};
    const bool isLead = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    EXPECT_EQ(CharacterCount(text), isLead ? 1u : 2u) << byte;
  }
}

TEST(FindCharacters, the_first_place_is_found) {
  EXPECT_EQ(PlaceOf("A;B;C", ";"), 1);
  EXPECT_EQ(PlaceOf("A{B{\\C", "{\\"), 3);
  EXPECT_EQ(PlaceOf("%%%u", "%%u"), 1);
}

TEST(FindCharacters, what_is_not_there_or_only_half_there_is_not_found) {
  EXPECT_EQ(PlaceOf("ABC", ";"), -1);
  EXPECT_EQ(PlaceOf("", ";"), -1);
  EXPECT_EQ(PlaceOf("AB{", "{\\"), -1);
  EXPECT_EQ(PlaceOf("%", "%%u"), -1);
}

TEST(FindCharacters, nothing_is_found_at_the_start_of_everything) {
  EXPECT_EQ(PlaceOf("ABC", ""), 0);
  EXPECT_EQ(PlaceOf("", ""), 0);
}

TEST(FindCharacters, a_trail_byte_is_no_character) {
  EXPECT_EQ(PlaceOf("\x95\\P", "\\P"), -1);   // 5C is half of a kanji
  EXPECT_EQ(PlaceOf("\x95\\\\P", "\\P"), 2);  // a backslash is after it
  EXPECT_EQ(PlaceOf("\x81\x7D"
                    "5}",
                    "}"),
            3);                                        // 7D is half of the plus-minus
  EXPECT_EQ(PlaceOf("\x82\x81\x40", "\x81\x40"), -1);  // across two characters
}

TEST(FindCharacters, a_pair_is_found_where_it_begins) {
  EXPECT_EQ(PlaceOf("A\x82\x81\x81\x40", "\x81\x40"), 3);
  EXPECT_EQ(PlaceOf("\x81\x69\x81\x6A", "\x81\x6A"), 2);
}

TEST(FindCharacters, a_half_width_katakana_takes_no_byte_along) {
  EXPECT_EQ(PlaceOf("\xB1\\P", "\\P"), 1);
}

TEST(FindCharacters, a_lead_byte_at_the_texts_end_ends_the_search) {
  EXPECT_EQ(PlaceOf("A\x81", ";"), -1);
  EXPECT_EQ(PlaceOf("A\x81", "\x81\x40"), -1);
}

TEST(FindCharacters, bytes_behind_the_texts_end_are_not_looked_at) {
  const char text[] = "A\x81\0;";
  EXPECT_EQ(FindCharacters(text, ";"), nullptr);
}

TEST(FindCharacters, the_place_can_be_written_to) {
  char text[] = "A;B";
  *FindCharacters(text, ";") = ',';
  EXPECT_STREQ(text, "A,B");
}

}  // namespace
}  // namespace hexlume::text_bytes_test
