// The walk over the block of a dimension.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "composite/block_dispatch.h"
#include "entities/block_level.h"
#include "platform/fault_guard.h"
#include "support/arc_strokes.h"
#include "support/block_walk.h"
#include "support/mtext_calls.h"
#include "support/shape_text.h"
#include "support/text_drawing.h"
#include "support/text_groups.h"

namespace hexlume::dim_block_dispatch_test {
namespace {

constexpr int32_t dimensionColor = 6;  // magenta

class DimBlockDispatchTest : public BlockWalkTest {
 protected:
  DimBlockDispatchTest() { wholeSheet = 1; }

  void Walk(int32_t bodyOffset, Canvas canvas) override {
    DrawDimBlock({RunOn(canvas), 1000.0, 2000.0, dimensionColor}, bodyOffset);
  }
};

// The header.

TEST_F(DimBlockDispatchTest, a_base_point_is_not_subtracted) {
  EXPECT_EQ(SlantedStroke(), Draw(slanted, "10 5\n20 -10\n30 0\n"));
}

TEST_F(DimBlockDispatchTest, an_entity_may_follow_the_blocks_name_at_once) {
  EXPECT_EQ(SlantedStroke(red), DrawText(LineOf("62 1\n" + Ends(0, 70, 20, 60)) + "0 ENDBLK\n"));
}

// The end.

TEST_F(DimBlockDispatchTest, endblk_ends_it) {
  EXPECT_EQ(SlantedStroke(), DrawText("70 0\n" + slanted + "0 ENDBLK\n" + slanted + "0 ENDBLK\n"));
  EXPECT_TRUE(AtGroup(0, "ENDBLK"));
}

TEST_F(DimBlockDispatchTest, endblk_may_follow_the_blocks_name_at_once) {
  EXPECT_EQ("", DrawText("0 ENDBLK\n0 BLOCK\n2 B\n70 0\n" + slanted + "0 ENDBLK\n"));
}

TEST_F(DimBlockDispatchTest, only_exactly_endblk_with_code_0_ends_it) {
  for (const char* other :
       {"1 ENDBLK\n", "0 EndBlk\n", "0 ENDBLK \n", "0 ENDBLKS\n", "0 ENDSEC\n", "0 EOF\n"})
    EXPECT_EQ(SlantedStroke(), Draw(other + slanted)) << other;
}

TEST_F(DimBlockDispatchTest, without_a_body_nothing_is_read) {
  AddBlock("A", slanted);
  OpenAt("0 CIRCLE\n");
  const int32_t place = Tell(stream);
  EXPECT_EQ("", ListCalls([this](Canvas canvas) { Walk(noBody, canvas); }));
  EXPECT_EQ(place, Tell(stream));
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

// The entities that it knows. Each one is at (40, 30) with the offset of (10, 20), and so at (5000, -5000) on
// the sheet. Of layer 0 all but a line and an insert take that layer's own colour, green.

const std::string place = "8 0\n10 40\n20 30\n";
// From 37 to 127 degrees: it starts at (cos, sin) * 1000 = (798.6, 601.8) from its centre.
const std::string arc = "0 ARC\n" + place + "40 10\n50 37\n51 127\n";
const std::string circle = "0 CIRCLE\n" + place + "40 10\n";
const std::string text = "0 TEXT\n" + place + "40 2\n1 12\n";
// In a width of 0: nothing hangs on the fonts that are there.
const std::string mtext = "0 MTEXT\n" + place + "40 2\n1 \\W0;12\n";
const std::string corners = "10 40\n20 30\n11 50\n21 30\n12 40\n22 40\n13 50\n23 40\n";

// In a font of its own with height 200, as no factor is on it.
std::string TextCalls(const std::string& color, int32_t height, int32_t width, const std::string& face) {
  return SelectCalls({height, width, 0, 0, 0, face}) + ColorCall(color) +
         "SetTextAlign(8)\nSetBkMode(TRANSPARENT)\n" + TextOutCall(5000, -5000, "12") + restoreCalls;
}

constexpr char gothic[] = "\xEF\xBC\xAD\xEF\xBC\xB3 \xE3\x82\xB4\xE3\x82\xB7\xE3\x83\x83\xE3\x82\xAF";

TEST_F(DimBlockDispatchTest, it_knows_text) {
  EXPECT_EQ(TextCalls("0x00FF00", 200, 0, gothic), Draw(text));
}

TEST_F(DimBlockDispatchTest, it_knows_mtext) {
  // 200 * 1.1 = 220 high.
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({220, 0, 3600, 0, 0, gothic}, 0, 5000, -5000, "12", "0x00FF00"),
            Draw(mtext));
}

TEST_F(DimBlockDispatchTest, it_knows_arc) {
  EXPECT_EQ(HeldArc(green, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -90)\n"), Draw(arc));
}

TEST_F(DimBlockDispatchTest, it_knows_circle) {
  EXPECT_EQ(InPen(green, "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -360)\n"), Draw(circle));
}

TEST_F(DimBlockDispatchTest, it_knows_line_and_gives_layer_0_that_of_the_dimension) {
  EXPECT_EQ(SlantedStroke(red), Draw(LineOf("8 0\n" + Ends(0, 70, 20, 60))));
}

TEST_F(DimBlockDispatchTest, it_knows_solid) {
  // The corners in zigzag: the last two change places.
  EXPECT_EQ(FilledQuad(green, "5000, -5000, 6000, -5000, 6000, -4000, 5000, -4000"),
            Draw("0 SOLID\n8 0\n" + corners));
}

TEST_F(DimBlockDispatchTest, it_knows_insert_and_gives_it_the_offset_and_the_dimensions_colour) {
  AddBlock("A", "0 INSERT\n2 B\n10 3\n20 4\n" + slanted);
  AddBlock("B", LineOf("8 0\n" + Ends(0, 70, 20, 60)));
  // The insert's origin: (300 + 1000, 400 + 2000).
  EXPECT_EQ(Stroke(magenta, 1300, -600, 3300, -1600) + SlantedStroke(), DrawFirst());
}

TEST_F(DimBlockDispatchTest, each_insert_starts_unscaled_and_unturned) {
  AddBlock("A", "0 INSERT\n2 EMPTY\n41 2\n42 3\n50 40\n0 INSERT\n2 B\n10 0\n20 0\n");
  AddBlock("B", slanted);
  AddBlock("EMPTY", "");
  state.insertScaleX = 7.0;
  state.insertScaleY = 8.0;
  state.insertAngle = 9.0;
  EXPECT_EQ(SlantedStroke(), DrawFirst());
  EXPECT_EQ(1.0, state.insertScaleX);
  EXPECT_EQ(1.0, state.insertScaleY);
  EXPECT_EQ(0.0, state.insertAngle);
}

TEST_F(DimBlockDispatchTest, scales_and_angle_are_left_as_the_last_insert_has_them) {
  AddBlock("A", "0 INSERT\n2 EMPTY\n41 2\n42 3\n50 180\n");
  AddBlock("EMPTY", "");
  EXPECT_EQ("", DrawFirst());
  EXPECT_EQ(2.0, state.insertScaleX);
  EXPECT_EQ(3.0, state.insertScaleY);
  EXPECT_DOUBLE_EQ(3.1415926535, state.insertAngle);
}

TEST_F(DimBlockDispatchTest, only_inserts_take_their_scale_and_angle) {
  state.insertScaleX = 7.0;
  state.insertScaleY = 8.0;
  state.insertAngle = 1.0;
  EXPECT_EQ(SlantedStroke(), Draw(slanted));
  EXPECT_EQ(7.0, state.insertScaleX);
}

TEST_F(DimBlockDispatchTest, entities_are_drawn_in_the_order_of_the_file) {
  EXPECT_EQ(SlantedStroke() +
                HeldArc(green, "MoveToEx(5798, -4399)\nAngleArc(5000, -5000, 1000, -37, -90)\n") +
                TextCalls("0x00FF00", 200, 0, gothic) + SlantedStroke(),
            Draw(slanted + arc + text + slanted));
}

TEST_F(DimBlockDispatchTest, all_other_entities_are_passed_over) {
  AddBlock("*D1", slanted);
  const std::string others = blocks;
  for (const char* name : {"POINT", "POLYLINE", "LWPOLYLINE", "ELLIPSE", "SPLINE", "TRACE", "HATCH",
                           "DIMENSION", "LEADER", "TOLERANCE", "ATTRIB", "3DFACE"}) {
    blocks = others;
    AddBlock("A", "0 " + std::string(name) + "\n8 0\n2 *D1\n1 TEXT\n40 5\n" + corners + slanted);
    EXPECT_EQ(SlantedStroke(), DrawFirst()) << name;
  }
}

TEST_F(DimBlockDispatchTest, the_vertices_of_a_polyline_are_passed_over) {
  EXPECT_EQ(SlantedStroke(),
            Draw("0 POLYLINE\n66 1\n0 VERTEX\n10 1\n20 2\n0 VERTEX\n10 3\n20 4\n0 SEQEND\n" + slanted));
}

TEST_F(DimBlockDispatchTest, a_name_is_known_by_its_exact_spelling) {
  for (const char* name : {"Line", "line", "LINE ", " LINE", "LINES", "XLINE", "MLINE", "INSERTS", "SOLIDS"})
    EXPECT_EQ("", Draw("0 " + std::string(name) + "\n2 A\n" + Ends(0, 70, 20, 60))) << name;
}

TEST_F(DimBlockDispatchTest, a_name_counts_with_code_0_alone) {
  EXPECT_EQ("", Draw("1 LINE\n" + Ends(0, 70, 20, 60)));
}

TEST_F(DimBlockDispatchTest, behind_an_entity_on_an_excluded_layer_the_next_one_is_drawn) {
  ExcludeLayer("DOORS");
  for (const char* name : {"LINE", "TEXT", "MTEXT", "ARC", "CIRCLE", "SOLID"})
    EXPECT_EQ(SlantedStroke(), Draw("0 " + std::string(name) + "\n8 DOORS\n1 12\n40 5\n" + corners + slanted))
        << name;
}

// What is handed down.

TEST_F(DimBlockDispatchTest, an_arc_is_given_the_whole_sheet) {
  // From 270 to 90 degrees. Where the sheet isn't whole a cap of 500 of 1000.0001 is cut off, as an arc has
  // that much more: acos(500.0001 / 1000.0001) is 59.9999967, and 30.0000033 are left before the cap.
  const std::string half = "0 ARC\n" + place + "40 10\n50 270\n51 90\n";
  view = {0, 0, 5500, 10000};
  EXPECT_EQ(HeldArc(green, "MoveToEx(5000, -6000)\nAngleArc(5000, -5000, 1000, -270, -180)\n"), Draw(half));
  wholeSheet = 0;
  EXPECT_EQ(HeldArc(green, "MoveToEx(5000, -6000)\nAngleArc(5000, -5000, 1000, -270, -30.0000038)\n"),
            Draw(half));
}

TEST_F(DimBlockDispatchTest, inserts_are_given_the_whole_sheet) {
  AddBlock("A", "0 INSERT\n2 B\n10 0\n20 0\n");
  AddBlock("B", slanted);
  const std::string both = blocks;
  view = {1500, 0, 2500, 10000};
  EXPECT_EQ(Stroke(black, 1500, -1000, 2500, -2000), DrawFirst());
  blocks = both;
  wholeSheet = 0;
  EXPECT_EQ("", DrawFirst());
}

TEST_F(DimBlockDispatchTest, texts_are_given_the_half_width_font) {
  halfWidthFont = 1;
  // 200 * 1.1 = 220 high and half as wide.
  EXPECT_EQ(TextCalls("0x00FF00", 220, 110, ""), Draw(text));
  EXPECT_EQ(AlignCall(8) + ParagraphCalls({220, 110}, 0, 5000, -5000, "12", "0x00FF00"), Draw(mtext));
}

TEST_F(DimBlockDispatchTest, a_block_within_an_inserted_one_is_given_the_half_width_font) {
  halfWidthFont = 1;
  AddBlock("A", "0 INSERT\n2 B\n10 0\n20 0\n");
  AddBlock("B", "0 INSERT\n2 C\n10 0\n20 0\n");
  AddBlock("C", "0 TEXT\n8 0\n10 40\n20 30\n40 2\n1 \x90\x7D\n");
  // Of Japanese characters: 220 / 1.3 = 169.2 high and half as wide. Layer 0 is that of the dimension.
  EXPECT_EQ(SelectCalls({169, 84, 0}) + ColorCall("0x0000FF") + "SetTextAlign(8)\nSetBkMode(TRANSPARENT)\n" +
                TextOutCall(5000, -5000, "\xE5\x9B\xB3") + restoreCalls,
            DrawFirst());
}

TEST_F(DimBlockDispatchTest, texts_are_told_that_they_must_be_whole) {
  // They are 5000 below the sheet's top and reach up to 4800 and 4780.
  view = {0, 4850, 20000, 10000};
  const std::string alignCalls = AlignCall(8) + AlignCall(8);
  EXPECT_EQ(TextCalls("0x00FF00", 200, 0, gothic), Draw(text));
  EXPECT_EQ(alignCalls + ParagraphCalls({220, 0, 3600, 0, 0, gothic}, 0, 5000, -5000, "12", "0x00FF00"),
            Draw(mtext + "71 7\n"));
  wholeTextClip = 2;
  EXPECT_EQ("", Draw(text));
  EXPECT_EQ(alignCalls, Draw(mtext + "71 7\n"));
}

TEST_F(DimBlockDispatchTest, texts_of_an_inserted_block_are_told_that_they_must_be_whole) {
  AddBlock("A", "0 INSERT\n2 B\n10 0\n20 0\n");
  AddBlock("B", text);
  const std::string both = blocks;
  view = {0, 4850, 20000, 10000};
  EXPECT_EQ(TextCalls("0x0000FF", 220, 110, ""), DrawFirst());
  blocks = both;
  wholeTextClip = 2;
  EXPECT_EQ("", DrawFirst());
}

TEST_F(DimBlockDispatchTest, each_entity_is_cut_to_the_view) {
  view = {0, 0, 5500, 10000};
  EXPECT_EQ(InPen(green, "MoveToEx(5500, -4134)\nAngleArc(5000, -5000, 1000, -60, -240)\n"), Draw(circle));
  EXPECT_EQ(Stroke(black, 1000, -5000, 5500, -5000), Draw(LineOf(Ends(0, 30, 90, 30))));
  EXPECT_EQ("", Draw("0 SOLID\n" + corners));
  view = {0, 0, 4999, 10000};
  EXPECT_EQ("", Draw(text));
  EXPECT_EQ(AlignCall(8), Draw(mtext));
}

// A file that ends in the block.

TEST_F(DimBlockDispatchTest, at_the_end_of_the_file_an_entity_is_drawn_with_what_it_has) {
  stream = StreamOf("0 BLOCK\n2 A\n" + baseAtZero + slanted);
  ReadBlocks(stream);
  EXPECT_EQ(SlantedStroke(), ListCalls([this](Canvas canvas) { Walk(BodyOf("A"), canvas); }));
}

TEST_F(DimBlockDispatchTest, a_file_may_end_behind_any_byte_of_a_block) {
  AddBlock("B", slanted);
  blocks += "0 BLOCK\n2 A\n";
  const std::string body = "70 0\n10 0\n20 0\n3 A\n" + slanted + arc + circle + text + mtext + "0 SOLID\n" +
                           corners + "0 INSERT\n2 B\n10 1\n20 2\n41 3\n42 4\n50 5\n62 6\n0 ENDBLK\n";
  const std::string bytes = DrawingBytes(blocks + body);
  for (size_t end = DrawingBytes(blocks).size(); end <= bytes.size(); ++end) {
    stream = StreamOfBytes(bytes.substr(0, end));
    ReadBlocks(stream);
    ListCalls([this](Canvas canvas) { WalkToThrow(canvas); });
    EXPECT_EQ(0, ReadGroup(stream)) << end;
    EXPECT_EQ(0, thrown) << end;
  }
}

// Walks without an end.

TEST_F(DimBlockDispatchTest, a_dimensions_block_is_never_too_long) {
  AddBlock("A", slanted + "0 HATCH\n2 SOLID\n10 1\n20 2\n" + slanted);
  state.nestedBytes = nestedByteLimit;
  EXPECT_EQ(SlantedStroke() + SlantedStroke(), DrawToThrow());
  EXPECT_EQ(0, thrown);
  EXPECT_EQ(nestedByteLimit, state.nestedBytes);
}

TEST_F(DimBlockDispatchTest, what_blocks_within_it_read_is_counted) {
  AddBlock("A", slanted + "0 INSERT\n2 B\n10 0\n20 0\n" + slanted);
  AddBlock("B", slanted);
  // After the name of B: 5 + 15 + 4 + 3 bytes of groups 70, 10 to 30, 3 and 1, 7 + 51 of the line and 9 of
  // ENDBLK, with 50 more for the line and for ENDBLK.
  constexpr int64_t count = 27 + 58 + 9 + 2 * 50;
  state.nestedBytes = nestedByteLimit - count;
  EXPECT_EQ(3u, CountLines(DrawToThrow()));
  EXPECT_EQ(0, thrown);
  EXPECT_EQ(nestedByteLimit, state.nestedBytes);
  state.nestedBytes = nestedByteLimit - count + 1;
  EXPECT_EQ(2u, CountLines(DrawToThrow()));
  EXPECT_EQ(faultCode, thrown);
  EXPECT_EQ(0, state.blockLevel);
}

TEST_F(DimBlockDispatchTest, a_block_that_inserts_itself_ends_once_it_has_no_scope_left_of_its_own) {
  // Played back three times: as the dimension's block, as one inserted there, and as one inserted there in
  // turn, from where on it is inside itself.
  AddBlock("A", slanted + "0 INSERT\n2 A\n10 0\n20 -10\n");
  const std::string strokes = DrawToThrow();
  EXPECT_EQ(faultCode, thrown);
  EXPECT_EQ(0u, strokes.find(SlantedStroke() + Stroke(black, 1000, -2000, 3000, -3000) +
                             Stroke(black, 1000, -3000, 3000, -4000)));
}

TEST_F(DimBlockDispatchTest, an_insert_without_room_on_the_stack_is_a_fault) {
  AddBlock("A", slanted + "0 INSERT\n2 B\n" + slanted);
  AddBlock("B", slanted);
  OpenAt("0 CIRCLE\n");
  EXPECT_EQ(SlantedStroke(),
            ListCalls([this](Canvas canvas) { RunWithoutStackRoom([&] { WalkToThrow(canvas); }); }));
  EXPECT_EQ(faultCode, thrown);
}

}  // namespace
}  // namespace hexlume::dim_block_dispatch_test
