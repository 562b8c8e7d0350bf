// What becomes of a converted drawing: the metafile's file, the listing, the picture.
#pragma once

#include <stdexcept>

#include "tools/hexlume/metafile_bytes.h"
#include "tools/hexlume/options.h"

namespace hexlume {

// Names the output that can't be written and says why.
struct OutputError : std::runtime_error {
  OutputError(const std::string& output, const std::string& reason)
      : std::runtime_error(output + ": can't be written: " + reason) {}
};

// Makes all that is asked for of one drawing.
void WriteOutputs(const MetafileBytes& metafile, const Job& job, const Options& options);

}  // namespace hexlume
