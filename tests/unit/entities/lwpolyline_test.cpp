// LWPOLYLINE in the ENTITIES section.

#include "entities/lwpolyline.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_drawing.h"
#include "support/text_groups.h"

namespace hexlume::lwpolyline_test {
namespace {

constexpr double dashes[6] = {300, -200, 0, -100, 50, -50};

class LwPolylineTest : public ConverterTest {
 protected:
  LwPolylineTest() {
    AddLayer("WALLS", {0, 0, 7}, 1);
    AddLayer("DASHES", {1, 4, 7}, 5);
  }

  // The listing of one polyline with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 LWPOLYLINE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) { return DrawStream(StreamOf(text)); }

  std::string DrawStream(TextStream&& source) {
    stream = std::move(source);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawLwPolyline({RunOn(canvas)}); });
  }
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

TEST_F(LwPolylineTest, its_vertices_are_joined_in_the_order_of_the_file) {
  EXPECT_EQ(CornerStrokes(black), Draw(corner));
}

TEST_F(LwPolylineTest, a_single_vertex_leaves_the_move_to_it) {
  EXPECT_EQ(Move(1000, -1000), Draw(Vertex(10, 90)));
}

TEST_F(LwPolylineTest, without_a_vertex_there_is_a_move_to_the_place_before) {
  state.entX[0] = 1000.0;
  state.entY[0] = 9000.0;
  EXPECT_EQ(Move(1000, -1000), Draw("90 0\n70 0\n"));
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(LwPolylineTest, closed_without_a_vertex_it_has_a_line_without_length) {
  state.entX[0] = 1000.0;
  state.entY[0] = 9000.0;
  EXPECT_EQ(Move(1000, -1000) + Stroke(black, 1000, -1000, 1000, -1000), Draw("70 1\n"));
}

TEST_F(LwPolylineTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(corner);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(LwPolylineTest, a_segment_is_drawn_at_each_y_with_the_x_read_last) {
  // Three Y without an X of their own, and two X before one Y.
  EXPECT_EQ(Move(1000, -1000) + Stroke(black, 1000, -1000, 1000, -2000) +
                Stroke(black, 1000, -2000, 1000, -3000) + Stroke(black, 1000, -3000, 5000, -3000),
            Draw("10 10\n20 90\n20 80\n20 70\n10 40\n10 50\n20 70\n10 90\n"));
}

TEST_F(LwPolylineTest, with_y_in_front_of_x_each_y_is_paired_with_the_x_before) {
  // The first Y is in the header. The pairs are (10, 80) and (20, 70); the last X has no Y.
  EXPECT_EQ(Move(1000, -2000) + Stroke(black, 1000, -2000, 2000, -3000),
            Draw("20 90\n10 10\n20 80\n10 20\n20 70\n10 30\n"));
}

TEST_F(LwPolylineTest, a_y_in_front_of_the_first_x_tells_nothing) {
  state.entY[0] = 9000.0;
  EXPECT_EQ(Move(1000, -1000), Draw("20 50\n10 10\n"));
}

TEST_F(LwPolylineTest, the_search_for_the_first_y_passes_over_all_but_the_next_entity) {
  // Another X and a bulge before it don't count, nor does the X of the next entity's line.
  EXPECT_EQ(LevelStroke(black), Draw("10 10\n10 60\n42 1\n62 1\n8 WALLS\n20 90\n10 17\n20 90\n"));
  state.entY[0] = 9000.0;
  EXPECT_EQ(Move(1000, -1000), DrawText("0 LWPOLYLINE\n10 10\n0 LINE\n10 20\n20 50\n"));
  EXPECT_TRUE(AtGroup(0, "LINE"));
}

TEST_F(LwPolylineTest, groups_among_the_vertices_do_not_count) {
  DefineLtype(4, {300, -200});
  ExcludeLayer("HIDDEN");
  EXPECT_EQ(LevelStroke(black), Draw(Vertex(10, 90) + "6 HIDDEN\n8 HIDDEN\n62 1\n70 1\n39 500\n91 3\n40 2\n" +
                                     "41 2\n" + Vertex(17, 90)));
}

// The header's groups.

TEST_F(LwPolylineTest, code_6_takes_the_substrings_of_line_types_with_a_record) {
  DefineLtype(2, {300, -200});
  const std::string dashed = Move(1000, -1000) + DashedLine(1000, -1000, 1700, -1000);
  EXPECT_EQ(dashed, Draw("6 DASHED\n" + level));
  EXPECT_EQ(dashed, Draw("6 MY_DASHED_LINE\n" + level));
  EXPECT_EQ(LevelStroke(black), Draw("6 dashed\n" + level));
  EXPECT_EQ(LevelStroke(black), Draw("6 HIDDEN\n" + level));
}

TEST_F(LwPolylineTest, continuous_alone_keeps_the_layers_family) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(Move(1000, -1000) + DashedLine(1000, -1000, 1700, -1000, 2, blue),
            Draw("8 DASHES\n6 CONTINUOUS\n" + level));
  EXPECT_EQ(LevelStroke(blue), Draw("8 DASHES\n6 BYLAYER\n" + level));
}

TEST_F(LwPolylineTest, code_8_takes_the_layers_colour_and_line_type) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(CornerStrokes(red), Draw("8 WALLS\n" + corner));
  EXPECT_EQ(Move(1000, -1000) + DashedLine(1000, -1000, 1700, -1000, 2, blue), Draw("8 DASHES\n" + level));
  EXPECT_EQ(CornerStrokes(black), Draw("8 GONE\n" + corner));
}

TEST_F(LwPolylineTest, an_excluded_layer_ends_it_at_its_group_8) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 WALLS\n" + corner));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
  ReadGroup(stream);
  EXPECT_EQ(10, state.groupCode);
}

