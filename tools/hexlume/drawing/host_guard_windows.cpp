#include <hexlume.h>
#include <windows.h>

#include "tools/hexlume/drawing/host_guard.h"

// The fault is an exception of the system's own C++ compilers, which ours can't catch by its type. A vectored
// handler catches it and continues the thread in the guard.
namespace hexlume {
namespace {

constexpr DWORD cppException = 0xE06D7363;
enum Parameter { magic, thrownObject, throwInfo, parameterCount };

void* landing[5];
int32_t faultNumber;

[[noreturn]] void ReturnToGuard() {
  __builtin_longjmp(landing, 1);
}

// A template, so that only the branch for this architecture is compiled.
template <typename Context>
void ContinueInGuard(Context& context) {
  constexpr uintptr_t alignment = 16, returnAddress = sizeof(void*);
  const auto function = reinterpret_cast<uintptr_t>(&ReturnToGuard);
  if constexpr (sizeof(void*) == 8) {
    context.Rip = function;
    context.Rsp = (context.Rsp & ~(alignment - 1)) - returnAddress;
  } else {
    context.Eip = function;
    context.Esp = (context.Esp & ~(alignment - 1)) - returnAddress;
  }
}

// Components of the system, such as printer drivers, throw such exceptions too and catch them themselves. The
// throw information is in the module that throws.
bool IsOfTheLibrary(const EXCEPTION_RECORD& record) {
  if (record.ExceptionCode != cppException || record.NumberParameters < parameterCount) return false;
  constexpr DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE module = nullptr;
  return GetModuleHandleExA(flags, reinterpret_cast<const char*>(record.ExceptionInformation[throwInfo]),
                            &module) &&
         module == GetModuleHandleA("Hexlume.dll");
}

LONG WINAPI TakeFault(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  if (!IsOfTheLibrary(record)) return EXCEPTION_CONTINUE_SEARCH;
  faultNumber = *reinterpret_cast<const int32_t*>(record.ExceptionInformation[thrownObject]);
  ContinueInGuard(*exception->ContextRecord);
  return EXCEPTION_CONTINUE_EXECUTION;
}

// Returns false if a fault has ended run.
[[gnu::noinline]] bool RunToReturn(void (*run)(void* context), void* context) {
  if (__builtin_setjmp(landing) != 0) return false;
  run(context);
  return true;
}

}  // namespace

std::optional<int32_t> RunForFault(void (*run)(void* context), void* context) {
  NT_TIB* const thread = reinterpret_cast<NT_TIB*>(NtCurrentTeb());
  const auto handlers = thread->ExceptionList;
  void* const vectored = AddVectoredExceptionHandler(TRUE, TakeFault);
  const bool returned = RunToReturn(run, context);
  RemoveVectoredExceptionHandler(vectored);
  if (returned) return std::nullopt;
  // Removes the handlers of the frames that were skipped from the thread's list.
  thread->ExceptionList = handlers;
  return faultNumber;
}

void ForgetBounds() {
  SetLastError(0);
}

uint32_t ReachedBounds() {
  const uint32_t error = GetLastError();
  return error & HEXLUME_BOUNDS_REACHED ? error ^ HEXLUME_BOUNDS_REACHED : 0;
}

}  // namespace hexlume
