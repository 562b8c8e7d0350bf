// SPLINE in the ENTITIES section.
#include "entities/spline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/shape_text.h"
#include "support/text_groups.h"

namespace hexlume::spline_test {
namespace {

std::string Repeat(const std::string& text, int32_t times) {
  std::string repeated;
  for (int32_t i = 0; i < times; ++i) repeated += text;
  return repeated;
}

std::string BytesOf(const std::string& groups) {
  const TextStream stream = StreamOf(groups);
  return {stream.bytes.begin(), stream.bytes.end()};
}

class SplineTest : public ConverterTest {
 protected:
  // The listing of one spline with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 SPLINE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) { return DrawStream(StreamOf(text)); }

  // The same with one of the groups written many times.
  std::string DrawLong(const std::string& groups, const std::string& repeated, int32_t times,
                       const std::string& groupsBehind) {
    TextStream text = StreamOf("0 SPLINE\n" + groups);
    for (const auto& part : {Repeat(BytesOf(repeated), times), BytesOf(groupsBehind + "0 CIRCLE\n")})
      text.bytes.insert(text.bytes.end(), part.begin(), part.end());
    return DrawStream(std::move(text));
  }

  std::string DrawStream(TextStream text) {
    stream = std::move(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawSpline({RunOn(canvas)}); });
  }
};

size_t PointsIn(const std::string& listing) {
  const size_t start = listing.find("PolyBezier(");
  if (start == std::string::npos) return 0;
  const size_t end = listing.find(')', start);
  const auto commas = std::count(listing.begin() + static_cast<std::ptrdiff_t>(start),
                                 listing.begin() + static_cast<std::ptrdiff_t>(end), ',');
  return static_cast<size_t>(commas + 1) / 2;
}

const std::string count4 = "73 4\n";
const std::string bareKnots = "40 0\n40 0\n40 0\n40 0\n40 1\n40 1\n40 1\n40 1\n";
const std::string oneInteriorKnot = "40 0\n40 0\n40 0\n40 0\n40 1\n40 2\n40 2\n40 2\n40 2\n";
// Four control points: 100 x, 100 y - 10000.
const std::string points4 = "10 0\n20 100\n10 10\n20 90\n10 20\n20 80\n10 30\n20 100\n";
const std::string drawn4 = "0, 0, 1000, -1000, 2000, -2000, 3000, 0";
const std::string plain = count4 + bareKnots + points4;

std::string Plain(COLORREF color, const std::string& style = "PS_SOLID", int32_t width = 0) {
  return Curve(color, drawn4, style, width);
}

// What becomes of control points and knots.

TEST_F(SplineTest, four_points_without_an_interior_knot_are_drawn_as_they_are) {
  EXPECT_EQ(Plain(black), Draw(plain));
}

TEST_F(SplineTest, one_interior_knot_gives_seven_points) {
  // At m = 4 the shares are 1, 1/2, 1/2, at m = 6 that of point 3 is 1/2:
  // ((1000 + 2000) / 2, (-1000 - 2000) / 2) = (1500, -1500), (2500, -1000), their middle (2000, -1250).
  EXPECT_EQ(Curve(black, "0, 0, 1000, -1000, 1500, -1500, 2000, -1250, 2500, -1000, 3000, 0, 4000, -10000"),
            Draw("73 5\n" + oneInteriorKnot + points4 + "10 40\n20 0\n"));
}

TEST_F(SplineTest, points_lose_their_fractions_before_the_knots_are_inserted) {
  state.drawScale = 3.0;
  // X: 200 / 3 = 66.7 -> 66, 503 / 3 = 167.7 -> 167, 800 / 3 = 266.7 -> 266. The middles are 116.5 -> 116 and
  // 216.5 -> 216, theirs 166; with the fractions they would be 117, 217 and 167.
  // Y: 0 / 3 - 10000; 10000 / 3 - 10000 = -6666.7 -> -6666; (-10000 - 6666) / 2 = -8333;
  // (-8333 - 6666) / 2 = -7499.5 -> -7499.
  EXPECT_EQ(Curve(black, "0, -10000, 66, -10000, 116, -8333, 166, -7499, 216, -6666, 266, -6666, 333, -6666"),
            Draw("73 5\n" + oneInteriorKnot +
                 "10 0\n20 0\n10 2\n20 0\n10 5.03\n20 100\n10 8\n20 100\n10 10\n20 100\n"));
}

TEST_F(SplineTest, knots_below_zero_are_no_interior_knots) {
  EXPECT_EQ(Plain(black), Draw(count4 + "40 -1\n40 -1\n40 -0.5\n40 0\n40 1\n" + points4));
}

TEST_F(SplineTest, a_knot_vector_that_starts_above_0_has_its_low_knots_inserted) {
  // Both knots 1 are inserted, the first one at m = 0, and the first point is doubled four times:
  //   m = 0: no point has a share, all move up.
  //   m = 2, knots 1 1 1 1 2 2: point 1 has (1 - 1) / (2 - 1) = 0.
  //   m = 3, knots 1 1 1 1 1 2 2: points 1 and 2 have (1 - 1) / (2 - 1) = 0.
  //   m = 5, knots 1 1 1 1 1 1 2 2: points 2 and 3 have 0, point 4 has (1 - 1) / (0 - 1) = -0.
  EXPECT_EQ(Curve(black, "0, 0, 0, 0, 0, 0, 0, 0, " + drawn4),
            Draw(count4 + "40 1\n40 1\n40 2\n40 2\n" + points4));
}

TEST_F(SplineTest, without_knots_the_control_points_are_drawn_as_they_are) {
  EXPECT_EQ(Plain(black), Draw(count4 + points4));
}

TEST_F(SplineTest, another_number_than_3n_and_1_is_handed_on_too) {
  EXPECT_EQ(Curve(black, "0, 0, 1000, -1000, 2000, -2000, 3000, 0, 4000, -10000"),
            Draw("73 5\n" + points4 + "10 40\n20 0\n"));
}

// Counts beside the points that are there.

TEST_F(SplineTest, code_73_says_how_many_control_points_count) {
  EXPECT_EQ(Curve(black, "0, 0, 1000, -1000"), Draw("73 2\n" + points4));
}

TEST_F(SplineTest, control_points_that_are_missing_are_zeros_on_the_sheet) {
  EXPECT_EQ(Curve(black, drawn4 + ", 0, 0, 0, 0, 0, 0"), Draw("73 7\n" + points4));
}

TEST_F(SplineTest, the_last_73_counts_and_may_stand_behind_the_points) {
  EXPECT_EQ(Plain(black), Draw("73 2\n" + bareKnots + points4 + count4));
}

TEST_F(SplineTest, code_20_goes_on_to_the_next_point) {
  // The second 10 overwrites the first; a point without 10 or 20 has 0 there.
  EXPECT_EQ(Curve(black, "1000, -1000, 0, -2000, 3000, 0"), Draw("73 3\n10 5\n10 10\n20 90\n20 80\n10 30\n"));
}

// Fit points.

TEST_F(SplineTest, fit_points_alone_are_drawn_as_a_polyline) {
  // (0, 0), (1000, -1000), (3000, -500): each span's handles are on its ends.
  EXPECT_EQ(Curve(black,
                  "0, 0, 0, 0, 1000, -1000, 1000, -1000, 1000, -1000, 3000, -500, 3000, -500, 3000, -500, "
                  "3000, -500, 3000, -500"),
            Draw("73 0\n74 3\n11 0\n21 100\n11 10\n21 90\n11 30\n21 95\n"));
}

TEST_F(SplineTest, without_74_all_fit_points_that_were_read_count) {
  EXPECT_EQ(Curve(black, "0, 0, 0, 0, 1000, -1000, 1000, -1000, 1000, -1000, 1000, -1000, 1000, -1000"),
            Draw("11 0\n21 100\n11 10\n21 90\n"));
}

TEST_F(SplineTest, code_74_says_how_many_fit_points_count) {
  EXPECT_EQ(Curve(black, "1000, -1000, 1000, -1000, 1000, -1000, 1000, -1000"),
            Draw("74 1\n11 10\n21 90\n11 20\n21 80\n"));
}

TEST_F(SplineTest, fit_points_that_are_missing_are_zeros_on_the_sheet) {
  EXPECT_EQ(Curve(black, "1000, -1000, 1000, -1000, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0"),
            Draw("74 2\n11 10\n21 90\n"));
}

TEST_F(SplineTest, fit_points_take_the_place_of_each_curves_ends) {
  EXPECT_EQ(Curve(black, "0, -100, 1000, -1000, 1500, -1500, 2000, -1300, 2500, -1000, 3000, 0, 4000, -9900"),
            Draw("73 5\n74 3\n" + oneInteriorKnot + points4 + "10 40\n20 0\n" +
                 "11 0\n21 99\n11 20\n21 87\n11 40\n21 1\n"));
}

TEST_F(SplineTest, fit_points_that_are_missing_put_the_ends_at_zero) {
  EXPECT_EQ(Curve(black, "500, -500, 1000, -1000, 2000, -2000, 0, 0"), Draw(plain + "74 1\n11 5\n21 95\n"));
}

TEST_F(SplineTest, more_fit_points_than_ends_are_left_over) {
  EXPECT_EQ(Curve(black, "500, -500, 1000, -1000, 2000, -2000, 600, -600"),
            Draw(plain + "74 3\n11 5\n21 95\n11 6\n21 94\n11 7\n21 93\n"));
}

TEST_F(SplineTest, beside_control_points_74_says_only_whether_fit_points_count) {
  const std::string fit = "11 5\n21 95\n11 6\n21 94\n";
  EXPECT_EQ(Plain(black), Draw(plain + fit));
  EXPECT_EQ(Plain(black), Draw(plain + "74 0\n" + fit));
  for (const char* count : {"1", "-1", "2147483647", "-2147483648"})
    EXPECT_EQ(Curve(black, "500, -500, 1000, -1000, 2000, -2000, 600, -600"),
              Draw(plain + "74 " + count + "\n" + fit))
        << count;
}

TEST_F(SplineTest, the_first_fit_point_starts_at_the_first_place_again) {
  // Of the three control points nothing counts without 73. One fit point was read: k = 1.
  EXPECT_EQ(Curve(black, "500, -500, 500, -500, 500, -500, 500, -500"),
            Draw("10 0\n20 0\n10 1\n20 1\n10 2\n20 2\n11 5\n21 95\n"));
}

TEST_F(SplineTest, control_points_behind_fit_points_go_on_at_their_place) {
  // After two fit points: places 2 and 3.
  EXPECT_EQ(Curve(black, "0, 0, 0, 0, 1000, -1000, 2000, -2000"),
            Draw(count4 + "11 5\n21 95\n11 6\n21 94\n10 10\n20 90\n10 20\n20 80\n"));
  // And a second run of fit points doesn't start again: place 2.
  EXPECT_EQ(Curve(black,
                  "500, -500, 500, -500, 0, 0, 0, 0, 0, 0, 700, -700, 700, -700, 700, -700, 700, -700, "
                  "700, -700"),
            Draw("74 3\n11 5\n21 95\n10 10\n20 90\n11 7\n21 93\n"));
}

TEST_F(SplineTest, control_points_that_nothing_counts_are_so_many_zeros) {
  // Three points were read, none of them a fit point: 3 * 3 + 1 points.
  EXPECT_EQ(Curve(black, "0, 0" + Repeat(", 0, 0", 9)), Draw("10 1\n20 1\n10 2\n20 2\n10 3\n20 3\n"));
}

TEST_F(SplineTest, without_any_point_one_zero_is_drawn) {
  EXPECT_EQ(Curve(black, "0, 0"), Draw(""));
  EXPECT_EQ(Curve(black, "0, 0"), Draw("73 0\n74 0\n" + bareKnots));
  state.rotated = 1;
  EXPECT_EQ(Curve(black, "20000, -10000"), Draw(""));
}

// What isn't looked at.

TEST_F(SplineTest, a_closed_spline_isnt_closed) {
  EXPECT_EQ(Plain(black), Draw("70 11\n" + plain));
}

TEST_F(SplineTest, flags_degree_weights_tolerances_tangents_and_thickness_are_ignored) {
  EXPECT_EQ(Plain(black),
            Draw("39 700\n70 12\n71 2\n72 3\n42 1\n43 2\n44 3\n12 1\n22 1\n13 1\n23 1\n30 5\n31 5\n"
                 "41 2\n41 3\n100 AcDbSpline\n210 0\n220 0\n230 -1\n" +
                 plain));
}

TEST_F(SplineTest, points_outside_the_sheet_and_the_view_are_drawn) {
  EXPECT_EQ(
      Curve(black, "-100000, 90000, 1000000, -1010000, 0, 0, -100, 100"),
      Draw(count4 + bareKnots + "10 -1000\n20 1000\n10 10000\n20 -10000\n10 0\n20 100\n10 -1\n20 101\n"));
}

TEST_F(SplineTest, nothing_is_kept_in_the_scratch_fields) {
  state.entX[0] = 12345.0;
  state.entY[0] = 54321.0;
  Draw(plain);
  EXPECT_EQ(12345.0, state.entX[0]);
  EXPECT_EQ(54321.0, state.entY[0]);
}

TEST_F(SplineTest, a_spline_takes_nothing_from_the_spline_before) {
  Draw(plain + "62 1\n74 2\n11 5\n21 95\n");
  EXPECT_EQ(Curve(black, "0, 0, 0, 0, 0, 0, 0, 0"), Draw(count4));
}

// Line type: the pen's style.

TEST_F(SplineTest, the_family_of_its_line_type_is_the_pens_style) {
  DefineLtypes({0, 4, 6, 10});
  EXPECT_EQ(Plain(black, "PS_DOT"), Draw("6 DOT\n" + plain));
  EXPECT_EQ(Plain(black, "PS_DASH"), Draw("6 HIDDEN\n" + plain));
  EXPECT_EQ(Plain(black, "PS_DASHDOT"), Draw("6 CENTER\n" + plain));
  EXPECT_EQ(Plain(black, "PS_DASHDOTDOT"), Draw("6 DIVIDE\n" + plain));
}

TEST_F(SplineTest, code_6_finds_keywords_within_the_name_where_they_have_a_record) {
  DefineLtypes({4});
  EXPECT_EQ(Plain(black, "PS_DASH"), Draw("6 MY_HIDDEN_LINE\n" + plain));
  EXPECT_EQ(Plain(black), Draw("6 hidden\n" + plain));
  EXPECT_EQ(Plain(black), Draw("6 DIVIDE\n" + plain));
}

TEST_F(SplineTest, any_name_but_continuous_clears_the_layers_family) {
  AddLayer("DASHES", {1, 4, 0}, 0);
  EXPECT_EQ(Plain(black, "PS_DASH"), Draw("8 DASHES\n6 CONTINUOUS\n" + plain));
  EXPECT_EQ(Plain(black), Draw("8 DASHES\n6 BYLAYER\n" + plain));
}

// Layer, colour, filter, monochrome.

TEST_F(SplineTest, a_layer_gives_style_width_and_colour) {
  AddLayer("CURVES", {3, 6, 25}, 5);
  EXPECT_EQ(Plain(blue, "PS_DASHDOT", 25), Draw("8 CURVES\n" + plain));
  EXPECT_EQ(Plain(red, "PS_DASHDOT", 25), Draw("8 CURVES\n62 1\n" + plain));
  EXPECT_EQ(Plain(blue, "PS_DASHDOT", 25), Draw("62 1\n8 CURVES\n" + plain));
}

TEST_F(SplineTest, an_unknown_layer_leaves_everything) {
  EXPECT_EQ(Plain(red), Draw("62 1\n8 GONE\n" + plain));
}

TEST_F(SplineTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("CURVES");
  EXPECT_EQ("", Draw("8 CURVES\n" + plain));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "CURVES"));
  ReadGroup(stream);
  EXPECT_EQ(73, state.groupCode);
}

