// The table of line types.

#include "tables/ltype_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::ltype_table_test {
namespace {

using Elements = std::vector<double>;

class LtypeTableTest : public ConverterTest {
 protected:
  LtypeTableTest() { headerVars.ltScale = 1.0; }

  // Reads a table that isn't closed: its name is in the buffer.
  void ReadOpen(const std::string& groups) {
    stream = StreamOf("2 LTYPE\n" + groups);
    ReadGroup(stream);
    result = ReadLtypeTable(stream, headerVars);
  }
  void Read(const std::string& records) { ReadOpen("70 9\n" + records + "0 ENDTAB\n0 ENDSEC\n"); }

  // The slots with a record, such as "2 5".
  static std::string Defined() {
    std::string slots;
    for (size_t slot = 0; slot < state.ltypes.size(); ++slot)
      if (state.ltypes[slot].defined == 1) slots += (slots.empty() ? "" : " ") + std::to_string(slot);
    return slots;
  }
  // What a table of these records defines.
  std::string DefinedBy(const std::string& records) {
    Read(records);
    return Defined();
  }

  static Elements DashesAt(size_t slot) {
    const LtypeEntry& ltype = state.ltypes.at(slot);
    return {std::begin(ltype.dashes), std::end(ltype.dashes)};
  }
  Elements DashesBy(const std::string& records, size_t slot) {
    Read(records);
    return DashesAt(slot);
  }
};

// A record in the usual order of its groups.
std::string Record(const std::string& name, int32_t count, const std::vector<std::string>& elements = {}) {
  std::string record =
      "0 LTYPE\n2 " + name + "\n70 0\n3 __ __\n72 65\n73 " + std::to_string(count) + "\n40 9\n";
  for (const std::string& element : elements) record += "49 " + element + "\n";
  return record;
}

// The slots.

const struct {
  const char* name;
  int32_t elementCount;
} slots[] = {
    {"DOT", 2},     {"DASH", 2},     {"DASHED", 2},  {"DASHED2", 2}, {"HIDDEN", 2},
    {"DASHDOT", 4}, {"CENTER", 4},   {"CENTER2", 4}, {"BORDER2", 4}, {"DASHDOTDOT", 6},
    {"DIVIDE", 6},  {"PHANTOM2", 6}, {"", 6},
};

TEST_F(LtypeTableTest, there_are_13_slots_with_fixed_names_and_element_counts) {
  Read("");
  ASSERT_EQ(13u, state.ltypes.size());
  for (size_t slot = 0; slot < 13; ++slot) {
    EXPECT_STREQ(slots[slot].name, state.ltypes[slot].name) << slot;
    EXPECT_EQ(slots[slot].elementCount, state.ltypes[slot].elementCount) << slot;
  }
}

TEST_F(LtypeTableTest, without_records_no_slot_is_defined_and_every_dash_is_0) {
  Read("");
  EXPECT_EQ("", Defined());
  for (size_t slot = 0; slot < 13; ++slot) EXPECT_EQ((Elements{0, 0, 0, 0, 0, 0}), DashesAt(slot)) << slot;
}

TEST_F(LtypeTableTest, a_record_of_each_name_defines_its_own_slot_alone) {
  for (size_t slot = 0; slot < 12; ++slot) {
    EXPECT_EQ(std::to_string(slot), DefinedBy(Record(slots[slot].name, slots[slot].elementCount, {"3"})));
    for (size_t other = 0; other < 13; ++other)
      EXPECT_EQ(other == slot ? 300.0 : 0.0, DashesAt(other)[0]) << slot << " " << other;
  }
}

TEST_F(LtypeTableTest, all_names_together_define_all_slots_but_the_last) {
  std::string records;
  for (const auto& slot : slots) records += Record(slot.name, slot.elementCount);
  EXPECT_EQ("0 1 2 3 4 5 6 7 8 9 10 11", DefinedBy(records));
}

TEST_F(LtypeTableTest, a_record_of_phantom_is_not_taken_in) {
  EXPECT_EQ("", DefinedBy(Record("PHANTOM", 6, {"3", "-1", "1", "-1", "1", "-1"})));
  EXPECT_EQ((Elements{0, 0, 0, 0, 0, 0}), DashesAt(11));
}

TEST_F(LtypeTableTest, a_record_of_phantom2_goes_to_slot_11) {
  EXPECT_EQ("11", DefinedBy(Record("PHANTOM2", 6, {"3", "-1", "1", "-1", "1", "-1"})));
  EXPECT_EQ((Elements{300, -100, 100, -100, 100, -100}), DashesAt(11));
}

TEST_F(LtypeTableTest, a_record_without_a_name_does_not_define_the_slot_without_one) {
  EXPECT_EQ("", DefinedBy(Record("", 6, {"3", "-1"})));
  EXPECT_EQ((Elements{0, 0, 0, 0, 0, 0}), DashesAt(12));
}

TEST_F(LtypeTableTest, a_record_whose_name_differs_in_case_is_not_taken_in) {
  for (const char* name : {"Dashed", "dashed", "DASHEd"})
    EXPECT_EQ("", DefinedBy(Record(name, 2, {"3", "-1"})));
}

TEST_F(LtypeTableTest, a_name_is_compared_as_a_whole) {
  for (const char* name : {"DASHED ", " DASHED", "DASHEDX2", "DASHE", "MY_DASHED", "BORDER", "CONTINUOUS"})
    EXPECT_EQ("", DefinedBy(Record(name, 2, {"3", "-1"}))) << name;
}

TEST_F(LtypeTableTest, dashed_with_two_elements_defines_slot_2_and_not_slot_1) {
  EXPECT_EQ("2", DefinedBy(Record("DASHED", 2, {"5", "-2.5"})));
  LineStyle style;
  ResolveLinetype("DASHED", style);
  EXPECT_EQ(1, style.family);
  EXPECT_EQ(2, style.pattern);
  style = {};
  ResolveLinetype("DASH", style);
  EXPECT_EQ(0, style.family);
}

// Group 73.

TEST_F(LtypeTableTest, a_count_that_matches_keeps_all_elements) {
  EXPECT_EQ((Elements{500, -250, 0, 0, 0, 0}), DashesBy(Record("DASHED", 2, {"5", "-2.5"}), 2));
}

TEST_F(LtypeTableTest, of_one_element_too_many_the_first_is_dropped) {
  EXPECT_EQ((Elements{500, -250, 0, 0, 0, 0}), DashesBy(Record("DASHED", 3, {"9", "5", "-2.5"}), 2));
  EXPECT_EQ("2", Defined());
  EXPECT_EQ((Elements{500, -250, 0, -250, 0, 0}),
            DashesBy(Record("CENTER", 5, {"9", "5", "-2.5", "0", "-2.5"}), 6));
  EXPECT_EQ("6", Defined());
  EXPECT_EQ((Elements{100, -200, 300, -400, 500, -600}),
            DashesBy(Record("DIVIDE", 7, {"9", "1", "-2", "3", "-4", "5", "-6"}), 10));
  EXPECT_EQ("10", Defined());
}

TEST_F(LtypeTableTest, any_other_count_leaves_the_slot_undefined_with_its_elements_stored) {
  for (const int32_t count : {-1, 0, 1, 4, 5, 6}) {
    EXPECT_EQ("", DefinedBy(Record("DASHED", count, {"5", "-2.5"}))) << count;
    EXPECT_EQ((Elements{500, -250, 0, 0, 0, 0}), DashesAt(2)) << count;
  }
  for (const int32_t count : {2, 3, 6})
    EXPECT_EQ("", DefinedBy(Record("CENTER", count, {"5", "-2.5"}))) << count;
  for (const int32_t count : {2, 4, 5, 8})
    EXPECT_EQ("", DefinedBy(Record("DIVIDE", count, {"5", "-2.5"}))) << count;
}

TEST_F(LtypeTableTest, a_record_without_a_count_is_undefined) {
  EXPECT_EQ("", DefinedBy("0 LTYPE\n2 DASHED\n49 5\n49 -2.5\n"));
  EXPECT_EQ((Elements{500, -250, 0, 0, 0, 0}), DashesAt(2));
}

TEST_F(LtypeTableTest, a_second_count_does_not_take_the_first_one_back) {
  EXPECT_EQ("2", DefinedBy("0 LTYPE\n2 DASHED\n73 2\n73 4\n49 5\n"));
  EXPECT_EQ("2", DefinedBy("0 LTYPE\n2 DASHED\n73 4\n73 2\n49 5\n"));
}

TEST_F(LtypeTableTest, the_count_is_read_as_a_whole_number) {
  EXPECT_EQ("2", DefinedBy("0 LTYPE\n2 DASHED\n73    2.9\n"));
  EXPECT_EQ("", DefinedBy("0 LTYPE\n2 DASHED\n73 two\n"));
}

TEST_F(LtypeTableTest, a_count_behind_an_element_drops_the_next_one) {
  EXPECT_EQ((Elements{900, -250, 0, 0, 0, 0}), DashesBy("0 LTYPE\n2 DASHED\n49 9\n73 3\n49 5\n49 -2.5\n", 2));
}

TEST_F(LtypeTableTest, an_element_to_drop_that_is_not_there_is_dropped_in_the_next_record) {
  Read(Record("DASHED", 3) + Record("DOT", 2, {"0", "-1"}) + Record("HIDDEN", 2, {"3", "-1"}));
  EXPECT_EQ("0 2 4", Defined());
  EXPECT_EQ((Elements{-100, 0, 0, 0, 0, 0}), DashesAt(0));
  EXPECT_EQ((Elements{0, 0, 0, 0, 0, 0}), DashesAt(2));
  EXPECT_EQ((Elements{300, -100, 0, 0, 0, 0}), DashesAt(4));
}

TEST_F(LtypeTableTest, elements_of_an_unknown_record_are_not_the_ones_dropped) {
  Read(Record("DASHED", 3) + Record("ZIGZAG", 3, {"7", "8"}) + Record("HIDDEN", 2, {"3", "-1"}));
  EXPECT_EQ((Elements{-100, 0, 0, 0, 0, 0}), DashesAt(4));
}

TEST_F(LtypeTableTest, a_new_table_drops_nothing_for_the_one_before) {
  Read(Record("DASHED", 3));
  EXPECT_EQ((Elements{300, -100, 0, 0, 0, 0}), DashesBy(Record("HIDDEN", 2, {"3", "-1"}), 4));
}

// Group 49.

TEST_F(LtypeTableTest, dashes_gaps_and_dots_keep_their_signs) {
  EXPECT_EQ((Elements{1275, -635, 0, -635, 0, 0}),
            DashesBy(Record("DASHDOT", 4, {"12.75", "-6.35", "0.0", "-6.35"}), 5));
}

TEST_F(LtypeTableTest, at_ltscale_2_and_draw_scale_1_an_element_of_a_half_is_100) {
  headerVars.ltScale = 2.0;
  EXPECT_EQ((Elements{100, -100, 0, 0, 0, 0}), DashesBy(Record("DASHED", 2, {"0.5", "-0.5"}), 2));
}

TEST_F(LtypeTableTest, an_element_is_divided_by_the_draw_scale) {
  headerVars.ltScale = 3.0;
  state.drawScale = 4.0;
  // 0.5 * 100 * 3 / 4.
  EXPECT_EQ((Elements{37.5, -37.5, 0, 0, 0, 0}), DashesBy(Record("DASHED", 2, {"0.5", "-0.5"}), 2));
}

TEST_F(LtypeTableTest, a_negative_ltscale_turns_dashes_into_gaps) {
  headerVars.ltScale = -1.0;
  EXPECT_EQ((Elements{-500, 250, 0, 0, 0, 0}), DashesBy(Record("DASHED", 2, {"5", "-2.5"}), 2));
}

TEST_F(LtypeTableTest, an_element_that_is_no_number_is_a_dot) {
  EXPECT_EQ((Elements{0, -250, 0, 0, 0, 0}), DashesBy(Record("DASHED", 2, {"five", "-2.5"}), 2));
}

TEST_F(LtypeTableTest, elements_are_not_counted_against_the_slots_own_count) {
  EXPECT_EQ((Elements{100, -200, 300, -400, 0, 0}), DashesBy(Record("DASHED", 2, {"1", "-2", "3", "-4"}), 2));
}

TEST_F(LtypeTableTest, elements_beyond_the_sixth_are_left_out) {
  Read(Record("DASHED", 2, {"1", "-2", "3", "-4", "5", "-6", "7", "-8"}));
  EXPECT_EQ((Elements{100, -200, 300, -400, 500, -600}), DashesAt(2));
  EXPECT_EQ(2, state.ltypes[2].elementCount);
  EXPECT_EQ("2", Defined());
  EXPECT_EQ((Elements{0, 0, 0, 0, 0, 0}), DashesAt(3));
}

TEST_F(LtypeTableTest, an_element_to_drop_does_not_count_as_one_of_the_six) {
  EXPECT_EQ((Elements{100, -200, 300, -400, 500, -600}),
            DashesBy(Record("DIVIDE", 7, {"9", "1", "-2", "3", "-4", "5", "-6", "7"}), 10));
}

TEST_F(LtypeTableTest, a_hundred_thousand_elements_do_no_harm) {
  std::string record = "0 LTYPE\n2 PHANTOM2\n73 6\n";
  for (int i = 0; i < 100000; ++i) record += "49 1\n";
  EXPECT_EQ((Elements{100, 100, 100, 100, 100, 100}), DashesBy(record, 11));
  EXPECT_EQ(0.0, state.ltypes[12].dashes[0]);
}

TEST_F(LtypeTableTest, a_second_record_of_a_name_starts_at_its_first_element) {
  Read(Record("DASHED", 2, {"1", "-2", "3"}) + Record("DASHED", 4, {"5"}));
  EXPECT_EQ((Elements{500, -200, 300, 0, 0, 0}), DashesAt(2));
  EXPECT_EQ("2", Defined());
}

// A scale of 0 or of no size.

TEST_F(LtypeTableTest, a_draw_scale_of_0_gives_dashes_without_end) {
  state.drawScale = 0.0;
  Read(Record("DASHED", 2, {"5", "-2.5"}) + Record("DOT", 2, {"0", "0"}));
  constexpr double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(infinity, DashesAt(2)[0]);
  EXPECT_EQ(-infinity, DashesAt(2)[1]);
  EXPECT_TRUE(std::isnan(DashesAt(0)[0]));
  // One dash to the line's end; and where no element is a number, one solid stroke.
  for (const size_t slot : {size_t{2}, size_t{0}})
    for (const int32_t endY : {-100, -500})
      EXPECT_EQ(Stroke(black, 0, -100, 900, endY), ListCalls([&](Canvas canvas) {
                  DashLine(canvas, 0, -100, 900, endY, 0, 0, 0, black, state.ltypes[slot].dashes, 2, 0);
                }));
}

TEST_F(LtypeTableTest, an_element_of_no_size_is_infinite) {
  EXPECT_EQ(std::numeric_limits<double>::infinity(),
            DashesBy(Record("DASHED", 2, {"1e308", "-1e-320"}), 2)[0]);
  EXPECT_EQ("2", Defined());
}

TEST_F(LtypeTableTest, an_ltscale_of_0_gives_dots) {
  headerVars.ltScale = 0.0;
  EXPECT_EQ((Elements{0, 0, 0, 0, 0, 0}), DashesBy(Record("DASHED", 2, {"5", "-2.5"}), 2));
  EXPECT_EQ("2", Defined());
}

// Records and their ends.

TEST_F(LtypeTableTest, the_table_ends_at_endtab_with_what_follows_unread) {
  Read(Record("DASHED", 2, {"5", "-2.5"}));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "ENDTAB"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(0, "ENDSEC"));
}

