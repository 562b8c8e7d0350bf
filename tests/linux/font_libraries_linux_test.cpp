// The tool where the libraries for fonts are damaged or missing. They are loaded with the first text.
#include <stdlib.h>

#include <filesystem>

#include "support/text_drawing.h"
#include "support/tool_run.h"

namespace hexlume::font_libraries_linux_test {
namespace {

namespace fs = std::filesystem;

constexpr const char* start =
    "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n";
constexpr const char* line = "0\nLINE\n8\n0\n10\n50\n20\n50\n11\n100\n21\n80\n";
constexpr const char* text = "0\nTEXT\n8\n0\n10\n50\n20\n50\n40\n5\n1\nWWWiii\n";
constexpr const char* end = "0\nENDSEC\n0\nEOF\n";

// The loader searches the test's folder first.
class FontLibraries : public ToolRun {
 protected:
  void SetUp() override {
    ToolRun::SetUp();
    Write("line.dxf", std::string(start) + line + end);
    Write("text.dxf", std::string(start) + text + end);
    setenv("LD_LIBRARY_PATH", fs::current_path().c_str(), 1);
  }

  void TearDown() override {
    unsetenv("LD_LIBRARY_PATH");
    ToolRun::TearDown();
  }

  // A library that needs another one, which isn't there.
  static void WriteIncomplete(const std::string& file) {
    std::string library =
        Contents((ProgramFolder().parent_path() / HEXLUME_LIBRARY_FOLDER / "libhexlume.so.1").string());
    const size_t name = library.find("libpixman-1.so.0");
    ASSERT_NE(std::string::npos, name);
    library[name + 3] = 'X';
    Write(file, library);
  }

  // The drawing's metafile where fontconfig finds no font.
  static std::string WithoutFonts() {
    Write("fonts.conf", "<fontconfig/>");
    setenv("FONTCONFIG_FILE", fs::absolute("fonts.conf").c_str(), 1);
    const Outcome outcome = RunReal("text.dxf without.emf");
    unsetenv("FONTCONFIG_FILE");
    ExpectSuccess(outcome);
    return Contents("without.emf");
  }
};

TEST_F(FontLibraries, are_not_needed_without_a_text) {
  for (const char* library : {"libfontconfig.so.1", "libfreetype.so.6"}) Write(library, "damaged");
  ExpectSuccess(RunReal("line.dxf line.emf"));
  EXPECT_TRUE(Contains(ListingOf("line.emf"), "LineTo("));
}

TEST_F(FontLibraries, damaged_ones_end_the_conversion_of_a_text) {
  for (const std::string library : {"libfontconfig.so.1", "libfreetype.so.6"}) {
    Write(library, "damaged");
    ExpectFailure(RunReal("text.dxf text.emf"), 47,
                  "hexlume: text.dxf: no-memory: there isn't enough memory\n");
    EXPECT_FALSE(Exists("text.emf"));
    fs::remove(library);
  }
}

TEST_F(FontLibraries, missing_ones_count_as_no_font) {
  const std::string expected = WithoutFonts();
  for (const std::string library : {"libfontconfig.so.1", "libfreetype.so.6"}) {
    WriteIncomplete(library);
    ExpectSuccess(RunReal("text.dxf text.emf"));
    EXPECT_EQ(expected, Contents("text.emf"));
    fs::remove(library);
  }
}

}  // namespace
}  // namespace hexlume::font_libraries_linux_test
