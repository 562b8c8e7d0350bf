// MTEXT in a block, without stacked fractions, and in a dimension's block.
#include <cstring>

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"
#include "platform/japanese_locale.h"
#include "text/mtext.h"
#include "text/mtext_codes.h"
#include "text/mtext_layout.h"
#include "text/stacked_fraction.h"
#include "text/text_font.h"
#include "text/text_strings.h"

namespace hexlume {

namespace {

// Group 40. The factor 1.1 applies to half-width cells alone.
void SetBlockCell(MText& mtext, double value, int32_t halfWidthFont) {
  const int32_t height = Trunc(value * 100.0 / state.drawScale * state.insertScaleY * mtext.codes.scaleT);
  if (halfWidthFont != 0) {
    SetCell(mtext.font, height, halfWidthFont);
  } else {
    mtext.font.lfHeight = height;
    mtext.font.lfWidth = 0;
  }
}

}  // namespace

int32_t DrawBlockMText(const BlockRun& run) {
  LineStyle unusedStyle;
  MText mtext;
  state.entFace = FaceFor(run.halfWidthFont);
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: ReadBlockMTextString(mtext.codes); break;
      case 8:
        if (!ResolveInsertLayer(unusedStyle, state.blockColor)) return more;
        break;
      case 10: state.blockX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 11: mtext.dirX = GroupNumber(); break;
      case 20: state.blockY[0] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 21: mtext.dirY = GroupNumber(); break;
      case 40: SetBlockCell(mtext, GroupNumber(), run.halfWidthFont); break;
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
  ExtractBlockFontName();  // sets blockFaceName, but entFace is kept
  SetOblique(mtext);

  char work[textSize];
  BoundedCopy(work, state.blockText);
  // CountLines counts in entText, the text of another entity: as many paragraphs are drawn as that one has.
  MTextLines lines = CountedLines(mtext, state.blockX[0], state.blockY[0]);
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
      case 1: ReadDimMTextString(mtext.codes); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[1] = Hundredths(value) + run.offsetX; break;
      case 11: mtext.dirX = Atof(value); break;
      case 20: state.entY[1] = Hundredths(value) + run.offsetY; break;
      case 21: mtext.dirY = Atof(value); break;
      case 40: SetCell(mtext.font, Trunc(Hundredths(value) / state.drawScale), run.halfWidthFont); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 71: mtext.attach = Atoi(value); break;
    }
  }
  SetDimDirection(mtext);
  TurnFont(mtext.font);
  MonochromeRule(state.entColor);
  mtext.font.lfOrientation = Trunc(mtext.codes.obliqueQ);  // never italic

  char work[textSize];
  BoundedCopy(work, state.entText);
  MTextLines lines = CountedLines(mtext, state.entX[1], state.entY[1]);
  for (; lines.index < lines.count; ++lines.index) {
    TakeParagraph(work, state.entText, sizeof state.entText);
    ExpandPercentCodes();
    if (std::strstr(state.entText, "\\S")) {
      // Not this text's point, which is entX[1], entY[1], but one that an earlier entity has left.
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

}  // namespace hexlume
