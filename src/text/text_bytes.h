// Bytes of code page 932 as the Japanese runtime library sees them, on every system and in every locale.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hexlume {

// Letters are those of ASCII and the half-width katakana from A6 to DF.
bool IsLetter(char byte);
bool IsDigit(char byte);

// The number of bytes.
int32_t TextLength(const char* text);

// The number of characters, single bytes and pairs alike.
size_t CharacterCount(const char* text);

// The first place of sought in text where a character begins; null if there is none. Unlike strstr it takes
// no trail byte for a character.
char* FindCharacters(char* text, const char* sought);
const char* FindCharacters(const char* text, const char* sought);

}  // namespace hexlume
