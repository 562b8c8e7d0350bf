#include "support/conversion_rounds.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/leaving_fault.h"

namespace hexlume {

namespace {

const char* const drawingText =
    "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n"
    "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n2 A\n62 1\n0 LAYER\n2 B\n62 -1\n0 ENDTAB\n0 ENDSEC\n"
    "0 SECTION\n2 ENTITIES\n0 LINE\n8 A\n62 1\n10 0\n20 0\n11 10\n21 10\n0 LINE\n8 B\n10 5\n20 5\n11 90\n21 "
    "5\n"
    "0 ENDSEC\n0 EOF\n";

// A file's path too long to be saved, so that a fault leaves the conversion.
std::string LongPath(const std::string& path) {
  const std::filesystem::path file(path);
  std::string longPath = file.parent_path().string();
  while (longPath.size() < 260) longPath += "/.";
  return longPath + "/" + file.filename().string();
}

}  // namespace

ConversionRounds::ConversionRounds()
    : drawing(drawingText), garbage(std::string(100000, '\x81')), longPath(LongPath(drawing.Path())) {}

void ConversionRounds::Run(const LoadedLibrary& library, int32_t first, int32_t end) const {
  for (int32_t round = first; round < end; ++round) ConvertOnce(library, round);
}

void ConversionRounds::ConvertOnce(const LoadedLibrary& library, int32_t round) const {
  const char* path = drawing.Path();
  HENHMETAFILE metafile = nullptr;
  switch (round % 7) {
    case 0: library.metaMake(path, &metafile, 0, 0); break;
    case 1: library.reMetaMake(path, &metafile, 0, {0, 0, 500, 29700}, 0, 0); break;
    case 2: library.rotMetaMake(&metafile); break;
    case 3: library.fullSizeMetaMake(path, &metafile, 1, 0); break;
    case 4: library.metaMake("no such file.dxf", &metafile, 0, 0); break;
    case 5: library.metaMake(garbage.Path(), &metafile, 0, 0); break;
    case 6: FaultLeaving([&] { library.fullSizeMetaMake(longPath.c_str(), &metafile, 0, 0); }); break;
  }
  EXPECT_EQ(round % 7 >= 4, metafile == nullptr);
  DeleteEnhMetaFile(metafile);
}

}  // namespace hexlume
