// SVG files: a frame of 1000 by 1000 hundredths of a millimetre, Y downward.
#include "tools/hexlume/picture/svg_canvas.h"

#include <gtest/gtest.h>

#include "support/picture_text.h"

namespace hexlume::svg_canvas_test {
namespace {

constexpr uint32_t gdiRed = 0x0000FF, blackBrush = 0x80000004, nullPen = 0x80000008;
const Words transparent = Record(18, {1});
const Words onBaseline = Record(22, {24});

constexpr const char* beginning =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\""
    " width=\"10mm\" height=\"10mm\" viewBox=\"0 0 1000 1000\">\n"
    "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n"
    "<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
constexpr const char* end = "</g>\n</svg>\n";

std::string SvgOf(const Words& records, bool keepsTexts = false) {
  const Words metafile = SmallMetafile(records);
  std::string svg;
  const ByteSink sink = AppendTo(svg);
  SvgCanvas canvas({0, 0, 1000, 1000}, keepsTexts, sink);
  EXPECT_TRUE(PlayMetafile(BytesOf(metafile), 4 * metafile.size(), canvas));
  canvas.Finish();
  return svg;
}

// What is between the beginning and the end.
std::string ElementsOf(const Words& records, bool keepsTexts = false) {
  const std::string svg = SvgOf(records, keepsTexts);
  const size_t head = std::string(beginning).size(), tail = std::string(end).size();
  EXPECT_EQ(beginning, svg.substr(0, head));
  EXPECT_EQ(end, svg.substr(svg.size() - tail));
  return svg.substr(head, svg.size() - head - tail);
}

size_t CountOf(const std::string& part, const std::string& text) {
  size_t count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

TEST(SvgCanvas, strokes_of_one_pen_are_one_path_in_steps) {
  EXPECT_EQ(
      "<path stroke=\"#000000\" stroke-width=\"10\" d=\"m100 300 800 0v500l-100 50m-800-850 50 60\"/>\n",
      ElementsOf(LineRecords(100, -300, 900, -300) + LineToRecord(900, -800) + LineToRecord(800, -850) +
                 LineRecords(0, 0, 50, -60)));
}

TEST(SvgCanvas, another_pen_is_another_path_and_the_same_one_created_again_is_not) {
  EXPECT_EQ(
      "<path stroke=\"#000000\" stroke-width=\"10\" d=\"m0 0 10 20\"/>\n"
      "<path stroke=\"#ff0000\" stroke-width=\"50\" d=\"m0 0 10 20m-10-20 30 40\"/>\n",
      ElementsOf(LineRecords(0, 0, 10, -20) + PenRecords(1, 0, 50, gdiRed) + LineRecords(0, 0, 10, -20) +
                 Record(40, {1}) + PenRecords(1, 0, 50, gdiRed) + LineRecords(0, 0, 30, -40)));
}

// A dash is 18 pixels of 96 to an inch long and a gap 6: 476.25 and 158.75.
TEST(SvgCanvas, dashes_begin_anew_with_each_line) {
  EXPECT_EQ(
      "<path stroke=\"#000000\" stroke-width=\"10\" stroke-linecap=\"butt\" stroke-dasharray=\"476.25 "
      "158.75\""
      " d=\"m0 0 500 0m0 0 0 500\"/>\n",
      ElementsOf(PenRecords(1, 1, 0, 0) + LineRecords(0, 0, 500, 0) + LineToRecord(500, -500)));
}

TEST(SvgCanvas, a_stroke_without_length_of_a_wide_pen_is_a_dot) {
  EXPECT_EQ("<path stroke=\"#000000\" stroke-width=\"50\" d=\"m100 100 0 0\"/>\n",
            ElementsOf(PenRecords(1, 0, 50, 0) + LineRecords(100, -100, 100, -100)));
}

TEST(SvgCanvas, pixels_are_squares_of_one_path) {
  EXPECT_EQ("<path fill=\"#ff0000\" d=\"m95 195 10 0v10h-10zm100 0 10 0v10h-10z\"/>\n",
            ElementsOf(Record(15, {100, Word(-200), gdiRed}) + Record(15, {200, Word(-200), gdiRed})));
}

TEST(SvgCanvas, filled_shapes) {
  EXPECT_EQ("<path fill=\"#000000\" fill-rule=\"evenodd\" d=\"m100 100 700 0v700z\"/>\n",
            ElementsOf(SelectRecord(blackBrush) + SelectRecord(nullPen) +
                       PointsRecord(3, {100, -100, 800, -100, 800, -800})));
  EXPECT_EQ("<path fill=\"#000000\" d=\"m200 600 0 200h200v-200z\"/>\n",
            ElementsOf(FillRegionRecord(blackBrush, {200, -800, 400, -600})));
}

// A pixel of the device is 10 units wide.
TEST(SvgCanvas, a_clip_region_is_one_outline_for_all_strokes_under_it) {
  const Words clip = ClipRecord(1, {10, 10, 30, 20, 20, 20, 50, 30});
  EXPECT_EQ(
      "<clipPath id=\"clip1\"><path d=\"m100 100 0 100h100v100h300v-100h-200v-100z\"/></clipPath>\n"
      "<g clip-path=\"url(#clip1)\">\n"
      "<path stroke=\"#000000\" stroke-width=\"10\" d=\"m0 0 10 20m-10-20 20 30\"/>\n"
      "</g>\n"
      "<path stroke=\"#000000\" stroke-width=\"10\" d=\"m0 0 10 20\"/>\n",
      ElementsOf(clip + LineRecords(0, 0, 10, -20) + LineRecords(0, 0, 20, -30) + NoClipRecord() +
                 LineRecords(0, 0, 10, -20)));
}

TEST(SvgCanvas, a_clip_region_that_is_not_removed_ends_with_the_file) {
  const std::string svg = SvgOf(ClipRecord(1, {10, 10, 30, 20}) + LineRecords(0, 0, 10, -20));
  EXPECT_EQ(CountOf("<g", svg), CountOf("</g>", svg));
}

TEST(SvgCanvas, each_glyph_has_one_outline) {
  const std::string svg = ElementsOf(transparent + FontRecords(1, {}) + onBaseline +
                                     TextRecord(300, -500, u"AAB", {100, 100, 100}));
  EXPECT_EQ(2u, CountOf("<defs><path id=\"g", svg));
  EXPECT_EQ(2u, CountOf("<use xlink:href=\"#g1\"", svg));
  EXPECT_EQ(1u, CountOf("<use xlink:href=\"#g2\"", svg));
  EXPECT_EQ(0u, CountOf("<text", svg));
}

TEST(SvgCanvas, texts_are_kept_if_asked) {
  const std::string svg = ElementsOf(transparent + FontRecords(1, {}) + onBaseline +
                                         TextRecord(300, -500, u"図<&\x01", {100, 110, 120, 130}),
                                     true);
  EXPECT_EQ(1u, CountOf("<text xml:space=\"preserve\" fill=\"#000000\" font-family=\"'", svg)) << svg;
  EXPECT_EQ(
      1u, CountOf(" transform=\"matrix(1 0 0 1 300 500)\" x=\"0 100 210 330\">図&lt;&amp;\uFFFD</text>", svg))
      << svg;
}

// However long the drawing is, at most some 200,000 bytes are kept until they are passed on.
TEST(SvgCanvas, long_drawings_are_passed_on_in_pieces) {
  Words records;
  for (int i = 0; i < 100'000; ++i) {
    const Words line = LineRecords(i % 900, -(i / 900), i % 900 + 7, -(i / 900) - 9);
    records.insert(records.end(), line.begin(), line.end());
  }
  const Words metafile = SmallMetafile(records);
  size_t longest = 0, whole = 0;
  const ByteSink sink = [&](const uint8_t*, size_t size) {
    longest = std::max(longest, size);
    whole += size;
  };
  SvgCanvas canvas({0, 0, 1000, 1000}, false, sink);
  EXPECT_TRUE(PlayMetafile(BytesOf(metafile), 4 * metafile.size(), canvas));
  canvas.Finish();
  EXPECT_GT(whole, 100'000u * 8);
  EXPECT_LT(whole, 100'000u * 80);
  EXPECT_LT(longest, 200'000u);
}

TEST(SvgCanvas, numbers_out_of_sight_are_moved_closer) {
  const std::string svg = ElementsOf(LineRecords(-2000000000, -500, 2000000000, -500));
  EXPECT_LT(svg.size(), 200u);
  EXPECT_EQ(0u, CountOf("2000000000", svg));
}

}  // namespace
}  // namespace hexlume::svg_canvas_test
