#include "support/gdi_probe_calls.h"

#include <cstdint>
#include <cstring>
#include <iterator>
#include <vector>

namespace hexlume {

namespace {

constexpr int smallest = INT32_MIN;
constexpr int largest = INT32_MAX;

void Arcs(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(Arc(dc, 1000, -2000, 3000, -5000, 3000, -3000, 2000, -2000));
  MoveToEx(dc, 7, -8, nullptr);
  results.push_back(Arc(dc, 3000, -5000, 1000, -2000, 5000, -3500, -1000, -3500));
  LineTo(dc, 9, -9);
}

void ArcQuadrants(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (int from = 0; from < 4; ++from) {
    for (int to = 0; to < 4; ++to) {
      const POINT corners[] = {{9000, -2000}, {1000, -2000}, {1000, -9000}, {9000, -9000}};
      results.push_back(Arc(dc, 3000 + from * 4000, -3000, 8000 + from * 4000, -8000,
                            corners[from].x + from * 4000, corners[from].y, corners[to].x + from * 4000,
                            corners[to].y));
    }
  }
}

void ShortArcFirstQuadrant(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  Arc(dc, 3000, -3000, 8000, -8000, 9000, -4000, 7000, -2000);
}

void ShortArcSecondQuadrant(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  Arc(dc, 3000, -3000, 8000, -8000, 5000, -2000, 2000, -5000);
}

void ClockwiseArcs(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(SetArcDirection(dc, AD_CLOCKWISE));
  Arc(dc, 1000, -2000, 3000, -5000, 3000, -3000, 2000, -2000);
  results.push_back(SetArcDirection(dc, AD_CLOCKWISE));
  results.push_back(SetArcDirection(dc, AD_COUNTERCLOCKWISE));
  Arc(dc, 1000, -2000, 3000, -5000, 3000, -3000, 2000, -2000);
  results.push_back(SetArcDirection(dc, 5));
  results.push_back(SetArcDirection(dc, AD_CLOCKWISE));
  AngleArc(dc, 10000, -10000, 500, 0.0f, 90.0f);
}

void EmptyArcs(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(Arc(dc, 1000, -2000, 1000, -5000, 3000, -3000, 2000, -2000));
  results.push_back(Arc(dc, 1000, -2000, 3000, -2000, 3000, -3000, 2000, -2000));
  results.push_back(Arc(dc, 1000, -2000, 1000, -2000, 1000, -2000, 1000, -2000));
}

void ArcThroughItsCentre(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(Arc(dc, 1000, -2000, 3000, -4000, 2000, -3000, 2000, -3000));
  results.push_back(Arc(dc, 1000, -2000, 3000, -4000, 5000, -3000, 5000, -3000));
}

void FarArcs(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(Arc(dc, smallest, smallest, largest, largest, smallest, largest, largest, smallest));
  results.push_back(Arc(dc, smallest, smallest, smallest, smallest, smallest, largest, largest, smallest));
}

void ArcsInText(HDC dc, ProbeResults& results) {
  results.push_back(Arc(dc, 10, 20, 110, 120, 110, 70, 60, 20));
}

void AngleArcs(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(AngleArc(dc, 5000, -6000, 1000, 30.0f, 90.0f));
  POINT previous = {0, 0};
  MoveToEx(dc, 0, 0, &previous);
  results.push_back(previous.x);
  results.push_back(previous.y);
}

void AngleArcAt(HDC dc, ProbeResults& results, int x, int y, DWORD radius, float start, float sweep) {
  SetMapMode(dc, MM_HIMETRIC);
  MoveToEx(dc, 1000, -1000, nullptr);
  results.push_back(AngleArc(dc, x, y, radius, start, sweep));
  POINT previous = {0, 0};
  MoveToEx(dc, 2000, -500, &previous);
  results.push_back(previous.x);
  results.push_back(previous.y);
}

void FullAngleArc(HDC dc, ProbeResults& results) {
  AngleArcAt(dc, results, 5000, -6000, 1000, 0.0f, 360.0f);
}
void AngleArcBackward(HDC dc, ProbeResults& results) {
  AngleArcAt(dc, results, 5000, -6000, 1000, 45.0f, -200.0f);
}
void AngleArcTwiceRound(HDC dc, ProbeResults& results) {
  AngleArcAt(dc, results, 5000, -6000, 1000, 10.0f, 730.0f);
}
void AngleArcRadius0(HDC dc, ProbeResults& results) {
  AngleArcAt(dc, results, 5000, -6000, 0, 10.0f, 100.0f);
}
void AngleArcSweep0(HDC dc, ProbeResults& results) {
  AngleArcAt(dc, results, 5000, -6000, 700, 10.0f, 0.0f);
}
void AngleArcNegativeRadius(HDC dc, ProbeResults& results) {
  AngleArcAt(dc, results, 5000, -6000, static_cast<DWORD>(-700), 10.0f, 100.0f);
}
void AngleArcLargestRadius(HDC dc, ProbeResults& results) {
  AngleArcAt(dc, results, 5000, -6000, 0x7FFFFFFF, 10.0f, 100.0f);
}
void AngleArcFar(HDC dc, ProbeResults& results) {
  AngleArcAt(dc, results, largest, smallest, 1000, 10.0f, 100.0f);
}

void AngleArcSeries(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (int i = 0; i < 24; ++i) {
    MoveToEx(dc, 5000 + 700 * i, -6000, nullptr);
    AngleArc(dc, 5000 + 700 * i, -6000 - 311 * i, 100 + 37 * i, 15.0f * i + 0.3f, 17.3f * i - 200.0f);
    POINT previous = {0, 0};
    MoveToEx(dc, 0, 0, &previous);
    results.push_back(previous.x);
    results.push_back(previous.y);
  }
}

void AngleArcAlone(HDC dc, ProbeResults& results) {
  AngleArcAt(dc, results, 20000, -9000, 777, 200.0f, 33.0f);
}

// Numbers by chance, the same on every system.
class Chance {
 public:
  // A number from -limit to limit - 1.
  int Around(int limit) {
    seed = seed * 1664525u + 1013904223u;
    return static_cast<int>((seed >> 8) % static_cast<uint32_t>(2 * limit)) - limit;
  }

