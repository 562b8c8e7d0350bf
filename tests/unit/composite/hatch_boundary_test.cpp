// The boundary of a hatch: which corners its groups make, which regions, and its extent.

#include "composite/hatch_boundary.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::hatch_boundary_test {
namespace {

class HatchBoundaryTest : public ConverterTest {
 protected:
  HatchBoundaryTest() { boundary.solidFill = true; }

  // Reads these groups, and the next entity's name after them.
  void Read(const std::string& groups) { ReadText(groups + "0 CIRCLE\n"); }

  void ReadText(const std::string& text) {
    stream = StreamOf(text);
    calls = ListCalls([this](Canvas canvas) { result = ReadHatchBoundary(stream, canvas, boundary); });
  }

  // The corners of the path that isn't finished, from the given one on, as "x, y" lines.
  std::string Corners(size_t from = 0) const {
    std::string corners;
    for (size_t i = from; i < boundary.pointCount; ++i) {
      const POINT& corner = boundary.points[i];
      corners += std::to_string(corner.x) + ", " + std::to_string(corner.y) + "\n";
    }
    return corners;
  }

  // The boxes of the regions, as "left, top, right, bottom" lines.
  std::string Boxes() const {
    std::string boxes;
    for (const Region& region : boundary.regions) {
      RECT box = {};
      GetRgnBox(region.get(), &box);
      boxes += std::to_string(box.left) + ", " + std::to_string(box.top) + ", " + std::to_string(box.right) +
               ", " + std::to_string(box.bottom) + "\n";
    }
    return boxes;
  }

  std::string Extent() const {
    const HatchExtent& extent = boundary.extent;
    return std::to_string(extent.left) + ", " + std::to_string(extent.top) + ", " +
           std::to_string(extent.right) + ", " + std::to_string(extent.bottom);
  }

  // Sheet X = 10000 x, sheet Y = 10000 y, and half a unit.
  static void MakeUnitsTiny() {
    state.drawScale = 0.01;
    state.sheetHeightF = 0.0;
    state.shiftX = state.shiftY = 0.5;
  }

