// The "%%" codes, the brace codes, blanks and brackets.
#include "text/text_strings.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"
#include "text/text_bytes.h"

namespace hexlume {
namespace {

std::string EntAfter(void (*routine)(), const std::string& text) {
  BoundedCopy(state.entText, text.c_str());
  routine();
  return state.entText;
}

std::string BlockAfter(void (*routine)(), const std::string& text) {
  BoundedCopy(state.blockText, text.c_str());
  routine();
  return state.blockText;
}

std::string DimAfter(void (*routine)(), const std::string& text) {
  BoundedCopy(state.dimText, text.c_str());
  routine();
  return state.dimText;
}

std::string Expanded(const std::string& text) {
  return EntAfter(ExpandPercentCodes, text);
}

std::string BlockExpanded(const std::string& text) {
  return BlockAfter(ExpandBlockPercentCodes, text);
}

std::string DimExpanded(const std::string& text) {
  return DimAfter(ExpandDimInsertPercentCodes, text);
}

std::string BracesStripped(const std::string& text) {
  return EntAfter(StripBraceCodes, text);
}

std::string BlockBracesStripped(const std::string& text) {
  return BlockAfter(StripBlockBraceCodes, text);
}

// Signs under short names, to be read within texts.
const std::string phi = diameterSign;
const std::string degree = degreeSign;
const std::string plusMinus = plusMinusSign;
const std::string dot = middleDot;
const std::string wide = fullWidthBlank;
const std::string open = "\x81\x69";
const std::string close = "\x81\x6A";
const std::string hyo = "\x95\\";  // three kanji and kana with the trail byte 5C
const std::string so = "\x83\\";
const std::string noh = "\x94\\";

// What the routine throws for a text, 0 if nothing.
int32_t Thrown(std::string (*routine)(const std::string&), const std::string& text) {
  try {
    routine(text);
  } catch (int32_t code) {
    return code;
  }
  return 0;
}

// ExpandPercentCodes

TEST(ExpandPercentCodes, a_text_without_codes_stays) {
  EXPECT_EQ(Expanded(""), "");
  EXPECT_EQ(Expanded("50% of {A;B}"), "50% of {A;B}");
}

TEST(ExpandPercentCodes, underlines_and_overlines_vanish_all_of_them) {
  EXPECT_EQ(Expanded("%%uA%%u B%%oC%%o"), "A BC");
}

TEST(ExpandPercentCodes, a_code_that_a_cut_has_joined_is_cut_too) {
  // "%%u" at 2 goes first, what is left is a "%%u" again.
  EXPECT_EQ(Expanded("%%%%uuA"), "A");
}

TEST(ExpandPercentCodes, a_capital_U_or_O_is_an_unknown_code_and_is_cut) {
  EXPECT_EQ(Expanded("%%UA%%OB"), "AB");
}

TEST(ExpandPercentCodes, overlines_go_before_other_codes_are_looked_at) {
  // Without that the first "%%" would take the "%" behind it for its code and leave "oc".
  EXPECT_EQ(Expanded("%%%%oc5"), phi + "5");
}

TEST(ExpandPercentCodes, a_lead_byte_hides_an_underline_which_then_goes_as_an_unknown_code) {
  EXPECT_EQ(Expanded("\x81%%uA"), "\x81" "A");
}

TEST(ExpandPercentCodes, a_lead_byte_hides_no_symbol) {
  EXPECT_EQ(Expanded("\x81%%c5"), "\x81" + phi + "5");
}

TEST(ExpandPercentCodes, c_and_C_are_the_diameter) {
  EXPECT_EQ(Expanded("A%%c5"), "A\x83\xD3" "5");
  EXPECT_EQ(Expanded("A%%C5"), "A\x83\xD3" "5");
}

TEST(ExpandPercentCodes, a_degree_stands_twice_and_all_behind_it_is_lost) {
  EXPECT_EQ(Expanded("10%%dC"), "10\x81\x8B\x81\x8B");
  EXPECT_EQ(Expanded("10%%DC"), "10\x81\x8B\x81\x8B");
  EXPECT_EQ(Expanded("1%%d2%%d3%%c4"), "1" + degree + degree);
}

TEST(ExpandPercentCodes, a_small_p_is_plus_minus) {
  EXPECT_EQ(Expanded("5%%p1"), "5\x81\x7D" "1");
}

TEST(ExpandPercentCodes, a_capital_P_is_cut) {
  EXPECT_EQ(Expanded("5%%P1"), "51");
}

TEST(ExpandPercentCodes, an_unknown_code_is_cut_with_its_byte) {
  EXPECT_EQ(Expanded("A%%kB%%1C"), "ABC");
}

TEST(ExpandPercentCodes, three_percents_and_d_leave_the_d) {
  EXPECT_EQ(Expanded("%%%d"), "d");
}

TEST(ExpandPercentCodes, four_percents_take_each_other_away) {
  // "%%%" goes, "%" stays and is no code.
  EXPECT_EQ(Expanded("A%%%%"), "A%");
}

TEST(ExpandPercentCodes, percents_at_the_very_end_are_cut_with_what_is_there) {
  EXPECT_EQ(Expanded("A%%"), "A");
  EXPECT_EQ(Expanded("%%"), "");
}

TEST(ExpandPercentCodes, bytes_behind_the_texts_end_are_not_taken_for_a_code) {
  std::memset(state.entText, 'd', sizeof state.entText);
  EXPECT_EQ(Expanded("A%%"), "A");
}

TEST(ExpandPercentCodes, one_percent_at_the_end_stays) {
  EXPECT_EQ(Expanded("A%"), "A%");
}

TEST(ExpandPercentCodes, all_codes_of_a_text_are_expanded) {
  EXPECT_EQ(Expanded("%%c1%%p2%%c3%%k%%p4"), phi + "1" + plusMinus + "2" + phi + "3" + plusMinus + "4");
}

TEST(ExpandPercentCodes, the_three_U_codes_become_their_symbols) {
  EXPECT_EQ(Expanded("\\U+2205 12"), phi + " 12");
  EXPECT_EQ(Expanded("90\\U+00B0A"), "90" + degree + "A");
  EXPECT_EQ(Expanded("A\\U+25CFB"), "A\x81\x45" "B");
}

TEST(ExpandPercentCodes, a_second_U_code_of_a_kind_stays_where_no_percents_are_left) {
  EXPECT_EQ(Expanded("\\U+2205\\U+2205"), phi + "\\U+2205");
  EXPECT_EQ(Expanded("\\U+00B0\\U+00B0"), degree + "\\U+00B0");
  EXPECT_EQ(Expanded("\\U+25CF\\U+25CF"), dot + "\\U+25CF");
}

TEST(ExpandPercentCodes, every_round_for_a_percent_code_takes_one_more_U_code_of_each_kind) {
  // Two "%%" codes, two rounds; the third "\U+2205" stays.
  EXPECT_EQ(Expanded("%%c%%p\\U+2205\\U+2205\\U+2205\\U+00B0\\U+00B0\\U+25CF\\U+25CF"),
            phi + plusMinus + phi + phi + "\\U+2205" + degree + degree + dot + dot);
}

TEST(ExpandPercentCodes, there_is_no_U_code_for_plus_minus) {
  EXPECT_EQ(Expanded("5\\U+00B11"), "5\\U+00B11");
}

TEST(ExpandPercentCodes, a_U_code_in_small_letters_or_cut_off_stays) {
  EXPECT_EQ(Expanded("\\U+00b0\\u+2205"), "\\U+00b0\\u+2205");
  EXPECT_EQ(Expanded("A\\U+220"), "A\\U+220");
  EXPECT_EQ(Expanded("A\\U+"), "A\\U+");
}

TEST(ExpandPercentCodes, the_trail_byte_5C_of_a_character_is_the_backslash_of_a_U_code) {
  // The lead byte stays alone in front of the symbol.
  EXPECT_EQ(Expanded(hyo + "U+22055"), "\x95" + phi + "5");
  EXPECT_EQ(Expanded(so + "U+00B0"), "\x83" + degree);
  EXPECT_EQ(Expanded(noh + "U+25CF"), "\x94" + dot);
}

TEST(ExpandPercentCodes, a_degree_that_grows_up_to_255_bytes_fits) {
  EXPECT_EQ(Expanded(std::string(251, 'A') + "%%d"), std::string(251, 'A') + degree + degree);
}

TEST(ExpandPercentCodes, a_text_of_255_bytes_that_a_degree_lets_grow_throws_minus_1) {
  EXPECT_EQ(Thrown(Expanded, std::string(252, 'A') + "%%d"), -1);
}

TEST(ExpandPercentCodes, a_U_code_that_would_shorten_the_text_comes_too_late_for_a_degree_that_does_not_fit) {
  EXPECT_EQ(Thrown(Expanded, "\\U+2205" + std::string(245, 'A') + "%%d"), -1);
}

TEST(ExpandPercentCodes, a_text_of_nothing_but_codes_ends_empty) {
  EXPECT_EQ(Expanded(std::string(255, '%')), "");
}

// ExpandBlockPercentCodes

TEST(ExpandBlockPercentCodes, small_letters_become_their_symbols_and_all_text_stays) {
  EXPECT_EQ(BlockExpanded("10%%dC"), "10\x81\x8B" "C");
  EXPECT_EQ(BlockExpanded("%%c5%%p1%%d2%%c3"), phi + "5" + plusMinus + "1" + degree + "2" + phi + "3");
}

TEST(ExpandBlockPercentCodes, capitals_are_cut) {
  EXPECT_EQ(BlockExpanded("A%%CB%%DC%%PD"), "ABCD");
}

TEST(ExpandBlockPercentCodes, underlines_vanish_before_other_codes_are_looked_at) {
  // Without that the first "%%" would take the third "%" for its code and leave "uc".
  EXPECT_EQ(BlockExpanded("%%%%uc5"), phi + "5");
}

TEST(ExpandBlockPercentCodes, an_overline_is_an_unknown_code_and_cut_in_its_turn) {
  EXPECT_EQ(BlockExpanded("A%%oB"), "AB");
  EXPECT_EQ(BlockExpanded("%%%%oc5"), "oc5");  // "%%%" goes, then "%oc5" has no code
}

TEST(ExpandBlockPercentCodes, U_codes_stay) {
  EXPECT_EQ(BlockExpanded("\\U+2205%%c\\U+00B0\\U+25CF"), "\\U+2205" + phi + "\\U+00B0\\U+25CF");
}

TEST(ExpandBlockPercentCodes, percents_at_the_very_end_are_cut_with_what_is_there) {
  std::memset(state.blockText, 'd', sizeof state.blockText);
  EXPECT_EQ(BlockExpanded("A%%"), "A");
  EXPECT_EQ(BlockExpanded("A%"), "A%");
}

TEST(ExpandBlockPercentCodes, a_full_text_cannot_grow) {
  EXPECT_EQ(BlockExpanded(std::string(253, 'A') + "%%d"), std::string(253, 'A') + degree);
}

// ExpandDimInsertPercentCodes

TEST(ExpandDimInsertPercentCodes, small_letters_become_their_symbols_and_all_text_stays) {
  EXPECT_EQ(DimExpanded("%%c5%%p1%%d2%%c3"), phi + "5" + plusMinus + "1" + degree + "2" + phi + "3");
}

TEST(ExpandDimInsertPercentCodes, capitals_lines_and_unknown_codes_are_cut) {
  EXPECT_EQ(DimExpanded("A%%CB%%DC%%PD%%uE%%oF%%kG"), "ABCDEFG");
}

TEST(ExpandDimInsertPercentCodes, an_underline_has_no_turn_of_its_own) {
  EXPECT_EQ(DimExpanded("%%%%uc5"), "uc5");  // "%%%" goes, then "%uc5" has no code
}

TEST(ExpandDimInsertPercentCodes, U_codes_stay) {
  EXPECT_EQ(DimExpanded("\\U+2205%%d\\U+00B0"), "\\U+2205" + degree + "\\U+00B0");
}

TEST(ExpandDimInsertPercentCodes, percents_at_the_very_end_are_cut_with_what_is_there) {
  std::memset(state.dimText, 'd', sizeof state.dimText);
  EXPECT_EQ(DimExpanded("A%%"), "A");
  EXPECT_EQ(DimExpanded("A%"), "A%");
}

