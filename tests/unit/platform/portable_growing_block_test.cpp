#include "platform/portable/growing_block.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

namespace hexlume::portable_growing_block_test {
namespace {

// A byte for each place that differs from those of the pages around it.
uint8_t ByteAt(size_t place) {
  return static_cast<uint8_t>(place / 4096 * 7 + place % 251);
}

void Fill(const GrowingBlock& block, size_t from) {
  for (size_t place = from; place < block.Size(); place += 509) block.Start()[place] = ByteAt(place);
}

bool IsFilled(const GrowingBlock& block, size_t from, size_t to) {
  for (size_t place = from; place < to; place += 509)
    if (block.Start()[place] != ByteAt(place)) return false;
  return true;
}

// Beyond 4 MB the block has huge pages.
TEST(GrowingBlock, bytes_remain_while_it_grows) {
  GrowingBlock block;
  EXPECT_EQ(0u, block.Size());
  for (size_t wanted = 1; wanted < 40'000'000; wanted = block.Size() + 1) {
    const size_t before = block.Size();
    block.Grow(wanted);
    ASSERT_GE(block.Size(), wanted);
    EXPECT_TRUE(IsFilled(block, 0, before / 509 * 509)) << wanted;
    Fill(block, 0);
  }
}

TEST(GrowingBlock, it_has_room_for_what_is_wanted_at_once) {
  GrowingBlock block;
  block.Grow(10'000'000);
  ASSERT_GE(block.Size(), 10'000'000u);
  Fill(block, 0);
  EXPECT_TRUE(IsFilled(block, 0, block.Size()));
}

TEST(GrowingBlock, bytes_stay_when_the_rest_is_given_back) {
  GrowingBlock block;
  block.Grow(10'000'000);
  Fill(block, 0);
  const uint8_t* const start = block.Start();
  block.Shrink(5'000'000);
  EXPECT_EQ(start, block.Start());
  EXPECT_GE(block.Size(), 5'000'000u);
  EXPECT_TRUE(IsFilled(block, 0, 5'000'000));
  block.Grow(block.Size() + 1);
  EXPECT_TRUE(IsFilled(block, 0, 5'000'000));
}

TEST(GrowingBlock, without_room_nothing_changes) {
  GrowingBlock block;
  block.Grow(100);
  Fill(block, 0);
  const uint8_t* const start = block.Start();
  const size_t size = block.Size();
  EXPECT_THROW(block.Grow(SIZE_MAX / 2), std::bad_alloc);
  EXPECT_EQ(start, block.Start());
  EXPECT_EQ(size, block.Size());
  EXPECT_TRUE(IsFilled(block, 0, size));
}

TEST(GrowingBlock, a_moved_one_has_the_bytes) {
  GrowingBlock first;
  first.Grow(100);
  Fill(first, 0);
  const GrowingBlock second = std::move(first);
  EXPECT_TRUE(IsFilled(second, 0, second.Size()));
}

}  // namespace
}  // namespace hexlume::portable_growing_block_test
