// LWPOLYLINE in a block that is inserted in a dimension's block.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>

#include "driver/group_reader.h"
#include "entities/lwpolyline.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_drawing.h"
#include "support/text_groups.h"

namespace hexlume::dim_insert_lwpolyline_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta
constexpr double dashes[6] = {300, -200, 0, -100, 50, -50};

class DimInsertLwPolylineTest : public ConverterTest {
 protected:
  DimInsertLwPolylineTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {0, 0, 7}, 1);
    AddLayer("DOORS", {}, 5);
    AddLayer("DASHES", {1, 4, 7}, 5);
    SetInsertLayer("WALLS");
  }

  // The listing of one polyline with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 LWPOLYLINE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) { return DrawStream(StreamOf(text)); }

  std::string DrawStream(TextStream&& source) {
    stream = std::move(source);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawDimInsertLwPolyline({RunOn(canvas), blockOriginX, blockOriginY, insertColor});
    });
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
};

std::string Vertex(double x, double y) {
  return "10 " + std::to_string(x) + "\n20 " + std::to_string(y) + "\n";
}
std::string Vertex(double x, double y, double bulge) {
  return Vertex(x, y) + "42 " + std::to_string(bulge) + "\n";
}

std::string Move(int32_t x, int32_t y) {
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
  return Move(1000, -1000) + Stroke(color, 1000, -1000, 2000, -2000) +
         Stroke(color, 2000, -2000, 4000, -2000);
}

// From (1000, -1000) to (1700, -1000).
const std::string level = Vertex(10, 90) + Vertex(17, 90);

std::string LevelStroke(COLORREF color) {
  return Move(1000, -1000) + Stroke(color, 1000, -1000, 1700, -1000);
}

// The vertices.

TEST_F(DimInsertLwPolylineTest, its_vertices_are_joined_in_the_order_of_the_file) {
  EXPECT_EQ(CornerStrokes(black), Draw(corner));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(DimInsertLwPolylineTest, its_vertices_are_scaled_and_moved_to_the_blocks_origin) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // X: 10 * 200 + 500 = 2500 and 20 * 200 + 500 = 4500; Y: 20 * 300 + 1000 = 7000 and 10 * 300 + 1000 = 4000.
  EXPECT_EQ(
      Move(2500, -3000) + Stroke(black, 2500, -3000, 4500, -3000) + Stroke(black, 4500, -3000, 4500, -6000),
      Draw(Vertex(10, 20) + Vertex(20, 20) + Vertex(20, 10)));
}

TEST_F(DimInsertLwPolylineTest, the_inserts_angle_does_not_count) {
  blockOriginX = 500.0;
  state.insertAngle = halfPi;
  EXPECT_EQ(Move(1500, -1000) + Stroke(black, 1500, -1000, 2500, -2000),
            Draw(Vertex(10, 90) + Vertex(20, 80)));
  EXPECT_EQ(2500.0, state.dimX[0]);
  EXPECT_EQ(8000.0, state.dimY[0]);
  EXPECT_EQ(0.0, state.entX[0]);
  EXPECT_EQ(0.0, state.blockX[0]);
}

TEST_F(DimInsertLwPolylineTest, without_a_vertex_there_is_a_move_to_the_place_before) {
  state.dimX[0] = 1000.0;
  state.dimY[0] = 9000.0;
  EXPECT_EQ(Move(1000, -1000), Draw("90 0\n"));
  // An X alone is stored.
  EXPECT_EQ(Move(2000, -1000), Draw("10 20\n"));
}

TEST_F(DimInsertLwPolylineTest, the_first_y_ends_the_header_with_the_x_read_last) {
  // The flags and the colour between X and Y still count, and of two X the second.
  const std::string closed = LevelStroke(red) + Stroke(red, 1700, -1000, 1000, -1000);
  EXPECT_EQ(closed, Draw("10 50\n70 1\n10 10\n62 1\n20 90\n70 0\n62 3\n" + Vertex(17, 90)));
  EXPECT_EQ(LevelStroke(black), Draw(Vertex(10, 90) + "70 1\n62 1\n8 DOORS\n6 DASH\n" + Vertex(17, 90)));
}

