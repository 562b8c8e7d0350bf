// Lets an engine convert what is left of a batch.
#pragma once

#include "tools/batch/engine/engine.h"

namespace hexlume::batch {

// Returns the exit status: 0 if every drawing is converted, or if the order doesn't wait.
int RunBatch(const RunOrder& order);

}  // namespace hexlume::batch
