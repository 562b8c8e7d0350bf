// LEADER: its arrow, which is a block of the drawing.

#include <gtest/gtest.h>

#include <string>

#include "composite/block_dispatch.h"
#include "composite/leader.h"
#include "driver/bounded_copy.h"
#include "entities/block_level.h"
#include "entities/entity_dispatch.h"
#include "platform/fault_guard.h"
#include "support/block_stream.h"

namespace hexlume::leader_arrow_test {
namespace {

// From (5000, -5000) to the left. The X axis of its arrow's block, which points from the second vertex to the
// first, is not turned.
const std::string toLeft = "10 50\n20 50\n10 30\n20 50\n";
const char toLeftPath[] = "MoveToEx(5000, -5000)\nLineTo(3000, -5000)\nLineTo(3000, -5000)\n";

std::string LeaderToLeft(COLORREF color = black, int32_t width = 0) {
  return InPen(color, toLeftPath, width);
}

// The blocks' lines, each with another end, as their leader has them unturned at (5000, -5000) at scale 1.
const std::string openLine = LineOf("8 0\n" + Ends(0, 0, 10, -5));
const std::string dotLine = LineOf("8 0\n" + Ends(0, 0, 10, -7));

std::string Open(COLORREF color = countColor, int32_t width = 0) {
  return Stroke(color, 5000, -5000, 6000, -5500, width);
}
std::string Dot() {
  return Stroke(countColor, 5000, -5000, 6000, -5700);
}

class LeaderArrowTest : public BlockStreamTest {
 protected:
  LeaderArrowTest() {
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    SetInsertLayer("GONE");  // so that the blocks' lines have the colour -1
    AddBlock("PLAIN", LineOf(Ends(0, 0, 10, -9)));
    AddBlock("_OPEN", openLine, "330 2A\n" + baseAtZero);
    AddBlock("_DOT", dotLine, "330 2B\n" + baseAtZero);
    AddStyle("BY_NAME", "_OPEN", "");
    AddStyle("BY_HANDLE", "", "2B");
    AddStyle("NONE", "", "");
  }

  static void AddStyle(const char* name, const char* arrowBlock, const char* arrowHandle,
                       double arrowSize = 1, double dimScale = 1) {
    DimStyleEntry style = {};
    BoundedCopy(style.name, name);
    BoundedCopy(style.arrowBlock, arrowBlock);
    BoundedCopy(style.arrowHandle, arrowHandle);
    style.arrowSize = arrowSize;
    style.dimScale = dimScale;
    state.dimStyles.Add(style);
  }

  // The listing of one leader with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 LEADER\n" + groups + "0 CIRCLE\n40 7\n"); }

  std::string DrawText(const std::string& text) {
    OpenAt(text);
    return ListCalls([this](Canvas canvas) { Run(canvas); });
  }

  void Run(Canvas canvas) { result = DrawLeader({RunOn(canvas)}); }

  // The listing of an ENTITIES section, up to a throw if there is one.
  std::string DrawSection(const std::string& entities) {
    return ListSection(entities, [this](Canvas canvas) {
      try {
        DrawEntities({RunOn(canvas)});
      } catch (int32_t code) {
        thrown = code;
      }
    });
  }

  // The angle of the arrow of a leader from (50, 50) to a second vertex.
  double AngleTo(const std::string& second) {
    Draw("10 50\n20 50\n" + second);
    return state.insertAngle;
  }

