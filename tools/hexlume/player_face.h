// The face of a font on a system without GDI's own.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <string>

namespace hexlume {

// What a metafile asks for.
struct PlayerFont {
  int32_t height = 0;  // logical units: positive a cell's, negative a character's without its leading, 0 any
  int32_t width = 0;   // the average character's, 0 the face's own
  int32_t escapement = 0;  // tenths of a degree
  int32_t weight = 400;
  bool italic = false, underline = false, strikeOut = false;
  bool japanese = true;  // its characters' set
  std::string face;      // UTF-8; empty: the system's own
};

struct FreeCairo {
  void operator()(cairo_font_face_t* face) const { cairo_font_face_destroy(face); }
  void operator()(cairo_scaled_font_t* font) const { cairo_scaled_font_destroy(font); }
};

// A glyph and how far it moves the text, as a part of the character height.
struct FaceGlyph {
  unsigned long index;
  double advance;
};

// Measures are parts of the character height (the em).
class PlayerFace {
 public:
  // The font's own face if it is installed, otherwise a Japanese Gothic of fixed pitch or what comes nearest.
  // Without any font the face is empty.
  explicit PlayerFace(const PlayerFont& font);

  bool IsEmpty() const { return !face; }
  cairo_font_face_t* Cairo() const { return face.get(); }

  double Ascent() const { return ascent; }
  double Descent() const { return descent; }  // below the baseline, positive
  double AverageWidth() const { return averageWidth; }
  double UnderlineDepth() const { return underlineDepth; }  // of its middle, below the baseline
  double StrikeOutHeight() const { return strikeOutHeight; }
  double LineThickness() const { return lineThickness; }

  FaceGlyph Glyph(uint32_t codePoint) const;

 private:
  void Measure();

  std::unique_ptr<cairo_font_face_t, FreeCairo> face;
  std::unique_ptr<cairo_scaled_font_t, FreeCairo> unit;  // to look glyphs up in
  double ascent = 0.8, descent = 0.2, averageWidth = 0.5;
  double underlineDepth = 0.1, strikeOutHeight = 0.3, lineThickness = 0.05;
};

}  // namespace hexlume
