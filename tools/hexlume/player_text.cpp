#include "tools/hexlume/player_text.h"

#include <cmath>
#include <cstdlib>

namespace hexlume {
namespace {

constexpr uint32_t alignAcross = 6, alignRight = 2, alignCentre = 6;
constexpr uint32_t alignAlong = 24, alignBottom = 8, alignBaseline = 24;

// A line of text in its own coordinate system: x along the baseline, y downward, the reference point
// at the origin.
struct Layout {
  std::vector<cairo_glyph_t> glyphs;
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
bool CanBeDrawn(const CharacterSize& size) {
  constexpr double least = 0.05, most = 20000;
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
    layout.glyphs.push_back({glyph.index, layout.length, layout.baseline});
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

void FillBox(cairo_t* context, const TextFrame& frame, double left, double top, double right, double bottom) {
  PlayerPath path(context);
  path.MoveTo(frame.At(left, top));
  path.LineTo(frame.At(right, top));
  path.LineTo(frame.At(right, bottom));
  path.LineTo(frame.At(left, bottom));
  path.Close();
  cairo_fill(context);
}

void PaintGlyphs(cairo_t* context, const PlayerFace& face, const Layout& layout, const CharacterSize& size,
                 const TextFrame& frame) {
  std::vector<cairo_glyph_t> seen;
  seen.reserve(layout.glyphs.size());
  for (const cairo_glyph_t& glyph : layout.glyphs) {
    const Point at = frame.At(layout.start + glyph.x, glyph.y);
    if (std::fabs(at.x) < farthestSeen && std::fabs(at.y) < farthestSeen) {
      seen.push_back({glyph.index, at.x, at.y});
    }
  }
  const double width = size.height * size.stretch;
  cairo_matrix_t matrix;
  cairo_matrix_init(&matrix, width * frame.along.x, width * frame.along.y, -size.height * frame.along.y,
                    size.height * frame.along.x, 0, 0);
  cairo_set_font_face(context, face.Cairo());
  cairo_set_font_matrix(context, &matrix);
  cairo_show_glyphs(context, seen.data(), static_cast<int>(seen.size()));
}

// Draws a line parallel to the baseline, its middle at y.
void PaintRule(cairo_t* context, const Layout& layout, const TextFrame& frame, double y, double thickness) {
  FillBox(context, frame, layout.start, y - thickness / 2, layout.start + layout.length, y + thickness / 2);
}

}  // namespace

void SetColor(cairo_t* context, uint32_t color) {
  cairo_set_source_rgb(context, (color & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0,
                       (color >> 16 & 0xFF) / 255.0);
}

const PlayerFace& TextPainter::FaceOf(const PlayerFont& font) {
  return faces.try_emplace({font.face, font.japanese, font.italic, font.weight}, font).first->second;
}

void TextPainter::Paint(cairo_t* context, const PlayerFont& font, const PlayerText& text,
                        const TextPlace& place) {
  constexpr uint32_t white = 0xFFFFFF;
  const PlayerFace& face = FaceOf(font);
  if (face.IsEmpty()) return;
  const CharacterSize size = SizeOf(face, font, place.unit);
  if (!CanBeDrawn(size)) return;
  const Layout layout = LayOut(face, text, size, place.unit);
  const TextFrame frame{place.reference, {std::cos(place.angle), std::sin(place.angle)}};
  if (text.opaque) {
    SetColor(context, white);
    FillBox(context, frame, layout.start, layout.baseline - size.height * face.Ascent(),
            layout.start + layout.length, layout.baseline + size.height * face.Descent());
  }
  SetColor(context, text.color);
  PaintGlyphs(context, face, layout, size, frame);
  const double thickness = size.height * face.LineThickness();
  if (font.underline) {
    PaintRule(context, layout, frame, layout.baseline + size.height * face.UnderlineDepth(), thickness);
  }
  if (font.strikeOut) {
    PaintRule(context, layout, frame, layout.baseline - size.height * face.StrikeOutHeight(), thickness);
  }
}

}  // namespace hexlume
