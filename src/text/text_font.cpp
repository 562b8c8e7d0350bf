#include "text/text_font.h"

#include <cstring>

#include "canvas/primitive_steps.h"
#include "driver/bounded_copy.h"
#include "driver/work_budget.h"
#include "entities/converter_rules.h"
#include "platform/code_page_932.h"
#include "platform/japanese_locale.h"
#include "text/text_bytes.h"

namespace hexlume {

const char* FaceFor(int32_t halfWidthFont) {
  return halfWidthFont != 0 ? defaultFace : gothicFace;
}

void SetCell(LOGFONTA& font, int32_t height, int32_t halfWidthFont) {
  font.lfHeight = Trunc(height * 1.1);
  font.lfWidth = halfWidthFont != 0 ? font.lfHeight / 2 : 0;
}

int32_t ReadEscapement(const char* value) {
  return WrapSub(3600, Trunc(Atof(value) * 10.0));
}

void TurnFont(LOGFONTA& font) {
  if (state.rotated != 0) font.lfEscapement = WrapSub(font.lfEscapement, 1800);
}

bool HasNoSize(const LOGFONTA& font) {
  return font.lfHeight == 0 && font.lfWidth == 0;
}

bool StartsInView(const ViewRect& view, const POINT& place, int32_t height, int32_t wholeTextClip) {
  if (!LiesInView(view, place)) return false;
  return wholeTextClip == 0 || WrapNegate(WrapAdd(place.y, height)) >= view.top;
}

void SettleFont(LOGFONTA& font, const char* face) {
  font.lfWeight = FW_DONTCARE;
  font.lfUnderline = 0;
  font.lfStrikeOut = 0;
  font.lfCharSet = SHIFTJIS_CHARSET;
  font.lfOutPrecision = OUT_DEFAULT_PRECIS;
  font.lfClipPrecision = CLIP_LH_ANGLES;
  font.lfQuality = DEFAULT_QUALITY;
  font.lfPitchAndFamily = 0;
  BoundedCopy(font.lfFaceName, face);
}

void CountFont() {
  constexpr int64_t stepsOfFont = 4000;
  constexpr int64_t bytesOfFont = 400;  // created, selected, restored and deleted
  CountWork(stepsOfFont, bytesOfFont);
}

void CountText(int32_t length) {
  constexpr int64_t stepsOfText = 1500, stepsOfByte = 600;
  constexpr int64_t bytesOfText = 160, bytesOfByte = 6;  // with its modes
  CountWork(stepsOfText + length * stepsOfByte, bytesOfText + length * bytesOfByte);
}

SelectedFont SelectNewFont(Canvas canvas, const LOGFONTA& font) {
  CountFont();
  const HFONT created = CreateFontIndirectA(&font);
  return {created, SelectObject(canvas, created)};
}

void RestoreFont(Canvas canvas, const SelectedFont& selected) {
  SelectObject(canvas, selected.previous);
  DeleteObject(selected.font);
}

int32_t ClassifyText(const char* stripped) {
  SelectJapaneseLocale();
  const size_t length = std::strlen(stripped);
  if (length == 2 && CharacterCount(stripped) == 1) return 1;
  for (const char* byte = stripped; *byte != '\0'; ++byte) {
    if (!IsLetter(*byte) && !IsDigit(*byte) && !std::strchr("-.,", *byte)) return 1;
    if (IsLeadByte(static_cast<uint8_t>(*byte))) return 1;
  }
  return 0;
}

int32_t FitCount(const char* text) {
  const int32_t length = TextLength(text);
  return length == 2 && CharacterCount(text) == 1 ? 1 : length;
}

bool ReachesBeyond(const ViewRect& view, int32_t x, const char* text, int32_t aveCharWidth) {
  return WrapAdd(x, WrapMul(TextLength(text), aveCharWidth)) > view.right;
}

void SetTextModes(Canvas canvas, int32_t color) {
  SetTextColor(canvas, ColorAt(color));
  SetTextAlign(canvas, TA_BOTTOM);
  SetBkMode(canvas, TRANSPARENT);
}

void WriteText(Canvas canvas, const POINT& place, const char* text) {
  CountText(TextLength(text));
  const POINT start = PlacePoint(place.x, place.y, state.centreX, state.centreY, state.rotated);
  TextOutA(canvas, start.x, start.y, text, TextLength(text));
}

int32_t MeasureAveCharWidth(Canvas canvas, int32_t height, int32_t escapement) {
  LOGFONTA font = {};
  font.lfHeight = height;
  font.lfEscapement = escapement;
  SettleFont(font, defaultFace);
  const SelectedFont selected = SelectNewFont(canvas, font);
  const TEXTMETRICA metrics = MeasureFont(canvas);
  RestoreFont(canvas, selected);
  return metrics.tmAveCharWidth;
}

void DrawFontText(Canvas canvas, int32_t height, int32_t width, int32_t escapement, double x, double y,
                  int32_t halfWidthFont) {
  LOGFONTA font = {};
  font.lfHeight = height;
  font.lfWidth = width;
  font.lfEscapement = escapement;
  SettleFont(font, FaceFor(halfWidthFont));
  const SelectedFont selected = SelectNewFont(canvas, font);
  SetTextModes(canvas, state.entColor);
  const POINT place = ModelToSheet(x, y);
  CountText(TextLength(state.entText));
  TextOutA(canvas, place.x, place.y, state.entText, TextLength(state.entText));
  RestoreFont(canvas, selected);
}

}  // namespace hexlume
