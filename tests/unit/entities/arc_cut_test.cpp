// What the edges of the view leave of an arc.

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "driver/group_reader.h"
#include "entities/arc.h"
#include "support/arc_strokes.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::arc_cut_test {
namespace {

// Arcs of a circle about (5000, -5000) with a radius of exactly 1000, that of the arc before: from 4000 to
// 6000 across and down. An edge through the middle of a radius leaves a cap of 500: (1000 - 500) / 1000 is
// the cosine of 60 degrees.
//
// pi is a little short, and the starts of strokes fall a little before their angles: of the halves below,
// those that are less than 500 by it are cut to 499.
class ArcCutTest : public ConverterTest {
 protected:
  ArcCutTest() { state.entRadius = 1000.0; }

  std::string Draw(const std::string& startAngle, const std::string& endAngle) {
    stream = StreamOf("10 50\n20 50\n50 " + startAngle + "\n51 " + endAngle + "\n");
    return ListCalls([&](Canvas canvas) { DrawArc({RunOn(canvas)}); });
  }
};

// The arc from this point on the sheet, by angles in the drawing's sense.
std::string Part(int32_t x, int32_t y, const std::string& negatedStart, const std::string& negatedSweep) {
  return HeldArc(black, "MoveToEx(" + std::to_string(x) + ", " + std::to_string(y) +
                            ")\nAngleArc(5000, -5000, 1000, " + negatedStart + ", " + negatedSweep + ")\n");
}

constexpr int32_t farRight = 20000;
constexpr int32_t farDown = 10000;

// Without a cut.

TEST_F(ArcCutTest, an_arc_whose_box_lies_in_the_view_is_whole) {
  view = {4000, 4000, 6000, 6000};
  EXPECT_EQ(Part(5798, -4399, "-37", "-90"), Draw("37", "127"));
}

TEST_F(ArcCutTest, the_edges_of_the_whole_sheet_cut_nothing) {
  view = {0, 0, 5500, 10000};
  wholeSheet = 1;
  EXPECT_EQ(Part(5798, -4399, "-37", "-106"), Draw("37", "143"));
}

TEST_F(ArcCutTest, only_1_means_the_whole_sheet) {
  view = {0, 0, 5500, 10000};
  wholeSheet = 2;
  // 143 - 60 = 83.
  EXPECT_EQ(Part(5500, -4134, "-60", "-83"), Draw("37", "143"));
}

// The right edge: from 60, over 240.

TEST_F(ArcCutTest, at_the_right_edge_an_arc_starts_behind_the_cap) {
  view = {0, 0, 5500, farDown};
  EXPECT_EQ(Part(5500, -4134, "-60", "-83"), Draw("37", "143"));
}

TEST_F(ArcCutTest, at_the_right_edge_an_arc_ends_before_the_cap) {
  view = {0, 0, 5500, farDown};
  // From 180 to 540; the rest of the circle ends at 300.
  EXPECT_EQ(Part(4000, -5000, "-180", "-120"), Draw("180", "180"));
}

TEST_F(ArcCutTest, at_the_right_edge_an_arc_beside_the_cap_is_whole) {
  view = {0, 0, 5500, farDown};
  EXPECT_EQ(Part(5000, -4000, "-90", "-90"), Draw("90", "180"));
}

TEST_F(ArcCutTest, an_arc_with_both_ends_in_the_view_and_its_middle_outside_keeps_what_the_cut_leaves) {
  view = {0, 0, 5500, farDown};
  // From 270 over 0 to 90, which is 450: what is before the cap ends at 300, and the rest after it is
  // lost. 270 degrees: a little before (0, -1000).
  EXPECT_EQ(Part(5000, -6000, "-270", "-30"), Draw("270", "90"));
}

// The cap right of the left edge: from 300, over 120.

TEST_F(ArcCutTest, right_of_the_left_edge_an_arc_ends_with_the_cap) {
  view = {5500, 0, farRight, farDown};
  // 300 + 120 is 60 in the next round.
  EXPECT_EQ(Part(6000, -5000, "-0", "-60"), Draw("0", "90"));
}

TEST_F(ArcCutTest, right_of_the_left_edge_an_arc_past_0_runs_backwards) {
  view = {5500, 0, farRight, farDown};
  // From 270 to 45 is 270 to 405. It starts with the cap, at 300, and ends with it, at 60: -240.
  EXPECT_EQ(Part(5499, -5866, "-300", "240"), Draw("270", "45"));
}

// The left edge: from 240, over 240.

TEST_F(ArcCutTest, at_the_left_edge_an_arc_starts_behind_the_cap) {
  view = {4500, 0, farRight, farDown};
  // To 270: 240 + 240 is 120 in the next round, 120 - 240 = -120.
  EXPECT_EQ(Part(4500, -5866, "-240", "120"), Draw("200", "270"));
}

TEST_F(ArcCutTest, at_the_left_edge_a_whole_circle_is_cut_in_the_wrong_sense) {
  view = {4500, 0, farRight, farDown};
  EXPECT_EQ(Part(4500, -5866, "-240", "120"), Draw("0", "0"));
}

TEST_F(ArcCutTest, at_the_left_edge_an_arc_past_0_runs_backwards) {
  view = {4500, 0, farRight, farDown};
  // It starts at 270, and the rest of the circle ends at 120.
  EXPECT_EQ(Part(5000, -6000, "-270", "150"), Draw("270", "130"));
}

TEST_F(ArcCutTest, at_the_left_edge_an_arc_that_ends_before_0_is_whole) {
  view = {4500, 0, farRight, farDown};
  // From -90 to -1: 240 - 240 = 0 isn't before its end, and neither is 120.
  EXPECT_EQ(Part(5000, -6000, "90", "-89"), Draw("-90", "-1"));
}

// The cap left of the right edge: from 120, over 120.

TEST_F(ArcCutTest, left_of_the_right_edge_an_arc_starts_with_the_cap) {
  view = {0, 0, 4500, farDown};
  EXPECT_EQ(Part(4501, -4134, "-120", "-60"), Draw("90", "180"));
}

TEST_F(ArcCutTest, left_of_the_right_edge_an_arc_starts_and_ends_with_the_cap) {
  view = {0, 0, 4500, farDown};
  // From 20 to 540.
  EXPECT_EQ(Part(4501, -4134, "-120", "-120"), Draw("20", "540"));
}

// The top edge: from 150, over 240.

TEST_F(ArcCutTest, at_the_top_edge_an_arc_starts_behind_the_cap) {
  view = {0, 4500, farRight, farDown};
  // 150 + 240 is 30 in the next round, 30 - 150 = -120.
  EXPECT_EQ(Part(4134, -4500, "-150", "120"), Draw("90", "180"));
}

TEST_F(ArcCutTest, at_the_top_edge_an_arc_below_the_cap_runs_backwards) {
  view = {0, 4500, farRight, farDown};
  // It starts at 180, and the rest of the circle ends at 30.
  EXPECT_EQ(Part(4000, -5000, "-180", "150"), Draw("180", "360"));
}

// The cap above the bottom edge: from 30, over -120.

TEST_F(ArcCutTest, above_the_bottom_edge_an_arc_that_ends_in_the_cap_is_whole) {
  view = {0, 0, farRight, 4500};
  EXPECT_EQ(Part(6000, -5000, "-0", "-90"), Draw("0", "90"));
}

TEST_F(ArcCutTest, above_the_bottom_edge_an_arc_ends_with_the_cap) {
  view = {0, 0, farRight, 4500};
  // 30 + 120 = 150.
  EXPECT_EQ(Part(5000, -4000, "-90", "-60"), Draw("90", "180"));
}

TEST_F(ArcCutTest, above_the_bottom_edge_an_arc_starts_with_the_cap_if_it_passes_all_of_it) {
  view = {0, 0, farRight, 4500};
  // From 20 to 450.
  EXPECT_EQ(Part(5866, -4501, "-30", "-120"), Draw("20", "450"));
}

// The bottom edge: from 330, over 240.

TEST_F(ArcCutTest, at_the_bottom_edge_an_arc_above_the_cap_runs_backwards) {
  view = {0, 0, farRight, 5500};
  // It ends at 180, and 180 - 330 = -150.
  EXPECT_EQ(Part(5866, -5500, "-330", "150"), Draw("0", "180"));
}

TEST_F(ArcCutTest, at_the_bottom_edge_an_arc_ends_before_the_cap) {
  view = {0, 0, farRight, 5500};
  // 330 + 240 is 210 in the next round. It starts at 0, as 330 - 240 = 90 isn't before its end.
  EXPECT_EQ(Part(6000, -5000, "-0", "-80"), Draw("0", "80"));
}

TEST_F(ArcCutTest, at_the_bottom_edge_an_arc_from_behind_the_cap_runs_backwards) {
  view = {0, 0, farRight, 5500};
  // It starts at 350, and 210 - 350 = -140. 350 degrees: 984.8 and -173.6.
  EXPECT_EQ(Part(5984, -5173, "-350", "140"), Draw("350", "220"));
}

// The cap below the top edge: from 210, over 120.

TEST_F(ArcCutTest, below_the_top_edge_an_arc_starts_with_the_cap) {
  view = {0, 5500, farRight, farDown};
  EXPECT_EQ(Part(4134, -5499, "-210", "-60"), Draw("180", "270"));
}

TEST_F(ArcCutTest, below_the_top_edge_an_arc_ends_with_the_cap) {
  view = {0, 5500, farRight, farDown};
  // 210 + 120 = 330.
  EXPECT_EQ(Part(5000, -6000, "-270", "-60"), Draw("270", "360"));
}

// The merge.

TEST_F(ArcCutTest, across_a_corner_only_the_bottom_edge_counts) {
  view = {0, 0, 5500, 5500};
  EXPECT_EQ(Part(5866, -5500, "-330", "150"), Draw("90", "180"));
}

TEST_F(ArcCutTest, an_arc_that_ends_before_the_cut_less_its_sweep_starts_by_itself) {
  view = {5500, 0, farRight, farDown};
  // 300 - 120 = 180 is between the ends of these two.
  EXPECT_EQ(Part(6000, -5000, "-0", "-60"), Draw("0", "179"));
  EXPECT_EQ(Part(5499, -5866, "-300", "240"), Draw("0", "181"));
}

TEST_F(ArcCutTest, an_arc_that_starts_behind_the_start_of_the_cut_starts_by_itself) {
  view = {0, 0, 4500, farDown};
  // 121 degrees: -515.0 and 857.2.
  EXPECT_EQ(Part(4485, -4143, "-121", "-59"), Draw("121", "180"));
  EXPECT_EQ(Part(4501, -4134, "-120", "-60"), Draw("119", "180"));
}

TEST_F(ArcCutTest, an_arc_ends_with_the_cut_only_if_that_ends_first) {
  view = {0, 0, 4500, farDown};
  // The cap ends at 240.
  EXPECT_EQ(Part(4501, -4134, "-120", "-119"), Draw("90", "239"));
  EXPECT_EQ(Part(4000, -5000, "-180", "-60"), Draw("180", "241"));
}

TEST_F(ArcCutTest, a_cap_of_nothing_leaves_the_arc_whole) {
  view = {6000, 0, farRight, farDown};
  EXPECT_EQ(Part(6000, -5000, "-0", "-90"), Draw("0", "90"));
}

TEST_F(ArcCutTest, a_cut_that_is_no_number_leaves_the_arc_whole) {
  state.drawScale = 0.25;
  view = {0, -100000, 21000, 100000};
  // On the sheet (20000, 10000), radius 4000. A cap of 3000 of the model's 1000: -2 is no cosine.
  // 37 degrees: 3194.5 and 2407.3.
  EXPECT_EQ(HeldArc(black, "MoveToEx(23194, 12407)\nAngleArc(20000, 10000, 4000, -37, -106)\n"),
            Draw("37", "143"));
}

TEST_F(ArcCutTest, the_cap_is_the_sheets_and_the_radius_the_models) {
  state.drawScale = 2.0;
  view = {0, 0, 2750, farDown};
  // A circle about (2500, -7500) with a radius of 500. A cap of 250 counts as one of 1000: 0.75 is the cosine
  // of 41.4096221 degrees, and the float next to it is 41.4096222. 143 less that is 101.5903779, and the
  // float 101.590378. It starts at 375.0 and 330.7: 2875 is cut to a unit less if the float is above.
  EXPECT_EQ(HeldArc(black, "MoveToEx(2874, -7170)\nAngleArc(2500, -7500, 500, -41.4096222, -101.590378)\n"),
            Draw("37", "143"));
}

TEST_F(ArcCutTest, the_radius_of_an_arc_with_group_40_is_a_ten_thousandth_off) {
  view = {0, 0, 5500, farDown};
  stream = StreamOf("10 50\n20 50\n40 10\n50 90\n51 0\n");
  // 500.0001 / 1000.0001 is 0.5 and 5 / 10^8, the cosine of 3.3 / 10^6 less than 60 degrees. The cut ends at
  // 360 less that, 300.0000033: 210.0000033 from 90, and floats are 15 / 10^6 apart there.
  EXPECT_EQ(Part(5000, -4000, "-90", "-210"), ListCalls([&](Canvas canvas) { DrawArc({RunOn(canvas)}); }));
  // From 37 it starts at 59.9999967, where floats are 3.8 / 10^6 apart: 59.9999962. To 143 it is 83.0000033
  // and the float 83, which is 7.6 / 10^6 from the next.
  stream = StreamOf("10 50\n20 50\n40 10\n50 37\n51 143\n");
  EXPECT_EQ(Part(5500, -4134, "-59.9999962", "-83"),
            ListCalls([&](Canvas canvas) { DrawArc({RunOn(canvas)}); }));
}

TEST_F(ArcCutTest, a_dashed_arc_is_cut_the_same_way) {
  DefineLtype(4, {300, -200});
  view = {0, 0, 5500, farDown};
  stream = StreamOf("6 HIDDEN\n10 50\n20 50\n50 180\n51 180\n");
  // What is left of the circle ends at 300, a cap's half before 360.
  const double sweep = 360.0 - std::acos(0.5) * 180.0 / pi - 180.0;
  const std::string listing = ListCalls([&](Canvas canvas) { DrawArc({RunOn(canvas)}); });
  EXPECT_EQ(ListCalls([sweep](Canvas canvas) {
              const HPEN pen = CreatePen(PS_DASH, 0, black);
              const HGDIOBJ previousPen = SelectObject(canvas, pen);
              const HGDIOBJ previousBrush = SelectObject(canvas, GetStockObject(NULL_BRUSH));
              DashArc(canvas, 5000, -5000, 1000, -180.0, -sweep, 10000, 5000, black,
                      state.ltypes.at(4).dashes, 2, 0);
              SelectObject(canvas, previousBrush);
              SelectObject(canvas, previousPen);
              DeleteObject(pen);
            }),
            listing);
}

}  // namespace
}  // namespace hexlume::arc_cut_test
