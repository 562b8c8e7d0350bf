// Unbroken lines of a hatch's pattern.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "composite/hatch_families.h"
#include "support/metafile_canvas.h"

namespace hexlume::continuous_hatch_family_test {
namespace {

// 1000 x 600 units. A line from -1000 may rise by -(-400 - 1000) = 1400.
constexpr HatchExtent extent = {0, -400, 1000, -1000};

HatchFamily Family(int32_t degrees, double offX, double offY, int32_t baseX = 0, int32_t baseY = -1000) {
  HatchFamily family;
  family.angle = degrees * pi / 180.0;
  family.baseX = baseX;
  family.baseY = baseY;
  family.offX = offX;
  family.offY = offY;
  return family;
}

std::string List(const HatchFamily& family, const HatchExtent& within = extent, int32_t strokes = 1000) {
  return ListCalls([&](Canvas canvas) { DrawContinuousFamily(canvas, family, within, strokes); });
}

std::string Line(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  return "MoveToEx(" + std::to_string(x1) + ", " + std::to_string(y1) + ")\nLineTo(" + std::to_string(x2) +
         ", " + std::to_string(y2) + ")\n";
}

// Level lines across the extent.
std::string LevelLines(const std::vector<int32_t>& heights, int32_t left = 0, int32_t right = 1000) {
  std::string lines;
  for (const int32_t y : heights) lines += Line(left, y, right, y);
  return lines;
}

// Upright lines as high as their limit.
std::string UprightLines(const std::vector<int32_t>& places) {
  std::string lines;
  for (const int32_t x : places) lines += Line(x, -1000, x, 400);
  return lines;
}

// 0 degrees

TEST(ContinuousHatchFamily, level_lines_rise_to_the_top_and_begin_anew_at_the_first_one) {
  // -1000, -800, -600, -400, above the top. The second pass starts 0 further on and falls to -1200.
  EXPECT_EQ(List(Family(0, 0, 200)), LevelLines({-1000, -800, -600, -400, -1000}));
}

TEST(ContinuousHatchFamily, the_second_pass_over_level_lines_goes_down_to_the_bottom) {
  // The first pass: -700, -500; the second -700, -900, -1100 is below.
  EXPECT_EQ(List(Family(0, 0, 200, 0, -700)), LevelLines({-700, -500, -700, -900}));
}

TEST(ContinuousHatchFamily, level_lines_with_a_falling_offset_rise_in_the_second_pass) {
  // The first pass ends at once: 200 / tan(0) is beyond every edge. The second starts at -1000 + 200.
  EXPECT_EQ(List(Family(0, 0, -200)), LevelLines({-1000, -800, -600, -400}));
}

TEST(ContinuousHatchFamily, an_offset_along_level_lines_counts_in_the_second_pass_alone) {
  // The first pass keeps X at 0; the second starts at 0 - 30, and the quotient by tan(0) counts as 0.
  EXPECT_EQ(List(Family(0, 30, 300)), LevelLines({-1000, -700, -400}) + Line(-30, -1000, 1000, -1000));
}

TEST(ContinuousHatchFamily, level_lines_begin_at_the_left_edge) {
  EXPECT_EQ(List(Family(0, 0, 400, 300)), LevelLines({-1000, -600, -1000}));
}

TEST(ContinuousHatchFamily, level_lines_from_left_of_the_extent_begin_there) {
  EXPECT_EQ(List(Family(0, 0, 400, -50)), LevelLines({-1000, -600, -1000}, -50));
}

TEST(ContinuousHatchFamily, level_lines_catch_up_with_their_fractions) {
  // The first pass takes -1000, -849.5, -699, -548.5; the second starts at -1000 and falls by 150: -1150.
  EXPECT_EQ(List(Family(0, 0, 150.5)), LevelLines({-1000, -849, -699, -548, -1000}));
  // From -1000 + 150 = -850: -700 is below trunc(-699.5) = -699 and is raised; -549 is -549; -399 is raised
  // to -398, above the top.
  EXPECT_EQ(List(Family(0, 0, -150.5)), LevelLines({-1000, -850, -699, -549}));
  // Downward from -450: the first pass -450 only; -450, then -600.5: -600 is above its trunc of -600; -750
  // is above -751; -901 above trunc(-901.5) = -901.
  EXPECT_EQ(List(Family(0, 0, 150.5, 0, -450)), LevelLines({-450, -450, -600, -751, -901}));
}

// 180 and 360 degrees

TEST(ContinuousHatchFamily, lines_at_180_degrees_rise_and_leave_points_at_the_left_edge) {
  // The second pass goes on from (0, -200), and then with the rows from -1000 + 200 on, all of no length.
  EXPECT_EQ(List(Family(180, 0, 200)),
            LevelLines({-1000, -800, -600, -400}) + LevelLines({-200, -800, -600, -400}, 0, 0));
}

TEST(ContinuousHatchFamily, lines_at_180_degrees_with_a_falling_offset_are_those_below_the_first) {
  // -600, -800, -1000; -1200 is below. The second pass: -1200, and -600 - 200 isn't above the top.
  EXPECT_EQ(List(Family(180, 0, -200, 0, -600)), LevelLines({-600, -800, -1000}) + LevelLines({-1200}, 0, 0));
}

TEST(ContinuousHatchFamily, an_offset_to_the_left_turns_over_at_180_degrees) {
  EXPECT_EQ(List(Family(180, -1e-9, -200)), List(Family(180, 0, 200)));
}

TEST(ContinuousHatchFamily, lines_at_180_degrees_begin_at_the_left_edge) {
  EXPECT_EQ(List(Family(180, 0, 200, 300)), List(Family(180, 0, 200)));
}

TEST(ContinuousHatchFamily, lines_at_180_degrees_from_left_of_the_extent_end_short_of_its_right) {
  // As long as the extent is wide: -50 + 1000. The second pass reaches the left edge: -50 + 50.
  EXPECT_EQ(List(Family(180, 0, 300, -50)),
            LevelLines({-1000, -700, -400}, -50, 950) + LevelLines({-100, -700, -400}, -50, 0));
}

TEST(ContinuousHatchFamily, lines_at_180_degrees_catch_up_with_their_fractions) {
  // -849.5: -850 is raised to -849; -849 + 150 = -699 is exact; -548.5: -549 is raised; -398 is above the
  // top. The second pass: -398, then -849, -699, -548.
  EXPECT_EQ(List(Family(180, 0, 150.5)),
            LevelLines({-1000, -849, -699, -548}) + LevelLines({-398, -849, -699, -548}, 0, 0));
  // Downward from -450: -600.5, -751 where -750 is lowered, -901.5, -1052 where -1051 is. The second pass:
  // -1052, and -600 is below the top.
  EXPECT_EQ(List(Family(180, 0, -150.5, 0, -450)),
            LevelLines({-450, -600, -751, -901}) + LevelLines({-1052}, 0, 0));
}

TEST(ContinuousHatchFamily, lines_at_360_degrees_are_those_at_180) {
  EXPECT_EQ(List(Family(360, 0, 200)), List(Family(180, 0, 200)));
  EXPECT_EQ(List(Family(360, 0, -200)), List(Family(180, 0, -200)));
}

// Lines that rise to the right

TEST(ContinuousHatchFamily, lines_at_30_degrees_run_along_the_bottom_and_then_up_the_left_edge) {
  // Negated: (100, -173.2). Slope 0.57735: X grows by 100 + 173.2 / 0.57735 = 399.99: 0, 399.99, 799.98.
  // 1000 * 0.57735 = 577.35; 601 * 0.57735 = 346.99; 201 * 0.57735 = 116.05.
  // The second pass begins at -1000 + 173 + trunc(57.735) = -770; then Y grows by 173.2 + 57.735 = 230.935
  // from -1000: -769.07, -538.13, -307.2 is above the top.
  EXPECT_EQ(List(Family(30, -100, 173.2)), Line(0, -1000, 1000, -423) + Line(399, -1000, 1000, -654) +
                                               Line(799, -1000, 1000, -884) + Line(0, -770, 1000, -193) +
                                               Line(0, -769, 1000, -192) + Line(0, -538, 1000, 39));
}

TEST(ContinuousHatchFamily, an_offset_of_the_other_sign_makes_the_same_lines) {
  EXPECT_EQ(List(Family(30, 100, -173.2)), List(Family(30, -100, 173.2)));
}

TEST(ContinuousHatchFamily, lines_at_210_degrees_are_those_at_30) {
  EXPECT_EQ(List(Family(210, -100, 173.2)), List(Family(30, -100, 173.2)));
}

TEST(ContinuousHatchFamily, lines_at_45_degrees_lose_a_unit_by_the_short_constant) {
  // The slope is a little below 1: 1000 rises by 999. X grows by 400.00000002.
  // The second pass: -1000 + 200 + trunc(199.99999999) = -601; then -600.00000001, whose limit of 1000 isn't
  // less than 999.99999996; -200 is above the top.
  EXPECT_EQ(List(Family(45, -200, 200)), Line(0, -1000, 1000, -1) + Line(400, -1000, 1000, -401) +
                                             Line(800, -1000, 1000, -801) + Line(0, -601, 1000, 398) +
                                             Line(0, -600, 1000, 399));
}

TEST(ContinuousHatchFamily, an_offset_up_and_to_the_right_leads_up_the_left_edge_first) {
  // Y grows by 300 - 100 * slope = 200.000000005: -1000, -799.99, -599.99 (limited: 999), -399.99 is above.
  // The second pass starts at X = -100 + trunc(-300.00000001) = -400 and steps by -400.00000001 from 0: -400
  // again, and at -800 the line is above the extent's upper left corner. 1400 rises by 1399.9999999.
  EXPECT_EQ(List(Family(45, 100, 300)), Line(0, -1000, 1000, -1) + Line(0, -799, 1000, 200) +
                                            Line(0, -599, 999, 400) + Line(-400, -1000, 1000, 399) +
                                            Line(-400, -1000, 1000, 399));
}

TEST(ContinuousHatchFamily, an_offset_flatter_than_the_lines_leads_down_the_left_edge) {
  // Y grows by 100 - 500 * slope = -399.99999998: -1000, -1399.99 (rises by 999.99 to -400, still within
  // reach at the right edge), -1799.99 rises to -800, -2199.99 to -1200, below the bottom.
  // The second pass: X = -500 + trunc(-100.000000004) = -600, 1600 rises by the limit 1400 * 1 / slope; then
  // -600.000000004 is above the upper left corner: -1000 + 600 = -400.00000001 isn't yet; -1200 is.
  EXPECT_EQ(List(Family(45, 500, 100)), Line(0, -1000, 1000, -1) + Line(0, -1399, 1000, -400) +
                                            Line(0, -1799, 1000, -800) + Line(-600, -1000, 800, 400) +
                                            Line(-600, -1000, 800, 400));
}

TEST(ContinuousHatchFamily, a_start_right_of_the_left_edge_slides_down_its_line) {
  // The pen slides to -1000 - trunc(299.99999999) = -1299, but the rows count from the base. X grows by
  // 400.00000002 from 300: 700. The second pass starts at -1299 + 200 + trunc(199.99999999) = -900; then Y
  // grows by 399.99999999 from -1000: -600, -200 is above the top.
  EXPECT_EQ(List(Family(45, -200, 200, 300)), Line(0, -1299, 1000, -300) + Line(700, -1299, 1000, -1000) +
                                                  Line(0, -900, 1000, 99) + Line(0, -600, 1000, 399));
}

TEST(ContinuousHatchFamily, the_second_row_of_a_line_that_slid_counts_from_the_base) {
  // A boundary from (10, 10) to (60, 50) on a sheet of 300 x 200, and a base 5 right of its corner. X: 1500 +
  // 424.26 = 1924.26, and so on to 5742.6, 10 rows after the first at 1000. The second pass: from -19499 +
  // 212 + 212 = -19075; then Y: -19000 + 424.26 = -18575.74, to -15181.66, 9 rows.
  const std::string lines = List(Family(45, -212.13, 212.13, 1500, -19000), {1000, -15000, 6000, -19000});
  const std::string first = Line(1000, -19499, 6000, -14500) + Line(1924, -19499, 6000, -15424);
  EXPECT_EQ(lines.substr(0, first.size()), first);
  EXPECT_NE(lines.find(Line(1000, -19075, 6000, -14076) + Line(1000, -18575, 6000, -13576)),
            std::string::npos);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 2 * (11 + 10));
}

TEST(ContinuousHatchFamily, a_start_left_of_the_extent_stays_there) {
  // X: -100, 300, 700 (a trunc of 300.00000002); 1100 rises by 1099.99. Y: -601 as at X = 0, then -600, each
  // 1100 long, the limits 1001 and 1000.
  EXPECT_EQ(List(Family(45, -200, 200, -100)), Line(-100, -1000, 1000, 99) + Line(300, -1000, 1000, -301) +
                                                   Line(700, -1000, 1000, -701) + Line(-100, -601, 901, 400) +
                                                   Line(-100, -600, 900, 400));
}

TEST(ContinuousHatchFamily, the_part_below_a_start_at_the_left_edge_stays_empty) {
  // X grows by 800. The second pass starts at -700 + 400 + trunc(399.99999998) = 99, and is above the top
  // then; its limit is 301.
  EXPECT_EQ(List(Family(45, -400, 400, 0, -700)),
            Line(0, -700, 1000, 299) + Line(800, -700, 1000, -501) + Line(0, 99, 301, 400));
}

TEST(ContinuousHatchFamily, a_line_is_bounded_by_the_sum_of_top_and_its_start) {
  // With the top at -100 a line from -1000 rises by 1100 at most, not by 900: 1100 / 1.732 = 635.08. The
  // second pass starts at -2000, where the line is above the extent.
  EXPECT_EQ(List(Family(60, 2000, 0), {0, -100, 1000, -1000}),
            Line(0, -1000, 635, 100) + Line(-2000, -1000, -1365, 100));
}

TEST(ContinuousHatchFamily, above_the_sheets_top_lines_end_early) {
  // -(300 - 1000) = 700 where 1300 would be needed: 700 / slope = 700.00000006. The second pass starts at
  // -1000 + 2000 + trunc(1999.9999998) = 2999, with a limit of -(300 + 2999) = -3299.
  EXPECT_EQ(List(Family(45, 2000, -2000), {0, 300, 1000, -1000}),
            Line(0, -1000, 700, -300) + Line(0, 2999, -3299, -300));
}

TEST(ContinuousHatchFamily, an_offset_without_a_height_leads_to_both_sides_of_slanted_lines) {
  // X: 0, 400, 800. The second pass starts at -400 and counts from 0 again: -400, and at -800 the line is
  // above the upper left corner: -1000 + 800.
  EXPECT_EQ(List(Family(45, 400, 0)), Line(0, -1000, 1000, -1) + Line(400, -1000, 1000, -401) +
                                          Line(800, -1000, 1000, -801) + Line(-400, -1000, 1000, 399) +
                                          Line(-400, -1000, 1000, 399));
}

// 90 degrees

TEST(ContinuousHatchFamily, lines_at_90_degrees_stand_upright) {
  // 1400 / tan(90) is 0; at the right edge nothing is left to rise over. The second pass starts at -200.
  EXPECT_EQ(List(Family(90, 200, 0)),
            UprightLines({0, 200, 400, 600, 800}) + Line(1000, -1000, 1000, -1000) + UprightLines({-200}));
  EXPECT_EQ(List(Family(90, -200, 0)), List(Family(90, 200, 0)));
  EXPECT_EQ(List(Family(270, 200, 0)), List(Family(90, 200, 0)));
}

TEST(ContinuousHatchFamily, upright_lines_lead_to_both_sides_of_the_first) {
  // The start doesn't slide. 700, then 400, 100, and -200 is left of the extent.
  EXPECT_EQ(List(Family(90, 300, 0, 700)),
            UprightLines({700}) + Line(1000, -1000, 1000, -1000) + UprightLines({400, 100}));
}

TEST(ContinuousHatchFamily, upright_lines_to_the_left_lose_their_fractions) {
  // 700.9, twice 100.3 to the right as 800.3, 900.6, 1000.9; to the left by 100 each.
  EXPECT_EQ(List(Family(90, 300.6, 0, 999)), UprightLines({999, 699, 399, 99}));
}

TEST(ContinuousHatchFamily, an_offset_not_quite_across_upright_lines_leads_to_the_right_alone) {
  // The second pass would start at -400 * tan(90), 8.9E12 below, as its offset is above 0 there.
  EXPECT_EQ(List(Family(90, -400, 1.8e-14, 500)), UprightLines({500, 900}));
  EXPECT_EQ(List(Family(270, -400, 1.8e-14, 500)), UprightLines({500, 900}));
  // The other way round it starts at 500 - 400.
  EXPECT_EQ(List(Family(90, 400, 1.8e-14, 500)), UprightLines({500, 900, 100}));
  // X grows by 400 - 50 / tan(90): 399.999999998.
  EXPECT_EQ(List(Family(90, 400, 50)), UprightLines({0, 399, 799, -400}));
}

TEST(ContinuousHatchFamily, an_offset_along_upright_lines_leads_up_to_the_top) {
  // -1000, -700, -400; the second pass -1000 again.
  EXPECT_EQ(List(Family(90, 0, 300)),
            Line(0, -1000, 0, 400) + Line(0, -700, 0, 400) + Line(0, -400, 0, 400) + Line(0, -1000, 0, 400));
}

TEST(ContinuousHatchFamily, upright_lines_begin_at_the_height_of_the_first) {
  // From -700 by 400 + 700.
  EXPECT_EQ(List(Family(90, 600, 0, 0, -700)),
            Line(0, -700, 0, 400) + Line(600, -700, 600, 400) + Line(-600, -700, -600, 400));
}

// Lines that lean back

TEST(ContinuousHatchFamily, lines_at_120_degrees_run_along_the_bottom_and_then_up_the_right_edge) {
  // Negated: (173.2, 100). Slope -1.73205: X grows by 173.2 + 57.735 = 230.935: 0, 230.9, 461.9, 692.8,
  // 923.7, and 1154.7, where the second pass begins. They rise by 230 * 1.73205 = 398.37, 798.47, 1198.58;
  // 923 is limited to 1400: 1400 / 1.73205 = 808.29. Then Y grows by 100 + 299.99: -600.01, limited to 1000.
  EXPECT_EQ(List(Family(120, -173.2, -100)), Line(0, -1000, 0, -1000) + Line(230, -1000, 0, -602) +
                                                 Line(461, -1000, 0, -202) + Line(692, -1000, 0, 198) +
                                                 Line(923, -1000, 115, 400) + Line(1154, -1000, 346, 400) +
                                                 Line(1154, -600, 577, 400));
  EXPECT_EQ(List(Family(120, 173.2, 100)), List(Family(120, -173.2, -100)));
  EXPECT_EQ(List(Family(300, 173.2, 100)), List(Family(120, -173.2, -100)));
}

TEST(ContinuousHatchFamily, lines_at_135_degrees) {
  // The slope is -1.00000000009 less a little: X grows by 300 + 300 = 600 (599.99999995), 1199.9999999. 599
  // rises by 599.00000005, 1199 by 1199.0000001. Then Y grows by 300 + 300.00000003: -399.99 is above the
  // top.
  EXPECT_EQ(List(Family(135, 300, 300)),
            Line(0, -1000, 0, -1000) + Line(599, -1000, 0, -401) + Line(1199, -1000, 0, 199));
}

TEST(ContinuousHatchFamily, lines_that_lean_back_lead_to_the_right_of_the_first_only) {
  // The corner left of 500 stays empty. 500, 1099.99; 500 rises by 500.00000004, 1099 by 1099.00000009.
  EXPECT_EQ(List(Family(135, 300, 300, 500)), Line(500, -1000, 0, -500) + Line(1099, -1000, 0, 99));
}

TEST(ContinuousHatchFamily, an_offset_down_to_the_right_steps_by_the_difference) {
  // X grows by 700 - 100 / tan(45) = 599.99999999: 0, 599, 1199. In the second pass one line, as -1000 - 100
  // + 700 = -400 (-399.99999994, which is above the top: it goes on, upward, and never comes back).
  EXPECT_EQ(List(Family(135, 700, -100)),
            Line(0, -1000, 0, -1000) + Line(599, -1000, 0, -401) + Line(1199, -1000, 0, 199));
}

TEST(ContinuousHatchFamily, lines_that_move_to_the_left_end_below_the_extent) {
  // X falls by 200: 500, 299.99999999, 99.99, -100.00000003 is below the bottom. The second pass: from
  // there, a line from -100 down to the left edge; Y falls by 200 to -1200.
  EXPECT_EQ(List(Family(135, 100, -300, 500)), Line(500, -1000, 0, -500) + Line(299, -1000, 0, -701) +
                                                   Line(99, -1000, 0, -901) + Line(-100, -1000, 0, -1100));
}

TEST(ContinuousHatchFamily, lines_above_the_top_fall_in_the_second_pass) {
  // From -100, above the top: X falls by 200: 500, 299, 99, -100, -300, -500, -700, -900: whose line meets
  // the left edge at -100 - 900 = -1000.0000001, below the bottom.
  // 500 rises by 500.00000004, limited to 500: 499.99999996 to the left.
  const std::string lines = List(Family(135, 100, -300, 500, -100));
  EXPECT_EQ(lines.substr(0, lines.find("MoveToEx(299")), Line(500, -100, 1, 400));
  // In the second pass Y falls by 300 - 100.00000001 from -100: -300, -500 is below the top.
  const std::string second = Line(-900, -100, 0, -1000) + Line(-900, -299, 0, -1199);
  EXPECT_EQ(lines.substr(lines.size() - second.size()), second);
}

// Every angle

struct Segment {
  double x1, y1, x2, y2;
};

std::vector<Segment> Segments(const std::string& listing) {
  std::vector<Segment> segments;
  std::istringstream lines(listing);
  std::string move, to;
  while (std::getline(lines, move) && std::getline(lines, to)) {
    Segment segment = {};
    EXPECT_EQ(std::sscanf(move.c_str(), "MoveToEx(%lf, %lf)", &segment.x1, &segment.y1), 2);
    EXPECT_EQ(std::sscanf(to.c_str(), "LineTo(%lf, %lf)", &segment.x2, &segment.y2), 2);
    segments.push_back(segment);
  }
  return segments;
}

// Whether a line of these segments goes through a place, give or take some units.
bool Covers(const std::vector<Segment>& segments, double x, double y, double tolerance) {
  for (const Segment& s : segments) {
    const double dx = s.x2 - s.x1;
    const double dy = s.y2 - s.y1;
    const double length = std::hypot(dx, dy);
    if (length < 1.0) continue;
    const double along = ((x - s.x1) * dx + (y - s.y1) * dy) / length;
    const double across = std::abs((y - s.y1) * dx - (x - s.x1) * dy) / length;
    if (across <= tolerance && along >= -tolerance && along <= length + tolerance) return true;
  }
  return false;
}

// Walks over places within the extent on lines that are a spacing apart, the first through the lower left
// corner.
void ExpectEvenFill(const std::vector<Segment>& segments, const HatchExtent& within, double angle,
                    double spacing) {
  const double unitX = std::cos(angle);
  const double unitY = std::sin(angle);
  const double size = std::hypot(within.right - within.left, within.top - within.bottom);
  const auto most = static_cast<int32_t>(size / spacing) + 1;
  for (int32_t row = -most; row <= most; ++row) {
    for (double along = -size; along <= size; along += 41.0) {
      const double x = within.left + along * unitX - row * spacing * unitY;
      const double y = within.bottom + along * unitY + row * spacing * unitX;
      if (x < within.left + 4 || x > within.right - 4 || y < within.bottom + 4 || y > within.top - 4)
        continue;
      ASSERT_TRUE(Covers(segments, x, y, 3.0)) << "no line at " << x << ", " << y;
    }
  }
}

TEST(ContinuousHatchFamily, a_square_is_filled_evenly_at_every_degree_with_offsets_of_either_sign) {
  const HatchExtent square = {2000, -3000, 2700, -3700};
  const double spacing = 61.3;
  for (int32_t degrees = 0; degrees <= 360; ++degrees) {
    for (const double sign : {1.0, -1.0}) {
      const double angle = degrees * pi / 180.0;
      const double exact = degrees * std::acos(-1.0) / 180.0;
      const HatchFamily family = Family(degrees, -sign * spacing * std::sin(exact),
                                        sign * spacing * std::cos(exact), square.left, square.bottom);
      const std::vector<Segment> segments = Segments(List(family, square));
      SCOPED_TRACE(testing::Message() << degrees << " degrees, sign " << sign);
      ExpectEvenFill(segments, square, angle, spacing);
      ASSERT_LE(segments.size(), 200u);
      if (HasFatalFailure()) return;
    }
  }
}

TEST(ContinuousHatchFamily, no_line_lies_between_the_rows_at_any_degree) {
  const HatchExtent square = {2000, -3000, 2700, -3700};
  const double spacing = 61.3;
  for (int32_t degrees = 0; degrees <= 360; ++degrees) {
    const double angle = degrees * pi / 180.0;
    const HatchFamily family =
        Family(degrees, -spacing * std::sin(angle), spacing * std::cos(angle), square.left, square.bottom);
    for (const Segment& s : Segments(List(family, square))) {
      const double across = (s.y1 - square.bottom) * std::cos(angle) - (s.x1 - square.left) * std::sin(angle);
      const double rows = across / spacing;
      ASSERT_LE(std::abs(rows - std::round(rows)) * spacing, 2.0) << degrees << " degrees";
    }
  }
}

// What never ends by itself

TEST(ContinuousHatchFamily, lines_without_an_offset_are_drawn_once_a_pass) {
  for (const int32_t degrees : {0, 30, 45, 90, 120, 135, 180, 200, 270, 360}) {
    const size_t count = Segments(List(Family(degrees, 0, 0))).size();
    EXPECT_EQ(count, 2u) << degrees;
  }
}

TEST(ContinuousHatchFamily, upright_lines_less_than_a_unit_apart_dont_step_to_the_left) {
  // To the right 0, 0, 1, 1 .. 1000, 1000, each pair a unit apart; to the left 0 once.
  EXPECT_EQ(Segments(List(Family(90, 0.5, 0), extent, 100000)).size(), 2002u + 1u);
}

TEST(ContinuousHatchFamily, lines_too_dense_end_with_the_hatchs_strokes) {
  for (const int32_t degrees : {0, 30, 45, 90, 120, 135, 180}) {
    const double angle = degrees * pi / 180.0;
    int32_t strokes = 50;
    const HatchFamily family = Family(degrees, -1e-6 * std::sin(angle), 1e-6 * std::cos(angle));
    const std::string listing =
        ListCalls([&](Canvas canvas) { DrawContinuousFamily(canvas, family, extent, strokes); });
    EXPECT_EQ(Segments(listing).size(), 50u) << degrees;
    EXPECT_EQ(strokes, 0) << degrees;
  }
}

TEST(ContinuousHatchFamily, without_strokes_left_nothing_is_drawn) {
  for (const int32_t degrees : {0, 30, 90, 120, 180}) EXPECT_EQ(List(Family(degrees, 9, 9), extent, 0), "");
}

TEST(ContinuousHatchFamily, absurd_numbers_end) {
  const double infinite = std::numeric_limits<double>::infinity();
  const double noNumber = std::numeric_limits<double>::quiet_NaN();
  const double numbers[] = {0.0, 1e-300, 1.0, -1.0, 3e9, -3e9, 1e300, infinite, -infinite, noNumber};
  const HatchExtent extents[] = {
      extent, {INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN}, {21000, -29700, 0, 0}, {5, 5, 5, 5}};
  for (const HatchExtent& within : extents) {
    for (const int32_t degrees : {-720, -90, -30, 0, 1, 45, 90, 100, 180, 181, 300, 360, 400, 700, 99999}) {
      for (const double offX : numbers) {
        for (const double offY : numbers) {
          for (const int32_t base : {INT32_MIN, 0, INT32_MAX}) {
            const HatchFamily family = Family(degrees, offX, offY, base, base);
            ListCalls([&](Canvas canvas) {
              int32_t strokes = 20;
              DrawContinuousFamily(canvas, family, within, strokes);
              EXPECT_GE(strokes, 0);
            });
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace hexlume::continuous_hatch_family_test
