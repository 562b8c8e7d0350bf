// Conversions by name through the library's exports, with the metafile as text.
#pragma once

#include <cstdint>
#include <string>

#include "hexlume.h"
#include "support/drawing_case.h"

namespace hexlume {

struct ConversionResult {
  int32_t code;
  std::string listing;  // empty if no metafile came out
};

// Calls the export that a case names, with the case's arguments. Throws std::runtime_error for a function or
// an argument that isn't there.
ConversionResult Convert(const std::string& path, const ExpectedConversion& call);

}  // namespace hexlume
