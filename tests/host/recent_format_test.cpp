// A recent drawing as an older version would have it.
#include "host/recent_format.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "support/bytes_source.h"

namespace hexlume {
namespace {

const std::string recent = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1021\n  0\nENDSEC\n";
const std::string old = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1018\n  0\nENDSEC\n";
// 図 in both forms.
const std::string utf8 = "\xE5\x9B\xB3", codePage932 = "\x90\x7D";

class RecentFormatTest : public testing::Test {
 protected:
  // Read in parts of this size.
  std::string Given(const std::string& bytes, size_t part = 100000) {
    changes = {};
    RecentFormat format(std::make_unique<BytesSource>(bytes, expected), changes);
    std::string given;
    std::string buffer(part, '\0');
    for (;;) {
      const size_t got = format.Read(buffer.data(), part);
      given.append(buffer, 0, got);
      if (got < part) return given;
    }
  }

  FormatChanges changes;
  size_t expected = 0;  // the size that the bytes say they have
};

TEST_F(RecentFormatTest, an_older_drawing_passes_unchanged) {
  const std::string drawing = old + "1\n" + utf8 + "\n101\nEmbedded Object\n10\n5\n0\nEOF\n";
  EXPECT_EQ(drawing, Given(drawing));
  EXPECT_EQ(drawing, Given(drawing, 7));
  EXPECT_EQ(0, changes.embedded);
}

TEST_F(RecentFormatTest, a_drawing_without_a_version_passes_unchanged) {
  for (const std::string& drawing : {std::string("0\nEOF\n1\n") + utf8, std::string(), std::string("\x1A")})
    EXPECT_EQ(drawing, Given(drawing));
}

TEST_F(RecentFormatTest, utf8_becomes_code_page_932) {
  EXPECT_EQ(recent + "1\n" + codePage932 + "A\n0\nEOF\n", Given(recent + "1\n" + utf8 + "A\n0\nEOF\n"));
  EXPECT_EQ(0, changes.substituted);
}

TEST_F(RecentFormatTest, a_mark_at_the_start_says_utf8_and_is_left_out) {
  EXPECT_EQ("0\nSECTION\n1\n" + codePage932, Given("\xEF\xBB\xBF"
                                                   "0\nSECTION\n1\n" +
                                                   utf8));
}

TEST_F(RecentFormatTest, what_the_code_page_lacks_is_counted) {
  EXPECT_EQ(recent + "1\n??" + codePage932, Given(recent + "1\n\xF0\x9F\x93\x90\xEA\xB0\x80" + utf8));
  EXPECT_EQ(2, changes.substituted);
}

// recent has 10 lines.
TEST_F(RecentFormatTest, a_line_that_is_no_utf8_stays_as_it_is) {
  const std::string rest = "1\n" + codePage932 + "\n1\n\x81\n1\n";
  EXPECT_EQ(recent + rest + codePage932, Given(recent + rest + utf8));
  EXPECT_EQ(2, changes.otherLines);
  EXPECT_EQ(12, changes.firstOtherLine);
}

TEST_F(RecentFormatTest, line_ends_stay) {
  const std::string rest = "1\r\nA\r\n\r\n\r\r\nB\rC\n\n";
  EXPECT_EQ(recent + rest, Given(recent + rest));
  EXPECT_EQ(recent + "1\r\n" + codePage932 + "\r\n", Given(recent + "1\r\n" + utf8 + "\r\n"));
}

TEST_F(RecentFormatTest, the_end_mark_of_a_text_stays) {
  EXPECT_EQ(recent + "0\nEOF\n\x1A\n", Given(recent + "0\nEOF\n\x1A\n"));
}

TEST_F(RecentFormatTest, groups_of_an_embedded_object_are_left_out) {
  const std::string before = "0\nMTEXT\n10\n1.0\n1\nA\n";
  const std::string object = "101\nEmbedded Object\n10\n9.0\n1\nB\n";
  const std::string after = "0\nLINE\n10\n2.0\n0\nEOF\n";
  EXPECT_EQ(recent + before + after, Given(recent + before + object + after));
  EXPECT_EQ(recent + before + after, Given(recent + before + object + after, 1));
  EXPECT_EQ(1, changes.embedded);
  ASSERT_EQ(1u, changes.leftOut.size());
  EXPECT_EQ(static_cast<int64_t>((recent + before).size()), changes.leftOut[0].position);
  EXPECT_EQ(6, changes.leftOut[0].lines);
}

TEST_F(RecentFormatTest, an_embedded_object_at_the_end_is_left_out_too) {
  EXPECT_EQ(recent, Given(recent + "101\nEmbedded Object\n10\n9.0"));
  EXPECT_EQ(recent, Given(recent + "101"));
}

TEST_F(RecentFormatTest, values_are_no_codes) {
  const std::string rest = "1\n101\n10\n101\n1\n0\n0\nEOF\n";
  EXPECT_EQ(recent + rest, Given(recent + rest));
}

// The group reader takes a line of 300 bytes for two: a text and the code of the next group. The next line
// is that group's value, so that the codes are where they were values.
TEST_F(RecentFormatTest, a_long_line_brings_the_groups_out_of_step_as_in_the_reader) {
  const std::string longLine = std::string(300, 'x') + "\n";
  const std::string rest = "1\n" + longLine + "101\n10\n5\n0\nEOF\n";
  EXPECT_EQ(recent + rest, Given(recent + rest));
  // Two long lines: in step again.
  const std::string inStep = "1\n" + longLine + longLine + "1\n";
  EXPECT_EQ(recent + inStep, Given(recent + inStep + "101\n10\n5\n"));
}

// 254 bytes and the line's end are one line for the reader, 255 and the end are two.
TEST_F(RecentFormatTest, the_longest_line_of_one_piece) {
  const std::string value = std::string(254, 'x');
  EXPECT_EQ(recent + "1\n" + value + "\n", Given(recent + "1\n" + value + "\n101\n10\n"));
  EXPECT_EQ(recent + "1\n" + value + "\r\n", Given(recent + "1\n" + value + "\r\n101\n10\n"));
  const std::string tooLong = "1\n" + value + "x\n101\n10\n";
  EXPECT_EQ(recent + tooLong, Given(recent + tooLong));
}

// 100 characters are 300 bytes of UTF-8, but 200 of code page 932: one line.
TEST_F(RecentFormatTest, a_line_is_as_long_as_it_is_in_code_page_932) {
  std::string from, to;
  for (int32_t i = 0; i < 100; ++i) {
    from += utf8;
    to += codePage932;
  }
  EXPECT_EQ(recent + "1\n" + to + "\n", Given(recent + "1\n" + from + "\n101\n10\n5\n"));
}

// Characters, line ends and objects across the parts in which the bytes are fetched.
TEST_F(RecentFormatTest, long_drawings_are_the_same_in_any_parts) {
  std::string from = recent, to = recent;
  for (int32_t i = 0; i < 40000; ++i) {
    from += "1\r\n" + utf8 + std::to_string(i) + "\r\n101\r\nx\r\n0\r\nA\r\n";
    to += "1\r\n" + codePage932 + std::to_string(i) + "\r\n0\r\nA\r\n";
  }
  EXPECT_EQ(to, Given(from));
  EXPECT_EQ(to, Given(from, 4099));
  EXPECT_EQ(40000, changes.embedded);
}

TEST_F(RecentFormatTest, all_is_converted_whatever_size_was_expected) {
  const std::string from = recent + "1\n" + utf8 + "\n0\nEOF\n";
  // The version is in the first read in each case.
  for (expected = recent.size(); expected < from.size() + 3; ++expected)
    EXPECT_EQ(recent + "1\n" + codePage932 + "\n0\nEOF\n", Given(from)) << expected;
}

// Group by group and line by line, as the rule is told. Lines of at most 254 bytes.
std::string WithoutObjects(const std::vector<std::string>& lines) {
  std::string kept;
  bool leavingOut = false;
  for (size_t i = 0; i < lines.size(); ++i) {
    const int32_t code = i % 2 == 0 ? std::atoi(lines[i].c_str()) : -1;
    if (code == 101) leavingOut = true;
    if (code == 0) leavingOut = false;
    if (!leavingOut) kept += lines[i];
  }
  return kept;
}

TEST_F(RecentFormatTest, random_lines_are_the_same_as_one_by_one) {
  const std::vector<std::string> forms = {"101",   " 101", "+101",   "\t00101",   "101 x",
                                          "101.5", "1010", "2101",   "-101",      "0",
                                          "  0",   "10",   " 20",    "",          "x",
                                          "-",     "1",    "7.25e3", "A\r",       "40101",
                                          "0x101", "10 1", "\v101",  codePage932, std::string(254, 'y')};
  std::mt19937 random(7);
  for (int32_t drawing = 0; drawing < 300; ++drawing) {
    std::vector<std::string> lines;
    for (int32_t i = 0; i < 400; ++i) lines.push_back(forms[random() % forms.size()] + "\n");
    std::string text;
    for (const std::string& line : lines) text += line;
    EXPECT_EQ(recent + WithoutObjects(lines), Given(recent + text)) << "drawing " << drawing;
  }
}

TEST_F(RecentFormatTest, one_endless_line) {
  const std::string line(3000000, 'x');
  EXPECT_EQ(recent + line, Given(recent + line));
}

}  // namespace
}  // namespace hexlume
