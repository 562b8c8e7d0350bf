// A byte that is found many bytes at a time: the same place as one by one.

#include "platform/find_byte.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace hexlume::find_byte_test {
namespace {

TEST(FindByte, the_first_one_is_found_at_any_place) {
  for (const char byte : {'\x1A', '\0', '\xFF'})
    for (size_t place = 0; place < 200; ++place) {
      std::string text(place, 'x');
      text += std::string(1, byte) + "yy" + byte;
      ASSERT_EQ(text.data() + place, FindByte(text.data(), text.size(), byte)) << place;
    }
}

// Neither at its end nor after it, where there is one.
TEST(FindByte, none_is_found_in_a_block_of_any_size_without_one) {
  const std::string text = std::string(200, 'x') + '\x1A';
  for (size_t start = 0; start < 70; ++start)
    for (size_t end = start; end <= 200; ++end)
      ASSERT_EQ(nullptr, FindByte(text.data() + start, end - start, '\x1A')) << start << ' ' << end;
}

}  // namespace
}  // namespace hexlume::find_byte_test
