#include "support/conversion_rounds.h"

#include <gtest/gtest.h>

#include "support/leaving_fault.h"

namespace hexlume {

namespace {

constexpr RECT wholeSheet = {0, 0, 42000, 29700};

const char* const drawingText =
    "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n"
    "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n2 A\n62 1\n0 LAYER\n2 B\n62 -1\n0 ENDTAB\n0 ENDSEC\n"
    "0 SECTION\n2 ENTITIES\n0 LINE\n8 A\n62 1\n10 0\n20 0\n11 10\n21 10\n0 LINE\n8 B\n10 5\n20 5\n11 90\n21 "
    "5\n"
    "0 TEXT\n8 A\n10 400\n20 50\n40 20\n1 TOO WIDE\n0 MTEXT\n8 A\n10 400\n20 100\n40 20\n71 7\n1 TOO "
    "WIDE\\PTOO\n"
    "0 ATTRIB\n8 A\n10 400\n20 150\n40 20\n1 TOO WIDE\n0 TEXT\n8 A\n10 10\n20 50\n40 20\n1 FITS\n"
    "0 ENDSEC\n0 EOF\n";

// Each is in the sheet with its start and reaches beyond it.
std::string TextsThatAreTooWide(int32_t count) {
  std::string text =
      "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n"
      "0 SECTION\n2 ENTITIES\n";
  for (int32_t i = 0; i < count; ++i) text += "0 TEXT\n10 400\n20 50\n40 20\n1 TOO WIDE\n";
  return text + "0 ENDSEC\n0 EOF\n";
}

// A degree sign takes four bytes where its code took three.
std::string TextThatOutgrowsItsPlace() {
  return "0 SECTION\n2 ENTITIES\n0 TEXT\n10 10\n20 10\n40 5\n1 " + std::string(252, 'A') +
         "%%d\n0 ENDSEC\n0 EOF\n";
}

}  // namespace

ConversionRounds::ConversionRounds()
    : drawing(drawingText),
      garbage(std::string(100000, '\x81')),
      outgrowing(TextThatOutgrowsItsPlace()),
      longPath(drawing.LongPath()) {}

void ConversionRounds::Run(const LoadedLibrary& library, int32_t first, int32_t end) const {
  for (int32_t round = first; round < end; ++round) ConvertOnce(library, round);
}

void ConversionRounds::ConvertOnce(const LoadedLibrary& library, int32_t round) const {
  const char* path = drawing.Path();
  const int32_t kind = round % conversionKinds;
  HENHMETAFILE metafile = nullptr;
  switch (kind) {
    case 0: library.metaMake(path, &metafile, 0, 0); break;
    case 1: library.reMetaMake(path, &metafile, 0, {0, 0, 500, 29700}, 0, 0); break;
    case 2: library.rotMetaMake(&metafile); break;
    case 3: library.fullSizeMetaMake(path, &metafile, 2, 0); break;  // of each sheet Wine keeps some bytes
    case 4: library.metaMake("no such file.dxf", &metafile, 0, 0); break;
    case 5: library.metaMake(garbage.Path(), &metafile, 0, 0); break;
    case 6: FaultLeaving([&] { library.fullSizeMetaMake(longPath.c_str(), &metafile, 0, 0); }); break;
    case 7: library.reMetaMake(path, &metafile, 0, wholeSheet, 1, 0); break;
    case 8: EXPECT_EQ(30, library.metaMake(outgrowing.Path(), &metafile, 0, 0)); break;
  }
  EXPECT_EQ(kind >= 4 && kind <= 6, metafile == nullptr);
  DeleteEnhMetaFile(metafile);
}

void ConvertTextsThatLeaveTheirFonts(const LoadedLibrary& library, int32_t count) {
  const TemporaryDrawing drawing(TextsThatAreTooWide(count));
  HENHMETAFILE metafile = nullptr;
  EXPECT_EQ(0, library.reMetaMake(drawing.Path(), &metafile, 0, wholeSheet, 1, 0));
  EXPECT_NE(nullptr, metafile);
  DeleteEnhMetaFile(metafile);
}

}  // namespace hexlume
