#include "tools/hexlume/metafile/player_face.h"

#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <map>
#include <tuple>

#include "platform/portable/font_memory.h"
#include "platform/portable/gothic_families.h"

namespace hexlume {
namespace {

struct FreeObjectSet {
  void operator()(FcObjectSet* set) const { FcObjectSetDestroy(set); }
};
struct FreeFontSet {
  void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};
struct FreePattern {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, FreePattern>;

void AddFamily(FcPattern* pattern, const char* family) {
  CheckFontMemory(FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family)));
}

void AddJapanese(FcPattern* pattern) {
  CheckFontMemory(FcPatternAddString(pattern, FC_LANG, reinterpret_cast<const FcChar8*>("ja")));
}

Pattern EmptyPattern() {
  Pattern pattern(FcPatternCreate());
  CheckFontMemory(pattern != nullptr);
  return pattern;
}

// Cairo's status of an object of a font. False for a font that can't be used.
bool IsUsable(cairo_status_t status) {
  CheckFontMemory(status != CAIRO_STATUS_NO_MEMORY);
  return status == CAIRO_STATUS_SUCCESS;
}

bool LoadGlyph(FT_Face face, unsigned long index) {
  const FT_Error error = FT_Load_Glyph(face, static_cast<FT_UInt>(index), FT_LOAD_NO_SCALE);
  CheckFontMemory(FT_ERROR_BASE(error) != FT_Err_Out_Of_Memory);
  return error == 0;
}

// Whether the font's face is installed, with Japanese characters if it needs them.
bool IsInstalled(const PlayerFont& font) {
  if (font.face.empty()) return false;
  const Pattern pattern = EmptyPattern();
  const std::unique_ptr<FcObjectSet, FreeObjectSet> file(
      FcObjectSetBuild(FC_FILE, static_cast<const char*>(nullptr)));
  CheckFontMemory(file != nullptr);
  AddFamily(pattern.get(), font.face.c_str());
  if (font.japanese) AddJapanese(pattern.get());
  const std::unique_ptr<FcFontSet, FreeFontSet> found(FcFontList(nullptr, pattern.get(), file.get()));
  CheckFontMemory(found != nullptr);
  return found->nfont > 0;
}

// Selects a face in the same way as the library, so that texts have the width that it measured.
Pattern PatternOf(const PlayerFont& font) {
  Pattern pattern = EmptyPattern();
  if (IsInstalled(font)) {
    AddFamily(pattern.get(), font.face.c_str());
  } else {
    for (const char* family : gothicFamilies) AddFamily(pattern.get(), family);
    AddJapanese(pattern.get());
    CheckFontMemory(FcPatternAddInteger(pattern.get(), FC_SPACING, FC_MONO));
  }
  const double weight = FcWeightFromOpenTypeDouble(std::clamp(font.weight, 1, 1000));
  const int slant = font.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN;
  CheckFontMemory(FcPatternAddDouble(pattern.get(), FC_WEIGHT, weight) &&
                  FcPatternAddInteger(pattern.get(), FC_SLANT, slant) &&
                  FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue));
  FcDefaultSubstitute(pattern.get());
  return pattern;
}

// Locks the face of a scaled font during the object's lifetime.
class LockedFace {
 public:
  explicit LockedFace(cairo_scaled_font_t* scaledFont)
      : font(scaledFont), face(cairo_ft_scaled_font_lock_face(scaledFont)) {}
  ~LockedFace() {
    if (face) cairo_ft_scaled_font_unlock_face(font);
  }
  LockedFace(const LockedFace&) = delete;
  LockedFace& operator=(const LockedFace&) = delete;

  FT_Face Get() const {
    return IsUsable(cairo_scaled_font_status(font)) && face && face->units_per_EM > 0 ? face : nullptr;
  }

 private:
  cairo_scaled_font_t* font;
  FT_Face face;
};

// Appends an outline to a path, in thousandths of the em.
class OutlineWriter {
 public:
  OutlineWriter(PlayerPath& outline, double unitsInAnEm) : path(outline), scale(1000 / unitsInAnEm) {}

  void Append(FT_Outline& outline) {
    constexpr FT_Outline_Funcs calls = {Move, Line, Conic, Cubic, 0, 0};
    FT_Outline_Decompose(&outline, &calls, this);
    if (begun) path.Close();
  }

 private:
  static OutlineWriter& Self(void* writer) { return *static_cast<OutlineWriter*>(writer); }

  Point At(const FT_Vector* place) const {
    return {static_cast<double>(place->x) * scale, -static_cast<double>(place->y) * scale};
  }

