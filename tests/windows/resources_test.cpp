// What conversions leave behind in the process: nothing.
#include <gtest/gtest.h>

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

// One of each kind: all conversions, a missing file, a cut view, the sheet's default answers.
void ConvertOnce(const LoadedLibrary& library, const std::string& path, int32_t round) {
  HENHMETAFILE metafile = nullptr;
  switch (round % 5) {
    case 0: library.metaMake(path.c_str(), &metafile, 0, 0); break;
    case 1: library.reMetaMake(path.c_str(), &metafile, 0, {0, 0, 500, 29700}, 0, 0); break;
    case 2: library.rotMetaMake(&metafile); break;
    case 3: library.fullSizeMetaMake(path.c_str(), &metafile, 1, 0); break;
    case 4: library.metaMake("no such file.dxf", &metafile, 0, 0); break;
  }
  EXPECT_EQ(round % 5 == 4, metafile == nullptr);
  DeleteEnhMetaFile(metafile);
}

TEST(Resources, two_thousand_conversions_hold_no_more_than_ten) {
  const LoadedLibrary library;
  const TemporaryDrawing drawing(drawingText);
  for (int32_t round = 0; round < 10; ++round) ConvertOnce(library, drawing.Path(), round);
  const size_t objects = CountGdiObjects();
  const size_t memory = WorkingSet();
  for (int32_t round = 10; round < 2000; ++round) ConvertOnce(library, drawing.Path(), round);
  EXPECT_EQ(objects, CountGdiObjects());
  // The heap may still settle into its pages, but 64 KB in 1990 conversions are less than one byte per
  // stroke's record.
  EXPECT_LE(WorkingSet(), memory + 64 * 1024);
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
