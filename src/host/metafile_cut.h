// A metafile that must not exceed a number of bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace hexlume {

// Cuts a metafile after the last whole record with which it, closed by an end record, has at most mostBytes.
// Empties it if not even its header fits. False if it fits as it is.
bool CutMetafile(std::vector<uint8_t>& metafile, size_t mostBytes);

}  // namespace hexlume
