// HATCH in a block that is inserted in a dimension's block.

#include <gtest/gtest.h>

#include <string>

#include "composite/hatch.h"
#include "composite/hatch_boundary.h"
#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/shape_text.h"
#include "support/text_groups.h"

namespace hexlume::dim_insert_hatch_test {
namespace {

class DimInsertHatchTest : public ConverterTest {
 protected:
  DimInsertHatchTest() { state.dimColor = 5; }

  // The listing of one hatch with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 HATCH\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawDimInsertHatch({RunOn(canvas), blockOriginX, blockOriginY});
    });
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
};

std::string Filled(COLORREF color, const std::string& corners) {
  return "CreatePen(1, PS_SOLID, 0, " + HexOf(color) +
         ")\nSelectObject(1)\nCreateBrushIndirect(2, BS_SOLID, " + HexOf(color) +
         ", 0)\nSelectObject(2)\nSetPolyFillMode(ALTERNATE)\nPolygon(" + corners +
         ")\nSelectObject(BLACK_PEN)\nSelectObject(WHITE_BRUSH)\nDeleteObject(1)\nDeleteObject(2)\n";
}

std::string Edge(int x1, int y1, int x2, int y2) {
  return "72 1\n10 " + std::to_string(x1) + "\n20 " + std::to_string(y1) + "\n11 " + std::to_string(x2) +
         "\n21 " + std::to_string(y2) + "\n";
}

// An arrowhead of three edges: 100 x, 100 y - 10000.
const std::string threeEdges = Edge(10, 50, 30, 45) + Edge(30, 45, 30, 55) + Edge(30, 55, 10, 50);
const std::string arrowhead =
    "2 SOLID\n70 1\n71 0\n91 1\n92 1\n93 3\n" + threeEdges + "97 0\n75 1\n76 1\n98 1\n";
const char triangle[] = "1000, -5000, 3000, -5500, 3000, -4500";

TEST_F(DimInsertHatchTest, a_solid_arrowhead_of_3_edges_is_a_triangle) {
  EXPECT_EQ(Filled(blue, triangle), Draw(arrowhead));
}

TEST_F(DimInsertHatchTest, one_of_4_edges_is_a_quadrilateral) {
  EXPECT_EQ(Filled(blue, "1000, -9000, 2000, -9000, 2000, -8000, 1000, -8000"),
            Draw("2 SOLID\n93 4\n" + Edge(10, 10, 20, 10) + Edge(20, 10, 20, 20) + Edge(20, 20, 10, 20) +
                 Edge(10, 20, 10, 10)));
}

TEST_F(DimInsertHatchTest, one_of_5_and_one_of_6_edges_have_as_many_corners) {
  const std::string edges = Edge(1, 1, 2, 1) + Edge(2, 1, 3, 2) + Edge(3, 2, 3, 3) + Edge(3, 3, 2, 4);
  const std::string five = "100, -9900, 200, -9900, 300, -9800, 300, -9700, 200, -9600";
  EXPECT_EQ(Filled(blue, five), Draw("2 SOLID\n93 5\n" + edges + Edge(2, 4, 1, 1)));
  EXPECT_EQ(Filled(blue, five + ", 0, -9700"),
            Draw("2 SOLID\n93 6\n" + edges + Edge(2, 4, 0, 3) + Edge(0, 3, 1, 1)));
}

TEST_F(DimInsertHatchTest, two_corners_are_a_polygon_too_but_one_is_none) {
  EXPECT_EQ(Filled(blue, "1000, -5000, 3000, -5500"), Draw("2 SOLID\n93 2\n" + threeEdges));
  const std::string withOne = Draw("2 SOLID\n93 1\n" + threeEdges);
  EXPECT_EQ(std::string::npos, withOne.find("Polygon("));
  EXPECT_TRUE(AtGroup(20, "50"));
}

TEST_F(DimInsertHatchTest, without_a_count_above_0_nothing_is_drawn) {
  EXPECT_EQ("", Draw("2 SOLID\n93 0\n" + threeEdges));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(93, "0"));
  EXPECT_EQ("", Draw("2 SOLID\n93 -3\n" + threeEdges));
  EXPECT_EQ(1, result);
}

TEST_F(DimInsertHatchTest, only_the_pattern_named_solid_is_drawn) {
  for (const char* name : {"solid", "ANSI31", "SOLID1", ""}) {
    EXPECT_EQ("", Draw("2 " + std::string(name) + "\n93 3\n" + threeEdges)) << name;
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(93, "3"));
  }
}

TEST_F(DimInsertHatchTest, the_count_may_stand_before_the_name) {
  EXPECT_EQ(Filled(blue, triangle), Draw("93 3\n2 SOLID\n" + threeEdges));
}

TEST_F(DimInsertHatchTest, the_last_name_before_the_count_is_told_counts) {
  EXPECT_EQ(Filled(blue, triangle), Draw("2 ANSI31\n2 SOLID\n93 3\n" + threeEdges));
  EXPECT_EQ("", Draw("2 SOLID\n2 ANSI31\n93 3\n" + threeEdges));
}

