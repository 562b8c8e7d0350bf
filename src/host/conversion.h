// A conversion for a host.
#pragma once

#include "host/arguments.h"
#include "host/result.h"

namespace hexlume {

// Answers the dialogs with the options and runs the conversion that they ask for, with nothing left of
// earlier calls. Fills the result but for its message.
void ConvertForHost(const HostInput& input, const HostOptions& options, hexlume_result& result);

}  // namespace hexlume
