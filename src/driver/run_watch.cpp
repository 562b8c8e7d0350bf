#include "driver/run_watch.h"

#include <algorithm>

#include "driver/conv_state.h"
#include "driver/group_reader.h"

namespace hexlume {

RunWatch runWatch;

namespace {

// Often enough to end a run within milliseconds, seldom enough to cost nothing.
constexpr int32_t groupsBetweenLooks = 256;
constexpr int64_t strokesBetweenLooks = 256;

// An entity that is longer is cut, or a drawing of one entity could never be ended.
constexpr int32_t groupsAfterEnd = 10000;

// Whether the group read last ends an entity. Vertices are part of theirs.
bool IsBetweenEntities() {
  return state.groupCode == 0 && !AtGroup(0, "VERTEX");
}

}  // namespace

void EndRun() {
  runWatch.ended = true;
  runWatch.groupsToLook = 0;  // every group asks
  runWatch.groupsLeft = 0;
}

void EndRunAfterEntity() {
  EndRun();
  runWatch.groupsLeft = groupsAfterEnd;
}

void LookAtRun() {
  if (runWatch.ended) return;
  runWatch.groupsToLook = std::numeric_limits<int32_t>::max();
  if (!runWatch.look) return;
  runWatch.groupsToLook = groupsBetweenLooks;
  runWatch.strokesAtLook = std::min(runWatch.strokes + strokesBetweenLooks, runWatch.strokeLimit);
  if (!runWatch.look()) EndRunAfterEntity();
}

bool MayReadOn() {
  if (!runWatch.ended) {
    LookAtRun();
    // If the run has just ended, the entity at hand may have just begun: its first group was read before.
    return true;
  }
  runWatch.groupsToLook = 0;
  return !IsBetweenEntities() && runWatch.groupsLeft-- > 0;
}

}  // namespace hexlume
