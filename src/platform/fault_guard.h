// The guard around the loops that draw: whatever goes wrong in one of them leaves it as one and the same
// throw.
#pragma once

#include <cstdint>

namespace hexlume {

// What a guarded loop throws, as an int32_t.
constexpr int32_t faultCode = 11;

// Calls run(context). A processor fault in it (an access violation, a stack overflow, a division by zero ...)
// and any C++ exception that leaves it come out as `throw faultCode`. Guards may nest: the innermost one
// answers. Objects on the stack between a processor fault and the guard aren't destroyed.
void RunGuarded(void (*run)(void* context), void* context);

template <typename Loop>
void GuardFaults(Loop loop) {
  RunGuarded([](void* context) { (*static_cast<Loop*>(context))(); }, &loop);
}

}  // namespace hexlume
