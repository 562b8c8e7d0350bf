// TOLERANCE in a block.

#include <gtest/gtest.h>

#include <string>

#include "composite/tolerance.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"
#include "support/tolerance_calls.h"

namespace hexlume::block_tolerance_test {
namespace {

// A point and a style that make a first row 1000 high, from (5000, 8000 - 500) on: on the sheet from
// Y -2500 to -1500.
const std::string frame = "10 50\n20 80\n3 STD\n";

const std::string noCharacterListed = "\xE3\x83\xBB";

class BlockToleranceTest : public ConverterTest {
 protected:
  BlockToleranceTest() {
    AddDimStyle("STD", 1.0, 500.0);
    AddDimStyle("BIG", 2.0, 400.0);
    AddLayer("RED", {}, 1);
    AddLayer("BLUE", {}, 5);
    SetInsertLayer("BLUE");
    // Half a unit away from zero, so that the last digit of a product decides nothing.
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }

  // The listing of one frame with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 TOLERANCE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) {
      result = DrawBlockTolerance({RunOn(canvas), blockOriginX, blockOriginY});
    });
  }

  std::string DrawString(const std::string& string) { return Draw(frame + "1 " + string + "\n"); }

  double blockOriginX = 0.0;
  double blockOriginY = 0.0;
};

// A character in the first row: 1000 * 0.7 high, 1000 * 0.1 above the bottom.
std::string Character(int x, const std::string& text) {
  return ToleranceCharacter(700, x, -2400, text);
}

std::string Box(int right, COLORREF color = black) {
  return ToleranceBox(color, 5000, -2500, right, -1500);
}

// The symbol "u", 1500 wide, in the first row.
std::string Straightness(int x, COLORREF color = black) {
  return Stroke(color, x + 200, -2000, x + 1300, -2000);
}

// The point.

TEST_F(BlockToleranceTest, its_point_is_moved_to_the_blocks_origin) {
  blockOriginX = 300.0;
  blockOriginY = -200.0;
  EXPECT_EQ(ToleranceCharacter(700, 5300, -2600, "A") + ToleranceBox(black, 5300, -2700, 5800, -1700),
            DrawString("A"));
}

TEST_F(BlockToleranceTest, neither_the_inserts_scale_nor_its_angle_counts) {
  blockOriginX = 300.0;
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  state.insertAngle = halfPi;
  EXPECT_EQ(ToleranceCharacter(700, 5300, -2400, "A") + Straightness(5800) +
                ToleranceBox(black, 5300, -2500, 7300, -1500),
            DrawString("A{\\Fgdt;u}"));
}

TEST_F(BlockToleranceTest, a_missing_coordinate_is_where_the_frame_before_ended) {
  DrawString("AB");
  EXPECT_EQ(5500.0, state.blockX[0]);
  EXPECT_EQ(7500.0, state.blockY[0]);
  // At 5500; 7500 - 500 + 100 - 10000.
  EXPECT_EQ(ToleranceCharacter(700, 5500, -2900, "C") + ToleranceBox(black, 5500, -3000, 6000, -2000),
            Draw("3 STD\n1 C\n"));
}

TEST_F(BlockToleranceTest, the_direction_and_an_angle_are_ignored) {
  EXPECT_EQ(Straightness(5000) + Box(6500), Draw(frame + "11 0\n21 1\n50 90\n1 {\\Fgdt;u}\n"));
}

TEST_F(BlockToleranceTest, it_does_not_turn_on_a_turned_sheet) {
  state.rotated = 1;
  EXPECT_EQ(Straightness(5000) + Box(6500), DrawString("{\\Fgdt;u}"));
}

// Group 3 and group 1040: the row's height.

TEST_F(BlockToleranceTest, a_style_gives_twice_its_text_height) {
  // 800: from 8000 - 400 on, the text 80 higher.
  EXPECT_EQ(ToleranceCharacter(560, 5000, -2320, "A") + ToleranceBox(black, 5000, -2400, 5400, -1600),
            Draw("10 50\n20 80\n3 BIG\n1 A\n"));
}

