// Converts many drawings in worker processes. A worker that crashes, takes too long or too much memory costs one drawing and
// is replaced.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/hexlume/archive/job_plan.h"
#include "tools/hexlume/archive/message.h"
#include "tools/hexlume/command/options.h"
#include "tools/hexlume/drawing/drawing_run.h"
#include "tools/hexlume/system/worker_process.h"

namespace hexlume {

class WorkerPool {
 public:
  // Gives the index of the next drawing; none after the last one.
  using NextJob = std::function<std::optional<size_t>()>;
  using TakeResult = std::function<void(size_t index, DrawingResult result)>;
  using Tick = std::function<void()>;
  using IsHeld = std::function<bool()>;

  WorkerPool(const JobPlan& plan, const Options& options, const std::vector<std::string>& arguments);

  // Calls next, take and tick in this thread until each drawing has its result. tick is called some times a second.
  // While isHeld, no drawing is begun that hasn't been sent before. Throws WorkerError if no worker can be started.
  void Run(size_t workers, const NextJob& next, const TakeResult& take, const Tick& tick,
           const IsHeld& isHeld);

 private:
  using Clock = std::chrono::steady_clock;

  // A worker with the drawings that it has been sent: the first one is being converted, the next one waits for its turn,
  // so that the worker needn't.
  struct Place {
    std::unique_ptr<WorkerProcess> process;
    MessageParts received;
    std::deque<size_t> sent;
    Clock::time_point begun;  // of the first drawing
    Clock::time_point memoryAskedAt;
    size_t done = 0;
  };

  std::optional<size_t> TakeNext();
  void Fill(Place& place);
  bool SendTo(Place& place, size_t index);
  void StartWorker(Place& place);
  void Wait();
  void TakeMessages(Place& place);
  void CheckLimits(Place& place);
  bool ExceedsMemory(Place& place);
  void GiveUp(Place& place, StatusRow row);
  void Replace(Place& place);
  bool IsBusy() const;

  const JobPlan& plan;
  const Options& options;
  const std::string greeting;
  const int64_t memoryLimit;
  const std::chrono::seconds timeLimit;
  NextJob nextJob;
  TakeResult takeResult;
  IsHeld isHeld;
  std::vector<Place> places;
  std::deque<size_t> waiting;  // sent to workers that have ended
  std::set<size_t> retried;    // once too much memory in a worker that had converted others
  bool hasMore = true;
};

}  // namespace hexlume
