#include "platform/portable/file_face.h"

#include FT_TRUETYPE_TAGS_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>
#include <utility>

#include "platform/code_page_932.h"
#include "platform/portable/vertical_glyphs.h"

namespace hexlume {

namespace {

int64_t SixtyFourths(int64_t units, int ppem, int32_t unitsPerEm) {
  return (2 * 64 * units * ppem + unitsPerEm) / (2 * unitsPerEm);
}

// Used if there is no font file.
class PlainFace : public FontFace {
 public:
  PlainFace() { measures = {1000, 880, 120, 500, 1000, true}; }

  int64_t Advance(char16_t character, int ppem) const override {
    const bool isHalfWidth = character < 0x1100 || (character >= 0xFF61 && character <= 0xFFDC);
    return SixtyFourths(isHalfWidth ? 500 : 1000, ppem, measures.unitsPerEm);
  }
};

std::vector<uint8_t> TableOf(FT_Face face, FT_ULong tag) {
  FT_ULong size = 0;
  if (!Succeeded(FreeType().FT_Load_Sfnt_Table(face, tag, 0, nullptr, &size))) return {};
  std::vector<uint8_t> bytes(size);
  if (!Succeeded(FreeType().FT_Load_Sfnt_Table(face, tag, 0, bytes.data(), &size))) return {};
  return bytes;
}

constexpr int32_t unknownUnits = -1;

// The advances of characters that were asked for before. At most 256 KB for a face.
class KeptUnits {
 public:
  int32_t& operator[](char16_t character) {
    std::unique_ptr<Page>& page = pages[character >> 8];
    if (!page) {
      page = std::make_unique<Page>();
      page->fill(unknownUnits);
    }
    return (*page)[character & 0xFF];
  }

 private:
  using Page = std::array<int32_t, 256>;
  std::array<std::unique_ptr<Page>, 256> pages;
};

class FileFace : public FontFace {
 public:
  FileFace(OpenFace opened, bool isForVerticalText) : face(std::move(opened)), isVertical(isForVerticalText) {
    const auto* os2 = static_cast<const TT_OS2*>(FreeType().FT_Get_Sfnt_Table(face.get(), FT_SFNT_OS2));
    measures.unitsPerEm = face->units_per_EM;
    measures.ascent = face->ascender;
    measures.descent = -face->descender;
    measures.averageWidth = face->max_advance_width;
    if (os2 && os2->usWinAscent + os2->usWinDescent != 0) {
      measures.ascent = os2->usWinAscent;
      measures.descent = os2->usWinDescent;
    }
    if (os2 && os2->xAvgCharWidth > 0) measures.averageWidth = os2->xAvgCharWidth;
    measures.boxWidth = static_cast<int32_t>(face->bbox.xMax - face->bbox.xMin);
    measures.isFixedPitch = IsFixedPitch();
    if (isVertical) verticalGlyphs = VerticalGlyphs(TableOf(face.get(), TTAG_GSUB));
  }

  // Whether the face has the measures that text needs.
  bool IsUsable() const { return measures.unitsPerEm > 0 && measures.ascent + measures.descent > 0; }

  // In vertical text, a character that has a vertical glyph or is upright advances downward.
  int64_t Advance(char16_t character, int ppem) const override {
    if (!isVertical) return SixtyFourths(UnitsOf(character), ppem, measures.unitsPerEm);
    const FT_UInt glyph = FreeType().FT_Get_Char_Index(face.get(), character);
    const FT_UInt verticalGlyph = verticalGlyphs.Of(glyph);
    const bool isUpright = verticalGlyph != glyph || StandsUpright(character);
    return isUpright && FT_HAS_VERTICAL(face.get()) ? AdvanceDown(verticalGlyph, ppem)
                                                    : AdvanceAcross(verticalGlyph, ppem);
  }

 private:
  // A Japanese face of fixed pitch has two widths, the wider of which is the em, so the font file may not be
  // marked as fixed-width.
  bool IsFixedPitch() const {
    if (FT_IS_FIXED_WIDTH(face.get())) return true;
    const int32_t narrow = UnitsOf('i');
    return narrow == UnitsOf('W') && narrow == UnitsOf(0xFF71);
  }

