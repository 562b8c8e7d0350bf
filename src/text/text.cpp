// TEXT: one string in one font. Whatever its alignment, it is written from its group 10/20 on; only a fitted
// text (group 72 of 5) looks at the second point, for the width of its characters.
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

constexpr int32_t fitJustify = 5;

// What follows the codes "\A0;", "\A1;" and "\A2;" in front of a text. Four bytes go for each, whatever they
// are.
const char* BehindAlignmentCodes(const char* text) {
  while (text[0] == '\\' && text[1] == 'A') text += std::min<size_t>(std::strlen(text), 4);
  return text;
}

// A text of Japanese characters, in half-width cells, is smaller than a Latin one of its height.
void ShrinkCell(LOGFONTA& font) {
  font.lfHeight = Trunc(font.lfHeight / 1.3);
  font.lfWidth = font.lfHeight / 2;
}

// A fitted text is at least this high for its width.
void RaiseCell(LOGFONTA& font) {
  font.lfHeight = std::max<LONG>(font.lfHeight, Trunc(font.lfWidth * 1.8));
}

int32_t ClassifyEntText() {
  char saved[textSize];
  BoundedCopy(saved, state.entText);
  StripSpaceAndParens();
  const int32_t kanjiText = ClassifyText(state.entText);
  BoundedCopy(state.entText, saved);
  return kanjiText;
}

int32_t ClassifyBlockText() {
  char saved[textSize];
  BoundedCopy(saved, state.blockText);
  StripBlockSpaceAndParens();
  const int32_t kanjiText = ClassifyText(state.blockText);
  BoundedCopy(state.blockText, saved);
  return kanjiText;
}

// The cells that a text takes in full width. A text that is in full width already, or of bytes that have no
// such form, gets a sixth more.
int32_t CellCount(const std::string& widened, const char* text) {
  const auto count = static_cast<int32_t>(widened.size());
  return count == TextLength(text) ? count + count / 6 : count;
}

// The width is the first point less the second one: a text that runs to the right has a negative width, which
// goes to the font as it is, and raises no cell. Without a character it is the number that no width can be.
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

// Here the widened text gets no sixth more, and the insert's X scale counts for both directions, but in
// half-width cells for neither.
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

// The drawing's scale doesn't count here. With the points in swapped places X gives group 11 less group 10,
// but Y gives 20 less 21.
void FitDimText(LOGFONTA& font) {
  const int32_t count = FitCount(state.entText);
  font.lfWidth = Trunc((state.entX[0] - state.entX[1]) / count);
  if (font.lfWidth == 0) font.lfWidth = Trunc((state.entY[1] - state.entY[0]) / count);
  RaiseCell(font);
}

// A text that isn't all full-width counts as not justified, with the fitted width all the same.
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
      case 1: BoundedCopy(state.entText, BehindAlignmentCodes(value)); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[0] = Atof(value) * 100.0; break;
      case 11: state.entX[1] = Atof(value) * 100.0; break;
      case 20: state.entY[0] = Atof(value) * 100.0; break;
      case 21: state.entY[1] = Atof(value) * 100.0; break;
      case 40: SetCell(font, Trunc(Atof(value) * 100.0 / state.drawScale), run.halfWidthFont); break;
      case 41:
        if (run.halfWidthFont == 0) font.lfWidth = Trunc(Atof(value) * font.lfHeight * 0.5);
        break;
      case 50: font.lfEscapement = ReadEscapement(value); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 72: justify = Atoi(value); break;
    }
  }
  const POINT insertion = ModelToSheet(state.entX[0], state.entY[0]);
  if (!StandsInView(run.view, insertion, font.lfHeight, run.wholeTextClip)) return more;
  MonochromeRule(state.entColor);
  TurnFont(font);

  ExpandPercentCodes();
  if (std::strstr(state.entText, "\\S")) return more;
  StripBraceCodes();
  const int32_t kanjiText = ClassifyEntText();
  if (kanjiText == 1 && run.halfWidthFont != 0) ShrinkCell(font);
  if (run.halfWidthFont != 0) WidenEmptyBrackets();
  if (justify == fitJustify) FitText(font, run.halfWidthFont);
  if (HasNoSize(font)) return more;

  // Group 51 makes no text oblique here.
  SettleFont(font, state.entFace);
  const SelectedFont selected = SelectNewFont(run.canvas, font);
  const TEXTMETRICA metrics = MeasureFont(run.canvas);
  // The sheet's descent goes off the model's coordinate as it is, whatever the scale.
  if (kanjiText != 1) state.entY[0] -= metrics.tmDescent;
  const POINT place = ModelToSheet(state.entX[0], state.entY[0]);
  if (run.wholeTextClip == 1 && ReachesBeyond(run.view, place.x, state.entText, metrics.tmAveCharWidth)) {
    LeaveSelected(selected.font);
    return more;
  }
  SetTextModes(run.canvas, state.entColor);
  // It isn't taken back: all texts that follow are squeezed too.
  if (font.lfHeight < 10) SetTextCharacterExtra(run.canvas, WrapMul(font.lfHeight, -4));
  WriteText(run.canvas, place, state.entText);
  RestoreFont(run.canvas, selected);
  return more;
}

