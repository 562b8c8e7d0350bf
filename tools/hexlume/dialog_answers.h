// The user's answers to the dialogs, given on the command line where the dialogs have no windows. On other
// systems there are none.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hexlume {

struct HiddenLayer {
  std::string text;  // as entered by the user
  std::string name;  // in code page 932
};

struct DialogAnswers {
  int32_t scale = 0;  // N of 1:N, or 0 for the default of the dialog
  std::vector<HiddenLayer> hiddenLayers;
  std::vector<int32_t> hiddenFamilies;  // of line types
};

// Passes the answers to the library, for all following conversions.
void GiveDialogAnswers(const DialogAnswers& answers);

// Returns the texts of the hidden layers that the last converted drawing doesn't have.
std::vector<std::string> UnknownHiddenLayers(const DialogAnswers& answers);

}  // namespace hexlume
