// Pictures that only the tool on Linux makes.
#include <filesystem>

#include "support/tool_run.h"

namespace hexlume::pictures_linux_test {
namespace {

class LinuxPictures : public ToolRun {};

constexpr const char* oneText =
    "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n0\nTEXT\n8\n0\n10\n50\n20\n50\n40\n5\n1\nR<12\n0\nENDSEC\n0\nEOF\n";

TEST_F(LinuxPictures, texts_of_an_svg_are_outlines_unless_told) {
  Write("plan.dxf", oneText);
  ExpectSuccess(RunReal("--svg outlines.svg plan.dxf"));
  EXPECT_FALSE(Contains(Contents("outlines.svg"), "<text"));
  EXPECT_TRUE(Contains(Contents("outlines.svg"), "<use "));
  ExpectSuccess(RunReal("--svg texts.svg --svg-text plan.dxf"));
  EXPECT_TRUE(Contains(Contents("texts.svg"), ">R&lt;12</text>"));
  EXPECT_FALSE(Contains(Contents("texts.svg"), "<use "));
}

TEST_F(LinuxPictures, texts_need_an_svg) {
  ExpectWrongUsage("--png a.png --svg-text plan.dxf", "--svg-text needs --svg");
}

TEST_F(LinuxPictures, of_many_drawings_at_once) {
  Write("a.dxf", oneText);
  Write("b.dxf", oneText);
  std::filesystem::create_directory("out");
  ExpectSuccess(RunReal("-d out --to png,svg,pdf --size 100 --svg-text a.dxf b.dxf"));
  EXPECT_EQ(100u, SizeOfPicture("out/b.png").width);
  EXPECT_TRUE(Contains(Contents("out/a.svg"), "</text>"));
  EXPECT_EQ(0u, Contents("out/b.pdf").find("%PDF-"));
}

// A boundary of 50 corners that go from edge to edge, so that each of the 28,000 rows of its region has up to 50 boxes,
// and rows of dashes of 0.5 mm. The region is written once for all dashes.
TEST_F(LinuxPictures, of_a_hatch_in_a_zigzag_are_small) {
  std::string corners;
  for (int i = 0; i < 50; ++i)
    corners += "10\n" + std::to_string(10 + 8 * i) + "\n20\n" + (i % 2 == 0 ? "10\n" : "290\n");
  Write("plan.dxf",
        "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n"
        "0\nSECTION\n2\nENTITIES\n0\nHATCH\n8\n0\n2\nROWS\n70\n0\n91\n1\n92\n2\n72\n0\n73\n1\n93\n50\n" +
            corners +
            "75\n0\n76\n1\n78\n1\n53\n0\n43\n0\n44\n0\n45\n0\n46\n1\n79\n2\n49\n0.5\n49\n-0.5\n98\n0\n"
            "0\nENDSEC\n0\nEOF\n");
  ExpectSuccess(RunReal("--svg plan.svg --pdf plan.pdf --memory-limit 500M plan.dxf"));
  for (const char* file : {"plan.svg", "plan.pdf"}) {
    EXPECT_GT(Contents(file).size(), 100'000u) << file;
    EXPECT_LT(Contents(file).size(), 5'000'000u) << file;
  }
}

TEST_F(LinuxPictures, the_same_drawing_gives_the_same_files) {
  Write("plan.dxf", oneText);
  ExpectSuccess(RunReal("--pdf a.pdf --svg a.svg --png a.png plan.dxf"));
  ExpectSuccess(RunReal("--pdf b.pdf --svg b.svg --png b.png plan.dxf"));
  for (const char* kind : {".pdf", ".svg", ".png"})
    EXPECT_EQ(Contents(std::string("a") + kind), Contents(std::string("b") + kind)) << kind;
}

}  // namespace
}  // namespace hexlume::pictures_linux_test
