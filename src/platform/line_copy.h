// Copies a short line many bytes at a time.
#pragma once

#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace hexlume {

// Bytes that are readable at the line, and writable at the copy.
constexpr int32_t shortLineSize = 32;

constexpr int32_t noLineEnd = -1;

// Eight bytes at a time in a register, which all processors have. The first byte is the lowest one, as on all systems of the
// library.
inline int32_t CopyLineByWords(const char* line, char* copy) {
  constexpr int32_t wordSize = 8;
  constexpr uint64_t everyByte = 0x0101010101010101;
  // The highest bit of each byte that is 0, up to the first of them.
  const auto zeroBytes = [](uint64_t word) { return (word - everyByte) & ~word & (everyByte * 0x80); };
  for (int32_t i = 0; i < shortLineSize; i += wordSize) {
    uint64_t word;
    std::memcpy(&word, line + i, wordSize);
    std::memcpy(copy + i, &word, wordSize);
    const uint64_t ends = zeroBytes(word ^ (everyByte * '\n')) | zeroBytes(word);
    if (ends != 0) return i + __builtin_ctzll(ends) / 8;
  }
  return noLineEnd;
}

// Copies a line up to its first line feed or 0 byte, and any bytes after it. Returns the place of that byte, or noLineEnd.
inline int32_t CopyShortLine(const char* line, char* copy) {
#ifdef __SSE2__
  constexpr int32_t blockSize = 16;
  for (int32_t i = 0; i < shortLineSize; i += blockSize) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(line + i));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(copy + i), block);
    const __m128i feeds = _mm_cmpeq_epi8(block, _mm_set1_epi8('\n'));
    const __m128i zeros = _mm_cmpeq_epi8(block, _mm_setzero_si128());
    const int ends = _mm_movemask_epi8(_mm_or_si128(feeds, zeros));
    if (ends != 0) return i + __builtin_ctz(static_cast<unsigned>(ends));
  }
  return noLineEnd;
#else
  return CopyLineByWords(line, copy);
#endif
}

}  // namespace hexlume
