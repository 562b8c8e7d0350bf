// Converts one drawing with the library.
#pragma once

#include <string>
#include <vector>

#include "tools/hexlume/metafile_bytes.h"
#include "tools/hexlume/options.h"

namespace hexlume {

struct Conversion {
  int status = 0;                          // of the process: 0 for success
  std::string failure;                     // what happened, for the user; only for a conversion that failed
  std::vector<std::string> unknownLayers;  // that --hide-layer names
  MetafileBytes metafile;                  // also when a fault ended the drawing, if it had been begun
};

// By the nine exports, or by the host library where an option needs it.
Conversion Convert(const std::string& drawing, const Options& options);

// Whether the library found nothing that could be drawn: no drawing, or one without entities.
bool GaveNoDrawing(const Conversion& conversion);

}  // namespace hexlume
