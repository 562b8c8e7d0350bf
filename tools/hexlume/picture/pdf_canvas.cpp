#include "tools/hexlume/picture/pdf_canvas.h"

#include <cmath>
#include <vector>

#include "tools/hexlume/metafile/player_face.h"
#include "tools/hexlume/picture/box_outline.h"
#include "tools/hexlume/picture/number_text.h"
#include "tools/hexlume/picture/pdf_path.h"
#include "tools/hexlume/picture/vector_limits.h"

namespace hexlume {
namespace {

constexpr size_t longestPath = 100'000;

void AppendColor(std::string& text, uint32_t color, const char* set) {
  for (int shift = 0; shift < 24; shift += 8) {
    AppendNumber(text, std::round((color >> shift & 0xFF) / 0.255) / 1000);
    text += ' ';
  }
  text += set;
}

void AppendNumbers(std::string& text, std::initializer_list<double> numbers) {
  for (const double number : numbers) {
    AppendNumber(text, number);
    text += ' ';
  }
}

}  // namespace

PdfCanvas::PdfCanvas(const MetafileFrame& frame, PdfFile& pdfFile, PdfFonts& pdfFonts,
                     PictureWork pictureWork)
    : PlayerCanvas(VectorMeasures(frame)), file(pdfFile), fonts(pdfFonts), work(pictureWork) {
  const CanvasMeasures& measures = Measures();
  // The factor needs more decimals than lengths do.
  text += "0.028346457 0 0 -0.028346457 0 ";
  AppendNumber(text, measures.height * pointsInAHundredth);
  text += " cm\n1 J 1 j\n1 g\n";
  AppendNumbers(text, {0, 0, measures.width, measures.height});
  text += "re\nf\n";
}

void PdfCanvas::Pass() {
  constexpr size_t enough = 1 << 16;
  if (text.size() < enough) return;
  constexpr double stepsOfByte = 35;
  work.Count(static_cast<double>(text.size()) * stepsOfByte);
  file.WriteToStream(text);
  text.clear();
}

void PdfCanvas::EndPath() {
  if (openStyle) text += "S\n";
  if (dotColor) text += "f\n";
  openStyle.reset();
  dotColor.reset();
  openEnd.reset();
  Pass();
}

void PdfCanvas::SetStyle(const StrokeStyle& style) {
  if (graphics.strokeColor != style.color) AppendColor(text, style.color, "RG\n");
  graphics.strokeColor = style.color;
  if (graphics.width != style.width) {
    AppendNumber(text, style.width);
    text += " w\n";
  }
  graphics.width = style.width;
  if (graphics.dashes == style.dashes) return;
  graphics.dashes = style.dashes;
  text += '[';
  for (const double length : style.dashes) AppendNumbers(text, {length});
  text += style.dashes.empty() ? "]0 d 1 J\n" : "]0 d 0 J\n";
}

void PdfCanvas::SetFillColor(uint32_t color) {
  if (graphics.fillColor != color) AppendColor(text, color, "rg\n");
  graphics.fillColor = color;
}

// Opens a path of this style, unless the open one has it.
void PdfCanvas::ContinueStrokes(const StrokeStyle& style) {
  if (openStyle && *openStyle == style && text.size() - openStart < longestPath) return;
  EndPath();
  SetStyle(style);
  openStyle = style;
  openStart = text.size();
}

void PdfCanvas::DrawDot(Point middle, uint32_t color) {
  if (dotColor != color || text.size() - openStart >= longestPath) {
    EndPath();
    SetFillColor(color);
    dotColor = color;
    openStart = text.size();
  }
  const double width = Measures().hairline;
  AppendNumbers(text, {middle.x - width / 2, middle.y - width / 2, width, width});
  text += "re\n";
}

void PdfCanvas::DrawLine(Point from, Point to, const StrokeStyle& style) {
  ContinueStrokes(style);
  PdfPathWriter path(text);
  // Dashes begin anew with each line.
  const bool goesOn = openEnd && from == *openEnd && from != to && style.dashes.empty();
  if (!goesOn) path.MoveTo(from);
  path.LineTo(to);
  openEnd = to;
}

void PdfCanvas::Stroke(const PlayerPath& path, const StrokeStyle& style) {
  ContinueStrokes(style);
  path.WriteTo(PdfPathWriter(text));
  openEnd.reset();
}

void PdfCanvas::Fill(const PlayerPath& path, uint32_t color, bool winding) {
  EndPath();
  SetFillColor(color);
  path.WriteTo(PdfPathWriter(text));
  text += winding ? "f\n" : "f*\n";
}

void PdfCanvas::FillBoxes(const CanvasBoxes& boxes, uint32_t color) {
  PictureWork::RequireOutline(boxes.size());
  Fill(OutlineOf(boxes, Measures().limits), color, true);
}

void PdfCanvas::Clip(const CanvasBoxes& boxes) {
  PictureWork::RequireOutline(boxes.size());
  RemoveClip();
  unclipped = graphics;
  isClipped = true;
  text += "q\n";
  // An empty path would be an error, and clip nothing.
  if (boxes.empty()) text += "0 0 0 0 re\n";
  OutlineOf(boxes, Measures().limits).WriteTo(PdfPathWriter(text));
  text += "W n\n";
}

void PdfCanvas::RemoveClip() {
  EndPath();
  if (!isClipped) return;
  text += "Q\n";
  graphics = unclipped;
  isClipped = false;
}

void PdfCanvas::AppendGlyphs(const GlyphRun& run) {
  const Point first = run.glyphs.front().at;
  std::optional<size_t> font;
  double reached = 0;  // thousandths of the em from the first glyph to the end of the last one
  for (const PlacedGlyph& placed : run.glyphs) {
    const PdfGlyph glyph = fonts.GlyphOf(run.face, placed.codePoint, placed.index);
    if (font != glyph.font) {
      if (font) text += "]TJ\n";
      text += "/F" + std::to_string(glyph.font) + " 1 Tf\n[";
      font = glyph.font;
    }
    const Point distance = {placed.at.x - first.x, placed.at.y - first.y};
    const double place = 1000 * (distance.x * run.along.x + distance.y * run.along.y) / run.width;
    // Numbers between the glyphs move the next one back.
    const int64_t back = std::llround(reached - place);
    if (back != 0) AppendInteger(text, back);
    constexpr const char* digits = "0123456789ABCDEF";
    text += {'<', digits[glyph.code >> 4], digits[glyph.code & 0xF], '>'};
    reached += glyph.width - static_cast<double>(back);
  }
  text += "]TJ\n";
}

void PdfCanvas::DrawGlyphs(const GlyphRun& run) {
  if (run.glyphs.empty()) return;
  EndPath();
  SetFillColor(run.color);
  const Point first = run.glyphs.front().at;
  text += "BT\n";
  AppendNumbers(text, {run.width * run.along.x, run.width * run.along.y, run.height * run.along.y,
                       -run.height * run.along.x, first.x, first.y});
  text += "Tm\n";
  AppendGlyphs(run);
  text += "ET\n";
  Pass();
}

void PdfCanvas::Finish() {
  RemoveClip();
  file.WriteToStream(text);
  text.clear();
}

}  // namespace hexlume
