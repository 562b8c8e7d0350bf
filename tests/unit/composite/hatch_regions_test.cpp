// How many rectangles the regions of a hatch may have, and how they are combined.

#include "composite/hatch_regions.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <new>
#include <vector>

#include "platform/path_region.h"

namespace hexlume::hatch_regions_test {
namespace {

HatchPath Polygon(const std::vector<POINT>& corners) {
  return {false, corners};
}

HatchPath Rectangle(LONG left, LONG top, LONG right, LONG bottom) {
  return Polygon({{left, top}, {right, top}, {right, bottom}, {left, bottom}});
}

HatchPath Ellipse(LONG width, LONG height) {
  return {true, {{0, 0}, {width, height}}};
}

// Upright teeth from 0 down to their height, each 10 wide, with gaps of 10, on a beam 5 high.
HatchPath Comb(LONG teeth, LONG height) {
  std::vector<POINT> corners = {{0, 0}};
  for (LONG i = 0; i < teeth; ++i) {
    const LONG side = 10 + 20 * i;
    for (const POINT& corner :
         {POINT{side, 0}, POINT{side, height}, POINT{side + 10, height}, POINT{side + 10, 0}})
      corners.push_back(corner);
  }
  corners.push_back({20 * teeth + 10, 0});
  corners.push_back({20 * teeth + 10, -5});
  corners.push_back({0, -5});
  return Polygon(corners);
}

bool AreEqual(const Region& a, const Region& b) {
  const Region difference(CreateRectRgn(0, 0, 0, 0));
  return CombineRgn(difference.get(), a.get(), b.get(), RGN_XOR) == NULLREGION;
}

TEST(HatchRegions, a_slanting_edge_has_a_rectangle_for_each_row) {
  EXPECT_TRUE(FitsARegion(Polygon({{0, 0}, {10, 0}, {20, 8388608}, {0, 8388608}})));
  EXPECT_FALSE(FitsARegion(Polygon({{0, 0}, {10, 0}, {20, 8388609}, {0, 8388609}})));
  EXPECT_TRUE(FitsARegion(Ellipse(10, 8388608)));
  EXPECT_FALSE(FitsARegion(Ellipse(10, 8388609)));
}

TEST(HatchRegions, each_pair_of_edges_counts_on_rows_with_a_slanting_one) {
  // Two pairs on each row of the notch's 4194304.
  EXPECT_TRUE(FitsARegion(Polygon({{0, 0}, {20, 4194304}, {40, 0}, {40, 4194304}, {0, 4194304}})));
  EXPECT_FALSE(FitsARegion(Polygon({{0, 0}, {20, 4194305}, {40, 0}, {40, 4194305}, {0, 4194305}})));
}

TEST(HatchRegions, upright_edges_of_any_height_are_one_rectangle) {
  EXPECT_TRUE(FitsARegion(Rectangle(-regionReach, -regionReach, regionReach, regionReach)));
  EXPECT_TRUE(FitsARegion(Comb(5000, regionReach)));
}

TEST(HatchRegions, a_path_that_reaches_too_far_has_none) {
  EXPECT_TRUE(FitsARegion(Rectangle(0, 0, 67108863, 1)));
  EXPECT_FALSE(FitsARegion(Rectangle(0, 0, 67108864, 1)));
  EXPECT_FALSE(FitsARegion(Rectangle(0, -67108864, 1, 0)));
}

TEST(HatchRegions, paths_from_the_one_too_many_on_are_left_out) {
  // Half of the rectangles each. The third would be one row more.
  const std::vector<HatchPath> paths = {Ellipse(10, 4194304), Ellipse(10, 4194304), Ellipse(10, 1),
                                        Rectangle(0, 0, 5, 5)};
  EXPECT_EQ(2u, MakeRegions(paths).size());
}

TEST(HatchRegions, what_paths_are_combined_to_counts) {
  // One rectangle of a slope's 2000000 rows, but five on each of them with four teeth beside it.
  const HatchPath slope = Polygon({{-20, 0}, {-10, 0}, {-1, 2000000}, {-20, 2000000}});
  std::vector<HatchPath> paths = {Comb(4, 2000000), slope, slope};
  EXPECT_EQ(1u, MakeRegions(paths).size());
  paths[0] = Comb(2, 2000000);
  EXPECT_EQ(3u, MakeRegions(paths).size());
}

TEST(HatchRegions, a_tall_upright_path_takes_no_time) {
  // 250 edges of 300000 rows.
  std::vector<HatchPath> paths = {Comb(125, 300000)};
  std::vector<Region> regions = MakeRegions(paths);
  ASSERT_EQ(1u, regions.size());
  const Region whole = CombineRegions(regions, RGN_OR);
  std::vector<HatchPath> parts = {Rectangle(0, -5, 2510, 0)};
  for (LONG i = 0; i < 125; ++i) parts.push_back(Rectangle(10 + 20 * i, 0, 20 + 20 * i, 300000));
  regions = MakeRegions(parts);
  EXPECT_TRUE(AreEqual(CombineRegions(regions, RGN_OR), whole));
}

TEST(HatchRegions, a_tall_path_has_the_region_of_a_polygon) {
  // A wall with a roof: the edges cross 2 * 600 and 2 * 9000000 rows, more than are left to a system.
  const std::vector<POINT> wall = {{0, 9000600}, {0, 600}, {500, 0}, {1000, 600}, {1000, 9000600}};
  const Region region(CreatePathRegion(wall.data(), 5));
  const Region roof(CreatePolygonRgn(wall.data() + 1, 3, ALTERNATE));
  const Region below(CreateRectRgn(0, 600, 1000, 9000600));
  CombineRgn(roof.get(), roof.get(), below.get(), RGN_OR);
  EXPECT_TRUE(AreEqual(region, roof));
}

TEST(HatchRegions, a_combination_that_fails_isnt_passed_over) {
  std::vector<Region> regions = MakeRegions({Rectangle(0, 0, 5, 5)});
  EXPECT_THROW(CombineRegions(regions, 99), std::bad_alloc);
}

}  // namespace
}  // namespace hexlume::hatch_regions_test
