// The commands of the program. Each returns the exit status.
#pragma once

#include "tools/batch/command/command_line.h"

namespace hexlume::batch {

int PlanCommand(const CommandLine& line);
int RunCommand(const CommandLine& line);
int StatusCommand(const CommandLine& line);
int ReportCommand(const CommandLine& line);
int RetryCommand(const CommandLine& line);
int ChunkCommand(const CommandLine& line);

}  // namespace hexlume::batch