TEST_F(BlockToleranceTest, group_1040_is_twice_its_value_whatever_the_styles_scale) {
  // 2 * 3 * 100 = 600, with the style or without.
  const std::string row =
      ToleranceCharacter(420, 5000, -2240, "A") + ToleranceBox(black, 5000, -2300, 5300, -1700);
  EXPECT_EQ(row, Draw("10 50\n20 80\n3 BIG\n1040 3\n1 A\n"));
  EXPECT_EQ(row, Draw("10 50\n20 80\n1040 3\n1 A\n"));
}

TEST_F(BlockToleranceTest, group_1040_in_front_of_the_style_gives_way_to_it) {
  EXPECT_EQ(Character(5000, "A") + Box(5500), Draw("1040 3\n" + frame + "1 A\n"));
}

TEST_F(BlockToleranceTest, an_unknown_style_changes_nothing) {
  EXPECT_EQ(Character(5000, "A") + Box(5500), Draw(frame + "3 GONE\n1 A\n"));
}

TEST_F(BlockToleranceTest, without_any_height_all_falls_on_its_point_and_has_no_box) {
  EXPECT_EQ(ToleranceCharacter(0, 5000, -2000, "A") + Stroke(black, 5000, -2000, 5000, -2000),
            Draw("10 50\n20 80\n1 A{\\Fgdt;u}%%v\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(BlockToleranceTest, a_height_beyond_all_numbers_ends) {
  EXPECT_NE("", Draw("10 50\n20 80\n1040 1e400\n1 A%%v^J{\\Fgdt;l}%%v\n"));
  EXPECT_EQ(1, result);
}

// Group 8, and colour.

TEST_F(BlockToleranceTest, its_strokes_take_the_layers_colour_and_its_text_none) {
  EXPECT_EQ(Straightness(5000, red) + Character(6500, "A") + Box(7000, red) + Box(7000, red),
            Draw("8 RED\n" + frame + "1 {\\Fgdt;u}A%%v\n"));
}

TEST_F(BlockToleranceTest, layer_0_is_not_that_of_the_insert) {
  EXPECT_EQ(Straightness(5000) + Box(6500), Draw("8 0\n" + frame + "1 {\\Fgdt;u}\n"));
  AddLayer("0", {}, 3);
  EXPECT_EQ(Straightness(5000, green) + Box(6500, green), Draw("8 0\n" + frame + "1 {\\Fgdt;u}\n"));
  EXPECT_STREQ("BLUE", state.insertLayer);
}

TEST_F(BlockToleranceTest, without_a_known_layer_it_is_black) {
  state.blockColor = 4;
  EXPECT_EQ(Character(5000, "A") + Box(5500, black), DrawString("A"));
  EXPECT_EQ(Character(5000, "A") + Box(5500, black), Draw("8 GONE\n62 1\n" + frame + "1 A\n"));
}

TEST_F(BlockToleranceTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Straightness(5000) + Box(6500), Draw("8 RED\n" + frame + "1 {\\Fgdt;u}\n"));
  EXPECT_EQ(0, state.blockColor);
}

TEST_F(BlockToleranceTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("RED");
  EXPECT_EQ("", Draw("8 RED\n" + frame + "1 A\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "RED"));
}

TEST_F(BlockToleranceTest, it_uses_the_places_of_the_block) {
  state.entX[0] = 1.0;
  state.entY[0] = 2.0;
  state.entColor = 4;
  BoundedCopy(state.entText, "outer");
  Draw("8 RED\n" + frame + "1 {\\Fgdt;u}A\n");
  EXPECT_EQ(1.0, state.entX[0]);
  EXPECT_EQ(2.0, state.entY[0]);
  EXPECT_EQ(4, state.entColor);
  EXPECT_STREQ("outer", state.entText);
  EXPECT_STREQ("{\\Fgdt;u}A", state.blockText);
  EXPECT_EQ(1, state.blockColor);
}

// Text.

TEST_F(BlockToleranceTest, text_is_drawn_byte_by_byte) {
  EXPECT_EQ(Character(5000, "A") + Character(5500, "b") + Box(6000), DrawString("Ab"));
  // A lead byte is no character, and the second byte of the kanji of origin is half-width katakana E.
  EXPECT_EQ(Character(5000, noCharacterListed) + Character(5500, "\xEF\xBD\xB4") + Box(6000),
            DrawString("\x8C\xB4"));
}

TEST_F(BlockToleranceTest, the_second_byte_of_a_character_is_a_code) {
  // Katakana TA ends in a caret, which takes the byte after it along.
  EXPECT_EQ(Character(5000, noCharacterListed) + ToleranceCharacter(700, 5000, -3400, "B") +
                ToleranceBox(black, 5000, -3500, 5500, -2500),
            DrawString("\x83\x5E"
                       "AB"));
}

TEST_F(BlockToleranceTest, a_lead_byte_at_the_end_stands_alone) {
  EXPECT_EQ(Character(5000, "A") + Character(5500, noCharacterListed) + Box(6000), DrawString("A\x83"));
}

TEST_F(BlockToleranceTest, no_gap_stands_behind_a_separator) {
  EXPECT_EQ(Character(5000, "A") + Box(5500), DrawString("%%vA"));
  EXPECT_EQ(Character(5000, "v") + Character(5500, "5") + Box(6000), DrawString("v5"));
}

TEST_F(BlockToleranceTest, no_room_stands_before_a_separator) {
  EXPECT_EQ(Character(5000, "A") + Box(5500) + Character(5500, "B") + Box(6000), DrawString("A%%vB"));
}

TEST_F(BlockToleranceTest, in_a_scale_of_2_font_and_advance_stay_as_they_are) {
  state.drawScale = 2.0;
  // At 5000 / 2, 7600 / 2 - 10000; B at (5000 + 500 + 1500) / 2. The width is 2500: from 5000 / 2 to 7500 / 2
  // and from 7500 / 2 - 10000 to 8500 / 2 - 10000.
  EXPECT_EQ(ToleranceCharacter(700, 2500, -6200, "A") + Stroke(black, 2850, -6000, 3400, -6000) +
                ToleranceCharacter(700, 3500, -6200, "B") + ToleranceBox(black, 2500, -6250, 3750, -5750),
            DrawString("A{\\Fgdt;u}B"));
}

TEST_F(BlockToleranceTest, the_fonts_height_is_cut) {
  // 999 * 0.7 = 699.3; the row's bottom at 8000 - 499.5, the text 99.9 above it, the top at 8499.5. Half a
  // unit of shift makes that -2500, -2400.1 and -1501.
  EXPECT_EQ(ToleranceCharacter(699, 5000, -2400, "A") + ToleranceBox(black, 5000, -2500, 5500, -1501),
            Draw("10 50\n20 80\n1040 4.995\n1 A\n"));
}

// Separators, rows and symbols.

TEST_F(BlockToleranceTest, a_symbol_a_text_and_separators_give_nested_boxes) {
  const std::string position = InPen(black,
                                     "MoveToEx(5200, -2000)\nLineTo(6050, -2000)\nMoveToEx(5625, -2400)\n"
                                     "LineTo(5625, -1600)\nMoveToEx(5950, -2000)\n"
                                     "AngleArc(5625, -2000, 325, 0, 360)\n");
  // 1250, then three times 500 from there on.
  EXPECT_EQ(position + Box(6250) + Character(6250, "0") + Character(6750, ".") + Character(7250, "5") +
                Box(7750) + Box(7750),
            DrawString("{\\Fgdt;j}%%v0.5%%v"));
}

TEST_F(BlockToleranceTest, separators_at_the_start_of_a_row_draw_nothing) {
  EXPECT_EQ(Character(5000, "A") + Box(5500) + Box(5500) + Box(5500), DrawString("%%v%%vA%%v%%v"));
  EXPECT_EQ("", DrawString("%%v%"));
}

TEST_F(BlockToleranceTest, a_second_row_lies_a_height_lower_and_starts_at_the_start_again) {
  const std::string secondBox = ToleranceBox(black, 5000, -3500, 6000, -2500);
  EXPECT_EQ(Character(5000, "A") + Character(5500, "B") + Box(6000) +
                ToleranceCharacter(700, 5000, -3400, "C") + ToleranceCharacter(700, 5500, -3400, "D") +
                secondBox + secondBox,
            DrawString("AB%%v^JCD%%v"));
}

TEST_F(BlockToleranceTest, a_row_without_a_separator_before_its_break_has_no_box) {
  EXPECT_EQ(Character(5000, "A"), DrawString("A^J"));
  EXPECT_EQ(Character(5000, "A"), DrawString("A^"));
}

TEST_F(BlockToleranceTest, a_symbol_stands_behind_what_is_before_it_and_widens_the_row) {
  EXPECT_EQ(Character(5000, "A") + Straightness(5500) + Character(7000, "B") + Box(7500),
            DrawString("A{\\Fgdt;u}B"));
}

TEST_F(BlockToleranceTest, the_empty_symbol_advances_by_the_height) {
  EXPECT_EQ(InPen(black, "") + Character(6000, "A") + Box(6500), DrawString("{\\Fgdt;q}A"));
}

TEST_F(BlockToleranceTest, a_letter_outside_the_table_adds_nothing) {
  EXPECT_EQ(Character(5000, "A") + InPen(black, "") + Character(5500, "B") + Box(6000),
            DrawString("A{\\Fgdt;J}B"));
  EXPECT_EQ(InPen(black, ""), DrawString("{\\Fgdt;J}%%v"));
}

TEST_F(BlockToleranceTest, a_letter_in_its_circle_is_drawn_in_a_font_of_its_own) {
  EXPECT_EQ(InPen(black, ToleranceFont(700, 2) +
                             "MoveToEx(6050, -2000)\nAngleArc(5625, -2000, 425, 0, 360)\nSetTextAlign(8)\n"
                             "ExtTextOutW(5450, -2350, 0, \"M\")\nSelectObject(SYSTEM_FONT)\n"
                             "DeleteObject(2)\n") +
                Box(6250),
            DrawString("{\\Fgdt;m}"));
}

// The whole string.

TEST_F(BlockToleranceTest, a_symbol_cut_short_by_the_end_draws_nothing) {
  // A longer string before it leaves its bytes after the end.
  DrawString("AAAAAAAAuAAAAAAAA");
  EXPECT_EQ(Character(5000, "A") + InPen(black, "") + Box(5500), DrawString("A{"));
}

TEST_F(BlockToleranceTest, a_double_quote_ends_the_frame) {
  EXPECT_EQ(Character(5000, "A") + Box(5500), DrawString("A\"B%%v"));
}

TEST_F(BlockToleranceTest, a_string_of_255_bytes_is_drawn_to_its_end) {
  std::string characters;
  for (int i = 0; i < 254; ++i) characters += Character(5000 + 500 * i, "A");
  const int end = 5000 + 254 * 500;
  EXPECT_EQ(characters + Character(end, "A") + Box(end + 500), DrawString(std::string(255, 'A')));
  EXPECT_EQ(characters + InPen(black, "") + Box(end), DrawString(std::string(254, 'A') + "{"));
  EXPECT_EQ(characters + Box(end) + Box(end), DrawString(std::string(254, 'A') + "%"));
  EXPECT_EQ(characters, DrawString(std::string(254, 'A') + "^"));
}

TEST_F(BlockToleranceTest, without_a_string_it_draws_that_of_the_entity_before) {
  BoundedCopy(state.blockText, "A");
  EXPECT_EQ(Character(5000, "A") + Box(5500), Draw(frame));
}

TEST_F(BlockToleranceTest, the_next_entitys_group_stays_in_the_buffer) {
  DrawString("A");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(BlockToleranceTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Character(5000, "A") + Box(5500), DrawText("0 TOLERANCE\n" + frame + "1 A\n"));
  EXPECT_EQ(0, result);
}

}  // namespace
}  // namespace hexlume::block_tolerance_test
