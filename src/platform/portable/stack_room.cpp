#include "platform/stack_room.h"

#include <pthread.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace hexlume {

namespace {

// The stack of a thread: its low end, towards which it grows, and its size.
struct Stack {
  uintptr_t low = 0;
  size_t size = 0;  // 0 if the system doesn't report it
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
  // Determined once per thread, because for the main thread it reads a file of the system.
  [[gnu::tls_model("initial-exec")]] thread_local const Stack stack = StackOfThread();
  const auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
  // On a stack that a host has made itself, the end isn't known.
  if (here < stack.low || here - stack.low >= stack.size) return true;
  constexpr size_t reserve = 64 * 1024;
  if (here - stack.low <= std::min(reserve, stack.size / 4)) return false;
  // A limit for stacks that the system doesn't limit.
  constexpr size_t mostUsed = 64 * 1024 * 1024;
  return stack.low + stack.size - here < mostUsed;
}

}  // namespace hexlume
