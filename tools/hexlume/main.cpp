#include <hexlume.h>

#include <iostream>
#include <new>

#include "tools/hexlume/convert.h"
#include "tools/hexlume/dialog_answers.h"
#include "tools/hexlume/options.h"
#include "tools/hexlume/output.h"
#include "tools/hexlume/system.h"

namespace hexlume {
namespace {

constexpr int wrongUsage = 64, outputNotWritten = 73;

void Report(const std::string& words) {
  std::cerr << "hexlume: " << words << std::endl;
}

// 0, or the exit status that tells what went wrong; of two troubles the later one.
int RunJob(const Job& job, const Options& options) {
  try {
    const Conversion conversion = Convert(job.drawing, options);
    for (const std::string& message : conversion.messages) Report(job.drawing + ": " + message);
    if (!conversion.metafile.empty()) WriteOutputs(conversion.metafile, job, options);
    return conversion.status;
  } catch (const OutputError& error) {
    Report(error.what());
  } catch (const std::bad_alloc&) {
    Report(job.drawing + ": the metafile can't be written: not enough memory");
  }
  return outputNotWritten;
}

int RunJobs(const Options& options) {
  if (options.dialogFont) vzDXFSetFontMode(*options.dialogFont);
  if (options.dialogs != 0) GiveDialogAnswers(options.dialogAnswers);
  int status = 0;
  for (const Job& job : options.jobs) {
    if (const int failure = RunJob(job, options)) status = failure;
  }
  return status;
}

int Run(const Options& options) {
  if (options.showHelp) {
    std::cout << HelpText();
  } else if (options.showVersion) {
    std::cout << "hexlume " HEXLUME_VERSION "\n";
  } else {
    return RunJobs(options);
  }
  return 0;
}

}  // namespace
}  // namespace hexlume

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  hexlume::UsePlainLineEnds();
  try {
    return hexlume::Run(hexlume::ParseOptions(argc, argv));
  } catch (const hexlume::UsageError& error) {
    hexlume::Report(std::string(error.what()) + "\nhexlume --help tells how it is used.");
    return hexlume::wrongUsage;
  }
}