TEST_F(LtypeTableTest, the_table_ends_behind_an_unknown_record_too) {
  Read(Record("ZIGZAG", 2, {"5", "-2.5"}));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "ENDTAB"));
}

TEST_F(LtypeTableTest, endtab_in_a_record_ends_both) {
  ReadOpen(Record("DASHED", 2, {"5"}) + "0 ENDTAB\n49 -2.5\n");
  EXPECT_EQ((Elements{500, 0, 0, 0, 0, 0}), DashesAt(2));
  EXPECT_TRUE(AtGroup(0, "ENDTAB"));
}

TEST_F(LtypeTableTest, endtab_under_another_code_or_in_another_spelling_ends_nothing) {
  EXPECT_EQ("2 4", DefinedBy(Record("DASHED", 2, {"5"}) + "3 ENDTAB\n0 Endtab\n0 ENDTAB \n49 -2.5\n" +
                             "0 LTYPE\n2 ENDTAB\n" + Record("HIDDEN", 2)));
  EXPECT_EQ((Elements{500, -250, 0, 0, 0, 0}), DashesAt(2));
}

TEST_F(LtypeTableTest, another_group_0_in_a_record_is_passed_over) {
  EXPECT_EQ((Elements{500, -250, 0, 0, 0, 0}),
            DashesBy("0 LTYPE\n2 DASHED\n0 STRANGE\n73 2\n49 5\n0 TABLE\n49 -2.5\n", 2));
  EXPECT_EQ("2", Defined());
}