TEST_F(SplineTest, code_62_is_mapped) {
  EXPECT_EQ(Plain(cyan), Draw("62 130\n" + plain));
  EXPECT_EQ(Plain(black), Draw("62 2\n" + plain));
  EXPECT_EQ(Plain(countColor), Draw("62 -1\n" + plain));
}

TEST_F(SplineTest, the_colour_is_kept_in_ent_color_and_starts_at_0) {
  state.blockColor = 4;
  Draw("62 1\n" + plain);
  EXPECT_EQ(1, state.entColor);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_EQ(Plain(black), Draw(plain));
}

TEST_F(SplineTest, colour_0_is_black_whatever_the_layer_says) {
  AddLayer("CURVES", {}, 5);
  EXPECT_EQ(Plain(black), Draw("8 CURVES\n62 0\n" + plain));
}

TEST_F(SplineTest, an_excluded_family_is_not_drawn) {
  DefineLtypes({4});
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("6 HIDDEN\n" + plain));
  EXPECT_EQ(1, result);
  EXPECT_EQ(Plain(black), Draw("6 HIDDEN\n6 BYLAYER\n" + plain));
}

TEST_F(SplineTest, with_monochrome_on_every_spline_is_black) {
  AddLayer("CURVES", {}, 5);
  state.monochrome = 1;
  EXPECT_EQ(Plain(black), Draw("8 CURVES\n62 1\n" + plain));
}

