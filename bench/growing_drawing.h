// Whole conversions of drawings of growing size, through the library's own door. Only ratios within one run
// count: time/item should stay flat from line to line. bytes/item tells the length of the metafile, and so
// that every item was drawn.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

// Converts the drawing of so many items as the state's first argument asks for.
void Convert(benchmark::State& state, std::string (*draw)(int64_t items));
