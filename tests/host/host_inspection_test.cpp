// What a drawing contains.
#include <gtest/gtest.h>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"

namespace hexlume {
namespace {

using host::InspectBytes;

// 9 groups of tables' heads and ends, so many of the entries.
const std::string tables =
    "0 SECTION\n2 TABLES\n0 TABLE\n2 LTYPE\n0 LTYPE\n2 DASHED\n73 2\n49 1\n49 -1\n0 ENDTAB\n"
    "0 TABLE\n2 LAYER\n0 LAYER\n2 0\n70 0\n62 7\n6 CONTINUOUS\n0 LAYER\n2 \x90\xA1\x96@\n70 0\n62 -3\n6 "
    "DASHED\n"
    "0 LAYER\n2 FROZEN\n70 1\n62 2\n0 ENDTAB\n0 TABLE\n2 DIMSTYLE\n0 DIMSTYLE\n2 STANDARD\n40 1\n0 ENDTAB\n"
    "0 ENDSEC\n";

std::string Drawing() {
  return DrawingBytes(
      "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1009\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n"
      "9 $EXTMIN\n10 1.5\n20 2.5\n9 $EXTMAX\n10 400\n20 200\n0 ENDSEC\n" +
      tables + "0 SECTION\n2 BLOCKS\n0 BLOCK\n8 0\n2 DOOR\n70 0\n10 0\n20 0\n3 DOOR\n" + Line("8 0\n") +
      "0 TEXT\n8 0\n10 7\n20 8\n40 3\n1 IN A BLOCK\n0 ENDBLK\n8 0\n0 ENDSEC\n"
      "0 SECTION\n2 ENTITIES\n" +
      Line("8 0\n") + Line("8 0\n") + Line("8 \x90\xA1\x96@\n") +
      "0 3DFACE\n8 0\n10 1\n20 1\n"
      "0 POLYLINE\n8 0\n66 1\n0 VERTEX\n8 0\n10 1\n20 1\n0 SEQEND\n8 0\n"
      "0 MTEXT\n8 0\n10 10\n20 20.5\n40 2.5\n50 30\n3 first, \n1 \x90\x7D\\Psecond\n" +
      end);
}

TEST(HostInspection, the_header_and_the_sheet) {
  const host::Result result = InspectBytes(Drawing());
  EXPECT_EQ("ok", result.StatusName());
  const hexlume_summary& summary = *result.Summary();
  EXPECT_EQ(sizeof summary, summary.size);
  EXPECT_STREQ("AC1009", summary.version);
  EXPECT_EQ(1, summary.has_limits);
  EXPECT_EQ(1, summary.has_extents);
  EXPECT_EQ(420.0, summary.limits[2]);
  EXPECT_EQ(297.0, summary.limits[3]);
  EXPECT_EQ(1.5, summary.extents[0]);
  EXPECT_EQ(2.5, summary.extents[1]);
  EXPECT_EQ(400.0, summary.extents[2]);
  EXPECT_EQ(200.0, summary.extents[3]);
  EXPECT_EQ(42000, summary.sheet_width);
  EXPECT_EQ(29700, summary.sheet_height);
  EXPECT_EQ(1, summary.denominator);
  EXPECT_EQ(1.0, summary.scale);
  EXPECT_TRUE(result.Metafile().empty());
}

// As a conversion with the same options has it.
TEST(HostInspection, the_sheet_follows_the_options) {
  host::Options options;
  options.fit = 1;
  const host::Result inspected = InspectBytes(A3("0 LINE\n10 0\n20 0\n11 50\n21 20\n"), options);
  EXPECT_EQ(5000, inspected.Summary()->sheet_width);
  EXPECT_EQ(2000, inspected.Summary()->sheet_height);
  const std::string large = DrawingBytes(
      "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 100000\n20 50000\n0 ENDSEC\n"
      "0 SECTION\n2 ENTITIES\n" +
      end);
  EXPECT_EQ(100, InspectBytes(large).Summary()->denominator);
  EXPECT_EQ(100000, InspectBytes(large).Summary()->sheet_width);
  host::Options scaled;
  scaled.denominator = 200;
  EXPECT_EQ(200, InspectBytes(large, scaled).Summary()->denominator);
  EXPECT_EQ(50000, InspectBytes(large, scaled).Summary()->sheet_width);
  EXPECT_EQ(200.0, InspectBytes(large, scaled).Summary()->scale);
}

TEST(HostInspection, layers_in_the_order_of_the_file) {
  const host::Result result = InspectBytes(Drawing());
  std::string layers;
  for (const hexlume_layer& layer : result.Layers())
    layers += std::string(layer.name) + " " + std::to_string(layer.color) + " " + layer.line_type + " " +
              std::to_string(layer.shown) + "\n";
  EXPECT_EQ("0 7 CONTINUOUS 1\n寸法 -3 DASHED 0\nFROZEN 2  0\n", layers);
}

TEST(HostInspection, line_types_and_dimension_styles) {
  const host::Result result = InspectBytes(Drawing());
  EXPECT_STREQ("DASHED", result.LineTypes().begin()->name);
  EXPECT_EQ(2, result.LineTypes().begin()->elements);
  EXPECT_STREQ("STANDARD", result.DimStyles().begin()->name);
  EXPECT_EQ(++result.DimStyles().begin(), result.DimStyles().end());
}

// 32 lines of the header, and of the tables each group two.
TEST(HostInspection, blocks_with_their_lines) {
  const host::Result result = InspectBytes(Drawing());
  const hexlume_block& block = *result.Blocks().begin();
  EXPECT_STREQ("DOOR", block.name);
  EXPECT_EQ(2, block.entities);
  const auto tableLines = 2 * static_cast<int64_t>(Count(tables, "\n"));
  EXPECT_EQ(2 * 17 + tableLines + 4 + 1, block.line);
  EXPECT_EQ(++result.Blocks().begin(), result.Blocks().end());
}

TEST(HostInspection, entities_by_kind_and_layer) {
  const host::Result result = InspectBytes(Drawing());
  std::string rows;
  for (const hexlume_entities& row : result.Entities())
    rows += std::string(row.kind) + " " + row.layer + " " + std::to_string(row.count) + " " +
            std::to_string(row.count_in_blocks) + (row.drawn ? " drawn" : "") +
            (row.drawn_in_blocks ? " in blocks" : "") + "\n";
  EXPECT_EQ(
      "3DFACE 0 1 0\n"
      "LINE 0 2 1 drawn in blocks\n"
      "LINE 寸法 1 0 drawn in blocks\n"
      "MTEXT 0 1 0 drawn in blocks\n"
      "POLYLINE 0 1 0 drawn in blocks\n"
      "TEXT 0 0 1 drawn in blocks\n",
      rows);
}

TEST(HostInspection, kinds_that_blocks_do_not_draw) {
  const host::Result result =
      InspectBytes(A3("0 HATCH\n8 0\n0 ATTRIB\n8 0\n0 DIMENSION\n8 0\n0 IMAGE\n8 0\n"));
  std::string rows;
  for (const hexlume_entities& row : result.Entities())
    rows += row.kind + std::to_string(row.drawn) + std::to_string(row.drawn_in_blocks) + " ";
  EXPECT_EQ("ATTRIB10 DIMENSION10 HATCH10 IMAGE00 ", rows);
}

TEST(HostInspection, texts_in_utf8_with_their_places) {
  const std::string drawing = Drawing();
  const host::Result result = InspectBytes(drawing);
  auto text = result.Texts().begin();
  EXPECT_STREQ("IN A BLOCK", text->text);
  EXPECT_STREQ("DOOR", text->block);
  EXPECT_STREQ("TEXT", text->kind);
  EXPECT_EQ(7.0, text->x);
  EXPECT_EQ(8.0, text->y);
  EXPECT_EQ(3.0, text->height);
  ++text;
  EXPECT_STREQ("first, 図\\Psecond", text->text);
  EXPECT_STREQ("", text->block);
  EXPECT_STREQ("MTEXT", text->kind);
  EXPECT_STREQ("0", text->layer);
  EXPECT_EQ(10.0, text->x);
  EXPECT_EQ(20.5, text->y);
  EXPECT_EQ(2.5, text->height);
  EXPECT_EQ(30.0, text->angle);
  const size_t place = drawing.find("0\nMTEXT");
  EXPECT_EQ(static_cast<int64_t>(Count(drawing.substr(0, place), "\n")) + 1, text->line);
  EXPECT_EQ(++text, result.Texts().end());
}

TEST(HostInspection, lines_count_what_was_left_out) {
  const std::string drawing = DrawingBytes(
      "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1032\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n"
      "0 MTEXT\n10 1\n20 2\n1 \xE5\x9B\xB3\n101 Embedded Object\n10 9\n20 9\n1 x\n"
      "0 TEXT\n10 3\n20 4\n1 second\n" +
      end);
  const host::Result result = InspectBytes(drawing);
  auto text = result.Texts().begin();
  EXPECT_STREQ("図", text->text);
  EXPECT_EQ(1.0, text->x);
  EXPECT_EQ(15, text->line);
  ++text;
  EXPECT_STREQ("second", text->text);
  // 14 lines before the MTEXT, 16 of it, 8 of which are left out.
  EXPECT_EQ(31, text->line);
}

TEST(HostInspection, what_was_read_of_a_cut_off_drawing_is_there) {
  const std::string whole = Drawing();
  const host::Result result = InspectBytes(whole.substr(0, whole.find("0\n3DFACE")));
  EXPECT_TRUE(result);
  EXPECT_EQ(HEXLUME_REMARK_CUT_OFF, result.Remarks().begin()->code);
  EXPECT_EQ(3, std::distance(result.Layers().begin(), result.Layers().end()));
  EXPECT_EQ(2, result.Entities().begin()->count);
  const std::string noLayers =
      DrawingBytes(a3Header + "0 SECTION\n2 TABLES\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n" + Line() + end);
  const host::Result unmeasured = InspectBytes(noLayers);
  EXPECT_EQ("no-layers", unmeasured.StatusName());
  EXPECT_EQ(1, unmeasured.Entities().begin()->count);
}

// Every length of a drawing: nothing crashes, and there is always a status.
TEST(HostInspection, drawings_that_end_anywhere) {
  const std::string whole = Drawing();
  for (size_t length = 0; length < whole.size(); length += 3)
    EXPECT_NE(nullptr, hexlume_status_name(InspectBytes(whole.substr(0, length)).Status()));
}

TEST(HostInspection, a_conversion_has_no_summary) {
  EXPECT_EQ(nullptr, host::ConvertBytes(Drawing()).Summary());
  EXPECT_NE(nullptr, host::Inspect("no such file.dxf").Summary());
}

}  // namespace
}  // namespace hexlume
