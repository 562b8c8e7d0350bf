#include "entities/block_rules.h"

#include <gtest/gtest.h>

#include <string>

#include "driver/bounded_copy.h"
#include "support/converter_test.h"

namespace hexlume::block_rules_test {
namespace {

TEST(EqualsIgnoringCase, only_the_case_of_ascii_letters_is_ignored) {
  EXPECT_TRUE(EqualsIgnoringCase("", ""));
  EXPECT_TRUE(EqualsIgnoringCase("Dashed2", "DASHED2"));
  EXPECT_TRUE(EqualsIgnoringCase("az_AZ", "AZ_az"));
  EXPECT_FALSE(EqualsIgnoringCase("DASHED", "DASHED2"));
  EXPECT_FALSE(EqualsIgnoringCase("DASHED2", "DASHED"));
  EXPECT_FALSE(EqualsIgnoringCase("DASHED ", "DASHED"));
  EXPECT_FALSE(EqualsIgnoringCase("@", "`"));  // 0x40 and 0x60, beside the letters
  EXPECT_FALSE(EqualsIgnoringCase("[", "{"));
  EXPECT_FALSE(EqualsIgnoringCase("\xC4", "\xE4"));
}

// What a group 6 makes of a style of family 2, pattern 0: "family pattern" or "solid", and the flag.
std::string Described(const LineStyle& style, int32_t inherit) {
  std::string text =
      style.family == 0 ? "solid" : std::to_string(style.family) + " " + std::to_string(style.pattern);
  return inherit ? text + " inherit" : text;
}

class BlockLinetype : public ConverterTest {
 protected:
  static void DefineAllLtypes() { DefineLtypes({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}); }

