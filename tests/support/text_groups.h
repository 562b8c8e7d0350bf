// A drawing's text as a literal.
#pragma once

#include <string>

#include "driver/text_stream.h"

namespace hexlume {

// A stream over groups that are written one a line: the code, a blank, and the value up to the line's end.
// Empty lines don't count.
TextStream StreamOf(const std::string& groups);

}  // namespace hexlume
