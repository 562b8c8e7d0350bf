#include "platform/stack_room.h"

#include <pthread.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace hexlume {

namespace {

// The stack that a thread was given, from its low end, which it grows towards.
struct Stack {
  uintptr_t low = 0;
  size_t size = 0;  // 0 where the system doesn't tell
};

Stack StackOfThread() {
  Stack stack;
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return stack;
  void* low = nullptr;
  if (pthread_attr_getstack(&attributes, &low, &stack.size) == 0)
    stack.low = reinterpret_cast<uintptr_t>(low);
  pthread_attr_destroy(&attributes);
  return stack;
}

}  // namespace

bool HasStackRoom() {
  // Asked for once, as the system reads a file of its own for the main thread's.
  thread_local const Stack stack = StackOfThread();
  const auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
  // A host may run on a stack of its own, whose end nobody knows.
  if (here < stack.low || here - stack.low >= stack.size) return true;
  constexpr size_t reserve = 64 * 1024;
  if (here - stack.low <= std::min(reserve, stack.size / 4)) return false;
  // Where the system sets a stack no limit, this is one.
  constexpr size_t mostUsed = 64 * 1024 * 1024;
  return stack.low + stack.size - here < mostUsed;
}

}  // namespace hexlume
