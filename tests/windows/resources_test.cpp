// What conversions leave behind in the process: nothing.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/leaving_fault.h"
#include "support/loaded_library.h"
#include "support/text_drawing.h"
#include "windows/process_resources.h"

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

// One of each kind: all conversions, a cut view, the sheet's default answers, files that are missing or no
// drawing, and a fault that leaves.
void ConvertOnce(const LoadedLibrary& library, const std::string& path, const std::string& garbage,
                 int32_t round) {
  HENHMETAFILE metafile = nullptr;
  switch (round % 7) {
    case 0: library.metaMake(path.c_str(), &metafile, 0, 0); break;
    case 1: library.reMetaMake(path.c_str(), &metafile, 0, {0, 0, 500, 29700}, 0, 0); break;
    case 2: library.rotMetaMake(&metafile); break;
    case 3: library.fullSizeMetaMake(path.c_str(), &metafile, 1, 0); break;
    case 4: library.metaMake("no such file.dxf", &metafile, 0, 0); break;
    case 5: library.metaMake(garbage.c_str(), &metafile, 0, 0); break;
    case 6: {
      const std::string longPath = LongPath(path);  // not in the call: what lies there isn't destroyed
      FaultLeaving([&] { library.fullSizeMetaMake(longPath.c_str(), &metafile, 0, 0); });
      break;
    }
  }
  EXPECT_EQ(round % 7 >= 4, metafile == nullptr);
  DeleteEnhMetaFile(metafile);
}

TEST(Resources, two_thousand_conversions_hold_no_more_than_ten) {
  const LoadedLibrary library;
  const TemporaryDrawing drawing(drawingText);
  const TemporaryFile garbage(std::string(100000, '\x81'));
  const auto convert = [&](int32_t first, int32_t end) {
    for (int32_t round = first; round < end; ++round)
      ConvertOnce(library, drawing.Path(), garbage.Path(), round);
  };
  convert(0, 10);
  const size_t objects = CountGdiObjects();
  const size_t early = WorkingSet();
  convert(10, 2000);
  EXPECT_EQ(objects, CountGdiObjects());
  // The system's heap takes some pages once, while it settles; from then on it takes none.
  const size_t settled = WorkingSet();
  EXPECT_LE(settled, early + 256 * 1024);
  convert(2000, 4000);
  EXPECT_LE(WorkingSet(), settled + 8 * 1024);
}

TEST(Resources, the_count_sees_a_single_object) {
  const size_t before = CountGdiObjects();
  const HPEN pen = CreatePen(PS_SOLID, 0, 0x123456);
  EXPECT_EQ(before + 1, CountGdiObjects());
  DeleteObject(pen);
  EXPECT_EQ(before, CountGdiObjects());
}

}  // namespace
}  // namespace hexlume
