#include <cstdio>
#include <new>

#include "tools/batch/base/error.h"
#include "tools/batch/base/interrupt.h"
#include "tools/batch/command/commands.h"
#include "tools/hexlume/archive/worker.h"
#include "tools/hexlume/command/suggestion.h"
#include "tools/hexlume/drawing/status.h"
#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/no_memory.h"
#include "tools/hexlume/system/system.h"
#include "tools/hexlume/system/worker_process.h"

namespace hexlume::batch {
namespace {

struct CommandRow {
  const char* name;
  int (*run)(const CommandLine& line);
};

constexpr CommandRow rows[] = {
    {"plan", PlanCommand},     {"run", RunCommand},     {"status", StatusCommand},
    {"report", ReportCommand}, {"retry", RetryCommand}, {"chunk", ChunkCommand},
};

int RunCommandOf(const std::string& name, const std::vector<std::string>& arguments) {
  std::vector<std::string> names;
  for (const CommandRow& row : rows) {
    names.emplace_back(row.name);
    if (name != row.name) continue;
    for (const CommandForm& form : Commands())
      if (name == form.name) return row.run(CommandLine(form, arguments));
  }
  throw UsageError("there is no command '" + name + "'" + Suggestion(name, names));
}

int Run(const std::vector<std::string>& arguments) {
  if (arguments.empty()) throw UsageError("a command is needed");
  const std::string& first = arguments[0];
  if (first == "--help" || first == "-h" || first == "help") {
    WriteToStandardOutput(BatchHelp());
    return 0;
  }
  if (first == "--version") {
    WriteToStandardOutput("hexlume-batch " HEXLUME_VERSION "\n");
    return 0;
  }
  CatchInterrupts();
  return RunCommandOf(first, {arguments.begin() + 1, arguments.end()});
}

int Fail(const std::string& words, int exit) {
  PrintError("hexlume-batch: " + words + '\n');
  return exit;
}

int RunBatchTool(const std::vector<std::string>& arguments) {
  try {
    return Run(arguments);
  } catch (const UsageError& error) {
    return Fail(std::string(error.what()) + "\nhexlume-batch --help shows how it is used.",
                StatusOf(usageStatus).exit);
  } catch (const OutputError& error) {
    return Fail(error.what(), StatusOf(notWrittenStatus).exit);
  } catch (const StorageError& error) {
    return Fail(error.what(), StatusOf(notWrittenStatus).exit);
  } catch (const FolderError& error) {
    return Fail(error.what(), unreadableExit);
  } catch (const EngineError& error) {
    return Fail(error.what(), engineMissingExit);
  } catch (const WorkerError& error) {
    return Fail(std::string("a worker process can't be started: ") + error.what(),
                StatusOf(crashedStatus).exit);
  } catch (const Interrupted&) {
    return Fail("interrupted; the same command goes on", interruptedExit);
  } catch (const std::bad_alloc&) {
    return Fail(StatusOf(noMemoryStatus).words, StatusOf(noMemoryStatus).exit);
  }
}

}  // namespace
}  // namespace hexlume::batch

int main(int argc, char** argv) {
  hexlume::EndWhereMemoryRunsOut("hexlume-batch");
  try {
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    if (!arguments.empty() && arguments[0] == hexlume::workerArgument) return hexlume::RunWorker();
    return hexlume::batch::RunBatchTool(arguments);
  } catch (const std::bad_alloc&) {
    std::fputs("hexlume-batch: there isn't enough memory\n", stderr);
    return hexlume::StatusOf(hexlume::noMemoryStatus).exit;
  }
}
