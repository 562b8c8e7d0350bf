// What the user answers beforehand to the questions of the dialogs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hexlume {

struct DialogAnswers {
  bool IsGiven() const { return scale != 0 || ChoosesLines(); }
  bool ChoosesLines() const { return !hiddenLayers.empty() || !hiddenFamilies.empty(); }

  int32_t scale = 0;                      // N of 1:N; 0: the dialog's own choice
  std::vector<std::string> hiddenLayers;  // in UTF-8
  std::vector<int32_t> hiddenFamilies;    // of line types
};

// Gives the answers to the dialogs of the library, for all conversions to come, where these take any.
void GiveDialogAnswers(const DialogAnswers& answers);

// Returns the texts of the hidden layers that the last converted drawing doesn't have.
std::vector<std::string> UnknownHiddenLayers(const DialogAnswers& answers);

}  // namespace hexlume
