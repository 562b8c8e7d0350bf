// POLYLINE in a block.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>

#include "driver/group_reader.h"
#include "entities/polyline.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_drawing.h"
#include "support/text_groups.h"

namespace hexlume::block_polyline_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta
constexpr double dashes[6] = {300, -200, 0, -100, 50, -50};

class BlockPolylineTest : public ConverterTest {
 protected:
  BlockPolylineTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {0, 0, 7}, 1);
    AddLayer("DOORS", {}, 5);
    AddLayer("DASHES", {1, 4, 7}, 5);
    SetInsertLayer("WALLS");
  }

  // The listing of one polyline with these header groups and vertices.
  std::string Draw(const std::string& header, const std::string& vertices) {
    return DrawText("0 POLYLINE\n" + header + vertices + "0 SEQEND\n");
  }

  std::string DrawText(const std::string& text) { return DrawStream(StreamOf(text)); }

  std::string DrawStream(TextStream&& source) {
    stream = std::move(source);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawBlockPolyline({RunOn(canvas), blockOriginX, blockOriginY, insertColor, byBlockFlag});
    });
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
  int32_t byBlockFlag = 0;
};

std::string Vertex(double x, double y) {
  return "0 VERTEX\n10 " + std::to_string(x) + "\n20 " + std::to_string(y) + "\n";
}
std::string Vertex(double x, double y, double bulge) {
  return Vertex(x, y) + "42 " + std::to_string(bulge) + "\n";
}

// The move to the first vertex.
std::string Start(int32_t x, int32_t y) {
  return "MoveToEx(" + std::to_string(x) + ", " + std::to_string(y) + ")\n";
}

std::string DashedLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t count = 2,
                       COLORREF color = black) {
  return ListCalls(
      [=](Canvas canvas) { DashLine(canvas, x1, y1, x2, y2, 10000, 5000, 0, color, dashes, count, 0); });
}

// From (1000, -1000) down to (2000, -2000) and on to (4000, -2000).
const std::string corner = Vertex(10, 90) + Vertex(20, 80) + Vertex(40, 80);

std::string CornerStrokes(COLORREF color) {
  return Start(1000, -1000) + Stroke(color, 1000, -1000, 2000, -2000) +
         Stroke(color, 2000, -2000, 4000, -2000);
}

// From (1000, -1000) to (1700, -1000).
const std::string level = Vertex(10, 90) + Vertex(17, 90);

std::string LevelStroke(COLORREF color) {
  return Start(1000, -1000) + Stroke(color, 1000, -1000, 1700, -1000);
}

// The vertices.

TEST_F(BlockPolylineTest, its_vertices_are_joined_in_the_order_of_the_file) {
  EXPECT_EQ(CornerStrokes(black), Draw("", corner));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "SEQEND"));
}

TEST_F(BlockPolylineTest, its_vertices_are_scaled_and_moved_to_the_blocks_origin) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // X: 10 * 200 + 500 = 2500 and 20 * 200 + 500 = 4500; Y: 20 * 300 + 1000 = 7000.
  EXPECT_EQ(Start(2500, -3000) + Stroke(black, 2500, -3000, 4500, -3000),
            Draw("", Vertex(10, 20) + Vertex(20, 20)));
}

TEST_F(BlockPolylineTest, its_vertices_are_turned_about_the_blocks_origin) {
  blockOriginX = 5000.0;
  blockOriginY = 1000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = -0.5;
  // (2000, 0) and (2000, -1000) from the origin become (0, 2000) and (1000, 2000).
  EXPECT_EQ(Start(5000, -7000) + Stroke(black, 5000, -7000, 6000, -7000),
            Draw("", Vertex(20, 0) + Vertex(20, -10)));
}

