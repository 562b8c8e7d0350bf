// Code page 932, Shift-JIS as Windows has it, on every system and in every locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace hexlume {

// What stands for a pair of bytes that is no character: the katakana middle dot.
constexpr char16_t noCharacter = 0x30FB;

// The first byte of a double-byte character: 81 to 9F, E0 to FC.
constexpr bool IsLeadByte(uint8_t byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

// How many bytes the first character of the text has, 1 or 2; length is at least 1. A lead byte takes any
// byte behind it along, but the text's end and a zero.
size_t CharacterBytes(const char* text, size_t length);

// The text's first character in UTF-16, as Windows has it: always one unit. bytes is what CharacterBytes
// tells.
char16_t Utf16Character(const char* text, size_t bytes);

// The whole text in UTF-16.
std::u16string Utf16Text(const char* text, size_t length);

// A UTF-16 unit's bytes as a number, 0x41 or 0x8260, as Windows converts it by default. Where two pairs mean the
// same character it is the one that Windows prefers. A character that the code page doesn't have becomes one that
// looks alike, where Windows has such a substitute, otherwise '?'.
uint16_t CodePage932Bytes(char16_t character);

}  // namespace hexlume