TEST_F(DimInsertLwPolylineTest, with_y_in_front_of_x_the_first_y_takes_the_x_of_the_entity_before) {
  state.dimX[0] = 500.0;
  EXPECT_EQ(
      Move(500, -2000) + Stroke(black, 500, -2000, 1000, -2500) + Stroke(black, 1000, -2500, 2000, -3500),
      Draw("20 80\n10 10\n20 75\n10 20\n20 65\n10 30\n"));
}

TEST_F(DimInsertLwPolylineTest, a_segment_is_drawn_at_each_y) {
  EXPECT_EQ(
      Move(1000, -1000) + Stroke(black, 1000, -1000, 1000, -2000) + Stroke(black, 1000, -2000, 5000, -2000),
      Draw("10 10\n20 90\n20 80\n10 40\n10 50\n20 80\n10 90\n"));
}

// Group 6.

TEST_F(DimInsertLwPolylineTest, code_6_takes_the_family_alone_so_that_a_solid_layer_stays_solid) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(LevelStroke(black), Draw("6 HIDDEN\n" + level));
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + level));
  EXPECT_EQ("", Draw("6 dashed2\n" + level));
  EXPECT_EQ(LevelStroke(black), Draw("6 MY_HIDDEN_LINE\n" + level));
}

TEST_F(DimInsertLwPolylineTest, with_the_layers_pattern_the_family_tells_how_many_elements_count) {
  DefineLtype(4, {300, -200, 0, -100, 50, -50});
  const std::string longLine = Vertex(10, 90) + Vertex(40, 90);
  const auto dashed = [](int32_t count) {
    return Move(1000, -1000) + DashedLine(1000, -1000, 4000, -1000, count, blue);
  };
  EXPECT_EQ(dashed(2), Draw("8 DASHES\n" + longLine));
  EXPECT_EQ(dashed(2), Draw("8 DASHES\n6 dot\n" + longLine));
  EXPECT_EQ(dashed(4), Draw("8 DASHES\n6 Center\n" + longLine));
  EXPECT_EQ(dashed(6), Draw("8 DASHES\n6 PHANTOM\n" + longLine));
}

TEST_F(DimInsertLwPolylineTest, center2_and_phantom2_are_not_in_its_list) {
  ExcludeFamily(3);
  ExcludeFamily(4);
  EXPECT_EQ("", Draw("6 CENTER\n" + level));
  EXPECT_EQ("", Draw("6 PHANTOM\n" + level));
  EXPECT_EQ(LevelStroke(black), Draw("6 CENTER2\n" + level));
  EXPECT_EQ(LevelStroke(black), Draw("6 PHANTOM2\n" + level));
}

TEST_F(DimInsertLwPolylineTest, only_continuous_and_continuos_clear_the_layers_family) {
  DefineLtype(4, {300, -200});
  const std::string dashed = Move(1000, -1000) + DashedLine(1000, -1000, 1700, -1000, 2, blue);
  EXPECT_EQ(LevelStroke(blue), Draw("8 DASHES\n6 CONTINUOUS\n" + level));
  EXPECT_EQ(LevelStroke(blue), Draw("8 DASHES\n6 Continuos\n" + level));
  EXPECT_EQ(dashed, Draw("8 DASHES\n6 BYLAYER\n" + level));
  EXPECT_EQ(dashed, Draw("8 DASHES\n6 CENTER2\n" + level));
}

TEST_F(DimInsertLwPolylineTest, by_block_in_any_case_lets_colour_0_keep_the_layers_colour) {
  for (const char* name : {"BYBLOCK", "ByBlock", "byblock"})
    EXPECT_EQ(CornerStrokes(blue), Draw("8 DOORS\n6 " + std::string(name) + "\n62 0\n" + corner)) << name;
}

// Group 8.

