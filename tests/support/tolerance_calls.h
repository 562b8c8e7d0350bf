// What tolerances leave in a metafile, as text, for the tests of both scopes.
#pragma once

#include <string>

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"
#include "support/converter_test.h"

namespace hexlume {

// The strokes of a symbol 1000 high whose cell has its lower left at (5000, -7000) on the sheet: a stroke's
// place is 5000 + 1000 x, -7000 + 1000 y.
struct SymbolCase {
  char symbol;
  const char* name;
  double width;  // of the cell, in its heights
  const char* calls;
};

constexpr SymbolCase symbolCases[] = {
    {'a', "angularity", 1.2,
     "MoveToEx(6000, -6800)\n"
     "LineTo(5200, -6800)\n"
     "LineTo(6000, -6300)\n"},
    {'b', "perpendicularity", 1.5,
     "MoveToEx(6300, -6900)\n"
     "LineTo(5200, -6900)\n"
     "MoveToEx(5750, -6900)\n"
     "LineTo(5750, -6200)\n"},
    {'c', "flatness", 1.5,
     "MoveToEx(6100, -6800)\n"
     "LineTo(5200, -6800)\n"
     "LineTo(5400, -6200)\n"
     "LineTo(6300, -6200)\n"
     "LineTo(6100, -6800)\n"},
    {'d', "profile of a surface", 1.5,
     "MoveToEx(5200, -6800)\n"
     "AngleArc(5750, -6800, 550, 0, -180)\n"},
    {'e', "circularity", 1.25,
     "MoveToEx(6050, -6500)\n"
     "AngleArc(5625, -6500, 425, 0, 360)\n"},
    {'f', "parallelism", 1.2,
     "MoveToEx(5200, -6900)\n"
     "LineTo(5600, -6100)\n"
     "MoveToEx(5400, -6900)\n"
     "LineTo(5800, -6100)\n"},
    {'g', "cylindricity", 1.5,
     "MoveToEx(5200, -6900)\n"
     "LineTo(5600, -6100)\n"
     "MoveToEx(5900, -6900)\n"
     "LineTo(6300, -6100)\n"
     "MoveToEx(6050, -6500)\n"
     "AngleArc(5750, -6500, 300, 0, 360)\n"},
    {'h', "runout", 1.2,
     "MoveToEx(5200, -6900)\n"
     "LineTo(5700, -6400)\n"
     "MoveToEx(5600, -6300)\n"
     "LineTo(5800, -6500)\n"
     "LineTo(6000, -6100)\n"
     "LineTo(5600, -6300)\n"},
    {'i', "symmetry", 1.25,
     "MoveToEx(5200, -6500)\n"
     "LineTo(6050, -6500)\n"
     "MoveToEx(5400, -6800)\n"
     "LineTo(5850, -6800)\n"
     "MoveToEx(5400, -6200)\n"
     "LineTo(5850, -6200)\n"},
    {'j', "position", 1.25,
     "MoveToEx(5200, -6500)\n"
     "LineTo(6050, -6500)\n"
     "MoveToEx(5625, -6900)\n"
     "LineTo(5625, -6100)\n"
     "MoveToEx(5950, -6500)\n"
     "AngleArc(5625, -6500, 325, 0, 360)\n"},
    {'k', "profile of a line", 1.5,
     "MoveToEx(6300, -6800)\n"
     "AngleArc(5750, -6800, 550, 0, -180)\n"},
    {'l', "least material condition", 1.25,
     "MoveToEx(6050, -6500)\n"
     "AngleArc(5625, -6500, 425, 0, 360)\n"
     "SetTextAlign(8)\n"
     "ExtTextOutW(5450, -6850, 0, \"L\")\n"},
    {'m', "maximum material condition", 1.25,
     "MoveToEx(6050, -6500)\n"
     "AngleArc(5625, -6500, 425, 0, 360)\n"
     "SetTextAlign(8)\n"
     "ExtTextOutW(5450, -6850, 0, \"M\")\n"},
    {'n', "diameter", 1.0,
     "MoveToEx(5200, -6900)\n"
     "LineTo(5800, -6100)\n"
     "MoveToEx(5800, -6500)\n"
     "AngleArc(5500, -6500, 300, 0, 360)\n"},
    {'o', "square", 1.0,
     "MoveToEx(5200, -6800)\n"
     "LineTo(5200, -6200)\n"
     "LineTo(5800, -6200)\n"
     "LineTo(5800, -6800)\n"
     "LineTo(5200, -6800)\n"},
    {'p', "projected tolerance zone", 1.25,
     "MoveToEx(6050, -6500)\n"
     "AngleArc(5625, -6500, 425, 0, 360)\n"
     "SetTextAlign(8)\n"
     "ExtTextOutW(5450, -6850, 0, \"P\")\n"},
    {'q', "empty", 1.0, ""},
    {'r', "concentricity", 1.25,
     "MoveToEx(6050, -6500)\n"
     "AngleArc(5625, -6500, 425, 0, 360)\n"
     "MoveToEx(5850, -6500)\n"
     "AngleArc(5625, -6500, 225, 0, 360)\n"},
    {'s', "regardless of feature size", 1.25,
     "MoveToEx(6050, -6500)\n"
     "AngleArc(5625, -6500, 425, 0, 360)\n"
     "SetTextAlign(8)\n"
     "ExtTextOutW(5450, -6850, 0, \"S\")\n"},
    {'t', "total runout", 1.8,
     "MoveToEx(5700, -6400)\n"
     "LineTo(5200, -6900)\n"
     "LineTo(5700, -6900)\n"
     "LineTo(6200, -6400)\n"
     "MoveToEx(5600, -6300)\n"
     "LineTo(6000, -6100)\n"
     "LineTo(5800, -6500)\n"
     "LineTo(5600, -6300)\n"
     "MoveToEx(6100, -6300)\n"
     "LineTo(6500, -6100)\n"
     "LineTo(6300, -6500)\n"
     "LineTo(6100, -6300)\n"},
    {'u', "straightness", 1.5,
     "MoveToEx(5200, -6500)\n"
     "LineTo(6300, -6500)\n"},
    {'v', "counterbore", 1.5,
     "MoveToEx(5200, -6200)\n"
     "LineTo(5200, -6800)\n"
     "LineTo(6100, -6800)\n"
     "LineTo(6100, -6200)\n"},
    {'w', "countersink", 1.5,
     "MoveToEx(5200, -6300)\n"
     "LineTo(5750, -6800)\n"
     "LineTo(6300, -6300)\n"},
    {'x', "depth", 1.0,
     "MoveToEx(5200, -6100)\n"
     "LineTo(5800, -6100)\n"
     "MoveToEx(5500, -6100)\n"
     "LineTo(5500, -6800)\n"
     "MoveToEx(5300, -6300)\n"
     "LineTo(5500, -6800)\n"
     "LineTo(5700, -6300)\n"},
    {'y', "conical taper", 2.4,
     "MoveToEx(5200, -6200)\n"
     "LineTo(5200, -6800)\n"
     "LineTo(7000, -6800)\n"
     "LineTo(5200, -6200)\n"},
    {'z', "slope", 2.9,
     "MoveToEx(5200, -6500)\n"
     "LineTo(7500, -6500)\n"
     "MoveToEx(5400, -7000)\n"
     "LineTo(5400, -6000)\n"
     "LineTo(7300, -6500)\n"
     "LineTo(5400, -7000)\n"},
};

inline std::string NameOf(const SymbolCase& symbol) {
  std::string name = std::string(1, symbol.symbol) + "_is_" + symbol.name;
  for (char& character : name) {
    if (character == ' ') character = '_';
  }
  return name;
}

// The font of text in tolerances.
inline std::string ToleranceFont(int height, int handle) {
  return "CreateFont(" + std::to_string(handle) + ", " + std::to_string(height) +
         ", 0, 0, 0, 1, 0, 0, 0, 128, 0, 0, 2, 49, \"\")\nSelectObject(" + std::to_string(handle) + ")\n";
}

// A character in a font of its own.
inline std::string ToleranceCharacter(int height, int x, int y, const std::string& text) {
  return ToleranceFont(height, 1) + "SetTextAlign(8)\nExtTextOutW(" + std::to_string(x) + ", " +
         std::to_string(y) + ", 0, \"" + text + "\")\nSelectObject(SYSTEM_FONT)\nDeleteObject(1)\n";
}

// A box from its left bottom to its right top.
inline std::string ToleranceBox(COLORREF color, int left, int bottom, int right, int top) {
  const auto point = [](const char* call, int x, int y) {
    return call + ("(" + std::to_string(x)) + ", " + std::to_string(y) + ")\n";
  };
  return InPen(color, point("MoveToEx", left, top) + point("LineTo", left, bottom) +
                          point("LineTo", right, bottom) + point("LineTo", right, top) +
                          point("LineTo", left, top));
}

// textHeight with its scale, as the table keeps it.
inline void AddDimStyle(const char* name, double dimScale, double textHeight) {
  DimStyleEntry style = {};
  BoundedCopy(style.name, name);
  style.dimScale = dimScale;
  style.textHeight = textHeight;
  state.dimStyles.Add(style);
}

}  // namespace hexlume
