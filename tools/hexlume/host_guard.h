// The tool's guard around a call of the library.
#pragma once

#include <cstdint>
#include <optional>

namespace hexlume {

// Calls run(context). If a fault leaves the library meanwhile, its number. What run has on its own stack
// isn't destroyed then.
std::optional<int32_t> RunForFault(void (*run)(void* context), void* context);

template <typename Function>
std::optional<int32_t> CallGuarded(Function&& function) {
  return RunForFault([](void* context) { (*static_cast<Function*>(context))(); }, &function);
}

}  // namespace hexlume
