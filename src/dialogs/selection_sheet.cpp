#include "dialogs/selection_sheet.h"

#include <algorithm>

#include "dialogs/dialog_answers.h"
#include "driver/bounded_copy.h"
#include "driver/conv_state.h"

namespace hexlume {

namespace {

// The families in the order of the sheet's rows.
constexpr int32_t familyOfRow[] = {0, 2, 1, 3, 4};

template <typename Value, typename Wanted>
bool Contains(const std::vector<Value>& values, const Wanted& wanted) {
  return std::find(values.begin(), values.end(), wanted) != values.end();
}

void AddExcludedLayer(const LayerNameEntry& layer) {
  BoundedCopy(state.excludedLayers.emplace_back().name, layer.name);
}

bool IsUnticked(const LayerNameEntry& layer) {
  return Contains(dialogAnswers.hiddenLayers, layer.name);
}

// The page of the layers offers those that are shown. A layer that isn't offered counts twice: as not
// offered, and as a row that the list doesn't have, which counts as one without a tick. The conversions
// compare this count with the number of layers, so it stays so.
void AnswerLayers() {
  state.excludedLayerCount = 0;
  for (const LayerNameEntry& layer : state.layerNames) {
    if (layer.shown == 1) continue;
    state.excludedLayerCount += 2;
    AddExcludedLayer(layer);
  }
  for (const LayerNameEntry& layer : state.layerNames) {
    if (layer.shown != 1 || !IsUnticked(layer)) continue;
    state.excludedLayerCount += 1;
    AddExcludedLayer(layer);
  }
}

void AnswerFamilies() {
  state.excludedLtypeCount = 0;
  for (const int32_t family : familyOfRow) {
    if (!Contains(dialogAnswers.hiddenFamilies, family)) continue;
    state.excludedLtypeCount += 1;
    state.excludedLtypes.push_back(family);
  }
}

}  // namespace

bool ShowSelectionSheet() {
  AnswerLayers();
  AnswerFamilies();
  return true;
}

}  // namespace hexlume
