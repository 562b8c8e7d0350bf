// Texts of a metafile.
#pragma once

#include <cstdint>
#include <vector>

#include "tools/hexlume/metafile/player_canvas.h"
#include "tools/hexlume/metafile/player_face.h"

namespace hexlume {

// A character, and its advance in logical units if the metafile has one.
struct TextCharacter {
  uint32_t codePoint;
  double advance;
};

struct PlayerText {
  std::vector<TextCharacter> characters;
  bool hasAdvances = false;
  uint32_t align = 0;  // of SetTextAlign
  uint32_t color = 0;
  bool opaque = false;  // with a white background
};

// The position of a text on the context.
struct TextPlace {
  Point reference;
  double angle;  // of the baseline: radians, clockwise
  double unit;   // length of a logical unit
};

void PaintText(PlayerCanvas& canvas, const PlayerFont& font, const PlayerText& text, const TextPlace& place);

}  // namespace hexlume
