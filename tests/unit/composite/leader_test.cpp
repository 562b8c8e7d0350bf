// LEADER: its line and its hook.

#include "composite/leader.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/block_stream.h"

namespace hexlume::leader_test {
namespace {

using Places = std::vector<std::pair<int32_t, int32_t>>;

// The strokes from the first place over the others.
std::string Path(const Places& places) {
  std::string calls;
  for (const auto& place : places)
    calls += std::string(calls.empty() ? "MoveToEx(" : "LineTo(") + std::to_string(place.first) + ", " +
             std::to_string(place.second) + ")\n";
  return calls;
}

std::string Leader(const Places& places, COLORREF color = black, int32_t width = 0) {
  return InPen(color, Path(places), width);
}

size_t Count(const std::string& listing, const std::string& call) {
  size_t count = 0;
  for (size_t at = listing.find(call); at != std::string::npos; at = listing.find(call, at + 1)) ++count;
  return count;
}

// (1000, -1000), (2000, -2000), (3000, -2000); the hook of length 0 ends where it starts.
const std::string bent = "10 10\n20 90\n10 20\n20 80\n10 30\n20 80\n";
const Places bentPlaces = {{1000, -1000}, {2000, -2000}, {3000, -2000}, {3000, -2000}};

class LeaderTest : public BlockStreamTest {
 protected:
  LeaderTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    AddLayer("AXES", {3, 5, 0}, 4);
  }

  // The listing of one leader with these groups.
  std::string Draw(const std::string& groups) { return DrawText("0 LEADER\n" + groups + "0 CIRCLE\n40 7\n"); }

  std::string DrawText(const std::string& text) {
    OpenAt(text);
    return ListCalls([this](Canvas canvas) { Run(canvas); });
  }

  void Run(Canvas canvas) { result = DrawLeader({RunOn(canvas)}); }