TEST_F(SplineTest, on_a_turned_sheet_all_points_are_turned) {
  state.rotated = 1;
  // 20000 - x, -10000 - y
  EXPECT_EQ(Curve(black, "20000, -10000, 19000, -9000, 18000, -8000, 17000, -10000"), Draw(plain));
}

// The end of the groups.

TEST_F(SplineTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(plain);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(SplineTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Plain(red), DrawText("0 SPLINE\n62 1\n" + plain));
  EXPECT_EQ(0, result);
}

// Bad input.

TEST_F(SplineTest, a_file_may_end_behind_any_character_of_it) {
  const std::string text =
      "0 SPLINE\n73 5\n74 2\n" + oneInteriorKnot + points4 + "10 40\n20 0\n11 1\n21 99\n11 2\n21 98\n";
  for (size_t length = 9; length <= text.size(); ++length) {
    EXPECT_NE("", DrawText(text.substr(0, length))) << length;
    EXPECT_EQ(0, result) << length;
  }
}

TEST_F(SplineTest, numbers_that_are_none_or_too_large_fall_on_the_smallest_unit) {
  EXPECT_EQ(Curve(black, "0, -10000, -2147483648, -2147483648"),
            Draw("73 2\n10 x\n20 x\n10 1e999\n20 -1e30\n"));
}

