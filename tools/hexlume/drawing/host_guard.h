// Catches faults that the library throws.
#pragma once

#include <cstdint>
#include <optional>

namespace hexlume {

// Calls run(context). If the library throws a fault, returns its number. Objects on the stack of run
// aren't destroyed then.
std::optional<int32_t> RunForFault(void (*run)(void* context), void* context);

// The bounds that the last conversion by the nine exports has reached, as bits. Call ForgetBounds before it.
void ForgetBounds();
uint32_t ReachedBounds();

template <typename Function>
std::optional<int32_t> CallGuarded(Function&& function) {
  return RunForFault([](void* context) { (*static_cast<Function*>(context))(); }, &function);
}

}  // namespace hexlume
