// Drawings made by chance, for comparing two builds: the same seed gives the same bytes on every system.
#pragma once

#include <cstdint>
#include <string>

namespace hexlume {

// Mostly sound, with what real files and broken ones have: layers, colours, thicknesses, entities of other
// kinds, groups that are missing or repeated, numbers of any size, long lines, both line ends, ends in
// mid-group.
std::string RandomDrawing(uint32_t seed);

// With all that a reader of drawings must bear as well: texts with every code, whose places depend on the metrics of the
// fonts, groups out of order, lost and repeated, tables and sections twice, partial ellipses at the edges of the sheet, negative
// scales, patterns that aren't defined, bulges of any size.
std::string OddDrawing(uint32_t seed);

// One record as in OddDrawing: mostly an entity, seldom a table, a header or some blocks.
std::string RandomRecord(uint32_t seed);

}  // namespace hexlume
