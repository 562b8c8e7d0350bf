// Passes faults of a conversion to the host.
#pragma once

#include <cstdint>
#include <new>

#include "driver/conv_state.h"
#include "driver/work_budget.h"
#include "platform/fault_guard.h"
#include "platform/host_exception.h"

namespace hexlume {

// Runs a conversion that doesn't catch faults itself. Whatever it throws is passed to the host after the
// tables are released.
template <typename Conversion>
int32_t LetFaultsLeave(Conversion&& convert) {
  int32_t code = faultCode;
  try {
    return convert();
  } catch (int32_t thrown) {
    code = thrown;
  } catch (const std::bad_alloc&) {
    memoryRanOut = true;
  } catch (...) {
    // The code is that of a fault.
  }
  FreeTables();
  LeaveBounds();
  ThrowToHost(code);
}

}  // namespace hexlume