  HatchBoundary boundary;
  std::string calls;
};

// Sheet X = 100 x, sheet Y = 100 y - 10000.
const char vertices[] = "10 10\n20 80\n10 30\n20 80\n10 30\n20 90\n";
const char corners[] = "1000, -2000\n3000, -2000\n3000, -1000\n";
const char box[] = "1000, -2000, 3000, -1000\n";

// Paths of vertices.

TEST_F(HatchBoundaryTest, a_polylines_vertices_are_corners) {
  Read(std::string("92 2\n72 0\n73 0\n93 3\n") + vertices);
  EXPECT_EQ(corners, Corners());
}

TEST_F(HatchBoundaryTest, vertices_without_a_type_are_corners) {
  Read(vertices);
  EXPECT_EQ(corners, Corners());
  EXPECT_EQ(-1, boundary.edgeType);
  EXPECT_EQ(0, boundary.closedFlag);
}

TEST_F(HatchBoundaryTest, a_type_that_is_none_makes_corners_too) {
  for (const char* type : {"72 5\n", "72 -3\n", "72 0\n", "72 1\n"}) {
    boundary = {};
    boundary.solidFill = true;
    Read(type + std::string(vertices));
    EXPECT_EQ(corners, Corners()) << type;
  }
}

TEST_F(HatchBoundaryTest, the_first_vertex_is_kept_beside_the_last_one) {
  Read(vertices);
  EXPECT_EQ(3000.0, state.entX[0]);
  EXPECT_EQ(9000.0, state.entY[0]);
  EXPECT_EQ(1000.0, state.entX[1]);
  EXPECT_EQ(8000.0, state.entY[1]);
}

TEST_F(HatchBoundaryTest, a_line_edge_makes_corners_of_both_its_ends) {
  Read("72 1\n10 10\n20 80\n11 30\n21 80\n72 1\n10 30\n20 80\n11 30\n21 90\n");
  EXPECT_EQ("1000, -2000\n3000, -2000\n3000, -2000\n3000, -1000\n", Corners());
  EXPECT_EQ(3000.0, state.entX[0]);
  EXPECT_EQ(9000.0, state.entY[0]);
  EXPECT_EQ(1000.0, state.entX[1]);
  EXPECT_EQ(8000.0, state.entY[1]);
}

TEST_F(HatchBoundaryTest, a_splines_control_points_are_corners) {
  Read(std::string("72 4\n94 3\n73 0\n74 0\n95 6\n96 3\n40 0\n40 1\n") + vertices);
  EXPECT_EQ(corners, Corners());
}

TEST_F(HatchBoundaryTest, a_splines_points_leave_the_record_alone) {
  state.entX[0] = state.entX[1] = state.entY[0] = state.entY[1] = 7.0;
  Read(std::string("72 4\n") + vertices);
  EXPECT_EQ(7.0, state.entX[0]);
  EXPECT_EQ(7.0, state.entX[1]);
  EXPECT_EQ(7.0, state.entY[0]);
  EXPECT_EQ(7.0, state.entY[1]);
}

TEST_F(HatchBoundaryTest, a_splines_fit_points_are_no_corners) {
  Read("72 4\n11 10\n21 80\n");
  EXPECT_EQ("", Corners());
  EXPECT_EQ(1000.0, state.entX[1]);
  EXPECT_EQ(8000.0, state.entY[1]);
}

TEST_F(HatchBoundaryTest, the_centre_and_axis_of_a_curve_are_no_corners) {
  for (const char* type : {"72 2\n", "72 3\n"}) {
    Read(type + std::string("10 10\n20 80\n11 3\n21 4\n"));
    EXPECT_EQ("", Corners());
    EXPECT_EQ(1000.0, state.entX[0]);
    EXPECT_EQ(8000.0, state.entY[0]);
    EXPECT_EQ(300.0, state.entX[1]);
    EXPECT_EQ(400.0, state.entY[1]);
    EXPECT_EQ("20000, -10000, 0, 0", Extent());
  }
}

TEST_F(HatchBoundaryTest, groups_11_and_21_of_a_polyline_are_no_corners) {
  Read("72 0\n11 10\n21 80\n");
  EXPECT_EQ("", Corners());
  EXPECT_EQ(1000.0, state.entX[1]);
  EXPECT_EQ(8000.0, state.entY[1]);
}

TEST_F(HatchBoundaryTest, a_vertex_without_its_x_takes_what_stood_in_its_place) {
  // The second path's corners take the places of the first one's.
  Read("10 10\n20 80\n10 30\n20 80\n10 30\n20 90\n97 0\n10 50\n20 70\n20 60\n");
  EXPECT_EQ("5000, -3000\n3000, -4000\n", Corners());
}

TEST_F(HatchBoundaryTest, counts_and_what_else_a_path_tells_are_ignored) {
  Read(std::string("91 7\n92 2\n93 1\n30 5\n70 1\n71 1\n98 2\n330 1F\n210 0\n6 DASHED\n8 WALLS\n62 1\n") +
       vertices);
  EXPECT_EQ(corners, Corners());
  EXPECT_EQ(0, state.entColor);
}

// The radius and the angles.

TEST_F(HatchBoundaryTest, the_radius_of_an_arc_is_a_length_and_any_other_a_ratio) {
  Read("72 2\n40 0.5\n");
  EXPECT_EQ(50.0, state.entRadius);
  for (const char* type : {"72 0\n", "72 1\n", "72 3\n", "72 4\n"}) {
    Read(type + std::string("40 0.5\n"));
    EXPECT_EQ(0.5, state.entRadius);
  }
}

TEST_F(HatchBoundaryTest, angles_pass_through_single_precision) {
  Read("50 0.1\n51 30.1\n");
  EXPECT_EQ(static_cast<double>(0.1f), boundary.arcStart);
  EXPECT_EQ(static_cast<double>(30.1f), boundary.arcEnd);
  EXPECT_EQ(static_cast<double>(0.1f) * 3.1415926535 / 180.0, boundary.arcStartRad);
  EXPECT_EQ(static_cast<double>(30.1f) * 3.1415926535 / 180.0, boundary.arcEndRad);
}

TEST_F(HatchBoundaryTest, an_end_below_the_start_is_a_turn_further) {
  Read("50 350\n51 10\n");
  EXPECT_EQ(370.0, boundary.arcEnd);
  EXPECT_EQ(370.0 * 3.1415926535 / 180.0, boundary.arcEndRad);
  Read("50 10\n51 10\n");
  EXPECT_EQ(10.0, boundary.arcEnd);
}

// Arc edges: a radius of 10 about (50, 50), so that corners are at 5000 + 1000 cos and -5000 + 1000 sin.

const char arcAbout[] = "72 2\n10 50\n20 50\n40 10\n";

TEST_F(HatchBoundaryTest, a_counter_clockwise_arc_has_a_corner_for_each_degree) {
  state.shiftX = state.shiftY = 0.5;
  Read(std::string(arcAbout) + "50 30.25\n51 33.5\n73 1\n");
  // trunc(33.5 - 30.25 + 1) is 4, so three between the ends: 31.25, 32.25 and 33.25. With the halves, X is
  // 5864.34, 5855.41, 5846.23, 5836.79 and 5834.39, Y -4495.73, -4480.73, -4465.88, -4451.20 and -4447.56.
  // The sense closes the path too.
  EXPECT_EQ("5864, -4495\n5855, -4480\n5846, -4465\n5836, -4451\n5834, -4447\n5864, -4495\n", Corners());
}

TEST_F(HatchBoundaryTest, an_arc_of_whole_degrees_has_its_last_corner_twice) {
  state.shiftX = state.shiftY = 0.5;
  Read(std::string(arcAbout) + "50 0\n51 90\n73 1\n");
  // 0, 1 up to 90, 90, and the first one that closes the path.
  EXPECT_EQ(1u + 90 + 1 + 1, boundary.pointCount);
  EXPECT_EQ("5000, -3999\n5000, -3999\n6000, -4999\n", Corners(90));
}

TEST_F(HatchBoundaryTest,
       an_arc_edge_with_group_73_of_0_walks_the_angles_360_minus_start_down_to_360_minus_end) {
  state.shiftX = state.shiftY = 0.5;
  Read(std::string(arcAbout) + "50 30.25\n51 33.5\n73 0\n");
  // 329.75, 328.75, 327.75, 326.75 and 326.5: the same X, and Y at -5000 - 1000 sin and the half: -5503.27,
  // -5518.27, -5533.11, -5547.79 and -5551.44.
  EXPECT_EQ("5864, -5503\n5855, -5518\n5846, -5533\n5836, -5547\n5834, -5551\n", Corners());
  EXPECT_EQ(360.0 - 30.25, boundary.arcStart);
  EXPECT_EQ(360.0 - 33.5, boundary.arcEnd);
}

TEST_F(HatchBoundaryTest, any_other_sense_is_clockwise) {
  state.shiftX = state.shiftY = 0.5;
  Read(std::string(arcAbout) + "50 30.25\n51 30.5\n73 2\n");
  // trunc(329.75 - 329.5 + 1) is 1: nothing between the ends.
  EXPECT_EQ("5864, -5503\n5862, -5507\n", Corners());
}

TEST_F(HatchBoundaryTest, a_clockwise_arcs_angles_stay_for_an_arc_that_tells_none) {
  state.shiftX = state.shiftY = 0.5;
  Read(std::string(arcAbout) + "50 30.25\n51 30.5\n73 0\n73 0\n");
  // Back to 30.25 and 30.5: trunc(30.25 - 30.5 + 1) is 0. 5864.34 and 5862.13, -4495.73 and -4491.96.
  EXPECT_EQ("5864, -4495\n5862, -4491\n", Corners(2));
}

TEST_F(HatchBoundaryTest, group_73_of_another_edge_adds_no_arc) {
  for (const char* type : {"72 0\n", "72 1\n", "72 3\n", "72 4\n"}) {
    Read("50 0\n51 90\n" + std::string(type) + "73 0\n");
    EXPECT_EQ("", Corners());
  }
}

TEST_F(HatchBoundaryTest, an_arc_over_a_billion_degrees_ends_at_the_limit_of_corners) {
  Read(std::string(arcAbout) + "50 0\n51 1e9\n73 1\n");
  EXPECT_EQ(hatchCornerLimit, boundary.pointCount);
  Read(std::string(arcAbout) + "50 0\n51 1e30\n73 1\n97 0\n");
  Read(std::string(arcAbout) + "50 0\n51 1e300\n73 0\n97 0\n");
  Read(std::string(arcAbout) + "50 -1e300\n51 1e300\n73 1\n97 0\n");
}

// Bulges: a radius of 20 about (50, 50), so that corners are at 5000 + 2000 cos and -5000 + 2000 sin, to
// which a half is added. An arc of 4 degrees has a bulge of tan 1, one of 4.5 of tan 1.125.

const char bulge4[] = "42 0.017455064928217585\n";
const char minus4[] = "42 -0.017455064928217585\n";

// Vertices at whole degrees and a half, in groups.
const char at30[] = "10 67.232583209\n20 60.150767259\n";
const char at34[] = "10 66.482523772\n20 61.328124738\n";
const char at26[] = "10 67.898687232\n20 58.923956262\n";
const char at120[] = "10 39.849232741\n20 67.232583209\n";
const char at124[] = "10 38.671875262\n20 66.482523772\n";
const char at116[] = "10 41.076043738\n20 67.898687232\n";
const char at200[] = "10 31.266556215\n20 42.995852375\n";
const char at204[] = "10 31.800774582\n20 41.706135147\n";
const char at196[] = "10 30.823605303\n20 44.319693106\n";
const char at300[] = "10 60.150767259\n20 32.767416791\n";
const char at304[] = "10 61.328124738\n20 33.517476228\n";
const char at296[] = "10 58.923956262\n20 32.101312768\n";

class HatchBulgeTest : public HatchBoundaryTest {
 protected:
  HatchBulgeTest() { state.shiftX = state.shiftY = 0.5; }
};

TEST_F(HatchBulgeTest, a_positive_one_in_the_first_quadrant_starts_mirrored_and_goes_on_where_it_should) {
  Read(std::string(at30) + bulge4 + at34);
  // -30.5; then 30.5 counts: 31 and 32, as 33 isn't below trunc(34.5 - 1); 34.5.
  EXPECT_EQ("6723, -3984\n6723, -6014\n6714, -3969\n6696, -3939\n6648, -3866\n", Corners());
}

TEST_F(HatchBulgeTest, a_positive_one_in_the_second_quadrant_is_drawn_mirrored) {
  Read(std::string(at120) + bulge4 + at124);
  // 239.5, 240, 241, 243.5
  EXPECT_EQ("3985, -3276\n3985, -6722\n4000, -6731\n4030, -6748\n4108, -6789\n", Corners());
}

TEST_F(HatchBulgeTest, a_positive_one_in_the_third_quadrant_is_drawn_mirrored) {
  Read(std::string(at200) + bulge4 + at204);
  // 159.5, 160, 161, 163.5
  EXPECT_EQ("3127, -5699\n3127, -4299\n3121, -4315\n3109, -4348\n3082, -4431\n", Corners());
}

TEST_F(HatchBulgeTest, a_positive_one_in_the_fourth_quadrant_is_drawn_mirrored) {
  Read(std::string(at300) + bulge4 + at304);
  // 419.5, 420, 421, 423.5
  EXPECT_EQ("6015, -6722\n6015, -3276\n6000, -3267\n5970, -3250\n5892, -3209\n", Corners());
}

TEST_F(HatchBulgeTest, a_negative_one_in_the_first_quadrant_is_drawn_mirrored) {
  Read(std::string(at30) + minus4 + at26);
  // -30.5; down from trunc(-30.5): -30, -31 and -32, as -33 isn't above trunc(1 - 34.5); -34.5.
  EXPECT_EQ("6723, -3984\n6723, -6014\n6732, -5999\n6714, -6029\n6696, -6059\n6648, -6132\n", Corners());
}

TEST_F(HatchBulgeTest, a_negative_one_in_the_second_quadrant_is_drawn_mirrored) {
  Read(std::string(at120) + minus4 + at116);
  // 239.5, 239, 238, 237, 235.5
  EXPECT_EQ("3985, -3276\n3985, -6722\n3970, -6713\n3940, -6695\n3911, -6676\n3867, -6647\n", Corners());
}

TEST_F(HatchBulgeTest, a_negative_one_in_the_third_quadrant_is_drawn_mirrored) {
  Read(std::string(at200) + minus4 + at196);
  // 159.5, 159, 158, 157, 155.5
  EXPECT_EQ("3127, -5699\n3127, -4299\n3133, -4282\n3146, -4250\n3159, -4218\n3180, -4170\n", Corners());
}

TEST_F(HatchBulgeTest, a_negative_one_in_the_fourth_quadrant_is_drawn_mirrored) {
  Read(std::string(at300) + minus4 + at296);
  // 419.5, 419, 418, 417, 415.5
  EXPECT_EQ("6015, -6722\n6015, -3276\n6030, -3285\n6060, -3303\n6089, -3322\n6133, -3351\n", Corners());
}

TEST_F(HatchBulgeTest, straight_above_and_below_the_centre_it_is_drawn_where_it_should_be) {
  const std::string bulge = "42 0.019637477771376973\n";
  Read("10 50\n20 70\n" + bulge + "10 48.430818085\n20 69.938346675\n");
  // 90, 91, 92, 94.5
  EXPECT_EQ("5000, -2999\n5000, -2999\n4965, -2999\n4930, -3000\n4843, -3005\n", Corners());
  boundary.pointCount = 0;
  Read("10 50\n20 30\n" + bulge + "10 51.569181915\n20 30.061653325\n");
  // 270, 271, 272, 274.5
  EXPECT_EQ("5000, -6999\n5000, -6999\n5035, -6999\n5070, -6998\n5157, -6993\n", Corners());
}

TEST_F(HatchBulgeTest, a_half_circle_has_a_corner_for_each_degree) {
  Read("10 30\n20 50\n42 1\n10 70\n20 50\n");
  // From 180 to 360: the vertex, 180, 181 up to 358, 360.
  EXPECT_EQ(1u + 1 + 178 + 1, boundary.pointCount);
  // 5000.5 + 2000 * 0.99939 = 6999.28 and -4999.5 - 2000 * 0.03490 = -5069.30
  EXPECT_EQ("6999, -5069\n7000, -4999\n", Corners(179));
}

TEST_F(HatchBulgeTest, a_bulge_counts_for_the_vertex_behind_it_alone) {
  Read(std::string(at30) + bulge4 + at34 + "10 10\n20 80\n");
  EXPECT_EQ(6u, boundary.pointCount);
  EXPECT_EQ("1000, -1999\n", Corners(5));
  EXPECT_EQ(0.0, boundary.bulge);
}

TEST_F(HatchBulgeTest, two_in_a_row_start_each_where_the_last_one_ended) {
  Read(std::string(at30) + bulge4 + at34 + bulge4 + "10 65.652163249\n20 62.450292733\n");
  // From 34.5 to 38.5: -34.5; 35 and 36; 38.5. X 5000.5 + 2000 cos: 6648.75, 6638.80, 6618.53, 6565.72; Y
  // -4999.5 + 2000 sin: -6132.31, -3852.35, -3823.93, -3754.47.
  EXPECT_EQ("6648, -6132\n6638, -3852\n6618, -3823\n6565, -3754\n", Corners(5));
}

TEST_F(HatchBulgeTest, a_bulge_of_0_takes_one_back) {
  Read(std::string(at30) + bulge4 + "42 0\n" + at34);
  EXPECT_EQ("6723, -3984\n6648, -3866\n", Corners());
}

TEST_F(HatchBulgeTest, a_bulge_between_equal_vertices_is_a_point) {
  // A radius of 0 about (50, 50), from 90 to 270 degrees: 90, 91 up to 268, 270.
  Read("10 50\n20 50\n42 1\n10 50\n20 50\n");
  EXPECT_EQ(1u + 1 + 178 + 1, boundary.pointCount);
  for (const POINT& corner : boundary.points) {
    EXPECT_EQ(5000, corner.x);
    EXPECT_EQ(-4999, corner.y);
  }
}

TEST_F(HatchBulgeTest, absurd_bulges_and_vertices_end) {
  for (const char* bulge : {"42 1e999\n", "42 -1e999\n", "42 1e-300\n", "42 1e300\n"}) {
    Read(std::string(at30) + bulge + at34 + "97 0\n");
    Read("10 1e999\n20 5\n" + std::string(bulge) + "10 1e300\n20 -1e300\n97 0\n");
  }
  EXPECT_EQ(0u, boundary.pointCount);
}

// Closing a path.

TEST_F(HatchBoundaryTest, a_closed_path_returns_to_its_first_corner) {
  Read(std::string("73 1\n") + vertices);
  EXPECT_EQ(std::string(corners) + "1000, -2000\n", Corners());
}

TEST_F(HatchBoundaryTest, only_the_flag_1_closes_a_path) {
  for (const char* flag : {"73 0\n", "73 2\n", "73 -1\n"}) {
    boundary.pointCount = 0;
    Read(flag + std::string(vertices));
    EXPECT_EQ(corners, Corners()) << flag;
  }
}

TEST_F(HatchBulgeTest, a_closed_polyline_path_whose_last_vertex_has_a_bulge_closes_with_an_arc) {
  // From 120.5 the negative one leads back to 116.5.
  Read("73 1\n" + std::string(at116) + at120 + minus4);
  EXPECT_EQ("4108, -3209\n3985, -3276\n3985, -6722\n3970, -6713\n3940, -6695\n3911, -6676\n3867, -6647\n",
            Corners());
  EXPECT_EQ(4107.6043738, state.entX[0]);
  EXPECT_EQ(6789.8687232, state.entY[0]);
}

TEST_F(HatchBulgeTest, a_closing_arc_in_the_first_quadrant_stays_mirrored) {
  Read("73 1\n" + std::string(at34) + at30 + bulge4);
  // -30.5, -29 and -28 as -27 isn't below trunc(-26.5 - 1), -26.5
  EXPECT_EQ("6648, -3866\n6723, -3984\n6723, -6014\n6749, -5969\n6766, -5938\n6790, -5891\n", Corners());
}

TEST_F(HatchBulgeTest, an_open_path_drops_its_last_bulge) {
  Read(std::string(at34) + at30 + bulge4);
  EXPECT_EQ("6648, -3866\n6723, -3984\n", Corners());
}

TEST_F(HatchBoundaryTest, an_arcs_sense_closes_the_path_that_it_ends) {
  Read(std::string(arcAbout) + "50 0\n51 0.5\n73 1\n");
  // Both ends and the first one again.
  EXPECT_EQ(3u, boundary.pointCount);
  EXPECT_EQ(boundary.points[0].x, boundary.points[2].x);
  EXPECT_EQ(boundary.points[0].y, boundary.points[2].y);
}

// Paths as regions.

TEST_F(HatchBoundaryTest, group_97_makes_a_region_of_a_path) {
  Read(vertices + std::string("97 0\n"));
  EXPECT_EQ(box, Boxes());
  EXPECT_EQ(0u, boundary.pointCount);
}

TEST_F(HatchBoundaryTest, the_regions_path_was_closed_before) {
  Read(vertices + std::string("73 1\n97 1\n330 2F\n"));
  ASSERT_EQ(4u, boundary.points.size());
  EXPECT_EQ(1000, boundary.points[3].x);
  EXPECT_EQ(-2000, boundary.points[3].y);
}

TEST_F(HatchBoundaryTest, each_path_makes_a_region) {
  Read(vertices + std::string("97 0\n10 50\n20 50\n10 60\n20 50\n10 60\n20 60\n97 0\n"));
  EXPECT_EQ(std::string(box) + "5000, -5000, 6000, -4000\n", Boxes());
}

TEST_F(HatchBoundaryTest, a_path_without_vertices_makes_no_region) {
  Read("97 0\n92 1\n97 0\n");
  EXPECT_EQ("", Boxes());
}

TEST_F(HatchBoundaryTest, group_97_drops_a_bulge_with_and_without_vertices) {
  Read("10 10\n20 80\n42 1\n97 0\n");
  EXPECT_EQ(0.0, boundary.bulge);
  Read("42 1\n97 0\n" + std::string(vertices));
  EXPECT_EQ(corners, Corners());
}

TEST_F(HatchBoundaryTest, a_path_crossed_twice_leaves_out_what_it_goes_round_twice) {
  // A square, and back to it a smaller one within: ALTERNATE leaves the inner one out.
  Read(
      "10 10\n20 10\n10 50\n20 10\n10 50\n20 50\n10 10\n20 50\n10 10\n20 10\n"
      "10 20\n20 20\n10 40\n20 20\n10 40\n20 40\n10 20\n20 40\n10 20\n20 20\n97 0\n");
  const Region inner(CreateRectRgn(2000, -8000, 4000, -6000));
  EXPECT_EQ(NULLREGION, CombineRgn(inner.get(), inner.get(), boundary.regions.at(0).get(), RGN_AND));
}

TEST_F(HatchBoundaryTest, a_last_path_without_group_97_is_a_region_from_three_corners_on) {
  Read(vertices);
  EXPECT_EQ(box, Boxes());
  boundary = {};
  boundary.solidFill = true;
  Read("10 10\n20 80\n10 30\n20 90\n");
  EXPECT_EQ(2u, boundary.pointCount);
  EXPECT_EQ("", Boxes());
}

TEST_F(HatchBoundaryTest, closing_counts_as_the_third_corner_of_a_last_path) {
  Read("73 1\n10 10\n20 80\n10 30\n20 90\n");
  EXPECT_EQ(3u, boundary.pointCount);
  EXPECT_EQ(1u, boundary.regions.size());
}

TEST_F(HatchBoundaryTest, a_pattern_takes_the_regions_in_device_units) {
  boundary.solidFill = false;
  // 2710 of 27100 on 1024 points is 102.4; -2030 of 20300 on 768 is 76.8; 5420 gives 204.8, -4060 153.6.
  Read("10 27.1\n20 79.7\n10 54.2\n20 79.7\n10 54.2\n20 59.4\n10 27.1\n20 59.4\n97 0\n");
  EXPECT_EQ("102, 77, 205, 154\n", Boxes());
  // So does the last path.
  Read("10 27.1\n20 79.7\n10 54.2\n20 79.7\n10 54.2\n20 59.4\n10 27.1\n20 59.4\n");
  EXPECT_EQ("102, 77, 205, 154\n102, 77, 205, 154\n", Boxes());
}

TEST_F(HatchBoundaryTest, reading_leaves_nothing_in_the_metafile) {
  Read(vertices + std::string("97 0\n") + vertices);
  EXPECT_EQ("", calls);
}

// Ellipses. The box's right and top lose a unit in the region.

TEST_F(HatchBoundaryTest, an_ellipse_edge_from_0_to_90_degrees_is_the_whole_ellipse) {
  Read("72 3\n10 50\n20 50\n11 20\n21 0\n40 0.5\n50 0\n51 90\n73 1\n97 0\n");
  // 2000 and 1000 about (5000, -5000)
  EXPECT_EQ("3000, -6000, 6999, -4001\n", Boxes());
}

TEST_F(HatchBoundaryTest, an_axis_along_y_makes_an_upright_ellipse) {
  Read("72 3\n10 50\n20 50\n11 0\n21 20\n40 0.5\n50 0\n51 360\n");
  EXPECT_EQ("4000, -7000, 5999, -3001\n", Boxes());
}

TEST_F(HatchBoundaryTest, an_inclined_ellipse_lies_level) {
  Read("72 3\n10 50\n20 50\n11 20\n21 15\n40 0.5\n50 0\n51 360\n");
  EXPECT_EQ("3000, -6000, 6999, -4001\n", Boxes());
}

TEST_F(HatchBoundaryTest, an_axis_of_less_than_a_unit_along_x_counts_as_none) {
  Read("72 3\n10 50\n20 50\n11 0.009\n21 20\n40 0.5\n50 0\n51 360\n");
  EXPECT_EQ("4000, -7000, 5999, -3001\n", Boxes());
  EXPECT_EQ("6000, -7000, 4000, -7000", Extent());
  // With a whole unit it is 1 along X and 20 along Y: x1 5001, x2 4999, y1 -5020.
  Read("72 3\n10 50\n20 50\n11 0.01\n21 20\n40 20\n50 0\n51 360\n");
  EXPECT_EQ("5001, -5020, 4999, -5020", Extent());
}

TEST_F(HatchBoundaryTest, a_negative_axis_makes_the_same_ellipse) {
  Read("72 3\n10 50\n20 50\n11 -20\n21 0\n40 0.5\n50 0\n51 360\n");
  EXPECT_EQ("3000, -6000, 6999, -4001\n", Boxes());
}

TEST_F(HatchBoundaryTest, a_patterns_ellipse_is_in_device_units) {
  boundary.solidFill = false;
  Read("72 3\n10 50\n20 50\n11 20\n21 0\n40 0.5\n50 0\n51 90\n");
  // X 3000 and 7000 times 1024 / 27100: 113.36 and 264.50; Y 6000 and 4000 times 768 / 20300: 226.99 and
  // 151.33.
  EXPECT_EQ("113, 151, 264, 226\n", Boxes());
}

TEST_F(HatchBoundaryTest, group_51_of_another_edge_makes_no_ellipse) {
  for (const char* type : {"72 0\n", "72 1\n", "72 2\n", "72 4\n"}) {
    boundary.pointCount = 0;
    Read(type + std::string("10 50\n20 50\n11 20\n21 0\n40 0.5\n50 0\n51 90\n"));
    EXPECT_EQ("", Boxes());
  }
}

// The extent.

TEST_F(HatchBoundaryTest, without_corners_the_extent_is_the_sheet_inside_out) {
  Read("");
  EXPECT_EQ("20000, -10000, 0, 0", Extent());
}

TEST_F(HatchBoundaryTest, each_corner_widens_the_extent) {
  Read(vertices);
  EXPECT_EQ("1000, -1000, 3000, -2000", Extent());
}

TEST_F(HatchBoundaryTest, a_boundary_off_the_sheet_reaches_its_opposite_edge) {
  // Left of the sheet and above it: the right side stays 0, the bottom 0.
  Read("10 -20\n20 110\n10 -10\n20 110\n10 -10\n20 120\n");
  EXPECT_EQ("-2000, 2000, 0, 0", Extent());
  // Right of the sheet and below it: the left side stays 20000, the top -10000.
  Read("10 220\n20 -10\n10 230\n20 -10\n10 230\n20 -20\n");
  EXPECT_EQ("20000, -10000, 23000, -12000", Extent());
}

TEST_F(HatchBoundaryTest, the_corners_of_arcs_widen_the_extent) {
  Read(std::string(arcAbout) + "50 0\n51 180\n73 1\n");
  EXPECT_EQ("4000, -4000, 6000, -5000", Extent());
}

TEST_F(HatchBoundaryTest, line_edges_and_splines_widen_the_extent) {
  Read("72 1\n10 10\n20 80\n11 30\n21 90\n");
  EXPECT_EQ("1000, -1000, 3000, -2000", Extent());
  Read("72 4\n10 10\n20 80\n10 30\n20 90\n");
  EXPECT_EQ("1000, -1000, 3000, -2000", Extent());
}

TEST_F(HatchBoundaryTest, an_ellipse_widens_the_extent_by_its_right_side_to_the_left) {
  Read("72 3\n10 50\n20 50\n11 20\n21 0\n40 0.5\n50 0\n51 90\n");
  // x1 7000, x2 3000, y1 -6000
  EXPECT_EQ("7000, -6000, 3000, -6000", Extent());
}

TEST_F(HatchBoundaryTest, a_patterns_extent_is_in_sheet_units) {
  boundary.solidFill = false;
  Read(vertices);
  EXPECT_EQ("1000, -1000, 3000, -2000", Extent());
}

// The style, and the end of the groups.

TEST_F(HatchBoundaryTest, group_75_of_0_1_or_2_ends_the_reading) {
  const int32_t modes[] = {RGN_XOR, 4, RGN_OR};
  for (int32_t style = 0; style < 3; ++style) {
    ReadText("75 " + std::to_string(style) + "\n10 10\n0 CIRCLE\n");
    EXPECT_EQ(modes[style], boundary.combineMode);
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(75, std::to_string(style).c_str()));
  }
}

