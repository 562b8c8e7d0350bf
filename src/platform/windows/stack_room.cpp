#include "platform/stack_room.h"

#include <windows.h>

#include <cstdint>

namespace hexlume {

bool HasStackRoom() {
  const auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
  MEMORY_BASIC_INFORMATION memory;
  if (VirtualQuery(reinterpret_cast<void*>(here), &memory, sizeof memory) == 0) return true;
  // A stack, a fiber's too, is one reservation that the system commits page after page from its high end on.
  // The reserve leaves the pages alone that guard the low end.
  constexpr uintptr_t reserve = 96 * 1024;
  return here - reinterpret_cast<uintptr_t>(memory.AllocationBase) > reserve;
}

}  // namespace hexlume
