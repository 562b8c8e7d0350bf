// How much of its stack the calling thread has left.
#pragma once

namespace hexlume {

// Whether there is room for one more level of blocks within blocks, and for the way out from there.
bool HasStackRoom();

}  // namespace hexlume
