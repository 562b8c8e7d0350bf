#include "tools/hexlume/archive/worker_pool.h"

#include "tools/hexlume/archive/worker.h"
#include "tools/hexlume/drawing/drawing_source.h"
#include "tools/hexlume/system/file_output.h"

namespace hexlume {
namespace {

constexpr int32_t defaultTimeLimit = 60;
constexpr int64_t defaultMemoryLimit = int64_t{2} << 30;
constexpr size_t mostSent = 2;
constexpr std::chrono::milliseconds interval(50);

// What a worker has left in the middle of an output when it was ended.
void RemoveLeftoversOf(const Job& job) {
  for (const std::string& folder : FoldersOf(job)) RemoveLeftovers(folder);
}

}  // namespace

int64_t MemoryLimitOf(const Options& options) {
  return options.memoryLimit.value_or(defaultMemoryLimit);
}

WorkerPool::WorkerPool(const JobPlan& planned, const Options& asked,
                       const std::vector<std::string>& arguments)
    : plan(planned),
      options(asked),
      greeting(Encoded(arguments)),
      memoryLimit(MemoryLimitOf(asked)),
      timeLimit(asked.timeLimit.value_or(defaultTimeLimit)) {}

void WorkerPool::Run(size_t workers, const NextJob& next, const TakeResult& take, const Tick& tick,
                     const IsHeld& held) {
  nextJob = next;
  takeResult = take;
  isHeld = held;
  places.resize(workers);
  do {
    for (Place& place : places) Fill(place);
    tick();
    if (!IsBusy()) continue;
    Wait();
    for (Place& place : places) {
      if (!place.process) continue;
      TakeMessages(place);
      CheckLimits(place);
    }
  } while (hasMore || !waiting.empty() || IsBusy());
  tick();
}

bool WorkerPool::IsBusy() const {
  for (const Place& place : places)
    if (!place.sent.empty()) return true;
  return false;
}

std::optional<size_t> WorkerPool::TakeNext() {
  if (!waiting.empty()) {
    const size_t index = waiting.front();
    waiting.pop_front();
    return index;
  }
  if (isHeld()) return std::nullopt;
  const std::optional<size_t> index = hasMore ? nextJob() : std::nullopt;
  if (!index) hasMore = false;
  return index;
}

void WorkerPool::Fill(Place& place) {
  while (place.sent.size() < mostSent) {
    const std::optional<size_t> index = TakeNext();
    if (!index) return;
    if (!SendTo(place, *index)) return;
  }
}

// False if the drawing must wait, as the bytes of a pipe are sent to a worker that reads them at once.
bool WorkerPool::SendTo(Place& place, size_t index) {
  Job job = plan.JobOf(index);
  if (IsStream(job.drawing)) {
    if (!place.sent.empty()) {
      waiting.push_front(index);
      return false;
    }
    job.bytes = OpenDrawing(job.drawing).bytes;
  }
  if (!place.process) StartWorker(place);
  if (place.sent.empty()) place.begun = Clock::now();
  place.sent.push_back(index);
  place.process->Send(Encoded(MessageOf(job)));
  return true;
}

void WorkerPool::StartWorker(Place& place) {
  place.process = WorkerProcess::Start(memoryLimit);
  place.received = {};
  place.done = 0;
  place.memoryAskedAt = Clock::now();
  place.process->Send(greeting);
}

void WorkerPool::Wait() {
  std::vector<WorkerProcess*> processes;
  for (const Place& place : places)
    if (place.process) processes.push_back(place.process.get());
  WaitForWorkers(processes, static_cast<int>(interval.count()));
}

void WorkerPool::TakeMessages(Place& place) {
  place.received.Add(place.process->Receive());
  while (const std::optional<Message> message = place.received.Take()) {
    if (place.sent.empty()) break;
    const size_t index = place.sent.front();
    place.sent.pop_front();
    place.begun = Clock::now();
    ++place.done;
    takeResult(index, ResultOf(*message));
  }
}

void WorkerPool::CheckLimits(Place& place) {
  if (place.process->HasEnded()) return GiveUp(place, crashedStatus);
  if (place.sent.empty()) return;
  if (Clock::now() - place.begun > timeLimit) return GiveUp(place, timeLimitStatus);
  if (ExceedsMemory(place)) GiveUp(place, memoryLimitStatus);
}

bool WorkerPool::ExceedsMemory(Place& place) {
  const Clock::time_point now = Clock::now();
  if (now - place.begun < interval || now - place.memoryAskedAt < interval) return false;
  place.memoryAskedAt = now;
  return place.process->MemoryInUse() > memoryLimit;
}

// The first drawing that the worker was sent has failed. The next one goes to another worker.
void WorkerPool::GiveUp(Place& place, StatusRow row) {
  if (place.sent.empty()) return Replace(place);
  const size_t index = place.sent.front();
  place.sent.pop_front();
  const bool isFirst = place.done == 0;
  Replace(place);
  const Job job = plan.JobOf(index);
  RemoveLeftoversOf(job);
  // Perhaps the drawings before have taken the memory.
  if (row == memoryLimitStatus && !isFirst && retried.insert(index).second)
    waiting.push_back(index);
  else
    takeResult(index, FailedResult(job, row, options));
}

void WorkerPool::Replace(Place& place) {
  waiting.insert(waiting.begin(), place.sent.begin(), place.sent.end());
  place.sent.clear();
  place.process.reset();
}

}  // namespace hexlume
