// A paragraph with a stacked fraction, "\S1^ 2;", drawn in four pieces: prefix, upper part, lower part, tail.
// Text extents aren't measured: a piece's width is its number of bytes times the font's width. A second
// fraction is drawn as text of the tail. A rotated sheet turns the pieces, but doesn't move them.
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

constexpr double ownHeight = -1.0;  // factor 1: the parts are as high as the prefix and the tail

struct Pieces {
  char prefix[textSize], upper[textSize], lower[textSize], tail[textSize];
  double stackHeight;  // result of ParseStackHeight
};

// In sheet units.
struct PieceSize {
  int32_t height, width;
};

struct Baseline {
  double x, y;         // lower left, in model units times 100
  int32_t escapement;  // tenths of a degree
};

// No trail byte of code page 932 equals "(" or ")", so a search by bytes is safe.
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
  // The byte after the caret is skipped, whether it is a blank or not.
  if (caret[1] != '\0') BoundedCopy(pieces.lower, caret + 2);
  *caret = '\0';
}

// Splits entText. Only the prefix is searched for the height.
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

  // Without the closing ";" entText still contains the prefix, which is drawn again as the tail.
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

// In sheet units. The product is unsigned: with a negative character width it is huge.
double PartWidth(size_t length, int32_t width) {
  return static_cast<uint32_t>(length) * static_cast<uint32_t>(width);
}

// In bytes. An opening bracket counts twice.
int32_t PrefixLength(const Pieces& pieces) {
  return TextLength(pieces.prefix) + (HasOpening(pieces) ? 1 : 0);
}

// The estimated width of the whole line, in model units times 100.
double LineWidth(const Pieces& pieces, int32_t width, int32_t partWidth) {
  const int32_t tailLength = TextLength(pieces.tail) + (HasClosing(pieces) ? 1 : 0);
  const double front = WrapMul(PrefixLength(pieces), width) + PartWidth(std::strlen(pieces.upper), partWidth);
  // Without an opening bracket the lower part isn't counted, and the tail is counted at the parts' width.
  const double back = HasOpening(pieces)
                          ? PartWidth(std::strlen(pieces.lower), partWidth) + WrapMul(tailLength, width)
                          : WrapMul(tailLength, partWidth);
  return state.drawScale * (front + back);
}

// In model units times 100.
int32_t HalfPart(int32_t partWidth) {
  return Trunc(partWidth * state.drawScale) / 2;
}

// Distance from the prefix to the parts, in model units times 100.
int32_t LiftOf(const Pieces& pieces, int32_t partWidth, int32_t halfWidthFont) {
  if (!HasOpening(pieces)) return 0;
  // A number of bytes is used as a distance here. This is kept.
  if (halfWidthFont == 0) return TextLength(pieces.tail);
  return HalfPart(partWidth);
}

// Puts a blank before a part that begins with a sign.
void SetOffSign(char (&part)[textSize]) {
  if (part[0] != '-' && part[0] != '+') return;
  char bare[textSize];
  BoundedCopy(bare, part);
  part[0] = ' ';
  BoundedCopy(part + 1, sizeof part - 1, bare);
}

// Draws a piece at a distance from the line's start, in a direction in radians.
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

  // The baseline's direction in radians, computed from whole degrees.
  const double along = WrapSub(3600, escapement) / 10 * pi / 180.0;
  if (!HasOpening(pieces) && halfWidthFont != 0) {
    SetOffSign(pieces.upper);
    SetOffSign(pieces.lower);
  }
  int32_t lift = LiftOf(pieces, part.width, halfWidthFont);
  const int32_t prefixLength = PrefixLength(pieces);
  const double scale = state.drawScale;
  // A width of 0 counts as half the height.
  const double prefixWidth =
      width != 0 ? scale * WrapMul(prefixLength, width) : scale * (height / 2) * prefixLength;
  const double start = prefixWidth + lift;

  const double rise = 0.5 * height * scale;
  const double upperDistance = std::sqrt(start * start + rise * rise);
  DrawPiece(canvas, pieces.upper, part, line, upperDistance, std::acos(start / upperDistance) + along,
            halfWidthFont);

  // A part higher than half the text starts below the baseline. Its direction is turned down, but its
  // distance is still the one along the baseline.
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

  // "\H0.7x;" is taken for a height of 0.7, not for a factor.
  if (std::strchr(number, ';')) return Hundredths(number) / state.drawScale;
  const char* const brace = std::strchr(number, '{');
  if (!brace) return ownHeight;
  if (brace > number && brace[-1] == 'x') return -Atof(number);
  return Hundredths(number) / state.drawScale;
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
