// What the user answers where there are no windows.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace hexlume {

constexpr int32_t defaultDenominator = 100;

struct DialogAnswers {
  int32_t scaleDenominator = defaultDenominator;
  std::map<std::string, bool, std::less<>> hiddenLayers;  // and whether the last drawing has them
  std::vector<int32_t> hiddenFamilies;
};

extern DialogAnswers dialogAnswers;

}  // namespace hexlume
