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

  // A character's advance in the face's units.
  virtual int32_t Advance(char16_t character) const = 0;

 protected:
  FaceMeasures measures = {};
};

// The face for a font: the one of its name, if that has Japanese characters where the font's set of
// characters asks for them, otherwise a Japanese Gothic of fixed pitch, or what comes nearest to one. A
// system without any font has a face too, whose characters fill an em or half of it. The last few faces are
// kept, so the reference is for use at once.
const FontFace& FaceOf(const LOGFONTA& font);

}  // namespace hexlume
