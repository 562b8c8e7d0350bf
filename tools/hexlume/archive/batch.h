// Runs all drawings of a command line.
#pragma once

#include <string>
#include <vector>

#include "tools/hexlume/archive/job_plan.h"
#include "tools/hexlume/command/options.h"

namespace hexlume {

// Returns the exit status. arguments are those of the options, for the workers. Throws OutputError.
int RunBatch(const JobPlan& plan, const Options& options, const std::vector<std::string>& arguments);

}  // namespace hexlume
