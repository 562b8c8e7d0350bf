// The table of layers.

#include "tables/layer_table.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/text_groups.h"

namespace hexlume::layer_table_test {
namespace {

std::string StyleText(int32_t family, int32_t pattern) {
  return family == 0 ? "solid" : std::to_string(family) + " " + std::to_string(pattern);
}

class LayerTableTest : public ConverterTest {
 protected:
  // Reads a table that isn't closed: its name is in the buffer.
  void ReadOpen(const std::string& groups) {
    stream = StreamOf("2 LAYER\n" + groups);
    ReadGroup(stream);
    result = ReadLayerTable(stream);
  }
  void Read(const std::string& records) { ReadOpen("70 9\n" + records + "0 ENDTAB\n0 ENDSEC\n"); }

  static std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const LayerEntry& layer : state.layers) names.push_back(layer.name);
    return names;
  }

  // The one layer of a table whose record has these groups.
  LayerEntry Layer(const std::string& groups) {
    Read("0 LAYER\n" + groups);
    EXPECT_EQ(1u, state.layers.size());
    return state.layers.empty() ? LayerEntry{} : state.layers[0];
  }
  int32_t Color(const std::string& value) { return Layer("62 " + value + "\n").color; }
  int32_t Width(const std::string& value) { return Layer("370 " + value + "\n").width; }

  // "family pattern" of a layer with these values of group 6, one after the other.
  std::string OfLayer(const std::vector<std::string>& values) {
    std::string groups;
    for (const std::string& value : values) groups += "6 " + value + "\n";
    const LayerEntry layer = Layer(groups);
    return StyleText(layer.family, layer.pattern);
  }
  // The same of an entity.
  static std::string OfEntity(const std::vector<std::string>& values) {
    LineStyle style;
    for (const std::string& value : values) ResolveLinetype(value.c_str(), style);
    return StyleText(style.family, style.pattern);
  }
  static void DefineAllLtypes() { DefineLtypes({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}); }
};

using Strings = std::vector<std::string>;

// The table.

TEST_F(LayerTableTest, layers_are_kept_in_the_order_of_the_file) {
  Read(
      "0 LAYER\n5 10\n330 2\n100 AcDb\n2 0\n70 0\n62 7\n6 CONTINUOUS\n"
      "0 LAYER\n2 WALL\n70 0\n62 1\n6 CONTINUOUS\n370 100\n"
      "0 LAYER\n2 AXIS\n70 0\n62 3\n6 CONTINUOUS\n");
  EXPECT_EQ((Strings{"0", "WALL", "AXIS"}), Names());
  EXPECT_EQ(3, state.layerCount);
  EXPECT_EQ(1, state.layersOwned);
  const LayerEntry* wall = FindLayer("WALL");
  ASSERT_TRUE(wall);
  EXPECT_EQ(0, wall->family);
  EXPECT_EQ(1, wall->color);
  EXPECT_EQ(1, wall->width);
}

TEST_F(LayerTableTest, the_measuring_passs_count_is_discarded) {
  state.layerCount = 7;
  Read("0 LAYER\n2 A\n");
  EXPECT_EQ(1, state.layerCount);
  state.layerCount = 7;
  Read("");
  EXPECT_EQ(0, state.layerCount);
}

TEST_F(LayerTableTest, an_empty_table_has_no_layers) {
  Read("");
  EXPECT_TRUE(state.layers.empty());
  EXPECT_EQ(0, state.layersOwned);
  EXPECT_EQ(1, result);
}

TEST_F(LayerTableTest, the_table_ends_at_endtab_with_what_follows_unread) {
  Read("0 LAYER\n2 A\n");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "ENDTAB"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(0, "ENDSEC"));
}

TEST_F(LayerTableTest, endtab_under_another_code_or_in_another_spelling_ends_nothing) {
  Read("0 LAYER\n2 A\n6 ENDTAB\n0 Endtab\n2 ENDTAB\n0 ENDTAB \n0 LAYER\n2 B\n");
  EXPECT_EQ((Strings{"A", "B"}), Names());
}

