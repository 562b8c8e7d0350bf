// POLYLINE in the ENTITIES section.

#include "entities/polyline.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_drawing.h"
#include "support/text_groups.h"

namespace hexlume::polyline_test {
namespace {

constexpr double dashes[6] = {300, -200, 0, -100, 50, -50};

class PolylineTest : public ConverterTest {
 protected:
  PolylineTest() {
    AddLayer("WALLS", {0, 0, 7}, 1);
    AddLayer("DASHES", {1, 4, 7}, 5);
  }

  // The listing of one polyline with these header groups and vertices.
  std::string Draw(const std::string& header, const std::string& vertices) {
    return DrawText("0 POLYLINE\n" + header + vertices + "0 SEQEND\n0 LINE\n");
  }

  std::string DrawText(const std::string& text) { return DrawStream(StreamOf(text)); }

  std::string DrawStream(TextStream&& source) {
    stream = std::move(source);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawPolyline({RunOn(canvas)}); });
  }
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

TEST_F(PolylineTest, its_vertices_are_joined_in_the_order_of_the_file) {
  EXPECT_EQ(CornerStrokes(black), Draw("", corner));
}

TEST_F(PolylineTest, a_single_vertex_leaves_the_move_to_it) {
  EXPECT_EQ(Start(1000, -1000), Draw("", Vertex(10, 90)));
}

TEST_F(PolylineTest, without_a_vertex_nothing_is_drawn) {
  EXPECT_EQ("", Draw("70 1\n", ""));
  EXPECT_TRUE(AtGroup(0, "SEQEND"));
  EXPECT_EQ("", DrawText("0 POLYLINE\n70 1\n0 Vertex\n10 10\n20 90\n0 VERTEX\n10 20\n20 80\n"));
  EXPECT_TRUE(AtGroup(0, "Vertex"));
}

TEST_F(PolylineTest, any_other_entity_ends_it_and_stays_in_the_buffer) {
  EXPECT_EQ(CornerStrokes(black), Draw("", corner));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "SEQEND"));
  EXPECT_EQ(LevelStroke(black), DrawText("0 POLYLINE\n" + level + "0 LINE\n10 5\n" + Vertex(30, 30)));
  EXPECT_TRUE(AtGroup(0, "LINE"));
}

TEST_F(PolylineTest, a_vertex_has_neither_line_type_nor_layer_nor_colour_nor_flags) {
  DefineLtype(4, {300, -200});
  ExcludeLayer("HIDDEN");
  const std::string own = "6 HIDDEN\n8 WALLS\n8 HIDDEN\n39 500\n62 1\n70 1\n40 3\n41 3\n30 7\n";
  EXPECT_EQ(CornerStrokes(black),
            Draw("", Vertex(10, 90) + own + Vertex(20, 80) + own + Vertex(40, 80) + own));
}

TEST_F(PolylineTest, a_coordinate_that_a_vertex_lacks_is_that_of_the_one_before) {
  EXPECT_EQ(
      Start(1000, -1000) + Stroke(black, 1000, -1000, 2000, -1000) + Stroke(black, 2000, -1000, 2000, -2000),
      Draw("", Vertex(10, 90) + "0 VERTEX\n10 20\n0 VERTEX\n20 80\n"));
}

TEST_F(PolylineTest, the_first_vertex_takes_what_it_lacks_from_the_entity_before) {
  state.entX[0] = 1000.0;
  state.entY[0] = 9000.0;
  EXPECT_EQ(LevelStroke(black), Draw("", "0 VERTEX\n" + Vertex(17, 90)));
}

TEST_F(PolylineTest, the_header_has_no_coordinates_and_no_bulge) {
  EXPECT_EQ(LevelStroke(black),
            Draw("66 1\n10 50\n20 50\n30 5\n42 1\n", "0 VERTEX\n10 10\n20 90\n" + Vertex(17, 90)));
  state.entX[0] = 1000.0;
  EXPECT_EQ(LevelStroke(black), Draw("10 50\n", "0 VERTEX\n20 90\n" + Vertex(17, 90)));
}

// The header's groups.

TEST_F(PolylineTest, code_6_takes_the_substrings_of_line_types_with_a_record) {
  DefineLtype(2, {300, -200});
  const std::string dashed = Start(1000, -1000) + DashedLine(1000, -1000, 1700, -1000);
  EXPECT_EQ(dashed, Draw("6 DASHED\n", level));
  EXPECT_EQ(dashed, Draw("6 MY_DASHED_LINE\n", level));
  EXPECT_EQ(LevelStroke(black), Draw("6 dashed\n", level));
  EXPECT_EQ(LevelStroke(black), Draw("6 HIDDEN\n", level));
}

TEST_F(PolylineTest, continuous_alone_keeps_the_layers_family) {
  DefineLtype(4, {300, -200});
  const std::string dashed = Start(1000, -1000) + DashedLine(1000, -1000, 1700, -1000, 2, blue);
  EXPECT_EQ(dashed, Draw("8 DASHES\n6 CONTINUOUS\n", level));
  EXPECT_EQ(LevelStroke(blue), Draw("8 DASHES\n6 CONTINUOS\n", level));
  EXPECT_EQ(LevelStroke(blue), Draw("8 DASHES\n6 BYLAYER\n", level));
}