TEST_F(BlockPolylineTest, the_turned_vertex_is_kept_in_block_x_and_block_y) {
  blockOriginX = 5000.0;
  blockOriginY = 1000.0;
  state.insertAngle = halfPi;
  Draw("", Vertex(0, 0) + Vertex(20, -10));
  EXPECT_NEAR(6000.0, state.blockX[0], 1e-6);
  EXPECT_NEAR(3000.0, state.blockY[0], 1e-6);
  EXPECT_EQ(0.0, state.entX[0]);
  EXPECT_EQ(0.0, state.dimX[0]);
}

TEST_F(BlockPolylineTest, a_coordinate_that_a_vertex_lacks_is_turned_once_more) {
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = -0.5;
  blockOriginX = 5000.0;
  blockOriginY = 5000.0;
  // (1000, -500) from the origin becomes (500, 1000). With a Y of 500 in place of that 1000, (500, 500)
  // becomes (-500, 500).
  EXPECT_EQ(Start(5500, -4000) + Stroke(black, 4500, -4500, 5500, -4000),
            Draw("", Vertex(10, -5) + "0 VERTEX\n20 5\n"));
}

TEST_F(BlockPolylineTest, the_first_vertex_takes_what_it_lacks_from_the_entity_before) {
  state.blockX[0] = 1000.0;
  state.blockY[0] = 9000.0;
  EXPECT_EQ(LevelStroke(black), Draw("10 50\n20 50\n42 1\n", "0 VERTEX\n" + Vertex(17, 90)));
}

TEST_F(BlockPolylineTest, without_a_vertex_nothing_is_drawn) {
  EXPECT_EQ("", Draw("70 1\n", ""));
  EXPECT_TRUE(AtGroup(0, "SEQEND"));
}

TEST_F(BlockPolylineTest, a_vertex_has_neither_line_type_nor_layer_nor_colour_nor_flags) {
  DefineLtype(4, {300, -200});
  ExcludeLayer("HIDDEN");
  const std::string own = "6 HIDDEN\n8 DOORS\n8 HIDDEN\n39 500\n62 1\n70 1\n40 3\n41 3\n30 7\n";
  EXPECT_EQ(CornerStrokes(black),
            Draw("", Vertex(10, 90) + own + Vertex(20, 80) + own + Vertex(40, 80) + own));
}

// Group 6.

TEST_F(BlockPolylineTest, code_6_takes_whole_names_in_any_case_with_a_record) {
  DefineLtype(2, {300, -200});
  const std::string dashed = Start(1000, -1000) + DashedLine(1000, -1000, 1700, -1000);
  EXPECT_EQ(dashed, Draw("6 DASHED\n", level));
  EXPECT_EQ(dashed, Draw("6 Dashed\n", level));
  EXPECT_EQ(LevelStroke(black), Draw("6 MY_DASHED_LINE\n", level));
  EXPECT_EQ(LevelStroke(black), Draw("6 HIDDEN\n", level));
}

TEST_F(BlockPolylineTest, a_name_other_than_continuous_in_any_case_clears_the_layers_family) {
  DefineLtype(4, {300, -200});
  const std::string dashed = Start(1000, -1000) + DashedLine(1000, -1000, 1700, -1000, 2, blue);
  EXPECT_EQ(dashed, Draw("8 DASHES\n6 CONTINUOUS\n", level));
  EXPECT_EQ(dashed, Draw("8 DASHES\n6 Continuous\n", level));
  EXPECT_EQ(LevelStroke(blue), Draw("8 DASHES\n6 CONTINUOS\n", level));
  EXPECT_EQ(LevelStroke(blue), Draw("8 DASHES\n6 BYLAYER\n", level));
}

