// The listings of MTEXT and stacked fractions.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "canvas/canvas.h"

namespace hexlume {

// The fields of a text's font that vary.
struct TextFont {
  int32_t height = 1100;
  int32_t width = 0;
  int32_t escapement = 3600;
  int32_t orientation = 0;
  int32_t italic = 0;
  std::string face = {};
};

inline std::string SelectCalls(const TextFont& font) {
  return "CreateFont(1, " + std::to_string(font.height) + ", " + std::to_string(font.width) + ", " +
         std::to_string(font.escapement) + ", " + std::to_string(font.orientation) + ", 0, " +
         std::to_string(font.italic) + ", 0, 0, 128, 0, 16, 0, 0, \"" + font.face + "\")\nSelectObject(1)\n";
}

constexpr char restoreCalls[] = "SelectObject(SYSTEM_FONT)\nDeleteObject(1)\n";

inline std::string AlignCall(int32_t align) {
  return "SetTextAlign(" + std::to_string(align) + ")\n";
}

constexpr int32_t noAlign = -1;

inline std::string ColorCall(const std::string& color) {
  return "SetTextColor(" + color + ")\n";
}

inline std::string TextOutCall(int32_t x, int32_t y, const std::string& text) {
  return "ExtTextOutW(" + std::to_string(x) + ", " + std::to_string(y) + ", 0, \"" + text + "\")\n";
}

// A font that is created, measured and deleted.
inline std::string MeasureCalls(const TextFont& font) {
  return SelectCalls(font) + restoreCalls;
}

// A paragraph without the calls that set its alignment. Its first font, to measure, has the previous
// paragraph's width, the second one drawnWidth.
inline std::string ParagraphCalls(TextFont font, int32_t drawnWidth, int32_t x, int32_t y,
                                  const std::string& text, const std::string& color = "0x000000") {
  const std::string measuring = MeasureCalls(font);
  font.width = drawnWidth;
  return measuring + SelectCalls(font) + ColorCall(color) + "SetBkMode(TRANSPARENT)\n" +
         TextOutCall(x, y, text) + restoreCalls;
}

// Paragraphs "A", "B", "C" and so on at these points. Each sets alignment 8, then align unless it is noAlign.
inline std::string LineCalls(TextFont font, int32_t drawnWidth, int32_t align,
                             const std::vector<POINT>& points) {
  std::string calls;
  char letter = 'A';
  for (const POINT& point : points) {
    calls += AlignCall(8) + (align == noAlign ? "" : AlignCall(align)) +
             ParagraphCalls(font, drawnWidth, point.x, point.y, std::string(1, letter++));
    font.width = drawnWidth;
  }
  return calls;
}

}  // namespace hexlume
