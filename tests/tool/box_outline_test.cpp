#include "tools/hexlume/picture/box_outline.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/picture_text.h"

namespace hexlume::box_outline_test {
namespace {

constexpr PathLimits limits = {1000, 1};

// Signed as the corners go round: counterclockwise with Y downward is negative.
double AreaOf(const PlayerPath& path) {
  struct Summer {
    double sum = 0;
    Point first{0, 0}, last{0, 0};
    void MoveTo(Point to) { first = last = to; }
    void LineTo(Point to) {
      sum += (last.x * to.y - to.x * last.y) / 2;
      last = to;
    }
    void CurveTo(Point, Point, Point) {}
    void Close() { LineTo(first); }
  };
  Summer summer;
  path.WriteTo(summer);
  return std::fabs(summer.sum);
}

TEST(BoxOutline, a_box_is_a_polygon) {
  EXPECT_EQ("M 1,2 L 1,4 L 3,4 L 3,2 Z ", TextOf(OutlineOf({{1, 2, 3, 4}}, limits)));
}

TEST(BoxOutline, boxes_one_below_the_other_share_a_polygon) {
  EXPECT_EQ("M 0,0 L 0,1 L 2,1 L 2,2 L 9,2 L 9,1 L 5,1 L 5,0 Z ",
            TextOf(OutlineOf({{0, 0, 5, 1}, {2, 1, 9, 2}}, limits)));
}

TEST(BoxOutline, straight_sides_have_no_corners_between) {
  EXPECT_EQ("M 0,0 L 0,3 L 5,3 L 5,0 Z ",
            TextOf(OutlineOf({{0, 0, 5, 1}, {0, 1, 5, 2}, {0, 2, 5, 3}}, limits)));
}

TEST(BoxOutline, boxes_that_only_meet_at_a_corner_or_not_at_all_are_apart) {
  EXPECT_EQ("M 0,0 L 0,1 L 2,1 L 2,0 Z M 2,1 L 2,2 L 4,2 L 4,1 Z ",
            TextOf(OutlineOf({{0, 0, 2, 1}, {2, 1, 4, 2}}, limits)));
  EXPECT_EQ("M 0,0 L 0,1 L 2,1 L 2,0 Z M 0,5 L 0,6 L 2,6 L 2,5 Z ",
            TextOf(OutlineOf({{0, 0, 2, 1}, {0, 5, 2, 6}}, limits)));
}

// A frame of 10 by 10 around a hole of 4 by 4: 100 - 16.
TEST(BoxOutline, a_hole_stays_open) {
  EXPECT_EQ(84, AreaOf(OutlineOf({{0, 0, 10, 3}, {0, 3, 3, 7}, {7, 3, 10, 7}, {0, 7, 10, 10}}, limits)));
}

// Two zigzag strips that come together and part again; each box is 2 wide and 1 high.
TEST(BoxOutline, every_box_is_covered_once) {
  CanvasBoxes boxes;
  for (int y = 0; y < 100; ++y) {
    const int shift = std::abs(y % 20 - 10);
    boxes.push_back({10.0 - shift, 1.0 * y, 12.0 - shift, y + 1.0});
    boxes.push_back({12.0 + shift, 1.0 * y, 14.0 + shift, y + 1.0});
  }
  EXPECT_EQ(400, AreaOf(OutlineOf(boxes, limits)));
}

TEST(BoxOutline, boxes_from_the_bottom_to_the_top_are_sorted) {
  EXPECT_EQ("M 0,0 L 0,1 L 2,1 L 2,2 L 9,2 L 9,1 L 5,1 L 5,0 Z ",
            TextOf(OutlineOf({{2, 1, 9, 2}, {0, 0, 5, 1}}, limits)));
}

TEST(BoxOutline, no_box_is_no_path) {
  EXPECT_EQ("", TextOf(OutlineOf({}, limits)));
}

}  // namespace
}  // namespace hexlume::box_outline_test
