// Faces of font files, measured through FreeType.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/gdi.h"
#include "platform/portable/font_face.h"
#include "platform/portable/free_type.h"

namespace hexlume {

struct LibraryCloser {
  void operator()(FT_Library library) const { FreeType().FT_Done_FreeType(library); }
};
struct FaceCloser {
  void operator()(FT_Face face) const { FreeType().FT_Done_Face(face); }
};
using FontLibrary = std::unique_ptr<FT_LibraryRec_, LibraryCloser>;
using OpenFace = std::unique_ptr<FT_FaceRec_, FaceCloser>;

// Null if FreeType can't be started.
FontLibrary OpenFontLibrary();

// True if a call of FreeType succeeded. Throws std::bad_alloc if it had no memory.
bool Succeeded(FT_Error error);

// Returns the face of an open font file. Without one, or if it lacks the measures that text needs, the face
// has characters of an em or half an em.
std::unique_ptr<FontFace> MakeFileFace(OpenFace opened, bool isVertical);

// Whether the font is for vertical text: its name has a leading "@".
bool IsVertical(const LOGFONTA& font);

// Appends a character of the basic plane.
void AppendUtf8(std::string& text, char16_t unit);

// The font's name in UTF-8, with its "@".
std::string Utf8Name(const LOGFONTA& font);

// The last few faces that drawings used, by name and character set.
class FaceRows {
 public:
  // Returns the face of a font. It is made first if it isn't there.
  const FontFace& Find(const LOGFONTA& font, const std::function<std::unique_ptr<FontFace>()>& make);

  void Clear() { rows.clear(); }

 private:
  struct Row {
    std::string name;
    BYTE charSet;
    std::unique_ptr<FontFace> face;
  };

  std::vector<Row> rows;
};

}  // namespace hexlume
