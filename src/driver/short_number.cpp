#include "driver/short_number.h"

#include <cstdint>

namespace hexlume {

namespace {

// So many characters can't exceed a uint64_t.
constexpr int longest = 19;
constexpr uint64_t largestExact = uint64_t{1} << 53;

constexpr double powersOfTen[longest] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                         1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};

// Continues a number with the digits at text. Returns the place after them.
const char* AddDigits(const char* text, uint64_t& number) {
  for (; *text >= '0' && *text <= '9'; ++text) number = number * 10 + static_cast<uint64_t>(*text - '0');
  return text;
}

bool IsExponentLetter(char c) {
  return c == 'e' || c == 'E' || c == 'd' || c == 'D';
}

}  // namespace

// Two doubles that hold their numbers exactly have a correctly rounded quotient (Clinger, How to Read Floating Point
// Numbers Accurately, 1990).
bool ParseShortNumber(const char* text, double& value) {
  uint64_t digits = 0;
  const char* end = AddDigits(text, digits);
  const char* decimals = end;
  if (*end == '.') end = AddDigits(decimals = end + 1, digits);
  if (end - text > longest || digits > largestExact || IsExponentLetter(*end)) return false;
  value = static_cast<double>(digits) / powersOfTen[end - decimals];
  return true;
}

}  // namespace hexlume