TEST_F(LwPolylineTest, code_62_is_mapped_and_starts_at_0) {
  EXPECT_EQ(CornerStrokes(green), Draw("62 3\n" + corner));
  EXPECT_EQ(CornerStrokes(cyan), Draw("62 130\n" + corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 WALLS\n62 0\n" + corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 WALLS\n62 256\n" + corner));
  EXPECT_EQ(CornerStrokes(countColor), Draw("62 -1\n" + corner));
  EXPECT_EQ(CornerStrokes(black), Draw(corner));
}

TEST_F(LwPolylineTest, code_8_overwrites_what_stands_before_it_and_not_what_stands_behind) {
  EXPECT_EQ(CornerStrokes(red), Draw("62 3\n8 WALLS\n" + corner));
  EXPECT_EQ(CornerStrokes(green), Draw("8 WALLS\n62 3\n" + corner));
}

TEST_F(LwPolylineTest, elevation_widths_and_thickness_have_no_effect) {
  EXPECT_EQ(CornerStrokes(red),
            Draw("90 3\n38 55\n39 900\n43 4\n40 4\n41 4\n210 0\n230 -1\n8 WALLS\n" + Vertex(10, 90) +
                 "40 2\n41 3\n" + Vertex(20, 80) + "38 7\n43 5\n" + Vertex(40, 80)));
}

TEST_F(LwPolylineTest, a_bulge_in_the_header_does_not_count) {
  EXPECT_EQ(LevelStroke(black), Draw("42 1\n" + level));
}

TEST_F(LwPolylineTest, an_excluded_family_is_not_drawn) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + level));
  EXPECT_EQ(1, result);
  EXPECT_EQ(10, state.groupCode);
  EXPECT_EQ(1000.0, state.entX[0]);
  EXPECT_EQ(LevelStroke(black), Draw("6 HIDDEN\n6 BYLAYER\n" + level));
}

TEST_F(LwPolylineTest, with_monochrome_on_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(CornerStrokes(black), Draw("8 WALLS\n62 3\n" + corner));
}

// Closing.

TEST_F(LwPolylineTest, flag_1_closes_it) {
  // Back from (4000, -2000) to (1000, -1000), drawn from the left.
  const std::string closed = CornerStrokes(black) + Stroke(black, 1000, -1000, 4000, -2000);
  for (const char* flags : {"1", "129", "-1"})
    EXPECT_EQ(closed, Draw("70 " + std::string(flags) + "\n" + corner)) << flags;
  for (const char* flags : {"0", "128", "-2", "2"})
    EXPECT_EQ(CornerStrokes(black), Draw("70 " + std::string(flags) + "\n" + corner)) << flags;
}

TEST_F(LwPolylineTest, flags_behind_the_first_x_come_too_late) {
  EXPECT_EQ(LevelStroke(black), Draw("10 10\n70 1\n20 90\n70 1\n" + Vertex(17, 90) + "70 1\n"));
}

TEST_F(LwPolylineTest, closed_with_one_vertex_it_has_a_line_without_length) {
  EXPECT_EQ(Move(1000, -1000) + Stroke(black, 1000, -1000, 1000, -1000), Draw("70 1\n" + Vertex(10, 90)));
}

