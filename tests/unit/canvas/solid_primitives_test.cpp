#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "canvas/canvas.h"
#include "support/metafile_canvas.h"

namespace hexlume::solid_primitives_test {
namespace {

// A sheet turned about (1000, -500): (x, y) becomes (2000 - x, -1000 - y).
constexpr int32_t centreX = 1000;
constexpr int32_t centreY = 500;
constexpr COLORREF red = 0x0000FF;
constexpr int32_t upright = 0;
constexpr int32_t turned = 1;

// The strokes of an operation between the records of its pen.
std::string InPen(const std::string& pen, const std::string& strokes) {
  return "CreatePen(1, " + pen + ", 0x0000FF)\nSelectObject(1)\n" + strokes +
         "SelectObject(BLACK_PEN)\nDeleteObject(1)\n";
}

// The same with the hollow brush, which is given back after the pen.
std::string InPenAndHollowBrush(const std::string& strokes) {
  return "CreatePen(1, PS_SOLID, 0, 0x0000FF)\nSelectObject(1)\nSelectObject(NULL_BRUSH)\n" + strokes +
         "SelectObject(BLACK_PEN)\nDeleteObject(1)\nSelectObject(WHITE_BRUSH)\n";
}

// PenLine

std::string ListLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t penWidth, int32_t mirror) {
  return ListCalls(
      [=](Canvas canvas) { PenLine(canvas, x1, y1, x2, y2, centreX, centreY, penWidth, red, mirror); });
}

TEST(PenLine, a_line_is_one_stroke_in_a_solid_pen_of_its_width) {
  EXPECT_EQ(ListLine(10, -20, 30, -40, 25, upright),
            InPen("PS_SOLID, 25", "MoveToEx(10, -20)\nLineTo(30, -40)\n"));
}

TEST(PenLine, a_line_isnt_sorted) {
  EXPECT_EQ(ListLine(30, -40, 10, -20, 0, upright),
            InPen("PS_SOLID, 0", "MoveToEx(30, -40)\nLineTo(10, -20)\n"));
}

TEST(PenLine, a_turned_line_starts_at_the_turned_end_of_its_input) {
  // (300, -400) becomes (1700, -600), (100, -200) becomes (1900, -800).
  EXPECT_EQ(ListLine(100, -200, 300, -400, 0, turned),
            InPen("PS_SOLID, 0", "MoveToEx(1700, -600)\nLineTo(1900, -800)\n"));
}

TEST(PenLine, any_mirror_other_than_0_turns) {
  EXPECT_EQ(ListLine(100, -200, 300, -400, 0, -1), ListLine(100, -200, 300, -400, 0, turned));
}

TEST(PenLine, the_turn_wraps_around) {
  // 2000 - INT32_MIN is 2000 + 2^31, 2^32 above INT32_MIN + 2000; -1000 - INT32_MAX is 999 units below
  // INT32_MIN, which wraps to INT32_MAX - 998.
  EXPECT_EQ(ListLine(0, 0, INT32_MIN, INT32_MAX, 0, turned),
            InPen("PS_SOLID, 0", "MoveToEx(-2147481648, 2147482649)\nLineTo(2000, -1000)\n"));
}

TEST(PenLine, two_lines_dont_share_a_pen) {
  const std::string line = InPen("PS_SOLID, 0", "MoveToEx(10, -20)\nLineTo(30, -40)\n");
  EXPECT_EQ(ListCalls([](Canvas canvas) {
              PenLine(canvas, 10, -20, 30, -40, centreX, centreY, 0, red, upright);
              PenLine(canvas, 10, -20, 30, -40, centreX, centreY, 0, red, upright);
            }),
            line + line);
}

// PenPixel

std::string ListPixel(int32_t x, int32_t y, int32_t mirror) {
  return ListCalls([=](Canvas canvas) { PenPixel(canvas, x, y, centreX, centreY, red, mirror); });
}

TEST(PenPixel, a_pixel_is_set_with_pen_and_hollow_brush_selected) {
  EXPECT_EQ(ListPixel(5, -7, upright), InPenAndHollowBrush("SetPixelV(5, -7, 0x0000FF)\n"));
}

TEST(PenPixel, a_turned_pixel_lies_on_the_turned_point) {
  EXPECT_EQ(ListPixel(5, -7, turned), InPenAndHollowBrush("SetPixelV(1995, -993, 0x0000FF)\n"));
}

// MarkPlus

std::string ListPlus(int32_t x, int32_t y, double size, int32_t mirror) {
  return ListCalls(
      [=](Canvas canvas) { MarkPlus(canvas, x, y, centreX, centreY, red, PS_DASH, size, mirror); });
}

TEST(MarkPlus, point_and_size_are_truncated_as_a_whole) {
  // 10 - 2.5 = 7.5, 10 + 2.5 = 12.5, -20 - 2.5 = -22.5, -20 + 2.5 = -17.5, each towards 0.
  EXPECT_EQ(ListPlus(10, -20, 2.5, upright),
            InPen("PS_DASH, 0", "MoveToEx(7, -20)\nLineTo(12, -20)\nMoveToEx(10, -22)\nLineTo(10, -17)\n"));
}

TEST(MarkPlus, a_turned_plus_stands_on_the_turned_point) {
  // The point becomes (1990, -980): 1987.5, 1992.5, -982.5, -977.5.
  EXPECT_EQ(ListPlus(10, -20, 2.5, turned),
            InPen("PS_DASH, 0",
                  "MoveToEx(1987, -980)\nLineTo(1992, -980)\nMoveToEx(1990, -982)\nLineTo(1990, -977)\n"));
}

// MarkCross

std::string ListCross(int32_t x, int32_t y, double size, int32_t mirror) {
  return ListCalls(
      [=](Canvas canvas) { MarkCross(canvas, x, y, centreX, centreY, red, PS_DOT, size, mirror); });
}

TEST(MarkCross, the_half_diagonal_is_truncated_before_it_meets_the_point) {
  // 2.5 / sqrt 2 = 1.77, so 1: with the fraction, -20 + 1.77 would give -18.
  EXPECT_EQ(ListCross(10, -20, 2.5, upright),
            InPen("PS_DOT, 0", "MoveToEx(9, -21)\nLineTo(11, -19)\nMoveToEx(11, -21)\nLineTo(9, -19)\n"));
}

TEST(MarkCross, a_turned_cross_stands_on_the_turned_point) {
  // The point becomes (1990, -980); 10 / sqrt 2 = 7.07, so 7.
  EXPECT_EQ(ListCross(10, -20, 10.0, turned),
            InPen("PS_DOT, 0",
                  "MoveToEx(1983, -987)\nLineTo(1997, -973)\nMoveToEx(1997, -987)\nLineTo(1983, -973)\n"));
}

TEST(MarkCross, a_size_of_1_gives_two_strokes_without_length) {
  // 1 / sqrt 2 = 0.71, so 0.
  EXPECT_EQ(ListCross(10, -20, 1.0, upright),
            InPen("PS_DOT, 0", "MoveToEx(10, -20)\nLineTo(10, -20)\nMoveToEx(10, -20)\nLineTo(10, -20)\n"));
}

TEST(MarkCross, the_corners_wrap_around) {
  EXPECT_EQ(ListCross(INT32_MAX, INT32_MIN, 1.5, upright),
            InPen("PS_DOT, 0",
                  "MoveToEx(2147483646, 2147483647)\nLineTo(-2147483648, -2147483647)\n"
                  "MoveToEx(-2147483648, 2147483647)\nLineTo(2147483646, -2147483647)\n"));
}

// MarkTick

std::string ListTick(int32_t x, int32_t y, double size, int32_t mirror) {
  return ListCalls(
      [=](Canvas canvas) { MarkTick(canvas, x, y, centreX, centreY, red, PS_DASHDOT, size, mirror); });
}

TEST(MarkTick, a_tick_goes_up_from_the_point) {
  // -20 + 2.5 = -17.5.
  EXPECT_EQ(ListTick(10, -20, 2.5, upright), InPen("PS_DASHDOT, 0", "MoveToEx(10, -20)\nLineTo(10, -17)\n"));
}

TEST(MarkTick, a_tick_on_a_turned_sheet_still_goes_up) {
  // -980 + 2.5 = -977.5.
  EXPECT_EQ(ListTick(10, -20, 2.5, turned),
            InPen("PS_DASHDOT, 0", "MoveToEx(1990, -980)\nLineTo(1990, -977)\n"));
}

// MarkCircle

std::string ListCircle(int32_t x, int32_t y, double size, int32_t arcClockwise, int32_t mirror) {
  return ListCalls([=](Canvas canvas) {
    MarkCircle(canvas, x, y, centreX, centreY, red, PS_DASHDOTDOT, size, arcClockwise, mirror);
  });
}

TEST(MarkCircle, a_clockwise_circle_is_an_arc_that_ends_where_it_starts) {
  // Corners 7.5, -22.5, 12.5, -17.5, truncated to 7, -22, 12, -17; the record's box is smaller by one at the
  // right and the top. Both radials are (12, -20).
  EXPECT_EQ(ListCircle(10, -20, 2.5, 1, upright),
            InPen("PS_DASHDOTDOT, 0", "Arc(7, -22, 11, -18, 12, -20, 12, -20)\n"));
}

TEST(MarkCircle, a_turned_clockwise_circle_stands_on_the_turned_point) {
  // Corners 1987.5, -982.5, 1992.5, -977.5.
  EXPECT_EQ(ListCircle(10, -20, 2.5, 1, turned),
            InPen("PS_DASHDOTDOT, 0", "Arc(1987, -982, 1991, -978, 1992, -980, 1992, -980)\n"));
}

TEST(MarkCircle, a_circle_is_otherwise_an_angle_arc_from_its_right) {
  // 10 + 2.5 = 12.5; the radius is the size without its fraction.
  EXPECT_EQ(ListCircle(10, -20, 2.5, 0, upright),
            InPen("PS_DASHDOTDOT, 0", "MoveToEx(12, -20)\nAngleArc(10, -20, 2, 0, 360)\n"));
}

TEST(MarkCircle, a_turned_circle_also_starts_from_its_right) {
  EXPECT_EQ(ListCircle(10, -20, 2.5, 0, turned),
            InPen("PS_DASHDOTDOT, 0", "MoveToEx(1992, -980)\nAngleArc(1990, -980, 2, 0, 360)\n"));
}

TEST(MarkCircle, only_1_counts_as_clockwise) {
  EXPECT_EQ(ListCircle(10, -20, 2.5, 2, upright), ListCircle(10, -20, 2.5, 0, upright));
}

TEST(MarkCircle, a_size_of_0_9_gives_radius_0) {
  EXPECT_EQ(ListCircle(10, -20, 0.9, 0, upright),
            InPen("PS_DASHDOTDOT, 0", "MoveToEx(10, -20)\nAngleArc(10, -20, 0, 0, 360)\n"));
}

// MarkSquare

std::string ListSquare(int32_t x, int32_t y, double size, int32_t mirror) {
  return ListCalls(
      [=](Canvas canvas) { MarkSquare(canvas, x, y, centreX, centreY, red, PS_SOLID, size, mirror); });
}

TEST(MarkSquare, a_square_goes_up_its_left_side_first_and_comes_back) {
  // Corners 7.5, -22.5, 12.5, -17.5.
  EXPECT_EQ(ListSquare(10, -20, 2.5, upright),
            InPen("PS_SOLID, 0",
                  "MoveToEx(7, -22)\nLineTo(7, -17)\nLineTo(12, -17)\nLineTo(12, -22)\nLineTo(7, -22)\n"));
}

TEST(MarkSquare, a_turned_square_starts_at_its_lower_left_corner_too) {
  // Corners 1987.5, -982.5, 1992.5, -977.5.
  EXPECT_EQ(ListSquare(10, -20, 2.5, turned),
            InPen("PS_SOLID, 0",
                  "MoveToEx(1987, -982)\nLineTo(1987, -977)\nLineTo(1992, -977)\nLineTo(1992, -982)\n"
                  "LineTo(1987, -982)\n"));
}

// PenArc

std::string ListArcStroke(int32_t x, int32_t y, int32_t radius, float startAngle, float sweep,
                          int32_t mirror) {
  return ListCalls([=](Canvas canvas) {
    PenArc(canvas, x, y, radius, startAngle, sweep, centreX, centreY, red, PS_DASH, mirror);
  });
}

TEST(PenArc, an_arc_starts_where_the_negated_angle_points) {
  // 37 degrees up: cos * 1000 = 798.6, sin * 1000 = 601.8.
  EXPECT_EQ(ListArcStroke(100, -2000, 1000, -37.0f, 60.0f, upright),
            InPen("PS_DASH, 0", "MoveToEx(898, -1399)\nAngleArc(100, -2000, 1000, -37, 60)\n"));
}

TEST(PenArc, offsets_from_the_centre_are_truncated_towards_it) {
  // 217 degrees: -798.6 and -601.8.
  EXPECT_EQ(ListArcStroke(100, -2000, 1000, 143.0f, 60.0f, upright),
            InPen("PS_DASH, 0", "MoveToEx(-698, -2601)\nAngleArc(100, -2000, 1000, 143, 60)\n"));
}

TEST(PenArc, pi_has_ten_decimals) {
  // At 150 degrees the shorter pi gives a sine of 0.50000000006. With the full one it is 0.49999999999999994,
  // and the start a unit lower. The cosine gives -866.03.
  EXPECT_EQ(ListArcStroke(0, -2000, 1000, -150.0f, 90.0f, upright),
            InPen("PS_DASH, 0", "MoveToEx(-866, -1500)\nAngleArc(0, -2000, 1000, -150, 90)\n"));
}

TEST(PenArc, a_turned_arc_gains_180_degrees_and_keeps_radius_and_sweep) {
  // The centre becomes (1900, -600), the angle 143: -798.6 and -601.8.
  EXPECT_EQ(ListArcStroke(100, -400, 1000, -37.0f, 60.0f, turned),
            InPen("PS_DASH, 0", "MoveToEx(1102, -1201)\nAngleArc(1900, -600, 1000, 143, 60)\n"));
}

TEST(PenArc, the_turned_angle_isnt_normalised) {
  // 323 + 180 = 503; at -503 degrees cos * 1000 = -798.6, sin * 1000 = -601.8.
  EXPECT_EQ(ListArcStroke(100, -400, 1000, 323.0f, 60.0f, turned),
            InPen("PS_DASH, 0", "MoveToEx(1102, -1201)\nAngleArc(1900, -600, 1000, 503, 60)\n"));
}

TEST(PenArc, the_turned_angle_is_a_float) {
  // Floats between 128 and 256 are 2^-16 apart; the nearest to 180.1 is 11803034 / 65536 = 180.10000610.
  // At -180.1 degrees cos * 1000 = -999.998, sin * 1000 = 1.7.
  EXPECT_EQ(ListArcStroke(100, -400, 1000, 0.1f, 60.0f, turned),
            InPen("PS_DASH, 0", "MoveToEx(901, -599)\nAngleArc(1900, -600, 1000, 180.100006, 60)\n"));
}

TEST(PenArc, radius_0_goes_to_the_system_as_it_is) {
  EXPECT_EQ(ListArcStroke(100, -400, 0, -37.0f, 60.0f, upright),
            InPen("PS_DASH, 0", "MoveToEx(100, -400)\nAngleArc(100, -400, 0, -37, 60)\n"));
}

TEST(PenArc, the_start_wraps_around) {
  // INT32_MAX + 1000, at 0 degrees.
  EXPECT_EQ(ListArcStroke(INT32_MAX, -400, 1000, 0.0f, 60.0f, upright),
            InPen("PS_DASH, 0", "MoveToEx(-2147482649, -400)\nAngleArc(2147483647, -400, 1000, 0, 60)\n"));
}

// PenEllipse

std::string ListEllipse(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t mirror) {
  return ListCalls(
      [=](Canvas canvas) { PenEllipse(canvas, left, top, right, bottom, centreX, centreY, red, mirror); });
}

TEST(PenEllipse, an_ellipse_is_drawn_with_a_hollow_brush) {
  // The record's box is sorted, and smaller by one at the right (50) and the top (-20).
  EXPECT_EQ(ListEllipse(10, -20, 50, -60, upright), InPenAndHollowBrush("Ellipse(10, -60, 49, -21)\n"));
}

TEST(PenEllipse, a_turned_ellipse_has_both_corners_turned) {
  // (10, -20) becomes (1990, -980), (50, -60) becomes (1950, -940).
  EXPECT_EQ(ListEllipse(10, -20, 50, -60, turned), InPenAndHollowBrush("Ellipse(1950, -980, 1989, -941)\n"));
}

// PenEllipseArc

std::string ListEllipseArc(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t xStart,
                           int32_t yStart, int32_t xEnd, int32_t yEnd, int32_t mirror) {
  return ListCalls([=](Canvas canvas) {
    PenEllipseArc(canvas, left, top, right, bottom, xStart, yStart, xEnd, yEnd, centreX, centreY, red,
                  mirror);
  });
}

TEST(PenEllipseArc, a_part_of_an_ellipse_needs_no_brush) {
  EXPECT_EQ(ListEllipseArc(10, -20, 50, -60, 50, -41, 31, -20, upright),
            InPen("PS_SOLID, 0", "Arc(10, -60, 49, -21, 50, -41, 31, -20)\n"));
}

TEST(PenEllipseArc, a_turned_part_has_its_radials_turned_too) {
  // (50, -41) becomes (1950, -959), (31, -20) becomes (1969, -980).
  EXPECT_EQ(ListEllipseArc(10, -20, 50, -60, 50, -41, 31, -20, turned),
            InPen("PS_SOLID, 0", "Arc(1950, -980, 1989, -941, 1950, -959, 1969, -980)\n"));
}

// PenBezier

constexpr std::array<POINT, 4> curve = {{{1, -2}, {30, -4}, {5, -60}, {70, -8}}};
// 2000 - x, -1000 - y
constexpr const char* turnedCurve = "PolyBezier(1999, -998, 1970, -996, 1995, -940, 1930, -992)\n";

TEST(PenBezier, a_curve_is_one_call_in_a_pen_of_its_style_and_width) {
  EXPECT_EQ(ListCalls([points = curve](Canvas canvas) mutable {
              PenBezier(canvas, points.data(), 4, centreX, centreY, 7, red, PS_DASH, upright);
            }),
            InPen("PS_DASH, 7", "PolyBezier(1, -2, 30, -4, 5, -60, 70, -8)\n"));
}

TEST(PenBezier, all_points_of_a_longer_curve_are_drawn_and_turned) {
  std::array<POINT, 7> points = {{{1, -2}, {30, -4}, {5, -60}, {70, -8}, {9, -10}, {11, -12}, {13, -14}}};
  EXPECT_EQ(ListCalls([&points](Canvas canvas) {
              PenBezier(canvas, points.data(), 7, centreX, centreY, 0, red, PS_SOLID, turned);
            }),
            InPen("PS_SOLID, 0",
                  "PolyBezier(1999, -998, 1970, -996, 1995, -940, 1930, -992, 1991, -990, 1989, -988, "
                  "1987, -986)\n"));
}

TEST(PenBezier, a_turned_curve_leaves_its_turned_points_to_the_caller) {
  std::array<POINT, 4> points = curve;
  const std::string calls = ListCalls([&points](Canvas canvas) {
    PenBezier(canvas, points.data(), 4, centreX, centreY, 0, red, PS_SOLID, turned);
  });
  EXPECT_EQ(calls, InPen("PS_SOLID, 0", turnedCurve));
  EXPECT_EQ(points[0].x, 1999);
  EXPECT_EQ(points[0].y, -998);
  EXPECT_EQ(points[3].x, 1930);
  EXPECT_EQ(points[3].y, -992);
}

TEST(PenBezier, the_same_points_drawn_twice_are_turned_back) {
  std::array<POINT, 4> points = curve;
  const std::string calls = ListCalls([&points](Canvas canvas) {
    PenBezier(canvas, points.data(), 4, centreX, centreY, 0, red, PS_SOLID, turned);
    PenBezier(canvas, points.data(), 4, centreX, centreY, 0, red, PS_SOLID, turned);
  });
  EXPECT_EQ(calls, InPen("PS_SOLID, 0", turnedCurve) +
                       InPen("PS_SOLID, 0", "PolyBezier(1, -2, 30, -4, 5, -60, 70, -8)\n"));
}

// FillQuad

std::string FilledPolygon(const std::string& polygon) {
  return InPen("PS_DOT, 0",
               "CreateBrushIndirect(2, BS_SOLID, 0x0000FF, 0)\nSelectObject(2)\n"
               "SetPolyFillMode(ALTERNATE)\n" +
                   polygon + "SelectObject(WHITE_BRUSH)\nDeleteObject(2)\n");
}

constexpr std::array<POINT, 4> quad = {{{10, -20}, {50, -25}, {55, -60}, {15, -70}}};

TEST(FillQuad, the_brush_is_given_back_before_the_pen) {
  EXPECT_EQ(ListCalls([points = quad](Canvas canvas) mutable {
              FillQuad(canvas, points.data(), centreX, centreY, red, PS_DOT, upright);
            }),
            FilledPolygon("Polygon(10, -20, 50, -25, 55, -60, 15, -70)\n"));
}

TEST(FillQuad, a_turned_quadrilateral_leaves_its_turned_points_to_the_caller) {
  std::array<POINT, 4> points = quad;
  const std::string calls = ListCalls(
      [&points](Canvas canvas) { FillQuad(canvas, points.data(), centreX, centreY, red, PS_DOT, turned); });
  EXPECT_EQ(calls, FilledPolygon("Polygon(1990, -980, 1950, -975, 1945, -940, 1985, -930)\n"));
  EXPECT_EQ(points[0].x, 1990);
  EXPECT_EQ(points[0].y, -980);
  EXPECT_EQ(points[3].x, 1985);
  EXPECT_EQ(points[3].y, -930);
}

TEST(FillQuad, the_same_points_filled_twice_are_turned_back) {
  std::array<POINT, 4> points = quad;
  const std::string calls = ListCalls([&points](Canvas canvas) {
    FillQuad(canvas, points.data(), centreX, centreY, red, PS_DOT, turned);
    FillQuad(canvas, points.data(), centreX, centreY, red, PS_DOT, turned);
  });
  EXPECT_EQ(calls, FilledPolygon("Polygon(1990, -980, 1950, -975, 1945, -940, 1985, -930)\n") +
                       FilledPolygon("Polygon(10, -20, 50, -25, 55, -60, 15, -70)\n"));
}

TEST(FillQuad, the_fill_mode_stays_on_the_canvas) {
  ListCalls([points = quad](Canvas canvas) mutable {
    SetPolyFillMode(canvas, WINDING);
    FillQuad(canvas, points.data(), centreX, centreY, red, PS_DOT, upright);
    EXPECT_EQ(SetPolyFillMode(canvas, WINDING), ALTERNATE);
  });
}

}  // namespace
}  // namespace hexlume::solid_primitives_test
