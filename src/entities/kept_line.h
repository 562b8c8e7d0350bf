// The fast paths of DrawBlockLine for groups that are kept.
#pragma once

#include <cstddef>
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

// The kept LINEs that follow one and have the same groups for their style: they have its style and colour, as nothing
// that decides these changes in between. So only their ends are taken.
class LinesAlike {
 public:
  // At the first LINE, before its groups are read.
  explicit LinesAlike(const TextStream& stream);

  // After they were read, with the next entity in the buffer.
  void StyleIsRead();

  // Takes the next of them if it follows, and leaves the entity after it in the buffer. Counts what reading it would count.
  bool TakeNext(const BlockRun& run);

 private:
  const KeptLine* last;  // null: there is none
  size_t layerPlace;     // of the layer that was found last
  int64_t steps;         // that the style takes
};

}  // namespace hexlume
