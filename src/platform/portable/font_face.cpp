#include "platform/portable/font_face.h"

#include <sys/stat.h>
#include <unistd.h>

#include <exception>
#include <memory>
#include <string>

#include "platform/fault_guard.h"
#include "platform/portable/file_face.h"
#include "platform/portable/font_libraries.h"
#include "platform/portable/font_memory.h"
#include "platform/portable/gothic_families.h"

namespace hexlume {

namespace {

struct ConfigCloser {
  void operator()(FcConfig* config) const { Fontconfig().FcConfigDestroy(config); }
};
struct PatternCloser {
  void operator()(FcPattern* pattern) const { Fontconfig().FcPatternDestroy(pattern); }
};
struct FontSetCloser {
  void operator()(FcFontSet* set) const { Fontconfig().FcFontSetDestroy(set); }
};
struct ObjectSetCloser {
  void operator()(FcObjectSet* set) const { Fontconfig().FcObjectSetDestroy(set); }
};
using Config = std::unique_ptr<FcConfig, ConfigCloser>;
using Pattern = std::unique_ptr<FcPattern, PatternCloser>;
using FontSet = std::unique_ptr<FcFontSet, FontSetCloser>;
using ObjectSet = std::unique_ptr<FcObjectSet, ObjectSetCloser>;

void AddFamily(FcPattern* pattern, const char* family) {
  CheckFontMemory(
      Fontconfig().FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family)));
}

void AddLanguage(FcPattern* pattern) {
  CheckFontMemory(Fontconfig().FcPatternAddString(pattern, FC_LANG, reinterpret_cast<const FcChar8*>("ja")));
}

Pattern ScalablePattern() {
  Pattern pattern(Fontconfig().FcPatternCreate());
  CheckFontMemory(pattern && Fontconfig().FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue));
  return pattern;
}

FontSet ListFonts(FcConfig* config, const Pattern& pattern, const ObjectSet& objects) {
  CheckFontMemory(objects != nullptr);
  FontSet found(Fontconfig().FcFontList(config, pattern.get(), objects.get()));
  CheckFontMemory(found != nullptr);
  return found;
}

bool IsInstalled(FcConfig* config, const std::string& family, bool inJapanese) {
  const Pattern pattern = ScalablePattern();
  const ObjectSet objects(Fontconfig().FcObjectSetBuild(FC_FILE, static_cast<const char*>(nullptr)));
  AddFamily(pattern.get(), family.c_str());
  if (inJapanese) AddLanguage(pattern.get());
  return ListFonts(config, pattern, objects)->nfont > 0;
}

Pattern PatternOfFamily(const std::string& family) {
  Pattern pattern = ScalablePattern();
  AddFamily(pattern.get(), family.c_str());
  return pattern;
}

// The pattern asks for one of the Gothics, then for any Japanese font, those of fixed pitch first.
Pattern PatternOfGothic(FcConfig* config) {
  Pattern pattern = ScalablePattern();
  for (const char* family : gothicFamilies) AddFamily(pattern.get(), family);
  AddFamily(pattern.get(), "monospace");
  AddLanguage(pattern.get());
  CheckFontMemory(Fontconfig().FcPatternAddInteger(pattern.get(), FC_SPACING, FC_MONO));
  CheckFontMemory(Fontconfig().FcConfigSubstitute(config, pattern.get(), FcMatchPattern));
  return pattern;
}

// Returns a family's Japanese name, or its first name if it has none.
std::string JapaneseNameOf(FcPattern* font) {
  FcChar8* name = nullptr;
  FcChar8* language = nullptr;
  Fontconfig().FcPatternGetString(font, FC_FAMILY, 0, &name);
  for (int i = 0; Fontconfig().FcPatternGetString(font, FC_FAMILYLANG, i, &language) == FcResultMatch; ++i) {
    if (Fontconfig().FcStrCmp(language, reinterpret_cast<const FcChar8*>("ja")) == 0)
      Fontconfig().FcPatternGetString(font, FC_FAMILY, i, &name);
  }
  return name ? reinterpret_cast<const char*>(name) : "";
}

bool ComesBefore(const std::string& name, const std::string& other) {
  return Fontconfig().FcStrCmpIgnoreCase(reinterpret_cast<const FcChar8*>(name.c_str()),
                                         reinterpret_cast<const FcChar8*>(other.c_str())) < 0;
}

