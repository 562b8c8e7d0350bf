// One drawing through the library.
#pragma once

#include <hexlume.h>

#include <memory>
#include <optional>
#include <string>
#include <type_traits>

#include "tools/hexlume/options.h"

namespace hexlume {

struct DeleteMetafile {
  void operator()(HENHMETAFILE metafile) const { DeleteEnhMetaFile(metafile); }
};
using Metafile = std::unique_ptr<std::remove_pointer_t<HENHMETAFILE>, DeleteMetafile>;

struct Conversion {
  int32_t code = HEXLUME_OK;     // what the library returned
  std::optional<int32_t> fault;  // the number of a fault that left it instead
  Metafile metafile;             // also when a fault ended the drawing, if it had been begun
};

Conversion Convert(const std::string& drawing, const Options& options);

// What happened, for the user; only for a conversion that failed.
std::string FailureInWords(const Conversion& conversion);

// Whether the library found nothing that could be drawn: no drawing, or one without entities.
bool GaveNoDrawing(const Conversion& conversion);

// The exit status that tells of it; 0 if all is well.
int ExitStatusOf(const Conversion& conversion);

}  // namespace hexlume
