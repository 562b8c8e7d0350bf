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

inline void Layer(DrawingFile& file, const std::string& name, int64_t color) {
  file.Text(0, "LAYER");
  file.Text(2, name);
  file.Whole(62, color);
}

// Begins it, with layer 0.
inline void LayerTable(DrawingFile& file) {
  file.Text(0, "TABLE");
  file.Text(2, "LAYER");
  Layer(file, "0", 7);
}

// The section TABLES with layer 0 and one more.
inline void TablesOfLayer(DrawingFile& file, const std::string& name) {
  file.BeginSection("TABLES");
  LayerTable(file);
  Layer(file, name, 3);
  file.Text(0, "ENDTAB");
  file.EndSection();
}

inline void BeginEntities(DrawingFile& file, double height = sheetHeight) {
  file.Header(sheetWidth, height);
  file.BeginSection("ENTITIES");
}

}  // namespace hexlume::bench