// The view: (1000, -1000) to (3000, -3000) in canvas coordinates.

class LwPolylineViewTest : public LwPolylineTest {
 protected:
  LwPolylineViewTest() { view = {1000, 1000, 3000, 3000}; }
};

TEST_F(LwPolylineViewTest, a_line_beyond_one_edge_restarts_the_chain_at_its_end) {
  const std::string inside = Vertex(20, 80);
  // From (2000, -2000) across the edge, then to a vertex that the next line starts at.
  // Left: from (500, -1500) to (2500, -2500), m = -0.5, b = -1250; at 1000: -1750.
  EXPECT_EQ(Move(2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000) + Move(500, -1500) +
                Stroke(black, 1000, -1750, 2500, -2500),
            Draw(inside + Vertex(6, 80) + Vertex(5, 85) + Vertex(25, 75)));
  // Right: from (3500, -1500) to (1500, -2500), m = 0.5, b = -3250; at 3000: -1750.
  EXPECT_EQ(Move(2000, -2000) + Stroke(black, 2000, -2000, 3000, -2000) + Move(3500, -1500) +
                Stroke(black, 1500, -2500, 3000, -1750),
            Draw(inside + Vertex(34, 80) + Vertex(35, 85) + Vertex(15, 75)));
  // Top: from (2500, -500) to (1500, -2500), m = 2, b = -5500; -1000 is at 2250.
  EXPECT_EQ(Move(2000, -2000) + Stroke(black, 2000, -2000, 2000, -1000) + Move(2500, -500) +
                Stroke(black, 1500, -2500, 2250, -1000),
            Draw(inside + Vertex(20, 96) + Vertex(25, 95) + Vertex(15, 75)));
  // Bottom: from (2500, -3500) to (1500, -1500), m = -2, b = 1500; -3000 is at 2250.
  EXPECT_EQ(Move(2000, -2000) + Stroke(black, 2000, -2000, 2000, -3000) + Move(2500, -3500) +
                Stroke(black, 1500, -1500, 2250, -3000),
            Draw(inside + Vertex(20, 64) + Vertex(25, 65) + Vertex(15, 85)));
}

TEST_F(LwPolylineViewTest, lines_on_an_edge_are_kept) {
  EXPECT_EQ(Move(1000, -1000) + Stroke(black, 1000, -1000, 3000, -1000) +
                Stroke(black, 3000, -1000, 3000, -3000) + Stroke(black, 3000, -3000, 1000, -3000) +
                Stroke(black, 1000, -3000, 1000, -1000),
            Draw("70 1\n" + Vertex(10, 90) + Vertex(30, 90) + Vertex(30, 70) + Vertex(10, 70)));
}

TEST_F(LwPolylineViewTest, level_and_upright_lines_are_clamped_and_keep_their_direction) {
  EXPECT_EQ(Move(500, -2000) + Stroke(black, 1000, -2000, 3000, -2000), Draw(Vertex(5, 80) + Vertex(95, 80)));
  EXPECT_EQ(Move(9500, -2000) + Stroke(black, 3000, -2000, 1000, -2000),
            Draw(Vertex(95, 80) + Vertex(5, 80)));
  EXPECT_EQ(Move(2000, -100) + Stroke(black, 2000, -1000, 2000, -3000), Draw(Vertex(20, 99) + Vertex(20, 5)));
  EXPECT_EQ(Move(2000, -9500) + Stroke(black, 2000, -3000, 2000, -1000),
            Draw(Vertex(20, 5) + Vertex(20, 99)));
}

TEST_F(LwPolylineViewTest, behind_a_clamped_line_the_next_starts_at_its_true_end) {
  // From (9000, -2000), beyond the right edge, to (1000, -3000): m = 1/8, b = -3125; at 3000: -2750.
  EXPECT_EQ(
      Move(2000, -2000) + Stroke(black, 2000, -2000, 3000, -2000) + Stroke(black, 1000, -3000, 3000, -2750),
      Draw(Vertex(20, 80) + Vertex(90, 80) + Vertex(10, 70)));
}