TEST_F(PolylineTest, code_8_takes_the_layers_colour_and_line_type) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(CornerStrokes(red), Draw("8 WALLS\n", corner));
  EXPECT_EQ(Start(1000, -1000) + DashedLine(1000, -1000, 1700, -1000, 2, blue), Draw("8 DASHES\n", level));
  EXPECT_EQ(CornerStrokes(black), Draw("8 GONE\n", corner));
}

TEST_F(PolylineTest, an_excluded_layer_ends_it_at_its_group_8) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 WALLS\n62 1\n", corner));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
  ReadGroup(stream);
  EXPECT_EQ(62, state.groupCode);
}

TEST_F(PolylineTest, code_62_is_mapped) {
  EXPECT_EQ(CornerStrokes(green), Draw("62 3\n", corner));
  EXPECT_EQ(CornerStrokes(cyan), Draw("62 130\n", corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 WALLS\n62 0\n", corner));
  EXPECT_EQ(CornerStrokes(black), Draw("8 WALLS\n62 256\n", corner));
  EXPECT_EQ(CornerStrokes(countColor), Draw("62 -1\n", corner));
}

TEST_F(PolylineTest, code_8_overwrites_what_stands_before_it_and_not_what_stands_behind) {
  EXPECT_EQ(CornerStrokes(red), Draw("62 3\n8 WALLS\n", corner));
  EXPECT_EQ(CornerStrokes(green), Draw("8 WALLS\n62 3\n", corner));
}

TEST_F(PolylineTest, the_colour_is_kept_in_ent_color_and_starts_at_0) {
  state.blockColor = 4;
  state.dimColor = 4;
  Draw("62 1\n", corner);
  EXPECT_EQ(1, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(4, state.dimColor);
  EXPECT_EQ(CornerStrokes(black), Draw("", corner));
}

TEST_F(PolylineTest, it_has_no_width) {
  // WALLS has a width of 7.
  EXPECT_EQ(CornerStrokes(red), Draw("39 900\n40 5\n41 5\n43 5\n8 WALLS\n39 900\n", corner));
}

TEST_F(PolylineTest, an_excluded_family_is_not_drawn) {
  DefineLtype(4, {300, -200});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n", level));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "VERTEX"));
  EXPECT_EQ(LevelStroke(black), Draw("6 HIDDEN\n6 BYLAYER\n", level));
}

TEST_F(PolylineTest, with_monochrome_on_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(CornerStrokes(black), Draw("8 WALLS\n62 3\n", corner));
}

// Closing.

TEST_F(PolylineTest, flag_1_closes_it) {
  // Back from (4000, -2000) to (1000, -1000): m = -1/3, b = -666.67; drawn from the left.
  EXPECT_EQ(CornerStrokes(black) + Stroke(black, 1000, -1000, 4000, -2000), Draw("70 1\n", corner));
}

TEST_F(PolylineTest, the_other_flags_do_not_matter) {
  const std::string closed = LevelStroke(black) + Stroke(black, 1700, -1000, 1000, -1000);
  for (const char* flags : {"0", "2", "4", "8", "16", "32", "64", "128", "-2", "x"})
    EXPECT_EQ(LevelStroke(black), Draw("70 " + std::string(flags) + "\n", level)) << flags;
  for (const char* flags : {"1", "9", "129", "-1", "1.9"})
    EXPECT_EQ(closed, Draw("70 " + std::string(flags) + "\n", level)) << flags;
  EXPECT_EQ(LevelStroke(black), Draw("70 1\n70 0\n", level));
}

TEST_F(PolylineTest, closed_with_one_vertex_it_has_a_line_without_length) {
  EXPECT_EQ(Start(1000, -1000) + Stroke(black, 1000, -1000, 1000, -1000), Draw("70 1\n", Vertex(10, 90)));
}

TEST_F(PolylineTest, closed_with_one_vertex_off_the_view_it_has_none) {
  EXPECT_EQ(Start(-1000, -1000), Draw("70 1\n", Vertex(-10, 90)));
}

// The view: (1000, -1000) to (3000, -3000) in canvas coordinates.

class PolylineViewTest : public PolylineTest {
 protected:
  PolylineViewTest() { view = {1000, 1000, 3000, 3000}; }
};

TEST_F(PolylineViewTest, behind_a_line_beyond_one_edge_the_next_starts_at_the_last_accepted_vertex) {
  const std::string inside = Vertex(20, 80);
  // From (2000, -2000) across the edge, then to a vertex that is dropped, and back into the view.
  // Left: from (500, -2000) to (2500, -3000), m = -0.5, b = -1750; at 1000: -2250.
  EXPECT_EQ(
      Start(2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000) + Stroke(black, 1000, -2250, 2500, -3000),
      Draw("", inside + Vertex(5, 80) + Vertex(6, 85) + Vertex(25, 70)));
  // Right: from (3500, -2000) to (1500, -3000), m = 0.5, b = -3750; at 3000: -2250.
  EXPECT_EQ(
      Start(2000, -2000) + Stroke(black, 2000, -2000, 3000, -2000) + Stroke(black, 1500, -3000, 3000, -2250),
      Draw("", inside + Vertex(35, 80) + Vertex(34, 85) + Vertex(15, 70)));
  // Top: from (2000, -500) to (1000, -2500), m = 2, b = -4500; -1000 is at 1750.
  EXPECT_EQ(
      Start(2000, -2000) + Stroke(black, 2000, -2000, 2000, -1000) + Stroke(black, 1000, -2500, 1750, -1000),
      Draw("", inside + Vertex(20, 95) + Vertex(25, 96) + Vertex(10, 75)));
  // Bottom: from (2000, -3500) to (1000, -1500), m = -2, b = 500; -3000 is at 1750.
  EXPECT_EQ(
      Start(2000, -2000) + Stroke(black, 2000, -2000, 2000, -3000) + Stroke(black, 1000, -1500, 1750, -3000),
      Draw("", inside + Vertex(20, 65) + Vertex(25, 60) + Vertex(10, 85)));
}

TEST_F(PolylineViewTest, a_vertex_off_the_view_between_two_within_it_is_not_simply_dropped) {
  // (2000, -2000) to (500, -2000) and to (500, -2500), which is dropped, and from (500, -2000) to
  // (2000, -2000).
  EXPECT_EQ(
      Start(2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000) + Stroke(black, 1000, -2000, 2000, -2000),
      Draw("", Vertex(20, 80) + Vertex(5, 80) + Vertex(5, 75) + Vertex(20, 80)));
}

TEST_F(PolylineViewTest, lines_on_an_edge_are_kept) {
  // Around the view, from its upper left corner.
  EXPECT_EQ(Start(1000, -1000) + Stroke(black, 1000, -1000, 3000, -1000) +
                Stroke(black, 3000, -1000, 3000, -3000) + Stroke(black, 3000, -3000, 1000, -3000) +
                Stroke(black, 1000, -3000, 1000, -1000),
            Draw("70 1\n", Vertex(10, 90) + Vertex(30, 90) + Vertex(30, 70) + Vertex(10, 70)));
}

TEST_F(PolylineViewTest, a_level_line_is_clamped_and_keeps_its_direction) {
  EXPECT_EQ(Start(500, -2000) + Stroke(black, 1000, -2000, 3000, -2000),
            Draw("", Vertex(5, 80) + Vertex(95, 80)));
  EXPECT_EQ(Start(9500, -2000) + Stroke(black, 3000, -2000, 1000, -2000),
            Draw("", Vertex(95, 80) + Vertex(5, 80)));
}

TEST_F(PolylineViewTest, an_upright_line_is_clamped_and_keeps_its_direction) {
  EXPECT_EQ(Start(2000, -100) + Stroke(black, 2000, -1000, 2000, -3000),
            Draw("", Vertex(20, 99) + Vertex(20, 5)));
  EXPECT_EQ(Start(2000, -9500) + Stroke(black, 2000, -3000, 2000, -1000),
            Draw("", Vertex(20, 5) + Vertex(20, 99)));
}

TEST_F(PolylineViewTest, a_line_without_length_is_kept) {
  EXPECT_EQ(Start(2000, -2000) + Stroke(black, 2000, -2000, 2000, -2000),
            Draw("", Vertex(20, 80) + Vertex(20, 80)));
}

TEST_F(PolylineViewTest, in_a_view_turned_inside_out_the_two_ends_are_clamped_in_different_orders) {
  // The last point goes to the right edge and then to the left one, the new point the other way round.
  view = {2000, 1000, 1000, 3000};
  EXPECT_EQ(Start(2500, -2000) + Stroke(black, 2000, -2000, 1000, -2000),
            Draw("", Vertex(25, 80) + Vertex(5, 80)));
  // Both go to the lower edge, at -1000, and then to the upper one.
  view = {1000, 2500, 3000, 1000};
  EXPECT_EQ(Start(2000, -3000) + Stroke(black, 2000, -2500, 2000, -2500),
            Draw("", Vertex(20, 70) + Vertex(20, 95)));
}

TEST_F(PolylineViewTest, a_slanted_line_is_cut_and_drawn_from_the_left) {
  // Left and right: m = -0.5, b = -1000; at 1000: -1500, at 3000: -2500.
  const std::string across = Stroke(black, 1000, -1500, 3000, -2500);
  EXPECT_EQ(Start(0, -1000) + across, Draw("", Vertex(0, 90) + Vertex(40, 70)));
  EXPECT_EQ(Start(4000, -3000) + across, Draw("", Vertex(40, 70) + Vertex(0, 90)));
  // Top, from within: m = 2, b = -4000; -1000 is at 1500.
  const std::string up = Stroke(black, 1250, -1500, 1500, -1000);
  EXPECT_EQ(Start(1250, -1500) + up, Draw("", Vertex(12.5, 85) + Vertex(17.5, 95)));
  EXPECT_EQ(Start(1750, -500) + up, Draw("", Vertex(17.5, 95) + Vertex(12.5, 85)));
  // Bottom: m = -2, b = 0; -3000 is at 1500.
  const std::string down = Stroke(black, 1250, -2500, 1500, -3000);
  EXPECT_EQ(Start(1250, -2500) + down, Draw("", Vertex(12.5, 75) + Vertex(17.5, 65)));
  EXPECT_EQ(Start(1750, -3500) + down, Draw("", Vertex(17.5, 65) + Vertex(12.5, 75)));
}

TEST_F(PolylineViewTest, the_closing_line_starts_at_the_last_accepted_vertex) {
  EXPECT_EQ(
      Start(2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000) + Stroke(black, 1000, -2000, 2000, -2000),
      Draw("70 1\n", Vertex(20, 80) + Vertex(5, 80) + Vertex(6, 85)));
}

TEST_F(PolylineViewTest, a_closing_line_beyond_one_edge_is_dropped) {
  EXPECT_EQ(
      Start(500, -2000) + Stroke(black, 1000, -2000, 2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000),
      Draw("70 1\n", Vertex(5, 80) + Vertex(20, 80) + Vertex(6, 80)));
}

TEST_F(PolylineViewTest, behind_a_slanted_line_of_which_nothing_is_left_the_next_starts_at_its_end) {
  view = {0, 0, 1000, 1000};
  // From (-1000, -3200) to (500, -200), m = 2: it passes the left edge at -1200, below the view.
  EXPECT_EQ(Start(-1000, -3200) + Stroke(black, 500, -200, 800, -200),
            Draw("", Vertex(-10, 68) + Vertex(5, 98) + Vertex(8, 98)));
}

TEST_F(PolylineTest, a_single_coordinate_of_minus_1_drops_a_slanted_line) {
  view = {-2000, 0, 20000, 10000};
  // The start's X, the start's Y, the end's X and the end's Y, each in its true place: m = -1 or 1. The next
  // line starts at the dropped one's end.
  EXPECT_EQ(Start(-1, -1000) + Stroke(black, 999, -2000, 1500, -2000),
            Draw("", Vertex(-0.01, 90) + Vertex(9.99, 80) + Vertex(15, 80)));
  EXPECT_EQ(Start(1000, -1) + Stroke(black, 2000, -1001, 3000, -1001),
            Draw("", Vertex(10, 99.99) + Vertex(20, 89.99) + Vertex(30, 89.99)));
  EXPECT_EQ(Start(-1001, -1000) + Stroke(black, -1, -2000, 500, -2000),
            Draw("", Vertex(-10.01, 90) + Vertex(-0.01, 80) + Vertex(5, 80)));
  EXPECT_EQ(Start(1000, -1001) + Stroke(black, 2000, -1, 3000, -1),
            Draw("", Vertex(10, 89.99) + Vertex(20, 99.99) + Vertex(30, 99.99)));
}

TEST_F(PolylineTest, coordinates_of_0_do_not_drop_a_slanted_line) {
  EXPECT_EQ(Start(0, -1000) + Stroke(black, 0, -1000, 1000, 0), Draw("", Vertex(0, 90) + Vertex(10, 100)));
}

// Dashes.

TEST_F(PolylineTest, families_walk_two_two_four_and_six_elements) {
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

TEST_F(PolylineTest, the_pattern_restarts_at_each_vertex) {
  DefineLtype(4, {300, -200});
  // 1000..1300 and a gap beyond 1450; from there 1450..1750, and from 1950 a dash cut to 2000.
  EXPECT_EQ(Start(1000, -1000) + InPen(black, "MoveToEx(1000, -1000)\nLineTo(1300, -1000)\n") +
                InPen(black,
                      "MoveToEx(1450, -1000)\nLineTo(1750, -1000)\nMoveToEx(1950, -1000)\n"
                      "LineTo(2000, -1000)\n"),
            Draw("6 HIDDEN\n", Vertex(10, 90) + Vertex(14.5, 90) + Vertex(20, 90)));
}

TEST_F(PolylineTest, a_level_line_to_the_left_is_walked_from_its_right_end_and_a_slanted_one_from_its_left) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(Start(1700, -1000) + InPen(black,
                                       "MoveToEx(1700, -1000)\nLineTo(1400, -1000)\nMoveToEx(1200, -1000)\n"
                                       "LineTo(1000, -1000)\n"),
            Draw("6 HIDDEN\n", Vertex(17, 90) + Vertex(10, 90)));
  EXPECT_EQ(Start(1700, -1700) + DashedLine(1000, -1000, 1700, -1700),
            Draw("6 HIDDEN\n", Vertex(17, 83) + Vertex(10, 90)));
}

TEST_F(PolylineTest, the_closing_line_is_dashed_too) {
  DefineLtype(4, {300, -200});
  EXPECT_EQ(Start(1000, -1000) + DashedLine(1000, -1000, 1700, -1000) + DashedLine(1700, -1000, 1000, -1000),
            Draw("6 HIDDEN\n70 1\n", level));
}

// Arcs. Half a unit of shift keeps what the last digits of a centre lack away from the sheet.

class PolylineArcTest : public PolylineTest {
 protected:
  PolylineArcTest() {
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }
};

// The half circle from (1000, -5000) to (3000, -5000): its start is left of the centre, at 180 degrees.
const std::string halfCircle = Vertex(10, 50, 1) + Vertex(30, 50);
const std::string halfCircleUp = Vertex(10, 50, -1) + Vertex(30, 50);
const char below[] = "MoveToEx(1000, -5000)\nAngleArc(2000, -5000, 1000, 180, -180)\n";
const char above[] = "MoveToEx(1000, -5000)\nAngleArc(2000, -5000, 1000, 180, 180)\n";

TEST_F(PolylineArcTest, a_positive_bulge_runs_counterclockwise_and_a_negative_one_clockwise) {
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below), Draw("", halfCircle));
  EXPECT_EQ(Start(1000, -5000) + InPen(black, above), Draw("", halfCircleUp));
}

TEST_F(PolylineArcTest, its_colour_is_the_polylines_and_its_pen_has_no_width) {
  EXPECT_EQ(Start(1000, -5000) + InPen(red, below), Draw("8 WALLS\n", halfCircle));
  state.monochrome = 1;
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below), Draw("8 WALLS\n", halfCircle));
}

