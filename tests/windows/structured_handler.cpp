#include "windows/structured_handler.h"

#include <excpt.h>
#include <intrin.h>

#include <algorithm>

namespace hexlume::test {

namespace {

HostException* receiver;
volatile bool ended;

void Record(const EXCEPTION_RECORD& record) {
  receiver->code = record.ExceptionCode;
  receiver->flags = record.ExceptionFlags;
  receiver->parameterCount = record.NumberParameters;
  std::copy_n(record.ExceptionInformation, record.NumberParameters, receiver->parameters);
  ended = true;
}

}  // namespace

#ifdef __x86_64__

extern "C" LONG RecordAndTake(EXCEPTION_POINTERS* exception, void*) {
  Record(*exception->ExceptionRecord);
  return EXCEPTION_EXECUTE_HANDLER;
}

// In a function of its own, as the macros define labels.
__attribute__((noinline)) static void RunUnderHandler(void (*run)(void* context), void* context) {
  __try1(RecordAndTake);
  run(context);
  __except1;
}

#else

namespace {

struct Registration {
  EXCEPTION_REGISTRATION_RECORD record;
  void* resume[5];
};

Registration* registration;

EXCEPTION_DISPOSITION RecordAndTake(EXCEPTION_RECORD* exception, void*, CONTEXT*, void*) {
  if (exception->ExceptionFlags & (EXCEPTION_UNWINDING | EXCEPTION_EXIT_UNWIND))
    return ExceptionContinueSearch;
  Record(*exception);
  RtlUnwind(&registration->record, nullptr, exception, nullptr);
  __builtin_longjmp(registration->resume, 1);
}

__attribute__((noinline)) void RunUnderHandler(void (*run)(void* context), void* context) {
  Registration own = {};
  own.record.Next = reinterpret_cast<EXCEPTION_REGISTRATION_RECORD*>(__readfsdword(0));
  own.record.Handler = reinterpret_cast<PEXCEPTION_ROUTINE>(RecordAndTake);
  registration = &own;
  if (!__builtin_setjmp(own.resume)) {
    __writefsdword(0, reinterpret_cast<DWORD>(&own));
    run(context);
  }
  __writefsdword(0, reinterpret_cast<DWORD>(registration->record.Next));
}

}  // namespace

#endif

bool EndsInException(void (*run)(void* context), void* context, HostException* exception) {
  receiver = exception;
  ended = false;
  RunUnderHandler(run, context);
  return ended;
}

}  // namespace hexlume::test
