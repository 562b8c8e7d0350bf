// The host's answers to the dialogs, on systems without dialog windows.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "dialogs/size_dialog.h"

namespace hexlume {

struct DialogAnswers {
  int32_t scaleDenominator = defaultDenominator;
  std::map<std::string, bool, std::less<>> hiddenLayers;  // with: the last drawing has it
  std::vector<int32_t> hiddenFamilies;
};

extern DialogAnswers dialogAnswers;

}  // namespace hexlume
