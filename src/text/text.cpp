// TEXT: one string in one font. It starts at groups 10 and 20 with any alignment. The second point is used
// for a fitted text (group 72 = 5) alone, to compute the width of its characters.
#include "text/text.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "canvas/left_objects.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"
#include "platform/full_width.h"
#include "platform/japanese_locale.h"
#include "text/text_bytes.h"
#include "text/text_font.h"
#include "text/text_strings.h"

namespace hexlume {

namespace {

constexpr int32_t fitJustify = 5;  // group 72

// Skips the codes "\A0;", "\A1;" and "\A2;" at the start of the text: four bytes for each "\A", of any value.
const char* SkipAlignmentCodes(const char* text) {
  while (text[0] == '\\' && text[1] == 'A') {
    text += 2;
    for (int left = 2; left > 0 && *text != '\0'; --left) ++text;
  }
  return text;
}

// Japanese text in half-width cells is drawn smaller than Latin text of the same height.
void ShrinkCell(LOGFONTA& font) {
  font.lfHeight = Trunc(font.lfHeight / 1.3);
  font.lfWidth = font.lfHeight / 2;
}

// Makes a fitted text at least 1.8 times as high as wide.
void RaiseCell(LOGFONTA& font) {
  font.lfHeight = std::max<LONG>(font.lfHeight, Trunc(font.lfWidth * 1.8));
}

// Classifies a scope's text as strip leaves it, then restores the text.
template <size_t size>
int32_t ClassifyStripped(char (&text)[size], void (*strip)()) {
  char saved[size];
  BoundedCopy(saved, text);
  strip();
  const int32_t kanjiText = ClassifyText(text);
  BoundedCopy(text, saved);
  return kanjiText;
}

// The number of half-width cells of a widened text, and a sixth more if widening hasn't made the text longer.
int32_t CellCount(const std::string& widened, const char* text) {
  const auto count = static_cast<int32_t>(widened.size());
  return count == TextLength(text) ? count + count / 6 : count;
}

// The width is the first point minus the second one: negative for a text that runs to the right, in which
// case RaiseCell changes nothing. An empty text divides by 0, and Trunc gives INT32_MIN.
void FitText(LOGFONTA& font, int32_t halfWidthFont) {
  int32_t count = 0;
  if (halfWidthFont != 0) {
    const std::string widened = WidenText(state.entText);
    count = CellCount(widened, state.entText);
    BoundedCopy(state.entText, widened.c_str());
  } else {
    count = FitCount(state.entText);
  }
  font.lfWidth = Trunc((state.entX[0] - state.entX[1]) / count / state.drawScale);
  if (font.lfWidth == 0) font.lfWidth = Trunc((state.entY[0] - state.entY[1]) / count / state.drawScale);
  if (halfWidthFont == 0) RaiseCell(font);
}

// Here a widened text never counts a sixth more. insertScaleX is the factor for both directions, but
// half-width cells aren't scaled.
void FitBlockText(LOGFONTA& font, int32_t halfWidthFont) {
  int32_t count = 0;
  double scale = 1.0;
  if (halfWidthFont != 0) {
    BoundedCopy(state.blockText, WidenText(state.blockText).c_str());
    count = TextLength(state.blockText);
  } else {
    count = FitCount(state.blockText);
    scale = state.insertScaleX;
  }
  font.lfWidth = Trunc((state.blockX[0] - state.blockX[1]) / count / state.drawScale * scale);
  if (font.lfWidth == 0)
    font.lfWidth = Trunc((state.blockY[0] - state.blockY[1]) / count / state.drawScale * scale);
  if (halfWidthFont == 0) RaiseCell(font);
}

// drawScale isn't applied here. The two points are swapped: X is group 11 minus group 10, but Y is group 20
// minus group 21.
void FitDimText(LOGFONTA& font) {
  const int32_t count = FitCount(state.entText);
  font.lfWidth = Trunc((state.entX[0] - state.entX[1]) / count);
  if (font.lfWidth == 0) font.lfWidth = Trunc((state.entY[1] - state.entY[0]) / count);
  RaiseCell(font);
}

// A text with a half-width character loses its justification, but gets the fitted width.
void FitDimInsertText(LOGFONTA& font, int32_t& justify) {
  if (std::strlen(state.dimText) != 2 * CharacterCount(state.dimText)) justify = 0;
  const int32_t count = TextLength(state.dimText);
  font.lfWidth = Trunc((state.dimX[1] - state.dimX[0]) / count);
  if (font.lfWidth == 0) font.lfWidth = Trunc((state.dimY[1] - state.dimY[0]) / count);
}

}  // namespace

int32_t DrawText(const EntityRun& run) {
  LOGFONTA font = {};
  LineStyle unusedStyle;
  int32_t justify = 0;
  state.entFace = FaceFor(run.halfWidthFont);
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: BoundedCopy(state.entText, SkipAlignmentCodes(value)); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[0] = Hundredths(value); break;
      case 11: state.entX[1] = Hundredths(value); break;
      case 20: state.entY[0] = Hundredths(value); break;
      case 21: state.entY[1] = Hundredths(value); break;
      case 40: SetCell(font, Trunc(Hundredths(value) / state.drawScale), run.halfWidthFont); break;
      case 41:
        if (run.halfWidthFont == 0) font.lfWidth = Trunc(Atof(value) * font.lfHeight * 0.5);
        break;
      case 50: font.lfEscapement = ReadEscapement(value); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 72: justify = Atoi(value); break;
    }
  }
  const POINT insertion = ModelToSheet(state.entX[0], state.entY[0]);
  if (!StartsInView(run.view, insertion, font.lfHeight, run.wholeTextClip)) return more;
  MonochromeRule(state.entColor);
  TurnFont(font);

  ExpandPercentCodes();
  if (std::strstr(state.entText, "\\S")) return more;
  StripBraceCodes();
  const int32_t kanjiText = ClassifyStripped(state.entText, StripSpaceAndParens);
  if (kanjiText == 1 && run.halfWidthFont != 0) ShrinkCell(font);
  if (run.halfWidthFont != 0) WidenEmptyBrackets();
  if (justify == fitJustify) FitText(font, run.halfWidthFont);
  if (HasNoSize(font)) return more;

  // Group 51 isn't read here: the text is never oblique.
  SettleFont(font, state.entFace);
  const SelectedFont selected = SelectNewFont(run.canvas, font);
  const TEXTMETRICA metrics = MeasureFont(run.canvas);
  // The descent is in sheet units, but subtracted from a model coordinate without drawScale.
  if (kanjiText != 1) state.entY[0] -= metrics.tmDescent;
  const POINT place = ModelToSheet(state.entX[0], state.entY[0]);
  if (run.wholeTextClip == 1 && ReachesBeyond(run.view, place.x, state.entText, metrics.tmAveCharWidth)) {
    LeaveSelected(selected.font);
    return more;
  }
  SetTextModes(run.canvas, state.entColor);
  // It isn't reset: the texts after this one are squeezed too.
  if (font.lfHeight < 10) SetTextCharacterExtra(run.canvas, WrapMul(font.lfHeight, -4));
  WriteText(run.canvas, place, state.entText);
  RestoreFont(run.canvas, selected);
  return more;
}

