// What stays in the library from one call to the next, through its exports. Each test loads the library anew.
#include <gtest/gtest.h>

#include <string>

#include "support/loaded_library.h"
#include "support/metafile_canvas.h"
#include "support/text_drawing.h"

namespace hexlume::between_calls_test {
namespace {

std::string Drawing(int32_t width, int32_t height, const std::string& entities) {
  return "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 " + std::to_string(width) + "\n20 " +
         std::to_string(height) + "\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n" + entities + "0 ENDSEC\n0 EOF\n";
}

// 420 by 297, with a block B of a line to (10, 5) in the colour that its INSERT hands on.
std::string DrawingWithBlock(const std::string& entities) {
  return "0 SECTION\n2 BLOCKS\n0 BLOCK\n2 B\n10 0\n20 0\n3 B\n"
         "0 LINE\n6 BYBLOCK\n62 0\n10 0\n20 0\n11 10\n21 5\n0 ENDBLK\n0 ENDSEC\n" +
         Drawing(420, 297, entities);
}

const std::string redLine = "0 LINE\n62 1\n10 0\n20 0\n11 10\n21 20\n";
const std::string lineWithoutEnd = "0 LINE\n62 5\n10 1\n20 1\n";
// To the left, without a style: the arrow's block is named in its extended data.
const std::string leaderWithoutStyle = "0 LEADER\n10 100\n20 100\n10 50\n20 100\n1000 DSTYLE\n1000 B\n";

class BetweenCalls : public testing::Test {
 protected:
  // A metafile's listing, "" and the code in `code` where there is none.
  template <typename Call>
  std::string Listing(Call call) {
    HENHMETAFILE metafile = nullptr;
    code = call(&metafile);
    return metafile ? ListAndDelete(metafile) : "";
  }

  std::string Whole(const TemporaryDrawing& drawing) {
    return Listing([&](HENHMETAFILE* out) { return library.metaMake(drawing.Path(), out, 0, 0); });
  }
  std::string FullSize(const TemporaryDrawing& drawing) {
    return Listing([&](HENHMETAFILE* out) { return library.fullSizeMetaMake(drawing.Path(), out, 0, 0); });
  }
  std::string Part(const TemporaryDrawing& drawing, const RECT& view) {
    return Listing([&](HENHMETAFILE* out) { return library.reMetaMake(drawing.Path(), out, 0, view, 0, 0); });
  }
  std::string Turned() {
    return Listing([&](HENHMETAFILE* out) { return library.rotMetaMake(out); });
  }

