// The table of dimension styles.

#include "tables/dim_style_table.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/text_groups.h"

namespace hexlume::dim_style_table_test {
namespace {

class DimStyleTableTest : public ConverterTest {
 protected:
  // Reads a table that isn't closed: its name is in the buffer.
  void ReadOpen(const std::string& groups) {
    stream = StreamOf("2 DIMSTYLE\n" + groups);
    ReadGroup(stream);
    result = ReadDimStyleTable(stream);
  }
  void Read(const std::string& records) { ReadOpen("70 9\n" + records + "0 ENDTAB\n0 ENDSEC\n"); }

  static std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const DimStyleEntry& style : state.dimStyles) names.push_back(style.name);
    return names;
  }

  // The one style of a table whose record has these groups.
  DimStyleEntry Style(const std::string& groups) {
    Read("0 DIMSTYLE\n" + groups);
    EXPECT_EQ(1u, state.dimStyles.size());
    return state.dimStyles.empty() ? DimStyleEntry{} : state.dimStyles[0];
  }
};

using Strings = std::vector<std::string>;

// The table.

TEST_F(DimStyleTableTest, styles_are_kept_in_the_order_of_the_file) {
  Read(
      "0 DIMSTYLE\n105 27\n330 A\n100 AcDb\n2 STANDARD\n70 0\n40 2.0\n41 3.5\n140 2.5\n6 DOT\n"
      "0 DIMSTYLE\n2 ISO-25\n41 2.5\n341 1F\n0 DIMSTYLE\n2 STANDARD\n");
  EXPECT_EQ((Strings{"STANDARD", "ISO-25", "STANDARD"}), Names());
  const DimStyleEntry& standard = state.dimStyles[0];
  EXPECT_STREQ("_DOT", standard.arrowBlock);
  EXPECT_STREQ("", standard.arrowHandle);
  EXPECT_EQ(2.0, standard.dimScale);
  EXPECT_EQ(3.5, standard.arrowSize);
  EXPECT_EQ(500.0, standard.textHeight);
  EXPECT_STREQ("1F", state.dimStyles[1].arrowHandle);
}

TEST_F(DimStyleTableTest, a_style_that_tells_nothing_has_the_scale_1_and_else_nothing) {
  const DimStyleEntry style = Style("");
  EXPECT_STREQ("", style.name);
  EXPECT_STREQ("", style.arrowBlock);
  EXPECT_STREQ("", style.arrowHandle);
  EXPECT_EQ(1.0, style.dimScale);
  EXPECT_EQ(0.0, style.arrowSize);
  EXPECT_EQ(0.0, style.textHeight);
}

TEST_F(DimStyleTableTest, nothing_reaches_from_one_style_to_the_next) {
  Read("0 DIMSTYLE\n2 A\n6 DOT\n40 2\n41 3\n140 4\n0 DIMSTYLE\n0 DIMSTYLE\n341 1F\n0 DIMSTYLE\n2 D\n");
  EXPECT_EQ((Strings{"A", "", "", "D"}), Names());
  for (const size_t place : {size_t{1}, size_t{3}}) {
    EXPECT_STREQ("", state.dimStyles[place].arrowBlock);
    EXPECT_STREQ("", state.dimStyles[place].arrowHandle);
    EXPECT_EQ(1.0, state.dimStyles[place].dimScale);
    EXPECT_EQ(0.0, state.dimStyles[place].arrowSize);
    EXPECT_EQ(0.0, state.dimStyles[place].textHeight);
  }
}

TEST_F(DimStyleTableTest, an_empty_table_has_no_styles) {
  Read("");
  EXPECT_TRUE(state.dimStyles.empty());
  EXPECT_EQ(1, result);
}

TEST_F(DimStyleTableTest, the_table_ends_at_endtab_with_what_follows_unread) {
  Read("0 DIMSTYLE\n2 A\n");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "ENDTAB"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(0, "ENDSEC"));
}

TEST_F(DimStyleTableTest, endtab_under_another_code_or_in_another_spelling_ends_nothing) {
  Read("0 DIMSTYLE\n2 A\n3 ENDTAB\n0 Endtab\n2 ENDTAB\n0 ENDTAB \n0 DIMSTYLE\n2 B\n");
  EXPECT_EQ((Strings{"A", "B"}), Names());
}

