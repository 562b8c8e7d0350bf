#include <hexlume.h>

#include <algorithm>
#include <ios>
#include <new>

#include "tools/hexlume/archive/batch.h"
#include "tools/hexlume/archive/job_plan.h"
#include "tools/hexlume/archive/worker.h"
#include "tools/hexlume/command/help_text.h"
#include "tools/hexlume/command/message_log.h"
#include "tools/hexlume/command/options.h"
#include "tools/hexlume/drawing/output.h"
#include "tools/hexlume/drawing/status.h"
#include "tools/hexlume/system/no_memory.h"
#include "tools/hexlume/system/system.h"

namespace hexlume {
namespace {

// A binary file makes a terminal unusable.
void CheckTerminal(const JobPlan& plan, const Options& options) {
  if (plan.Count() == 0 || !StandardOutputIsTerminal()) return;
  bool isPrinted = options.book == standardStream;
  for (const PictureOrder& output : plan.JobOf(0).outputs)
    isPrinted = isPrinted || output.file == standardStream;
  if (isPrinted) throw UsageError("the result isn't written to a terminal; name an OUTPUT");
}

int Run(const std::vector<std::string>& arguments) {
  const Options options = ParseOptions(arguments);
  if (options.showHelp) {
    WriteToStandardOutput(HelpText());
    return 0;
  }
  if (options.showVersion) {
    WriteToStandardOutput("hexlume " HEXLUME_VERSION "\n");
    return 0;
  }
  const JobPlan plan(options);
  CheckTerminal(plan, options);
  return RunBatch(plan, options, arguments);
}

}  // namespace

int RunTool(const std::vector<std::string>& arguments) {
  std::ios::sync_with_stdio(false);
  EndWhereMemoryRunsOut("hexlume");
  if (!arguments.empty() && arguments[0] == workerArgument) return RunWorker();
  UsePlainLineEnds();
  try {
    return Run(arguments);
  } catch (const UsageError& error) {
    PrintError("hexlume: " + std::string(error.what()) + "\nTry 'hexlume --help'.\n");
    return StatusOf(usageStatus).exit;
  } catch (const OutputError& error) {
    PrintError("hexlume: " + std::string(error.what()) + '\n');
    return StatusOf(notWrittenStatus).exit;
  } catch (const std::bad_alloc&) {
    PrintError(std::string("hexlume: ") + StatusOf(noMemoryStatus).words + '\n');
    return StatusOf(noMemoryStatus).exit;
  }
}

}  // namespace hexlume
