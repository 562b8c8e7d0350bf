#include "driver/numbers.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <system_error>

#include "driver/short_number.h"
#include "platform/double_text.h"

namespace hexlume {

namespace {

using short_number::IsDigit;

bool IsSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

const char* SkipSpace(const char* text) {
  while (IsSpace(*text)) ++text;
  return text;
}

bool IsExponent(const char* text) {
  if (!short_number::IsExponentLetter(*text)) return false;
  return IsDigit(text[1]) || ((text[1] == '-' || text[1] == '+') && IsDigit(text[2]));
}

// For a number that doesn't fit a double: returns whether it is too large rather than too small, that is,
// whether its first nonzero digit has a positive power of ten.
bool IsTooLarge(const char* number) {
  constexpr int64_t exponentLimit = 99999;  // more than the digits of one line can compensate
  int64_t power = 0;
  bool afterPoint = false;
  bool nonZero = false;
  for (; IsDigit(*number) || (*number == '.' && !afterPoint); ++number) {
    if (*number == '.') {
      afterPoint = true;
      continue;
    }
    nonZero = nonZero || *number != '0';
    if (nonZero && !afterPoint) ++power;
    if (!nonZero && afterPoint) --power;
  }
  if (!IsExponent(number)) return power > 0;
  const bool negative = number[1] == '-';
  int64_t exponent = 0;
  for (number += IsDigit(number[1]) ? 1 : 2; IsDigit(*number); ++number)
    exponent = std::min(exponent * 10 + (*number - '0'), exponentLimit);
  return power + (negative ? -exponent : exponent) > 0;
}

// A function of its own, so that Atof needs little of the stack.
[[gnu::noinline]] double ParseLongNumber(const char* text) {
  double value = 0.0;
  auto result = ParseDouble(text, text + std::strlen(text), value);
  std::string rewritten;
  if (IsExponent(result.ptr)) {  // ParseDouble accepts e, but not d
    rewritten = text;
    rewritten[static_cast<size_t>(result.ptr - text)] = 'e';
    text = rewritten.c_str();
    result = ParseDouble(text, text + rewritten.size(), value);
  }
  if (result.ec == std::errc::result_out_of_range)
    value = IsTooLarge(text) ? std::numeric_limits<double>::infinity() : 0.0;
  return value;
}

}  // namespace

int32_t Atoi(const char* text) {
  text = SkipSpace(text);
  const bool negative = *text == '-';
  if (*text == '-' || *text == '+') ++text;
  constexpr int64_t largest = std::numeric_limits<int32_t>::max();
  const int64_t limit = negative ? largest + 1 : largest;
  int64_t value = 0;
  for (; IsDigit(*text); ++text) value = std::min(value * 10 + (*text - '0'), limit);
  return static_cast<int32_t>(negative ? -value : value);
}

double Atof(const char* text) {
  text = SkipSpace(text);
  const bool negative = *text == '-';
  if (*text == '-' || *text == '+') ++text;
  if (!IsDigit(text[0]) && !(text[0] == '.' && IsDigit(text[1]))) return 0.0;

  double value = 0.0;
  if (!ParseShortNumber(text, value)) value = ParseLongNumber(text);
  return negative ? -value : value;
}

}  // namespace hexlume
