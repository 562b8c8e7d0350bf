// The modes of a context.
#include <utility>

#include "platform/portable/device_context.h"

using namespace hexlume;

namespace {

void AppendMode(DeviceContext& dc, EmfType type, uint32_t mode) {
  dc.writer.Append(EmfModeRecord{type, sizeof(EmfModeRecord), mode});
}

// Records and sets one of two values. Returns 0 for any other value.
int SetOneOf(HDC dc, EmfType type, int first, int second, int& setting, int value) {
  if (value != first && value != second) return 0;
  AppendMode(*dc, type, static_cast<uint32_t>(value));
  return std::exchange(setting, value);
}

}  // namespace

// Modes that aren't supported are recorded, but not set.
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

COLORREF SetTextColor(HDC dc, COLORREF color) {
  constexpr COLORREF noColor = 0xFFFFFFFF;
  if (!IsOpen(dc)) return noColor;
  AppendMode(*dc, emrSetTextColor, color);
  return std::exchange(dc->textColor, color);
}

UINT SetTextAlign(HDC dc, UINT align) {
  constexpr UINT noAlign = 0xFFFFFFFF;
  constexpr UINT kept = 0xFFFF;
  if (!IsOpen(dc)) return noAlign;
  AppendMode(*dc, emrSetTextAlign, align);
  return std::exchange(dc->textAlign, align & kept);
}

// Not recorded: it changes the character spacing of texts.
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
