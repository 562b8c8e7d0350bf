// One drawing through the host library, for what the nine exports ask in dialogs.
#pragma once

#include <string>

#include "tools/hexlume/convert.h"
#include "tools/hexlume/options.h"

namespace hexlume {

Conversion ConvertByHostLibrary(const std::string& drawing, const Options& options);

}  // namespace hexlume