  static std::string Resolved(const char* value) {
    LineStyle style = {2, 0, 0};
    int32_t inherit = 0;
    ResolveBlockLinetype(value, style, inherit);
    return Described(style, inherit);
  }
};

TEST_F(BlockLinetype, each_name_has_its_row) {
  DefineAllLtypes();
  EXPECT_EQ("2 0", Resolved("DOT"));
  EXPECT_EQ("1 1", Resolved("DASH"));
  EXPECT_EQ("1 2", Resolved("DASHED"));
  EXPECT_EQ("1 3", Resolved("DASHED2"));
  EXPECT_EQ("1 4", Resolved("HIDDEN"));
  EXPECT_EQ("3 5", Resolved("DASHDOT"));
  EXPECT_EQ("3 6", Resolved("CENTER"));
  EXPECT_EQ("3 7", Resolved("CENTER2"));
  EXPECT_EQ("3 8", Resolved("BORDER2"));
  EXPECT_EQ("4 9", Resolved("DASHDOTDOT"));
  EXPECT_EQ("4 10", Resolved("DIVIDE"));
  EXPECT_EQ("4 11", Resolved("PHANTOM"));
}

TEST_F(BlockLinetype, phantom2_is_solid_because_its_own_row_never_has_a_record) {
  DefineAllLtypes();
  EXPECT_EQ("solid", Resolved("PHANTOM2"));
}

TEST_F(BlockLinetype, the_case_of_a_name_does_not_matter) {
  DefineAllLtypes();
  EXPECT_EQ("1 4", Resolved("Hidden"));
  EXPECT_EQ("3 7", Resolved("center2"));
}

TEST_F(BlockLinetype, a_keyword_within_a_longer_name_does_not_count) {
  DefineAllLtypes();
  EXPECT_EQ("solid", Resolved("DOTTED"));
  EXPECT_EQ("solid", Resolved("XHIDDEN"));
  EXPECT_EQ("solid", Resolved("HIDDEN "));
  EXPECT_EQ("solid", Resolved("DASHED3"));
}

TEST_F(BlockLinetype, a_name_without_its_own_record_is_solid) {
  DefineLtypes({0, 1});
  EXPECT_EQ("solid", Resolved("DASHED"));
  EXPECT_EQ("solid", Resolved("HIDDEN"));
  EXPECT_EQ("1 1", Resolved("DASH"));
}

TEST_F(BlockLinetype, continuous_in_any_case_keeps_the_family) {
  DefineAllLtypes();
  EXPECT_EQ("2 0", Resolved("CONTINUOUS"));
  EXPECT_EQ("2 0", Resolved("Continuous"));
}

TEST_F(BlockLinetype, any_other_name_clears_the_family) {
  DefineAllLtypes();
  EXPECT_EQ("solid", Resolved("CONTINUOS"));
  EXPECT_EQ("solid", Resolved("BYLAYER"));
  EXPECT_EQ("solid", Resolved("CONTINUOUS "));
  EXPECT_EQ("solid", Resolved(""));
}

TEST_F(BlockLinetype, two_spellings_of_by_block_set_the_flag) {
  EXPECT_EQ("solid inherit", Resolved("BYBLOCK"));
  EXPECT_EQ("solid inherit", Resolved("ByBlock"));
  EXPECT_EQ("solid", Resolved("byblock"));
  EXPECT_EQ("solid", Resolved("Byblock"));
  EXPECT_EQ("solid", Resolved("BYBLOCK "));
}

TEST_F(BlockLinetype, the_flag_stays_once_it_is_set) {
  LineStyle style;
  int32_t inherit = 1;
  ResolveBlockLinetype("BYLAYER", style, inherit);
  EXPECT_EQ(1, inherit);
}

class DimInsertLinetype : public ConverterTest {
 protected:
  // The pattern isn't this rule's.
  static std::string Resolved(const char* value) {
    LineStyle style = {2, 0, 0};
    int32_t inherit = 0;
    ResolveDimInsertLinetype(value, style, inherit);
    EXPECT_EQ(0, style.pattern) << value;
    return (style.family == 0 ? "solid" : std::to_string(style.family)) + (inherit ? " inherit" : "");
  }
};

TEST_F(DimInsertLinetype, each_name_gives_its_family_without_any_record) {
  EXPECT_EQ("2", Resolved("DOT"));
  EXPECT_EQ("1", Resolved("DASH"));
  EXPECT_EQ("1", Resolved("DASHED"));
  EXPECT_EQ("1", Resolved("DASHED2"));
  EXPECT_EQ("1", Resolved("HIDDEN"));
  EXPECT_EQ("3", Resolved("DASHDOT"));
  EXPECT_EQ("3", Resolved("CENTER"));
  EXPECT_EQ("3", Resolved("BORDER2"));
  EXPECT_EQ("4", Resolved("DASHDOTDOT"));
  EXPECT_EQ("4", Resolved("DIVIDE"));
  EXPECT_EQ("4", Resolved("PHANTOM"));
}

TEST_F(DimInsertLinetype, center2_and_phantom2_are_not_in_the_list) {
  EXPECT_EQ("2", Resolved("CENTER2"));
  EXPECT_EQ("2", Resolved("PHANTOM2"));
  EXPECT_EQ("2", Resolved("Center2"));
}

TEST_F(DimInsertLinetype, the_case_of_a_name_does_not_matter) {
  EXPECT_EQ("1", Resolved("hidden"));
  EXPECT_EQ("4", Resolved("Phantom"));
}

TEST_F(DimInsertLinetype, a_keyword_within_a_longer_name_does_not_count) {
  EXPECT_EQ("2", Resolved("XHIDDEN"));
  EXPECT_EQ("2", Resolved("DASHED3"));
}

TEST_F(DimInsertLinetype, only_the_two_names_of_continuous_clear_the_family) {
  EXPECT_EQ("solid", Resolved("CONTINUOUS"));
  EXPECT_EQ("solid", Resolved("CONTINUOS"));
  EXPECT_EQ("solid", Resolved("Continuous"));
  EXPECT_EQ("2", Resolved("BYLAYER"));
  EXPECT_EQ("2", Resolved("CONTINUOUS "));
  EXPECT_EQ("2", Resolved(""));
}

TEST_F(DimInsertLinetype, by_block_in_any_case_sets_the_flag_and_keeps_the_family) {
  EXPECT_EQ("2 inherit", Resolved("BYBLOCK"));
  EXPECT_EQ("2 inherit", Resolved("ByBlock"));
  EXPECT_EQ("2 inherit", Resolved("byblock"));
  EXPECT_EQ("2", Resolved("BYBLOCK "));
}

// Group 8.

class InheritedLayer : public ConverterTest {
 protected:
  InheritedLayer() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {1, 4, 2}, 5);
    SetInsertLayer("WALLS");
  }

  // insertColor is 6 throughout.
  bool Resolve(const char* name) {
    BoundedCopy(state.groupValue, name);
    return ResolveInheritedLayer(style, color, 6, inherit);
  }

  LineStyle style;
  int32_t color = 0;
  int32_t inherit = 0;
};

TEST_F(InheritedLayer, layer_0_takes_the_inserts_layer_and_its_colour) {
  EXPECT_TRUE(Resolve("0"));
  EXPECT_STREQ("WALLS", state.groupValue);
  EXPECT_EQ(6, color);
  EXPECT_EQ(1, style.family);
  EXPECT_EQ(4, style.pattern);
  EXPECT_EQ(2, style.width);
  EXPECT_EQ(1, inherit);
}

TEST_F(InheritedLayer, layer_0_of_an_insert_on_an_unknown_layer_has_index_minus_1) {
  SetInsertLayer("GONE");
  color = 4;
  EXPECT_TRUE(Resolve("0"));
  EXPECT_EQ(-1, color);
  EXPECT_EQ(0, style.family);
  EXPECT_EQ(1, inherit);
}

TEST_F(InheritedLayer, layer_0_of_an_insert_on_layer_0_takes_its_colour_too) {
  SetInsertLayer("0");
  EXPECT_TRUE(Resolve("0"));
  EXPECT_EQ(6, color);
  EXPECT_EQ(1, inherit);
}