TEST_F(LwPolylineViewTest, a_slanted_line_is_cut_and_drawn_from_the_left) {
  // m = -0.5, b = -1000; at 1000: -1500, at 3000: -2500.
  const std::string across = Stroke(black, 1000, -1500, 3000, -2500);
  EXPECT_EQ(Move(0, -1000) + across, Draw(Vertex(0, 90) + Vertex(40, 70)));
  EXPECT_EQ(Move(4000, -3000) + across, Draw(Vertex(40, 70) + Vertex(0, 90)));
  // m = 2, b = -4000; -1000 is at 1500.
  EXPECT_EQ(Move(1750, -500) + Stroke(black, 1250, -1500, 1500, -1000),
            Draw(Vertex(17.5, 95) + Vertex(12.5, 85)));
  // m = -2, b = 0; -3000 is at 1500.
  EXPECT_EQ(Move(1750, -3500) + Stroke(black, 1250, -2500, 1500, -3000),
            Draw(Vertex(17.5, 65) + Vertex(12.5, 75)));
}

TEST_F(LwPolylineViewTest, a_closing_line_beyond_one_edge_leaves_a_move) {
  EXPECT_EQ(Move(500, -2000) + Stroke(black, 1000, -2000, 2000, -2000) +
                Stroke(black, 2000, -2000, 1000, -2000) + Move(500, -2000),
            Draw("70 1\n" + Vertex(5, 80) + Vertex(20, 80) + Vertex(6, 80)));
}

TEST_F(LwPolylineViewTest, the_closing_line_starts_at_a_rejected_vertex_too) {
  // From (500, -2500) to (2500, -1500), m = 0.5, b = -2750; at 1000: -2250.
  EXPECT_EQ(Move(2500, -1500) + Stroke(black, 2500, -1500, 1000, -1500) + Move(500, -2500) +
                Stroke(black, 1000, -2250, 2500, -1500),
            Draw("70 1\n" + Vertex(25, 85) + Vertex(5, 85) + Vertex(5, 75)));
}

TEST_F(LwPolylineTest, a_slanted_line_of_which_nothing_is_left_restarts_the_chain_at_its_end) {
  view = {0, 0, 1000, 1000};
  // From (-1000, -3200) to (500, -200), m = 2: it passes the left edge at -1200, below the view.
  EXPECT_EQ(Move(-1000, -3200) + Move(500, -200) + Stroke(black, 500, -200, 800, -200),
            Draw(Vertex(-10, 68) + Vertex(5, 98) + Vertex(8, 98)));
}

TEST_F(LwPolylineTest, a_single_coordinate_of_minus_1_drops_a_slanted_line) {
  view = {-2000, 0, 20000, 10000};
  // The start's X, the start's Y, the end's X and the end's Y, each in its true place: m = -1 or 1.
  EXPECT_EQ(Move(-1, -1000) + Move(999, -2000) + Stroke(black, 999, -2000, 1500, -2000),
            Draw(Vertex(-0.01, 90) + Vertex(9.99, 80) + Vertex(15, 80)));
  EXPECT_EQ(Move(1000, -1) + Move(2000, -1001) + Stroke(black, 2000, -1001, 3000, -1001),
            Draw(Vertex(10, 99.99) + Vertex(20, 89.99) + Vertex(30, 89.99)));
  EXPECT_EQ(Move(-1001, -1000) + Move(-1, -2000) + Stroke(black, -1, -2000, 500, -2000),
            Draw(Vertex(-10.01, 90) + Vertex(-0.01, 80) + Vertex(5, 80)));
  EXPECT_EQ(Move(1000, -1001) + Move(2000, -1) + Stroke(black, 2000, -1, 3000, -1),
            Draw(Vertex(10, 89.99) + Vertex(20, 99.99) + Vertex(30, 99.99)));
}

TEST_F(LwPolylineTest, coordinates_of_0_do_not_drop_a_slanted_line) {
  EXPECT_EQ(Move(0, -1000) + Stroke(black, 0, -1000, 1000, 0), Draw(Vertex(0, 90) + Vertex(10, 100)));
}

// Dashes.

TEST_F(LwPolylineTest, families_walk_two_two_four_and_six_elements) {
  for (const int32_t slot : {0, 1, 5, 9}) DefineLtype(slot, {300, -200, 0, -100, 50, -50});
  const std::string longLine = Vertex(10, 90) + Vertex(40, 90);
  const auto dashed = [](int32_t count) {
    return Move(1000, -1000) + DashedLine(1000, -1000, 4000, -1000, count);
  };
  EXPECT_EQ(dashed(2), Draw("6 DASH\n" + longLine));
  EXPECT_EQ(dashed(2), Draw("6 DOT\n" + longLine));
  EXPECT_EQ(dashed(4), Draw("6 DASHDOT\n" + longLine));
  EXPECT_EQ(dashed(6), Draw("6 DASHDOTDOT\n" + longLine));
}

