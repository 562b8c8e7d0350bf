#include "platform/portable/font_face.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_TRUETYPE_TABLES_H
#include FT_TRUETYPE_TAGS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/code_page_932.h"
#include "platform/portable/gothic_families.h"
#include "platform/portable/vertical_glyphs.h"

namespace hexlume {

namespace {

struct ConfigCloser {
  void operator()(FcConfig* config) const { FcConfigDestroy(config); }
};
struct LibraryCloser {
  void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct FaceCloser {
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};
struct PatternCloser {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
struct FontSetCloser {
  void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};
struct ObjectSetCloser {
  void operator()(FcObjectSet* set) const { FcObjectSetDestroy(set); }
};
using Config = std::unique_ptr<FcConfig, ConfigCloser>;
using Library = std::unique_ptr<FT_LibraryRec_, LibraryCloser>;
using OpenFace = std::unique_ptr<FT_FaceRec_, FaceCloser>;
using Pattern = std::unique_ptr<FcPattern, PatternCloser>;
using FontSet = std::unique_ptr<FcFontSet, FontSetCloser>;
using ObjectSet = std::unique_ptr<FcObjectSet, ObjectSetCloser>;

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
  if (FT_Load_Sfnt_Table(face, tag, 0, nullptr, &size) != 0) return {};
  std::vector<uint8_t> bytes(size);
  if (FT_Load_Sfnt_Table(face, tag, 0, bytes.data(), &size) != 0) return {};
  return bytes;
}

class FileFace : public FontFace {
 public:
  FileFace(OpenFace opened, bool isForVerticalText) : face(std::move(opened)), isVertical(isForVerticalText) {
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face.get(), FT_SFNT_OS2));
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
    const FT_UInt glyph = FT_Get_Char_Index(face.get(), character);
    if (!isVertical) return AdvanceAcross(glyph, ppem);
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

  int32_t UnitsOf(char16_t character) const { return UnitsAcross(FT_Get_Char_Index(face.get(), character)); }

  int32_t UnitsAcross(FT_UInt glyph) const {
    FT_Fixed advance = 0;
    if (FT_Get_Advance(face.get(), glyph, FT_LOAD_NO_SCALE, &advance) != 0) return measures.averageWidth;
    return static_cast<int32_t>(std::clamp<FT_Fixed>(advance, 0, INT16_MAX));
  }

  int64_t AdvanceAcross(FT_UInt glyph, int ppem) const {
    return SixtyFourths(UnitsAcross(glyph), ppem, measures.unitsPerEm);
  }

