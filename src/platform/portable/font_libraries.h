// Fontconfig and FreeType, which are loaded with the first text: with the five libraries that they need they take a fifth of
// a start.
#pragma once

#include <fontconfig/fontconfig.h>

#include "platform/portable/free_type.h"

namespace hexlume {

struct FontconfigFunctions {
  decltype(&::FcConfigDestroy) FcConfigDestroy;
  decltype(&::FcConfigGetConfigFiles) FcConfigGetConfigFiles;
  decltype(&::FcConfigGetFilename) FcConfigGetFilename;
  decltype(&::FcConfigGetFonts) FcConfigGetFonts;
  decltype(&::FcConfigSubstitute) FcConfigSubstitute;
  decltype(&::FcDefaultSubstitute) FcDefaultSubstitute;
  decltype(&::FcFontList) FcFontList;
  decltype(&::FcFontMatch) FcFontMatch;
  decltype(&::FcFontSetDestroy) FcFontSetDestroy;
  decltype(&::FcInitLoadConfigAndFonts) FcInitLoadConfigAndFonts;
  decltype(&::FcObjectSetBuild) FcObjectSetBuild;
  decltype(&::FcObjectSetDestroy) FcObjectSetDestroy;
  decltype(&::FcPatternAddBool) FcPatternAddBool;
  decltype(&::FcPatternAddInteger) FcPatternAddInteger;
  decltype(&::FcPatternAddString) FcPatternAddString;
  decltype(&::FcPatternCreate) FcPatternCreate;
  decltype(&::FcPatternDestroy) FcPatternDestroy;
  decltype(&::FcPatternGetInteger) FcPatternGetInteger;
  decltype(&::FcPatternGetString) FcPatternGetString;
  decltype(&::FcStrCmp) FcStrCmp;
  decltype(&::FcStrCmpIgnoreCase) FcStrCmpIgnoreCase;
  decltype(&::FcStrFree) FcStrFree;
  decltype(&::FcStrListDone) FcStrListDone;
  decltype(&::FcStrListNext) FcStrListNext;
};

// Loads both libraries at the first call. False if one that is needed isn't installed, which counts as a system without fonts.
// Throws std::bad_alloc if they can't be loaded for another reason, as for lack of memory; the next call tries again.
bool HasFontLibraries();

// Only after HasFontLibraries() has returned true.
const FontconfigFunctions& Fontconfig();

}  // namespace hexlume
