#include "driver/work_budget.h"

#include <algorithm>

#include "driver/run_watch.h"
#include "platform/fault_guard.h"

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

void EndRunBy(Bound bound) {
  if (runWatch.ended) return;
  NoteBound(bound);
  work.hasEndedRun = true;
  EndRunAfterEntity();
}

void EndOverBudget() {
  if (work.hasEndedRun) throw faultCode;
}

}  // namespace hexlume