// insertAngle turns neither the point nor the font. Group 50 turns the text in the opposite direction to that
// outside a block.
int32_t DrawBlockText(const BlockRun& run) {
  LOGFONTA font = {};
  LineStyle unusedStyle;
  int32_t justify = 0;
  state.entFace = FaceFor(run.halfWidthFont);
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: BoundedCopy(state.blockText, SkipAlignmentCodes(value)); break;
      case 8:
        if (!ResolveInsertLayer(unusedStyle, state.blockColor)) return more;
        break;
      case 10: state.blockX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 11: state.blockX[1] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20: state.blockY[0] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 21: state.blockY[1] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 40:
        SetCell(font, Trunc(GroupHundredths() / state.drawScale * state.insertScaleY), run.halfWidthFont);
        break;
      case 41:
        if (run.halfWidthFont == 0) font.lfWidth = Trunc(GroupNumber() * font.lfHeight * 0.5);
        break;
      case 50: font.lfEscapement = Trunc(GroupNumber() * 10.0); break;
      case 62: state.blockColor = ResolveColor(Atoi(value)); break;
      case 72: justify = Atoi(value); break;
    }
  }
  const POINT insertion = ModelToSheet(state.blockX[0], state.blockY[0]);
  if (!StartsInView(run.view, insertion, font.lfHeight, run.wholeTextClip)) return more;
  MonochromeRule(state.blockColor);
  TurnFont(font);

  ExpandBlockPercentCodes();  // codes in braces are drawn, a fraction's too
  const int32_t kanjiText = ClassifyStripped(state.blockText, StripBlockSpaceAndParens);
  if (kanjiText == 1 && run.halfWidthFont != 0) ShrinkCell(font);
  if (justify == fitJustify) FitBlockText(font, run.halfWidthFont);
  if (kanjiText == 0 && run.halfWidthFont != 0) {
    // Sheet units, added to model coordinates without drawScale.
    state.blockX[0] += font.lfWidth * 0.47;
    state.blockY[0] += 1.0;
    state.blockY[1] += 1.0;
  }
  if (HasNoSize(font)) return more;

  SettleFont(font, state.entFace);
  const SelectedFont selected = SelectNewFont(run.canvas, font);
  const TEXTMETRICA metrics = MeasureFont(run.canvas);
  if (kanjiText == 0) state.blockY[0] -= metrics.tmDescent;
  const POINT place = ModelToSheet(state.blockX[0], state.blockY[0]);
  if (run.wholeTextClip == 1 && ReachesBeyond(run.view, place.x, state.blockText, metrics.tmAveCharWidth)) {
    LeaveSelected(selected.font);
    return more;
  }
  SetTextModes(run.canvas, state.blockColor);
  WriteText(run.canvas, place, state.blockText);
  RestoreFont(run.canvas, selected);
  return more;
}

