#include "tools/batch/engine/run.h"

#include <algorithm>
#include <chrono>
#include <iostream>

#include "tools/batch/base/error.h"
#include "tools/batch/base/text.h"
#include "tools/batch/plan/folder.h"
#include "tools/batch/results/progress.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {
namespace {

// The line of progress on a terminal, and whether all is done.
class Watch {
 public:
  Watch(const Plan& watched, bool isQuiet) : plan(watched), isShown(!isQuiet && StandardErrorIsTerminal()) {}

  bool IsComplete() {
    // A look at the results of very many chunks takes a tenth of the time at most.
    const Clock::time_point now = Clock::now();
    if (now < next) return isComplete;
    const BatchProgress progress = ProgressOf(plan);
    isComplete = progress.IsComplete();
    if (isShown) Show(progress);
    next = Clock::now() + std::max<Clock::duration>(std::chrono::seconds(1), 10 * (Clock::now() - now));
    return isComplete;
  }

  void Clear() {
    if (width > 0) PrintError('\r' + std::string(width, ' ') + '\r');
    width = 0;
  }

 private:
  using Clock = std::chrono::steady_clock;

  void Show(const BatchProgress& progress) {
    std::string line =
        std::to_string(progress.done + progress.failed) + '/' + std::to_string(progress.drawings) + " done";
    if (progress.failed > 0) line += ", " + std::to_string(progress.failed) + " failed";
    if (progress.rate) line += ", " + std::to_string(static_cast<int64_t>(*progress.rate)) + "/s";
    if (progress.secondsLeft) line += ", " + Duration(*progress.secondsLeft) + " left";
    const std::string rest(width > line.size() ? width - line.size() : 0, ' ');
    PrintError('\r' + line + rest);
    width = line.size();
  }

  const Plan& plan;
  const bool isShown;
  bool isComplete = false;
  size_t width = 0;
  Clock::time_point next;
};

int64_t Results(const BatchProgress& progress) {
  return progress.done + progress.failed;
}

int Conclude(const BatchProgress& progress, const RunOrder& order) {
  const std::string words = std::to_string(progress.done) + " done, " + std::to_string(progress.failed) +
                            " failed, " + std::to_string(progress.left) + " left";
  if (!order.isQuiet) std::cout << words << '\n';
  if (!progress.IsComplete())
    std::cerr << "hexlume-batch: no chunk gets further; " << LogsPath(order.folder)
              << " and the messages above say why\n";
  return progress.IsComplete() && progress.done == progress.drawings ? 0 : notAllDoneExit;
}

}  // namespace

int RunBatch(const RunOrder& order) {
  const Plan plan(order.folder);
  plan.CheckVersion();
  const std::unique_ptr<Engine> engine = MakeEngine(plan, order);
  Watch watch(plan, order.isQuiet);
  BatchProgress before = ProgressOf(plan);
  while (!before.IsComplete()) {
    engine->Run(before.chunksLeft, [&watch] { return watch.IsComplete(); });
    watch.Clear();
    if (!order.waits) return 0;
    const BatchProgress after = ProgressOf(plan);
    // What an engine has given up is submitted again as long as something is gained.
    const bool isStuck = Results(after) <= Results(before) && after.finishedChunks <= before.finishedChunks;
    before = after;
    if (isStuck) break;
  }
  return Conclude(before, order);
}

}  // namespace hexlume::batch
