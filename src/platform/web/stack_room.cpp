#include "platform/stack_room.h"

#include <emscripten/stack.h>

#include <cstddef>

namespace hexlume {

// A module sees its own stack, but not the machine's. A level of nested blocks uses about 400 bytes of each, and
// browsers give a worker as little as 500 KB of the machine's: this allows 600 levels.
bool HasStackRoom() {
  constexpr size_t mostUsed = 240 * 1024;
  return emscripten_stack_get_base() - emscripten_stack_get_current() < mostUsed;
}

}  // namespace hexlume
