// The face that replaces a font of Windows.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "tools/hexlume/metafile/player_path.h"

namespace hexlume {

// A font as described in a metafile.
struct PlayerFont {
  int32_t height = 0;      // logical units: of the cell if positive, of the em if negative, default if 0
  int32_t width = 0;       // average character width, 0 for the face's own
  int32_t escapement = 0;  // tenths of a degree
  int32_t weight = 400;
  bool italic = false, underline = false, strikeOut = false;
  bool japanese = true;  // of the Japanese character set
  std::string face;      // UTF-8; empty for the system font
};

struct FreeCairo {
  void operator()(cairo_font_face_t* face) const { cairo_font_face_destroy(face); }
  void operator()(cairo_scaled_font_t* font) const { cairo_scaled_font_destroy(font); }
};

// A glyph and its advance, relative to the em.
struct FaceGlyph {
  unsigned long index;
  double advance;
};

// All measures are relative to the em.
class PlayerFace {
 public:
  // Selects the font's own face if it is installed, otherwise a Japanese Gothic of fixed pitch or the nearest
  // match. Without any font the face is empty.
  explicit PlayerFace(const PlayerFont& font);

  bool IsEmpty() const { return !face; }
  cairo_font_face_t* Cairo() const { return face.get(); }

  double Ascent() const { return ascent; }
  double Descent() const { return descent; }  // below the baseline, positive
  double AverageWidth() const { return averageWidth; }
  double UnderlineDepth() const { return underlineDepth; }  // of its middle, below the baseline
  double StrikeOutHeight() const { return strikeOutHeight; }
  double LineThickness() const { return lineThickness; }

  // The family's name, for files that name fonts instead of containing them.
  const std::string& Family() const { return family; }

  FaceGlyph Glyph(uint32_t codePoint) const;
  // Returns the outline of a glyph in thousandths of the em, Y downward; empty for a blank.
  PlayerPath Outline(unsigned long index) const;

 private:
  void Measure();
  FaceGlyph FindGlyph(uint32_t codePoint) const;

  std::unique_ptr<cairo_font_face_t, FreeCairo> face;
  std::unique_ptr<cairo_scaled_font_t, FreeCairo> unit;  // to look up glyphs
  mutable std::unordered_map<uint32_t, FaceGlyph> glyphs;
  std::string family;
  double ascent = 0.8, descent = 0.2, averageWidth = 0.5;
  double underlineDepth = 0.1, strikeOutHeight = 0.3, lineThickness = 0.05;
};

// Faces are kept for the pictures to come.
const PlayerFace& FaceOf(const PlayerFont& font);

}  // namespace hexlume
