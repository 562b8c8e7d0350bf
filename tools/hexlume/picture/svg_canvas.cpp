#include "tools/hexlume/picture/svg_canvas.h"

#include <algorithm>
#include <vector>

#include "tools/hexlume/metafile/player_face.h"
#include "tools/hexlume/metafile/utf16.h"
#include "tools/hexlume/picture/box_outline.h"
#include "tools/hexlume/picture/number_text.h"
#include "tools/hexlume/picture/vector_limits.h"

namespace hexlume {
namespace {

// A path's data should stay shorter than the ten million characters that readers accept.
constexpr size_t longestPath = 100'000;

void AppendColor(std::string& text, uint32_t color) {
  constexpr const char* digits = "0123456789abcdef";
  text += '#';
  for (int shift = 0; shift < 24; shift += 8) {
    text += digits[color >> (shift + 4) & 0xF];
    text += digits[color >> shift & 0xF];
  }
}

void AppendAttribute(std::string& text, const char* name, double number) {
  text += ' ';
  text += name;
  text += "=\"";
  AppendNumber(text, number);
  text += '"';
}

void AppendColorAttribute(std::string& text, const char* name, uint32_t color) {
  text += ' ';
  text += name;
  text += "=\"";
  AppendColor(text, color);
  text += '"';
}

void AppendMatrix(std::string& text, const double (&numbers)[6]) {
  text += " transform=\"matrix(";
  for (int i = 0; i < 6; ++i) {
    if (i > 0) text += ' ';
    AppendNumber(text, numbers[i]);
  }
  text += ")\"";
}

// XML has no other characters.
bool IsCharacterOfXml(uint32_t codePoint) {
  return codePoint >= 0x20 && !IsHighSurrogate(codePoint) && !IsLowSurrogate(codePoint) &&
         codePoint != 0xFFFE && codePoint != 0xFFFF;
}

void AppendCharacter(std::string& text, uint32_t codePoint) {
  constexpr uint32_t replacement = 0xFFFD;
  switch (codePoint) {
    case '&': text += "&amp;"; break;
    case '<': text += "&lt;"; break;
    case '>': text += "&gt;"; break;
    case '"': text += "&quot;"; break;
    case '\'': text += "&#39;"; break;
    default: AppendUtf8(text, IsCharacterOfXml(codePoint) ? codePoint : replacement);
  }
}

// Families are names in apostrophes, which CSS ends at another one and where a backslash has a meaning.
void AppendFamily(std::string& text, const std::string& family) {
  if (family.empty()) return;
  text += '\'';
  for (const char character : family)
    if (character != '\'' && character != '\\') AppendCharacter(text, static_cast<uint8_t>(character));
  text += "',";
}

// How far a glyph is from the first one of its run, along the baseline.
double DistanceAlong(const GlyphRun& run, const PlacedGlyph& glyph) {
  const Point first = run.glyphs.front().at;
  return (glyph.at.x - first.x) * run.along.x + (glyph.at.y - first.y) * run.along.y;
}

}  // namespace

// Path data.

void SvgPathData::Begin() {
  current = start = {0, 0};
  letter = 0;
}

SvgPathData::Place SvgPathData::PlaceOf(Point point) {
  return {Tenths(point.x), Tenths(point.y)};
}

// A letter that is the same as the one before can be left out, and so can that of a line after a start.
void SvgPathData::Append(char next) {
  const bool isImplied = next != 'm' && next != 'z' && (next == letter || (next == 'l' && letter == 'm'));
  letter = next;
  if (isImplied) return;
  text += next;
  needsBlank = false;
}

void SvgPathData::Append(int64_t tenths) {
  if (needsBlank && tenths >= 0) text += ' ';
  AppendTenths(text, tenths);
  needsBlank = true;
}

void SvgPathData::AppendStepTo(Place to) {
  Append(to.x - current.x);
  Append(to.y - current.y);
}

void SvgPathData::MoveTo(Point point) {
  const Place to = PlaceOf(point);
  Append('m');
  AppendStepTo(to);
  current = start = to;
}

void SvgPathData::LineTo(Point point) {
  const Place to = PlaceOf(point);
  // After a start the short forms need a letter, so there they are not shorter.
  if (to.y == current.y && letter != 'm') {
    Append('h');
    Append(to.x - current.x);
  } else if (to.x == current.x && letter != 'm') {
    Append('v');
    Append(to.y - current.y);
  } else {
    Append('l');
    AppendStepTo(to);
  }
  current = to;
}

void SvgPathData::CurveTo(Point control1, Point control2, Point point) {
  const Place to = PlaceOf(point);
  Append('c');
  AppendStepTo(PlaceOf(control1));
  AppendStepTo(PlaceOf(control2));
  AppendStepTo(to);
  current = to;
}

void SvgPathData::Close() {
  Append('z');
  current = start;
}

// The canvas.

SvgCanvas::SvgCanvas(const MetafileFrame& frame, bool keepsTexts, const ByteSink& byteSink,
                     PictureWork pictureWork)
    : PlayerCanvas(VectorMeasures(frame)),
      sink(byteSink),
      textsAreKept(keepsTexts),
      work(pictureWork),
      data(text) {
  const CanvasMeasures& measures = Measures();
  text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\""
      " xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\" width=\"";
  AppendNumber(text, measures.width / 100);
  text += "mm\" height=\"";
  AppendNumber(text, measures.height / 100);
  text += "mm\" viewBox=\"0 0 ";
  AppendNumber(text, measures.width);
  text += ' ';
  AppendNumber(text, measures.height);
  text +=
      "\">\n<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n"
      "<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
}

void SvgCanvas::Pass() {
  constexpr size_t enough = 1 << 16;
  if (text.size() < enough) return;
  constexpr double stepsOfByte = 8;
  work.Count(static_cast<double>(text.size()) * stepsOfByte);
  sink(reinterpret_cast<const uint8_t*>(text.data()), text.size());
  text.clear();
}

void SvgCanvas::EndPath() {
  if (openStyle || dotColor) text += "\"/>\n";
  openStyle.reset();
  dotColor.reset();
  openEnd.reset();
  Pass();
}

// Opens a path element of this style, unless the open one has it.
void SvgCanvas::ContinueStrokes(const StrokeStyle& style) {
  if (openStyle && *openStyle == style && text.size() - openStart < longestPath) return;
  EndPath();
  openStart = text.size();
  openStyle = style;
  text += "<path";
  AppendColorAttribute(text, "stroke", style.color);
  AppendAttribute(text, "stroke-width", style.width);
  if (!style.dashes.empty()) {
    text += " stroke-linecap=\"butt\" stroke-dasharray=\"";
    for (const double length : style.dashes) {
      AppendNumber(text, length);
      text += ' ';
    }
    text.back() = '"';
  }
  text += " d=\"";
  data.Begin();
}

void SvgCanvas::ContinueDots(uint32_t color) {
  if (dotColor == color && text.size() - openStart < longestPath) return;
  EndPath();
  openStart = text.size();
  dotColor = color;
  text += "<path";
  AppendColorAttribute(text, "fill", color);
  text += " d=\"";
  data.Begin();
}

void SvgCanvas::DrawDot(Point middle, uint32_t color) {
  ContinueDots(color);
  const double half = Measures().hairline / 2;
  data.MoveTo({middle.x - half, middle.y - half});
  data.LineTo({middle.x + half, middle.y - half});
  data.LineTo({middle.x + half, middle.y + half});
  data.LineTo({middle.x - half, middle.y + half});
  data.Close();
}

void SvgCanvas::DrawLine(Point from, Point to, const StrokeStyle& style) {
  ContinueStrokes(style);
  // Dashes begin anew with each line.
  const bool goesOn = openEnd && from == *openEnd && from != to && style.dashes.empty();
  if (!goesOn) data.MoveTo(from);
  data.LineTo(to);
  openEnd = to;
}

void SvgCanvas::Stroke(const PlayerPath& path, const StrokeStyle& style) {
  ContinueStrokes(style);
  path.WriteTo(data);
  openEnd.reset();
}

void SvgCanvas::AppendFilledPath(const PlayerPath& path, const char* attributes) {
  text += "<path";
  text += attributes;
  text += " d=\"";
  data.Begin();
  path.WriteTo(data);
  text += "\"/>";
}

void SvgCanvas::Fill(const PlayerPath& path, uint32_t color, bool winding) {
  EndPath();
  std::string attributes;
  AppendColorAttribute(attributes, "fill", color);
  if (!winding) attributes += " fill-rule=\"evenodd\"";
  AppendFilledPath(path, attributes.c_str());
  text += '\n';
}

void SvgCanvas::FillBoxes(const CanvasBoxes& boxes, uint32_t color) {
  PictureWork::RequireOutline(boxes.size());
  Fill(OutlineOf(boxes, Measures().limits), color, true);
}

void SvgCanvas::Clip(const CanvasBoxes& boxes) {
  PictureWork::RequireOutline(boxes.size());
  RemoveClip();
  const std::string name = "clip" + std::to_string(++clips);
  text += "<clipPath id=\"" + name + "\">";
  AppendFilledPath(OutlineOf(boxes, Measures().limits), "");
  text += "</clipPath>\n<g clip-path=\"url(#" + name + ")\">\n";
  isClipped = true;
}

void SvgCanvas::RemoveClip() {
  EndPath();
  if (isClipped) text += "</g>\n";
  isClipped = false;
}

// Returns the number of a glyph's outline, which is written when it is first used.
int SvgCanvas::NumberOf(const PlayerFace& face, unsigned long glyph) {
  const int next = static_cast<int>(glyphNumbers.size()) + 1;
  const auto [place, isNew] = glyphNumbers.try_emplace({&face, glyph}, next);
  if (isNew) {
    text += "<defs>";
    AppendFilledPath(face.Outline(glyph), (" id=\"g" + std::to_string(next) + '"').c_str());
    text += "</defs>\n";
  }
  return place->second;
}

void SvgCanvas::AppendOutlines(const GlyphRun& run) {
  std::vector<int> numbers;
  for (const PlacedGlyph& glyph : run.glyphs) numbers.push_back(NumberOf(run.face, glyph.index));
  const Point first = run.glyphs.front().at;
  const double perX = run.width / 1000, perY = run.height / 1000;
  text += "<g";
  AppendColorAttribute(text, "fill", run.color);
  AppendMatrix(text, {perX * run.along.x, perX * run.along.y, -perY * run.along.y, perY * run.along.x,
                      first.x, first.y});
  text += '>';
  for (size_t i = 0; i < numbers.size(); ++i) {
    text += "<use xlink:href=\"#g" + std::to_string(numbers[i]) + '"';
    if (i > 0) AppendAttribute(text, "x", DistanceAlong(run, run.glyphs[i]) / perX);
    text += "/>";
  }
  text += "</g>\n";
}

void SvgCanvas::AppendText(const GlyphRun& run) {
  const Point first = run.glyphs.front().at;
  const double stretch = run.width / run.height;
  text += "<text xml:space=\"preserve\"";
  AppendColorAttribute(text, "fill", run.color);
  text += " font-family=\"";
  AppendFamily(text, run.font.face);
  if (run.face.Family() != run.font.face) AppendFamily(text, run.face.Family());
  text += "monospace\"";
  AppendAttribute(text, "font-size", run.height);
  if (run.font.weight != 400)
    AppendAttribute(text, "font-weight", std::min(std::max(run.font.weight, 1), 1000));
  if (run.font.italic) text += " font-style=\"italic\"";
  AppendMatrix(text,
               {stretch * run.along.x, stretch * run.along.y, -run.along.y, run.along.x, first.x, first.y});
  text += " x=\"";
  for (const PlacedGlyph& glyph : run.glyphs) {
    AppendTenths(text, Tenths(DistanceAlong(run, glyph) / stretch));
    text += ' ';
  }
  text.back() = '"';
  text += '>';
  for (const PlacedGlyph& glyph : run.glyphs) AppendCharacter(text, glyph.codePoint);
  text += "</text>\n";
}

void SvgCanvas::DrawGlyphs(const GlyphRun& run) {
  if (run.glyphs.empty()) return;
  EndPath();
  textsAreKept ? AppendText(run) : AppendOutlines(run);
  Pass();
}

void SvgCanvas::Finish() {
  RemoveClip();
  text += "</g>\n</svg>\n";
  sink(reinterpret_cast<const uint8_t*>(text.data()), text.size());
  text.clear();
}

}  // namespace hexlume
