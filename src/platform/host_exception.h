// Passes a fault from the library to its host.
#pragma once

#include <cstdint>

namespace hexlume {

// Throws code to the host as an int. On Windows it is an exception of the system's own C++ compilers, which
// their `catch (int)` and any structured handler catch. Not every host unwinds the library's frames, so the
// caller must have nothing left to release.
[[noreturn]] void ThrowToHost(int32_t code);

}  // namespace hexlume