TEST_F(PolylineArcTest, a_positive_dashed_arc_starts_at_its_first_vertex) {
  for (const int32_t slot : {0, 1, 5, 9}) DefineLtype(slot, {300, -200, 0, -100, 50, -50});
  const auto dashed = [](int32_t count) {
    return Start(1000, -5000) + ListCalls([=](Canvas canvas) {
             DashArc(canvas, 2000, -5000, 1000, 180.0, -180.0, 10000, 5000, black, dashes, count, 0);
           });
  };
  EXPECT_EQ(dashed(2), Draw("6 DASH\n", halfCircle));
  EXPECT_EQ(dashed(2), Draw("6 DOT\n", halfCircle));
  EXPECT_EQ(dashed(4), Draw("6 DASHDOT\n", halfCircle));
  EXPECT_EQ(dashed(6), Draw("6 DASHDOTDOT\n", halfCircle));
}

TEST_F(PolylineArcTest, a_negative_dashed_arc_starts_at_the_negated_angle) {
  for (const int32_t slot : {0, 1, 5, 9}) DefineLtype(slot, {300, -200, 0, -100, 50, -50});
  // -(180 + 360)
  const auto dashed = [](int32_t count) {
    return Start(1000, -5000) + ListCalls([=](Canvas canvas) {
             DashArc(canvas, 2000, -5000, 1000, -540.0, -180.0, 10000, 5000, black, dashes, count, 0);
           });
  };
  EXPECT_EQ(dashed(2), Draw("6 DASH\n", halfCircleUp));
  EXPECT_EQ(dashed(2), Draw("6 DOT\n", halfCircleUp));
  EXPECT_EQ(dashed(4), Draw("6 DASHDOT\n", halfCircleUp));
  EXPECT_EQ(dashed(6), Draw("6 DASHDOTDOT\n", halfCircleUp));
}

