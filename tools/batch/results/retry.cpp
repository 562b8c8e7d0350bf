#include "tools/batch/results/retry.h"

#include <unistd.h>

#include <algorithm>
#include <map>

#include "tools/batch/base/error.h"
#include "tools/batch/plan/folder.h"
#include "tools/batch/results/earlier_results.h"
#include "tools/batch/results/result_file.h"

namespace hexlume::batch {
namespace {

void CheckNothingRuns(const std::string& folder) {
  for (const ResultFileName& file : ResultFiles(folder))
    if (file.isPart && LifeOf(file) == Life::running)
      throw FolderError(folder + ": chunk " + std::to_string(file.chunk) + " is being converted on " +
                        file.host + "; wait for its end");
}

// The limits that are given replace those of the plan. All have the form --NAME=VALUE.
std::vector<std::string> WithLimits(std::vector<std::string> arguments,
                                    const std::vector<std::string>& limits) {
  for (const std::string& limit : limits) {
    const std::string start = limit.substr(0, limit.find('=') + 1);
    const auto isSame = [&start](const std::string& argument) {
      return argument.compare(0, start.size(), start) == 0;
    };
    arguments.erase(std::remove_if(arguments.begin(), arguments.end(), isSame), arguments.end());
  }
  arguments.insert(arguments.end(), limits.begin(), limits.end());
  return arguments;
}

class Retrial {
 public:
  Retrial(const std::string& given, const RetryOrder& asked) : folder(given), order(asked), plan(given) {}

  int64_t Run() {
    CheckNothingRuns(folder);
    if (!order.isAll) plan.CheckVersion();
    for (ResultFileName& file : ResultFiles(folder)) files[file.chunk].push_back(std::move(file));
    for (const PlannedChunk& chunk : plan.Chunks()) Find(chunk);
    if (!order.arguments.empty() || !changed.empty() || order.isAll) Change();
    for (const int64_t chunk : affected) TakeBack(plan.ChunkOf(chunk));
    return order.isAll ? plan.DrawingCount() : count;
  }

 private:
  // The plan is changed before results are taken back, so that an end in between only leaves results.
  void Change() {
    PlanSettings settings = plan.Settings();
    settings.arguments = WithLimits(settings.arguments, order.arguments);
    ChangePlan(folder, [&](Database& database) {
      SetSettings(database, settings);
      for (const PlannedDrawing& drawing : changed) SetDrawing(database, drawing);
    });
  }

  bool IsTakenBack(const EarlierResult& result) const { return order.isAll || result.status != "ok"; }

  // The first line of whole results says it; that of a part can be older than its lines.
  static bool CanHaveFailed(const std::vector<ResultFileName>& names) {
    return std::any_of(names.begin(), names.end(), [](const ResultFileName& file) {
      const auto head = ReadHead(file.path);
      return file.isPart || !head || head->Failed() > 0;
    });
  }

  void Find(const PlannedChunk& chunk) {
    if (order.isAll) affected.push_back(chunk.number);
    if (!CanHaveFailed(files[chunk.number])) return;
    const auto results = ReadEarlierResults(files[chunk.number], plan.Key());
    const auto isTaken = [this](const auto& result) { return IsTakenBack(result.second); };
    if (std::none_of(results.begin(), results.end(), isTaken)) return;
    if (!order.isAll) affected.push_back(chunk.number);
    for (const PlannedDrawing& drawing : plan.DrawingsOf(chunk)) {
      const auto found = results.find(drawing.number);
      if (found == results.end() || found->second.status == "ok") continue;
      ++count;
      Replan(drawing);
    }
  }

  // A drawing that has changed, or that is there again.
  void Replan(PlannedDrawing drawing) {
    const PlannedDrawing planned = drawing;
    LookAt(drawing, !planned.sha256.empty());
    const bool isSame = drawing.size == planned.size && drawing.sha256 == planned.sha256 &&
                        (!planned.sha256.empty() || drawing.modified == planned.modified);
    if (!isSame && drawing.size >= 0) changed.push_back(drawing);
  }

  // Writes what stays to one file, and removes the others.
  void TakeBack(const PlannedChunk& chunk) {
    ResultHead head;
    head.chunk = chunk.number;
    head.drawings = chunk.drawings;
    head.key = plan.Key();
    head.host = HostName();
    head.process = getpid();
    const auto results = ReadEarlierResults(files[chunk.number], head.key);
    ResultFile kept(OwnPartPath(folder, chunk.number), head);
    for (const auto& [number, result] : results)
      if (!IsTakenBack(result)) kept.Add(result.line, result.status);
    kept.Finish(ResultPath(folder, chunk.number));
    for (const ResultFileName& file : files[chunk.number])
      if (file.isPart) unlink(file.path.c_str());
  }

  const std::string folder;
  const RetryOrder& order;
  const Plan plan;
  std::map<int64_t, std::vector<ResultFileName>> files;
  std::vector<int64_t> affected;  // chunks
  std::vector<PlannedDrawing> changed;
  int64_t count = 0;
};

}  // namespace

int64_t Retry(const std::string& folder, const RetryOrder& order) {
  return Retrial(folder, order).Run();
}

}  // namespace hexlume::batch
