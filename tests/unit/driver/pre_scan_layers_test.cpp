// The layers that the measuring pass finds.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver/conv_state.h"
#include "driver/pre_scan.h"
#include "support/text_drawing.h"

namespace hexlume::pre_scan_layers_test {
namespace {

const std::string header =
    "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n0 SECTION\n2 TABLES\n";
const std::string tableStart = "0 TABLE\n2 LAYER\n70 9\n";
const std::string tableEnd = "0 ENDTAB\n";
const std::string end = "0 ENDSEC\n0 EOF\n";

class LayerScan : public ::testing::Test {
 protected:
  LayerScan() { ResetConvState(); }
  ~LayerScan() override { FreeTables(); }

  static int32_t Scan(const std::string& groups) {
    HeaderVars vars = {};
    return ScanDrawing(TemporaryDrawing(groups).Path(), vars);
  }

  // The layers of a table as "name shown", after a scan of its records.
  static std::vector<std::string> Layers(const std::string& records) {
    ResetConvState();
    EXPECT_EQ(1, Scan(header + tableStart + records + tableEnd + end));
    return Found();
  }
  static std::vector<std::string> Found() {
    EXPECT_EQ(state.layerNames.size(), static_cast<size_t>(state.layerCount));
    std::vector<std::string> layers;
    for (const LayerNameEntry& layer : state.layerNames)
      layers.push_back(layer.name + (" " + std::to_string(layer.shown)));
    return layers;
  }

