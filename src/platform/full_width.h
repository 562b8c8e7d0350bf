// Conversion of text to full-width characters.
#pragma once

#include <string>

namespace hexlume {

// Converts each half-width character of a text in code page 932 to its full-width form, and joins a
// half-width katakana with a following voice mark. The number of bytes of the result is its width in
// half-width cells. The backslash isn't converted. A voice mark that can't be joined, and a joined character
// that the code page doesn't have, become '?'.
std::string WidenText(const char* text);

}  // namespace hexlume
