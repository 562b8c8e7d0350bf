// Pictures that only the tool on Linux makes.
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

TEST_F(LinuxPictures, the_same_drawing_gives_the_same_files) {
  Write("plan.dxf", oneText);
  ExpectSuccess(RunReal("--pdf a.pdf --svg a.svg --png a.png plan.dxf"));
  ExpectSuccess(RunReal("--pdf b.pdf --svg b.svg --png b.png plan.dxf"));
  for (const char* kind : {".pdf", ".svg", ".png"})
    EXPECT_EQ(Contents(std::string("a") + kind), Contents(std::string("b") + kind)) << kind;
}

}  // namespace
}  // namespace hexlume::pictures_linux_test
