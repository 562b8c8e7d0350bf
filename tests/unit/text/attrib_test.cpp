// ATTRIB in the ENTITIES section.

#include "text/attrib.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "canvas/left_objects.h"
#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/known_metrics.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::attrib_test {
namespace {

// At (3000, 6000 - 10000).
const std::string place = "10 30\n20 60\n";
// 200 high: the cell has 200 * 1.1 = 220, its width is 220 / 2 = 110.
const std::string sized = place + "40 2\n";
const std::string plain = "1 TAG\n" + sized;

struct DrawnText {
  std::string text = "TAG";
  int32_t height = 220, width = 110;
  int32_t escapement = 0;
  COLORREF color = black;
  int32_t x = 3000, y = -4000;
  int32_t handle = 1;
  std::string previous = "SYSTEM_FONT";
};

std::string FontOf(const DrawnText& drawn) {
  char font[160];
  std::snprintf(font, sizeof font,
                "CreateFont(%d, %d, %d, %d, 0, 0, 0, 0, 0, 128, 0, 16, 0, 0, \"\")\nSelectObject(%d)\n",
                static_cast<int>(drawn.handle), static_cast<int>(drawn.height), static_cast<int>(drawn.width),
                static_cast<int>(drawn.escapement), static_cast<int>(drawn.handle));
  return font;
}

// What a drawn text leaves in a metafile.
std::string Listing(const DrawnText& drawn = {}) {
  char color[40];
  std::snprintf(color, sizeof color, "SetTextColor(0x%06X)\n", static_cast<unsigned>(drawn.color));
  return FontOf(drawn) + color + "SetTextAlign(8)\nSetBkMode(TRANSPARENT)\nExtTextOutW(" +
         std::to_string(drawn.x) + ", " + std::to_string(drawn.y) + ", 0, \"" + drawn.text +
         "\")\nSelectObject(" + drawn.previous + ")\nDeleteObject(" + std::to_string(drawn.handle) + ")\n";
}

std::string WithText(const std::string& text) {
  DrawnText drawn;
  drawn.text = text;
  return Listing(drawn);
}
std::string WithFont(int32_t height, int32_t width, int32_t escapement = 0) {
  DrawnText drawn;
  drawn.height = height;
  drawn.width = width;
  drawn.escapement = escapement;
  return Listing(drawn);
}
std::string WithColor(COLORREF color) {
  DrawnText drawn;
  drawn.color = color;
  return Listing(drawn);
}
std::string At(int32_t x, int32_t y, int32_t escapement = 0) {
  DrawnText drawn;
  drawn.x = x;
  drawn.y = y;
  drawn.escapement = escapement;
  return Listing(drawn);
}

class AttribTest : public ConverterTest {
 protected:
  AttribTest() { knownMetrics = {}; }
  ~AttribTest() override { DeleteLeftObjects(); }

  // The listing of one attribute with these groups.
  std::string Draw(const std::string& groups) {
    return DrawStream("0 ATTRIB\n" + groups + "0 CIRCLE\n40 7\n");
  }

  std::string DrawStream(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawAttrib({RunOn(canvas)}); });
  }
};

TEST_F(AttribTest, it_is_one_text_in_a_font_of_its_own) {
  EXPECT_EQ(Listing(), Draw(plain));
}

// Group 1.

TEST_F(AttribTest, a_leading_code_of_four_bytes_is_dropped) {
  EXPECT_EQ(WithText("Tag"), Draw("1 \\A1;Tag\n" + sized));
}

TEST_F(AttribTest, a_longer_leading_code_loses_its_first_four_bytes_alone) {
  EXPECT_EQ(WithText("5;X"), Draw("1 \\H2.5;X\n" + sized));
}

TEST_F(AttribTest, leading_codes_are_dropped_one_after_the_other) {
  EXPECT_EQ(WithText("Tag"), Draw("1 \\A1;\\C3;\\L  Tag\n" + sized));
}

TEST_F(AttribTest, a_leading_code_shorter_than_four_bytes_leaves_an_empty_text) {
  for (const char* code : {"\\A1", "\\A", "\\"})
    EXPECT_EQ(WithText(""), Draw("1 " + (code + ("\n" + sized))));
}

