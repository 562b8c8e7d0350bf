// What the process holds of the system.
#pragma once

#include <cstddef>

namespace hexlume {

// Bytes of memory in use.
size_t WorkingSet();

}  // namespace hexlume
