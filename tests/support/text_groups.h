// A stream over groups written as a literal.
#pragma once

#include <string>

#include "driver/text_stream.h"

namespace hexlume {

// Returns a stream over groups in the form of DrawingBytes, one group a line.
TextStream StreamOf(const std::string& groups);

// Returns a stream over a whole text.
TextStream StreamOfBytes(const std::string& bytes);

}  // namespace hexlume
