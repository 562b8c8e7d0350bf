// POINT in a block.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "driver/group_reader.h"
#include "entities/point.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::block_point_test {
namespace {

constexpr int32_t insertColor = 6;  // magenta

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
const std::string square = InPen(
    black,
    "MoveToEx(2989, -4010)\nLineTo(2989, -3989)\nLineTo(3010, -3989)\nLineTo(3010, -4010)\nLineTo(2989, "
    "-4010)\n");

class BlockPointTest : public ConverterTest {
 protected:
  BlockPointTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {1, 4, 3}, 5);
    SetInsertLayer("WALLS");
    headerVars.pdSize = 10.5;
  }

  // The listing of one point with these groups, and of nothing after it.
  std::string Draw(const std::string& groups) { return DrawText("0 POINT\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawBlockPoint({RunOn(canvas), blockOriginX, blockOriginY, insertColor});
    });
  }

  std::string DrawMode(int32_t mode) {
    headerVars.pdMode = mode;
    return Draw(place);
  }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
};

// Figures and frames.

TEST_F(BlockPointTest, the_figures_are_those_outside_a_block) {
  EXPECT_EQ(Pixel(), DrawMode(0));
  EXPECT_EQ("", DrawMode(1));
  EXPECT_EQ(plus, DrawMode(2));
  EXPECT_EQ(cross, DrawMode(3));
  EXPECT_EQ(tick, DrawMode(4));
  EXPECT_EQ("", DrawMode(5));
}

TEST_F(BlockPointTest, a_pixel_takes_the_place_of_the_circle) {
  EXPECT_EQ(Pixel() + Pixel(), DrawMode(32));
  EXPECT_EQ(Pixel(), DrawMode(33));
  EXPECT_EQ(plus + Pixel(), DrawMode(34));
  EXPECT_EQ(cross + Pixel(), DrawMode(35));
  EXPECT_EQ(tick + Pixel(), DrawMode(36));
}

TEST_F(BlockPointTest, the_square_is_that_outside_a_block) {
  EXPECT_EQ(Pixel() + square, DrawMode(64));
  EXPECT_EQ(square, DrawMode(65));
  EXPECT_EQ(plus + square, DrawMode(66));
  EXPECT_EQ(cross + square, DrawMode(67));
  EXPECT_EQ(tick + square, DrawMode(68));
}

TEST_F(BlockPointTest, frame_3_is_a_pixel_and_a_square) {
  EXPECT_EQ(Pixel() + Pixel() + square, DrawMode(96));
  EXPECT_EQ(Pixel() + square, DrawMode(97));
  EXPECT_EQ(plus + Pixel() + square, DrawMode(98));
  EXPECT_EQ(cross + Pixel() + square, DrawMode(99));
  EXPECT_EQ(tick + Pixel() + square, DrawMode(100));
}

TEST_F(BlockPointTest, other_frames_and_negative_modes_draw_nothing) {
  EXPECT_EQ(plus, DrawMode(4 * 32 + 2));
  EXPECT_EQ("", DrawMode(-33));
  EXPECT_EQ(Pixel(), DrawMode(-32));
}

TEST_F(BlockPointTest, the_direction_of_arcs_does_not_count) {
  state.arcClockwise = 1;
  EXPECT_EQ(Pixel(), DrawMode(33));
}

TEST_F(BlockPointTest, a_size_of_0_gives_marks_of_zero_size) {
  headerVars.pdSize = 0.0;
  EXPECT_EQ(InPen(black, "MoveToEx(3000, -4000)\nLineTo(3000, -4000)\n") + Pixel(), DrawMode(36));
}

TEST_F(BlockPointTest, the_pens_have_the_family_of_the_first_layer) {
  EXPECT_EQ(InPen(black, "MoveToEx(3000, -4000)\nLineTo(3000, -3989)\n"), DrawMode(4));
  state.layers = {};
  EXPECT_EQ(InPen(black, "MoveToEx(3000, -4000)\nLineTo(3000, -3989)\n"), DrawMode(4));
  AddLayer("FIRST", {3, 6, 7}, 0);
  EXPECT_EQ(
      "CreatePen(1, PS_DASHDOT, 0, 0x000000)\nSelectObject(1)\nMoveToEx(3000, -4000)\n"
      "LineTo(3000, -3989)\nSelectObject(BLACK_PEN)\nDeleteObject(1)\n",
      DrawMode(4));
  EXPECT_EQ(0u, DrawMode(65).find("CreatePen(1, PS_DASHDOT, 0, "));
}

// Coordinates.

TEST_F(BlockPointTest, it_is_scaled_and_moved_to_the_blocks_origin) {
  blockOriginX = 500.0;
  blockOriginY = 1000.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 0.5;
  // 30 * 200 + 500 and 60 * 50 + 1000 - 10000.
  EXPECT_EQ(Pixel(black, "6500, -6000"), Draw(place));
}

TEST_F(BlockPointTest, it_is_turned_about_the_blocks_origin) {
  blockOriginX = 5000.0;
  blockOriginY = 1000.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (3000, 2000) from the origin becomes (-2000, 3000). Y: 4000.5 - 10000 = -5999.5, cut to -5999.
  EXPECT_EQ(Pixel(black, "3000, -5999"), Draw("10 30\n20 20\n"));
}

