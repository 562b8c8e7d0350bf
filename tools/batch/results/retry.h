// Takes back results, so that their drawings are converted again.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/batch/plan/plan.h"

namespace hexlume::batch {

struct RetryOrder {
  bool isAll = false;                  // the results of all drawings, not only of those that have failed
  std::vector<std::string> arguments;  // limits that are other from now on, for hexlume
};

// Returns the number of drawings. Those that have changed are planned as they are now. Throws FolderError while a process is
// converting, and OutputError.
int64_t Retry(const std::string& folder, const RetryOrder& order);

}  // namespace hexlume::batch