  // The next entity is in the buffer, and its first group after that.
  void ExpectNextEntity() {
    EXPECT_EQ(1, result);
    EXPECT_TRUE(AtGroup(0, "CIRCLE"));
    ReadGroup(stream);
    EXPECT_TRUE(AtGroup(40, "7"));
  }
};

// The line.

TEST_F(LeaderTest, it_is_a_line_over_its_vertices_with_a_hook) {
  EXPECT_EQ(Leader(bentPlaces), Draw(bent));
  ExpectNextEntity();
}

TEST_F(LeaderTest, it_may_have_any_number_of_vertices) {
  // The hook's end is that of the line.
  EXPECT_EQ(Leader({{1000, -1000}, {2000, -2000}, {2000, -2000}}), Draw("10 10\n20 90\n10 20\n20 80\n"));
  std::string groups = "10 10\n20 90\n";
  Places places = {{1000, -1000}};
  for (int32_t i = 1; i <= 200; ++i) {
    groups += "10 " + std::to_string(10 + i % 2) + "\n20 " + std::to_string(90 - i % 3) + "\n";
    places.push_back({1000 + i % 2 * 100, -1000 - i % 3 * 100});
  }
  places.push_back(places.back());
  EXPECT_EQ(Leader(places), Draw(groups));
}

TEST_F(LeaderTest, its_points_go_through_origin_scale_and_shift) {
  state.originX = 1000.0;
  state.originY = -1000.0;
  state.drawScale = 2.0;
  state.shiftX = 300.0;
  state.shiftY = -200.0;
  // X: (1000 - 1000) / 2 + 300, (2000 - 1000) / 2 + 300, 1300, and with the hook of 400 1500. Y: (9000 +
  // 1000) / 2 - 10000 - 200, (8000 + 1000) / 2 - 10200.
  EXPECT_EQ(Leader({{300, -5200}, {800, -5700}, {1300, -5700}, {1500, -5700}}), Draw("41 4\n" + bent));
}

TEST_F(LeaderTest, a_leader_of_one_vertex_draws_nothing_with_its_pen) {
  EXPECT_EQ(Leader({{1000, -1000}}), Draw("41 5\n10 10\n20 90\n"));
  ExpectNextEntity();
  EXPECT_EQ(Leader({{1000, -1000}}), Draw("41 5\n10 10\n20 90\n10 30\n"));
  ExpectNextEntity();
}

TEST_F(LeaderTest, a_leader_without_a_vertex_ends_with_its_groups_and_draws_nothing) {
  for (const char* groups : {"", "3 STANDARD\n41 5\n", "10 10\n", "8 WALLS\n10 10\n30 0\n"}) {
    EXPECT_EQ("", Draw(groups)) << groups;
    ExpectNextEntity();
  }
}

TEST_F(LeaderTest, a_leader_without_a_vertex_leaves_the_entity_behind_it_alone) {
  EXPECT_EQ(Stroke(red, 1000, -1000, 3000, -2000),
            DrawSection("0 LEADER\n8 DOORS\n0 LINE\n62 1\n" + Ends(10, 90, 30, 80)));
  EXPECT_STREQ("DOORS", state.insertLayer);
}

TEST_F(LeaderTest, a_vertex_lies_where_its_group_20_stands_and_lacks_what_follows_it) {
  state.entX[0] = 1500.0;
  // The X after it is that of the second vertex.
  EXPECT_EQ(Leader({{1500, -1000}, {2000, -2000}, {2000, -2000}}), Draw("20 90\n10 20\n20 80\n"));
  state.entX[1] = 2500.0;
  EXPECT_EQ(Leader({{1000, -1000}, {2500, -2000}, {2500, -2000}}), Draw("10 10\n20 90\n20 80\n"));
  // The third one keeps the second's X.
  EXPECT_EQ(Leader({{1000, -1000}, {2000, -2000}, {2000, -3000}, {2000, -3000}}),
            Draw("10 10\n20 90\n10 20\n20 80\n20 70\n"));
}

TEST_F(LeaderTest, its_vertices_are_kept_in_the_record) {
  Draw(bent);
  EXPECT_EQ(1000.0, state.entX[0]);
  EXPECT_EQ(9000.0, state.entY[0]);
  EXPECT_EQ(3000.0, state.entX[1]);
  EXPECT_EQ(8000.0, state.entY[1]);
}

TEST_F(LeaderTest, all_other_groups_are_ignored) {
  const std::string other =
      "5 2F\n330 1F\n100 AcDbLeader\n71 1\n72 0\n73 3\n74 1\n75 0\n40 2.5\n76 3\n6 DASHED\n"
      "39 500\n30 7\n";
  EXPECT_EQ(Leader(bentPlaces),
            Draw(other + "10 10\n20 90\n" + other + "10 20\n20 80\n" + other +
                 "10 30\n20 80\n30 0\n340 2E\n210 0\n220 0\n230 -1\n211 1\n212 9\n213 9\n"));
}

// The pen.

TEST_F(LeaderTest, its_layer_gives_colour_and_width) {
  EXPECT_EQ(Leader(bentPlaces, blue, 3), Draw("8 DOORS\n" + bent));
  EXPECT_STREQ("DOORS", state.insertLayer);
}

TEST_F(LeaderTest, an_unknown_layer_changes_nothing_but_is_handed_on) {
  EXPECT_EQ(Leader(bentPlaces), Draw("8 GONE\n" + bent));
  EXPECT_STREQ("GONE", state.insertLayer);
  EXPECT_EQ(Leader(bentPlaces, blue, 3), Draw("8 DOORS\n8 GONE\n" + bent));
}

TEST_F(LeaderTest, it_starts_black_whatever_was_drawn_before) {
  state.entColor = 5;
  EXPECT_EQ(Leader(bentPlaces), Draw(bent));
  EXPECT_EQ(5, state.entColor);
}

TEST_F(LeaderTest, the_first_layer_of_a_name_counts) {
  AddLayer("WALLS", {0, 0, 7}, 6);
  EXPECT_EQ(Leader(bentPlaces, red), Draw("8 WALLS\n" + bent));
}

TEST_F(LeaderTest, group_62_and_group_77_tell_its_colour) {
  for (const char* code : {"62 ", "77 "}) {
    EXPECT_EQ(Leader(bentPlaces, magenta), Draw(std::string(code) + "6\n" + bent));
    // By the map of all colours: 2 is black, 12 red, 80 green.
    EXPECT_EQ(Leader(bentPlaces, black), Draw("8 WALLS\n" + std::string(code) + "2\n" + bent));
    EXPECT_EQ(Leader(bentPlaces, red), Draw(std::string(code) + "12\n" + bent));
    EXPECT_EQ(Leader(bentPlaces, green), Draw(std::string(code) + "80\n" + bent));
  }
  EXPECT_EQ(Leader(bentPlaces, cyan), Draw("62 6\n77 4\n" + bent));
  EXPECT_EQ(Leader(bentPlaces, magenta), Draw("77 4\n62 6\n" + bent));
}

TEST_F(LeaderTest, a_layer_behind_a_colour_takes_its_place) {
  EXPECT_EQ(Leader(bentPlaces, red), Draw("62 6\n8 WALLS\n" + bent));
}

TEST_F(LeaderTest, a_colour_behind_the_first_vertex_comes_too_late) {
  EXPECT_EQ(Leader(bentPlaces),
            Draw("10 10\n20 90\n62 6\n77 6\n8 WALLS\n10 20\n20 80\n62 6\n10 30\n20 80\n"));
}

TEST_F(LeaderTest, the_colour_minus_1_is_the_count_of_colours_and_others_below_0_are_black) {
  EXPECT_EQ(Leader(bentPlaces, countColor), Draw("62 -1\n" + bent));
  EXPECT_EQ(Leader(bentPlaces, black), Draw("8 WALLS\n62 -5\n" + bent));
}

TEST_F(LeaderTest, in_monochrome_it_is_black) {
  state.monochrome = 1;
  EXPECT_EQ(Leader(bentPlaces, black), Draw("8 WALLS\n62 6\n" + bent));
}

TEST_F(LeaderTest, the_dash_family_of_its_layer_is_the_style_of_its_pen) {
  const char* const styles[] = {"PS_SOLID", "PS_DASH", "PS_DOT", "PS_DASHDOT", "PS_DASHDOTDOT"};
  for (int32_t family = 0; family < 5; ++family) {
    const std::string name = "FAMILY" + std::to_string(family);
    AddLayer(name.c_str(), {family, 1, family}, 0);
    const std::string pen = std::string(styles[family]) + ", " + std::to_string(family);  // and its width
    EXPECT_EQ("CreatePen(1, " + pen + ", 0x000000)\nSelectObject(1)\n" + Path(bentPlaces) +
                  "SelectObject(BLACK_PEN)\nDeleteObject(1)\n",
              Draw("8 " + name + "\n" + bent));
  }
}

TEST_F(LeaderTest, a_dash_dot_leader_has_the_pen_style_3_at_any_scale) {
  DefineLtype(5, {500, -250, 0, -250});
  const std::string pen = "CreatePen(1, PS_DASHDOT, 0, 0xFFFF00)\nSelectObject(1)\n";
  const std::string end = "SelectObject(BLACK_PEN)\nDeleteObject(1)\n";
  EXPECT_EQ(pen + Path(bentPlaces) + end, Draw("8 AXES\n" + bent));
  state.drawScale = 10.0;
  // Y: 9000 / 10 - 10000 and 8000 / 10 - 10000. Sheet X 200 is left of model X 2000, so the second vertex is
  // the start of the cut, which leaves it as it is.
  EXPECT_EQ(pen + Path({{100, -9100}, {200, -9200}, {300, -9200}, {300, -9200}}) + end,
            Draw("8 AXES\n" + bent));
}

// What the user left out.

TEST_F(LeaderTest, a_leader_on_an_excluded_layer_is_not_drawn) {
  ExcludeLayer("WALLS");
  SetInsertLayer("0");
  EXPECT_EQ("", Draw("8 WALLS\n" + bent));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(8, "WALLS"));
  EXPECT_STREQ("0", state.insertLayer);
}

