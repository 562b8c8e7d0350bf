// The line of a report for one drawing: docs/report.md describes its fields.
#pragma once

#include <string>

#include "tools/hexlume/drawing/convert.h"
#include "tools/hexlume/drawing/drawing_run.h"
#include "tools/hexlume/drawing/drawing_source.h"

namespace hexlume {

// A JSON object in one line, without a line end.
std::string DescribeDrawing(const DrawingSource& source, const Options& options, const Conversion& conversion,
                            const DrawingResult& result, double milliseconds);

// The same for a drawing of which nothing is known, as its conversion was given up.
std::string DescribeFailure(const std::string& path, const std::string& status, const std::string& words);

// A line of an earlier report, for a drawing that is passed over.
std::string DescribeUnchanged(const std::string& earlier);

}  // namespace hexlume