TEST_F(SplineTest, absurd_counts_leave_the_spline_out) {
  for (const char* count : {"73 2147483647", "73 99999999999", "73 1000001", "73 -1", "73 -2147483648",
                            "74 2147483647", "74 333334", "74 -1", "74 -2147483648"}) {
    EXPECT_EQ("", Draw(oneInteriorKnot + std::string(count) + "\n11 5\n21 95\n")) << count;
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  }
}

TEST_F(SplineTest, the_bound_holds_for_the_points_that_are_drawn) {
  EXPECT_EQ(1000000u, PointsIn(Draw("73 1000000\n" + bareKnots)));
  // Each inserted knot makes two points more.
  EXPECT_EQ(1000000u, PointsIn(Draw("73 999998\n" + oneInteriorKnot)));
  EXPECT_EQ("", Draw("73 999999\n" + oneInteriorKnot));
  // 3 * 333333 + 1
  EXPECT_EQ(1000000u, PointsIn(Draw("74 333333\n")));
}

TEST_F(SplineTest, the_bound_holds_for_the_points_that_are_read) {
  EXPECT_EQ(Curve(black, "0, -9900"), DrawLong("73 1\n", "20 1\n", 1000000, ""));
  EXPECT_EQ("", DrawLong("73 1\n", "20 1\n", 1000000, "20 1\n"));
  EXPECT_EQ("", DrawLong("73 1\n", "20 1\n", 1000000, "10 1\n"));
  // Fit points start anew, but the control points aren't forgotten.
  EXPECT_EQ("", DrawLong("73 1\n", "20 1\n", 1000000, "20 1\n11 5\n21 5\n"));
  EXPECT_EQ("", DrawLong("73 1\n11 0\n", "21 1\n", 1000000, "21 1\n"));
}

