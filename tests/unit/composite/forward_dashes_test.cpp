// Dashed lines of a hatch's pattern from 0 to below 90 degrees, against a walk period by period.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "composite/hatch_families.h"
#include "driver/numbers.h"
#include "support/metafile_canvas.h"

namespace hexlume::forward_dashes_test {
namespace {

struct TestFamily {
  int32_t degrees;
  int32_t baseX, baseY;
  double offX, offY;
  std::vector<double> dashes;
};

HatchFamily ToFamily(const TestFamily& told) {
  HatchFamily family;
  family.angle = told.degrees * pi / 180.0;
  family.baseX = told.baseX;
  family.baseY = told.baseY;
  family.offX = told.offX;
  family.offY = told.offY;
  for (const double dash : told.dashes) {
    family.dashes[family.dashCount++] = dash;
    family.period += Trunc(std::abs(dash));
  }
  return family;
}

std::string List(const TestFamily& told, const HatchExtent& within, int32_t strokes = 4000000) {
  const HatchFamily family = ToFamily(told);
  return ListCalls([&](Canvas canvas) { DrawDashedFamily(canvas, family, within, strokes); });
}

std::string Dash(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  return "MoveToEx(" + std::to_string(x1) + ", " + std::to_string(y1) + ")\nLineTo(" + std::to_string(x2) +
         ", " + std::to_string(y2) + ")\n";
}

// The same rows with every period skipped by itself, as the rule has them. A walk that doesn't come to its
// end is given up.
class Walk {
 public:
  Walk(const TestFamily& told, const HatchExtent& within)
      : extent(within),
        dashes(told.dashes),
        angle(told.degrees * pi / 180.0),
        offX(told.offX < 0.0 ? -told.offX : told.offX),
        offY(told.offX < 0.0 ? -told.offY : told.offY),
        baseX(told.baseX),
        baseY(told.baseY) {
    int32_t period = 0;
    for (const double dash : dashes) period += Trunc(std::abs(dash));
    stepX = std::cos(angle) * period;
    stepY = std::sin(angle) * period;
  }

  // False if the walk was given up.
  bool Run() {
    PlaceAt(baseX, baseY);
    while (penX > extent.left && GoOn()) Skip(-1);
    if (offY < 0.0) {
      Fall();
    } else {
      Rise();
    }
    return GoOn();
  }

  std::string calls;

 private:
  bool GoOn() { return --stepsLeft > 0; }

  void PlaceAt(int32_t x, int32_t y) {
    penX = x;
    penY = y;
  }

  void Skip(int32_t direction) {
    for (const double dash : dashes) {
      penX += direction * Trunc(std::abs(dash) * std::cos(angle));
      penY += direction * Trunc(std::abs(dash) * std::sin(angle));
    }
  }

  void Play() {
    for (const double dash : dashes) {
      const int32_t x = penX;
      const int32_t y = penY;
      penX += Trunc(std::abs(dash) * std::cos(angle));
      penY += Trunc(std::abs(dash) * std::sin(angle));
      // The record of an ellipse is smaller by one at the right and the top.
      if (dash == 0.0)
        calls += "Ellipse(" + std::to_string(x - 20) + ", " + std::to_string(y - 20) + ", " +
                 std::to_string(x + 19) + ", " + std::to_string(y + 19) + ")\n";
      if (dash > 0.0) calls += Dash(x, y, penX, penY);
    }
  }

  // Plays the row at the pen, and puts the pen back to its start.
  void PlayRow() {
    const int32_t x = penX;
    const int32_t y = penY;
    do Play();
    while (penX <= extent.right && penY <= extent.top && GoOn());
    PlaceAt(x, y);
  }

  void Fall() {
    const int32_t m = std::abs(Trunc(stepY));
    if (m == 0) {
      while (penY < extent.top && GoOn()) PlaceAt(penX - Trunc(offX), penY - Trunc(offY));
      while (penX < extent.left && GoOn()) penX = Trunc(penX + std::cos(angle));
    }
    while (GoOn()) {
      PlayRow();
      penX += Trunc(offX);
      if (penX > extent.right) break;
      penY += Trunc(offY);
      while (m >= 1 && penY < extent.bottom - stepY && GoOn()) Skip(1);
    }
    PlaceAt(baseX, baseY);
    while (GoOn()) {
      PlayRow();
      PlaceAt(penX - Trunc(offX), penY - Trunc(offY));
      if (penY > extent.top) break;
      while (penX < extent.left - stepX && GoOn()) Skip(1);
    }
  }

