#include "text/text_bytes.h"

#include <cstring>

#include "platform/code_page_932.h"

namespace hexlume {

bool IsLetter(char byte) {
  const auto code = static_cast<uint8_t>(byte);
  return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') || (code >= 0xA6 && code <= 0xDF);
}

bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

int32_t TextLength(const char* text) {
  return static_cast<int32_t>(std::strlen(text));
}

size_t CharacterCount(const char* text) {
  size_t count = 0;
  for (size_t length = std::strlen(text); length > 0;) {
    if (length == 1 && IsLeadByte(static_cast<uint8_t>(*text))) break;
    const size_t bytes = CharacterBytes(text, length);
    text += bytes;
    length -= bytes;
    ++count;
  }
  return count;
}

char* FindCharacters(char* text, const char* sought) {
  const size_t soughtLength = std::strlen(sought);
  size_t length = std::strlen(text);
  // Most texts have no byte of a code at all.
  if (soughtLength > 0 && !std::memchr(text, *sought, length)) return nullptr;
  while (length >= soughtLength) {
    if (std::memcmp(text, sought, soughtLength) == 0) return text;
    const size_t bytes = CharacterBytes(text, length);
    text += bytes;
    length -= bytes;
  }
  return nullptr;
}

const char* FindCharacters(const char* text, const char* sought) {
  return FindCharacters(const_cast<char*>(text), sought);
}

}  // namespace hexlume