TEST_F(DimInsertLwPolylineTest, layer_0_takes_the_inserts_colour_and_its_layers_line_type) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(CornerStrokes(magenta), Draw("8 0\n" + corner));
  SetInsertLayer("DASHES");
  EXPECT_EQ(Move(1000, -1000) + DashedLine(1000, -1000, 1700, -1000, 2, magenta), Draw("8 0\n" + level));
  SetInsertLayer("GONE");
  EXPECT_EQ(CornerStrokes(countColor), Draw("8 0\n" + corner));
}

TEST_F(DimInsertLwPolylineTest, another_layer_gives_its_own_colour_and_no_width) {
  EXPECT_EQ(CornerStrokes(red), Draw("39 900\n8 WALLS\n39 900\n43 5\n38 2\n" + corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 GONE\n" + corner));
}

TEST_F(DimInsertLwPolylineTest, an_excluded_layer_ends_it_at_its_group_8) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("8 DOORS\n" + corner));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + corner));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

// Group 62.

TEST_F(DimInsertLwPolylineTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(CornerStrokes(green), Draw("8 DOORS\n62 3\n" + corner));
  EXPECT_EQ(CornerStrokes(cyan), Draw("8 0\n62 130\n" + corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 DOORS\n62 256\n" + corner));
}

TEST_F(DimInsertLwPolylineTest, colour_0_is_black_without_the_inherit_flag) {
  EXPECT_EQ(CornerStrokes(black), Draw("8 DOORS\n62 0\n" + corner));
  EXPECT_EQ(CornerStrokes(magenta), Draw("8 0\n62 0\n" + corner));
}

TEST_F(DimInsertLwPolylineTest, on_an_insert_of_layer_0_colour_0_does_not_take_the_inserts_colour) {
  SetInsertLayer("0");
  EXPECT_EQ(CornerStrokes(blue), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + corner));
}

TEST_F(DimInsertLwPolylineTest, the_colour_is_kept_in_dim_color_and_starts_at_0) {
  state.entColor = 4;
  state.blockColor = 4;
  Draw("62 1\n" + corner);
  EXPECT_EQ(1, state.dimColor);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(CornerStrokes(black), Draw(corner));
}

// Group 70, filter and monochrome.

TEST_F(DimInsertLwPolylineTest, flag_1_closes_it) {
  const std::string closed = LevelStroke(black) + Stroke(black, 1700, -1000, 1000, -1000);
  EXPECT_EQ(closed, Draw("70 129\n" + level));
  EXPECT_EQ(LevelStroke(black), Draw("70 -2\n" + level));
  EXPECT_EQ(Move(1000, -1000) + Stroke(black, 1000, -1000, 1000, -1000), Draw("70 1\n" + Vertex(10, 90)));
}

TEST_F(DimInsertLwPolylineTest, an_excluded_family_is_not_drawn) {
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("8 DASHES\n" + level));
  EXPECT_EQ(1, result);
  EXPECT_EQ(1000.0, state.dimX[0]);
  EXPECT_EQ(9000.0, state.dimY[0]);
  EXPECT_EQ(LevelStroke(blue), Draw("8 DASHES\n8 DOORS\n" + level));
}

