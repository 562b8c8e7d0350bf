// The compiler's library has no std::mutex with the system's own threads.
#include "platform/call_lock.h"

#include <windows.h>

namespace hexlume {

namespace {

SRWLOCK lock = SRWLOCK_INIT;
// The thread in a call; 0 if there is none. Only that thread itself can find its own number here.
volatile LONG owner = 0;

}  // namespace

bool EnterCall() {
  const LONG self = static_cast<LONG>(GetCurrentThreadId());
  if (owner == self) return false;
  AcquireSRWLockExclusive(&lock);
  owner = self;
  return true;
}

void LeaveCall() {
  owner = 0;
  ReleaseSRWLockExclusive(&lock);
}

}  // namespace hexlume
