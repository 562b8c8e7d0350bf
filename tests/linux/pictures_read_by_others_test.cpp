// Our pictures, read by programs of other people. A test whose program isn't installed says so and is skipped.
#include <cstdlib>

#include "host/host_drawings.h"
#include "support/tool_run.h"

namespace hexlume::pictures_read_by_others_test {
namespace {

class PicturesReadByOthers : public ToolRun {
 protected:
  static bool IsInstalled(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
  }

  // What a program prints; it must succeed.
  static std::string Run(const std::string& command) {
    EXPECT_EQ(0, std::system((command + " >printed.txt 2>&1").c_str())) << Contents("printed.txt");
    return Contents("printed.txt");
  }

  // 図面 in code page 932. In fonts with many characters 面 has the same glyph as a radical.
  static void WritePlan() {
    Write("plan.dxf",
          A3(Line() + "0 TEXT\n10 50\n20 50\n40 5\n1 \x90\x7D\x96\xCA\n0 CIRCLE\n10 90\n20 90\n40 30\n"));
  }
};

TEST_F(PicturesReadByOthers, texts_of_a_pdf_are_found) {
  if (!IsInstalled("pdftotext")) GTEST_SKIP() << "poppler-utils isn't installed";
  WritePlan();
  ExpectSuccess(RunReal("--pdf plan.pdf plan.dxf"));
  EXPECT_TRUE(Contains(Run("pdftotext plan.pdf -"), "図面"));
}

TEST_F(PicturesReadByOthers, texts_of_a_pdf_are_found_with_a_font_that_shares_glyphs) {
  const char* const font = "Noto Sans Mono CJK JP";
  if (!IsInstalled("pdftotext")) GTEST_SKIP() << "poppler-utils isn't installed";
  if (!IsInstalled("fc-match")) GTEST_SKIP() << "fontconfig isn't installed";
  if (!Contains(Run("fc-match '" + std::string(font) + "'"), font))
    GTEST_SKIP() << font << " isn't installed";
  Write(
      "fonts.conf",
      "<fontconfig><include>/etc/fonts/fonts.conf</include><selectfont><rejectfont><pattern>"
      "<patelt "
      "name=\"family\"><string>IPAGothic</string></patelt></pattern></rejectfont></selectfont></fontconfig>");
  WritePlan();
  setenv("FONTCONFIG_FILE", std::filesystem::absolute("fonts.conf").c_str(), 1);
  const Outcome outcome = RunReal("--pdf plan.pdf plan.dxf");
  unsetenv("FONTCONFIG_FILE");
  ExpectSuccess(outcome);
  EXPECT_TRUE(Contains(Run("pdftotext plan.pdf -"), "図面"));
}

TEST_F(PicturesReadByOthers, a_book_is_sound) {
  if (!IsInstalled("qpdf")) GTEST_SKIP() << "qpdf isn't installed";
  WritePlan();
  Write("b.dxf", A3(Line()));
  ExpectSuccess(RunReal("--pdf-book book.pdf plan.dxf b.dxf"));
  EXPECT_TRUE(Contains(Run("qpdf --check book.pdf"), "No syntax or stream encoding errors found"));
  EXPECT_EQ("2\n", Run("qpdf --show-npages book.pdf"));
}

TEST_F(PicturesReadByOthers, the_pages_of_a_book_have_their_size) {
  if (!IsInstalled("pdfinfo")) GTEST_SKIP() << "poppler-utils isn't installed";
  WritePlan();
  ExpectSuccess(RunReal("--pdf-book book.pdf plan.dxf"));
  EXPECT_TRUE(Contains(Run("pdfinfo book.pdf"), "Page size:       1190.55 x 841.89 pts (A3)"));
}

// 420 mm and 297 mm at 96 dots per inch: 1587.4 and 1122.5, which readers round up or down.
TEST_F(PicturesReadByOthers, an_svg_has_its_size) {
  if (!IsInstalled("rsvg-convert")) GTEST_SKIP() << "librsvg2-bin isn't installed";
  WritePlan();
  for (const char* const options : {"", "--svg-text "}) {
    ExpectSuccess(RunReal(std::string(options) + "--svg plan.svg plan.dxf"));
    Run("rsvg-convert -d 96 -p 96 -o plan.png plan.svg");
    EXPECT_NEAR(1587.4, SizeOfPicture("plan.png").width, 1);
    EXPECT_NEAR(1122.5, SizeOfPicture("plan.png").height, 1);
  }
}

}  // namespace
}  // namespace hexlume::pictures_read_by_others_test
