// Passes faults of a conversion to the host.
#pragma once

#include <cstdint>
#include <optional>

#include "driver/conv_state.h"
#include "driver/meta_file.h"
#include "driver/work_budget.h"
#include "platform/fault_guard.h"
#include "platform/host_exception.h"

namespace hexlume {

// Runs a conversion that doesn't catch faults itself, with its metafile, and releases metafile and tables. Whatever ends it is
// passed to the host then: a code that it throws as it is, anything else as a fault, for example that the drawing's file has
// become shorter.
template <typename Conversion>
int32_t LetFaultsLeave(Conversion&& convert) {
  std::optional<int32_t> thrown;
  int32_t result = 0;
  {
    MetaFile metaFile;  // here, as a processor fault destroys nothing in the guard
    try {
      GuardFaults([&] {
        try {
          result = convert(metaFile);
        } catch (int32_t code) {
          thrown = code;
        }
      });
    } catch (int32_t) {
      thrown = faultCode;
    }
  }
  FreeTables();
  LeaveBounds();
  if (thrown) ThrowToHost(*thrown);
  return result;
}

}  // namespace hexlume
