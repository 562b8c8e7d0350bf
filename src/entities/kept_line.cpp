#include "entities/kept_line.h"

#include <algorithm>

#include "driver/conv_state.h"
#include "driver/run_watch.h"
#include "driver/work_budget.h"
#include "entities/block_level.h"
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

// Null if no kept LINE begins at the stream's position.
const KeptLine* LineAtHand(const TextStream& stream) {
  return stream.nextKept->place == Tell(stream) ? stream.nextKept->line : nullptr;
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

LinesAlike::LinesAlike(const TextStream& stream)
    : last(LineAtHand(stream)), layerPlace(state.layers.PlaceFoundLast()), steps(work.steps) {}

void LinesAlike::StyleIsRead() {
  steps = work.steps - steps;
  // The lookup of another layer than before takes more steps than those of the LINEs that follow.
  if (layerPlace != state.layers.PlaceFoundLast()) last = nullptr;
}

bool LinesAlike::TakeNext(const BlockRun& run) {
  if (!last) return false;
  const KeptGroup* const first = run.stream.nextKept;
  const KeptLine* const line = LineAtHand(run.stream);
  if (line != last + 1 || !line->isLikeLast) return false;
  // Where the host is to be asked or the budget ends, group by group. A run that has ended asks at each group.
  const auto groups = static_cast<int32_t>(line->next + 1 - first);
  const int64_t stepsOfAll = Tell(run.stream) - state.countedPlace + bytesOfEntity + steps;
  if (groups > runWatch.groupsToLook || stepsOfAll > work.mostSteps - work.steps) return false;

  CountBlockEntity(run.stream);
  CountSteps(steps);
  state.blockX[0] = BlockX(line->x[0], run.blockOriginX);
  state.blockX[1] = BlockX(line->x[1], run.blockOriginX);
  state.blockY[0] = BlockY(line->y[0], run.blockOriginY);
  state.blockY[1] = BlockY(line->y[1], run.blockOriginY);
  runWatch.groupsToLook -= groups;
  runWatch.position = line->next->place;
  TakeKeptGroup(run.stream, *line->next);
  last = line;
  return true;
}

}  // namespace hexlume