TEST_F(InheritedLayer, another_layer_gives_its_own_colour) {
  SetInsertLayer("0");
  EXPECT_TRUE(Resolve("WALLS"));
  EXPECT_EQ(5, color);
  EXPECT_EQ(1, style.family);
  EXPECT_EQ(0, inherit);
}

TEST_F(InheritedLayer, another_layer_without_an_entry_changes_nothing) {
  color = 4;
  EXPECT_TRUE(Resolve("GONE"));
  EXPECT_EQ(4, color);
  EXPECT_EQ(0, inherit);
}

TEST_F(InheritedLayer, a_colour_that_stood_at_minus_1_gives_way_to_the_inserts_on_any_known_layer) {
  color = -1;
  EXPECT_TRUE(Resolve("WALLS"));
  EXPECT_EQ(6, color);
}

TEST_F(InheritedLayer, the_layers_own_colour_of_minus_1_stands) {
  AddLayer("OFF", {}, -1);
  EXPECT_TRUE(Resolve("OFF"));
  EXPECT_EQ(-1, color);
}

TEST_F(InheritedLayer, only_the_name_0_itself_is_replaced) {
  EXPECT_TRUE(Resolve("00"));
  EXPECT_STREQ("00", state.groupValue);
  EXPECT_TRUE(Resolve("0 "));
  EXPECT_STREQ("0 ", state.groupValue);
  EXPECT_EQ(0, inherit);
}

TEST_F(InheritedLayer, the_layer_that_replaces_layer_0_can_be_excluded) {
  ExcludeLayer("WALLS");
  EXPECT_FALSE(Resolve("0"));
  EXPECT_FALSE(Resolve("WALLS"));
}

TEST_F(InheritedLayer, an_excluded_layer_0_counts_only_for_an_insert_on_it) {
  ExcludeLayer("0");
  EXPECT_TRUE(Resolve("0"));
  SetInsertLayer("0");
  EXPECT_FALSE(Resolve("0"));
}

// Group 62: the colour field is 5 before, insertColor is 6.

class InheritedColor : public ConverterTest {
 protected:
  static int32_t InBlock(const char* value, int32_t inherit) {
    int32_t color = 5;
    ResolveBlockColor(value, color, 6, inherit);
    return color;
  }
  static int32_t InDimInsert(const char* value, int32_t inherit) {
    int32_t color = 5;
    ResolveDimInsertColor(value, color, inherit);
    return color;
  }
};

TEST_F(InheritedColor, a_number_is_mapped_whatever_the_flag) {
  SetInsertLayer("WALLS");
  for (const int32_t inherit : {0, 1}) {
    EXPECT_EQ(1, InBlock("1", inherit));
    EXPECT_EQ(0, InBlock("2", inherit));
    EXPECT_EQ(3, InBlock("100", inherit));
    EXPECT_EQ(0, InBlock("256", inherit));
    EXPECT_EQ(1, InDimInsert("1", inherit));
    EXPECT_EQ(0, InDimInsert("7", inherit));
    EXPECT_EQ(4, InDimInsert("130", inherit));
  }
}

TEST_F(InheritedColor, a_negative_number_stays) {
  EXPECT_EQ(-3, InBlock("-3", 0));
  EXPECT_EQ(-1, InBlock("-1", 1));
  EXPECT_EQ(-3, InDimInsert("-3", 0));
}

TEST_F(InheritedColor, zero_without_the_flag_is_black) {
  EXPECT_EQ(0, InBlock("0", 0));
  EXPECT_EQ(0, InDimInsert("0", 0));
  EXPECT_EQ(0, InBlock("red", 0));
}

TEST_F(InheritedColor, zero_with_the_flag_keeps_the_colour_field) {
  SetInsertLayer("WALLS");
  EXPECT_EQ(5, InBlock("0", 1));
  EXPECT_EQ(5, InDimInsert("0", 1));
}

TEST_F(InheritedColor, on_an_insert_of_layer_0_a_block_takes_the_inserts_colour_first) {
  SetInsertLayer("0");
  EXPECT_EQ(6, InBlock("0", 1));
  EXPECT_EQ(0, InBlock("0", 0));
  EXPECT_EQ(1, InBlock("1", 1));
}

TEST_F(InheritedColor, on_an_insert_of_layer_0_a_dimensions_block_does_not) {
  SetInsertLayer("0");
  EXPECT_EQ(5, InDimInsert("0", 1));
}

TEST_F(InheritedColor, what_is_kept_is_mapped_as_a_number) {
  SetInsertLayer("WALLS");
  int32_t color = 7;  // white, from a layer's or an insert's raw colour
  ResolveBlockColor("0", color, 6, 1);
  EXPECT_EQ(0, color);
  color = 20;
  ResolveDimInsertColor("0", color, 1);
  EXPECT_EQ(1, color);
  color = -1;
  ResolveDimInsertColor("0", color, 1);
  EXPECT_EQ(-1, color);
}

}  // namespace
}  // namespace hexlume::block_rules_test
