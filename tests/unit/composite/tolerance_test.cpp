// TOLERANCE in the ENTITIES section.

#include <gtest/gtest.h>

#include <string>

#include "composite/tolerance.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"
#include "support/tolerance_calls.h"

namespace hexlume::tolerance_test {
namespace {

// A point and a style that make a first row 1000 high, from (5000, 8000 - 500) on: on the sheet from
// Y -2500 to -1500.
const std::string frame = "10 50\n20 80\n3 STD\n";

const std::string kanji = "\x8C\xB4";            // of origin
const std::string kanjiListed = "\xE5\x8E\x9F";  // as the listing has it
const std::string noCharacterListed = "\xE3\x83\xBB";

class ToleranceTest : public ConverterTest {
 protected:
  ToleranceTest() {
    AddDimStyle("STD", 1.0, 500.0);
    AddLayer("RED", {}, 1);
    AddLayer("BLUE", {}, 5);
    // Half a unit away from zero, so that the last digit of a product decides nothing.
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }

  // The listing of one frame with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 TOLERANCE\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawTolerance({RunOn(canvas)}); });
  }

  std::string DrawString(const std::string& string) { return Draw(frame + "1 " + string + "\n"); }
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

// Text.

TEST_F(ToleranceTest, text_is_drawn_character_by_character_with_a_box_around_it) {
  // Each advances by 500.
  EXPECT_EQ(Character(5000, "A") + Character(5500, "b") + Character(6000, " ") + Box(6500),
            DrawString("Ab "));
}

TEST_F(ToleranceTest, a_double_byte_character_is_drawn_as_one_and_wider) {
  // 500 + 200.
  EXPECT_EQ(Character(5000, kanjiListed) + Character(5700, "A") + Box(6200), DrawString(kanji + "A"));
}

TEST_F(ToleranceTest, half_width_katakana_are_single_bytes) {
  EXPECT_EQ(Character(5000, "\xEF\xBD\xB1") + Character(5500, "A") + Box(6000), DrawString("\xB1"
                                                                                           "A"));
}

TEST_F(ToleranceTest, the_second_byte_of_a_character_is_no_code) {
  // Katakana TA ends in a caret, the wide plus in a brace.
  EXPECT_EQ(Character(5000, "\xE3\x82\xBF") + Character(5700, "\xEF\xBC\x8B") + Box(6400),
            DrawString("\x83\x5E\x81\x7B"));
}

TEST_F(ToleranceTest, a_lead_byte_at_the_end_takes_the_closing_0_along) {
  EXPECT_EQ(Character(5000, "A") + Character(5500, noCharacterListed + "\\u0000") + Box(6200),
            DrawString("A\x83"));
}

TEST_F(ToleranceTest, behind_a_separator_a_character_moves_by_a_tenth_for_each_of_its_bytes) {
  EXPECT_EQ(Character(5100, "A") + Box(5500), DrawString("%%vA"));
  EXPECT_EQ(Character(5200, kanjiListed) + Box(5700), DrawString("%%v" + kanji));
}

TEST_F(ToleranceTest, the_gap_moves_all_that_follows_in_the_row) {
  EXPECT_EQ(Character(5100, "A") + Character(5600, "B") + Straightness(6100) + Box(7500),
            DrawString("%%vAB{\\Fgdt;u}"));
}

TEST_F(ToleranceTest, any_v_in_front_of_a_character_gives_the_gap) {
  EXPECT_EQ(Character(5000, "v") + Character(5600, "5") + Box(6000), DrawString("v5"));
  // Katakana PU has it as its second byte. 5000 + 700 + 100.
  EXPECT_EQ(Character(5000, "\xE3\x83\x97") + Character(5800, "5") + Box(6200), DrawString("\x83\x76"
                                                                                           "5"));
}

TEST_F(ToleranceTest, no_gap_stands_before_the_first_character_or_behind_another_sign) {
  EXPECT_EQ(Character(5000, "A") + Box(5500), DrawString("A"));
  EXPECT_EQ(Character(5000, "A") + Box(5500), DrawString("%%cA"));
  EXPECT_EQ(Character(5000, "A") + Box(5500), DrawString("%%VA"));
}

TEST_F(ToleranceTest, in_front_of_a_separator_the_row_widens_and_its_text_does_not) {
  // 500 + 300 to the box; B is at 5000 + 500 with the gap of 100; 800 + 500 to the next box.
  EXPECT_EQ(Character(5000, "A") + Box(5800) + Character(5600, "B") + Box(6300), DrawString("A%%vB"));
  // 700 + 300.
  EXPECT_EQ(Character(5000, kanjiListed) + Box(6000) + Box(6000), DrawString(kanji + "%%v"));
}

TEST_F(ToleranceTest, the_room_before_a_separator_is_looked_for_behind_the_whole_character) {
  // A lead byte takes the percent sign along.
  EXPECT_EQ(Character(5000, noCharacterListed) + Character(5700, "A") + Box(6200), DrawString("\x83%A"));
}

// Separators.

TEST_F(ToleranceTest, a_symbol_a_text_and_separators_give_nested_boxes) {
  // The symbol takes 1250. The text: after 5000 + 1250 and the gap of 100 three times 500. The outer box:
  // 1250 + 1500 + 300; it is drawn by the last separator, and at the end once more.
  const std::string position = InPen(black,
                                     "MoveToEx(5200, -2000)\nLineTo(6050, -2000)\nMoveToEx(5625, -2400)\n"
                                     "LineTo(5625, -1600)\nMoveToEx(5950, -2000)\n"
                                     "AngleArc(5625, -2000, 325, 0, 360)\n");
  EXPECT_EQ(position + Box(6250) + Character(6350, "0") + Character(6850, ".") + Character(7350, "5") +
                Box(8050) + Box(8050),
            DrawString("{\\Fgdt;j}%%v0.5%%v"));
}

TEST_F(ToleranceTest, separators_at_the_start_of_a_row_draw_nothing) {
  EXPECT_EQ(Character(5100, "A") + Box(5800) + Box(5800) + Box(5800), DrawString("%%v%%v%%vA%%v%%v"));
  EXPECT_EQ("", DrawString("%%v%%v"));
}

TEST_F(ToleranceTest, any_percent_sign_takes_three_bytes) {
  EXPECT_EQ(Character(5000, "A") + Box(5800) + Character(5500, "B") + Box(6300), DrawString("A%xyB"));
}

TEST_F(ToleranceTest, a_separator_cut_short_by_the_end_counts) {
  EXPECT_EQ(Character(5000, "A") + Box(5800) + Box(5800), DrawString("A%"));
  EXPECT_EQ(Character(5000, "A") + Box(5800) + Box(5800), DrawString("A%%"));
}

// Rows.

TEST_F(ToleranceTest, a_second_row_lies_a_height_lower_and_starts_at_the_start_again) {
  // 1000 + 300. C at -2400 - 1000, D half a height further. 500 + 500 + 300.
  const std::string secondBox = ToleranceBox(black, 5000, -3500, 6300, -2500);
  EXPECT_EQ(Character(5000, "A") + Character(5500, "B") + Box(6300) +
                ToleranceCharacter(700, 5000, -3400, "C") + ToleranceCharacter(700, 5500, -3400, "D") +
                secondBox + secondBox,
            DrawString("AB%%v^JCD%%v"));
}

TEST_F(ToleranceTest, a_third_row_starts_behind_a_gap_of_its_own) {
  // 7500 - 2000 + 100 - 10000.
  EXPECT_EQ(Character(5100, "A") + Box(5800) + ToleranceCharacter(700, 5100, -4400, "B") +
                ToleranceBox(black, 5000, -4500, 5500, -3500),
            DrawString("%%vA%%v^J^J%%vB"));
}

TEST_F(ToleranceTest, a_row_without_a_separator_before_its_break_has_no_box) {
  EXPECT_EQ(Character(5000, "A") + ToleranceCharacter(700, 5000, -3400, "B") +
                ToleranceBox(black, 5000, -3500, 5500, -2500),
            DrawString("A^JB"));
  EXPECT_EQ(Character(5000, "A"), DrawString("A^J"));
}

TEST_F(ToleranceTest, any_caret_breaks_the_row_and_takes_two_bytes) {
  EXPECT_EQ(ToleranceCharacter(700, 5000, -3400, "B") + ToleranceBox(black, 5000, -3500, 5500, -2500),
            DrawString("^xB"));
  EXPECT_EQ(Character(5000, "A"), DrawString("A^"));
}

// Symbols.

TEST_F(ToleranceTest, a_symbol_stands_behind_what_is_before_it_and_widens_the_row) {
  // 500 + 1500 + 500.
  EXPECT_EQ(Character(5000, "A") + Straightness(5500) + Character(7000, "B") + Box(7500),
            DrawString("A{\\Fgdt;u}B"));
}

TEST_F(ToleranceTest, a_symbol_gets_no_gap_behind_a_separator_and_no_room_before_one) {
  EXPECT_EQ(Straightness(5000) + Box(6500) + Straightness(6500) + Box(8000) + Box(8000),
            DrawString("%%v{\\Fgdt;u}%%v{\\Fgdt;u}%%v"));
}

TEST_F(ToleranceTest, the_empty_symbol_advances_by_the_height) {
  EXPECT_EQ(InPen(black, "") + Character(6000, "A") + Box(6500), DrawString("{\\Fgdt;q}A"));
}

TEST_F(ToleranceTest, a_letter_outside_the_table_adds_nothing) {
  EXPECT_EQ(InPen(black, ""), DrawString("{\\Fgdt;J}%%v"));
  EXPECT_EQ(Character(5000, "A") + InPen(black, "") + Character(5500, "B") + Box(6000),
            DrawString("A{\\Fgdt;J}B"));
}

TEST_F(ToleranceTest, any_brace_takes_nine_bytes_with_its_letter_in_the_eighth) {
  EXPECT_EQ(Straightness(5000) + Character(6500, "A") + Box(7000), DrawString("{123456uxA"));
}

TEST_F(ToleranceTest, a_symbol_without_its_closing_brace_is_drawn) {
  EXPECT_EQ(Straightness(5000) + Box(6500), DrawString("{\\Fgdt;u"));
}

TEST_F(ToleranceTest, a_symbol_cut_short_by_the_end_draws_nothing) {
  EXPECT_EQ(InPen(black, ""), DrawString("{\\Fgdt;"));
  EXPECT_EQ(Character(5000, "A") + InPen(black, "") + Box(5500), DrawString("A{"));
}

TEST_F(ToleranceTest, nothing_behind_a_string_that_is_cut_short_shows) {
  // A longer string before it leaves its bytes after the end.
  DrawString("AAAAAAAAuAAAAAAAA");
  EXPECT_EQ(Character(5000, "A") + InPen(black, "") + Box(5500), DrawString("A{"));
}

TEST_F(ToleranceTest, a_letter_in_its_circle_is_drawn_in_the_font_of_the_canvas) {
  EXPECT_EQ(InPen(black,
                  "MoveToEx(6050, -2000)\nAngleArc(5625, -2000, 425, 0, 360)\nSetTextAlign(8)\n"
                  "ExtTextOutW(5450, -2350, 0, \"M\")\n") +
                Box(6250),
            DrawString("{\\Fgdt;m}"));
}

// The whole string.

TEST_F(ToleranceTest, a_double_quote_ends_the_frame) {
  EXPECT_EQ(Character(5000, "A") + Box(5500), DrawString("A\"B%%v"));
  EXPECT_EQ("", DrawString("\"A"));
}

TEST_F(ToleranceTest, an_empty_string_draws_nothing) {
  EXPECT_EQ("", DrawString(""));
}

TEST_F(ToleranceTest, a_string_of_255_bytes_is_drawn_to_its_end) {
  std::string expected;
  for (int i = 0; i < 255; ++i) expected += Character(5000 + 500 * i, "A");
  EXPECT_EQ(expected + Box(5000 + 255 * 500), DrawString(std::string(255, 'A')));
}

TEST_F(ToleranceTest, codes_at_the_end_of_255_bytes_read_nothing_behind_them) {
  std::string characters;
  for (int i = 0; i < 254; ++i) characters += Character(5000 + 500 * i, "A");
  EXPECT_EQ(characters + InPen(black, "") + Box(5000 + 254 * 500), DrawString(std::string(254, 'A') + "{"));
  EXPECT_EQ(characters, DrawString(std::string(254, 'A') + "^"));
  EXPECT_EQ(characters + Box(5300 + 254 * 500) + Box(5300 + 254 * 500),
            DrawString(std::string(254, 'A') + "%"));
  EXPECT_EQ(characters + Character(5000 + 254 * 500, noCharacterListed + "\\u0000") + Box(5700 + 254 * 500),
            DrawString(std::string(254, 'A') + "\x83"));
}

TEST_F(ToleranceTest, without_a_string_it_draws_that_of_the_entity_before) {
  BoundedCopy(state.entText, "A");
  EXPECT_EQ(Character(5000, "A") + Box(5500), Draw(frame));
}

TEST_F(ToleranceTest, the_last_string_counts) {
  EXPECT_EQ(Character(5000, "B") + Box(5500), Draw(frame + "1 A\n1 B\n"));
}

// The point.

TEST_F(ToleranceTest, a_missing_coordinate_is_where_the_frame_before_ended) {
  DrawString("AB");
  EXPECT_EQ(5500.0, state.entX[0]);
  EXPECT_EQ(7500.0, state.entY[0]);
  // At 5500; 7500 - 500 + 100 - 10000.
  EXPECT_EQ(ToleranceCharacter(700, 5500, -2900, "C") + ToleranceBox(black, 5500, -3000, 6000, -2000),
            Draw("3 STD\n1 C\n"));
}

TEST_F(ToleranceTest, the_direction_and_an_angle_are_ignored) {
  EXPECT_EQ(Straightness(5000) + Box(6500), Draw(frame + "11 0\n21 1\n31 0\n50 90\n1 {\\Fgdt;u}\n"));
}

TEST_F(ToleranceTest, it_does_not_turn_on_a_turned_sheet) {
  state.rotated = 1;
  EXPECT_EQ(Straightness(5000) + Character(6500, "A") + Box(7000), DrawString("{\\Fgdt;u}A"));
}

TEST_F(ToleranceTest, neither_the_inserts_scale_nor_its_angle_counts) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 2.0;
  state.insertAngle = halfPi;
  EXPECT_EQ(Straightness(5000) + Character(6500, "A") + Box(7000), DrawString("{\\Fgdt;u}A"));
}

// The drawing's scale.

TEST_F(ToleranceTest, in_a_scale_of_2_text_gets_narrower_beside_the_symbols) {
  state.drawScale = 2.0;
  // Font 700 / 2, at 5000 / 2 and (7500 + 100) / 2 - 10000. A advances by 500 / 2 model units; the symbol
  // is at 5250: (5250 + 200) / 2, (5250 + 1300) / 2, (7500 + 500) / 2 - 10000. B is at 5250 + 1500.
  // The width: 250 + 1500 + 250 + 300, to (5000 + 2300) / 2, from 7500 / 2 - 10000 to 8500 / 2 - 10000.
  const std::string box = ToleranceBox(black, 2500, -6250, 3650, -5750);
  EXPECT_EQ(ToleranceCharacter(350, 2500, -6200, "A") + Stroke(black, 2725, -6000, 3275, -6000) +
                ToleranceCharacter(350, 3375, -6200, "B") + box + box,
            DrawString("A{\\Fgdt;u}B%%v"));
}

TEST_F(ToleranceTest, in_a_scale_of_2_the_gap_and_a_lead_bytes_share_stay_lengths_of_the_model) {
  state.drawScale = 2.0;
  // The gap of 200: 5200 / 2. The advance: 500 / 2 + 200; A at (5200 + 450) / 2. The width: 450 + 250.
  EXPECT_EQ(ToleranceCharacter(350, 2600, -6200, kanjiListed) + ToleranceCharacter(350, 2825, -6200, "A") +
                ToleranceBox(black, 2500, -6250, 2850, -5750),
            DrawString("%%v" + kanji + "A"));
}

TEST_F(ToleranceTest, the_fonts_height_is_cut) {
  AddDimStyle("ODD", 1.0, 499.5);
  // 999 * 0.7 = 699.3; the row's bottom at 8000 - 499.5, the text 99.9 above it, the top at 8499.5. Half a
  // unit of shift makes that -2500, -2400.1 and -1501. The width is 499.5.
  EXPECT_EQ(ToleranceCharacter(699, 5000, -2400, "A") + ToleranceBox(black, 5000, -2500, 5500, -1501),
            Draw("10 50\n20 80\n3 ODD\n1 A\n"));
}

// Group 3 and group 1040: the row's height.

class ToleranceHeightTest : public ToleranceTest {
 protected:
  ToleranceHeightTest() {
    AddDimStyle("BIG", 2.0, 400.0);
    AddDimStyle("BIG", 3.0, 700.0);
  }

