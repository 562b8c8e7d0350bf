#include "support/leaving_fault.h"

namespace hexlume {

std::optional<int32_t> FaultLeaving(const std::function<void()>& call) {
  try {
    call();
  } catch (int32_t code) {
    return code;
  }
  return std::nullopt;
}

}  // namespace hexlume