TEST_F(AttribTest, a_short_code_reads_nothing_of_a_longer_value_before_it) {
  // The buffer's bytes after the value's end are still those of the group before.
  EXPECT_EQ(WithText(""), Draw("3 LONGER\n1 \\A\n" + sized));
}

TEST_F(AttribTest, a_leading_code_of_exactly_four_bytes_leaves_an_empty_text) {
  EXPECT_EQ(WithText(""), Draw("1 \\A1;\n" + sized));
}

TEST_F(AttribTest, a_code_behind_the_first_character_stays) {
  EXPECT_EQ(WithText("T\\\\A1;ag"), Draw("1 T\\A1;ag\n" + sized));
}

TEST_F(AttribTest, all_other_codes_are_printed_literally) {
  EXPECT_EQ(WithText("%%d{\\\\fArial|b0;x}\\\\Py%%%%c \\\\S1^ 2; \\\\U+2205"),
            Draw("1 %%d{\\fArial|b0;x}\\Py%%%%c \\S1^ 2; \\U+2205\n" + sized));
}

TEST_F(AttribTest, a_text_that_begins_with_a_trail_byte_5C_loses_nothing) {
  // A full-width katakana so, 83 5C, U+30BD.
  EXPECT_EQ(WithText("\xE3\x82\xBD"
                     "A1;X"),
            Draw("1 \x83\x5C"
                 "A1;X\n" +
                 sized));
}

TEST_F(AttribTest, four_bytes_may_end_within_a_character_whose_trail_byte_begins_the_next_code) {
  // \C1 and 83 go, then 5C 2 3 X.
  EXPECT_EQ(WithText("Y"), Draw("1 \\C1\x83\x5C"
                                "23XY\n" +
                                sized));
}

TEST_F(AttribTest, its_text_is_of_code_page_932) {
  // U+56F3, a half-width katakana a, U+FF71, and A.
  EXPECT_EQ(WithText("\xE5\x9B\xB3\xEF\xBD\xB1"
                     "A"),
            Draw("1 \x90\x7D\xB1"
                 "A\n" +
                 sized));
}

TEST_F(AttribTest, a_text_of_255_bytes_fits) {
  const std::string text = std::string(254, 'x') + "y";
  // The reader's longest value has no room for its line end: the file ends after it.
  const std::string bytes = "0\nATTRIB\n10\n30\n20\n60\n40\n2\n1\n" + text;
  stream.complete = true;
  stream.bytes.assign(bytes.begin(), bytes.end());
  ReadGroup(stream);
  EXPECT_EQ(WithText(text), ListCalls([this](Canvas canvas) { result = DrawAttrib({RunOn(canvas)}); }));
}

TEST_F(AttribTest, of_several_texts_the_last_one_is_drawn) {
  EXPECT_EQ(WithText("NEW"), Draw("1 OLD\n1 NEW\n" + sized));
}

TEST_F(AttribTest, an_empty_text_is_drawn_with_no_characters) {
  EXPECT_EQ(WithText(""), Draw("1 \n" + sized));
}

// What is left of the entity before it.

TEST_F(AttribTest, without_a_text_it_draws_that_of_the_entity_before) {
  std::strcpy(state.entText, "BEFORE");
  EXPECT_EQ(WithText("BEFORE"), Draw(sized));
}

TEST_F(AttribTest, without_a_place_it_stands_where_the_entity_before_stood) {
  state.entX[0] = 3000.0;
  state.entY[0] = 6000.0;
  EXPECT_EQ(Listing(), Draw("1 TAG\n40 2\n"));
}

TEST_F(AttribTest, without_a_colour_it_has_that_of_the_entity_before) {
  state.entColor = 4;
  EXPECT_EQ(WithColor(cyan), Draw(plain));
}

TEST_F(AttribTest, size_and_angle_start_anew) {
  Draw(plain + "50 10\n");
  EXPECT_EQ("", Draw("1 TAG\n" + place));
  EXPECT_EQ(Listing(), Draw(plain));
}

// Group 8 and 62.

TEST_F(AttribTest, its_layer_gives_the_colour) {
  AddLayer("NOTES", {1, 2, 3}, 1);
  EXPECT_EQ(WithColor(red), Draw(plain + "8 NOTES\n"));
}

TEST_F(AttribTest, an_unknown_layer_leaves_the_colour) {
  state.entColor = 3;
  EXPECT_EQ(WithColor(green), Draw(plain + "8 NOTES\n"));
}