  void Rise() {
    const bool side1 = !(angle > std::atan(offY / offX));
    while (GoOn()) {
      PlayRow();
      penX += Trunc(offX);
      if (!side1 && penX > extent.right) break;
      penY += Trunc(offY);
      while (!side1 && penY > extent.bottom && stepY != 0.0 && GoOn()) Skip(-1);
      while (side1 && penX > extent.left && GoOn()) Skip(-1);
      if (side1 && penY > extent.top) break;
    }
    PlaceAt(baseX - Trunc(offX), baseY - Trunc(offY));
    while (GoOn()) {
      PlayRow();
      penX -= Trunc(offX);
      if (penX > extent.right && (side1 || Trunc(stepY) == 0)) break;
      penY -= Trunc(offY);
      if (stepY <= 0.0 && penY < extent.bottom) break;
      if (!side1 && penY > extent.top) break;
      while (!side1 && penX < extent.left && GoOn()) Skip(1);
      if (!side1 && penY >= extent.top) break;
      while (side1 && penY < extent.bottom - stepY && GoOn()) Skip(1);
    }
  }

  const HatchExtent& extent;
  const std::vector<double>& dashes;
  const double angle, offX, offY;
  const int32_t baseX, baseY;
  double stepX = 0.0, stepY = 0.0;
  int32_t penX = 0, penY = 0;
  int32_t stepsLeft = 20000;
};

// Families of any kind around an extent.
class RandomFamilies {
 public:
  int32_t Number(int32_t from, int32_t to) {
    return from + static_cast<int32_t>(random() % static_cast<uint32_t>(to - from + 1));
  }

  HatchExtent Extent() {
    const int32_t left = Number(-500, 3000);
    const int32_t bottom = Number(-19000, -5000);
    return {left, bottom + Number(300, 2000), left + Number(300, 3000), bottom};
  }

  TestFamily Family(const HatchExtent& within) {
    const int32_t width = within.right - within.left;
    const int32_t height = within.top - within.bottom;
    const bool atTheCorner = Number(0, 2) == 0;
    TestFamily family = {
        Number(0, 4) == 0 ? 0 : Number(0, 89),
        within.left + (atTheCorner ? 0 : Number(-width, 2 * width)),
        within.bottom + (atTheCorner ? 0 : Number(-height, 2 * height)),
        Offset(),
        Offset(),
        {},
    };
    for (int32_t i = Number(1, 6); i > 0; --i) family.dashes.push_back(DashLength());
    return family;
  }

 private:
  // Often none, or less than a unit.
  double Offset() {
    const double few[] = {0.0, -0.0, 0.4, -0.4, 1e-14, -1e-14, 1.0, -1.5};
    return Number(0, 4) == 0 ? few[Number(0, 7)] : Number(-4000, 4000) / 10.0;
  }

  double DashLength() {
    if (Number(0, 3) == 0) return 0.0;
    const double length = Number(0, 9) == 0 ? Number(1, 60) / 10.0 : Number(50, 6000) / 10.0;
    return Number(0, 1) == 0 ? length : -length;
  }

