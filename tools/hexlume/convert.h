// Converts one drawing with the library.
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
  int32_t code = HEXLUME_OK;     // return code of the library
  std::optional<int32_t> fault;  // number of a fault that the library has thrown instead
  Metafile metafile;             // also set after a fault, if the drawing was started
};

Conversion Convert(const std::string& drawing, const Options& options);

// Describes a failed conversion to the user.
std::string FailureInWords(const Conversion& conversion);

// Whether the library found nothing that could be drawn: no drawing, or one without entities.
bool GaveNoDrawing(const Conversion& conversion);

// Returns the exit status for a conversion, 0 on success.
int ExitStatusOf(const Conversion& conversion);

}  // namespace hexlume
