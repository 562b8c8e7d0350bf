#include "tools/hexlume/drawing/host_guard.h"

#include <hexlume.h>

#include <cerrno>

namespace hexlume {

std::optional<int32_t> RunForFault(void (*run)(void* context), void* context) {
  try {
    run(context);
    return std::nullopt;
  } catch (const int32_t fault) {
    return fault;
  }
}

void ForgetBounds() {
  errno = 0;
}

uint32_t ReachedBounds() {
  const auto error = static_cast<uint32_t>(errno);
  return error & HEXLUME_BOUNDS_REACHED ? error ^ HEXLUME_BOUNDS_REACHED : 0;
}

}  // namespace hexlume