TEST_F(LtypeTableTest, within_a_known_record_another_group_2_is_not_looked_at) {
  EXPECT_EQ("2", DefinedBy("0 LTYPE\n2 DASHED\n2 HIDDEN\n73 2\n49 5\n"));
  EXPECT_EQ(500.0, DashesAt(2)[0]);
}

TEST_F(LtypeTableTest, within_an_unknown_record_every_group_2_is_looked_at) {
  EXPECT_EQ("4", DefinedBy("0 LTYPE\n2 ZIGZAG\n73 2\n49 7\n2 HIDDEN\n73 2\n49 5\n"));
  EXPECT_EQ((Elements{500, 0, 0, 0, 0, 0}), DashesAt(4));
}

TEST_F(LtypeTableTest, a_name_is_looked_for_under_code_2_alone) {
  EXPECT_EQ("", DefinedBy("0 LTYPE\n3 DASHED\n73 2\n49 5\n1 HIDDEN\n73 2\n0 DOT\n73 2\n"));
}

TEST_F(LtypeTableTest, a_records_other_groups_count_for_nothing) {
  EXPECT_EQ(
      (Elements{500, -250, 0, 0, 0, 0}),
      DashesBy("0 LTYPE\n5 14\n330 5\n100 AcDb\n2 DASHED\n70 0\n3 __ __\n72 65\n73 2\n40 7.5\n49 5\n74 0\n"
               "75 0\n46 1\n50 0\n49 -2.5\n74 0\n9 X\n",
               2));
}

