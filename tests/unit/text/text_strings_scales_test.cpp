// Blanks and brackets, the numbers and faces that codes name, and all routines on bytes by chance.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <ostream>
#include <random>
#include <string>

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"
#include "text/text_bytes.h"
#include "text/text_strings.h"

namespace hexlume::text_strings_scales_test {
namespace {

std::string EntAfter(void (*routine)(), const std::string& text) {
  BoundedCopy(state.entText, text.c_str());
  routine();
  return state.entText;
}

std::string Stripped(const std::string& text) {
  return EntAfter(StripSpaceAndParens, text);
}

std::string BlockStripped(const std::string& text) {
  BoundedCopy(state.blockText, text.c_str());
  StripBlockSpaceAndParens();
  return state.blockText;
}

std::string WideBlanksStripped(const std::string& text) {
  return EntAfter(StripFullWidthSpace, text);
}

std::string Widened(const std::string& text) {
  return EntAfter(WidenEmptyBrackets, text);
}

const std::string wide = fullWidthBlank;
const std::string open = "\x81\x69";
const std::string close = "\x81\x6A";

// StripSpaceAndParens

TEST(StripSpaceAndParens, all_blanks_go) {
  EXPECT_EQ(Stripped(" A B  C "), "ABC");
  EXPECT_EQ(Stripped("   "), "");
}

TEST(StripSpaceAndParens, a_text_without_blanks_loses_one_bracket_of_each_kind) {
  EXPECT_EQ(Stripped("((A))"), "(A)");
  EXPECT_EQ(Stripped("(A"), "A");
  EXPECT_EQ(Stripped("A))"), "A)");
}

TEST(StripSpaceAndParens, a_text_with_one_blank_loses_one_bracket_of_each_kind_too) {
  EXPECT_EQ(Stripped("((A B))"), "(AB)");
}

TEST(StripSpaceAndParens, as_many_brackets_go_as_there_were_blanks) {
  EXPECT_EQ(Stripped("(((A B C)))"), "(ABC)");
  EXPECT_EQ(Stripped("(((A B C D)))"), "ABCD");
  EXPECT_EQ(Stripped("(A B C D"), "ABCD");
}

TEST(StripSpaceAndParens, nothing_else_goes) {
  EXPECT_EQ(Stripped(""), "");
  EXPECT_EQ(Stripped("[A]\t{B}\\A1;" + wide + open + close), "[A]\t{B}\\A1;" + wide + open + close);
}

TEST(StripSpaceAndParens, a_blank_behind_a_lead_byte_goes_all_the_same) {
  EXPECT_EQ(Stripped("\x81 A\x81(B"),
            "\x81"
            "A\x81"
            "B");
}

TEST(StripSpaceAndParens, a_text_of_255_blanks_becomes_empty) {
  EXPECT_EQ(Stripped(std::string(255, ' ')), "");
}

// StripBlockSpaceAndParens

TEST(StripBlockSpaceAndParens, blanks_and_brackets_go_as_they_do_outside_blocks) {
  EXPECT_EQ(BlockStripped(" A B  C "), "ABC");
  EXPECT_EQ(BlockStripped("((A))"), "(A)");
  EXPECT_EQ(BlockStripped("((A B))"), "(AB)");
  EXPECT_EQ(BlockStripped("(((A B C)))"), "(ABC)");
  EXPECT_EQ(BlockStripped(std::string(256, ' ')), "");
}

TEST(StripBlockSpaceAndParens, one_alignment_goes_where_there_is_one_blank_or_none) {
  EXPECT_EQ(BlockStripped("\\A1;A\\A1;B"), "A\\A1;B");
  EXPECT_EQ(BlockStripped("\\A1;A \\A1;B"), "A\\A1;B");
}

TEST(StripBlockSpaceAndParens, as_many_alignments_go_as_there_are_blanks) {
  EXPECT_EQ(BlockStripped("\\A1;A \\A1;B C\\A1;D"), "ABC\\A1;D");
}

TEST(StripBlockSpaceAndParens, the_alignment_goes_before_the_blank) {
  // The blank within is cut only after the one look for the code.
  EXPECT_EQ(BlockStripped("\\A 1;B"), "\\A1;B");
  EXPECT_EQ(BlockStripped("\\A 1;B C"), "BC");
}

TEST(StripBlockSpaceAndParens, an_alignment_that_begins_within_a_kanji_stays) {
  EXPECT_EQ(BlockStripped("\x95\\A1;B"), "\x95\\A1;B");
}

// StripFullWidthSpace

TEST(StripFullWidthSpace, all_full_width_blanks_go) {
  EXPECT_EQ(WideBlanksStripped(wide + "A" + wide + wide + "B" + wide), "AB");
  EXPECT_EQ(WideBlanksStripped(""), "");
  EXPECT_EQ(WideBlanksStripped("A B@"), "A B@");
}

TEST(StripFullWidthSpace, the_bytes_of_a_blank_across_two_characters_stay) {
  EXPECT_EQ(WideBlanksStripped("\x82\x81\x40"), "\x82\x81\x40");
}

// WidenEmptyBrackets

TEST(WidenEmptyBrackets, an_empty_pair_opens_up_by_one_blank) {
  EXPECT_EQ(Widened(open + wide + close), open + wide + wide + close);
}

TEST(WidenEmptyBrackets, a_pair_with_several_blanks_opens_up_by_one_more) {
  EXPECT_EQ(Widened(open + wide + wide + wide + close), open + wide + wide + wide + wide + close);
}

TEST(WidenEmptyBrackets, a_pair_without_a_blank_stays) {
  EXPECT_EQ(Widened(open + close), open + close);
  EXPECT_EQ(Widened(open + " " + close), open + " " + close);
}

TEST(WidenEmptyBrackets, a_blank_behind_the_bracket_counts_wherever_it_is) {
  // The blank is at 4 bytes from the bracket: 4 bytes from it on are all that is left, and are added twice.
  // The bracket's partner before it is lost with that.
  EXPECT_EQ(Widened(open + close + wide + wide), open + wide + wide + wide + wide);
  // Only 2 bytes are left.
  EXPECT_EQ(Widened(open + close + wide), open + wide + wide);
}

TEST(WidenEmptyBrackets, a_blank_in_front_of_the_bracket_stays_and_does_not_count) {
  EXPECT_EQ(Widened(wide + open + close), wide + open + close);
  EXPECT_EQ(Widened(wide + open + wide + close), wide + open + wide + wide + close);
}

TEST(WidenEmptyBrackets, a_half_width_blank_between_bracket_and_blank_halves_a_character) {
  // The blank is at 3 bytes: 81 40 81, then 81 40 81 6A. The half-width blank is lost.
  EXPECT_EQ(Widened(open + " " + wide + close), open + wide + "\x81" + wide + close);
}

TEST(WidenEmptyBrackets, nothing_behind_the_texts_end_is_taken_along) {
  std::memset(state.entText, 'x', sizeof state.entText);
  // The blank is at 12 bytes, and 4 are left from there on.
  EXPECT_EQ(Widened(open + std::string(10, ' ') + wide + close), open + wide + close + wide + close);
}

TEST(WidenEmptyBrackets, half_width_brackets_around_the_pair_do_not_hide_it) {
  EXPECT_EQ(Widened("(" + open + wide + close + ")"), "(" + open + wide + wide + close + ")");
}

TEST(WidenEmptyBrackets, a_text_with_anything_else_stays) {
  EXPECT_EQ(Widened(open + wide + "A" + wide + close), open + wide + "A" + wide + close);
  EXPECT_EQ(Widened("((" + open + wide + close + "))"), "((" + open + wide + close + "))");
  EXPECT_EQ(Widened(" A (B) " + wide), " A (B) " + wide);
  EXPECT_EQ(Widened(""), "");
}

TEST(WidenEmptyBrackets, a_bracket_that_only_the_lost_blank_completes_is_none) {
  // Without the blank 81 69 81 6A, with it the characters 81 20, "i" and the closing bracket.
  EXPECT_EQ(Widened("\x81 \x69" + wide + close), "\x81 \x69" + wide + close);
}

TEST(WidenEmptyBrackets, a_text_that_outgrows_its_buffer_throws_minus_1) {
  std::string blanks;
  for (int i = 0; i < 125; ++i) blanks += wide;
  // 2 + 250 + 2 bytes and 2 more are one too many with the closing 0.
  BoundedCopy(state.entText, (open + blanks + close).c_str());
  EXPECT_THROW(WidenEmptyBrackets(), int32_t);
  // One blank less fits.
  EXPECT_EQ(Widened(open + blanks.substr(2) + close), open + blanks + close);
}

// ParseFontScales

struct Scales {
  double width = 1.5;
  double tracking = 2.5;
  double oblique = 3.5;

