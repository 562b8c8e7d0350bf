// Measures whole conversions of drawings of growing size, through the public interface. Only ratios within one
// run count: time/item should be the same in all lines. bytes/item is the length of the metafile for each item
// and shows that all items were drawn.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

// Converts draw(items), where items is the first argument of the benchmark.
void Convert(benchmark::State& state, std::string (*draw)(int64_t items));
