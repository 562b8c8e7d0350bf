// The walk over a block that an INSERT plays back.

#include "composite/block_dispatch.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "entities/block_level.h"
#include "platform/fault_guard.h"
#include "support/arc_strokes.h"
#include "support/block_walk.h"
#include "support/text_drawing.h"
#include "support/text_groups.h"

namespace hexlume::block_dispatch_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

class BlockDispatchTest : public BlockWalkTest {
 protected:
  void Walk(int32_t bodyOffset, Canvas canvas) override {
    result = DrawBlockEntities({RunOn(canvas), blockOriginX, blockOriginY, insertColor}, bodyOffset);
  }

  double blockOriginX = 1000.0;
  double blockOriginY = 2000.0;
};

// The base point.

TEST_F(BlockDispatchTest, the_base_point_is_subtracted_from_the_origin) {
  // (1000 - 500, 2000 + 1000)
  EXPECT_EQ(Stroke(black, 500, 0, 2500, -1000), Draw(slanted, "10 5\n20 -10\n30 0\n"));
}

TEST_F(BlockDispatchTest, the_base_point_is_scaled_each_axis_by_its_own_scale) {
  state.insertScaleX = -2.0;
  state.insertScaleY = 0.5;
  // The origin: 1000 + 500 * 2 = 2000 and 2000 - 1000 * 0.5 = 1500. X 2000 and 2000 - 2000 * 2, sorted; Y
  // 7000 * 0.5 + 1500 and 6000 * 0.5 + 1500.
  EXPECT_EQ(Stroke(black, 0, -5500, 2000, -5000), Draw(LineOf(Ends(0, 70, 10, 60)), "10 5\n20 10\n30 0\n"));
}

TEST_F(BlockDispatchTest, the_base_point_is_not_turned) {
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // The origin: (500, 1000). (2000, -1000) and (2000, -3000) become (1000, 2000) and (3000, 2000). Y: 3000.5
  // - 10000.
  EXPECT_EQ(Stroke(black, 1500, -6999, 3500, -6999),
            Draw(LineOf(Ends(20, -10, 20, -30)), "10 5\n20 10\n30 0\n"));
}

TEST_F(BlockDispatchTest, group_20_ends_the_search_for_the_base_point) {
  // The second point would move the block on.
  EXPECT_EQ(Stroke(black, 500, -1000, 2500, -2000), Draw(slanted, "10 5\n20 0\n10 30\n20 30\n"));
  EXPECT_EQ(SlantedStroke(), Draw(slanted, "20 0\n10 30\n20 30\n"));
}

TEST_F(BlockDispatchTest, group_3_ends_the_search_for_the_base_point) {
  EXPECT_EQ(SlantedStroke(), Draw(slanted, "3 A\n10 30\n20 30\n"));
  EXPECT_EQ(Stroke(black, 500, -1000, 2500, -2000), Draw(slanted, "10 5\n3 A\n20 30\n"));
  // Such a group follows the header of Draw.
  EXPECT_EQ(SlantedStroke(), Draw(slanted, ""));
}

TEST_F(BlockDispatchTest, each_group_10_in_front_of_group_20_is_subtracted) {
  // 1000 - 300 - 400
  EXPECT_EQ(Stroke(black, 300, -1000, 2300, -2000), Draw(slanted, "10 3\n10 4\n20 0\n"));
}

TEST_F(BlockDispatchTest, other_groups_of_the_header_are_passed_over) {
  EXPECT_EQ(SlantedStroke(), Draw(slanted, "70 64\n30 7\n11 50\n21 50\n8 DOORS\n" + baseAtZero));
}

TEST_F(BlockDispatchTest, a_header_without_a_base_point_takes_it_from_its_first_entity) {
  // (1000 - 500, 2000 - 1000), and the line with that point is lost.
  EXPECT_EQ(Stroke(red, 500, -2000, 2500, -3000),
            DrawText("70 0\n" + LineOf(Ends(5, 10, 50, 50)) + LineOf("62 1\n" + Ends(0, 70, 20, 60)) +
                     "0 ENDBLK\n"));
}

TEST_F(BlockDispatchTest, an_empty_block_without_a_base_point_runs_on_into_the_next_one) {
  EXPECT_EQ(Stroke(black, 500, -2000, 2500, -3000),
            DrawText("70 0\n0 ENDBLK\n0 BLOCK\n2 B\n70 0\n10 5\n20 10\n" + slanted + "0 ENDBLK\n"));
}

// The end.