TEST_F(BlockPointTest, marks_are_neither_scaled_nor_turned) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 2.0;
  state.insertAngle = halfPi;
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  headerVars.pdMode = 4;
  // (4000, -6000) becomes (6000, 4000): -5999.5 is cut to -5999; -5999 + 10.5 = -5988.5.
  EXPECT_EQ(InPen(black, "MoveToEx(6000, -5999)\nLineTo(6000, -5988)\n"), Draw("10 20\n20 -30\n"));
}

TEST_F(BlockPointTest, the_point_is_kept_in_block_x_and_block_y_before_the_turn) {
  blockOriginX = 500.0;
  state.insertScaleX = 2.0;
  state.insertAngle = halfPi;
  Draw(place);
  EXPECT_EQ(6500.0, state.blockX[0]);
  EXPECT_EQ(6000.0, state.blockY[0]);
  EXPECT_EQ(0.0, state.entX[0]);
}

TEST_F(BlockPointTest, a_missing_coordinate_comes_from_the_block_entity_before_it) {
  Draw(place);
  EXPECT_EQ(Pixel(black, "4000, -4000"), Draw("10 40\n"));
  EXPECT_EQ(Pixel(black, "4000, -9000"), Draw("20 10\n"));
}

TEST_F(BlockPointTest, there_is_no_view_test) {
  EXPECT_EQ(Pixel(black, "-3000, 2000"), Draw("10 -30\n20 120\n"));
}

TEST_F(BlockPointTest, on_a_turned_sheet_the_tick_still_goes_up) {
  state.rotated = 1;
  headerVars.pdMode = 36;
  // (20000 - 3000, -10000 + 4000).
  EXPECT_EQ(InPen(black, "MoveToEx(17000, -6000)\nLineTo(17000, -5989)\n") + Pixel(black, "17000, -6000"),
            Draw(place));
}

// Layer and colour.

TEST_F(BlockPointTest, layer_0_takes_the_inserts_colour) {
  EXPECT_EQ(Pixel(magenta), Draw("8 0\n" + place));
}

TEST_F(BlockPointTest, layer_0_of_an_insert_on_an_unknown_layer_is_nearly_black) {
  SetInsertLayer("GONE");
  EXPECT_EQ(Pixel(countColor), Draw("8 0\n" + place));
}

TEST_F(BlockPointTest, another_layer_gives_its_own_colour) {
  EXPECT_EQ(Pixel(blue), Draw("8 DOORS\n" + place));
}

TEST_F(BlockPointTest, without_any_layer_or_colour_it_is_black) {
  state.blockColor = 5;
  EXPECT_EQ(Pixel(), Draw(place));
}

TEST_F(BlockPointTest, a_colour_other_than_0_is_mapped) {
  EXPECT_EQ(Pixel(cyan), Draw("8 0\n62 130\n" + place));
  EXPECT_EQ(Pixel(green), Draw("8 DOORS\n62 3\n" + place));
}

TEST_F(BlockPointTest, colour_0_keeps_the_colour_with_the_inherit_flag_alone) {
  EXPECT_EQ(Pixel(magenta), Draw("8 0\n62 0\n" + place));
  EXPECT_EQ(Pixel(), Draw("8 DOORS\n62 0\n" + place));
  EXPECT_EQ(Pixel(blue), Draw("8 DOORS\n6 BYBLOCK\n62 0\n" + place));
  EXPECT_EQ(Pixel(), Draw("8 DOORS\n6 HIDDEN\n62 0\n" + place));
}

TEST_F(BlockPointTest, on_an_insert_of_layer_0_colour_0_takes_the_inserts_colour_with_the_flag_alone) {
  SetInsertLayer("0");
  EXPECT_EQ(Pixel(magenta), Draw("8 DOORS\n6 ByBlock\n62 0\n" + place));
  EXPECT_EQ(Pixel(), Draw("8 DOORS\n62 0\n" + place));
}

TEST_F(BlockPointTest, the_frame_has_the_colour_too) {
  headerVars.pdMode = 97;
  EXPECT_EQ(Pixel(red) + InPen(red,
                               "MoveToEx(2989, -4010)\nLineTo(2989, -3989)\nLineTo(3010, -3989)\n"
                               "LineTo(3010, -4010)\nLineTo(2989, -4010)\n"),
            Draw("62 1\n" + place));
}

TEST_F(BlockPointTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Pixel(), Draw("8 0\n" + place));
  EXPECT_EQ(Pixel(), Draw("62 3\n" + place));
}

TEST_F(BlockPointTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("DOORS");
  EXPECT_EQ("", Draw("62 1\n" + place + "8 DOORS\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "DOORS"));
}

TEST_F(BlockPointTest, layer_0_is_excluded_with_the_inserts_layer) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 0\n" + place));
  EXPECT_TRUE(AtGroup(8, "WALLS"));
}

TEST_F(BlockPointTest, left_out_line_types_do_not_count) {
  DefineLtype(4, {300, -200});
  for (const int32_t family : {0, 1, 2, 3, 4}) ExcludeFamily(family);
  EXPECT_EQ(Pixel(blue), Draw("6 HIDDEN\n8 DOORS\n" + place));
}

TEST_F(BlockPointTest, the_end_of_the_file_draws_what_it_has) {
  EXPECT_EQ(Pixel(), DrawText("0 POINT\n" + place));
  EXPECT_EQ(0, result);
}

TEST_F(BlockPointTest, the_next_entity_is_left_in_the_buffer) {
  Draw(place);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

}  // namespace
}  // namespace hexlume::block_point_test
