// Conversion of decimal numbers to doubles.
#pragma once

#include <charconv>

namespace hexlume {

// std::from_chars for doubles: not every standard library has it.
std::from_chars_result ParseDouble(const char* first, const char* last, double& value);

}  // namespace hexlume
