// A table whose entries are found by name.

#include "driver/named_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"

namespace hexlume::named_table_test {
namespace {

struct Entry {
  char name[textSize];
  int32_t number;
};

// Numbers its entries from 0 in the order of their coming.
class NumberedTable {
 public:
  explicit NumberedTable(const std::vector<std::string>& names) {
    for (const std::string& name : names) Add(name);
  }

  void Add(const std::string& name) {
    Entry entry = {};
    BoundedCopy(entry.name, name.c_str());
    entry.number = static_cast<int32_t>(table.size());
    table.Add(entry);
  }

  // The number of the entry found, -1 if there is none.
  int32_t First(const std::string& name) const { return NumberOf(table.FindFirst(name.c_str())); }
  int32_t Last(std::string_view name) const { return NumberOf(table.FindLast(name)); }

  NamedTable<Entry> table;

 private:
  static int32_t NumberOf(const Entry* entry) { return entry ? entry->number : -1; }
};

TEST(NamedTableTest, an_empty_table_finds_nothing) {
  const NumberedTable table({});
  EXPECT_TRUE(table.table.empty());
  EXPECT_EQ(0u, table.table.size());
  EXPECT_EQ(-1, table.First("A"));
  EXPECT_EQ(-1, table.Last("A"));
  EXPECT_EQ(-1, table.First(""));
}

TEST(NamedTableTest, entries_are_kept_in_the_order_of_their_coming) {
  const NumberedTable table({"B", "C", "A", "C"});
  EXPECT_FALSE(table.table.empty());
  ASSERT_EQ(4u, table.table.size());
  std::string names;
  for (const Entry& entry : table.table) names += entry.name;
  EXPECT_EQ("BCAC", names);
  EXPECT_STREQ("A", table.table[2].name);
  EXPECT_EQ(3, table.table[3].number);
}

TEST(NamedTableTest, an_entry_alone_is_both_first_and_last) {
  const NumberedTable table({"B", "C", "A"});
  EXPECT_EQ(1, table.First("C"));
  EXPECT_EQ(1, table.Last("C"));
}

TEST(NamedTableTest, of_several_entries_with_a_name_the_first_and_the_last_are_found) {
  const NumberedTable table({"A", "B", "A", "B", "A"});
  EXPECT_EQ(0, table.First("A"));
  EXPECT_EQ(4, table.Last("A"));
  EXPECT_EQ(1, table.First("B"));
  EXPECT_EQ(3, table.Last("B"));
}

TEST(NamedTableTest, a_name_found_before_does_not_hide_others) {
  const NumberedTable table({"A", "B", "AB", "A"});
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(0, table.First("A"));
    EXPECT_EQ(0, table.First("A"));
    EXPECT_EQ(2, table.First("AB"));
    EXPECT_EQ(1, table.First("B"));
    EXPECT_EQ(-1, table.First(""));
  }
}

TEST(NamedTableTest, names_are_compared_byte_by_byte) {
  const NumberedTable table({"Abc", "\x95\xc7", " A"});
  EXPECT_EQ(0, table.First("Abc"));
  for (const char* name : {"ABC", "abc", "Ab", "Abcd", "Abc ", "A", ""}) {
    EXPECT_EQ(-1, table.First(name)) << name;
    EXPECT_EQ(-1, table.Last(name)) << name;
  }
  EXPECT_EQ(1, table.First("\x95\xc7"));
  EXPECT_EQ(-1, table.First("\x95"));
  EXPECT_EQ(2, table.First(" A"));
}

TEST(NamedTableTest, an_entry_without_a_name_is_found_by_none) {
  const NumberedTable table({"A", "", ""});
  EXPECT_EQ(1, table.First(""));
  EXPECT_EQ(2, table.Last(""));
}

TEST(NamedTableTest, a_name_may_fill_its_place) {
  const std::string longName(textSize - 1, 'N');
  const NumberedTable table({longName.substr(1), longName});
  EXPECT_EQ(1, table.First(longName));
  EXPECT_EQ(0, table.First(longName.substr(1)));
}

TEST(NamedTableTest, what_comes_later_is_found_behind_a_search) {
  NumberedTable table({"A"});
  EXPECT_EQ(-1, table.First("B"));
  table.Add("B");
  table.Add("A");
  EXPECT_EQ(1, table.First("B"));
  EXPECT_EQ(0, table.First("A"));
  EXPECT_EQ(2, table.Last("A"));
}

TEST(NamedTableTest, a_copy_has_its_own_entries) {
  NumberedTable table({"A"});
  const NumberedTable copy = table;
  table.Add("A");
  table.table = {};
  EXPECT_EQ(-1, table.First("A"));
  EXPECT_EQ(0, copy.First("A"));
  EXPECT_EQ(0, copy.Last("A"));
}

TEST(NamedTableTest, a_large_table_finds_all_of_its_names) {
  NumberedTable table({});
  constexpr int32_t count = 50000;
  for (int32_t i = 0; i < count; ++i) table.Add("N" + std::to_string(i));
  for (int32_t i = 0; i < count; ++i) ASSERT_EQ(i, table.First("N" + std::to_string(i)));
  EXPECT_EQ(-1, table.First("N50000"));
}

TEST(NamedTableTest, forgotten_names_are_not_found_and_the_entries_stay) {
  NumberedTable table({"A", "B"});
  EXPECT_EQ(0, table.First("A"));
  table.table.ForgetNames();
  EXPECT_EQ(-1, table.First("A"));
  EXPECT_EQ(-1, table.Last("B"));
  ASSERT_EQ(2u, table.table.size());
  EXPECT_STREQ("A", table.table[0].name);
  table.Add("A");
  EXPECT_EQ(2, table.First("A"));
}

}  // namespace
}  // namespace hexlume::named_table_test