// The insert's angle turns neither the point nor the font, and the angle of group 50 counts the other way
// round than outside a block.
int32_t DrawBlockText(const BlockRun& run) {
  LOGFONTA font = {};
  LineStyle unusedStyle;
  int32_t justify = 0;
  state.entFace = FaceFor(run.halfWidthFont);
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: BoundedCopy(state.blockText, BehindAlignmentCodes(value)); break;
      case 8:
        if (!ResolveInsertLayer(unusedStyle, state.blockColor)) return more;
        break;
      case 10: state.blockX[0] = BlockX(Atof(value), run.blockOriginX); break;
      case 11: state.blockX[1] = BlockX(Atof(value), run.blockOriginX); break;
      case 20: state.blockY[0] = BlockY(Atof(value), run.blockOriginY); break;
      case 21: state.blockY[1] = BlockY(Atof(value), run.blockOriginY); break;
      case 40:
        SetCell(font, Trunc(Atof(value) * 100.0 / state.drawScale * state.insertScaleY), run.halfWidthFont);
        break;
      case 41:
        if (run.halfWidthFont == 0) font.lfWidth = Trunc(Atof(value) * font.lfHeight * 0.5);
        break;
      case 50: font.lfEscapement = Trunc(Atof(value) * 10.0); break;
      case 62: state.blockColor = ResolveColor(Atoi(value)); break;
      case 72: justify = Atoi(value); break;
    }
  }
  const POINT insertion = ModelToSheet(state.blockX[0], state.blockY[0]);
  if (!StandsInView(run.view, insertion, font.lfHeight, run.wholeTextClip)) return more;
  MonochromeRule(state.blockColor);
  TurnFont(font);

  ExpandBlockPercentCodes();  // codes in braces stay, a fraction's too
  const int32_t kanjiText = ClassifyBlockText();
  if (kanjiText == 1 && run.halfWidthFont != 0) ShrinkCell(font);
  if (justify == fitJustify) FitBlockText(font, run.halfWidthFont);
  if (kanjiText == 0 && run.halfWidthFont != 0) {
    // Sheet units go to model coordinates here as well.
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

// Its two points stand in swapped places, and it is written from the second one: from group 10/20 still.
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
      case 1: BoundedCopy(state.entText, BehindAlignmentCodes(value)); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[1] = Atof(value) * 100.0 + run.offsetX; break;
      case 11: state.entX[0] = Atof(value) * 100.0 + run.offsetX; break;
      case 20: state.entY[1] = Atof(value) * 100.0 + run.offsetY; break;
      case 21: state.entY[0] = Atof(value) * 100.0 + run.offsetY; break;
      case 40:
        font.lfHeight = Trunc(Atof(value) * 100.0 / state.drawScale);
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
  if (!StandsInView(run.view, place, font.lfHeight, run.wholeTextClip)) return more;
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

// The insert neither scales nor turns it, and its face is the default one in all modes.
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
      case 10: state.dimX[0] = Atof(value) * 100.0 + run.blockOriginX; break;
      case 11: state.dimX[1] = Atof(value) * 100.0 + run.blockOriginX; break;
      case 20: state.dimY[0] = Atof(value) * 100.0 + run.blockOriginY; break;
      case 21: state.dimY[1] = Atof(value) * 100.0 + run.blockOriginY; break;
      case 40: SetCell(font, Trunc(Atof(value) * 100.0 / state.drawScale), 1); break;
      case 41: font.lfWidth = Trunc(Atof(value) * font.lfWidth); break;
      case 50: font.lfEscapement = font.lfOrientation = ReadEscapement(value); break;
      case 62: state.dimColor = ResolveColor(Atoi(value)); break;
      case 72: justify = Atoi(value); break;
    }
  }
  const POINT place = ModelToSheet(state.dimX[0], state.dimY[0]);
  if (!StandsInView(run.view, place, font.lfHeight, run.wholeTextClip)) return more;
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
