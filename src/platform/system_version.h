// The version of the system.
#pragma once

#include <cstdint>

namespace hexlume {

struct SystemVersion {
  uint32_t major;
  uint32_t minor;
};

SystemVersion GetSystemVersion();

}  // namespace hexlume
