// Converts many times in one process and checks that it holds no more and no more: hexlume_soak CONVERSIONS DRAWING|FOLDER ...
//
// Each drawing is converted in all ways, by the nine exports and by the host library. A table shows what the process
// holds after each tenth. The exit status is 1 if it holds more at the end than in the first half.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/process_counts.h"
#include "hexlume.h"
#include "hexlume_host.h"
#include "support/leaving_fault.h"

namespace {

namespace fs = std::filesystem;
using hexlume::CountProcess;
using hexlume::ProcessCounts;

constexpr RECT quarter = {0, 0, 21000, 14850};

void ConvertByExports(const char* path, int mode, HENHMETAFILE* out) {
  switch (mode) {
    case 0: vzDXFMetaMake(path, out, 0, 0, 0); break;
    case 1: vzDXFReMetaMake(path, out, 0, quarter, 1, 0, 0); break;
    case 2: vzDXFFullSizeMetaMake(path, out, 0, 1, 1); break;
    case 3: vzDXFRotMetaMake(out, 0); break;
  }
}

int32_t ConvertByHostLibrary(const char* path, int mode, hexlume_result** result) {
  const char* const hidden[] = {"0", "no such layer"};
  hexlume_input input = {};
  input.size = sizeof input;
  input.path = path;
  hexlume_options options = {};
  options.size = sizeof options;
  switch (mode) {
    case 0: break;
    case 1: options.turned = 1; break;
    case 2:
      options.sheet = HEXLUME_SHEET_PART;
      options.right = quarter.right;
      options.bottom = quarter.bottom;
      break;
    case 3:
      options.sheet = HEXLUME_SHEET_FULL_SIZE;
      options.hidden_layers = hidden;
      options.hidden_layer_count = 2;
      break;
    case 4: options.limit_strokes = 3; break;
    case 5: options.limit_bytes = 500; break;
    case 6: return hexlume_inspect(&input, &options, result);
    case 7: options.size = 3; break;
    case 8: input.path = "no such file.dxf"; break;
  }
  return hexlume_convert(&input, &options, result);
}

constexpr int exportModes = 4, hostModes = 9, modes = exportModes + hostModes;

void Convert(const std::string& path, int mode) {
  if (mode < exportModes) {
    HENHMETAFILE metafile = nullptr;
    hexlume::FaultLeaving([&] { ConvertByExports(path.c_str(), mode, &metafile); });
    DeleteEnhMetaFile(metafile);
    return;
  }
  hexlume_result* result = nullptr;
  ConvertByHostLibrary(path.c_str(), mode - exportModes, &result);
  DeleteEnhMetaFile(static_cast<HENHMETAFILE>(hexlume_result_handle(result)));
  hexlume_result_free(result);
}

// Larger ones take too long for as many conversions.
bool IsSmall(const fs::path& file) {
  constexpr uintmax_t largest = 16 * 1024;
  return file.extension() == ".dxf" && fs::file_size(file) <= largest;
}

std::vector<std::string> SmallDrawings(char** first, char** last) {
  std::vector<std::string> drawings;
  for (; first < last; ++first) {
    if (!fs::is_directory(*first)) {
      drawings.emplace_back(*first);
      continue;
    }
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(*first))
      if (entry.is_regular_file() && IsSmall(entry.path())) drawings.push_back(entry.path().string());
  }
  std::sort(drawings.begin(), drawings.end());
  return drawings;
}

// In the order of the modes, so that a turned sheet follows that of the same drawing. A drawing that isn't as quick as most
// has its turn in one round of slowTurn.
class Soak {
 public:
  explicit Soak(std::vector<std::string> taken) : drawings(std::move(taken)), isSlow(drawings.size()) {}

  long RunRound() {
    long conversions = 0;
    for (size_t i = 0; i < drawings.size(); ++i) {
      if (isSlow[i] && round % slowTurn != 0) continue;
      const auto start = std::chrono::steady_clock::now();
      for (int mode = 0; mode < modes; ++mode) Convert(drawings[i], mode);
      if (std::chrono::steady_clock::now() - start > slow) isSlow[i] = true;
      conversions += modes;
    }
    ++round;
    return conversions;
  }

 private:
  static constexpr int slowTurn = 20;
  static constexpr std::chrono::milliseconds slow{modes * 2};

  std::vector<std::string> drawings;
  std::vector<bool> isSlow;
  int round = 0;
};

void PrintRow(long conversions, const ProcessCounts& counts) {
  std::printf("| %11ld | %9zu | %7zu | %11zu | %12zu |\n", conversions, counts.memory / 1024, counts.handles,
              counts.gdiObjects, counts.userObjects);
  std::fflush(stdout);
}

// The most that any of the rows of the first half has.
void Raise(ProcessCounts& most, const ProcessCounts& row) {
  most.memory = std::max(most.memory, row.memory);
  most.handles = std::max(most.handles, row.handles);
  most.gdiObjects = std::max(most.gdiObjects, row.gdiObjects);
  most.userObjects = std::max(most.userObjects, row.userObjects);
}

// The heap takes some pages late, for drawings in another order than before.
bool IsFlat(const ProcessCounts& early, const ProcessCounts& late) {
  constexpr size_t heapPages = 256 * 1024;
  return late.memory <= early.memory + heapPages && late.handles <= early.handles &&
         late.gdiObjects <= early.gdiObjects && late.userObjects <= early.userObjects;
}

}  // namespace

int main(int argc, char** argv) {
  const long conversions = argc > 1 ? std::atol(argv[1]) : 0;
  const std::vector<std::string> drawings = SmallDrawings(argv + std::min(argc, 2), argv + argc);
  if (conversions <= 0 || drawings.empty()) {
    std::fputs("usage: hexlume_soak CONVERSIONS DRAWING|FOLDER ...\n", stderr);
    return 64;
  }
  std::printf("%zu drawings in %d ways\n\n", drawings.size(), modes);
  std::printf("| conversions | memory KB | handles | GDI objects | USER objects |\n|--:|--:|--:|--:|--:|\n");
  Soak soak(drawings);
  ProcessCounts early, late;
  long done = 0;
  for (int tenth = 1; tenth <= 10; ++tenth) {
    while (done < conversions / 10 * tenth) done += soak.RunRound();
    late = CountProcess();
    if (tenth <= 5) Raise(early, late);
    PrintRow(done, late);
  }
  const bool flat = IsFlat(early, late);
  std::puts(flat ? "\nflat" : "\nnot flat");
  return flat ? 0 : 1;
}