TEST_F(BlockDispatchTest, endblk_ends_it) {
  EXPECT_EQ(SlantedStroke(), DrawText(baseAtZero + slanted + "0 ENDBLK\n" + slanted + "0 ENDBLK\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "ENDBLK"));
}

TEST_F(BlockDispatchTest, endblk_ends_it_behind_an_entity_of_no_converter) {
  EXPECT_EQ("", DrawText(baseAtZero + "0 SEQEND\n8 0\n0 ENDBLK\n" + slanted + "0 ENDBLK\n"));
}

TEST_F(BlockDispatchTest, only_exactly_endblk_with_code_0_ends_it) {
  for (const char* other :
       {"1 ENDBLK\n", "0 EndBlk\n", "0 ENDBLK \n", "0 ENDBLKS\n", "0 ENDSEC\n", "0 EOF\n"})
    EXPECT_EQ(SlantedStroke(), Draw(other + slanted)) << other;
}

TEST_F(BlockDispatchTest, a_block_may_be_empty) {
  EXPECT_EQ("", Draw(""));
  EXPECT_EQ(1, result);
}

TEST_F(BlockDispatchTest, without_a_body_nothing_is_read) {
  AddBlock("A", slanted);
  OpenAt("0 CIRCLE\n");
  const int32_t place = Tell(stream);
  EXPECT_EQ("", ListCalls([this](Canvas canvas) { Walk(noBody, canvas); }));
  EXPECT_EQ(1, result);
  EXPECT_EQ(place, Tell(stream));
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

// The entities that a block knows. Each one is on layer 0, at (40, 30) from the block's origin, and so at
// (5000, -5000) on the sheet.

const std::string place = "8 0\n10 40\n20 30\n";
// From 37 to 127 degrees: it starts at (cos, sin) * 1000 = (798.6, 601.8) from its centre.
const std::string arc = "0 ARC\n" + place + "40 10\n50 37\n51 127\n";
const std::string circle = "0 CIRCLE\n" + place + "40 10\n";
// Half axes of 500 and 400.
const std::string ellipse = "0 ELLIPSE\n" + place + "11 -5\n21 0\n40 0.8\n41 0\n42 6.28318530718\n";
const std::string point = "0 POINT\n" + place;

TEST_F(BlockDispatchTest, it_knows_arc) {
  EXPECT_EQ(HeldArc(magenta, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -90)\n"), Draw(arc));
}

TEST_F(BlockDispatchTest, it_knows_circle) {
  EXPECT_EQ(HeldArc(magenta, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n"), Draw(circle));
}

TEST_F(BlockDispatchTest, it_knows_ellipse) {
  // Its corners (4500, -4600) and (5501, -5401), the box smaller by one at the right and the top.
  EXPECT_EQ(InPen(magenta, "SelectObject(NULL_BRUSH)\nEllipse(4500, -5401, 5500, -4601)\n") +
                "SelectObject(WHITE_BRUSH)\n",
            Draw(ellipse));
}

TEST_F(BlockDispatchTest, it_knows_line) {
  EXPECT_EQ(SlantedStroke(magenta), Draw(slantedOnLayer0));
}

TEST_F(BlockDispatchTest, it_knows_point_and_gives_it_the_header_variables) {
  headerVars.pdMode = 4;
  headerVars.pdSize = 10.5;
  EXPECT_EQ(InPen(magenta, "MoveToEx(5000, -5000)\nLineTo(5000, -4989)\n"), Draw(point));
}

TEST_F(BlockDispatchTest, it_knows_insert) {
  AddBlock("A", "0 INSERT\n2 B\n10 0\n20 5\n62 5\n" + slantedOnLayer0);
  AddBlock("B", slantedOnLayer0);
  // 500 further up.
  EXPECT_EQ(Stroke(blue, 1000, -500, 3000, -1500) + SlantedStroke(magenta), DrawFirst());
}

TEST_F(BlockDispatchTest, entities_are_drawn_in_the_order_of_the_file) {
  const std::string arcStrokes =
      HeldArc(magenta, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -90)\n");
  EXPECT_EQ(SlantedStroke() + arcStrokes + SlantedStroke(magenta), Draw(slanted + arc + slantedOnLayer0));
}

TEST_F(BlockDispatchTest, a_name_is_known_by_its_exact_spelling) {
  for (const char* name : {"Line", "line", "LINE ", " LINE", "LINES", "XLINE", "MLINE", "INSERTS", "RAY"})
    EXPECT_EQ("", Draw("0 " + std::string(name) + "\n2 A\n" + Ends(0, 70, 20, 60))) << name;
}

TEST_F(BlockDispatchTest, a_name_counts_with_code_0_alone) {
  EXPECT_EQ("", Draw("1 LINE\n" + Ends(0, 70, 20, 60)));
  EXPECT_EQ("", Draw("100 LINE\n" + Ends(0, 70, 20, 60)));
}

TEST_F(BlockDispatchTest, hatch_dimension_leader_and_attrib_are_passed_over) {
  AddBlock("*D1", slanted);
  const std::string others = blocks;
  for (const char* name : {"HATCH", "DIMENSION", "LEADER", "ATTRIB", "ATTDEF", "3DFACE", "VIEWPORT"}) {
    blocks = others;
    AddBlock("A", "0 " + std::string(name) + "\n8 0\n2 *D1\n1 TEXT\n40 5\n" + Ends(0, 70, 20, 60) + slanted);
    EXPECT_EQ(SlantedStroke(), DrawFirst()) << name;
  }
}

TEST_F(BlockDispatchTest, behind_an_entity_on_an_excluded_layer_the_next_one_is_drawn) {
  ExcludeLayer("DOORS");
  EXPECT_EQ(SlantedStroke(), Draw(LineOf("8 DOORS\n" + Ends(0, 70, 20, 60)) + slanted));
}

TEST_F(BlockDispatchTest, each_entity_is_cut_to_the_view) {
  view = {0, 0, 5500, 10000};
  // A cap of 500 of 1000 is cut off the circle: 60 degrees to each side.
  EXPECT_EQ(HeldArc(magenta, "MoveToEx(5500, -4134)\nAngleArc(5000, -5000, 1000, -60, -240)\n"),
            Draw(circle));
  EXPECT_EQ(Stroke(black, 1000, -5000, 5500, -5000), Draw(LineOf(Ends(0, 30, 90, 30))));
  // Of an arc from 270 to 90 degrees 30 are left before the cap.
  EXPECT_EQ(HeldArc(magenta, "MoveToEx(5000, -6000)\nAngleArc(5000, -5000, 1000, -270, -30)\n"),
            Draw("0 ARC\n" + place + "40 10\n50 270\n51 90\n"));
  view = {0, 0, 4000, 4000};
  EXPECT_EQ("", Draw(ellipse));
}

// A file that ends in the block.

TEST_F(BlockDispatchTest, at_the_end_of_the_file_an_entity_is_drawn_with_what_it_has) {
  blocks = "0 BLOCK\n2 A\n" + baseAtZero + slanted;
  stream = StreamOf(blocks);
  ReadBlocks(stream);
  EXPECT_EQ(SlantedStroke(), ListCalls([this](Canvas canvas) { Walk(BodyOf("A"), canvas); }));
  EXPECT_EQ(1, result);
}

TEST_F(BlockDispatchTest, a_file_may_end_behind_any_byte_of_a_block) {
  AddBlock("B", slanted);
  blocks += "0 BLOCK\n2 A\n";
  const std::string body = "70 0\n10 0\n20 0\n30 0\n3 A\n1 \n" + slanted + arc + circle + ellipse + point +
                           "0 INSERT\n2 B\n10 1\n20 2\n41 3\n42 4\n50 5\n62 6\n0 HATCH\n2 SOLID\n0 ENDBLK\n";
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

using EndlessBlockTest = BlockDispatchTest;

const std::string insertB = "0 INSERT\n2 B\n10 0\n20 0\n";

TEST_F(EndlessBlockTest, a_block_that_is_in_no_other_is_never_too_long) {
  AddBlock("A", slanted + "0 HATCH\n2 SOLID\n10 1\n20 2\n" + slanted);
  state.nestedBytes = nestedByteLimit;
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(SlantedStroke() + SlantedStroke(), DrawToThrow());
    EXPECT_EQ(0, thrown);
  }
  EXPECT_EQ(nestedByteLimit, state.nestedBytes);
}

// A block B from after its name on: 5 + 15 + 4 + 3 bytes of groups 70, 10 to 30, 3 and 1, 7 + 51 of each
// line and 9 of ENDBLK, with 50 more for each line and for ENDBLK.
constexpr int64_t countOfOneLine = 27 + 58 + 9 + 2 * 50;
constexpr int64_t countOfTwoLines = 27 + 2 * 58 + 9 + 3 * 50;

TEST_F(EndlessBlockTest, what_a_block_within_a_block_reads_is_counted) {
  AddBlock("A", slanted + insertB + slanted);
  AddBlock("B", slanted);
  EXPECT_EQ(SlantedStroke() + SlantedStroke() + SlantedStroke(), DrawToThrow());
  EXPECT_EQ(countOfOneLine, state.nestedBytes);
  EXPECT_EQ(0, state.blockLevel);
}

TEST_F(EndlessBlockTest, what_is_passed_over_there_is_counted_too) {
  AddBlock("A", insertB);
  // The groups of the hatch are 8, 8, 5 and 5 bytes long.
  AddBlock("B", slanted + "0 HATCH\n2 SOLID\n10 1\n20 2\n");
  EXPECT_EQ(SlantedStroke(), DrawToThrow());
  EXPECT_EQ(countOfOneLine + 26 + 50, state.nestedBytes);
}

TEST_F(EndlessBlockTest, the_search_for_the_base_point_is_counted_too) {
  AddBlock("A", insertB);
  blocks += "0 BLOCK\n2 B\n70 0\n" + slanted + "20 7\n0 ENDBLK\n";  // up to the line's group 20
  DrawToThrow();
  EXPECT_EQ(5 + 58 + 5 + 9 + 50, state.nestedBytes);
}

TEST_F(EndlessBlockTest, each_level_counts_for_itself) {
  AddBlock("A", insertB + insertB);
  // The insert: 9, 4, 5 and 5 bytes.
  AddBlock("B", slanted + "0 INSERT\n2 C\n10 0\n20 0\n");
  AddBlock("C", slanted);
  EXPECT_EQ(4u, CountLines(DrawToThrow()));
  EXPECT_EQ(2 * (countOfOneLine + 23 + 50 + countOfOneLine), state.nestedBytes);
}

TEST_F(EndlessBlockTest, blocks_within_blocks_end_with_the_bytes_that_are_left) {
  AddBlock("A", insertB + slanted);
  AddBlock("B", slanted + slanted);
  state.nestedBytes = nestedByteLimit - countOfTwoLines;
  EXPECT_EQ(SlantedStroke() + SlantedStroke() + SlantedStroke(), DrawToThrow());
  EXPECT_EQ(0, thrown);
  EXPECT_EQ(nestedByteLimit, state.nestedBytes);
}

TEST_F(EndlessBlockTest, one_byte_more_ends_them_as_a_fault_behind_what_was_drawn) {
  AddBlock("A", insertB + slanted);
  AddBlock("B", slanted + slanted);
  state.nestedBytes = nestedByteLimit - countOfTwoLines + 1;
  EXPECT_EQ(SlantedStroke() + SlantedStroke(), DrawToThrow());
  EXPECT_EQ(faultCode, thrown);
  EXPECT_EQ(0, state.blockLevel);
}

TEST_F(EndlessBlockTest, blocks_that_insert_the_next_one_twice_each_come_to_an_end) {
  // 2 to the 60th blocks B60.
  for (int depth = 60; depth > 0; --depth) {
    const std::string next = "0 INSERT\n2 B" + std::to_string(depth) + "\n";
    AddBlock(depth == 1 ? "A" : "B" + std::to_string(depth - 1), next + next + slanted);
  }
  AddBlock("B60", slanted);
  state.nestedBytes = nestedByteLimit - 1'000'000;
  EXPECT_LT(1000u, CountLines(DrawToThrow()));
  EXPECT_EQ(faultCode, thrown);
}

TEST_F(EndlessBlockTest, without_room_on_the_stack_a_block_is_a_fault_and_nothing_of_it_is_drawn) {
  AddBlock("A", slanted);
  OpenAt("0 CIRCLE\n");
  EXPECT_EQ("", ListCalls([this](Canvas canvas) { RunWithoutStackRoom([&] { WalkToThrow(canvas); }); }));
  EXPECT_EQ(faultCode, thrown);
}

TEST_F(EndlessBlockTest, a_block_inside_itself_ends_as_a_fault_with_what_was_drawn) {
  AddBlock("A", slanted + "0 INSERT\n2 A\n");
  EXPECT_LT(10u, CountLines(DrawToThrow()));
  EXPECT_EQ(faultCode, thrown);
}

TEST_F(EndlessBlockTest, two_blocks_inside_each_other_end_as_a_fault_with_what_was_drawn) {
  AddBlock("A", slanted + "0 INSERT\n2 B\n");
  AddBlock("B", slanted + "0 INSERT\n2 A\n");
  EXPECT_LT(10u, CountLines(DrawToThrow()));
  EXPECT_EQ(faultCode, thrown);
}

TEST_F(EndlessBlockTest, blocks_in_blocks_a_hundred_deep_are_drawn) {
  AddBlock("A", "0 INSERT\n2 B99\n" + slanted);
  for (int depth = 99; depth > 0; --depth)
    AddBlock("B" + std::to_string(depth), "0 INSERT\n2 B" + std::to_string(depth - 1) + "\n" + slanted);
  AddBlock("B0", slanted);
  EXPECT_EQ(101u, CountLines(DrawToThrow()));
  EXPECT_EQ(0, thrown);
}

}  // namespace
}  // namespace hexlume::block_dispatch_test
