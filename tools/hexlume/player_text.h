// Texts of a metafile.
#pragma once

#include <cairo.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "tools/hexlume/player_face.h"
#include "tools/hexlume/player_path.h"

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

class TextPainter {
 public:
  void Paint(cairo_t* context, const PlayerFont& font, const PlayerText& text, const TextPlace& place);

 private:
  const PlayerFace& FaceOf(const PlayerFont& font);

  using FaceKey = std::tuple<std::string, bool, bool, int32_t>;
  std::map<FaceKey, PlayerFace> faces;
};

// Sets the colour of the context from a COLORREF.
void SetColor(cairo_t* context, uint32_t color);

}  // namespace hexlume
