#include "tools/batch/plan/make_plan.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <exception>
#include <new>
#include <thread>

#include "tools/batch/base/error.h"
#include "tools/batch/base/interrupt.h"
#include "tools/batch/plan/folder.h"
#include "tools/hexlume/archive/job_plan.h"
#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/path_text.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {
namespace {

// Looks at files at the same time, as most of the time is spent waiting for the storage.
void LookAtAll(std::vector<PlannedDrawing>& drawings, const PlanOrder& order) {
  std::atomic<size_t> next = 0;
  std::atomic<bool> hasMemory = true;
  const auto look = [&] {
    try {
      for (size_t i = next++; i < drawings.size(); i = next++) LookAt(drawings[i], order.isHashed);
    } catch (const std::bad_alloc&) {
      hasMemory = false;
    }
  };
  std::vector<std::thread> threads;
  try {
    for (int32_t i = 1; i < order.jobs; ++i) threads.emplace_back(look);
  } catch (const std::exception&) {
    // Those that could be started do it all.
  }
  look();
  for (std::thread& thread : threads) thread.join();
  if (!hasMemory) throw std::bad_alloc();
}

void MakeFolder(const std::string& folder) {
  if (!MakeFolders(folder)) throw OutputError(folder, std::strerror(errno));
}

void MakeFoldersOf(const std::string& folder) {
  for (const std::string& each : {Joined(folder, outputsName), ResultsPath(folder), LogsPath(folder)})
    MakeFolder(each);
}

Options OptionsOf(const PlanOrder& order) {
  std::vector<std::string> arguments = order.settings.arguments;
  arguments.insert(arguments.end(), {"-d", Joined(order.folder, outputsName), "--recursive"});
  arguments.insert(arguments.end(), order.inputs.begin(), order.inputs.end());
  return ParseOptions(arguments);
}

}  // namespace

PlanSummary MakePlan(const PlanOrder& order) {
  constexpr size_t atOnce = 4096;
  if (StampOf(PlanPath(order.folder)))
    throw FolderError(order.folder + ": there is a plan already; use another folder for another plan");
  // The drawings have the places that hexlume -d gives them.
  const JobPlan jobs(OptionsOf(order));
  if (jobs.Count() == 0) {
    if (jobs.UnreadableFolders().empty()) throw UsageError("there are no drawings to convert");
    return {0, 0, jobs.UnreadableFolders()};
  }
  MakeFoldersOf(order.folder);
  PlanWriter writer(order.folder, order.settings, order.chunkSize);
  for (size_t start = 0; start < jobs.Count(); start += atOnce) {
    CheckInterrupt();
    std::vector<PlannedDrawing> drawings(std::min(atOnce, jobs.Count() - start));
    for (size_t i = 0; i < drawings.size(); ++i) {
      drawings[i].path = AbsolutePath(jobs.DrawingOf(start + i));
      drawings[i].place = jobs.PlaceOf(start + i);
    }
    LookAtAll(drawings, order);
    for (const PlannedDrawing& drawing : drawings) writer.Add(drawing);
  }
  writer.Finish();
  return {writer.Drawings(), writer.Chunks(), jobs.UnreadableFolders()};
}

}  // namespace hexlume::batch
