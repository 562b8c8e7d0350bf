// SPLINE in a block.

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "entities/spline.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/shape_text.h"
#include "support/text_groups.h"

namespace hexlume::block_spline_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

class BlockSplineTest : public ConverterTest {
 protected:
  BlockSplineTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    AddLayer("DASHES", {1, 4, 2}, 1);
    SetInsertLayer("WALLS");
  }

  // The listing of one spline with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 SPLINE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawBlockSpline({RunOn(canvas), blockOriginX, blockOriginY, insertColor, byBlockFlag});
    });
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
  int32_t byBlockFlag = 0;
};

const std::string count4 = "73 4\n";
const std::string bareKnots = "40 0\n40 0\n40 0\n40 0\n40 1\n40 1\n40 1\n40 1\n";
const std::string oneInteriorKnot = "40 0\n40 0\n40 0\n40 0\n40 1\n40 2\n40 2\n40 2\n40 2\n";
// Four control points: 100 x, 100 y - 10000.
const std::string points4 = "10 0\n20 100\n10 10\n20 90\n10 20\n20 80\n10 30\n20 100\n";
const std::string drawn4 = "0, 0, 1000, -1000, 2000, -2000, 3000, 0";
const std::string plain = count4 + bareKnots + points4;

std::string Plain(COLORREF color, const std::string& style = "PS_SOLID") {
  return Curve(color, drawn4, style);
}

// Coordinates.

TEST_F(BlockSplineTest, its_control_points_are_scaled_and_moved_to_the_blocks_origin) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = -3.0;
  // X: 200 x + 500; Y: -300 y + 1000 - 10000.
  EXPECT_EQ(Curve(black, "500, -9000, 2500, -12000, 4500, -15000, 6500, -9300"),
            Draw(count4 + "10 0\n20 0\n10 10\n20 10\n10 20\n20 20\n10 30\n20 1\n"));
}

TEST_F(BlockSplineTest, its_fit_points_are_scaled_and_moved_to_the_blocks_origin) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  // (500 + 2000, 1000 + 6000 - 10000)
  EXPECT_EQ(Curve(black, "2500, -3000, 2500, -3000, 2500, -3000, 2500, -3000"), Draw("74 1\n11 10\n21 20\n"));
}

TEST_F(BlockSplineTest, it_is_not_turned_with_the_insert) {
  state.insertAngle = halfPi;
  EXPECT_EQ(Plain(black), Draw(plain));
  EXPECT_EQ(Curve(black, "1000, -1000, 1000, -1000, 1000, -1000, 1000, -1000"), Draw("11 10\n21 90\n"));
}

TEST_F(BlockSplineTest, nothing_of_it_is_cut_to_the_sheet) {
  EXPECT_EQ(Curve(black, "-100000, 90000, 1000000, -1010000"),
            Draw("73 2\n10 -1000\n20 1000\n10 10000\n20 -10000\n"));
}

TEST_F(BlockSplineTest, on_a_turned_sheet_all_points_are_turned) {
  state.rotated = 1;
  // 20000 - x, -10000 - y
  EXPECT_EQ(Curve(black, "20000, -10000, 19000, -9000, 18000, -8000, 17000, -10000"), Draw(plain));
}

TEST_F(BlockSplineTest, nothing_is_kept_in_the_scratch_fields) {
  state.blockX[0] = 12345.0;
  state.blockY[0] = 54321.0;
  Draw(plain);
  EXPECT_EQ(12345.0, state.blockX[0]);
  EXPECT_EQ(54321.0, state.blockY[0]);
}

// Control points, fit points and knots, as in the entities section.

TEST_F(BlockSplineTest, four_points_without_an_interior_knot_are_drawn_as_they_are) {
  EXPECT_EQ(Plain(black), Draw(plain));
}

TEST_F(BlockSplineTest, one_interior_knot_gives_seven_points) {
  blockOriginX = 100.0;
  // The middles of (1100, -1000) and (2100, -2000), of (2100, -2000) and (3100, 0), and of these two.
  EXPECT_EQ(Curve(black, "100, 0, 1100, -1000, 1600, -1500, 2100, -1250, 2600, -1000, 3100, 0, 4100, -10000"),
            Draw("73 5\n" + oneInteriorKnot + points4 + "10 40\n20 0\n"));
}

