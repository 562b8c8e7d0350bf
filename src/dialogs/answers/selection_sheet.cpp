#include "dialogs/selection_sheet.h"

#include <algorithm>

#include "dialogs/answers/dialog_answers.h"
#include "driver/bounded_copy.h"
#include "driver/conv_state.h"

namespace hexlume {

namespace {

// The families in the order of the sheet's rows.
constexpr int32_t familyOfRow[] = {0, 2, 1, 3, 4};

void AddExcludedLayer(const LayerNameEntry& layer) {
  ExcludedLayer excluded;
  BoundedCopy(excluded.name, layer.name);
  state.excludedLayers.Add(excluded);
}

bool IsUnticked(const LayerNameEntry& layer) {
  return dialogAnswers.hiddenLayers.count(layer.name) != 0;
}

// Notes which of the names to be unticked are there.
void FindHiddenLayers() {
  auto& hidden = dialogAnswers.hiddenLayers;
  for (auto& [name, exists] : hidden) exists = false;
  for (const LayerNameEntry& layer : state.layerNames)
    if (const auto found = hidden.find(layer.name); found != hidden.end()) found->second = true;
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
  const auto& hidden = dialogAnswers.hiddenFamilies;
  for (const int32_t family : familyOfRow) {
    if (std::find(hidden.begin(), hidden.end(), family) == hidden.end()) continue;
    state.excludedLtypeCount += 1;
    state.excludedLtypes.push_back(family);
  }
}

}  // namespace

DialogResult ShowSelectionSheet() {
  FindHiddenLayers();
  AnswerLayers();
  AnswerFamilies();
  return DialogResult::ok;
}

}  // namespace hexlume
