#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "platform/code_page_932.h"
#include "platform/portable/device_context.h"
#include "platform/portable/emf_records.h"
#include "platform/portable/font_measure.h"

namespace hexlume {

namespace {

struct EmfTextRecord {
  uint32_t type;
  uint32_t size;
  RECT bounds;  // logical units
  uint32_t graphicsMode;
  float scaleAcross;  // hundredths of a millimetre per logical unit
  float scaleDown;
  POINT reference;
  uint32_t count;
  uint32_t textOffset;
  uint32_t options;
  RECT box;
  uint32_t advancesOffset;
};
static_assert(sizeof(EmfTextRecord) == 76);

constexpr uint32_t compatibleMode = 1;

struct EmfCreateFontRecord {
  uint32_t type;
  uint32_t size;
  uint32_t index;
  LONG height;
  LONG width;
  LONG escapement;
  LONG orientation;
  LONG weight;
  BYTE italic;
  BYTE underline;
  BYTE strikeOut;
  BYTE charSet;
  BYTE outPrecision;
  BYTE clipPrecision;
  BYTE quality;
  BYTE pitchAndFamily;
  char16_t faceName[LF_FACESIZE];
  char16_t fullName[64];
  char16_t style[32];
  uint32_t version;
  uint32_t styleSize;
  uint32_t match;
  uint32_t reserved;
  uint32_t vendor;
  uint32_t culture;
  BYTE panose[10];
  BYTE padding[2];
};
static_assert(sizeof(EmfCreateFontRecord) == 332);

int32_t Limited(int64_t value) {
  return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

// Boxes wrap around at the limits of int32, as in Windows.
int32_t Wrapped(int64_t value) {
  return static_cast<int32_t>(static_cast<uint32_t>(value));
}

struct TextSize {
  int64_t width;
  int64_t height;
  int64_t descent;
};

// Returns the bounds of a text from its reference point. As in GDI they aren't rotated with the text, and
// extend towards larger y, which is upward in MM_HIMETRIC.
RECT TextBounds(const DeviceContext& dc, int64_t x, int64_t y, const TextSize& size) {
  int64_t left = x;
  int64_t right = x + size.width + 1;
  if ((dc.textAlign & TA_CENTER) == TA_CENTER) {
    left = x - size.width / 2 - 1;
    right = x + size.width / 2 + 1;
  } else if (dc.textAlign & TA_RIGHT) {
    left = x - size.width - 1;
    right = x;
  }
  int64_t top = y;
  int64_t bottom = y + size.height + 1;
  if ((dc.textAlign & TA_BASELINE) == TA_BASELINE) {
    top = y - size.height - 1;
    bottom = y + size.descent + 1;
  } else if (dc.textAlign & TA_BOTTOM) {
    top = y - size.height - 1;
    bottom = y;
  }
  return {Wrapped(left), Wrapped(top), Wrapped(right), Wrapped(bottom)};
}

// The logical widths of characters in the font used last: most texts of a drawing are in one font and have few characters.
class KeptWidths {
 public:
  // To be called before Of, with a context's font.
  void SetFont(const DeviceContext& dc, const FontMeasure& font) {
    const Font wanted = {font.face->Number(), font.ppem, font.averageWidth, dc.mapMode};
    if (wanted == kept) return;
    kept = wanted;
    rows.fill({-1, 0});
  }

  LONG Of(const DeviceContext& dc, const FontMeasure& font, char16_t character) {
    Row& row = rows[character % rows.size()];
    if (row.character != character) row = {character, LogicalWidth(dc, CharacterPixels(font, character))};
    return row.width;
  }

 private:
  // All that a width depends on. The natural width is that of the face at its ppem.
  struct Font {
    uint64_t face;
    int ppem;
    int averageWidth;
    int mapMode;

    bool operator==(const Font& other) const {
      return face == other.face && ppem == other.ppem && averageWidth == other.averageWidth &&
             mapMode == other.mapMode;
    }
  };
  struct Row {
    int32_t character;  // -1: none
    LONG width;
  };

  Font kept = {};
  std::array<Row, 256> rows = {};
} keptWidths;

std::vector<int32_t> Advances(const DeviceContext& dc, const FontMeasure& font, const std::u16string& text) {
  std::vector<int32_t> advances;
  advances.reserve(text.size());
  keptWidths.SetFont(dc, font);
  for (const char16_t character : text) {
    const int64_t width = keptWidths.Of(dc, font, character);
    advances.push_back(Limited(width + dc.textCharacterExtra));
  }
  return advances;
}

TextSize SizeOf(const DeviceContext& dc, const FontMeasure& font, const std::vector<int32_t>& advances) {
  TextSize size = {};
  for (const int32_t advance : advances) size.width += advance;
  if (!advances.empty()) size.height = LogicalHeight(dc, font.ascent + font.descent);
  size.descent = LogicalHeight(dc, font.descent);
  return size;
}

float ScaleOf(const DeviceContext& dc, LONG pixels, LONG millimetres, float inHimetric) {
  return dc.mapMode == MM_HIMETRIC ? inHimetric : static_cast<float>(millimetres * 100.0 / pixels);
}

void AppendText(DeviceContext& dc, POINT reference, const std::u16string& text) {
  const FontMeasure font = MeasureContextFont(dc);
  const std::vector<int32_t> advances = Advances(dc, font, text);
  EmfTextRecord record = {};
  record.type = emrExtTextOutW;
  record.bounds = TextBounds(dc, reference.x, reference.y, SizeOf(dc, font, advances));
  record.graphicsMode = compatibleMode;
  record.scaleAcross = ScaleOf(dc, referenceDevice.pixels.cx, referenceDevice.millimetres.cx, 1);
  record.scaleDown = ScaleOf(dc, referenceDevice.pixels.cy, referenceDevice.millimetres.cy, -1);
  record.reference = reference;
  record.count = static_cast<uint32_t>(text.size());
  record.textOffset = sizeof record;
  record.box = {0, 0, -1, -1};
  std::vector<uint8_t> tail((2 * text.size() + 3) / 4 * 4 + 4 * advances.size());
  const size_t advancesStart = tail.size() - 4 * advances.size();
  record.advancesOffset = static_cast<uint32_t>(sizeof record + advancesStart);
  record.size = static_cast<uint32_t>(sizeof record + tail.size());
  if (!text.empty()) {
    std::memcpy(tail.data(), text.data(), 2 * text.size());
    std::memcpy(tail.data() + advancesStart, advances.data(), 4 * advances.size());
  }
  dc.writer.Append(&record, sizeof record, tail.data(), tail.size());
  AddLogicalBounds(dc, record.bounds);
}

void SetFaceName(EmfCreateFontRecord& record, const LOGFONTA& font) {
  const char* const end = std::find(font.lfFaceName, font.lfFaceName + LF_FACESIZE, '\0');
  const std::u16string name = Utf16Text(font.lfFaceName, static_cast<size_t>(end - font.lfFaceName));
  const size_t length = std::min<size_t>(name.size(), LF_FACESIZE - 1);
  std::copy_n(name.begin(), length, record.faceName);
}

}  // namespace

void AppendCreateFont(DeviceContext& dc, uint32_t index, const FontData& fontData) {
  const LOGFONTA& font = fontData.logFont;
  EmfCreateFontRecord record = {};
  record.type = emrExtCreateFontIndirectW;
  record.size = sizeof record;
  record.index = index;
  record.height = font.lfHeight;
  record.width = font.lfWidth;
  record.escapement = font.lfEscapement;
  record.orientation = font.lfOrientation;
  record.weight = font.lfWeight;
  record.italic = font.lfItalic;
  record.underline = font.lfUnderline;
  record.strikeOut = font.lfStrikeOut;
  record.charSet = font.lfCharSet;
  record.outPrecision = font.lfOutPrecision;
  record.clipPrecision = font.lfClipPrecision;
  record.quality = font.lfQuality;
  record.pitchAndFamily = font.lfPitchAndFamily;
  SetFaceName(record, font);
  std::fill(std::begin(record.panose), std::end(record.panose), BYTE{1});
  dc.writer.Append(record);
}

}  // namespace hexlume

using namespace hexlume;

BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int length) {
  // More than fits a record.
  constexpr int longestText = 1 << 26;
  if (!IsOpen(dc) || length < 0 || length > longestText) return 0;
  AppendText(*dc, {x, y}, text ? Utf16Text(text, static_cast<size_t>(length)) : std::u16string());
  return 1;
}