TEST_F(BlockSplineTest, fit_points_alone_are_drawn_as_a_polyline) {
  const std::string spans = "0, 0, 0, 0, 1000, -1000, 1000, -1000, 1000, -1000, 1000, -1000, 1000, -1000";
  EXPECT_EQ(Curve(black, spans), Draw("73 0\n74 2\n11 0\n21 100\n11 10\n21 90\n"));
  EXPECT_EQ(Curve(black, spans), Draw("11 0\n21 100\n11 10\n21 90\n"));
}

TEST_F(BlockSplineTest, fit_points_take_the_place_of_each_curves_ends) {
  EXPECT_EQ(Curve(black, "0, -100, 1000, -1000, 2000, -2000, 3000, -200"),
            Draw(plain + "74 2\n11 0\n21 99\n11 30\n21 98\n"));
  EXPECT_EQ(Plain(black), Draw(plain + "74 0\n11 0\n21 99\n11 30\n21 98\n"));
}

TEST_F(BlockSplineTest, the_first_fit_point_starts_at_the_first_place_again) {
  EXPECT_EQ(Curve(black, "500, -500, 500, -500, 600, -600, 600, -600, 600, -600, 600, -600, 600, -600"),
            Draw("10 0\n20 0\n10 1\n20 1\n10 2\n20 2\n11 5\n21 95\n11 6\n21 94\n"));
}

TEST_F(BlockSplineTest, code_20_goes_on_to_the_next_point) {
  EXPECT_EQ(Curve(black, "1000, -1000, 0, -2000, 3000, 0"), Draw("73 3\n10 5\n10 10\n20 90\n20 80\n10 30\n"));
}

TEST_F(BlockSplineTest, points_that_are_missing_are_zeros_on_the_sheet) {
  blockOriginX = 500.0;
  EXPECT_EQ(Curve(black, "1500, -1000, 0, 0"), Draw("73 2\n10 10\n20 90\n"));
  EXPECT_EQ(Curve(black, "0, 0"), Draw(""));
}

TEST_F(BlockSplineTest, thickness_flags_weights_and_tangents_are_ignored) {
  EXPECT_EQ(Plain(black),
            Draw("39 700\n70 11\n71 2\n72 3\n41 2\n42 1\n43 2\n44 3\n12 1\n22 1\n13 1\n23 1\n" + plain));
}

// Group 6 and the pen.

TEST_F(BlockSplineTest, the_family_of_its_line_type_is_the_pens_style) {
  DefineLtypes({0, 4, 6, 10});
  EXPECT_EQ(Plain(black, "PS_DOT"), Draw("6 DOT\n" + plain));
  EXPECT_EQ(Plain(black, "PS_DASH"), Draw("6 HIDDEN\n" + plain));
  EXPECT_EQ(Plain(black, "PS_DASHDOT"), Draw("6 CENTER\n" + plain));
  EXPECT_EQ(Plain(black, "PS_DASHDOTDOT"), Draw("6 DIVIDE\n" + plain));
}

TEST_F(BlockSplineTest, the_pen_has_no_width_whatever_the_layer_says) {
  EXPECT_EQ(Plain(blue), Draw("8 DOORS\n" + plain));
  EXPECT_EQ(Plain(red, "PS_DASH"), Draw("8 DASHES\n" + plain));
}

TEST_F(BlockSplineTest, code_6_takes_whole_names_in_any_case_with_a_record) {
  DefineLtypes({4});
  EXPECT_EQ(Plain(black, "PS_DASH"), Draw("6 Hidden\n" + plain));
  EXPECT_EQ(Plain(black), Draw("6 MY_HIDDEN_LINE\n" + plain));
  EXPECT_EQ(Plain(black), Draw("6 DIVIDE\n" + plain));
}

TEST_F(BlockSplineTest, any_name_but_continuous_clears_the_layers_family) {
  EXPECT_EQ(Plain(red, "PS_DASH"), Draw("8 DASHES\n6 CONTINUOUS\n" + plain));
  EXPECT_EQ(Plain(red, "PS_DASH"), Draw("8 DASHES\n6 continuous\n" + plain));
  EXPECT_EQ(Plain(red), Draw("8 DASHES\n6 CONTINUOS\n" + plain));
  EXPECT_EQ(Plain(red), Draw("8 DASHES\n6 BYLAYER\n" + plain));
}

TEST_F(BlockSplineTest, by_block_lets_colour_0_keep_the_layers_colour) {
  EXPECT_EQ(Plain(blue), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + plain));
  EXPECT_EQ(Plain(blue), Draw("8 DOORS\n6 ByBlock\n62 0\n" + plain));
  EXPECT_EQ(Plain(black), Draw("8 DOORS\n6 byblock\n62 0\n" + plain));
}

