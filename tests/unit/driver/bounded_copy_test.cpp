#include "driver/bounded_copy.h"

#include <gtest/gtest.h>

#include <string>

namespace hexlume::bounded_copy_test {
namespace {

// What a copy of text into a place of size bytes throws, 0 if nothing.
int32_t ThrownByCopy(char* destination, size_t size, const std::string& text) {
  try {
    BoundedCopy(destination, size, text.c_str());
  } catch (int32_t code) {
    return code;
  }
  return 0;
}

TEST(BoundedCopy, a_text_is_copied_with_its_closing_0) {
  char place[8] = {'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x'};
  EXPECT_EQ(0, ThrownByCopy(place, sizeof place, "DIM"));
  EXPECT_EQ(std::string("DIM\0xxxx", 8), std::string(place, 8));
}

TEST(BoundedCopy, an_empty_text_empties_the_place) {
  char place[4] = "ABC";
  EXPECT_EQ(0, ThrownByCopy(place, sizeof place, ""));
  EXPECT_STREQ("", place);
}

TEST(BoundedCopy, a_text_fits_that_leaves_one_byte_for_its_closing_0) {
  char place[5] = {'x', 'x', 'x', 'x', 'x'};
  EXPECT_EQ(0, ThrownByCopy(place, 4, "ABC"));
  EXPECT_EQ(std::string("ABC\0x", 5), std::string(place, 5));
}

TEST(BoundedCopy, a_text_as_long_as_the_place_throws_minus_1) {
  char place[4] = "abc";
  EXPECT_EQ(-1, ThrownByCopy(place, 3, "ABC"));
}

TEST(BoundedCopy, a_text_that_is_far_too_long_throws_minus_1) {
  char place[4] = "abc";
  EXPECT_EQ(-1, ThrownByCopy(place, sizeof place, std::string(100000, 'A')));
}

TEST(BoundedCopy, a_copy_that_throws_leaves_the_place_as_it_was) {
  char place[4] = "abc";
  EXPECT_EQ(-1, ThrownByCopy(place, sizeof place, "ABCD"));
  EXPECT_EQ(std::string("abc\0", 4), std::string(place, 4));
}

TEST(BoundedCopy, nothing_fits_a_place_of_no_bytes) {
  char place = 'x';
  EXPECT_EQ(-1, ThrownByCopy(&place, 0, ""));
  EXPECT_EQ('x', place);
}

TEST(BoundedCopy, an_array_tells_its_own_size) {
  char place[257];
  BoundedCopy(place, std::string(256, 'A').c_str());
  EXPECT_EQ(std::string(256, 'A'), place);
  EXPECT_THROW(BoundedCopy(place, std::string(257, 'B').c_str()), int32_t);
}

}  // namespace
}  // namespace hexlume::bounded_copy_test
