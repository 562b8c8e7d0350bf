// MTEXT: each paragraph is one line of text, however long. The group for a line's width isn't read, and
// neither is group 3, so of a long text its last chunk alone is drawn. The font is made twice for each
// paragraph, once to be measured and once to draw. How the lines step from paragraph to paragraph differs by
// attachment point and by scope.
#include "text/mtext.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>

#include "canvas/left_objects.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"
#include "platform/code_page_932.h"
#include "platform/japanese_locale.h"
#include "text/stacked_fraction.h"
#include "text/text_bytes.h"
#include "text/text_font.h"
#include "text/text_strings.h"

namespace hexlume {

namespace {

// What an MTEXT has told of itself.
struct MText {
  LOGFONTA font = {};       // its width is that of the paragraph before, once there is one
  double dirX = 1.0;        // groups 11 and 21, as they are read
  double dirY = 0.0;        //
  double angle = 0.0;       // radians
  double lineFactor = 1.0;  // group 44
  int32_t attach = 0;       // group 71
  int32_t flow = 0;         // group 72
  double scaleW = 1.0;      // the code "\W"
  double scaleT = 1.0;      // the code "\T"
  double obliqueQ = 0.0;    // the code "\Q"
  std::string pending;      // what its groups 1 have gathered
};

// The paragraph at hand among all of an MTEXT. Lengths are in model units times 100.
struct Lines {
  int32_t index;  // 0 for the first
  int32_t count;
  int32_t half;
  double step;    // from line to line
  double x0, y0;  // the entity's point
};

// Text.

void DropFront(char* text, size_t count) {
  const size_t length = std::strlen(text);
  const size_t dropped = std::min(count, length);
  std::memmove(text, text + dropped, length - dropped + 1);
}

// Cuts a code at the front of groupValue up to its ";", or four bytes of one that has none.
void DropLeadingCode() {
  const char* const end = FindCharacters(state.groupValue, ";");
  DropFront(state.groupValue, end ? static_cast<size_t>(end - state.groupValue) + 1 : 4);
}

// The UTF-16 unit that up to four hexadecimal digits tell; 0 without any.
char16_t UnicodeUnit(const char* digits) {
  char number[5] = {};
  std::memcpy(number, digits, std::min<size_t>(std::strlen(digits), 4));
  return static_cast<char16_t>(std::strtoul(number, nullptr, 16));
}

// A unit as bytes of the code page, but for the symbols that have a double-byte sign of their own in a text.
// The unit 0 has none.
std::string BytesOf(char16_t unit) {
  switch (unit) {
    case 0x2205: return diameterSign;
    case 0x00B0: return degreeSign;
    case 0x25CF: return middleDot;
  }
  std::string bytes;
  const uint16_t character = CodePage932Bytes(unit);
  if (character > 0xFF) bytes += static_cast<char>(character >> 8);
  if (character != 0) bytes += static_cast<char>(character & 0xFF);
  return bytes;
}

const char* FindUnicodeCode(const char* text) {
  return std::strstr(text, "\\U");
}

// What stands behind a "\U+" code's first bytes: its digits, or the end of the text.
const char* DigitsOf(const char* code) {
  return code + std::min<size_t>(std::strlen(code), 3);
}

// Group 1 in the ENTITIES section. All codes at its front go, whatever they were, but for "\f" and "\U".
void ReadText(MText& mtext) {
  ParseFontScales(mtext.scaleW, mtext.scaleT, mtext.obliqueQ);
  while (state.groupValue[0] == '\\' && state.groupValue[1] != 'f' && state.groupValue[1] != 'U')
    DropLeadingCode();
  BoundedCopy(state.entText, state.groupValue);
  const char* const code = FindUnicodeCode(state.entText);
  if (!code) {
    mtext.pending += state.entText;
    BoundedCopy(state.entText, mtext.pending.c_str());
    return;
  }
  // The character is drawn only if another group 1 without such a code follows; entText keeps the code
  // itself.
  mtext.pending.append(state.entText, static_cast<size_t>(code - state.entText));
  mtext.pending += BytesOf(UnicodeUnit(DigitsOf(code)));
}

// Group 1 in a block. All its "\U" codes become characters.
void ReadBlockText(MText& mtext) {
  ParseBlockFontScales(mtext.scaleW, mtext.scaleT, mtext.obliqueQ);
  while (state.groupValue[0] == '\\' && state.groupValue[1] == 'A') DropLeadingCode();
  const char* rest = state.groupValue;
  while (const char* const code = FindUnicodeCode(rest)) {
    const char* const digits = DigitsOf(code);
    mtext.pending.append(rest, static_cast<size_t>(code - rest));
    mtext.pending += BytesOf(UnicodeUnit(digits));
    rest = digits + std::min<size_t>(std::strlen(digits), 4);
  }
  mtext.pending += rest;
  BoundedCopy(state.blockText, mtext.pending.c_str());
}

// Group 1 in a dimension. The last one counts.
void ReadDimText(MText& mtext) {
  ParseFontScales(mtext.scaleW, mtext.scaleT, mtext.obliqueQ);
  while (state.groupValue[0] == '\\' && state.groupValue[1] == 'A') {
    DropFront(state.groupValue, 4);
    ParseFontScales(mtext.scaleW, mtext.scaleT, mtext.obliqueQ);
  }
  BoundedCopy(state.entText, state.groupValue);
}

// Moves the first paragraph of work to text. The last one stays, so that it comes again where more paragraphs
// are counted than there are.
void TakeParagraph(char* work, char* text, size_t size) {
  char* const end = std::strstr(work, "\\P");
  if (end) *end = '\0';
  BoundedCopy(text, size, work);
  if (end) std::memmove(work, end + 2, std::strlen(end + 2) + 1);
}

// Direction. Each scope has formulas of its own, which agree only where the text leans to the right.

double TenthsOfDegree(double radians) {
  return radians * 180.0 / pi * 10.0;
}

void SetDirection(MText& mtext, double angle, double escapement) {
  mtext.angle = angle;
  mtext.font.lfEscapement = Trunc(escapement);
}

void SetRightwardDirection(MText& mtext) {
  if (mtext.dirY < 0.0) {
    const double angle = mtext.dirX == 0.0 ? -halfPi : std::atan(mtext.dirY / mtext.dirX);
    SetDirection(mtext, angle, 3600.0 - TenthsOfDegree(angle + twoPi));
  } else {
    const double angle = mtext.dirX == 0.0 ? halfPi : std::atan(mtext.dirY / mtext.dirX);
    SetDirection(mtext, angle, 3600.0 - TenthsOfDegree(angle));
  }
}

// A text that leans to the left doesn't get its true angle, and no 3600 either.
void SetEntDirection(MText& mtext) {
  if (mtext.dirX < 0.0) {
    const double angle = std::atan(mtext.dirY / -mtext.dirX);
    SetDirection(mtext, angle, TenthsOfDegree(pi - angle));
  } else {
    SetRightwardDirection(mtext);
  }
}

// Upright directions aren't looked out for: a vector without a length has no direction at all.
void SetBlockDirection(MText& mtext) {
  constexpr double tenthsPerRadian = 180.0 / pi * 10.0;
  if (mtext.dirX >= 0.0) {
    const double angle = std::atan(mtext.dirY / mtext.dirX);
    SetDirection(mtext, angle, 3600.0 - (mtext.dirY >= 0.0 ? angle : angle + twoPi) * tenthsPerRadian);
  } else if (mtext.dirY >= 0.0) {
    const double angle = std::atan(mtext.dirY / -mtext.dirX) + pi;
    SetDirection(mtext, angle, 3600.0 - angle * tenthsPerRadian);
  } else {
    const double angle = std::atan(mtext.dirY / -mtext.dirX);
    SetDirection(mtext, angle, (angle + twoPi) * tenthsPerRadian);
  }
}

void SetDimDirection(MText& mtext) {
  if (mtext.dirX >= 0.0) {
    SetRightwardDirection(mtext);
  } else if (mtext.dirY >= 0.0) {
    const double angle = std::atan(mtext.dirY / -mtext.dirX) + pi;
    SetDirection(mtext, angle, TenthsOfDegree(angle));
  } else {
    const double angle = std::atan(mtext.dirY / -mtext.dirX);
    SetDirection(mtext, angle, TenthsOfDegree(angle + twoPi));
  }
}

// Anchors. Lines step along Y whatever the angle, but for the middle row of an odd number of lines. Where a
// function starts from y, the anchor of the paragraph before, the steps add up.

Lines LinesOf(const MText& mtext, double x0, double y0) {
  Lines lines = {0, 1, 0, mtext.font.lfHeight * state.drawScale, x0, y0};
  CountLines(lines.count);
  lines.half = lines.count / 2;
  return lines;
}

// A line of an even number of them about the middle.
double EvenLine(const Lines& lines, double from) {
  if (lines.index < lines.half) return from + lines.step * (lines.half - lines.index - 1);
  return from - lines.step * lines.index;
}

// A line of an odd number of them. The attachment on the right is a line lower in the upper half.
double OddLine(const Lines& lines, double from, int32_t attach) {
  const double lowest = from - 0.5 * lines.step;
  if (lines.index >= lines.half) return lowest - lines.index * lines.step;
  return lowest + (lines.half - lines.index - (attach == 6 ? 1 : 0)) * lines.step;
}

// Moves the anchor from a point, across the direction of the text.
void MoveAcross(double distance, double angle, double fromX, double fromY, double& x, double& y) {
  x = fromX - std::sin(angle) * distance;
  y = std::cos(angle) * distance + fromY;
}

void AnchorEntParagraph(const MText& mtext, const Lines& lines, double& x, double& y) {
  const int32_t height = mtext.font.lfHeight;
  // A size on the sheet, though it goes to a place in the model as it is.
  const double gap = height / 1.2 * 1.67 * mtext.lineFactor - height;
  switch (mtext.attach) {
    case 1:
    case 2:
    case 3: y = lines.y0 - (lines.index * gap + lines.step * lines.index); break;
    case 4:
    case 5:
    case 6:
      if (lines.count % 2 == 0) {
        y = EvenLine(lines, mtext.attach == 4 ? lines.y0 : y);
      } else {
        const double distance = OddLine(lines, lines.y0, mtext.attach) - lines.y0;
        MoveAcross(distance, mtext.angle, lines.x0, lines.y0, x, y);
      }
      break;
    case 7:
    case 8:
    case 9: {
      const int32_t below = lines.count - 1 - lines.index;
      y = lines.y0 + lines.step * below + below * gap;
      break;
    }
  }
}

// The upper row steps upward, and the lower one downward.
void AnchorBlockParagraph(const MText& mtext, const Lines& lines, double& x, double& y) {
  switch (mtext.attach) {
    case 1:
    case 2:
    case 3: y = lines.y0 + lines.step * lines.index; break;
    case 4:
    case 5:
    case 6:
      if (lines.count % 2 == 0) {
        y = EvenLine(lines, y);
      } else {
        MoveAcross(OddLine(lines, y, mtext.attach) - y, mtext.angle, x, y, x, y);
      }
      break;
    case 7:
    case 8:
    case 9: y -= lines.step * lines.index; break;
  }
}

// The upper row steps upward, further each time.
void AnchorDimParagraph(const MText& mtext, const Lines& lines, double& x, double& y) {
  switch (mtext.attach) {
    case 1:
    case 2:
    case 3: y += lines.step * lines.index; break;
    case 4:
    case 5:
    case 6:
      if (lines.count % 2 == 0) {
        y = EvenLine(lines, y);
      } else {
        const double distance = OddLine(lines, y, mtext.attach) - lines.y0;
        MoveAcross(distance, mtext.angle, lines.x0, lines.y0, x, y);
      }
      break;
    case 7:
    case 8:
    case 9: y = lines.y0 + lines.step * (lines.count - 1 - lines.index); break;
  }
}

// The middle row hangs on the bottom of its lines like the lower one. The first call stands even where the
// second says the same.
void AlignText(Canvas canvas, int32_t attach) {
  constexpr UINT bottomCenter = TA_BOTTOM | TA_CENTER, bottomRight = TA_BOTTOM | TA_RIGHT;
  constexpr UINT alignments[] = {TA_TOP,    TA_CENTER,    TA_RIGHT,      // 1 to 3
                                 TA_BOTTOM, bottomCenter, bottomRight,   // 4 to 6
                                 TA_BOTTOM, bottomCenter, bottomRight};  // 7 to 9
  SetTextAlign(canvas, TA_BOTTOM);
  if (attach >= 1 && attach <= 9) SetTextAlign(canvas, alignments[attach - 1]);
}

// Drawing.

// The texts that the view isn't to cut, by their estimated height and width.
bool IsTooHigh(const ViewRect& view, const POINT& at, int32_t height, int32_t attach) {
  const int32_t yDown = WrapNegate(at.y);
  if (attach >= 1 && attach <= 3) return view.bottom < WrapSub(height, at.y);
  if (attach >= 4 && attach <= 6)
    return view.top > WrapSub(yDown, height / 2) || view.bottom < WrapSub(height / 2, at.y);
  if (attach >= 7 && attach <= 9) return view.top > WrapNegate(WrapAdd(at.y, height));
  return false;
}

bool IsTooWide(const ViewRect& view, int32_t x, int32_t width, int32_t attach) {
  switch (attach % 3) {
    case 0: return WrapSub(x, width) < view.left;
    case 1: return WrapAdd(x, width) > view.right;
    case 2: return WrapAdd(x, width / 2) > view.right || WrapSub(x, width / 2) < view.left;
  }
  return false;
}

// Draws a paragraph at a point of the model. False if the view doesn't hold it: the paragraphs behind it
// aren't drawn either.
bool DrawParagraph(Canvas canvas, const char* text, double x, double y, int32_t color, MText& mtext,
                   const ViewRect& view, int32_t wholeTextClip) {
  LOGFONTA& font = mtext.font;
  const POINT at = ModelToSheet(x, y);
  if (!LiesInView(view, at)) return false;
  if (wholeTextClip != 0 && IsTooHigh(view, at, font.lfHeight, mtext.attach)) return false;
  if (HasNoSize(font)) return true;

  SettleFont(font, state.entFace);
  const SelectedFont measured = SelectNewFont(canvas, font);
  const int32_t aveCharWidth = MeasureFont(canvas).tmAveCharWidth;
  RestoreFont(canvas, measured);
  font.lfWidth = Trunc(aveCharWidth * mtext.scaleW);
  const SelectedFont selected = SelectNewFont(canvas, font);
  if (wholeTextClip == 1 && IsTooWide(view, at.x, WrapMul(TextLength(text), aveCharWidth), mtext.attach)) {
    LeaveSelected(selected.font);
    return false;
  }

  SetTextColor(canvas, ColorAt(color));
  SetBkMode(canvas, TRANSPARENT);
  WriteText(canvas, at, text);
  RestoreFont(canvas, selected);
  return true;
}

// The angle of the code "\Q" turns the characters, and makes them italic.
void SetOblique(MText& mtext) {
  mtext.font.lfOrientation = Trunc(mtext.obliqueQ);
  mtext.font.lfItalic = mtext.font.lfOrientation != 0;
}

// In a block the factor goes with the half-width cells alone.
void SetBlockCell(MText& mtext, double value, int32_t halfWidthFont) {
  const int32_t height = Trunc(value * 100.0 / state.drawScale * state.insertScaleY * mtext.scaleT);
  if (halfWidthFont != 0) {
    SetCell(mtext.font, height, halfWidthFont);
  } else {
    mtext.font.lfHeight = height;
    mtext.font.lfWidth = 0;
  }
}

}  // namespace

int32_t DrawMText(const EntityRun& run) {
  LineStyle unusedStyle;
  MText mtext;
  state.entColor = 0;
  state.entFace = defaultFace;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: ReadText(mtext); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[0] = Atof(value) * 100.0; break;
      case 11: mtext.dirX = Atof(value); break;
      case 20: state.entY[0] = Atof(value) * 100.0; break;
      case 21: mtext.dirY = Atof(value); break;
      case 40:
        SetCell(mtext.font, Trunc(Atof(value) * 100.0 / state.drawScale * mtext.scaleT), run.halfWidthFont);
        break;
      case 44: mtext.lineFactor = Atof(value); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 71: mtext.attach = Atoi(value); break;
    }
  }
  SetEntDirection(mtext);
  TurnFont(mtext.font);
  MonochromeRule(state.entColor);
  // The face that a text has named last, this one or one before it.
  ExtractFontName();
  state.entFace = state.entFaceName;
  SetOblique(mtext);

  char work[textSize];
  BoundedCopy(work, state.entText);
  Lines lines = LinesOf(mtext, state.entX[0], state.entY[0]);
  for (; lines.index < lines.count; ++lines.index) {
    TakeParagraph(work, state.entText, sizeof state.entText);
    ExpandPercentCodes();
    if (std::strstr(state.entText, "\\S")) {
      if (!LiesInView(run.view, ModelToSheet(state.entX[0], state.entY[0]))) return more;
      DrawStackedFraction(run.canvas, mtext.font.lfHeight, mtext.font.lfWidth, mtext.font.lfEscapement,
                          mtext.attach, mtext.angle, state.entX[0], state.entY[0], run.halfWidthFont);
      continue;
    }
    StripBraceCodes();
    if (run.halfWidthFont == 0) SelectJapaneseLocale();
    AlignText(run.canvas, mtext.attach);
    AnchorEntParagraph(mtext, lines, state.entX[0], state.entY[0]);
    if (!DrawParagraph(run.canvas, state.entText, state.entX[0], state.entY[0], state.entColor, mtext,
                       run.view, run.wholeTextClip))
      return more;
  }
  return more;
}

