#include "bench/speed/runner.h"

#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <limits>
#include <stdexcept>

namespace hexlume::bench {

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder() {
  std::string name = fs::temp_directory_path() / "hexlume_speed_XXXXXX";
  if (!mkdtemp(name.data())) throw std::runtime_error(name + " can't be made");
  path = name;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  fs::remove_all(path, ignored);
}

std::string Runner::Drawing(const std::string& name, Draw draw, int64_t items) {
  std::string drawing = scratch.path / (name + std::to_string(items) + ".dxf");
  if (fs::exists(drawing)) return drawing;
  WriteDrawing(drawing, draw, items);
  return drawing;
}

void Runner::Remove(const std::string& drawing) {
  fs::remove(drawing);
  fs::remove(drawing + ".emf");
}

Work Runner::Conversion(const std::string& drawing) const {
  const std::string metafile = drawing + ".emf";
  return {{settings.tool, drawing, metafile}, metafile, drawing};
}

Work Runner::BareReader(const std::string& drawing) const {
  return {{settings.program, "--bare-reader", drawing}, "", drawing};
}

namespace {

// A system can drop a file from its cache within seconds. What the disk takes isn't measured.
void ReadThrough(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<char> buffer(1 << 20);
  while (file.read(buffer.data(), static_cast<std::streamsize>(buffer.size()))) {
  }
}

}  // namespace

std::vector<Measured> Runner::Measure(const std::vector<Work>& works, int runs) const {
  constexpr auto none = std::numeric_limits<double>::max();
  std::vector<Measured> results(works.size(), {none, none, std::numeric_limits<int64_t>::max()});
  for (int run = 0; run < runs; ++run)
    for (size_t i = 0; i < works.size(); ++i) {
      if (!works[i].output.empty()) fs::remove(works[i].output);
      if (!works[i].drawing.empty()) ReadThrough(works[i].drawing);
      const Usage usage = RunProcess(works[i].command);
      const double seconds = settings.processorTime ? usage.processorSeconds : usage.wallSeconds;
      results[i].seconds = std::min(results[i].seconds, seconds);
      results[i].wallSeconds = std::min(results[i].wallSeconds, usage.wallSeconds);
      results[i].peakBytes = std::min(results[i].peakBytes, usage.peakBytes);
    }
  return results;
}

int64_t SizeOfOutput(const Work& work) {
  return static_cast<int64_t>(fs::file_size(work.output));
}

}  // namespace hexlume::bench