TEST_F(LayerTableTest, groups_in_front_of_the_first_record_reach_no_layer) {
  Read("5 2\n100 AcDb\n2 X\n62 1\n370 500\n0 LAYER\n2 A\n");
  EXPECT_EQ((Strings{"A"}), Names());
  EXPECT_EQ(0, state.layers[0].color);
  EXPECT_EQ(0, state.layers[0].width);
}

TEST_F(LayerTableTest, other_records_are_skipped) {
  Read(
      "0 LAYER\n2 A\n62 1\n0 STRANGE\n2 S\n62 3\n370 500\n0 layer\n2 T\n0 LAYERS\n2 U\n0 LAYER\n2 B\n62 5\n");
  EXPECT_EQ((Strings{"A", "B"}), Names());
  EXPECT_EQ(1, state.layers[0].color);
  EXPECT_EQ(0, state.layers[0].width);
  EXPECT_EQ(5, state.layers[1].color);
}

TEST_F(LayerTableTest, layer_under_another_code_starts_no_record) {
  Read("0 LAYER\n2 A\n0 STRANGE\n2 LAYER\n2 B\n");
  EXPECT_EQ((Strings{"A"}), Names());
}

TEST_F(LayerTableTest, nothing_reaches_from_one_layer_to_the_next) {
  DefineAllLtypes();
  Read("0 LAYER\n2 A\n6 DASHED\n62 1\n370 500\n0 LAYER\n");
  ASSERT_EQ(2u, state.layers.size());
  const LayerEntry& bare = state.layers[1];
  EXPECT_STREQ("", bare.name);
  EXPECT_EQ(0, bare.family);
  EXPECT_EQ(unnamedLtype, bare.pattern);
  EXPECT_EQ(0, bare.color);
  EXPECT_EQ(0, bare.width);
}

TEST_F(LayerTableTest, a_second_table_takes_the_place_of_the_first) {
  Read("0 LAYER\n2 A\n62 1\n0 LAYER\n2 B\n62 3\n");
  Read("0 LAYER\n2 C\n62 5\n");
  EXPECT_EQ((Strings{"C"}), Names());
  EXPECT_EQ(1, state.layerCount);
  EXPECT_EQ(1, state.layersOwned);
  EXPECT_FALSE(FindLayer("A"));
  ASSERT_TRUE(FindLayer("C"));
  EXPECT_EQ(5, FindLayer("C")->color);
}

TEST_F(LayerTableTest, a_second_table_without_layers_leaves_the_first_one_by_its_place_alone) {
  DefineLtypes({4});
  Read("0 LAYER\n2 A\n6 HIDDEN\n0 LAYER\n2 B\n");
  Read("");
  EXPECT_FALSE(FindLayer("A"));
  EXPECT_FALSE(FindLayer("B"));
  EXPECT_EQ(0, state.layerCount);
  EXPECT_EQ(1, state.layersOwned);
  ASSERT_FALSE(state.layers.empty());
  EXPECT_EQ(1, state.layers[0].family);
}

TEST_F(LayerTableTest, a_third_table_takes_its_place) {
  DefineLtypes({4});
  Read("0 LAYER\n2 A\n6 HIDDEN\n");
  Read("");
  Read("0 LAYER\n2 C\n");
  EXPECT_EQ((Strings{"C"}), Names());
  EXPECT_TRUE(FindLayer("C"));
  EXPECT_EQ(0, state.layers[0].family);
}

TEST_F(LayerTableTest, of_two_layers_of_one_name_the_first_is_found) {
  Read("0 LAYER\n2 A\n62 1\n0 LAYER\n2 A\n62 3\n");
  EXPECT_EQ((Strings{"A", "A"}), Names());
  ASSERT_TRUE(FindLayer("A"));
  EXPECT_EQ(1, FindLayer("A")->color);
}

