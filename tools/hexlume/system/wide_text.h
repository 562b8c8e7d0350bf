// The texts of the tool, which are UTF-8, as Windows takes them.
#pragma once

#include <string>

namespace hexlume {

std::wstring WideText(const std::string& text);
std::string Utf8Text(const std::wstring& text);

// A path as a function of the system takes it: one too long for most of them has the prefix for long paths.
std::wstring WidePath(const std::string& path);

// The system's words for an error, without a full stop.
std::string WordsOfError(unsigned long error);

}  // namespace hexlume
