// The answers that a host gives in place of the dialogs' windows.
#include "dialogs/answers/dialog_answers.h"

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

#include "dialogs/selection_sheet.h"
#include "driver/conv_state.h"
#include "hexlume_answers.h"

namespace hexlume::dialog_answers_test {
namespace {

using Names = std::vector<std::string>;
using Families = std::vector<int32_t>;

class DialogAnswersTest : public testing::Test {
 protected:
  DialogAnswersTest() { ResetConvState(); }
  ~DialogAnswersTest() override {
    vzSetDialogAnswers(0, nullptr, 0, nullptr, 0);
    FreeTables();
  }

  static void AddLayer(const char* name, int32_t shown) {
    LayerNameEntry& layer = state.layerNames.emplace_back();
    std::strcpy(layer.name, name);
    layer.shown = shown;
    ++state.layerCount;
  }

  static void HideLayers(std::initializer_list<const char*> names) {
    vzSetDialogAnswers(0, names.begin(), static_cast<int32_t>(names.size()), nullptr, 0);
  }

  static Names Excluded() {
    Names names;
    for (const ExcludedLayer& layer : state.excludedLayers) names.push_back(layer.name);
    return names;
  }
};

TEST_F(DialogAnswersTest, a_scale_of_0_is_the_dialogs_own_100) {
  vzSetDialogAnswers(50, nullptr, 0, nullptr, 0);
  EXPECT_EQ(50, dialogAnswers.scaleDenominator);
  vzSetDialogAnswers(0, nullptr, 0, nullptr, 0);
  EXPECT_EQ(100, dialogAnswers.scaleDenominator);
}

TEST_F(DialogAnswersTest, a_scale_is_brought_to_the_range_of_the_dialog) {
  vzSetDialogAnswers(-3, nullptr, 0, nullptr, 0);
  EXPECT_EQ(1, dialogAnswers.scaleDenominator);
  vzSetDialogAnswers(5000, nullptr, 0, nullptr, 0);
  EXPECT_EQ(1000, dialogAnswers.scaleDenominator);
}

TEST_F(DialogAnswersTest, an_unticked_layer_counts_once) {
  AddLayer("A", 1);
  AddLayer("B", 1);
  AddLayer("C", 1);
  HideLayers({"B"});
  ShowSelectionSheet();
  EXPECT_EQ(1, state.excludedLayerCount);
  EXPECT_EQ(Names{"B"}, Excluded());
}

TEST_F(DialogAnswersTest, a_layer_not_offered_still_counts_twice_and_its_name_comes_first) {
  AddLayer("A", 1);
  AddLayer("B", 1);
  AddLayer("OFF", 0);
  HideLayers({"A"});
  ShowSelectionSheet();
  // Not offered: 1, its missing row: 1, the unticked row: 1.
  EXPECT_EQ(3, state.excludedLayerCount);
  EXPECT_EQ((Names{"OFF", "A"}), Excluded());
}

TEST_F(DialogAnswersTest, a_layer_not_offered_cannot_be_unticked_besides) {
  AddLayer("A", 1);
  AddLayer("OFF", 0);
  HideLayers({"OFF"});
  ShowSelectionSheet();
  EXPECT_EQ(2, state.excludedLayerCount);
  EXPECT_EQ(Names{"OFF"}, Excluded());
}

TEST_F(DialogAnswersTest, a_name_that_no_layer_has_answers_nothing) {
  AddLayer("A", 1);
  HideLayers({"a", "B"});
  ShowSelectionSheet();
  EXPECT_EQ(0, state.excludedLayerCount);
  EXPECT_EQ(Names{}, Excluded());
}

TEST_F(DialogAnswersTest, it_is_known_which_names_the_last_drawing_has) {
  AddLayer("A", 1);
  AddLayer("OFF", 0);
  HideLayers({"A", "OFF", "B"});
  EXPECT_EQ(0, vzHiddenLayerExists("A"));  // not asked yet
  ShowSelectionSheet();
  EXPECT_EQ(1, vzHiddenLayerExists("A"));
  EXPECT_EQ(1, vzHiddenLayerExists("OFF"));
  EXPECT_EQ(0, vzHiddenLayerExists("B"));
  EXPECT_EQ(0, vzHiddenLayerExists("C"));
  EXPECT_EQ(0, vzHiddenLayerExists(nullptr));
  FreeTables();
  AddLayer("B", 1);
  ShowSelectionSheet();
  EXPECT_EQ(0, vzHiddenLayerExists("A"));
  EXPECT_EQ(1, vzHiddenLayerExists("B"));
}

TEST_F(DialogAnswersTest, families_are_stored_in_the_order_of_the_rows) {
  const Families hidden = {4, 1, 2};
  vzSetDialogAnswers(0, nullptr, 0, hidden.data(), 3);
  ShowSelectionSheet();
  // The rows are solid 0, dotted 2, dashed 1, chain 3, double chain 4.
  EXPECT_EQ(3, state.excludedLtypeCount);
  EXPECT_EQ((Families{2, 1, 4}), state.excludedLtypes);
}

TEST_F(DialogAnswersTest, a_number_that_no_family_has_or_one_named_twice_answers_nothing_more) {
  const Families hidden = {0, 0, 5, -1};
  vzSetDialogAnswers(0, nullptr, 0, hidden.data(), 4);
  ShowSelectionSheet();
  EXPECT_EQ(1, state.excludedLtypeCount);
  EXPECT_EQ(Families{0}, state.excludedLtypes);
}

TEST_F(DialogAnswersTest, no_list_and_no_name_are_none) {
  vzSetDialogAnswers(0, nullptr, 7, nullptr, 7);
  EXPECT_TRUE(dialogAnswers.hiddenLayers.empty());
  EXPECT_TRUE(dialogAnswers.hiddenFamilies.empty());
  HideLayers({"A", nullptr});
  EXPECT_EQ(1u, dialogAnswers.hiddenLayers.size());
  EXPECT_EQ(1u, dialogAnswers.hiddenLayers.count("A"));
}

}  // namespace
}  // namespace hexlume::dialog_answers_test
