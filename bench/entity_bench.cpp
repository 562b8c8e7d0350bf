// Measures n, 2n and 4n vertices of a polyline, splines, and points of one spline. Linux only:
//
//   build/linux/bin/hexlume_entity_bench
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "growing_drawing.h"

namespace {

const std::string header =
    "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n800\n20\n500\n0\nENDSEC\n";

std::string Group(int code, int64_t value) {
  return std::to_string(code) + '\n' + std::to_string(value) + '\n';
}

// The i-th point, in rows over the sheet. Neighbours have different heights, so that the strokes are slanted.
std::string PlaceOf(int64_t i) {
  return Group(10, i % 790) + Group(20, i / 790 % 490 + i % 2);
}

std::string DrawingOf(const std::string& entities) {
  return header + "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n";
}

std::string DrawingOfAPolyline(int64_t vertices) {
  std::string entity = "0\nPOLYLINE\n8\n0\n66\n1\n70\n0\n";
  for (int64_t i = 0; i < vertices; ++i) entity += "0\nVERTEX\n8\n0\n" + PlaceOf(i);
  return DrawingOf(entity + "0\nSEQEND\n8\n0\n");
}

std::string DrawingOfAnLwPolyline(int64_t vertices) {
  std::string entity = "0\nLWPOLYLINE\n8\n0\n" + Group(90, vertices) + "70\n0\n";
  for (int64_t i = 0; i < vertices; ++i) entity += PlaceOf(i);
  return DrawingOf(entity);
}

// A cubic spline with this number of control points, which are PlaceOf(place) and its successors. Its interior
// knots are all different.
std::string Spline(int64_t points, int64_t place) {
  std::string entity = "0\nSPLINE\n8\n0\n70\n8\n71\n3\n" + Group(73, points) + "40\n0\n40\n0\n40\n0\n";
  for (int64_t i = 0; i <= points - 3; ++i) entity += Group(40, i);
  for (int i = 0; i < 3; ++i) entity += Group(40, points - 3);
  for (int64_t i = 0; i < points; ++i) entity += PlaceOf(place + i);
  return entity;
}

std::string DrawingOfSplines(int64_t splines) {
  constexpr int64_t pointsOfASpline = 5;
  std::string entities;
  for (int64_t i = 0; i < splines; ++i) entities += Spline(pointsOfASpline, i);
  return DrawingOf(entities);
}

std::string DrawingOfALongSpline(int64_t points) {
  return DrawingOf(Spline(points, 0));
}

void BM_PolylineVertices(benchmark::State& state) {
  Convert(state, DrawingOfAPolyline);
}
BENCHMARK(BM_PolylineVertices)->Arg(250000)->Arg(500000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_LwPolylineVertices(benchmark::State& state) {
  Convert(state, DrawingOfAnLwPolyline);
}
BENCHMARK(BM_LwPolylineVertices)->Arg(250000)->Arg(500000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_Splines(benchmark::State& state) {
  Convert(state, DrawingOfSplines);
}
BENCHMARK(BM_Splines)->Arg(25000)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_PointsOfASpline(benchmark::State& state) {
  Convert(state, DrawingOfALongSpline);
}
BENCHMARK(BM_PointsOfASpline)->Arg(25000)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
