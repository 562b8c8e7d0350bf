#include <cstdint>
#include <iterator>
#include <vector>

#include "support/gdi_probe_calls.h"
#include "support/region_area.h"

namespace hexlume {

namespace {

// The same numbers on every system.
class Dice {
 public:
  explicit Dice(uint32_t start) : state(start) {}

  int Below(int end) {
    state = state * 1664525u + 1013904223u;
    return static_cast<int>((state >> 8) % static_cast<uint32_t>(end));
  }

 private:
  uint32_t state;
};

void AddBox(HRGN region, ProbeResults& results) {
  RECT box = {};
  results.push_back(GetRgnBox(region, &box));
  for (const long long side : {box.left, box.top, box.right, box.bottom}) results.push_back(side);
}

void FillAndDelete(HDC dc, HRGN region, ProbeResults& results) {
  AddBox(region, results);
  const HBRUSH brush = CreateSolidBrush(0x0000FF);
  results.push_back(FillRgn(dc, region, brush));
  DeleteObject(brush);
  DeleteObject(region);
}

HRGN PolygonOf(const std::vector<POINT>& points, int fillMode = ALTERNATE) {
  return CreatePolygonRgn(points.data(), static_cast<int>(points.size()), fillMode);
}

HRGN RandomPolygon(Dice& dice, int mostPoints, int across, int down) {
  std::vector<POINT> points(static_cast<size_t>(3 + dice.Below(mostPoints)));
  for (POINT& point : points) {
    point.x = dice.Below(across) - across / 3;
    point.y = dice.Below(down) - down / 3;
  }
  return PolygonOf(points);
}

void SmallPolygons(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  const std::vector<POINT> square = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  FillAndDelete(dc, PolygonOf(square), results);
  FillAndDelete(dc, PolygonOf(square, WINDING), results);
  FillAndDelete(dc, PolygonOf({{0, 0}, {0, 10}, {10, 10}, {10, 0}, {0, 0}}), results);
  FillAndDelete(dc, PolygonOf({{0, 0}, {10, 0}, {0, 10}}), results);
  FillAndDelete(dc, PolygonOf({{0, 0}, {10, 10}, {0, 10}}), results);
  FillAndDelete(dc, PolygonOf({{0, 0}, {10, 10}}), results);
  FillAndDelete(dc, PolygonOf({{5, 5}}), results);
  FillAndDelete(dc, PolygonOf({{0, 0}, {10, 0}, {5, 0}}), results);
  FillAndDelete(dc, PolygonOf({{0, 0}, {0, 10}, {0, 5}}), results);
  FillAndDelete(dc, PolygonOf({{100, -200}, {1100, -200}, {100, -208}}), results);
}

void RandomPolygons(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  Dice dice(12345);
  for (int i = 0; i < 200; ++i) {
    const int size = i % 3 == 0 ? 12 : i % 3 == 1 ? 60 : 900;
    FillAndDelete(dc, RandomPolygon(dice, 12, size, size), results);
  }
  for (int i = 0; i < 10; ++i) FillAndDelete(dc, RandomPolygon(dice, 200, 40000, 500), results);
}

void Ellipses(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (int width = 8; width <= 40; width += 3) {
    for (int height = 0; height <= 24; ++height) {
      FillAndDelete(dc, CreateEllipticRgn(5, -7, 5 + width, -7 + height), results);
    }
  }
  Dice dice(7);
  for (int i = 0; i < 60; ++i) {
    const int x = dice.Below(2000) - 1000;
    const int y = dice.Below(2000) - 1000;
    FillAndDelete(dc, CreateEllipticRgn(x, y, x + 200 + dice.Below(1500), y - 20 - dice.Below(1500)),
                  results);
  }
}

void Rectangles(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  FillAndDelete(dc, CreateRectRgn(0, 0, 0, 0), results);
  FillAndDelete(dc, CreateRectRgn(10, 10, -5, 0), results);
  FillAndDelete(dc, CreateRectRgn(0, 0, 5, 0), results);
  FillAndDelete(dc, CreateRectRgn(100, -300, 101, -299), results);
  FillAndDelete(dc, CreateRectRgn(-1500, -20000, 3000, 4000), results);
  FillAndDelete(dc, CreateRectRgn(-2147483647, -5, 2147483647, 5), results);
}

void RectangleInText(HDC dc, ProbeResults& results) {
  FillAndDelete(dc, CreateRectRgn(50, 60, 70, 90), results);
}

void Combinations(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  Dice dice(99);
  for (int i = 0; i < 40; ++i) {
    for (int mode = -1; mode <= 6; ++mode) {
      const HRGN first = RandomPolygon(dice, 6, 120, 120);
      const HRGN second = RandomPolygon(dice, 6, 120, 120);
      const HRGN result = CreateRectRgn(1, 2, 3, 4);
      results.push_back(CombineRgn(result, first, second, mode));
      AddBox(result, results);
      for (const HRGN region : {first, second, result}) DeleteObject(region);
    }
  }
}

void CombinedRectangles(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (int mode = RGN_AND; mode <= RGN_COPY; ++mode) {
    const HRGN first = CreateRectRgn(0, 0, 10, 10);
    const HRGN second = CreateRectRgn(5, 5, 15, 15);
    results.push_back(CombineRgn(first, first, second, mode));
    FillAndDelete(dc, first, results);
    DeleteObject(second);
  }
}

void EllipseWithNothing(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (int mode = RGN_AND; mode <= RGN_COPY; ++mode) {
    const HRGN result = CreateRectRgn(0, 0, 0, 0);
    const HRGN ellipse = CreateEllipticRgn(0, 0, 40, 30);
    results.push_back(CombineRgn(result, result, ellipse, mode));
    FillAndDelete(dc, result, results);
    DeleteObject(ellipse);
  }
}

void NoRegions(HDC, ProbeResults& results) {
  const HRGN region = CreateRectRgn(0, 0, 10, 10);
  results.push_back(CombineRgn(region, region, nullptr, RGN_OR));
  results.push_back(CombineRgn(region, nullptr, region, RGN_OR));
  results.push_back(CombineRgn(nullptr, region, region, RGN_OR));
  results.push_back(CombineRgn(region, nullptr, region, RGN_COPY));
  results.push_back(CombineRgn(region, region, nullptr, RGN_COPY));
  AddBox(nullptr, results);
  AddBox(region, results);
  DeleteObject(region);
  AddBox(region, results);
}

void Clips(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  const HRGN box = CreateRectRgn(10, 20, 300, 400);
  const HRGN ellipse = CreateEllipticRgn(10, 20, 30, 26);
  results.push_back(ExtSelectClipRgn(dc, box, RGN_AND));
  MoveToEx(dc, 0, 0, nullptr);
  LineTo(dc, 20000, -20000);
  results.push_back(ExtSelectClipRgn(dc, nullptr, RGN_COPY));
  results.push_back(ExtSelectClipRgn(dc, nullptr, RGN_AND));
  LineTo(dc, 25000, -25000);
  for (const int mode : {RGN_COPY, RGN_OR, RGN_XOR, RGN_DIFF, RGN_AND, 0, 6, -1}) {
    results.push_back(ExtSelectClipRgn(dc, ellipse, mode));
  }
  DeleteObject(box);
  DeleteObject(ellipse);
}

void FirstClips(HDC dc, ProbeResults& results) {
  const HRGN box = CreateRectRgn(10, 20, 300, 400);
  for (const int mode : {RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF, RGN_COPY}) {
    results.push_back(ExtSelectClipRgn(dc, box, mode));
    results.push_back(ExtSelectClipRgn(dc, nullptr, RGN_COPY));
  }
  DeleteObject(box);
  const HRGN nothing = CreateRectRgn(0, 0, 0, 0);
  results.push_back(ExtSelectClipRgn(dc, nothing, RGN_AND));
  DeleteObject(nothing);
}

// Boundaries of hatches: a path of a few corners or of a hundred, or an ellipse, at random places of a sheet.

HRGN RandomPath(Dice& dice) {
  constexpr int sheetWidth = 42000;
  constexpr int sheetHeight = 29700;
  const int size = dice.Below(2) == 0 ? 300 : 20000;
  const int left = dice.Below(sheetWidth);
  const int top = -dice.Below(sheetHeight);
  const auto point = [&]() -> POINT { return {left + dice.Below(size), top - dice.Below(size)}; };
  if (dice.Below(4) == 0) {
    // Not narrow: of a narrow one Wine leaves the rows at the tips as they were in memory.
    const POINT first = point();
    const int width = size / 4 + dice.Below(size);
    const int height = size / 4 + dice.Below(size);
    return CreateEllipticRgn(first.x, first.y, first.x + width, first.y - height);
  }
  std::vector<POINT> points(static_cast<size_t>(dice.Below(5) == 0 ? 100 : 3 + dice.Below(8)));
  for (POINT& corner : points) corner = point();
  return PolygonOf(points);
}

struct Paths {
  explicit Paths(Dice& dice) : regions(static_cast<size_t>(1 + dice.Below(4))) {
    for (HRGN& region : regions) region = RandomPath(dice);
  }
  Paths(const Paths&) = delete;
  ~Paths() {
    for (const HRGN region : regions) DeleteObject(region);
  }

