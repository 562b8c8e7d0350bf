// POINT in the ENTITIES section.

#include "entities/point.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::point_test {
namespace {

// At (3000, 6000 - 10000).
const std::string place = "10 30\n20 60\n";

std::string Pixel(COLORREF color = black, const std::string& at = "3000, -4000") {
  char pixel[80];
  std::snprintf(pixel, sizeof pixel, "SetPixelV(%s, 0x%06X)\n", at.c_str(), static_cast<unsigned>(color));
  return InPen(color, std::string("SelectObject(NULL_BRUSH)\n") + pixel) + "SelectObject(WHITE_BRUSH)\n";
}

// Marks of a size of 10.5. 3010.5 and 2989.5; -3989.5 and -4010.5, toward zero. 10.5 / sqrt 2 = 7.4.
const std::string plus =
    InPen(black, "MoveToEx(2989, -4000)\nLineTo(3010, -4000)\nMoveToEx(3000, -4010)\nLineTo(3000, -3989)\n");
const std::string cross =
    InPen(black, "MoveToEx(2993, -4007)\nLineTo(3007, -3993)\nMoveToEx(3007, -4007)\nLineTo(2993, -3993)\n");
const std::string tick = InPen(black, "MoveToEx(3000, -4000)\nLineTo(3000, -3989)\n");
const std::string circle = InPen(black, "MoveToEx(3010, -4000)\nAngleArc(3000, -4000, 10, 0, 360)\n");
const std::string square = InPen(
    black,
    "MoveToEx(2989, -4010)\nLineTo(2989, -3989)\nLineTo(3010, -3989)\nLineTo(3010, -4010)\nLineTo(2989, "
    "-4010)\n");

class PointTest : public ConverterTest {
 protected:
  PointTest() { headerVars.pdSize = 10.5; }

