// The "%%" codes and the brace codes.
#include "text/text_strings.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"

namespace hexlume::text_strings_test {
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
  // "%%o" at 2 goes and "%%c" is left. Else "%%%" would go, and "%oc5" be left.
  EXPECT_EQ(Expanded("%%%%oc5"), phi + "5");
}

TEST(ExpandPercentCodes, a_lead_byte_hides_an_underline_which_then_goes_as_an_unknown_code) {
  EXPECT_EQ(Expanded("\x81%%uA"),
            "\x81"
            "A");
}

TEST(ExpandPercentCodes, a_lead_byte_hides_no_symbol) {
  EXPECT_EQ(Expanded("\x81%%c5"), "\x81" + phi + "5");
}

TEST(ExpandPercentCodes, c_and_C_are_the_diameter) {
  EXPECT_EQ(Expanded("A%%c5"),
            "A\x83\xD3"
            "5");
  EXPECT_EQ(Expanded("A%%C5"),
            "A\x83\xD3"
            "5");
}

TEST(ExpandPercentCodes, a_degree_stands_twice_and_all_behind_it_is_lost) {
  EXPECT_EQ(Expanded("10%%dC"), "10\x81\x8B\x81\x8B");
  EXPECT_EQ(Expanded("10%%DC"), "10\x81\x8B\x81\x8B");
  EXPECT_EQ(Expanded("1%%d2%%d3%%c4"), "1" + degree + degree);
}

TEST(ExpandPercentCodes, a_small_p_is_plus_minus) {
  EXPECT_EQ(Expanded("5%%p1"),
            "5\x81\x7D"
            "1");
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
  EXPECT_EQ(Expanded("A\\U+25CFB"),
            "A\x81\x45"
            "B");
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
  // The lead byte stays alone before the symbol.
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
  EXPECT_EQ(BlockExpanded("10%%dC"),
            "10\x81\x8B"
            "C");
  EXPECT_EQ(BlockExpanded("%%c5%%p1%%d2%%c3"), phi + "5" + plusMinus + "1" + degree + "2" + phi + "3");
}

TEST(ExpandBlockPercentCodes, capitals_are_cut) {
  EXPECT_EQ(BlockExpanded("A%%CB%%DC%%PD"), "ABCD");
}

TEST(ExpandBlockPercentCodes, underlines_vanish_before_other_codes_are_looked_at) {
  // "%%u" at 2 goes and "%%c" is left. Else "%%%" would go, and "%uc5" be left.
  EXPECT_EQ(BlockExpanded("%%%%uc5"), phi + "5");
}

TEST(ExpandBlockPercentCodes, an_overline_is_an_unknown_code_and_cut_in_its_turn) {
  EXPECT_EQ(BlockExpanded("A%%oB"), "AB");
  EXPECT_EQ(BlockExpanded("%%%%oc5"), "%oc5");  // "%%%" goes, and what is left has no code
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
  EXPECT_EQ(DimExpanded("%%%%uc5"), "%uc5");  // "%%%" goes, and what is left has no code
}

TEST(ExpandDimInsertPercentCodes, U_codes_stay) {
  EXPECT_EQ(DimExpanded("\\U+2205%%d\\U+00B0"), "\\U+2205" + degree + "\\U+00B0");
}

TEST(ExpandDimInsertPercentCodes, percents_at_the_very_end_are_cut_with_what_is_there) {
  std::memset(state.dimText, 'd', sizeof state.dimText);
  EXPECT_EQ(DimExpanded("A%%"), "A");
  EXPECT_EQ(DimExpanded("A%"), "A%");
}

// StripBraceCodes

TEST(StripBraceCodes, a_text_without_codes_stays) {
  EXPECT_EQ(BracesStripped(""), "");
  EXPECT_EQ(BracesStripped("A;B {C} D}"), "A;B {C} D}");
}

TEST(StripBraceCodes, a_face_or_a_colour_in_a_brace_falls_away_with_the_brace) {
  EXPECT_EQ(BracesStripped("{\\fArial|b0;Text} more"), "Text more");
  EXPECT_EQ(BracesStripped("{\\C1;Red}"), "Red");
  EXPECT_EQ(BracesStripped("Front {\\C1;Red}"), "Front Red");
}

TEST(StripBraceCodes, closing_braces_at_the_start_are_dropped_all_of_them) {
  EXPECT_EQ(BracesStripped("}}}"), "");
  EXPECT_EQ(BracesStripped("}}A}"), "A}");
  EXPECT_EQ(BracesStripped("A}"), "A}");
}

TEST(StripBraceCodes, a_code_at_the_start_falls_away) {
  EXPECT_EQ(BracesStripped("\\H2.5;A"), "A");
  EXPECT_EQ(BracesStripped("\\pxqc;A;B"), "A;B");
  EXPECT_EQ(BracesStripped("}\\H2.5;A"), "A");
}

TEST(StripBraceCodes, a_second_code_at_the_start_stays) {
  EXPECT_EQ(BracesStripped("\\H2.5;\\C1;A"), "\\C1;A");
}

