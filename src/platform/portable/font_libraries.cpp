#include "platform/portable/font_libraries.h"

#include <dlfcn.h>

#include <cerrno>
#include <cstring>
#include <new>
#include <string_view>

namespace hexlume {

namespace {

struct FontLibraries {
  bool areInstalled = false;
  FontconfigFunctions fontconfig = {};
  FreeTypeFunctions freeType = {};
};

// The loader says why it has failed only in words, of which the last are the system's for a missing file.
bool IsMissing(std::string_view reason) {
  const std::string_view missing = std::strerror(ENOENT);
  return reason.size() >= missing.size() && reason.substr(reason.size() - missing.size()) == missing;
}

// Returns null if the library, or one that it needs, isn't installed. It stays loaded when ours is unloaded, because it never
// frees some of its memory: each further load would leak it. No other library finds its functions by their names.
void* Load(const char* name) {
  void* const library = dlopen(name, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (!library && !IsMissing(dlerror())) throw std::bad_alloc();
  return library;
}

template <typename Function>
void Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  if (!function) throw std::bad_alloc();
}

#define FIND(library, functions, name) Find(library, #name, (functions).name)

void FindFontconfig(void* library, FontconfigFunctions& functions) {
  FIND(library, functions, FcConfigDestroy);
  FIND(library, functions, FcConfigGetConfigFiles);
  FIND(library, functions, FcConfigGetFilename);
  FIND(library, functions, FcConfigGetFonts);
  FIND(library, functions, FcConfigSubstitute);
  FIND(library, functions, FcDefaultSubstitute);
  FIND(library, functions, FcFontList);
  FIND(library, functions, FcFontMatch);
  FIND(library, functions, FcFontSetDestroy);
  FIND(library, functions, FcInitLoadConfigAndFonts);
  FIND(library, functions, FcObjectSetBuild);
  FIND(library, functions, FcObjectSetDestroy);
  FIND(library, functions, FcPatternAddBool);
  FIND(library, functions, FcPatternAddInteger);
  FIND(library, functions, FcPatternAddString);
  FIND(library, functions, FcPatternCreate);
  FIND(library, functions, FcPatternDestroy);
  FIND(library, functions, FcPatternGetInteger);
  FIND(library, functions, FcPatternGetString);
  FIND(library, functions, FcStrCmp);
  FIND(library, functions, FcStrCmpIgnoreCase);
  FIND(library, functions, FcStrFree);
  FIND(library, functions, FcStrListDone);
  FIND(library, functions, FcStrListNext);
}

void FindFreeType(void* library, FreeTypeFunctions& functions) {
  FIND(library, functions, FT_Done_Face);
  FIND(library, functions, FT_Done_FreeType);
  FIND(library, functions, FT_Get_Advance);
  FIND(library, functions, FT_Get_Char_Index);
  FIND(library, functions, FT_Get_Sfnt_Table);
  FIND(library, functions, FT_Init_FreeType);
  FIND(library, functions, FT_Load_Glyph);
  FIND(library, functions, FT_Load_Sfnt_Table);
  FIND(library, functions, FT_New_Face);
  FIND(library, functions, FT_Set_Pixel_Sizes);
}

#undef FIND

FontLibraries LoadBoth() {
  FontLibraries loaded;
  void* const fontconfig = Load("libfontconfig.so.1");
  void* const freeType = fontconfig ? Load("libfreetype.so.6") : nullptr;
  if (!freeType) return loaded;
  FindFontconfig(fontconfig, loaded.fontconfig);
  FindFreeType(freeType, loaded.freeType);
  loaded.areInstalled = true;
  return loaded;
}

const FontLibraries& Loaded() {
  static const FontLibraries libraries = LoadBoth();
  return libraries;
}

}  // namespace

bool HasFontLibraries() {
  return Loaded().areInstalled;
}

const FontconfigFunctions& Fontconfig() {
  return Loaded().fontconfig;
}

const FreeTypeFunctions& FreeType() {
  return Loaded().freeType;
}

}  // namespace hexlume
