// Recent drawings through the library.
#include <gtest/gtest.h>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"
#include "support/comparable_bytes.h"

namespace hexlume {
namespace {

using host::ConvertBytes;
using host::Options;

std::string Bytes(const host::Result& result) {
  return ComparableBytes(std::string(result.Metafile()));
}

std::string Header(const std::string& version) {
  return "0 SECTION\n2 HEADER\n9 $ACADVER\n1 " + version +
         "\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n";
}

std::string Text(const std::string& text) {
  return "0 TEXT\n10 10\n20 10\n40 5\n1 " + text + "\n";
}

// The embedded object has another place.
const std::string mtext =
    "0 MTEXT\n10 100\n20 100\n40 5\n71 1\n1 A\n101 Embedded Object\n70 1\n10 1\n20 0\n11 200\n21 150\n40 0\n";
const std::string plainMtext = "0 MTEXT\n10 100\n20 100\n40 5\n71 1\n1 A\n";

TEST(HostRecent, a_text_in_utf8_is_drawn_as_the_same_in_code_page_932) {
  const host::Result recent = ConvertBytes(DrawingBytes(Header("AC1021") + Text("図面") + end));
  const host::Result old = ConvertBytes(DrawingBytes(Header("AC1018") + Text("\x90\x7D\x96\xCA") + end));
  EXPECT_TRUE(recent);
  EXPECT_EQ(Bytes(old), Bytes(recent));
  EXPECT_NE(std::string::npos, Listing(recent.Metafile()).find("図面"));
}

TEST(HostRecent, as_it_is_it_is_read_as_code_page_932) {
  Options options;
  options.format = HEXLUME_FORMAT_AS_IS;
  const host::Result result = ConvertBytes(DrawingBytes(Header("AC1021") + Text("図面") + end), options);
  EXPECT_EQ(std::string::npos, Listing(result.Metafile()).find("図面"));
}

TEST(HostRecent, an_embedded_object_does_not_move_its_text) {
  const host::Result plain = ConvertBytes(DrawingBytes(Header("AC1032") + plainMtext + Line() + end));
  const host::Result result = ConvertBytes(DrawingBytes(Header("AC1032") + mtext + Line() + end));
  EXPECT_EQ(Bytes(plain), Bytes(result));
  EXPECT_EQ(1, result.Number(HEXLUME_NUMBER_EMBEDDED));
  EXPECT_EQ(HEXLUME_REMARK_EMBEDDED, result.Remarks().begin()->code);
  EXPECT_EQ(1, result.Remarks().begin()->count);
  EXPECT_STREQ("1 embedded objects were left out.", result.Remarks().begin()->english);
  Options options;
  options.format = HEXLUME_FORMAT_AS_IS;
  EXPECT_NE(Bytes(plain),
            Bytes(ConvertBytes(DrawingBytes(Header("AC1032") + mtext + Line() + end), options)));
}

TEST(HostRecent, substituted_characters_are_a_remark) {
  const host::Result result =
      ConvertBytes(DrawingBytes(Header("AC1021") + Text("\xEA\xB0\x80\xEA\xB0\x80") + end));
  EXPECT_TRUE(result);
  EXPECT_EQ(2, result.Number(HEXLUME_NUMBER_SUBSTITUTED));
  EXPECT_EQ(HEXLUME_REMARK_SUBSTITUTED, result.Remarks().begin()->code);
  EXPECT_EQ(2, result.Remarks().begin()->count);
}

// SECTION to ENTITIES has 13 groups, the TEXT's text is its fifth: line 2 * 18.
TEST(HostRecent, a_line_in_code_page_932_is_a_remark) {
  const host::Result result = ConvertBytes(DrawingBytes(Header("AC1021") + Text("\x90\x7D") + end));
  EXPECT_NE(std::string::npos, Listing(result.Metafile()).find("図"));
  EXPECT_EQ(HEXLUME_REMARK_NOT_UTF8, result.Remarks().begin()->code);
  EXPECT_EQ(36, result.Remarks().begin()->line);
  EXPECT_EQ(1, result.Remarks().begin()->count);
}

// 13 groups before the MTEXT, 13 of it, and the line that ends the drawing.
TEST(HostRecent, the_line_of_a_limit_counts_what_was_left_out) {
  Options options;
  options.limit_strokes = 1;
  const host::Result result =
      ConvertBytes(DrawingBytes(Header("AC1032") + mtext + Line() + Line() + end), options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_EQ(2 * (13 + 13 + 5) + 1, result.Line());
}

TEST(HostRecent, a_layer_is_hidden_by_its_name_in_utf8) {
  const std::string drawing = DrawingBytes(
      "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1032\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 "
      "ENDSEC\n"
      "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n2 寸法\n70 0\n62 1\n0 ENDTAB\n0 ENDSEC\n"
      "0 SECTION\n2 ENTITIES\n" +
      Line("8 寸法\n") + Line("8 0\n") + end);
  EXPECT_EQ(2u, Count(Listing(ConvertBytes(drawing).Metafile()), "LineTo"));
  Options options;
  options.HideLayer("寸法");
  const host::Result result = ConvertBytes(drawing, options);
  EXPECT_EQ(1u, Count(Listing(result.Metafile()), "LineTo"));
  EXPECT_EQ(result.Remarks().begin(), result.Remarks().end());
}

}  // namespace
}  // namespace hexlume
