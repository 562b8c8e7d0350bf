// Windows are asked in UTF-16, whatever the machine's locale; everything else here is bytes of code page 932.
#pragma once

#include <string>

namespace hexlume {

std::wstring WideText(const char* bytes);
std::string ByteText(const std::wstring& text);

}  // namespace hexlume
