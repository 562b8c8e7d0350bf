// What the options of a conversion do.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"

namespace hexlume {
namespace {

using host::ConvertBytes;
using host::Options;

std::string ListingOf(const std::string& bytes, const Options& options = {}) {
  const host::Result result = ConvertBytes(bytes, options);
  EXPECT_EQ("ok", result.StatusName()) << result.Message();
  return Listing(result.Metafile());
}

// Layers SHOWN, OFF (its colour is negative) and 寸法, with a line each of another colour.
std::string Layers() {
  return DrawingBytes(a3Header +
                      "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n2 SHOWN\n70 0\n62 1\n0 LAYER\n2 OFF\n"
                      "70 0\n62 -5\n0 LAYER\n2 \x90\xA1\x96@\n70 0\n62 3\n0 ENDTAB\n0 ENDSEC\n"
                      "0 SECTION\n2 ENTITIES\n" +
                      Line("8 SHOWN\n62 1\n") + Line("8 OFF\n62 5\n") + Line("8 \x90\xA1\x96@\n62 3\n") +
                      end);
}
const std::string red = "0x0000FF", blue = "0xFF0000", green = "0x00FF00";

TEST(HostOptions, a_path_in_utf8_names_a_file_in_any_script) {
  const std::string path = TemporaryFolder() + "/hexlume \xE5\x9B\xB3 \xC3\xBC \xF0\x9F\x93\x90.dxf";
  std::ofstream(std::filesystem::u8path(path), std::ios::binary) << A3(Line());
  const host::Result result = host::Convert(path);
  std::filesystem::remove(std::filesystem::u8path(path));
  EXPECT_EQ("ok", result.StatusName());
}

TEST(HostOptions, layers_that_are_off_are_drawn_unless_they_are_skipped) {
  const std::string all = ListingOf(Layers());
  EXPECT_EQ(1u, Count(all, red));
  EXPECT_EQ(1u, Count(all, blue));
  Options options;
  options.skip_off_layers = 1;
  const std::string shown = ListingOf(Layers(), options);
  EXPECT_EQ(1u, Count(shown, red));
  EXPECT_EQ(0u, Count(shown, blue));
  EXPECT_EQ(1u, Count(shown, green));
}

TEST(HostOptions, a_hidden_layer_is_left_out_with_those_that_are_off) {
  Options options;
  options.HideLayer("寸法");
  const std::string shown = ListingOf(Layers(), options);
  EXPECT_EQ(1u, Count(shown, red));
  EXPECT_EQ(0u, Count(shown, blue));
  EXPECT_EQ(0u, Count(shown, green));
}

TEST(HostOptions, a_hidden_layer_that_is_not_there_is_a_remark) {
  Options options;
  options.HideLayer("画層").HideLayer("OFF").HideLayer("NOWHERE");
  const host::Result result = ConvertBytes(Layers(), options);
  EXPECT_TRUE(result);
  std::string details;
  for (const hexlume_remark& remark : result.Remarks()) {
    EXPECT_EQ(HEXLUME_REMARK_NO_SUCH_LAYER, remark.code);
    details += remark.detail + std::string(",");
  }
  EXPECT_EQ("画層,NOWHERE,", details);
  EXPECT_STREQ("The drawing has no layer \"画層\".", result.Remarks().begin()->english);
  EXPECT_STREQ("図面に画層「画層」がありません。", result.Remarks().begin()->japanese);
}

TEST(HostOptions, the_next_call_knows_nothing_of_the_layers_of_the_last) {
  Options options;
  options.HideLayer("SHOWN");
  ListingOf(Layers(), options);
  EXPECT_EQ(1u, Count(ListingOf(Layers()), red));
  Options turned;
  turned.turned = 1;
  EXPECT_EQ(1u, Count(ListingOf(Layers(), turned), red));
}

TEST(HostOptions, a_hidden_line_type_leaves_out_its_family) {
  Options options;
  options.hidden_line_types = HEXLUME_LINES_SOLID;
  EXPECT_EQ("Frame(0, 0, 42000, 29700)\nSetMapMode(MM_HIMETRIC)\n", ListingOf(A3(Line()), options));
  options.hidden_line_types = HEXLUME_LINES_DASHED | HEXLUME_LINES_DOUBLE_CHAIN;
  EXPECT_EQ(1u, Count(ListingOf(A3(Line()), options), "LineTo"));
}

// 100,000 by 50,000 is beyond A0: 1:100 without a denominator gives 1,000 by 500 mm, 1:200 gives 500 by 250.
TEST(HostOptions, the_denominator_is_that_of_a_drawing_beyond_a0) {
  const std::string large = DrawingBytes(
      "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 100000\n20 50000\n0 ENDSEC\n"
      "0 SECTION\n2 ENTITIES\n" +
      Line() + end);
  EXPECT_EQ(0u, ListingOf(large).find("Frame(0, 0, 100000, 50000)"));
  Options options;
  options.denominator = 200;
  const host::Result result = ConvertBytes(large, options);
  EXPECT_EQ(0u, Listing(result.Metafile()).find("Frame(0, 0, 50000, 25000)"));
  EXPECT_EQ(200, result.Number(HEXLUME_NUMBER_DENOMINATOR));
  EXPECT_EQ(50000, result.Number(HEXLUME_NUMBER_SHEET_WIDTH));
  EXPECT_EQ(25000, result.Number(HEXLUME_NUMBER_SHEET_HEIGHT));
  EXPECT_EQ(0u, ListingOf(A3(Line()), options).find("Frame(0, 0, 42000, 29700)"));
}

// The line ends at 50, 20: the header's A3 doesn't count.
TEST(HostOptions, fit_measures_the_sheet_from_the_entities) {
  Options options;
  options.fit = 1;
  const std::string drawing = A3("0 LINE\n10 0\n20 0\n11 50\n21 20\n");
  EXPECT_EQ(0u, ListingOf(drawing, options).find("Frame(0, 0, 5000, 2000)"));
  EXPECT_EQ(0u, ListingOf(drawing).find("Frame(0, 0, 42000, 29700)"));
  const std::string headless =
      DrawingBytes("0 SECTION\n2 ENTITIES\n0 LINE\n10 0\n20 0\n11 50\n21 20\n" + end);
  EXPECT_EQ(ListingOf(headless), ListingOf(drawing, options));
}

TEST(HostOptions, a_part_is_the_frame) {
  Options options;
  options.sheet = HEXLUME_SHEET_PART;
  options.right = 500;
  options.bottom = 29700;
  EXPECT_EQ(0u, ListingOf(A3(Line()), options).find("Frame(0, 0, 500, 29700)"));
}

TEST(HostOptions, monochrome_does_not_stay) {
  Options options;
  options.monochrome = 1;
  EXPECT_EQ(0u, Count(ListingOf(Layers(), options), red));
  EXPECT_EQ(1u, Count(ListingOf(Layers()), red));
}

// What the nine exports keep for the next drawing.
TEST(HostOptions, an_entity_without_an_end_takes_nothing_from_the_drawing_before) {
  const std::string endless = A3("0 LINE\n10 1\n20 1\n");
  const std::string fresh = ListingOf(endless);
  ListingOf(A3("0 LINE\n10 0\n20 0\n11 100\n21 100\n"));
  EXPECT_EQ(fresh, ListingOf(endless));
}

// A turned sheet of which everything is left out was never drawn.
TEST(HostOptions, a_turned_sheet_without_anything_to_draw_is_empty) {
  Options options;
  options.turned = 1;
  options.hidden_line_types = 31;
  EXPECT_EQ(0u, Count(ListingOf(A3(Line()), options), "LineTo"));
  const std::string hidden = DrawingBytes(
      a3Header + "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n2 A\n70 0\n62 -1\n0 ENDTAB\n0 ENDSEC\n" +
      "0 SECTION\n2 ENTITIES\n" + Line("8 A\n") + end);
  Options skipping;
  skipping.turned = 1;
  skipping.skip_off_layers = 1;
  EXPECT_EQ("Frame(0, 0, 42000, 29700)\n", ListingOf(hidden, skipping));
}

}  // namespace
}  // namespace hexlume
