// What conversions and inspections do alike before and after.
#pragma once

#include "host/arguments.h"
#include "host/host_run.h"
#include "host/result.h"

namespace hexlume {

// Clears what earlier calls have left, takes the answers from the options and looks at the drawing's size.
// False, with the result's status set, if there is nothing to read.
bool PrepareRun(const HostInput& input, const HostOptions& options, HostRun& run, hexlume_result& result);

// Throws std::bad_alloc if memory ran out in a guarded run: what was drawn until then is of no use.
void CheckMemory();

// The status, line and limit of a run that the host or a limit has ended.
void SettleEnd(HostRun& run, hexlume_result& result);

// A drawing that ended in a fault at this position of the text.
void SettleFault(HostRun& run, int32_t position, hexlume_result& result);

// A drawing that couldn't be measured.
void SettleFailure(const HostInput& input, HostRun& run, hexlume_result& result);

// The file can't be opened or read. False if it can.
bool SettleTrouble(const HostInput& input, const HostRun& run, hexlume_result& result);

// The numbers and remarks that are left.
void FinishRun(const HostRun& run, hexlume_result& result);

// The name of the option that has ended a run.
const char* LimitName(RunEnd end);

}  // namespace hexlume
