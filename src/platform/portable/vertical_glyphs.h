// Vertical text: the glyphs of a font file for it, and which characters are upright in it.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

namespace hexlume {

// Whether the character is upright in vertical text. All others are rotated with the line.
bool StandsUpright(char16_t character);

// The substitutions of glyphs in vertical text: the feature "vrt2" or "vert" for Japanese in a font's GSUB
// table. As in GDI, only substitutions of one glyph by one glyph are used.
class VerticalGlyphs {
 public:
  VerticalGlyphs() = default;
  explicit VerticalGlyphs(const std::vector<uint8_t>& gsubTable);

  // Returns the glyph for vertical text, or the same glyph if the font has no substitution.
  uint32_t Of(uint32_t glyph) const;

 private:
  std::map<uint32_t, uint32_t> substitutes;
};

}  // namespace hexlume
