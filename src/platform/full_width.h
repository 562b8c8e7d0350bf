// Text as it would stand in full-width characters.
#pragma once

#include <string>

namespace hexlume {

// The text's bytes in code page 932 with each half-width character made full-width, and a half-width katakana
// joined with the voice mark behind it: as many bytes as the text has half-width cells. The backslash stays
// as it is. A voice mark that joins nothing, and a joined character that the code page doesn't have, become
// '?'.
std::string WidenText(const char* text);

}  // namespace hexlume