  const LoadedLibrary library;
  int32_t code = -1;
};

std::string Stroke(const std::string& frame, const std::string& color, const std::string& from,
                   const std::string& to) {
  return "Frame(" + frame + ")\nSetMapMode(MM_HIMETRIC)\nCreatePen(1, PS_SOLID, 0, " + color +
         ")\nSelectObject(1)\nMoveToEx(" + from + ")\nLineTo(" + to +
         ")\nSelectObject(BLACK_PEN)\nDeleteObject(1)\n";
}

TEST_F(BetweenCalls, a_turn_before_any_conversion_gives_30) {
  EXPECT_EQ("", Turned());
  EXPECT_EQ(30, code);
}

TEST_F(BetweenCalls, a_turn_after_a_part_of_the_sheet_alone_gives_30) {
  const TemporaryDrawing drawing(Drawing(420, 297, redLine));
  Part(drawing, {0, 0, 42000, 29700});
  EXPECT_EQ("", Turned());
  EXPECT_EQ(30, code);
}

TEST_F(BetweenCalls, the_monochrome_switch_stays_for_the_plain_conversions) {
  const TemporaryDrawing drawing(Drawing(420, 297, redLine));
  EXPECT_NE(std::string::npos, Whole(drawing).find("0x0000FF"));
  EXPECT_EQ(30, library.dxfRotMetaMake(nullptr, 1));
  EXPECT_NE(std::string::npos, Whole(drawing).find("0x000000"));
  EXPECT_NE(std::string::npos, Turned().find("0x000000"));
  HENHMETAFILE metafile = nullptr;
  EXPECT_EQ(0, library.dxfFullSizeMetaMake(drawing.Path(), &metafile, 0, 0, 0));
  EXPECT_NE(std::string::npos, ListAndDelete(metafile).find("0x0000FF"));
  EXPECT_NE(std::string::npos, Whole(drawing).find("0x0000FF"));
}

TEST_F(BetweenCalls, an_entity_without_an_end_takes_that_of_the_drawing_before) {
  const TemporaryDrawing first(Drawing(420, 297, redLine));
  const TemporaryDrawing second(Drawing(420, 297, lineWithoutEnd));
  Whole(first);
  // From (1, 1) to (10, 20): 100 - 29700 = -29600, 2000 - 29700 = -27700.
  EXPECT_EQ(Stroke("0, 0, 42000, 29700", "0xFF0000", "100, -29600", "1000, -27700"), Whole(second));
}

TEST_F(BetweenCalls, in_a_fresh_process_an_entity_without_an_end_goes_to_the_origin) {
  const TemporaryDrawing drawing(Drawing(420, 297, lineWithoutEnd));
  // The point with the smaller X comes first: (0, 0) and then (1, 1).
  EXPECT_EQ(Stroke("0, 0, 42000, 29700", "0xFF0000", "0, -29700", "100, -29600"), Whole(drawing));
}

// The leader is at 10000, 10000 - 29700, and its arrow's line goes on to the end given.
std::string LeaderAndArrow(const std::string& arrowEnd) {
  return "Frame(0, 0, 42000, 29700)\nSetMapMode(MM_HIMETRIC)\nCreatePen(1, PS_SOLID, 0, 0x000000)\n"
         "SelectObject(1)\nMoveToEx(10000, -19700)\nLineTo(5000, -19700)\nLineTo(5000, -19700)\n"
         "SelectObject(BLACK_PEN)\nDeleteObject(1)\nCreatePen(1, PS_SOLID, 0, 0x000000)\nSelectObject(1)\n"
         "MoveToEx(10000, -19700)\nLineTo(" +
         arrowEnd + ")\nSelectObject(BLACK_PEN)\nDeleteObject(1)\n";
}

TEST_F(BetweenCalls, in_a_fresh_process_a_leader_without_a_style_has_its_arrow_at_scale_1) {
  const TemporaryDrawing drawing(DrawingWithBlock(leaderWithoutStyle));
  // 10000 + 1000, -19700 + 500.
  EXPECT_EQ(LeaderAndArrow("11000, -19200"), Whole(drawing));
}

TEST_F(BetweenCalls, a_leader_without_a_style_takes_the_scales_of_the_insert_in_the_drawing_before) {
  const TemporaryDrawing first(DrawingWithBlock("0 INSERT\n2 B\n10 0\n20 0\n41 2\n42 3\n"));
  const TemporaryDrawing second(DrawingWithBlock(leaderWithoutStyle));
  Whole(first);
  // 10000 + 2 * 1000, -19700 + 3 * 500.
  EXPECT_EQ(LeaderAndArrow("12000, -18200"), Whole(second));
}

TEST_F(BetweenCalls, an_insert_without_a_colour_takes_that_of_the_last_entity_of_the_drawing_before) {
  const TemporaryDrawing first(Drawing(420, 297, redLine));
  const TemporaryDrawing second(DrawingWithBlock("0 INSERT\n8 0\n2 B\n10 0\n20 0\n"));
  Whole(first);
  EXPECT_EQ(Stroke("0, 0, 42000, 29700", "0x0000FF", "0, -29700", "1000, -29200"), Whole(second));
}

TEST_F(BetweenCalls, a_text_has_the_face_that_a_text_of_the_drawing_before_has_named) {
  const std::string place = "0 MTEXT\n10 10\n20 10\n40 5\n71 1\n1 ";
  const TemporaryDrawing first(Drawing(420, 297, place + "\\fNAMED|b0;AB\n"));
  const TemporaryDrawing second(Drawing(420, 297, place + "AB\n"));
  EXPECT_EQ(std::string::npos, Whole(second).find("NAMED"));
  EXPECT_NE(std::string::npos, Whole(first).find("NAMED"));
  EXPECT_NE(std::string::npos, Whole(second).find("NAMED"));
}

TEST_F(BetweenCalls, ten_conversions_in_a_row_depend_on_what_stays_and_on_nothing_else) {
  const TemporaryDrawing a3(Drawing(420, 297, redLine));
  const TemporaryDrawing a4(Drawing(210, 297, lineWithoutEnd));
  const TemporaryDrawing large(Drawing(2000, 1500, redLine));
  const TemporaryDrawing broken("0 SECTION\n2 TABLES\n0 ENDSEC\n0 EOF\n");

  // 1. (0, 0) to (10, 20) on 297 mm.
  EXPECT_EQ(Stroke("0, 0, 42000, 29700", "0x0000FF", "0, -29700", "1000, -27700"), Whole(a3));
  // 2. The turn of 1: 42000 - 1000, -29700 + 27700, then 42000 - 0, -29700 + 29700 (297 mm are even
  // hundredths).
  EXPECT_EQ(Stroke("0, 0, 42000, 29700", "0x0000FF", "41000, -2000", "42000, 0"), Turned());
  // 3. A part of another drawing: its own frame; the end is that of the red line. View 0 to 21000, all
  // inside.
  EXPECT_EQ(Stroke("0, 0, 21000, 29700", "0xFF0000", "100, -29600", "1000, -27700"),
            Part(a4, {0, 0, 21000, 29700}));
  // 4. The turn still repeats 1.
  EXPECT_EQ(Stroke("0, 0, 42000, 29700", "0x0000FF", "41000, -2000", "42000, 0"), Turned());
  // 5. Beyond A0: 1:100. 20 by 15 mm, (10, 20) at (10, 20 - 1500).
  EXPECT_EQ(Stroke("0, 0, 2000, 1500", "0x0000FF", "0, -1500", "10, -1480"), Whole(large));
  // 6. The turn takes the scale 100 as its denominator. (2000 - 10, -1500 + 1480), (2000 - 0, -1500 + 1500).
  EXPECT_EQ(Stroke("0, 0, 2000, 1500", "0x0000FF", "1990, -20", "2000, 0"), Turned());
  // 7. At full size the sheet is that of 1:100 and the model overflows it: drawScale is 1, sheetHeightF 1500,
  // so (0, 0) is at -1500 and (1000, 2000) at 500, above the sheet's top. m = 2000 / 1000 = 2, b = 500 -
  // 1000 * 2 = -1500. The end's yDown -500 is above the top 0, so the end is at y 0, x (0 + 1500) / 2 = 750.
  EXPECT_EQ(Stroke("0, 0, 2000, 1500", "0x0000FF", "0, -1500", "750, 0"), FullSize(large));
  // 8. A file that can't be measured leaves the carry-over alone.
  EXPECT_EQ("", Whole(broken));
  EXPECT_EQ(30, code);
  // 9. The turn after the full size has the denominator 1: 2000 by 1500 mm, (10, 20) at (1000, 2000 -
  // 150000), turned (200000 - 1000, -150000 + 148000).
  EXPECT_EQ(Stroke("0, 0, 200000, 150000", "0x0000FF", "199000, -2000", "200000, 0"), Turned());
  // 10. And the whole sheet again as at first.
  EXPECT_EQ(Stroke("0, 0, 42000, 29700", "0x0000FF", "0, -29700", "1000, -27700"), Whole(a3));
}

}  // namespace
}  // namespace hexlume::between_calls_test
