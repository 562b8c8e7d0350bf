#include "driver/numbers.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace hexlume::numbers_test {
namespace {

constexpr int32_t smallestInt = std::numeric_limits<int32_t>::min();
constexpr int32_t largestInt = std::numeric_limits<int32_t>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largestDouble = std::numeric_limits<double>::max();

TEST(Trunc, the_fraction_is_dropped_toward_zero) {
  EXPECT_EQ(0, Trunc(0.0));
  EXPECT_EQ(0, Trunc(-0.0));
  EXPECT_EQ(0, Trunc(0.999));
  EXPECT_EQ(0, Trunc(-0.9));
  EXPECT_EQ(1, Trunc(1.5));
  EXPECT_EQ(2, Trunc(2.5));
  EXPECT_EQ(-1, Trunc(-1.999));
  EXPECT_EQ(0, Trunc(5e-324));
}

TEST(Trunc, a_value_fits_whose_whole_part_fits) {
  EXPECT_EQ(largestInt, Trunc(2147483647.0));
  EXPECT_EQ(largestInt, Trunc(2147483647.9));
  EXPECT_EQ(smallestInt, Trunc(-2147483648.0));
  EXPECT_EQ(smallestInt, Trunc(-2147483648.9));
  EXPECT_EQ(smallestInt + 1, Trunc(-2147483647.9));
}

TEST(Trunc, what_does_not_fit_becomes_the_smallest_int) {
  EXPECT_EQ(smallestInt, Trunc(2147483648.0));
  EXPECT_EQ(smallestInt, Trunc(-2147483649.0));
  EXPECT_EQ(smallestInt, Trunc(4294967296.0));  // 2 to the 32nd: 0 if it wrapped
  EXPECT_EQ(smallestInt, Trunc(1e300));
  EXPECT_EQ(smallestInt, Trunc(-1e300));
  EXPECT_EQ(smallestInt, Trunc(infinity));
  EXPECT_EQ(smallestInt, Trunc(-infinity));
}

TEST(Trunc, no_number_becomes_the_smallest_int) {
  EXPECT_EQ(smallestInt, Trunc(std::numeric_limits<double>::quiet_NaN()));
}

TEST(Wraps, sheet_arithmetic_wraps_around) {
  EXPECT_EQ(smallestInt, WrapAdd(largestInt, 1));
  EXPECT_EQ(largestInt, WrapAdd(smallestInt, -1));
  EXPECT_EQ(0, WrapAdd(smallestInt, smallestInt));
  EXPECT_EQ(largestInt, WrapSub(smallestInt, 1));
  EXPECT_EQ(smallestInt, WrapSub(largestInt, -1));
  EXPECT_EQ(0, WrapMul(65536, 65536));             // 2 to the 32nd
  EXPECT_EQ(-2, WrapMul(largestInt, 2));           // 2^32 - 2
  EXPECT_EQ(-1294967296, WrapMul(30000000, 100));  // 3000000000 - 4294967296
  EXPECT_EQ(smallestInt, WrapNegate(smallestInt));
}

TEST(Wraps, sheet_arithmetic_within_the_range_is_plain) {
  EXPECT_EQ(-1, WrapAdd(2, -3));
  EXPECT_EQ(5, WrapSub(2, -3));
  EXPECT_EQ(-6, WrapMul(2, -3));
  EXPECT_EQ(3, WrapNegate(-3));
}

TEST(Atoi, a_whole_number_with_or_without_a_sign) {
  EXPECT_EQ(0, Atoi("0"));
  EXPECT_EQ(62, Atoi("62"));
  EXPECT_EQ(7, Atoi("+7"));
  EXPECT_EQ(-7, Atoi("-7"));
  EXPECT_EQ(12, Atoi("00012"));
}

TEST(Atoi, white_space_in_front_does_not_count) {
  EXPECT_EQ(10, Atoi("  10"));
  EXPECT_EQ(-3, Atoi(" \t\n\v\f\r-3"));
}

TEST(Atoi, the_number_ends_at_the_first_other_character) {
  EXPECT_EQ(10, Atoi("10\r\n"));
  EXPECT_EQ(12, Atoi("12abc"));
  EXPECT_EQ(1, Atoi("1.9"));
  EXPECT_EQ(1, Atoi("1e3"));
  EXPECT_EQ(1, Atoi("1 2"));
  EXPECT_EQ(0, Atoi("0x10"));
}

TEST(Atoi, a_text_without_a_number_is_0) {
  for (const char* text : {"", " ", "abc", "-", "+", "--5", "+-5", "- 5", ".5", "\x83\x8c"})
    EXPECT_EQ(0, Atoi(text)) << text;
}

TEST(Atoi, what_does_not_fit_becomes_the_nearest_int) {
  EXPECT_EQ(largestInt, Atoi("2147483647"));
  EXPECT_EQ(largestInt, Atoi("2147483648"));
  EXPECT_EQ(largestInt, Atoi("4294967297"));  // 1 if it wrapped
  EXPECT_EQ(largestInt, Atoi("18446744073709551617"));
  EXPECT_EQ(largestInt, Atoi(std::string(400, '9').c_str()));
  EXPECT_EQ(smallestInt + 1, Atoi("-2147483647"));
  EXPECT_EQ(smallestInt, Atoi("-2147483648"));
  EXPECT_EQ(smallestInt, Atoi("-2147483649"));
  EXPECT_EQ(smallestInt, Atoi(("-" + std::string(400, '9')).c_str()));
}

TEST(Atof, the_usual_ways_to_write_a_number) {
  EXPECT_EQ(12.5, Atof("12.5"));
  EXPECT_EQ(-12.5, Atof("-12.5"));
  EXPECT_EQ(12.5, Atof("+12.5"));
  EXPECT_EQ(12.0, Atof("12"));
  EXPECT_EQ(5.0, Atof("5."));
  EXPECT_EQ(0.5, Atof(".5"));
  EXPECT_EQ(-0.0005, Atof("-.5e-3"));
  EXPECT_EQ(500.0, Atof("5.e2"));
  EXPECT_EQ(7.25, Atof("0007.2500"));
}

TEST(Atof, white_space_in_front_does_not_count) {
  EXPECT_EQ(12.5, Atof("   12.5"));
  EXPECT_EQ(-12.5, Atof(" \t\n\v\f\r-12.5"));
}

TEST(Atof, the_number_ends_at_the_first_other_character) {
  EXPECT_EQ(12.5, Atof("12.5\r\n"));
  EXPECT_EQ(12.5, Atof("12.5mm"));
  EXPECT_EQ(1.0, Atof("1 2"));
  EXPECT_EQ(1.5, Atof("1.5.5"));
  EXPECT_EQ(100.0, Atof("1e2.5"));
}

TEST(Atof, a_comma_ends_the_number) {
  EXPECT_EQ(1.0, Atof("1,5"));
  EXPECT_EQ(0.0, Atof(",5"));
}

TEST(Atof, an_exponent_follows_e_or_d_in_either_case) {
  EXPECT_EQ(1500.0, Atof("1.5e3"));
  EXPECT_EQ(1500.0, Atof("1.5E3"));
  EXPECT_EQ(1500.0, Atof("1.5d3"));
  EXPECT_EQ(1500.0, Atof("1.5D3"));
  EXPECT_EQ(1500.0, Atof("1.5E+03"));
  EXPECT_EQ(1500.0, Atof("1.5D+03"));
  EXPECT_EQ(0.0015, Atof("1.5E-03"));
  EXPECT_EQ(0.0015, Atof("1.5D-03"));
  EXPECT_EQ(-1500.0, Atof(" -1.5d3 "));
  EXPECT_EQ(500.0, Atof("5.d2"));
}

TEST(Atof, an_exponent_without_digits_is_none) {
  for (const char* text : {"1e", "1E", "1d", "1D", "1e+", "1e-", "1d+", "1e+x", "1dx", "1e 5", "1e+-5"})
    EXPECT_EQ(1.0, Atof(text)) << text;
}

TEST(Atof, a_text_without_a_number_is_0) {
  for (const char* text : {"", " ", ".", "+", "-", "+.", "-.", ".e5", "e5", "E5", "d5", "--1", "+-1", "- 1",
                           "abc", "\x83\x8c\x83\x43"})
    EXPECT_EQ(0.0, Atof(text)) << text;
}

TEST(Atof, names_of_no_number_and_hexadecimal_count_as_none) {
  for (const char* text : {"NAN", "nan", "-nan", "NAN(1)", "INF", "inf", "-INF", "+inf", "INFINITY",
                           "infinity", "0x10", "0X1P3"})
    EXPECT_EQ(0.0, Atof(text)) << text;
}

TEST(Atof, the_nearest_double_is_taken) {
  EXPECT_EQ(0x1.999999999999ap-4, Atof("0.1"));
  EXPECT_EQ(0x1.3333333333333p-2, Atof("0.3"));
  EXPECT_EQ(3.1415926535, Atof("3.1415926535"));
}

// The standard library's conversion, which rounds correctly too, reads the same texts.
TEST(Atof, numbers_of_any_number_of_digits_are_rounded_alike) {
  std::mt19937 random(8);
  for (int round = 0; round < 100'000; ++round) {
    std::string text(1 + random() % 22, '0');
    for (char& digit : text) digit = static_cast<char>('0' + random() % 10);
    if (random() % 8) text.insert(random() % text.size(), ".");
    double expected = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), expected);
    EXPECT_EQ(expected, Atof(text.c_str())) << text;
  }
}

