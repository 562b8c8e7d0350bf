#pragma once

#include <cstdint>

namespace hexlume::bench {

// What nobody can do without who reads a drawing of LINEs and LWPOLYLINEs with the C library: maps the file, finds the
// ends of its lines with memchr, converts coordinates with strtod, and fills the 96 bytes of each stroke. It writes
// nothing, knows neither layers nor line types, and checks nothing. Returns the number of strokes, -1 if the file can't
// be read.
int64_t ReadBarely(const char* path);

}  // namespace hexlume::bench
