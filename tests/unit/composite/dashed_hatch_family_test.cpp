// Dashed lines of a hatch's pattern.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "composite/hatch_families.h"
#include "support/metafile_canvas.h"

namespace hexlume::dashed_hatch_family_test {
namespace {

constexpr HatchExtent extent = {0, -400, 400, -700};

struct Offset {
  double x, y;
};
struct Base {
  int32_t x, y;
};

HatchFamily Family(int32_t degrees, Base base, Offset offset, const std::vector<double>& dashes) {
  HatchFamily family;
  family.angle = degrees * pi / 180.0;
  family.baseX = base.x;
  family.baseY = base.y;
  family.offX = offset.x;
  family.offY = offset.y;
  for (const double dash : dashes) {
    family.dashes[family.dashCount++] = dash;
    family.period += static_cast<int32_t>(std::abs(dash));
  }
  return family;
}

std::string List(const HatchFamily& family, const HatchExtent& within = extent, int32_t strokes = 100000) {
  return ListCalls([&](Canvas canvas) { DrawDashedFamily(canvas, family, within, strokes); });
}

struct Dash {
  int32_t x1, y1, x2, y2;

  bool operator<(const Dash& other) const {
    return std::tie(x1, y1, x2, y2) < std::tie(other.x1, other.y1, other.x2, other.y2);
  }
};

std::string Text(const std::vector<Dash>& dashes) {
  std::string text;
  for (const Dash& d : dashes) {
    text += "MoveToEx(" + std::to_string(d.x1) + ", " + std::to_string(d.y1) + ")\nLineTo(" +
            std::to_string(d.x2) + ", " + std::to_string(d.y2) + ")\n";
  }
  return text;
}

// The same dashes as seen from the other side of the extent, right for left and top for bottom.
std::vector<Dash> Mirrored(std::vector<Dash> dashes, bool rightForLeft, bool topForBottom) {
  for (Dash& d : dashes) {
    if (rightForLeft) d = {400 - d.x1, d.y1, 400 - d.x2, d.y2};
    if (topForBottom) d = {d.x1, -1100 - d.y1, d.x2, -1100 - d.y2};
  }
  return dashes;
}

std::vector<Dash> operator+(std::vector<Dash> first, const std::vector<Dash>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

const std::vector<double> dashAndGap = {200, -100};

// Level lines

// Dashes of 200 with gaps of 100 from the left of the extent on.
std::vector<Dash> LevelRow(int32_t start, int32_t y) {
  std::vector<Dash> row;
  for (int32_t x = start; x <= 400; x += 300) row.push_back({x, y, x + 200, y});
  return row;
}

TEST(DashedHatchFamily, level_rows_that_rise_are_shifted_from_row_to_row) {
  // Rows at 0, then 150, skipped back to -150; -150 + 150 = 0; and -150 again. -250 is above the top. The
  // second pass starts at (-150, -850) and ends below the bottom.
  EXPECT_EQ(List(Family(0, {0, -700}, {150, 150}, dashAndGap)),
            Text(LevelRow(0, -700) + LevelRow(-150, -550) + LevelRow(0, -400) + LevelRow(-150, -850)));
}

TEST(DashedHatchFamily, the_second_pass_over_rising_level_rows_goes_down_to_the_bottom) {
  // -550, -430; the second pass -670; -790 is below.
  EXPECT_EQ(List(Family(0, {0, -550}, {0, 120}, dashAndGap)),
            Text(LevelRow(0, -550) + LevelRow(0, -430) + LevelRow(0, -670)));
}

TEST(DashedHatchFamily, level_rows_that_fall_start_at_the_top) {
  // Two steps up from -700: the first pass -400, -550, -700. The second begins with the first row again.
  EXPECT_EQ(List(Family(0, {0, -700}, {0, -150}, dashAndGap)),
            Text(LevelRow(0, -400) + LevelRow(0, -550) + LevelRow(0, -700) + LevelRow(0, -700) +
                 LevelRow(0, -550) + LevelRow(0, -400)));
}

TEST(DashedHatchFamily, level_rows_that_fall_begin_at_the_left_edge_and_end_at_the_right_one) {
  // Two steps of (100, -150) up from (0, -700) to (-200, -400), and unit by unit to (0, -400), whatever the
  // phase. From there 100, 200, 300 and 400, all but the first three below the bottom; 500 is right of the
  // right edge. The second pass from the base: -100, -200, neither left of 0 - 300; -250 is above the top.
  EXPECT_EQ(List(Family(0, {0, -700}, {100, -150}, dashAndGap)),
            Text(LevelRow(0, -400) + LevelRow(100, -550) + LevelRow(200, -700) + LevelRow(300, -850) +
                 LevelRow(400, -1000) + LevelRow(0, -700) + LevelRow(-100, -550) + LevelRow(-200, -400)));
  // Of (200, -150): (-400, -400) to 0; 200, 400. The second pass: -200; -400, left of -300, is skipped to
  // -100.
  EXPECT_EQ(List(Family(0, {0, -700}, {200, -150}, dashAndGap)),
            Text(LevelRow(0, -400) + LevelRow(200, -550) + LevelRow(400, -700) + LevelRow(0, -700) +
                 LevelRow(-200, -550) + LevelRow(-100, -400)));
}

TEST(DashedHatchFamily, a_base_right_of_the_left_edge_is_rewound_by_whole_periods) {
  // 700: back to 400, 100, -200. The second pass starts from the base itself, right of the edge, and ends
  // there.
  EXPECT_EQ(List(Family(0, {700, -700}, {0, 200}, dashAndGap)),
            Text(LevelRow(-200, -700) + LevelRow(-200, -500) + std::vector<Dash>{{700, -900, 900, -900}}));
}

TEST(DashedHatchFamily, an_offset_to_the_left_turns_over) {
  EXPECT_EQ(List(Family(0, {0, -700}, {-150, -150}, dashAndGap)),
            List(Family(0, {0, -700}, {150, 150}, dashAndGap)));
}

TEST(DashedHatchFamily, a_row_ends_behind_the_period_that_passes_the_right_edge) {
  // The first period ends at 400, not right of the edge.
  EXPECT_EQ(
      List(Family(0, {0, -700}, {0, 400}, {300, -100})),
      Text({{0, -700, 300, -700}, {400, -700, 700, -700}, {0, -1100, 300, -1100}, {400, -1100, 700, -1100}}));
}

TEST(DashedHatchFamily, row_offsets_lose_their_fractions_from_row_to_row) {
  // By 99, not by 99.9: -700, -601, -502, -403.
  EXPECT_EQ(List(Family(0, {0, -700}, {0, 99.9}, {500, -500})), Text({{0, -700, 500, -700},
                                                                      {0, -601, 500, -601},
                                                                      {0, -502, 500, -502},
                                                                      {0, -403, 500, -403},
                                                                      {0, -799, 500, -799}}));
}

TEST(DashedHatchFamily, each_dash_and_gap_loses_its_fraction) {
  // 10 and 20 instead of 10.9 and 20.9: 0, 30 .. 390, then 420 is right of 400.
  std::vector<Dash> row;
  for (int32_t x = 0; x <= 390; x += 30) row.push_back({x, -700, x + 10, -700});
  const std::string listing = List(Family(0, {0, -700}, {0, 400}, {10.9, -20.9}));
  EXPECT_EQ(listing.substr(0, Text(row).size()), Text(row));
}

TEST(DashedHatchFamily, a_dash_of_0_is_a_dot) {
  // (0, -700), a gap to 250, a dash to 350, a gap to 600. The record is smaller by one at the right and the
  // top.
  EXPECT_EQ(List(Family(0, {0, -700}, {0, 400}, {0, -250, 100, -250})),
            "Ellipse(-20, -720, 19, -681)\nMoveToEx(250, -700)\nLineTo(350, -700)\n"
            "Ellipse(-20, -1120, 19, -1081)\nMoveToEx(250, -1100)\nLineTo(350, -1100)\n");
}

TEST(DashedHatchFamily, a_negative_0_is_a_dot_too) {
  EXPECT_EQ(List(Family(0, {0, -700}, {0, 400}, {-0.0, -250})),
            List(Family(0, {0, -700}, {0, 400}, {0, -250})));
}

// The first quadrant: 200 and 100 along 45 degrees lead by 141 and 70, a period by 211. Its steps are
// 0.7071 * 300 = 212.1.

const std::vector<Dash> firstRow = {{0, -700, 141, -559}, {211, -489, 352, -348}};

// (60, -850), not below -700 - 212.1; (120, -1000), skipped to (331, -789).
const std::vector<Dash> fallingFirstPass =
    firstRow + std::vector<Dash>{{60, -850, 201, -709}, {271, -639, 412, -498}, {331, -789, 472, -648}};

const std::vector<Dash> fallingSecondPass =
    // The second pass: the first row again, then (-60, -550), not left of 0 - 212.1, and (-120, -400); -250
    // is above the top.
    firstRow + std::vector<Dash>{{-60, -550, 81, -409}, {-120, -400, 21, -259}};

// (391, -939) isn't right of the right edge. It is skipped past it, to (602, -728), and played once.
const std::vector<Dash> fallingRows =
    fallingFirstPass + std::vector<Dash>{{602, -728, 743, -587}} + fallingSecondPass;

// In the other quadrants a row outside the extent isn't played.
const std::vector<Dash> fallingRowsWithin = fallingFirstPass + fallingSecondPass;

TEST(DashedHatchFamily, slanted_rows_that_fall) {
  EXPECT_EQ(List(Family(45, {0, -700}, {60, -150}, dashAndGap)), Text(fallingRows));
  EXPECT_EQ(List(Family(45, {0, -700}, {-60, 150}, dashAndGap)), Text(fallingRows));
}

TEST(DashedHatchFamily, a_longer_period_of_families_in_front_skips_later) {
  // The bounds are 0.7071 * 600 = 424.3 away: (120, -1000) isn't skipped, but (180, -1150) is, to
  // (391, -939), and (451, ...) is right of the edge.
  HatchFamily family = Family(45, {0, -700}, {60, -150}, dashAndGap);
  family.period = 600;
  EXPECT_EQ(List(family), Text(firstRow +
                               std::vector<Dash>{{60, -850, 201, -709},
                                                 {271, -639, 412, -498},
                                                 {120, -1000, 261, -859},
                                                 {331, -789, 472, -648},
                                                 {391, -939, 532, -798}} +
                               firstRow + std::vector<Dash>{{-60, -550, 81, -409}, {-120, -400, 21, -259}}));
}

TEST(DashedHatchFamily, slanted_rows_that_rise_on_the_right_of_the_line) {
  // Each row is skipped back below the bottom: (150, -650) to (-61, -861); (89, -811); (239, -761);
  // (389, -711); 539 is right of the edge.
  // The second pass: (-150, -750), whose second period ends at Y = -328, above the top; (-300, -800) is
  // skipped to the left edge, by two periods to (122, -378), above the top. So the upper left stays empty.
  EXPECT_EQ(List(Family(45, {0, -700}, {150, 50}, dashAndGap)),
            Text(firstRow + std::vector<Dash>{{-61, -861, 80, -720},
                                              {150, -650, 291, -509},
                                              {361, -439, 502, -298},
                                              {89, -811, 230, -670},
                                              {300, -600, 441, -459},
                                              {239, -761, 380, -620},
                                              {389, -711, 530, -570},
                                              {-150, -750, -9, -609},
                                              {61, -539, 202, -398}}));
}

TEST(DashedHatchFamily, slanted_rows_that_rise_on_the_left_of_the_line) {
  // Each row is skipped back to the left edge: (50, -550) to (-161, -761); (-111, -611), whose first period
  // ends at Y = -400, not above the top; (-61, -461); (-11, -311) is above.
  // The second pass: (-50, -850); (-100, -1000), below -912.1, to (111, -789); (61, -939) to (272, -728);
  // (222, -878); (172, -1028) to (383, -817); (333, -967) to (544, -756), played once; 494 is right of the
  // edge.
  EXPECT_EQ(List(Family(45, {0, -700}, {50, 150}, dashAndGap)),
            Text(firstRow + std::vector<Dash>{{-161, -761, -20, -620},
                                              {50, -550, 191, -409},
                                              {-111, -611, 30, -470},
                                              {100, -400, 241, -259},
                                              {-61, -461, 80, -320},
                                              {-50, -850, 91, -709},
                                              {161, -639, 302, -498},
                                              {372, -428, 513, -287},
                                              {111, -789, 252, -648},
                                              {322, -578, 463, -437},
                                              {272, -728, 413, -587},
                                              {222, -878, 363, -737},
                                              {383, -817, 524, -676},
                                              {544, -756, 685, -615}}));
}

TEST(DashedHatchFamily, a_slanted_base_right_of_the_left_edge_is_rewound) {
  // (200, -500) back to (-11, -711). The next row, (989, -2711), is right of the right edge. The second pass:
  // from the base itself; (-800, 1500) is above the top.
  EXPECT_EQ(List(Family(45, {200, -500}, {1000, -2000}, dashAndGap)),
            Text({{-11, -711, 130, -570}, {200, -500, 341, -359}, {200, -500, 341, -359}}));
}

// The other quadrants

TEST(DashedHatchFamily, the_second_quadrant_mirrors_the_first) {
  EXPECT_EQ(List(Family(135, {400, -700}, {60, 150}, dashAndGap)),
            Text(Mirrored(fallingRowsWithin, true, false)));
  EXPECT_EQ(List(Family(135, {400, -700}, {-60, -150}, dashAndGap)),
            Text(Mirrored(fallingRowsWithin, true, false)));
}

TEST(DashedHatchFamily, the_third_quadrant_mirrors_the_first) {
  EXPECT_EQ(List(Family(225, {400, -400}, {60, -150}, dashAndGap)),
            Text(Mirrored(fallingRowsWithin, true, true)));
  EXPECT_EQ(List(Family(225, {400, -400}, {-60, 150}, dashAndGap)),
            Text(Mirrored(fallingRowsWithin, true, true)));
}

TEST(DashedHatchFamily, the_fourth_quadrant_mirrors_the_first) {
  EXPECT_EQ(List(Family(315, {0, -400}, {60, 150}, dashAndGap)),
            Text(Mirrored(fallingRowsWithin, false, true)));
  EXPECT_EQ(List(Family(315, {0, -400}, {-60, -150}, dashAndGap)),
            Text(Mirrored(fallingRowsWithin, false, true)));
}

TEST(DashedHatchFamily, the_second_quadrant_from_the_lower_left_corner) {
  // Leaning back, the first row leaves the extent at once; so does the next to its left. The second pass:
  // the first row again, then (60, -550), skipped back past the right edge to (482, -972); (542, -822);
  // (602, -672); (662, -522), right of 400 + 212.1, is skipped forward to (451, -311), above the top.
  EXPECT_EQ(List(Family(135, {0, -700}, {60, 150}, dashAndGap)), Text({{0, -700, -141, -559},
                                                                       {0, -700, -141, -559},
                                                                       {482, -972, 341, -831},
                                                                       {271, -761, 130, -620},
                                                                       {60, -550, -81, -409},
                                                                       {542, -822, 401, -681},
                                                                       {331, -611, 190, -470},
                                                                       {120, -400, -21, -259},
                                                                       {602, -672, 461, -531},
                                                                       {391, -461, 250, -320}}));
}

// The first row of a family whose other rows are far off.
std::string FirstRow(int32_t degrees, Base base, Offset offset) {
  const std::string listing = List(Family(degrees, base, offset, dashAndGap));
  size_t end = 0;
  for (int32_t line = 0; line < 2; ++line) end = listing.find('\n', end) + 1;
  return listing.substr(0, end);
}

TEST(DashedHatchFamily, each_quadrant_rewinds_to_its_own_edge) {
  // 45: back while right of the left edge, from 250 by two periods of 211. The others by the height: 135 from
  // -500 below the bottom, 225 and 315 from -500 above the top.
  EXPECT_EQ(FirstRow(45, {250, -500}, {1000, -1000}), Text({{-172, -922, -31, -781}}));
  EXPECT_EQ(FirstRow(135, {250, -500}, {1000, 1000}), Text({{461, -711, 320, -570}}));
  EXPECT_EQ(FirstRow(225, {250, -500}, {1000, -1000}), Text({{461, -289, 320, -430}}));
  EXPECT_EQ(FirstRow(315, {250, -500}, {1000, 1000}), Text({{39, -289, 180, -430}}));
}

TEST(DashedHatchFamily, nearly_flat_rows_of_the_third_quadrant_rewind_to_the_right_edge) {
  // At 180 degrees, from 250 to 550, where the row starts.
  EXPECT_EQ(FirstRow(180, {250, -500}, {0, -1000}), Text({{550, -500, 350, -500}}));
}

// Exact angles

TEST(DashedHatchFamily, upright_rows) {
  // Negated: (150, -50). (0, -700), whose first period ends at -400, not above the top; (150, -750);
  // (300, -800). The second pass: the first row again; -150 is left of the extent.
  const std::vector<Dash> first = {{0, -700, 0, -500}, {0, -400, 0, -200}};
  const std::vector<Dash> others = {
      {150, -750, 150, -550}, {150, -450, 150, -250}, {300, -800, 300, -600}, {300, -500, 300, -300}};
  EXPECT_EQ(List(Family(90, {0, -700}, {-150, 50}, dashAndGap)), Text(first + others + first));
  EXPECT_EQ(List(Family(90, {0, -700}, {150, -50}, dashAndGap)), Text(first + others + first));
}

TEST(DashedHatchFamily, upright_rows_step_back_by_their_offset_to_the_left_edge) {
  // From 250 by 150 to 100 and -50, and up by 100 to -600; then below the bottom: -900. Then (100, -950),
  // just the bound's -1000 away, and (250, -1000), (400, -1050) to -750. The second pass: the first row
  // again.
  const std::vector<Dash> first = {{-50, -900, -50, -700}, {-50, -600, -50, -400}};
  EXPECT_EQ(List(Family(90, {250, -700}, {150, -50}, dashAndGap)),
            Text(first +
                 std::vector<Dash>{{100, -950, 100, -750},
                                   {100, -650, 100, -450},
                                   {250, -1000, 250, -800},
                                   {250, -700, 250, -500},
                                   {250, -400, 250, -200},
                                   {400, -750, 400, -550},
                                   {400, -450, 400, -250}} +
                 first));
}

TEST(DashedHatchFamily, rows_at_270_degrees_hang_from_the_top) {
  // Seen upside down (0, -700) and the offset (150, 50): back to (150, -950), (300, -900), (450, ...). The
  // second pass: (-150, -750), left of the extent, ends after its one row.
  const std::vector<Dash> rows = {{0, -700, 0, -500},       {0, -400, 0, -200},      {150, -950, 150, -750},
                                  {150, -650, 150, -450},   {300, -900, 300, -700},  {300, -600, 300, -400},
                                  {-150, -750, -150, -550}, {-150, -450, -150, -250}};
  EXPECT_EQ(List(Family(270, {0, -400}, {150, -50}, dashAndGap)), Text(Mirrored(rows, false, true)));
}

TEST(DashedHatchFamily, rows_at_180_degrees_run_to_the_left) {
  // From 0 back to 600 by two periods. The offset leads down: the second pass up to -550 and -400.
  const auto row = [](int32_t y) {
    return std::vector<Dash>{{600, y, 400, y}, {300, y, 100, y}, {0, y, -200, y}};
  };
  EXPECT_EQ(List(Family(180, {0, -700}, {0, -150}, dashAndGap)), Text(row(-700) + row(-550) + row(-400)));
}

TEST(DashedHatchFamily, an_angle_below_0_or_from_360_on_draws_nothing) {
  for (const int32_t degrees : {-1, -90, 360, 361, 405}) {
    EXPECT_EQ(List(Family(degrees, {0, -700}, {0, 150}, dashAndGap)), "") << degrees;
  }
}

// Every angle

std::set<Dash> DrawnDashes(const std::string& listing) {
  std::set<Dash> dashes;
  std::istringstream lines(listing);
  std::string move, to;
  while (std::getline(lines, move) && std::getline(lines, to)) {
    Dash dash = {};
    EXPECT_EQ(std::sscanf(move.c_str(), "MoveToEx(%d, %d)", &dash.x1, &dash.y1), 2);
    EXPECT_EQ(std::sscanf(to.c_str(), "LineTo(%d, %d)", &dash.x2, &dash.y2), 2);
    dashes.insert(dash);
  }
  return dashes;
}

bool IsInside(const HatchExtent& within, double x, double y) {
  return x > within.left && x < within.right && y > within.bottom && y < within.top;
}

bool Meets(const HatchExtent& within, const Dash& dash) {
  for (int32_t part = 0; part <= 8; ++part) {
    if (IsInside(within, dash.x1 + (dash.x2 - dash.x1) * part / 8.0,
                 dash.y1 + (dash.y2 - dash.y1) * part / 8.0)) {
      return true;
    }
  }
  return false;
}

// A family as the whole plane would have it: the base plus whole offsets and whole periods.
struct Lattice {
  const HatchFamily& family;
  int32_t offX, offY;        // truncated
  int32_t periodX, periodY;  // of truncated dashes
  std::vector<Dash> dashes;  // of the period at the base

  explicit Lattice(const HatchFamily& of)
      : family(of), offX(Trunc(of.offX)), offY(Trunc(of.offY)), periodX(0), periodY(0) {
    for (int32_t i = 0; i < of.dashCount; ++i) {
      const double length = std::abs(of.dashes[i]);
      const int32_t x = of.baseX + periodX;
      const int32_t y = of.baseY + periodY;
      periodX += Trunc(length * std::cos(of.angle));
      periodY += Trunc(length * std::sin(of.angle));
      if (of.dashes[i] > 0.0) dashes.push_back({x, y, of.baseX + periodX, of.baseY + periodY});
    }
  }

  int32_t Cell() const { return periodX * offY - periodY * offX; }

  // Calls use with each dash that comes within reach of a place's surroundings.
  template <typename Use>
  void ForEachAround(double x, double y, double reach, const Use& use) const {
    const double cell = Cell();
    const auto periodsTo = [&](double px, double py) { return (px * offY - py * offX) / cell; };
    const auto rowsTo = [&](double px, double py) { return (periodX * py - periodY * px) / cell; };
    double fewestPeriods = 1e9, mostPeriods = -1e9, fewestRows = 1e9, mostRows = -1e9;
    for (const double dx : {-reach, reach}) {
      for (const double dy : {-reach, reach}) {
        const double px = x + dx - family.baseX;
        const double py = y + dy - family.baseY;
        fewestPeriods = std::min(fewestPeriods, periodsTo(px, py));
        mostPeriods = std::max(mostPeriods, periodsTo(px, py));
        fewestRows = std::min(fewestRows, rowsTo(px, py));
        mostRows = std::max(mostRows, rowsTo(px, py));
      }
    }
    for (auto row = static_cast<int32_t>(fewestRows) - 1; row <= mostRows + 1; ++row) {
      for (auto period = static_cast<int32_t>(fewestPeriods) - 2; period <= mostPeriods + 1; ++period) {
        const int32_t dx = row * offX + period * periodX;
        const int32_t dy = row * offY + period * periodY;
        for (const Dash& d : dashes) use(Dash{d.x1 + dx, d.y1 + dy, d.x2 + dx, d.y2 + dy});
      }
    }
  }

  bool Holds(const Dash& drawn) const {
    for (const Dash& d : dashes) {
      if (drawn.x2 - drawn.x1 != d.x2 - d.x1 || drawn.y2 - drawn.y1 != d.y2 - d.y1) continue;
      const int32_t dx = drawn.x1 - d.x1;
      const int32_t dy = drawn.y1 - d.y1;
      if ((dx * offY - dy * offX) % Cell() == 0 && (periodX * dy - periodY * dx) % Cell() == 0) return true;
    }
    return false;
  }
};

// That all dashes of the lattice that meet the extent are drawn, and none that isn't of it.
void ExpectWholeLattice(const HatchFamily& family, const HatchExtent& within) {
  const Lattice lattice(family);
  if (lattice.Cell() == 0) return;
  const std::set<Dash> drawn = DrawnDashes(List(family, within));
  const double reach = std::max(within.right - within.left, within.top - within.bottom) / 2.0;
  int32_t missing = 0;
  lattice.ForEachAround((within.left + within.right) / 2.0, (within.bottom + within.top) / 2.0, reach,
                        [&](const Dash& dash) {
                          if (Meets(within, dash) && drawn.count(dash) == 0) ++missing;
                        });
  EXPECT_EQ(missing, 0);
  int32_t strange = 0;
  for (const Dash& dash : drawn) {
    if (!lattice.Holds(dash)) ++strange;
  }
  EXPECT_EQ(strange, 0);
}

// Below 90 degrees the passes can leave a part empty.
TEST(DashedHatchFamily, an_extent_is_filled_evenly_from_90_degrees_on_with_offsets_of_either_sign) {
  const HatchExtent within = {2000, -3000, 2500, -3400};
  for (int32_t degrees = 90; degrees < 360; ++degrees) {
    const double angle = degrees * std::acos(-1.0) / 180.0;
    for (const double across : {61.7, -61.7}) {
      for (const double along : {0.0, degrees % 2 == 0 ? 43.3 : -150.0}) {
        const Offset offset = {along * std::cos(angle) - across * std::sin(angle),
                               along * std::sin(angle) + across * std::cos(angle)};
        SCOPED_TRACE(testing::Message()
                     << degrees << " degrees, " << across << " across, " << along << " along");
        ExpectWholeLattice(Family(degrees, {within.left, within.bottom}, offset, {70.5, -30.5, 20.5, -25.0}),
                           within);
        if (testing::Test::HasFailure()) return;
      }
    }
  }
}

TEST(DashedHatchFamily, an_extent_is_filled_evenly_from_any_base_with_any_offset) {
  std::mt19937 random(7);
  const auto number = [&random](int32_t from, int32_t to) {
    return from + static_cast<int32_t>(random() % static_cast<uint32_t>(to - from + 1));
  };
  for (int32_t run = 0; run < 800; ++run) {
    const HatchExtent within = {number(-500, 500), -1000 + number(0, 500), number(800, 1500),
                                -number(1200, 1900)};
    const int32_t degrees = run % 3 == 0 ? number(1, 3) * 90 : number(90, 359);
    const Base base = {number(-2500, 3500), number(-4000, 1500)};
    const Offset offset = {number(-3000, 3000) / 10.0, number(-3000, 3000) / 10.0};
    const HatchFamily family = Family(
        degrees, base, offset, {number(5, 900) / 10.0, -number(5, 900) / 10.0, number(100, 400) * 1.0});
    if (std::abs(Lattice(family).Cell()) < 3000) continue;  // rows hardly a unit apart
    SCOPED_TRACE(testing::Message() << "run " << run);
    ExpectWholeLattice(family, within);
    if (testing::Test::HasFailure()) return;
  }
}

TEST(DashedHatchFamily, dashes_too_short_to_lean_fill_an_extent_evenly) {
  // 20 units along 1 degree rise by 0.35, which is dropped.
  for (const int32_t degrees : {91, 179, 181, 269, 271, 359}) {
    for (const Offset offset :
         {Offset{60.0, 0.5}, Offset{0.5, 60.0}, Offset{60.0, -70.0}, Offset{60.0, 70.0}}) {
      SCOPED_TRACE(testing::Message() << degrees << " degrees, " << offset.x << ", " << offset.y);
      ExpectWholeLattice(Family(degrees, {200, -500}, offset, {20, -20}), extent);
    }
  }
}

// What never ends by itself

TEST(DashedHatchFamily, dashes_that_lead_nowhere_draw_nothing) {
  EXPECT_EQ(List(Family(0, {0, -700}, {0, 150}, {0})), "");
  EXPECT_EQ(List(Family(30, {0, -700}, {0, 150}, {0.9, -0.9})), "");
  EXPECT_EQ(List(Family(45, {0, -700}, {0, 150}, {1.4, -1.2, 0})), "");
}

TEST(DashedHatchFamily, rows_without_an_offset_are_drawn_once) {
  EXPECT_EQ(List(Family(0, {0, -700}, {0, 0}, dashAndGap)), Text(LevelRow(0, -700)));
  EXPECT_EQ(List(Family(0, {0, -700}, {0.9, -0.9}, dashAndGap)), Text(LevelRow(0, -700)));
  EXPECT_EQ(List(Family(45, {0, -700}, {0, 0}, dashAndGap)), Text(firstRow));
}

TEST(DashedHatchFamily, rows_on_one_line_are_drawn_once) {
  EXPECT_EQ(List(Family(0, {0, -700}, {70, 0}, dashAndGap)), Text(LevelRow(0, -700)));
  EXPECT_EQ(List(Family(90, {0, -700}, {0, 70}, dashAndGap)), Text({{0, -700, 0, -500}, {0, -400, 0, -200}}));
}

TEST(DashedHatchFamily, dashes_too_dense_end_with_the_hatchs_strokes) {
  for (const int32_t degrees : {0, 30, 90, 135, 180, 200, 270, 300}) {
    int32_t strokes = 75;
    const HatchFamily family = Family(degrees, {0, -700}, {1, 2}, {2, -2});
    const std::string listing =
        ListCalls([&](Canvas canvas) { DrawDashedFamily(canvas, family, extent, strokes); });
    EXPECT_EQ(strokes, 0);
    // Gaps count too.
    EXPECT_EQ(std::count(listing.begin(), listing.end(), '\n'), 2 * 38) << degrees;
  }
}

TEST(DashedHatchFamily, absurd_numbers_end) {
  const double infinite = std::numeric_limits<double>::infinity();
  const double noNumber = std::numeric_limits<double>::quiet_NaN();
  const double numbers[] = {0.0, 1.0, -3e9, 1e300, infinite, noNumber};
  const HatchExtent extents[] = {
      extent, {INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN}, {21000, -29700, 0, 0}, {5, 5, 5, 5}};
  for (const HatchExtent& within : extents) {
    for (const int32_t degrees : {-30, 0, 1, 89, 90, 135, 180, 225, 270, 315, 99999}) {
      for (const double offX : numbers) {
        for (const double offY : numbers) {
          for (const double dash : numbers) {
            for (const int32_t base : {INT32_MIN, INT32_MAX}) {
              HatchFamily family = Family(degrees, {base, base}, {offX, offY}, {});
              family.dashes[0] = dash;
              family.dashes[1] = -3.0;
              family.dashCount = 2;
              family.period = base;
              ListCalls([&](Canvas canvas) {
                int32_t strokes = 20;
                DrawDashedFamily(canvas, family, within, strokes);
                EXPECT_GE(strokes, 0);
              });
            }
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace hexlume::dashed_hatch_family_test
