// Code page 932, the Shift-JIS of Windows, independent of the system and the locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace hexlume {

// Replaces pairs of bytes that are no character: the katakana middle dot.
constexpr char16_t noCharacter = 0x30FB;

// Whether the byte is the first of a double-byte character: 81 to 9F, E0 to FC.
constexpr bool IsLeadByte(uint8_t byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

// Returns the number of bytes, 1 or 2, of the first character of a text; length must be at least 1. A lead
// byte takes any byte as its trail byte except a 0.
size_t CharacterBytes(const char* text, size_t length);

// Converts the first character of a text to UTF-16 as Windows does; the result is always one unit. bytes is
// the result of CharacterBytes.
char16_t Utf16Character(const char* text, size_t bytes);

// Converts a text to UTF-16.
std::u16string Utf16Text(const char* text, size_t length);

// Converts a UTF-16 unit to its code, such as 0x41 or 0x8260, as Windows does by default. A character with
// two codes gets the one that Windows prefers. A character that the code page doesn't have gets the similar
// one that Windows substitutes, or '?' if there is none.
uint16_t CodePage932Bytes(char16_t character);

}  // namespace hexlume