  int32_t thrown = 0;
};

// Which block it is.

TEST_F(LeaderArrowTest, its_style_may_name_it) {
  EXPECT_EQ(LeaderToLeft() + Open(), Draw("3 BY_NAME\n" + toLeft));
}

TEST_F(LeaderArrowTest, its_style_may_refer_to_it_by_the_handle_of_its_owner) {
  EXPECT_EQ(LeaderToLeft() + Dot(), Draw("3 BY_HANDLE\n" + toLeft));
}

TEST_F(LeaderArrowTest, its_extended_data_may_name_it) {
  EXPECT_EQ(LeaderToLeft() + Open(), Draw(toLeft + "1001 ACAD\n1000 DSTYLE\n1000 _OPEN\n"));
  EXPECT_EQ(LeaderToLeft() + Dot(), Draw("3 NONE\n" + toLeft + "1000 DSTYLE\n1000 _DOT\n"));
}

TEST_F(LeaderArrowTest, without_any_of_them_there_is_no_arrow) {
  // Though the block PLAIN has no reference, like the style.
  EXPECT_EQ(LeaderToLeft(), Draw("3 NONE\n" + toLeft));
  EXPECT_EQ(LeaderToLeft(), Draw("3 NONE\n" + toLeft + "1000 DSTYLE\n"));
  EXPECT_EQ(LeaderToLeft(), Draw(toLeft));
}

TEST_F(LeaderArrowTest, of_blocks_of_one_name_or_handle_the_first_is_drawn) {
  AddBlock("_OPEN", dotLine, baseAtZero);
  AddBlock("OTHER", openLine, "330 2B\n" + baseAtZero);
  EXPECT_EQ(LeaderToLeft() + Open(), Draw("3 BY_NAME\n" + toLeft));
  EXPECT_EQ(LeaderToLeft() + Dot(), Draw("3 BY_HANDLE\n" + toLeft));
}

TEST_F(LeaderArrowTest, a_name_or_handle_is_compared_with_its_case_and_as_a_whole) {
  AddStyle("LOWER", "_open", "");
  AddStyle("SHORT", "_OPE", "");
  AddStyle("LOWER_HANDLE", "", "2b");
  AddStyle("LONG_HANDLE", "", "2B0");
  for (const char* style : {"LOWER", "SHORT", "LOWER_HANDLE", "LONG_HANDLE"})
    EXPECT_EQ(LeaderToLeft(), Draw("3 " + std::string(style) + "\n" + toLeft)) << style;
}

TEST_F(LeaderArrowTest, a_name_is_no_handle_and_a_handle_no_name) {
  AddStyle("2A", "2A", "");
  AddStyle("OPEN", "", "_OPEN");
  EXPECT_EQ(LeaderToLeft(), Draw("3 2A\n" + toLeft));
  EXPECT_EQ(LeaderToLeft(), Draw("3 OPEN\n" + toLeft));
}

TEST_F(LeaderArrowTest, of_styles_of_one_name_the_first_counts) {
  AddStyle("BY_NAME", "_DOT", "");
  EXPECT_EQ(LeaderToLeft() + Open(), Draw("3 BY_NAME\n" + toLeft));
}

TEST_F(LeaderArrowTest, a_later_style_takes_the_place_of_the_first) {
  EXPECT_EQ(LeaderToLeft() + Dot(), Draw("3 BY_NAME\n3 BY_HANDLE\n" + toLeft));
  EXPECT_EQ(LeaderToLeft() + Open(), Draw("3 BY_HANDLE\n3 BY_NAME\n" + toLeft));
  EXPECT_EQ(LeaderToLeft(), Draw("3 BY_NAME\n3 NONE\n" + toLeft));
  EXPECT_EQ(LeaderToLeft() + Open(), Draw("3 BY_NAME\n3 GONE\n" + toLeft));
}

TEST_F(LeaderArrowTest, a_name_that_no_block_has_does_not_fall_back_to_a_handle) {
  AddStyle("UNKNOWN", "_GONE", "2A");
  EXPECT_EQ(LeaderToLeft(), Draw("3 BY_HANDLE\n3 UNKNOWN\n" + toLeft));
}

TEST_F(LeaderArrowTest, without_blocks_there_is_no_arrow) {
  blocks.clear();
  EXPECT_EQ(LeaderToLeft(), Draw("3 BY_NAME\n" + toLeft));
  EXPECT_EQ(LeaderToLeft(), Draw("3 BY_HANDLE\n" + toLeft));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

TEST_F(LeaderArrowTest, a_block_without_a_name_draws_nothing) {
  blocks += "0 BLOCK\n330 2C\n70 0\n" + baseAtZero + openLine + "0 ENDBLK\n";
  AddStyle("NAMELESS", "", "2C");
  EXPECT_EQ(LeaderToLeft(), Draw("3 NAMELESS\n" + toLeft));
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
}

// The extended data.

TEST_F(LeaderArrowTest, the_first_string_but_dstyle_is_the_name) {
  EXPECT_EQ(LeaderToLeft() + Open(), Draw(toLeft + "1000 DSTYLE\n1000 _OPEN\n1000 _DOT\n"));
  EXPECT_EQ(LeaderToLeft() + Dot(), Draw(toLeft + "1000 _DOT\n1000 DSTYLE\n1000 _OPEN\n"));
  EXPECT_EQ(LeaderToLeft() + Dot(), Draw(toLeft + "1000 DSTYLE\n1000 \n1000 DSTYLE\n1000 _DOT\n"));
  // It need be no block's, and takes the place all the same.
  EXPECT_EQ(LeaderToLeft(), Draw(toLeft + "1000 dstyle\n1000 _OPEN\n"));
}

TEST_F(LeaderArrowTest, a_style_with_an_arrow_counts_more_than_extended_data) {
  AddStyle("UNKNOWN", "_GONE", "");
  AddStyle("UNKNOWN_HANDLE", "", "77");
  EXPECT_EQ(LeaderToLeft() + Open(), Draw("3 BY_NAME\n" + toLeft + "1000 DSTYLE\n1000 _DOT\n"));
  EXPECT_EQ(LeaderToLeft() + Dot(), Draw("3 BY_HANDLE\n" + toLeft + "1000 DSTYLE\n1000 _OPEN\n"));
  EXPECT_EQ(LeaderToLeft(), Draw("3 UNKNOWN\n" + toLeft + "1000 DSTYLE\n1000 _OPEN\n"));
  EXPECT_EQ(LeaderToLeft(), Draw("3 UNKNOWN_HANDLE\n" + toLeft + "1000 DSTYLE\n1000 _OPEN\n"));
}

TEST_F(LeaderArrowTest, extended_data_in_front_of_the_second_vertex_is_not_read) {
  EXPECT_EQ(LeaderToLeft(), Draw("1000 DSTYLE\n1000 _OPEN\n10 50\n20 50\n1000 _OPEN\n10 30\n20 50\n"));
}

TEST_F(LeaderArrowTest, extended_data_between_the_further_vertices_is_read) {
  EXPECT_EQ(
      InPen(black, "MoveToEx(5000, -5000)\nLineTo(3000, -5000)\nLineTo(2000, -6000)\nLineTo(2000, -6000)\n") +
          Open(),
      Draw(toLeft + "1000 _OPEN\n10 20\n20 40\n"));
}

TEST_F(LeaderArrowTest, extended_data_behind_a_vertex_outside_is_not_read) {
  view = {2000, 2000, 8000, 8000};
  EXPECT_EQ(
      InPen(black, "MoveToEx(5000, -5000)\nLineTo(3000, -5000)\nLineTo(2000, -6000)\nLineTo(2000, -6000)\n"),
      Draw(toLeft + "10 10\n20 40\n1000 DSTYLE\n1000 _OPEN\n"));
}

TEST_F(LeaderArrowTest, extended_data_of_a_leader_of_one_vertex_is_not_read) {
  EXPECT_EQ(InPen(black, "MoveToEx(5000, -5000)\n"), Draw("10 50\n20 50\n1000 DSTYLE\n1000 _OPEN\n"));
}

// Its scale.

TEST_F(LeaderArrowTest, a_size_of_2_5_and_a_scale_of_10_in_1_to_5_give_a_block_scale_of_5) {
  AddStyle("LARGE", "_OPEN", "", 2.5, 10);
  state.scaleDenominator = 5;
  // (1000, -500) times 5.
  EXPECT_EQ(LeaderToLeft() + Stroke(countColor, 5000, -5000, 10000, -7500), Draw("3 LARGE\n" + toLeft));
  EXPECT_EQ(5.0, state.insertScaleX);
  EXPECT_EQ(5.0, state.insertScaleY);
}

TEST_F(LeaderArrowTest, a_denominator_leaves_the_fraction) {
  AddStyle("SMALL", "_OPEN", "", 1, 3);
  state.scaleDenominator = 2;
  // (1000, -500) times 1.5.
  EXPECT_EQ(LeaderToLeft() + Stroke(countColor, 5000, -5000, 6500, -5750), Draw("3 SMALL\n" + toLeft));
}

TEST_F(LeaderArrowTest, a_style_without_an_arrow_sets_the_scale_too) {
  AddStyle("ARROWLESS", "", "", 3, 2);
  EXPECT_EQ(LeaderToLeft() + Stroke(countColor, 5000, -5000, 11000, -8000),
            Draw("3 ARROWLESS\n" + toLeft + "1000 _OPEN\n"));
}

TEST_F(LeaderArrowTest, an_unknown_style_leaves_the_scales_as_they_are) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 3.0;
  for (const char* style : {"3 GONE\n", "3 by_name\n", "3 \n", ""})
    EXPECT_EQ(LeaderToLeft() + Stroke(countColor, 5000, -5000, 7000, -6500),
              Draw(style + toLeft + "1000 _OPEN\n"))
        << style;
}

TEST_F(LeaderArrowTest, a_style_without_a_size_draws_its_arrow_to_a_point) {
  AddStyle("SIZELESS", "_OPEN", "", 0, 5);
  EXPECT_EQ(LeaderToLeft() + Stroke(countColor, 5000, -5000, 5000, -5000), Draw("3 SIZELESS\n" + toLeft));
}

TEST_F(LeaderArrowTest, a_denominator_of_0_does_no_harm) {
  AddStyle("SIZELESS", "_OPEN", "", 0, 0);
  state.scaleDenominator = 0;
  for (const char* style : {"3 BY_NAME\n", "3 BY_HANDLE\n", "3 SIZELESS\n"}) {
    EXPECT_EQ(0u, Draw(style + toLeft).find(LeaderToLeft())) << style;
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  }
}

TEST_F(LeaderArrowTest, the_scales_are_set_even_if_nothing_is_drawn) {
  AddStyle("LARGE", "_OPEN", "", 2, 2);
  EXPECT_EQ("", Draw("3 LARGE\n"));
  EXPECT_EQ(4.0, state.insertScaleX);
  EXPECT_EQ(4.0, state.insertScaleY);
}

// Its place.

TEST_F(LeaderArrowTest, the_blocks_base_point_lies_at_the_first_vertex) {
  AddBlock("_TIP", LineOf(Ends(3, 4, 13, -1)), "10 3\n20 4\n30 0\n");
  AddStyle("TIP", "_TIP", "", 2);
  // (1000, -500) times 2.
  EXPECT_EQ(LeaderToLeft() + Stroke(black, 5000, -5000, 7000, -6000), Draw("3 TIP\n" + toLeft));
}

TEST_F(LeaderArrowTest, it_lies_at_the_first_vertex_and_not_at_the_last) {
  EXPECT_EQ(
      InPen(black, "MoveToEx(5000, -5000)\nLineTo(3000, -5000)\nLineTo(2000, -6000)\nLineTo(2000, -6000)\n") +
          Open(),
      Draw("3 BY_NAME\n" + toLeft + "10 20\n20 40\n"));
}

TEST_F(LeaderArrowTest, a_leader_whose_first_vertex_is_outside_has_none) {
  view = {0, 0, 4999, 10000};
  EXPECT_EQ("", Draw("3 BY_NAME\n" + toLeft));
}

TEST_F(LeaderArrowTest, a_leader_whose_third_vertex_is_outside_has_one) {
  view = {2000, 2000, 8000, 8000};
  EXPECT_EQ(
      InPen(black, "MoveToEx(5000, -5000)\nLineTo(3000, -5000)\nLineTo(2000, -6000)\nLineTo(2000, -6000)\n") +
          Open(),
      Draw("3 BY_NAME\n" + toLeft + "10 10\n20 40\n10 50\n20 60\n"));
}

TEST_F(LeaderArrowTest, a_leader_whose_second_vertex_is_outside_has_one) {
  // The cut computes the upper edge's crossing: m = 4 from (5000, -5000), 5000 + 4000 / 4.
  view = {2000, 1000, 8000, 8000};
  const std::string calls = Draw("3 BY_NAME\n10 50\n20 50\n10 60\n20 100\n10 50\n20 60\n");
  EXPECT_EQ(0u, calls.find(InPen(black, "MoveToEx(5000, -5000)\nLineTo(5800, -1000)\n"))) << calls;
  EXPECT_NE(std::string::npos, calls.find("0x000007"));
}

TEST_F(LeaderArrowTest, it_is_cut_to_the_view) {
  view = {0, 0, 5500, 10000};
  // Halfway.
  EXPECT_EQ(LeaderToLeft() + Stroke(countColor, 5000, -5000, 5500, -5250), Draw("3 BY_NAME\n" + toLeft));
}

TEST_F(LeaderArrowTest, on_a_turned_sheet_it_is_turned_along) {
  state.rotated = 1;
  // 20000 - X and -10000 - Y; a line's ends swap.
  EXPECT_EQ(InPen(black, "MoveToEx(15000, -5000)\nLineTo(17000, -5000)\nLineTo(17000, -5000)\n") +
                Stroke(countColor, 14000, -4500, 15000, -5000),
            Draw("3 BY_NAME\n" + toLeft));
}

// Its angle: from the second vertex to the first.

TEST_F(LeaderArrowTest, a_leg_to_the_left_does_not_turn_it_by_more_than_a_right_angle) {
  EXPECT_EQ(0.0, AngleTo("10 30\n20 50\n"));
  // Up to the left the first vertex is down to the right.
  EXPECT_DOUBLE_EQ(-0.78539816339744831, AngleTo("10 40\n20 60\n"));
  EXPECT_DOUBLE_EQ(0.78539816339744831, AngleTo("10 40\n20 40\n"));
  // atan(-0.5).
  EXPECT_DOUBLE_EQ(-0.46364760900080609, AngleTo("10 30\n20 60\n"));
}

TEST_F(LeaderArrowTest, a_leg_to_the_right_turns_it_by_pi_more) {
  EXPECT_DOUBLE_EQ(3.1415926535, AngleTo("10 70\n20 50\n"));
  EXPECT_DOUBLE_EQ(3.1415926535 + 0.78539816339744831, AngleTo("10 60\n20 60\n"));
  EXPECT_DOUBLE_EQ(3.1415926535 - 0.78539816339744831, AngleTo("10 60\n20 40\n"));
}

TEST_F(LeaderArrowTest, an_upright_leg_turns_it_by_a_right_angle_and_pi) {
  EXPECT_DOUBLE_EQ(1.57079632675 + 3.1415926535, AngleTo("10 50\n20 60\n"));
  EXPECT_DOUBLE_EQ(-1.57079632675 + 3.1415926535, AngleTo("10 50\n20 40\n"));
}

TEST_F(LeaderArrowTest, two_equal_vertices_count_as_a_leg_down) {
  EXPECT_DOUBLE_EQ(-1.57079632675 + 3.1415926535, AngleTo("10 50\n20 50\n"));
}

TEST_F(LeaderArrowTest, a_leader_of_one_vertex_turns_it_as_if_the_origin_were_its_second) {
  // dx = dy = -5000.
  EXPECT_DOUBLE_EQ(0.78539816339744831, AngleTo(""));
  Draw("10 0\n20 50\n");
  EXPECT_DOUBLE_EQ(-1.57079632675 + 3.1415926535, state.insertAngle);
}

TEST_F(LeaderArrowTest, further_vertices_and_the_cut_do_not_turn_it) {
  EXPECT_DOUBLE_EQ(3.1415926535 + 0.78539816339744831, AngleTo("10 60\n20 60\n10 20\n20 20\n"));
  view = {4000, 4000, 6000, 6000};
  // atan(0.5); the leg ends at the right edge.
  EXPECT_DOUBLE_EQ(3.1415926535 + 0.46364760900080609, AngleTo("10 70\n20 60\n"));
}

TEST_F(LeaderArrowTest, a_block_on_a_leg_up_points_down) {
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (1000, -500) turned by -90 degrees is (-500, -1000), and the line is sorted. Y: 4000.5 - 10000 and 5000.5
  // - 10000, cut.
  EXPECT_EQ(InPen(black, "MoveToEx(5000, -4999)\nLineTo(5000, -2999)\nLineTo(5000, -2999)\n") +
                Stroke(countColor, 4500, -5999, 5000, -4999),
            Draw("3 BY_NAME\n10 50\n20 50\n10 50\n20 70\n"));
}

TEST_F(LeaderArrowTest, a_block_on_a_leg_to_the_right_points_to_the_left) {
  state.shiftX = 0.5;
  state.shiftY = 0.5;
  // (1000, -500) turned by 180 degrees is (-1000, 500). Y: 5500.5 - 10000.
  EXPECT_EQ(InPen(black, "MoveToEx(5000, -4999)\nLineTo(7000, -4999)\nLineTo(7000, -4999)\n") +
                Stroke(countColor, 4000, -4499, 5000, -4999),
            Draw("3 BY_NAME\n10 50\n20 50\n10 70\n20 50\n"));
}

TEST_F(LeaderArrowTest, its_angle_is_set_even_without_a_block) {
  Draw("10 50\n20 50\n10 70\n20 50\n");
  EXPECT_DOUBLE_EQ(3.1415926535, state.insertAngle);
}

// What it inherits.

TEST_F(LeaderArrowTest, what_is_on_layer_0_in_it_has_the_leaders_colour) {
  // The width is that of the layer, which the block's line looks up by the leader's name.
  EXPECT_EQ(LeaderToLeft(blue, 3) + Open(blue, 3), Draw("3 BY_NAME\n8 DOORS\n" + toLeft));
  EXPECT_EQ(LeaderToLeft(magenta) + Open(magenta), Draw("3 BY_NAME\n8 WALLS\n62 6\n" + toLeft));
}

TEST_F(LeaderArrowTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(LeaderToLeft() + Open(black), Draw("3 BY_NAME\n8 WALLS\n62 6\n" + toLeft));
  // What the block hands on is 0 too, though its own rule makes it so.
  EXPECT_EQ(0, state.blockColor);
}

TEST_F(LeaderArrowTest, the_run_options_reach_its_texts) {
  const std::string text = "0 TEXT\n10 0\n20 0\n40 2\n1 AB\n";
  AddBlock("_TEXT", text);
  AddStyle("TEXT", "_TEXT", "");
  EXPECT_NE(std::string::npos, Draw("3 TEXT\n" + toLeft).find("\"AB\""));
  // In half-width mode a Latin text has another font and is to the right.
  EXPECT_EQ(std::string::npos, Draw("3 TEXT\n" + toLeft).find(", \"\")\n"));
  halfWidthFont = 1;
  EXPECT_NE(std::string::npos, Draw("3 TEXT\n" + toLeft).find(", \"\")\n"));
  // One that must be whole has no room between the view's upper edge and its place.
  halfWidthFont = 0;
  view.top = 4999;
  EXPECT_NE(std::string::npos, Draw("3 TEXT\n" + toLeft).find("\"AB\""));
  wholeTextClip = 2;
  EXPECT_EQ(std::string::npos, Draw("3 TEXT\n" + toLeft).find("\"AB\""));
}

// The way back.

TEST_F(LeaderArrowTest, behind_it_the_next_entitys_group_stands_in_the_buffer) {
  Draw("3 BY_NAME\n" + toLeft);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "CIRCLE"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(40, "7"));
}

TEST_F(LeaderArrowTest, the_longest_name_of_a_next_entity_is_kept_whole) {
  const std::string longest(254, 'N');
  DrawText("0 LEADER\n3 BY_NAME\n" + toLeft + "0 " + longest + "\n");
  EXPECT_EQ(0, state.groupCode);
  EXPECT_EQ(longest, state.groupValue);
}

TEST_F(LeaderArrowTest, names_of_the_greatest_length_find_their_block) {
  const std::string longest(254, 'N');
  AddBlock(longest, openLine);
  EXPECT_EQ(LeaderToLeft() + Open(), Draw(toLeft + "1000 " + longest + "\n"));
  AddStyle("LONG", ("_" + longest).c_str(), "");
  AddBlock("_" + longest.substr(1), dotLine);
  EXPECT_EQ(LeaderToLeft(), Draw("3 LONG\n" + toLeft));
}

TEST_F(LeaderArrowTest, the_next_entity_of_the_section_is_read_as_if_the_block_had_not_been_there) {
  const std::string own = LineOf("62 1\n" + Ends(50, 50, 60, 40));
  const std::string leader = "0 LEADER\n3 BY_NAME\n8 DOORS\n" + toLeft;
  EXPECT_EQ(LeaderToLeft(blue, 3) + Open(blue, 3) + Stroke(red, 5000, -5000, 6000, -6000) +
                LeaderToLeft(blue, 3) + Open(blue, 3),
            DrawSection(leader + own + leader));
}

TEST_F(LeaderArrowTest, behind_a_leader_that_ends_outside_the_section_goes_on) {
  view = {2000, 2000, 8000, 8000};
  EXPECT_EQ(
      InPen(black, "MoveToEx(5000, -5000)\nLineTo(3000, -5000)\nLineTo(2000, -6000)\nLineTo(2000, -6000)\n") +
          Open() + Stroke(red, 5000, -5000, 6000, -6000),
      DrawSection("0 LEADER\n3 BY_NAME\n" + toLeft + "10 10\n20 40\n10 50\n20 60\n1000 LINE\n" +
                  LineOf("62 1\n" + Ends(50, 50, 60, 40))));
}

TEST_F(LeaderArrowTest, scales_and_angle_are_left_but_an_insert_behind_it_starts_anew) {
  AddStyle("LARGE", "_OPEN", "", 2, 2);
  EXPECT_EQ(InPen(black, "MoveToEx(5000, -5000)\nLineTo(7000, -5000)\nLineTo(7000, -5000)\n") +
                Stroke(black, 2000, -7000, 3000, -7900),
            DrawSection("0 LEADER\n3 LARGE\n3 NONE\n3 LARGE\n3 NONE\n10 50\n20 50\n10 70\n20 50\n"
                        "0 INSERT\n2 PLAIN\n10 20\n20 30\n"));
}

TEST_F(LeaderArrowTest, without_a_known_style_it_has_the_scale_of_the_insert_before) {
  EXPECT_EQ(
      Stroke(black, 2000, -7000, 4000, -9700) + LeaderToLeft() + Stroke(countColor, 5000, -5000, 7000, -6500),
      DrawSection("0 INSERT\n8 GONE\n2 PLAIN\n10 20\n20 30\n41 2\n42 3\n0 LEADER\n" + toLeft +
                  "1000 _OPEN\n"));
}

// Bad input.

TEST_F(LeaderArrowTest, an_arrow_is_never_too_long_but_a_block_within_it_may_be) {
  AddBlock("NESTED", openLine + "0 INSERT\n2 _DOT\n10 0\n20 0\n");
  state.nestedBytes = nestedByteLimit;
  const std::string leader = "0 LEADER\n3 BY_NAME\n" + toLeft;
  EXPECT_EQ(LeaderToLeft() + Open() + LeaderToLeft() + Open(), DrawSection(leader + leader));
  EXPECT_EQ(0, thrown);
  EXPECT_EQ(LeaderToLeft() + Open(), DrawSection("0 LEADER\n3 NONE\n" + toLeft + "1000 NESTED\n" + leader));
  EXPECT_EQ(faultCode, thrown);
}

TEST_F(LeaderArrowTest, a_block_inside_itself_ends_as_a_fault_behind_the_leader_whose_pen_is_gone) {
  AddBlock("_LOOP", openLine + "0 INSERT\n2 _LOOP\n");
  AddStyle("LOOP", "_LOOP", "");
  const std::string calls = DrawSection("0 LEADER\n3 LOOP\n" + toLeft + "0 LINE\n62 1\n");
  EXPECT_EQ(faultCode, thrown);
  // The pen is deleted before the block's first line, which so has the same place among the objects.
  EXPECT_EQ(0u, calls.find(LeaderToLeft() + Open()));
  EXPECT_EQ(std::string::npos, calls.find("CreatePen(2"));
}

TEST_F(LeaderArrowTest, behind_a_block_that_the_end_of_the_file_cuts_off_only_the_value_is_put_back) {
  OpenAt("0 LEADER\n" + toLeft + "1000 _LATE\n0 LINE\n62 1\n9 END\n");
  BlockEntry late = {"_LATE", "", stream.size - static_cast<int32_t>(std::string("9\nEND\n").size())};
  state.blocks.Add(late);
  EXPECT_EQ(LeaderToLeft(), ListCalls([this](Canvas canvas) { Run(canvas); }));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(9, "LINE"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(62, "1"));
}

TEST_F(LeaderArrowTest, at_the_end_of_the_file_it_is_drawn) {
  EXPECT_EQ(LeaderToLeft() + Open(), DrawText("0 LEADER\n3 BY_NAME\n" + toLeft));
  EXPECT_EQ(0, result);
  EXPECT_EQ(InPen(black, "MoveToEx(5000, -5000)\n"), DrawText("0 LEADER\n3 GONE\n10 50\n20 50\n"));
  EXPECT_EQ(0, result);
}

}  // namespace
}  // namespace hexlume::leader_arrow_test
