// How the definition of a hatch's pattern is read, and what its families share.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "composite/hatch_families.h"
#include "composite/hatch_lines.h"
#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::hatch_lines_test {
namespace {

class HatchLinesTest : public ConverterTest {
 protected:
  // The listing of a pattern's groups over an extent of 1000 x 600 units.
  std::string Fill(const std::string& groups) {
    stream = StreamOf(groups);
    return ListCalls([this](Canvas canvas) { FillHatchLines(stream, canvas, {{0, -400, 1000, -1000}, 5}); });
  }
};

std::string Line(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  return "MoveToEx(" + std::to_string(x1) + ", " + std::to_string(y1) + ")\nLineTo(" + std::to_string(x2) +
         ", " + std::to_string(y2) + ")\n";
}

// The first calls of a listing, as many as these.
std::string Head(const std::string& listing, const std::string& calls) {
  return listing.substr(0, calls.size());
}

// A family whose rows are so far apart that only the first one meets the extent: 90 mm to the right and down.
std::string OneRow(const std::string& angle, const std::string& dashes,
                   const std::string& base = "43 0\n44 0\n") {
  return "53 " + angle + "\n" + base + "45 90\n46 -90\n" + dashes;
}

const std::string endOfPattern = "98 1\n10 0\n20 0\n0 LINE\n";

// What the line along 45 degrees gives: the second pass starts at -1000 + 9000 + 8999 = 16999 with a limit of
// 400 - 16999 = -16599: 0 - 16599.
const std::string lineAt45 = Line(0, -1000, 1000, -1) + Line(0, 16999, -16599, 400);

// Angles

TEST_F(HatchLinesTest, a_thousandth_of_a_degree_is_made_up_for) {
  EXPECT_EQ(Fill(OneRow("45", "79 0\n") + endOfPattern), lineAt45);
  EXPECT_EQ(Fill(OneRow("44.9995", "79 0\n") + endOfPattern), lineAt45);
}

TEST_F(HatchLinesTest, other_fractions_of_a_degree_are_dropped) {
  EXPECT_EQ(Fill(OneRow("45.9", "79 0\n") + endOfPattern), lineAt45);
  // tan(44) = 0.965689: 1000 rises by 965.
  const std::string at44 = Line(0, -1000, 1000, -35);
  EXPECT_EQ(Head(Fill(OneRow("44.998", "79 0\n") + endOfPattern), at44), at44);
}

TEST_F(HatchLinesTest, dashes_at_360_degrees_arent_drawn_but_lines_are) {
  EXPECT_EQ(Fill("53 360\n43 0\n44 0\n45 0\n46 2\n79 2\n49 3\n49 -2\n" + endOfPattern), "");
  EXPECT_EQ(Fill("53 360\n43 0\n44 0\n45 0\n46 4\n79 0\n" + endOfPattern),
            Fill("53 180\n43 0\n44 0\n45 0\n46 4\n79 0\n" + endOfPattern));
}

// The groups

TEST_F(HatchLinesTest, a_family_without_dashes_is_drawn_at_its_group_79) {
  // No group 98 follows.
  EXPECT_EQ(Fill(OneRow("45", "79 0\n")), lineAt45);
}

TEST_F(HatchLinesTest, a_family_of_dashes_is_drawn_at_its_last_dash) {
  const std::string dashes =
      Line(0, -1000, 300, -1000) + Line(500, -1000, 800, -1000) + Line(1000, -1000, 1300, -1000);
  // The next row rises above the top; the second pass starts below the bottom, at -1900, and ends there.
  const std::string family = "53 0\n43 0\n44 0\n45 0\n46 9\n79 2\n49 3\n";
  EXPECT_EQ(Fill(family), "");
  EXPECT_EQ(Fill(family + "49 -2\n"), dashes + Line(0, -1900, 300, -1900) + Line(500, -1900, 800, -1900) +
                                          Line(1000, -1900, 1300, -1900));
}

TEST_F(HatchLinesTest, the_base_counts_from_the_extents_lower_left_corner) {
  // (200, -1000 + 100): the start slides back to -900 - trunc(199.99999998).
  const std::string line = Line(0, -1099, 1000, -100);
  EXPECT_EQ(Head(Fill(OneRow("45", "79 0\n", "43 2\n44 1\n")), line), line);
}

TEST_F(HatchLinesTest, the_base_is_truncated_as_a_sum) {
  // -1000 + 0.5 = -999.5 becomes -999. At X 0.5 is 0.
  const std::string line = Line(0, -999, 1000, 0);
  EXPECT_EQ(Head(Fill(OneRow("45", "79 0\n", "43 0.005\n44 0.005\n")), line), line);
}

TEST_F(HatchLinesTest, lengths_are_scaled_as_the_drawing_is) {
  state.drawScale = 2.0;
  // The base (100, -900), dashes of 150 and gaps of 100, rows 450 apart; rewound to -150. The second pass
  // starts at (100, -1350), not rewound.
  const auto rowFrom100 = [](int32_t y) {
    return Line(100, y, 250, y) + Line(350, y, 500, y) + Line(600, y, 750, y) + Line(850, y, 1000, y);
  };
  EXPECT_EQ(Fill("53 0\n43 2\n44 2\n45 0\n46 9\n79 2\n49 3\n49 -2\n"),
            Line(-150, -900, 0, -900) + rowFrom100(-900) + Line(-150, -450, 0, -450) + rowFrom100(-450) +
                rowFrom100(-1350));
}

TEST_F(HatchLinesTest, other_groups_dont_count) {
  EXPECT_EQ(Fill("76 1\n52 30\n41 7\n77 1\n78 1\n" + OneRow("45", "79 0\n")), lineAt45);
}

TEST_F(HatchLinesTest, only_group_98_ends_the_pattern) {
  EXPECT_EQ(Fill("0 LINE\n8 0\n" + OneRow("45", "79 0\n") + "98 0\n" + OneRow("45", "79 0\n")), lineAt45);
  EXPECT_EQ(state.groupCode, 98);
  ReadGroup(stream);
  EXPECT_EQ(state.groupCode, 53);
}

TEST_F(HatchLinesTest, a_pattern_without_families_draws_nothing) {
  EXPECT_EQ(Fill("78 0\n" + endOfPattern), "");
  EXPECT_EQ(Fill(""), "");
}

TEST_F(HatchLinesTest, several_families_are_drawn_in_their_order) {
  // Upright: X = 0, 9000 is beyond; the second pass starts at -9000.
  const std::string upright = "53 90\n43 0\n44 0\n45 90\n46 0\n79 0\n";
  EXPECT_EQ(Fill(OneRow("45", "79 0\n") + upright + endOfPattern),
            lineAt45 + Line(0, -1000, 0, 400) + Line(-9000, -1000, -9000, 400));
}

TEST_F(HatchLinesTest, a_family_keeps_what_it_doesnt_tell_from_the_one_before) {
  EXPECT_EQ(Fill(OneRow("45", "79 0\n") + "79 0\n"), lineAt45 + lineAt45);
}

TEST_F(HatchLinesTest, an_angle_starts_a_new_list_of_dashes) {
  const std::string head = "43 0\n44 0\n45 0\n46 9\n";
  const std::string family = "53 0\n" + head + "79 2\n49 3\n49 -2\n";
  // One dash is given before the angle, which forgets it.
  EXPECT_EQ(Fill("53 0\n79 2\n49 3\n" + family), Fill(family));
  // Without an angle the dashes follow those before: of four the first two are known already.
  EXPECT_EQ(Fill(family + "79 4\n49 1\n49 -1\n").size() - Fill(family).size(),
            Fill("53 0\n" + head + "79 4\n49 3\n49 -2\n49 1\n49 -1\n").size());
}

TEST_F(HatchLinesTest, a_dash_too_many_isnt_drawn) {
  const std::string family = "53 0\n43 0\n44 0\n45 0\n46 9\n79 2\n49 3\n49 -2\n";
  EXPECT_EQ(Fill(family + "49 1\n"), Fill(family));
}

TEST_F(HatchLinesTest, a_dash_in_front_of_the_count_counts) {
  const std::string head = "53 0\n43 0\n44 0\n45 0\n46 9\n";
  EXPECT_EQ(Fill(head + "49 3\n79 2\n49 -2\n"), Fill(head + "79 2\n49 3\n49 -2\n"));
}

TEST_F(HatchLinesTest, a_negative_count_draws_nothing) {
  EXPECT_EQ(Fill("53 0\n43 0\n44 0\n45 0\n46 9\n79 -1\n49 3\n49 -2\n"), "");
}

TEST_F(HatchLinesTest, a_dot_has_a_diameter_of_40_at_any_scale) {
  // The record is smaller by one at the right and the top.
  const std::string dots = "53 0\n43 0\n44 0\n45 0\n46 50\n79 2\n49 0\n49 -11\n";
  const std::string dot = "Ellipse(-20, -1020, 19, -981)\n";
  EXPECT_EQ(Head(Fill(dots), dot), dot);
  state.drawScale = 0.5;
  EXPECT_EQ(Head(Fill(dots), dot), dot);
}

// The period

// Dashes of 2 mm and gaps of 1 mm at 45 degrees, rows 0.6 to the right and 1.5 down.
const std::string slantedDashes = "53 45\n43 0\n44 0\n45 0.6\n46 -1.5\n79 2\n49 2\n49 -1\n";

TEST_F(HatchLinesTest, a_familys_period_holds_the_dashes_of_those_in_front) {
  // By itself the third row of the first pass, at (120, -1300), is skipped forward by 211, as it is below
  // -1000 - 0.7071 * 300 = -1212.1. After a family of the period 300 its bound is -1000 - 424.3.
  EXPECT_NE(Fill(slantedDashes).find("MoveToEx(331, -1089)\n"), std::string::npos);
  EXPECT_EQ(Fill(slantedDashes).find("MoveToEx(120, -1300)\n"), std::string::npos);
  const std::string empty = "53 360\n79 2\n49 2\n49 -1\n";
  EXPECT_NE(Fill(empty + slantedDashes).find("MoveToEx(120, -1300)\n"), std::string::npos);
}

TEST_F(HatchLinesTest, the_period_holds_the_dashes_without_their_fractions) {
  // The second row is at (60, -1353). After dashes of 2 * 99.9 the period is 2 * 99 + 300: the row is
  // below -1000 - 0.7071 * 498 = -1352.1 and is skipped by 211. After 2 * 100 its bound is -1353.6.
  const std::string row = "53 45\n43 0\n44 0\n45 0.6\n46 -3.53\n79 2\n49 2\n49 -1\n";
  const std::string whole = "53 360\n79 2\n49 1\n49 -1\n";
  const std::string broken = "53 360\n79 2\n49 0.999\n49 -0.999\n";
  EXPECT_NE(Fill(whole + row).find("MoveToEx(60, -1353)\n"), std::string::npos);
  EXPECT_EQ(Fill(broken + row).find("MoveToEx(60, -1353)\n"), std::string::npos);
  EXPECT_NE(Fill(broken + row).find("MoveToEx(271, -1142)\n"), std::string::npos);
}

TEST_F(HatchLinesTest, another_hatch_counts_its_period_anew) {
  const std::string first = Fill(slantedDashes + endOfPattern);
  EXPECT_EQ(Fill(slantedDashes + endOfPattern), first);
}

// Bad input

TEST_F(HatchLinesTest, dashes_beyond_the_limit_arent_drawn_but_the_family_is) {
  std::string family = "53 0\n43 0\n44 0\n45 0\n46 9\n79 1000\n";
  for (int32_t i = 0; i < 500; ++i) family += "49 0.1\n49 -0.1\n";
  std::string row;
  // Fifty dashes of 10 and gaps of 10 in each period of 1000, twice.
  for (int32_t i = 0; i < 100; ++i) row += Line(i * 20, -1000, i * 20 + 10, -1000);
  EXPECT_EQ(Head(Fill(family), row), row);
  // Without the other 900 dashes of the list, the row would be as long as the sheet.
  EXPECT_EQ(Head(Fill(family).substr(row.size()), Line(0, -1900, 10, -1900)), Line(0, -1900, 10, -1900));
}

TEST_F(HatchLinesTest, a_pattern_too_dense_is_cut_off_and_read_to_its_end) {
  // A line in each hundred-millionth of a unit.
  const std::string dense = "53 0\n43 0\n44 0\n45 0\n46 0.0000000001\n79 0\n";
  stream = StreamOf(dense + OneRow("45", "79 0\n") + "98 1\n0 LINE\n");
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  FillHatchLines(stream, canvas, {{0, -400, 1000, -1000}, 0});
  EXPECT_EQ(state.groupCode, 98);
  const HENHMETAFILE metafile = CloseEnhMetaFile(canvas);
  // Two records of 16 bytes each, a header and an end.
  EXPECT_GE(GetEnhMetaFileBits(metafile, 0, nullptr), hatchStrokeLimit * 32u);
  EXPECT_LE(GetEnhMetaFileBits(metafile, 0, nullptr), hatchStrokeLimit * 32u + 200u);
  DeleteEnhMetaFile(metafile);
}

TEST_F(HatchLinesTest, a_pattern_cut_off_anywhere_ends) {
  const std::string whole = slantedDashes + OneRow("30", "79 0\n") + slantedDashes + endOfPattern;
  for (size_t length = 0; length <= whole.size(); ++length) {
    stream = StreamOf(whole);
    stream.bytes.resize(stream.bytes.size() - length);
    ListCalls([this](Canvas canvas) { FillHatchLines(stream, canvas, {{0, -400, 1000, -1000}, 0}); });
  }
}

TEST_F(HatchLinesTest, absurd_scales_and_numbers_end) {
  for (const double scale : {0.0, 1e-300, -1.0, 1e300}) {
    state.drawScale = scale;
    for (const char* number : {"0", "1", "-1E308", "1E400"}) {
      const std::string value = number;
      const std::string family = "53 " + value + "\n43 " + value + "\n44 " + value + "\n45 " + value +
                                 "\n46 " + value + "\n79 1\n49 " + value + "\n79 0\n";
      stream = StreamOf(family);
      const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
      FillHatchLines(stream, canvas, {{0, -400, 1000, -1000}, 0});
      DeleteEnhMetaFile(CloseEnhMetaFile(canvas));
    }
  }
}

}  // namespace
}  // namespace hexlume::hatch_lines_test
