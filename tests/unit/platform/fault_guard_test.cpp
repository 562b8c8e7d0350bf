#include "platform/fault_guard.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cstddef>
#include <new>
#include <stdexcept>
#include <string>

namespace hexlume::fault_guard_test {
namespace {

// Values that the compiler can't know, so that it leaves the fault in. A sanitizer would report the faults
// before they happen, so it doesn't look.
int* volatile nowhere = nullptr;
volatile int zero = 0;
volatile int one = 1;

__attribute__((no_sanitize("undefined"))) void WriteNowhere() {
  *nowhere = 1;
}

__attribute__((no_sanitize("undefined"))) void DivideByZero() {
  one = one / zero;
}

__attribute__((noinline)) size_t Descend(size_t depth) {
  volatile char room[1024];
  room[depth % sizeof room] = 1;
  const size_t deeper = one ? Descend(depth + 1) : depth;
  return deeper + room[0];
}

void OverflowTheStack() {
  one = static_cast<int>(Descend(0)) | 1;
}

// What leaves the guard, 0 if nothing does.
template <typename Loop>
int32_t Thrown(Loop loop) {
  try {
    GuardFaults([&] { loop(); });
  } catch (int32_t code) {
    return code;
  }
  return 0;
}

struct CountDestruction {
  int* count;
  ~CountDestruction() { ++*count; }
};

TEST(FaultGuard, a_loop_without_a_fault_returns_normally) {
  int drawn = 0;
  EXPECT_EQ(0, Thrown([&] { drawn = 3; }));
  EXPECT_EQ(3, drawn);
}

TEST(FaultGuard, an_access_violation_comes_out_as_11) {
  EXPECT_EQ(11, Thrown(WriteNowhere));
}

TEST(FaultGuard, a_jump_to_nowhere_comes_out_as_11) {
  void (*volatile function)() = nullptr;
  EXPECT_EQ(11, Thrown([&] { function(); }));
}

TEST(FaultGuard, an_integer_division_by_zero_comes_out_as_11) {
  EXPECT_EQ(11, Thrown(DivideByZero));
}

TEST(FaultGuard, an_illegal_instruction_comes_out_as_11) {
  EXPECT_EQ(11, Thrown([] {
              if (one) asm volatile("ud2");
            }));
}

TEST(FaultGuard, a_privileged_instruction_comes_out_as_11) {
  EXPECT_EQ(11, Thrown([] { asm volatile("hlt"); }));
}

TEST(FaultGuard, a_breakpoint_comes_out_as_11) {
  EXPECT_EQ(11, Thrown([] { asm volatile("int3"); }));
}

TEST(FaultGuard, a_stack_overflow_comes_out_as_11) {
  EXPECT_EQ(11, Thrown(OverflowTheStack));
}

TEST(FaultGuard, five_stack_overflows_in_a_row_come_out_as_11) {
  for (int i = 0; i < 5; ++i) EXPECT_EQ(11, Thrown(OverflowTheStack)) << i;
}

TEST(FaultGuard, a_thousand_faults_in_a_row_come_out_as_11) {
  for (int i = 0; i < 500; ++i) {
    ASSERT_EQ(11, Thrown(WriteNowhere)) << i;
    ASSERT_EQ(11, Thrown(DivideByZero)) << i;
  }
}

TEST(FaultGuard, an_exception_of_any_type_comes_out_as_11) {
  EXPECT_EQ(11, Thrown([] { throw int32_t{-1}; }));
  EXPECT_EQ(11, Thrown([] { throw int32_t{11}; }));
  EXPECT_EQ(11, Thrown([] { throw std::bad_alloc(); }));
  EXPECT_EQ(11, Thrown([] { throw std::runtime_error("away"); }));
  EXPECT_EQ(11, Thrown([] { throw "away"; }));
}

TEST(FaultGuard, an_exception_caught_within_the_loop_stays_there) {
  int caught = 0;
  EXPECT_EQ(0, Thrown([&] {
              try {
                throw int32_t{7};
              } catch (int32_t code) {
                caught = code;
              }
            }));
  EXPECT_EQ(7, caught);
}

TEST(FaultGuard, an_exception_destroys_what_it_leaves) {
  int destroyed = 0;
  EXPECT_EQ(11, Thrown([&] {
              CountDestruction object{&destroyed};
              throw std::string("away");
            }));
  EXPECT_EQ(1, destroyed);
}

TEST(FaultGuard, a_fault_passes_the_handlers_of_exceptions_within_the_loop) {
  bool caught = false;
  EXPECT_EQ(11, Thrown([&] {
              try {
                WriteNowhere();
              } catch (...) {
                caught = true;
              }
            }));
  EXPECT_FALSE(caught);
}

TEST(FaultGuard, a_fault_in_a_handler_of_an_exception_comes_out_as_11) {
  EXPECT_EQ(11, Thrown([] {
              try {
                throw std::runtime_error("away");
              } catch (const std::exception&) {
                WriteNowhere();
              }
            }));
}

TEST(FaultGuard, an_object_outside_is_destroyed_when_the_fault_leaves) {
  int destroyed = 0;
  try {
    CountDestruction object{&destroyed};
    GuardFaults([] { WriteNowhere(); });
    FAIL();
  } catch (int32_t) {
  }
  EXPECT_EQ(1, destroyed);
}

TEST(FaultGuard, what_the_loop_did_before_a_fault_stays_done) {
  int drawn = 0;
  EXPECT_EQ(11, Thrown([&] {
              drawn = 3;
              OverflowTheStack();
            }));
  EXPECT_EQ(3, drawn);
}

TEST(FaultGuard, the_innermost_guard_answers) {
  int32_t inner = 0;
  bool wentOn = false;
  EXPECT_EQ(0, Thrown([&] {
              inner = Thrown(WriteNowhere);
              wentOn = true;
            }));
  EXPECT_EQ(11, inner);
  EXPECT_TRUE(wentOn);
}

TEST(FaultGuard, the_outer_guard_answers_for_a_fault_after_the_inner_one) {
  int32_t inner = 0;
  EXPECT_EQ(11, Thrown([&] {
              inner = Thrown(OverflowTheStack);
              OverflowTheStack();
            }));
  EXPECT_EQ(11, inner);
}

TEST(FaultGuard, what_leaves_the_inner_guard_leaves_the_outer_one_as_11) {
  EXPECT_EQ(11, Thrown([] { GuardFaults([] { DivideByZero(); }); }));
}

TEST(FaultGuard, floating_point_numbers_come_out_right_after_faults_in_the_middle_of_a_computation) {
  for (int i = 0; i < 16; ++i) {
    ASSERT_EQ(11, Thrown([] {
                asm volatile("fld1" ::: "st");
                WriteNowhere();
              }));
  }
  // A long double is computed in the registers that the faults left in use.
  volatile long double nine = 9;
  EXPECT_EQ(12.0, static_cast<double>(nine + 3));
}

TEST(FaultGuard, the_rounding_is_afterwards_as_it_was) {
  volatile double one = 1, three = 3;
  const double third = one / three;
  for (void (*const fault)() : {WriteNowhere, OverflowTheStack}) {
    EXPECT_EQ(11, Thrown([&] {
                std::fesetround(FE_UPWARD);
                fault();
              }));
    EXPECT_EQ(FE_TONEAREST, std::fegetround());
    EXPECT_EQ(third, one / three);
  }
}

TEST(FaultGuard, local_values_outlive_a_fault) {
  // More than there are registers: each is held across the guard.
  volatile int seed = 1;
  const int a = seed, b = seed + 1, c = seed + 2, d = seed + 3, e = seed + 4, f = seed + 5, g = seed + 6;
  const double x = seed * 0.5, y = seed * 0.25, z = seed * 0.125;
  EXPECT_EQ(11, Thrown(WriteNowhere));
  EXPECT_EQ(11, Thrown(OverflowTheStack));
  EXPECT_EQ(28, a + b + c + d + e + f + g);
  EXPECT_EQ(0.875, x + y + z);
}

}  // namespace
}  // namespace hexlume::fault_guard_test