TEST_F(LeaderTest, an_excluded_layer_that_the_table_lacks_counts_too) {
  ExcludeLayer("GONE");
  EXPECT_EQ("", Draw("8 GONE\n" + bent));
  EXPECT_NE("", Draw("8 gone\n" + bent));
}

TEST_F(LeaderTest, behind_a_leader_on_an_excluded_layer_the_next_entity_is_drawn) {
  ExcludeLayer("WALLS");
  EXPECT_EQ(Leader(bentPlaces, blue, 3),
            DrawSection("0 LEADER\n8 WALLS\n" + bent + "0 LEADER\n8 DOORS\n" + bent));
}

TEST_F(LeaderTest, an_excluded_line_type_hides_the_leaders_of_its_family) {
  ExcludeFamily(3);
  EXPECT_EQ("", Draw("8 AXES\n" + bent));
  EXPECT_EQ(Leader(bentPlaces, red), Draw("8 WALLS\n" + bent));
  ExcludeFamily(0);
  EXPECT_EQ("", Draw(bent));
}

TEST_F(LeaderTest, a_leader_of_an_excluded_line_type_leaves_its_further_groups_to_the_section) {
  ExcludeFamily(3);
  Draw("8 AXES\n" + bent);
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "90"));
  EXPECT_EQ(Leader(bentPlaces, red), DrawSection("0 LEADER\n8 AXES\n" + bent + "0 LEADER\n8 WALLS\n" + bent));
}

