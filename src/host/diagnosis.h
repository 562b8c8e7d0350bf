// Why a drawing couldn't be measured.
#pragma once

#include <cstdint>

#include "host/host_run.h"

namespace hexlume {

struct Diagnosis {
  int32_t status;
  int64_t line;  // 0 without one
};

// Reads the drawing once more. HEXLUME_STATUS_OK if nothing is wrong with it.
Diagnosis Diagnose(HostRun& run);

// The status of a drawing that can't be opened.
int32_t StatusOf(FileTrouble trouble);

}  // namespace hexlume
