// The parts of the tool that need neither the library nor another process.
#include <gtest/gtest.h>

#include <string>

#include "tools/hexlume/archive/message.h"
#include "tools/hexlume/archive/wildcard.h"
#include "tools/hexlume/command/help_text.h"
#include "tools/hexlume/command/message_log.h"
#include "tools/hexlume/command/option_table.h"
#include "tools/hexlume/command/option_values.h"
#include "tools/hexlume/command/suggestion.h"
#include "tools/hexlume/drawing/drawing_look.h"
#include "tools/hexlume/drawing/status.h"
#include "tools/hexlume/system/path_text.h"
#include "tools/hexlume/system/sha256.h"

namespace hexlume::tool_parts_test {
namespace {

TEST(Wildcard, stands_for_characters) {
  EXPECT_TRUE(MatchesWildcard("plan.dxf", "*.dxf", false));
  EXPECT_TRUE(MatchesWildcard("plan.dxf", "p*n.d?f", false));
  EXPECT_TRUE(MatchesWildcard("a.dxf.dxf", "*.dxf", false));
  EXPECT_TRUE(MatchesWildcard("", "*", false));
  EXPECT_TRUE(MatchesWildcard("aXbXc", "a*b*c", false));
  EXPECT_FALSE(MatchesWildcard("plan.dxf", "*.dx", false));
  EXPECT_FALSE(MatchesWildcard("plan.dxf", "?.dxf", false));
  EXPECT_FALSE(MatchesWildcard("", "?", false));
}

TEST(Wildcard, a_character_can_be_several_bytes) {
  EXPECT_TRUE(MatchesWildcard("図面.dxf", "??.dxf", false));
  EXPECT_FALSE(MatchesWildcard("図面.dxf", "???.dxf", false));
}

TEST(Wildcard, case_matters_where_the_system_says_so) {
  EXPECT_TRUE(MatchesWildcard("plan.dxf", "*.DXF", true));
  EXPECT_FALSE(MatchesWildcard("plan.dxf", "*.DXF", false));
}

TEST(Suggestion, is_the_nearest_word) {
  const std::vector<std::string> words = {"--png", "--pdf", "--full-size", "--mono"};
  EXPECT_EQ("; did you mean --png?", Suggestion("--pgn", words));
  EXPECT_EQ("; did you mean --full-size?", Suggestion("--full", words));
  EXPECT_EQ("; did you mean --mono?", Suggestion("--monoo", words));
  EXPECT_EQ("", Suggestion("--colour", words));
  EXPECT_EQ("", Suggestion("", words));
}

TEST(PathText, extension) {
  EXPECT_EQ("a.b/plan.emf", WithExtension("a.b/plan.dxf", ".emf"));
  EXPECT_EQ("a.b/plan.emf", WithExtension("a.b/plan", ".emf"));
  EXPECT_EQ(".plan.emf", WithExtension(".plan", ".emf"));
  EXPECT_EQ(".dxf", ExtensionOf("a/PLAN.DXF"));
  EXPECT_EQ("", ExtensionOf("a.dxf/plan"));
}

TEST(PathText, folder) {
  EXPECT_EQ(".", FolderOf("plan.dxf"));
  EXPECT_EQ("a/b", FolderOf("a/b/plan.dxf"));
  EXPECT_EQ("/", FolderOf("/plan.dxf"));
  EXPECT_EQ("a/plan.dxf", Joined("a", "plan.dxf"));
  EXPECT_EQ("a/plan.dxf", Joined("a/", "plan.dxf"));
}

// A message comes in any pieces.
TEST(MessageParts, put_messages_together) {
  const Message first = {"", "plan.dxf", std::string("a\0b", 3)}, second = {"図面"};
  const std::string bytes = Encoded(first) + Encoded(second) + Encoded({});
  MessageParts parts;
  std::vector<Message> taken;
  for (const char byte : bytes) {
    parts.Add(std::string(1, byte));
    while (const auto message = parts.Take()) taken.push_back(*message);
  }
  EXPECT_EQ((std::vector<Message>{first, second, {}}), taken);
}

TEST(ProgressLine, has_the_rate_and_the_time_that_is_left) {
  Progress progress;
  progress.total = 10000;
  EXPECT_EQ("0/10000 done", ProgressLine(progress, 0));
  progress.done = 1000;
  // 1000 in 10 s are 100 a second, so 9000 take 90 s.
  EXPECT_EQ("1000/10000 done, 100/s, 1:30 left", ProgressLine(progress, 10));
  progress.failed = 7;
  progress.unchanged = 500;
  // 500 were converted, 50 a second: 9000 take 180 s.
  EXPECT_EQ("1000/10000 done, 7 failed, 500 unchanged, 50/s, 3:00 left", ProgressLine(progress, 10));
  progress.unchanged = 0;
  // 0.25 a second: 9000 take 36000 s.
  EXPECT_EQ("1000/10000 done, 7 failed, 0.2/s, 10:00:00 left", ProgressLine(progress, 4000));
  progress.done = progress.total;
  EXPECT_EQ("10000/10000 done, 7 failed, 1000/s", ProgressLine(progress, 10));
}

TEST(ParseSize, takes_units) {
  EXPECT_EQ(16777216, ParseSize("--memory-limit", "16777216"));
  EXPECT_EQ(20480 * int64_t{1024}, ParseSize("--memory-limit", "20480K"));
  EXPECT_EQ(500 * int64_t{1048576}, ParseSize("--memory-limit", "500M"));
  EXPECT_EQ(int64_t{2147483648}, ParseSize("--memory-limit", "2G"));
  for (const char* wrong : {"", "G", "1", "15M", "2GB", "2 G", "-2G", "2.5G", "99999999G", "2T"})
    EXPECT_THROW(ParseSize("--memory-limit", wrong), UsageError) << wrong;
}

TEST(ParseKinds, takes_each_once) {
  const auto kinds = ParseKinds("png,emf,png");
  ASSERT_EQ(2u, kinds.size());
  EXPECT_STREQ("png", kinds[0]->option);
  EXPECT_EQ(nullptr, kinds[1]);
  EXPECT_THROW(ParseKinds(""), UsageError);
  EXPECT_THROW(ParseKinds("png,"), UsageError);
  EXPECT_THROW(ParseKinds("gif"), UsageError);
}

// The example of the standard, and a text of no bytes.
TEST(Sha256, of_known_texts) {
  EXPECT_EQ("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad", Sha256("abc"));
  EXPECT_EQ("e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855", Sha256(""));
}

// A look at a drawing.

DrawingSource Drawing(const std::string& bytes) {
  return {"plan.dxf", bytes};
}

Encoding EncodingOf(const std::string& bytes) {
  const DrawingSource source = Drawing(bytes);
  DrawingParts parts(source);
  return hexlume::EncodingOf(parts);
}

std::string Version(const std::string& name, const std::string& rest) {
  return "  0\r\nSECTION\r\n  2\r\nHEADER\r\n  9\r\n$ACADVER\r\n  1\r\n" + name + "\r\n  0\r\nENDSEC\r\n" +
         rest;
}

TEST(EncodingOf, follows_the_version_and_the_bytes) {
  EXPECT_EQ(Encoding::codePage932, EncodingOf(""));
  EXPECT_EQ(Encoding::codePage932, EncodingOf("図面"));
  EXPECT_EQ(Encoding::codePage932, EncodingOf(Version("AC1018", "図面")));
  EXPECT_EQ(Encoding::codePage932, EncodingOf(Version("MC0.0", "図面")));
  EXPECT_EQ(Encoding::utf8, EncodingOf(Version("AC1021", "図面")));
  EXPECT_EQ(Encoding::utf8, EncodingOf(Version("AC1032", "plan")));
  EXPECT_EQ(Encoding::notUtf8, EncodingOf(Version("AC1032", "\x90\x7D\x96\xCA")));
  EXPECT_EQ(Encoding::utf8, EncodingOf("\xEF\xBB\xBF" + Version("AC1015", "図面")));
  // What is after the end of the text isn't read.
  EXPECT_EQ(Encoding::utf8, EncodingOf(Version("AC1032", "図面\x1A\xFF")));
}

TEST(EncodingOf, finds_a_version_that_comes_late) {
  std::string comments;
  while (comments.size() < 100000) comments += "999\r\nA comment\r\n";
  EXPECT_EQ(Encoding::utf8, EncodingOf(comments + Version("AC1024", "図面")));
}

TEST(Utf8Check, takes_pieces) {
  const std::string text = "plan 図面 \xF0\x9F\x98\x80 é";
  for (size_t size = 1; size < 5; ++size) {
    Utf8Check check;
    for (size_t at = 0; at < text.size(); at += size)
      EXPECT_TRUE(check.Take(text.data() + at, std::min(size, text.size() - at)));
    EXPECT_TRUE(check.IsComplete());
  }
}

TEST(Utf8Check, refuses_what_is_none) {
  for (const std::string wrong :
       {"\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80",
        "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xE5\x9B",
        "\xE5"
        "A"}) {
    Utf8Check check;
    EXPECT_FALSE(check.Take(wrong.data(), wrong.size()) && check.IsComplete());
  }
}

bool HasEndMark(const std::string& bytes) {
  const DrawingSource source = Drawing(bytes);
  DrawingParts parts(source);
  return hexlume::HasEndMark(parts);
}

TEST(HasEndMark, wherever_it_is) {
  EXPECT_TRUE(HasEndMark("0\nEOF"));
  EXPECT_TRUE(HasEndMark("  0\r\nEOF\r\n"));
  EXPECT_TRUE(HasEndMark(std::string(1000000, '\n') + "0\nEOF\n"));
  EXPECT_TRUE(HasEndMark("0\nEOF\n" + std::string(1000000, '\n')));
  EXPECT_TRUE(HasEndMark("0\nEOF\n\x1A"));
  EXPECT_FALSE(HasEndMark(""));
  EXPECT_FALSE(HasEndMark("0\nENDSEC\n"));
  EXPECT_FALSE(HasEndMark("1\nEOF\n"));
  EXPECT_FALSE(HasEndMark("0\nENDSEC\n\x1A\n0\nEOF\n"));
}

// The table of options.

TEST(OptionTable, fits_a_terminal) {
  size_t start = 0;
  const std::string help = HelpText();
  for (size_t end = help.find('\n'); end != std::string::npos; end = help.find('\n', start)) {
    EXPECT_GE(100u, end - start) << help.substr(start, end - start);
    start = end + 1;
  }
}

TEST(OptionTable, has_each_group_in_one_piece_and_each_name_once) {
  std::vector<std::string> groups, names;
  for (const OptionRow& option : OptionTable()) {
    if (groups.empty() || groups.back() != option.group) groups.push_back(option.group);
    for (const std::string& name : NamesOf(option)) names.push_back(name);
  }
  for (auto* const list : {&groups, &names}) {
    std::sort(list->begin(), list->end());
    EXPECT_EQ(list->end(), std::adjacent_find(list->begin(), list->end()));
  }
}

TEST(Status, has_a_number_of_its_own_unless_there_is_a_reason) {
  for (int one = 0; one < statusRowCount; ++one)
    for (int other = one + 1; other < statusRowCount; ++other) {
      const bool areLimits = one == timeLimitStatus && other == memoryLimitStatus;
      EXPECT_EQ(areLimits, StatusOf(StatusRow(one)).exit == StatusOf(StatusRow(other)).exit) << one << other;
    }
}

}  // namespace
}  // namespace hexlume::tool_parts_test
