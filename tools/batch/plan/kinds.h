#pragma once

#include <string>
#include <vector>

namespace hexlume::batch {

// The options of hexlume for kinds of results with commas between, where png:256 is a picture whose longest side has 256
// pixels. Throws UsageError.
std::vector<std::string> KindArguments(const std::string& kinds);

}  // namespace hexlume::batch
