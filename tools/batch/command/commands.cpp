#include "tools/batch/command/commands.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>

#include "tools/batch/base/error.h"
#include "tools/batch/base/interrupt.h"
#include "tools/batch/chunk/chunk_run.h"
#include "tools/batch/engine/program.h"
#include "tools/batch/engine/run.h"
#include "tools/batch/plan/folder.h"
#include "tools/batch/plan/kinds.h"
#include "tools/batch/plan/make_plan.h"
#include "tools/batch/results/progress.h"
#include "tools/batch/results/report.h"
#include "tools/batch/results/retry.h"
#include "tools/hexlume/archive/wildcard.h"
#include "tools/hexlume/command/option_values.h"
#include "tools/hexlume/drawing/status.h"
#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/own_path.h"
#include "tools/hexlume/system/path_text.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {
namespace {

constexpr int32_t mostJobs = 60;

std::string FolderOfBatch(const CommandLine& line) {
  if (line.Operands().size() != 1) throw UsageError("one folder of a batch is needed");
  return AbsolutePath(line.Operands()[0]);
}

void AddArchives(const std::vector<std::string>& archives, std::vector<std::string>& inputs) {
  for (const std::string& archive : archives) {
    if (!StampOf(archive) && !HasWildcard(archive))
      throw UsageError("there is no folder and no drawing '" + archive + "'");
    inputs.push_back(archive);
  }
}

void CheckOutput(const std::ostream& out) {
  if (!out) throw OutputError("standard output", std::strerror(errno));
}

std::string WritePageFile(const Plan& plan) {
  const std::string path = Joined(plan.Folder(), "report.html"), temporary = TemporaryPath(path);
  std::ofstream stream(temporary, std::ios::binary);
  WritePage(plan, stream);
  stream.close();
  if (!stream) throw OutputError(path, std::strerror(errno));
  RenameWhole(temporary, path);
  return path;
}

// Where there is a screen and a user at it.
void ShowPage(const std::string& path) {
  const bool hasScreen = std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY");
  if (!hasScreen || !StandardOutputIsTerminal()) return;
  try {
    StartProgram({{"xdg-open", path}, "/dev/null"});
  } catch (const EngineError&) {
    // The path is printed already.
  }
}

}  // namespace

int PlanCommand(const CommandLine& line) {
  constexpr int32_t usualSize = 500, mostSize = 1000000;
  PlanOrder order;
  const auto folder = line.Text("out");
  if (!folder || folder->empty()) throw UsageError("plan needs --out DIR");
  order.folder = AbsolutePath(*folder);
  order.settings.arguments = line.Conversion();
  for (const std::string& argument : KindArguments(line.Text("to").value_or("emf")))
    order.settings.arguments.push_back(argument);
  order.settings.hasContents = line.Has("contents");
  order.chunkSize = line.Number("chunk", 1, mostSize, usualSize);
  order.jobs = line.Number("jobs", 1, mostJobs, std::min(ProcessorCount(), mostJobs));
  order.isHashed = !line.Has("no-hash");
  if (const auto list = line.Text("files-from")) order.inputs.push_back("--files-from=" + *list);
  if (line.Has("null")) order.inputs.push_back("--null");
  order.inputs.push_back("--");
  for (const auto& inputs : {line.Operands(), line.Rest()}) AddArchives(inputs, order.inputs);
  const PlanSummary summary = MakePlan(order);
  std::cout << summary.drawings << " drawings in " << summary.chunks << " chunks\n";
  for (const std::string& unreadable : summary.unreadableFolders)
    std::cerr << "hexlume-batch: " << unreadable << ": the folder can't be read\n";
  return summary.unreadableFolders.empty() ? 0 : StatusOf(notAllowedStatus).exit;
}

int RunCommand(const CommandLine& line) {
  constexpr int32_t mostChunks = 1000000;
  RunOrder order;
  order.folder = FolderOfBatch(line);
  order.engine = line.Text("engine").value_or("local");
  order.program = line.Text("program").value_or(OwnPath());
  order.jobs = line.Number("jobs", 1, mostJobs, 0);
  order.limit = line.Number("limit", 1, mostChunks, 0);
  order.isQuiet = line.Has("quiet");
  order.engineOptions = line.Rest();
  // The other engines end with this process.
  order.waits = line.Has("wait") || order.engine.compare(0, 5, "slurm") != 0;
  return RunBatch(order);
}

int StatusCommand(const CommandLine& line) {
  constexpr int interval = 2000;  // milliseconds
  const Plan plan(FolderOfBatch(line));
  for (;;) {
    const BatchProgress progress = ProgressOf(plan);
    const bool isRedrawn = line.Has("watch") && !line.Has("json") && StandardOutputIsTerminal();
    if (isRedrawn) std::cout << "\x1B[H\x1B[2J";
    std::cout << (line.Has("json") ? ProgressJson(progress) + '\n' : ProgressText(progress)) << std::flush;
    CheckOutput(std::cout);
    if (!line.Has("watch") || progress.IsComplete()) return 0;
    Sleep(interval);
    CheckInterrupt();
  }
}

int ReportCommand(const CommandLine& line) {
  const Plan plan(FolderOfBatch(line));
  const std::string format = line.Text("format").value_or("csv");
  if (format != "csv" && format != "jsonl")
    throw UsageError("--format needs csv or jsonl, not '" + format + "'");
  if (line.Has("open")) {
    const std::string path = WritePageFile(plan);
    std::cout << path << '\n';
    ShowPage(path);
  } else if (format == "csv") {
    WriteCsv(plan, line.Has("failed"), std::cout);
  } else {
    WriteJsonLines(plan, line.Has("failed"), std::cout);
  }
  CheckOutput(std::cout.flush());
  return 0;
}

int RetryCommand(const CommandLine& line) {
  if (line.Has("failed") == line.Has("all")) throw UsageError("retry needs --failed or --all");
  RetryOrder order;
  order.isAll = line.Has("all");
  for (const char* const limit : {"time-limit", "memory-limit"})
    if (const auto value = line.Text(limit))
      order.arguments.push_back("--" + std::string(limit) + '=' + *value);
  ParseOptions(order.arguments);
  std::cout << Retry(FolderOfBatch(line), order)
            << " drawings will be converted again by hexlume-batch run\n";
  return 0;
}

int ChunkCommand(const CommandLine& line) {
  constexpr int32_t mostChunks = 0x7FFFFFFF;
  if (line.Operands().size() != 2)
    throw UsageError("chunk needs the folder of a batch and the number of a chunk");
  if (line.Has("with-parent")) EndWithParent();
  const int32_t number = ParseNumber("chunk", line.Operands()[1], 1, mostChunks);
  const int32_t jobs = line.Number("jobs", 1, mostJobs, std::min(ProcessorCount(), mostJobs));
  const ResultHead head = RunChunk(AbsolutePath(line.Operands()[0]), number, jobs);
  if (!line.Has("quiet"))
    std::cout << "chunk " << number << ": " << head.Done() << " done, " << head.Failed() << " failed\n";
  return 0;
}

}  // namespace hexlume::batch
