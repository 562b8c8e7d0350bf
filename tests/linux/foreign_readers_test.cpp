// Our metafiles in the hands of readers that nobody here wrote: each must take every record without an error.
#include <emf2svg.h>
#include <gtest/gtest.h>
#include <uemf_safe.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "hexlume.h"
#include "platform/gdi.h"

namespace hexlume::foreign_readers_test {
namespace {

using Bytes = std::vector<char>;

Bytes TakeBytes(HENHMETAFILE metafile) {
  Bytes bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), reinterpret_cast<uint8_t*>(bytes.data()));
  DeleteEnhMetaFile(metafile);
  return bytes;
}

struct FreeMemory {
  void operator()(char* memory) const { std::free(memory); }
};

uint32_t NumberAt(const Bytes& bytes, size_t offset) {
  uint32_t number = 0;
  std::memcpy(&number, bytes.data() + offset, sizeof number);
  return number;
}

// The first reader looks at each record's counts and offsets.
void ExpectSafeRecords(const Bytes& bytes) {
  size_t records = 0;
  size_t offset = 0;
  while (offset + 8 <= bytes.size()) {
    const size_t size = NumberAt(bytes, offset + 4);
    ASSERT_TRUE(size >= 8 && size % 4 == 0 && size <= bytes.size() - offset) << "at " << offset;
    EXPECT_NE(0, U_emf_record_safe(bytes.data() + offset))
        << "record " << records << " of type " << NumberAt(bytes, offset);
    offset += size;
    ++records;
  }
  EXPECT_EQ(bytes.size(), offset);
  constexpr size_t recordCountInHeader = 52;
  EXPECT_EQ(NumberAt(bytes, recordCountInHeader), records);
}

// The second one plays them.
std::string PlayAsSvg(Bytes bytes) {
  generatorOptions options = {};
  options.svgDelimiter = true;
  options.imgWidth = 800;
  char* svg = nullptr;
  size_t length = 0;
  EXPECT_EQ(1, emf2svg(bytes.data(), bytes.size(), &svg, &length, &options));
  const std::unique_ptr<char, FreeMemory> owner(svg);
  return svg ? std::string(svg, length) : "";
}

void ExpectReadable(const Bytes& bytes) {
  ExpectSafeRecords(bytes);
  EXPECT_NE(std::string::npos, PlayAsSvg(bytes).find("</svg>"));
}

TEST(ForeignReaders, read_every_drawing) {
  size_t drawings = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(HEXLUME_DRAWINGS)) {
    if (entry.path().extension() != ".dxf") continue;
    SCOPED_TRACE(entry.path().string());
    HENHMETAFILE metafile = nullptr;
    vzMetaMake(entry.path().c_str(), &metafile, 0, 0);
    if (!metafile) continue;  // a drawing that a fault ended has one all the same
    ExpectReadable(TakeBytes(metafile));
    ++drawings;
  }
  EXPECT_GT(drawings, 50u);
}

void DrawShapes(HDC canvas) {
  const HGDIOBJ oldPen = SelectObject(canvas, CreatePen(PS_DASH, 0, 0x0000FF));
  const HGDIOBJ oldBrush = SelectObject(canvas, GetStockObject(NULL_BRUSH));
  MoveToEx(canvas, 100, -100, nullptr);
  LineTo(canvas, 4000, -3000);
  AngleArc(canvas, 5000, -5000, 1000, 30.0f, 200.0f);
  Arc(canvas, 1000, -1000, 3000, -2000, 3000, -1500, 1000, -1500);
  Ellipse(canvas, 500, -500, 2500, -2500);
  SetPixel(canvas, 50, -50, 0x00FF00);
  const POINT curve[] = {{0, 0}, {1000, -1000}, {2000, 1000}, {3000, -40000}};
  PolyBezier(canvas, curve, 4);
  SelectObject(canvas, oldBrush);
  DeleteObject(SelectObject(canvas, oldPen));
}

void DrawFills(HDC canvas) {
  const HBRUSH brush = CreateSolidBrush(0xFF0000);
  const HGDIOBJ oldBrush = SelectObject(canvas, brush);
  SetPolyFillMode(canvas, ALTERNATE);
  const POINT corners[] = {{0, 0}, {9000, 0}, {9000, -9000}, {0, -9000}};
  Polygon(canvas, corners, 4);
  const POINT outline[] = {{10, 10}, {200, 30}, {120, 300}};
  const HRGN region = CreatePolygonRgn(outline, 3, ALTERNATE);
  const HRGN hole = CreateEllipticRgn(60, 60, 120, 120);
  CombineRgn(region, region, hole, RGN_DIFF);
  FillRgn(canvas, region, brush);
  ExtSelectClipRgn(canvas, region, RGN_COPY);
  ExtSelectClipRgn(canvas, nullptr, RGN_COPY);
  DeleteObject(hole);
  DeleteObject(region);
  SelectObject(canvas, oldBrush);
  DeleteObject(brush);
}

void WriteText(HDC canvas) {
  const HFONT font = CreateFontA(500, 0, 300, 0, 0, 0, 0, 0, SHIFTJIS_CHARSET, 0, 16, 0, 0, "");
  const HGDIOBJ oldFont = SelectObject(canvas, font);
  SetTextColor(canvas, 0xFF00FF);
  SetTextAlign(canvas, TA_BOTTOM);
  SetBkMode(canvas, TRANSPARENT);
  TextOutA(canvas, 3000, -3000, "\x90\x7D\x96\xCA 12.5", 9);
  SelectObject(canvas, oldFont);
  DeleteObject(font);
}

TEST(ForeignReaders, read_every_kind_of_record) {
  const RECT frame = {0, 0, 42000, 29700};
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr);
  SetArcDirection(canvas, AD_CLOCKWISE);
  SetMapMode(canvas, MM_HIMETRIC);
  DrawShapes(canvas);
  DrawFills(canvas);
  WriteText(canvas);
  ExpectReadable(TakeBytes(CloseEnhMetaFile(canvas)));
}

}  // namespace
}  // namespace hexlume::foreign_readers_test
