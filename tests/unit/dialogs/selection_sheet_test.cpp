#include "dialogs/selection_sheet.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "driver/conv_state.h"

namespace hexlume::selection_sheet_test {
namespace {

// The sheet answers as a user who presses OK at once.
class SelectionSheet : public ::testing::Test {
 protected:
  SelectionSheet() { ResetConvState(); }
  ~SelectionSheet() override { FreeTables(); }

  static void AddLayer(const char* name, int32_t shown) {
    LayerNameEntry& layer = state.layerNames.emplace_back();
    std::strcpy(layer.name, name);
    layer.shown = shown;
    ++state.layerCount;
    state.layerNamesOwned = 1;
  }
  static std::vector<std::string> Excluded() {
    std::vector<std::string> names;
    for (const ExcludedLayer& layer : state.excludedLayers) names.push_back(layer.name);
    return names;
  }
};

using Names = std::vector<std::string>;

TEST_F(SelectionSheet, without_layers_nothing_is_excluded) {
  EXPECT_EQ(DialogResult::ok, ShowSelectionSheet());
  EXPECT_EQ(0, state.excludedLayerCount);
  EXPECT_EQ(Names{}, Excluded());
}

TEST_F(SelectionSheet, layers_that_are_all_shown_are_not_excluded) {
  AddLayer("0", 1);
  AddLayer("WALL", 1);
  EXPECT_EQ(DialogResult::ok, ShowSelectionSheet());
  EXPECT_EQ(0, state.excludedLayerCount);
  EXPECT_EQ(Names{}, Excluded());
}

TEST_F(SelectionSheet, a_layer_that_is_not_shown_counts_twice_and_is_named_once) {
  AddLayer("0", 1);
  AddLayer("FROZEN", 0);
  AddLayer("WALL", 1);
  AddLayer("AXIS", 1);
  EXPECT_EQ(DialogResult::ok, ShowSelectionSheet());
  EXPECT_EQ(2, state.excludedLayerCount);
  EXPECT_EQ(Names{"FROZEN"}, Excluded());
}

TEST_F(SelectionSheet, excluded_layers_stand_in_the_order_of_the_file) {
  AddLayer("C", 0);
  AddLayer("A", 0);
  AddLayer("X", 1);
  AddLayer("B", 0);
  EXPECT_EQ(DialogResult::ok, ShowSelectionSheet());
  EXPECT_EQ(6, state.excludedLayerCount);
  EXPECT_EQ((Names{"C", "A", "B"}), Excluded());
}

TEST_F(SelectionSheet, an_earlier_count_does_not_stay) {
  state.excludedLayerCount = 9;
  AddLayer("FROZEN", 0);
  EXPECT_EQ(DialogResult::ok, ShowSelectionSheet());
  EXPECT_EQ(2, state.excludedLayerCount);
}

TEST_F(SelectionSheet, the_list_of_layers_itself_stays) {
  AddLayer("0", 1);
  AddLayer("FROZEN", 0);
  EXPECT_EQ(DialogResult::ok, ShowSelectionSheet());
  EXPECT_EQ(2, state.layerCount);
  EXPECT_EQ(2u, state.layerNames.size());
}

TEST_F(SelectionSheet, a_page_of_line_types_without_an_answer_excludes_none) {
  AddLayer("FROZEN", 0);
  EXPECT_EQ(DialogResult::ok, ShowSelectionSheet());
  EXPECT_EQ(0, state.excludedLtypeCount);
  EXPECT_TRUE(state.excludedLtypes.empty());
}

}  // namespace
}  // namespace hexlume::selection_sheet_test
