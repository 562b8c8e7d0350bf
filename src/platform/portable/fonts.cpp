#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "platform/portable/font_measure.h"

namespace hexlume {

namespace {

constexpr int defaultCellHeight = 16;
constexpr int largestPpem = 65535;
constexpr int mostHeightsWide = 100;

// Returns the pixels per logical unit. GDI stores this as a float, which affects how halves are rounded.
double PixelsPerUnit(const DeviceContext& dc, LONG pixels, LONG millimetres) {
  return dc.mapMode == MM_HIMETRIC ? static_cast<float>(pixels / (millimetres * 100.0)) : 1.0;
}

double PixelsPerUnitAcross(const DeviceContext& dc) {
  return PixelsPerUnit(dc, referenceDevice.pixels.cx, referenceDevice.millimetres.cx);
}

double PixelsPerUnitDown(const DeviceContext& dc) {
  return PixelsPerUnit(dc, referenceDevice.pixels.cy, referenceDevice.millimetres.cy);
}

// Rounds halves up.
int RoundedQuotient(int64_t product, int64_t divisor) {
  const int64_t rounded = (2 * product + divisor) / (2 * divisor);
  return static_cast<int>(std::clamp<int64_t>(rounded, INT32_MIN, INT32_MAX));
}

int AtEm(int32_t units, int ppem, const FaceMeasures& face) {
  return RoundedQuotient(static_cast<int64_t>(units) * ppem, face.unitsPerEm);
}

int PpemOfCell(int height, const FaceMeasures& face) {
  const int32_t cell = face.ascent + face.descent;
  const int ppem = RoundedQuotient(static_cast<int64_t>(face.unitsPerEm) * height, cell);
  const bool isTooHigh = AtEm(cell, ppem, face) > height;
  return std::max(isTooHigh ? ppem - 1 : ppem, 1);
}

struct PixelSize {
  int height;  // negative: height of the em
  int width;   // 0: the natural width for the height
};

// INT32_MIN, which the width of a fitted text can be, has no absolute value. GDI takes it as a negative width, which
// isn't too large for any height.
constexpr int boundlessWidth = INT32_MIN;

// A stock font is in pixels in every map mode. Widths use the vertical scale.
PixelSize SizeOf(const DeviceContext& dc, const LOGFONTA& font) {
  if (dc.font->stockNumber != notAStockObject) return {defaultCellHeight, 0};
  const double height = std::trunc(font.lfHeight * PixelsPerUnitDown(dc));
  const double width = std::trunc(std::abs(font.lfWidth * PixelsPerUnitDown(dc)));
  if (height == 0) return {defaultCellHeight, 0};
  const int pixelsHigh = static_cast<int>(std::max(height, -static_cast<double>(INT32_MAX)));
  if (font.lfWidth == INT32_MIN) return {pixelsHigh, boundlessWidth};
  return {pixelsHigh, static_cast<int>(std::min(width, static_cast<double>(INT32_MAX)))};
}

// GDI multiplies by the inverse scale, which is a float too.
LONG ToLogical(int pixels, double pixelsPerUnit) {
  const double unitsPerPixel = static_cast<float>(1.0 / pixelsPerUnit);
  const double rounded = std::floor(pixels * unitsPerPixel + 0.5);
  return static_cast<LONG>(
      std::clamp(rounded, static_cast<double>(INT32_MIN), static_cast<double>(INT32_MAX)));
}

// The stretch factor is truncated to 16 binary places, the product is rounded to 64ths of a pixel, and the
// result is rounded up to whole pixels. The limits are beyond those of any font.
int Stretched(const FontMeasure& measure, int64_t pixels) {
  const int64_t factor =
      std::min<int64_t>((int64_t{measure.averageWidth} << 16) / measure.naturalWidth, UINT32_MAX);
  const int64_t sixtyFourths = ((std::min<int64_t>(pixels, 1 << 24) * 64 * factor) + 0x8000) >> 16;
  return static_cast<int>(std::min<int64_t>((sixtyFourths + 63) / 64, INT32_MAX));
}

// The stretch factor is the least number of its 16 binary places, and the 64ths of a pixel wrap around, as in 32-bit
// Windows programs.
int StretchedWithoutBound(int64_t pixels) {
  constexpr int64_t largestFactor = 1 << 15;
  const int64_t sixtyFourths = static_cast<int32_t>(static_cast<uint32_t>(pixels * 64 * largestFactor));
  return static_cast<int>(std::abs(sixtyFourths) / 64);
}

constexpr LOGFONTA noFont = {};

const LOGFONTA& LogFontOf(const DeviceContext& dc) {
  const FontData* font = DataOf<FontData>(dc.font);
  return font ? font->logFont : noFont;
}

}  // namespace

FontMeasure MeasureContextFont(const DeviceContext& dc) {
  const LOGFONTA& font = LogFontOf(dc);
  const PixelSize size = SizeOf(dc, font);
  FontMeasure measure = {};
  measure.face = &FaceOf(font);
  const FaceMeasures& face = measure.face->Measures();
  measure.ppem = size.height < 0 ? -size.height : PpemOfCell(size.height, face);
  if (measure.ppem > largestPpem) measure.ppem = 1;
  measure.ascent = AtEm(face.ascent, measure.ppem, face);
  measure.descent = AtEm(face.descent, measure.ppem, face);
  measure.internalLeading = AtEm(face.ascent + face.descent - face.unitsPerEm, measure.ppem, face);
  measure.naturalWidth = std::max(AtEm(face.averageWidth, measure.ppem, face), 1);
  measure.averageWidth = measure.naturalWidth;
  measure.maxWidth = AtEm(face.boxWidth, measure.ppem, face);
  const int64_t widest = static_cast<int64_t>(mostHeightsWide) * (measure.ascent + measure.descent);
  if (size.width == 0 || size.width > widest) return measure;
  measure.averageWidth = size.width;
  measure.maxWidth =
      size.width == boundlessWidth
          ? boundlessWidth
          : RoundedQuotient(static_cast<int64_t>(measure.maxWidth) * size.width, measure.naturalWidth);
  return measure;
}

int CharacterPixels(const FontMeasure& measure, char16_t character) {
  // Rounded twice, first to 64ths of a pixel, like the scaler.
  const int64_t natural = (measure.face->Advance(character, measure.ppem) + 32) / 64;
  if (measure.averageWidth == boundlessWidth) return StretchedWithoutBound(natural);
  if (measure.face->Measures().isFixedPitch && natural >= measure.ppem)
    return 2 * RoundedQuotient(natural * measure.averageWidth, 2LL * measure.naturalWidth);
  return Stretched(measure, natural);
}

LONG LogicalWidth(const DeviceContext& dc, int pixels) {
  return ToLogical(pixels, PixelsPerUnitAcross(dc));
}

LONG LogicalHeight(const DeviceContext& dc, int pixels) {
  return ToLogical(pixels, PixelsPerUnitDown(dc));
}

}  // namespace hexlume