  std::vector<HRGN> regions;
};

// What exactly one path covers.
HRGN CoveredOnce(const std::vector<HRGN>& regions) {
  const HRGN all = CreateRectRgn(0, 0, 0, 0);
  const HRGN shared = CreateRectRgn(0, 0, 0, 0);
  const HRGN common = CreateRectRgn(0, 0, 0, 0);
  for (size_t j = 0; j < regions.size(); ++j) {
    CombineRgn(all, all, regions[j], RGN_OR);
    for (size_t i = 0; i < j; ++i) {
      CombineRgn(common, regions[i], regions[j], RGN_AND);
      CombineRgn(shared, shared, common, RGN_OR);
    }
  }
  CombineRgn(all, all, shared, RGN_XOR);
  DeleteObject(shared);
  DeleteObject(common);
  return all;
}

void AddBoundary(HRGN region, ProbeResults& results) {
  AddBox(region, results);
  results.push_back(AreaOf(region));
  DeleteObject(region);
}

void Boundaries(HDC, ProbeResults& results) {
  Dice dice(2024);
  for (int i = 0; i < 200; ++i) {
    const Paths paths(dice);
    for (const int mode : {RGN_XOR, RGN_OR, RGN_DIFF}) {
      const HRGN region = CreateRectRgn(0, 0, mode == RGN_DIFF ? 42000 : 0, mode == RGN_DIFF ? -29700 : 0);
      for (const HRGN path : paths.regions) CombineRgn(region, region, path, mode);
      AddBoundary(region, results);
    }
    AddBoundary(CoveredOnce(paths.regions), results);
  }
}

// As a hatch does it.
void FillWithSelectedBrush(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  const HRGN region = CreateRectRgn(0, 0, 10, -10);
  for (const COLORREF color : {0x0000FF, 0x00FF00}) {
    const HPEN pen = CreatePen(PS_SOLID, 0, color);
    const HBRUSH brush = CreateSolidBrush(color);
    const HGDIOBJ penBefore = SelectObject(dc, pen);
    const HGDIOBJ brushBefore = SelectObject(dc, brush);
    results.push_back(FillRgn(dc, region, brush));
    results.push_back(FillRgn(dc, region, brush));
    SelectObject(dc, penBefore);
    SelectObject(dc, brushBefore);
    DeleteObject(pen);
    DeleteObject(brush);
  }
  results.push_back(FillRgn(dc, region, static_cast<HBRUSH>(GetStockObject(NULL_BRUSH))));
  results.push_back(FillRgn(dc, region, nullptr));
  DeleteObject(region);
}

constexpr ProbeCalls regionProbes[] = {
    {"small polygons", SmallPolygons},
    {"random polygons", RandomPolygons},
    {"ellipse regions", Ellipses},
    {"rectangle regions", Rectangles},
    {"rectangle region in text", RectangleInText},
    {"combined polygons", Combinations},
    {"combined rectangles", CombinedRectangles},
    {"ellipse with nothing", EllipseWithNothing},
    {"no regions", NoRegions},
    {"boundaries of hatches", Boundaries},
    {"clips", Clips},
    {"first clips", FirstClips},
    {"fill with a selected brush", FillWithSelectedBrush},
};

}  // namespace

const std::vector<ProbeCalls>& RegionProbes() {
  static const std::vector<ProbeCalls> probes(std::begin(regionProbes), std::end(regionProbes));
  return probes;
}

}  // namespace hexlume
