#include "tools/batch/chunk/chunk_run.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "tools/batch/base/error.h"
#include "tools/batch/base/interrupt.h"
#include "tools/batch/chunk/leftovers.h"
#include "tools/batch/plan/file_hash.h"
#include "tools/batch/plan/folder.h"
#include "tools/batch/plan/plan.h"
#include "tools/batch/results/earlier_results.h"
#include "tools/hexlume/archive/worker_pool.h"
#include "tools/hexlume/system/path_text.h"

namespace hexlume::batch {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* here = ".";
constexpr const char* changedStatus = "changed";

// Errors of the storage, which all drawings would have.
bool IsOfStorage(const std::string& words) {
  for (const int error : {ENOSPC, EDQUOT, EROFS, EIO, ESTALE, ETIMEDOUT}) {
    const std::string reason = std::strerror(error);
    if (words.size() >= reason.size() &&
        words.compare(words.size() - reason.size(), reason.size(), reason) == 0)
      return true;
  }
  return false;
}

std::vector<PlacedDrawing> PlacesOf(const std::vector<PlannedDrawing>& drawings) {
  std::vector<PlacedDrawing> placed;
  for (const PlannedDrawing& drawing : drawings) placed.push_back({drawing.path, drawing.place});
  return placed;
}

class ChunkRun {
 public:
  ChunkRun(const Plan& made, const PlannedChunk& planned, int32_t wanted)
      : chunk(planned),
        drawings(made.DrawingsOf(planned)),
        seen(drawings.size()),
        arguments(made.WorkerArguments()),
        options(ParseOptions(arguments)),
        jobs(options, PlacesOf(drawings)),
        workers(static_cast<size_t>(wanted)),
        part(OwnPartPath(here, planned.number), HeadFor(made)) {}

  ResultHead Run() {
    part.Update();
    earlier = ReadEarlierResults(ResultFilesOf(here, chunk.number), part.head.key);
    Convert(workers, [this] { return NextDrawing(); });
    // Perhaps the system has ended a worker because of its neighbours. Each gets a second chance, alone.
    Convert(1, [this] { return NextCrashed(); });
    Finish();
    RemoveEndedParts();
    leftovers.CleanAgain(options.timeLimit.value_or(0));
    return part.head;
  }

 private:
  ResultHead HeadFor(const Plan& made) const {
    ResultHead head;
    head.chunk = chunk.number;
    head.drawings = chunk.drawings;
    head.key = made.Key();
    head.host = HostName();
    head.process = getpid();
    head.started = std::time(nullptr);
    return head;
  }

  void Convert(size_t processes, const WorkerPool::NextJob& nextJob) {
    WorkerPool pool(jobs, options, arguments);
    pool.Run(
        std::max<size_t>(std::min(processes, drawings.size()), 1), nextJob,
        [this](size_t index, const DrawingResult& result) { Take(index, result); }, [this] { Tick(); },
        [] { return false; });
  }

  void Tick() {
    CheckInterrupt();
    if (std::time(nullptr) != part.head.updated) part.Update();
  }

  // The next drawing that must be converted.
  std::optional<size_t> NextDrawing() {
    while (next < drawings.size()) {
      const size_t index = next++;
      Tick();
      leftovers.CleanFoldersOf(jobs.JobOf(index));
      if (!IsSettled(index)) return index;
    }
    return std::nullopt;
  }

  std::optional<size_t> NextCrashed() {
    if (crashed.empty()) return std::nullopt;
    const size_t index = crashed.back();
    crashed.pop_back();
    isLastChance.insert(index);
    return index;
  }

  // Another machine that has finished the same chunk, and whose clock is wrong, may have taken this process for ended.
  void Finish() {
    const std::string result = ResultPath(here, chunk.number);
    try {
      part.Finish(result);
    } catch (const OutputError&) {
      const auto head = ReadHead(result);
      if (!head || !head->IsComplete() || head->key != part.head.key) throw;
    }
  }