TEST(StripBraceCodes, a_code_at_the_start_without_a_semicolon_stays) {
  EXPECT_EQ(BracesStripped("\\H2.5"), "\\H2.5");
  EXPECT_EQ(BracesStripped("\\"), "\\");
}

TEST(StripBraceCodes, a_kanji_with_the_trail_byte_5C_at_the_start_is_no_code) {
  EXPECT_EQ(BracesStripped(hyo + "H2.5;A"), hyo + "H2.5;A");
}

TEST(StripBraceCodes, codes_outside_braces_are_drawn_as_they_stand) {
  EXPECT_EQ(BracesStripped("A\\LB\\lC\\H2;D\\C1;E"), "A\\LB\\lC\\H2;D\\C1;E");
}

TEST(StripBraceCodes, the_alignment_1_is_cut_once) {
  EXPECT_EQ(BracesStripped("A\\A1;B\\A1;C"), "AB\\A1;C");
  EXPECT_EQ(BracesStripped("A\\A0;B"), "A\\A0;B");
}

TEST(StripBraceCodes, the_alignment_1_at_the_start_goes_as_a_code_there_and_another_one_besides) {
  EXPECT_EQ(BracesStripped("\\A1;\\A1;B"), "B");
}

TEST(StripBraceCodes, an_alignment_that_begins_within_a_kanji_is_none) {
  EXPECT_EQ(BracesStripped("A" + hyo + "A1;B"), "A" + hyo + "A1;B");
}

TEST(StripBraceCodes, an_alignment_alone_in_a_brace_goes_first_and_the_braces_stay) {
  EXPECT_EQ(BracesStripped("{\\A1;x}"), "{x}");
}

TEST(StripBraceCodes, several_braces_are_opened_one_after_the_other) {
  // "A{\C1;B}C{\C2;D}E" first becomes "ABC{\C2;D}E".
  EXPECT_EQ(BracesStripped("A{\\C1;B}C{\\C2;D}E"), "ABCDE");
}

TEST(StripBraceCodes, nested_braces_are_opened_from_outside) {
  // The first "}" closes the outer brace: "{\C1;Red more}", then "Red more".
  EXPECT_EQ(BracesStripped("{\\fArial|b0;{\\C1;Red} more}"), "Red more");
  // "{\C2;{\H3;C} B} A", "{\H3;C B} A", "C B A".
  EXPECT_EQ(BracesStripped("{\\C1;{\\C2;{\\H3;C} B} A}"), "C B A");
}

TEST(StripBraceCodes, a_second_code_in_a_brace_stays_but_at_the_start) {
  EXPECT_EQ(BracesStripped("A{\\C1;\\H2;B}"), "A\\H2;B");
}

TEST(StripBraceCodes, without_a_closing_brace_the_tail_is_lost) {
  EXPECT_EQ(BracesStripped("Front {\\C1;Red"), "Front ");
  EXPECT_EQ(BracesStripped("A{\\"), "A");
}

TEST(StripBraceCodes, without_a_semicolon_the_byte_before_the_closing_brace_is_kept) {
  EXPECT_EQ(BracesStripped("A{\\LBC}D"), "ACD");
  EXPECT_EQ(BracesStripped("A{\\L" + hyo + "}D"), "A\\D");  // half of the kanji
}

TEST(StripBraceCodes, without_a_semicolon_the_closing_brace_is_looked_for_from_the_start) {
  // "A}" is in front: "A}B", the byte before that brace, "A", and all after it, "B{\L". So it grows round by
  // round: the part before "{\" has 3, 5, 9, 17, 33, 65, 129 and 257 bytes.
  EXPECT_EQ(Thrown(BracesStripped, "A}B{\\L"), -1);
  EXPECT_EQ(Thrown(BracesStripped, "{A} {\\LB}"), -1);
}

TEST(StripBraceCodes, a_closing_brace_at_the_very_start_has_no_byte_before_it) {
  // "\C1;" goes, "}{\x" has its "}" in front: "}" and "{\x". The next round drops the "}", and then the rest
  // has neither end.
  EXPECT_EQ(BracesStripped("\\C1;}{\\x"), "");
}

TEST(StripBraceCodes, a_semicolon_in_front_of_the_brace_makes_a_mess) {
  // "A;B", then what is between that ";" and the "}", "B{\C1;C", then "D": "A;BB{\C1;CD", 11 bytes as before.
  // Then no "}" is left, and "A;BB" stays.
  EXPECT_EQ(BracesStripped("A;B{\\C1;C}D"), "A;BB");
  // "NOTE 1;  {\LSEE B", then without a "}".
  EXPECT_EQ(BracesStripped("NOTE 1; {\\LSEE B}"), "NOTE 1;  ");
  // "AB\H1.5x;CD" and "CD{\fArial|b0;EF".
  EXPECT_EQ(BracesStripped("AB\\H1.5x;CD{\\fArial|b0;EF}"), "AB\\H1.5x;CDCD");
}

