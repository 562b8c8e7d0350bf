// The fast path of DrawBlockLine for groups that are kept.
#pragma once

#include <cstdint>

#include "driver/group_reader.h"
#include "entities/block_run.h"

namespace hexlume {

// Takes the kept groups that give a LINE its ends, and those that mean nothing to it, without a copy in state.groupValue. Stops
// at any other group, and where ReadGroup is to ask the host. A kept group is left for ReadGroup.
void TakeKeptEnds(const BlockRun& run);

inline int32_t ReadLineGroup(const BlockRun& run) {
  if (run.stream.nextKept->inEntity > 0) TakeKeptEnds(run);
  return ReadGroup(run.stream);
}

}  // namespace hexlume