TEST_F(DimInsertLwPolylineTest, with_monochrome_on_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(CornerStrokes(black), Draw("8 0\n" + corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 DOORS\n62 3\n" + corner));
}

// The view: (1000, -1000) to (3000, -3000) in canvas coordinates.

class DimInsertLwPolylineViewTest : public DimInsertLwPolylineTest {
 protected:
  DimInsertLwPolylineViewTest() { view = {1000, 1000, 3000, 3000}; }
};

TEST_F(DimInsertLwPolylineViewTest, a_line_beyond_one_edge_restarts_the_chain_at_its_end) {
  // From (500, -1500) to (2500, -2500), m = -0.5, b = -1250; at 1000: -1750.
  EXPECT_EQ(Move(2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000) + Move(500, -1500) +
                Stroke(black, 1000, -1750, 2500, -2500),
            Draw(Vertex(20, 80) + Vertex(6, 80) + Vertex(5, 85) + Vertex(25, 75)));
}

TEST_F(DimInsertLwPolylineViewTest, level_and_upright_lines_are_clamped_and_keep_their_direction) {
  EXPECT_EQ(Move(9500, -2000) + Stroke(black, 3000, -2000, 1000, -2000),
            Draw(Vertex(95, 80) + Vertex(5, 80)));
  EXPECT_EQ(Move(2000, -9500) + Stroke(black, 2000, -3000, 2000, -1000),
            Draw(Vertex(20, 5) + Vertex(20, 99)));
}

TEST_F(DimInsertLwPolylineViewTest, a_slanted_line_is_cut_at_each_edge_and_drawn_from_the_left) {
  // m = -0.5, b = -1000; at 1000: -1500, at 3000: -2500.
  EXPECT_EQ(Move(4000, -3000) + Stroke(black, 1000, -1500, 3000, -2500),
            Draw(Vertex(40, 70) + Vertex(0, 90)));
  EXPECT_EQ(Move(0, -1000) + Stroke(black, 1000, -1500, 3000, -2500), Draw(Vertex(0, 90) + Vertex(40, 70)));
  // m = 2, b = -4000; -1000 is at 1500.
  EXPECT_EQ(Move(1750, -500) + Stroke(black, 1250, -1500, 1500, -1000),
            Draw(Vertex(17.5, 95) + Vertex(12.5, 85)));
  // m = -2, b = 0; -3000 is at 1500.
  EXPECT_EQ(Move(1750, -3500) + Stroke(black, 1250, -2500, 1500, -3000),
            Draw(Vertex(17.5, 65) + Vertex(12.5, 75)));
}

TEST_F(DimInsertLwPolylineViewTest, a_closing_line_beyond_one_edge_leaves_a_move) {
  EXPECT_EQ(Move(500, -2000) + Stroke(black, 1000, -2000, 2000, -2000) +
                Stroke(black, 2000, -2000, 1000, -2000) + Move(500, -2000),
            Draw("70 1\n" + Vertex(5, 80) + Vertex(20, 80) + Vertex(6, 80)));
}

TEST_F(DimInsertLwPolylineTest, a_slanted_line_of_which_nothing_is_left_restarts_the_chain_at_its_end) {
  view = {0, 0, 1000, 1000};
  // It passes the left edge at -1200, below the view.
  EXPECT_EQ(Move(-1000, -3200) + Move(500, -200) + Stroke(black, 500, -200, 800, -200),
            Draw(Vertex(-10, 68) + Vertex(5, 98) + Vertex(8, 98)));
}

TEST_F(DimInsertLwPolylineTest, a_single_coordinate_of_0_drops_a_slanted_line) {
  view = {-2000, 0, 20000, 10000};
  // The start's X, the start's Y, the end's X and the end's Y, each in its true place.
  EXPECT_EQ(Move(0, -1000) + Move(1000, -2000) + Stroke(black, 1000, -2000, 1500, -2000),
            Draw(Vertex(0, 90) + Vertex(10, 80) + Vertex(15, 80)));
  EXPECT_EQ(Move(1000, 0) + Move(2000, -1000) + Stroke(black, 2000, -1000, 3000, -1000),
            Draw(Vertex(10, 100) + Vertex(20, 90) + Vertex(30, 90)));
  EXPECT_EQ(Move(-1000, -1000) + Move(0, -2000) + Stroke(black, 0, -2000, 500, -2000),
            Draw(Vertex(-10, 90) + Vertex(0, 80) + Vertex(5, 80)));
  EXPECT_EQ(Move(1000, -1000) + Move(2000, 0) + Stroke(black, 2000, 0, 3000, 0),
            Draw(Vertex(10, 90) + Vertex(20, 100) + Vertex(30, 100)));
}

TEST_F(DimInsertLwPolylineTest, a_slanted_line_cut_at_the_sheets_edge_vanishes) {
  // It would start at (0, -1500).
  EXPECT_EQ(Move(-1000, -1000) + Move(1000, -2000), Draw(Vertex(-10, 90) + Vertex(10, 80)));
}

TEST_F(DimInsertLwPolylineTest, a_level_line_at_the_sheets_edge_does_not) {
  EXPECT_EQ(Move(0, 0) + Stroke(black, 0, 0, 1000, 0), Draw(Vertex(0, 100) + Vertex(10, 100)));
}

TEST_F(DimInsertLwPolylineTest, a_coordinate_of_minus_1_does_not_drop_a_line) {
  EXPECT_EQ(Move(1000, -1001) + Stroke(black, 1000, -1001, 2000, -1),
            Draw(Vertex(10, 89.99) + Vertex(20, 99.99)));
}

// Arcs. Half a unit of shift keeps what the last digits of a centre lack away from the sheet.

class DimInsertLwPolylineArcTest : public DimInsertLwPolylineTest {
 protected:
  DimInsertLwPolylineArcTest() {
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }
};

// The half circle from (1000, -5000) to (3000, -5000): its start is left of the centre, at 180 degrees.
const std::string halfCircle = Vertex(10, 50, 1) + Vertex(30, 50);
const std::string halfCircleUp = Vertex(10, 50, -1) + Vertex(30, 50);
const char below[] = "MoveToEx(1000, -5000)\nAngleArc(2000, -5000, 1000, 180, -180)\n";
const char above[] = "MoveToEx(1000, -5000)\nAngleArc(2000, -5000, 1000, 180, 180)\n";

TEST_F(DimInsertLwPolylineArcTest, two_vertices_with_a_bulge_on_the_first_are_one_arc) {
  EXPECT_EQ(Move(1000, -5000) + InPen(magenta, below), Draw("8 0\n" + halfCircle));
  EXPECT_EQ(Move(1000, -5000) + InPen(magenta, above), Draw("8 0\n" + halfCircleUp));
}

TEST_F(DimInsertLwPolylineArcTest, its_circle_is_kept_in_the_dim_fields) {
  Draw(halfCircle);
  EXPECT_EQ(1000.0, state.dimRadius);
  EXPECT_NEAR(2000.0, state.dimCentreX, 1e-6);
  EXPECT_NEAR(5000.0, state.dimCentreY, 1e-6);
  EXPECT_EQ(0.0, state.entRadius);
  EXPECT_EQ(0.0, state.blockRadius);
}

TEST_F(DimInsertLwPolylineArcTest, a_bulge_in_front_of_the_first_y_does_not_count) {
  EXPECT_EQ(LevelStroke(black), Draw("42 1\n10 10\n42 1\n20 90\n" + Vertex(17, 90)));
}

TEST_F(DimInsertLwPolylineArcTest, dashed_arcs_start_at_their_angle_or_at_the_negated_one) {
  DefineLtype(4, {300, -200, 0, -100, 50, -50});
  const auto dashed = [](double startAngle, int32_t count) {
    return Move(1000, -5000) + ListCalls([=](Canvas canvas) {
             DashArc(canvas, 2000, -5000, 1000, startAngle, -180.0, 10000, 5000, blue, dashes, count, 0);
           });
  };
  EXPECT_EQ(dashed(180.0, 2), Draw("8 DASHES\n" + halfCircle));
  EXPECT_EQ(dashed(-540.0, 2), Draw("8 DASHES\n" + halfCircleUp));
  EXPECT_EQ(dashed(180.0, 6), Draw("8 DASHES\n6 DIVIDE\n" + halfCircle));
}

TEST_F(DimInsertLwPolylineArcTest, an_arc_is_scaled_and_not_turned) {
  blockOriginX = -1000.0;
  blockOriginY = 3000.0;
  state.insertScaleX = 0.5;
  state.insertScaleY = 0.5;
  state.insertAngle = halfPi;
  // X: 40 * 50 - 1000 = 1000 and 80 * 50 - 1000 = 3000; Y: 40 * 50 + 3000 = 5000.
  EXPECT_EQ(Move(1000, -5000) + InPen(black, below), Draw(Vertex(40, 40, 1) + Vertex(80, 40)));
}

TEST_F(DimInsertLwPolylineArcTest, a_negative_x_scale_mirrors_the_vertices_and_not_the_arcs_sense) {
  blockOriginX = 4000.0;
  state.insertScaleX = -1.0;
  // Up from (3000, -6000) to (3000, -4000), on the right as in the block itself.
  EXPECT_EQ(
      Move(3000, -6000) + InPen(black, "MoveToEx(3000, -6000)\nAngleArc(3000, -5000, 1000, 90, -180)\n"),
      Draw(Vertex(10, 40, 1) + Vertex(10, 60)));
}

TEST_F(DimInsertLwPolylineArcTest, behind_an_arc_a_bulge_of_0_or_none_starts_a_line) {
  const std::string lines = Move(1000, -5000) + InPen(black, below) + Stroke(black, 3000, -5000, 3000, -2000);
  EXPECT_EQ(lines, Draw(halfCircle + Vertex(30, 80)));
  EXPECT_EQ(lines, Draw(halfCircle + "42 0\n" + Vertex(30, 80)));
}

TEST_F(DimInsertLwPolylineArcTest, arcs_follow_each_other) {
  EXPECT_EQ(Move(1000, -5000) + InPen(black, below) +
                InPen(black, "MoveToEx(3000, -5000)\nAngleArc(4000, -5000, 1000, 180, 180)\n"),
            Draw(Vertex(10, 50, 1) + Vertex(30, 50, -1) + Vertex(50, 50)));
}

TEST_F(DimInsertLwPolylineArcTest, a_bulge_moves_the_next_segments_start_to_the_point_at_hand) {
  EXPECT_EQ(
      Move(1000, -5000) + InPen(black, "MoveToEx(3000, -5000)\nAngleArc(3000, -4000, 1000, 90, -180)\n"),
      Draw(Vertex(10, 50) + "10 30\n42 1\n20 70\n"));
  EXPECT_EQ(Move(1000, -5000) + Stroke(black, 3000, -5000, 3000, -3000),
            Draw(Vertex(10, 50) + "10 30\n42 0\n20 70\n"));
}

TEST_F(DimInsertLwPolylineArcTest, the_last_bulge_is_dropped_unless_the_polyline_is_closed) {
  const std::string line = Move(2000, -5000) + Stroke(black, 2000, -5000, 2000, -3000);
  EXPECT_EQ(line, Draw(Vertex(20, 50) + Vertex(20, 70, 1)));
  EXPECT_EQ(line + InPen(black, "MoveToEx(2000, -3000)\nAngleArc(2000, -4000, 1000, 270, -180)\n"),
            Draw("70 1\n" + Vertex(20, 50) + Vertex(20, 70, 1)));
  EXPECT_EQ(2000.0, state.dimX[0]);
  EXPECT_EQ(5000.0, state.dimY[0]);
  EXPECT_EQ(Move(3000, -5000) + Stroke(black, 3000, -5000, 1000, -5000) + InPen(black, below),
            Draw("70 1\n" + Vertex(30, 50) + Vertex(10, 50, 1)));
}

TEST_F(DimInsertLwPolylineArcTest,
       an_arc_whose_circle_sticks_out_of_the_view_is_dropped_and_the_walk_goes_on) {
  const std::string line = Stroke(black, 3000, -5000, 2000, -5000);
  const std::string vertices = halfCircle + Vertex(20, 50);
  view = {1000, 4000, 3000, 6000};
  EXPECT_EQ(Move(1000, -5000) + InPen(black, below) + line, Draw(vertices));
  view = {1001, 4000, 3000, 6000};
  EXPECT_EQ(Move(1000, -5000) + line, Draw(vertices));
  view = {1000, 4000, 3000, 5999};
  EXPECT_EQ(Move(1000, -5000) + line, Draw(vertices));
}

TEST_F(DimInsertLwPolylineArcTest, an_arc_between_equal_vertices_has_no_radius) {
  EXPECT_EQ(Move(2000, -5000) + InPen(black, "MoveToEx(2000, -5000)\nAngleArc(2000, -5000, 0, 270, 180)\n"),
            Draw(Vertex(20, 50, -1) + Vertex(20, 50)));
}

TEST_F(DimInsertLwPolylineArcTest,
       where_arcs_run_clockwise_the_system_draws_them_with_the_family_as_pen_style) {
  state.arcClockwise = 1;
  const std::string pen = "CreatePen(1, PS_DASHDOT, 0, 0xFF00FF)\nSelectObject(1)\n";
  const std::string end = "SelectObject(BLACK_PEN)\nDeleteObject(1)\n";
  // No record is needed for it. The record's box is smaller by one at the right and the top.
  EXPECT_EQ(Move(1000, -5000) + pen + "Arc(1000, -6001, 3000, -4001, 1000, -5000, 3000, -5000)\n" + end,
            Draw("8 0\n6 dashdot\n" + halfCircle));
  EXPECT_EQ(Move(1000, -5000) + pen + "Arc(1000, -6001, 3000, -4001, 3000, -5000, 1000, -5000)\n" + end,
            Draw("8 0\n6 dashdot\n" + halfCircleUp));
}

// The turned sheet.

TEST_F(DimInsertLwPolylineArcTest, on_a_turned_sheet_lines_and_arcs_are_turned) {
  state.rotated = 1;
  EXPECT_EQ(Move(1000, -5000) +
                InPen(black, "MoveToEx(19000, -5000)\nAngleArc(18000, -5000, 1000, 360, -180)\n") +
                Stroke(black, 15000, -5000, 17000, -5000),
            Draw(halfCircle + Vertex(50, 50)));
}

// Bad input.

TEST_F(DimInsertLwPolylineTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(CornerStrokes(black), DrawText("0 LWPOLYLINE\n" + corner));
  EXPECT_EQ(0, result);
  EXPECT_EQ(Move(1000, -1000), DrawText("0 LWPOLYLINE\n" + Vertex(10, 90) + "10 17\n"));
  state.dimY[0] = 5000.0;
  EXPECT_EQ(Move(1000, -5000), DrawText("0 LWPOLYLINE\n10 10\n"));
}

TEST_F(DimInsertLwPolylineTest, a_file_that_ends_between_a_code_and_its_value_tells_no_coordinate) {
  const auto drawCut = [this](const std::string& groups, const char* code) {
    const std::string bytes = DrawingBytes(groups) + code + "\n";
    TextStream cut;
    cut.complete = true;
    cut.bytes.assign(bytes.begin(), bytes.end());
    return DrawStream(std::move(cut));
  };
  state.dimX[0] = 3000.0;
  state.dimY[0] = 9000.0;
  EXPECT_EQ(Move(3000, -1000), drawCut("0 LWPOLYLINE\n62 5\n", "10"));
  EXPECT_EQ(Move(1000, -1000), drawCut("0 LWPOLYLINE\n10 10\n", "20"));
  EXPECT_EQ(Move(1000, -9000), drawCut("0 LWPOLYLINE\n10 10\n20 10\n10 50\n", "20"));
}

TEST_F(DimInsertLwPolylineTest, cut_off_anywhere_it_ends) {
  const std::string bytes =
      DrawingBytes("0 LWPOLYLINE\n8 WALLS\n70 1\n" + level + Vertex(20, 50, 1) + Vertex(30, 50, -0.5));
  for (size_t size = 0; size <= bytes.size(); ++size) {
    TextStream cut;
    cut.complete = true;
    cut.bytes.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    DrawStream(std::move(cut));
    EXPECT_EQ(0, ReadGroup(stream)) << size;
  }
}

TEST_F(DimInsertLwPolylineTest, absurd_scales_and_origins_count_as_the_smallest_coordinate) {
  state.insertScaleX = 1e300;
  EXPECT_EQ(Move(INT32_MIN, -1000) + Move(INT32_MIN, -1000), Draw(level));
  state.insertScaleX = 1.0;
  blockOriginY = -1e300;
  EXPECT_EQ(Move(1000, INT32_MIN) + Move(1700, INT32_MIN), Draw(level));
}

}  // namespace
}  // namespace hexlume::dim_insert_lwpolyline_test
