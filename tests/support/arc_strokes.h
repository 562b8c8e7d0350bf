// What arcs and circles leave in a metafile, as text.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

#include "support/converter_test.h"

namespace hexlume {

// The pen and the hollow brush that an entity holds around its own strokes.
inline std::string InPenAndBrush(const std::string& style, int32_t width, COLORREF color,
                                 const std::string& calls) {
  char pen[64];
  std::snprintf(pen, sizeof pen, "%s, %d, 0x%06X", style.c_str(), static_cast<int>(width),
                static_cast<unsigned>(color));
  return "CreatePen(1, " + std::string(pen) + ")\nSelectObject(1)\nSelectObject(NULL_BRUSH)\n" + calls +
         "SelectObject(WHITE_BRUSH)\nSelectObject(BLACK_PEN)\nDeleteObject(1)\n";
}

// Strokes in a solid pen of their own, within that pen.
inline std::string InInnerPen(COLORREF color, const std::string& calls) {
  char pen[64];
  std::snprintf(pen, sizeof pen, "CreatePen(2, PS_SOLID, 0, 0x%06X)\n", static_cast<unsigned>(color));
  return pen + ("SelectObject(2)\n" + calls) + "SelectObject(1)\nDeleteObject(2)\n";
}

// A solid arc, or a circle of a block, as it is drawn on all systems but one.
inline std::string HeldArc(COLORREF color, const std::string& calls, const std::string& style = "PS_SOLID",
                           int32_t width = 0) {
  return InPenAndBrush(style, width, color, InInnerPen(color, calls));
}

}  // namespace hexlume
