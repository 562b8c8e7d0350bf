#include "support/gdi_probe_calls.h"

#include <cstdint>

namespace hexlume {

namespace {

void StockObjects(HDC dc, ProbeResults& results) {
  results.push_back(SelectObject(dc, GetStockObject(BLACK_PEN)) == GetStockObject(BLACK_PEN));
  results.push_back(SelectObject(dc, GetStockObject(NULL_BRUSH)) == GetStockObject(WHITE_BRUSH));
  results.push_back(SelectObject(dc, GetStockObject(NULL_BRUSH)) == GetStockObject(NULL_BRUSH));
  for (int object = WHITE_BRUSH; object <= NULL_PEN; ++object) SelectObject(dc, GetStockObject(object));
  results.push_back(SelectObject(dc, GetStockObject(SYSTEM_FONT)) == GetStockObject(SYSTEM_FONT));
  results.push_back(SelectObject(dc, GetStockObject(SYSTEM_FONT)) == GetStockObject(SYSTEM_FONT));
}

void UnknownStockObjects(HDC, ProbeResults& results) {
  results.push_back(GetStockObject(-1) == nullptr);
  results.push_back(GetStockObject(9) == nullptr);
  results.push_back(GetStockObject(1000000) == nullptr);
}

void DeletedStockObjects(HDC dc, ProbeResults& results) {
  results.push_back(DeleteObject(GetStockObject(BLACK_PEN)));
  SelectObject(dc, GetStockObject(BLACK_PEN));
  results.push_back(DeleteObject(GetStockObject(BLACK_PEN)));
  results.push_back(SelectObject(dc, GetStockObject(NULL_PEN)) == GetStockObject(BLACK_PEN));
}

void NoObject(HDC dc, ProbeResults& results) {
  results.push_back(SelectObject(dc, nullptr) == nullptr);
  results.push_back(DeleteObject(nullptr));
  LineTo(dc, 5, 6);
}

void DeletedSelectedPen(HDC dc, ProbeResults& results) {
  const HPEN pen = CreatePen(PS_SOLID, 0, 0x0000FF);
  SelectObject(dc, pen);
  LineTo(dc, 5, 6);
  results.push_back(DeleteObject(pen));
  LineTo(dc, 7, 8);
  results.push_back(SelectObject(dc, GetStockObject(BLACK_PEN)) == pen);
  LineTo(dc, 9, 10);
}

void DeletedSelectedPenThenAnother(HDC dc, ProbeResults& results) {
  const HPEN pen = CreatePen(PS_SOLID, 0, 0x0000FF);
  SelectObject(dc, pen);
  results.push_back(DeleteObject(pen));
  results.push_back(DeleteObject(pen));
  const HPEN another = CreatePen(PS_SOLID, 0, 0x00FF00);
  results.push_back(SelectObject(dc, another) == pen);
  results.push_back(DeleteObject(pen));
  results.push_back(SelectObject(dc, pen) == nullptr);
  SelectObject(dc, GetStockObject(BLACK_PEN));
  results.push_back(DeleteObject(another));
  results.push_back(DeleteObject(another));
}

void DeletedSelectedPenSelectedAgain(HDC dc, ProbeResults& results) {
  const HPEN pen = CreatePen(PS_SOLID, 0, 0x0000FF);
  SelectObject(dc, pen);
  results.push_back(DeleteObject(pen));
  results.push_back(SelectObject(dc, pen) == pen);
  LineTo(dc, 3, 4);
  results.push_back(SelectObject(dc, GetStockObject(BLACK_PEN)) == pen);
}

void DeletedBeforeSelected(HDC dc, ProbeResults& results) {
  const HPEN pen = CreatePen(PS_SOLID, 0, 0x0000FF);
  results.push_back(DeleteObject(pen));
  results.push_back(SelectObject(dc, pen) == nullptr);
  LineTo(dc, 5, 6);
}

void SelectedTwice(HDC dc, ProbeResults& results) {
  const HPEN pen = CreatePen(PS_DASHDOT, 7, 0x0000FF);
  const HGDIOBJ before = SelectObject(dc, pen);
  results.push_back(SelectObject(dc, pen) == pen);
  SelectObject(dc, before);
  SelectObject(dc, pen);
  SelectObject(dc, before);
  results.push_back(DeleteObject(pen));
}

void NeverDeleted(HDC dc, ProbeResults&) {
  SelectObject(dc, CreatePen(PS_SOLID, 3, 0x0000FF));
  LineTo(dc, 5, 6);
}

void NeverSelected(HDC, ProbeResults& results) {
  const HPEN pen = CreatePen(PS_SOLID, 3, 0x0000FF);
  const HBRUSH brush = CreateSolidBrush(0x00FF00);
  results.push_back(DeleteObject(pen));
  results.push_back(DeleteObject(brush));
}

void Pens(HDC dc, ProbeResults& results) {
  const int widths[] = {0, 1, 5, -5, INT32_MIN, INT32_MAX};
  for (int style = -1; style <= 10; ++style) {
    for (const int width : widths) {
      const HPEN pen = CreatePen(style, width, 0xFF123456);
      results.push_back(pen != nullptr);
      const HGDIOBJ before = SelectObject(dc, pen);
      SelectObject(dc, before);
      DeleteObject(pen);
    }
  }
}

void Brushes(HDC dc, ProbeResults& results) {
  const HBRUSH brush = CreateSolidBrush(0xFF123456);
  const HGDIOBJ before = SelectObject(dc, brush);
  results.push_back(before == GetStockObject(WHITE_BRUSH));
  Ellipse(dc, 10, 20, 30, 40);
  results.push_back(SelectObject(dc, before) == brush);
  DeleteObject(brush);
}

// Which indices come again, and in which order.
void Indices(HDC dc, ProbeResults&) {
  HPEN pens[6];
  for (HPEN& pen : pens) {
    pen = CreatePen(PS_SOLID, 1, 0x111111);
    SelectObject(dc, pen);
  }
  SelectObject(dc, GetStockObject(BLACK_PEN));
  for (const int gone : {4, 1, 2}) DeleteObject(pens[gone]);
  for (const int fresh : {4, 1, 2}) {
    pens[fresh] = CreatePen(PS_SOLID, 2, 0x222222);
    SelectObject(dc, pens[fresh]);
  }
  const HBRUSH brush = CreateSolidBrush(0x333333);
  const HGDIOBJ brushBefore = SelectObject(dc, brush);
  SelectObject(dc, GetStockObject(BLACK_PEN));
  SelectObject(dc, brushBefore);
  for (const HPEN pen : pens) DeleteObject(pen);
  DeleteObject(brush);
}

void ManyObjects(HDC dc, ProbeResults&) {
  HPEN pens[40];
  for (HPEN& pen : pens) {
    pen = CreatePen(PS_SOLID, 1, 0x111111);
    SelectObject(dc, pen);
  }
  SelectObject(dc, GetStockObject(BLACK_PEN));
  for (const HPEN pen : pens) DeleteObject(pen);
}

void TwoMetafiles(HDC dc, ProbeResults& results) {
  const HDC other = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  const HPEN onlyOther = CreatePen(PS_SOLID, 1, 0x444444);
  SelectObject(other, onlyOther);
  const HPEN pen = CreatePen(PS_SOLID, 1, 0x111111);
  SelectObject(dc, pen);
  SelectObject(other, pen);
  SelectObject(dc, GetStockObject(BLACK_PEN));
  SelectObject(other, GetStockObject(BLACK_PEN));
  results.push_back(DeleteObject(pen));
  const HENHMETAFILE metafile = CloseEnhMetaFile(other);
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
  for (const uint8_t byte : bytes) results.push_back(byte);
  DeleteEnhMetaFile(metafile);
  results.push_back(DeleteObject(onlyOther));
}

void ModeSettings(HDC dc, ProbeResults& results) {
  for (const int mode : {MM_TEXT, MM_HIMETRIC, MM_HIMETRIC, MM_TEXT, 0, 99})
    results.push_back(SetMapMode(dc, mode));
  for (const int mode : {OPAQUE, TRANSPARENT, TRANSPARENT, 0, 3}) results.push_back(SetBkMode(dc, mode));
  for (const UINT align : {0u, 24u, 24u, 6u, 0xFFFFFFFFu, 0u}) results.push_back(SetTextAlign(dc, align));
  for (const COLORREF color : {0u, 0x123456u, 0x123456u, 0xFF000001u, 0x01000002u, 0u}) {
    results.push_back(SetTextColor(dc, color));
  }
  for (const int extra : {0, 3, 3, -4, 0}) results.push_back(SetTextCharacterExtra(dc, extra));
}

void NoContext(HDC, ProbeResults& results) {
  POINT point = {1, 2};
  const POINT points[] = {{1, 1}, {2, 2}, {3, 3}, {4, 4}};
  results.push_back(SetMapMode(nullptr, MM_HIMETRIC));
  results.push_back(SetArcDirection(nullptr, AD_CLOCKWISE));
  results.push_back(SetPolyFillMode(nullptr, WINDING));
  results.push_back(SetBkMode(nullptr, TRANSPARENT));
  results.push_back(SetTextColor(nullptr, 1));
  results.push_back(SetTextAlign(nullptr, 6));
  results.push_back(SetTextCharacterExtra(nullptr, 6));
  results.push_back(LPtoDP(nullptr, &point, 1));
  results.push_back(SelectObject(nullptr, GetStockObject(BLACK_PEN)) == nullptr);
  results.push_back(MoveToEx(nullptr, 1, 2, &point));
  results.push_back(LineTo(nullptr, 1, 2));
  results.push_back(SetPixel(nullptr, 1, 2, 3));
  results.push_back(Ellipse(nullptr, 1, 2, 3, 4));
  results.push_back(Arc(nullptr, 1, 2, 3, 4, 5, 6, 7, 8));
  results.push_back(AngleArc(nullptr, 1, 2, 3, 4, 5));
  results.push_back(PolyBezier(nullptr, points, 4));
  results.push_back(Polygon(nullptr, points, 4));
  results.push_back(CloseEnhMetaFile(nullptr) == nullptr);
  results.push_back(DeleteDC(nullptr));
  results.push_back(DeleteEnhMetaFile(nullptr));
  results.push_back(GetEnhMetaFileBits(nullptr, 0, nullptr));
}

void NoPoints(HDC dc, ProbeResults& results) {
  results.push_back(PolyBezier(dc, nullptr, 0));
  results.push_back(Polygon(dc, nullptr, 0));
  results.push_back(LPtoDP(dc, nullptr, 0));
}

void Nothing(HDC, ProbeResults&) {}

}  // namespace

const std::vector<ProbeCalls>& ObjectProbes() {
  static const std::vector<ProbeCalls> probes = {
      {"nothing", Nothing},
      {"stock objects", StockObjects},
      {"unknown stock objects", UnknownStockObjects},
      {"deleted stock objects", DeletedStockObjects},
      {"no object", NoObject},
      {"deleted selected pen", DeletedSelectedPen},
      {"deleted selected pen, then another", DeletedSelectedPenThenAnother},
      {"deleted selected pen, selected again", DeletedSelectedPenSelectedAgain},
      {"deleted before selected", DeletedBeforeSelected},
      {"selected twice", SelectedTwice},
      {"never deleted", NeverDeleted},
      {"never selected", NeverSelected},
      {"pens", Pens},
      {"brushes", Brushes},
      {"indices", Indices},
      {"many objects", ManyObjects},
      {"two metafiles", TwoMetafiles},
      {"modes", ModeSettings},
      {"no context", NoContext},
      {"no points", NoPoints},
  };
  return probes;
}

const std::vector<ProbeFrame>& FrameProbes() {
  static const std::vector<ProbeFrame> probes = {
      {"no frame", false, {0, 0, 0, 0}},
      {"a frame", true, {0, 0, 42000, 29700}},
      {"an empty frame", true, {0, 0, 0, 0}},
      {"an empty frame elsewhere", true, {100, 200, 100, 200}},
      {"a frame without width", true, {0, 0, 0, 29700}},
      {"an inverted frame", true, {42000, 29700, 0, 0}},
      {"a frame in the negative", true, {-500, -600, -100, -200}},
      {"the largest frame", true, {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}},
  };
  return probes;
}

void DrawInFrame(HDC dc) {
  SetMapMode(dc, MM_HIMETRIC);
  MoveToEx(dc, 1000, -2000, nullptr);
  LineTo(dc, 15000, -9500);
}

}  // namespace hexlume
