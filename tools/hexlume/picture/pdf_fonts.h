// The fonts of a PDF file: the outlines of the glyphs that its texts use, as fonts of type 3. Each glyph has the
// character that it shows, so texts can be searched and copied.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tools/hexlume/metafile/player_face.h"
#include "tools/hexlume/picture/pdf_file.h"

namespace hexlume {

// The place of a glyph: a font's number and a code in it.
struct PdfGlyph {
  size_t font;
  uint8_t code;
  int width;  // thousandths of the em
};

class PdfFonts {
 public:
  PdfGlyph GlyphOf(const PlayerFace& face, uint32_t codePoint, unsigned long index);

  // Writes the fonts, and the dictionary in which their names are F0, F1, ... as this object.
  void Write(PdfFile& file, int object) const;

 private:
  struct Member {
    uint32_t codePoint;
    unsigned long index;
    int width;
  };
  // A font has 256 codes. A face with more glyphs has several.
  struct Font {
    const PlayerFace* face;
    std::vector<Member> members;
  };

  static void WriteFont(PdfFile& file, int object, const Font& font);

  std::vector<Font> fonts;
  std::map<const PlayerFace*, size_t> openFonts;  // with room for more
  std::map<std::pair<const PlayerFace*, uint32_t>, PdfGlyph> glyphs;
};

}  // namespace hexlume
