// The walk over a block that is inserted in a dimension's block.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "composite/block_dispatch.h"
#include "entities/block_level.h"
#include "platform/fault_guard.h"
#include "support/arc_strokes.h"
#include "support/block_walk.h"
#include "support/text_drawing.h"
#include "support/text_groups.h"

namespace hexlume::dim_insert_dispatch_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

class DimInsertDispatchTest : public BlockWalkTest {
 protected:
  DimInsertDispatchTest() { wholeSheet = 1; }

  void Walk(int32_t bodyOffset, Canvas canvas) override {
    result = DrawDimInsertEntities({RunOn(canvas), blockOriginX, blockOriginY, insertColor}, bodyOffset);
  }

  double blockOriginX = 1000.0;
  double blockOriginY = 2000.0;
};

// The header.

TEST_F(DimInsertDispatchTest, a_base_point_is_not_subtracted) {
  EXPECT_EQ(SlantedStroke(), Draw(slanted, "10 5\n20 -10\n30 0\n"));
}

TEST_F(DimInsertDispatchTest, an_entity_may_follow_the_blocks_name_at_once) {
  EXPECT_EQ(SlantedStroke(red), DrawText(LineOf("62 1\n" + Ends(0, 70, 20, 60)) + "0 ENDBLK\n"));
}

// The end.

