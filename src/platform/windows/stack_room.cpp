#include "platform/stack_room.h"

#include <windows.h>

#include <cstdint>

namespace hexlume {

bool HasStackRoom() {
  const auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
  MEMORY_BASIC_INFORMATION memory;
  if (VirtualQuery(reinterpret_cast<void*>(here), &memory, sizeof memory) == 0) return true;
  // A stack, also that of a fiber, is one reservation that the system commits page by page from its high end.
  // The reserve keeps the guard pages at its low end untouched.
  constexpr uintptr_t reserve = 96 * 1024;
  return here - reinterpret_cast<uintptr_t>(memory.AllocationBase) > reserve;
}

}  // namespace hexlume
