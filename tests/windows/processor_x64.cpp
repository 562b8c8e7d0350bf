#include <excpt.h>
#include <intrin.h>

#include "windows/processor.h"

namespace hexlume::test {

namespace {

void (*taker)(const EXCEPTION_RECORD&);

}  // namespace

extern "C" LONG TakeException(EXCEPTION_POINTERS* exception, void*) {
  taker(*exception->ExceptionRecord);
  return EXCEPTION_EXECUTE_HANDLER;
}

// In a function of its own, as the macros define labels.
__attribute__((noinline)) void RunUnderHandler(void (*run)(void* context), void* context,
                                               void (*take)(const EXCEPTION_RECORD&)) {
  taker = take;
  __try1(TakeException);
  run(context);
  __except1;
}

uintptr_t ProcessEnvironment() {
  return static_cast<uintptr_t>(__readgsqword(0x60));
}

}  // namespace hexlume::test
