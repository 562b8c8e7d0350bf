// Eight bytes at a time in a register, which all processors have. The first byte is the lowest one, as on all systems of the
// library.
#include "driver/short_value.h"

#include <cstring>

#include "driver/conv_state.h"

namespace hexlume {

namespace {

constexpr int32_t wordSize = 8;
constexpr int32_t longestLine = 4 * wordSize;
constexpr uint64_t everyByte = 0x0101010101010101;

// The highest bit of each byte that is 0, up to the first of them.
uint64_t ZeroBytes(uint64_t word) {
  return (word - everyByte) & ~word & (everyByte * 0x80);
}

int32_t FirstByte(uint64_t highestBits) {
  return __builtin_ctzll(highestBits) / 8;
}

// Stores the bytes before the first line feed. Returns their number; -1 without one, or with a 0 byte.
int32_t CopyUpToLineFeed(const char* line, char* value) {
  for (int32_t i = 0; i < longestLine; i += wordSize) {
    uint64_t word;
    std::memcpy(&word, line + i, wordSize);
    std::memcpy(value + i, &word, wordSize);
    const uint64_t feeds = ZeroBytes(word ^ (everyByte * '\n'));
    const uint64_t ends = feeds | ZeroBytes(word);
    if (ends == 0) continue;
    const int32_t end = FirstByte(ends);
    return value[i + end] == '\n' ? i + end : -1;
  }
  return -1;
}

}  // namespace

bool TakeShortValue(TextStream& stream, int32_t place) {
  if (stream.size - place < longestLine) return false;
  char* const value = state.groupValue;
  int32_t length = CopyUpToLineFeed(stream.bytes + place, value);
  if (length < 0) return false;
  Seek(stream, place + length + 1);
  // CR LF is a line end, and one more CR isn't part of the value.
  if (length > 0 && value[length - 1] == '\r') --length;
  if (length > 0 && value[length - 1] == '\r') --length;
  value[length] = '\0';
  return true;
}

}  // namespace hexlume