using namespace hexlume;

HFONT CreateFontIndirectA(const LOGFONTA* font) {
  return font ? NewObject(FontData{*font}) : nullptr;
}

HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision,
                  DWORD quality, DWORD pitchAndFamily, LPCSTR face) {
  LOGFONTA font = {};
  font.lfHeight = height;
  font.lfWidth = width;
  font.lfEscapement = escapement;
  font.lfOrientation = orientation;
  font.lfWeight = weight;
  font.lfItalic = static_cast<BYTE>(italic);
  font.lfUnderline = static_cast<BYTE>(underline);
  font.lfStrikeOut = static_cast<BYTE>(strikeOut);
  font.lfCharSet = static_cast<BYTE>(charSet);
  font.lfOutPrecision = static_cast<BYTE>(outPrecision);
  font.lfClipPrecision = static_cast<BYTE>(clipPrecision);
  font.lfQuality = static_cast<BYTE>(quality);
  font.lfPitchAndFamily = static_cast<BYTE>(pitchAndFamily);
  if (face) std::memcpy(font.lfFaceName, face, strnlen(face, LF_FACESIZE - 1));
  return CreateFontIndirectA(&font);
}

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics) {
  if (!IsOpen(dc) || !metrics) return 0;
  constexpr BYTE outlines = 0x06;  // vectors, TrueType
  constexpr BYTE variablePitch = 0x01;
  constexpr BYTE swiss = 0x20;
  const FontMeasure measure = MeasureContextFont(*dc);
  *metrics = {};
  metrics->tmHeight = LogicalHeight(*dc, measure.ascent + measure.descent);
  metrics->tmAscent = LogicalHeight(*dc, measure.ascent);
  metrics->tmDescent = LogicalHeight(*dc, measure.descent);
  metrics->tmInternalLeading = LogicalHeight(*dc, measure.internalLeading);
  metrics->tmAveCharWidth = LogicalWidth(*dc, measure.averageWidth);
  metrics->tmMaxCharWidth = LogicalWidth(*dc, measure.maxWidth);
  metrics->tmWeight = FW_NORMAL;
  metrics->tmDigitizedAspectX = 96;
  metrics->tmDigitizedAspectY = 96;
  metrics->tmFirstChar = 0x1E;
  metrics->tmLastChar = 0xFF;
  metrics->tmDefaultChar = 0x1F;
  metrics->tmBreakChar = ' ';
  metrics->tmPitchAndFamily =
      outlines | (measure.face->Measures().isFixedPitch ? FF_MODERN : swiss | variablePitch);
  const LOGFONTA& font = LogFontOf(*dc);
  metrics->tmCharSet = font.lfCharSet == ANSI_CHARSET ? ANSI_CHARSET : SHIFTJIS_CHARSET;
  metrics->tmItalic = font.lfItalic ? 0xFF : 0;
  metrics->tmUnderlined = font.lfUnderline;
  metrics->tmStruckOut = font.lfStrikeOut;
  return 1;
}
