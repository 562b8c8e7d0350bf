#include "entities/kept_line.h"

#include <algorithm>

#include "driver/conv_state.h"
#include "driver/run_watch.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// Returns false for a group with another meaning.
bool TakeEnd(const KeptGroup& group, const BlockRun& run) {
  switch (group.code) {
    case 6:
    case 8:
    case 39:
    case 62: return false;
    case 10: state.blockX[0] = BlockX(group.number, run.blockOriginX); break;
    case 11: state.blockX[1] = BlockX(group.number, run.blockOriginX); break;
    case 20: state.blockY[0] = BlockY(group.number, run.blockOriginY); break;
    case 21: state.blockY[1] = BlockY(group.number, run.blockOriginY); break;
  }
  return true;
}

}  // namespace

void TakeKeptEnds(const BlockRun& run) {
  const KeptGroup* const first = run.stream.nextKept;
  if (first->place != Tell(run.stream)) return;
  const KeptGroup* const end = first + std::clamp<int32_t>(runWatch.groupsToLook, 0, first->inEntity);
  const KeptGroup* group = first;
  while (group != end && TakeEnd(*group, run)) ++group;
  if (group == first) return;
  runWatch.groupsToLook -= static_cast<int32_t>(group - first);
  runWatch.position = group[-1].place;
  run.stream.nextKept = group;
  Seek(run.stream, group->place);
}

}  // namespace hexlume
