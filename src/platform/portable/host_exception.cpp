#include "platform/host_exception.h"

namespace hexlume {

// The library and its host use the same C++ runtime, so a plain throw reaches the host's `catch (int)`.
void ThrowToHost(int32_t code) {
  throw code;
}

}  // namespace hexlume
