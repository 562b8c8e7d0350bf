// The bytes of a metafile as a handle of the system.
#pragma once

#include <cstdint>
#include <vector>

namespace hexlume {

// Null where the system has no metafiles.
void* MetafileHandle(const std::vector<uint8_t>& bytes);

}  // namespace hexlume