  // Whether a layer with these groups is shown.
  static int32_t Shown(const std::string& groups) {
    const std::vector<std::string> layers = Layers("0 LAYER\n2 A\n" + groups);
    return layers == std::vector<std::string>{"A 1"} ? 1 : layers == std::vector<std::string>{"A 0"} ? 0 : -1;
  }
};

using Names = std::vector<std::string>;

TEST_F(LayerScan, layers_are_listed_in_the_order_of_the_file) {
  EXPECT_EQ((Names{"0 1", "WALL 1", "AXIS 1"}),
            Layers("0 LAYER\n2 0\n70 0\n62 7\n6 CONTINUOUS\n"
                   "0 LAYER\n5 2F\n100 AcDbLayerTableRecord\n2 WALL\n70 0\n62 1\n6 DASHED\n"
                   "0 LAYER\n2 AXIS\n70 0\n62 3\n6 CENTER\n"));
  EXPECT_EQ(1, state.layerNamesOwned);
}

TEST_F(LayerScan, a_thousand_layers_are_listed) {
  std::string records;
  for (int i = 0; i < 1000; ++i) records += "0 LAYER\n2 L" + std::to_string(i) + "\n62 7\n";
  const Names layers = Layers(records);
  ASSERT_EQ(1000u, layers.size());
  EXPECT_EQ("L0 1", layers.front());
  EXPECT_EQ("L999 1", layers.back());
}

TEST_F(LayerScan, a_name_is_kept_byte_by_byte) {
  EXPECT_EQ((Names{"\x95\xc7 \x90\x7d  1"}), Layers("0 LAYER\n2 \x95\xc7 \x90\x7d \n62 7\n"));
  const std::string longName(254, 'N');
  EXPECT_EQ((Names{longName + " 1"}), Layers("0 LAYER\n2 " + longName + "\n62 7\n"));
}

TEST_F(LayerScan, a_record_without_a_name_is_listed) {
  EXPECT_EQ((Names{" 1", "B 1"}), Layers("0 LAYER\n62 7\n0 LAYER\n2 B\n62 7\n"));
}

TEST_F(LayerScan, a_layer_with_a_colour_that_is_not_negative_is_shown) {
  EXPECT_EQ(1, Shown("62 7\n"));
  EXPECT_EQ(1, Shown("62 0\n"));
  EXPECT_EQ(1, Shown("62 white\n"));  // no number counts as 0
}

TEST_F(LayerScan, a_layer_with_a_negative_colour_is_not_shown) {
  EXPECT_EQ(0, Shown("62 -7\n"));
  EXPECT_EQ(0, Shown("70 0\n62 -1\n"));
}

TEST_F(LayerScan, a_frozen_layer_is_not_shown) {
  EXPECT_EQ(0, Shown("70 1\n62 7\n"));
  EXPECT_EQ(0, Shown("70 1\n62 -7\n"));
}

TEST_F(LayerScan, flags_other_than_exactly_1_do_not_hide) {
  for (const char* flags : {"0", "2", "3", "4", "5", "64", "65", "-1"})
    EXPECT_EQ(1, Shown(std::string("70 ") + flags + "\n62 7\n")) << flags;
  EXPECT_EQ(0, Shown("70 4\n62 -7\n"));
}

TEST_F(LayerScan, flags_behind_the_colour_come_too_late) {
  EXPECT_EQ(1, Shown("62 7\n70 1\n"));
}

TEST_F(LayerScan, the_last_flags_in_front_of_the_colour_count) {
  EXPECT_EQ(1, Shown("70 1\n70 0\n62 7\n"));
  EXPECT_EQ(0, Shown("70 0\n70 1\n62 7\n"));
}

TEST_F(LayerScan, flags_of_one_layer_do_not_reach_the_next) {
  EXPECT_EQ((Names{"A 0", "B 1"}), Layers("0 LAYER\n2 A\n70 1\n62 7\n0 LAYER\n2 B\n62 7\n"));
}

TEST_F(LayerScan, flags_of_the_table_reach_no_layer) {
  EXPECT_EQ(1, Scan(header + "0 TABLE\n2 LAYER\n70 1\n0 LAYER\n2 A\n62 7\n" + tableEnd + end));
  EXPECT_EQ((Names{"A 1"}), Found());
}

TEST_F(LayerScan, the_plot_flag_behind_the_colour_has_the_last_word) {
  EXPECT_EQ(0, Shown("70 0\n62 7\n290 0\n"));
  EXPECT_EQ(1, Shown("70 0\n62 7\n290 1\n"));
  EXPECT_EQ(1, Shown("70 1\n62 7\n290 1\n"));
  EXPECT_EQ(1, Shown("70 0\n62 -7\n290 1\n"));
  EXPECT_EQ(1, Shown("70 0\n62 -7\n290 -1\n"));
}

TEST_F(LayerScan, a_colour_behind_the_plot_flag_has_the_last_word) {
  EXPECT_EQ(1, Shown("70 0\n290 0\n62 7\n"));
  EXPECT_EQ(0, Shown("70 0\n290 1\n62 -7\n"));
}

TEST_F(LayerScan, a_plot_flag_alone_decides) {
  EXPECT_EQ(1, Shown("290 1\n"));
  EXPECT_EQ(0, Shown("290 0\n"));
  EXPECT_EQ(1, Shown("70 1\n290 1\n"));
}

TEST_F(LayerScan, a_layer_with_neither_colour_nor_plot_flag_is_not_shown) {
  EXPECT_EQ(0, Shown(""));
  EXPECT_EQ(0, Shown("70 0\n"));
  EXPECT_EQ((Names{"A 1", "B 0"}), Layers("0 LAYER\n2 A\n62 7\n0 LAYER\n2 B\n6 CONTINUOUS\n"));
}

TEST_F(LayerScan, other_records_of_the_table_are_skipped) {
  EXPECT_EQ((Names{"A 1", "B 1"}),
            Layers("0 LAYER\n2 A\n62 7\n0 STRANGE\n2 S\n62 7\n0 layer\n2 T\n62 7\n0 LAYER\n2 B\n62 7\n"));
}

TEST_F(LayerScan, other_tables_in_front_of_the_layers_are_passed_over) {
  EXPECT_EQ(1, Scan(header + "0 TABLE\n2 LTYPE\n0 LTYPE\n2 DASHED\n0 ENDTAB\n" + tableStart +
                    "0 LAYER\n2 A\n62 7\n" + tableEnd + end));
  EXPECT_EQ((Names{"A 1"}), Found());
}

TEST_F(LayerScan, a_second_table_of_layers_is_ignored) {
  const std::string second = tableStart + "0 LAYER\n2 B\n62 7\n" + tableEnd;
  EXPECT_EQ(1, Scan(header + tableStart + "0 LAYER\n2 A\n62 7\n" + tableEnd + second + end));
  EXPECT_EQ((Names{"A 1"}), Found());
  // The same in a second section of tables.
  ResetConvState();
  EXPECT_EQ(1, Scan(header + tableStart + "0 LAYER\n2 A\n62 7\n" + tableEnd +
                    "0 ENDSEC\n0 SECTION\n2 TABLES\n" + second + end));
  EXPECT_EQ((Names{"A 1"}), Found());
}

TEST_F(LayerScan, a_list_that_is_there_already_is_not_added_to) {
  state.layerNamesOwned = 1;
  EXPECT_EQ(1, Scan(header + tableStart + "0 LAYER\n2 A\n62 7\n" + tableEnd + end));
  EXPECT_EQ(Names{}, Found());
}

TEST_F(LayerScan, a_layer_that_only_an_entity_names_is_not_listed) {
  EXPECT_EQ(1, Scan(header + tableStart + "0 LAYER\n2 A\n62 7\n" + tableEnd +
                    "0 ENDSEC\n0 SECTION\n2 ENTITIES\n0 LINE\n8 B\n10 5\n20 5\n" + end));
  EXPECT_EQ((Names{"A 1"}), Found());
}

TEST_F(LayerScan, an_empty_table_gives_an_empty_list) {
  state.layerCount = 7;
  EXPECT_EQ(1, Scan(header + tableStart + tableEnd + end));
  EXPECT_EQ(Names{}, Found());
  EXPECT_EQ(0, state.layerNamesOwned);
}

TEST_F(LayerScan, tables_without_one_of_layers_give_0) {
  EXPECT_EQ(0, Scan(header + "0 TABLE\n2 LTYPE\n0 LTYPE\n2 DASHED\n0 ENDTAB\n" + end));
  EXPECT_EQ(0, Scan(header + end));
  EXPECT_EQ(0, Scan(header));
}

TEST_F(LayerScan, tables_without_one_of_layers_give_0_whatever_stands_behind_them) {
  EXPECT_EQ(0, Scan(header + "0 ENDSEC\n0 SECTION\n2 ENTITIES\n0 LINE\n8 B\n10 5\n20 5\n" + end));
}

TEST_F(LayerScan, a_file_that_ends_in_the_table_gives_0) {
  EXPECT_EQ(0, Scan(header + tableStart));
  EXPECT_EQ(0, Scan(header + tableStart + "0 LAYER\n2 A\n62 7\n"));
  EXPECT_EQ(0, Scan(header + tableStart + "0 LAYER\n2 B\n62 7\n0 LAYER\n"));
}

TEST_F(LayerScan, a_table_without_its_end_runs_to_the_end_of_the_file) {
  EXPECT_EQ(0, Scan(header + tableStart + "0 LAYER\n2 A\n62 7\n" + end));
  EXPECT_EQ(1, state.layerNamesOwned);
}

TEST_F(LayerScan, layers_behind_the_entities_are_not_read) {
  const std::string entities = "0 SECTION\n2 ENTITIES\n0 LINE\n10 5\n20 5\n0 ENDSEC\n";
  const std::string tables = "0 SECTION\n2 TABLES\n" + tableStart + "0 LAYER\n2 A\n62 7\n" + tableEnd + end;
  EXPECT_EQ(1, Scan(entities + tables));
  EXPECT_EQ((Names{"0 1"}), Found());
}

TEST_F(LayerScan, a_drawing_with_a_box_and_without_tables_has_an_empty_list) {
  EXPECT_EQ(1, Scan("0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n"
                    "0 SECTION\n2 ENTITIES\n0 LINE\n8 B\n10 5\n20 5\n" +
                    end));
  EXPECT_EQ(Names{}, Found());
  EXPECT_EQ(0, state.layerNamesOwned);
}

}  // namespace
}  // namespace hexlume::pre_scan_layers_test
