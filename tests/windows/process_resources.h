// What the process holds of the system.
#pragma once

#include <cstddef>

namespace hexlume {

// GDI objects of this process, stock objects included.
size_t CountGdiObjects();

// Windows, menus and the like. Where the system doesn't count them, those of all programs on its desktop.
size_t CountUserObjects();

// Bytes of memory in use.
size_t WorkingSet();

}  // namespace hexlume
