// Measures n, 2n and 4n blocks, layers, inserts, groups of blocks, and dashes. Linux only:
//
//   build/linux/bin/hexlume_scale_bench
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>

#include "growing_drawing.h"

namespace {

// A sheet of this width fits A0 whatever its height, so the drawing isn't scaled.
constexpr int sheetWidth = 800;

std::string Group(int code, const std::string& value) {
  return std::to_string(code) + '\n' + value + '\n';
}
std::string Group(int code, double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.4f", value);
  return Group(code, std::string(text));
}

std::string Point(int number, double x, double y) {
  return Group(10 + number, x) + Group(20 + number, y);
}

std::string Section(const char* name, const std::string& groups) {
  return "0\nSECTION\n2\n" + (name + ('\n' + groups)) + "0\nENDSEC\n";
}

std::string Header(double height) {
  std::string groups;
  for (const char* corner : {"LIM", "EXT"}) {
    groups += "9\n$" + std::string(corner) + "MIN\n" + Point(0, 0, 0);
    groups += "9\n$" + std::string(corner) + "MAX\n" + Point(0, sheetWidth, height);
  }
  return Section("HEADER", groups);
}

// Layer 0, more layers, and the line type DASHED with dashes and gaps of one unit of the sheet (0.01 mm).
std::string Tables(const std::string& layers = "") {
  return Section("TABLES",
                 "0\nTABLE\n2\nLTYPE\n0\nLTYPE\n2\nDASHED\n73\n2\n49\n0.01\n49\n-0.01\n0\nENDTAB\n"
                 "0\nTABLE\n2\nLAYER\n0\nLAYER\n2\n0\n62\n7\n" +
                     layers + "0\nENDTAB\n");
}

std::string Line(const std::string& layer, double x1, double y1, double x2, double y2) {
  return "0\nLINE\n8\n" + layer + '\n' + Point(0, x1, y1) + Point(1, x2, y2);
}

std::string Block(const std::string& name, const std::string& entities) {
  return "0\nBLOCK\n8\n0\n2\n" + name + "\n70\n0\n" + Point(0, 0, 0) + "3\n" + name + '\n' + entities +
         "0\nENDBLK\n8\n0\n";
}

std::string Insert(const std::string& block, double x, double y) {
  return "0\nINSERT\n8\n0\n2\n" + block + '\n' + Point(0, x, y);
}

// The place of the i-th small item, in rows over a sheet of 800 x 500.
constexpr double rowsHeight = 500;
double ColumnOf(int64_t i) {
  return static_cast<double>(i % 790);
}
double RowOf(int64_t i) {
  return static_cast<double>(i / 790 % 490);
}

std::string DrawingOfBlocks(int64_t count) {
  std::string blocks;
  std::string entities;
  for (int64_t i = 0; i < count; ++i) {
    const std::string name = "B" + std::to_string(i);
    blocks += Block(name, Line("0", 0, 0, 5, 3));
    entities += Insert(name, ColumnOf(i), RowOf(i));
  }
  return Header(rowsHeight) + Tables() + Section("BLOCKS", blocks) + Section("ENTITIES", entities);
}

std::string DrawingOfLayers(int64_t count) {
  std::string layers;
  std::string entities;
  for (int64_t i = 0; i < count; ++i) {
    const std::string name = "L" + std::to_string(i);
    layers += "0\nLAYER\n2\n" + name + "\n62\n3\n6\nCONTINUOUS\n";
    entities += Line(name, ColumnOf(i), RowOf(i), ColumnOf(i) + 5, RowOf(i) + 3);
  }
  return Header(rowsHeight) + Tables(layers) + Section("ENTITIES", entities);
}

std::string DrawingOfInserts(int64_t count) {
  std::string entities;
  for (int64_t i = 0; i < count; ++i) entities += Insert("B", ColumnOf(i), RowOf(i));
  return Header(rowsHeight) + Tables() + Section("BLOCKS", Block("B", Line("0", 0, 0, 5, 3))) +
         Section("ENTITIES", entities);
}

// A block that is inserted many times. It has a line, and groups without meaning, which belong to the line or
// to an entity of a kind that isn't drawn in a block. All inserts together read this number of groups.
std::string DrawingOfGroups(int64_t groups, const char* entity) {
  constexpr int64_t groupsOfABlock = 20000;
  std::string block = Line("0", 0, 0, 5, 3) + entity;
  for (int64_t i = 0; i < groupsOfABlock; ++i) block += Group(1010, static_cast<double>(i));
  std::string entities;
  for (int64_t i = 0; i < groups / groupsOfABlock; ++i) entities += Insert("B", ColumnOf(i), RowOf(i));
  return Header(rowsHeight) + Tables() + Section("BLOCKS", Block("B", block)) + Section("ENTITIES", entities);
}
std::string DrawingOfGroupsRead(int64_t groups) {
  return DrawingOfGroups(groups, "");
}
std::string DrawingOfGroupsPassedOver(int64_t groups) {
  return DrawingOfGroups(groups, "0\nHATCH\n");
}

// Upward, as only a sheet's height can be large enough for so many dashes.
std::string DrawingOfADashedLine(int64_t dashes) {
  const double length = 0.02 * static_cast<double>(dashes);
  return Header(length + 100) + Tables() +
         Section("ENTITIES", Line("0", 400, 50, 400, 50 + length) + "6\nDASHED\n");
}

// Arcs with a radius of 100 mm and 25,000 dashes each, in a block within a block.
std::string DrawingOfNestedDashes(int64_t dashes) {
  constexpr int64_t dashesOfAnArc = 25000;
  const double degrees = dashesOfAnArc * 0.02 / 100 * 180 / std::acos(-1.0);
  const std::string arc =
      "0\nARC\n8\n0\n6\nDASHED\n" + Point(0, 0, 0) + Group(40, 100.0) + Group(50, 0.0) + Group(51, degrees);
  std::string entities;
  for (int64_t i = 0; i < dashes / dashesOfAnArc; ++i)
    entities += Insert("OUTER", 200 + static_cast<double>(i % 400), 250);
  return Header(rowsHeight) + Tables() +
         Section("BLOCKS", Block("INNER", arc) + Block("OUTER", Insert("INNER", 0, 0))) +
         Section("ENTITIES", entities);
}

void BM_Blocks(benchmark::State& state) {
  Convert(state, DrawingOfBlocks);
}
BENCHMARK(BM_Blocks)->Arg(25000)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_Layers(benchmark::State& state) {
  Convert(state, DrawingOfLayers);
}
BENCHMARK(BM_Layers)->Arg(2500)->Arg(5000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_Inserts(benchmark::State& state) {
  Convert(state, DrawingOfInserts);
}
BENCHMARK(BM_Inserts)->Arg(250000)->Arg(500000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_GroupsReadInBlocks(benchmark::State& state) {
  Convert(state, DrawingOfGroupsRead);
}
BENCHMARK(BM_GroupsReadInBlocks)->Arg(10000000)->Arg(20000000)->Arg(40000000)->Unit(benchmark::kMillisecond);

void BM_GroupsPassedOverInBlocks(benchmark::State& state) {
  Convert(state, DrawingOfGroupsPassedOver);
}
BENCHMARK(BM_GroupsPassedOverInBlocks)
    ->Arg(10000000)
    ->Arg(20000000)
    ->Arg(40000000)
    ->Unit(benchmark::kMillisecond);

void BM_DashesOfALine(benchmark::State& state) {
  Convert(state, DrawingOfADashedLine);
}
BENCHMARK(BM_DashesOfALine)->Arg(250000)->Arg(500000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_DashesOfNestedArcs(benchmark::State& state) {
  Convert(state, DrawingOfNestedDashes);
}
BENCHMARK(BM_DashesOfNestedArcs)->Arg(250000)->Arg(500000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