// The first vertex against a view of X 1000 to 3000, Y -1000 to -3000.

class LeaderInViewTest : public LeaderTest {
 protected:
  LeaderInViewTest() { view = {1000, 1000, 3000, 3000}; }
};

TEST_F(LeaderInViewTest, a_leader_whose_first_vertex_lies_outside_is_dropped) {
  const std::string rest = "10 20\n20 80\n";
  for (const char* first :
       {"10 9.99\n20 80\n", "10 30.01\n20 80\n", "10 20\n20 90.01\n", "10 20\n20 69.99\n"}) {
    EXPECT_EQ("", Draw(first + rest)) << first;
    EXPECT_EQ(1, result);
    EXPECT_EQ(0, state.groupCode);
  }
  EXPECT_STREQ("69.99", state.groupValue);
}

TEST_F(LeaderInViewTest, behind_a_dropped_leader_the_next_entity_is_drawn) {
  EXPECT_EQ(Stroke(red, 1000, -1000, 3000, -2000),
            DrawSection("0 LEADER\n10 5\n20 80\n10 20\n20 80\n0 LINE\n62 1\n" + Ends(10, 90, 30, 80)));
}

TEST_F(LeaderInViewTest, a_first_vertex_on_an_edge_counts_as_within) {
  const Places behind = {{2000, -2000}, {2000, -2000}};
  EXPECT_EQ(Leader({{1000, -2000}, behind[0], behind[1]}), Draw("10 10\n20 80\n10 20\n20 80\n"));
  EXPECT_EQ(Leader({{3000, -2000}, behind[0], behind[1]}), Draw("10 30\n20 80\n10 20\n20 80\n"));
  EXPECT_EQ(Leader({{2000, -1000}, behind[0], behind[1]}), Draw("10 20\n20 90\n10 20\n20 80\n"));
  EXPECT_EQ(Leader({{2000, -3000}, behind[0], behind[1]}), Draw("10 20\n20 70\n10 20\n20 80\n"));
}

// The first leg, from (2000, -2000), where sheet and model have the same X: the first vertex is the start of
// the cut. m is the slope of the cut.

TEST_F(LeaderInViewTest, a_first_leg_to_the_right_is_cut_at_the_right_edge) {
  // To (4000, -1500): m = 0.25, -2000 + 1000 * 0.25.
  EXPECT_EQ(Leader({{2000, -2000}, {3000, -1750}}), Draw("10 20\n20 80\n10 40\n20 85\n"));
  // To (4000, -2500): m = -0.25.
  EXPECT_EQ(Leader({{2000, -2000}, {3000, -2250}}), Draw("10 20\n20 80\n10 40\n20 75\n"));
}

TEST_F(LeaderInViewTest, a_first_leg_up_to_the_right_is_cut_at_the_upper_edge) {
  // To (2500, 0): m = 4, 2000 + 1000 / 4.
  EXPECT_EQ(Leader({{2000, -2000}, {2250, -1000}}), Draw("10 20\n20 80\n10 25\n20 100\n"));
}

TEST_F(LeaderInViewTest, a_first_leg_down_to_the_right_is_cut_at_the_lower_edge) {
  // To (2500, -4000): m = -4, 2000 + 1000 / 4.
  EXPECT_EQ(Leader({{2000, -2000}, {2250, -3000}}), Draw("10 20\n20 80\n10 25\n20 60\n"));
}

TEST_F(LeaderInViewTest, a_first_leg_to_the_left_is_not_cut_at_the_left_edge) {
  EXPECT_EQ(Leader({{2000, -2000}, {0, -2500}}), Draw("10 20\n20 80\n10 0\n20 75\n"));
  EXPECT_EQ(Leader({{2000, -2000}, {0, -2000}}), Draw("10 20\n20 80\n10 0\n20 80\n"));
}