TEST_F(LtypeTableTest, a_second_table_takes_the_place_of_the_first) {
  Read(Record("DASHED", 2, {"5", "-2.5"}));
  EXPECT_EQ("4", DefinedBy(Record("HIDDEN", 2, {"3", "-1"})));
  EXPECT_EQ((Elements{0, 0, 0, 0, 0, 0}), DashesAt(2));
  EXPECT_EQ(13u, state.ltypes.size());
}

TEST_F(LtypeTableTest, a_table_that_the_file_ends_in_keeps_what_was_read) {
  // Whole groups of the text after the table's name; the third one is the count, the fourth the dash.
  const char* groups[] = {"0 LTYPE\n", "2 DASHED\n", "73 2\n",  "49 5\n",
                          "49 -2.5\n", "0 LTYPE\n",  "2 DOT\n", "73 2\n"};
  std::string text;
  for (size_t count = 0; count <= std::size(groups); ++count) {
    ReadOpen(text);
    EXPECT_EQ(0, result) << count;
    EXPECT_EQ(count < 3 ? "" : count < 8 ? "2" : "0 2", Defined()) << count;
    EXPECT_EQ(count < 4 ? 0.0 : 500.0, DashesAt(2)[0]) << count;
    EXPECT_EQ(count < 5 ? 0.0 : -250.0, DashesAt(2)[1]) << count;
    if (count < std::size(groups)) text += groups[count];
  }
}

TEST_F(LtypeTableTest, a_group_that_the_file_ends_in_is_not_acted_on) {
  stream = StreamOf("2 LTYPE\n0 LTYPE\n2 DASHED\n73 2\n49 5\n");
  stream.bytes.resize(stream.bytes.size() - 2);  // the 5 and its line end
  ReadGroup(stream);
  EXPECT_EQ(0, ReadLtypeTable(stream, headerVars));
  EXPECT_EQ((Elements{0, 0, 0, 0, 0, 0}), DashesAt(2));
  EXPECT_EQ("2", Defined());
}

}  // namespace
}  // namespace hexlume::ltype_table_test
