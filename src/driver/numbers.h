// Numbers as the drawing tells them and as the sheet counts them. Where the machine would leave a result
// undefined, it is defined here.
#pragma once

#include <cstdint>

namespace hexlume {

// A double as an int32, the fraction dropped. NaN and what lies outside the range become INT32_MIN.
int32_t Trunc(double value);

// Sheet arithmetic wraps around: a drawing full of absurd coordinates gives absurd strokes, never undefined
// ones.
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

// The number at the start of a text, behind white space; 0 if there is none. What doesn't fit becomes the
// nearest int32. It serves for long values too, which have 32 bits on the system that the drawings come from.
int32_t Atoi(const char* text);

// The number at the start of a text, behind white space, correctly rounded, with e, E, d or D before the
// exponent and a point whatever the locale; 0.0 if there is none. Names of no number ("NAN", "INF") and
// hexadecimal count as none. Too large a number is infinite, too small a one 0.
double Atof(const char* text);

// The value of a group in model units, times 100: the unit of all coordinates and lengths of the model.
double Hundredths(const char* value);

}  // namespace hexlume
