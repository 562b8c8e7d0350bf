#include <gtest/gtest.h>

#include "platform/fault_guard.h"
#include "platform/host_exception.h"
#include "windows/structured_handler.h"

namespace hexlume::fault_guard_windows_test {
namespace {

using test::EndsInException;
using test::HostException;

int* volatile nowhere = nullptr;
volatile int more = 1;

void WriteNowhere() {
  *nowhere = 1;
}

BOOL CALLBACK FaultyCallback(char*) {
  WriteNowhere();
  return TRUE;
}

__attribute__((noinline)) size_t Descend(size_t depth) {
  volatile char room[1024];
  room[depth % sizeof room] = 1;
  const size_t deeper = more ? Descend(depth + 1) : depth;
  return deeper + room[0];
}

template <typename Loop>
int32_t Thrown(Loop loop) {
  try {
    GuardFaults([&] { loop(); });
  } catch (int32_t code) {
    return code;
  }
  return 0;
}

template <typename Run>
DWORD WINAPI StartOfThread(void* run) {
  (*static_cast<Run*>(run))();
  return 0;
}

template <typename Run>
void OnAnotherThread(Run run) {
  HANDLE thread = CreateThread(nullptr, 0, StartOfThread<Run>, &run, 0, nullptr);
  ASSERT_NE(nullptr, thread);
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
}

TEST(FaultGuardOnWindows, an_exception_raised_by_software_comes_out_as_11_whatever_its_code) {
  for (const DWORD code :
       {0u, 1u, 0x40010006u, 0x80000004u, 0xC0000005u, 0xC00000FDu, 0xE0000001u, 0xE06D7363u}) {
    EXPECT_EQ(11, Thrown([&] { RaiseException(code, 0, 0, nullptr); })) << std::hex << code;
    EXPECT_EQ(11, Thrown([&] { RaiseException(code, EXCEPTION_NONCONTINUABLE, 0, nullptr); }))
        << std::hex << code;
  }
}

TEST(FaultGuardOnWindows, an_exception_for_a_host_comes_out_as_11_within_a_guard) {
  EXPECT_EQ(11, Thrown([] { ThrowToHost(-1); }));
}

TEST(FaultGuardOnWindows, exceptions_that_the_system_handles_itself_are_left_to_it) {
  BOOL bad = FALSE;
  EXPECT_EQ(0, Thrown([&] {
              bad = IsBadReadPtr(reinterpret_cast<const void*>(1), 1);
              OutputDebugStringA("drawing");
            }));
  EXPECT_TRUE(bad);
}

TEST(FaultGuardOnWindows, a_fault_in_a_callback_of_the_system_comes_out_as_11) {
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(11, Thrown([] { EnumSystemLocalesA(FaultyCallback, LCID_SUPPORTED); }));
  }
}

TEST(FaultGuardOnWindows, after_the_guard_a_fault_reaches_the_host) {
  HostException exception = {};
  EXPECT_EQ(11, Thrown(WriteNowhere));
  EXPECT_TRUE(EndsInException(WriteNowhere, &exception));
  EXPECT_EQ(DWORD{EXCEPTION_ACCESS_VIOLATION}, exception.code);

  EXPECT_EQ(0, Thrown([] {}));
  EXPECT_TRUE(EndsInException(WriteNowhere, &exception));
}

TEST(FaultGuardOnWindows, a_handler_within_the_loop_comes_before_the_guard) {
  HostException exception = {};
  bool handled = false;
  EXPECT_EQ(0, Thrown([&] { handled = EndsInException(WriteNowhere, &exception); }));
  EXPECT_TRUE(handled);
  EXPECT_EQ(DWORD{EXCEPTION_ACCESS_VIOLATION}, exception.code);
}

TEST(FaultGuardOnWindows, a_fault_on_a_thread_without_a_guard_reaches_the_host) {
  for (const DWORD code : {EXCEPTION_ACCESS_VIOLATION, EXCEPTION_STACK_OVERFLOW}) {
    HostException exception = {};
    const auto fault = [&] { EndsInException([&] { RaiseException(code, 0, 0, nullptr); }, &exception); };
    EXPECT_EQ(0, Thrown([&] { OnAnotherThread(fault); }));
    EXPECT_EQ(code, exception.code);
  }
}

TEST(FaultGuardOnWindows, each_thread_has_guards_of_its_own) {
  int32_t there = 0;
  EXPECT_EQ(11, Thrown([&] {
              OnAnotherThread([&] {
                for (int i = 0; i < 5; ++i) there += Thrown([] { more = static_cast<int>(Descend(0)) | 1; });
              });
              WriteNowhere();
            }));
  EXPECT_EQ(55, there);
}

}  // namespace
}  // namespace hexlume::fault_guard_windows_test