TEST_F(LayerTableTest, ten_thousand_layers_are_all_found) {
  std::string records;
  for (int i = 0; i < 10000; ++i)
    records += "0 LAYER\n2 L" + std::to_string(i) + "\n62 -" + std::to_string(i) + "\n";
  Read(records);
  EXPECT_EQ(10000, state.layerCount);
  for (int i = 0; i < 10000; ++i) {
    const LayerEntry* layer = FindLayer(("L" + std::to_string(i)).c_str());
    ASSERT_TRUE(layer) << i;
    ASSERT_EQ(-i, layer->color);
  }
}

// Group 2.

TEST_F(LayerTableTest, a_name_is_kept_byte_by_byte) {
  const std::string longName(254, 'N');
  Read("0 LAYER\n2 \x95\xc7 \x90\x7d  \n0 LAYER\n2 " + longName + "\n0 LAYER\n2 Wall\n");
  EXPECT_EQ((Strings{"\x95\xc7 \x90\x7d  ", longName, "Wall"}), Names());
  EXPECT_TRUE(FindLayer(longName.c_str()));
  EXPECT_FALSE(FindLayer("WALL"));
}

TEST_F(LayerTableTest, the_last_name_counts) {
  EXPECT_STREQ("B", Layer("2 LONGER\n2 B\n").name);
}

TEST_F(LayerTableTest, a_layer_without_a_name_has_an_empty_one) {
  EXPECT_STREQ("", Layer("62 1\n").name);
  EXPECT_EQ(1, state.layers[0].color);
}

// Group 62.

TEST_F(LayerTableTest, a_colour_goes_through_the_map_of_colours) {
  const struct {
    const char* value;
    int32_t color;
  } rows[] = {
      {"0", 0},   {"1", 1},   {"2", 0},   {"3", 3},   {"4", 4},   {"5", 5},   {"6", 6},
      {"7", 0},   {"8", 0},   {"10", 0},  {"11", 1},  {"29", 1},  {"30", 0},  {"69", 0},
      {"70", 3},  {"109", 3}, {"110", 4}, {"149", 4}, {"150", 5}, {"189", 5}, {"190", 6},
      {"229", 6}, {"230", 1}, {"249", 1}, {"250", 0}, {"256", 0},
  };
  for (const auto& row : rows) EXPECT_EQ(row.color, Color(row.value)) << row.value;
}

TEST_F(LayerTableTest, a_layer_with_the_colour_minus_5_keeps_minus_5) {
  EXPECT_EQ(-5, Color("-5"));
}

TEST_F(LayerTableTest, any_negative_colour_stands_as_read) {
  EXPECT_EQ(-1, Color("-1"));
  EXPECT_EQ(-7, Color("-7"));
  EXPECT_EQ(-100, Color("-100"));
  EXPECT_EQ(std::numeric_limits<int32_t>::min(), Color("-99999999999"));
}

TEST_F(LayerTableTest, a_colour_that_is_no_number_is_black) {
  EXPECT_EQ(0, Color("red"));
  EXPECT_EQ(0, Color("99999999999"));
}

TEST_F(LayerTableTest, the_last_colour_counts) {
  EXPECT_EQ(3, Layer("62 1\n62 3\n").color);
}

// Group 370.

TEST_F(LayerTableTest, the_lineweights_minus_1_minus_2_and_minus_3_give_no_width) {
  EXPECT_EQ(0, Width("-3"));
  EXPECT_EQ(0, Width("-1"));
  EXPECT_EQ(0, Width("-2"));
  // The last one counts.
  EXPECT_EQ(0, Layer("370 500\n370 -3\n").width);
  EXPECT_EQ(0, Layer("370 500\n370 -3.9\n").width);
}

