// A guard is a place that the handler of a processor fault jumps back to. The handlers stand only while some
// thread has a guard, and whatever isn't a guard's goes on to the handler that stood there before.
#include "platform/fault_guard.h"

#include <pthread.h>
#include <setjmp.h>
#include <signal.h>

#include <cfenv>
#include <cstddef>
#include <mutex>

namespace hexlume {

namespace {

struct Guard {
  Guard* outer;
  sigjmp_buf resume;
};

// The innermost guard of this thread. In the memory that a thread has from its start: any other would be
// allocated by the first look at it, which may be that of a handler.
[[gnu::tls_model("initial-exec")]] thread_local Guard* innermost = nullptr;

constexpr int faultSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP};
constexpr size_t faultSignalCount = sizeof faultSignals / sizeof faultSignals[0];

// The handlers that stood there before ours.
struct sigaction previous[faultSignalCount];

void PassOn(int signal, siginfo_t* info, void* context, const struct sigaction& handler) {
  if (handler.sa_flags & SA_SIGINFO) {
    handler.sa_sigaction(signal, info, context);
  } else if (handler.sa_handler == SIG_DFL || (handler.sa_handler == SIG_IGN && info->si_code > 0)) {
    // Comes again behind this handler, where nothing stops it from ending the process. The system doesn't let
    // a fault of the processor be ignored either.
    ::signal(signal, SIG_DFL);
    raise(signal);
  } else if (handler.sa_handler != SIG_IGN) {
    handler.sa_handler(signal);
  }
}

void OnFault(int signal, siginfo_t* info, void* context) {
  // Codes above 0 are the kernel's own; another process, or a thread by raise, sends the same signals without
  // a fault.
  if (innermost && info->si_code > 0) siglongjmp(innermost->resume, 1);
  for (size_t i = 0; i < faultSignalCount; ++i)
    if (faultSignals[i] == signal) PassOn(signal, info, context, previous[i]);
}

bool IsOurs(const struct sigaction& handler) {
  return (handler.sa_flags & SA_SIGINFO) && handler.sa_sigaction == OnFault;
}

// The handlers, for the whole process.
class Handlers {
 public:
  void Need() {
    const std::lock_guard<std::mutex> lock(mutex);
    if (threads++ == 0)
      for (size_t i = 0; i < faultSignalCount; ++i) Install(i);
  }

  void Release() {
    const std::lock_guard<std::mutex> lock(mutex);
    if (--threads == 0)
      for (size_t i = 0; i < faultSignalCount; ++i) Remove(i);
  }

 private:
  static void Install(size_t i) {
    struct sigaction standing;
    sigaction(faultSignals[i], nullptr, &standing);
    if (IsOurs(standing)) return;
    previous[i] = standing;
    // With the mask that the one before asks for, as it may be called from ours.
    struct sigaction ours = standing;
    ours.sa_sigaction = OnFault;
    ours.sa_flags = SA_SIGINFO | SA_ONSTACK | (standing.sa_flags & (SA_NODEFER | SA_RESTART));
    sigaction(faultSignals[i], &ours, nullptr);
  }

  // A handler that the host has put over ours meanwhile stays.
  static void Remove(size_t i) {
    struct sigaction standing;
    sigaction(faultSignals[i], nullptr, &standing);
    if (IsOurs(standing)) sigaction(faultSignals[i], &previous[i], nullptr);
  }

  std::mutex mutex;
  int threads = 0;
} handlers;

// What a thread needs around its outermost guard: the handlers, a stack of their own, as there is none left
// after an overflow, and that the signals get through. All of it is as it was afterwards.
class ThreadSetup {
 public:
  ThreadSetup() {
    handlers.Need();
    stack_t own = {};
    own.ss_sp = stack;
    own.ss_size = sizeof stack;
    stackIsSet = sigaltstack(&own, &previousStack) == 0;
    sigset_t faults;
    sigemptyset(&faults);
    for (const int signal : faultSignals) sigaddset(&faults, signal);
    pthread_sigmask(SIG_UNBLOCK, &faults, &previousMask);
  }

  ~ThreadSetup() {
    pthread_sigmask(SIG_SETMASK, &previousMask, nullptr);
    if (stackIsSet) sigaltstack(&previousStack, nullptr);
    handlers.Release();
  }

  ThreadSetup(const ThreadSetup&) = delete;
  ThreadSetup& operator=(const ThreadSetup&) = delete;

 private:
  // On the thread's own stack, above all that can overflow: so it needs no memory that could run out.
  alignas(16) char stack[32 * 1024];
  stack_t previousStack;
  bool stackIsSet;
  sigset_t previousMask;
};

// False if a fault or an exception ended the run. In a function of its own, as the jump back spoils locals.
[[gnu::noinline]] bool RunToReturn(void (*run)(void* context), void* context, Guard& guard) {
  if (sigsetjmp(guard.resume, 1) != 0) return false;
  innermost = &guard;
  try {
    run(context);
    return true;
  } catch (...) {
    return false;
  }
}

void RunInnermost(void (*run)(void* context), void* context) {
  std::fenv_t control;
  std::fegetenv(&control);
  Guard guard;
  guard.outer = innermost;
  const bool returned = RunToReturn(run, context, guard);
  innermost = guard.outer;
  if (returned) return;
  std::fesetenv(&control);
  throw faultCode;
}

[[gnu::noinline]] void RunOutermost(void (*run)(void* context), void* context) {
  const ThreadSetup setup;
  RunInnermost(run, context);
}

}  // namespace

void RunGuarded(void (*run)(void* context), void* context) {
  if (innermost) {
    RunInnermost(run, context);
  } else {
    RunOutermost(run, context);
  }
}

}  // namespace hexlume
