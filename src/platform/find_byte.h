// Finds a byte in a large block.
#pragma once

#include <cstddef>
#include <cstring>

namespace hexlume {

// Returns null if there is none.
inline const char* FindByte(const char* bytes, size_t size, char byte) {
  size_t place = 0;
#ifdef _WIN32
  // The C runtime looks at one byte at a time. This loop has no branch, so the compiler uses vector registers.
  constexpr size_t blockSize = 64;
  const auto contains = [byte](const char* block) {
    unsigned char found = 0;
    for (size_t i = 0; i < blockSize; ++i) found |= block[i] == byte;
    return found != 0;
  };
  while (size - place >= blockSize && !contains(bytes + place)) place += blockSize;
#endif
  return static_cast<const char*>(std::memchr(bytes + place, byte, size - place));
}

}  // namespace hexlume