TEST_F(AttribTest, an_excluded_layer_ends_it_at_once) {
  ExcludeLayer("NOTES");
  EXPECT_EQ("", Draw("8 NOTES\n" + plain));
  EXPECT_EQ(8, state.groupCode);
  EXPECT_STREQ("NOTES", state.groupValue);
  EXPECT_EQ(1, result);
}

TEST_F(AttribTest, its_own_colour_behind_the_layer_wins) {
  AddLayer("NOTES", {}, 1);
  EXPECT_EQ(WithColor(blue), Draw(plain + "8 NOTES\n62 5\n"));
}

TEST_F(AttribTest, the_layer_behind_its_own_colour_wins) {
  AddLayer("NOTES", {}, 1);
  EXPECT_EQ(WithColor(red), Draw(plain + "62 5\n8 NOTES\n"));
}

TEST_F(AttribTest, colour_numbers_fall_on_the_eight_colours) {
  EXPECT_EQ(WithColor(black), Draw(plain + "62 2\n"));
  EXPECT_EQ(WithColor(black), Draw(plain + "62 0\n"));
  EXPECT_EQ(WithColor(cyan), Draw(plain + "62 130\n"));
  EXPECT_EQ(WithColor(countColor), Draw(plain + "62 -1\n"));
}

TEST_F(AttribTest, an_excluded_line_type_does_not_hide_it) {
  ExcludeFamily(0);
  EXPECT_EQ(Listing(), Draw(plain));
}

// Groups 40 and 41.

TEST_F(AttribTest, its_height_is_cut_before_and_after_the_cells_extra_tenth) {
  // 205.9 is cut to 205; 205 * 1.1 = 225.5, cut to 225; 225 / 2 = 112.
  EXPECT_EQ(WithFont(225, 112), Draw("1 TAG\n" + place + "40 2.059\n"));
}

TEST_F(AttribTest, its_height_is_divided_by_the_scale) {
  state.drawScale = 2.0;
  // 30 * 100 / 2 = 1500, 60 * 100 / 2 - 10000 = -7000; 505 / 2 = 252.5, cut to 252; * 1.1 = 277.2; 277 / 2 =
  // 138.
  DrawnText drawn;
  drawn.height = 277;
  drawn.width = 138;
  drawn.x = 1500;
  drawn.y = -7000;
  EXPECT_EQ(Listing(drawn), Draw("1 TAG\n" + place + "40 5.05\n"));
}

TEST_F(AttribTest, a_negative_height_stays_negative) {
  // -200 * 1.1 = -220, / 2 = -110; -205.9 is cut to -205, -225.5 to -225; / 2 = -112.
  EXPECT_EQ(WithFont(-220, -110), Draw("1 TAG\n" + place + "40 -2\n"));
  EXPECT_EQ(WithFont(-225, -112), Draw("1 TAG\n" + place + "40 -2.059\n"));
}

TEST_F(AttribTest, a_width_factor_multiplies_the_width) {
  // 110 * 0.77 = 84.7.
  EXPECT_EQ(WithFont(220, 84), Draw(plain + "41 0.77\n"));
}

TEST_F(AttribTest, width_factors_multiply_each_other) {
  // 110 * 0.5 = 55, 55 * 0.5 = 27.5.
  EXPECT_EQ(WithFont(220, 27), Draw(plain + "41 0.5\n41 0.5\n"));
}

TEST_F(AttribTest, a_width_factor_in_front_of_the_height_is_undone_by_it) {
  EXPECT_EQ(Listing(), Draw("41 0.5\n" + plain));
}

TEST_F(AttribTest, a_height_of_0_is_not_drawn) {
  EXPECT_EQ("", Draw("1 TAG\n" + place + "40 0\n"));
  EXPECT_EQ("", Draw("1 TAG\n" + place));
}

TEST_F(AttribTest, a_width_of_0_is_drawn) {
  EXPECT_EQ(WithFont(220, 0), Draw(plain + "41 0\n"));
  // 1 * 1.1 is cut to 1, and 1 / 2 to 0.
  EXPECT_EQ(WithFont(1, 0), Draw("1 TAG\n" + place + "40 0.01\n"));
}

