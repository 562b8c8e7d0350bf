// A guard is a frame of structured exception handling. So functions of the system handle their own faults
// first, and other threads of the host aren't affected. Only stack overflows are caught earlier, by a
// vectored handler, because structured handling needs some KB of stack that may not be left.
#include "platform/fault_guard.h"

#include <intrin.h>
#include <malloc.h>
#include <windows.h>
#include <xmmintrin.h>

#include <new>

namespace hexlume {

namespace {

struct Guard {
  void (*run)(void* context);
  void* context;
  Guard* outer;
  bool returned;
  bool stackOverflowed;
  void* resume[5];
  alignas(16) char scratch[128];
};

// The innermost guard of each thread. Not a thread_local, which may allocate memory when a handler reads it.
struct ThreadSlot {
  DWORD index = TlsAlloc();
  ~ThreadSlot() { TlsFree(index); }
} slot;

class FloatingPointControl {
 public:
  FloatingPointControl() : sse(_mm_getcsr()) { asm volatile("fnstcw %0" : "=m"(x87)); }

  // Empties the x87 registers too, which are in use after a fault in the middle of a computation.
  void Restore() const {
    asm volatile("fninit\n\tfldcw %0" ::"m"(x87));
    _mm_setcsr(sse);
  }

 private:
  unsigned int sse;
  uint16_t x87;
};

__attribute__((noinline)) void RunToReturn(Guard* guard) noexcept {
  try {
    guard->run(guard->context);
    guard->returned = true;
  } catch (const std::bad_alloc&) {
    memoryRanOut = true;
  } catch (...) {
    // guard->returned is still false.
  }
}

[[noreturn]] __attribute__((fastcall)) void Resume(Guard* guard) {
  __builtin_longjmp(guard->resume, 1);
}

#ifdef __x86_64__

// Calls run(guard). Returns also if a fault has ended the call.
extern "C" void RunUnderHandler(void (*run)(Guard*), Guard* guard) asm("HexlumeRunUnderHandler");

// RunUnderHandler has one scope, with the constant filter EXCEPTION_EXECUTE_HANDLER.
asm(R"(
        .text
        .p2align 4
        .def    HexlumeRunUnderHandler; .scl 2; .type 32; .endef
        .seh_proc HexlumeRunUnderHandler
HexlumeRunUnderHandler:
        subq    $40, %rsp
        .seh_stackalloc 40
        .seh_endprologue
.LscopeBegin:
        movq    %rcx, %rax
        movq    %rdx, %rcx
        call    *%rax
        nop
.LscopeEnd:
        addq    $40, %rsp
        ret
        .seh_handler __C_specific_handler, @except
        .seh_handlerdata
        .long   1
        .rva    .LscopeBegin, .LscopeEnd
        .long   1
        .rva    .LscopeEnd
        .text
        .seh_endproc
)");

__attribute__((noinline)) void RunResumable(Guard* guard) {
  if (!__builtin_setjmp(guard->resume)) {
    TlsSetValue(slot.index, guard);
    RunUnderHandler(RunToReturn, guard);
  }
  TlsSetValue(slot.index, guard->outer);
}

void GoOnWith(Guard* guard, CONTEXT* context) {
  context->Rip = reinterpret_cast<DWORD64>(Resume);
  context->Rcx = reinterpret_cast<DWORD64>(guard);
  // Simulates a call: room for the return address and four parameters.
  context->Rsp = reinterpret_cast<DWORD64>(guard->scratch + sizeof guard->scratch - 40);
}

#else

struct Registration {
  EXCEPTION_REGISTRATION_RECORD record;
  Guard* guard;
};

EXCEPTION_DISPOSITION OnException(EXCEPTION_RECORD* exception, void* frame, CONTEXT*, void*) {
  if (exception->ExceptionFlags & (EXCEPTION_UNWINDING | EXCEPTION_EXIT_UNWIND))
    return ExceptionContinueSearch;
  RtlUnwind(frame, nullptr, exception, nullptr);
  // RtlUnwind preserves ebp only.
  asm volatile("" ::: "ebx", "esi", "edi");
  Resume(static_cast<Registration*>(frame)->guard);
}

__attribute__((noinline)) void RunResumable(Guard* guard) {
  Registration registration = {};
  registration.record.Next = reinterpret_cast<EXCEPTION_REGISTRATION_RECORD*>(__readfsdword(0));
  registration.record.Handler = reinterpret_cast<PEXCEPTION_ROUTINE>(OnException);
  registration.guard = guard;
  if (!__builtin_setjmp(guard->resume)) {
    TlsSetValue(slot.index, guard);
    __writefsdword(0, reinterpret_cast<DWORD>(&registration));
    RunToReturn(guard);
  }
  __writefsdword(0, reinterpret_cast<DWORD>(registration.record.Next));
  TlsSetValue(slot.index, guard->outer);
}

void GoOnWith(Guard* guard, CONTEXT* context) {
  context->Eip = reinterpret_cast<DWORD>(Resume);
  context->Ecx = reinterpret_cast<DWORD>(guard);
  context->Esp = reinterpret_cast<DWORD>(guard->scratch + sizeof guard->scratch - 4);
}

#endif

LONG CALLBACK OnStackOverflow(EXCEPTION_POINTERS* exception) {
  if (exception->ExceptionRecord->ExceptionCode != EXCEPTION_STACK_OVERFLOW) return EXCEPTION_CONTINUE_SEARCH;
  Guard* guard = static_cast<Guard*>(TlsGetValue(slot.index));
  if (!guard) return EXCEPTION_CONTINUE_SEARCH;
  guard->stackOverflowed = true;
  GoOnWith(guard, exception->ContextRecord);
  return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

void RunGuarded(void (*run)(void* context), void* context) {
  const FloatingPointControl control;
  Guard guard = {run, context, static_cast<Guard*>(TlsGetValue(slot.index)), false, false, {}, {}};
  void* handler = guard.outer ? nullptr : AddVectoredExceptionHandler(1, OnStackOverflow);
  RunResumable(&guard);
  if (handler) RemoveVectoredExceptionHandler(handler);
  if (guard.returned) return;
  control.Restore();
  // Restores the guard page. Without it the next overflow would end the process.
  if (guard.stackOverflowed) _resetstkoflw();
  throw faultCode;
}

}  // namespace hexlume
