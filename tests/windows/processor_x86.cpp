#include <excpt.h>
#include <intrin.h>

#include "windows/processor.h"

namespace hexlume::test {

namespace {

struct Registration {
  EXCEPTION_REGISTRATION_RECORD record;
  void* resume[5];
};

Registration* registration;
void (*taker)(const EXCEPTION_RECORD&);

EXCEPTION_DISPOSITION TakeException(EXCEPTION_RECORD* exception, void*, CONTEXT*, void*) {
  if (exception->ExceptionFlags & (EXCEPTION_UNWINDING | EXCEPTION_EXIT_UNWIND))
    return ExceptionContinueSearch;
  taker(*exception);
  RtlUnwind(&registration->record, nullptr, exception, nullptr);
  __builtin_longjmp(registration->resume, 1);
}

}  // namespace

__attribute__((noinline)) void RunUnderHandler(void (*run)(void* context), void* context,
                                               void (*take)(const EXCEPTION_RECORD&)) {
  taker = take;
  Registration own = {};
  own.record.Next = reinterpret_cast<EXCEPTION_REGISTRATION_RECORD*>(__readfsdword(0));
  own.record.Handler = reinterpret_cast<PEXCEPTION_ROUTINE>(TakeException);
  registration = &own;
  if (!__builtin_setjmp(own.resume)) {
    __writefsdword(0, reinterpret_cast<DWORD>(&own));
    run(context);
  }
  __writefsdword(0, reinterpret_cast<DWORD>(registration->record.Next));
}

// A 32-bit thread block's field at 0xF70 points to its 64-bit twin.
uintptr_t ProcessEnvironment() {
  const uintptr_t threadBlock = __readfsdword(0xF70);
  return static_cast<uintptr_t>(*reinterpret_cast<const uint64_t*>(threadBlock + 0x60));
}

}  // namespace hexlume::test
