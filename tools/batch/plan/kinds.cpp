#include "tools/batch/plan/kinds.h"

#include <algorithm>

#include "tools/hexlume/command/options.h"

namespace hexlume::batch {

std::vector<std::string> KindArguments(const std::string& kinds) {
  std::string names;
  std::vector<std::string> sizes;
  size_t start = 0;
  while (start <= kinds.size()) {
    const size_t end = std::min(kinds.find(',', start), kinds.size());
    const std::string kind = kinds.substr(start, end - start);
    const size_t colon = std::min(kind.find(':'), kind.size());
    names += (start == 0 ? "" : ",") + kind.substr(0, colon);
    if (colon < kind.size()) {
      if (kind.substr(0, colon) != "png")
        throw UsageError("only png takes a size, as in png:256, not '" + kind + "'");
      sizes.push_back("--size=" + kind.substr(colon + 1));
    }
    start = end + 1;
  }
  if (sizes.size() > 1) throw UsageError("one size of png is possible, not two in '" + kinds + "'");
  std::vector<std::string> arguments = {"--to=" + names};
  arguments.insert(arguments.end(), sizes.begin(), sizes.end());
  return arguments;
}

}  // namespace hexlume::batch
