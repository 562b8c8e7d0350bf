#include "entities/knot_insertion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "driver/numbers.h"

namespace hexlume::knot_insertion_test {
namespace {

constexpr int32_t plenty = 1000000;

struct Spline {
  std::vector<POINT> control;
  std::vector<double> knots;
  int32_t controlCount;
};

std::string TextOf(const std::vector<POINT>& points) {
  std::string text;
  for (const POINT& point : points)
    text += "(" + std::to_string(point.x) + ", " + std::to_string(point.y) + ") ";
  return text;
}

std::ostream& operator<<(std::ostream& out, const Spline& spline) {
  out << spline.controlCount << " of " << TextOf(spline.control) << "with knots";
  for (const double knot : spline.knots) out << " " << knot;
  return out;
}

Spline SplineOf(const std::vector<POINT>& control, const std::vector<double>& knots) {
  return {control, knots, static_cast<int32_t>(control.size())};
}

std::string Inserted(const Spline& spline) {
  std::vector<POINT> result;
  EXPECT_TRUE(InsertKnots(spline.control, spline.knots, spline.controlCount, plenty, result));
  return TextOf(result);
}

// Worked out by hand. The blends of an insertion at place m are those of the points m - 3 to m - 1.

TEST(KnotInsertion, without_interior_knots_the_points_stay) {
  const std::vector<POINT> points = {{1, -2}, {3, -4}, {5, -6}, {7, -8}};
  EXPECT_EQ("(1, -2) (3, -4) (5, -6) (7, -8) ", Inserted(SplineOf(points, {0, 0, 0, 0, 1, 1, 1, 1})));
}

TEST(KnotInsertion, without_knots_the_points_stay) {
  EXPECT_EQ("(1, -2) (3, -4) ", Inserted(SplineOf({{1, -2}, {3, -4}}, {})));
}

TEST(KnotInsertion, a_single_interior_knot_makes_two_curves) {
  // The knot 1 is at m = 4. Knots 0 0 0 0 1 1 2 2 2 2: shares of points 1 to 3 are (1 - 0) / (1 - 0) = 1,
  // (1 - 0) / (2 - 0) = 1/2, 1/2; the points are then
  //   (0, 0) (100, -200) (200.5 -> 200, -300) (401.5 -> 401, -302.5 -> -302) (502, -205) (600, -1)
  // Now m = 6, knots 0 0 0 0 1 1 1 2 2 2 2: shares of points 3 to 5 are (1 - 0) / (2 - 0) = 1/2,
  // (1 - 1) / (2 - 1) = 0, 0: the middle is ((401 + 200) / 2 = 300.5 -> 300, -301), and without the rounding
  // in between it were 301.
  EXPECT_EQ("(0, 0) (100, -200) (200, -300) (300, -301) (401, -302) (502, -205) (600, -1) ",
            Inserted(SplineOf({{0, 0}, {100, -200}, {301, -400}, {502, -205}, {600, -1}},
                              {0, 0, 0, 0, 1, 2, 2, 2, 2})));
}

TEST(KnotInsertion, points_are_cut_toward_zero_on_both_sides_of_it) {
  // As above: the halves of -3 and 3 are -1 and 1; the middle is (-1 + 1) / 2 and (1 + -1) / 2.
  EXPECT_EQ("(0, 0) (-4, 4) (-1, 1) (0, 0) (1, -1) (2, -2) (9, 9) ",
            Inserted(SplineOf({{0, 0}, {-4, 4}, {1, -1}, {2, -2}, {9, 9}}, {0, 0, 0, 0, 1, 2, 2, 2, 2})));
}

TEST(KnotInsertion, two_interior_knots_make_three_curves) {
  // The knot 1 is at m = 4. Knots 0 0 0 0 1 1 2 3 3 3 3: shares 1, (1 - 0) / (2 - 0) = 1/2,
  // (1 - 0) / (3 - 0) = 1/3 of points 1 to 3:
  //   (0, 0) (60, 0) (120, -60) (80.3 + 120 -> 200, -40.3 - 80 -> -120) (241, -121) (360, -60) (420, 0)
  // m = 6, knots 0 0 0 0 1 1 1 2 3 3 3 3: point 3 has the share (1 - 0) / (2 - 0) = 1/2, points 4 and 5
  // have 0: (160, -90) comes before (200, -120).
  // The knot 2 is at m = 7. Knots 0 0 0 0 1 1 1 2 2 3 3 3 3: shares of points 4 to 6 are
  // (2 - 1) / (2 - 1) = 1, (2 - 1) / (3 - 1) = 1/2, 1/2:
  //   ... (160, -90) (200, -120) (220.5 -> 220, -120.5 -> -120) (300.5 -> 300, -90.5 -> -90) (360, -60) (420,
  //   0)
  // m = 9, knots 0 0 0 0 1 1 1 2 2 2 3 3 3 3: point 6 has (2 - 1) / (3 - 1) = 1/2, points 7 and 8 have 0:
  // ((220 + 300) / 2, (-120 - 90) / 2) comes before (300, -90).
  EXPECT_EQ(
      "(0, 0) (60, 0) (120, -60) (160, -90) (200, -120) (220, -120) (260, -105) (300, -90) (360, -60) "
      "(420, 0) ",
      Inserted(SplineOf({{0, 0}, {60, 0}, {180, -120}, {241, -121}, {360, -60}, {420, 0}},
                        {0, 0, 0, 0, 1, 2, 3, 3, 3, 3})));
}

TEST(KnotInsertion, a_double_interior_knot_is_inserted_at_its_first_and_its_fourth_copy) {
  // The first copy is at m = 4. Knots 0 0 0 0 1 1 1 2 2 2 2: shares of points 1 to 3 are 1, 1,
  // (1 - 0) / (2 - 0) = 1/2: M = (250, -25) comes before point 3.
  // m = 6, four copies: point 3 has (1 - 0) / (1 - 0) = 1, points 4 and 5 have 0: M M.
  // The fourth copy is at m = 7: point 4 has no span, so 1; points 5 and 6 have (1 - 1) / (2 - 1) = 0: M M M.
  // m = 9: points 6 to 8 have 0: M M M M.
  EXPECT_EQ(
      "(0, 0) (100, -10) (200, -20) (250, -25) (250, -25) (250, -25) (250, -25) (300, -30) (400, -40) "
      "(500, -50) ",
      Inserted(SplineOf({{0, 0}, {100, -10}, {200, -20}, {300, -30}, {400, -40}, {500, -50}},
                        {0, 0, 0, 0, 1, 1, 2, 2, 2, 2})));
}

TEST(KnotInsertion, knots_up_to_0_are_no_interior_knots) {
  const std::vector<POINT> points = {{0, 0}, {10, -5}, {20, -5}, {30, -5}, {40, 0}};
  const std::string unchanged = "(0, 0) (10, -5) (20, -5) (30, -5) (40, 0) ";
  EXPECT_EQ(unchanged, Inserted(SplineOf(points, {-1, -1, -1, -1, 0, 1, 1, 1, 1})));
  EXPECT_EQ(unchanged, Inserted(SplineOf(points, {-2, -2, -2, -2, -1, 1, 1, 1, 1})));
  EXPECT_EQ(unchanged, Inserted(SplineOf(points, {-2, -2, -2, -2, -1, 0, 0, 0, 0})));
}

TEST(KnotInsertion, knots_below_zero_count_in_the_spans) {
  // The knot 1 is at m = 5. Knots -2 -2 -2 -2 -1 1 1 2 2 2 2: shares of points 2 to 4 are
  // (1 + 2) / (1 + 2) = 1, (1 + 2) / (2 + 2) = 3/4, (1 + 1) / (2 + 1) = 2/3:
  //   point 3: (225 + 50, -75 - 50); point 4: (266.7 + 100 -> 366, -27.3 - 33.3 -> -60)
  // m = 7: point 4 has (1 + 1) / (2 + 1) = 2/3, points 5 and 6 have 0:
  //   (244 + 91.7 -> 335, -40 - 41.7 -> -81) comes before (366, -60).
  EXPECT_EQ("(0, 0) (100, -100) (200, -200) (275, -125) (335, -81) (366, -60) (400, -41) (500, 0) ",
            Inserted(SplineOf({{0, 0}, {100, -100}, {200, -200}, {300, -100}, {400, -41}, {500, 0}},
                              {-2, -2, -2, -2, -1, 1, 2, 2, 2, 2})));
}

TEST(KnotInsertion, low_knots_above_0_are_interior_knots) {
  // Each of the four knots 1 is inserted, the first one at m = 0: there no point has a share. All blends
  // until the twelve copies are through have a span of 0 (share 1) or a share of (1 - 1) / (2 - 1) = 0, so
  // that the first point is doubled eight times.
  EXPECT_EQ("(5, -5) (5, -5) (5, -5) (5, -5) (5, -5) (5, -5) (5, -5) (5, -5) (5, -5) (6, 0) (7, 0) (8, -9) ",
            Inserted(SplineOf({{5, -5}, {6, 0}, {7, 0}, {8, -9}}, {1, 1, 1, 1, 2, 2, 2, 2})));
}

TEST(KnotInsertion, points_that_no_group_wrote_are_zeros) {
  EXPECT_EQ("(7, -7) (0, 0) (0, 0) ", Inserted({{{7, -7}}, {}, 3}));
}

TEST(KnotInsertion, an_insertion_behind_the_last_point_takes_what_the_file_has_there) {
  // One point counts, and the knot 1 is at m = 4, after it. Knots 0 0 0 0 1 1 2 2 2 2: point 1 has the share
  // (1 - 0) / (1 - 0) = 1 and stays what the file has there. m = 6: points 1 and 2 are kept.
  EXPECT_EQ("(10, -1) (20, -2) (30, -3) ",
            Inserted({{{10, -1}, {20, -2}, {30, -3}, {40, -4}}, {0, 0, 0, 0, 1, 2, 2, 2, 2}, 1}));
}

TEST(KnotInsertion, numbers_that_are_none_end_as_the_smallest_unit) {
  // The knot 5 is at m = 4. Knots 0 0 0 -inf 5 5 inf inf inf inf: shares of points 1 to 3 are
  // (5 - 0) / (5 - 0) = 1, 5 / inf = 0 and (5 + inf) / (inf + inf), which is no number. Once more at m = 6.
  const double infinite = Atof("1e999");
  std::vector<POINT> result;
  EXPECT_TRUE(InsertKnots({{1, -1}, {2, -2}, {3, -3}, {4, -4}, {5, -5}},
                          {0, 0, 0, -infinite, 5, infinite, infinite, infinite, infinite}, 5, plenty,
                          result));
  EXPECT_EQ(result[3].x, INT32_MIN);
  EXPECT_EQ(result[3].y, INT32_MIN);
  EXPECT_EQ(result.size(), 7u);
}

// The bound.

TEST(KnotInsertion, points_up_to_the_bound_are_made) {
  const std::vector<double> knots = {0, 0, 0, 0, 1, 2, 2, 2, 2};
  std::vector<POINT> result;
  EXPECT_TRUE(InsertKnots({}, knots, 5, 7, result));
  EXPECT_EQ(result.size(), 7u);
  EXPECT_FALSE(InsertKnots({}, knots, 6, 7, result));
  EXPECT_TRUE(InsertKnots({}, {}, 7, 7, result));
  EXPECT_FALSE(InsertKnots({}, {}, 8, 7, result));
  EXPECT_FALSE(InsertKnots({}, knots, INT32_MAX, plenty, result));
}

// The rule in its simplest form, on plain arrays, each insertion writing all of them anew.

constexpr size_t room = 400;

struct PlainArrays {
  std::array<double, room> k = {}, w = {};
  std::array<POINT, room> p = {};
  int32_t knotCount = 0;
  int32_t controlCount = 0;

