// Vertical text: which glyphs a font file has for it, and which characters stand upright in it.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

namespace hexlume {

// Whether the character stands upright in vertical text. All others are turned with the line.
bool StandsUpright(char16_t character);

// The glyphs that take the place of others in vertical text, by the feature "vrt2" or "vert" that a font's
// table GSUB has for Japanese. As in GDI only substitutions of one glyph by one count.
class VerticalGlyphs {
 public:
  VerticalGlyphs() = default;
  explicit VerticalGlyphs(const std::vector<uint8_t>& gsubTable);

  // The glyph in vertical text: the same where the font has no other.
  uint32_t Of(uint32_t glyph) const;

 private:
  std::map<uint32_t, uint32_t> substitutes;
};

}  // namespace hexlume
