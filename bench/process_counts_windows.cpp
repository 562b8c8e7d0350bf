#include <windows.h>

#include "bench/process_counts.h"
#include "windows/process_resources.h"

namespace hexlume {

namespace {

// Wine doesn't count a process's handles, so each number that can be one is tried. They are multiples of 4.
size_t TriedHandles() {
  constexpr uintptr_t highest = 0x10000, step = 4;
  size_t count = 0;
  DWORD flags;
  for (uintptr_t number = step; number < highest; number += step)
    if (GetHandleInformation(reinterpret_cast<HANDLE>(number), &flags)) ++count;
  return count;
}

}  // namespace

ProcessCounts CountProcess() {
  ProcessCounts counts;
  counts.memory = WorkingSet();
  DWORD handles = 0;
  GetProcessHandleCount(GetCurrentProcess(), &handles);
  counts.handles = handles != 0 ? handles : TriedHandles();
  counts.gdiObjects = CountGdiObjects();
  counts.userObjects = CountUserObjects();
  return counts;
}

}  // namespace hexlume
