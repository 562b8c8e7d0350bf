// The table of fonts that the page fills.
#include "platform/portable/font_face.h"

#include <ft2build.h>
#include FT_SFNT_NAMES_H
#include FT_TRUETYPE_IDS_H

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/portable/file_face.h"
#include "platform/portable/gothic_families.h"
#include "platform/web/font_table.h"

namespace hexlume {

namespace {

struct Font {
  std::vector<std::string> families;  // folded
  std::string sortName;               // the Japanese family in lower case
  bool isJapanese;
  bool isFixedPitch;
  const FT_Byte* bytes;  // the page's
  FT_Long size;
};

// The library must be closed after the faces, hence the order of the fields.
struct FontTable {
  FontLibrary library = OpenFontLibrary();
  FaceRows rows;
  std::vector<Font> fonts;
};

FontTable& Table() {
  static FontTable table;
  return table;
}

std::string LowerCase(const std::string& name) {
  std::string lower = name;
  for (char& byte : lower)
    if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
  return lower;
}

// Names of families are compared without blanks and case.
std::string Folded(const std::string& name) {
  std::string folded = LowerCase(name);
  folded.erase(std::remove(folded.begin(), folded.end(), ' '), folded.end());
  return folded;
}

bool IsAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

std::vector<std::string> Lines(const char* text) {
  std::vector<std::string> lines(1);
  for (; *text != '\0'; ++text) {
    if (*text == '\n')
      lines.emplace_back();
    else
      lines.back().push_back(*text);
  }
  lines.erase(std::remove(lines.begin(), lines.end(), ""), lines.end());
  return lines;
}

// The names of the family in the font file, in all its languages.
std::vector<std::string> FamiliesOf(FT_Face face) {
  std::vector<std::string> families;
  const FT_UInt count = FT_Get_Sfnt_Name_Count(face);
  for (FT_UInt i = 0; i < count; ++i) {
    FT_SfntName name;
    if (FT_Get_Sfnt_Name(face, i, &name) != 0 || name.platform_id != TT_PLATFORM_MICROSOFT) continue;
    if (name.name_id != TT_NAME_ID_FONT_FAMILY && name.name_id != TT_NAME_ID_TYPOGRAPHIC_FAMILY) continue;
    std::string family;
    for (FT_UInt at = 0; at + 1 < name.string_len; at += 2)
      AppendUtf8(family, static_cast<char16_t>(name.string[at] << 8 | name.string[at + 1]));
    families.push_back(std::move(family));
  }
  return families;
}

// Kana, and Chinese characters of both levels of the Japanese standard, the last one Japanese alone.
bool IsJapanese(FT_Face face) {
  constexpr FT_ULong characters[] = {0x3042, 0x30A2, 0x4E9C, 0x8155, 0x5F0C, 0x7464, 0x5CE0};
  return std::all_of(std::begin(characters), std::end(characters),
                     [face](FT_ULong character) { return FT_Get_Char_Index(face, character) != 0; });
}

// The first family whose name isn't in ASCII, otherwise the first.
std::string JapaneseNameOf(const std::vector<std::string>& families) {
  const auto name = std::find_if_not(families.begin(), families.end(), IsAscii);
  return name == families.end() ? families.front() : *name;
}

OpenFace Open(const FT_Byte* bytes, FT_Long size) {
  FT_Face face = nullptr;
  if (Table().library) FT_New_Memory_Face(Table().library.get(), bytes, size, 0, &face);
  return OpenFace(face);
}

const Font* FindFamily(const std::string& family, bool inJapanese) {
  const std::string sought = Folded(family);
  for (const Font& font : Table().fonts) {
    const bool has = std::find(font.families.begin(), font.families.end(), sought) != font.families.end();
    if (has && (font.isJapanese || !inJapanese)) return &font;
  }
  return nullptr;
}

// One of the Gothics, then any Japanese font, those of fixed pitch first, then any font.
const Font* FindGothic() {
  for (const char* family : gothicFamilies)
    if (const Font* font = FindFamily(family, false)) return font;
  const auto rank = [](const Font& font) { return 2 * font.isJapanese + font.isFixedPitch; };
  const std::vector<Font>& fonts = Table().fonts;
  const auto best =
      std::max_element(fonts.begin(), fonts.end(),
                       [&rank](const Font& font, const Font& other) { return rank(font) < rank(other); });
  return best == fonts.end() ? nullptr : &*best;
}

const Font* FindFirstJapanese() {
  const Font* first = nullptr;
  for (const Font& font : Table().fonts)
    if (font.isJapanese && (!first || font.sortName < first->sortName)) first = &font;
  return first;
}

const Font* FindVertical(const std::string& family) {
  const Font* font = FindFamily(family, true);
  if (!font) font = FindFirstJapanese();
  return font ? font : FindGothic();
}

const Font* FindFont(const LOGFONTA& logFont) {
  const std::string name = Utf8Name(logFont);
  if (IsVertical(logFont)) return FindVertical(name.substr(1));
  const Font* font = FindFamily(name, logFont.lfCharSet == SHIFTJIS_CHARSET);
  return font ? font : FindGothic();
}

}  // namespace

const FontFace& FaceOf(const LOGFONTA& logFont) {
  return Table().rows.Find(logFont, [&logFont] {
    const Font* const font = FindFont(logFont);
    return MakeFileFace(font ? Open(font->bytes, font->size) : nullptr, IsVertical(logFont));
  });
}

}  // namespace hexlume

using namespace hexlume;

void hexlume_fonts_clear(void) {
  Table().rows.Clear();
  Table().fonts.clear();
}

int32_t hexlume_fonts_add(const uint8_t* bytes, int32_t size, const char* families) {
  const OpenFace face = Open(bytes, size);
  if (!face) return 0;
  std::vector<std::string> names = Lines(families);
  for (std::string& family : FamiliesOf(face.get())) names.push_back(std::move(family));
  if (names.empty()) return 0;
  Font font = {{},
               LowerCase(JapaneseNameOf(names)),
               IsJapanese(face.get()),
               FT_IS_FIXED_WIDTH(face.get()) != 0,
               bytes,
               size};
  for (const std::string& name : names) font.families.push_back(Folded(name));
  Table().rows.Clear();
  Table().fonts.push_back(std::move(font));
  return 1;
}
