#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <vector>

#include "platform/gdi.h"
#include "platform/portable/gdi_object.h"

static bool operator==(const RECT& a, const RECT& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

static std::ostream& operator<<(std::ostream& out, const RECT& box) {
  return out << box.left << ',' << box.top << ' ' << box.right << ',' << box.bottom;
}

namespace hexlume::portable_region_test {

namespace {

// A region that is deleted at the end.
class Region {
 public:
  explicit Region(HRGN created) : handle(created) {}
  Region(const Region&) = delete;
  ~Region() { DeleteObject(handle); }

  operator HRGN() const { return handle; }

  std::vector<RECT> Boxes() const {
    std::vector<RECT> boxes;
    const RegionData* data = DataOf<RegionData>(handle);
    if (!data) return boxes;
    for (const pixman_box32_t& box : data->Boxes()) boxes.push_back({box.x1, box.y1, box.x2, box.y2});
    return boxes;
  }

  int64_t Area() const {
    int64_t area = 0;
    for (const RECT& box : Boxes()) {
      area += (static_cast<int64_t>(box.right) - box.left) * (static_cast<int64_t>(box.bottom) - box.top);
    }
    return area;
  }

  RECT Box() const {
    RECT box = {1, 2, 3, 4};
    GetRgnBox(handle, &box);
    return box;
  }

 private:
  HRGN handle;
};

HRGN Polygon(const std::vector<POINT>& points, int fillMode = ALTERNATE) {
  return CreatePolygonRgn(points.data(), static_cast<int>(points.size()), fillMode);
}

using Boxes = std::vector<RECT>;

// Polygons. The rectangles are those that GetRegionData gives under Wine.

TEST(PortableRegion, a_polygons_last_row_and_column_lie_outside) {
  EXPECT_EQ(Region(Polygon({{0, 0}, {10, 0}, {10, 10}, {0, 10}})).Boxes(), (Boxes{{0, 0, 10, 10}}));
  EXPECT_EQ(Region(Polygon({{0, 0}, {0, 10}, {10, 10}, {10, 0}, {0, 0}})).Boxes(), (Boxes{{0, 0, 10, 10}}));
}

TEST(PortableRegion, a_slanted_edge_begins_a_row_at_the_first_x_that_is_not_left_of_it) {
  const Region falling(Polygon({{0, 0}, {4, 0}, {0, 4}}));
  EXPECT_EQ(falling.Boxes(), (Boxes{{0, 0, 4, 1}, {0, 1, 3, 2}, {0, 2, 2, 3}, {0, 3, 1, 4}}));
  const Region rising(Polygon({{2, 6}, {-2, 1}, {5, 3}}));
  EXPECT_EQ(rising.Boxes(), (Boxes{{-1, 2, 2, 3}, {0, 3, 5, 4}, {1, 4, 4, 5}, {2, 5, 3, 6}}));
}

TEST(PortableRegion, equal_rows_are_one_rectangle) {
  // The right edge is between 8 and 9 from the second row on.
  const Region steep(Polygon({{0, 0}, {8, 0}, {9, 100}, {0, 100}}));
  EXPECT_EQ(steep.Boxes(), (Boxes{{0, 0, 8, 1}, {0, 1, 9, 100}}));
}

TEST(PortableRegion, a_polygon_without_an_area_is_empty) {
  for (const std::vector<POINT>& points : {std::vector<POINT>{{5, 5}},
                                           {{0, 0}, {10, 10}},
                                           {{0, 0}, {10, 0}, {5, 0}},
                                           {{0, 0}, {0, 10}, {0, 5}}}) {
    const Region region(Polygon(points));
    RECT box = {1, 2, 3, 4};
    EXPECT_EQ(GetRgnBox(region, &box), NULLREGION);
    EXPECT_EQ(box, (RECT{0, 0, 0, 0}));
  }
}

TEST(PortableRegion, alternate_leaves_out_what_is_walked_round_twice_and_winding_does_not) {
  const std::vector<POINT> twice = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {10, 0}, {10, 10}, {0, 10}};
  EXPECT_EQ(Region(Polygon(twice)).Area(), 0);
  EXPECT_EQ(Region(Polygon(twice, WINDING)).Area(), 100);
}

TEST(PortableRegion, upright_polygons_of_any_size_are_possible) {
  const Region region(Polygon(
      {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MIN}, {INT32_MAX, INT32_MAX}, {INT32_MIN, INT32_MAX}}));
  EXPECT_EQ(region.Boxes(), (Boxes{{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}}));
}

TEST(PortableRegion, a_flat_polygon_may_reach_across_all_coordinates) {
  const Region region(Polygon({{INT32_MIN, 0}, {INT32_MAX, 50}, {0, 100}}));
  EXPECT_EQ(region.Box().top, 1);
  EXPECT_EQ(region.Box().bottom, 100);
}

TEST(PortableRegion, a_polygon_of_too_many_rows_is_none) {
  EXPECT_EQ(Polygon({{INT32_MIN, INT32_MIN}, {INT32_MAX, 0}, {INT32_MIN, INT32_MAX}}), nullptr);
  EXPECT_EQ(Polygon({{0, 0}, {20000000, 20000000}, {0, 20000000}}), nullptr);
}

TEST(PortableRegion, a_polygon_of_too_much_work_is_none) {
  std::vector<POINT> points;
  for (int i = 0; i < 3000; ++i) points.push_back({i, i % 2 ? 1000000 : 0});
  EXPECT_EQ(Polygon(points), nullptr);
}

TEST(PortableRegion, no_points_are_no_polygon) {
  const POINT point = {0, 0};
  EXPECT_EQ(CreatePolygonRgn(nullptr, 3, ALTERNATE), nullptr);
  EXPECT_EQ(CreatePolygonRgn(&point, -1, ALTERNATE), nullptr);
}

// Ellipses

TEST(PortableRegion, an_ellipse_ends_a_pixel_before_its_box) {
  const Region ellipse(CreateEllipticRgn(0, 0, 7, 5));
  EXPECT_EQ(ellipse.Boxes(), (Boxes{{1, 0, 5, 1}, {0, 1, 6, 2}, {0, 2, 6, 3}, {1, 3, 5, 4}}));
}

TEST(PortableRegion, an_ellipses_equal_rows_stay_apart) {
  const Boxes expected = {{3, 0, 7, 1},  {2, 1, 8, 2}, {1, 2, 9, 3}, {0, 3, 10, 4}, {0, 4, 10, 5},
                          {0, 5, 10, 6}, {1, 6, 9, 7}, {2, 7, 8, 8}, {3, 8, 7, 9}};
  EXPECT_EQ(Region(CreateEllipticRgn(0, 0, 11, 10)).Boxes(), expected);
  EXPECT_EQ(Region(CreateEllipticRgn(11, 10, 0, 0)).Boxes(), expected);
}

TEST(PortableRegion, a_box_without_pixels_has_one_before_it) {
  EXPECT_EQ(Region(CreateEllipticRgn(0, 0, 0, 0)).Box(), (RECT{-1, -1, 0, 0}));
  EXPECT_EQ(Region(CreateEllipticRgn(10, 10, 10, 20)).Box(), (RECT{9, 10, 10, 19}));
  EXPECT_EQ(Region(CreateEllipticRgn(0, 0, 1, 1)).Area(), 0);
}

TEST(PortableRegion, the_tips_of_a_narrow_ellipse_are_as_wide_as_its_middle_columns) {
  const Region even(CreateEllipticRgn(0, 0, 3, 40));
  EXPECT_EQ(even.Box(), (RECT{0, 0, 2, 39}));
  EXPECT_EQ(even.Area(), 2 * 39);
  EXPECT_EQ(Region(CreateEllipticRgn(0, 0, 4, 100)).Boxes().front(), (RECT{1, 0, 2, 1}));
}

TEST(PortableRegion, a_large_ellipse_fills_the_right_area) {
  // pi / 4 * 99999 * 19999 is 1570702194 and some; each row may be a pixel off at both ends.
  const Region ellipse(CreateEllipticRgn(-50000, 0, 50000, 20000));
  EXPECT_NEAR(static_cast<double>(ellipse.Area()), 1570702194.0, 2 * 20000.0);
  EXPECT_EQ(ellipse.Box(), (RECT{-50000, 0, 49999, 19999}));
}

TEST(PortableRegion, an_ellipse_of_too_many_rows_or_columns_is_none) {
  EXPECT_EQ(CreateEllipticRgn(0, 0, 100, INT32_MAX), nullptr);
  EXPECT_EQ(CreateEllipticRgn(INT32_MIN, 0, INT32_MAX, 100), nullptr);
  EXPECT_EQ(CreateEllipticRgn(INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN), nullptr);
}

// Rectangles

TEST(PortableRegion, a_rectangles_corners_may_come_in_any_order) {
  EXPECT_EQ(Region(CreateRectRgn(5, 7, -3, 20)).Boxes(), (Boxes{{-3, 7, 5, 20}}));
  EXPECT_EQ(Region(CreateRectRgn(0, 0, 5, 0)).Boxes(), Boxes{});
  EXPECT_EQ(Region(CreateRectRgn(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX)).Boxes(),
            (Boxes{{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}}));
}

// Combining

struct Combined {
  int mode;
  int complexity;
  int64_t area;
  RECT box;
};

TEST(PortableRegion, two_rectangles_combine_in_every_mode) {
  // Squares of 100 that share 25.
  for (const Combined& expected : {Combined{RGN_AND, SIMPLEREGION, 25, {5, 5, 10, 10}},
                                   Combined{RGN_OR, COMPLEXREGION, 175, {0, 0, 15, 15}},
                                   Combined{RGN_XOR, COMPLEXREGION, 150, {0, 0, 15, 15}},
                                   Combined{RGN_DIFF, COMPLEXREGION, 75, {0, 0, 10, 10}},
                                   Combined{RGN_COPY, SIMPLEREGION, 100, {0, 0, 10, 10}}}) {
    const Region first(CreateRectRgn(0, 0, 10, 10));
    const Region second(CreateRectRgn(5, 5, 15, 15));
    const Region result(CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(CombineRgn(result, first, second, expected.mode), expected.complexity);
    EXPECT_EQ(result.Area(), expected.area);
    EXPECT_EQ(result.Box(), expected.box);
    EXPECT_EQ(CombineRgn(first, first, second, expected.mode), expected.complexity);
    EXPECT_EQ(first.Boxes(), result.Boxes());
  }
}

TEST(PortableRegion, an_unknown_mode_changes_nothing) {
  const Region first(CreateRectRgn(0, 0, 10, 10));
  const Region result(CreateRectRgn(1, 2, 3, 4));
  for (const int mode : {-1, 0, 6}) EXPECT_EQ(CombineRgn(result, first, first, mode), RGN_ERROR);
  EXPECT_EQ(result.Box(), (RECT{1, 2, 3, 4}));
}

TEST(PortableRegion, an_ellipse_combined_with_nothing_keeps_its_rows_apart) {
  const Region ellipse(CreateEllipticRgn(0, 0, 41, 41));
  for (const int mode : {RGN_OR, RGN_XOR}) {
    const Region result(CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(CombineRgn(result, result, ellipse, mode), COMPLEXREGION);
    EXPECT_EQ(result.Boxes().size(), 40u);
  }
}

TEST(PortableRegion, a_comb_and_a_ladder_too_large_to_combine_are_refused) {
  std::vector<POINT> comb;
  std::vector<POINT> ladder;
  for (int i = 0; i < 5000; ++i) {
    for (const LONG away : {0, 1}) {
      const LONG side = 4 * i + 2 * away;
      comb.push_back({side, away ? 0 : 100000});
      comb.push_back({side, away ? 100000 : 0});
      ladder.push_back({away ? 0 : 100000, side});
      ladder.push_back({away ? 100000 : 0, side});
    }
  }
  const Region teeth(Polygon(comb));
  const Region rungs(Polygon(ladder));
  ASSERT_GT(teeth.Boxes().size(), 4000u);
  ASSERT_GT(rungs.Boxes().size(), 4000u);
  const Region result(CreateRectRgn(1, 2, 3, 4));
  EXPECT_EQ(CombineRgn(result, teeth, rungs, RGN_XOR), RGN_ERROR);
  EXPECT_EQ(result.Box(), (RECT{1, 2, 3, 4}));
}

TEST(PortableRegion, one_long_row_does_not_keep_regions_of_many_rows_from_combining) {
  // 5000 teeth of 2 in one row, and below it a slope whose rows hold 0, 1, 2 and so on up to 29999.
  std::vector<POINT> comb;
  for (LONG side = 0; side < 20000; side += 4) {
    for (const POINT& corner : {POINT{side, 1}, POINT{side, 0}, POINT{side + 2, 0}, POINT{side + 2, 1}})
      comb.push_back(corner);
  }
  const Region teeth(Polygon(comb));
  const Region slope(Polygon({{0, 10}, {30000, 30010}, {0, 30010}}));
  ASSERT_EQ(teeth.Boxes().size(), 5000u);
  const Region result(CreateRectRgn(0, 0, 0, 0));
  for (const int mode : {RGN_OR, RGN_XOR}) {
    EXPECT_EQ(CombineRgn(result, teeth, slope, mode), COMPLEXREGION);
    EXPECT_EQ(result.Area(), 2 * 5000 + 29999 * 30000 / 2);
    EXPECT_EQ(result.Box(), (RECT{0, 0, 29999, 30010}));
  }
}

TEST(PortableRegion, a_region_combines_into_itself_with_nothing) {
  const Region region(CreateRectRgn(0, 0, 10, 10));
  const Region nothing(CreateRectRgn(0, 0, 0, 0));
  for (const int mode : {RGN_OR, RGN_XOR, RGN_DIFF}) {
    EXPECT_EQ(CombineRgn(region, region, nothing, mode), SIMPLEREGION);
    EXPECT_EQ(region.Box(), (RECT{0, 0, 10, 10}));
  }
}

TEST(PortableRegion, what_is_no_region_gives_an_error) {
  const Region region(CreateRectRgn(0, 0, 10, 10));
  const HBRUSH brush = CreateSolidBrush(0);
  RECT box = {1, 2, 3, 4};
  EXPECT_EQ(CombineRgn(region, region, nullptr, RGN_OR), RGN_ERROR);
  EXPECT_EQ(CombineRgn(region, nullptr, region, RGN_OR), RGN_ERROR);
  EXPECT_EQ(CombineRgn(nullptr, region, region, RGN_OR), RGN_ERROR);
  EXPECT_EQ(CombineRgn(region, brush, region, RGN_OR), RGN_ERROR);
  EXPECT_EQ(CombineRgn(region, region, nullptr, RGN_COPY), SIMPLEREGION);
  EXPECT_EQ(GetRgnBox(nullptr, &box), RGN_ERROR);
  EXPECT_EQ(GetRgnBox(brush, &box), RGN_ERROR);
  EXPECT_EQ(GetRgnBox(region, nullptr), RGN_ERROR);
  EXPECT_EQ(box, (RECT{1, 2, 3, 4}));
  EXPECT_EQ(FillRgn(nullptr, region, brush), 0);
  EXPECT_EQ(ExtSelectClipRgn(nullptr, region, RGN_COPY), RGN_ERROR);
  DeleteObject(brush);
}

}  // namespace

}  // namespace hexlume::portable_region_test