  int32_t UnitsOf(char16_t character) const {
    int32_t& units = keptUnits[character];
    if (units == unknownUnits) units = UnitsAcross(FreeType().FT_Get_Char_Index(face.get(), character));
    return units;
  }

  int32_t UnitsAcross(FT_UInt glyph) const {
    FT_Fixed advance = 0;
    if (!Succeeded(FreeType().FT_Get_Advance(face.get(), glyph, FT_LOAD_NO_SCALE, &advance)))
      return measures.averageWidth;
    return static_cast<int32_t>(std::clamp<FT_Fixed>(advance, 0, INT16_MAX));
  }

  int64_t AdvanceAcross(FT_UInt glyph, int ppem) const {
    return SixtyFourths(UnitsAcross(glyph), ppem, measures.unitsPerEm);
  }

  // Asks the scaler, because it scales the top and the bottom of a glyph separately: the result differs from
  // the scaled advance.
  int64_t AdvanceDown(FT_UInt glyph, int ppem) const {
    if (!Succeeded(FreeType().FT_Set_Pixel_Sizes(face.get(), 0, static_cast<FT_UInt>(ppem))) ||
        !Succeeded(FreeType().FT_Load_Glyph(face.get(), glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP)))
      return AdvanceAcross(glyph, ppem);
    return std::max<FT_Pos>(face->glyph->metrics.vertAdvance, 0);
  }

  OpenFace face;
  bool isVertical;
  mutable KeptUnits keptUnits;
  VerticalGlyphs verticalGlyphs;
};

// Enough for the few faces that drawings use.
constexpr size_t mostFaces = 16;

}  // namespace

bool Succeeded(FT_Error error) {
  if (FT_ERROR_BASE(error) == FT_Err_Out_Of_Memory) throw std::bad_alloc();
  return error == 0;
}

FontLibrary OpenFontLibrary() {
  FT_Library library = nullptr;
  FreeType().FT_Init_FreeType(&library);
  return FontLibrary(library);
}

std::unique_ptr<FontFace> MakeFileFace(OpenFace opened, bool isVertical) {
  if (!opened) return std::make_unique<PlainFace>();
  auto face = std::make_unique<FileFace>(std::move(opened), isVertical);
  if (!face->IsUsable()) return std::make_unique<PlainFace>();
  return face;
}

bool IsVertical(const LOGFONTA& font) {
  return font.lfFaceName[0] == '@';
}

void AppendUtf8(std::string& text, char16_t unit) {
  if (unit < 0x80) {
    text.push_back(static_cast<char>(unit));
    return;
  }
  if (unit < 0x800) {
    text.push_back(static_cast<char>(0xC0 | unit >> 6));
  } else {
    text.push_back(static_cast<char>(0xE0 | unit >> 12));
    text.push_back(static_cast<char>(0x80 | (unit >> 6 & 0x3F)));
  }
  text.push_back(static_cast<char>(0x80 | (unit & 0x3F)));
}

std::string Utf8Name(const LOGFONTA& font) {
  const char* const end = std::find(font.lfFaceName, font.lfFaceName + LF_FACESIZE, '\0');
  std::string name;
  for (const char16_t unit : Utf16Text(font.lfFaceName, static_cast<size_t>(end - font.lfFaceName)))
    AppendUtf8(name, unit);
  return name;
}

const FontFace& FaceRows::Find(const LOGFONTA& font, const std::function<std::unique_ptr<FontFace>()>& make) {
  const char* const end = std::find(font.lfFaceName, font.lfFaceName + LF_FACESIZE, '\0');
  const std::string_view name(font.lfFaceName, static_cast<size_t>(end - font.lfFaceName));
  for (const Row& row : rows) {
    if (row.charSet == font.lfCharSet && row.name == name) return *row.face;
  }
  if (rows.size() == mostFaces) rows.erase(rows.begin());
  rows.push_back({std::string(name), font.lfCharSet, make()});
  return *rows.back().face;
}

}  // namespace hexlume
