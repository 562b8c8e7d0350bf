// Copies text into arrays of fixed size.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hexlume {

// Thrown as an int32_t if a text is too long for its destination.
constexpr int32_t textTooLongCode = -1;

// Copies source with its terminating 0 to destination, an array of size bytes. If the text doesn't
// fit, throws textTooLongCode and leaves destination unchanged: a truncated name could be the name
// of another layer.
void BoundedCopy(char* destination, size_t size, const char* source);

template <size_t size>
void BoundedCopy(char (&destination)[size], const char* source) {
  BoundedCopy(destination, size, source);
}

}  // namespace hexlume