  static int Move(const FT_Vector* to, void* writer) {
    OutlineWriter& self = Self(writer);
    if (self.begun) self.path.Close();
    self.begun = true;
    self.current = self.At(to);
    self.path.MoveTo(self.current);
    return 0;
  }

  static int Line(const FT_Vector* to, void* writer) {
    OutlineWriter& self = Self(writer);
    self.current = self.At(to);
    self.path.LineTo(self.current);
    return 0;
  }

  // A curve with one control point has the same shape with two.
  static int Conic(const FT_Vector* control, const FT_Vector* to, void* writer) {
    OutlineWriter& self = Self(writer);
    const Point middle = self.At(control), from = self.current;
    self.current = self.At(to);
    const auto between = [&middle](Point end) {
      return Point{(end.x + 2 * middle.x) / 3, (end.y + 2 * middle.y) / 3};
    };
    self.path.CurveTo(between(from), between(self.current), self.current);
    return 0;
  }

  static int Cubic(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* writer) {
    OutlineWriter& self = Self(writer);
    self.current = self.At(to);
    self.path.CurveTo(self.At(control1), self.At(control2), self.current);
    return 0;
  }

  PlayerPath& path;
  double scale;
  Point current{0, 0};
  bool begun = false;
};

}  // namespace

PlayerFace::PlayerFace(const PlayerFont& font) {
  CheckFontRoom();
  const Pattern wanted = PatternOf(font);
  FcResult result = FcResultNoMatch;
  const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
  CheckFontMemory(found || !HasFonts(FcConfigGetFonts, nullptr));
  if (!found) return;
  FcChar8* name = nullptr;
  if (FcPatternGetString(found.get(), FC_FAMILY, 0, &name) == FcResultMatch)
    family = reinterpret_cast<const char*>(name);
  face.reset(cairo_ft_font_face_create_for_pattern(found.get()));
  const std::unique_ptr<cairo_font_options_t, void (*)(cairo_font_options_t*)> options(
      cairo_font_options_create(), cairo_font_options_destroy);
  cairo_matrix_t identity;
  cairo_matrix_init_identity(&identity);
  unit.reset(cairo_scaled_font_create(face.get(), &identity, &identity, options.get()));
  if (!IsUsable(cairo_scaled_font_status(unit.get()))) {
    face.reset();
    return;
  }
  Measure();
}

void PlayerFace::Measure() {
  const LockedFace locked(unit.get());
  const FT_Face ft = locked.Get();
  if (!ft) {
    face.reset();
    return;
  }
  const double em = ft->units_per_EM;
  ascent = ft->ascender / em;
  descent = -ft->descender / em;
  underlineDepth = -ft->underline_position / em;
  lineThickness = ft->underline_thickness / em;
  const auto* const windows = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(ft, FT_SFNT_OS2));
  if (!windows) return;
  // The cell of GDI.
  if (windows->usWinAscent + windows->usWinDescent > 0) {
    ascent = windows->usWinAscent / em;
    descent = windows->usWinDescent / em;
  }
  if (windows->xAvgCharWidth > 0) averageWidth = windows->xAvgCharWidth / em;
  strikeOutHeight = windows->yStrikeoutPosition / em;
}

FaceGlyph PlayerFace::Glyph(uint32_t codePoint) const {
  const auto found = glyphs.find(codePoint);
  return found != glyphs.end() ? found->second
                               : glyphs.emplace(codePoint, FindGlyph(codePoint)).first->second;
}

FaceGlyph PlayerFace::FindGlyph(uint32_t codePoint) const {
  const LockedFace locked(unit.get());
  const FT_Face ft = locked.Get();
  if (!ft) return {0, 0};
  const FT_UInt index = FT_Get_Char_Index(ft, codePoint);
  FT_Fixed advance = 0;
  if (LoadGlyph(ft, index)) advance = ft->glyph->advance.x;
  return {index, static_cast<double>(advance) / ft->units_per_EM};
}

PlayerPath PlayerFace::Outline(unsigned long index) const {
  PlayerPath path({100'000, 1});
  const LockedFace locked(unit.get());
  const FT_Face ft = locked.Get();
  if (!ft || !LoadGlyph(ft, index)) return path;
  if (ft->glyph->format == FT_GLYPH_FORMAT_OUTLINE)
    OutlineWriter(path, ft->units_per_EM).Append(ft->glyph->outline);
  return path;
}

const PlayerFace& FaceOf(const PlayerFont& font) {
  using Key = std::tuple<std::string, bool, bool, int32_t>;
  static std::map<Key, PlayerFace> faces;
  return faces.try_emplace({font.face, font.japanese, font.italic, font.weight}, font).first->second;
}

}  // namespace hexlume
