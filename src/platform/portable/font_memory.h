// Lookups of fonts that fail for lack of memory or files. Without a look at that they find another font, or none, and texts
// get its measures.
#pragma once

#include <fontconfig/fontconfig.h>
#include <sys/mman.h>

#include <new>

namespace hexlume {

inline void CheckFontMemory(bool hasMemory) {
  if (!hasMemory) throw std::bad_alloc();
}

// Throws std::bad_alloc if a lookup can run out of memory: some of fontconfig's functions then read what they didn't get, or
// keep a lock that the next call waits for.
inline void CheckFontRoom() {
  constexpr size_t most = 8 << 20;  // several times what a lookup takes, which reads the configuration first
  void* const room = mmap(nullptr, most, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  CheckFontMemory(room != MAP_FAILED);
  munmap(room, most);
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
