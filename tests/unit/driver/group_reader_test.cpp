#include "driver/group_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "driver/conv_state.h"
#include "support/text_drawing.h"

namespace hexlume::group_reader_test {
namespace {

struct Group {
  int32_t code;
  std::string value;
};

bool operator==(const Group& a, const Group& b) {
  return a.code == b.code && a.value == b.value;
}
void PrintTo(const Group& group, std::ostream* out) {
  *out << group.code << " \"" << group.value << '"';
}

using Groups = std::vector<Group>;

Groups ReadAll(TextStream& stream) {
  Groups groups;
  while (ReadGroup(stream)) groups.push_back({state.groupCode, state.groupValue});
  return groups;
}

Groups ReadAll(const std::string& bytes) {
  TemporaryFile file(bytes);
  TextStream stream;
  if (!OpenText(stream, file.Path())) return {{-1, "not opened"}};
  return ReadAll(stream);
}

TEST(ReadGroup, a_group_is_a_line_with_a_code_and_a_line_with_a_value) {
  EXPECT_EQ((Groups{{0, "SECTION"}, {2, "HEADER"}, {10, "12.5"}}),
            ReadAll("0\nSECTION\n2\nHEADER\n10\n12.5\n"));
}

TEST(ReadGroup, line_ends_of_both_kinds_read_alike) {
  const std::string groups = "0 SECTION\n9 $LIMMAX\n10 420.0\n20 \n1 two words \n";
  const Groups expected = {{0, "SECTION"}, {9, "$LIMMAX"}, {10, "420.0"}, {20, ""}, {1, "two words "}};
  EXPECT_EQ(expected, ReadAll(DrawingBytes(groups, "\n")));
  EXPECT_EQ(expected, ReadAll(DrawingBytes(groups, "\r\n")));
}

TEST(ReadGroup, an_empty_value_line_empties_the_value) {
  EXPECT_EQ((Groups{{1, "before"}, {1, ""}, {2, "after"}}), ReadAll("1\nbefore\n1\n\n2\nafter\n"));
  EXPECT_EQ((Groups{{1, "before"}, {1, ""}, {2, "after"}}),
            ReadAll("1\r\nbefore\r\n1\r\n\r\n2\r\nafter\r\n"));
}

TEST(ReadGroup, blanks_in_front_of_the_code_do_not_count) {
  EXPECT_EQ((Groups{{0, "A"}, {10, "B"}, {62, "C"}}), ReadAll("  0\nA\n\t10\nB\n    62\nC\n"));
}

TEST(ReadGroup, blanks_of_the_value_stay) {
  EXPECT_EQ((Groups{{0, "  LINE  "}}), ReadAll("0\n  LINE  \n"));
}

TEST(ReadGroup, a_code_line_without_a_number_is_code_0) {
  EXPECT_EQ((Groups{{0, "a"}, {0, "b"}, {0, "c"}}), ReadAll("LINE\na\n\nb\n-\nc\n"));
}

TEST(ReadGroup, a_code_is_the_number_at_the_start_of_its_line) {
  EXPECT_EQ((Groups{{10, "a"}, {10, "b"}, {-5, "c"}, {8, "d"}}),
            ReadAll("10.7\na\n10 11\nb\n-5\nc\n+8x\nd\n"));
}

TEST(ReadGroup, the_last_line_needs_no_line_end) {
  EXPECT_EQ((Groups{{0, "EOF"}}), ReadAll("0\nEOF"));
}

TEST(ReadGroup, a_file_that_ends_behind_a_code_returns_0_with_the_code_stored) {
  for (const char* end : {" 62", " 62\n", " 62\r\n", " 62\n\x1A"}) {
    TemporaryFile file(std::string("0\nLINE\n") + end);
    TextStream stream;
    ASSERT_TRUE(OpenText(stream, file.Path()));
    EXPECT_EQ(1, ReadGroup(stream));
    EXPECT_EQ(0, ReadGroup(stream)) << end;
    EXPECT_EQ(62, state.groupCode) << end;
    EXPECT_EQ(0, ReadGroup(stream)) << end;
  }
}

TEST(ReadGroup, an_empty_file_has_no_group) {
  EXPECT_EQ(Groups{}, ReadAll(""));
}

TEST(ReadGroup, the_end_of_the_file_leaves_the_last_group) {
  EXPECT_EQ((Groups{{5, "2F"}}), ReadAll("5\n2F\n"));
  EXPECT_EQ(5, state.groupCode);
  EXPECT_STREQ("2F", state.groupValue);
}

TEST(ReadGroup, the_end_mark_ends_the_file_anywhere) {
  EXPECT_EQ((Groups{{0, "A"}}), ReadAll("0\nA\n\x1A"
                                        "0\nB\n"));
  EXPECT_EQ((Groups{{0, "A"}, {0, "B"}}), ReadAll("0\nA\n0\nB\x1A"
                                                  "C\n0\nD\n"));
}

// From a value one line feed is dropped, then one carriage return.
TEST(ReadGroup, a_cr_in_front_of_the_line_end_is_dropped_once) {
  EXPECT_EQ((Groups{{1, "A"}}), ReadAll("1\nA\r\r\n"));
  EXPECT_EQ((Groups{{1, "A\r"}}), ReadAll("1\nA\r\r\r\n"));
  EXPECT_EQ((Groups{{1, "A"}}), ReadAll("1\nA\r"));
  EXPECT_EQ((Groups{{1, ""}}), ReadAll("1\n\r\r\n"));
  EXPECT_EQ((Groups{{1, ""}}), ReadAll("1\n\r"));
}

TEST(ReadGroup, a_lone_cr_ends_no_line) {
  EXPECT_EQ((Groups{{1, "A\rB"}}), ReadAll("1\nA\rB\n"));
  EXPECT_EQ(Groups{}, ReadAll("0\rSECTION\r2\rHEADER\r"));
}

TEST(ReadGroup, a_0_byte_ends_the_text_of_its_line_alone) {
  EXPECT_EQ((Groups{{1, "A"}, {2, "C"}}), ReadAll(std::string("1\nA\0B\n2\nC\n", 10)));
  EXPECT_EQ((Groups{{1, "A"}, {2, "C"}}), ReadAll(std::string("1\0002\nA\n2\nC\n", 10)));
  EXPECT_EQ((Groups{{1, ""}, {2, "C"}}), ReadAll(std::string("1\n\0\n2\nC\n", 8)));
}

TEST(ReadGroup, bytes_beyond_ascii_stay) {
  EXPECT_EQ((Groups{{8, "\x90\x7d\x8c\x60"}}), ReadAll("8\n\x90\x7d\x8c\x60\n"));
}

// LONG LINES

TEST(ReadGroup, a_value_of_254_characters_fits) {
  const std::string a254(254, 'a');
  for (const char* lineEnd : {"\n", "\r\n"})
    EXPECT_EQ((Groups{{1, a254}, {62, "5"}}), ReadAll("1\n" + a254 + lineEnd + "62\n5\n"));
}

TEST(ReadGroup, the_line_end_behind_255_characters_is_the_next_code_line) {
  const std::string a255(255, 'a');
  for (const std::string lineEnd : {"\n", "\r\n"}) {
    const std::string bytes = "1\n" + a255 + lineEnd + " 62\n5\n8\nLAYER\n";
    EXPECT_EQ((Groups{{1, a255}, {0, " 62"}, {5, "8"}}), ReadAll(bytes));
    EXPECT_EQ(0, state.groupCode);  // of "LAYER", after which the file ends
  }
}

TEST(ReadGroup, the_rest_of_a_longer_value_is_the_next_code_line) {
  const std::string a255(255, 'a');
  for (const std::string lineEnd : {"\n", "\r\n"})
    EXPECT_EQ((Groups{{1, a255}, {7, " 62"}, {5, "8"}}),
              ReadAll("1\n" + a255 + "7" + lineEnd + " 62\n5\n8\n"));
}

TEST(ReadGroup, the_rest_of_a_longer_code_line_is_its_value) {
  const std::string code = "10" + std::string(253, ' ');
  EXPECT_EQ((Groups{{10, "REST"}, {0, "EOF"}}), ReadAll(code + "REST\n0\nEOF\n"));
}

TEST(ReadGroup, a_cr_as_the_last_of_255_characters_is_dropped) {
  const std::string a254(254, 'a');
  EXPECT_EQ((Groups{{1, a254}, {0, "B"}}), ReadAll("1\n" + a254 + "\rxyz\nB\n"));
}

// 100,000 characters are 392 pieces of 255 and one of 40: 393 lines, so that with the code line before
// them and the two after them there are 396, or 198 groups. An even number of lines is before "0",
// "EOF".
TEST(ReadGroup, groups_out_of_step_fall_back_into_step_by_chance) {
  const Groups groups = ReadAll("1\n" + std::string(100000, 'x') + "\n0\nEOF\n");
  ASSERT_EQ(198u, groups.size());
  EXPECT_EQ((Group{1, std::string(255, 'x')}), groups[0]);
  EXPECT_EQ((Group{0, std::string(255, 'x')}), groups[1]);
  EXPECT_EQ((Group{0, std::string(40, 'x')}), groups[196]);
  EXPECT_EQ((Group{0, "EOF"}), groups[197]);
}

// KEYWORDS

TEST(AtGroup, a_keyword_is_compared_as_a_whole_with_its_case_and_code) {
  EXPECT_EQ((Groups{{0, "ENDSEC"}}), ReadAll("0\nENDSEC\n"));
  EXPECT_TRUE(AtGroup(0, "ENDSEC"));
  EXPECT_FALSE(AtGroup(2, "ENDSEC"));
  EXPECT_FALSE(AtGroup(0, "ENDSE"));
  EXPECT_FALSE(AtGroup(0, "ENDSECT"));
  EXPECT_FALSE(AtGroup(0, "Endsec"));
  EXPECT_FALSE(AtGroup(0, ""));
}

TEST(AtGroup, a_value_with_a_blank_too_many_is_no_keyword) {
  ReadAll("0\nENDSEC \n");
  EXPECT_FALSE(AtGroup(0, "ENDSEC"));
  ReadAll("0\n ENDSEC\n");
  EXPECT_FALSE(AtGroup(0, "ENDSEC"));
}

// WHATEVER THE BYTES ARE

// A group by the two lines that it consists of.
int32_t ReadLineByLine(TextStream& stream) {
  if (!ReadLine(stream, state.groupValue, 256)) return 0;
  state.groupCode = Atoi(state.groupValue);
  if (!ReadLine(stream, state.groupValue, 256)) return 0;
  std::string value = state.groupValue;
  if (!value.empty() && value.back() == '\n') value.pop_back();
  if (!value.empty() && value.back() == '\r') value.pop_back();
  std::strcpy(state.groupValue, value.c_str());
  return 1;
}

int32_t ReadToEntityGroupByGroup(TextStream& stream) {
  int32_t more = ReadLineByLine(stream);
  while (more && state.groupCode != 0) more = ReadLineByLine(stream);
  return more;
}

// What a reader leaves each time, to the end of the file: its result, the place, and the buffer.
std::vector<std::string> AllThatIsLeft(const std::string& bytes, int32_t (*read)(TextStream&)) {
  const TemporaryFile file(bytes);
  TextStream stream;
  if (!OpenText(stream, file.Path())) return {"not opened"};
  state.groupCode = -1;
  std::strcpy(state.groupValue, "before");
  std::vector<std::string> left;
  for (int32_t result = 1; result != 0;) {
    result = read(stream);
    left.push_back(std::to_string(result) + " at " + std::to_string(Tell(stream)) + ": " +
                   std::to_string(state.groupCode) + " \"" + state.groupValue + '"');
  }
  return left;
}

void ExpectBothReadersSame(const std::string& bytes) {
  EXPECT_EQ(AllThatIsLeft(bytes, ReadLineByLine), AllThatIsLeft(bytes, ReadGroup));
  EXPECT_EQ(AllThatIsLeft(bytes, ReadToEntityGroupByGroup), AllThatIsLeft(bytes, PassToEntity));
}

std::string RandomCode(std::mt19937& random) {
  static const char* const codes[] = {"0",   "  0",       "10",   " 62",        "999",        "1000",
                                      "\t8", "-5",        "+8",   "",           "x",          "00",
                                      "007", "12x",       "1 2",  "-0",         "0.5",        ".5",
                                      "9\r", "123456789", "\r62", "1234567890", "2147483648", "         7"};
  return random() % 3 ? std::to_string(1 + random() % 1071) : codes[random() % std::size(codes)];
}

// Values are short as in most groups, about as long as the short path goes, or about as long as a line.
size_t RandomLength(std::mt19937& random) {
  switch (random() % 12) {
    case 0: return 248 + random() % 275;
    case 1: return 22 + random() % 14;
    default: return random() % 12;
  }
}

std::string RandomValue(std::mt19937& random) {
  std::string value(RandomLength(random), '\0');
  const char rare[] = {'\0', '\r', '\n', '\x1A', '\xFF'};
  for (char& byte : value)
    byte = random() % 150 ? "0123456789.ENDBLK "[random() % 18] : rare[random() % (random() % 50 ? 3 : 5)];
  return value;
}

std::string RandomGroups(std::mt19937& random, int count) {
  const std::string lineEnd = random() % 2 ? "\n" : "\r\n";
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += RandomCode(random) + lineEnd + RandomValue(random) + lineEnd;
  return bytes;
}

TEST(AnyBytes, random_bytes_are_read_as_two_lines_a_group) {
  std::mt19937 random(4);
  for (int round = 0; round < 300; ++round) {
    std::string bytes(random() % 3000, '\0');
    for (char& byte : bytes) byte = random() % 4 ? "01 \n\r"[random() % 5] : static_cast<char>(random());
    ExpectBothReadersSame(bytes);
  }
}

TEST(AnyBytes, random_groups_are_read_as_two_lines_each) {
  std::mt19937 random(5);
  for (int round = 0; round < 500; ++round) ExpectBothReadersSame(RandomGroups(random, 60));
}

TEST(AnyBytes, a_group_may_be_cut_off_behind_any_byte) {
  std::mt19937 random(6);
  const std::string bytes = RandomGroups(random, 12) + "0\nLINE\n8\r\nA\r\n10\n5\n";
  for (size_t end = 0; end <= bytes.size(); ++end) ExpectBothReadersSame(bytes.substr(0, end));
}

TEST(AnyBytes, groups_across_the_chunks_of_a_file_are_read_alike) {
  std::mt19937 random(7);
  std::string bytes;
  // The second file is mapped.
  for (const size_t size : {1'000'000, 2'000'000}) {
    while (bytes.size() < size) bytes += RandomGroups(random, 100);
    // Without the end mark, which would end the file early.
    std::replace(bytes.begin(), bytes.end(), '\x1A', '?');
    ExpectBothReadersSame(bytes);
  }
}

TEST(PassToEntity, the_group_with_code_0_is_in_the_buffer) {
  const TemporaryFile file("8\nA\n 62\n5\n  0\nLINE\n10\n1\n");
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  EXPECT_EQ(1, PassToEntity(stream));
  EXPECT_TRUE(AtGroup(0, "LINE"));
  EXPECT_EQ(0, PassToEntity(stream));
  EXPECT_TRUE(AtGroup(10, "1"));
}

TEST(PassToEntity, a_line_out_of_step_is_code_0) {
  const TemporaryFile file("8\nA\n1\n" + std::string(255, 'a') + "\n 62\n5\n");
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  EXPECT_EQ(1, PassToEntity(stream));
  EXPECT_TRUE(AtGroup(0, " 62"));
}

// PLACES

void ExpectSameGroupsAfterSeeks(const std::string& bytes) {
  TemporaryFile file(bytes);
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  std::vector<int32_t> places;
  Groups groups;
  for (int32_t place = Tell(stream); ReadGroup(stream); place = Tell(stream)) {
    places.push_back(place);
    groups.push_back({state.groupCode, state.groupValue});
  }
  ASSERT_EQ(2000u, groups.size());
  for (size_t i = places.size(); i-- > 0;) {
    Seek(stream, places[i]);
    ASSERT_EQ(1, ReadGroup(stream)) << i;
    ASSERT_EQ(groups[i], (Group{state.groupCode, state.groupValue})) << i;
  }
}

std::string TwoThousandGroups(const std::string& lineEnd) {
  std::string groups;
  for (int i = 0; i < 2000; ++i)
    groups += std::to_string(i % 300) + " value " + std::to_string(i * 7919) + "\n";
  return DrawingBytes(groups, lineEnd);
}

TEST(ReadGroup, every_group_of_a_file_with_lf_is_read_again_after_a_seek) {
  ExpectSameGroupsAfterSeeks(TwoThousandGroups("\n"));
}

TEST(ReadGroup, every_group_of_a_file_with_cr_lf_is_read_again_after_a_seek) {
  ExpectSameGroupsAfterSeeks(TwoThousandGroups("\r\n"));
}

// The way of a converter that runs another part of the file in the middle of its own work.
TEST(ReadGroup, a_reader_goes_on_where_it_stood_before_an_inner_run) {
  for (const char* lineEnd : {"\n", "\r\n"}) {
    TemporaryFile file(DrawingBytes("0 BLOCK\n2 B\n0 ENDBLK\n0 INSERT\n2 B\n0 LINE\n8 WALL\n", lineEnd));
    TextStream stream;
    ASSERT_TRUE(OpenText(stream, file.Path()));
    ReadGroup(stream);
    const int32_t block = Tell(stream);
    while (!AtGroup(0, "LINE")) ASSERT_EQ(1, ReadGroup(stream));
    const std::string value = state.groupValue;
    const int32_t place = Tell(stream);
    Seek(stream, block);
    while (!AtGroup(0, "ENDBLK")) ASSERT_EQ(1, ReadGroup(stream));
    Seek(stream, place);
    EXPECT_EQ("LINE", value);
    EXPECT_EQ(0, state.groupCode);
    EXPECT_EQ((Groups{{8, "WALL"}}), ReadAll(stream));
  }
}

}  // namespace
}  // namespace hexlume::group_reader_test
