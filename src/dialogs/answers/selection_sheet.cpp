#include "dialogs/selection_sheet.h"

#include <algorithm>

#include "dialogs/answers/dialog_answers.h"
#include "driver/bounded_copy.h"
#include "driver/conv_state.h"

namespace hexlume {

namespace {

// The families in the order of the rows of the line type page.
constexpr int32_t familyOfRow[] = {0, 2, 1, 3, 4};

void AddExcludedLayer(const LayerNameEntry& layer) {
  ExcludedLayer excluded;
  BoundedCopy(excluded.name, layer.name);
  state.excludedLayers.Add(excluded);
}

bool IsUnticked(const LayerNameEntry& layer) {
  return dialogAnswers.hiddenLayers.count(layer.name) != 0;
}

// Stores for each name in hiddenLayers whether the drawing has such a layer.
void FindHiddenLayers() {
  auto& hidden = dialogAnswers.hiddenLayers;
  for (auto& [name, exists] : hidden) exists = false;
  for (const LayerNameEntry& layer : state.layerNames)
    if (const auto found = hidden.find(layer.name); found != hidden.end()) found->second = true;
}

// Gives the counts of the layer page, which lists the shown layers only. A layer that isn't shown counts
// twice: once as not listed, and once as an unticked row beyond the end of the list. The conversions compare
// this count with the number of layers, so the double count must be kept.
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
