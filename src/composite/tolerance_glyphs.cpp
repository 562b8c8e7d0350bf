#include "composite/tolerance_glyphs.h"

#include "canvas/primitive_steps.h"
#include "driver/numbers.h"
#include "entities/converter_rules.h"
#include "text/text_font.h"

namespace hexlume {

namespace {

enum class StrokeKind { none, move, line, arc, letter };

// Lengths are fractions of the row's height. Places are relative to the lower left corner of the cell.
struct GlyphStroke {
  StrokeKind kind;
  double x, y;  // the centre of an arc
  double radius;
  double rounding;  // added to the radius before it is truncated
  float sweep;      // degrees, starting at 0
  char letter;
};

constexpr GlyphStroke From(double x, double y) {
  return {StrokeKind::move, x, y, 0.0, 0.0, 0.0f, '\0'};
}
constexpr GlyphStroke To(double x, double y) {
  return {StrokeKind::line, x, y, 0.0, 0.0, 0.0f, '\0'};
}
constexpr GlyphStroke ArcAbout(double x, double y, double radius, float sweep) {
  return {StrokeKind::arc, x, y, radius, 0.0, sweep, '\0'};
}
constexpr GlyphStroke RoundedArcAbout(double x, double y, double radius, float sweep) {
  return {StrokeKind::arc, x, y, radius, 0.5, sweep, '\0'};
}
constexpr GlyphStroke Letter(char letter) {
  return {StrokeKind::letter, 0.45, 0.15, 0.0, 0.0, 0.0f, letter};
}

struct ToleranceGlyph {
  char symbol;
  double width;             // of its cell
  GlyphStroke strokes[12];  // ends at the first stroke of kind none
};

// An arc is connected to the current position. So the profile of a surface, which comes from the far end of
// the arc, has a base line; the profile of a line starts on the arc and is open.
constexpr ToleranceGlyph glyphs[] = {
    // Angularity.
    {'a', 1.2, {From(1.0, 0.2), To(0.2, 0.2), To(1.0, 0.7)}},
    // Perpendicularity.
    {'b', 1.5, {From(1.3, 0.1), To(0.2, 0.1), From(0.75, 0.1), To(0.75, 0.8)}},
    // Flatness.
    {'c', 1.5, {From(1.1, 0.2), To(0.2, 0.2), To(0.4, 0.8), To(1.3, 0.8), To(1.1, 0.2)}},
    // Profile of a surface.
    {'d', 1.5, {From(0.2, 0.2), ArcAbout(0.75, 0.2, 0.55, -180)}},
    // Circularity.
    {'e', 1.25, {From(1.05, 0.5), RoundedArcAbout(0.625, 0.5, 0.425, 360)}},
    // Parallelism.
    {'f', 1.2, {From(0.2, 0.1), To(0.6, 0.9), From(0.4, 0.1), To(0.8, 0.9)}},
    // Cylindricity.
    {'g',
     1.5,
     {From(0.2, 0.1), To(0.6, 0.9), From(0.9, 0.1), To(1.3, 0.9), From(1.05, 0.5),
      ArcAbout(0.75, 0.5, 0.3, 360)}},
    // Runout.
    {'h', 1.2, {From(0.2, 0.1), To(0.7, 0.6), From(0.6, 0.7), To(0.8, 0.5), To(1.0, 0.9), To(0.6, 0.7)}},
    // Symmetry.
    {'i',
     1.25,
     {From(0.2, 0.5), To(1.05, 0.5), From(0.4, 0.2), To(0.85, 0.2), From(0.4, 0.8), To(0.85, 0.8)}},
    // Position.
    {'j',
     1.25,
     {From(0.2, 0.5), To(1.05, 0.5), From(0.625, 0.1), To(0.625, 0.9), From(0.95, 0.5),
      ArcAbout(0.625, 0.5, 0.325, 360)}},
    // Profile of a line.
    {'k', 1.5, {From(1.3, 0.2), ArcAbout(0.75, 0.2, 0.55, -180)}},
    // Least material condition.
    {'l', 1.25, {From(1.05, 0.5), RoundedArcAbout(0.625, 0.5, 0.425, 360), Letter('L')}},
    // Maximum material condition.
    {'m', 1.25, {From(1.05, 0.5), RoundedArcAbout(0.625, 0.5, 0.425, 360), Letter('M')}},
    // Diameter.
    {'n', 1.0, {From(0.2, 0.1), To(0.8, 0.9), From(0.8, 0.5), RoundedArcAbout(0.5, 0.5, 0.3, 360)}},
    // Square.
    {'o', 1.0, {From(0.2, 0.2), To(0.2, 0.8), To(0.8, 0.8), To(0.8, 0.2), To(0.2, 0.2)}},
    // Projected tolerance zone.
    {'p', 1.25, {From(1.05, 0.5), RoundedArcAbout(0.625, 0.5, 0.425, 360), Letter('P')}},
    // Empty.
    {'q', 1.0, {}},
    // Concentricity.
    {'r',
     1.25,
     {From(1.05, 0.5), RoundedArcAbout(0.625, 0.5, 0.425, 360), From(0.85, 0.5),
      RoundedArcAbout(0.625, 0.5, 0.225, 360)}},
    // Regardless of feature size.
    {'s', 1.25, {From(1.05, 0.5), RoundedArcAbout(0.625, 0.5, 0.425, 360), Letter('S')}},
    // Total runout.
    {'t',
     1.8,
     {From(0.7, 0.6), To(0.2, 0.1), To(0.7, 0.1), To(1.2, 0.6), From(0.6, 0.7), To(1.0, 0.9), To(0.8, 0.5),
      To(0.6, 0.7), From(1.1, 0.7), To(1.5, 0.9), To(1.3, 0.5), To(1.1, 0.7)}},
    // Straightness.
    {'u', 1.5, {From(0.2, 0.5), To(1.3, 0.5)}},
    // Counterbore.
    {'v', 1.5, {From(0.2, 0.8), To(0.2, 0.2), To(1.1, 0.2), To(1.1, 0.8)}},
    // Countersink.
    {'w', 1.5, {From(0.2, 0.7), To(0.75, 0.2), To(1.3, 0.7)}},
    // Depth.
    {'x',
     1.0,
     {From(0.2, 0.9), To(0.8, 0.9), From(0.5, 0.9), To(0.5, 0.2), From(0.3, 0.7), To(0.5, 0.2),
      To(0.7, 0.7)}},
    // Conical taper.
    {'y', 2.4, {From(0.2, 0.8), To(0.2, 0.2), To(2.0, 0.2), To(0.2, 0.8)}},
    // Slope.
    {'z', 2.9, {From(0.2, 0.5), To(2.5, 0.5), From(0.4, 0.0), To(0.4, 1.0), To(2.3, 0.5), To(0.4, 0.0)}},
};

constexpr ToleranceGlyph noGlyph = {'\0', 0.0, {}};

const ToleranceGlyph& GlyphOf(char symbol) {
  for (const ToleranceGlyph& glyph : glyphs) {
    if (glyph.symbol == symbol) return glyph;
  }
  return noGlyph;
}

bool HasLetter(const ToleranceGlyph& glyph) {
  for (const GlyphStroke& stroke : glyph.strokes) {
    if (stroke.kind == StrokeKind::letter) return true;
  }
  return false;
}

void DrawStroke(Canvas canvas, const GlyphStroke& stroke, const POINT& point, double height) {
  switch (stroke.kind) {
    case StrokeKind::none: break;
    case StrokeKind::move: MoveToEx(canvas, point.x, point.y, nullptr); break;
    case StrokeKind::line: LineTo(canvas, point.x, point.y); break;
    case StrokeKind::arc:
      // The scale applies to the centre only, not to the radius.
      AngleArc(canvas, point.x, point.y, static_cast<DWORD>(Trunc(stroke.radius * height + stroke.rounding)),
               0.0f, stroke.sweep);
      break;
    case StrokeKind::letter:
      SetTextAlign(canvas, TA_BOTTOM);
      TextOutA(canvas, point.x, point.y, &stroke.letter, 1);
      break;
  }
}

void DrawStrokes(Canvas canvas, const ToleranceGlyph& glyph, double left, double bottom, double height) {
  constexpr int64_t stepsOfGlyph = 500;
  constexpr int64_t bytesOfGlyph = 300;
  CountWork(stepsOfGlyph, bytesOfGlyph);
  for (const GlyphStroke& stroke : glyph.strokes) {
    DrawStroke(canvas, stroke, ModelToSheet(left + stroke.x * height, bottom + stroke.y * height), height);
  }
}

}  // namespace

double DrawToleranceGlyphs(Canvas canvas, char symbol, double height) {
  const ToleranceGlyph& glyph = GlyphOf(symbol);
  const SelectedPen pen = SelectNewPen(canvas, PS_SOLID, 0, ColorAt(state.entColor));
  // A letter in a circle is drawn in the font that is selected.
  DrawStrokes(canvas, glyph, state.entX[0], state.entY[0], height);
  RestorePen(canvas, pen);
  return glyph.width * height;
}

double DrawBlockToleranceGlyphs(Canvas canvas, char symbol, double height) {
  const ToleranceGlyph& glyph = GlyphOf(symbol);
  const SelectedPen pen = SelectNewPen(canvas, PS_SOLID, 0, ColorAt(state.blockColor));
  if (HasLetter(glyph)) {
    const HFONT font = CreateToleranceFont(Trunc(height * 0.7));
    const HGDIOBJ previousFont = SelectObject(canvas, font);
    DrawStrokes(canvas, glyph, state.blockX[0], state.blockY[0], height);
    SelectObject(canvas, previousFont);
    DeleteObject(font);
  } else {
    DrawStrokes(canvas, glyph, state.blockX[0], state.blockY[0], height);
  }
  RestorePen(canvas, pen);
  return glyph.width * height;
}

HFONT CreateToleranceFont(int32_t height) {
  CountFont();
  CountText(1);
  constexpr int weight = 1;
  constexpr DWORD defaultClipping = 0;
  constexpr DWORD proofQuality = 2;
  return CreateFontA(height, 0, 0, 0, weight, 0, 0, 0, SHIFTJIS_CHARSET, OUT_DEFAULT_PRECIS, defaultClipping,
                     proofQuality, FIXED_PITCH | FF_MODERN, "");
}

}  // namespace hexlume
