// Conversions and arithmetic of numbers, with defined results where the language has none.
#pragma once

#include <cstdint>
#include <limits>

namespace hexlume {

// Truncates a double to an int32. NaN and values out of range give INT32_MIN.
inline int32_t Trunc(double value) {
  if (!(value > -2147483649.0 && value < 2147483648.0)) return std::numeric_limits<int32_t>::min();
  return static_cast<int32_t>(value);
}

// Sheet arithmetic wraps around, so that extreme coordinates have defined results.
constexpr int32_t WrapAdd(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}
constexpr int32_t WrapSub(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}
constexpr int32_t WrapMul(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}
constexpr int32_t WrapNegate(int32_t a) {
  return WrapSub(0, a);
}

// Parses the number at the start of a text, after white space. Returns 0 if there is none, and the
// nearest int32 if it doesn't fit. Used for long values too, which have 32 bits on the system that the
// drawings come from.
int32_t Atoi(const char* text);

// Parses the number at the start of a text, after white space, and rounds it correctly. The decimal separator
// is a point in every locale, and the exponent may begin with e, E, d or D. Returns 0.0 if there is none;
// "NAN", "INF" and hexadecimal numbers aren't accepted. Overflow gives infinity, underflow 0.
double Atof(const char* text);

// The value of a group in model units, times 100: the unit of all coordinates and lengths of the model.
inline double Hundredths(const char* value) {
  return Atof(value) * 100.0;
}

}  // namespace hexlume
