#include <hexlume.h>

#include <iostream>
#include <new>
#include <optional>

#include "tools/hexlume/convert.h"
#include "tools/hexlume/dialog_answers.h"
#include "tools/hexlume/file_trouble.h"
#include "tools/hexlume/options.h"
#include "tools/hexlume/output.h"
#include "tools/hexlume/sheet_ink.h"
#include "tools/hexlume/system.h"

namespace hexlume {
namespace {

constexpr int wrongUsage = 64, outputNotWritten = 73;

void Report(const std::string& words) {
  std::cerr << "hexlume: " << words << std::endl;
}

// Reports why a conversion failed, or why it drew less than expected.
void ReportConversion(const Job& job, const Conversion& conversion) {
  constexpr int noDrawing = 30;
  std::optional<std::string> trouble;
  if (conversion.status == 0 || conversion.status == noDrawing)
    trouble = TroubleWith(job.drawing, GaveNoDrawing(conversion));
  if (trouble) Report(job.drawing + ": " + *trouble);
  const bool isExplained = trouble && conversion.metafile.empty();
  if (conversion.status != 0 && !isExplained) Report(job.drawing + ": " + conversion.failure);
  if (conversion.status != 0) return;
  for (const std::string& name : conversion.unknownLayers)
    Report(job.drawing + ": no layer has the name '" + name + "' that --hide-layer gives");
  if (FindInk(conversion.metafile.data(), conversion.metafile.size()) == SheetInk::beside)
    Report(job.drawing + ": nothing of the drawing falls on its sheet");
}

// Returns 0, or the exit status for what went wrong. If both the conversion and an output failed, that
// of the output.
int RunJob(const Job& job, const Options& options) {
  try {
    const Conversion conversion = Convert(job.drawing, options);
    ReportConversion(job, conversion);
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
