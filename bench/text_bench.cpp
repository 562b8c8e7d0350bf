// Measures n, 2n and 4n TEXTs, MTEXTs and ATTRIBs. Linux only:
//
//   build/linux/bin/hexlume_text_bench
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "growing_drawing.h"

namespace {

std::string DrawingOf(const std::string& entities) {
  return "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n800\n20\n500\n0\nENDSEC\n"
         "0\nSECTION\n2\nENTITIES\n" +
         entities + "0\nENDSEC\n";
}

// The groups of the i-th text, in rows over the sheet: layer 0, colour 7, height 3.
std::string TextAt(int64_t i) {
  return "8\n0\n62\n7\n10\n" + std::to_string(i % 790) + "\n20\n" + std::to_string(10 + i / 790 % 480) +
         "\n40\n3\n";
}

// Alternately Latin and Japanese, because the two are measured and placed differently.
std::string DrawingOfTexts(int64_t count) {
  std::string entities;
  for (int64_t i = 0; i < count; ++i)
    entities +=
        "0\nTEXT\n" + TextAt(i) + (i % 2 ? "1\n\x90\x7D\x94\xD4 %%c" : "1\nR") + std::to_string(i) + '\n';
  return DrawingOf(entities);
}

std::string DrawingOfMTexts(int64_t count) {
  std::string entities;
  for (int64_t i = 0; i < count; ++i)
    entities += "0\nMTEXT\n" + TextAt(i) + "71\n1\n1\n{\\C1;M" + std::to_string(i) +
                "}\\P\x8D\x87\x8C\x76 %%d\\P\\W0.8;Third paragraph\n";
  return DrawingOf(entities);
}

std::string DrawingOfAttributes(int64_t count) {
  std::string entities;
  for (int64_t i = 0; i < count; ++i)
    entities += "0\nATTRIB\n" + TextAt(i) + "1\n\\A1;P-" + std::to_string(i) + '\n';
  return DrawingOf(entities);
}

void BM_Texts(benchmark::State& state) {
  Convert(state, DrawingOfTexts);
}
BENCHMARK(BM_Texts)->Arg(25000)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);

// With three paragraphs each.
void BM_MTexts(benchmark::State& state) {
  Convert(state, DrawingOfMTexts);
}
BENCHMARK(BM_MTexts)->Arg(5000)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);

void BM_Attributes(benchmark::State& state) {
  Convert(state, DrawingOfAttributes);
}
BENCHMARK(BM_Attributes)->Arg(25000)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