TEST_F(LeaderInViewTest, a_first_leg_up_to_the_left_goes_to_the_lower_edge_instead) {
  // To (1500, 0): m = -4, so it counts as falling. Y -3000 is 1000 below, at 2000 + 1000 / 4.
  EXPECT_EQ(Leader({{2000, -2000}, {2250, -3000}}), Draw("10 20\n20 80\n10 15\n20 100\n"));
}

// The same where the sheet is 1000 left of the model: the second vertex is the start of the cut.

class LeaderInShiftedViewTest : public LeaderInViewTest {
 protected:
  LeaderInShiftedViewTest() { state.originX = 1000.0; }
};

TEST_F(LeaderInShiftedViewTest, a_first_leg_to_the_left_is_cut_at_the_left_edge) {
  // To (0, -2500): m = 0.25, -2500 + 1000 * 0.25.
  EXPECT_EQ(Leader({{2000, -2000}, {1000, -2250}}), Draw("10 30\n20 80\n10 10\n20 75\n"));
  // To (0, -1500): m = -0.25.
  EXPECT_EQ(Leader({{2000, -2000}, {1000, -1750}}), Draw("10 30\n20 80\n10 10\n20 85\n"));
  EXPECT_EQ(Leader({{2000, -2000}, {1000, -2000}}), Draw("10 30\n20 80\n10 10\n20 80\n"));
}

TEST_F(LeaderInShiftedViewTest, a_first_leg_up_beyond_the_left_edge_is_cut_at_the_upper_edge) {
  // To (500, 4000): m = -4; at X 1000 it is at Y 2000, above; 2000 - 1000 / 4.
  EXPECT_EQ(Leader({{2000, -2000}, {1750, -1000}}), Draw("10 30\n20 80\n10 15\n20 140\n"));
}

TEST_F(LeaderInShiftedViewTest,
       a_first_leg_down_beyond_the_left_edge_is_drawn_to_the_record_of_a_rejected_one) {
  // To (500, -8000): m = 4; at X 1000 it is at Y -6000, below.
  EXPECT_EQ(Leader({{2000, -2000}, {-1, -1}}), Draw("10 30\n20 80\n10 15\n20 20\n"));
}

TEST_F(LeaderInShiftedViewTest, such_a_leg_does_so_far_above_the_sheet_too) {
  // To (0, 10000): m = -6; at X 1000 it is at Y 4000, which is beyond the lower edge's 3000.
  EXPECT_EQ(Leader({{2000, -2000}, {-1, -1}}), Draw("10 30\n20 80\n10 10\n20 200\n"));
}

TEST_F(LeaderInShiftedViewTest, behind_a_rejected_leg_its_record_decides_whether_the_line_goes_on) {
  // (-1, -1) is within this view. To (-12000, -58000): m = 4; at X -5000 it is at Y -30000, below.
  view = {-5000, -5000, 3000, 3000};
  EXPECT_EQ(Leader({{2000, -2000}, {-1, -1}, {1500, -1500}, {1500, -1500}}),
            Draw("10 30\n20 80\n10 -110\n20 -480\n10 25\n20 85\n"));
}

TEST_F(LeaderInShiftedViewTest, a_first_leg_to_the_right_is_not_cut) {
  EXPECT_EQ(Leader({{2000, -2000}, {4000, -1500}}), Draw("10 30\n20 80\n10 50\n20 85\n"));
  EXPECT_EQ(Leader({{2000, -2000}, {2500, 0}}), Draw("10 30\n20 80\n10 35\n20 100\n"));
  EXPECT_EQ(Leader({{2000, -2000}, {1500, -4000}}), Draw("10 30\n20 80\n10 25\n20 60\n"));
}

TEST_F(LeaderInViewTest, a_fraction_of_a_unit_makes_the_second_vertex_the_start_of_the_cut) {
  // 1000 is less than 1000.5, and a start on the left edge stays where it is, the Y of 0 too.
  EXPECT_EQ(Leader({{2000, -2000}, {1000, 0}}), Draw("10 20\n20 80\n10 10.005\n20 100\n"));
}

TEST_F(LeaderInViewTest, an_upright_first_leg_ends_at_the_views_edge) {
  EXPECT_EQ(Leader({{2000, -2000}, {2000, -1000}}), Draw("10 20\n20 80\n10 20\n20 95\n"));
  EXPECT_EQ(Leader({{2000, -2000}, {2000, -3000}}), Draw("10 20\n20 80\n10 20\n20 60\n"));
  // It may be upright on the sheet alone.
  EXPECT_EQ(Leader({{2000, -2000}, {2000, -1000}}), Draw("10 20\n20 80\n10 20.004\n20 95\n"));
}

