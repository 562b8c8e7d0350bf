#include "platform/stack_room.h"

namespace hexlume {

bool HasStackRoom() { return true; }

}  // namespace hexlume
