#include "tools/batch/base/text.h"

#include <gtest/gtest.h>

#include "tools/batch/plan/kinds.h"
#include "tools/hexlume/command/options.h"

namespace hexlume::batch::text_test {
namespace {

TEST(BatchText, a_path_in_a_uri_has_no_special_letters) {
  EXPECT_EQ("/a-b_c.d~/%23%3F%25%20%E5%9B%B3", PercentEncoded("/a-b_c.d~/#?% \u56F3"));
}

TEST(BatchText, a_word_for_the_shell_is_in_quotes) {
  EXPECT_EQ("'a b'", Quoted("a b"));
  EXPECT_EQ("'it'\\''s'", Quoted("it's"));
}

TEST(BatchText, a_field_of_csv_is_in_quotes_only_where_it_must) {
  EXPECT_EQ("plain text", CsvField("plain text"));
  EXPECT_EQ("\"a,b\"", CsvField("a,b"));
  EXPECT_EQ("\"two\nlines\"", CsvField("two\nlines"));
  EXPECT_EQ("\"say \"\"yes\"\"\"", CsvField("say \"yes\""));
}

TEST(BatchText, html_has_no_foreign_tags) {
  EXPECT_EQ("&lt;b a=&quot;1&quot;&gt;&amp;", Escaped("<b a=\"1\">&"));
}

TEST(BatchText, html_is_utf8) {
  EXPECT_EQ("a\uFFFDb", Escaped("a\xFF"
                                "b"));
}

TEST(BatchText, utf8_is_told_from_other_bytes) {
  EXPECT_TRUE(IsUtf8("\u56F3"));
  EXPECT_FALSE(IsUtf8("\xE5\x9B"));
  EXPECT_FALSE(IsUtf8("\xFF"));
}

TEST(BatchText, a_duration_has_hours_only_if_there_are_any) {
  EXPECT_EQ("0:05", Duration(5));
  EXPECT_EQ("59:59", Duration(3599));
  EXPECT_EQ("1:00:00", Duration(3600));
  EXPECT_EQ("100:01:02", Duration(360062));
}

TEST(BatchText, bytes_are_two_digits_each) {
  EXPECT_EQ("00ff41", HexDigits(std::string("\0\xFF", 2) + "A"));
}

TEST(BatchKinds, a_size_becomes_an_option) {
  EXPECT_EQ((std::vector<std::string>{"--to=emf,png,pdf", "--size=256"}), KindArguments("emf,png:256,pdf"));
  EXPECT_EQ((std::vector<std::string>{"--to=emf"}), KindArguments("emf"));
}

TEST(BatchKinds, only_png_takes_one_size) {
  EXPECT_THROW(KindArguments("pdf:256"), UsageError);
  EXPECT_THROW(KindArguments("png:256,png:512"), UsageError);
}

}  // namespace
}  // namespace hexlume::batch::text_test
