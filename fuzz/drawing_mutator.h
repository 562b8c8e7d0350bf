// Changes drawings in terms of their groups, for the fuzzer: values of their kinds, entities, blocks, tables, sections and the
// references between them. The same arguments give the same bytes on every system.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace hexlume {

// The drawing with some changes, of at most so many bytes.
std::string ChangedDrawing(std::string_view drawing, size_t mostBytes, uint32_t seed);

// The drawing with pieces of another one.
std::string CrossedDrawing(std::string_view drawing, std::string_view other, size_t mostBytes, uint32_t seed);

}  // namespace hexlume
