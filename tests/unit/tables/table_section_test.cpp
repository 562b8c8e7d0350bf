// The TABLES section.

#include "tables/table_section.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/text_groups.h"

namespace hexlume::table_section_test {
namespace {

class TableSectionTest : public ConverterTest {
 protected:
  TableSectionTest() { headerVars.ltScale = 1.0; }

  // Reads a section after its name.
  void ReadOpen(const std::string& groups) {
    stream = StreamOf(groups);
    ReadTables(stream, headerVars);
  }
  void Read(const std::string& tables) { ReadOpen(tables + "0 ENDSEC\n0 SECTION\n"); }

  // How many line types, layers and dimension styles there are.
  static std::string Counts() {
    int32_t defined = 0;
    for (const LtypeEntry& ltype : state.ltypes) defined += ltype.defined;
    return std::to_string(defined) + " " + std::to_string(state.layerCount) + " " +
           std::to_string(state.dimStyles.size());
  }
  std::string CountsOf(const std::string& tables) {
    state.ltypes = {};
    state.layers = {};
    state.layerCount = 0;
    state.dimStyles = {};
    Read(tables);
    return Counts();
  }
};

const std::string ltypes = "0 TABLE\n2 LTYPE\n70 1\n0 LTYPE\n2 DASHED\n73 2\n49 5\n49 -2.5\n0 ENDTAB\n";
const std::string layers =
    "0 TABLE\n2 LAYER\n70 2\n0 LAYER\n2 0\n62 1\n0 LAYER\n2 WALLS\n6 DASHED\n0 ENDTAB\n";
const std::string dimStyles =
    "0 TABLE\n2 DIMSTYLE\n70 3\n0 DIMSTYLE\n2 A\n0 DIMSTYLE\n2 B\n0 DIMSTYLE\n2 C\n0 ENDTAB\n";

TEST_F(TableSectionTest, an_empty_section_reads_no_table) {
  Read("");
  EXPECT_EQ("0 0 0", Counts());
  EXPECT_TRUE(state.ltypes.empty());
}

TEST_F(TableSectionTest, each_table_is_read_by_its_name) {
  EXPECT_EQ("1 0 0", CountsOf(ltypes));
  EXPECT_EQ("0 2 0", CountsOf(layers));
  EXPECT_EQ("0 0 3", CountsOf(dimStyles));
}

TEST_F(TableSectionTest, the_tables_may_come_in_any_order) {
  EXPECT_EQ("1 2 3", CountsOf(ltypes + layers + dimStyles));
  EXPECT_EQ("1 2 3", CountsOf(dimStyles + layers + ltypes));
  EXPECT_EQ("1 2 3", CountsOf(layers + dimStyles + ltypes));
}

TEST_F(TableSectionTest, layers_know_the_line_types_in_front_of_them) {
  Read(ltypes + layers);
  EXPECT_EQ(1, FindLayer("WALLS")->family);
  EXPECT_EQ(2, FindLayer("WALLS")->pattern);
}

TEST_F(TableSectionTest, layers_do_not_know_the_line_types_behind_them) {
  Read(layers + ltypes);
  EXPECT_EQ(0, FindLayer("WALLS")->family);
}

TEST_F(TableSectionTest, line_types_get_the_headers_scale) {
  headerVars.ltScale = 2.0;
  Read(ltypes);
  EXPECT_EQ(1000.0, state.ltypes[2].dashes[0]);
}

TEST_F(TableSectionTest, other_tables_are_passed_over) {
  EXPECT_EQ("1 2 3",
            CountsOf("0 TABLE\n2 VPORT\n70 1\n0 VPORT\n2 *ACTIVE\n10 0\n0 ENDTAB\n" + ltypes +
                     "0 TABLE\n2 STYLE\n70 1\n0 STYLE\n2 STANDARD\n40 0\n3 txt\n0 ENDTAB\n" + layers +
                     "0 TABLE\n2 UCS\n70 0\n0 ENDTAB\n0 TABLE\n2 APPID\n0 APPID\n2 CAD\n0 ENDTAB\n" +
                     dimStyles + "0 TABLE\n2 BLOCK_RECORD\n0 BLOCK_RECORD\n2 *MODEL_SPACE\n0 ENDTAB\n"));
}

TEST_F(TableSectionTest, a_name_needs_no_table_in_front_of_it) {
  EXPECT_EQ("0 1 0", CountsOf("2 LAYER\n0 LAYER\n2 A\n0 ENDTAB\n"));
}

TEST_F(TableSectionTest, a_record_of_another_table_with_a_tables_name_starts_that_table) {
  // The layers are read anew, and there are none up to the end of that table.
  EXPECT_EQ("1 0 3",
            CountsOf(ltypes + layers + dimStyles + "0 TABLE\n2 VIEW\n0 VIEW\n2 LAYER\n40 1\n0 ENDTAB\n"));
  EXPECT_EQ("0 2 3",
            CountsOf(ltypes + layers + dimStyles + "0 TABLE\n2 VIEW\n0 VIEW\n2 LTYPE\n40 1\n0 ENDTAB\n"));
  EXPECT_EQ("1 2 0",
            CountsOf(ltypes + layers + dimStyles + "0 TABLE\n2 VIEW\n0 VIEW\n2 DIMSTYLE\n40 1\n0 ENDTAB\n"));
}

TEST_F(TableSectionTest, a_record_of_a_known_table_with_a_tables_name_starts_none) {
  EXPECT_EQ("0 1 2", CountsOf("2 LAYER\n0 LAYER\n2 LTYPE\n62 1\n0 ENDTAB\n2 DIMSTYLE\n0 DIMSTYLE\n2 LAYER\n"
                              "0 DIMSTYLE\n2 LTYPE\n0 ENDTAB\n"));
}

TEST_F(TableSectionTest, names_are_compared_exactly) {
  EXPECT_EQ("0 0 0",
            CountsOf("2 Layer\n0 LAYER\n2 A\n0 ENDTAB\n2 LAYER \n0 LAYER\n2 A\n0 ENDTAB\n"
                     "2 layer\n0 LAYER\n2 A\n0 ENDTAB\n2 LAYERS\n0 LAYER\n2 A\n0 ENDTAB\n"
                     "2 DIMSTYL\n0 DIMSTYLE\n2 A\n0 ENDTAB\n2 LTYPES\n0 LTYPE\n2 DOT\n73 2\n0 ENDTAB\n"));
}

TEST_F(TableSectionTest, a_tables_name_under_another_code_starts_none) {
  EXPECT_EQ("0 0 0", CountsOf("3 LAYER\n0 LAYER\n2 A\n0 DIMSTYLE\n2 B\n0 LTYPE\n2 DOT\n73 2\n0 ENDTAB\n"));
}

TEST_F(TableSectionTest, a_second_table_takes_the_place_of_the_first) {
  EXPECT_EQ("1 1 1",
            CountsOf(ltypes + layers + dimStyles + "2 LAYER\n0 LAYER\n2 Z\n0 ENDTAB\n" +
                     "2 DIMSTYLE\n0 DIMSTYLE\n2 Z\n0 ENDTAB\n2 LTYPE\n0 LTYPE\n2 DOT\n73 2\n0 ENDTAB\n"));
  EXPECT_TRUE(FindLayer("Z"));
  EXPECT_FALSE(FindLayer("WALLS"));
  EXPECT_TRUE(IsLtypeDefined(0));
  EXPECT_FALSE(IsLtypeDefined(2));
  EXPECT_STREQ("Z", state.dimStyles[0].name);
}

// The end.

TEST_F(TableSectionTest, endsec_ends_it_with_what_follows_unread) {
  Read(ltypes);
  EXPECT_TRUE(AtGroup(0, "ENDSEC"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(0, "SECTION"));
}

TEST_F(TableSectionTest, what_stands_behind_endsec_is_not_read) {
  EXPECT_EQ("0 2 0", CountsOf(layers + "0 ENDSEC\n" + dimStyles));
}

TEST_F(TableSectionTest, endsec_under_another_code_or_in_another_spelling_ends_nothing) {
  EXPECT_EQ("0 2 0", CountsOf("2 ENDSEC\n0 Endsec\n0 ENDSEC \n0 ENDTAB\n0 EOF\n" + layers));
}

TEST_F(TableSectionTest, a_table_without_its_end_goes_on_to_the_end_of_the_next) {
  EXPECT_EQ("0 2 3", CountsOf("2 LAYER\n0 LAYER\n2 A\n0 LAYER\n2 B\n" + ltypes + dimStyles));
}

TEST_F(TableSectionTest, a_table_without_any_end_goes_on_to_the_end_of_the_file) {
  Read("2 LAYER\n0 LAYER\n2 A\n0 LAYER\n2 B\n");
  EXPECT_EQ("0 2 0", Counts());
  EXPECT_EQ(0, ReadGroup(stream));
}

TEST_F(TableSectionTest, a_file_may_end_behind_any_line) {
  const std::string text = "70 0\n" + ltypes + layers + dimStyles + "0 ENDSEC\n";
  const std::vector<char> bytes = StreamOf(text).bytes;
  for (size_t end = 0; end <= bytes.size(); ++end) {
    FreeTables();
    stream = TextStream();
    stream.complete = true;
    stream.bytes.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(end));
    ReadTables(stream, headerVars);
    EXPECT_LE(state.layers.size(), 2u);
    EXPECT_LE(state.dimStyles.size(), 3u);
  }
  EXPECT_EQ("1 2 3", Counts());
}

TEST_F(TableSectionTest, what_was_read_before_the_file_ended_stays) {
  state.layers = {};
  ReadOpen(ltypes + "0 TABLE\n2 LAYER\n0 LAYER\n2 0\n62 1\n0 LAYER\n2 WALLS\n");
  EXPECT_EQ("1 2 0", Counts());
  EXPECT_EQ(1, FindLayer("0")->color);
}

}  // namespace
}  // namespace hexlume::table_section_test
