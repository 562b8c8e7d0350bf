// The walk over the ENTITIES section.

#include "entities/entity_dispatch.h"

#include <gtest/gtest.h>

#include <string>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::entity_dispatch_test {
namespace {

const char canvasSetUp[] = "SetMapMode(MM_HIMETRIC)\n";

class DrawEntitiesTest : public ConverterTest {
 protected:
  DrawEntitiesTest() { wholeSheet = 1; }

  // The listing of a section with these groups after its name.
  std::string Draw(const std::string& groups) {
    stream = StreamOf(groups);
    return ListCalls([this](Canvas canvas) { DrawEntities({RunOn(canvas)}); });
  }
};

// From (1000, -1000) to (3000, -2000).
const std::string line = "0 LINE\n" + Ends(10, 90, 30, 80);
const std::string lineStroke = Stroke(black, 1000, -1000, 3000, -2000);
// From (5000, -5000) to (6000, -6000).
const std::string secondLine = "0 LINE\n62 1\n" + Ends(50, 50, 60, 40);
const std::string secondStroke = Stroke(red, 5000, -5000, 6000, -6000);

TEST_F(DrawEntitiesTest, the_mapping_mode_is_its_first_call) {
  EXPECT_EQ(canvasSetUp, Draw("0 ENDSEC\n"));
  EXPECT_EQ(canvasSetUp + lineStroke, Draw(line + "0 ENDSEC\n"));
}

TEST_F(DrawEntitiesTest, arc_clockwise_is_0_on_a_system_of_today) {
  state.arcClockwise = 1;
  Draw("0 ENDSEC\n");
  EXPECT_EQ(0, state.arcClockwise);
}

TEST_F(DrawEntitiesTest, an_empty_text_draws_nothing) {
  EXPECT_EQ(canvasSetUp, Draw(""));
}

TEST_F(DrawEntitiesTest, the_entity_behind_a_line_is_not_lost) {
  EXPECT_EQ(canvasSetUp + lineStroke + secondStroke + lineStroke,
            Draw(line + secondLine + line + "0 ENDSEC\n"));
}

// The ends.

TEST_F(DrawEntitiesTest, endsec_ends_it_with_what_follows_unread) {
  EXPECT_EQ(canvasSetUp + lineStroke, Draw(line + "0 ENDSEC\n0 SECTION\n" + secondLine));
  EXPECT_TRUE(AtGroup(0, "ENDSEC"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(0, "SECTION"));
}

TEST_F(DrawEntitiesTest, the_end_of_the_file_ends_it) {
  EXPECT_EQ(canvasSetUp + lineStroke, Draw(line));
  EXPECT_EQ(canvasSetUp + lineStroke, Draw(line + "0 FOO\n10 1\n"));
}

TEST_F(DrawEntitiesTest, eof_and_endblk_are_passed_over) {
  EXPECT_EQ(canvasSetUp + lineStroke + secondStroke, Draw(line + "0 ENDBLK\n0 EOF\n" + secondLine));
}

TEST_F(DrawEntitiesTest, endsec_under_another_code_does_not_end_it) {
  EXPECT_EQ(canvasSetUp + lineStroke, Draw("1 ENDSEC\n2 ENDSEC\n" + line));
}

TEST_F(DrawEntitiesTest, endsec_in_another_spelling_does_not_end_it) {
  EXPECT_EQ(canvasSetUp + lineStroke, Draw("0 ENDSEC \n0 Endsec\n0 ENDSECTION\n0 ENDSE\n" + line));
}

// What is passed over.

TEST_F(DrawEntitiesTest, an_unknown_entity_is_skipped_group_by_group) {
  EXPECT_EQ(canvasSetUp + lineStroke + secondStroke,
            Draw("0 FOO\n8 WALLS\n62 3\n10 7\n20 7\n11 8\n21 8\n" + line + "0 BAR\n10 7\n0 FOO\n" +
                 secondLine + "0 ENDSEC\n"));
}

TEST_F(DrawEntitiesTest, groups_of_an_unknown_entity_reach_no_line) {
  // The second line's start is that of the first.
  EXPECT_EQ(canvasSetUp + lineStroke + Stroke(black, 1000, -1000, 2000, -2000),
            Draw(line + "0 FOO\n10 7\n20 7\n0 LINE\n11 20\n21 80\n0 ENDSEC\n"));
}

TEST_F(DrawEntitiesTest, a_keyword_is_compared_exactly) {
  const std::string ends = Ends(10, 90, 30, 80);
  for (const char* keyword : {"Line", "line", "LINE ", " LINE", "LINES", "LIN", "XLINE", "MLINE", ""})
    EXPECT_EQ(canvasSetUp, Draw("0 " + std::string(keyword) + "\n" + ends + "0 ENDSEC\n")) << keyword;
}

TEST_F(DrawEntitiesTest, a_keyword_under_another_code_is_not_an_entity) {
  EXPECT_EQ(canvasSetUp, Draw("0 FOO\n1 LINE\n" + Ends(10, 90, 30, 80) + "2 LINE\n0 ENDSEC\n"));
}

TEST_F(DrawEntitiesTest, a_code_line_without_a_number_is_code_0) {
  EXPECT_EQ(canvasSetUp + lineStroke, Draw("what LINE\n" + Ends(10, 90, 30, 80) + "0 ENDSEC\n"));
}

TEST_F(DrawEntitiesTest,
       a_line_on_an_excluded_layer_draws_nothing_and_the_entity_after_it_is_drawn_normally) {
  ExcludeLayer("WALLS");
  EXPECT_EQ(canvasSetUp + secondStroke,
            Draw("0 LINE\n8 WALLS\n" + Ends(10, 90, 30, 80) + secondLine + "0 ENDSEC\n"));
}

TEST_F(DrawEntitiesTest, the_rest_of_an_abandoned_entity_reaches_no_line) {
  ExcludeLayer("WALLS");
  // Of the abandoned line only its group 10 has been read: the last line starts at (2000, -1000).
  EXPECT_EQ(canvasSetUp + lineStroke + Stroke(black, 2000, -1000, 3000, -2000),
            Draw(line + "0 LINE\n10 20\n8 WALLS\n20 7\n11 7\n21 7\n0 LINE\n0 ENDSEC\n"));
}

TEST_F(DrawEntitiesTest, an_excluded_layer_called_like_an_entity_starts_none) {
  ExcludeLayer("LINE");
  ExcludeLayer("ENDSEC");
  EXPECT_EQ(canvasSetUp + secondStroke,
            Draw("0 LINE\n8 LINE\n" + Ends(10, 90, 30, 80) + "0 LINE\n8 ENDSEC\n" + secondLine));
}

// What is handed on.

TEST_F(DrawEntitiesTest, lines_are_cut_to_the_view) {
  view = {2000, 0, 20000, 10000};
  // Slope -0.5: at x = 2000 the line is at -1500.
  EXPECT_EQ(canvasSetUp + Stroke(black, 2000, -1500, 3000, -2000) + secondStroke,
            Draw(line + secondLine + "0 ENDSEC\n"));
}

}  // namespace
}  // namespace hexlume::entity_dispatch_test
