// WebAssembly has no signals. A processor fault ends the module's instance, and its owner makes another one.
#include "platform/fault_guard.h"

namespace hexlume {

void RunGuarded(void (*run)(void* context), void* context) {
  try {
    run(context);
    return;
  } catch (...) {
  }
  throw faultCode;
}

}  // namespace hexlume
