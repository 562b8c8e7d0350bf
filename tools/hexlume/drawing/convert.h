// Converts one drawing with the library.
#pragma once

#include <string>
#include <vector>

#include "tools/hexlume/command/options.h"
#include "tools/hexlume/drawing/drawing_source.h"
#include "tools/hexlume/drawing/status.h"
#include "tools/hexlume/drawing/streamed_metafile.h"
#include "tools/hexlume/metafile/metafile_bytes.h"

namespace hexlume {

// Something about a drawing that didn't prevent a result.
struct Remark {
  std::string name;  // for programs
  std::string words;
  int64_t count = 0;     // 0 without a number
  bool isMinor = false;  // for the report only
};

struct Conversion {
  bool HasFailed() const { return exit != 0; }

  std::string name = "ok";      // of the status
  int exit = 0;                 // of the process
  std::string words;            // what happened; only for a conversion that failed
  std::vector<Remark> remarks;  // of one that failed and has no metafile only bounds
  MetafileBytes metafile;       // also when a fault ended the drawing, if it had been begun
  int64_t strokes = 0, substituted = 0, embedded = 0;  // from the host library only
};

// A conversion that ended so. detail is added to the words.
Conversion Ended(StatusRow row, const std::string& detail = "");

// Which library converts.
enum class Converter {
  exports,  // the nine exports, and the host library for what they can't do
  host,     // the host library: no drawing depends on the one before
};

// Only the nine exports draw into the stream, if there is one.
Conversion Convert(const DrawingSource& drawing, const Options& options, Converter converter,
                   StreamedMetafile* stream = nullptr);

}  // namespace hexlume