TEST_F(DimInsertHatchTest, points_before_the_name_and_the_count_are_no_corners) {
  EXPECT_EQ(Filled(blue, triangle), Draw("10 0\n20 0\n30 0\n2 SOLID\n10 1\n20 1\n93 3\n" + threeEdges));
}

TEST_F(DimInsertHatchTest, an_end_before_the_first_start_is_no_corner) {
  EXPECT_EQ(Filled(blue, triangle), Draw("2 SOLID\n93 3\n11 1\n21 1\n" + threeEdges));
}

TEST_F(DimInsertHatchTest, its_corners_are_moved_to_the_origin) {
  blockOriginX = 500.0;
  blockOriginY = 700.0;
  EXPECT_EQ(Filled(blue, "1500, -4300, 3500, -4800, 3500, -3800"), Draw(arrowhead));
}

TEST_F(DimInsertHatchTest, its_corners_are_neither_scaled_nor_turned_with_the_block) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = halfPi;
  EXPECT_EQ(Filled(blue, triangle), Draw(arrowhead));
}

TEST_F(DimInsertHatchTest, it_stays_where_it_is_on_a_turned_sheet) {
  state.rotated = 1;
  EXPECT_EQ(Filled(blue, triangle), Draw(arrowhead));
}

TEST_F(DimInsertHatchTest, it_takes_the_colour_that_stands_in_dim_color) {
  state.entColor = 1;
  state.blockColor = 1;
  EXPECT_EQ(Filled(blue, triangle), Draw("62 3\n" + arrowhead));
  state.dimColor = -1;
  EXPECT_EQ(Filled(countColor, triangle), Draw(arrowhead));
}

TEST_F(DimInsertHatchTest, with_monochrome_on_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Filled(black, triangle), Draw(arrowhead));
  EXPECT_EQ(0, state.dimColor);
}

TEST_F(DimInsertHatchTest, it_ignores_layers) {
  AddLayer("WALLS", {}, 1);
  ExcludeLayer("WALLS");
  EXPECT_EQ(Filled(blue, triangle), Draw("8 WALLS\n" + arrowhead));
}

TEST_F(DimInsertHatchTest, it_leaves_the_scratch_fields_alone) {
  state.entX[0] = state.dimX[0] = state.dimY[0] = 7.0;
  Draw(arrowhead);
  EXPECT_EQ(7.0, state.entX[0]);
  EXPECT_EQ(7.0, state.dimX[0]);
  EXPECT_EQ(7.0, state.dimY[0]);
}

// The end of the groups.

TEST_F(DimInsertHatchTest, it_stops_at_its_last_corner) {
  Draw(arrowhead);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(21, "55"));
}

TEST_F(DimInsertHatchTest, it_reads_on_over_the_next_entity_for_missing_corners) {
  const std::string line = "0 LINE\n10 1\n20 2\n11 30\n21 55\n";
  EXPECT_EQ(Filled(blue, triangle), DrawText("0 HATCH\n2 SOLID\n93 3\n" + Edge(10, 50, 30, 45) + line));
  EXPECT_EQ(1, result);
  EXPECT_EQ(Filled(blue, triangle), DrawText("0 HATCH\n0 HATCH\n" + arrowhead));
}

TEST_F(DimInsertHatchTest, the_end_of_the_file_ends_it_with_nothing_drawn) {
  const std::string groups = "0 HATCH\n2 SOLID\n93 3\n" + Edge(10, 50, 30, 45);
  for (const char* cutOff : {"0 HATCH\n", "0 HATCH\n2 SOLID\n", "0 HATCH\n93 3\n", groups.c_str()}) {
    EXPECT_EQ("", DrawText(cutOff));
    EXPECT_EQ(0, result);
  }
  EXPECT_EQ("", Draw("2 SOLID\n93 2147483647\n" + threeEdges));
  EXPECT_EQ(0, result);
}

// Bad input.

TEST_F(DimInsertHatchTest, corners_beyond_the_limit_are_dropped) {
  std::string ends;
  for (size_t i = 0; i < hatchCornerLimit + 2; ++i) ends += "11 1\n21 1\n";
  const std::string listing =
      Draw("2 SOLID\n93 " + std::to_string(hatchCornerLimit + 3) + "\n10 0\n20 0\n" + ends);
  size_t corners = 0;
  for (size_t at = listing.find("100, -9900"); at != std::string::npos;
       at = listing.find("100, -9900", at + 1))
    ++corners;
  EXPECT_EQ(hatchCornerLimit - 1, corners);
  EXPECT_EQ(1, result);
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimInsertHatchTest, absurd_numbers_lie_at_the_smallest_int32) {
  EXPECT_EQ(Filled(blue, "-2147483648, -2147483648, 0, -10000"),
            Draw("2 SOLID\n93 2\n10 1e999\n20 1e300\n11 NAN\n21 NAN\n"));
}

}  // namespace
}  // namespace hexlume::dim_insert_hatch_test