  // The frame of "A" with these groups for its height.
  std::string DrawA(const std::string& height) { return Draw("1 A\n10 50\n20 80\n" + height); }
};

// "A" in a row of this height: from 8000 - height / 2 on, the text a tenth higher.
std::string RowOfA(int height) {
  const int bottom = -2000 - height / 2;
  return ToleranceCharacter(height / 10 * 7, 5000, bottom + height / 10, "A") +
         ToleranceBox(black, 5000, bottom, 5000 + height / 2, bottom + height);
}

TEST_F(ToleranceHeightTest, a_style_gives_twice_its_text_height) {
  EXPECT_EQ(RowOfA(1000), DrawA("3 STD\n"));
}

TEST_F(ToleranceHeightTest, the_first_style_of_a_name_counts_and_its_scale_not_twice) {
  EXPECT_EQ(RowOfA(800), DrawA("3 BIG\n"));
}

TEST_F(ToleranceHeightTest, group_1040_is_twice_its_value_in_the_styles_scale) {
  // 2 * 1.5 * 100 * 2.
  EXPECT_EQ(RowOfA(600), DrawA("3 BIG\n1040 1.5\n"));
}

TEST_F(ToleranceHeightTest, group_1040_in_front_of_the_style_gives_way_to_it) {
  EXPECT_EQ(RowOfA(800), DrawA("1040 1.5\n3 BIG\n"));
}

TEST_F(ToleranceHeightTest, an_unknown_style_changes_nothing) {
  EXPECT_EQ(RowOfA(800), DrawA("3 BIG\n3 GONE\n"));
  EXPECT_EQ(RowOfA(800), DrawA("3 BIG\n3 big\n"));
  EXPECT_EQ(RowOfA(600), DrawA("3 BIG\n3 GONE\n1040 1.5\n"));
}

TEST_F(ToleranceHeightTest, the_last_style_and_the_last_group_1040_count) {
  EXPECT_EQ(RowOfA(1000), DrawA("3 BIG\n3 STD\n"));
  // 2 * 2 * 100 * 2.
  EXPECT_EQ(RowOfA(800), DrawA("3 BIG\n1040 1.5\n1040 2\n"));
  // 2 * 3 * 100 * 1.
  EXPECT_EQ(RowOfA(600), DrawA("3 BIG\n3 STD\n1040 3\n"));
}

TEST_F(ToleranceHeightTest, without_any_height_all_falls_on_its_point_and_has_no_box) {
  const std::string collapsed = ToleranceCharacter(0, 5000, -2000, "A");
  EXPECT_EQ(collapsed, DrawA(""));
  EXPECT_EQ(collapsed, DrawA("3 GONE\n"));
  // No style, no scale.
  EXPECT_EQ(collapsed, DrawA("1040 1.5\n"));
  EXPECT_EQ(ToleranceCharacter(0, 5000, -2000, "A") + Stroke(black, 5000, -2000, 5000, -2000) +
                ToleranceCharacter(0, 5000, -2000, "B"),
            Draw("10 50\n20 80\n1 A{\\Fgdt;u}%%vB%%v\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(ToleranceHeightTest, no_scale_is_kept_from_the_entity_before) {
  DrawA("3 BIG\n1040 1.5\n");
  EXPECT_EQ(ToleranceCharacter(0, 5000, -2000, "A"), DrawA("1040 1.5\n"));
}

TEST_F(ToleranceHeightTest, a_negative_height_hangs_the_row_from_above) {
  // -600: from 8000 + 300 on, the text 60 below, the top 600 below, the width -300. The font is -420 high.
  EXPECT_EQ(ToleranceCharacter(-420, 5000, -1760, "A") + ToleranceBox(black, 5000, -1700, 4700, -2300),
            DrawA("3 BIG\n1040 -1.5\n"));
}

TEST_F(ToleranceHeightTest, a_height_beyond_all_numbers_ends) {
  EXPECT_NE("", Draw("10 50\n20 80\n3 STD\n1040 1e400\n1 A%%v^J{\\Fgdt;e}%%v\n"));
  EXPECT_EQ(1, result);
  EXPECT_NE("", Draw("10 50\n20 80\n3 STD\n1040 1e300\n1 A%%v^J{\\Fgdt;e}%%v\n"));
  EXPECT_EQ(1, result);
}

// Group 8, and colour.

TEST_F(ToleranceTest, its_strokes_take_the_layers_colour_and_its_text_none) {
  EXPECT_EQ(Straightness(5000, red) + Character(6500, "A") + Box(7000, red),
            Draw("8 RED\n" + frame + "1 {\\Fgdt;u}A\n"));
}

TEST_F(ToleranceTest, every_box_takes_the_layers_colour) {
  EXPECT_EQ(Character(5000, "A") + Box(5800, red) + Box(5800, red), Draw("8 RED\n" + frame + "1 A%%v\n"));
}

TEST_F(ToleranceTest, without_a_known_layer_it_is_black) {
  state.entColor = 4;
  EXPECT_EQ(Character(5000, "A") + Box(5500, black), DrawString("A"));
  EXPECT_EQ(Character(5000, "A") + Box(5500, black), Draw("8 GONE\n" + frame + "1 A\n"));
}

TEST_F(ToleranceTest, an_unknown_layer_leaves_the_colour_of_the_one_before) {
  EXPECT_EQ(Character(5000, "A") + Box(5500, red), Draw("8 RED\n8 GONE\n" + frame + "1 A\n"));
  EXPECT_EQ(Character(5000, "A") + Box(5500, blue), Draw("8 RED\n8 BLUE\n" + frame + "1 A\n"));
}

TEST_F(ToleranceTest, a_colour_of_its_own_is_ignored) {
  EXPECT_EQ(Character(5000, "A") + Box(5500, red), Draw("8 RED\n62 5\n" + frame + "1 A\n"));
}

TEST_F(ToleranceTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Straightness(5000) + Box(6500), Draw("8 RED\n" + frame + "1 {\\Fgdt;u}\n"));
  EXPECT_EQ(0, state.entColor);
}

TEST_F(ToleranceTest, an_excluded_layer_ends_it_with_the_group_in_the_buffer) {
  ExcludeLayer("RED");
  EXPECT_EQ("", Draw("8 RED\n" + frame + "1 A\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "RED"));
  ReadGroup(stream);
  EXPECT_EQ(10, state.groupCode);
}

TEST_F(ToleranceTest, an_excluded_layer_behind_the_other_groups_ends_it_too) {
  ExcludeLayer("RED");
  EXPECT_EQ("", Draw(frame + "1 A\n8 RED\n"));
  EXPECT_TRUE(AtGroup(8, "RED"));
  EXPECT_EQ(5000.0, state.entX[0]);
}

TEST_F(ToleranceTest, an_excluded_line_type_does_not_concern_it) {
  ExcludeFamily(0);
  EXPECT_EQ(Straightness(5000) + Box(6500), DrawString("{\\Fgdt;u}"));
}

// The end of the groups.

TEST_F(ToleranceTest, the_next_entitys_group_stays_in_the_buffer) {
  DrawString("A");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(ToleranceTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Character(5000, "A") + Box(5500), DrawText("0 TOLERANCE\n" + frame + "1 A\n"));
  EXPECT_EQ(0, result);
}

TEST_F(ToleranceTest, it_uses_the_places_of_the_section) {
  state.blockX[0] = 1.0;
  state.blockY[0] = 2.0;
  state.blockColor = 4;
  BoundedCopy(state.blockText, "outer");
  Draw("8 RED\n" + frame + "1 A\n");
  EXPECT_EQ(1.0, state.blockX[0]);
  EXPECT_EQ(2.0, state.blockY[0]);
  EXPECT_EQ(4, state.blockColor);
  EXPECT_STREQ("outer", state.blockText);
  EXPECT_STREQ("A", state.entText);
  EXPECT_EQ(1, state.entColor);
}

}  // namespace
}  // namespace hexlume::tolerance_test