TEST_F(LwPolylineTest, the_pattern_restarts_at_each_vertex) {
  DefineLtype(4, {300, -200});
  // 1000..1300 and a gap beyond 1450; from there 1450..1750, and from 1950 a dash cut to 2000.
  EXPECT_EQ(Move(1000, -1000) + InPen(black, "MoveToEx(1000, -1000)\nLineTo(1300, -1000)\n") +
                InPen(black,
                      "MoveToEx(1450, -1000)\nLineTo(1750, -1000)\nMoveToEx(1950, -1000)\n"
                      "LineTo(2000, -1000)\n"),
            Draw("6 HIDDEN\n" + Vertex(10, 90) + Vertex(14.5, 90) + Vertex(20, 90)));
}

TEST_F(LwPolylineTest,
       a_level_line_to_the_left_is_walked_from_its_right_end_and_a_slanted_one_from_its_left) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(Move(1700, -1000) + DashedLine(1700, -1000, 1000, -1000) + DashedLine(1000, -1000, 1700, -1700),
            Draw("6 HIDDEN\n" + Vertex(17, 90) + Vertex(10, 90) + Vertex(17, 83)));
  EXPECT_EQ(Move(1700, -1700) + DashedLine(1000, -1000, 1700, -1700),
            Draw("6 HIDDEN\n" + Vertex(17, 83) + Vertex(10, 90)));
}

// Arcs. Half a unit of shift keeps what the last digits of a centre lack away from the sheet.

class LwPolylineArcTest : public LwPolylineTest {
 protected:
  LwPolylineArcTest() {
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }
};

// The half circle from (1000, -5000) to (3000, -5000): its start is left of the centre, at 180 degrees.
const std::string halfCircle = Vertex(10, 50, 1) + Vertex(30, 50);
const std::string halfCircleUp = Vertex(10, 50, -1) + Vertex(30, 50);
const char below[] = "MoveToEx(1000, -5000)\nAngleArc(2000, -5000, 1000, 180, -180)\n";
const char above[] = "MoveToEx(1000, -5000)\nAngleArc(2000, -5000, 1000, 180, 180)\n";

