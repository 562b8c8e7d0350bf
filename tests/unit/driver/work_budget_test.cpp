// What a conversion counts, and how it ends when that is too much. All counts are worked out from the weights: a stroke has 60
// steps and 16 bytes, a pen 60 steps and 112 bytes more, an element of a dash pattern 30 steps and 12 bytes, a lookup of a name
// 40 steps, a round over a text 300 steps and 8 for each byte, a point of a spline 40 steps and 8 bytes.
#include "driver/work_budget.h"

#include <gtest/gtest.h>

#include "canvas/canvas.h"
#include "composite/hatch_boundary.h"
#include "composite/hatch_regions.h"
#include "composite/tolerance.h"
#include "driver/bounded_copy.h"
#include "driver/run_watch.h"
#include "entities/line.h"
#include "entities/spline.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"
#include "text/mtext.h"
#include "text/mtext_codes.h"
#include "text/text_font.h"
#include "text/text_strings.h"

namespace hexlume::work_budget_test {
namespace {

class WorkBudgetTest : public ConverterTest {
 protected:
  WorkBudgetTest() { runWatch = {}; }
  ~WorkBudgetTest() override {
    runWatch = {};
    BeginWork();
  }

  // The listing of one entity.
  template <typename Draw>
  std::string ListEntity(const std::string& groups, Draw draw) {
    stream = StreamOf(groups + "0 ENDSEC\n");
    work.steps = work.metafileBytes = 0;
    return ListCalls([&](Canvas canvas) { draw(EntityRun{RunOn(canvas)}); });
  }
};

TEST_F(WorkBudgetTest, the_last_step_that_is_left_ends_nothing) {
  CountSteps(leastSteps);
  EXPECT_FALSE(RunHasEnded());
  EXPECT_NO_THROW(EndOverBudget());
  runWatch.position = 77;
  CountSteps(1);
  EXPECT_TRUE(RunHasEnded());
  EXPECT_EQ(uint32_t{workBound}, work.reached);
  EXPECT_EQ(77, work.reachedAt[0]);
  EXPECT_THROW(EndOverBudget(), int32_t);
}

TEST_F(WorkBudgetTest, the_bytes_of_a_metafile_end_it_too) {
  CountWork(0, leastMetafileBytes);
  EXPECT_FALSE(RunHasEnded());
  CountWork(0, 1);
  EXPECT_TRUE(RunHasEnded());
  EXPECT_EQ(uint32_t{metafileBound}, work.reached);
}

TEST_F(WorkBudgetTest, a_larger_drawing_may_take_more) {
  AllowWork(1'000'000);
  EXPECT_EQ(leastSteps + 1'000'000'000, work.mostSteps);
  EXPECT_EQ(leastMetafileBytes + 20'000'000, work.mostMetafileBytes);
  AllowWork(10);  // another pass begins
  EXPECT_EQ(leastSteps + 1'000'000'000, work.mostSteps);
}

TEST_F(WorkBudgetTest, the_next_conversion_begins_anew) {
  CountSteps(leastSteps + 1);
  BeginWork();
  EXPECT_FALSE(RunHasEnded());
  EXPECT_EQ(0, work.steps);
  EXPECT_EQ(0u, work.reached);
}

TEST_F(WorkBudgetTest, what_a_host_has_ended_is_not_ended_by_a_bound) {
  EndRun();
  CountSteps(leastSteps + 1);
  EXPECT_EQ(0u, work.reached);
  EXPECT_NO_THROW(EndOverBudget());
}

TEST_F(WorkBudgetTest, a_bound_is_noted_where_it_is_first_reached) {
  runWatch.position = 5;
  NoteBound(hatchPathsBound);
  runWatch.position = 9;
  NoteBound(hatchPathsBound);
  EXPECT_EQ(5, work.reachedAt[5]);
}

// Hatches.

// One slanted edge of 1000 rows: an edge on the left that is upright, and two that are level.
const HatchPath slope = {false, {{0, 0}, {10, 0}, {20, 1000}, {0, 1000}}};

TEST_F(WorkBudgetTest, a_region_counts_its_edges_rows_and_rectangles) {
  EXPECT_EQ(1u, MakeRegions({slope}).size());
  // 8 ends of 4 edges; 1000 rectangles, combined in 2 rounds of 15 steps; 1000 rows of 5 steps, and 16 / 4 pairs of edges.
  EXPECT_EQ(8 * 100 + 1000 * 2 * 15 + 1000 * 5 + 4, work.steps);
  EXPECT_EQ(1000 * 16, work.metafileBytes);
}

TEST_F(WorkBudgetTest, a_flat_ellipse_counts_its_width) {
  MakeRegions({{true, {{0, 0}, {60'000'000, 6}}}});
  // 4 ends of 2 edges; 6 rectangles; width and height.
  EXPECT_EQ(4 * 100 + 6 * 2 * 15 + 60'000'006 * int64_t{5}, work.steps);
}

TEST_F(WorkBudgetTest, regions_beyond_the_budget_are_not_made) {
  work.steps = leastSteps - 8 * 100 - 1000 * 2 * 15;
  EXPECT_TRUE(MakeRegions({slope}).empty());
  EXPECT_TRUE(RunHasEnded());
}

TEST_F(WorkBudgetTest, all_paths_of_a_hatch_share_their_corners) {
  HatchBoundary boundary;
  boundary.solidFill = true;
  boundary.cornerSum = hatchCornerSumLimit - 4;
  const std::string path = "72 0\n73 0\n10 0\n20 0\n10 9\n20 0\n10 9\n20 9\n10 0\n20 9\n97 0\n";
  ListCalls([&](Canvas canvas) {
    stream = StreamOf(path + path + "75 0\n");
    ReadHatchBoundary(stream, canvas, boundary);
  });
  EXPECT_EQ(1u, boundary.paths.size());
  EXPECT_EQ(uint32_t{hatchCornersBound}, work.reached);
}

TEST_F(WorkBudgetTest, an_arc_of_a_boundary_counts_its_corners) {
  HatchBoundary boundary;
  ListCalls([&](Canvas canvas) {
    stream = StreamOf("72 2\n10 9\n20 9\n40 5\n50 0\n51 90\n73 1\n75 0\n");
    ReadHatchBoundary(stream, canvas, boundary);
  });
  // One at 0 degrees, 90 at 1 to 90 degrees and one more at the end: n = trunc(91.0), and i ends at n - 1. Group 73 is also the
  // flag that closes the path, which adds the first corner again, without computing it. The region has 2 * 93 ends of edges.
  EXPECT_EQ(93u, boundary.pointCount);
  EXPECT_LE(92 * 150 + 2 * 2 * 93 * 100, work.steps);
}

// Lines and splines.

TEST_F(WorkBudgetTest, a_line_counts_its_pen_and_its_stroke) {
  ListEntity("10 1\n20 1\n11 9\n21 1\n", [](const EntityRun& run) { DrawLine(run); });
  EXPECT_EQ(60 + 1800, work.steps);
  EXPECT_EQ(16 + 112, work.metafileBytes);
}

// Beside the view nothing is drawn, but the circle is computed.
TEST_F(WorkBudgetTest, a_bulge_counts_its_circle_wherever_it_is) {
  double startAngle, sweep;
  BulgeArcCentre(1.0, 9000.0, 0.0, &startAngle, &sweep);
  EXPECT_EQ(500, work.steps);
}

TEST_F(WorkBudgetTest, a_text_counts_its_bytes) {
  CountText(10);
  EXPECT_EQ(1500 + 10 * 600, work.steps);
  EXPECT_EQ(160 + 10 * 6, work.metafileBytes);
}

TEST_F(WorkBudgetTest, points_of_a_spline_are_counted_before_they_are_made) {
  const auto draw = [](const EntityRun& run) { DrawSpline(run); };
  ListEntity("74 1000\n11 5\n21 5\n", draw);
  // 1000 spans of 3 points and the last one, with a pen.
  EXPECT_EQ(3001 * 40 + 60 + 1800, work.steps);
  EXPECT_EQ(3001 * 8 + 16 + 112, work.metafileBytes);
  work.mostMetafileBytes = 3001 * 8 - 1;
  EXPECT_EQ("", ListEntity("74 1000\n11 5\n21 5\n", draw));
  EXPECT_EQ(uint32_t{metafileBound}, work.reached);
}

TEST_F(WorkBudgetTest, a_spline_of_too_many_points_is_named) {
  const auto draw = [](const EntityRun& run) { DrawSpline(run); };
  ListEntity("74 -5\n11 5\n21 5\n", draw);
  EXPECT_EQ(0u, work.reached);
  ListEntity("74 400000\n11 5\n21 5\n", draw);
  EXPECT_EQ(uint32_t{splinePointsBound}, work.reached);
}

// Names.

TEST_F(WorkBudgetTest, a_dimension_style_is_looked_up_among_any_number) {
  for (const int32_t styles : {1, 1000}) {
    state.dimStyles = {};
    for (int32_t i = 0; i < styles; ++i) {
      DimStyleEntry style = {};
      BoundedCopy(style.name, std::to_string(i).c_str());
      state.dimStyles.Add(style);
    }
    ListEntity("3 none\n3 none\n3 none\n", [](const EntityRun& run) { DrawTolerance(run); });
    EXPECT_EQ(3 * 40, work.steps) << styles;
  }
}

TEST_F(WorkBudgetTest, the_first_block_of_an_owner_is_found) {
  BlockTable blocks;
  EXPECT_EQ(nullptr, blocks.FindOwned("1F"));
  blocks.Add({"a", "", 1});
  blocks.Add({"b", "1F", 2});
  blocks.Add({"c", "1F", 3});
  blocks.Add({"b", "2F", 4});
  EXPECT_EQ(2, blocks.FindOwned("1F")->bodyOffset);
  EXPECT_EQ(4, blocks.FindOwned("2F")->bodyOffset);
  EXPECT_EQ(nullptr, blocks.FindOwned("1f"));
  EXPECT_EQ(nullptr, blocks.FindOwned(""));
}

// Texts.

int64_t StepsOfExpanding(const std::string& text) {
  work.steps = 0;
  BoundedCopy(state.blockText, text.c_str());
  ExpandBlockPercentCodes();
  return work.steps;
}

TEST_F(WorkBudgetTest, codes_of_a_text_take_one_round) {
  std::string codes;
  for (int32_t i = 0; i < 80; ++i) codes += "%%x";
  EXPECT_EQ(300 + 240 * 8, StepsOfExpanding(codes));
}

TEST_F(WorkBudgetTest, a_code_within_a_character_takes_a_round_more) {
  // 81 25 is a character of two bytes, so the code begins in its middle: 6 bytes each time.
  EXPECT_EQ(2 * (300 + 6 * 8), StepsOfExpanding("\x81%%xAB"));
  EXPECT_STREQ(
      "\x81"
      "AB",
      state.blockText);
}

TEST_F(WorkBudgetTest, braces_that_open_anew_count_each_round) {
  BoundedCopy(state.entText, "{\\a;b}{\\a;b}");
  StripBraceCodes();
  // 12 bytes in the first round, "b{\a;b}" in the second.
  EXPECT_EQ(300 + 12 * 8 + 300 + 7 * 8, work.steps);
}

// Rounds: its string is searched for scales, entText for a face, and again for paragraphs. Beside the view only the alignment is
// set, with 200 steps.
TEST_F(WorkBudgetTest, paragraphs_beside_the_view_count_what_is_searched) {
  std::string paragraphs;
  for (int32_t i = 0; i < 100; ++i) paragraphs += "\\P";
  ListEntity("10 -9999\n20 1\n1 a" + paragraphs + "\n", [](const EntityRun& run) { DrawMText(run); });
  EXPECT_EQ(3 * (300 + 201 * 8) + 200, work.steps);
}

// The text is searched for scales, with 9 bytes. Then the codes are removed one after the other, from 9 and from 5 bytes.
TEST_F(WorkBudgetTest, leading_codes_of_an_mtext_count_each) {
  BoundedCopy(state.groupValue, "\\A1;\\A1;a");
  MTextCodes codes;
  ReadBlockMTextString(codes);
  EXPECT_EQ((300 + 9 * 8) + (300 + 9 * 8) + (300 + 5 * 8), work.steps);
  EXPECT_STREQ("a", state.blockText);
}

}  // namespace
}  // namespace hexlume::work_budget_test
