// Returns the bytes of a metafile, as in a file.
#pragma once

#include <cstdint>
#include <vector>

namespace hexlume {

using MetafileBytes = std::vector<uint8_t>;

}  // namespace hexlume
