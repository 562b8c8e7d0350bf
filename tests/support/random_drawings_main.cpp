// Writes drawings made by chance into a folder: hexlume_random_drawings FOLDER COUNT
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "support/random_drawing.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: hexlume_random_drawings FOLDER COUNT\n");
    return 64;
  }
  const auto count = static_cast<uint32_t>(std::atoi(argv[2]));
  for (uint32_t seed = 1; seed <= count; ++seed) {
    const std::string path = std::string(argv[1]) + "/random_" + std::to_string(seed) + ".dxf";
    std::ofstream file(path, std::ios::binary);
    file << hexlume::RandomDrawing(seed);
    if (!file.flush()) {
      std::fprintf(stderr, "%s can't be written\n", path.c_str());
      return 73;
    }
  }
  return 0;
}
