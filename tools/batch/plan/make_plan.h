// Makes the plan of a batch.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/batch/plan/plan.h"

namespace hexlume::batch {

struct PlanOrder {
  std::string folder;               // of the batch
  std::vector<std::string> inputs;  // options that give drawings, and folders and drawings, for hexlume
  PlanSettings settings;
  int64_t chunkSize = 500;
  int32_t jobs = 1;  // drawings that are hashed at the same time
  bool isHashed = true;
};

struct PlanSummary {
  int64_t drawings = 0, chunks = 0;
  std::vector<std::string> unreadableFolders;
};

// Throws UsageError, FolderError, OutputError and Interrupted. Nothing is left after an exception.
PlanSummary MakePlan(const PlanOrder& order);

}  // namespace hexlume::batch
