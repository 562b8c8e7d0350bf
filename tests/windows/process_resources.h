// What the process holds of the system.
#pragma once

#include <cstddef>

namespace hexlume {

// GDI objects of this process, stock objects included.
size_t CountGdiObjects();

// Bytes of memory in use.
size_t WorkingSet();

}  // namespace hexlume
