// From the model to the sheet, and from the sheet into the view.

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "entities/converter_rules.h"
#include "support/converter_test.h"

namespace hexlume::placement_rules_test {
namespace {

constexpr int32_t smallest = std::numeric_limits<int32_t>::min();

std::string Text(const POINT& point) {
  return "(" + std::to_string(point.x) + ", " + std::to_string(point.y) + ")";
}

// ModelToSheet.

class ModelToSheetTest : public ConverterTest {
 protected:
  ModelToSheetTest() { state.sheetHeightF = 0.0; }
};

TEST_F(ModelToSheetTest, both_coordinates_are_cut_toward_zero) {
  EXPECT_EQ("(1, 1)", Text(ModelToSheet(1.9, 1.9)));
  EXPECT_EQ("(-1, -1)", Text(ModelToSheet(-1.9, -1.9)));
  EXPECT_EQ("(0, 0)", Text(ModelToSheet(0.9, -0.9)));
}

TEST_F(ModelToSheetTest, the_origin_goes_before_the_scale_and_the_shift_behind_it) {
  state.originX = 100.0;
  state.originY = 200.0;
  state.drawScale = 2.5;
  state.shiftX = 3.25;
  state.shiftY = 4.5;
  state.sheetHeightF = 29700.5;
  // (1100 - 100) / 2.5 + 3.25 = 403.25; (1200 - 200) / 2.5 - 29700.5 + 4.5 = -29296
  EXPECT_EQ("(403, -29296)", Text(ModelToSheet(1100.0, 1200.0)));
}

TEST_F(ModelToSheetTest, the_height_keeps_its_fraction) {
  state.sheetHeightF = 29700.75;
  EXPECT_EQ(-29700, ModelToSheet(0.0, 0.0).y);  // -29700.75
  EXPECT_EQ(-29699, ModelToSheet(0.0, 1.0).y);  // -29699.75
  EXPECT_EQ(0, ModelToSheet(0.0, 29700.0).y);   // -0.75
  EXPECT_EQ(0, ModelToSheet(0.0, 29701.0).y);   // 0.25
  EXPECT_EQ(1, ModelToSheet(0.0, 29702.0).y);   // 1.25
}

TEST_F(ModelToSheetTest, a_scale_of_0_gives_the_smallest_number) {
  state.drawScale = 0.0;
  EXPECT_EQ(smallest, ModelToSheet(5.0, 5.0).x);   // infinite
  EXPECT_EQ(smallest, ModelToSheet(-5.0, 5.0).x);  // infinite
  EXPECT_EQ(smallest, ModelToSheet(0.0, 0.0).x);   // 0 / 0
  EXPECT_EQ(smallest, ModelToSheet(0.0, -5.0).y);
}

TEST_F(ModelToSheetTest, what_is_no_number_gives_the_smallest_number) {
  const POINT point = ModelToSheet(std::numeric_limits<double>::quiet_NaN(), 5.0);
  EXPECT_EQ(smallest, point.x);
  EXPECT_EQ(5, point.y);
}

TEST_F(ModelToSheetTest, what_fits_no_int32_gives_the_smallest_number) {
  EXPECT_EQ(2147483647, ModelToSheet(2147483647.9, 0.0).x);
  EXPECT_EQ(smallest, ModelToSheet(2147483648.0, 0.0).x);
  EXPECT_EQ(smallest, ModelToSheet(-2147483648.9, 0.0).x);
  EXPECT_EQ(smallest, ModelToSheet(-2147483649.0, 0.0).x);
  EXPECT_EQ(smallest, ModelToSheet(1e300, 0.0).x);
}

// BlockX, BlockY, BlockTransform.

class BlockTransformTest : public ConverterTest {
 protected:
  // With half a unit of shift no result is on the edge of a truncation: a turn by the drawing's own pi is
  // off by some 1e-8.
  BlockTransformTest() {
    state.sheetHeightF = 0.0;
    state.shiftX = 0.5;
    state.shiftY = 0.5;
  }
};

TEST_F(BlockTransformTest, a_coordinate_takes_its_own_scale_and_the_blocks_origin) {
  state.insertScaleX = 2.0;
  state.insertScaleY = -3.0;
  EXPECT_EQ(800.0, BlockX(1.5, 500.0));  // 1.5 * 100 * 2 + 500
  EXPECT_EQ(50.0, BlockY(1.5, 500.0));   // 1.5 * 100 * -3 + 500
}

TEST_F(BlockTransformTest, without_an_angle_the_point_goes_to_the_sheet_as_it_is) {
  EXPECT_EQ("(1500, 2300)", Text(BlockTransform(1500.0, 2300.0, 1000.0, 2000.0)));
  state.insertAngle = -0.0;
  EXPECT_EQ("(1500, 2300)", Text(BlockTransform(1500.0, 2300.0, 1000.0, 2000.0)));
}

TEST_F(BlockTransformTest, a_quarter_turn_turns_about_the_blocks_origin) {
  state.insertAngle = halfPi;
  // From (1000, 2000) to the point it is (500, 300), turned (-300, 500).
  EXPECT_EQ("(700, 2500)", Text(BlockTransform(1500.0, 2300.0, 1000.0, 2000.0)));
}

TEST_F(BlockTransformTest, the_blocks_origin_itself_stays) {
  state.insertAngle = 1.0;
  EXPECT_EQ("(1000, 2000)", Text(BlockTransform(1000.0, 2000.0, 1000.0, 2000.0)));
}

TEST_F(BlockTransformTest, a_turn_by_30_degrees) {
  state.insertAngle = pi / 6.0;
  // (1000, 0) turned: (1000 * 0.8660254, 1000 * 0.5) = (866.0254, 500)
  EXPECT_EQ("(866, 500)", Text(BlockTransform(1000.0, 0.0, 0.0, 0.0)));
}

TEST_F(BlockTransformTest, the_turn_comes_before_the_sheets_scale) {
  state.insertAngle = halfPi;
  state.drawScale = 10.0;
  state.originX = 200.0;
  // Turned as above to (700, 2500): (700 - 200) / 10 + 0.5 = 50.5, 2500 / 10 + 0.5 = 250.5
  EXPECT_EQ("(50, 250)", Text(BlockTransform(1500.0, 2300.0, 1000.0, 2000.0)));
}

// The view. Its Y counts downward, the points' Y is negative below the top of the sheet.

constexpr ViewRect view = {1000, 200, 3000, 700};

TEST(LiesInViewTest, the_edges_count_in) {
  EXPECT_TRUE(LiesInView(view, {2000, -500}));
  EXPECT_TRUE(LiesInView(view, {1000, -200}));
  EXPECT_TRUE(LiesInView(view, {3000, -700}));
}

TEST(LiesInViewTest, a_unit_beyond_an_edge_is_outside) {
  EXPECT_FALSE(LiesInView(view, {999, -500}));
  EXPECT_FALSE(LiesInView(view, {3001, -500}));
  EXPECT_FALSE(LiesInView(view, {2000, -199}));
  EXPECT_FALSE(LiesInView(view, {2000, -701}));
}

TEST(LiesInViewTest, the_views_y_is_the_negated_one_of_the_sheet) {
  EXPECT_FALSE(LiesInView(view, {2000, 500}));
}

TEST(LiesInViewTest, the_smallest_y_wraps_to_above_the_sheet) {
  EXPECT_FALSE(LiesInView({0, smallest + 1, 10, 10}, {5, smallest}));
  EXPECT_TRUE(LiesInView({0, smallest, 10, 10}, {5, smallest}));
}

std::string Clamped(const ViewRect& rect, POINT point) {
  ClampToView(rect, point);
  return Text(point);
}

TEST(ClampToViewTest, a_point_moves_to_the_edge_that_it_is_beyond) {
  EXPECT_EQ("(1000, -500)", Clamped(view, {999, -500}));
  EXPECT_EQ("(3000, -500)", Clamped(view, {9000, -500}));
  EXPECT_EQ("(2000, -200)", Clamped(view, {2000, 100}));
  EXPECT_EQ("(2000, -700)", Clamped(view, {2000, -701}));
}

TEST(ClampToViewTest, each_coordinate_moves_by_itself) {
  EXPECT_EQ("(1000, -700)", Clamped(view, {-50, -4000}));
  EXPECT_EQ("(3000, -200)", Clamped(view, {4000, 50}));
}

TEST(ClampToViewTest, a_point_inside_stays) {
  EXPECT_EQ("(1000, -700)", Clamped(view, {1000, -700}));
  EXPECT_EQ("(2222, -333)", Clamped(view, {2222, -333}));
}

TEST(ClampToViewTest, the_lower_edge_comes_before_the_upper_one) {
  // 500 is below 200, so it becomes 200, which is above 300, so it becomes 300.
  EXPECT_EQ("(0, -300)", Clamped({0, 300, 10, 200}, {0, -500}));
}

struct Segment {
  POINT a, b;
};

TEST(BeyondOneEdgeTest, both_points_beyond_the_same_edge) {
  EXPECT_TRUE(BeyondOneEdge(view, {500, -300}, {999, -600}));
  EXPECT_TRUE(BeyondOneEdge(view, {3001, -300}, {3500, -600}));
  EXPECT_TRUE(BeyondOneEdge(view, {1500, -199}, {2000, -100}));
  EXPECT_TRUE(BeyondOneEdge(view, {1500, -701}, {2000, -900}));
}

TEST(BeyondOneEdgeTest, one_point_on_the_edge_is_enough_to_stay) {
  const Segment lines[] = {
      {{500, -300}, {1000, -600}},   // left
      {{3500, -600}, {3000, -300}},  // right
      {{2000, -100}, {1500, -200}},  // top
      {{2000, -900}, {1500, -700}},  // bottom
  };
  for (const Segment& line : lines) {
    EXPECT_FALSE(BeyondOneEdge(view, line.a, line.b)) << Text(line.b);
    EXPECT_FALSE(BeyondOneEdge(view, line.b, line.a)) << Text(line.b);
  }
}

TEST(BeyondOneEdgeTest, points_beyond_two_different_edges_stay) {
  EXPECT_FALSE(BeyondOneEdge(view, {500, -300}, {3500, -300}));
  EXPECT_FALSE(BeyondOneEdge(view, {500, -300}, {2000, -900}));
}

std::string ClampedParallel(const ViewRect& rect, Segment line) {
  const bool parallel = ClampAxisParallel(rect, line.a, line.b);
  return (parallel ? "" : "slanted ") + Text(line.a) + Text(line.b);
}

TEST(ClampAxisParallelTest, a_horizontal_line_is_shortened_on_both_sides) {
  EXPECT_EQ("(1000, -500)(3000, -500)", ClampedParallel(view, {{0, -500}, {9000, -500}}));
}

TEST(ClampAxisParallelTest, a_vertical_line_is_shortened_on_both_sides_in_either_order) {
  EXPECT_EQ("(2000, -200)(2000, -700)", ClampedParallel(view, {{2000, 0}, {2000, -900}}));
  EXPECT_EQ("(2000, -700)(2000, -200)", ClampedParallel(view, {{2000, -900}, {2000, 0}}));
}

TEST(ClampAxisParallelTest, a_line_within_the_view_stays) {
  EXPECT_EQ("(1000, -200)(3000, -200)", ClampedParallel(view, {{1000, -200}, {3000, -200}}));
}

TEST(ClampAxisParallelTest, a_point_counts_as_parallel) {
  EXPECT_EQ("(2000, -500)(2000, -500)", ClampedParallel(view, {{2000, -500}, {2000, -500}}));
}

TEST(ClampAxisParallelTest, the_left_point_is_held_to_the_left_and_the_right_one_to_the_right_only) {
  EXPECT_EQ("(9000, -500)(0, -500)", ClampedParallel(view, {{9000, -500}, {0, -500}}));
}

TEST(ClampAxisParallelTest, a_slanted_line_stays_as_it_is) {
  EXPECT_EQ("slanted (0, 0)(9000, -900)", ClampedParallel(view, {{0, 0}, {9000, -900}}));
}

std::string Cut(const ViewRect& rect, Segment line) {
  return ViewReject(rect, line.a, line.b) ? "rejected" : Text(line.a) + Text(line.b);
}

TEST(ViewRejectTest, a_line_beyond_one_edge_is_rejected) {
  EXPECT_EQ("rejected", Cut(view, {{500, -300}, {999, -600}}));
  EXPECT_EQ("rejected", Cut(view, {{3001, -300}, {3500, -300}}));
  EXPECT_EQ("rejected", Cut(view, {{1500, -100}, {1500, -199}}));
  EXPECT_EQ("rejected", Cut(view, {{1500, -701}, {2000, -900}}));
}

TEST(ViewRejectTest, a_line_parallel_to_an_axis_is_clamped) {
  EXPECT_EQ("(1000, -500)(3000, -500)", Cut(view, {{0, -500}, {9000, -500}}));
  EXPECT_EQ("(1500, -200)(1500, -700)", Cut(view, {{1500, 0}, {1500, -800}}));
}

constexpr ViewRect square = {0, 0, 1000, 1000};

TEST(ViewRejectTest, a_slanted_line_is_cut) {
  // Slope 300 / 600 = 0.5, through (0, -400).
  EXPECT_EQ("(0, -400)(400, -200)", Cut(square, {{-200, -500}, {400, -200}}));
  // Slope -0.5 through (0, -200): at x = 1000 it is at -700.
  EXPECT_EQ("(200, -300)(1000, -700)", Cut(square, {{200, -300}, {1200, -800}}));
}

TEST(ViewRejectTest, a_slanted_line_of_which_nothing_is_left_is_rejected) {
  // Slope 2: it meets the left edge at -1200, below the view, rising.
  EXPECT_EQ("rejected", Cut(square, {{-1000, -3200}, {500, -200}}));
}

TEST(ViewRejectTest, a_rejected_slanted_line_keeps_its_points) {
  Segment line = {{-1000, -3200}, {500, -200}};
  EXPECT_TRUE(ViewReject(square, line.a, line.b));
  EXPECT_EQ("(-1000, -3200)(500, -200)", Text(line.a) + Text(line.b));
}

TEST(ViewRejectTest, a_cut_line_with_only_some_coordinates_of_minus_1_is_kept) {
  // Slope -0.5 through (0, -1.5): at x = 3 it is at -3.
  EXPECT_EQ("(-1, -1)(3, -3)", Cut({-10, -10, 10, 10}, {{-1, -1}, {3, -3}}));
  // Slope -0.05 through (0, -1.05): at x = 9 it is at -1.5.
  EXPECT_EQ("(-1, -1)(9, -1)", Cut({-10, -10, 9, 10}, {{-1, -1}, {39, -3}}));
}

TEST(ViewRejectTest, a_falling_line_left_of_the_view_is_kept) {
  // Slope -2 through (0, -2000): top 0 at x = -1000, bottom -1000 at x = -500.
  EXPECT_EQ("(-1000, 0)(-500, -1000)", Cut(square, {{-1000, 0}, {500, -3000}}));
}

}  // namespace
}  // namespace hexlume::placement_rules_test