TEST_F(PolylineArcTest, a_dashed_arc_restarts_the_pattern_too) {
  DefineLtype(1, {300, -200, 0, -100, 50, -50});
  const std::string arc = ListCalls([](Canvas canvas) {
    DashArc(canvas, 2000, -5000, 1000, 180.0, -180.0, 10000, 5000, black, dashes, 2, 0);
  });
  EXPECT_EQ(
      Start(500, -5000) + DashedLine(500, -5000, 1000, -5000) + arc + DashedLine(3000, -5000, 3500, -5000),
      Draw("6 DASH\n", Vertex(5, 50) + halfCircle + Vertex(35, 50)));
}

TEST_F(PolylineArcTest, behind_an_arc_a_vertex_without_a_bulge_starts_a_line) {
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below) + Stroke(black, 3000, -5000, 3000, -2000),
            Draw("", halfCircle + Vertex(30, 80)));
}

TEST_F(PolylineArcTest, behind_an_arc_a_bulge_of_0_starts_a_line) {
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below) + Stroke(black, 3000, -5000, 3000, -2000) +
                Stroke(black, 3000, -2000, 5000, -2000),
            Draw("", Vertex(10, 50, 1) + Vertex(30, 50, 0) + Vertex(30, 80, 0) + Vertex(50, 80)));
}

