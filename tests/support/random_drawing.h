// Drawings made by chance, for comparing two builds: the same seed gives the same bytes on every system.
#pragma once

#include <cstdint>
#include <string>

namespace hexlume {

// Mostly sound, with what real files and broken ones have: layers, colours, thicknesses, entities of other
// kinds, groups that are missing or repeated, numbers of any size, long lines, both line ends, ends in
// mid-group.
std::string RandomDrawing(uint32_t seed);

}  // namespace hexlume