  // The listing of one point with these groups, and of nothing after it.
  std::string Draw(const std::string& groups) { return DrawText("0 POINT\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawPoint({RunOn(canvas)}); });
  }

  std::string DrawMode(int32_t mode) {
    headerVars.pdMode = mode;
    return Draw(place);
  }
};

// Figures and frames.

TEST_F(PointTest, modes_0_to_4_draw_a_figure_without_a_frame) {
  EXPECT_EQ(Pixel(), DrawMode(0));
  EXPECT_EQ("", DrawMode(1));
  EXPECT_EQ(plus, DrawMode(2));
  EXPECT_EQ(cross, DrawMode(3));
  EXPECT_EQ(tick, DrawMode(4));
}

TEST_F(PointTest, modes_from_32_on_draw_a_circle_on_top_of_the_figure) {
  EXPECT_EQ(Pixel() + circle, DrawMode(32));
  EXPECT_EQ(circle, DrawMode(33));
  EXPECT_EQ(plus + circle, DrawMode(34));
  EXPECT_EQ(cross + circle, DrawMode(35));
  EXPECT_EQ(tick + circle, DrawMode(36));
}

TEST_F(PointTest, modes_from_64_on_draw_a_square_on_top_of_the_figure) {
  EXPECT_EQ(Pixel() + square, DrawMode(64));
  EXPECT_EQ(square, DrawMode(65));
  EXPECT_EQ(plus + square, DrawMode(66));
  EXPECT_EQ(cross + square, DrawMode(67));
  EXPECT_EQ(tick + square, DrawMode(68));
}

TEST_F(PointTest, modes_from_96_on_draw_circle_and_square_on_top_of_the_figure) {
  EXPECT_EQ(Pixel() + circle + square, DrawMode(96));
  EXPECT_EQ(circle + square, DrawMode(97));
  EXPECT_EQ(plus + circle + square, DrawMode(98));
  EXPECT_EQ(cross + circle + square, DrawMode(99));
  EXPECT_EQ(tick + circle + square, DrawMode(100));
}

TEST_F(PointTest, other_figures_draw_nothing) {
  EXPECT_EQ("", DrawMode(5));
  EXPECT_EQ("", DrawMode(31));
  EXPECT_EQ(circle, DrawMode(37));
  EXPECT_EQ(circle, DrawMode(63));
}

TEST_F(PointTest, other_frames_draw_nothing) {
  EXPECT_EQ(plus, DrawMode(4 * 32 + 2));
  EXPECT_EQ(plus, DrawMode(5 * 32 + 2));
  EXPECT_EQ(Pixel(), DrawMode(1 << 30));
}

TEST_F(PointTest, a_negative_mode_selects_no_figure_unless_32_divides_it) {
  EXPECT_EQ("", DrawMode(-1));
  EXPECT_EQ("", DrawMode(-2));
  EXPECT_EQ("", DrawMode(-30));  // rounded down it would be figure 2 of frame -1
  EXPECT_EQ("", DrawMode(-62));
  EXPECT_EQ(Pixel(), DrawMode(-32));
  EXPECT_EQ(Pixel(), DrawMode(INT32_MIN));
}

TEST_F(PointTest, a_system_with_arcs_the_other_way_round_gets_its_circle_as_an_arc) {
  state.arcClockwise = 1;
  // The box 2989..3010, -4010..-3989, smaller by one at the right and the top.
  EXPECT_EQ(InPen(black, "Arc(2989, -4010, 3009, -3990, 3010, -4000, 3010, -4000)\n"), DrawMode(33));
}

// Sizes.

TEST_F(PointTest, mode_0_draws_one_pixel_whatever_the_size) {
  for (const double size : {0.0, 0.5, 500.0, -500.0, 1e300}) {
    headerVars.pdSize = size;
    EXPECT_EQ(Pixel(), DrawMode(0));
  }
}

TEST_F(PointTest, a_size_of_0_gives_marks_of_zero_size) {
  headerVars.pdSize = 0.0;
  const std::string noPlus = InPen(
      black, "MoveToEx(3000, -4000)\nLineTo(3000, -4000)\nMoveToEx(3000, -4000)\nLineTo(3000, -4000)\n");
  EXPECT_EQ(noPlus + InPen(black, "MoveToEx(3000, -4000)\nAngleArc(3000, -4000, 0, 0, 360)\n"), DrawMode(34));
  EXPECT_EQ(InPen(black,
                  "MoveToEx(3000, -4000)\nLineTo(3000, -4000)\nLineTo(3000, -4000)\nLineTo(3000, -4000)\n"
                  "LineTo(3000, -4000)\n"),
            DrawMode(65));
}

TEST_F(PointTest, the_size_is_not_scaled) {
  state.drawScale = 2.0;
  state.insertScaleX = 3.0;
  state.insertScaleY = 3.0;
  // The point is at 1500, 3000 - 10000.
  EXPECT_EQ(InPen(black, "MoveToEx(1500, -7000)\nLineTo(1500, -6989)\n"), DrawMode(4));
}

TEST_F(PointTest, a_negative_size_turns_the_tick_down) {
  headerVars.pdSize = -10.5;
  EXPECT_EQ(InPen(black, "MoveToEx(3000, -4000)\nLineTo(3000, -4010)\n"), DrawMode(4));
}

// Groups.

TEST_F(PointTest, the_point_is_kept_in_ent_x_and_ent_y) {
  Draw(place);
  EXPECT_EQ(3000.0, state.entX[0]);
  EXPECT_EQ(6000.0, state.entY[0]);
  EXPECT_EQ(0.0, state.blockX[0]);
  EXPECT_EQ(0.0, state.dimX[0]);
}

TEST_F(PointTest, a_missing_coordinate_comes_from_the_entity_before_it) {
  Draw(place);
  EXPECT_EQ(Pixel(black, "4000, -4000"), Draw("10 40\n"));
  EXPECT_EQ(Pixel(black, "4000, -9000"), Draw("20 10\n"));
}

TEST_F(PointTest, other_codes_are_ignored) {
  EXPECT_EQ(Pixel(), Draw("5 2A\n100 AcDbPoint\n67 1\n39 500\n" + place +
                          "11 5\n21 5\n30 7\n40 9\n50 45\n210 0\n220 0\n230 -1\n"));
}

TEST_F(PointTest, the_insert_does_not_count) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 2.0;
  state.insertAngle = 1.0;
  EXPECT_EQ(Pixel(), Draw(place));
}

TEST_F(PointTest, there_is_no_view_test) {
  EXPECT_EQ(Pixel(black, "-3000, 2000"), Draw("10 -30\n20 120\n"));
}

TEST_F(PointTest, colours_come_from_the_layer_and_from_group_62) {
  AddLayer("WALLS", {}, 1);
  EXPECT_EQ(Pixel(red), Draw("8 WALLS\n" + place));
  EXPECT_EQ(Pixel(green), Draw("8 WALLS\n62 3\n" + place));
  EXPECT_EQ(Pixel(red), Draw("62 3\n8 WALLS\n" + place));
  EXPECT_EQ(Pixel(green), Draw("62 3\n8 GONE\n" + place));
  EXPECT_EQ(Pixel(cyan), Draw("62 130\n" + place));
  EXPECT_EQ(Pixel(countColor), Draw("62 -1\n" + place));
}

TEST_F(PointTest, figure_and_frame_have_the_colour) {
  headerVars.pdMode = 36;
  EXPECT_EQ(InPen(red, "MoveToEx(3000, -4000)\nLineTo(3000, -3989)\n") +
                InPen(red, "MoveToEx(3010, -4000)\nAngleArc(3000, -4000, 10, 0, 360)\n"),
            Draw("62 1\n" + place));
  headerVars.pdMode = 65;
  EXPECT_EQ(InPen(red,
                  "MoveToEx(2989, -4010)\nLineTo(2989, -3989)\nLineTo(3010, -3989)\nLineTo(3010, -4010)\n"
                  "LineTo(2989, -4010)\n"),
            Draw("62 1\n" + place));
}

TEST_F(PointTest, the_colour_of_the_entity_before_does_not_stay) {
  state.entColor = 5;
  EXPECT_EQ(Pixel(), Draw(place));
}

TEST_F(PointTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Pixel(), Draw("62 3\n" + place));
}

