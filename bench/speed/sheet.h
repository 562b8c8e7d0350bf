// The sheet of most drawings, and places on it.
#pragma once

#include <cstdint>

#include "bench/speed/drawing_file.h"

namespace hexlume::bench {

// In mm. A sheet of this width fits A0 whatever its height, so the drawing isn't scaled.
constexpr double sheetWidth = 800, sheetHeight = 500;

// The place of the i-th small item, in rows over the sheet.
inline double ColumnOf(int64_t i) {
  return static_cast<double>(i % 780);
}
inline double RowOf(int64_t i) {
  return static_cast<double>(i / 780 % 480);
}

// Layer 0.
inline void LayerTable(DrawingFile& file) {
  file.Text(0, "TABLE");
  file.Text(2, "LAYER");
  file.Text(0, "LAYER");
  file.Text(2, "0");
  file.Whole(62, 7);
}

inline void BeginEntities(DrawingFile& file, double height = sheetHeight) {
  file.Header(sheetWidth, height);
  file.BeginSection("ENTITIES");
}

}  // namespace hexlume::bench
