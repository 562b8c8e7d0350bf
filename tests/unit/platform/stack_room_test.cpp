// The room that a thread's stack has left.

#include "platform/stack_room.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace hexlume::stack_room_test {
namespace {

// A value that the compiler can't know, so that it leaves the calls and their room in.
volatile size_t one = 1;

// The deepest level that can be reached while there is room, up to a bound.
__attribute__((noinline)) size_t DeepestLevel(size_t level, size_t bound) {
  volatile char room[4096];
  room[0] = static_cast<char>(one);
  if (level == bound || !HasStackRoom()) return level;
  return DeepestLevel(level + one, bound) + static_cast<size_t>(room[0]) - one;
}

TEST(StackRoom, there_is_room_at_a_tests_own_level) {
  EXPECT_TRUE(HasStackRoom());
}

TEST(StackRoom, there_is_room_a_little_deeper) {
  EXPECT_EQ(50u, DeepestLevel(0, 50));
}

// A hundred thousand levels of 4 KB are 400 MB, more than is used of any stack.
TEST(StackRoom, deep_down_there_is_none_before_the_stack_is_at_its_end) {
  constexpr size_t bound = 100'000;
  const size_t deepest = DeepestLevel(0, bound);
  EXPECT_LT(50u, deepest);
  EXPECT_GT(bound, deepest);
}

TEST(StackRoom, back_up_there_is_room_again) {
  const size_t deepest = DeepestLevel(0, 100'000);
  EXPECT_TRUE(HasStackRoom());
  EXPECT_EQ(deepest, DeepestLevel(0, 100'000));
}

}  // namespace
}  // namespace hexlume::stack_room_test
