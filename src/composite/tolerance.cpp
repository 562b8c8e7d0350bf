// The string is scanned once. Each element drawn moves the current place to the right along the row. A
// separator draws the box of everything in the row so far, so that the right edges of the boxes divide the
// cells. The frame is always horizontal and isn't turned with the sheet.
#include "composite/tolerance.h"

#include <cstddef>
#include <string_view>

#include "canvas/primitive_steps.h"
#include "composite/tolerance_glyphs.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"
#include "platform/code_page_932.h"

namespace hexlume {

namespace {

// Length of each code in bytes, and the index of the letter in a symbol's code, "{\Fgdt;x}".
constexpr size_t separatorLength = 3;
constexpr size_t lineBreakLength = 2;
constexpr size_t symbolLength = 9;
constexpr size_t symbolLetter = 7;

// Lengths in model units times 100.
struct FrameRow {
  double frameHeight;
  double frameLeft;
  double frameWidth = 0.0;   // of the row so far
  double cellAdvance = 0.0;  // width of the last element
};

// Returns 0 after the string's end, as a code may be cut short.
char ByteAt(std::string_view text, size_t index) {
  return index < text.size() ? text[index] : '\0';
}

bool StandsBehindV(std::string_view text, size_t index) {
  return index > 0 && text[index - 1] == 'v';
}

// Group 3: takes the first style with this name. Its text height includes the style's scale.
void TakeFrameStyle(const char* name, double& dimScale, double& frameHeight) {
  const DimStyleEntry* const style = state.dimStyles.FindFirst(name);
  if (!style) return;
  dimScale = style->dimScale;
  frameHeight = 2.0 * style->textHeight;
}

// Draws the box of the row so far, unless the row is empty.
void DrawBox(Canvas canvas, const FrameRow& row, double bottom, int32_t color) {
  if (row.frameWidth == 0.0) return;
  const POINT leftBottom = ModelToSheet(row.frameLeft, bottom);
  const POINT rightTop = ModelToSheet(row.frameLeft + row.frameWidth, bottom + row.frameHeight);
  const SelectedPen pen = SelectNewPen(canvas, PS_SOLID, 0, ColorAt(color));
  MoveToEx(canvas, leftBottom.x, rightTop.y, nullptr);
  LineTo(canvas, leftBottom.x, leftBottom.y);
  LineTo(canvas, rightTop.x, leftBottom.y);
  LineTo(canvas, rightTop.x, rightTop.y);
  LineTo(canvas, leftBottom.x, rightTop.y);
  RestorePen(canvas, pen);
}

// Draws the character at index, in the text colour set by earlier texts. Returns its length in bytes.
size_t DrawCharacter(Canvas canvas, std::string_view text, size_t index, FrameRow& row) {
  const double height = row.frameHeight;
  const HFONT font = CreateToleranceFont(Trunc(height * 0.7 / state.drawScale));
  state.entX[0] += row.cellAdvance;
  const HGDIOBJ previousFont = SelectObject(canvas, font);
  SetTextAlign(canvas, TA_BOTTOM);
  // A lead byte at the end of the string is drawn with the closing 0.
  const int32_t length = IsLeadByte(static_cast<uint8_t>(text[index])) ? 2 : 1;
  if (StandsBehindV(text, index)) state.entX[0] += length * 0.1 * height;
  const POINT place = ModelToSheet(state.entX[0], state.entY[0] + height * 0.1);
  TextOutA(canvas, place.x, place.y, text.data() + index, length);
  // A length on the sheet is used as one in the model. At scales other than 1 this makes text narrower or
  // wider than the symbols. It must stay so.
  row.cellAdvance = 0.5 * height / state.drawScale;
  if (length == 2) row.cellAdvance += height * 0.2;
  row.frameWidth += row.cellAdvance;
  const size_t end = index + static_cast<size_t>(length);
  if (ByteAt(text, end) == '%') row.frameWidth += height * 0.3;
  SelectObject(canvas, previousFont);
  DeleteObject(font);
  return end - index;
}

// Draws entText. (entX[0], entY[0]) is the middle of the left edge of the first row, and is changed.
void DrawFrame(Canvas canvas, double frameHeight) {
  state.entY[0] -= 0.5 * frameHeight;
  const double startX = state.entX[0];
  FrameRow row = {frameHeight, startX};
  const std::string_view text = state.entText;
  // A double quote ends the frame.
  for (size_t index = 0; index < text.size() && text[index] != '"';) {
    switch (text[index]) {
      case '%':
        DrawBox(canvas, row, state.entY[0], state.entColor);
        index += separatorLength;
        break;
      case '^':
        state.entY[0] -= frameHeight;
        state.entX[0] = startX;
        row = {frameHeight, startX};
        index += lineBreakLength;
        break;
      case '{':
        state.entX[0] += row.cellAdvance;
        row.cellAdvance = DrawToleranceGlyphs(canvas, ByteAt(text, index + symbolLetter), frameHeight);
        row.frameWidth += row.cellAdvance;
        index += symbolLength;
        break;
      default: index += DrawCharacter(canvas, text, index, row); break;
    }
  }
  DrawBox(canvas, row, state.entY[0], state.entColor);
}

// The twins in a block: each byte is a character, its width doesn't depend on the scale, and no space is
// added at a separator.

void DrawBlockCharacter(Canvas canvas, const char* character, FrameRow& row) {
  const double height = row.frameHeight;
  const HFONT font = CreateToleranceFont(Trunc(height * 0.7));
  state.blockX[0] += row.cellAdvance;
  const HGDIOBJ previousFont = SelectObject(canvas, font);
  SetTextAlign(canvas, TA_BOTTOM);
  const POINT place = ModelToSheet(state.blockX[0], state.blockY[0] + height * 0.1);
  TextOutA(canvas, place.x, place.y, character, 1);
  row.cellAdvance = 0.5 * height;
  row.frameWidth += row.cellAdvance;
  SelectObject(canvas, previousFont);
  DeleteObject(font);
}

void DrawBlockFrame(Canvas canvas, double frameHeight) {
  state.blockY[0] -= 0.5 * frameHeight;
  const double startX = state.blockX[0];
  FrameRow row = {frameHeight, startX};
  const std::string_view text = state.blockText;
  for (size_t index = 0; index < text.size() && text[index] != '"';) {
    switch (text[index]) {
      case '%':
        DrawBox(canvas, row, state.blockY[0], state.blockColor);
        index += separatorLength;
        break;
      case '^':
        state.blockY[0] -= frameHeight;
        state.blockX[0] = startX;
        row = {frameHeight, startX};
        index += lineBreakLength;
        break;
      case '{':
        state.blockX[0] += row.cellAdvance;
        row.cellAdvance = DrawBlockToleranceGlyphs(canvas, ByteAt(text, index + symbolLetter), frameHeight);
        row.frameWidth += row.cellAdvance;
        index += symbolLength;
        break;
      default:
        DrawBlockCharacter(canvas, &text[index], row);
        ++index;
        break;
    }
  }
  DrawBox(canvas, row, state.blockY[0], state.blockColor);
}

}  // namespace

int32_t DrawTolerance(const EntityRun& run) {
  LineStyle unusedStyle;
  double dimScale = 0.0;
  double frameHeight = 0.0;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: BoundedCopy(state.entText, value); break;
      case 3: TakeFrameStyle(value, dimScale, frameHeight); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[0] = Hundredths(value); break;
      case 20: state.entY[0] = Hundredths(value); break;
      // Before the style's group its scale is still 0.
      case 1040: frameHeight = 2.0 * Hundredths(value) * dimScale; break;
    }
  }
  MonochromeRule(state.entColor);
  DrawFrame(run.canvas, frameHeight);
  return more;
}

// The insert's scale and angle aren't applied, nor is the style's scale to a height of the entity's own.
int32_t DrawBlockTolerance(const BlockRun& run) {
  LineStyle unusedStyle;
  double unusedScale = 0.0;
  double frameHeight = 0.0;
  state.blockColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: BoundedCopy(state.blockText, value); break;
      case 3: TakeFrameStyle(value, unusedScale, frameHeight); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.blockColor)) return more;
        break;
      case 10: state.blockX[0] = Hundredths(value) + run.blockOriginX; break;
      case 20: state.blockY[0] = Hundredths(value) + run.blockOriginY; break;
      case 1040: frameHeight = 2.0 * Hundredths(value); break;
    }
  }
  MonochromeRule(state.blockColor);
  DrawBlockFrame(run.canvas, frameHeight);
  return more;
}

}  // namespace hexlume