  bool operator==(const Scales& other) const {
    return width == other.width && tracking == other.tracking && oblique == other.oblique;
  }
};

void PrintTo(const Scales& scales, std::ostream* stream) {
  *stream << "W " << scales.width << ", T " << scales.tracking << ", Q " << scales.oblique;
}

Scales Parsed(const std::string& text) {
  Scales scales;
  BoundedCopy(state.groupValue, text.c_str());
  ParseFontScales(scales.width, scales.tracking, scales.oblique);
  EXPECT_EQ(state.groupValue, text);
  return scales;
}

// What a block's text leaves of groupValue goes to left.
Scales BlockParsed(const std::string& text, std::string& left) {
  Scales scales;
  BoundedCopy(state.groupValue, text.c_str());
  ParseBlockFontScales(scales.width, scales.tracking, scales.oblique);
  left = state.groupValue;
  return scales;
}

Scales BlockParsed(const std::string& text) {
  std::string left;
  return BlockParsed(text, left);
}

TEST(ParseFontScales, each_code_has_its_number_and_the_text_stays) {
  EXPECT_EQ(Parsed("\\W0.8;A"), (Scales{0.8, 2.5, 3.5}));
  EXPECT_EQ(Parsed("\\T1.2;A"), (Scales{1.5, 1.2, 3.5}));
  EXPECT_EQ(Parsed("\\Q15;A"), (Scales{1.5, 2.5, 15}));
  EXPECT_EQ(Parsed("{\\Q-15;A\\T1.2;B\\W0.8;C}"), (Scales{0.8, 1.2, -15}));
}

TEST(ParseFontScales, a_text_without_codes_changes_nothing) {
  EXPECT_EQ(Parsed(""), Scales());
  EXPECT_EQ(Parsed("W1;T2;Q3;\\w1;\\t2;\\q3;"), Scales());
}

TEST(ParseFontScales, the_first_of_two_like_codes_counts) {
  EXPECT_EQ(Parsed("\\W0.8;A\\W0.9;B"), (Scales{0.8, 2.5, 3.5}));
}

TEST(ParseFontScales, a_code_without_a_semicolon_behind_it_changes_nothing) {
  EXPECT_EQ(Parsed("A;\\W0.8"), Scales());
  EXPECT_EQ(Parsed("A;\\T"), Scales());
  EXPECT_EQ(Parsed("A;\\Q1"), Scales());
}

TEST(ParseFontScales, a_code_takes_the_next_semicolon_whatever_is_between) {
  EXPECT_EQ(Parsed("\\W0.8} and \\T1.2;"), (Scales{0.8, 1.2, 3.5}));
}

TEST(ParseFontScales, a_code_without_a_number_is_0) {
  EXPECT_EQ(Parsed("\\W;\\Tx;\\Q ;"), (Scales{0, 0, 0}));
}

TEST(ParseFontScales, a_number_ends_at_the_semicolon) {
  EXPECT_EQ(Parsed("\\W1;5"), (Scales{1, 2.5, 3.5}));
}

TEST(ParseFontScales, the_trail_byte_5C_of_a_character_is_the_backslash_of_a_code) {
  EXPECT_EQ(Parsed("\x95\\W0.8;\x83\\T1.2;\x94\\Q15;"), (Scales{0.8, 1.2, 15}));
}

// ParseBlockFontScales

TEST(ParseBlockFontScales, each_code_has_its_number) {
  EXPECT_EQ(BlockParsed("\\W0.8;A"), (Scales{0.8, 2.5, 3.5}));
  EXPECT_EQ(BlockParsed("\\T1.2;A"), (Scales{1.5, 1.2, 3.5}));
  EXPECT_EQ(BlockParsed("\\Q15;A"), (Scales{1.5, 2.5, 15}));
  EXPECT_EQ(BlockParsed("\x95\\T1.2;\x83\\W0.8;\x94\\Q15;"), (Scales{0.8, 1.2, 15}));
  EXPECT_EQ(BlockParsed("\\W;"), (Scales{0, 2.5, 3.5}));
}

TEST(ParseBlockFontScales, a_code_without_a_semicolon_behind_it_changes_nothing) {
  for (const char* text : {"", "A;B", "A;\\T1.2", "A;\\W", "A;\\Q15"}) {
    std::string left;
    EXPECT_EQ(BlockParsed(text, left), Scales()) << text;
    EXPECT_EQ(left, text);
  }
}

TEST(ParseBlockFontScales, behind_a_tracking_a_stump_of_as_many_bytes_as_the_number_has_stays) {
  std::string left;
  BlockParsed("ABCDE\\T1.2;F", left);
  EXPECT_EQ(left, "ABC;F");
  BlockParsed("\\T1.25;F", left);  // 4 bytes, from the code itself
  EXPECT_EQ(left, "\\T1.;F");
  BlockParsed("AB\\T;F", left);
  EXPECT_EQ(left, ";F");
}

TEST(ParseBlockFontScales, behind_a_width_only_what_follows_stays) {
  std::string left;
  BlockParsed("ABC\\W0.8;D;E", left);
  EXPECT_EQ(left, "D;E");
}

TEST(ParseBlockFontScales, behind_an_oblique_only_what_follows_stays) {
  std::string left;
  BlockParsed("ABC\\Q15;D;E", left);
  EXPECT_EQ(left, "D;E");
}

TEST(ParseBlockFontScales, a_code_that_an_earlier_one_has_cut_off_is_not_seen) {
  // "\W" goes first, and what is before it with it.
  std::string left;
  EXPECT_EQ(BlockParsed("\\Q15;A\\W0.8;B", left), (Scales{0.8, 2.5, 3.5}));
  EXPECT_EQ(left, "B");
  EXPECT_EQ(BlockParsed("\\W0.8;A\\Q15;B", left), (Scales{0.8, 2.5, 15}));
  EXPECT_EQ(left, "B");
}

TEST(ParseBlockFontScales, the_stump_is_what_the_next_codes_are_looked_for_in) {
  // The stump is "\W1", and with the ";" after it a code again: 1 and not 10.
  std::string left;
  EXPECT_EQ(BlockParsed("\\W10;A\\T1.2;B", left), (Scales{1, 1.2, 3.5}));
  EXPECT_EQ(left, "B");
}

// ExtractFontName

std::string FaceOf(const std::string& text) {
  BoundedCopy(state.entFaceName, "before");
  EXPECT_EQ(EntAfter(ExtractFontName, text), text);
  return state.entFaceName;
}

std::string BlockFaceOf(const std::string& text) {
  BoundedCopy(state.blockFaceName, "before");
  BoundedCopy(state.blockText, text.c_str());
  ExtractBlockFontName();
  EXPECT_EQ(state.blockText, text);
  return state.blockFaceName;
}

TEST(ExtractFontName, the_face_stands_between_the_code_and_the_first_bar) {
  EXPECT_EQ(FaceOf("{\\fArial|b0|i0;Text}"), "Arial");
  EXPECT_EQ(FaceOf("A|B\\f\x82\x6C\x82\x72 \x83\x53|b0;"), "\x82\x6C\x82\x72 \x83\x53");
  EXPECT_EQ(FaceOf("\\f|b0;"), "");
}

TEST(ExtractFontName, the_first_of_two_faces_counts) {
  EXPECT_EQ(FaceOf("\\fArial|b0;A\\fTimes|b0;B"), "Arial");
}

TEST(ExtractFontName, without_a_code_the_face_stays) {
  EXPECT_EQ(FaceOf(""), "before");
  EXPECT_EQ(FaceOf("\\FArial|b0;A"), "before");
}

TEST(ExtractFontName, without_a_bar_behind_the_code_the_face_stays) {
  EXPECT_EQ(FaceOf("A|B\\fArial;C"), "before");
  EXPECT_EQ(FaceOf("A|B\\f"), "before");
}

TEST(ExtractFontName, the_trail_byte_5C_of_a_character_is_the_backslash_of_a_code) {
  EXPECT_EQ(FaceOf("\x83\\fArial|b0;"), "Arial");
}

TEST(ExtractFontName, the_trail_byte_7C_of_a_character_ends_the_face) {
  EXPECT_EQ(FaceOf("\\f\x83\x7C|b0;"), "\x83");  // the katakana po
}

TEST(ExtractFontName, a_face_as_long_as_the_text_allows_is_taken_whole) {
  EXPECT_EQ(FaceOf("\\f" + std::string(252, 'A') + "|"), std::string(252, 'A'));
}

TEST(ExtractFontName, the_blocks_face_stays) {
  BoundedCopy(state.blockFaceName, "block");
  FaceOf("\\fArial|b0;");
  EXPECT_STREQ(state.blockFaceName, "block");
}

TEST(ExtractBlockFontName, the_face_stands_between_the_code_and_the_first_bar) {
  EXPECT_EQ(BlockFaceOf("{\\fArial|b0|i0;Text}"), "Arial");
  EXPECT_EQ(BlockFaceOf("\x83\\f|b0;"), "");
}

TEST(ExtractBlockFontName, without_code_or_bar_the_face_stays) {
  EXPECT_EQ(BlockFaceOf("A|B"), "before");
  EXPECT_EQ(BlockFaceOf("A|B\\fArial;C"), "before");
}

TEST(ExtractBlockFontName, the_face_outside_blocks_stays) {
  BoundedCopy(state.entFaceName, "entity");
  BlockFaceOf("\\fArial|b0;");
  EXPECT_STREQ(state.entFaceName, "entity");
}

// Bytes by chance

std::string RandomText(std::mt19937& random, size_t longest) {
  static const std::string pieces[] = {"%%",       "%",
                                       "%%d",      "%%u",
                                       "{\\",      "}",
                                       ";",        "\\A1;",
                                       " ",        "(",
                                       ")",        "\\T",
                                       "\\W",      "\\Q",
                                       "\\f",      "|",
                                       "\\P",      "\\U+2205",
                                       "\\U+00B0", "\\U+25CF",
                                       "\x95",     "\x81",
                                       "\\C1",     "\x81@",
                                       "1.5",      "\x81\x69\x81\x6A"};
  constexpr size_t pieceCount = sizeof pieces / sizeof pieces[0];
  const size_t length = random() % (longest + 1);
  std::string text;
  while (text.length() < length) {
    if (random() % 3 == 0) {
      text += static_cast<char>(1 + random() % 255);
    } else {
      text += pieces[random() % pieceCount];
    }
  }
  return text.substr(0, length);
}

// A routine on a full or part full buffer ends, with a text in the buffer or with the fault of one too long.
template <size_t size>
void ExpectTextStaysInside(char (&buffer)[size], void (*routine)(), std::mt19937& random) {
  std::memset(buffer, 'd', size);
  const std::string text = RandomText(random, size - 1);
  BoundedCopy(buffer, text.c_str());
  try {
    routine();
  } catch (int32_t code) {
    EXPECT_EQ(code, textTooLongCode);
  }
  EXPECT_NE(std::memchr(buffer, '\0', size), nullptr) << text;
}

void ParseAll() {
  Scales scales;
  ParseFontScales(scales.width, scales.tracking, scales.oblique);
}

void ParseAllOfBlock() {
  Scales scales;
  ParseBlockFontScales(scales.width, scales.tracking, scales.oblique);
}

TEST(TextStrings, any_bytes_leave_a_text_in_each_buffer) {
  std::mt19937 random(6);
  for (int round = 0; round < 5000; ++round) {
    for (void (*routine)() : {ExpandPercentCodes, StripBraceCodes, StripSpaceAndParens, StripFullWidthSpace,
                              WidenEmptyBrackets, ExtractFontName})
      ExpectTextStaysInside(state.entText, routine, random);
    for (void (*routine)() :
         {ExpandBlockPercentCodes, StripBlockBraceCodes, StripBlockSpaceAndParens, ExtractBlockFontName})
      ExpectTextStaysInside(state.blockText, routine, random);
    ExpectTextStaysInside(state.dimText, ExpandDimInsertPercentCodes, random);
    for (void (*routine)() : {ParseAll, ParseAllOfBlock})
      ExpectTextStaysInside(state.groupValue, routine, random);
    EXPECT_NE(std::memchr(state.entFaceName, '\0', sizeof state.entFaceName), nullptr);
    EXPECT_NE(std::memchr(state.blockFaceName, '\0', sizeof state.blockFaceName), nullptr);
  }
}

// The rule in its own words: all "%%u" that begin at a character are cut, then the first "%%" by bytes is replaced or cut with
// the byte after it, until there is none.
void CutUnderlinesByRule(std::string& text) {
  while (const char* const place = FindCharacters(text.c_str(), "%%u"))
    text.erase(static_cast<size_t>(place - text.c_str()), 3);
}

std::string ExpandedByRule(std::string text, bool cutsUnderlines) {
  for (;;) {
    if (cutsUnderlines) CutUnderlinesByRule(text);
    const size_t place = text.find("%%");
    if (place == std::string::npos) return text;
    const char letter = text.c_str()[place + 2];
    text.replace(place, 3,
                 letter == 'c'   ? diameterSign
                 : letter == 'd' ? degreeSign
                 : letter == 'p' ? plusMinusSign
                                 : "");
  }
}

TEST(TextStrings, percent_codes_of_any_bytes_are_expanded_by_the_rule) {
  std::mt19937 random(8);
  for (int round = 0; round < 20000; ++round) {
    const std::string text = RandomText(random, sizeof state.blockText - 1);
    BoundedCopy(state.blockText, text.c_str());
    ExpandBlockPercentCodes();
    EXPECT_EQ(ExpandedByRule(text, true), state.blockText) << text;
    BoundedCopy(state.dimText, text.c_str());
    ExpandDimInsertPercentCodes();
    EXPECT_EQ(ExpandedByRule(text, false), state.dimText) << text;
  }
}

TEST(TextStrings, no_percent_code_is_left_of_any_bytes) {
  std::mt19937 random(7);
  for (int round = 0; round < 5000; ++round) {
    BoundedCopy(state.blockText, RandomText(random, sizeof state.blockText - 1).c_str());
    ExpandBlockPercentCodes();
    EXPECT_EQ(std::strstr(state.blockText, "%%"), nullptr);
    BoundedCopy(state.dimText, RandomText(random, sizeof state.dimText - 1).c_str());
    ExpandDimInsertPercentCodes();
    EXPECT_EQ(std::strstr(state.dimText, "%%"), nullptr);
  }
}

}  // namespace
}  // namespace hexlume::text_strings_scales_test
