// The listing of a drawn TEXT.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/gdi.h"

namespace hexlume {

// MS Gothic in full-width letters and katakana, in UTF-8 as in a listing.
constexpr char gothicListed[] = "\xEF\xBC\xAD\xEF\xBC\xB3 \xE3\x82\xB4\xE3\x82\xB7\xE3\x83\x83\xE3\x82\xAF";

struct TextCall {
  std::string text = "AB";
  int32_t height = 220, width = 0;
  int32_t escapement = 0, orientation = 0, italic = 0;
  std::string face = gothicListed;
  COLORREF color = 0;
  int32_t x = 3000, y = -4000;
  int32_t handle = 1;                    // of the font, in the metafile
  std::string previous = "SYSTEM_FONT";  // the font selected before
};

inline TextCall WithText(TextCall call, const std::string& text) {
  call.text = text;
  return call;
}
inline TextCall Sized(TextCall call, int32_t height, int32_t width) {
  call.height = height;
  call.width = width;
  return call;
}
inline TextCall Leaning(TextCall call, int32_t escapement) {
  call.escapement = escapement;
  return call;
}
inline TextCall Colored(TextCall call, COLORREF color) {
  call.color = color;
  return call;
}
inline TextCall PlacedAt(TextCall call, int32_t x, int32_t y) {
  call.x = x;
  call.y = y;
  return call;
}

// The font alone: the listing of a text that is too wide for the view. The font is left selected.
inline std::string FontListing(const TextCall& call) {
  char font[160];
  std::snprintf(font, sizeof font, "CreateFont(%d, %d, %d, %d, %d, 0, %d, 0, 0, 128, 0, 16, 0, 0, \"%s\")\n",
                static_cast<int>(call.handle), static_cast<int>(call.height), static_cast<int>(call.width),
                static_cast<int>(call.escapement), static_cast<int>(call.orientation),
                static_cast<int>(call.italic), call.face.c_str());
  return font + ("SelectObject(" + std::to_string(call.handle)) + ")\n";
}

inline std::string Listing(const TextCall& call) {
  char color[40];
  std::snprintf(color, sizeof color, "SetTextColor(0x%06X)\n", static_cast<unsigned>(call.color));
  return FontListing(call) + color + "SetTextAlign(8)\nSetBkMode(TRANSPARENT)\nExtTextOutW(" +
         std::to_string(call.x) + ", " + std::to_string(call.y) + ", 0, \"" + call.text +
         "\")\nSelectObject(" + call.previous + ")\nDeleteObject(" + std::to_string(call.handle) + ")\n";
}

}  // namespace hexlume
