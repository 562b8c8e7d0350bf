#include "support/gdi_probe_calls.h"

#include <cstdint>
#include <iterator>

namespace hexlume {

namespace {

constexpr int smallest = INT32_MIN;
constexpr int largest = INT32_MAX;

void Lines(HDC dc, ProbeResults& results) {
  POINT previous = {-7, -7};
  results.push_back(MoveToEx(dc, 100, -200, &previous));
  results.push_back(previous.x);
  results.push_back(previous.y);
  results.push_back(LineTo(dc, 3000, -2500));
  results.push_back(MoveToEx(dc, 1, 2, &previous));
  results.push_back(previous.x);
  results.push_back(previous.y);
  LineTo(dc, 1, 2);
}

void LinesInText(HDC dc, ProbeResults& results) {
  Lines(dc, results);
}

void LinesInHimetric(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  Lines(dc, results);
}

void MoveOnly(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  MoveToEx(dc, 1000, -2000, nullptr);
}

void MoveTwiceThenLine(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  MoveToEx(dc, 20000, -20000, nullptr);
  MoveToEx(dc, 1000, -2000, nullptr);
  LineTo(dc, 1500, -2500);
}

void LineThenMode(HDC dc, ProbeResults& results) {
  MoveToEx(dc, 10, 20, nullptr);
  results.push_back(SetMapMode(dc, MM_HIMETRIC));
  LineTo(dc, 100, -100);
  results.push_back(SetMapMode(dc, MM_TEXT));
  LineTo(dc, 7, 9);
}

void LineWithPen(HDC dc, int style, int width) {
  SetMapMode(dc, MM_HIMETRIC);
  const HPEN pen = CreatePen(style, width, 0x0000FF);
  const HGDIOBJ before = SelectObject(dc, pen);
  MoveToEx(dc, 1000, -2000, nullptr);
  LineTo(dc, 1500, -2500);
  SelectObject(dc, before);
  DeleteObject(pen);
}

void WidePenLine(HDC dc, ProbeResults&) {
  LineWithPen(dc, PS_SOLID, 500);
}
void DashedPenLine(HDC dc, ProbeResults&) {
  LineWithPen(dc, PS_DASH, 0);
}
void WideDashedPenLine(HDC dc, ProbeResults&) {
  LineWithPen(dc, PS_DOT, 300);
}
void NullPenLine(HDC dc, ProbeResults&) {
  LineWithPen(dc, PS_NULL, 10);
}
void NegativePenLine(HDC dc, ProbeResults&) {
  LineWithPen(dc, PS_SOLID, -300);
}
void UnknownPenLine(HDC dc, ProbeResults&) {
  LineWithPen(dc, 77, 3);
}
void InsideFramePenLine(HDC dc, ProbeResults&) {
  LineWithPen(dc, 6, 300);
}
void AlternatePenLine(HDC dc, ProbeResults&) {
  LineWithPen(dc, 8, 1);
}

void FarLines(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  MoveToEx(dc, smallest, smallest, nullptr);
  results.push_back(LineTo(dc, largest, largest));
  LineTo(dc, smallest, largest);
  LineTo(dc, largest, smallest);
}

void FarLinesInText(HDC dc, ProbeResults& results) {
  MoveToEx(dc, smallest, smallest, nullptr);
  results.push_back(LineTo(dc, largest, largest));
  LineTo(dc, smallest, largest);
}

void LineOffTheDevice(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  MoveToEx(dc, -50000, 60000, nullptr);
  LineTo(dc, 150000, -160000);
}

void Pixels(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(SetPixel(dc, 1234, -567, 0x123456));
  results.push_back(SetPixel(dc, 5000, -6000, 0xFF123456));
  results.push_back(SetPixel(dc, smallest, largest, 0x01000002));
}

void PixelOnly(HDC dc, ProbeResults&) {
  SetPixel(dc, 12, 34, 0xABCDEF);
}

void Ellipses(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(Ellipse(dc, 1000, -2000, 3000, -5000));
  results.push_back(Ellipse(dc, 3000, -5000, 1000, -2000));
  results.push_back(Ellipse(dc, 1000, -5000, 3000, -2000));
}

void EllipsesInText(HDC dc, ProbeResults& results) {
  results.push_back(Ellipse(dc, 10, 20, 30, 50));
  results.push_back(Ellipse(dc, 300, 500, 10, 20));
}

void EmptyEllipses(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(Ellipse(dc, 1000, -2000, 1000, -5000));
  results.push_back(Ellipse(dc, 1000, -2000, 3000, -2000));
  results.push_back(Ellipse(dc, 1000, -2000, 1000, -2000));
  results.push_back(Ellipse(dc, 1000, -2000, 1001, -2001));
}

void FarEllipses(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(Ellipse(dc, smallest, smallest, largest, largest));
  results.push_back(Ellipse(dc, smallest, smallest, smallest, smallest));
  results.push_back(Ellipse(dc, smallest, smallest, smallest + 1, smallest + 1));
}

void FarEllipseInText(HDC dc, ProbeResults& results) {
  results.push_back(Ellipse(dc, smallest, smallest, largest, largest));
}

void WideEllipse(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  const HPEN pen = CreatePen(PS_SOLID, 500, 0x0000FF);
  const HGDIOBJ before = SelectObject(dc, pen);
  Ellipse(dc, 1000, -2000, 3000, -5000);
  SelectObject(dc, before);
  DeleteObject(pen);
}

void NullPenEllipse(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  SelectObject(dc, GetStockObject(NULL_PEN));
  Ellipse(dc, 1000, -2000, 3000, -5000);
}

void Curves(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  const POINT points[] = {{1000, -1000}, {2000, -500},  {3000, -4000}, {4000, -1000},
                          {5000, -100},  {6000, -9000}, {7000, -1000}};
  results.push_back(PolyBezier(dc, points, 4));
  results.push_back(PolyBezier(dc, points, 7));
  POINT previous = {0, 0};
  MoveToEx(dc, 0, 0, &previous);
  results.push_back(previous.x);
  results.push_back(previous.y);
}

void LargeCurves(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  const POINT points[] = {{1000, -1000}, {2000, -500}, {3000, -4000}, {40000, -1000}};
  results.push_back(PolyBezier(dc, points, 4));
  const POINT edge[] = {{32767, -32768}, {2000, -500}, {3000, -4000}, {4000, -1000}};
  results.push_back(PolyBezier(dc, edge, 4));
  const POINT beyond[] = {{32767, -32769}, {2000, -500}, {3000, -4000}, {4000, -1000}};
  results.push_back(PolyBezier(dc, beyond, 4));
  const POINT above[] = {{32767, 32768}, {2000, -500}, {3000, -4000}, {4000, -1000}};
  results.push_back(PolyBezier(dc, above, 4));
  const POINT distant[] = {{smallest, largest}, {2000, -500}, {3000, -4000}, {largest, smallest}};
  results.push_back(PolyBezier(dc, distant, 4));
}

void CurvesWithBadCounts(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  MoveToEx(dc, 100, -100, nullptr);
  const POINT points[] = {{1000, -1000}, {2000, -500},  {3000, -4000},
                          {4000, -1000}, {5000, -1500}, {6000, -1}};
  for (DWORD count = 0; count <= 6; ++count) {
    if (count == 4) continue;
    results.push_back(PolyBezier(dc, points, count));
    POINT previous = {0, 0};
    MoveToEx(dc, 100, -100, &previous);
    results.push_back(previous.x);
    results.push_back(previous.y);
  }
}

void Polygons(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  MoveToEx(dc, 100, -100, nullptr);
  const POINT points[] = {{1000, -1000}, {2000, -500}, {3000, -4000}, {4000, -1000}};
  results.push_back(Polygon(dc, points, 3));
  results.push_back(SetPolyFillMode(dc, WINDING));
  results.push_back(Polygon(dc, points, 4));
  results.push_back(SetPolyFillMode(dc, WINDING));
  results.push_back(SetPolyFillMode(dc, ALTERNATE));
  results.push_back(SetPolyFillMode(dc, 5));
  results.push_back(SetPolyFillMode(dc, WINDING));
  POINT previous = {0, 0};
  MoveToEx(dc, 0, 0, &previous);
  results.push_back(previous.x);
  results.push_back(previous.y);
}

void LargePolygons(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  const POINT points[] = {{1000, -1000}, {2000, -500}, {40000, -4000}};
  results.push_back(Polygon(dc, points, 3));
  const POINT distant[] = {{smallest, smallest}, {largest, -500}, {40000, largest}};
  results.push_back(Polygon(dc, distant, 3));
}

void PolygonsWithFewPoints(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  const POINT points[] = {{1000, -1000}, {2000, -500}, {3000, -4000}};
  for (int count = -1; count <= 2; ++count) results.push_back(Polygon(dc, points, count));
}

void PolygonWithWidePen(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  const HPEN pen = CreatePen(PS_SOLID, 500, 0x0000FF);
  const HGDIOBJ before = SelectObject(dc, pen);
  const POINT points[] = {{1000, -1000}, {2000, -500}, {3000, -4000}};
  Polygon(dc, points, 3);
  SelectObject(dc, before);
  DeleteObject(pen);
}

void ManyStrokes(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  for (int i = 0; i < 300; ++i) {
    const HPEN pen = CreatePen(i % 5, i % 7, static_cast<COLORREF>(i));
    const HGDIOBJ before = SelectObject(dc, pen);
    MoveToEx(dc, i, -i, nullptr);
    LineTo(dc, 31 * i, -17 * i);
    SelectObject(dc, before);
    DeleteObject(pen);
  }
}

void LongPolygon(HDC dc, ProbeResults&) {
  std::vector<POINT> points;
  for (int i = 0; i < 2000; ++i) points.push_back({i, i * i % 1009});
  Polygon(dc, points.data(), 2000);
  points.front().x = -70000;
  Polygon(dc, points.data(), 2000);
  LineTo(dc, 1, 2);
}

void ToDevicePoints(HDC dc, ProbeResults& results) {
  POINT text[] = {{0, 0}, {smallest, largest}, {100, -100}};
  results.push_back(LPtoDP(dc, text, static_cast<int>(std::size(text))));
  for (const POINT point : text) {
    results.push_back(point.x);
    results.push_back(point.y);
  }
  SetMapMode(dc, MM_HIMETRIC);
  for (const int value : {0, 1, 13, 14, 26, 27, 39, 40, 1000, 2540, 27100, 100000, 1000000, 100000000}) {
    POINT points[] = {{value, value}, {-value, -value}};
    results.push_back(LPtoDP(dc, points, 2));
    for (const POINT point : points) {
      results.push_back(point.x);
      results.push_back(point.y);
    }
  }
  // Halves in device units.
  POINT distant[] = {
      {smallest, largest}, {largest, smallest}, {-2130706432, -1778384896}, {16777216, 369098752}};
  results.push_back(LPtoDP(dc, distant, static_cast<int>(std::size(distant))));
  for (const POINT point : distant) {
    results.push_back(point.x);
    results.push_back(point.y);
  }
  results.push_back(LPtoDP(dc, distant, 0));
  results.push_back(LPtoDP(dc, distant, -1));
}

}  // namespace

const std::vector<ProbeCalls>& StrokeProbes() {
  static const std::vector<ProbeCalls> probes = {
      {"lines in text", LinesInText},
      {"lines in himetric", LinesInHimetric},
      {"a move only", MoveOnly},
      {"two moves and a line", MoveTwiceThenLine},
      {"a line and a mode", LineThenMode},
      {"wide pen", WidePenLine},
      {"dashed pen", DashedPenLine},
      {"wide dashed pen", WideDashedPenLine},
      {"null pen", NullPenLine},
      {"negative pen", NegativePenLine},
      {"unknown pen style", UnknownPenLine},
      {"inside frame pen", InsideFramePenLine},
      {"alternate pen", AlternatePenLine},
      {"far lines", FarLines},
      {"far lines in text", FarLinesInText},
      {"a line off the device", LineOffTheDevice},
      {"pixels", Pixels},
      {"a pixel only", PixelOnly},
      {"ellipses", Ellipses},
      {"ellipses in text", EllipsesInText},
      {"empty ellipses", EmptyEllipses},
      {"far ellipses", FarEllipses},
      {"a far ellipse in text", FarEllipseInText},
      {"wide ellipse", WideEllipse},
      {"null pen ellipse", NullPenEllipse},
      {"curves", Curves},
      {"large curves", LargeCurves},
      {"curves with bad counts", CurvesWithBadCounts},
      {"polygons", Polygons},
      {"large polygons", LargePolygons},
      {"polygons with few points", PolygonsWithFewPoints},
      {"polygon with a wide pen", PolygonWithWidePen},
      {"many strokes", ManyStrokes},
      {"a long polygon", LongPolygon},
      {"to device points", ToDevicePoints},
  };
  return probes;
}

}  // namespace hexlume
