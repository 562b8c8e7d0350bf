// What the user answers where there are no windows.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace hexlume {

constexpr int32_t defaultDenominator = 100;

struct DialogAnswers {
  int32_t scaleDenominator = defaultDenominator;
  std::set<std::string, std::less<>> hiddenLayers;
  std::vector<int32_t> hiddenFamilies;
  std::vector<std::string> unknownLayers;  // of hiddenLayers: names that the last drawing lacks, sorted
};

extern DialogAnswers dialogAnswers;

}  // namespace hexlume
