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

// Whether there are fonts, so that a lookup must find one. fontsOf is FcConfigGetFonts, linked or loaded.
inline bool HasFonts(decltype(&FcConfigGetFonts) fontsOf, FcConfig* config) {
  for (const FcSetName set : {FcSetSystem, FcSetApplication}) {
    const FcFontSet* const fonts = fontsOf(config, set);
    if (fonts && fonts->nfont > 0) return true;
  }
  return false;
}

}  // namespace hexlume
