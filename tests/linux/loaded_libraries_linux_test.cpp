// The tool where libraries of the system that are loaded when they are first needed are damaged or missing.
#include <stdlib.h>

#include <filesystem>

#include "support/text_drawing.h"
#include "support/tool_run.h"

namespace hexlume::loaded_libraries_linux_test {
namespace {

namespace fs = std::filesystem;

constexpr const char* start =
    "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n";
constexpr const char* line = "0\nLINE\n8\n0\n10\n50\n20\n50\n11\n100\n21\n80\n";
constexpr const char* text = "0\nTEXT\n8\n0\n10\n50\n20\n50\n40\n5\n1\nWWWiii\n";
// A square, filled.
constexpr const char* hatch =
    "0\nHATCH\n8\n0\n10\n0\n20\n0\n2\nSOLID\n70\n1\n91\n1\n92\n2\n72\n0\n73\n1\n93\n4\n"
    "10\n50\n20\n50\n10\n90\n20\n50\n10\n90\n20\n90\n10\n50\n20\n90\n97\n0\n";
constexpr const char* end = "0\nENDSEC\n0\nEOF\n";

// The loader searches the test's folder first.
class LoadedLibraries : public ToolRun {
 protected:
  void SetUp() override {
    ToolRun::SetUp();
    Write("line.dxf", std::string(start) + line + end);
    Write("text.dxf", std::string(start) + text + end);
    Write("hatch.dxf", std::string(start) + hatch + end);
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
    const size_t name = library.find("libc.so.6");
    ASSERT_NE(std::string::npos, name);
    library[name + 3] = 'X';
    Write(file, library);
  }

  static void ExpectNoMemory(const Outcome& outcome, const std::string& drawing) {
    ExpectFailure(outcome, 47, "hexlume: " + drawing + "no-memory: there isn't enough memory\n");
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

TEST_F(LoadedLibraries, are_not_needed_for_lines) {
  for (const char* library :
       {"libfontconfig.so.1", "libfreetype.so.6", "libpixman-1.so.0", "libnettle.so.8", "libcairo.so.2"})
    Write(library, "damaged");
  ExpectSuccess(RunReal("line.dxf line.emf"));
  EXPECT_TRUE(Contains(ListingOf("line.emf"), "LineTo("));
}

TEST_F(LoadedLibraries, damaged_ones_for_fonts_end_the_conversion_of_a_text) {
  for (const std::string library : {"libfontconfig.so.1", "libfreetype.so.6"}) {
    Write(library, "damaged");
    ExpectNoMemory(RunReal("text.dxf text.emf"), "text.dxf: ");
    EXPECT_FALSE(Exists("text.emf"));
    fs::remove(library);
  }
}

TEST_F(LoadedLibraries, missing_ones_for_fonts_count_as_no_font) {
  const std::string expected = WithoutFonts();
  for (const std::string library : {"libfontconfig.so.1", "libfreetype.so.6"}) {
    WriteIncomplete(library);
    ExpectSuccess(RunReal("text.dxf text.emf"));
    EXPECT_EQ(expected, Contents("text.emf"));
    fs::remove(library);
  }
}

TEST_F(LoadedLibraries, without_the_one_for_regions_a_hatch_ends_the_conversion) {
  ExpectSuccess(RunReal("hatch.dxf whole.emf"));
  EXPECT_TRUE(Contains(ListingOf("whole.emf"), "FillRgn("));
  Write("libpixman-1.so.0", "damaged");
  ExpectNoMemory(RunReal("hatch.dxf hatch.emf"), "hatch.dxf: ");
  WriteIncomplete("libpixman-1.so.0");
  ExpectNoMemory(RunReal("hatch.dxf hatch.emf"), "hatch.dxf: ");
  EXPECT_FALSE(Exists("hatch.emf"));
}

TEST_F(LoadedLibraries, without_the_one_for_digests_there_is_no_report) {
  Write("libnettle.so.8", "damaged");
  const Outcome outcome = RunReal("--report report.json line.dxf line.emf");
  EXPECT_EQ(47, outcome.status);
  EXPECT_EQ("hexlume: there isn't enough memory\n", outcome.err);
}

}  // namespace
}  // namespace hexlume::loaded_libraries_linux_test
