#include "platform/line_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <string>

#include "driver/numbers.h"

namespace hexlume::line_number_test {
namespace {

// A digit after the line, so that one too many would be seen.
std::string Padded(const std::string& line) {
  return line + std::string(numberLineSize, '7');
}

bool IsRead(const std::string& line) {
  double number;
  return ReadNumberLine(Padded(line).data(), number);
}

double NumberOf(const std::string& line) {
  double number = 0.0;
  EXPECT_TRUE(ReadNumberLine(Padded(line).data(), number)) << line;
  return number;
}

TEST(LineNumber, whole_numbers_and_decimals_are_read) {
  EXPECT_EQ(5.0, NumberOf("5\n"));
  EXPECT_EQ(-12.0, NumberOf("-12\r\n"));
  EXPECT_EQ(123.456, NumberOf("123.456\n"));
  EXPECT_EQ(0.1, NumberOf("0.1\r\n"));
  EXPECT_EQ(-7.0, NumberOf("-7.\n"));
  EXPECT_EQ(12345678.1234567, NumberOf("12345678.1234567\n"));
  EXPECT_EQ(-99999999.0, NumberOf("-99999999\n"));
  EXPECT_EQ(12.0, NumberOf("0012.000\n"));
}

TEST(LineNumber, a_minus_before_zero_is_kept) {
  EXPECT_TRUE(std::signbit(NumberOf("-0.000\n")));
  EXPECT_FALSE(std::signbit(NumberOf("0.000\n")));
}

TEST(LineNumber, other_lines_are_left_to_the_slow_form) {
  for (const char* line : {"\n", "-\n", ".5\n", "+5\n", " 5\n", "5 \n", "5e3\n", "1.5d2\n", "1.2.3\n",
                           "--5\n", "123456789\n", "1.12345678\n", "LINE\n", "5A\n", "-.5\n"})
    EXPECT_FALSE(IsRead(line)) << line;
}

// Bytes that were lost are read as 0.
TEST(LineNumber, a_number_that_breaks_off_is_not_read) {
  EXPECT_FALSE(IsRead(std::string("12.5\0", 5)));
  EXPECT_FALSE(IsRead(std::string("12\0", 3)));
}

std::string RandomDigits(std::mt19937& random, size_t most) {
  std::string digits;
  for (size_t i = random() % (most + 1); i > 0; --i) digits += static_cast<char>('0' + random() % 10);
  return digits;
}

// With up to a digit more than are read.
std::string RandomNumber(std::mt19937& random) {
  std::string number = random() % 3 == 0 ? "-" : "";
  number += RandomDigits(random, 9);
  if (random() % 4 != 0) number += '.' + RandomDigits(random, 8);
  return number;
}

TEST(LineNumber, a_number_that_is_read_is_that_of_the_slow_form) {
  std::mt19937 random(3);
  int read = 0;
  for (int round = 0; round < 200'000; ++round) {
    std::string text = RandomNumber(random);
    if (random() % 8 == 0 && !text.empty()) text[random() % text.size()] = ". eE-\tx/:"[random() % 9];
    const double expected = Atof(text.c_str());
    double number;
    if (!ReadNumberLine(Padded(text + (random() % 2 ? "\n" : "\r\n")).data(), number)) continue;
    ++read;
    ASSERT_EQ(0, std::memcmp(&expected, &number, sizeof number)) << text << " " << number;
  }
  EXPECT_GT(read, 100'000);
}

}  // namespace
}  // namespace hexlume::line_number_test