TEST_F(BlockPolylineTest, by_block_lets_colour_0_keep_the_layers_colour) {
  EXPECT_EQ(CornerStrokes(blue), Draw("8 DOORS\n6 BYBLOCK\n62 0\n", corner));
  EXPECT_EQ(CornerStrokes(blue), Draw("8 DOORS\n6 ByBlock\n62 0\n", corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 DOORS\n6 byblock\n62 0\n", corner));
}

// Group 8.

TEST_F(BlockPolylineTest, layer_0_takes_the_inserts_colour_and_its_layers_line_type) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(CornerStrokes(magenta), Draw("8 0\n", corner));
  SetInsertLayer("DASHES");
  EXPECT_EQ(Start(1000, -1000) + DashedLine(1000, -1000, 1700, -1000, 2, magenta), Draw("8 0\n", level));
}

TEST_F(BlockPolylineTest, layer_0_of_an_insert_on_an_unknown_layer_is_nearly_black) {
  SetInsertLayer("GONE");
  EXPECT_EQ(CornerStrokes(countColor), Draw("8 0\n", corner));
}

TEST_F(BlockPolylineTest, another_layer_gives_its_own_colour_and_no_width) {
  EXPECT_EQ(CornerStrokes(red), Draw("39 900\n8 WALLS\n39 900\n", corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 GONE\n", corner));
}

TEST_F(BlockPolylineTest, an_excluded_layer_ends_it_at_its_group_8) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("8 DOORS\n62 1\n", corner));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n", corner));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

// Group 62.

TEST_F(BlockPolylineTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(CornerStrokes(green), Draw("8 DOORS\n62 3\n", corner));
  EXPECT_EQ(CornerStrokes(cyan), Draw("8 0\n62 130\n", corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 DOORS\n62 256\n", corner));
  EXPECT_EQ(CornerStrokes(countColor), Draw("62 -1\n", corner));
}

TEST_F(BlockPolylineTest, colour_0_is_black_without_the_inherit_flag) {
  EXPECT_EQ(CornerStrokes(black), Draw("8 DOORS\n62 0\n", corner));
  EXPECT_EQ(CornerStrokes(magenta), Draw("8 0\n62 0\n", corner));
}

TEST_F(BlockPolylineTest, on_an_insert_of_layer_0_colour_0_takes_the_inserts_colour_with_the_flag_alone) {
  SetInsertLayer("0");
  EXPECT_EQ(CornerStrokes(magenta), Draw("8 DOORS\n6 BYBLOCK\n62 0\n", corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 DOORS\n62 0\n", corner));
}

TEST_F(BlockPolylineTest, the_by_block_flag_is_not_read) {
  byBlockFlag = 1;
  EXPECT_EQ(CornerStrokes(black), Draw("8 DOORS\n62 0\n", corner));
  EXPECT_EQ(CornerStrokes(blue), Draw("8 DOORS\n", corner));
}

TEST_F(BlockPolylineTest, the_colour_is_kept_in_block_color_and_starts_at_0) {
  state.entColor = 4;
  state.dimColor = 4;
  Draw("62 1\n", corner);
  EXPECT_EQ(1, state.blockColor);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(CornerStrokes(black), Draw("", corner));
}

// Filter and monochrome.

TEST_F(BlockPolylineTest, an_excluded_family_is_not_drawn) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n", level));
  EXPECT_TRUE(AtGroup(0, "VERTEX"));
  EXPECT_EQ(LevelStroke(black), Draw("6 HIDDEN\n6 BYLAYER\n", level));
}

TEST_F(BlockPolylineTest, with_monochrome_on_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(CornerStrokes(black), Draw("8 0\n", corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 DOORS\n62 3\n", corner));
}

// Closing.

TEST_F(BlockPolylineTest, flag_1_closes_it) {
  // Back from (4000, -2000) to (1000, -1000), drawn from the left.
  EXPECT_EQ(CornerStrokes(black) + Stroke(black, 1000, -1000, 4000, -2000), Draw("70 129\n", corner));
  EXPECT_EQ(CornerStrokes(black), Draw("70 -2\n", corner));
}

TEST_F(BlockPolylineTest, closed_with_one_vertex_it_has_a_line_without_length) {
  EXPECT_EQ(Start(1000, -1000) + Stroke(black, 1000, -1000, 1000, -1000), Draw("70 1\n", Vertex(10, 90)));
}

// The view: (1000, -1000) to (3000, -3000) in canvas coordinates.

class BlockPolylineViewTest : public BlockPolylineTest {
 protected:
  BlockPolylineViewTest() { view = {1000, 1000, 3000, 3000}; }
};

TEST_F(BlockPolylineViewTest, behind_a_line_beyond_one_edge_the_next_starts_at_the_last_accepted_vertex) {
  // Back from (500, -2000) to (2500, -3000), m = -0.5, b = -1750; at 1000: -2250.
  EXPECT_EQ(
      Start(2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000) + Stroke(black, 1000, -2250, 2500, -3000),
      Draw("", Vertex(20, 80) + Vertex(5, 80) + Vertex(6, 85) + Vertex(25, 70)));
}

TEST_F(BlockPolylineViewTest, level_and_upright_lines_are_clamped_and_keep_their_direction) {
  EXPECT_EQ(Start(9500, -2000) + Stroke(black, 3000, -2000, 1000, -2000),
            Draw("", Vertex(95, 80) + Vertex(5, 80)));
  EXPECT_EQ(Start(2000, -9500) + Stroke(black, 2000, -3000, 2000, -1000),
            Draw("", Vertex(20, 5) + Vertex(20, 99)));
}

TEST_F(BlockPolylineViewTest, a_slanted_line_is_cut_at_each_edge_and_drawn_from_the_left) {
  // m = -0.5, b = -1000; at 1000: -1500, at 3000: -2500.
  EXPECT_EQ(Start(4000, -3000) + Stroke(black, 1000, -1500, 3000, -2500),
            Draw("", Vertex(40, 70) + Vertex(0, 90)));
  // m = 2, b = -4000; -1000 is at 1500.
  EXPECT_EQ(Start(1750, -500) + Stroke(black, 1250, -1500, 1500, -1000),
            Draw("", Vertex(17.5, 95) + Vertex(12.5, 85)));
  // m = -2, b = 0; -3000 is at 1500.
  EXPECT_EQ(Start(1750, -3500) + Stroke(black, 1250, -2500, 1500, -3000),
            Draw("", Vertex(17.5, 65) + Vertex(12.5, 75)));
}

TEST_F(BlockPolylineViewTest, the_closing_line_starts_at_the_last_accepted_vertex) {
  EXPECT_EQ(
      Start(2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000) + Stroke(black, 1000, -2000, 2000, -2000),
      Draw("70 1\n", Vertex(20, 80) + Vertex(5, 80) + Vertex(6, 85)));
}

TEST_F(BlockPolylineViewTest, a_closing_line_beyond_one_edge_is_dropped) {
  EXPECT_EQ(
      Start(500, -2000) + Stroke(black, 1000, -2000, 2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000),
      Draw("70 1\n", Vertex(5, 80) + Vertex(20, 80) + Vertex(6, 80)));
}

TEST_F(BlockPolylineTest, behind_a_slanted_line_of_which_nothing_is_left_the_next_starts_at_its_end) {
  view = {0, 0, 1000, 1000};
  // It passes the left edge at -1200, below the view.
  EXPECT_EQ(Start(-1000, -3200) + Stroke(black, 500, -200, 800, -200),
            Draw("", Vertex(-10, 68) + Vertex(5, 98) + Vertex(8, 98)));
}

TEST_F(BlockPolylineTest, a_single_coordinate_of_minus_1_drops_a_slanted_line) {
  EXPECT_EQ(Start(1000, -1001) + Stroke(black, 2000, -1, 3000, -1),
            Draw("", Vertex(10, 89.99) + Vertex(20, 99.99) + Vertex(30, 99.99)));
}

// Dashes.

TEST_F(BlockPolylineTest, families_walk_two_two_four_and_six_elements) {
  for (const int32_t slot : {0, 1, 5, 9}) DefineLtype(slot, {300, -200, 0, -100, 50, -50});
  const std::string longLine = Vertex(10, 90) + Vertex(40, 90);
  const auto dashed = [](int32_t count) {
    return Start(1000, -1000) + DashedLine(1000, -1000, 4000, -1000, count);
  };
  EXPECT_EQ(dashed(2), Draw("6 DASH\n", longLine));
  EXPECT_EQ(dashed(2), Draw("6 DOT\n", longLine));
  EXPECT_EQ(dashed(4), Draw("6 DASHDOT\n", longLine));
  EXPECT_EQ(dashed(6), Draw("6 DASHDOTDOT\n", longLine));
}

TEST_F(BlockPolylineTest, the_pattern_restarts_at_each_vertex) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(Start(1000, -1000) + DashedLine(1000, -1000, 1450, -1000) + DashedLine(1450, -1000, 2000, -1000),
            Draw("6 HIDDEN\n", Vertex(10, 90) + Vertex(14.5, 90) + Vertex(20, 90)));
}

// Arcs. Half a unit of shift keeps what the last digits of a centre lack away from the sheet.

class BlockPolylineArcTest : public BlockPolylineTest {
 protected:
  BlockPolylineArcTest() {
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }
};

// The half circle from (1000, -5000) to (3000, -5000): its start is left of the centre, at 180 degrees.
const std::string halfCircle = Vertex(10, 50, 1) + Vertex(30, 50);
const std::string halfCircleUp = Vertex(10, 50, -1) + Vertex(30, 50);
const char below[] = "MoveToEx(1000, -5000)\nAngleArc(2000, -5000, 1000, 180, -180)\n";
const char above[] = "MoveToEx(1000, -5000)\nAngleArc(2000, -5000, 1000, 180, 180)\n";

TEST_F(BlockPolylineArcTest, a_positive_bulge_runs_counterclockwise_and_a_negative_one_clockwise) {
  EXPECT_EQ(Start(1000, -5000) + InPen(magenta, below), Draw("8 0\n", halfCircle));
  EXPECT_EQ(Start(1000, -5000) + InPen(magenta, above), Draw("8 0\n", halfCircleUp));
}

TEST_F(BlockPolylineArcTest, its_circle_is_kept_in_the_block_fields) {
  Draw("", halfCircle);
  EXPECT_EQ(1000.0, state.blockRadius);
  EXPECT_NEAR(2000.0, state.blockCentreX, 1e-6);
  EXPECT_NEAR(5000.0, state.blockCentreY, 1e-6);
  EXPECT_EQ(0.0, state.entRadius);
  EXPECT_EQ(0.0, state.dimRadius);
}

TEST_F(BlockPolylineArcTest, dashed_arcs_start_at_their_angle_or_at_the_negated_one) {
  DefineLtype(1, {300, -200, 0, -100, 50, -50});
  const auto dashed = [](double startAngle) {
    return Start(1000, -5000) + ListCalls([=](Canvas canvas) {
             DashArc(canvas, 2000, -5000, 1000, startAngle, -180.0, 10000, 5000, black, dashes, 2, 0);
           });
  };
  EXPECT_EQ(dashed(180.0), Draw("6 DASH\n", halfCircle));
  EXPECT_EQ(dashed(-540.0), Draw("6 DASH\n", halfCircleUp));
}

TEST_F(BlockPolylineArcTest, an_arc_is_scaled_and_turned_with_its_vertices) {
  blockOriginX = 2000.0;
  blockOriginY = 3000.0;
  state.insertScaleX = 0.5;
  state.insertScaleY = 0.5;
  state.insertAngle = halfPi;
  // From the origin (1000, 0) and (3000, 0) are turned to (0, 1000) and (0, 3000): up from (2000, -6000) to
  // (2000, -4000), on the right. The start is below the centre, at 90 degrees.
  EXPECT_EQ(
      Start(2000, -6000) + InPen(black, "MoveToEx(2000, -6000)\nAngleArc(2000, -5000, 1000, 90, -180)\n"),
      Draw("", Vertex(20, 0, 1) + Vertex(60, 0)));
}

TEST_F(BlockPolylineArcTest, a_negative_x_scale_mirrors_the_vertices_and_not_the_arcs_sense) {
  blockOriginX = 4000.0;
  state.insertScaleX = -1.0;
  // The vertices go up from (3000, -6000) to (3000, -4000), and the arc is on their right as in the block
  // itself.
  EXPECT_EQ(
      Start(3000, -6000) + InPen(black, "MoveToEx(3000, -6000)\nAngleArc(3000, -5000, 1000, 90, -180)\n"),
      Draw("", Vertex(10, 40, 1) + Vertex(10, 60)));
}

TEST_F(BlockPolylineArcTest, behind_an_arc_a_bulge_of_0_or_none_starts_a_line) {
  const std::string lines =
      Start(1000, -5000) + InPen(black, below) + Stroke(black, 3000, -5000, 3000, -2000);
  EXPECT_EQ(lines, Draw("", halfCircle + Vertex(30, 80)));
  EXPECT_EQ(lines, Draw("", halfCircle + "42 0\n" + Vertex(30, 80)));
}

TEST_F(BlockPolylineArcTest, arcs_follow_each_other) {
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below) +
                InPen(black, "MoveToEx(3000, -5000)\nAngleArc(4000, -5000, 1000, 180, 180)\n"),
            Draw("", Vertex(10, 50, 1) + Vertex(30, 50, -1) + Vertex(50, 50)));
}

TEST_F(BlockPolylineArcTest, the_last_bulge_of_an_open_polyline_is_never_used) {
  EXPECT_EQ(LevelStroke(black), Draw("", Vertex(10, 90) + Vertex(17, 90, 1)));
}

TEST_F(BlockPolylineArcTest, a_closed_polyline_with_a_bulge_on_its_last_vertex_ends_with_an_arc) {
  EXPECT_EQ(Start(2000, -5000) + Stroke(black, 2000, -5000, 2000, -3000) +
                InPen(black, "MoveToEx(2000, -3000)\nAngleArc(2000, -4000, 1000, 270, -180)\n"),
            Draw("70 1\n", Vertex(20, 50) + Vertex(20, 70, 1)));
  EXPECT_EQ(2000.0, state.blockX[0]);
  EXPECT_EQ(5000.0, state.blockY[0]);
  EXPECT_EQ(Start(3000, -5000) + Stroke(black, 3000, -5000, 1000, -5000) + InPen(black, below),
            Draw("70 1\n", Vertex(30, 50) + Vertex(10, 50, 1)));
}

TEST_F(BlockPolylineArcTest, the_closing_arc_ends_at_the_first_vertex_as_it_lies_turned) {
  blockOriginX = 2000.0;
  blockOriginY = 3000.0;
  state.insertAngle = halfPi;
  // The first vertex is turned from (4000, 3000) to (2000, 5000) and the second from (4000, 5000) to (0,
  // 5000). The arc from (0, -5000), left of its centre, runs below to (2000, -5000).
  EXPECT_EQ(Start(2000, -5000) + Stroke(black, 2000, -5000, 0, -5000) +
                InPen(black, "MoveToEx(0, -5000)\nAngleArc(1000, -5000, 1000, 180, -180)\n"),
            Draw("70 1\n", Vertex(20, 0) + Vertex(20, 20, 1)));
}

TEST_F(BlockPolylineArcTest, an_arc_whose_circle_sticks_out_of_the_view_is_dropped_and_the_walk_goes_on) {
  const std::string line = Stroke(black, 3000, -5000, 2000, -5000);
  const std::string vertices = halfCircle + Vertex(20, 50);
  view = {1000, 4000, 3000, 6000};
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below) + line, Draw("", vertices));
  view = {1001, 4000, 3000, 6000};
  EXPECT_EQ(Start(1000, -5000) + line, Draw("", vertices));
  view = {1000, 4000, 3000, 5999};
  EXPECT_EQ(Start(1000, -5000) + line, Draw("", vertices));
}

TEST_F(BlockPolylineArcTest, a_bulge_on_a_rejected_vertex_survives_to_the_next_one_without) {
  view = {1000, 1000, 3000, 3000};
  EXPECT_EQ(Start(2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000) +
                Stroke(black, 1000, -2000, 1200, -2000) +
                InPen(black, "MoveToEx(1200, -2000)\nAngleArc(1700, -2000, 500, 180, -180)\n"),
            Draw("", Vertex(20, 80) + Vertex(5, 80) + Vertex(6, 85, 1) + Vertex(12, 80) + Vertex(22, 80)));
}

TEST_F(BlockPolylineArcTest, an_arc_between_equal_vertices_has_no_radius) {
  EXPECT_EQ(Start(2000, -5000) + InPen(black, "MoveToEx(2000, -5000)\nAngleArc(2000, -5000, 0, 270, 180)\n"),
            Draw("", Vertex(20, 50, -1) + Vertex(20, 50)));
}

TEST_F(BlockPolylineArcTest, where_arcs_run_clockwise_the_system_draws_them_with_the_family_as_pen_style) {
  state.arcClockwise = 1;
  DefineLtypes({5});
  const std::string pen = "CreatePen(1, PS_DASHDOT, 0, 0xFF00FF)\nSelectObject(1)\n";
  const std::string end = "SelectObject(BLACK_PEN)\nDeleteObject(1)\n";
  // The record's box is smaller by one at the right and the top.
  EXPECT_EQ(Start(1000, -5000) + pen + "Arc(1000, -6001, 3000, -4001, 1000, -5000, 3000, -5000)\n" + end,
            Draw("8 0\n6 dashdot\n", halfCircle));
  EXPECT_EQ(Start(1000, -5000) + pen + "Arc(1000, -6001, 3000, -4001, 3000, -5000, 1000, -5000)\n" + end,
            Draw("8 0\n6 dashdot\n", halfCircleUp));
}

// The turned sheet.

TEST_F(BlockPolylineArcTest, on_a_turned_sheet_lines_and_arcs_are_turned) {
  state.rotated = 1;
  EXPECT_EQ(Start(1000, -5000) +
                InPen(black, "MoveToEx(19000, -5000)\nAngleArc(18000, -5000, 1000, 360, -180)\n") +
                Stroke(black, 15000, -5000, 17000, -5000),
            Draw("", halfCircle + Vertex(50, 50)));
}

// Bad input.

TEST_F(BlockPolylineTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(CornerStrokes(black), DrawText("0 POLYLINE\n" + corner));
  EXPECT_EQ(0, result);
  EXPECT_EQ(LevelStroke(black), DrawText("0 POLYLINE\n" + Vertex(10, 90) + "0 VERTEX\n10 17\n"));
  EXPECT_EQ("", DrawText("0 POLYLINE\n70 1\n"));
}

TEST_F(BlockPolylineTest, cut_off_anywhere_it_ends) {
  const std::string bytes =
      DrawingBytes("0 POLYLINE\n8 WALLS\n70 1\n" + level + Vertex(20, 50, 1) + Vertex(30, 50, -0.5));
  for (size_t size = 0; size <= bytes.size(); ++size) {
    TextStream cut;
    cut.complete = true;
    cut.bytes.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    DrawStream(std::move(cut));
    EXPECT_EQ(0, ReadGroup(stream)) << size;
  }
}

TEST_F(BlockPolylineTest, absurd_scales_and_origins_count_as_the_smallest_coordinate) {
  state.insertScaleX = 1e300;
  EXPECT_EQ(Start(INT32_MIN, -1000), Draw("", level));
  state.insertScaleX = 1.0;
  blockOriginY = -1e300;
  EXPECT_EQ(Start(1000, INT32_MIN), Draw("", level));
  blockOriginX = blockOriginY = 1e300;
  state.insertAngle = 1e300;
  state.insertScaleX = state.insertScaleY = -1e300;
  view = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
  Draw("70 1\n", Vertex(1e6, 1e6, 1) + Vertex(-1e6, 1e6, -1) + Vertex(1e6, 0));
  EXPECT_EQ(1, result);
}

}  // namespace
}  // namespace hexlume::block_polyline_test
