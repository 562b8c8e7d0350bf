// A guard is a jump target for the signal handlers of processor faults. The handlers are installed while any
// thread has a guard; a signal outside of a guard is passed to the previous handler. An access to a mapped file that was
// shortened is no fault: it reads zeros, and the reader ends the run with an exception.
#include "platform/fault_guard.h"

#include <pthread.h>
#include <setjmp.h>
#include <signal.h>
#include <ucontext.h>

#include <cfenv>
#include <cstddef>
#include <mutex>
#include <new>

#include "platform/portable/lost_pages.h"

namespace hexlume {

namespace {

struct Guard {
  Guard* outer;
  const std::fenv_t* control;  // restored after a fault: that of the outermost guard, as no run changes it
  sigjmp_buf resume;
};

// The innermost guard of this thread. With the initial-exec model it needs no allocation on first access,
// which can be in a signal handler.
[[gnu::tls_model("initial-exec")]] thread_local Guard* innermost = nullptr;

constexpr int faultSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP};
constexpr size_t faultSignalCount = sizeof faultSignals / sizeof faultSignals[0];

// The handlers before ours were installed.
struct sigaction previous[faultSignalCount];

void PassOn(int signal, siginfo_t* info, void* context, const struct sigaction& handler) {
  if (handler.sa_flags & SA_SIGINFO) {
    handler.sa_sigaction(signal, info, context);
  } else if (handler.sa_handler == SIG_DFL || (handler.sa_handler == SIG_IGN && info->si_code > 0)) {
    // The signal is pending until this handler returns, and then ends the process. As the kernel does, a
    // processor fault isn't ignored.
    ::signal(signal, SIG_DFL);
    raise(signal);
  } else if (handler.sa_handler != SIG_IGN) {
    handler.sa_handler(signal);
  }
}

void OnFault(int signal, siginfo_t* info, void* context) {
  // Codes above 0 come from the kernel. Another process, or raise, sends the same signals without a fault.
  if (signal == SIGBUS && info->si_code > 0 && LostPages::Replace(info->si_addr)) return;
  if (innermost && info->si_code > 0) {
    // A guard doesn't store the mask, because that takes a system call for each block that is drawn.
    pthread_sigmask(SIG_SETMASK, &static_cast<const ucontext_t*>(context)->uc_sigmask, nullptr);
    siglongjmp(innermost->resume, 1);
  }
  for (size_t i = 0; i < faultSignalCount; ++i)
    if (faultSignals[i] == signal) PassOn(signal, info, context, previous[i]);
}

bool IsOurs(const struct sigaction& handler) {
  return (handler.sa_flags & SA_SIGINFO) && handler.sa_sigaction == OnFault;
}

// Installs the handlers for the whole process, and counts the threads that need them.
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
    struct sigaction installed;
    sigaction(faultSignals[i], nullptr, &installed);
    if (IsOurs(installed)) return;
    previous[i] = installed;
    // Uses the previous handler's mask and flags, because that handler may be called from ours.
    struct sigaction ours = installed;
    ours.sa_sigaction = OnFault;
    ours.sa_flags = SA_SIGINFO | SA_ONSTACK | (installed.sa_flags & (SA_NODEFER | SA_RESTART));
    sigaction(faultSignals[i], &ours, nullptr);
  }

  // If the host has replaced our handler in the meantime, its handler is kept.
  static void Remove(size_t i) {
    struct sigaction installed;
    sigaction(faultSignals[i], nullptr, &installed);
    if (IsOurs(installed)) sigaction(faultSignals[i], &previous[i], nullptr);
  }

  std::mutex mutex;
  int threads = 0;
} handlers;

// Prepares a thread for its outermost guard: installs the handlers, gives them an alternate stack for stack
// overflows, and unblocks the signals. The destructor restores the previous state.
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
  // Part of the thread's stack, above all frames that can overflow, so that no allocation can fail.
  alignas(16) char stack[32 * 1024];
  stack_t previousStack;
  bool stackIsSet;
  sigset_t previousMask;
};

// Returns false if a fault or an exception ended the run. A separate function, because the jump back makes
// local variables indeterminate.
[[gnu::noinline]] bool RunToReturn(void (*run)(void* context), void* context, Guard& guard) {
  if (sigsetjmp(guard.resume, 0) != 0) return false;
  innermost = &guard;
  try {
    run(context);
    return true;
  } catch (const std::bad_alloc&) {
    memoryRanOut = true;
    return false;
  } catch (...) {
    return false;
  }
}

void RunInnermost(void (*run)(void* context), void* context, const std::fenv_t& control) {
  Guard guard;
  guard.outer = innermost;
  guard.control = &control;
  const bool returned = RunToReturn(run, context, guard);
  innermost = guard.outer;
  if (returned) return;
  std::fesetenv(&control);
  throw faultCode;
}

[[gnu::noinline]] void RunOutermost(void (*run)(void* context), void* context) {
  const ThreadSetup setup;
  // Takes as long as two strokes, too long for each block.
  std::fenv_t control;
  std::fegetenv(&control);
  RunInnermost(run, context, control);
}

}  // namespace

void RunGuarded(void (*run)(void* context), void* context) {
  if (innermost) {
    RunInnermost(run, context, *innermost->control);
  } else {
    RunOutermost(run, context);
  }
}

}  // namespace hexlume
