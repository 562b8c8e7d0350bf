// UTF-8, the text of hosts and of recent drawings, and code page 932, that of the library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace hexlume {

// The first character of a text, and its bytes: 0 if the text doesn't begin with a character of UTF-8. The
// text isn't empty.
struct Utf8Character {
  char32_t character;
  size_t bytes;
};
Utf8Character FirstCharacter(std::string_view text);

bool IsUtf8(std::string_view text);

// A text of code page 932 in UTF-8.
std::string ToUtf8(std::string_view text);

// Appends a text of UTF-8 in code page 932. Returns the number of characters that the code page doesn't have:
// each becomes the one that is most like it, or '?'.
int64_t AppendCodePage932(std::string_view text, std::string& converted);

}  // namespace hexlume