TEST_F(DimInsertDispatchTest, endblk_ends_it) {
  EXPECT_EQ(SlantedStroke(), DrawText("70 0\n" + slanted + "0 ENDBLK\n" + slanted + "0 ENDBLK\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "ENDBLK"));
}

TEST_F(DimInsertDispatchTest, endblk_may_follow_the_blocks_name_at_once) {
  EXPECT_EQ("", DrawText("0 ENDBLK\n0 BLOCK\n2 B\n70 0\n" + slanted + "0 ENDBLK\n"));
  EXPECT_EQ(1, result);
}

TEST_F(DimInsertDispatchTest, only_exactly_endblk_with_code_0_ends_it) {
  for (const char* other :
       {"1 ENDBLK\n", "0 EndBlk\n", "0 ENDBLK \n", "0 ENDBLKS\n", "0 ENDSEC\n", "0 EOF\n"})
    EXPECT_EQ(SlantedStroke(), Draw(other + slanted)) << other;
}

TEST_F(DimInsertDispatchTest, without_a_body_nothing_is_read) {
  AddBlock("A", slanted);
  OpenAt("0 CIRCLE\n");
  const int32_t place = Tell(stream);
  EXPECT_EQ("", ListCalls([this](Canvas canvas) { Walk(noBody, canvas); }));
  EXPECT_EQ(1, result);
  EXPECT_EQ(place, Tell(stream));
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

// The entities that it knows. Each one is on layer 0, at (40, 30) from the block's origin, and so at
// (5000, -5000) on the sheet.

const std::string place = "8 0\n10 40\n20 30\n";
// From 37 to 127 degrees: it starts at (cos, sin) * 1000 = (798.6, 601.8) from its centre.
const std::string arc = "0 ARC\n" + place + "40 10\n50 37\n51 127\n";
const std::string circle = "0 CIRCLE\n" + place + "40 10\n";
const std::string ellipse = "0 ELLIPSE\n" + place + "11 -5\n21 0\n40 0.8\n41 0\n42 6.28318530718\n";
const std::string point = "0 POINT\n" + place;

TEST_F(DimInsertDispatchTest, it_knows_line) {
  EXPECT_EQ(SlantedStroke(magenta), Draw(slantedOnLayer0));
}

TEST_F(DimInsertDispatchTest, it_knows_arc) {
  EXPECT_EQ(HeldArc(magenta, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -90)\n"), Draw(arc));
}

TEST_F(DimInsertDispatchTest, it_knows_circle) {
  EXPECT_EQ(HeldArc(magenta, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n"), Draw(circle));
}

TEST_F(DimInsertDispatchTest, it_knows_insert_and_plays_its_block_back_as_one_of_any_insert) {
  AddBlock("A", "0 INSERT\n2 B\n10 0\n20 5\n62 5\n" + slantedOnLayer0);
  AddBlock("B", slantedOnLayer0 + ellipse);
  // 500 further up. The ellipse, which this scope doesn't know: half axes of 500 and 400, so the corners
  // (4500, -4100) and (5501, -4901), the box smaller by one at the right and the top.
  EXPECT_EQ(Stroke(blue, 1000, -500, 3000, -1500) +
                InPen(blue, "SelectObject(NULL_BRUSH)\nEllipse(4500, -4901, 5500, -4101)\n") +
                "SelectObject(WHITE_BRUSH)\n" + SlantedStroke(magenta),
            DrawFirst());
}

TEST_F(DimInsertDispatchTest, entities_are_drawn_in_the_order_of_the_file) {
  EXPECT_EQ(SlantedStroke() +
                HeldArc(magenta, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -90)\n") +
                SlantedStroke(magenta),
            Draw(slanted + arc + slantedOnLayer0));
}

TEST_F(DimInsertDispatchTest, point_ellipse_polyline_spline_and_dimension_are_passed_over) {
  EXPECT_EQ(SlantedStroke(), Draw(point + slanted));
  EXPECT_EQ(SlantedStroke(), Draw(ellipse + slanted));
  AddBlock("*D1", slanted);
  const std::string others = blocks;
  for (const char* name : {"POLYLINE", "SPLINE", "DIMENSION", "LEADER", "ATTRIB", "TOLERANCE", "3DFACE"}) {
    blocks = others;
    AddBlock("A", "0 " + std::string(name) + "\n8 0\n2 *D1\n1 TEXT\n40 5\n" + Ends(0, 70, 20, 60) + slanted);
    EXPECT_EQ(SlantedStroke(), DrawFirst()) << name;
  }
}

TEST_F(DimInsertDispatchTest, a_name_is_known_by_its_exact_spelling) {
  for (const char* name : {"Line", "line", "LINE ", " LINE", "LINES", "XLINE", "MLINE", "INSERTS", "RAY"})
    EXPECT_EQ("", Draw("0 " + std::string(name) + "\n2 A\n" + Ends(0, 70, 20, 60))) << name;
}

TEST_F(DimInsertDispatchTest, a_name_counts_with_code_0_alone) {
  EXPECT_EQ("", Draw("1 LINE\n" + Ends(0, 70, 20, 60)));
}

TEST_F(DimInsertDispatchTest, behind_an_entity_on_an_excluded_layer_the_next_one_is_drawn) {
  ExcludeLayer("DOORS");
  EXPECT_EQ(SlantedStroke(), Draw(LineOf("8 DOORS\n" + Ends(0, 70, 20, 60)) + slanted));
}

TEST_F(DimInsertDispatchTest, its_entities_are_those_of_a_dimension) {
  // A line's dashes aren't drawn, its points aren't sorted, and it isn't cut but clamped.
  DefineLtype(4, {300, -200});
  view = {0, 0, 2000, 10000};
  EXPECT_EQ(Stroke(black, 2000, -1000, 1000, -2000), Draw(LineOf("6 HIDDEN\n" + Ends(20, 70, 0, 60))));
}

TEST_F(DimInsertDispatchTest, line_and_arc_are_given_the_whole_sheet) {
  view = {1500, 0, 2500, 10000};
  EXPECT_EQ(Stroke(black, 1500, -1000, 2500, -2000), Draw(slanted));
  wholeSheet = 0;
  EXPECT_EQ("", Draw(slanted));
  // From 270 to 90 degrees. Where the sheet isn't whole a cap of 500 of 1000 is cut off, and 30 degrees are
  // left before it.
  const std::string half = "0 ARC\n" + place + "40 10\n50 270\n51 90\n";
  view = {0, 0, 5500, 10000};
  EXPECT_EQ(HeldArc(magenta, "MoveToEx(5000, -6000)\nAngleArc(5000, -5000, 1000, -270, -30)\n"), Draw(half));
  wholeSheet = 1;
  EXPECT_EQ(HeldArc(magenta, "MoveToEx(5000, -6000)\nAngleArc(5000, -5000, 1000, -270, -180)\n"), Draw(half));
}

TEST_F(DimInsertDispatchTest, a_circle_is_cut_to_the_view) {
  view = {0, 0, 5500, 10000};
  EXPECT_EQ(HeldArc(magenta, "MoveToEx(5500, -4134)\nAngleArc(5000, -5000, 1000, -60, -240)\n"),
            Draw(circle));
}

// A file that ends in the block.

TEST_F(DimInsertDispatchTest, at_the_end_of_the_file_an_entity_is_drawn_with_what_it_has) {
  stream = StreamOf("0 BLOCK\n2 A\n" + baseAtZero + slanted);
  ReadBlocks(stream);
  EXPECT_EQ(SlantedStroke(), ListCalls([this](Canvas canvas) { Walk(BodyOf("A"), canvas); }));
  EXPECT_EQ(1, result);
}

TEST_F(DimInsertDispatchTest, a_file_may_end_behind_any_byte_of_a_block) {
  AddBlock("B", slanted);
  blocks += "0 BLOCK\n2 A\n";
  const std::string body = "70 0\n10 0\n20 0\n30 0\n3 A\n1 \n" + slanted + arc + circle + ellipse + point +
                           "0 INSERT\n2 B\n10 1\n20 2\n41 3\n42 4\n50 5\n62 6\n0 SPLINE\n2 SOLID\n0 ENDBLK\n";
  const std::string bytes = DrawingBytes(blocks + body);
  for (size_t end = DrawingBytes(blocks).size(); end <= bytes.size(); ++end) {
    stream = StreamOfBytes(bytes.substr(0, end));
    ReadBlocks(stream);
    result = -1;
    ListCalls([this](Canvas canvas) { Walk(BodyOf("A"), canvas); });
    EXPECT_EQ(1, result) << end;
  }
}

// Walks without an end.

// What is read after the block's name: 5 + 15 + 4 + 3 bytes of groups 70, 10 to 30, 3 and 1, 7 + 51 of each
// line and 9 of ENDBLK, with 50 more for each line and for ENDBLK.
constexpr int64_t countOfTwoLines = 27 + 2 * 58 + 9 + 3 * 50;

TEST_F(DimInsertDispatchTest, within_a_dimensions_block_it_ends_with_the_bytes_that_are_left) {
  AddBlock("A", slanted + slanted);
  state.blockLevel = 1;
  state.nestedBytes = nestedByteLimit - countOfTwoLines;
  EXPECT_EQ(SlantedStroke() + SlantedStroke(), DrawToThrow());
  EXPECT_EQ(0, thrown);
  EXPECT_EQ(nestedByteLimit, state.nestedBytes);
  EXPECT_EQ(1, state.blockLevel);
}

TEST_F(DimInsertDispatchTest, one_byte_more_ends_it_as_a_fault_behind_what_was_drawn) {
  AddBlock("A", slanted + slanted + slanted);
  state.blockLevel = 1;
  state.nestedBytes = nestedByteLimit - countOfTwoLines - (58 + 50) + 1;
  EXPECT_EQ(SlantedStroke() + SlantedStroke() + SlantedStroke(), DrawToThrow());
  EXPECT_EQ(faultCode, thrown);
}

TEST_F(DimInsertDispatchTest, without_room_on_the_stack_a_block_is_a_fault_and_nothing_of_it_is_drawn) {
  AddBlock("A", slanted);
  OpenAt("0 CIRCLE\n");
  EXPECT_EQ("", ListCalls([this](Canvas canvas) { RunWithoutStackRoom([&] { WalkToThrow(canvas); }); }));
  EXPECT_EQ(faultCode, thrown);
}

TEST_F(DimInsertDispatchTest, a_block_inside_itself_ends_as_a_fault_with_what_was_drawn) {
  AddBlock("A", slanted + "0 INSERT\n2 A\n10 0\n20 -10\n");
  const std::string strokes = DrawToThrow();
  EXPECT_EQ(faultCode, thrown);
  // The insert's own origin is the block's: (1000, 2000) + (0, -1000).
  EXPECT_EQ(0u, strokes.find(SlantedStroke() + Stroke(black, 1000, -2000, 3000, -3000)));
}

}  // namespace
}  // namespace hexlume::dim_insert_dispatch_test
