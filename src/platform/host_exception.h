// How a fault leaves the library for its host.
#pragma once

#include <cstdint>

namespace hexlume {

// Leaves the library with code as an int: on Windows as an exception of the system's own C++ compilers, so
// that their `catch (int)` and any structured handler get it. Our own frames in between aren't unwound by
// every host, so the caller has nothing left to release.
[[noreturn]] void ThrowToHost(int32_t code);

}  // namespace hexlume
