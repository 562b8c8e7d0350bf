#include "tools/hexlume/metafile/player_text.h"

#include <cmath>
#include <cstdlib>

namespace hexlume {
namespace {

constexpr uint32_t alignAcross = 6, alignRight = 2, alignCentre = 6;
constexpr uint32_t alignAlong = 24, alignBottom = 8, alignBaseline = 24;

// A line of text in its own coordinate system: x along the baseline, y downward, the reference point
// at the origin.
struct Layout {
  std::vector<PlacedGlyph> glyphs;
  double start, length, baseline;
};

// The size of a font's characters in the units of the context.
struct CharacterSize {
  double height;   // the em
  double stretch;  // factor of the widths
};

CharacterSize SizeOf(const PlayerFace& face, const PlayerFont& font, double unit) {
  constexpr double anyCell = 423;  // 16 pixels at 96 dpi
  const double cell = font.height == 0 ? anyCell : font.height;
  const double height = unit * (cell > 0 ? cell / (face.Ascent() + face.Descent()) : -cell);
  if (font.width == 0) return {height, 1};
  return {height, unit * std::fabs(static_cast<double>(font.width)) / (face.AverageWidth() * height)};
}

// Cairo fails permanently after a character of size 0, or one too large for a bitmap. Neither
// would be visible.
bool CanBeDrawn(const CharacterSize& size, const PathLimits& limits) {
  const double least = 2.5 * limits.finest, most = 0.3 * limits.reach;
  const double width = size.height * size.stretch;
  return size.height >= least && size.height <= most && width >= least && width <= most;
}

double StartOf(uint32_t align, double length) {
  const uint32_t across = align & alignAcross;
  return across == alignCentre ? -length / 2 : across == alignRight ? -length : 0;
}

double BaselineOf(uint32_t align, const PlayerFace& face, double height) {
  const uint32_t along = align & alignAlong;
  if (along == alignBaseline) return 0;
  return height * (along == alignBottom ? -face.Descent() : face.Ascent());
}

Layout LayOut(const PlayerFace& face, const PlayerText& text, const CharacterSize& size, double unit) {
  Layout layout{{}, 0, 0, BaselineOf(text.align, face, size.height)};
  layout.glyphs.reserve(text.characters.size());
  for (const TextCharacter& character : text.characters) {
    const FaceGlyph glyph = face.Glyph(character.codePoint);
    layout.glyphs.push_back({glyph.index, character.codePoint, {layout.length, layout.baseline}});
    layout.length += text.hasAdvances ? character.advance * unit : glyph.advance * size.height * size.stretch;
  }
  layout.start = StartOf(text.align, layout.length);
  return layout;
}

// Converts from the text's coordinate system to the context.
struct TextFrame {
  Point origin, along;  // along: unit vector of the baseline

  Point At(double x, double y) const {
    return {origin.x + x * along.x - y * along.y, origin.y + x * along.y + y * along.x};
  }
};

void FillBox(PlayerCanvas& canvas, const TextFrame& frame, const CanvasBox& box, uint32_t color) {
  PlayerPath path(canvas.Measures().limits);
  path.MoveTo(frame.At(box.left, box.top));
  path.LineTo(frame.At(box.right, box.top));
  path.LineTo(frame.At(box.right, box.bottom));
  path.LineTo(frame.At(box.left, box.bottom));
  path.Close();
  canvas.Fill(path, color, true);
}

// Draws a line parallel to the baseline, its middle at y.
void PaintRule(PlayerCanvas& canvas, const Layout& layout, const TextFrame& frame, double y, double thickness,
               uint32_t color) {
  FillBox(canvas, frame, {layout.start, y - thickness / 2, layout.start + layout.length, y + thickness / 2},
          color);
}

// Converts the places of the glyphs, and leaves out those that are far outside.
std::vector<PlacedGlyph> GlyphsInReach(const Layout& layout, const TextFrame& frame, double reach) {
  std::vector<PlacedGlyph> seen;
  seen.reserve(layout.glyphs.size());
  for (const PlacedGlyph& glyph : layout.glyphs) {
    const Point at = frame.At(layout.start + glyph.at.x, glyph.at.y);
    if (std::fabs(at.x) < reach && std::fabs(at.y) < reach)
      seen.push_back({glyph.index, glyph.codePoint, at});
  }
  return seen;
}

}  // namespace

void PaintText(PlayerCanvas& canvas, const PlayerFont& font, const PlayerText& text, const TextPlace& place) {
  constexpr uint32_t white = 0xFFFFFF;
  const PathLimits& limits = canvas.Measures().limits;
  const PlayerFace& face = FaceOf(font);
  if (face.IsEmpty()) return;
  const CharacterSize size = SizeOf(face, font, place.unit);
  if (!CanBeDrawn(size, limits)) return;
  const Layout layout = LayOut(face, text, size, place.unit);
  const TextFrame frame{place.reference, {std::cos(place.angle), std::sin(place.angle)}};
  const double ascent = size.height * face.Ascent(), descent = size.height * face.Descent();
  if (text.opaque)
    FillBox(canvas, frame,
            {layout.start, layout.baseline - ascent, layout.start + layout.length, layout.baseline + descent},
            white);
  const double width = size.height * size.stretch;
  canvas.DrawGlyphs(
      {face, font, GlyphsInReach(layout, frame, limits.reach), width, size.height, frame.along, text.color});
  const double thickness = size.height * face.LineThickness();
  const double under = layout.baseline + size.height * face.UnderlineDepth();
  const double middle = layout.baseline - size.height * face.StrikeOutHeight();
  if (font.underline) PaintRule(canvas, layout, frame, under, thickness, text.color);
  if (font.strikeOut) PaintRule(canvas, layout, frame, middle, thickness, text.color);
}

}  // namespace hexlume
