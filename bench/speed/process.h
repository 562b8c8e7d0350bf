// Processes that are measured as a whole.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hexlume::bench {

using Command = std::vector<std::string>;

struct Usage {
  double wallSeconds = 0;
  double processorSeconds = 0;  // of all its threads, in the program and in the system
  int64_t peakBytes = 0;        // of memory in use at once: its own, and what it had of mapped files
};

// Runs a program to its end, its standard output to nowhere. Throws if it can't be started or fails.
Usage RunProcess(const Command& command);

// Runs a program likewise and looks at it every half millisecond. Returns the most memory at once that was its own, not
// that of mapped files.
int64_t PeakOfOwnMemory(const Command& command);

}  // namespace hexlume::bench
