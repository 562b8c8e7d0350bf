// The number in a line of text, many bytes at a time.
#pragma once

#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace hexlume {

// Bytes that are readable at the line.
constexpr int32_t numberLineSize = 24;

#ifdef __SSE2__

// The whole number of up to eight digits, which are the first bytes, without the characters' '0'. Any bytes follow them.
inline int32_t NumberOfDigits(__m128i digits, int32_t count) {
  // The last digit comes to the eighth place, behind zeros.
  const __m128i placed = _mm_sll_epi64(digits, _mm_cvtsi32_si128(8 * (8 - count)));
  const __m128i weights = _mm_set_epi16(1, 10, 100, 1000, 1, 10, 100, 1000);
  const __m128i pairs = _mm_madd_epi16(_mm_unpacklo_epi8(placed, _mm_setzero_si128()), weights);
  const __m128i fours = _mm_add_epi32(pairs, _mm_srli_epi64(pairs, 32));
  return _mm_cvtsi128_si32(fours) * 10000 + _mm_cvtsi128_si32(_mm_unpackhi_epi64(fours, fours));
}

// Reads a line that is only a number of the usual form: a minus or none, up to eight digits, and up to seven decimals or
// none. Returns false for any other line.
//
// Both parts and their sum with the power of ten are exact, so the quotient is rounded correctly.
inline bool ReadNumberLine(const char* line, double& number) {
  static constexpr double powersOfTen[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
  constexpr int32_t mostDigits = 8, mostDecimals = 7;
  const __m128i zeros = _mm_set1_epi8('0');
  const __m128i bytes = _mm_sub_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(line)), zeros);
  const __m128i isDigit = _mm_cmpeq_epi8(_mm_min_epu8(bytes, _mm_set1_epi8(9)), bytes);
  // A bit for each byte that is no digit, so that the place of the lowest one is the number of digits before it.
  uint32_t others = ~static_cast<uint32_t>(_mm_movemask_epi8(isDigit));

  const bool isNegative = *line == '-';
  const char* const whole = line + isNegative;
  others >>= isNegative;
  const int32_t digits = __builtin_ctz(others);
  const bool hasPoint = whole[digits] == '.';
  const int32_t decimals = hasPoint ? __builtin_ctz(others >> (digits + 1)) : 0;
  const char* const end = whole + digits + hasPoint + decimals;
  if (digits == 0 || digits > mostDigits || decimals > mostDecimals || (*end != '\n' && *end != '\r'))
    return false;

  const auto eightFrom = [zeros](const char* place) {
    return _mm_sub_epi8(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(place)), zeros);
  };
  number = NumberOfDigits(eightFrom(whole), digits);
  if (decimals > 0) {
    const double power = powersOfTen[decimals];
    number = (number * power + NumberOfDigits(eightFrom(end - decimals), decimals)) / power;
  }
  if (isNegative) number = -number;
  return true;
}

#else

inline bool ReadNumberLine(const char*, double&) {
  return false;
}

#endif

}  // namespace hexlume
