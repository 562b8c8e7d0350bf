#include "platform/call_lock.h"

namespace hexlume {

namespace {

// A module has one thread, so a call during another one comes from the progress function.
bool isInCall = false;

}  // namespace

bool EnterCall() {
  if (isInCall) return false;
  isInCall = true;
  return true;
}

void LeaveCall() {
  isInCall = false;
}

}  // namespace hexlume
