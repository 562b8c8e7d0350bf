// The compiler's library has no std::mutex with the system's own threads, and the oldest systems have no
// locks but critical sections.
#include "platform/call_lock.h"

#include <windows.h>

namespace hexlume {

namespace {

struct Section {
  Section() { InitializeCriticalSection(&section); }
  ~Section() { DeleteCriticalSection(&section); }
  Section(const Section&) = delete;
  Section& operator=(const Section&) = delete;

  CRITICAL_SECTION section;
} lock;

// The thread in a call; 0 if there is none. Only that thread itself can find its own number here.
volatile LONG owner = 0;

}  // namespace

bool EnterCall() {
  const LONG self = static_cast<LONG>(GetCurrentThreadId());
  if (owner == self) return false;
  EnterCriticalSection(&lock.section);
  owner = self;
  return true;
}

void LeaveCall() {
  owner = 0;
  LeaveCriticalSection(&lock.section);
}

}  // namespace hexlume
