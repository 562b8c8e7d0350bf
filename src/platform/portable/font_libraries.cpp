#include "platform/portable/font_libraries.h"

#include "platform/portable/loaded_library.h"

namespace hexlume {

namespace {

struct FontLibraries {
  bool areInstalled = false;
  FontconfigFunctions fontconfig = {};
  FreeTypeFunctions freeType = {};
};

#define FIND(library, functions, name) (library).Find(#name, (functions).name)

void FindFontconfig(const LoadedLibrary& library, FontconfigFunctions& functions) {
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

void FindFreeType(const LoadedLibrary& library, FreeTypeFunctions& functions) {
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
  const LoadedLibrary fontconfig("libfontconfig.so.1"), freeType("libfreetype.so.6");
  if (!fontconfig.IsInstalled() || !freeType.IsInstalled()) return loaded;
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