int32_t DrawBlockMText(const BlockRun& run) {
  LineStyle unusedStyle;
  MText mtext;
  state.entFace = FaceFor(run.halfWidthFont);
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: ReadBlockText(mtext); break;
      case 8:
        if (!ResolveInsertLayer(unusedStyle, state.blockColor)) return more;
        break;
      case 10: state.blockX[0] = BlockX(Atof(value), run.blockOriginX); break;
      case 11: mtext.dirX = Atof(value); break;
      case 20: state.blockY[0] = BlockY(Atof(value), run.blockOriginY); break;
      case 21: mtext.dirY = Atof(value); break;
      case 40: SetBlockCell(mtext, Atof(value), run.halfWidthFont); break;
      case 62: state.blockColor = ResolveColor(Atoi(value)); break;
      case 71: mtext.attach = Atoi(value); break;
      case 72: mtext.flow = Atoi(value); break;
    }
  }
  SetBlockDirection(mtext);
  if (state.insertAngle != 0.0) {
    const int32_t degrees = Trunc(state.insertAngle * 180.0 / pi);
    mtext.font.lfEscapement = WrapSub(mtext.font.lfEscapement, WrapMul(degrees, 10));
    TurnAboutOrigin(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY);
  }
  MonochromeRule(state.blockColor);
  TurnFont(mtext.font);
  ExtractBlockFontName();  // the name is noted, but the face stays that of the options
  SetOblique(mtext);

  char work[textSize];
  BoundedCopy(work, state.blockText);
  // The paragraphs are counted in entText, the text of another entity, and so many are drawn.
  Lines lines = LinesOf(mtext, state.blockX[0], state.blockY[0]);
  for (; lines.index < lines.count; ++lines.index) {
    TakeParagraph(work, state.blockText, sizeof state.blockText);
    ExpandBlockPercentCodes();
    StripBlockBraceCodes();
    if (run.halfWidthFont == 0) SelectJapaneseLocale();
    if (state.arcClockwise == 1)
      SetTextCharacterExtra(run.canvas, mtext.flow == 0 ? mtext.font.lfWidth / 2 : 0);
    AlignText(run.canvas, mtext.attach);
    AnchorBlockParagraph(mtext, lines, state.blockX[0], state.blockY[0]);
    if (!DrawParagraph(run.canvas, state.blockText, state.blockX[0], state.blockY[0], state.blockColor, mtext,
                       run.view, run.wholeTextClip))
      return more;
  }
  return more;
}