TEST_F(DimStyleTableTest, groups_outside_of_records_reach_no_style) {
  Read(
      "2 X\n40 9\n100 AcDb\n71 1\n0 DIMSTYLE\n2 A\n0 STRANGE\n2 S\n40 7\n6 DOT\n0 dimstyle\n2 T\n0 "
      "DIMSTYLE\n2 B\n");
  EXPECT_EQ((Strings{"A", "B"}), Names());
  EXPECT_EQ(1.0, state.dimStyles[0].dimScale);
  EXPECT_STREQ("", state.dimStyles[0].arrowBlock);
  EXPECT_EQ(1.0, state.dimStyles[1].dimScale);
}

TEST_F(DimStyleTableTest, dimstyle_under_another_code_starts_no_record) {
  Read("0 STRANGE\n2 DIMSTYLE\n2 A\n");
  EXPECT_TRUE(state.dimStyles.empty());
}

TEST_F(DimStyleTableTest, a_second_table_takes_the_place_of_the_first) {
  Read("0 DIMSTYLE\n2 A\n0 DIMSTYLE\n2 B\n");
  Read("0 DIMSTYLE\n2 C\n");
  EXPECT_EQ((Strings{"C"}), Names());
}

TEST_F(DimStyleTableTest, ten_thousand_styles_are_kept) {
  std::string records;
  for (int i = 0; i < 10000; ++i) records += "0 DIMSTYLE\n2 S" + std::to_string(i) + "\n";
  Read(records);
  ASSERT_EQ(10000u, state.dimStyles.size());
  EXPECT_STREQ("S0", state.dimStyles[0].name);
  EXPECT_STREQ("S9999", state.dimStyles[9999].name);
}

// The first group of a record.

TEST_F(DimStyleTableTest, the_first_group_of_a_record_is_acted_on) {
  EXPECT_STREQ("A", Style("2 A\n").name);
  EXPECT_STREQ("_DOT", Style("6 DOT\n").arrowBlock);
  EXPECT_EQ(2.0, Style("40 2\n").dimScale);
  EXPECT_EQ(3.0, Style("41 3\n").arrowSize);
  EXPECT_EQ(400.0, Style("140 4\n").textHeight);
  EXPECT_STREQ("1F", Style("341 1F\n").arrowHandle);
}

TEST_F(DimStyleTableTest, a_record_without_groups_does_not_swallow_the_next) {
  Read("0 DIMSTYLE\n0 DIMSTYLE\n2 B\n");
  EXPECT_EQ((Strings{"", "B"}), Names());
}

// The groups.

TEST_F(DimStyleTableTest, a_name_is_kept_byte_by_byte) {
  const std::string longName(254, 'N');
  Read("0 DIMSTYLE\n2 \x95\xc7 \x90\x7d  \n0 DIMSTYLE\n2 " + longName + "\n");
  EXPECT_EQ((Strings{"\x95\xc7 \x90\x7d  ", longName}), Names());
  EXPECT_STREQ("B", Style("2 LONGER\n2 B\n").name);
}

TEST_F(DimStyleTableTest, an_arrows_name_gets_a_bar_in_front) {
  EXPECT_STREQ("_OBLIQUE", Style("6 OBLIQUE\n").arrowBlock);
  EXPECT_STREQ("_", Style("6 \n").arrowBlock);
  EXPECT_STREQ("__DOT", Style("6 _DOT\n").arrowBlock);
  EXPECT_STREQ("_B", Style("6 LONGER\n6 B\n").arrowBlock);
}

TEST_F(DimStyleTableTest, an_arrows_name_of_255_characters_still_fits) {
  // A line this long has no room for its end, which is read as the next code: an empty line, code 0.
  const std::string longName(255, 'N');
  ReadOpen("0 DIMSTYLE\n6 " + longName + "\n");
  ASSERT_EQ(1u, state.dimStyles.size());
  EXPECT_EQ("_" + longName, state.dimStyles[0].arrowBlock);
}

TEST_F(DimStyleTableTest, of_an_arrows_name_and_its_handle_the_later_one_counts) {
  const DimStyleEntry byHandle = Style("6 DOT\n341 1F\n");
  EXPECT_STREQ("", byHandle.arrowBlock);
  EXPECT_STREQ("1F", byHandle.arrowHandle);
  const DimStyleEntry byName = Style("341 1F\n6 DOT\n");
  EXPECT_STREQ("_DOT", byName.arrowBlock);
  EXPECT_STREQ("", byName.arrowHandle);
}

TEST_F(DimStyleTableTest, an_empty_handle_takes_the_names_place_too) {
  const DimStyleEntry style = Style("6 DOT\n341 \n");
  EXPECT_STREQ("", style.arrowBlock);
  EXPECT_STREQ("", style.arrowHandle);
}

