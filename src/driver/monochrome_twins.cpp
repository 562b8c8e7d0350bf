// The four conversions with a monochrome switch. The switch is set before the arguments are checked,
// and is kept.
#include "driver/conv_state.h"
#include "hexlume.h"

int32_t vzDXFMetaMake(const char* path, HENHMETAFILE* out, int32_t showDialogs, int32_t halfWidthFont,
                      int32_t monochrome) {
  hexlume::state.monochrome = monochrome;
  return vzMetaMake(path, out, showDialogs, halfWidthFont);
}

int32_t vzDXFReMetaMake(const char* path, HENHMETAFILE* out, int32_t halfWidthFont, RECT view,
                        int32_t wholeTextClip, int32_t showDialogs, int32_t monochrome) {
  hexlume::state.monochrome = monochrome;
  return vzReMetaMake(path, out, halfWidthFont, view, wholeTextClip, showDialogs);
}

int32_t vzDXFRotMetaMake(HENHMETAFILE* out, int32_t monochrome) {
  hexlume::state.monochrome = monochrome;
  return vzRotMetaMake(out);
}

int32_t vzDXFFullSizeMetaMake(const char* path, HENHMETAFILE* out, int32_t showDialogs, int32_t halfWidthFont,
                              int32_t monochrome) {
  hexlume::state.monochrome = monochrome;
  return vzFullSizeMetaMake(path, out, showDialogs, halfWidthFont);
}
