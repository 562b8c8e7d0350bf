#include "platform/host_exception.h"

namespace hexlume {

// The library shares the C++ runtime with its host, so a plain throw reaches the host's `catch (int)`.
void ThrowToHost(int32_t code) {
  throw code;
}

}  // namespace hexlume