  double W(int32_t place) const { return w.at(static_cast<size_t>(place)); }

  void DuplicateKnot(int32_t place) {
    const auto at = static_cast<size_t>(place);
    for (size_t i = 0; i <= at; ++i) w[i] = k[i];
    for (size_t i = at; i + 1 < room; ++i) w[i + 1] = k[i];
    k = w;
  }

  double Alpha(int32_t j, int32_t m, int32_t r) const {
    if (j <= m - 4) return 1.0;
    if (j >= m) return 0.0;
    const double d = W(j + 4) - W(j);
    return d == 0.0 ? 1.0 : (W(r + 1) - W(j)) / d;
  }

  void AddPoint(int32_t m, int32_t r) {
    std::array<POINT, room> q = {};
    q[0] = p[0];
    for (int32_t j = 1; j <= controlCount - 1; ++j) {
      const auto at = static_cast<size_t>(j);
      const double alpha = Alpha(j, m, r);
      q.at(at).x = Trunc(p[at].x * alpha + p[at - 1].x * (1.0 - alpha));
      q.at(at).y = Trunc(p[at].y * alpha + p[at - 1].y * (1.0 - alpha));
    }
    for (int32_t j = 0; j < controlCount; ++j) p[static_cast<size_t>(j)] = q[static_cast<size_t>(j)];
  }

