// Copies of text into a place of fixed size.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hexlume {

// What a copy throws, as an int32_t, whose text is too long for its place.
constexpr int32_t textTooLongCode = -1;

// Copies source with its closing 0 into destination, a place of size bytes. A text that doesn't fit throws
// textTooLongCode and leaves destination as it was: a name cut short could be another layer's name.
void BoundedCopy(char* destination, size_t size, const char* source);

template <size_t size>
void BoundedCopy(char (&destination)[size], const char* source) {
  BoundedCopy(destination, size, source);
}

}  // namespace hexlume
