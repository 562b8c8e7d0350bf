// A paragraph with a fraction in "\S" and a caret: the text in front, the upper part, the lower part and the
// text behind, each a text of its own. No extent is measured: a piece is as wide as its bytes times the width
// of the font. One fraction a paragraph; a turned sheet turns the pieces, but doesn't move them.
#include "text/stacked_fraction.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "driver/bounded_copy.h"
#include "text/text_bytes.h"
#include "text/text_font.h"
#include "text/text_strings.h"

namespace hexlume {

namespace {

constexpr double ownHeight = -1.0;  // as a factor: the parts are as high as the text around them

struct Pieces {
  char prefix[textSize], upper[textSize], lower[textSize], tail[textSize];
  double stackHeight;  // what ParseStackHeight tells
};

struct PieceSize {
  int32_t height, width;
};

// What all pieces stand on, from its lower left on.
struct Baseline {
  double x, y;
  int32_t escapement;
};

// A bracket around the fraction is an ASCII byte that no trail byte equals.
bool HasOpening(const Pieces& pieces) {
  return std::strchr(pieces.prefix, '(') != nullptr;
}
bool HasClosing(const Pieces& pieces) {
  return std::strchr(pieces.tail, ')') != nullptr;
}

void SplitParts(const char* fraction, Pieces& pieces) {
  BoundedCopy(pieces.upper, fraction);
  pieces.lower[0] = '\0';
  char* const caret = std::strchr(pieces.upper, '^');
  if (!caret) return;
  // The byte behind the caret should be a blank, and goes whatever it is.
  if (caret[1] != '\0') BoundedCopy(pieces.lower, caret + 2);
  *caret = '\0';
}

// Takes entText apart. The height is looked for in front of the fraction alone.
Pieces SplitLine() {
  Pieces pieces;
  char line[textSize];
  BoundedCopy(line, state.entText);
  char* const code = std::strstr(line, "\\S");
  char* const fraction = code + 2;
  *code = '\0';
  BoundedCopy(state.entText, line);
  pieces.stackHeight = ParseStackHeight();
  StripBraceCodes();
  BoundedCopy(pieces.prefix, state.entText);

  // A fraction without an end leaves the text in front of it to be drawn behind it too.
  if (char* const end = std::strchr(fraction, ';')) {
    BoundedCopy(state.entText, end + 1);
    *end = '\0';
  }
  SplitParts(fraction, pieces);
  StripBraceCodes();
  BoundedCopy(pieces.tail, state.entText);
  return pieces;
}

PieceSize SizeOfParts(double stackHeight, const PieceSize& around, int32_t halfWidthFont) {
  if (stackHeight < 0.0) return {Trunc(around.height * -stackHeight), Trunc(-stackHeight * around.width)};
  const int32_t height = Trunc(halfWidthFont != 0 ? stackHeight * 1.1 : stackHeight);
  return {height, height / 2};
}

// In sheet units, without a sign: with a negative character width a part is huge.
double PartWidth(size_t length, int32_t width) {
  return static_cast<uint32_t>(length) * static_cast<uint32_t>(width);
}

// A bracket counts twice.
int32_t PrefixLength(const Pieces& pieces) {
  return TextLength(pieces.prefix) + (HasOpening(pieces) ? 1 : 0);
}

// The estimated width of the whole line, in model units times 100.
double LineWidth(const Pieces& pieces, int32_t width, int32_t partWidth) {
  const int32_t tailLength = TextLength(pieces.tail) + (HasClosing(pieces) ? 1 : 0);
  const double front = WrapMul(PrefixLength(pieces), width) + PartWidth(std::strlen(pieces.upper), partWidth);
  // Without a bracket in front the lower part isn't reckoned with, and the tail is as narrow as the parts.
  const double back = HasOpening(pieces)
                          ? PartWidth(std::strlen(pieces.lower), partWidth) + WrapMul(tailLength, width)
                          : WrapMul(tailLength, partWidth);
  return state.drawScale * (front + back);
}

int32_t HalfPart(int32_t partWidth) {
  return Trunc(partWidth * state.drawScale) / 2;
}

// How far beyond the prefix the parts stand.
int32_t LiftOf(const Pieces& pieces, int32_t partWidth, int32_t halfWidthFont) {
  if (!HasOpening(pieces)) return 0;
  // A number of bytes serves as a distance here, and has to.
  if (halfWidthFont == 0) return TextLength(pieces.tail);
  return HalfPart(partWidth);
}

// Puts a blank in front of a part that begins with a sign.
void SetOffSign(char (&part)[textSize]) {
  if (part[0] != '-' && part[0] != '+') return;
  char bare[textSize];
  BoundedCopy(bare, part);
  part[0] = ' ';
  BoundedCopy(part + 1, sizeof part - 1, bare);
}

// Draws a piece at a distance and a direction, in radians, from the line's start.
void DrawPiece(Canvas canvas, const char* piece, const PieceSize& size, const Baseline& line, double distance,
               double direction, int32_t halfWidthFont) {
  BoundedCopy(state.entText, piece);
  DrawFontText(canvas, size.height, size.width, line.escapement, distance * std::cos(direction) + line.x,
               distance * std::sin(direction) + line.y, halfWidthFont);
}

}  // namespace

void DrawStackedFraction(Canvas canvas, int32_t height, int32_t width, int32_t escapement, int32_t attach,
                         double angle, double x, double y, int32_t halfWidthFont) {
  Pieces pieces = SplitLine();
  if (width == 0) width = MeasureAveCharWidth(canvas, height, escapement);
  const PieceSize around = {height, width};
  const PieceSize part = SizeOfParts(pieces.stackHeight, around, halfWidthFont);
  Baseline line = {x, y, escapement};
  AnchorStackPart(height, attach, LineWidth(pieces, width, part.width), angle, line.x, line.y);
  DrawPiece(canvas, pieces.prefix, around, line, 0.0, 0.0, halfWidthFont);

  // The baseline's direction, in whole degrees.
  const double along = WrapSub(3600, escapement) / 10 * pi / 180.0;
  if (!HasOpening(pieces) && halfWidthFont != 0) {
    SetOffSign(pieces.upper);
    SetOffSign(pieces.lower);
  }
  int32_t lift = LiftOf(pieces, part.width, halfWidthFont);
  const int32_t prefixLength = PrefixLength(pieces);
  const double scale = state.drawScale;
  // A font without a width is taken for half as wide as high.
  const double prefixWidth =
      width != 0 ? scale * WrapMul(prefixLength, width) : scale * (height / 2) * prefixLength;
  const double start = prefixWidth + lift;

  const double rise = 0.5 * height * scale;
  const double upperDistance = std::sqrt(start * start + rise * rise);
  DrawPiece(canvas, pieces.upper, part, line, upperDistance, std::acos(start / upperDistance) + along,
            halfWidthFont);

  // Below the baseline, if the part is higher than half the text. The distance stays that along the line,
  // though the direction is turned down.
  const double drop = rise - part.height * scale;
  double lowerDistance = start;
  double down = 0.0;
  if (drop < 0.0) {
    const double diagonal = std::sqrt(start * start + drop * drop);
    down = std::acos(start / diagonal);
    if (width == 0) lowerDistance = diagonal;
  }
  DrawPiece(canvas, pieces.lower, part, line, lowerDistance, along - down, halfWidthFont);

  if (pieces.tail[0] == ')') lift = WrapAdd(lift, HalfPart(part.width));
  const size_t partLength = std::max(std::strlen(pieces.upper), std::strlen(pieces.lower));
  const double tailPrefixWidth = width != 0 ? prefixWidth : scale * prefixLength * height * 0.5;
  DrawPiece(canvas, pieces.tail, around, line,
            PartWidth(partLength, part.width) * scale + tailPrefixWidth + lift, along, halfWidthFont);
}

double ParseStackHeight() {
  const char* number = nullptr;
  for (const char* code = state.entText; (code = std::strstr(code, "\\H")) != nullptr; code += 2)
    number = code + 2;
  if (!number) return ownHeight;

  // A factor in front of a ";" counts as a height, in spite of its "x".
  if (std::strchr(number, ';')) return Atof(number) * 100.0 / state.drawScale;
  const char* const brace = std::strchr(number, '{');
  if (!brace) return ownHeight;
  if (brace > number && brace[-1] == 'x') return -Atof(number);
  return Atof(number) * 100.0 / state.drawScale;
}

void AnchorStackPart(int32_t height, int32_t attach, double total, double angle, double& x, double& y) {
  switch (attach) {
    case 1: y -= height * state.drawScale; break;
    case 5: {
      const double dx = -0.5 * total;
      const double dy = -0.5 * height * state.drawScale;
      x = dx * std::cos(angle) + x - dy * std::sin(angle);
      y = y + dx * std::sin(angle) + std::cos(angle) * dy;
      break;
    }
    case 9: x -= 0.5 * total; break;
  }
}

}  // namespace hexlume