  // Asks the scaler, because it scales the top and the bottom of a glyph separately: the result differs from
  // the scaled advance.
  int64_t AdvanceDown(FT_UInt glyph, int ppem) const {
    if (FT_Set_Pixel_Sizes(face.get(), 0, static_cast<FT_UInt>(ppem)) != 0 ||
        FT_Load_Glyph(face.get(), glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0)
      return AdvanceAcross(glyph, ppem);
    return std::max<FT_Pos>(face->glyph->metrics.vertAdvance, 0);
  }

  OpenFace face;
  bool isVertical;
  VerticalGlyphs verticalGlyphs;
};

std::string Utf8Name(const LOGFONTA& font) {
  const char* const end = std::find(font.lfFaceName, font.lfFaceName + LF_FACESIZE, '\0');
  std::string name;
  for (const char16_t unit : Utf16Text(font.lfFaceName, static_cast<size_t>(end - font.lfFaceName))) {
    FcChar8 bytes[FC_UTF8_MAX_LEN];
    const int count = FcUcs4ToUtf8(unit, bytes);
    name.append(reinterpret_cast<const char*>(bytes), static_cast<size_t>(count));
  }
  return name;
}

void AddFamily(FcPattern* pattern, const char* family) {
  FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
}

void AddLanguage(FcPattern* pattern) {
  FcPatternAddString(pattern, FC_LANG, reinterpret_cast<const FcChar8*>("ja"));
}

Pattern ScalablePattern() {
  Pattern pattern(FcPatternCreate());
  if (pattern) FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
  return pattern;
}

bool IsInstalled(FcConfig* config, const std::string& family, bool inJapanese) {
  const Pattern pattern = ScalablePattern();
  const ObjectSet objects(FcObjectSetBuild(FC_FILE, static_cast<const char*>(nullptr)));
  if (!pattern || !objects) return false;
  AddFamily(pattern.get(), family.c_str());
  if (inJapanese) AddLanguage(pattern.get());
  const FontSet found(FcFontList(config, pattern.get(), objects.get()));
  return found && found->nfont > 0;
}

Pattern PatternOfFamily(const std::string& family) {
  Pattern pattern = ScalablePattern();
  if (pattern) AddFamily(pattern.get(), family.c_str());
  return pattern;
}

// The pattern asks for one of the Gothics, then for any Japanese font, those of fixed pitch first.
Pattern PatternOfGothic(FcConfig* config) {
  Pattern pattern = ScalablePattern();
  if (!pattern) return pattern;
  for (const char* family : gothicFamilies) AddFamily(pattern.get(), family);
  AddFamily(pattern.get(), "monospace");
  AddLanguage(pattern.get());
  FcPatternAddInteger(pattern.get(), FC_SPACING, FC_MONO);
  FcConfigSubstitute(config, pattern.get(), FcMatchPattern);
  return pattern;
}

// Returns a family's Japanese name, or its first name if it has none.
std::string JapaneseNameOf(FcPattern* font) {
  FcChar8* name = nullptr;
  FcChar8* language = nullptr;
  FcPatternGetString(font, FC_FAMILY, 0, &name);
  for (int i = 0; FcPatternGetString(font, FC_FAMILYLANG, i, &language) == FcResultMatch; ++i) {
    if (FcStrCmp(language, reinterpret_cast<const FcChar8*>("ja")) == 0)
      FcPatternGetString(font, FC_FAMILY, i, &name);
  }
  return name ? reinterpret_cast<const char*>(name) : "";
}

bool ComesBefore(const std::string& name, const std::string& other) {
  return FcStrCmpIgnoreCase(reinterpret_cast<const FcChar8*>(name.c_str()),
                            reinterpret_cast<const FcChar8*>(other.c_str())) < 0;
}

// Returns the Japanese family that is first in alphabetical order, or an empty string if there is none.
std::string FirstJapaneseFamily(FcConfig* config) {
  const Pattern pattern = ScalablePattern();
  const ObjectSet objects(FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, static_cast<const char*>(nullptr)));
  if (!pattern || !objects) return {};
  AddLanguage(pattern.get());
  const FontSet found(FcFontList(config, pattern.get(), objects.get()));
  std::string first;
  for (int i = 0; found && i < found->nfont; ++i) {
    const std::string name = JapaneseNameOf(found->fonts[i]);
    if (first.empty() || ComesBefore(name, first)) first = name;
  }
  return first;
}

bool IsVertical(const LOGFONTA& font) {
  return font.lfFaceName[0] == '@';
}

// A missing or non-Japanese family is replaced by the first Japanese one, whatever its pitch.
Pattern PatternOfVertical(FcConfig* config, const std::string& family) {
  if (!family.empty() && IsInstalled(config, family, true)) return PatternOfFamily(family);
  const std::string first = FirstJapaneseFamily(config);
  return first.empty() ? PatternOfGothic(config) : PatternOfFamily(first);
}

Pattern PatternFor(FcConfig* config, const LOGFONTA& font) {
  const std::string name = Utf8Name(font);
  if (IsVertical(font)) return PatternOfVertical(config, name.substr(1));
  const bool inJapanese = font.lfCharSet == SHIFTJIS_CHARSET;
  const bool isNamed = !name.empty() && IsInstalled(config, name, inJapanese);
  return isNamed ? PatternOfFamily(name) : PatternOfGothic(config);
}

OpenFace OpenBestMatch(FcConfig* config, FT_Library library, FcPattern* pattern) {
  FcDefaultSubstitute(pattern);
  FcResult result = FcResultNoMatch;
  const Pattern match(FcFontMatch(config, pattern, &result));
  FcChar8* file = nullptr;
  int index = 0;
  if (!match || FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch) return nullptr;
  FcPatternGetInteger(match.get(), FC_INDEX, 0, &index);
  FT_Face face = nullptr;
  FT_New_Face(library, reinterpret_cast<const char*>(file), index & 0xFFFF, &face);
  return OpenFace(face);
}

std::unique_ptr<FontFace> MakeFace(FcConfig* config, FT_Library library, const LOGFONTA& font) {
  if (!config || !library) return std::make_unique<PlainFace>();
  const Pattern pattern = PatternFor(config, font);
  OpenFace opened = pattern ? OpenBestMatch(config, library, pattern.get()) : nullptr;
  if (!opened) return std::make_unique<PlainFace>();
  auto face = std::make_unique<FileFace>(std::move(opened), IsVertical(font));
  if (!face->IsUsable()) return std::make_unique<PlainFace>();
  return face;
}

Library OpenLibrary() {
  FT_Library library = nullptr;
  FT_Init_FreeType(&library);
  return Library(library);
}

// Enough for the few faces that drawings use.
constexpr size_t mostFaces = 16;

struct FaceRow {
  std::string name;
  BYTE charSet;
  std::unique_ptr<FontFace> face;
};

// A private configuration, so that the host's isn't changed. The library must be closed after the faces,
// hence the order of the fields.
struct FaceCache {
  Config config{FcInitLoadConfigAndFonts()};
  Library library = OpenLibrary();
  std::vector<FaceRow> rows;

  const FontFace& Find(const LOGFONTA& font) {
    const char* const end = std::find(font.lfFaceName, font.lfFaceName + LF_FACESIZE, '\0');
    std::string name(font.lfFaceName, end);
    for (const FaceRow& row : rows) {
      if (row.charSet == font.lfCharSet && row.name == name) return *row.face;
    }
    if (rows.size() == mostFaces) rows.erase(rows.begin());
    rows.push_back({std::move(name), font.lfCharSet, MakeFace(config.get(), library.get(), font)});
    return *rows.back().face;
  }
};

}  // namespace

const FontFace& FaceOf(const LOGFONTA& font) {
  static FaceCache cache;
  return cache.Find(font);
}

}  // namespace hexlume
