// Numbers in files of strokes: decimal, without an exponent and superfluous zeros, whatever the locale is.
#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

namespace hexlume {

// A tenth of a hundredth of a millimetre is the finest length in a file of strokes.
inline int64_t Tenths(double number) {
  return std::llround(number * 10);
}

inline void AppendInteger(std::string& text, int64_t number) {
  char digits[24];
  text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

inline void AppendTenths(std::string& text, int64_t tenths) {
  if (tenths < 0) text += '-';
  const int64_t size = tenths < 0 ? -tenths : tenths;
  AppendInteger(text, size / 10);
  if (size % 10 == 0) return;
  text += '.';
  text += static_cast<char>('0' + size % 10);
}

// At most six decimals.
inline void AppendNumber(std::string& text, double number) {
  constexpr int64_t millionth = 1'000'000;
  const int64_t millionths = std::llround(number * millionth);
  const int64_t size = millionths < 0 ? -millionths : millionths;
  if (millionths < 0) text += '-';
  AppendInteger(text, size / millionth);
  std::string decimals = std::to_string(millionth + size % millionth);
  decimals.erase(decimals.find_last_not_of('0') + 1);
  // The first digit only keeps the zeros after it.
  if (decimals.size() > 1) text += '.' + decimals.substr(1);
}

}  // namespace hexlume
