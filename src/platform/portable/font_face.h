// The font files that replace the faces of Windows, and their measures.
#pragma once

#include <cstdint>

#include "platform/gdi.h"

namespace hexlume {

// In font units.
struct FaceMeasures {
  int32_t unitsPerEm;
  int32_t ascent;
  int32_t descent;
  int32_t averageWidth;
  int32_t boxWidth;  // width of the box around all glyphs
  bool isFixedPitch;
};

class FontFace {
 public:
  FontFace() : number(++count) {}
  virtual ~FontFace() = default;
  FontFace(const FontFace&) = delete;
  FontFace& operator=(const FontFace&) = delete;

  // No other face of the process has it, even at the same address later.
  uint64_t Number() const { return number; }

  const FaceMeasures& Measures() const { return measures; }

  // Returns the advance of a character in 64ths of a pixel, at an em of ppem pixels.
  virtual int64_t Advance(char16_t character, int ppem) const = 0;

 protected:
  FaceMeasures measures = {};

 private:
  inline static uint64_t count = 0;
  uint64_t number;
};

// Returns the face for a font: the installed face of its name (which must have Japanese characters if the
// font's character set is Japanese), otherwise a Japanese Gothic of fixed pitch or the nearest match. A name
// with a leading "@" gives a face for vertical text; if that family is missing or isn't Japanese, the first
// Japanese family in alphabetical order is used. Without any font on the system, the face has characters of
// an em or half an em. Only the last few faces are kept, so the reference must be used at once.
const FontFace& FaceOf(const LOGFONTA& font);

}  // namespace hexlume
