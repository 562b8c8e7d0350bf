// The last step of a fault on its way to the host.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"
#include "platform/fault_guard.h"
#include "platform/host_exception.h"

namespace hexlume {

// Runs a conversion that has no catch of its own. What it throws leaves the library for the host, with
// nothing left open behind it.
template <typename Conversion>
int32_t LetFaultsLeave(Conversion&& convert) {
  int32_t code = faultCode;
  try {
    return convert();
  } catch (int32_t thrown) {
    code = thrown;
  } catch (...) {  // the heap gave out
  }
  FreeTables();
  ThrowToHost(code);
}

}  // namespace hexlume
