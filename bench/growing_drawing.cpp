#include "growing_drawing.h"

#include <stdlib.h>
#include <unistd.h>

#include "hexlume.h"

// Writes the drawing to a new file, which the caller deletes. Returns its path, empty if it can't be written.
static std::string WriteDrawing(const std::string& drawing) {
  char path[] = "/tmp/hexlume_bench_XXXXXX";
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
  const std::string path = WriteDrawing(draw(items) + "0\nEOF\n");
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
