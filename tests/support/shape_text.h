// What the drawing operations of curves and filled quadrilaterals leave in a metafile, as text.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/gdi.h"

namespace hexlume {

inline std::string HexOf(COLORREF color) {
  char hex[16];
  std::snprintf(hex, sizeof hex, "0x%06X", static_cast<unsigned>(color));
  return hex;
}

inline std::string InStyledPen(COLORREF color, const std::string& style, int32_t width,
                               const std::string& calls) {
  return "CreatePen(1, " + style + ", " + std::to_string(width) + ", " + HexOf(color) +
         ")\nSelectObject(1)\n" + calls + "SelectObject(BLACK_PEN)\nDeleteObject(1)\n";
}

// points as the listing has them: "0, 0, 10, -10".
inline std::string Curve(COLORREF color, const std::string& points, const std::string& style = "PS_SOLID",
                         int32_t width = 0) {
  return InStyledPen(color, style, width, "PolyBezier(" + points + ")\n");
}

inline std::string FilledQuad(COLORREF color, const std::string& corners,
                              const std::string& style = "PS_SOLID") {
  return InStyledPen(color, style, 0,
                     "CreateBrushIndirect(2, BS_SOLID, " + HexOf(color) +
                         ", 0)\nSelectObject(2)\nSetPolyFillMode(ALTERNATE)\nPolygon(" + corners +
                         ")\nSelectObject(WHITE_BRUSH)\nDeleteObject(2)\n");
}

}  // namespace hexlume
