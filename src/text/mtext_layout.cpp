#include "text/mtext_layout.h"

#include <cmath>

#include "canvas/left_objects.h"
#include "driver/work_budget.h"
#include "entities/converter_rules.h"
#include "text/mtext_codes.h"
#include "text/text_bytes.h"
#include "text/text_font.h"

namespace hexlume {

namespace {

double TenthsOfDegree(double radians) {
  return radians * 180.0 / pi * 10.0;
}

// angle is in radians, escapement in tenths of a degree.
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

// Y for attachments 4 to 6 with an even number of lines.
double EvenLine(const MTextLines& lines, double from) {
  if (lines.index < lines.half) return from + lines.step * (lines.half - lines.index - 1);
  return from - lines.step * lines.index;
}

// The same with an odd number. In the upper half, attachment 6 is one line lower than 4 and 5.
double OddLine(const MTextLines& lines, double from, int32_t attach) {
  const double lowest = from - 0.5 * lines.step;
  if (lines.index >= lines.half) return lowest - lines.index * lines.step;
  return lowest + (lines.half - lines.index - (attach == 6 ? 1 : 0)) * lines.step;
}

// Sets (x, y) to the point at a distance from (fromX, fromY), perpendicular to the text's direction.
void MoveAcross(double distance, double angle, double fromX, double fromY, double& x, double& y) {
  x = fromX - std::sin(angle) * distance;
  y = std::cos(angle) * distance + fromY;
}

// IsTooHigh and IsTooWide: whether a paragraph leaves the view by its height or its estimated width.

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

}  // namespace

// With dirX < 0 the angle isn't the true direction, and the escapement is without 3600.
void SetEntDirection(MText& mtext) {
  if (mtext.dirX < 0.0) {
    const double angle = std::atan(mtext.dirY / -mtext.dirX);
    SetDirection(mtext, angle, TenthsOfDegree(pi - angle));
  } else {
    SetRightwardDirection(mtext);
  }
}

// dirX == 0 isn't tested: the vector (0, 0) gives a NaN angle.
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

void SetOblique(MText& mtext) {
  mtext.font.lfOrientation = Trunc(mtext.codes.obliqueQ);
  mtext.font.lfItalic = mtext.font.lfOrientation != 0;
}

MTextLines CountedLines(const MText& mtext, double x0, double y0) {
  MTextLines lines = {0, 1, 0, mtext.font.lfHeight * state.drawScale, x0, y0};
  CountLines(lines.count);
  lines.half = lines.count / 2;
  return lines;
}

void AnchorEntParagraph(const MText& mtext, const MTextLines& lines, double& x, double& y) {
  const int32_t height = mtext.font.lfHeight;
  // In sheet units, but added to a model coordinate without drawScale.
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

// Attachments 1 to 3 step upward. 7 to 9 step downward and accumulate.
void AnchorBlockParagraph(const MText& mtext, const MTextLines& lines, double& x, double& y) {
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

// Attachments 1 to 3 step upward and accumulate.
void AnchorDimParagraph(const MText& mtext, const MTextLines& lines, double& x, double& y) {
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

// Attachments 4 to 6 are aligned at the bottom, as 7 to 9 are. The first call is made even where the second
// sets the same alignment.
void AlignText(Canvas canvas, int32_t attach) {
  constexpr UINT bottomCenter = TA_BOTTOM | TA_CENTER, bottomRight = TA_BOTTOM | TA_RIGHT;
  constexpr UINT alignments[] = {TA_TOP,    TA_CENTER,    TA_RIGHT,      // 1 to 3
                                 TA_BOTTOM, bottomCenter, bottomRight,   // 4 to 6
                                 TA_BOTTOM, bottomCenter, bottomRight};  // 7 to 9
  constexpr int64_t stepsOfAlignment = 200;
  constexpr int64_t bytesOfAlignment = 24;
  CountWork(stepsOfAlignment, bytesOfAlignment);
  SetTextAlign(canvas, TA_BOTTOM);
  if (attach >= 1 && attach <= 9) SetTextAlign(canvas, alignments[attach - 1]);
}

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
  font.lfWidth = Trunc(aveCharWidth * mtext.codes.scaleW);
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

}  // namespace hexlume
