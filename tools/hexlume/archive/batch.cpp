#include "tools/hexlume/archive/batch.h"

#include <hexlume.h>

#include <algorithm>
#include <set>

#include "tools/hexlume/archive/book_file.h"
#include "tools/hexlume/archive/report_file.h"
#include "tools/hexlume/archive/state_file.h"
#include "tools/hexlume/archive/worker_pool.h"
#include "tools/hexlume/command/message_log.h"
#include "tools/hexlume/drawing/drawing_report.h"
#include "tools/hexlume/drawing/drawing_run.h"
#include "tools/hexlume/system/path_text.h"

namespace hexlume {
namespace {

// Dialogs and listings need the tool's own process. A single drawing gets by without a worker, unless a limit is asked
// for.
bool UsesWorkers(const JobPlan& plan, const Options& options) {
  if (options.list || options.dialogs != 0 || options.jobs == 0) return false;
  return plan.HasManyInputs() || options.jobs || options.timeLimit || options.memoryLimit;
}

class Batch {
 public:
  Batch(const JobPlan& planned, const Options& asked)
      : plan(planned), options(asked), log(asked.quiet), report(asked.report) {
    progress.total = plan.Count();
  }

  int Run(const std::vector<std::string>& arguments) {
    const bool usesWorkers = UsesWorkers(plan, options);
    if (options.folder) OpenFolder(usesWorkers);
    if (options.book) OpenBook();
    for (const std::string& folder : plan.UnreadableFolders()) NoteFolder(folder);
    if (plan.Count() == 0) log.Warning("there are no drawings to convert");
    if (usesWorkers)
      RunInWorkers(arguments);
    else
      RunHere();
    if (state) state->Finish();
    if (book && isComplete) book->Finish();
    return status;
  }

 private:
  void OpenFolder(bool usesWorkers) {
    const auto stamp = StampOf(*options.folder);
    if (!stamp || stamp->kind != FileKind::folder)
      throw OutputError(*options.folder, "there is no such folder");
    if (!usesWorkers && !options.skipUnchanged) return;
    CleanFolder(*options.folder);
    state.emplace(*options.folder, ResultKey(options));
  }

  void OpenBook() {
    RemoveLeftovers(FolderOf(*options.book));
    book.emplace(*options.book, [this](size_t index, const std::string& reason) {
      log.Failure(PageFailure(plan.DrawingOf(index), reason));
      NoteFailure(index, StatusOf(notWrittenStatus).exit);
    });
  }

  void NoteFolder(const std::string& folder) {
    const Status& notAllowed = StatusOf(notAllowedStatus);
    log.Failure(folder + ": " + notAllowed.name + ": the folder can't be read");
    status = notAllowed.exit;
  }

  void RunHere() {
    if (options.dialogFont) vzDXFSetFontMode(*options.dialogFont);
    if (options.dialogs != 0) GiveDialogAnswers(options.dialogAnswers);
    const Converter converter = options.report ? Converter::host : Converter::exports;
    while (const auto index = Next()) {
      DrawingResult result = RunDrawing(plan.JobOf(*index), options, converter, plan.Count() > 1);
      Take(*index, result);
      log.Show(progress);
    }
  }

  void RunInWorkers(const std::vector<std::string>& arguments) {
    const auto most = static_cast<size_t>(options.jobs.value_or(std::min(ProcessorCount(), 60)));
    WorkerPool pool(plan, options, arguments);
    try {
      pool.Run(
          std::max<size_t>(std::min(most, plan.Count()), 1), [this] { return Next(); },
          [this](size_t index, DrawingResult result) { Take(index, result); }, [this] { log.Show(progress); },
          [this] { return book && book->IsFull(); });
    } catch (const WorkerError& error) {
      log.Failure(std::string("a worker process can't be started: ") + error.what());
      status = StatusOf(crashedStatus).exit;
      isComplete = false;
    }
  }

  // The next drawing that must be converted.
  std::optional<size_t> Next() {
    while (next < plan.Count()) {
      const size_t index = next++;
      if (!state) return index;
      const Job job = plan.JobOf(index);
      CleanFoldersOf(job);
      if (!options.skipUnchanged || !PassOver(index, job)) return index;
      log.Show(progress);
    }
    return std::nullopt;
  }

  void CleanFoldersOf(const Job& job) {
    for (const std::string& folder : FoldersOf(job)) CleanFolder(folder);
  }

  // What the tool left there when it was ended.
  void CleanFolder(const std::string& folder) {
    if (cleaned.insert(folder).second) RemoveLeftovers(folder);
  }

  bool PassOver(size_t index, const Job& job) {
    const std::optional<std::string> earlier = state->FindUnchanged(plan.PlaceOf(index), job);
    // A report needs what the one of then said.
    if (!earlier || (options.report && earlier->empty())) return false;
    if (options.report) report.Add(DescribeUnchanged(*earlier));
    ++progress.done;
    ++progress.unchanged;
    return true;
  }

  void Take(size_t index, DrawingResult& result) {
    ++progress.done;
    for (const std::string& words : result.warnings) log.Warning(words);
    for (const std::string& words : result.failures) log.Failure(words);
    if (result.HasFailed()) NoteFailure(index, result.exit);
    if (!result.standardOutput.empty())
      WriteToStandardOutput(result.standardOutput.data(), result.standardOutput.size());
    if (options.report) report.Add(result.report);
    result.page.SetDrawingBytes(result.drawing.size);
    if (book) book->Take(index, plan.PlaceOf(index), std::move(result.page));
    if (state && !result.HasFailed()) state->Add(plan.PlaceOf(index), plan.JobOf(index), result);
  }

  // That of the last drawing that has failed, whatever the order in which they ended.
  void NoteFailure(size_t index, int exit) {
    ++progress.failed;
    if (lastFailed && index < *lastFailed) return;
    lastFailed = index;
    status = exit;
  }

  const JobPlan& plan;
  const Options& options;
  MessageLog log;
  ReportFile report;
  std::optional<StateFile> state;
  std::optional<BookFile> book;
  bool isComplete = true;  // whether each drawing has its result
  Progress progress;
  std::set<std::string> cleaned;
  std::optional<size_t> lastFailed;
  size_t next = 0;
  int status = 0;
};

}  // namespace

int RunBatch(const JobPlan& plan, const Options& options, const std::vector<std::string>& arguments) {
  return Batch(plan, options).Run(arguments);
}

}  // namespace hexlume
