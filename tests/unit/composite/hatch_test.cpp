// HATCH in the ENTITIES section: its name, layer and colour, and what it draws.

#include "composite/hatch.h"

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/shape_text.h"
#include "support/text_groups.h"

namespace hexlume::hatch_test {
namespace {

class HatchTest : public ConverterTest {
 protected:
  HatchTest() {
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {1, 4, 3}, 5);
  }

  // The listing of one hatch with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 HATCH\n" + groups + "0 CIRCLE\n"); }

  std::string DrawText(const std::string& text) {
    stream = StreamOf(text);
    ReadGroup(stream);
    return ListCalls([this](Canvas canvas) { result = DrawHatch({RunOn(canvas)}); });
  }
};

// A rectangle from (10, 80) to (30, 90), and its region: 100 x, 100 y - 10000.
const std::string rectangle =
    "92 2\n72 0\n73 1\n93 4\n10 10\n20 80\n10 30\n20 80\n10 30\n20 90\n10 10\n20 90\n97 0\n";
const char region[] = "1000, -2000, 3000, -1000, 1, -2000..-1000:1000..3000";
// On a device of 1024 points on 27100 units and 768 on 20300: 37.79 and 113.36, 37.83 and 75.67.
const char deviceRegion[] = "38, 38, 113, 76, 1, 38..76:38..113";

std::string InTools(COLORREF color, const std::string& calls) {
  return "CreatePen(1, PS_SOLID, 0, " + HexOf(color) +
         ")\nSelectObject(1)\nCreateBrushIndirect(2, BS_SOLID, " + HexOf(color) + ", 0)\nSelectObject(2)\n" +
         calls + "SelectObject(BLACK_PEN)\nSelectObject(WHITE_BRUSH)\nDeleteObject(1)\nDeleteObject(2)\n";
}

std::string Filled(COLORREF color, const std::string& filled = region) {
  return InTools(color,
                 "CreateBrushIndirect(3, BS_SOLID, " + HexOf(color) + ", 0)\nFillRgn(3, " + filled + ")\n");
}

// Without any lines.
std::string Clipped(COLORREF color, const std::string& clip = deviceRegion) {
  return InTools(color, "ExtSelectClipRgn(RGN_AND, " + clip +
                            ")\nExtSelectClipRgn(RGN_COPY)\nSetMapMode(MM_HIMETRIC)\n");
}

const std::string solid = "2 SOLID\n" + rectangle + "75 0\n";
const std::string pattern = "2 ANSI31\n" + rectangle + "75 0\n76 1\n52 0\n41 1\n77 0\n78 0\n98 0\n";
const char nothing[] = "0, 0, 0, 0, 0";

// The pattern's name.

TEST_F(HatchTest, a_solid_one_is_filled) {
  EXPECT_EQ(Filled(black), Draw(solid));
}

TEST_F(HatchTest, a_pattern_has_its_boundary_as_the_clip_region_meanwhile) {
  EXPECT_EQ(Clipped(black), Draw(pattern));
}

TEST_F(HatchTest, the_pattern_name_solid_in_lower_case_is_a_pattern_and_not_a_fill) {
  for (const char* name : {"solid", "Solid", "SOLID ", "SOLI", ""})
    EXPECT_EQ(Clipped(black), Draw("2 " + std::string(name) + "\n" + rectangle + "75 0\n98 0\n")) << name;
}

TEST_F(HatchTest, its_first_name_counts) {
  EXPECT_EQ(Filled(black), Draw("2 SOLID\n2 ANSI31\n" + rectangle + "75 0\n"));
  EXPECT_EQ(Clipped(black), Draw("2 ANSI31\n2 SOLID\n" + rectangle + "75 0\n98 0\n"));
}

TEST_F(HatchTest, what_stands_before_the_name_is_ignored) {
  EXPECT_EQ(Filled(black), Draw("100 AcDbHatch\n10 99\n20 99\n30 5\n210 0\n220 0\n230 1\n70 0\n71 1\n91 9\n"
                                "42 1\n72 2\n75 1\n97 0\n6 DASHED\n" +
                                solid));
}

TEST_F(HatchTest, another_entitys_start_does_not_end_the_search_for_the_name) {
  EXPECT_EQ(Filled(red), Draw("0 LINE\n8 WALLS\n10 1\n20 2\n0 HATCH\n" + solid));
}

TEST_F(HatchTest, a_file_that_ends_before_the_name_draws_nothing) {
  EXPECT_EQ("", DrawText("0 HATCH\n8 WALLS\n62 1\n"));
  EXPECT_EQ(0, result);
}

// Layer and colour.

TEST_F(HatchTest, its_colour_is_that_of_its_layer) {
  EXPECT_EQ(Filled(blue), Draw("8 DOORS\n" + solid));
  EXPECT_EQ(Clipped(blue), Draw("8 DOORS\n" + pattern));
}

TEST_F(HatchTest, the_first_layer_of_that_name_counts) {
  AddLayer("WALLS", {}, 3);
  EXPECT_EQ(Filled(red), Draw("8 WALLS\n" + solid));
}

TEST_F(HatchTest, without_a_known_layer_and_a_colour_it_is_black) {
  state.entColor = 4;
  EXPECT_EQ(Filled(black), Draw(solid));
  state.entColor = 4;
  EXPECT_EQ(Filled(black), Draw("8 GONE\n" + solid));
}

TEST_F(HatchTest, an_unknown_layer_keeps_the_colour) {
  EXPECT_EQ(Filled(green), Draw("62 3\n8 GONE\n" + solid));
}

TEST_F(HatchTest, a_colour_behind_the_layer_overrides_it_and_the_other_way_round) {
  EXPECT_EQ(Filled(green), Draw("8 DOORS\n62 3\n" + solid));
  EXPECT_EQ(Filled(blue), Draw("62 3\n8 DOORS\n" + solid));
}

TEST_F(HatchTest, its_colour_is_mapped) {
  EXPECT_EQ(Filled(cyan), Draw("62 130\n" + solid));
  EXPECT_EQ(Filled(black), Draw("62 2\n" + solid));
  EXPECT_EQ(Filled(black), Draw("8 DOORS\n62 256\n" + solid));
  EXPECT_EQ(Filled(black), Draw("8 DOORS\n62 0\n" + solid));
}

TEST_F(HatchTest, a_negative_colour_is_no_crash) {
  EXPECT_EQ(Filled(countColor), Draw("62 -1\n" + solid));
  EXPECT_EQ(Filled(black), Draw("62 -5\n" + solid));
}

TEST_F(HatchTest, layer_and_colour_behind_the_name_are_ignored) {
  EXPECT_EQ(Filled(red), Draw("8 WALLS\n2 SOLID\n8 DOORS\n62 3\n" + rectangle + "75 0\n"));
}

TEST_F(HatchTest, a_hatch_on_an_excluded_layer_draws_nothing_if_group_8_comes_before_group_2) {
  ExcludeLayer("WALLS");
  EXPECT_EQ("", Draw("8 WALLS\n" + solid));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
  EXPECT_EQ("", Draw("8 WALLS\n" + pattern));
  EXPECT_EQ(Filled(black), Draw("2 SOLID\n8 WALLS\n" + rectangle + "75 0\n"));
  EXPECT_EQ(Filled(blue), Draw("8 DOORS\n" + solid));
}

TEST_F(HatchTest, a_layer_is_excluded_by_its_exact_name) {
  ExcludeLayer("walls");
  EXPECT_EQ(Filled(red), Draw("8 WALLS\n" + solid));
}

TEST_F(HatchTest, an_excluded_family_does_not_matter) {
  ExcludeFamily(0);
  ExcludeFamily(1);
  EXPECT_EQ(Filled(blue), Draw("8 DOORS\n" + solid));
}

TEST_F(HatchTest, with_monochrome_on_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Filled(black), Draw("8 WALLS\n" + solid));
  EXPECT_EQ(Clipped(black), Draw("62 1\n" + pattern));
  EXPECT_EQ(0, state.entColor);
}