  // Whether the drawing needs no conversion.
  bool IsSettled(size_t index) {
    const PlannedDrawing& planned = drawings[index];
    const auto stamp = StampOf(planned.path);
    // To wait for what comes from a pipe could take for ever.
    if (stamp && stamp->kind == FileKind::other) {
      Add(index, FailedResult(jobs.JobOf(index), notAFileStatus, options));
      return true;
    }
    PlannedDrawing& now = seen[index];
    now.path = planned.path;
    LookAt(now, true);
    if (now.size >= 0 && HasChanged(planned, now)) {
      AddChanged(index);
      return true;
    }
    const auto found = earlier.find(planned.number);
    if (found == earlier.end() || now.sha256.empty() || found->second.sha256 != now.sha256 ||
        !HasOutputs(found->second, jobs.JobOf(index)))
      return false;
    part.Add(found->second.line, found->second.status);
    return true;
  }

  static bool HasChanged(const PlannedDrawing& planned, const PlannedDrawing& now) {
    if (!planned.sha256.empty() && !now.sha256.empty()) return planned.sha256 != now.sha256;
    return planned.size != now.size || planned.modified != now.modified;
  }

  void AddChanged(size_t index) {
    DrawingResult result;
    result.status = changedStatus;
    result.words =
        "the drawing has changed since it was planned; hexlume-batch retry --failed takes it as it is";
    Add(index, result);
  }

  void Take(size_t index, const DrawingResult& result) {
    // Ctrl-C ends the workers too.
    CheckInterrupt();
    if (result.status == StatusOf(notWrittenStatus).name && IsOfStorage(result.words))
      throw StorageError(result.words);
    const bool isCrash = result.status == StatusOf(crashedStatus).name;
    if (isCrash && isLastChance.count(index) == 0) return crashed.push_back(index);
    ++part.head.converted;
    if (HasChangedMeanwhile(index))
      AddChanged(index);
    else
      Add(index, result);
  }

  // Since its hash was computed.
  bool HasChangedMeanwhile(size_t index) const {
    const auto stamp = StampOf(drawings[index].path);
    const PlannedDrawing& before = seen[index];
    return stamp && before.size >= 0 && (stamp->size != before.size || stamp->modified != before.modified);
  }

  void Add(size_t index, const DrawingResult& result) {
    const PlannedDrawing& now = seen[index];
    Json json = {
        {"number", drawings[index].number}, {"path", drawings[index].path}, {"status", result.status}};
    json["message"] = result.words;
    json["warnings"] = result.warnings;
    json["outputs"] = Json::array();
    for (const WrittenOutput& output : result.outputs)
      json["outputs"].push_back({{"path", output.file}, {"size", output.size}});
    const Json report = Json::parse(result.report, nullptr, false);
    if (report.is_object()) json.update(report);
    if (now.size >= 0) json["size"] = now.size;
    if (!now.sha256.empty()) json["sha256"] = now.sha256;
    json["host"] = part.head.host;
    part.Add(json.dump(-1, ' ', false, Json::error_handler_t::replace), result.status);
  }

  void RemoveEndedParts() const {
    for (const ResultFileName& file : ResultFilesOf(here, chunk.number))
      if (file.isPart && LifeOf(file) == Life::ended) unlink(file.path.c_str());
  }

  const PlannedChunk& chunk;
  const std::vector<PlannedDrawing> drawings;
  std::vector<PlannedDrawing> seen;  // as they were found
  const std::vector<std::string> arguments;
  const Options options;
  const JobPlan jobs;
  const size_t workers;
  ResultFile part;
  Leftovers leftovers;
  std::map<int64_t, EarlierResult> earlier;
  std::vector<size_t> crashed;
  std::set<size_t> isLastChance;
  size_t next = 0;
};

}  // namespace

ResultHead RunChunk(const std::string& folder, int64_t number, int32_t jobs) {
  if (chdir(folder.c_str()) != 0) throw FolderError(folder + ": " + std::strerror(errno));
  const Plan plan(here);
  plan.CheckVersion();
  return ChunkRun(plan, plan.ChunkOf(number), jobs).Run();
}

}  // namespace hexlume::batch