TEST_F(LeaderInViewTest, an_upright_first_leg_within_the_view_goes_on) {
  EXPECT_EQ(Leader({{2000, -2000}, {2000, -2500}, {2500, -2500}, {2500, -2500}}),
            Draw("10 20\n20 80\n10 20\n20 75\n10 25\n20 75\n"));
  EXPECT_EQ(Leader({{2000, -2000}, {2000, -2000}, {2000, -2000}}), Draw("10 20\n20 80\n10 20\n20 80\n"));
}

TEST_F(LeaderTest, an_end_that_the_cut_computes_anew_may_lie_a_unit_off) {
  // To (1600, -900): m = 1 / 6, and b = -900 - 1600 / 6 comes out as -1166.66...65, so that 1600 * m + b is
  // -899.9999. The hook is at the vertex.
  EXPECT_EQ(Leader({{1000, -1000}, {1600, -899}, {1600, -900}}), Draw("10 10\n20 90\n10 16\n20 91\n"));
}

// Whether it goes on after the first leg.

TEST_F(LeaderInViewTest, behind_a_first_leg_that_ends_on_an_edge_there_is_no_more_line_and_no_hook) {
  const std::string rest = "10 22\n20 82\n1000 ARROW\n";
  for (const auto& end : Places{{1000, -2500}, {3000, -2500}, {2500, -1000}, {2500, -3000}}) {
    const std::string second =
        "10 " + std::to_string(end.first / 100) + "\n20 " + std::to_string(100 + end.second / 100) + "\n";
    EXPECT_EQ(Leader({{2000, -2000}, end}), Draw("41 5\n10 20\n20 80\n" + second + rest));
    EXPECT_EQ(1, result);
    EXPECT_EQ(0, state.groupCode);
  }
  // The rest of its groups is left to the section.
  EXPECT_STREQ("70", state.groupValue);
}

TEST_F(LeaderInViewTest, a_first_leg_that_ends_a_unit_within_each_edge_goes_on) {
  for (const auto& end : Places{{1001, -2500}, {2999, -2500}, {2500, -1001}, {2500, -2999}}) {
    const std::string groups = "10 20\n20 80\n10 " + std::to_string(end.first) + "E-2\n20 " +
                               std::to_string(10000 + end.second) + "E-2\n10 22\n20 82\n";
    EXPECT_EQ(1u, Count(Draw(groups), "LineTo(2200, -1800)\nLineTo(2200, -1800)\n")) << groups;
  }
}

// Further vertices.

TEST_F(LeaderInViewTest, a_third_vertex_outside_ends_the_line_at_the_edge) {
  const std::string start = "10 20\n20 80\n10 22\n20 78\n";
  const std::string rest = "10 25\n20 75\n1000 ARROW\n";
  // To the left and right the hook has nowhere to go.
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {1000, -2500}, {1000, -2500}}),
            Draw(start + "10 5\n20 75\n" + rest));
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {3000, -2500}, {3000, -2500}}),
            Draw(start + "10 35\n20 75\n" + rest));
  // Above and below there is none.
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {2500, -1000}}), Draw(start + "10 25\n20 95\n" + rest));
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {2500, -3000}}), Draw(start + "10 25\n20 65\n" + rest));
  // Not the crossing, but each coordinate by itself.
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {3000, -1000}}), Draw(start + "10 35\n20 95\n" + rest));
  EXPECT_EQ(1, result);
  EXPECT_TRUE(AtGroup(0, "95"));
}

TEST_F(LeaderInViewTest, a_third_vertex_on_an_edge_lies_within) {
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {3000, -3000}, {2500, -2500}, {2500, -2500}}),
            Draw("10 20\n20 80\n10 22\n20 78\n10 30\n20 70\n10 25\n20 75\n"));
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {1000, -1000}, {2500, -2500}, {2500, -2500}}),
            Draw("10 20\n20 80\n10 22\n20 78\n10 10\n20 90\n10 25\n20 75\n"));
}

