// The bytes of a metafile that a conversion decides.
#pragma once

#include <string>

namespace hexlume {

// On Windows the bytes of font records that nobody reads are 0: those after the end of the face's name, in which the
// system leaves what was in memory. On Linux all bytes as they are.
std::string ComparableBytes(std::string metafile);

}  // namespace hexlume