TEST_F(PolylineArcTest, arcs_follow_each_other) {
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below) +
                InPen(black, "MoveToEx(3000, -5000)\nAngleArc(4000, -5000, 1000, 180, 180)\n"),
            Draw("", Vertex(10, 50, 1) + Vertex(30, 50, -1) + Vertex(50, 50)));
}

TEST_F(PolylineArcTest, a_bulge_on_a_later_vertex_counts_from_there) {
  EXPECT_EQ(Start(500, -5000) + Stroke(black, 500, -5000, 1000, -5000) + InPen(black, below),
            Draw("", Vertex(5, 50) + halfCircle));
}

TEST_F(PolylineArcTest, the_last_bulge_of_an_open_polyline_is_never_used) {
  EXPECT_EQ(Start(1000, -1000) + Stroke(black, 1000, -1000, 1700, -1000),
            Draw("", Vertex(10, 90) + Vertex(17, 90, 1)));
}

TEST_F(PolylineArcTest, a_closed_polyline_with_a_bulge_on_its_last_vertex_ends_with_an_arc) {
  // From (2000, -5000) up to (2000, -3000), back down on the left: the start is above the centre, at 270.
  EXPECT_EQ(Start(2000, -5000) + Stroke(black, 2000, -5000, 2000, -3000) +
                InPen(black, "MoveToEx(2000, -3000)\nAngleArc(2000, -4000, 1000, 270, -180)\n"),
            Draw("70 1\n", Vertex(20, 50) + Vertex(20, 70, 1)));
  EXPECT_EQ(2000.0, state.entX[0]);
  EXPECT_EQ(5000.0, state.entY[0]);
  // Below the line to the left.
  EXPECT_EQ(Start(3000, -5000) + Stroke(black, 3000, -5000, 1000, -5000) + InPen(black, below),
            Draw("70 1\n", Vertex(30, 50) + Vertex(10, 50, 1)));
}