// 2^53 = 9007199254740992 and the numbers about it, at which the short path ends, with the point at any place.
TEST(Atof, the_largest_exact_numbers_are_rounded_alike_with_any_number_of_decimals) {
  for (int64_t number = (int64_t{1} << 53) - 20; number < (int64_t{1} << 53) + 20; ++number)
    for (size_t point = 0; point <= 16; ++point) {
      std::string text = std::to_string(number);
      text.insert(point, ".");
      double expected = 0.0;
      std::from_chars(text.data(), text.data() + text.size(), expected);
      ASSERT_EQ(expected, Atof(text.c_str())) << text;
      ASSERT_EQ(-expected, Atof(("-" + text).c_str())) << text;
    }
}

// 2^53 + 1 is in the middle between 2^53 and 2^53 + 2, 1 + 2^-53 between 1 and 1 + 2^-52.
TEST(Atof, a_tie_goes_to_the_even_neighbour_and_any_digit_behind_breaks_it) {
  EXPECT_EQ(9007199254740992.0, Atof("9007199254740993"));
  EXPECT_EQ(9007199254740994.0, Atof("9007199254740993.00000000000000000000000000000000001"));
  EXPECT_EQ(9007199254740996.0, Atof("9007199254740995"));
  EXPECT_EQ(1.0, Atof("1.00000000000000011102230246251565404236316680908203125"));
  EXPECT_EQ(0x1.0000000000001p0, Atof("1.00000000000000011102230246251565404236316680908203126"));
  EXPECT_EQ(1.0, Atof("1.00000000000000011102230246251565404236316680908203124"));
}