TEST_F(PointTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 WALLS\n" + place));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(PointTest, a_colour_in_front_of_an_excluded_layer_makes_no_difference) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("62 1\n" + place + "8 WALLS\n"));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(PointTest, left_out_line_types_do_not_count) {
  AddLayer("DASHES", {1, 4, 0}, 0);
  DefineLtype(4, {300, -200});
  for (const int32_t family : {0, 1, 2, 3, 4}) ExcludeFamily(family);
  EXPECT_EQ(Pixel(), Draw("6 HIDDEN\n8 DASHES\n" + place));
}

TEST_F(PointTest, the_pens_have_the_family_of_the_first_layer) {
  AddLayer("FIRST", {3, 6, 7}, 0);
  AddLayer("DASHES", {1, 4, 0}, 0);
  headerVars.pdMode = 4;
  EXPECT_EQ(
      "CreatePen(1, PS_DASHDOT, 0, 0x000000)\nSelectObject(1)\nMoveToEx(3000, -4000)\n"
      "LineTo(3000, -3989)\nSelectObject(BLACK_PEN)\nDeleteObject(1)\n",
      Draw("8 DASHES\n6 HIDDEN\n" + place));
  for (const int32_t mode : {2, 3, 33, 65})
    EXPECT_EQ(0u, DrawMode(mode).find("CreatePen(1, PS_DASHDOT, 0, "));
  EXPECT_EQ(Pixel(), DrawMode(0));
}

TEST_F(PointTest, the_end_of_the_file_draws_what_it_has) {
  EXPECT_EQ(Pixel(), DrawText("0 POINT\n" + place));
  EXPECT_EQ(0, result);
}

TEST_F(PointTest, the_next_entity_is_left_in_the_buffer) {
  Draw(place);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

// Turned sheets: the point becomes (20000 - 3000, -10000 + 4000).

TEST_F(PointTest, on_a_turned_sheet_the_tick_still_goes_up) {
  state.rotated = 1;
  EXPECT_EQ(InPen(black, "MoveToEx(17000, -6000)\nLineTo(17000, -5989)\n"), DrawMode(4));
}

TEST_F(PointTest, all_marks_stand_on_the_turned_point) {
  state.rotated = 1;
  EXPECT_EQ(Pixel(black, "17000, -6000"), DrawMode(0));
  EXPECT_EQ(InPen(black,
                  "MoveToEx(16989, -6000)\nLineTo(17010, -6000)\nMoveToEx(17000, -6010)\n"
                  "LineTo(17000, -5989)\n"),
            DrawMode(2));
  EXPECT_EQ(InPen(black,
                  "MoveToEx(16993, -6007)\nLineTo(17007, -5993)\nMoveToEx(17007, -6007)\n"
                  "LineTo(16993, -5993)\n"),
            DrawMode(3));
  EXPECT_EQ(InPen(black, "MoveToEx(17010, -6000)\nAngleArc(17000, -6000, 10, 0, 360)\n") +
                InPen(black,
                      "MoveToEx(16989, -6010)\nLineTo(16989, -5989)\nLineTo(17010, -5989)\n"
                      "LineTo(17010, -6010)\nLineTo(16989, -6010)\n"),
            DrawMode(97));
}

}  // namespace
}  // namespace hexlume::point_test