TEST_F(PolylineArcTest, an_arc_before_the_last_vertex_does_not_make_the_closing_arc) {
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below) + Stroke(black, 3000, -5000, 1000, -5000),
            Draw("70 1\n", halfCircle));
}

TEST_F(PolylineArcTest, closed_with_one_bulged_vertex_it_has_an_arc_without_a_radius) {
  EXPECT_EQ(Start(2000, -5000) + InPen(black, "MoveToEx(2000, -5000)\nAngleArc(2000, -5000, 0, 270, -180)\n"),
            Draw("70 1\n", Vertex(20, 50, 1)));
}

TEST_F(PolylineArcTest, an_arc_between_equal_vertices_has_no_radius) {
  EXPECT_EQ(Start(2000, -5000) + InPen(black, "MoveToEx(2000, -5000)\nAngleArc(2000, -5000, 0, 270, 180)\n"),
            Draw("", Vertex(20, 50, -1) + Vertex(20, 50)));
}

TEST_F(PolylineArcTest, the_scale_divides_the_models_radius) {
  state.drawScale = 2.0;
  // The model's centre is (4000, 10000), its radius 2000.
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below), Draw("", Vertex(20, 100, 1) + Vertex(60, 100)));
}

TEST_F(PolylineArcTest, the_circle_is_kept_in_the_ent_fields) {
  Draw("", halfCircle);
  EXPECT_EQ(1000.0, state.entRadius);
  EXPECT_NEAR(2000.0, state.entCentreX, 1e-6);
  EXPECT_NEAR(5000.0, state.entCentreY, 1e-6);
  EXPECT_EQ(0.0, state.blockRadius);
  EXPECT_EQ(0.0, state.dimRadius);
}

// Arcs in the view.

// The circle reaches from 1000 to 3000 across and from 4000 to 6000 down. After it a line to (2000, -4500).
const std::string halfCircleAndLine = halfCircle + Vertex(20, 50) + Vertex(20, 55);

TEST_F(PolylineArcTest, an_arc_is_drawn_if_its_whole_circle_is_in_the_view) {
  const std::string lines = Stroke(black, 3000, -5000, 2000, -5000) + Stroke(black, 2000, -5000, 2000, -4500);
  view = {1000, 4000, 3000, 6000};
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below) + lines, Draw("", halfCircleAndLine));
}

TEST_F(PolylineArcTest, an_arc_whose_circle_sticks_out_of_the_view_is_dropped_and_the_walk_goes_on) {
  const auto lines = [](int32_t right) {
    return Start(1000, -5000) + Stroke(black, right, -5000, 2000, -5000) +
           Stroke(black, 2000, -5000, 2000, -4500);
  };
  // One unit at the left, the right, the top and the bottom. The arc itself touches neither top nor right.
  view = {1001, 4000, 3000, 6000};
  EXPECT_EQ(lines(3000), Draw("", halfCircleAndLine));
  view = {1000, 4000, 2999, 6000};
  EXPECT_EQ(lines(2999), Draw("", halfCircleAndLine));
  view = {1000, 4001, 3000, 6000};
  EXPECT_EQ(lines(3000), Draw("", halfCircleAndLine));
  view = {1000, 4000, 3000, 5999};
  EXPECT_EQ(lines(3000), Draw("", halfCircleAndLine));
}

TEST_F(PolylineArcTest, an_arc_whose_circle_sticks_out_of_the_sheet_is_lost) {
  // A quarter of a circle of radius 1414 about (1000, 0): all of the arc is on the sheet.
  EXPECT_EQ(Start(1000, -200), Draw("", Vertex(10, 98, 0.414214) + Vertex(30, 98)));
}

TEST_F(PolylineArcTest, a_dropped_arc_hands_on_the_next_bulge) {
  view = {1001, 4000, 20000, 6000};
  EXPECT_EQ(
      Start(1000, -5000) + InPen(black, "MoveToEx(3000, -5000)\nAngleArc(4000, -5000, 1000, 180, 180)\n"),
      Draw("", Vertex(10, 50, 1) + Vertex(30, 50, -1) + Vertex(50, 50)));
}

class PolylineRejectedBulgeTest : public PolylineArcTest {
 protected:
  PolylineRejectedBulgeTest() { view = {1000, 1000, 3000, 3000}; }

  // Out of the view to the left, on to a vertex with a bulge that is dropped, back to (1200, -2000) and on to
  // (2200, -2000).
  std::string DrawWith(const std::string& bulgeOnReturn) {
    return Draw("", Vertex(20, 80) + Vertex(5, 80) + Vertex(6, 85, 1) + Vertex(12, 80) + bulgeOnReturn +
                        Vertex(22, 80));
  }

  const std::string wayBack =
      Start(2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000) + Stroke(black, 1000, -2000, 1200, -2000);
};

TEST_F(PolylineRejectedBulgeTest, it_survives_to_the_next_vertex_without_one) {
  EXPECT_EQ(wayBack + InPen(black, "MoveToEx(1200, -2000)\nAngleArc(1700, -2000, 500, 180, -180)\n"),
            DrawWith(""));
}

