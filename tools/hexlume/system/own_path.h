// Linux only.
#pragma once

#include <string>

namespace hexlume {

// The file of this program, with links resolved.
std::string OwnPath();

}  // namespace hexlume
