// WebAssembly has no signals. A processor fault ends the module's instance, and its owner makes another one.
#include "platform/fault_guard.h"

#include <new>

namespace hexlume {

void RunGuarded(void (*run)(void* context), void* context) {
  try {
    run(context);
    return;
  } catch (const std::bad_alloc&) {
    memoryRanOut = true;
  } catch (...) {
  }
  throw faultCode;
}

}  // namespace hexlume
