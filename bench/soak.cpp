// Converts many times in one process and checks that its memory doesn't grow: hexlume_soak [CONVERSIONS]
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "hexlume.h"

namespace {

const char* const drawing =
    "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n"
    "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nA\n62\n1\n0\nLAYER\n2\nB\n62\n-"
    "1\n0\nENDTAB\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nA\n62\n1\n10\n0\n20\n0\n11\n10\n21\n10\n"
    "0\nLINE\n8\nB\n10\n5\n20\n5\n11\n90\n21\n5\n0\nENDSEC\n0\nEOF\n";

// Kilobytes of memory in use. The cheaper /proc/self/statm can be out of date.
long ResidentKilobytes() {
  std::ifstream rollup("/proc/self/smaps_rollup");
  std::string word;
  while (rollup >> word && word != "Rss:") {
  }
  long kilobytes = 0;
  rollup >> kilobytes;
  return kilobytes;
}

void Convert(const std::string& path, long round) {
  HENHMETAFILE metafile = nullptr;
  switch (round % 5) {
    case 0: vzMetaMake(path.c_str(), &metafile, 0, 0); break;
    case 1: vzReMetaMake(path.c_str(), &metafile, 0, {0, 0, 500, 29700}, 0, 0); break;
    case 2: vzRotMetaMake(&metafile); break;
    case 3: vzFullSizeMetaMake(path.c_str(), &metafile, 1, 0); break;
    case 4: vzMetaMake("no such file.dxf", &metafile, 0, 0); break;
  }
  DeleteEnhMetaFile(metafile);
}

}  // namespace

int main(int argc, char** argv) {
  const long conversions = argc > 1 ? std::atol(argv[1]) : 100000;
  const long warmUp = 1000;
  const std::string path = (std::filesystem::temp_directory_path() / "hexlume_soak.dxf").string();
  std::ofstream(path) << drawing;
  for (long round = 0; round < warmUp; ++round) Convert(path, round);
  const long before = ResidentKilobytes();
  for (long round = warmUp; round < conversions; ++round) Convert(path, round);
  const long after = ResidentKilobytes();
  std::filesystem::remove(path);
  std::printf("%ld KB after %ld conversions, %ld KB after %ld\n", before, warmUp, after, conversions);
  return after > before ? 1 : 0;
}
