// Lets the calls of several threads through one after the other.
#pragma once

namespace hexlume {

// Waits until no other thread is in a call. False, without waiting, if the calling thread is in one itself.
bool EnterCall();

void LeaveCall();

}  // namespace hexlume
