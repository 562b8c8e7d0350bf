#include "platform/portable/vertical_glyphs.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace hexlume::vertical_glyphs_test {

namespace {

// A table GSUB, word by word.
class Table {
 public:
  Table& Words(const std::vector<int>& words) {
    for (const int word : words) {
      bytes.push_back(static_cast<uint8_t>(word >> 8));
      bytes.push_back(static_cast<uint8_t>(word));
    }
    return *this;
  }

  Table& Tag(const std::string& tag) {
    bytes.insert(bytes.end(), tag.begin(), tag.end());
    return *this;
  }

  std::vector<uint8_t> bytes;
};

// One script, one feature of its default language, one lookup with one subtable.
std::vector<uint8_t> TableWith(const std::vector<int>& subtable, const std::string& script = "kana",
                               const std::string& feature = "vert", int lookupType = 1) {
  Table table;
  table.Words({1, 0, 10, 30, 44});                            // 0: the lists of scripts, features and lookups
  table.Words({1}).Tag(script).Words({8});                    // 10: one script, 8 bytes on
  table.Words({4, 0}).Words({0, 0xFFFF, 1, 0});               // 18: its default language, 22: with feature 0
  table.Words({1}).Tag(feature).Words({8}).Words({0, 1, 0});  // 30: one feature, 38: of lookup 0
  table.Words({1, 4}).Words({lookupType, 0, 1, 8});           // 44: one lookup, 48: with one subtable
  return table.Words(subtable).bytes;
}

// Glyphs 5 and 9 by a list, which are at 10 of the subtable.
const std::vector<int> listed = {2, 10, 2, 105, 109, 1, 2, 5, 9};

TEST(VerticalGlyphs, a_list_of_glyphs_has_a_list_of_substitutes) {
  const VerticalGlyphs glyphs(TableWith(listed));
  EXPECT_EQ(glyphs.Of(5), 105u);
  EXPECT_EQ(glyphs.Of(9), 109u);
  EXPECT_EQ(glyphs.Of(6), 6u);
  EXPECT_EQ(glyphs.Of(0), 0u);
}

TEST(VerticalGlyphs, ranges_of_glyphs_go_on_in_the_list_of_substitutes) {
  // 5 to 6 are the first two, 20 to 20 is the third.
  const VerticalGlyphs glyphs(TableWith({2, 12, 3, 105, 106, 120, 2, 2, 5, 6, 0, 20, 20, 2}));
  EXPECT_EQ(glyphs.Of(5), 105u);
  EXPECT_EQ(glyphs.Of(6), 106u);
  EXPECT_EQ(glyphs.Of(20), 120u);
  EXPECT_EQ(glyphs.Of(7), 7u);
}

TEST(VerticalGlyphs, a_number_can_be_added_to_each_glyph) {
  const VerticalGlyphs added(TableWith({1, 6, 100, 1, 2, 5, 9}));
  EXPECT_EQ(added.Of(5), 105u);
  EXPECT_EQ(added.Of(9), 109u);
  // FFFF is -1.
  EXPECT_EQ(VerticalGlyphs(TableWith({1, 6, 0xFFFF, 1, 1, 5})).Of(5), 4u);
}

TEST(VerticalGlyphs, a_glyph_beyond_the_list_of_substitutes_stays) {
  const VerticalGlyphs glyphs(TableWith({2, 8, 1, 105, 1, 2, 5, 9}));
  EXPECT_EQ(glyphs.Of(5), 105u);
  EXPECT_EQ(glyphs.Of(9), 9u);
}

TEST(VerticalGlyphs, only_japanese_or_a_default_script_counts) {
  EXPECT_EQ(VerticalGlyphs(TableWith(listed, "dflt")).Of(5), 105u);
  for (const char* script : {"DFLT", "latn", "hani"})
    EXPECT_EQ(VerticalGlyphs(TableWith(listed, script)).Of(5), 5u) << script;
}

TEST(VerticalGlyphs, only_vertical_features_count) {
  EXPECT_EQ(VerticalGlyphs(TableWith(listed, "kana", "vrt2")).Of(5), 105u);
  EXPECT_EQ(VerticalGlyphs(TableWith(listed, "kana", "liga")).Of(5), 5u);
}

TEST(VerticalGlyphs, only_substitutions_of_one_glyph_by_one_count) {
  EXPECT_EQ(VerticalGlyphs(TableWith(listed, "kana", "vert", 4)).Of(5), 5u);
}

TEST(VerticalGlyphs, a_table_that_ends_early_does_no_harm) {
  const std::vector<uint8_t> whole = TableWith(listed);
  for (size_t size = 0; size < whole.size(); ++size)
    VerticalGlyphs(std::vector<uint8_t>(whole.begin(), whole.begin() + static_cast<int>(size))).Of(5);
}

TEST(VerticalGlyphs, a_table_of_any_words_is_read_to_an_end) {
  // All lists are endless, and each entry covers all glyphs.
  std::vector<uint8_t> endless = TableWith({});
  endless.resize(70000, 0xFF);
  VerticalGlyphs{endless};
  std::mt19937 random(1);
  for (int round = 0; round < 2000; ++round) {
    std::vector<uint8_t> table = TableWith(listed);
    for (int changes = 0; changes < 4; ++changes)
      table[random() % table.size()] = static_cast<uint8_t>(random());
    VerticalGlyphs{table};
  }
}

TEST(StandsUpright, kanji_kana_and_full_width_forms_stand_and_latin_letters_lie) {
  for (const char16_t character : u"\u4E9C\u3042\uFF21\u00A7\u00B1\uE000")
    EXPECT_EQ(StandsUpright(character), character != 0) << static_cast<int>(character);
  for (const char16_t character : u"A1\uFF71\u2192\u300C\u30FC")
    EXPECT_FALSE(StandsUpright(character)) << static_cast<int>(character);
}

}  // namespace

}  // namespace hexlume::vertical_glyphs_test
