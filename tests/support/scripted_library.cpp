// A library in the place of the real one, for what a test can't bring the real one to: the drawing's name
// says what a conversion does. A metafile that it makes says in its records which export was called with
// which arguments.
#include <hexlume.h>

#include <cstring>
#include <string>

#include "platform/gdi.h"
#include "platform/host_exception.h"
#include "platform/last_error.h"

namespace {

uint8_t fontMode = 0;
std::string lastPath;

// A frame of an A4 sheet; for a view the view.
HENHMETAFILE Draw(const RECT& frame, int32_t exportNumber, std::initializer_list<int32_t> arguments) {
  const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr);
  SetMapMode(dc, MM_HIMETRIC);
  MoveToEx(dc, exportNumber, fontMode, nullptr);
  for (const int32_t argument : arguments) LineTo(dc, argument, -1000);
  return CloseEnhMetaFile(dc);
}

bool Named(const char* part) {
  return lastPath.find(part) != std::string::npos;
}

int32_t Perform(HENHMETAFILE* out, const RECT& frame, int32_t exportNumber,
                std::initializer_list<int32_t> arguments) {
  if (Named("bounded")) hexlume::SetThreadError(HEXLUME_BOUNDS_REACHED | 1);
  if (Named("fault11")) hexlume::ThrowToHost(11);
  if (Named("fault-1")) hexlume::ThrowToHost(-1);
  if (Named("returns2")) return HEXLUME_NOT_OPENED;
  if (Named("returns16")) return HEXLUME_CANCELLED;
  if (Named("returns30")) return HEXLUME_NOT_A_DRAWING;
  if (Named("returns99")) return 99;
  *out = Draw(frame, exportNumber, arguments);
  return Named("begun") ? HEXLUME_NOT_A_DRAWING : HEXLUME_OK;
}

constexpr RECT a4 = {0, 0, 21000, 29700};

}  // namespace

int32_t vzMetaMake(const char*, HENHMETAFILE*, int32_t, int32_t) {
  return 1;
}

int32_t vzReMetaMake(const char*, HENHMETAFILE*, int32_t, RECT, int32_t, int32_t) {
  return 1;
}

int32_t vzRotMetaMake(HENHMETAFILE*) {
  return 1;
}

int32_t vzFullSizeMetaMake(const char*, HENHMETAFILE*, int32_t, int32_t) {
  return 1;
}

int32_t vzDXFMetaMake(const char* path, HENHMETAFILE* out, int32_t showDialogs, int32_t halfWidthFont,
                      int32_t monochrome) {
  lastPath = path;
  return Perform(out, a4, 1, {showDialogs, halfWidthFont, monochrome});
}

int32_t vzDXFReMetaMake(const char* path, HENHMETAFILE* out, int32_t halfWidthFont, RECT view,
                        int32_t wholeTextClip, int32_t showDialogs, int32_t monochrome) {
  lastPath = path;
  return Perform(out, view, 2, {showDialogs, halfWidthFont, monochrome, wholeTextClip});
}

int32_t vzDXFRotMetaMake(HENHMETAFILE* out, int32_t monochrome) {
  if (Named("unturnable")) hexlume::ThrowToHost(11);
  return Perform(out, a4, 3, {monochrome});
}

int32_t vzDXFFullSizeMetaMake(const char* path, HENHMETAFILE* out, int32_t showDialogs, int32_t halfWidthFont,
                              int32_t monochrome) {
  lastPath = path;
  return Perform(out, a4, 4, {showDialogs, halfWidthFont, monochrome});
}

uint8_t vzDXFSetFontMode(uint8_t mode) {
  return fontMode = mode;
}
