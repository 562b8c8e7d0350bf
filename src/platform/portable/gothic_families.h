// The fonts that replace a missing face. The tool's player includes this header too: it must draw with the
// font that the library has measured, or texts don't fit their recorded widths.
#pragma once

namespace hexlume {

// Japanese Gothics of fixed pitch, in the order of preference.
constexpr const char* gothicFamilies[] = {"IPAGothic", "Noto Sans Mono CJK JP", "VL Gothic", "TakaoGothic",
                                          "IPAexGothic"};

}  // namespace hexlume
