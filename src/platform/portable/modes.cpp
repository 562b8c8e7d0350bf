// The settings of a context.
#include "platform/portable/device_context.h"

#include <utility>

using namespace hexlume;

namespace {

void AppendMode(DeviceContext& dc, EmfType type, uint32_t mode) {
  dc.writer.Append(EmfModeRecord{type, sizeof(EmfModeRecord), mode});
}

// Records and sets one of two values; 0 for any other.
int SetOneOf(HDC dc, EmfType type, int first, int second, int& setting, int value) {
  if (value != first && value != second) return 0;
  AppendMode(*dc, type, static_cast<uint32_t>(value));
  return std::exchange(setting, value);
}

}  // namespace

// A mode that isn't set is recorded all the same.
int SetMapMode(HDC dc, int mode) {
  if (!IsOpen(dc)) return 0;
  AppendMode(*dc, emrSetMapMode, static_cast<uint32_t>(mode));
  if (mode != MM_TEXT && mode != MM_HIMETRIC) return 0;
  SettleBounds(*dc);
  return std::exchange(dc->mapMode, mode);
}

int SetArcDirection(HDC dc, int direction) {
  if (!IsOpen(dc)) return 0;
  return SetOneOf(dc, emrSetArcDirection, AD_COUNTERCLOCKWISE, AD_CLOCKWISE, dc->arcDirection, direction);
}

int SetPolyFillMode(HDC dc, int mode) {
  if (!IsOpen(dc)) return 0;
  return SetOneOf(dc, emrSetPolyFillMode, ALTERNATE, WINDING, dc->polyFillMode, mode);
}

int SetBkMode(HDC dc, int mode) {
  if (!IsOpen(dc)) return 0;
  return SetOneOf(dc, emrSetBkMode, TRANSPARENT, OPAQUE, dc->bkMode, mode);
}

COLORREF SetTextColor(HDC dc, COLORREF colour) {
  constexpr COLORREF noColour = 0xFFFFFFFF;
  if (!IsOpen(dc)) return noColour;
  AppendMode(*dc, emrSetTextColor, colour);
  return std::exchange(dc->textColour, colour);
}

UINT SetTextAlign(HDC dc, UINT align) {
  constexpr UINT noAlign = 0xFFFFFFFF;
  constexpr UINT kept = 0xFFFF;
  if (!IsOpen(dc)) return noAlign;
  AppendMode(*dc, emrSetTextAlign, align);
  return std::exchange(dc->textAlign, align & kept);
}

// Isn't recorded: it shows in the distances of the characters of a text.
int SetTextCharacterExtra(HDC dc, int extra) {
  constexpr int noExtra = 0x8000000;
  if (!IsOpen(dc)) return noExtra;
  return std::exchange(dc->textCharacterExtra, extra);
}

BOOL LPtoDP(HDC dc, POINT* points, int count) {
  if (!IsOpen(dc)) return 0;
  for (int i = 0; i < count; ++i) points[i] = ToDevice(*dc, points[i]);
  return 1;
}
