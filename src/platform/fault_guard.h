// Turns every fault in the drawing loops into one exception.
#pragma once

#include <cstdint>

namespace hexlume {

// Thrown by a guarded loop, as an int32_t.
constexpr int32_t faultCode = 11;

// Set when memory ran out in a guarded run, which is thrown as faultCode like everything else. Whoever wants to distinguish
// it clears it first.
inline bool memoryRanOut = false;

// Calls run(context). A processor fault in it (access violation, stack overflow, division by zero, ...) or
// any C++ exception is thrown as faultCode. Guards can be nested; the innermost one handles the fault. After
// a processor fault, objects on the stack above the guard aren't destroyed.
void RunGuarded(void (*run)(void* context), void* context);

template <typename Loop>
void GuardFaults(Loop loop) {
  RunGuarded([](void* context) { (*static_cast<Loop*>(context))(); }, &loop);
}

}  // namespace hexlume
