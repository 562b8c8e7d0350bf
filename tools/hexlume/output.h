// Writes the outputs of a converted drawing: the metafile, the listing and the pictures.
#pragma once

#include <stdexcept>

#include "tools/hexlume/metafile_bytes.h"
#include "tools/hexlume/options.h"

namespace hexlume {

// Contains the name of the output that can't be written, and the reason.
struct OutputError : std::runtime_error {
  OutputError(const std::string& output, const std::string& reason)
      : std::runtime_error(output + ": can't be written: " + reason) {}
};

// Writes all outputs that the options ask for.
void WriteOutputs(const MetafileBytes& metafile, const Job& job, const Options& options);

}  // namespace hexlume
