#include "platform/stack_room.h"

#include <emscripten/stack.h>

#include <cstddef>

namespace hexlume {

// The module's own stack, whose size is that of the link. The machine's stack, which no module can see, must
// last longer.
bool HasStackRoom() {
  constexpr size_t reserve = 64 * 1024;
  return emscripten_stack_get_free() > reserve;
}

}  // namespace hexlume
