// The stack of a module, for the sources of the web build when they are compiled for this system.
#pragma once

#include <cstdint>

// Where the stack began, as far as it was seen: the first call of a thread's functions is near its base.
inline uintptr_t emscripten_stack_get_current() {
  return reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
}

inline uintptr_t& HighestFrame() {
  static uintptr_t highest = 0;
  return highest;
}

inline uintptr_t emscripten_stack_get_base() {
  uintptr_t& highest = HighestFrame();
  if (emscripten_stack_get_current() > highest) highest = emscripten_stack_get_current();
  return highest;
}
