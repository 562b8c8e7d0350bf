// Font files: which of them stands for a LOGFONT, and what it measures.
#pragma once

#include <cstdint>

#include "platform/gdi.h"

namespace hexlume {

// In units of the face's own grid.
struct FaceMeasures {
  int32_t unitsPerEm;
  int32_t ascent;
  int32_t descent;
  int32_t averageWidth;
  int32_t boxWidth;  // of the box that holds every glyph
  bool isFixedPitch;
};

class FontFace {
 public:
  virtual ~FontFace() = default;

  const FaceMeasures& Measures() const { return measures; }

  // A character's advance at an em of so many pixels, in 64ths of a pixel.
  virtual int64_t Advance(char16_t character, int ppem) const = 0;

 protected:
  FaceMeasures measures = {};
};

// The face for a font: the one of its name, if that has Japanese characters where the font's set of
// characters asks for them, otherwise a Japanese Gothic of fixed pitch, or what comes nearest to one. A name
// with an "@" before it asks for the face of vertical text; a family that isn't there, or isn't Japanese, is
// then replaced by the Japanese one whose name comes first in the alphabet. A system without any font has a
// face too, whose characters fill an em or half of it. The last few faces are kept, so the reference is for
// use at once.
const FontFace& FaceOf(const LOGFONTA& font);

}  // namespace hexlume
