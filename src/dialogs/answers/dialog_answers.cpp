#include "dialogs/answers/dialog_answers.h"

#include <algorithm>
#include <new>
#include <string_view>

#include "hexlume_answers.h"

namespace hexlume {

DialogAnswers dialogAnswers;

namespace {

constexpr int32_t largestDenominator = 1000;

DialogAnswers MakeAnswers(int32_t scaleDenominator, const char* const* hiddenLayers, int32_t hiddenLayerCount,
                          const int32_t* hiddenFamilies, int32_t hiddenFamilyCount) {
  DialogAnswers answers;
  if (scaleDenominator != 0) answers.scaleDenominator = std::clamp(scaleDenominator, 1, largestDenominator);
  for (int32_t i = 0; hiddenLayers && i < hiddenLayerCount; ++i)
    if (hiddenLayers[i]) answers.hiddenLayers.emplace(hiddenLayers[i], false);
  for (int32_t i = 0; hiddenFamilies && i < hiddenFamilyCount; ++i)
    answers.hiddenFamilies.push_back(hiddenFamilies[i]);
  return answers;
}

}  // namespace

}  // namespace hexlume

void vzSetDialogAnswers(int32_t scaleDenominator, const char* const* hiddenLayers, int32_t hiddenLayerCount,
                        const int32_t* hiddenFamilies, int32_t hiddenFamilyCount) {
  try {
    hexlume::dialogAnswers = hexlume::MakeAnswers(scaleDenominator, hiddenLayers, hiddenLayerCount,
                                                  hiddenFamilies, hiddenFamilyCount);
  } catch (const std::bad_alloc&) {
    // Out of memory: the previous answers remain.
  }
}

int32_t vzHiddenLayerExists(const char* name) {
  if (!name) return 0;
  const auto& layers = hexlume::dialogAnswers.hiddenLayers;
  const auto found = layers.find(std::string_view(name));
  return found != layers.end() && found->second;
}
