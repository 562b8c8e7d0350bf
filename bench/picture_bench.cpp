// Measures pictures of metafiles. Only ratios within one run count: besides the time that the pixels of a PNG file take,
// time/item should be the same for every number of strokes, and under a clip region of many boxes no more than three
// times as long as under one of few. Linux only:
//
//   build/linux/bin/hexlume_picture_bench
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "hexlume_host.hpp"
#include "tools/hexlume/picture/picture.h"

namespace {

using hexlume::MetafileBytes;

// A sheet of 420 by 297.
std::string DrawingOf(const std::string& entities) {
  return "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n"
         "0\nSECTION\n2\nENTITIES\n" +
         entities + "0\nENDSEC\n0\nEOF\n";
}

MetafileBytes MetafileOf(const std::string& entities) {
  const auto result = hexlume::host::ConvertBytes(DrawingOf(entities));
  const auto metafile = result.Metafile();
  return {metafile.begin(), metafile.end()};
}

// Strokes of up to 5 mm all over the sheet, of one pen.
MetafileBytes Strokes(int64_t count) {
  uint32_t random = 1;
  const auto next = [&random](double most) {
    random = random * 1664525 + 1013904223;
    return most * (random >> 8) / (1 << 24);
  };
  std::string lines;
  for (int64_t i = 0; i < count; ++i) {
    const double x = next(410) + 5, y = next(287) + 5;
    lines += "0\nLINE\n8\n0\n10\n" + std::to_string(x) + "\n20\n" + std::to_string(y) + "\n11\n" +
             std::to_string(x + next(7) - 3.5) + "\n21\n" + std::to_string(y + next(7) - 3.5) + '\n';
  }
  return MetafileOf(lines);
}

// A hatch of rows of dashes; its boundary is a zigzag with so many corners, each of its rows a box for every tooth.
MetafileBytes Hatch(int64_t corners) {
  std::string hatch =
      "0\nHATCH\n8\n0\n2\nROWS\n70\n0\n91\n1\n92\n2\n72\n0\n73\n1\n93\n" + std::to_string(corners) + '\n';
  for (int64_t i = 0; i < corners; ++i)
    hatch += "10\n" + std::to_string(10 + 400.0 * static_cast<double>(i) / static_cast<double>(corners)) +
             "\n20\n" + (i % 2 == 0 ? "10\n" : "290\n");
  return MetafileOf(hatch +
                    "75\n0\n76\n1\n78\n1\n53\n0\n43\n0\n44\n0\n45\n0\n46\n1\n79\n2\n49\n0.5\n49\n-0.5\n");
}

void Write(benchmark::State& state, const char* format, const MetafileBytes& metafile, int64_t items,
           const hexlume::PictureSettings& settings = {}) {
  size_t written = 0;
  for (const hexlume::PictureKind& kind : hexlume::PictureKinds()) {
    if (kind.option != std::string(format)) continue;
    for (auto _ : state) {
      written = 0;
      kind.write(metafile, settings, [&written](const uint8_t*, size_t size) { written += size; });
    }
  }
  const auto count = static_cast<double>(items);
  state.counters["time/item"] =
      benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["bytes"] = static_cast<double>(written);
}

void BM_Strokes(benchmark::State& state, const char* format) {
  Write(state, format, Strokes(state.range(0)), state.range(0));
}

// The number of dashes is the same for every number of corners.
void BM_ClippedHatch(benchmark::State& state, const char* format) {
  constexpr int64_t dashes = 100'000;
  Write(state, format, Hatch(state.range(0)), dashes);
}

// Beside it that of the same strokes in the sheet's true size.
void BM_Thumbnail(benchmark::State& state) {
  hexlume::PictureSettings settings;
  settings.longestSide = 256;
  Write(state, "png", Strokes(state.range(0)), state.range(0), settings);
}

#define BENCHMARK_FORMATS(FUNCTION, ...)                                              \
  BENCHMARK_CAPTURE(FUNCTION, png, "png") __VA_ARGS__->Unit(benchmark::kMillisecond); \
  BENCHMARK_CAPTURE(FUNCTION, svg, "svg") __VA_ARGS__->Unit(benchmark::kMillisecond); \
  BENCHMARK_CAPTURE(FUNCTION, pdf, "pdf") __VA_ARGS__->Unit(benchmark::kMillisecond)

BENCHMARK_FORMATS(BM_Strokes, ->Arg(50000)->Arg(100000)->Arg(200000));
BENCHMARK_FORMATS(BM_ClippedHatch, ->Arg(4)->Arg(50)->Arg(400));
BENCHMARK(BM_Thumbnail)->Arg(50000)->Arg(100000)->Arg(200000)->Unit(benchmark::kMillisecond);

}  // namespace