TEST_F(SplineTest, the_bound_holds_for_the_knots) {
  EXPECT_EQ(Curve(black, "0, -9900"), DrawLong("73 1\n20 1\n", "40 0\n", 1000000, ""));
  EXPECT_EQ("", DrawLong("73 1\n20 1\n", "40 0\n", 1000000, "40 0\n"));
}

TEST_F(SplineTest, a_hundred_thousand_points_convert) {
  std::string groups = "73 100000\n40 0\n40 0\n40 0\n";
  for (int32_t i = 0; i <= 99997; ++i) groups += "40 " + std::to_string(i) + "\n";
  groups += "40 99997\n40 99997\n40 99997\n";
  for (int32_t i = 0; i < 100000; ++i) groups += "10 " + std::to_string(i) + "\n20 50\n";
  const std::string listing = Draw(groups);
  // 99996 interior knots: 100000 + 2 * 99996 = 3 * 99997 + 1 points, from (0, -5000) to (9999900, -5000).
  EXPECT_EQ(299992u, PointsIn(listing));
  EXPECT_NE(std::string::npos, listing.find("PolyBezier(0, -5000, 100, -5000, "));
  EXPECT_NE(std::string::npos, listing.find(", 9999800, -5000, 9999900, -5000)\n"));
}

}  // namespace
}  // namespace hexlume::spline_test
