// MTEXT in the ENTITIES section. Each paragraph is one line of any length: the reference width (group 41)
// isn't read. Nor is group 3, so that only the last chunk of a long text is drawn.
#include "text/mtext.h"

#include <cstring>

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"
#include "platform/japanese_locale.h"
#include "text/mtext_codes.h"
#include "text/mtext_layout.h"
#include "text/stacked_fraction.h"
#include "text/text_font.h"
#include "text/text_strings.h"

namespace hexlume {

int32_t DrawMText(const EntityRun& run) {
  LineStyle unusedStyle;
  MText mtext;
  state.entColor = 0;
  state.entFace = defaultFace;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: ReadMTextString(mtext.codes); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[0] = Hundredths(value); break;
      case 11: mtext.dirX = Atof(value); break;
      case 20: state.entY[0] = Hundredths(value); break;
      case 21: mtext.dirY = Atof(value); break;
      case 40:
        SetCell(mtext.font, Trunc(Hundredths(value) / state.drawScale * mtext.codes.scaleT),
                run.halfWidthFont);
        break;
      case 44: mtext.lineFactor = Atof(value); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 71: mtext.attach = Atoi(value); break;
    }
  }
  SetEntDirection(mtext);
  TurnFont(mtext.font);
  MonochromeRule(state.entColor);
  // The face of the last "\f" code so far, of this MTEXT or an earlier one.
  ExtractFontName();
  state.entFace = state.entFaceName;
  SetOblique(mtext);

  char work[textSize];
  BoundedCopy(work, state.entText);
  MTextLines lines = CountedLines(mtext, state.entX[0], state.entY[0]);
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

}  // namespace hexlume
