#include "platform/host_exception.h"

#include <gtest/gtest.h>

#include "platform/fault_guard.h"
#include "windows/structured_handler.h"

extern "C" char __ImageBase;

namespace hexlume::host_exception_test {
namespace {

using test::EndsInException;
using test::HostException;

constexpr bool is64Bit = sizeof(void*) == 8;

HostException Thrown(int32_t code) {
  HostException exception = {};
  EXPECT_TRUE(EndsInException([&] { ThrowToHost(code); }, &exception));
  return exception;
}

// What a field of the type information points to.
template <typename T>
const T* At(uint32_t field) {
  return reinterpret_cast<const T*>((is64Bit ? reinterpret_cast<uintptr_t>(&__ImageBase) : 0) + field);
}

template <typename T>
T Parameter(const HostException& exception, int index) {
  return reinterpret_cast<T>(exception.parameters[index]);
}

DWORD seenByVectoredHandler;
volatile int objectsDestroyed;

LONG CALLBACK See(EXCEPTION_POINTERS* exception) {
  seenByVectoredHandler = exception->ExceptionRecord->ExceptionCode;
  return EXCEPTION_CONTINUE_SEARCH;
}

TEST(HostException, it_is_an_exception_of_the_systems_compilers) {
  const HostException exception = Thrown(11);
  EXPECT_EQ(0xE06D7363u, exception.code);
  EXPECT_EQ(DWORD{EXCEPTION_NONCONTINUABLE}, exception.flags);
  ASSERT_EQ(is64Bit ? 4u : 3u, exception.parameterCount);
  EXPECT_EQ(0x19930520u, exception.parameters[0]);
  EXPECT_EQ(is64Bit ? &__ImageBase : nullptr, Parameter<char*>(exception, 3));
}

TEST(HostException, it_carries_the_code_as_an_int) {
  EXPECT_EQ(11, *Parameter<const int*>(Thrown(11), 1));
  EXPECT_EQ(-1, *Parameter<const int*>(Thrown(-1), 1));
}

TEST(HostException, its_type_is_a_single_one_and_that_is_int) {
  const uint32_t* info = Parameter<const uint32_t*>(Thrown(11), 2);
  EXPECT_EQ(0u, info[0]);  // attributes
  EXPECT_EQ(0u, info[1]);  // destructor
  EXPECT_EQ(0u, info[2]);  // forward compatibility

  const uint32_t* types = At<uint32_t>(info[3]);
  ASSERT_EQ(1u, types[0]);  // count

  const uint32_t* type = At<uint32_t>(types[1]);
  EXPECT_EQ(1u, type[0]);   // a simple type
  EXPECT_EQ(0u, type[2]);   // offset of the member
  EXPECT_EQ(~0u, type[3]);  // no virtual base
  EXPECT_EQ(0u, type[4]);
  EXPECT_EQ(4u, type[5]);  // size
  EXPECT_EQ(0u, type[6]);  // copy constructor

  const char* descriptor = At<char>(type[1]);
  EXPECT_STREQ(".H", descriptor + 2 * sizeof(void*));
}

TEST(HostException, a_vectored_handler_sees_it_first) {
  void* handler = AddVectoredExceptionHandler(1, See);
  seenByVectoredHandler = 0;
  Thrown(11);
  RemoveVectoredExceptionHandler(handler);
  EXPECT_EQ(0xE06D7363u, seenByVectoredHandler);
}

TEST(HostException, it_passes_frames_that_have_something_to_destroy) {
  struct Object {
    ~Object() { objectsDestroyed = objectsDestroyed + 1; }
  };
  HostException exception = {};
  EXPECT_TRUE(EndsInException(
      [] {
        Object object;
        ThrowToHost(11);
      },
      &exception));
  EXPECT_EQ(0xE06D7363u, exception.code);
}

TEST(HostException, it_passes_handlers_of_the_librarys_own_exceptions) {
  HostException exception = {};
  bool caught = false;
  EXPECT_TRUE(EndsInException(
      [&] {
        try {
          ThrowToHost(11);
        } catch (...) {
          caught = true;
        }
      },
      &exception));
  EXPECT_FALSE(caught);
  EXPECT_EQ(0xE06D7363u, exception.code);
}

TEST(HostException, it_follows_upon_a_fault_that_was_caught_within) {
  for (int i = 0; i < 5; ++i) {
    HostException exception = {};
    EXPECT_TRUE(EndsInException(
        [] {
          int32_t code = 0;
          try {
            GuardFaults([] { throw int32_t{-1}; });
          } catch (int32_t thrown) {
            code = thrown;
          }
          ThrowToHost(code);
        },
        &exception));
    EXPECT_EQ(0xE06D7363u, exception.code);
    EXPECT_EQ(11, *Parameter<const int*>(exception, 1));
  }
}

}  // namespace
}  // namespace hexlume::host_exception_test