TEST_F(AttribTest, absurd_sizes_are_the_smallest_number_and_are_drawn) {
  // The height is INT32_MIN, times 1.1 is out of range too; INT32_MIN / 2.
  EXPECT_EQ(WithFont(INT32_MIN, INT32_MIN / 2), Draw("1 TAG\n" + place + "40 1E300\n"));
  EXPECT_EQ(WithFont(220, INT32_MIN), Draw(plain + "41 1E300\n"));
}

// Group 50.

TEST_F(AttribTest, its_angle_is_counted_backward_from_a_full_turn) {
  // 3600 - 300.
  EXPECT_EQ(WithFont(220, 110, 3300), Draw(plain + "50 30\n"));
}

TEST_F(AttribTest, an_angle_of_0_is_a_full_turn_and_no_angle_is_none) {
  EXPECT_EQ(WithFont(220, 110, 3600), Draw(plain + "50 0\n"));
  EXPECT_EQ(WithFont(220, 110, 0), Draw(plain));
}

TEST_F(AttribTest, an_angle_is_cut_to_tenths_of_a_degree) {
  // 3600 - 303 and 3600 + 303.
  EXPECT_EQ(WithFont(220, 110, 3297), Draw(plain + "50 30.39\n"));
  EXPECT_EQ(WithFont(220, 110, 3903), Draw(plain + "50 -30.39\n"));
}

TEST_F(AttribTest, an_absurd_angle_wraps_around) {
  // 3600 - INT32_MIN = 3600 + 2147483648, less 2^32.
  EXPECT_EQ(WithFont(220, 110, INT32_MIN + 3600), Draw(plain + "50 1E300\n"));
}

// Group 71.

TEST_F(AttribTest, an_upside_down_text_is_turned_by_half_a_turn_and_moved_left_by_its_width) {
  // 3600 - 900 + 1800; 3 * 110 = 330 to the left.
  EXPECT_EQ(At(2670, -4000, 4500), Draw(plain + "50 90\n71 4\n"));
}

TEST_F(AttribTest, an_upside_down_text_without_an_angle_is_turned_too) {
  EXPECT_EQ(At(2670, -4000, 1800), Draw(plain + "71 4\n"));
}

TEST_F(AttribTest, its_width_counts_bytes) {
  // A double-byte character has two: 2 * 110 = 220.
  DrawnText drawn;
  drawn.text = "\xE5\x9B\xB3";
  drawn.x = 2780;
  drawn.escapement = 1800;
  EXPECT_EQ(Listing(drawn), Draw("1 \x90\x7D\n" + sized + "71 4\n"));
}

TEST_F(AttribTest, on_a_scaled_sheet_it_moves_by_its_width_on_the_sheet) {
  state.drawScale = 2.0;
  // 400 / 2 = 200, the cell as ever; 1500 - 330.
  EXPECT_EQ(At(1170, -7000, 1800), Draw("1 TAG\n" + place + "40 4\n71 4\n"));
  EXPECT_EQ(3000.0 - 660.0, state.entX[0]);
}

TEST_F(AttribTest, other_flags_of_group_71_change_nothing) {
  for (const char* flags : {"0", "2", "6", "5", "-4", "40"})
    EXPECT_EQ(Listing(), Draw(plain + "71 " + flags + "\n")) << flags;
}

TEST_F(AttribTest, a_flag_in_front_of_the_text_moves_by_the_text_of_the_entity_before) {
  std::strcpy(state.entText, "FIVE5");
  // 5 * 110 = 550.
  EXPECT_EQ(At(2450, -4000, 1800), Draw(sized + "71 4\n1 TAG\n"));
}

TEST_F(AttribTest, a_flag_in_front_of_the_height_moves_by_0) {
  EXPECT_EQ(At(3000, -4000, 1800), Draw("1 TAG\n" + place + "71 4\n40 2\n"));
}

TEST_F(AttribTest, a_flag_in_front_of_the_width_factor_moves_by_the_plain_width) {
  DrawnText drawn;
  drawn.x = 2670;
  drawn.width = 55;
  drawn.escapement = 1800;
  EXPECT_EQ(Listing(drawn), Draw(plain + "71 4\n41 0.5\n"));
}

TEST_F(AttribTest, a_flag_in_front_of_the_place_does_not_move_it) {
  EXPECT_EQ(At(3000, -4000, 1800), Draw("1 TAG\n40 2\n71 4\n" + place));
}