TEST_F(PolylineRejectedBulgeTest, one_of_the_next_vertex_takes_its_place) {
  EXPECT_EQ(wayBack + InPen(black, "MoveToEx(1200, -2000)\nAngleArc(1700, -2000, 500, 180, 180)\n"),
            DrawWith("42 -1\n"));
  EXPECT_EQ(wayBack + Stroke(black, 1200, -2000, 2200, -2000), DrawWith("42 0\n"));
}

TEST_F(PolylineRejectedBulgeTest, it_does_not_make_a_closing_arc) {
  EXPECT_EQ(
      Start(2000, -2000) + Stroke(black, 2000, -2000, 1000, -2000) + Stroke(black, 1000, -2000, 2000, -2000),
      Draw("70 1\n", Vertex(20, 80) + Vertex(5, 80) + Vertex(6, 85, 1)));
}

TEST_F(PolylineArcTest, the_bulge_at_a_slanted_line_of_which_nothing_is_left_counts) {
  view = {0, 0, 1000, 1000};
  // The line from (-999, -3200) is dropped as it rises past the left edge below the view. The arc goes from
  // (500, -200) straight down.
  EXPECT_EQ(Start(-999, -3200) + InPen(black, "MoveToEx(500, -200)\nAngleArc(500, -300, 100, 270, -180)\n"),
            Draw("", Vertex(-10, 68) + Vertex(5, 98, 1) + Vertex(5, 96)));
}

// The system whose arcs run the other way round. The record's box is smaller by one at the right and the top.

std::string InPenOfStyle(const char* style, const char* call) {
  return "CreatePen(1, " + std::string(style) + ", 0, 0x0000FF)\nSelectObject(1)\n" + call +
         "SelectObject(BLACK_PEN)\nDeleteObject(1)\n";
}

const char arcBelow[] = "Arc(1000, -6001, 3000, -4001, 1000, -5000, 3000, -5000)\n";
const char arcAbove[] = "Arc(1000, -6001, 3000, -4001, 3000, -5000, 1000, -5000)\n";

TEST_F(PolylineArcTest, where_arcs_run_clockwise_the_system_draws_them) {
  state.arcClockwise = 1;
  EXPECT_EQ(Start(1000, -5000) + InPenOfStyle("PS_SOLID", arcBelow), Draw("62 1\n", halfCircle));
  EXPECT_EQ(Start(1000, -5000) + InPenOfStyle("PS_SOLID", arcAbove), Draw("62 1\n", halfCircleUp));
}

TEST_F(PolylineArcTest, where_arcs_run_clockwise_the_family_is_the_pens_style) {
  state.arcClockwise = 1;
  DefineLtypes({0, 1, 5, 9});
  const auto arc = [](const char* style) { return Start(1000, -5000) + InPenOfStyle(style, arcBelow); };
  EXPECT_EQ(arc("PS_DASH"), Draw("62 1\n6 DASH\n", halfCircle));
  EXPECT_EQ(arc("PS_DOT"), Draw("62 1\n6 DOT\n", halfCircle));
  EXPECT_EQ(arc("PS_DASHDOT"), Draw("62 1\n6 DASHDOT\n", halfCircle));
  EXPECT_EQ(arc("PS_DASHDOTDOT"), Draw("62 1\n6 DASHDOTDOT\n", halfCircle));
}

TEST_F(PolylineArcTest, where_arcs_run_clockwise_they_are_not_turned) {
  state.arcClockwise = 1;
  state.rotated = 1;
  EXPECT_EQ(Start(1000, -5000) + InPenOfStyle("PS_SOLID", arcBelow), Draw("62 1\n", halfCircle));
}

TEST_F(PolylineArcTest, where_arcs_run_clockwise_the_whole_circle_must_be_in_the_view_too) {
  state.arcClockwise = 1;
  view = {1000, 4000, 2999, 6000};
  EXPECT_EQ(Start(1000, -5000), Draw("", halfCircle));
}

TEST_F(PolylineArcTest, only_1_counts_as_clockwise) {
  state.arcClockwise = 2;
  EXPECT_EQ(Start(1000, -5000) + InPen(black, below), Draw("", halfCircle));
}

// The turned sheet.

TEST_F(PolylineTest, on_a_turned_sheet_each_lines_end_becomes_its_start) {
  state.rotated = 1;
  // (20000 - x, -10000 - y); the first move isn't turned.
  EXPECT_EQ(Start(1000, -1000) + Stroke(black, 18000, -8000, 19000, -9000) +
                Stroke(black, 16000, -8000, 18000, -8000),
            Draw("", corner));
}

TEST_F(PolylineArcTest, on_a_turned_sheet_an_arc_gains_180_degrees) {
  state.rotated = 1;
  // At 360 degrees it starts right of the centre (18000, -5000).
  EXPECT_EQ(
      Start(1000, -5000) + InPen(black, "MoveToEx(19000, -5000)\nAngleArc(18000, -5000, 1000, 360, -180)\n"),
      Draw("", halfCircle));
  EXPECT_EQ(
      Start(1000, -5000) + InPen(black, "MoveToEx(19000, -5000)\nAngleArc(18000, -5000, 1000, 360, 180)\n"),
      Draw("", halfCircleUp));
}

