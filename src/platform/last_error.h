// The error number that a system keeps for each thread.
#pragma once

#include <cstdint>

namespace hexlume {

void SetThreadError(uint32_t number);

}  // namespace hexlume
