#include "tools/batch/results/progress.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "tools/batch/base/text.h"
#include "tools/batch/plan/folder.h"
#include "tools/batch/results/result_file.h"

namespace hexlume::batch {
namespace {

using Json = nlohmann::ordered_json;

// Of all processes that have results for a chunk, the one with the most.
struct ChunkState {
  ResultHead head;
  bool isRunning = false, isFinished = false;
};

class Gatherer {
 public:
  explicit Gatherer(const Plan& read) : plan(read), key(read.Key()), states(read.Chunks().size()) {
    progress.drawings = plan.DrawingCount();
    progress.chunks = static_cast<int64_t>(plan.Chunks().size());
  }

  BatchProgress Gather() {
    for (const ResultFileName& file : ResultFiles(plan.Folder())) Take(file);
    for (const PlannedChunk& chunk : plan.Chunks()) Count(chunk);
    progress.left = progress.drawings - progress.done - progress.failed;
    if (rate > 0) {
      progress.rate = rate;
      progress.secondsLeft = std::llround(std::ceil(static_cast<double>(progress.left) / rate));
    }
    return progress;
  }

 private:
  void Take(const ResultFileName& file) {
    if (file.chunk > progress.chunks) return;
    const auto head = ReadHead(file.path);
    if (!head || head->key != key) return;
    ChunkState& state = states[static_cast<size_t>(file.chunk - 1)];
    if (file.isPart && LifeOf(file) == Life::running) {
      state.isRunning = true;
      progress.hosts.insert(file.host);
      AddRate(*head);
    }
    // After a failure of its machine a part can have fewer lines than its first line says.
    if (!file.isPart && head->IsComplete()) state.isFinished = true;
    if (head->Count() >= state.head.Count()) state.head = *head;
  }

  void AddRate(const ResultHead& head) {
    const int64_t seconds = head.updated - head.started;
    if (seconds > 0) rate += static_cast<double>(head.converted) / static_cast<double>(seconds);
  }

  void Count(const PlannedChunk& chunk) {
    const ChunkState& state = states[static_cast<size_t>(chunk.number - 1)];
    for (const auto& [status, number] : state.head.statuses) progress.statuses[status] += number;
    progress.done += state.head.Done();
    progress.failed += state.head.Failed();
    if (state.isFinished) {
      ++progress.finishedChunks;
      return;
    }
    progress.chunksLeft.push_back(chunk.number);
    if (!state.isRunning) return;
    ++progress.runningChunks;
    progress.running += chunk.drawings - state.head.Count();
  }

  const Plan& plan;
  const std::string key;
  std::vector<ChunkState> states;
  BatchProgress progress;
  double rate = 0;
};

std::string Row(const std::string& name, const std::string& value) {
  constexpr size_t width = 16;
  return name + std::string(width - std::min(width, name.size()), ' ') + value + '\n';
}

std::string RateText(double rate) {
  const int64_t tenths = std::llround(rate * 10);
  return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + "/s";
}

}  // namespace

BatchProgress ProgressOf(const Plan& plan) {
  return Gatherer(plan).Gather();
}

std::string ProgressText(const BatchProgress& progress) {
  const auto number = [](int64_t count) { return std::to_string(count); };
  std::string text = Row("drawings", number(progress.drawings)) + Row("done", number(progress.done)) +
                     Row("failed", number(progress.failed));
  for (const auto& [status, count] : progress.statuses)
    if (status != "ok") text += Row("  " + status, number(count));
  text += Row("running", number(progress.running) + " in " + number(progress.runningChunks) + " chunks on " +
                             std::to_string(progress.hosts.size()) + " machines");
  text += Row("left", number(progress.left) + " in " + std::to_string(progress.chunksLeft.size()) + " of " +
                          number(progress.chunks) + " chunks");
  if (progress.rate) text += Row("rate", RateText(*progress.rate));
  if (progress.secondsLeft) text += Row("time left", Duration(*progress.secondsLeft));
  return text;
}

std::string ProgressJson(const BatchProgress& progress) {
  Json json = {{"drawings", progress.drawings},
               {"done", progress.done},
               {"failed", progress.failed},
               {"running", progress.running},
               {"left", progress.left},
               {"statuses", progress.statuses},
               {"chunks", progress.chunks},
               {"finishedChunks", progress.finishedChunks},
               {"runningChunks", progress.runningChunks},
               {"hosts", progress.hosts},
               {"rate", nullptr},
               {"secondsLeft", nullptr}};
  if (progress.rate) json["rate"] = *progress.rate;
  if (progress.secondsLeft) json["secondsLeft"] = *progress.secondsLeft;
  return json.dump();
}

}  // namespace hexlume::batch
