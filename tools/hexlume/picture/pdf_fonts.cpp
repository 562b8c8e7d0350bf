#include "tools/hexlume/picture/pdf_fonts.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tools/hexlume/metafile/utf16.h"
#include "tools/hexlume/picture/pdf_path.h"

namespace hexlume {
namespace {

constexpr size_t codesOfAFont = 256;

void AppendHex(std::string& text, uint32_t number, int digits) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
    text += "0123456789ABCDEF"[number >> shift & 0xF];
}

// Whole numbers around everything that is drawn.
struct Bounds {
  double left = std::numeric_limits<double>::infinity(), top = left, right = -left, bottom = -left;

  void Add(Point point) {
    left = std::min(left, point.x);
    top = std::min(top, point.y);
    right = std::max(right, point.x);
    bottom = std::max(bottom, point.y);
  }
  void Add(const Bounds& other) {
    left = std::min(left, other.left);
    top = std::min(top, other.top);
    right = std::max(right, other.right);
    bottom = std::max(bottom, other.bottom);
  }

  std::string Text() const {
    if (left > right) return "0 0 0 0";
    std::string text;
    for (const double side : {std::floor(left), std::floor(top), std::ceil(right), std::ceil(bottom)}) {
      AppendInteger(text, std::llround(side));
      text += ' ';
    }
    text.pop_back();
    return text;
  }
};

// Writes an outline with Y upward, as glyphs have it, and measures it.
struct UpwardWriter {
  PdfPathWriter path;
  Bounds& bounds;

  Point Turn(Point point) {
    const Point turned = {point.x, -point.y};
    bounds.Add(turned);
    return turned;
  }
  void MoveTo(Point to) { path.MoveTo(Turn(to)); }
  void LineTo(Point to) { path.LineTo(Turn(to)); }
  void CurveTo(Point a, Point b, Point to) { path.CurveTo(Turn(a), Turn(b), Turn(to)); }
  void Close() { path.Close(); }
};

// The procedure that draws a glyph: its width and bounds, then its outline.
std::string GlyphProcedure(const PlayerFace& face, unsigned long index, int width, Bounds& bounds) {
  std::string outline;
  Bounds ofGlyph;
  face.Outline(index).WriteTo(UpwardWriter{PdfPathWriter(outline), ofGlyph});
  bounds.Add(ofGlyph);
  return std::to_string(width) + " 0 " + ofGlyph.Text() + " d1\n" + outline + (outline.empty() ? "" : "f\n");
}

// Which characters a font's codes are.
template <typename Members>
std::string CharacterMap(const Members& members) {
  constexpr size_t mostInABlock = 100;
  std::string map =
      "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n/CMapName/Adobe-Identity-UCS def\n"
      "/CMapType 2 def\n1 begincodespacerange\n<00><FF>\nendcodespacerange\n";
  for (size_t first = 0; first < members.size(); first += mostInABlock) {
    const size_t end = std::min(members.size(), first + mostInABlock);
    map += std::to_string(end - first) + " beginbfchar\n";
    for (size_t code = first; code < end; ++code) {
      map += '<';
      AppendHex(map, static_cast<uint32_t>(code), 2);
      map += "><";
      for (const char16_t unit : Utf16Of(members[code].codePoint)) AppendHex(map, unit, 4);
      map += ">\n";
    }
    map += "endbfchar\n";
  }
  return map + "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";
}

int WriteStream(PdfFile& file, const std::string& contents) {
  const int object = file.NewObject();
  file.BeginStream(object);
  file.WriteToStream(contents);
  file.EndStream();
  return object;
}

}  // namespace

PdfGlyph PdfFonts::GlyphOf(const PlayerFace& face, uint32_t codePoint, unsigned long index) {
  const auto found = glyphs.find({&face, codePoint});
  if (found != glyphs.end()) return found->second;
  const auto [open, isNew] = openFonts.try_emplace(&face, fonts.size());
  if (!isNew && fonts[open->second].members.size() == codesOfAFont) open->second = fonts.size();
  if (open->second == fonts.size()) fonts.push_back({&face, {}});
  Font& font = fonts[open->second];
  const int width = static_cast<int>(std::lround(1000 * face.Glyph(codePoint).advance));
  const PdfGlyph glyph = {open->second, static_cast<uint8_t>(font.members.size()), width};
  font.members.push_back({codePoint, index, width});
  glyphs.emplace(std::make_pair(&face, codePoint), glyph);
  return glyph;
}

void PdfFonts::WriteFont(PdfFile& file, int object, const Font& font) {
  Bounds bounds;
  std::string procedures, names, widths;
  for (size_t code = 0; code < font.members.size(); ++code) {
    const Member& member = font.members[code];
    const std::string name = "/g" + std::to_string(code);
    const int procedure = WriteStream(file, GlyphProcedure(*font.face, member.index, member.width, bounds));
    procedures += name + ' ' + PdfReference(procedure);
    names += name;
    widths += std::to_string(member.width) + ' ';
  }
  const int map = WriteStream(file, CharacterMap(font.members));
  file.WriteObject(object, "<</Type/Font/Subtype/Type3/FontMatrix[0.001 0 0 0.001 0 0]/FontBBox[" +
                               bounds.Text() + "]/Resources<<>>/FirstChar 0/LastChar " +
                               std::to_string(font.members.size() - 1) + "/Widths[" + widths +
                               "]/Encoding<</Type/Encoding/Differences[0" + names + "]>>/CharProcs<<" +
                               procedures + ">>/ToUnicode " + PdfReference(map) + ">>");
}

void PdfFonts::Write(PdfFile& file, int object) const {
  std::string dictionary = "<<";
  for (size_t i = 0; i < fonts.size(); ++i) {
    const int font = file.NewObject();
    WriteFont(file, font, fonts[i]);
    dictionary += "/F" + std::to_string(i) + ' ' + PdfReference(font);
  }
  file.WriteObject(object, dictionary + ">>");
}

}  // namespace hexlume
