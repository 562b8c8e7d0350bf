#include "entities/converter_rules.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/converter_test.h"

namespace hexlume::converter_rules_test {
namespace {

class ConverterRules : public ConverterTest {
 protected:
  static void DefineAllLtypes() { DefineLtypes({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}); }

  // "family pattern" after a group 6 on a style of family 2, pattern 0.
  static std::string Resolved(const char* value) {
    LineStyle style = {2, 0, 0};
    ResolveLinetype(value, style);
    return style.family == 0 ? "solid" : std::to_string(style.family) + " " + std::to_string(style.pattern);
  }
};

// Group 6.

TEST_F(ConverterRules, each_keyword_lands_on_the_last_of_its_hits) {
  DefineAllLtypes();
  EXPECT_EQ("2 0", Resolved("DOT"));
  EXPECT_EQ("1 1", Resolved("DASH"));
  EXPECT_EQ("1 2", Resolved("DASHED"));   // after DASH
  EXPECT_EQ("1 3", Resolved("DASHED2"));  // after DASH, DASHED
  EXPECT_EQ("1 4", Resolved("HIDDEN"));
  EXPECT_EQ("3 5", Resolved("DASHDOT"));  // after DOT, DASH
  EXPECT_EQ("3 6", Resolved("CENTER"));
  EXPECT_EQ("3 7", Resolved("CENTER2"));  // after CENTER
  EXPECT_EQ("3 8", Resolved("BORDER2"));
  EXPECT_EQ("4 9", Resolved("DASHDOTDOT"));  // after DOT, DASH, DASHDOT
  EXPECT_EQ("4 10", Resolved("DIVIDE"));
  EXPECT_EQ("4 11", Resolved("PHANTOM"));
  EXPECT_EQ("4 11", Resolved("PHANTOM2"));  // after PHANTOM; its own row never applies
}

TEST_F(ConverterRules, each_row_applies_by_the_record_of_its_own_slot) {
  const struct {
    int32_t slot;
    const char* value;
    const char* expected;
  } rows[] = {
      {0, "DOT", "2 0"},     {1, "DASH", "1 1"},       {2, "DASHED", "1 2"},   {3, "DASHED2", "1 3"},
      {4, "HIDDEN", "1 4"},  {5, "DASHDOT", "3 5"},    {6, "CENTER", "3 6"},   {7, "CENTER2", "3 7"},
      {8, "BORDER2", "3 8"}, {9, "DASHDOTDOT", "4 9"}, {10, "DIVIDE", "4 10"}, {11, "PHANTOM", "4 11"},
  };
  for (const auto& row : rows) {
    state.ltypes.clear();
    DefineLtypes({row.slot});
    EXPECT_EQ(row.expected, Resolved(row.value)) << row.value;
  }
}

TEST_F(ConverterRules, a_keyword_counts_anywhere_in_the_name) {
  DefineAllLtypes();
  EXPECT_EQ("2 0", Resolved("DOTTED"));
  EXPECT_EQ("2 0", Resolved("ISO_DOT_3"));
  EXPECT_EQ("1 4", Resolved("XHIDDEN"));
  EXPECT_EQ("3 6", Resolved("CENTERX2"));
  EXPECT_EQ("3 6", Resolved("CENTER "));
}

TEST_F(ConverterRules, of_several_keywords_the_last_of_the_table_wins_wherever_it_stands) {
  DefineAllLtypes();
  EXPECT_EQ("1 4", Resolved("HIDDENDOT"));
  EXPECT_EQ("4 10", Resolved("DIVIDE_CENTER_DASHED"));
}

TEST_F(ConverterRules, a_hit_without_a_record_is_left_alone) {
  DefineLtypes({1});
  EXPECT_EQ("1 1", Resolved("DASHED"));
  EXPECT_EQ("1 1", Resolved("DASHDOTDOT"));
  EXPECT_EQ("solid", Resolved("HIDDEN"));
}

TEST_F(ConverterRules, a_code_6_phantom2_without_its_record_is_solid) {
  DefineLtypes({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  EXPECT_EQ("solid", Resolved("PHANTOM2"));
  EXPECT_EQ("solid", Resolved("PHANTOM"));
}

TEST_F(ConverterRules, every_name_is_solid_without_a_table) {
  EXPECT_EQ("solid", Resolved("DOT"));
  EXPECT_EQ("solid", Resolved("PHANTOM2"));
}

TEST_F(ConverterRules, continuous_keeps_the_family_it_finds) {
  DefineAllLtypes();
  EXPECT_EQ("2 0", Resolved("CONTINUOUS"));
}

TEST_F(ConverterRules, any_other_name_clears_the_family) {
  DefineAllLtypes();
  EXPECT_EQ("solid", Resolved("CONTINUOS"));
  EXPECT_EQ("solid", Resolved("Continuous"));
  EXPECT_EQ("solid", Resolved("CONTINUOUS "));
  EXPECT_EQ("solid", Resolved("BYLAYER"));
  EXPECT_EQ("solid", Resolved("BYBLOCK"));
  EXPECT_EQ("solid", Resolved(""));
}

TEST_F(ConverterRules, keywords_are_searched_in_their_own_case) {
  DefineAllLtypes();
  EXPECT_EQ("solid", Resolved("Hidden"));
  EXPECT_EQ("solid", Resolved("dashdot"));
  EXPECT_EQ("2 0", Resolved("dashDOT"));
}

TEST_F(ConverterRules, a_line_type_leaves_the_width) {
  DefineAllLtypes();
  LineStyle style = {0, 0, 3};
  ResolveLinetype("HIDDEN", style);
  EXPECT_EQ(3, style.width);
}

TEST_F(ConverterRules, a_slot_without_a_record_is_undefined) {
  DefineLtypes({4});
  EXPECT_TRUE(IsLtypeDefined(4));
  EXPECT_FALSE(IsLtypeDefined(3));
  EXPECT_FALSE(IsLtypeDefined(12));
  EXPECT_FALSE(IsLtypeDefined(13));
  EXPECT_FALSE(IsLtypeDefined(-1));
}

// Dashes.

TEST_F(ConverterRules, a_family_has_the_elements_that_its_slot_stores) {
  DefineLtype(4, {300, -200, 100, -50, 10, -5});
  const int32_t counts[] = {0, 2, 2, 4, 6};
  for (const int32_t family : {1, 2, 3, 4}) {
    const Dashes dashes = DashesOf({family, 4, 0});
    ASSERT_EQ(counts[family], dashes.count);
    EXPECT_EQ(300.0, dashes.elements[0]);
    EXPECT_EQ(-200.0, dashes.elements[1]);
  }
  EXPECT_EQ(0, DashesOf({0, 4, 0}).count);
}

TEST_F(ConverterRules, stored_elements_count_though_their_slot_is_not_defined) {
  DefineLtype(4, {300, -200});
  state.ltypes[4].defined = 0;
  const Dashes dashes = DashesOf({1, 4, 0});
  ASSERT_EQ(2, dashes.count);
  EXPECT_EQ(300.0, dashes.elements[0]);
}

TEST_F(ConverterRules, a_slot_that_no_record_has_set_is_solid) {
  EXPECT_EQ(0, DashesOf({1, 4, 0}).count);
  DefineLtype(4, {300, -200});
  for (const int32_t slot : {3, 12, 13, -1}) EXPECT_EQ(0, DashesOf({1, slot, 0}).count) << slot;
}

TEST_F(ConverterRules, a_record_without_elements_is_walked) {
  DefineLtypes({4});
  EXPECT_EQ(2, DashesOf({1, 4, 0}).count);
}

// Group 8.

TEST_F(ConverterRules, a_layer_gives_family_pattern_colour_and_width) {
  AddLayer("WALLS", {3, 6, 2}, 5);
  LineStyle style = {1, 1, 1};
  int32_t color = 1;
  EXPECT_TRUE(ResolveLayer("WALLS", style, color));
  EXPECT_EQ(3, style.family);
  EXPECT_EQ(6, style.pattern);
  EXPECT_EQ(2, style.width);
  EXPECT_EQ(5, color);
}

TEST_F(ConverterRules, of_two_layers_of_a_name_the_first_counts) {
  AddLayer("OTHER", {}, 1);
  AddLayer("WALLS", {}, 3);
  AddLayer("WALLS", {}, 5);
  LineStyle style;
  int32_t color = 0;
  EXPECT_TRUE(ResolveLayer("WALLS", style, color));
  EXPECT_EQ(3, color);
}

TEST_F(ConverterRules, an_unknown_layer_changes_nothing) {
  AddLayer("WALLS", {3, 6, 2}, 5);
  for (const char* name : {"Walls", "WALLS ", "WALL", "WALLS2", "", "0"}) {
    LineStyle style = {1, 4, 1};
    int32_t color = 1;
    EXPECT_TRUE(ResolveLayer(name, style, color));
    EXPECT_EQ(1, style.family) << name;
    EXPECT_EQ(4, style.pattern) << name;
    EXPECT_EQ(1, style.width) << name;
    EXPECT_EQ(1, color) << name;
  }
}

TEST_F(ConverterRules, an_excluded_layer_ends_the_converter_with_nothing_taken_over) {
  AddLayer("WALLS", {3, 6, 2}, 5);
  ExcludeLayer("DOORS");
  ExcludeLayer("WALLS");
  LineStyle style = {1, 4, 1};
  int32_t color = 1;
  EXPECT_FALSE(ResolveLayer("WALLS", style, color));
  EXPECT_EQ(1, style.family);
  EXPECT_EQ(1, color);
}

TEST_F(ConverterRules, excluded_layers_are_compared_exactly_and_need_no_entry) {
  ExcludeLayer("WALLS");
  LineStyle style;
  int32_t color = 0;
  EXPECT_FALSE(ResolveLayer("WALLS", style, color));
  EXPECT_TRUE(ResolveLayer("Walls", style, color));
  EXPECT_TRUE(ResolveLayer("WALLS ", style, color));
  EXPECT_TRUE(ResolveLayer("WALLS2", style, color));
}

// Group 39.

TEST_F(ConverterRules, a_width_is_a_hundredth_of_the_thickness_cut_toward_zero) {
  EXPECT_EQ(0, ResolveWidth("0"));
  EXPECT_EQ(0, ResolveWidth("99"));
  EXPECT_EQ(1, ResolveWidth("100"));
  EXPECT_EQ(1, ResolveWidth("199.9"));
  EXPECT_EQ(2, ResolveWidth("  250"));
  EXPECT_EQ(0, ResolveWidth("-99"));
  EXPECT_EQ(-1, ResolveWidth("-150"));
  EXPECT_EQ(0, ResolveWidth("thick"));
}

// Group 62.

struct ColorRange {
  int32_t first, last, index;
};

// Rows without gaps from -5 to 300.
constexpr ColorRange colorRanges[] = {
    {-5, -5, -5}, {-4, -4, -4}, {-3, -3, -3},  {-2, -2, -2},  {-1, -1, -1},  {0, 0, 0},     {1, 1, 1},
    {2, 2, 0},    {3, 3, 3},    {4, 4, 4},     {5, 5, 5},     {6, 6, 6},     {7, 10, 0},    {11, 29, 1},
    {30, 69, 0},  {70, 109, 3}, {110, 149, 4}, {150, 189, 5}, {190, 229, 6}, {230, 249, 1}, {250, 300, 0},
};

TEST_F(ConverterRules, every_colour_number_has_the_index_of_its_range) {
  int32_t number = -5;
  for (const ColorRange& range : colorRanges) {
    ASSERT_EQ(number, range.first);
    for (; number <= range.last; ++number) EXPECT_EQ(range.index, ResolveColor(number)) << number;
  }
  EXPECT_EQ(301, number);
}

TEST_F(ConverterRules, colour_numbers_far_outside_the_palette_are_black_or_stay_negative) {
  EXPECT_EQ(0, ResolveColor(1000));
  EXPECT_EQ(0, ResolveColor(std::numeric_limits<int32_t>::max()));
  EXPECT_EQ(std::numeric_limits<int32_t>::min(), ResolveColor(std::numeric_limits<int32_t>::min()));
}

TEST_F(ConverterRules, yellow_and_white_are_never_delivered) {
  for (int32_t number = -5; number <= 300; ++number) {
    const COLORREF color = ColorAt(ResolveColor(number));
    EXPECT_NE(0x00FFFFu, color) << number;
    EXPECT_NE(0xFFFFFFu, color) << number;
  }
}

TEST_F(ConverterRules, an_index_of_the_table_is_its_colour) {
  EXPECT_EQ(0x000000u, ColorAt(0));
  EXPECT_EQ(0x0000FFu, ColorAt(1));
  EXPECT_EQ(0x00FFFFu, ColorAt(2));
  EXPECT_EQ(0x00FF00u, ColorAt(3));
  EXPECT_EQ(0xFFFF00u, ColorAt(4));
  EXPECT_EQ(0xFF0000u, ColorAt(5));
  EXPECT_EQ(0xFF00FFu, ColorAt(6));
  EXPECT_EQ(0xFFFFFFu, ColorAt(7));
}

TEST_F(ConverterRules, index_minus_1_is_the_count_in_front_of_the_table) {
  EXPECT_EQ(0x000007u, ColorAt(-1));
}

TEST_F(ConverterRules, every_other_index_outside_the_table_is_black) {
  EXPECT_EQ(0x000000u, ColorAt(-2));
  EXPECT_EQ(0x000000u, ColorAt(-5));
  EXPECT_EQ(0x000000u, ColorAt(8));
  EXPECT_EQ(0x000000u, ColorAt(256));
  EXPECT_EQ(0x000000u, ColorAt(std::numeric_limits<int32_t>::min()));
  EXPECT_EQ(0x000000u, ColorAt(std::numeric_limits<int32_t>::max()));
}

// After the groups.

TEST_F(ConverterRules, no_family_is_filtered_without_exclusions) {
  for (int32_t family = 0; family <= 4; ++family) EXPECT_FALSE(LinetypeFilter(family)) << family;
}

TEST_F(ConverterRules, an_excluded_family_is_filtered) {
  ExcludeFamily(0);
  ExcludeFamily(3);
  EXPECT_TRUE(LinetypeFilter(0));
  EXPECT_FALSE(LinetypeFilter(1));
  EXPECT_FALSE(LinetypeFilter(2));
  EXPECT_TRUE(LinetypeFilter(3));
  EXPECT_FALSE(LinetypeFilter(4));
}

TEST_F(ConverterRules, monochrome_makes_every_index_0) {
  for (const int32_t monochrome : {1, 2, -1}) {
    state.monochrome = monochrome;
    for (const int32_t index : {-1, 0, 1, 6, 300}) {
      int32_t color = index;
      MonochromeRule(color);
      EXPECT_EQ(0, color);
    }
  }
}

TEST_F(ConverterRules, without_monochrome_an_index_stays) {
  for (const int32_t index : {-1, 0, 1, 6, 300}) {
    int32_t color = index;
    MonochromeRule(color);
    EXPECT_EQ(index, color);
  }
}

}  // namespace
}  // namespace hexlume::converter_rules_test
