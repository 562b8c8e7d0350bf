// Measures n, 2n and 4n dimensions, hatches with a pattern, and points of a hatch's boundary. Linux only:
//
//   build/linux/bin/hexlume_composite_bench
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>

#include "growing_drawing.h"

namespace {

std::string Group(int code, double value) {
  char text[48];
  std::snprintf(text, sizeof text, "%d\n%.4f\n", code, value);
  return text;
}

std::string Place(double x, double y) {
  return Group(10, x) + Group(20, y);
}

std::string Section(const char* name, const std::string& groups) {
  return "0\nSECTION\n2\n" + (name + ('\n' + groups)) + "0\nENDSEC\n";
}

// A drawing of 800 x 500 with the layers "0" and "DIM".
std::string DrawingOf(const std::string& blocks, const std::string& entities) {
  return Section("HEADER", "9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n800\n20\n500\n") +
         Section("TABLES",
                 "0\nTABLE\n2\nLAYER\n0\nLAYER\n2\n0\n62\n7\n0\nLAYER\n2\nDIM\n62\n3\n0\nENDTAB\n") +
         Section("BLOCKS", blocks) + Section("ENTITIES", entities);
}

std::string Block(const std::string& name, const std::string& entities) {
  return "0\nBLOCK\n8\n0\n2\n" + name + "\n70\n1\n" + Place(0, 0) + "3\n" + name + '\n' + entities +
         "0\nENDBLK\n8\n0\n";
}

std::string Line(double x1, double y1, double x2, double y2) {
  return "0\nLINE\n8\n0\n62\n0\n" + Place(x1, y1) + Group(11, x2) + Group(21, y2);
}

// The block of a level dimension with a width of 8, as drawing programs write it: two extension lines, the
// dimension line, an arrow at each end, and the text.
std::string DimensionBlock(const std::string& name, double x, double y) {
  const auto arrow = [y](double tip, int angle) {
    return "0\nINSERT\n8\n0\n2\n_ARROW\n" + Place(tip, y + 3) + "50\n" + std::to_string(angle) + '\n';
  };
  return Block(name, Line(x, y, x, y + 4) + Line(x + 8, y, x + 8, y + 4) + Line(x, y + 3, x + 8, y + 3) +
                         arrow(x, 180) + arrow(x + 8, 0) + "0\nMTEXT\n8\n0\n" + Place(x + 4, y + 4) +
                         "40\n2.5\n41\n0\n71\n5\n1\n%%c8\n");
}

std::string DrawingOfDimensions(int64_t count) {
  std::string blocks = Block(
      "_ARROW", "0\nSOLID\n8\n0\n" + Place(0, 0) + "11\n-2\n21\n0.4\n12\n-2\n22\n-0.4\n13\n-2\n23\n-0.4\n");
  std::string entities;
  for (int64_t i = 0; i < count; ++i) {
    const auto x = static_cast<double>(i % 780);
    const auto y = static_cast<double>(i / 780 % 480);
    const std::string name = "*D" + std::to_string(i);
    blocks += DimensionBlock(name, x, y);
    entities += "0\nDIMENSION\n8\nDIM\n2\n" + name + '\n' + Place(x + 8, y + 3) + Group(11, x + 4) +
                Group(21, y + 4) + "70\n32\n" + Group(13, x) + Group(23, y) + Group(14, x + 8) + Group(24, y);
  }
  return DrawingOf(blocks, entities);
}

// A hatch: boundary has the groups of its paths, definition those after its style.
std::string Hatch(const char* pattern, int64_t paths, const std::string& boundary,
                  const std::string& definition) {
  return "0\nHATCH\n8\n0\n10\n0\n20\n0\n30\n0\n210\n0\n220\n0\n230\n1\n2\n" + std::string(pattern) +
         "\n70\n0\n71\n0\n91\n" + std::to_string(paths) + '\n' + boundary + "75\n0\n76\n1\n" + definition +
         "98\n1\n10\n0\n20\n0\n";
}

// A closed path of straight edges.
std::string Path(int64_t points, const std::string& places) {
  return "92\n3\n72\n0\n73\n1\n93\n" + std::to_string(points) + '\n' + places + "97\n0\n";
}

// A family of lines at 45 degrees with this distance between them. dashes has the groups 79 and 49.
std::string Family(double distance, const std::string& dashes) {
  const double offset = distance * std::sqrt(0.5);
  return "53\n45\n43\n0\n44\n0\n" + Group(45, -offset) + Group(46, offset) + dashes;
}

// Squares of 20 x 20, alternately with unbroken and with dashed lines.
std::string DrawingOfPatternHatches(int64_t count) {
  const std::string lined = "52\n0\n41\n1\n77\n0\n78\n1\n" + Family(1, "79\n0\n");
  const std::string dashed = "52\n0\n41\n1\n77\n0\n78\n2\n" + Family(4, "79\n0\n") +
                             Family(2, "79\n4\n49\n3\n49\n-1\n49\n0\n49\n-1\n");
  std::string entities;
  for (int64_t i = 0; i < count; ++i) {
    const auto x = static_cast<double>(i % 770);
    const auto y = static_cast<double>(i / 770 % 47 * 10);
    const std::string corners = Place(x, y) + Place(x + 20, y) + Place(x + 20, y + 20) + Place(x, y + 20);
    entities +=
        i % 2 ? Hatch("DASHED45", 1, Path(4, corners), dashed) : Hatch("ANSI31", 1, Path(4, corners), lined);
  }
  return DrawingOf("", entities);
}

// Discs in ten columns, a path of 1000 points each. A hatch can have 1,000 paths of 30,000 corners.
std::string DrawingOfALongBoundary(int64_t points) {
  constexpr int64_t pointsOfAPath = 1000;
  const double step = 2 * std::acos(-1.0) / pointsOfAPath;
  const int64_t paths = points / pointsOfAPath;
  std::string boundary;
  for (int64_t path = 0; path < paths; ++path) {
    const auto x = static_cast<double>(40 + path % 10 * 80);
    const auto y = static_cast<double>(25 + path / 10 * 50);
    std::string places;
    for (int64_t i = 0; i < pointsOfAPath; ++i) {
      const double angle = step * static_cast<double>(i);
      places += Place(x + 20 * std::cos(angle), y + 20 * std::sin(angle));
    }
    boundary += Path(pointsOfAPath, places);
  }
  return DrawingOf("", Hatch("SOLID", paths, boundary, ""));
}

void BM_Dimensions(benchmark::State& state) {
  Convert(state, DrawingOfDimensions);
}
BENCHMARK(BM_Dimensions)->Arg(2500)->Arg(5000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_PatternHatches(benchmark::State& state) {
  Convert(state, DrawingOfPatternHatches);
}
BENCHMARK(BM_PatternHatches)->Arg(250)->Arg(500)->Arg(1000)->Unit(benchmark::kMillisecond);

void BM_PointsOfAHatch(benchmark::State& state) {
  Convert(state, DrawingOfALongBoundary);
}
BENCHMARK(BM_PointsOfAHatch)->Arg(25000)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