TEST_F(LayerTableTest, a_lineweight_below_100_gives_no_width) {
  EXPECT_EQ(0, Width("0"));
  EXPECT_EQ(0, Width("25"));
  EXPECT_EQ(0, Width("99"));
  EXPECT_EQ(0, Width("99.999"));
}

TEST_F(LayerTableTest, a_lineweight_from_100_on_gives_its_hundreds) {
  EXPECT_EQ(1, Width("100"));
  EXPECT_EQ(1, Width("199"));
  EXPECT_EQ(2, Width("200"));
  EXPECT_EQ(2, Width("211"));
  EXPECT_EQ(25, Width("2.5e3"));
}

TEST_F(LayerTableTest, a_negative_lineweight_from_minus_100_on_stays_negative) {
  EXPECT_EQ(0, Width("-99"));
  EXPECT_EQ(-1, Width("-100"));
  EXPECT_EQ(-3, Width("-300"));
}

TEST_F(LayerTableTest, a_lineweight_that_no_width_can_hold_is_the_smallest_number) {
  EXPECT_EQ(std::numeric_limits<int32_t>::min(), Width("1e20"));
  EXPECT_EQ(std::numeric_limits<int32_t>::min(), Width("1e999"));
  EXPECT_EQ(0, Width("NAN"));
}

TEST_F(LayerTableTest, thickness_and_other_groups_give_no_width) {
  EXPECT_EQ(0, Layer("39 500\n290 1\n390 500\n371 500\n70 500\n").width);
}

// Group 6: the rule of a layer beside that of an entity. Each row lists the records that the drawing has.

TEST_F(LayerTableTest, line_types_with_their_records_land_alike_but_for_phantom2) {
  DefineAllLtypes();
  const struct {
    const char* value;
    const char* entity;
    const char* layer;
  } rows[] = {
      {"DOT", "2 0", "2 0"},
      {"DASH", "1 1", "1 1"},
      {"DASHED", "1 2", "1 2"},      // after DASH
      {"DASHED2", "1 3", "1 3"},     // after DASH, DASHED
      {"HIDDEN", "1 4", "1 4"},      //
      {"DASHDOT", "3 5", "3 5"},     // after DOT, DASH
      {"CENTER", "3 6", "3 6"},      //
      {"CENTER2", "3 7", "3 7"},     // after CENTER
      {"BORDER2", "3 8", "3 8"},     //
      {"DASHDOTDOT", "4 9", "4 9"},  // after DOT, DASH, DASHDOT
      {"DIVIDE", "4 10", "4 10"},
      {"PHANTOM", "4 11", "4 11"},
      {"PHANTOM2", "4 11", "solid"},  // the row of its own is never defined
      {"HIDDENDOT", "1 4", "1 4"},    // the last of the table, wherever it is
      {"DIVIDE_CENTER_DASHED", "4 10", "4 10"},
      {"PHANTOM_DOT", "4 11", "4 11"},
      {"DOT_PHANTOM2", "4 11", "solid"},
      {"PHANTOM2_DIVIDE", "4 11", "solid"},
      {"CENTERX2", "3 6", "3 6"},
      {"Dashed", "solid", "solid"},
      {"BORDER", "solid", "solid"},
      {"CONTINUOUS", "solid", "solid"},
      {"BYLAYER", "solid", "solid"},
      {"", "solid", "solid"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.entity, OfEntity({row.value})) << row.value;
    EXPECT_EQ(row.layer, OfLayer({row.value})) << row.value;
  }
}

TEST_F(LayerTableTest, each_line_type_by_its_own_record_alone) {
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
    EXPECT_EQ(row.expected, OfEntity({row.value})) << row.value;
    EXPECT_EQ(row.expected, OfLayer({row.value})) << row.value;
  }
}