  std::mt19937 random{5};
};

TEST(ForwardDashes, rows_are_those_of_a_walk_period_by_period) {
  RandomFamilies random;
  int32_t compared = 0;
  for (int32_t run = 0; run < 1500; ++run) {
    const HatchExtent within = random.Extent();
    const TestFamily family = random.Family(within);
    // Dots alone lead nowhere and aren't drawn.
    if (std::all_of(family.dashes.begin(), family.dashes.end(), [](double d) { return std::abs(d) < 60.0; }))
      continue;
    Walk walk(family, within);
    if (!walk.Run()) continue;
    ++compared;
    ASSERT_EQ(walk.calls, List(family, within)) << "run " << run;
  }
  EXPECT_GT(compared, 900);
}

// A boundary from (10, 10) to (60, 50) on a sheet of 300 x 200.
constexpr HatchExtent boundary = {1000, -15000, 6000, -19000};

int32_t CountDashes(const std::string& listing) {
  int32_t count = 0;
  for (size_t at = 0; (at = listing.find("MoveToEx(", at)) != std::string::npos; ++at) ++count;
  return count;
}

std::string FirstDash(const std::string& listing) {
  return listing.substr(0, listing.find('\n', listing.find('\n') + 1) + 1);
}

TEST(ForwardDashes, level_rows_that_fall_begin_above_the_top_with_no_phase) {
  // The offset becomes (200, -300). 14 steps up from (1000, -19000): (-1800, -14800), and to the left edge.
  const std::string listing = List({0, 1000, -19000, -200, 300, {200, -100}}, boundary);
  EXPECT_EQ(FirstDash(listing), Dash(1000, -14800, 1200, -14800));
  // A row from X has (6000 - X) / 300 + 1 dashes, but the first, above the top, has 1. The first pass goes on
  // with X = 1200, 1400, .. 6000: 17 15 15 14 13 13 .. 3 3 2 1 1, in all 217.
  // The second: 14 rows from -19000 to -15100, X = 1000, 800, then 600, left of 700, is 900, then 700, 800
  // for 500, 900 and so on: 17 dashes from 1000 and 18 from each of the other 13, 251.
  EXPECT_EQ(CountDashes(listing), 1 + 217 + 251);
}

TEST(ForwardDashes, slanted_rows_that_fall_arent_skipped_back) {
  // The offset becomes (212, -212), a period is (211, 211), and the bounds are 0.7071 * 300 = 212.1 away. A
  // row ends right of 6000 or above -15000. The first pass: X = 1000 + 212 k, Y = -17000 - 212 k to k = 10,
  // with 10 11 12 13 14 15 16 17 16 15 14 dashes; below -19212.1 each is skipped once: X = 3543, 3966 ..
  // 5658, Y = -19121 .. -19126, with 12 10 8 6 4 2, and (6081, -19127), right of the edge, with 1: 153 + 42
  // + 1. The second: (1000, -17000) 10, (788, -16788) 9, then three periods forward each time, (998, -16154)
  // 6, (997, -15731) 4, (996, -15308) 2 and (995, -14885), above the top, 1: 32.
  const std::string listing = List({45, 1000, -17000, -212.13, 212.13, {200, -100}}, boundary);
  EXPECT_EQ(FirstDash(listing), Dash(1000, -17000, 1141, -16859));
  EXPECT_EQ(CountDashes(listing), 153 + 42 + 1 + 32);
}

TEST(ForwardDashes, slanted_rows_that_rise_end_where_they_begin_right_of_the_edge) {
  // A period is (353 + 141, 353 + 141). The first pass: (1000, -19000), then by (400, 100), and back by 494
  // from above the bottom: 9, four rows from (906, -19394) with 9 9 9 8, five from (2012, -19488) with 9 8 7
  // 6 5, five from (3518, -19482) with 6 5 4 3 2, three from (5024, -19476) with 2 2 1: 104. The second:
  // (600, -19100) 9, then by (-400, -100) and forward to the left edge: (1188, -18212) 7, 6, 5, 5, (1070,
  // -17130) 5, 4, 3, 2, 2, (1046, -15654) 2, 1: 51. (1234, -14866) is above the top.
  const std::string listing = List({45, 1000, -19000, 400, 100, {500, -200}}, boundary);
  EXPECT_EQ(FirstDash(listing), Dash(1000, -19000, 1353, -18647));
  EXPECT_EQ(CountDashes(listing), 104 + 51);
}

TEST(ForwardDashes, the_sign_of_the_offset_is_that_before_it_loses_its_fraction) {
  // -0.5 falls, though by no whole unit. Above the top each row has one dash: in the first pass those from
  // 1000, 1300, .. 5800, in the second the base's, and its next row is above the top too.
  std::string rows;
  for (int32_t x = 1000; x <= 5800; x += 300) rows += Dash(x, -14999, x + 200, -14999);
  EXPECT_EQ(List({0, 1000, -14999, 300, -0.5, {200, -100}}, boundary),
            rows + Dash(1000, -14999, 1200, -14999));
}

TEST(ForwardDashes, a_base_far_away_is_rewound_at_once) {
  // A million periods of 300 to the right of the first of these tests: the first pass is the same; in the
  // second each of the 14 rows begins right of the edge and has one dash.
  const std::string nearBase = List({0, 1000, -19000, -200, 300, {200, -100}}, boundary);
  const std::string farBase = List({0, 300001000, -19000, -200, 300, {200, -100}}, boundary);
  const size_t secondPass = farBase.find("MoveToEx(300001000, -19000)");
  EXPECT_EQ(farBase.substr(0, secondPass), nearBase.substr(0, secondPass));
  EXPECT_EQ(CountDashes(farBase), 1 + 217 + 14);
}

TEST(ForwardDashes, rows_that_would_never_end_stop_outside_the_extent) {
  // An offset of nothing to the right: the first pass falls for ever. From (1000, -14800) to -18700, and
  // -19000, the last that meets the extent; the second from -19000 up to -15100. The one above the top has
  // one dash, the 28 others 17.
  EXPECT_EQ(CountDashes(List({0, 1000, -19000, -1e-14, 300, {200, -100}}, boundary)), 1 + 28 * 17);
}

}  // namespace
}  // namespace hexlume::forward_dashes_test