  void InsertAll() {
    int32_t i = 0;
    while (i < knotCount) {
      const double knot = k.at(static_cast<size_t>(i));
      if (!(knot > 0.0 && knot < k.at(static_cast<size_t>(knotCount) - 1))) {
        ++i;
        continue;
      }
      int32_t m = i;
      int32_t r = i - 1;
      DuplicateKnot(i);
      for (int pass = 1; pass <= 2; ++pass) {
        ++knotCount;
        ++controlCount;
        AddPoint(m, r);
        if (pass == 1) DuplicateKnot(m);
        r += 2;
        m += 2;
      }
      i = r;
    }
  }
};

std::string PlainlyInserted(const Spline& spline, bool& inserted) {
  PlainArrays arrays;
  std::copy(spline.knots.begin(), spline.knots.end(), arrays.k.begin());
  std::copy(spline.control.begin(), spline.control.end(), arrays.p.begin());
  arrays.knotCount = static_cast<int32_t>(spline.knots.size());
  arrays.controlCount = spline.controlCount;
  arrays.InsertAll();
  inserted = arrays.controlCount != spline.controlCount;
  return TextOf({arrays.p.begin(), arrays.p.begin() + arrays.controlCount});
}

// Splines of all kinds by chance, the same in each run.
class Dice {
 public:
  int32_t From(int32_t least, int32_t most) {
    return least + static_cast<int32_t>(numbers() % (static_cast<uint32_t>(most - least) + 1));
  }

