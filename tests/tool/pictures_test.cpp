// Pictures as a user orders them.
#include "support/tool_run.h"

namespace hexlume::pictures_test {
namespace {

class Pictures : public ToolRun {};

// A sheet of 420 by 297 with a single line.
std::string DrawingOfALine(int x1, int y1, int x2, int y2) {
  return "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n"
         "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n62\n1\n10\n" +
         std::to_string(x1) + "\n20\n" + std::to_string(y1) + "\n11\n" + std::to_string(x2) + "\n21\n" +
         std::to_string(y2) + "\n0\nENDSEC\n0\nEOF\n";
}

// 256 * 210 / 297 = 181.01
TEST_F(Pictures, the_longest_side_is_given_in_pixels) {
  ExpectSuccess(RunScripted("--png plan.png --size 256 plan.dxf"));
  EXPECT_EQ(181u, SizeOfPicture("plan.png").width);
  EXPECT_EQ(256u, SizeOfPicture("plan.png").height);
  ExpectSuccess(RunScripted("--png plan.png --size 20000 --view 0,0,2000,1 plan.dxf"));
  EXPECT_EQ(20000u, SizeOfPicture("plan.png").width);
  EXPECT_EQ(10u, SizeOfPicture("plan.png").height);
}

TEST_F(Pictures, the_size_is_given_once_and_in_one_way) {
  ExpectWrongUsage("--png a.png --size 0 plan.dxf", "--size needs a whole number");
  ExpectWrongUsage("--png a.png --size 20001 plan.dxf", "--size needs a whole number");
  ExpectWrongUsage("--png a.png --size 100 --dpi 96 plan.dxf", "--dpi and --size exclude each other");
  ExpectWrongUsage("--size 100 plan.dxf", "--size needs --png");
}

TEST_F(Pictures, of_a_drawing_beside_its_sheet_there_is_a_warning) {
  Write("plan.dxf", DrawingOfALine(1000, 1000, 1100, 1200));
  const Outcome outcome = RunReal("--png plan.png plan.dxf");
  EXPECT_EQ(0, outcome.status);
  EXPECT_EQ("hexlume: plan.dxf: warning: beside-sheet: nothing of the drawing is on its sheet; try --fit\n",
            outcome.err);
  // From the origin, which is always on the sheet, to (1100, 1200): 256 * 1100 / 1200 = 234.67.
  ExpectSuccess(RunReal("--png plan.png --size 256 --fit plan.dxf"));
  EXPECT_EQ(235u, SizeOfPicture("plan.png").width);
  EXPECT_EQ(256u, SizeOfPicture("plan.png").height);
  Write("plan.dxf", DrawingOfALine(10, 10, 1100, 1200));
  ExpectSuccess(RunReal("--png plan.png plan.dxf"));
}

}  // namespace
}  // namespace hexlume::pictures_test