int32_t DrawDimMText(const EntityRun& run) {
  LineStyle unusedStyle;
  MText mtext;
  state.entColor = 0;
  state.entFace = FaceFor(run.halfWidthFont);
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: ReadDimText(mtext); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[1] = Atof(value) * 100.0 + run.offsetX; break;
      case 11: mtext.dirX = Atof(value); break;
      case 20: state.entY[1] = Atof(value) * 100.0 + run.offsetY; break;
      case 21: mtext.dirY = Atof(value); break;
      case 40: SetCell(mtext.font, Trunc(Atof(value) * 100.0 / state.drawScale), run.halfWidthFont); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 71: mtext.attach = Atoi(value); break;
    }
  }
  SetDimDirection(mtext);
  TurnFont(mtext.font);
  MonochromeRule(state.entColor);
  mtext.font.lfOrientation = Trunc(mtext.obliqueQ);  // never italic

  char work[textSize];
  BoundedCopy(work, state.entText);
  Lines lines = LinesOf(mtext, state.entX[1], state.entY[1]);
  for (; lines.index < lines.count; ++lines.index) {
    TakeParagraph(work, state.entText, sizeof state.entText);
    ExpandPercentCodes();
    if (std::strstr(state.entText, "\\S")) {
      // The point that the view must hold isn't this text's: its groups go to the second place, and the first
      // is another entity's.
      if (!LiesInView(run.view, ModelToSheet(state.entX[0], state.entY[0]))) return more;
      DrawStackedFraction(run.canvas, mtext.font.lfHeight, mtext.font.lfWidth, mtext.font.lfEscapement,
                          mtext.attach, mtext.angle, state.entX[1], state.entY[1], run.halfWidthFont);
      continue;
    }
    StripBraceCodes();
    if (run.halfWidthFont == 0) SelectJapaneseLocale();
    AlignText(run.canvas, mtext.attach);
    AnchorDimParagraph(mtext, lines, state.entX[1], state.entY[1]);
    if (!DrawParagraph(run.canvas, state.entText, state.entX[1], state.entY[1], state.entColor, mtext,
                       run.view, run.wholeTextClip))
      return more;
  }
  return more;
}

void CountLines(int32_t& count) {
  for (const char* end = state.entText; (end = std::strstr(end, "\\P")) != nullptr; end += 2) ++count;
}

}  // namespace hexlume