// Groups 8 and 62.

TEST_F(BlockSplineTest, layer_0_takes_the_inserts_colour_and_its_layers_style) {
  EXPECT_EQ(Plain(magenta), Draw("8 0\n" + plain));
  SetInsertLayer("DASHES");
  EXPECT_EQ(Plain(magenta, "PS_DASH"), Draw("8 0\n" + plain));
}

TEST_F(BlockSplineTest, layer_0_of_an_insert_on_an_unknown_layer_is_nearly_black) {
  SetInsertLayer("GONE");
  EXPECT_EQ(Plain(countColor), Draw("8 0\n" + plain));
}

TEST_F(BlockSplineTest, an_unknown_layer_leaves_everything) {
  EXPECT_EQ(Plain(black), Draw("8 GONE\n" + plain));
}

TEST_F(BlockSplineTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("8 DOORS\n" + plain));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
}

TEST_F(BlockSplineTest, layer_0_is_excluded_with_the_inserts_layer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + plain));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(BlockSplineTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(Plain(cyan), Draw("8 0\n62 130\n" + plain));
  EXPECT_EQ(Plain(black), Draw("8 0\n62 7\n" + plain));
}

TEST_F(BlockSplineTest, colour_0_keeps_the_inserts_colour_on_layer_0_alone) {
  EXPECT_EQ(Plain(magenta), Draw("8 0\n62 0\n" + plain));
  EXPECT_EQ(Plain(black), Draw("8 DOORS\n62 0\n" + plain));
}

TEST_F(BlockSplineTest, on_an_insert_of_layer_0_colour_0_takes_the_inserts_colour_with_the_flag) {
  SetInsertLayer("0");
  EXPECT_EQ(Plain(magenta), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + plain));
  EXPECT_EQ(Plain(black), Draw("8 DOORS\n62 0\n" + plain));
}

TEST_F(BlockSplineTest, the_by_block_flag_changes_nothing) {
  byBlockFlag = 1;
  EXPECT_EQ(Plain(black), Draw(plain));
  EXPECT_EQ(Plain(black), Draw("8 DOORS\n62 0\n" + plain));
  EXPECT_EQ(Plain(blue), Draw("8 DOORS\n" + plain));
}

TEST_F(BlockSplineTest, the_colour_is_kept_in_block_color_and_starts_at_0) {
  state.entColor = 4;
  Draw("62 1\n" + plain);
  EXPECT_EQ(1, state.blockColor);
  EXPECT_EQ(4, state.entColor);
  EXPECT_EQ(Plain(black), Draw(plain));
}

TEST_F(BlockSplineTest, with_monochrome_on_every_spline_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Plain(black), Draw("8 0\n" + plain));
  EXPECT_EQ(Plain(black), Draw("8 DOORS\n62 1\n" + plain));
}

TEST_F(BlockSplineTest, an_excluded_family_is_not_drawn) {
  ExcludeFamily(1);
  EXPECT_EQ("", Draw("8 DASHES\n" + plain));
  EXPECT_EQ(1, result);
  EXPECT_EQ(Plain(red), Draw("8 DASHES\n6 BYLAYER\n" + plain));
}

// The end of the groups, and bad input.

TEST_F(BlockSplineTest, the_next_entitys_group_stays_in_the_buffer) {
  Draw(plain);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(BlockSplineTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Plain(red), DrawText("0 SPLINE\n62 1\n" + plain));
  EXPECT_EQ(0, result);
}

TEST_F(BlockSplineTest, a_file_may_end_behind_any_character_of_it) {
  const std::string text =
      "0 SPLINE\n73 5\n74 2\n" + oneInteriorKnot + points4 + "11 1\n21 99\n11 2\n21 98\n";
  for (size_t length = 9; length <= text.size(); ++length) {
    EXPECT_NE("", DrawText(text.substr(0, length))) << length;
    EXPECT_EQ(0, result) << length;
  }
}

TEST_F(BlockSplineTest, absurd_counts_leave_the_spline_out) {
  for (const char* count : {"73 2147483647", "73 1000001", "73 -1", "74 2147483647", "74 -1"}) {
    EXPECT_EQ("", Draw(oneInteriorKnot + std::string(count) + "\n11 5\n21 95\n")) << count;
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  }
}

}  // namespace
}  // namespace hexlume::block_spline_test