TEST_F(LayerTableTest, each_line_type_without_its_own_record_is_solid_on_a_layer) {
  const struct {
    int32_t slot;
    const char* value;
    const char* entity;  // what the hit before it left
  } rows[] = {
      {0, "DOT", "solid"},       {1, "DASH", "solid"},     {2, "DASHED", "1 1"},    {3, "DASHED2", "1 2"},
      {4, "HIDDEN", "solid"},    {5, "DASHDOT", "1 1"},    {6, "CENTER", "solid"},  {7, "CENTER2", "3 6"},
      {8, "BORDER2", "solid"},   {9, "DASHDOTDOT", "3 5"}, {10, "DIVIDE", "solid"}, {11, "PHANTOM", "solid"},
      {11, "PHANTOM2", "solid"},
  };
  for (const auto& row : rows) {
    state.ltypes.clear();
    DefineAllLtypes();
    state.ltypes[static_cast<size_t>(row.slot)].defined = 0;
    EXPECT_EQ(row.entity, OfEntity({row.value})) << row.value;
    EXPECT_EQ("solid", OfLayer({row.value})) << row.value;
  }
}

TEST_F(LayerTableTest, without_a_record_for_hidden_both_entity_and_layer_are_solid) {
  DefineLtypes({2});
  EXPECT_EQ("solid", OfEntity({"HIDDEN"}));
  EXPECT_EQ("solid", OfLayer({"HIDDEN"}));
}

TEST_F(LayerTableTest, a_name_of_several_keywords_ends_on_the_state_of_its_last_hit) {
  DefineLtypes({0, 2, 6});
  EXPECT_EQ("2 0", OfEntity({"DASHDOT"}));
  EXPECT_EQ("solid", OfLayer({"DASHDOT"}));  // DOT, and then DASH and DASHDOT without a record
  EXPECT_EQ("1 2", OfEntity({"DASHED2"}));
  EXPECT_EQ("solid", OfLayer({"DASHED2"}));  // DASHED, and then DASHED2 without a record
  EXPECT_EQ("3 6", OfEntity({"HIDDEN_CENTER"}));
  EXPECT_EQ("3 6", OfLayer({"HIDDEN_CENTER"}));  // HIDDEN without a record, and then CENTER
  EXPECT_EQ("3 6", OfEntity({"CENTER_DIVIDE"}));
  EXPECT_EQ("solid", OfLayer({"CENTER_DIVIDE"}));
}

TEST_F(LayerTableTest, without_line_types_every_layer_is_solid) {
  for (const KnownLtype& known : knownLtypes) EXPECT_EQ("solid", OfLayer({known.keyword})) << known.keyword;
}

TEST_F(LayerTableTest, a_hit_without_a_record_leaves_the_pattern) {
  DefineLtypes({11});
  const LayerEntry layer = Layer("6 PHANTOM2\n");
  EXPECT_EQ(0, layer.family);
  EXPECT_EQ(11, layer.pattern);
}

// Group 6 once more: what a second value does to the first.

TEST_F(LayerTableTest, continuous_clears_a_layer_and_keeps_an_entity) {
  DefineAllLtypes();
  EXPECT_EQ("1 4", OfEntity({"HIDDEN", "CONTINUOUS"}));
  EXPECT_EQ("solid", OfLayer({"HIDDEN", "CONTINUOUS"}));
}

TEST_F(LayerTableTest, the_misspelt_continuos_clears_both) {
  DefineAllLtypes();
  EXPECT_EQ("solid", OfEntity({"HIDDEN", "CONTINUOS"}));
  EXPECT_EQ("solid", OfLayer({"HIDDEN", "CONTINUOS"}));
}

TEST_F(LayerTableTest, both_spellings_clear_a_layer_anywhere_in_the_name) {
  DefineAllLtypes();
  EXPECT_EQ("solid", OfLayer({"HIDDEN", "MY_CONTINUOUS_LINE"}));
  EXPECT_EQ("solid", OfLayer({"HIDDEN", "MY_CONTINUOS_LINE"}));
  EXPECT_EQ("2 0", OfLayer({"HIDDEN", "CONTINUOUS_DOT"}));
}

