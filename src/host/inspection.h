// What a drawing contains, without drawing it.
#pragma once

#include "host/arguments.h"
#include "host/result.h"

namespace hexlume {

// Measures the drawing's sheet as a conversion does and reads the whole drawing once. Fills the result but
// for its message.
void InspectForHost(const HostInput& input, const HostOptions& options, hexlume_result& result);

}  // namespace hexlume
