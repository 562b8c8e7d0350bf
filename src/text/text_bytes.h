// Bytes of code page 932, classified as by the Japanese runtime library, on every system and in every locale.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hexlume {

// Whether the byte is an ASCII letter or a half-width katakana (A6 to DF).
bool IsLetter(char byte);
bool IsDigit(char byte);

// Returns the number of bytes.
int32_t TextLength(const char* text);

// Returns the number of characters of one or two bytes. A lead byte at the end of the text isn't counted.
size_t CharacterCount(const char* text);

// Returns the first occurrence of sought that begins at a character, not at a trail byte. Returns null if
// there is none.
char* FindCharacters(char* text, const char* sought);
const char* FindCharacters(const char* text, const char* sought);

}  // namespace hexlume
