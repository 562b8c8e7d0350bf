// The stack that the calling thread has left.
#pragma once

namespace hexlume {

// Whether there is enough stack for one more level of nested blocks and for the exception that ends them.
bool HasStackRoom();

}  // namespace hexlume
