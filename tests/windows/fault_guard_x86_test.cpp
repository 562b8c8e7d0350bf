// On this processor handlers are a chain, which hangs on the thread's block.
#include <gtest/gtest.h>
#include <intrin.h>

#include "platform/fault_guard.h"

namespace hexlume::fault_guard_x86_test {
namespace {

int* volatile nowhere = nullptr;

void WriteNowhere() {
  *nowhere = 1;
}

void ThrowTextTooLong() {
  throw int32_t{-1};
}

void ExpectChainAsBefore(void (*loop)(), int32_t thrown) {
  const DWORD before = __readfsdword(0);
  int32_t caught = 0;
  try {
    GuardFaults(loop);
  } catch (int32_t code) {
    caught = code;
  }
  EXPECT_EQ(thrown, caught);
  EXPECT_EQ(before, __readfsdword(0));
}

TEST(FaultGuardOnX86, the_chain_of_handlers_is_afterwards_as_it_was) {
  ExpectChainAsBefore(WriteNowhere, 11);
  ExpectChainAsBefore(ThrowTextTooLong, 11);
  ExpectChainAsBefore([] {}, 0);
}

}  // namespace
}  // namespace hexlume::fault_guard_x86_test