TEST_F(DimStyleTableTest, a_scale_is_taken_as_it_is) {
  EXPECT_EQ(0.5, Style("40 0.5\n").dimScale);
  EXPECT_EQ(0.0, Style("40 0\n").dimScale);
  EXPECT_EQ(-2.0, Style("40 -2\n").dimScale);
  EXPECT_EQ(0.0, Style("40 large\n").dimScale);
  EXPECT_EQ(3.0, Style("40 2\n40 3\n").dimScale);
}

TEST_F(DimStyleTableTest, an_arrows_size_is_neither_scaled_nor_in_hundredths) {
  EXPECT_EQ(2.5, Style("40 4\n41 2.5\n").arrowSize);
}

TEST_F(DimStyleTableTest, a_texts_height_is_in_hundredths) {
  EXPECT_EQ(250.0, Style("140 2.5\n").textHeight);
}

TEST_F(DimStyleTableTest, a_texts_height_is_scaled_by_a_scale_in_front_of_it) {
  EXPECT_EQ(1000.0, Style("40 4\n140 2.5\n").textHeight);
  EXPECT_EQ(0.0, Style("40 0\n140 2.5\n").textHeight);
}

TEST_F(DimStyleTableTest, a_scale_behind_the_texts_height_comes_too_late) {
  const DimStyleEntry style = Style("140 2.5\n40 4\n");
  EXPECT_EQ(250.0, style.textHeight);
  EXPECT_EQ(4.0, style.dimScale);
  // 2.5 * 100 * 2, without the 4 after it.
  EXPECT_EQ(500.0, Style("40 2\n140 2.5\n40 4\n").textHeight);
}

TEST_F(DimStyleTableTest, a_height_of_no_size_is_infinite) {
  EXPECT_EQ(std::numeric_limits<double>::infinity(), Style("40 1e300\n140 1e300\n").textHeight);
}

TEST_F(DimStyleTableTest, other_groups_count_for_nothing) {
  const DimStyleEntry style = Style("3 X\n4 X\n5 X\n7 X\n42 9\n44 9\n141 9\n340 9\n342 9\n343 9\n344 9\n");
  EXPECT_STREQ("", style.arrowBlock);
  EXPECT_STREQ("", style.arrowHandle);
  EXPECT_EQ(1.0, style.dimScale);
  EXPECT_EQ(0.0, style.arrowSize);
  EXPECT_EQ(0.0, style.textHeight);
}

// A file that ends in the table.

TEST_F(DimStyleTableTest, a_table_that_the_file_ends_in_keeps_what_was_read) {
  // Whole groups of the text after the table's name.
  const char* groups[] = {"70 1\n", "0 DIMSTYLE\n", "2 A\n", "6 DOT\n", "41 3\n", "0 DIMSTYLE\n", "2 B\n"};
  const size_t styles[] = {0, 0, 1, 1, 1, 1, 2, 2};
  std::string text;
  for (size_t count = 0; count <= std::size(groups); ++count) {
    ReadOpen(text);
    EXPECT_EQ(0, result) << count;
    ASSERT_EQ(styles[count], state.dimStyles.size()) << count;
    if (styles[count] > 0) {
      EXPECT_STREQ(count < 3 ? "" : "A", state.dimStyles[0].name) << count;
      EXPECT_STREQ(count < 4 ? "" : "_DOT", state.dimStyles[0].arrowBlock) << count;
      EXPECT_EQ(1.0, state.dimStyles[0].dimScale) << count;
      EXPECT_EQ(count < 5 ? 0.0 : 3.0, state.dimStyles[0].arrowSize) << count;
    }
    if (styles[count] > 1) {
      EXPECT_STREQ(count < 7 ? "" : "B", state.dimStyles[1].name) << count;
    }
    if (count < std::size(groups)) text += groups[count];
  }
}

TEST_F(DimStyleTableTest, a_group_that_the_file_ends_in_is_not_acted_on) {
  stream = StreamOf("2 DIMSTYLE\n0 DIMSTYLE\n2 A\n40 2\n");
  stream.size -= 2;  // the scale and its line end
  ReadGroup(stream);
  EXPECT_EQ(0, ReadDimStyleTable(stream));
  EXPECT_EQ((Strings{"A"}), Names());
  EXPECT_EQ(1.0, state.dimStyles[0].dimScale);
}

}  // namespace
}  // namespace hexlume::dim_style_table_test