TEST_F(AttribTest, a_flag_in_front_of_the_angle_moves_but_does_not_turn) {
  EXPECT_EQ(At(2670, -4000, 3600), Draw(plain + "71 4\n50 0\n"));
}

TEST_F(AttribTest, two_flags_move_twice_and_turn_a_whole_turn) {
  EXPECT_EQ(At(2340, -4000, 3600), Draw(plain + "71 4\n71 4\n"));
}

TEST_F(AttribTest, a_negative_width_counts_as_unsigned_and_takes_it_out_of_the_view) {
  // 3 * -110 = -330, which is 2^32 - 330.
  EXPECT_EQ("", Draw(plain + "41 -1\n71 4\n"));
  EXPECT_EQ(3000.0 - 4294966966.0, state.entX[0]);
}

TEST_F(AttribTest, an_absurd_width_wraps_around) {
  // 3 * INT32_MIN = -3 * 2^31, which is 2^31 in 32 bits.
  Draw(plain + "41 1E300\n71 4\n");
  EXPECT_EQ(3000.0 - 2147483648.0, state.entX[0]);
}

// Groups that it doesn't look at.

TEST_F(AttribTest, other_groups_are_passed_over) {
  EXPECT_EQ(Listing(),
            Draw(plain + "2 T\n3 PROMPT\n7 STYLE\n6 DASHED\n11 50\n21 70\n30 4\n39 500\n51 15\n70 1\n"
                         "72 4\n73 2\n74 3\n100 AcDbText\n210 0\n"));
  EXPECT_EQ(0.0, state.entX[1]);
  EXPECT_EQ(0.0, state.entY[1]);
}

TEST_F(AttribTest, it_reads_up_to_the_next_entity) {
  Draw(plain);
  EXPECT_EQ(1, result);
  EXPECT_EQ(0, state.groupCode);
  EXPECT_STREQ("CIRCLE", state.groupValue);
}

TEST_F(AttribTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Listing(), DrawStream("0 ATTRIB\n" + plain));
  EXPECT_EQ(0, result);
}

// The view.

TEST_F(AttribTest, on_the_edges_of_the_view_it_is_drawn) {
  view = {3000, 0, 20000, 4000};
  EXPECT_EQ(Listing(), Draw(plain));
  view = {0, 4000, 3000, 10000};
  EXPECT_EQ(Listing(), Draw(plain));
}

TEST_F(AttribTest, with_its_place_outside_the_view_it_is_dropped) {
  view = {3001, 0, 20000, 10000};
  EXPECT_EQ("", Draw(plain));
  view = {0, 0, 2999, 10000};
  EXPECT_EQ("", Draw(plain));
  view = {0, 4001, 20000, 10000};
  EXPECT_EQ("", Draw(plain));
  view = {0, 0, 20000, 3999};
  EXPECT_EQ("", Draw(plain));
  EXPECT_EQ(1, result);
  EXPECT_STREQ("CIRCLE", state.groupValue);
}

TEST_F(AttribTest, an_upside_down_text_is_looked_for_where_it_was_moved_to) {
  view = {2670, 0, 2670, 10000};
  EXPECT_EQ(At(2670, -4000, 1800), Draw(plain + "71 4\n"));
}

TEST_F(AttribTest, its_place_is_moved_by_origin_and_shift) {
  state.originX = 1000.0;
  state.originY = 2000.0;
  state.shiftX = 10.0;
  state.shiftY = 20.0;
  // 3000 - 1000 + 10; 6000 - 2000 - 10000 + 20.
  EXPECT_EQ(At(2010, -5980), Draw(plain));
}

// Texts that must be in the view as a whole.

TEST_F(AttribTest, a_text_that_reaches_above_the_view_is_dropped) {
  // Its top is at -4000 + 220 = -3780.
  wholeTextClip = 1;
  view.top = 3780;
  EXPECT_EQ(Listing(), Draw(plain));
  view.top = 3781;
  EXPECT_EQ("", Draw(plain));
  wholeTextClip = 2;
  EXPECT_EQ("", Draw(plain));
  wholeTextClip = 0;
  EXPECT_EQ(Listing(), Draw(plain));
}

