// One chunk, converted on this machine: what engines start.
#pragma once

#include <cstdint>
#include <string>

#include "tools/batch/results/result_file.h"

namespace hexlume::batch {

// Converts what has no result yet, in so many worker processes, and writes the results of the chunk. Other machines may do the
// same at the same time. The current folder becomes that of the batch. Throws FolderError, OutputError, StorageError,
// WorkerError and Interrupted; what was converted until then counts the next time.
ResultHead RunChunk(const std::string& folder, int64_t number, int32_t jobs);

}  // namespace hexlume::batch
