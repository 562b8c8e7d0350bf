// What a process holds of the system, for the soak.
#pragma once

#include <cstddef>

namespace hexlume {

struct ProcessCounts {
  size_t memory = 0;       // bytes in use
  size_t handles = 0;      // open files, on Windows handles of all kinds
  size_t gdiObjects = 0;   // 0 where there are none
  size_t userObjects = 0;  // windows, menus and the like; 0 where there are none
};

ProcessCounts CountProcess();

}  // namespace hexlume