 private:
  uint32_t seed = 20240607;
};

// Calls draw in a metafile of its own and adds its bounds to the results.
template <typename Draw>
void AddBoundsOf(ProbeResults& results, int mapMode, Draw draw) {
  const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  SetMapMode(dc, mapMode);
  draw(dc);
  const HENHMETAFILE metafile = CloseEnhMetaFile(dc);
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
  DeleteEnhMetaFile(metafile);
  int32_t bounds[4] = {};
  if (bytes.size() >= 8 + sizeof bounds) std::memcpy(bounds, bytes.data() + 8, sizeof bounds);
  results.insert(results.end(), std::begin(bounds), std::end(bounds));
}

void ArcsByChance(HDC, ProbeResults& results) {
  Chance chance;
  for (int i = 0; i < 600; ++i) {
    const int limit = i % 3 == 0 ? 5 : i % 3 == 1 ? 1000 : 500000;
    AddBoundsOf(results, i % 2 ? MM_TEXT : MM_HIMETRIC, [&chance, limit, i](HDC dc) {
      if (i % 4 < 2) SetArcDirection(dc, AD_CLOCKWISE);
      int sides[8];
      for (int& side : sides) side = chance.Around(limit);
      Arc(dc, sides[0], sides[1], sides[2], sides[3], sides[4], sides[5], sides[6], sides[7]);
    });
  }
}

// Angles that a float holds exactly, and whose points aren't halfway between two integers.
void AngleArcsByChance(HDC, ProbeResults& results) {
  Chance chance;
  for (int i = 0; i < 600; ++i) {
    AddBoundsOf(results, i % 2 ? MM_TEXT : MM_HIMETRIC, [&chance, &results, i](HDC dc) {
      if (i % 4 < 2) SetArcDirection(dc, AD_CLOCKWISE);
      const int x = chance.Around(30000);
      const int y = chance.Around(30000);
      const DWORD radius = static_cast<DWORD>(chance.Around(10000) + 10001);
      MoveToEx(dc, x + static_cast<int>(radius) / 2, y, nullptr);
      const float start = chance.Around(720) + 0.25f;
      const float sweep = chance.Around(720) + 0.5f;
      AngleArc(dc, x, y, radius, start, sweep);
      POINT end = {0, 0};
      MoveToEx(dc, 0, 0, &end);
      results.push_back(end.x);
      results.push_back(end.y);
    });
  }
}

// Boxes and circles near the limits of int32, and beyond them.
void FarArcsByChance(HDC, ProbeResults& results) {
  Chance chance;
  const auto far32 = [&chance] { return chance.Around(65536) * 32767 + chance.Around(32768); };
  for (int i = 0; i < 100; ++i) {
    AddBoundsOf(results, i % 2 ? MM_TEXT : MM_HIMETRIC, [&far32](HDC dc) {
      int sides[8];
      for (int& side : sides) side = far32();
      Arc(dc, sides[0], sides[1], sides[2], sides[3], sides[4], sides[5], sides[6], sides[7]);
    });
    AddBoundsOf(results, i % 2 ? MM_TEXT : MM_HIMETRIC, [&far32, &chance](HDC dc) {
      const int x = far32();
      const int y = far32();
      const DWORD radius = static_cast<DWORD>(far32()) & 0x7FFFFFFF;
      const float start = chance.Around(360) + 0.25f;
      const float sweep = chance.Around(360) + 0.5f;
      AngleArc(dc, x, y, radius, start, sweep);
    });
  }
}

}  // namespace

const std::vector<ProbeCalls>& ArcProbes() {
  static const std::vector<ProbeCalls> probes = {
      {"arcs", Arcs},
      {"arc quadrants", ArcQuadrants},
      {"short arc, first quadrant", ShortArcFirstQuadrant},
      {"short arc, second quadrant", ShortArcSecondQuadrant},
      {"clockwise arcs", ClockwiseArcs},
      {"empty arcs", EmptyArcs},
      {"arc through its centre", ArcThroughItsCentre},
      {"far arcs", FarArcs},
      {"arcs in text", ArcsInText},
      {"angle arcs", AngleArcs},
      {"full angle arc", FullAngleArc},
      {"angle arc backward", AngleArcBackward},
      {"angle arc twice round", AngleArcTwiceRound},
      {"angle arc, radius 0", AngleArcRadius0},
      {"angle arc, sweep 0", AngleArcSweep0},
      {"angle arc, negative radius", AngleArcNegativeRadius},
      {"angle arc, largest radius", AngleArcLargestRadius},
      {"angle arc, far", AngleArcFar},
      {"angle arc, series", AngleArcSeries},
      {"angle arc, alone", AngleArcAlone},
      {"arcs by chance", ArcsByChance},
      {"angle arcs by chance", AngleArcsByChance},
      {"far arcs by chance", FarArcsByChance},
  };
  return probes;
}

}  // namespace hexlume