// What is filled.

std::string Square(int x, int y) {
  const std::string left = "10 " + std::to_string(x) + "\n";
  const std::string right = "10 " + std::to_string(x + 20) + "\n";
  const std::string low = "20 " + std::to_string(y) + "\n";
  const std::string high = "20 " + std::to_string(y + 20) + "\n";
  return "92 2\n72 0\n73 1\n93 4\n" + left + low + right + low + right + high + left + high + "97 0\n";
}

// From (1000, -9000) to (3000, -7000) and from (2000, -8000) to (4000, -6000).
const std::string overlapping = "2 SOLID\n91 2\n" + Square(10, 10) + Square(20, 20);

TEST_F(HatchTest, a_hatch_with_group_75_of_1_and_two_overlapping_rectangles_fills_the_two_lobes) {
  const std::string lobes =
      "1000, -9000, 4000, -6000, 4, -9000..-8000:1000..3000, -8000..-7000:1000..2000 3000..4000, "
      "-7000..-6000:2000..4000";
  EXPECT_EQ(Filled(black, lobes), Draw(overlapping + "75 1\n"));
}

TEST_F(HatchTest, with_group_75_of_0_the_same_holds) {
  EXPECT_EQ(Draw(overlapping + "75 1\n"), Draw(overlapping + "75 0\n"));
}

