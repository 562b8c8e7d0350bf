// Measures the recorder of metafiles: the time for a stroke compared with a copy of its 96 bytes, and the
// memory for a metafile compared with its length.
#include <benchmark/benchmark.h>

#include "platform/gdi.h"

#include <malloc.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr int strokesOfAMetafile = 10000;  // as in a drawing of medium size, 1 MB
constexpr size_t strokeSize = 96;
constexpr size_t strokesSize = strokesOfAMetafile * strokeSize;
constexpr RECT sheet = {0, 0, 42000, 29700};

// Lets the allocator keep freed memory: new pages from the system would take most of the time.
const bool keepsMemory = mallopt(M_MMAP_THRESHOLD, 1 << 30) != 0 && mallopt(M_TRIM_THRESHOLD, 1 << 30) != 0;

benchmark::Counter TimePerStroke(const benchmark::State& state) {
  const double strokes = static_cast<double>(state.iterations()) * strokesOfAMetafile;
  return {strokes, benchmark::Counter::kIsRate | benchmark::Counter::kInvert};
}

// The six calls that a converter makes for a line: 96 bytes.
void Stroke(HDC dc, int i) {
  const HPEN pen = CreatePen(PS_SOLID, 0, 0x0000FF);
  const HGDIOBJ before = SelectObject(dc, pen);
  MoveToEx(dc, i, -i, nullptr);
  LineTo(dc, i + 100, -i - 50);
  SelectObject(dc, before);
  DeleteObject(pen);
}

HENHMETAFILE MetafileOfStrokes() {
  const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, &sheet, nullptr);
  SetMapMode(dc, MM_HIMETRIC);
  for (int i = 0; i < strokesOfAMetafile; ++i) Stroke(dc, i);
  return CloseEnhMetaFile(dc);
}

void BM_Stroke(benchmark::State& state) {
  for (auto _ : state) {
    const HENHMETAFILE metafile = MetafileOfStrokes();
    benchmark::DoNotOptimize(metafile);
    DeleteEnhMetaFile(metafile);
  }
  state.counters["time/stroke"] = TimePerStroke(state);
}
BENCHMARK(BM_Stroke)->Unit(benchmark::kMicrosecond);

void BM_Copy96Bytes(benchmark::State& state) {
  const std::vector<uint8_t> stroke(strokeSize, 7);
  for (auto _ : state) {
    std::unique_ptr<uint8_t[]> bytes(new uint8_t[strokesSize]);
    for (size_t at = 0; at < strokesSize; at += strokeSize) {
      std::memcpy(bytes.get() + at, stroke.data(), strokeSize);
      benchmark::ClobberMemory();
    }
    benchmark::DoNotOptimize(bytes.get());
  }
  state.counters["time/stroke"] = TimePerStroke(state);
}
BENCHMARK(BM_Copy96Bytes)->Unit(benchmark::kMicrosecond);

size_t BytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// The memory in use for a metafile just before it is closed, when it is largest, divided by its length.
void BM_MemoryOfAMetafile(benchmark::State& state) {
  double ratio = 0;
  for (auto _ : state) {
    const size_t before = BytesInUse();
    const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, &sheet, nullptr);
    for (int64_t i = 0; i < state.range(0); ++i) Stroke(dc, static_cast<int>(i));
    const size_t open = BytesInUse() - before;
    const HENHMETAFILE metafile = CloseEnhMetaFile(dc);
    ratio = static_cast<double>(open) / GetEnhMetaFileBits(metafile, 0, nullptr);
    DeleteEnhMetaFile(metafile);
  }
  state.counters["memory/length"] = ratio;
}
BENCHMARK(BM_MemoryOfAMetafile)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Arg(1000000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
