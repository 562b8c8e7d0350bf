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

// A character and its share of the text's length in logical units, if the metafile tells it.
struct TextCharacter {
  uint32_t codePoint;
  double advance;
};

struct PlayerText {
  std::vector<TextCharacter> characters;
  bool hasAdvances = false;
  uint32_t align = 0;  // of SetTextAlign
  uint32_t colour = 0;
  bool opaque = false;  // on a white ground
};

// Where a text stands on the context.
struct TextPlace {
  Point reference;
  double angle;  // of the line of writing: radians, clockwise
  double unit;   // a logical unit
};

class TextPainter {
 public:
  void Paint(cairo_t* context, const PlayerFont& font, const PlayerText& text, const TextPlace& place);

 private:
  const PlayerFace& FaceOf(const PlayerFont& font);

  using FaceKey = std::tuple<std::string, bool, bool, int32_t>;
  std::map<FaceKey, PlayerFace> faces;
};

// The colour of the context from one of GDI's.
void SetColour(cairo_t* context, uint32_t colour);

}  // namespace hexlume
