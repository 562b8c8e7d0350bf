// What processes have found out about the drawings of a chunk before: the whole results, and parts of those that were
// ended or are still at work.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "tools/batch/plan/folder.h"
#include "tools/hexlume/archive/job_plan.h"

namespace hexlume::batch {

struct EarlierResult {
  std::string line;  // of the file of results
  std::string status, sha256;
  std::vector<int64_t> outputSizes;  // in the order of the job's outputs
};

// Of the files of one chunk, by the numbers of the drawings. Results that were made with other options or another version aren't there.
std::map<int64_t, EarlierResult> ReadEarlierResults(const std::vector<ResultFileName>& files,
                                                    const std::string& key);

// Whether the outputs of a result are still there with their sizes. The current folder is that of the batch.
bool HasOutputs(const EarlierResult& result, const Job& job);

}  // namespace hexlume::batch
