// Converts between code page 932, in which the dialogs keep their text, and the UTF-16 of window calls.
#pragma once

#include <string>

namespace hexlume {

std::wstring WideText(const char* bytes);
std::string ByteText(const std::wstring& text);

}  // namespace hexlume
