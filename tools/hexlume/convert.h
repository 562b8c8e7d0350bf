// One drawing through the library.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/hexlume/metafile_bytes.h"
#include "tools/hexlume/options.h"

namespace hexlume {

struct Conversion {
  int status = 0;                     // of the process: 0 if all is well
  std::vector<std::string> messages;  // what happened, for the user
  MetafileBytes metafile;             // also when a fault ended the drawing, if it had been begun
};

// By the nine exports, or by the host library where an option needs it.
Conversion Convert(const std::string& drawing, const Options& options);

}  // namespace hexlume