TEST_F(AttribTest, a_text_that_reaches_beyond_the_right_edge_leaves_its_font) {
  // 3000 + 3 * 70 = 3210.
  knownMetrics.aveCharWidth = 70;
  wholeTextClip = 1;
  view.right = 3210;
  EXPECT_EQ(Listing(), Draw(plain));
  view.right = 3209;
  EXPECT_EQ(FontOf({}), Draw(plain));
  EXPECT_EQ(1, result);
  EXPECT_STREQ("CIRCLE", state.groupValue);
}

TEST_F(AttribTest, its_measured_width_counts_bytes) {
  // 3000 + 2 * 70.
  knownMetrics.aveCharWidth = 70;
  wholeTextClip = 1;
  view.right = 3139;
  EXPECT_EQ(FontOf({}), Draw("1 \x90\x7D\n" + sized));
}

TEST_F(AttribTest, the_text_behind_a_left_font_puts_it_back) {
  knownMetrics.aveCharWidth = 70;
  view.right = 3209;
  stream = StreamOf("0 ATTRIB\n" + plain + "0 ATTRIB\n" + plain);
  ReadGroup(stream);
  DrawnText second;
  second.handle = 2;
  second.previous = "1";
  EXPECT_EQ(FontOf({}) + Listing(second), ListCalls([this](Canvas canvas) {
              wholeTextClip = 1;
              DrawAttrib({RunOn(canvas)});
              wholeTextClip = 0;
              DrawAttrib({RunOn(canvas)});
            }));
}

TEST_F(AttribTest, only_the_clip_of_1_measures_the_font) {
  knownMetrics.aveCharWidth = 1000000;
  for (const int32_t clip : {0, 2, -1}) {
    wholeTextClip = clip;
    EXPECT_EQ(Listing(), Draw(plain)) << clip;
  }
  EXPECT_EQ(0, knownMetrics.calls);
  wholeTextClip = 1;
  EXPECT_EQ(FontOf({}), Draw(plain));
  EXPECT_EQ(1, knownMetrics.calls);
}

TEST_F(AttribTest, a_descent_does_not_move_it) {
  knownMetrics.descent = 50;
  wholeTextClip = 1;
  EXPECT_EQ(Listing(), Draw(plain));
}

TEST_F(AttribTest, an_absurd_measured_width_wraps_around) {
  // 3000 + 3 * 2^30 is -1073738824 in 32 bits, and not beyond the edge.
  knownMetrics.aveCharWidth = 1 << 30;
  wholeTextClip = 1;
  EXPECT_EQ(Listing(), Draw(plain));
}

// Black drawings and turned sheets.

TEST_F(AttribTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(WithColor(black), Draw(plain + "62 1\n"));
  EXPECT_EQ(0, state.entColor);
}

TEST_F(AttribTest, outside_the_view_it_keeps_its_colour_even_in_monochrome) {
  state.monochrome = 1;
  view = {0, 0, 10, 10};
  Draw(plain + "62 1\n");
  EXPECT_EQ(1, state.entColor);
}

TEST_F(AttribTest, on_a_turned_sheet_its_place_and_its_angle_are_turned) {
  state.rotated = 1;
  // 2 * 10000 - 3000, -2 * 5000 + 4000; 3600 - 300 - 1800.
  EXPECT_EQ(At(17000, -6000, 1500), Draw(plain + "50 30\n"));
}

TEST_F(AttribTest, on_a_turned_sheet_a_text_without_an_angle_has_a_negative_one) {
  state.rotated = 1;
  EXPECT_EQ(At(17000, -6000, -1800), Draw(plain));
}

TEST_F(AttribTest, an_upside_down_text_on_a_turned_sheet_stands_upright) {
  state.rotated = 1;
  // 20000 - 2670; 1800 - 1800.
  EXPECT_EQ(At(17330, -6000, 0), Draw(plain + "71 4\n"));
}

TEST_F(AttribTest, the_view_is_that_of_the_sheet_before_its_turn) {
  state.rotated = 1;
  view = {3000, 4000, 3000, 4000};
  EXPECT_EQ(At(17000, -6000, -1800), Draw(plain));
}

TEST_F(AttribTest, on_a_turned_sheet_too_it_must_not_reach_beyond_the_right_edge_before_the_turn) {
  state.rotated = 1;
  knownMetrics.aveCharWidth = 70;
  wholeTextClip = 1;
  view.right = 3210;
  EXPECT_EQ(At(17000, -6000, -1800), Draw(plain));
}

}  // namespace
}  // namespace hexlume::attrib_test
