// How far a batch is, from the first lines of its results.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/batch/plan/plan.h"

namespace hexlume::batch {

struct BatchProgress {
  int64_t drawings = 0;
  int64_t done = 0;
  int64_t failed = 0;
  int64_t running = 0;  // without a result, in chunks that are being converted
  int64_t left = 0;     // without a result, running or not
  std::map<std::string, int64_t> statuses;
  int64_t chunks = 0, finishedChunks = 0, runningChunks = 0;
  std::set<std::string> hosts;  // that are converting
  std::optional<double> rate;   // drawings in a second, of all machines
  std::optional<int64_t> secondsLeft;
  std::vector<int64_t> chunksLeft;  // without whole results

  bool IsComplete() const { return chunksLeft.empty(); }
};

BatchProgress ProgressOf(const Plan& plan);

// A table for people, and an object for programs.
std::string ProgressText(const BatchProgress& progress);
std::string ProgressJson(const BatchProgress& progress);

}  // namespace hexlume::batch
