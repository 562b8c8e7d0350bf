// Entities with many points, and many of them, in whole conversions through the library's own door. Linux
// only:
//
//   build/linux/bin/hexlume_entity_bench
//
// Each kind of drawing comes with n, 2n and 4n items: vertices, splines or points of one spline. Only ratios
// within one run count: time/item should stay flat from line to line. bytes/item tells the length of the
// metafile, and so that every item was drawn.
#include <benchmark/benchmark.h>

#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <string>

#include "hexlume.h"

namespace {

const std::string header =
    "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n800\n20\n500\n0\nENDSEC\n";

std::string Group(int code, int64_t value) {
  return std::to_string(code) + '\n' + std::to_string(value) + '\n';
}

// Places in rows over the sheet, up and down, so that neighbours are joined by slanted strokes.
std::string PlaceOf(int64_t i) {
  return Group(10, i % 790) + Group(20, i / 790 % 490 + i % 2);
}

std::string DrawingOf(const std::string& entities) {
  return header + "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
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

// A spline of this many control points, from a place on: each point but the outer ones has its own interior
// knot.
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

// A file of the drawing, to be deleted by the caller. Empty if it can't be written.
std::string WriteDrawing(const std::string& drawing) {
  char path[] = "/tmp/hexlume_entity_XXXXXX";
  const int file = mkstemp(path);
  if (file < 0) return "";
  size_t written = 0;
  while (written < drawing.size()) {
    const ssize_t count = write(file, drawing.data() + written, drawing.size() - written);
    if (count <= 0) break;
    written += static_cast<size_t>(count);
  }
  close(file);
  if (written == drawing.size()) return path;
  unlink(path);
  return "";
}

void Convert(benchmark::State& state, std::string (*draw)(int64_t items)) {
  const int64_t items = state.range(0);
  const std::string path = WriteDrawing(draw(items));
  if (path.empty()) {
    state.SkipWithError("the drawing can't be written");
    return;
  }
  UINT bytes = 0;
  for (auto _ : state) {
    HENHMETAFILE metafile = nullptr;
    const int32_t code = vzMetaMake(path.c_str(), &metafile, 0, 0);
    bytes = GetEnhMetaFileBits(metafile, 0, nullptr);
    DeleteEnhMetaFile(metafile);
    if (code != HEXLUME_OK) {
      state.SkipWithError("the drawing can't be converted");
      break;
    }
  }
  unlink(path.c_str());
  const double converted = static_cast<double>(state.iterations()) * static_cast<double>(items);
  state.counters["time/item"] = {converted, benchmark::Counter::kIsRate | benchmark::Counter::kInvert};
  state.counters["bytes/item"] = static_cast<double>(bytes) / static_cast<double>(items);
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
