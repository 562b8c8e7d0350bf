// What the host library adds to a conversion: the adapter for recent drawings, and a report beside a
// conversion. All times must stay in the same ratio at every size.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "hexlume_host.hpp"

namespace {

using namespace hexlume::host;

// Lines on a layer whose name isn't ASCII.
std::string RecentDrawing(int64_t lines) {
  std::string drawing =
      "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1032\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$"
      "LIMMAX\n10\n420\n20\n297\n"
      "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
  for (int64_t i = 0; i < lines; ++i)
    drawing += "  0\nLINE\n  8\n\xE5\xAF\xB8\xE6\xB3\x95\n 10\n" + std::to_string(i % 420) + ".5\n 20\n" +
               std::to_string(i % 297) + ".25\n 11\n10.0\n 21\n20.0\n";
  return drawing + "0\nENDSEC\n0\nEOF\n";
}

void Run(benchmark::State& state, Result (*call)(std::string_view, const Options&), int32_t format) {
  const std::string drawing = RecentDrawing(state.range(0));
  Options options;
  options.format = format;
  for (auto _ : state) benchmark::DoNotOptimize(call(drawing, options).Status());
  state.counters["time/item"] =
      benchmark::Counter(static_cast<double>(state.range(0)),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_ConvertAsIs(benchmark::State& state) {
  Run(state, ConvertBytes, HEXLUME_FORMAT_AS_IS);
}
void BM_ConvertRecent(benchmark::State& state) {
  Run(state, ConvertBytes, HEXLUME_FORMAT_AUTO);
}
void BM_InspectAsIs(benchmark::State& state) {
  Run(state, InspectBytes, HEXLUME_FORMAT_AS_IS);
}
void BM_InspectRecent(benchmark::State& state) {
  Run(state, InspectBytes, HEXLUME_FORMAT_AUTO);
}

BENCHMARK(BM_ConvertAsIs)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConvertRecent)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_InspectAsIs)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_InspectRecent)->Range(1000, 100000)->Unit(benchmark::kMillisecond);

}  // namespace