TEST_F(HatchTest, with_group_75_of_2_the_union_is_filled) {
  const std::string both =
      "1000, -9000, 4000, -6000, 3, -9000..-8000:1000..3000, -8000..-7000:1000..4000, "
      "-7000..-6000:2000..4000";
  EXPECT_EQ(Filled(black, both), Draw(overlapping + "75 2\n"));
}

TEST_F(HatchTest, without_group_75_nothing_is_filled) {
  EXPECT_EQ(Filled(black, nothing), Draw("2 SOLID\n" + rectangle));
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  EXPECT_EQ(1, result);
  EXPECT_EQ(Filled(black, nothing), Draw("2 SOLID\n" + rectangle + "75 3\n"));
}

TEST_F(HatchTest, without_a_path_nothing_is_filled) {
  EXPECT_EQ(Filled(black, nothing), Draw("2 SOLID\n91 0\n75 0\n"));
  EXPECT_EQ(Filled(black, nothing), Draw("2 SOLID\n91 0\n75 1\n"));
}

TEST_F(HatchTest, without_a_path_a_pattern_is_clipped_to_nothing) {
  EXPECT_EQ(Clipped(black, nothing), Draw("2 ANSI31\n91 0\n75 0\n98 0\n"));
}

TEST_F(HatchTest, four_line_edges_fill_a_rectangle) {
  EXPECT_EQ(Filled(black), Draw("2 SOLID\n91 1\n92 1\n93 4\n72 1\n10 10\n20 80\n11 30\n21 80\n"
                                "72 1\n10 30\n20 80\n11 30\n21 90\n72 1\n10 30\n20 90\n11 10\n21 90\n"
                                "72 1\n10 10\n20 90\n11 10\n21 80\n97 0\n75 1\n"));
}

TEST_F(HatchTest, it_stays_where_it_is_on_a_turned_sheet) {
  state.rotated = 1;
  EXPECT_EQ(Filled(black), Draw(solid));
  EXPECT_EQ(Clipped(black), Draw(pattern));
}

// The end of the groups.

TEST_F(HatchTest, a_solid_one_stops_at_group_75) {
  Draw(solid + "76 1\n98 1\n");
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(75, "0"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(76, "1"));
}

TEST_F(HatchTest, a_solid_one_cut_off_by_the_end_of_the_file_has_no_style) {
  EXPECT_EQ(Filled(black, nothing), DrawText("0 HATCH\n2 SOLID\n" + rectangle));
  EXPECT_EQ(0, result);
}

TEST_F(HatchTest, a_pattern_without_group_98_runs_to_the_end_of_the_file) {
  EXPECT_EQ(Clipped(black), DrawText("0 HATCH\n2 ANSI31\n" + rectangle + "75 0\n78 0\n0 LINE\n"));
  EXPECT_EQ(0, result);
}

TEST_F(HatchTest, a_pattern_is_read_up_to_group_98) {
  EXPECT_EQ(Clipped(black), Draw(pattern + "10 1\n20 1\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(98, "0"));
}

TEST_F(HatchTest, a_pattern_without_a_style_takes_the_next_entity_for_its_lines) {
  EXPECT_EQ(Clipped(black, nothing),
            DrawText("0 HATCH\n2 ANSI31\n" + rectangle + "0 LINE\n98 0\n0 CIRCLE\n"));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(98, "0"));
}

}  // namespace
}  // namespace hexlume::hatch_test
