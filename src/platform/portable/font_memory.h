// Lookups of fonts that fail for lack of memory or files. Without a look at that they find another font, or none, and texts
// get its measures.
#pragma once

#include <fontconfig/fontconfig.h>

#include <new>

namespace hexlume {

inline void CheckFontMemory(bool hasMemory) {
  if (!hasMemory) throw std::bad_alloc();
}

// Whether there are fonts, so that a lookup must find one.
inline bool HasFonts(FcConfig* config) {
  for (const FcSetName set : {FcSetSystem, FcSetApplication}) {
    const FcFontSet* const fonts = FcConfigGetFonts(config, set);
    if (fonts && fonts->nfont > 0) return true;
  }
  return false;
}

// False for the configuration that fontconfig takes if it can't read the system's: that file isn't among its own.
inline bool IsWholeConfig(FcConfig* config) {
  FcChar8* const wanted = FcConfigGetFilename(config, nullptr);
  FcStrList* const files = FcConfigGetConfigFiles(config);
  bool isWhole = files && !wanted;
  while (const FcChar8* const file = files && !isWhole ? FcStrListNext(files) : nullptr)
    isWhole = FcStrCmp(file, wanted) == 0;
  if (files) FcStrListDone(files);
  FcStrFree(wanted);
  return isWhole;
}

}  // namespace hexlume