TEST_F(LeaderInViewTest, behind_a_leader_that_ends_at_an_edge_the_next_entity_is_drawn) {
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {2500, -1000}}) + Stroke(red, 1000, -1000, 3000, -2000),
            DrawSection("0 LEADER\n10 20\n20 80\n10 22\n20 78\n10 25\n20 95\n10 25\n20 75\n1000 LINE\n"
                        "0 LINE\n62 1\n" +
                        Ends(10, 90, 30, 80)));
}

TEST_F(LeaderInViewTest, a_name_in_place_of_the_number_that_ends_it_starts_that_entity) {
  // "LEADER" is Y 0, -10000 on the sheet. The leader that it starts has the rest of the groups.
  view = {0, 0, 20000, 9000};
  const std::string start = "10 20\n20 80\n10 22\n20 78\n";
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {2500, -9000}}) +
                Leader({{3000, -1000}, {3100, -2000}, {3100, -2000}}),
            DrawSection("0 LEADER\n" + start + "10 25\n20 LEADER\n10 30\n20 90\n10 31\n20 80\n"));
}

// The hook.

TEST_F(LeaderTest, behind_a_leg_to_the_right_the_hook_goes_to_the_right) {
  EXPECT_EQ(Leader({{1000, -1000}, {2000, -2000}, {3000, -2000}, {3500, -2000}}), Draw("41 5\n" + bent));
  EXPECT_EQ(Leader({{1000, -1000}, {2000, -2000}, {2500, -2000}}),
            Draw("41 5\n10 10\n20 90\n10 20\n20 80\n"));
}

TEST_F(LeaderTest, behind_a_leg_to_the_left_the_hook_goes_to_the_left) {
  EXPECT_EQ(Leader({{3000, -1000}, {4000, -2000}, {3500, -3000}, {3000, -3000}}),
            Draw("41 5\n10 30\n20 90\n10 40\n20 80\n10 35\n20 70\n"));
  EXPECT_EQ(Leader({{3000, -1000}, {2000, -2000}, {1500, -2000}}),
            Draw("41 5\n10 30\n20 90\n10 20\n20 80\n"));
}

TEST_F(LeaderTest, behind_an_upright_last_leg_the_hook_goes_to_the_left) {
  EXPECT_EQ(Leader({{1000, -1000}, {2000, -2000}, {2000, -3000}, {1500, -3000}}),
            Draw("41 5\n10 10\n20 90\n10 20\n20 80\n10 20\n20 70\n"));
  EXPECT_EQ(Leader({{2000, -1000}, {2000, -2000}, {1500, -2000}}),
            Draw("41 5\n10 20\n20 90\n10 20\n20 80\n"));
}

TEST_F(LeaderTest, the_last_x_told_decides_where_the_hook_goes) {
  // The second of two groups 10 is left of the first, though right of the vertex before.
  EXPECT_EQ(Leader({{1000, -1000}, {1500, -2000}, {1000, -2000}}),
            Draw("41 5\n10 10\n20 90\n10 20\n10 15\n20 80\n"));
  // An X without its Y moves the hook.
  EXPECT_EQ(Leader({{1000, -1000}, {2000, -2000}, {3500, -2000}}),
            Draw("41 5\n10 10\n20 90\n10 20\n20 80\n10 30\n"));
}

TEST_F(LeaderInViewTest, the_hook_ends_at_the_views_left_or_right_edge) {
  EXPECT_EQ(Leader({{2000, -2000}, {2500, -2500}, {3000, -2500}}),
            Draw("41 9\n10 20\n20 80\n10 25\n20 75\n"));
  EXPECT_EQ(Leader({{2000, -2000}, {1500, -2500}, {1000, -2500}}),
            Draw("41 9\n10 20\n20 80\n10 15\n20 75\n"));
}

TEST_F(LeaderInViewTest, a_hook_of_negative_length_is_not_limited) {
  EXPECT_EQ(Leader({{2000, -2000}, {2500, -2500}, {500, -2500}}),
            Draw("41 -20\n10 20\n20 80\n10 25\n20 75\n"));
  EXPECT_EQ(Leader({{2000, -2000}, {1500, -2500}, {3500, -2500}}),
            Draw("41 -20\n10 20\n20 80\n10 15\n20 75\n"));
}