TEST_F(PolylineArcTest, on_a_turned_sheet_dashes_are_turned) {
  state.rotated = 1;
  DefineLtype(4, {300, -200, 0, -100, 50, -50});
  const std::string arc = ListCalls([](Canvas canvas) {
    DashArc(canvas, 2000, -5000, 1000, 180.0, -180.0, 10000, 5000, black, dashes, 2, 1);
  });
  const std::string line = ListCalls(
      [](Canvas canvas) { DashLine(canvas, 3000, -5000, 5000, -5000, 10000, 5000, 0, black, dashes, 2, 1); });
  EXPECT_EQ(Start(1000, -5000) + arc + line, Draw("6 HIDDEN\n", halfCircle + Vertex(50, 50)));
  const std::string negativeArc = ListCalls([](Canvas canvas) {
    DashArc(canvas, 2000, -5000, 1000, -540.0, -180.0, 10000, 5000, black, dashes, 2, 1);
  });
  EXPECT_EQ(Start(1000, -5000) + negativeArc, Draw("6 HIDDEN\n", halfCircleUp));
}

// Bad input.

TEST_F(PolylineTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(CornerStrokes(black), DrawText("0 POLYLINE\n" + corner));
  EXPECT_EQ(0, result);
  EXPECT_EQ(LevelStroke(black), DrawText("0 POLYLINE\n" + Vertex(10, 90) + "0 VERTEX\n10 17\n"));
  EXPECT_EQ(LevelStroke(black) + Stroke(black, 1700, -1000, 1000, -1000),
            DrawText("0 POLYLINE\n70 1\n" + level));
  EXPECT_EQ("", DrawText("0 POLYLINE\n70 1\n"));
  EXPECT_EQ(0, result);
}

TEST_F(PolylineTest, cut_off_anywhere_it_ends) {
  const std::string bytes =
      DrawingBytes("0 POLYLINE\n8 WALLS\n70 1\n" + level + Vertex(20, 50, 1) + Vertex(30, 50, -0.5));
  const std::string whole = Start(1000, -1000) + Stroke(red, 1000, -1000, 1700, -1000);
  for (size_t size = 0; size <= bytes.size(); ++size) {
    TextStream cut;
    cut.complete = true;
    cut.bytes.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    const std::string drawn = DrawStream(std::move(cut));
    EXPECT_EQ(0, ReadGroup(stream)) << size;
    // After the second vertex's last byte its line doesn't change any more.
    if (size > DrawingBytes("0 POLYLINE\n8 WALLS\n70 1\n" + level).size()) {
      EXPECT_EQ(whole, drawn.substr(0, whole.size())) << size;
    }
  }
}

TEST_F(PolylineTest, absurd_coordinates_count_as_the_smallest) {
  // 1e300, an infinite number and one of the other sign all end at the left edge.
  for (const char* x : {"1e300", "1e999", "-1e300", "-1e999"})
    EXPECT_EQ(Start(1000, -1000) + Stroke(black, 1000, -1000, 0, -1000),
              Draw("", Vertex(10, 90) + "0 VERTEX\n10 " + x + "\n"))
        << x;
  EXPECT_EQ(Start(INT32_MIN, INT32_MIN), Draw("70 1\n", "0 VERTEX\n10 1e999\n20 -1e999\n"));
}

TEST_F(PolylineArcTest, absurd_arcs_are_lost) {
  for (const char* bulge : {"1e300", "1e999", "-1e999", "1e-300", "-1e-300"})
    EXPECT_EQ(Start(1000, -5000) + Stroke(black, 3000, -5000, 3000, -2000),
              Draw("", Vertex(10, 50) + "42 " + bulge + "\n" + Vertex(30, 50) + Vertex(30, 80)))
        << bulge;
  EXPECT_EQ(Start(1000, -5000), Draw("", Vertex(10, 50, 1) + "0 VERTEX\n10 1e300\n20 1e999\n"));
}

TEST_F(PolylineArcTest, a_bulge_that_is_no_number_is_none) {
  EXPECT_EQ(Start(1000, -5000) + Stroke(black, 1000, -5000, 3000, -5000),
            Draw("", Vertex(10, 50) + "42 nan\n" + Vertex(30, 50)));
}

TEST_F(PolylineArcTest, absurd_vertices_end_in_the_widest_view) {
  view = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
  for (const char* bulge : {"0", "1", "-1", "1e999"})
    for (const char* x : {"1e300", "-1e999", "1e7", "21474836.47"}) {
      Draw("70 1\n", Vertex(10, 50) + "42 " + bulge + "\n0 VERTEX\n10 " + x + "\n42 " + bulge + "\n");
      EXPECT_EQ(1, result) << bulge << " " << x;
    }
}

TEST_F(PolylineArcTest, absurd_dashed_arcs_end_in_the_widest_view) {
  view = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
  DefineLtype(4, {300, -200});
  for (const char* bulge : {"1", "-1", "1e999", "-1e-300"})
    for (const char* x : {"1e300", "-1e999"}) {
      Draw("6 HIDDEN\n", Vertex(10, 50) + "42 " + bulge + "\n0 VERTEX\n10 " + x + "\n");
      EXPECT_EQ(1, result) << bulge << " " << x;
    }
}

}  // namespace
}  // namespace hexlume::polyline_test
