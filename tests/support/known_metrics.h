// Fonts of known metrics: this program's own MeasureFont takes the place of the library's.
#pragma once

#include <cstdint>

namespace hexlume {

struct KnownMetrics {
  int32_t descent = 0;
  int32_t aveCharWidth = 0;
  int32_t calls = 0;  // how often a font was measured
};

extern KnownMetrics knownMetrics;

}  // namespace hexlume