  std::vector<POINT> Points(int32_t count, int32_t size) {
    std::vector<POINT> points;
    for (int32_t i = 0; i < count; ++i) {
      const int32_t x = From(-size, size);
      points.push_back({x, From(-size, size)});
    }
    return points;
  }

  // Clamped at both ends, each interior knot up to most times.
  std::vector<double> ClampedKnots(int32_t pointCount, double first, int32_t most) {
    std::vector<double> knots(4, first);
    double knot = first;
    while (static_cast<int32_t>(knots.size()) < pointCount) {
      knot += From(1, 5) / 4.0;
      for (int32_t copies = From(1, most); copies > 0 && static_cast<int32_t>(knots.size()) < pointCount;
           --copies)
        knots.push_back(knot);
    }
    knots.insert(knots.end(), 4, knot + From(1, 5) / 4.0);
    return knots;
  }

  std::vector<double> AnyKnots(int32_t count) {
    std::vector<double> knots;
    for (int32_t i = 0; i < count; ++i) knots.push_back(From(-6, 12) / 2.0);
    return knots;
  }

 private:
  std::mt19937 numbers{20250311};
};

// How many of 1000 splines had a knot inserted. All must come out alike.
template <typename MakeSpline>
int CompareThousand(const MakeSpline& makeSpline) {
  Dice dice;
  int insertedInAll = 0;
  for (int i = 0; i < 1000; ++i) {
    const Spline spline = makeSpline(dice);
    bool inserted = false;
    EXPECT_EQ(PlainlyInserted(spline, inserted), Inserted(spline)) << spline;
    insertedInAll += inserted;
    if (testing::Test::HasFailure()) break;
  }
  return insertedInAll;
}

TEST(KnotInsertionOnPlainArrays, clamped_splines) {
  EXPECT_GT(CompareThousand([](Dice& dice) {
              const int32_t count = dice.From(4, 20);
              return SplineOf(dice.Points(count, 30000), dice.ClampedKnots(count, 0.0, 1));
            }),
            800);
}

TEST(KnotInsertionOnPlainArrays, knots_of_several_copies) {
  EXPECT_GT(CompareThousand([](Dice& dice) {
              const int32_t count = dice.From(5, 20);
              return SplineOf(dice.Points(count, 30000), dice.ClampedKnots(count, 0.0, 6));
            }),
            900);
}

TEST(KnotInsertionOnPlainArrays, knots_that_start_below_or_above_0) {
  EXPECT_GT(CompareThousand([](Dice& dice) {
              const int32_t count = dice.From(4, 20);
              return SplineOf(dice.Points(count, 30000),
                              dice.ClampedKnots(count, dice.From(-12, 12) / 4.0, dice.From(1, 4)));
            }),
            800);
}

TEST(KnotInsertionOnPlainArrays, unsorted_knots) {
  EXPECT_GT(CompareThousand([](Dice& dice) {
              const int32_t count = dice.From(1, 20);
              return SplineOf(dice.Points(count, 30000), dice.AnyKnots(count + 4));
            }),
            400);
}

TEST(KnotInsertionOnPlainArrays, too_few_or_too_many_knots) {
  EXPECT_GT(CompareThousand([](Dice& dice) {
              const int32_t count = dice.From(1, 12);
              return SplineOf(dice.Points(count, 30000), dice.AnyKnots(dice.From(0, 30)));
            }),
            400);
}

TEST(KnotInsertionOnPlainArrays, sorted_knots_in_any_number) {
  EXPECT_GT(CompareThousand([](Dice& dice) {
              const std::vector<POINT> points = dice.Points(dice.From(1, 12), 30000);
              return SplineOf(points, dice.ClampedKnots(dice.From(0, 24), dice.From(0, 2), dice.From(1, 4)));
            }),
            400);
}

TEST(KnotInsertionOnPlainArrays, another_count_than_there_are_points) {
  EXPECT_GT(CompareThousand([](Dice& dice) {
              const int32_t count = dice.From(0, 16);
              const std::vector<double> knots =
                  dice.From(0, 1) ? dice.AnyKnots(dice.From(0, 24)) : dice.ClampedKnots(count, 0.0, 3);
              return Spline{dice.Points(count, 30000), knots, dice.From(1, 24)};
            }),
            400);
}

TEST(KnotInsertionOnPlainArrays, points_anywhere_and_knots_close_to_each_other) {
  EXPECT_GT(CompareThousand([](Dice& dice) {
              const int32_t count = dice.From(4, 20);
              std::vector<double> knots = dice.AnyKnots(count + 4);
              for (double& knot : knots) knot *= dice.From(0, 1) ? 1e-300 : 1e300;
              return SplineOf(dice.Points(count, INT32_MAX / 2), knots);
            }),
            400);
}

}  // namespace
}  // namespace hexlume::knot_insertion_test