TEST_F(HatchBoundaryTest, group_75_of_another_value_does_not_end_the_reading) {
  Read("75 3\n75 -1\n" + std::string(vertices));
  EXPECT_EQ(-1, boundary.combineMode);
  EXPECT_EQ(corners, Corners());
}

TEST_F(HatchBoundaryTest, without_a_style_the_next_entity_ends_the_reading) {
  Read(vertices);
  EXPECT_EQ(-1, boundary.combineMode);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(HatchBoundaryTest, the_end_of_the_file_ends_the_last_path_too) {
  ReadText(std::string("73 1\n") + vertices);
  EXPECT_EQ(0, result);
  EXPECT_EQ(std::string(corners) + "1000, -2000\n", Corners());
  EXPECT_EQ(box, Boxes());
}

// The limits.

// Two vertices by turns, at (1000, -2000) and (3000, -2000).
std::string ManyVertices(size_t count) {
  std::string groups;
  for (size_t i = 0; i < count; ++i) groups += i % 2 ? "10 30\n20 80\n" : "10 10\n20 80\n";
  return groups;
}

TEST_F(HatchBoundaryTest, corners_beyond_the_limit_are_dropped) {
  Read(ManyVertices(hatchCornerLimit - 1) + "10 20\n20 90\n10 50\n20 50\n");
  EXPECT_EQ(hatchCornerLimit, boundary.pointCount);
  EXPECT_EQ("2000, -1000\n", Corners(hatchCornerLimit - 1));
  EXPECT_EQ("1000, -1000, 3000, -2000", Extent());
}

TEST_F(HatchBoundaryTest, a_full_path_is_closed_all_the_same) {
  Read("73 1\n" + ManyVertices(hatchCornerLimit) + "97 0\n" + vertices);
  EXPECT_EQ(std::string(corners) + "1000, -2000\n", Corners());
  EXPECT_EQ(2u, boundary.regions.size());
  boundary.pointCount = 0;
  Read("73 1\n" + ManyVertices(hatchCornerLimit) + "42 1\n97 0\n" + vertices);
  EXPECT_EQ(std::string(corners) + "1000, -2000\n", Corners());
}

TEST_F(HatchBoundaryTest, regions_beyond_the_limit_are_dropped) {
  std::string groups;
  for (size_t i = 0; i < hatchPathLimit + 5; ++i) groups += std::string(vertices) + "97 0\n";
  Read(groups + "72 3\n10 50\n20 50\n11 20\n21 0\n40 0.5\n50 0\n51 90\n");
  EXPECT_EQ(hatchPathLimit, boundary.regions.size());
}

TEST_F(HatchBoundaryTest, a_path_beyond_the_reach_of_regions_makes_none) {
  MakeUnitsTiny();
  // 67108863 is the last unit.
  Read("10 6710.8863\n20 0\n10 6710\n20 0\n10 6710\n20 1\n97 0\n");
  EXPECT_EQ("67100000, 0, 67108863, 10000\n", Boxes());
  Read("10 6710.8864\n20 0\n10 6710\n20 0\n10 6710\n20 1\n97 0\n");
  Read("10 0\n20 -6710.8865\n10 1\n20 -6710\n10 0\n20 -6710\n97 0\n");
  Read("10 0\n20 0\n10 1e300\n20 1\n10 0\n20 NAN\n97 0\n");
  Read("72 3\n10 6710\n20 0\n11 1\n21 0\n40 0.5\n50 0\n51 90\n");
  EXPECT_EQ("67100000, 0, 67108863, 10000\n", Boxes());
}

// 250 corners, by turns at this height and at 0.
std::string Zigzag(double height) {
  std::string groups;
  for (int i = 0; i < 250; ++i)
    groups += "10 " + std::to_string(i * 0.1) + "\n20 " + std::to_string(i % 2 ? height : 0.0) + "\n";
  return groups + "97 0\n";
}

TEST_F(HatchBoundaryTest, the_rows_of_a_patterns_path_are_those_of_the_device) {
  MakeUnitsTiny();
  // 250 edges of 300000 rows are 37500000 rectangles. On the device of 768 points on 20300 units each has
  // 11349 rows: 1418719 rectangles at the most.
  Read(Zigzag(30.0));
  EXPECT_EQ("", Boxes());
  boundary.solidFill = false;
  Read(Zigzag(30.0));
  EXPECT_EQ(1u, boundary.regions.size());
}

TEST_F(HatchBoundaryTest, a_patterns_path_may_reach_as_far_as_the_device_units_do) {
  MakeUnitsTiny();
  boundary.solidFill = false;
  // 1000000000 units are 37785978 points.
  Read("10 100000\n20 0\n10 0\n20 0\n10 0\n20 1\n97 0\n");
  EXPECT_EQ(1u, boundary.regions.size());
}

TEST_F(HatchBoundaryTest, a_solid_circle_of_21_metres_has_a_region) {
  // 2100000 units to each side of (0, -10000).
  Read("72 3\n10 0\n20 0\n11 21000\n21 0\n40 1\n50 0\n51 360\n73 1\n97 0\n75 0\n");
  EXPECT_EQ("-2100000, -2110000, 2099999, 2089999\n", Boxes());
}

TEST_F(HatchBoundaryTest, a_solid_circle_of_21_metres_in_corners_has_a_region) {
  Read("72 2\n10 0\n20 0\n40 21000\n50 0\n51 360\n73 1\n97 0\n75 0\n");
  // The lowest row, where two edges begin at one corner, is empty.
  EXPECT_EQ("-2100000, -2109999, 2100000, 2090000\n", Boxes());
}

// Combining the regions. Two squares of 20 mm that share one of 10 mm, and a third on that one.

const char firstSquare[] = "10 10\n20 10\n10 30\n20 10\n10 30\n20 30\n10 10\n20 30\n97 0\n";
const char secondSquare[] = "10 20\n20 20\n10 40\n20 20\n10 40\n20 40\n10 20\n20 40\n97 0\n";
const char thirdSquare[] = "10 20\n20 20\n10 30\n20 20\n10 30\n20 30\n10 20\n20 30\n97 0\n";

class HatchStyleTest : public HatchBoundaryTest {
 protected:
  // Which of three places the hatch covers: in the first square alone, in the second alone, in all.
  std::string Covered(const std::string& groups) {
    boundary = {};
    boundary.solidFill = true;
    Read(groups);
    const Region region = CombineRegions(boundary.regions, boundary.combineMode);
    std::string covered;
    for (const auto& place : {POINT{1500, -8500}, POINT{3500, -6500}, POINT{2500, -7500}}) {
      const Region pixel(CreateRectRgn(place.x, place.y, place.x + 1, place.y + 1));
      const bool isCovered = CombineRgn(pixel.get(), pixel.get(), region.get(), RGN_AND) != NULLREGION;
      covered += isCovered ? '1' : '0';
    }
    return covered;
  }

  const std::string two = std::string(firstSquare) + secondSquare;
  const std::string three = two + thirdSquare;
};

TEST_F(HatchStyleTest, style_0_covers_what_an_odd_number_of_paths_holds) {
  EXPECT_EQ("110", Covered(two + "75 0\n"));
  EXPECT_EQ("111", Covered(three + "75 0\n"));
}

TEST_F(HatchStyleTest, style_1_covers_what_exactly_one_path_holds) {
  EXPECT_EQ("110", Covered(two + "75 1\n"));
  EXPECT_EQ("110", Covered(three + "75 1\n"));
  EXPECT_EQ("110", Covered(thirdSquare + two + "75 1\n"));
  EXPECT_EQ("101", Covered(std::string(firstSquare) + "75 1\n"));
}

TEST_F(HatchStyleTest, style_2_covers_what_any_path_holds) {
  EXPECT_EQ("111", Covered(two + "75 2\n"));
  EXPECT_EQ("111", Covered(three + "75 2\n"));
}

TEST_F(HatchStyleTest, wherever_a_path_stands_among_four_others_it_counts) {
  for (size_t place = 0; place < 5; ++place) {
    std::string five;
    for (size_t i = 0; i < 5; ++i) five += i == place ? secondSquare : firstSquare;
    EXPECT_EQ("011", Covered(five + "75 0\n"));
    EXPECT_EQ("010", Covered(five + "75 1\n"));
    EXPECT_EQ("111", Covered(five + "75 2\n"));
    EXPECT_EQ("000", Covered(five));
  }
}

TEST_F(HatchStyleTest, without_a_style_nothing_is_covered) {
  EXPECT_EQ("000", Covered(two));
  EXPECT_EQ("000", Covered(two + "75 3\n"));
}

TEST_F(HatchStyleTest, without_a_region_nothing_is_covered) {
  for (const char* style : {"75 0\n", "75 1\n", "75 2\n", ""}) EXPECT_EQ("000", Covered(style));
}

TEST_F(HatchStyleTest, a_last_path_without_group_97_is_covered_too) {
  EXPECT_EQ("101", Covered("10 10\n20 10\n10 30\n20 10\n10 30\n20 30\n10 10\n20 30\n75 0\n"));
}

}  // namespace
}  // namespace hexlume::hatch_boundary_test