// Groups 10 and 20 are read into entX[1] and entY[1], groups 11 and 21 into entX[0] and entY[0]. The text
// still starts at groups 10 and 20.
int32_t DrawDimText(const EntityRun& run) {
  LOGFONTA font = {};
  LineStyle unusedStyle;
  int32_t justify = 0;
  state.entColor = 0;
  state.entFace = FaceFor(run.halfWidthFont);
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: BoundedCopy(state.entText, SkipAlignmentCodes(value)); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[1] = Hundredths(value) + run.offsetX; break;
      case 11: state.entX[0] = Hundredths(value) + run.offsetX; break;
      case 20: state.entY[1] = Hundredths(value) + run.offsetY; break;
      case 21: state.entY[0] = Hundredths(value) + run.offsetY; break;
      case 40:
        font.lfHeight = Trunc(Hundredths(value) / state.drawScale);
        font.lfWidth = 0;
        if (run.halfWidthFont != 0) SetCell(font, font.lfHeight, run.halfWidthFont);
        break;
      case 41: font.lfWidth = Trunc(Atof(value) * font.lfWidth); break;
      case 50: font.lfEscapement = ReadEscapement(value); break;
      case 51:
        if (Atoi(value) != 0) font.lfItalic = 1;
        break;
      case 62:
        if (Atoi(value) != 0) state.entColor = ResolveColor(Atoi(value));
        break;
      case 72: justify = Atoi(value); break;
    }
  }
  const POINT place = ModelToSheet(state.entX[1], state.entY[1]);
  if (!StartsInView(run.view, place, font.lfHeight, run.wholeTextClip)) return more;
  MonochromeRule(state.entColor);
  TurnFont(font);

  ExpandPercentCodes();
  StripBraceCodes();
  if (run.halfWidthFont == 0) SelectJapaneseLocale();
  if (justify == fitJustify && run.halfWidthFont == 0) FitDimText(font);
  if (HasNoSize(font)) return more;

  SettleFont(font, state.entFace);
  const SelectedFont selected = SelectNewFont(run.canvas, font);
  if (run.wholeTextClip == 1 &&
      ReachesBeyond(run.view, place.x, state.entText, MeasureFont(run.canvas).tmAveCharWidth)) {
    LeaveSelected(selected.font);
    return more;
  }
  SetTextModes(run.canvas, state.entColor);
  WriteText(run.canvas, place, state.entText);
  RestoreFont(run.canvas, selected);
  return more;
}

// The insert neither scales nor turns the text. The face is always the default one.
int32_t DrawDimInsertText(const BlockRun& run) {
  LOGFONTA font = {};
  LineStyle unusedStyle;
  int32_t justify = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: BoundedCopy(state.dimText, value); break;
      case 8:
        if (!ResolveInsertLayer(unusedStyle, state.dimColor)) return more;
        break;
      case 10: state.dimX[0] = Hundredths(value) + run.blockOriginX; break;
      case 11: state.dimX[1] = Hundredths(value) + run.blockOriginX; break;
      case 20: state.dimY[0] = Hundredths(value) + run.blockOriginY; break;
      case 21: state.dimY[1] = Hundredths(value) + run.blockOriginY; break;
      case 40: SetCell(font, Trunc(Hundredths(value) / state.drawScale), 1); break;
      case 41: font.lfWidth = Trunc(Atof(value) * font.lfWidth); break;
      case 50: font.lfEscapement = font.lfOrientation = ReadEscapement(value); break;
      case 62: state.dimColor = ResolveColor(Atoi(value)); break;
      case 72: justify = Atoi(value); break;
    }
  }
  const POINT place = ModelToSheet(state.dimX[0], state.dimY[0]);
  if (!StartsInView(run.view, place, font.lfHeight, run.wholeTextClip)) return more;
  MonochromeRule(state.dimColor);
  TurnFont(font);

  ExpandDimInsertPercentCodes();
  if (justify == fitJustify) FitDimInsertText(font, justify);
  if (state.arcClockwise == 1) SetTextCharacterExtra(run.canvas, justify == 0 ? font.lfWidth / 2 : 0);
  if (HasNoSize(font)) return more;

  SettleFont(font, defaultFace);
  const SelectedFont selected = SelectNewFont(run.canvas, font);
  if (run.wholeTextClip == 1 &&
      ReachesBeyond(run.view, place.x, state.dimText, MeasureFont(run.canvas).tmAveCharWidth)) {
    LeaveSelected(selected.font);
    return more;
  }
  SetTextModes(run.canvas, state.dimColor);
  WriteText(run.canvas, place, state.dimText);
  RestoreFont(run.canvas, selected);
  return more;
}

}  // namespace hexlume