TEST_F(LeaderInViewTest, on_the_upper_and_lower_edge_there_is_no_hook) {
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {2500, -1000}}),
            Draw("41 2\n10 20\n20 80\n10 22\n20 78\n10 25\n20 90\n"));
  EXPECT_EQ(Leader({{2000, -2000}, {2200, -2200}, {2500, -3000}}),
            Draw("41 2\n10 20\n20 80\n10 22\n20 78\n10 25\n20 70\n"));
}

TEST_F(LeaderTest, a_hook_length_behind_the_first_vertex_comes_too_late) {
  EXPECT_EQ(Leader(bentPlaces), Draw("10 10\n20 90\n41 5\n10 20\n20 80\n41 5\n10 30\n20 80\n41 5\n"));
}

// The turned sheet.

TEST_F(LeaderTest, on_a_turned_sheet_each_of_its_points_is_turned) {
  state.rotated = 1;
  // 20000 - X and -10000 - Y, the hook's end of (3500, -2000) too.
  EXPECT_EQ(Leader({{19000, -9000}, {18000, -8000}, {17000, -8000}, {16500, -8000}}), Draw("41 5\n" + bent));
}

TEST_F(LeaderInShiftedViewTest, on_a_turned_sheet_the_record_of_a_rejected_leg_is_turned) {
  state.rotated = 1;
  EXPECT_EQ(Leader({{18000, -8000}, {20001, -9999}}), Draw("10 30\n20 80\n10 15\n20 20\n"));
}

// Bad input.

TEST_F(LeaderTest, a_vertex_far_beyond_any_sheet_does_no_harm) {
  const std::string start = "41 1E+300\n10 10\n20 90\n";
  for (const char* vertex : {"10 1E+300\n20 80\n", "10 -1E+300\n20 80\n", "10 20\n20 1E+300\n",
                             "10 1E+999\n20 -1E+999\n", "10 0\n20 1E+999\n"}) {
    EXPECT_EQ(1u, Count(Draw(start + vertex), "DeleteObject(1)")) << vertex;
    EXPECT_EQ(1u, Count(Draw(start + "10 20\n20 80\n" + vertex), "DeleteObject(1)")) << vertex;
  }
}

TEST_F(LeaderTest, a_hook_beyond_any_number_does_no_harm) {
  // -2147483648 is left of the right edge, which is all that limits it.
  EXPECT_EQ(Leader({{1000, -1000}, {2000, -2000}, {-2147483647 - 1, -2000}}),
            Draw("41 1E+300\n10 10\n20 90\n10 20\n20 80\n"));
}

TEST_F(LeaderTest, at_the_end_of_the_file_it_is_drawn_with_what_it_has) {
  EXPECT_EQ(Leader({{1000, -1000}, {2000, -2000}, {3000, -2000}, {3500, -2000}}, red),
            DrawText("0 LEADER\n8 WALLS\n41 5\n" + bent));
  EXPECT_EQ(0, result);
  EXPECT_EQ(Leader({{1000, -1000}}), DrawText("0 LEADER\n10 10\n20 90\n"));
  EXPECT_EQ(0, result);
  EXPECT_EQ("", DrawText("0 LEADER\n10 10\n"));
  EXPECT_EQ(0, result);
  EXPECT_EQ("", DrawText("0 LEADER\n"));
  EXPECT_EQ(0, result);
}

TEST_F(LeaderTest, a_file_may_end_behind_any_byte) {
  CutAfterEachByte("0 LEADER\n3 A\n8 WALLS\n62 5\n41 5\n" + bent + "1000 DSTYLE\n1000 A\n",
                   [this](Canvas canvas) {
                     Run(canvas);
                     EXPECT_EQ(0, ReadGroup(stream));
                   });
}

TEST_F(LeaderTest, wherever_the_file_ends_the_pen_is_put_back_and_deleted) {
  const std::string text = "0 LEADER\n8 WALLS\n41 5\n" + bent + "1000 A\n";
  OpenAt(text);
  const TextStream whole = {nullptr, stream.bytes, true, 0};
  for (auto end = static_cast<size_t>(stream.position); end <= whole.bytes.size(); ++end) {
    OpenAt(text);
    stream.bytes.resize(end);
    const std::string calls = ListCalls([this](Canvas canvas) { Run(canvas); });
    EXPECT_EQ(Count(calls, "CreatePen("), Count(calls, "SelectObject(BLACK_PEN)\nDeleteObject(1)\n")) << end;
  }
}

}  // namespace
}  // namespace hexlume::leader_test
