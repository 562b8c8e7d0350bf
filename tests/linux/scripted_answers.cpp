// The scripted library's half of the dialogs: it writes down what it is given.
#include <hexlume_answers.h>

#include <fstream>

void vzSetDialogAnswers(int32_t scaleDenominator, const char* const* hiddenLayers, int32_t hiddenLayerCount,
                        const int32_t* hiddenFamilies, int32_t hiddenFamilyCount) {
  std::ofstream out("answers.txt");
  out << "scale " << scaleDenominator << '\n';
  for (int32_t i = 0; i < hiddenLayerCount; ++i) out << "layer " << hiddenLayers[i] << '\n';
  for (int32_t i = 0; i < hiddenFamilyCount; ++i) out << "family " << hiddenFamilies[i] << '\n';
}

int32_t vzHiddenLayerExists(const char*) {
  return 1;
}
