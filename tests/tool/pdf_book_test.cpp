// PDF files: a frame of 1000 by 1000 hundredths of a millimetre is 28.346457 points wide.
#include "tools/hexlume/picture/pdf_book.h"

#include <gtest/gtest.h>

#include "support/picture_text.h"
#include "tools/hexlume/picture/picture.h"

namespace hexlume::pdf_book_test {
namespace {

constexpr uint32_t gdiRed = 0x0000FF;
constexpr uint32_t blackBrush = 0x80000004;
const Words transparent = Record(18, {1});

void AddPage(PdfBook& book, const Words& records, const std::string& title = "") {
  const Words metafile = SmallMetafile(records);
  book.AddPage({BytesOf(metafile), BytesOf(metafile) + 4 * metafile.size()}, title);
}

std::string PdfOf(const Words& records) {
  std::string pdf;
  PdfBook book(AppendTo(pdf));
  AddPage(book, records);
  book.Finish();
  return pdf;
}

std::string Inflate(const std::string& compressed) {
  std::string text(20 * compressed.size() + 100'000, '\0');
  uLongf size = text.size();
  EXPECT_EQ(Z_OK, uncompress(reinterpret_cast<Bytef*>(text.data()), &size,
                             reinterpret_cast<const Bytef*>(compressed.data()), compressed.size()));
  text.resize(size);
  return text;
}

// The contents of all streams, in the order of the file. The first one is that of the first page.
std::vector<std::string> StreamsOf(const std::string& pdf) {
  std::vector<std::string> streams;
  const std::string begin = ">>\nstream\n", end = "\nendstream\n";
  for (size_t at = pdf.find(begin); at != std::string::npos; at = pdf.find(begin, at)) {
    at += begin.size();
    const size_t stop = pdf.find(end, at);
    streams.push_back(Inflate(pdf.substr(at, stop - at)));
  }
  return streams;
}

std::string PageOf(const Words& records) {
  const std::string stream = StreamsOf(PdfOf(records)).front();
  const std::string beginning =
      "0.028346457 0 0 -0.028346457 0 28.346457 cm\n1 J 1 j\n1 g\n0 0 1000 1000 re\nf\n";
  EXPECT_EQ(beginning, stream.substr(0, beginning.size()));
  return stream.substr(beginning.size());
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// Each line of the table has the place where an object begins.
void ExpectTable(const std::string& pdf) {
  const size_t mark = pdf.rfind("startxref\n") + 10;
  const size_t start = std::stoul(pdf.substr(mark));
  ASSERT_EQ("xref\n0 ", pdf.substr(start, 7));
  const size_t count = std::stoul(pdf.substr(start + 7));
  const size_t first = pdf.find("65535 f \n", start) + 9;
  for (size_t object = 1; object < count; ++object) {
    const std::string line = pdf.substr(first + 20 * (object - 1), 20);
    EXPECT_EQ(" 00000 n \n", line.substr(10));
    const std::string begin = std::to_string(object) + " 0 obj\n";
    EXPECT_EQ(begin, pdf.substr(std::stoul(line), begin.size()));
  }
  EXPECT_EQ("trailer", pdf.substr(first + 20 * (count - 1), 7));
}

TEST(PdfBook, the_table_has_the_places_of_all_objects) {
  ExpectTable(
      PdfOf(LineRecords(0, 0, 100, -100) + FontRecords(1, {}) + TextRecord(300, -500, u"A図", {100, 200})));
}

TEST(PdfBook, a_page_has_the_size_of_the_frame) {
  const std::string pdf = PdfOf({});
  EXPECT_TRUE(Contains(pdf, "/MediaBox[0 0 28.346457 28.346457]"));
  EXPECT_EQ("%PDF-1.5\n", pdf.substr(0, 9));
  EXPECT_EQ("%%EOF\n", pdf.substr(pdf.size() - 6));
}

TEST(PdfBook, strokes_of_one_pen_are_one_path) {
  EXPECT_EQ(
      "0 0 0 RG\n10 w\n100 300 m\n900 300 l\n900 800 l\n0 0 m\n50 60 l\nS\n"
      "1 0 0 RG\n50 w\n0 0 m\n10 20 l\nS\n",
      PageOf(LineRecords(100, -300, 900, -300) + LineToRecord(900, -800) + LineRecords(0, 0, 50, -60) +
             PenRecords(1, 0, 50, gdiRed) + LineRecords(0, 0, 10, -20)));
}

// A pixel of the device is 10 units wide. After it the pen must be set again where it was set within.
TEST(PdfBook, a_clip_region_is_set_once_for_all_strokes_under_it) {
  EXPECT_EQ(
      "q\n100 100 m\n100 200 l\n300 200 l\n300 100 l\nh\nW n\n"
      "0 0 0 RG\n10 w\n0 0 m\n10 20 l\n0 0 m\n20 30 l\nS\nQ\n0 0 0 RG\n10 w\n0 0 m\n10 20 l\nS\n",
      PageOf(ClipRecord(1, {10, 10, 30, 20}) + LineRecords(0, 0, 10, -20) + LineRecords(0, 0, 20, -30) +
             NoClipRecord() + LineRecords(0, 0, 10, -20)));
}

TEST(PdfBook, an_empty_clip_region_is_a_path_without_area) {
  EXPECT_EQ("q\n0 0 0 0 re\nW n\n0 0 0 RG\n10 w\n0 0 m\n10 20 l\nS\nQ\n",
            PageOf(ClipRecord(1, {}) + LineRecords(0, 0, 10, -20)));
}

TEST(PdfBook, dashes_end_at_right_angles) {
  EXPECT_EQ(
      "0 0 0 RG\n10 w\n[476.25 158.75 ]0 d 0 J\n0 0 m\n500 0 l\nS\n50 w\n[]0 d 1 J\n0 0 m\n10 20 l\nS\n",
      PageOf(PenRecords(1, 1, 0, 0) + LineRecords(0, 0, 500, 0) + PenRecords(2, 0, 50, 0) +
             LineRecords(0, 0, 10, -20)));
}

// The codes of the text's glyphs are given in the order of their first use.
TEST(PdfBook, texts_have_the_characters_of_the_drawing) {
  const Words text = transparent + FontRecords(1, {}) +
                     TextRecord(300, -500, u"図面図\U00020BB7", {200, 200, 200, 100, 100});
  const std::vector<std::string> streams = StreamsOf(PdfOf(text));
  EXPECT_TRUE(Contains(streams.front(), "/F0 1 Tf\n[<00>")) << streams.front();
  // 図 is U+56F3, 面 is U+9762, and U+20BB7 is D842 DFB7 in UTF-16.
  EXPECT_TRUE(Contains(streams.back(), "3 beginbfchar\n<00><56F3>\n<01><9762>\n<02><D842DFB7>\nendbfchar\n"))
      << streams.back();
}

TEST(PdfBook, a_face_with_more_glyphs_than_codes_has_several_fonts) {
  Words records = transparent + FontRecords(1, {});
  for (char16_t character = 0x4E00; character < 0x4E00 + 300; ++character)
    records = records + TextRecord(300, -500, std::u16string(1, character), {100});
  const std::string pdf = PdfOf(records);
  EXPECT_TRUE(Contains(pdf, "/LastChar 255/"));
  EXPECT_TRUE(Contains(pdf, "/LastChar 43/"));
  ExpectTable(pdf);
}

TEST(PdfBook, pages_and_bookmarks) {
  std::string pdf;
  PdfBook book(AppendTo(pdf));
  AddPage(book, LineRecords(0, 0, 10, -20), "図");
  AddPage(book, LineRecords(0, 0, 10, -20));
  AddPage(book, LineRecords(0, 0, 10, -20), "A\U00020BB7");
  EXPECT_EQ(3u, book.PageCount());
  book.Finish();
  ExpectTable(pdf);
  EXPECT_TRUE(Contains(pdf, "/Type/Pages/Count 3/Kids["));
  EXPECT_TRUE(Contains(pdf, "<</Title<FEFF56F3>/Parent "));
  EXPECT_TRUE(Contains(pdf, "<</Title<FEFF0041D842DFB7>/Parent "));
  EXPECT_TRUE(Contains(pdf, "/Count 2>>"));
  EXPECT_TRUE(Contains(pdf, "/PageMode/UseOutlines"));
}

TEST(PdfBook, without_titles_there_are_no_bookmarks) {
  EXPECT_FALSE(Contains(PdfOf({}), "/Outlines"));
}

TEST(PdfBook, the_same_drawing_gives_the_same_bytes) {
  const Words records =
      LineRecords(0, 0, 100, -100) + FontRecords(1, {}) + TextRecord(300, -500, u"A図", {100, 200});
  EXPECT_EQ(PdfOf(records), PdfOf(records));
}

TEST(PdfBook, a_metafile_that_cannot_be_a_page_is_told_and_the_book_goes_on) {
  std::string pdf;
  PdfBook book(AppendTo(pdf));
  EXPECT_THROW(book.AddPage({'M', 'Z'}, "none"), PictureError);
  Words empty = SmallMetafile({});
  empty[2 + 6] = 0;  // the frame's right edge
  EXPECT_THROW(book.AddPage({BytesOf(empty), BytesOf(empty) + 4 * empty.size()}, "none"), PictureError);
  EXPECT_EQ(0u, book.PageCount());
  EXPECT_THROW(AddPage(book, Record(54, {1}), "malformed"), PictureError);
  AddPage(book, LineRecords(0, 0, 10, -20), "sound");
  EXPECT_EQ(2u, book.PageCount());
  book.Finish();
  ExpectTable(pdf);
}

// The page ends where the bound was reached, and the next one begins.
TEST(PdfBook, a_page_beyond_a_bound_ends_there_and_the_book_goes_on) {
  std::vector<int32_t> edges;
  for (int32_t i = 0; i < 2'000'001; ++i) edges.insert(edges.end(), {0, -10, 10, 0});
  std::string pdf;
  PdfBook book(AppendTo(pdf));
  EXPECT_THROW(AddPage(book, LineRecords(0, 0, 10, -20) + FillRegionRecord(blackBrush, edges)), PictureError);
  AddPage(book, LineRecords(0, 0, 10, -20));
  EXPECT_EQ(2u, book.PageCount());
  book.Finish();
  ExpectTable(pdf);
  const std::vector<std::string> streams = StreamsOf(pdf);
  ASSERT_EQ(2u, streams.size());
  EXPECT_EQ(streams[1], streams[0]);
}

}  // namespace
}  // namespace hexlume::pdf_book_test
