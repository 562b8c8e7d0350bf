// Compares names that were read just before.
#pragma once

namespace hexlume {

// Byte by byte: names are short, and strcmp loads so many bytes at once that it waits until those just stored are in the
// cache, a tenth of the time of a drawing of INSERTs.
inline bool IsSameName(const char* a, const char* b) {
  while (*a == *b && *a != '\0') {
    ++a;
    ++b;
  }
  return *a == *b;
}

}  // namespace hexlume