// Returns the Japanese family that is first in alphabetical order, or an empty string if there is none.
std::string FirstJapaneseFamily(FcConfig* config) {
  const Pattern pattern = ScalablePattern();
  const ObjectSet objects(
      Fontconfig().FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, static_cast<const char*>(nullptr)));
  AddLanguage(pattern.get());
  const FontSet found = ListFonts(config, pattern, objects);
  std::string first;
  for (int i = 0; i < found->nfont; ++i) {
    const std::string name = JapaneseNameOf(found->fonts[i]);
    if (first.empty() || ComesBefore(name, first)) first = name;
  }
  return first;
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

// Whether a file that couldn't be opened is there and has bytes, so that the process has too many files open, for example.
bool IsReadable(const char* file) {
  struct stat facts;
  return stat(file, &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_size > 0 && access(file, R_OK) == 0;
}

// Null for a file that is gone or damaged: its font counts as none.
OpenFace OpenFontFile(FT_Library library, const char* file, int index) {
  FT_Face face = nullptr;
  const FT_Error error = FreeType().FT_New_Face(library, file, index & 0xFFFF, &face);
  OpenFace opened(face);
  if (Succeeded(error)) return opened;
  const FT_Error base = FT_ERROR_BASE(error);
  if (base == FT_Err_Cannot_Open_Resource || base == FT_Err_Cannot_Open_Stream)
    CheckFontMemory(!IsReadable(file));
  return nullptr;
}

OpenFace OpenBestMatch(FcConfig* config, FT_Library library, FcPattern* pattern) {
  Fontconfig().FcDefaultSubstitute(pattern);
  FcResult result = FcResultNoMatch;
  const Pattern match(Fontconfig().FcFontMatch(config, pattern, &result));
  CheckFontMemory(match || !HasFonts(Fontconfig().FcConfigGetFonts, config));
  FcChar8* file = nullptr;
  int index = 0;
  if (!match || Fontconfig().FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch)
    return nullptr;
  Fontconfig().FcPatternGetInteger(match.get(), FC_INDEX, 0, &index);
  return OpenFontFile(library, reinterpret_cast<const char*>(file), index);
}

// False for the configuration that fontconfig takes if it can't read the system's: that file isn't among its own.
bool IsWholeConfig(FcConfig* config) {
  FcChar8* const wanted = Fontconfig().FcConfigGetFilename(config, nullptr);
  FcStrList* const files = Fontconfig().FcConfigGetConfigFiles(config);
  bool isWhole = files && !wanted;
  while (const FcChar8* const file = files && !isWhole ? Fontconfig().FcStrListNext(files) : nullptr)
    isWhole = Fontconfig().FcStrCmp(file, wanted) == 0;
  if (files) Fontconfig().FcStrListDone(files);
  Fontconfig().FcStrFree(wanted);
  return isWhole;
}

Config LoadConfig() {
  Config config(Fontconfig().FcInitLoadConfigAndFonts());
  CheckFontMemory(config && IsWholeConfig(config.get()));
  return config;
}

// A private configuration, so that the host's isn't changed. The library must be closed after the faces,
// hence the order of the fields.
struct FaceCache {
  Config config;
  FontLibrary library;
  FaceRows rows;
  bool isBroken = false;  // after a fault within fontconfig or FreeType, which may keep a lock

  std::unique_ptr<FontFace> MakeFace(const LOGFONTA& font) {
    if (!config) config = LoadConfig();
    if (!library) library = OpenFontLibrary();
    CheckFontMemory(library != nullptr);
    const Pattern pattern = PatternFor(config.get(), font);
    return MakeFileFace(OpenBestMatch(config.get(), library.get(), pattern.get()), IsVertical(font));
  }

  // The faults of these libraries come from memory that they didn't get.
  std::unique_ptr<FontFace> MakeFaceGuarded(const LOGFONTA& font) {
    CheckFontMemory(!isBroken);
    CheckFontRoom();
    if (!HasFontLibraries()) return MakeFileFace(nullptr, IsVertical(font));
    std::unique_ptr<FontFace> face;
    isBroken = true;
    try {
      GuardFaults([&] {
        try {
          face = MakeFace(font);
        } catch (const std::exception&) {
        }
        isBroken = false;
      });
    } catch (int32_t) {
    }
    CheckFontMemory(face != nullptr);
    return face;
  }
};

}  // namespace

const FontFace& FaceOf(const LOGFONTA& font) {
  static FaceCache cache;
  return cache.rows.Find(font, [&font] { return cache.MakeFaceGuarded(font); });
}

}  // namespace hexlume
