#include "driver/work_budget.h"

#include <algorithm>

#include "driver/run_watch.h"
#include "hexlume.h"
#include "platform/fault_guard.h"
#include "platform/last_error.h"

namespace hexlume {

WorkBudget work;

void BeginWork() {
  if (work.hasEndedRun) runWatch.ended = false;
  work = {};
}

void AllowWork(int64_t drawingBytes) {
  work.mostSteps = std::max(work.mostSteps, leastSteps + drawingBytes * stepsOfDrawingByte);
  work.mostMetafileBytes =
      std::max(work.mostMetafileBytes, leastMetafileBytes + drawingBytes * metafileBytesOfDrawingByte);
}

void NoteBound(Bound bound) {
  if (work.reached & bound) return;
  work.reached |= bound;
  int32_t place = 0;
  while (!(bound >> place & 1)) ++place;
  work.reachedAt[place] = runWatch.position;
}

void EndRunBy(Bound bound) {
  if (runWatch.ended) return;
  NoteBound(bound);
  work.hasEndedRun = true;
  EndRunAfterEntity();
}

void LeaveBounds() {
  if (work.reached != 0) SetThreadError(HEXLUME_BOUNDS_REACHED | work.reached);
}

void EndOverBudget() {
  if (IsOverBudget()) throw faultCode;
}

}  // namespace hexlume