TEST(Atof, the_smallest_numbers_are_rounded_too) {
  EXPECT_EQ(0x1p-1022, Atof("2.2250738585072012e-308"));
  EXPECT_EQ(0x0.fffffffffffffp-1022, Atof("2.2250738585072011e-308"));
  EXPECT_EQ(0x1p-1074, Atof("4.9406564584124654e-324"));
  // Half of that is 2.47032822920623272...e-324.
  EXPECT_EQ(0x1p-1074, Atof("2.4703282292062328e-324"));
  EXPECT_EQ(0.0, Atof("2.4703282292062327e-324"));
}

// The largest double is 1.79769313486231570...e308; from 1.79769313486231580794e308 on the next one would be
// nearer.
TEST(Atof, too_large_a_number_is_infinite) {
  EXPECT_EQ(largestDouble, Atof("1.7976931348623157e308"));
  EXPECT_EQ(largestDouble, Atof("1.7976931348623158e308"));
  EXPECT_EQ(infinity, Atof("1.7976931348623159e308"));
  EXPECT_EQ(1e300, Atof("1E+300"));
  EXPECT_EQ(infinity, Atof("1E+999"));
  EXPECT_EQ(infinity, Atof("1D+999"));
  EXPECT_EQ(-infinity, Atof("-1E+999"));
  EXPECT_EQ(infinity, Atof("1E99999999999999999999"));
  EXPECT_EQ(infinity, Atof("0.001E+999"));
  EXPECT_EQ(infinity, Atof(("1" + std::string(399, '0')).c_str()));
}

TEST(Atof, too_small_a_number_is_0) {
  EXPECT_EQ(0.0, Atof("1E-999"));
  EXPECT_EQ(0.0, Atof("1D-999"));
  EXPECT_EQ(0.0, Atof("-1E-999"));
  EXPECT_EQ(0.0, Atof("1000E-999"));
  EXPECT_EQ(0.0, Atof("1E-99999999999999999999"));
  EXPECT_EQ(0.0, Atof(("0." + std::string(399, '0') + "1").c_str()));
  EXPECT_EQ(0.0, Atof(("0." + std::string(399, '0') + "1E+50").c_str()));  // 10 to the power of 50 - 400
}

TEST(Atof, zero_stays_zero_whatever_its_exponent) {
  EXPECT_EQ(0.0, Atof("0E+999"));
  EXPECT_EQ(0.0, Atof("0.000E99999999999999999999"));
  EXPECT_EQ(0.0, Atof("-0.0"));
  EXPECT_TRUE(std::signbit(Atof("-0.0")));
}

TEST(Atof, four_hundred_digits_are_all_read) {
  EXPECT_EQ(0x1.5555555555555p-2, Atof(("0." + std::string(400, '3')).c_str()));
  EXPECT_EQ(123.0, Atof(("123" + std::string(397, '0') + "e-397").c_str()));
  EXPECT_EQ(5e-10, Atof(("0." + std::string(399, '0') + "5e390").c_str()));  // 400 places less 390
  // The last digit alone shows that this is more than 1 + 2^-53.
  EXPECT_EQ(
      0x1.0000000000001p0,
      Atof(
          ("1.00000000000000011102230246251565404236316680908203125" + std::string(346, '0') + "1").c_str()));
}

}  // namespace
}  // namespace hexlume::numbers_test
