// The conversion of one drawing with its results, in the tool's own process or in a worker.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/hexlume/archive/job_plan.h"
#include "tools/hexlume/command/options.h"
#include "tools/hexlume/drawing/convert.h"
#include "tools/hexlume/drawing/output.h"
#include "tools/hexlume/system/system.h"

namespace hexlume {

struct DrawingResult {
  bool HasFailed() const { return exit != 0; }

  std::string status = "ok";
  int exit = 0;
  std::string words;                  // what happened; of a failure
  std::vector<std::string> failures;  // messages: lines without the tool's name
  std::vector<std::string> warnings;
  FileStamp drawing;  // before it was read
  std::vector<WrittenOutput> outputs;
  MetafileBytes page;          // of a book; empty without one
  std::string report;          // a JSON object, if the options ask for it
  std::string standardOutput;  // of a worker
};

// A result that failed without a conversion.
DrawingResult FailedResult(const Job& job, StatusRow row, const Options& options);

// The message for a drawing whose page in a book can't be written.
std::string PageFailure(const std::string& drawing, const std::string& reason);

DrawingResult RunDrawing(const Job& job, const Options& options, Converter converter, bool hasHeading);

}  // namespace hexlume
