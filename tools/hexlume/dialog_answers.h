// What the user answers beforehand to the dialogs, where these show no window. Elsewhere there is nothing to
// answer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hexlume {

struct HiddenLayer {
  std::string text;  // as the user wrote it
  std::string name;  // in code page 932
};

struct DialogAnswers {
  int32_t scale = 0;  // N of 1:N; 0: the dialog's own choice
  std::vector<HiddenLayer> hiddenLayers;
  std::vector<int32_t> hiddenFamilies;  // of line types
};

// Gives the answers to the library, for all conversions to come.
void GiveDialogAnswers(const DialogAnswers& answers);

// The texts of the hidden layers that the drawing converted last, with the answers, hasn't got.
std::vector<std::string> UnknownHiddenLayers(const DialogAnswers& answers);

}  // namespace hexlume
