#include "tools/hexlume/drawing/host_guard.h"

namespace hexlume {

std::optional<int32_t> RunForFault(void (*run)(void* context), void* context) {
  try {
    run(context);
    return std::nullopt;
  } catch (const int32_t fault) {
    return fault;
  }
}

}  // namespace hexlume