TEST_F(LayerTableTest, a_name_without_a_keyword_keeps_a_layer_and_clears_an_entity) {
  DefineAllLtypes();
  for (const char* value : {"BYLAYER", "Continuous", "CONTINUES", "BORDER", ""}) {
    EXPECT_EQ("solid", OfEntity({"HIDDEN", value})) << value;
    EXPECT_EQ("1 4", OfLayer({"HIDDEN", value})) << value;
  }
}

TEST_F(LayerTableTest, a_keyword_without_a_record_clears_both) {
  DefineLtypes({4});
  EXPECT_EQ("solid", OfEntity({"HIDDEN", "CENTER"}));
  EXPECT_EQ("solid", OfLayer({"HIDDEN", "CENTER"}));
}

// One record.

TEST_F(LayerTableTest, a_record_overwrites_what_the_entry_held) {
  LayerEntry layer = {"OLD", 3, 5, 6, 7};
  stream = StreamOf("0 LAYER\n0 ENDTAB\n");
  ReadGroup(stream);
  EXPECT_EQ(1, ReadLayerRecord(stream, layer));
  EXPECT_TRUE(AtGroup(0, "ENDTAB"));
  EXPECT_STREQ("", layer.name);
  EXPECT_EQ(0, layer.family);
  EXPECT_EQ(unnamedLtype, layer.pattern);
  EXPECT_EQ(0, layer.color);
  EXPECT_EQ(0, layer.width);
}

TEST_F(LayerTableTest, a_record_adds_itself_to_no_table) {
  LayerEntry layer = {};
  stream = StreamOf("0 LAYER\n2 A\n");
  ReadGroup(stream);
  EXPECT_EQ(0, ReadLayerRecord(stream, layer));
  EXPECT_STREQ("A", layer.name);
  EXPECT_TRUE(state.layers.empty());
  EXPECT_EQ(0, state.layerCount);
}

// A file that ends in the table.

TEST_F(LayerTableTest, a_table_that_the_file_ends_in_keeps_what_was_read) {
  // Whole groups of the text after the table's name.
  const char* groups[] = {"70 2\n",    "0 LAYER\n", "2 A\n", "62 1\n",
                          "370 200\n", "0 LAYER\n", "2 B\n", "62 3\n"};
  const size_t layers[] = {0, 0, 1, 1, 1, 1, 2, 2, 2};
  std::string text;
  for (size_t count = 0; count <= std::size(groups); ++count) {
    ReadOpen(text);
    EXPECT_EQ(0, result) << count;
    ASSERT_EQ(layers[count], state.layers.size()) << count;
    EXPECT_EQ(layers[count], static_cast<size_t>(state.layerCount)) << count;
    EXPECT_EQ(layers[count] > 0, state.layersOwned == 1) << count;
    if (layers[count] > 0) {
      EXPECT_STREQ(count < 3 ? "" : "A", state.layers[0].name) << count;
      EXPECT_EQ(count < 4 ? 0 : 1, state.layers[0].color) << count;
      EXPECT_EQ(count < 5 ? 0 : 2, state.layers[0].width) << count;
    }
    if (layers[count] > 1) {
      EXPECT_STREQ(count < 7 ? "" : "B", state.layers[1].name) << count;
    }
    if (count < std::size(groups)) text += groups[count];
  }
}

TEST_F(LayerTableTest, a_group_that_the_file_ends_in_is_not_acted_on) {
  stream = StreamOf("2 LAYER\n0 LAYER\n2 A\n62 1\n");
  stream.bytes.resize(stream.bytes.size() - 2);  // the colour and its line end
  ReadGroup(stream);
  EXPECT_EQ(0, ReadLayerTable(stream));
  EXPECT_EQ((Strings{"A"}), Names());
  EXPECT_EQ(0, state.layers[0].color);
}

}  // namespace
}  // namespace hexlume::layer_table_test