TEST(StripBraceCodes, a_semicolon_in_front_doubles_what_is_between_it_and_the_brace_for_each_closing_brace) {
  // One blank, after the first "}" two: "SUS304;  {\fArial|b0;A and {\C1;B}", after the second one four, and
  // then all from "{\" on is lost.
  EXPECT_EQ(BracesStripped("SUS304; {\\fArial|b0;A} and {\\C1;B}"), "SUS304;    ");
}

TEST(StripBraceCodes, the_closing_brace_behind_the_semicolon_counts_where_one_stands_in_front_of_it) {
  EXPECT_EQ(BracesStripped("A}B{\\C1;C}D"), "A}BCD");
}

TEST(StripBraceCodes, a_semicolon_behind_the_brace_leaves_out_what_is_between) {
  EXPECT_EQ(BracesStripped("{\\L}A;B}C"), "BC");
}

TEST(StripBraceCodes, a_text_that_a_round_leaves_unchanged_ends_there) {
  // "A;}", then what is between ";" and "}", nothing, then what is after the "}", "{\x".
  EXPECT_EQ(BracesStripped("A;}{\\x"), "A;}{\\x");
}

TEST(StripBraceCodes, a_text_that_grows_from_round_to_round_throws_minus_1) {
  // "A;B}", then "B" with nothing after the "}" but "{\x": 8 bytes out of 7, then 10, 14, 22, 38, 70, 134,
  // 262.
  EXPECT_EQ(Thrown(BracesStripped, "A;B}{\\x"), -1);
}

TEST(StripBraceCodes, a_text_of_255_bytes_that_grows_throws_minus_1) {
  // 121 bytes before the brace, then the 253 between ";" and "}".
  EXPECT_EQ(Thrown(BracesStripped, ";" + std::string(120, 'A') + "{\\x" + std::string(130, 'B') + "}"), -1);
}

TEST(StripBraceCodes, the_trail_bytes_5C_7B_and_7D_are_no_marks) {
  EXPECT_EQ(BracesStripped("{\\C1;" + plusMinus + "5}A"), plusMinus + "5A");  // 81 7D
  EXPECT_EQ(BracesStripped("\x81\x7B\\A"), "\x81\x7B\\A");                    // 81 7B, the plus
  EXPECT_EQ(BracesStripped(plusMinus + "{\\LB}"), plusMinus + "B");           // "}" from the start
  EXPECT_EQ(BracesStripped("{\\C1;" + so + noh + "}" + hyo), so + noh + hyo);
}

TEST(StripBraceCodes, a_lead_byte_hides_the_mark_behind_it) {
  EXPECT_EQ(BracesStripped("\\C1\x81;A;B"), "B");
  EXPECT_EQ(BracesStripped("A{\\C1\x81;A;B}C"), "ABC");
  EXPECT_EQ(BracesStripped("{\\C1;A\x81}B}C"), "A\x81}BC");
}

TEST(StripBraceCodes, a_kanji_that_looks_like_a_brace_with_a_code_starts_no_other_round) {
  // Another round would take "\H2;" off.
  EXPECT_EQ(BracesStripped("{\\C1;\\H2;}A\x81\x7B\\;"), "\\H2;A\x81\x7B\\;");
}

// A text that grows for one round: 101 bytes before the brace, then the 129 between ";" and "}", and
// what is after the "}". The next round finds no "}" and leaves what is before "{\".
std::string Growing(size_t grownLength) {
  return ";" + std::string(100, 'A') + "{\\x" + std::string(26, 'B') + "}" +
         std::string(grownLength - 230, 'C');
}
const std::string grown = ";" + std::string(200, 'A');

TEST(StripBraceCodes, the_buffer_holds_255_bytes) {
  EXPECT_EQ(BracesStripped(Growing(255)), grown);
  EXPECT_EQ(Thrown(BracesStripped, Growing(256)), -1);
}

// StripBlockBraceCodes

TEST(StripBlockBraceCodes, codes_go_as_they_do_outside_blocks) {
  EXPECT_EQ(BlockBracesStripped("{\\fArial|b0;Text} more"), "Text more");
  EXPECT_EQ(BlockBracesStripped("}}\\H2.5;A\\A1;B{\\C1;C}"), "ABC");
  EXPECT_EQ(BlockBracesStripped("{\\A1;x}"), "{x}");
  EXPECT_EQ(BlockBracesStripped("A{\\LBC}D"), "ACD");
  EXPECT_EQ(BlockBracesStripped("A{\\C1;B"), "A");
}

TEST(StripBlockBraceCodes, a_semicolon_in_front_of_the_brace_makes_the_same_mess) {
  EXPECT_EQ(BlockBracesStripped("SUS304; {\\fArial|b0;A} and {\\C1;B}"), "SUS304;    ");
  EXPECT_EQ(Thrown(BlockBracesStripped, "{A} {\\LB}"), -1);
}

TEST(StripBlockBraceCodes, the_buffer_holds_a_byte_more_than_that_of_the_entities) {
  EXPECT_EQ(BlockBracesStripped(Growing(256)), grown);
  EXPECT_EQ(Thrown(BlockBracesStripped, Growing(257)), -1);
}

}  // namespace
}  // namespace hexlume::text_strings_test
