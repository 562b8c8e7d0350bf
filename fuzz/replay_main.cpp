// Runs a target over files, without libFuzzer: PROGRAM FILE-OR-FOLDER...
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/target.h"

namespace {

namespace fs = std::filesystem;

// A block of its own size, so that a read beyond its end is seen.
void Run(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const std::vector<uint8_t> input(bytes.begin(), bytes.end());
  std::fprintf(stderr, "%s\n", path.c_str());
  LLVMFuzzerTestOneInput(input.data(), input.size());
}

int RunAll(const fs::path& path) {
  if (!fs::is_directory(path)) {
    Run(path);
    return 1;
  }
  int count = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
    if (!entry.is_regular_file()) continue;
    Run(entry.path());
    ++count;
  }
  return count;
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  for (int i = 1; i < argc; ++i) count += RunAll(argv[i]);
  std::printf("%d inputs\n", count);
  return count > 0 ? 0 : 1;
}
