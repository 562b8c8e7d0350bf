#include "driver/run_watch.h"

#include <algorithm>

namespace hexlume {

RunWatch runWatch;

bool LookAtRun() {
  // Often enough to end a run within milliseconds, seldom enough to cost nothing.
  constexpr int32_t groupsBetweenLooks = 256;
  constexpr int64_t strokesBetweenLooks = 256;
  if (!runWatch.look) {
    runWatch.groupsToLook = std::numeric_limits<int32_t>::max();
    return true;
  }
  runWatch.groupsToLook = groupsBetweenLooks;
  runWatch.strokesAtLook = std::min(runWatch.strokes + strokesBetweenLooks, runWatch.strokeLimit);
  if (!runWatch.ended && !runWatch.look()) runWatch.ended = true;
  if (runWatch.ended) runWatch.groupsToLook = 0;  // every group asks
  return !runWatch.ended;
}

}  // namespace hexlume
