// ATTRIB: plain text in a fixed font. The flag that hides an attribute isn't read: all attributes are drawn.
#include "text/attrib.h"

#include <algorithm>
#include <cstring>

#include "canvas/left_objects.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"
#include "text/text_bytes.h"
#include "text/text_font.h"

namespace hexlume {

namespace {

constexpr int32_t upsideDown = 4;  // group 71

// Skips four bytes for each code at the start of the text. The rest of a longer code is drawn.
const char* SkipLeadingCodes(const char* text) {
  constexpr size_t codeLength = 4;
  while (*text == '\\') text += std::min(std::strlen(text), codeLength);
  return text;
}

// In sheet units, from the groups read so far. The product is unsigned: with a negative width factor it is
// huge, and the text is moved out of the sheet.
double EstimatedWidth(const LOGFONTA& font) {
  return static_cast<uint32_t>(WrapMul(TextLength(state.entText), font.lfWidth));
}

}  // namespace

int32_t DrawAttrib(const EntityRun& run) {
  LineStyle unusedStyle;
  LOGFONTA font = {};
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 1: BoundedCopy(state.entText, SkipLeadingCodes(value)); break;
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[0] = Hundredths(value); break;
      case 20: state.entY[0] = Hundredths(value); break;
      case 40: SetCell(font, Trunc(Hundredths(value) / state.drawScale), 1); break;
      case 41: font.lfWidth = Trunc(Atof(value) * font.lfWidth); break;
      case 50: font.lfEscapement = ReadEscapement(value); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 71:
        if (Atoi(value) != upsideDown) break;
        font.lfEscapement = WrapAdd(font.lfEscapement, 1800);
        state.entX[0] -= EstimatedWidth(font) * state.drawScale;
        break;
    }
  }

  const POINT place = ModelToSheet(state.entX[0], state.entY[0]);
  if (!StartsInView(run.view, place, font.lfHeight, run.wholeTextClip)) return more;
  MonochromeRule(state.entColor);
  TurnFont(font);
  if (HasNoSize(font)) return more;

  SettleFont(font, defaultFace);
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

}  // namespace hexlume