TEST_F(LwPolylineArcTest, two_vertices_with_a_bulge_on_the_first_are_one_arc) {
  EXPECT_EQ(Move(1000, -5000) + InPen(black, below), Draw(halfCircle));
  EXPECT_EQ(Move(1000, -5000) + InPen(red, above), Draw("8 WALLS\n" + halfCircleUp));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(LwPolylineArcTest, dashed_arcs_start_at_their_angle_or_at_the_negated_one) {
  for (const int32_t slot : {0, 1, 5, 9}) DefineLtype(slot, {300, -200, 0, -100, 50, -50});
  const auto dashed = [](double startAngle, int32_t count) {
    return Move(1000, -5000) + ListCalls([=](Canvas canvas) {
             DashArc(canvas, 2000, -5000, 1000, startAngle, -180.0, 10000, 5000, black, dashes, count, 0);
           });
  };
  EXPECT_EQ(dashed(180.0, 2), Draw("6 DASH\n" + halfCircle));
  EXPECT_EQ(dashed(180.0, 2), Draw("6 DOT\n" + halfCircle));
  EXPECT_EQ(dashed(180.0, 4), Draw("6 DASHDOT\n" + halfCircle));
  EXPECT_EQ(dashed(180.0, 6), Draw("6 DASHDOTDOT\n" + halfCircle));
  // -(180 + 360)
  EXPECT_EQ(dashed(-540.0, 2), Draw("6 DASH\n" + halfCircleUp));
  EXPECT_EQ(dashed(-540.0, 2), Draw("6 DOT\n" + halfCircleUp));
  EXPECT_EQ(dashed(-540.0, 4), Draw("6 DASHDOT\n" + halfCircleUp));
  EXPECT_EQ(dashed(-540.0, 6), Draw("6 DASHDOTDOT\n" + halfCircleUp));
}

TEST_F(LwPolylineArcTest, behind_an_arc_a_vertex_without_a_bulge_starts_a_line) {
  const std::string lines = Move(1000, -5000) + InPen(black, below) + Stroke(black, 3000, -5000, 3000, -2000);
  EXPECT_EQ(lines, Draw(halfCircle + Vertex(30, 80)));
  EXPECT_EQ(lines, Draw(halfCircle + "42 0\n" + Vertex(30, 80)));
}

TEST_F(LwPolylineArcTest, arcs_follow_each_other) {
  EXPECT_EQ(Move(1000, -5000) + InPen(black, below) +
                InPen(black, "MoveToEx(3000, -5000)\nAngleArc(4000, -5000, 1000, 180, 180)\n"),
            Draw(Vertex(10, 50, 1) + Vertex(30, 50, -1) + Vertex(50, 50)));
}

TEST_F(LwPolylineArcTest, a_bulge_on_a_later_vertex_counts_from_there) {
  EXPECT_EQ(Move(500, -5000) + Stroke(black, 500, -5000, 1000, -5000) + InPen(black, below),
            Draw(Vertex(5, 50) + halfCircle));
}

TEST_F(LwPolylineArcTest, the_last_of_several_bulges_counts) {
  EXPECT_EQ(Move(1000, -5000) + InPen(black, above), Draw(Vertex(10, 50, 1) + "42 -1\n" + Vertex(30, 50)));
  EXPECT_EQ(Move(1000, -5000) + Stroke(black, 1000, -5000, 3000, -5000),
            Draw(Vertex(10, 50, 1) + "42 0\n" + Vertex(30, 50)));
}

TEST_F(LwPolylineArcTest, a_bulge_between_x_and_y_starts_the_arc_at_the_mixed_point) {
  // The first vertex is (1000, -5000); the bulge is after the second's X: the arc goes from (3000,
  // -5000) to (3000, -3000), on the right, from below its centre.
  EXPECT_EQ(
      Move(1000, -5000) + InPen(black, "MoveToEx(3000, -5000)\nAngleArc(3000, -4000, 1000, 90, -180)\n"),
      Draw(Vertex(10, 50) + "10 30\n42 1\n20 70\n"));
}

TEST_F(LwPolylineArcTest, a_bulge_of_0_moves_the_next_lines_start_as_well) {
  // The chain was at (1000, -5000).
  EXPECT_EQ(Move(1000, -5000) + Stroke(black, 3000, -5000, 3000, -3000),
            Draw(Vertex(10, 50) + "10 30\n42 0\n20 70\n"));
}

TEST_F(LwPolylineArcTest, a_bulge_on_the_last_vertex_of_an_open_polyline_is_dropped) {
  EXPECT_EQ(LevelStroke(black), Draw(Vertex(10, 90) + Vertex(17, 90, 1)));
}

TEST_F(LwPolylineArcTest, a_bulge_on_the_last_vertex_of_a_closed_polyline_makes_the_closing_arc) {
  // From (2000, -5000) up to (2000, -3000), back down on the left: the start is above the centre, at 270.
  EXPECT_EQ(Move(2000, -5000) + Stroke(black, 2000, -5000, 2000, -3000) +
                InPen(black, "MoveToEx(2000, -3000)\nAngleArc(2000, -4000, 1000, 270, -180)\n"),
            Draw("70 1\n" + Vertex(20, 50) + Vertex(20, 70, 1)));
  EXPECT_EQ(2000.0, state.entX[0]);
  EXPECT_EQ(5000.0, state.entY[0]);
  EXPECT_EQ(Move(3000, -5000) + Stroke(black, 3000, -5000, 1000, -5000) + InPen(black, below),
            Draw("70 1\n" + Vertex(30, 50) + Vertex(10, 50, 1)));
}

TEST_F(LwPolylineArcTest, an_arc_before_the_last_vertex_does_not_make_the_closing_arc) {
  EXPECT_EQ(Move(1000, -5000) + InPen(black, below) + Stroke(black, 3000, -5000, 1000, -5000),
            Draw("70 1\n" + halfCircle));
}

TEST_F(LwPolylineArcTest, closed_with_one_bulged_vertex_it_has_an_arc_without_a_radius) {
  EXPECT_EQ(Move(2000, -5000) + InPen(black, "MoveToEx(2000, -5000)\nAngleArc(2000, -5000, 0, 270, -180)\n"),
            Draw("70 1\n" + Vertex(20, 50, 1)));
}

TEST_F(LwPolylineArcTest, the_scale_divides_the_models_radius) {
  state.drawScale = 2.0;
  EXPECT_EQ(Move(1000, -5000) + InPen(black, below), Draw(Vertex(20, 100, 1) + Vertex(60, 100)));
}

TEST_F(LwPolylineArcTest, the_circle_is_kept_in_the_ent_fields) {
  Draw(halfCircle);
  EXPECT_EQ(1000.0, state.entRadius);
  EXPECT_NEAR(2000.0, state.entCentreX, 1e-6);
  EXPECT_NEAR(5000.0, state.entCentreY, 1e-6);
  EXPECT_EQ(0.0, state.blockRadius);
  EXPECT_EQ(0.0, state.dimRadius);
}

TEST_F(LwPolylineArcTest, an_arc_whose_circle_sticks_out_of_the_view_is_dropped_and_the_walk_goes_on) {
  const std::string vertices = halfCircle + Vertex(20, 50) + Vertex(20, 55);
  const auto lines = [](int32_t right) {
    return Stroke(black, right, -5000, 2000, -5000) + Stroke(black, 2000, -5000, 2000, -4500);
  };
  view = {1000, 4000, 3000, 6000};
  EXPECT_EQ(Move(1000, -5000) + InPen(black, below) + lines(3000), Draw(vertices));
  // One unit at the left, the right, the top and the bottom.
  view = {1001, 4000, 3000, 6000};
  EXPECT_EQ(Move(1000, -5000) + lines(3000), Draw(vertices));
  view = {1000, 4000, 2999, 6000};
  EXPECT_EQ(Move(1000, -5000) + lines(2999), Draw(vertices));
  view = {1000, 4001, 3000, 6000};
  EXPECT_EQ(Move(1000, -5000) + lines(3000), Draw(vertices));
  view = {1000, 4000, 3000, 5999};
  EXPECT_EQ(Move(1000, -5000) + lines(3000), Draw(vertices));
}

TEST_F(LwPolylineArcTest, behind_a_slanted_line_of_which_nothing_is_left_an_arc_starts_at_its_end) {
  view = {0, 0, 1000, 1000};
  // The line from (-999, -3200) is dropped as it rises past the left edge below the view. The arc goes from
  // (500, -200) straight down.
  EXPECT_EQ(Move(-999, -3200) + Move(500, -200) +
                InPen(black, "MoveToEx(500, -200)\nAngleArc(500, -300, 100, 270, -180)\n"),
            Draw(Vertex(-10, 68) + Vertex(5, 98, 1) + Vertex(5, 96)));
}

// The system whose arcs run the other way round. The record's box is smaller by one at the right and the top.

TEST_F(LwPolylineArcTest, where_arcs_run_clockwise_the_system_draws_them_with_the_family_as_pen_style) {
  state.arcClockwise = 1;
  DefineLtypes({5});
  const std::string pen = "CreatePen(1, PS_DASHDOT, 0, 0x0000FF)\nSelectObject(1)\n";
  const std::string end = "SelectObject(BLACK_PEN)\nDeleteObject(1)\n";
  EXPECT_EQ(Move(1000, -5000) + pen + "Arc(1000, -6001, 3000, -4001, 1000, -5000, 3000, -5000)\n" + end,
            Draw("62 1\n6 DASHDOT\n" + halfCircle));
  EXPECT_EQ(Move(1000, -5000) + pen + "Arc(1000, -6001, 3000, -4001, 3000, -5000, 1000, -5000)\n" + end,
            Draw("62 1\n6 DASHDOT\n" + halfCircleUp));
}

TEST_F(LwPolylineArcTest, where_arcs_run_clockwise_the_closing_arc_does_too) {
  state.arcClockwise = 1;
  EXPECT_EQ(Move(2000, -5000) + Stroke(black, 2000, -5000, 2000, -3000) +
                InPen(black, "Arc(1000, -5001, 3000, -3001, 2000, -3000, 2000, -5000)\n"),
            Draw("70 1\n" + Vertex(20, 50) + Vertex(20, 70, 1)));
}

// The turned sheet.

TEST_F(LwPolylineArcTest, on_a_turned_sheet_lines_and_arcs_are_turned) {
  state.rotated = 1;
  // (20000 - x, -10000 - y); the first move isn't turned.
  EXPECT_EQ(Move(1000, -5000) +
                InPen(black, "MoveToEx(19000, -5000)\nAngleArc(18000, -5000, 1000, 360, -180)\n") +
                Stroke(black, 15000, -5000, 17000, -5000),
            Draw(halfCircle + Vertex(50, 50)));
}

TEST_F(LwPolylineViewTest, on_a_turned_sheet_the_move_to_a_rejected_vertex_is_not_turned) {
  state.rotated = 1;
  EXPECT_EQ(Move(500, -2000) + Move(600, -1500), Draw(Vertex(5, 80) + Vertex(6, 85)));
}

// Bad input.

TEST_F(LwPolylineTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(CornerStrokes(black), DrawText("0 LWPOLYLINE\n" + corner));
  EXPECT_EQ(0, result);
  EXPECT_EQ(Move(1000, -1000), DrawText("0 LWPOLYLINE\n" + Vertex(10, 90) + "10 17\n"));
  EXPECT_EQ(LevelStroke(black) + Stroke(black, 1700, -1000, 1000, -1000),
            DrawText("0 LWPOLYLINE\n70 1\n" + level));
}

TEST_F(LwPolylineTest, a_file_that_ends_in_front_of_the_first_y_goes_on_with_what_is_there) {
  state.entX[0] = 3000.0;
  state.entY[0] = 9000.0;
  EXPECT_EQ(Move(3000, -1000), DrawText("0 LWPOLYLINE\n8 WALLS\n"));
  EXPECT_EQ(Move(1000, -1000), DrawText("0 LWPOLYLINE\n10 10\n"));
  EXPECT_EQ(0, result);
}

TEST_F(LwPolylineTest, a_file_that_ends_between_a_code_and_its_value_tells_no_coordinate) {
  const auto drawCut = [this](const std::string& groups, const char* code) {
    const std::string bytes = DrawingBytes(groups) + code + "\n";
    TextStream cut;
    cut.complete = true;
    cut.bytes.assign(bytes.begin(), bytes.end());
    return DrawStream(std::move(cut));
  };
  state.entX[0] = 3000.0;
  state.entY[0] = 9000.0;
  EXPECT_EQ(Move(3000, -1000), drawCut("0 LWPOLYLINE\n62 5\n", "10"));
  EXPECT_EQ(Move(1000, -1000), drawCut("0 LWPOLYLINE\n10 10\n", "20"));
  EXPECT_EQ(Move(1000, -9000), drawCut("0 LWPOLYLINE\n10 10\n20 10\n10 50\n", "20"));
}

TEST_F(LwPolylineTest, cut_off_anywhere_it_ends) {
  const std::string sure = DrawingBytes("0 LWPOLYLINE\n8 WALLS\n70 1\n" + level);
  const std::string bytes = sure + DrawingBytes(Vertex(20, 50, 1) + Vertex(30, 50, -0.5));
  const std::string whole = Move(1000, -1000) + Stroke(red, 1000, -1000, 1700, -1000);
  for (size_t size = 0; size <= bytes.size(); ++size) {
    TextStream cut;
    cut.complete = true;
    cut.bytes.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    const std::string drawn = DrawStream(std::move(cut));
    EXPECT_EQ(0, ReadGroup(stream)) << size;
    // After the second vertex's last byte its line doesn't change any more.
    if (size > sure.size()) {
      EXPECT_EQ(whole, drawn.substr(0, whole.size())) << size;
    }
  }
}

TEST_F(LwPolylineTest, absurd_coordinates_count_as_the_smallest) {
  for (const char* x : {"1e300", "1e999", "-1e300", "-1e999"})
    EXPECT_EQ(Move(1000, -1000) + Stroke(black, 1000, -1000, 0, -1000),
              Draw(Vertex(10, 90) + "10 " + x + "\n20 90\n"))
        << x;
}

TEST_F(LwPolylineArcTest, absurd_arcs_are_lost) {
  for (const char* bulge : {"1e300", "1e999", "-1e999", "1e-300", "-1e-300"})
    EXPECT_EQ(Move(1000, -5000) + Stroke(black, 3000, -5000, 3000, -2000),
              Draw(Vertex(10, 50) + "42 " + bulge + "\n" + Vertex(30, 50) + Vertex(30, 80)))
        << bulge;
  EXPECT_EQ(Move(1000, -5000), Draw(Vertex(10, 50, 1) + "10 1e300\n20 1e999\n"));
}

TEST_F(LwPolylineArcTest, a_bulge_that_is_no_number_is_none) {
  EXPECT_EQ(Move(1000, -5000) + Stroke(black, 1000, -5000, 3000, -5000),
            Draw(Vertex(10, 50) + "42 nan\n" + Vertex(30, 50)));
}

}  // namespace
}  // namespace hexlume::lwpolyline_test
