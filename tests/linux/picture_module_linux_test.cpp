// The tool without its module for pictures, or with one that it can't use.
#include <filesystem>

#include "support/tool_run.h"

namespace hexlume::picture_module_linux_test {
namespace {

namespace fs = std::filesystem;

constexpr const char* oneLine =
    "0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n50\n20\n50\n11\n100\n21\n80\n0\nENDSEC\n0\nEOF\n";
constexpr const char* moduleFile = HEXLUME_LIBRARY_FOLDER "/hexlume/libhexlume_pictures.so";
constexpr const char* whatFailed = ": can't be written: the module for pictures can't be loaded: ";

fs::path BuiltFolder() {
  return ProgramFolder().parent_path();
}

// An installation in the test's folder: the tool and the libraries.
class PictureModule : public ToolRun {
 protected:
  void SetUp() override {
    ToolRun::SetUp();
    fs::create_directories("bin");
    const fs::path libraries = HEXLUME_LIBRARY_FOLDER;
    fs::create_directories(libraries / "hexlume");
    fs::create_directories("out");
    fs::copy_file(ProgramFolder() / "hexlume", "bin/hexlume");
    for (const char* library : {"libhexlume.so.1", "libhexlume_host.so.1"})
      fs::create_symlink(BuiltFolder() / libraries / library, libraries / library);
    Write("plan.dxf", oneLine);
  }

  static Outcome Run(const std::string& arguments) {
    return RunToolIn(fs::current_path() / "bin", arguments);
  }

  static void ExpectNoPicture(const Outcome& outcome, const std::string& picture, const std::string& reason) {
    EXPECT_EQ(73, outcome.status);
    EXPECT_TRUE(Contains(outcome.err, picture + whatFailed)) << outcome.err;
    EXPECT_TRUE(Contains(outcome.err, reason)) << outcome.err;
  }
};

TEST_F(PictureModule, is_not_needed_for_a_metafile) {
  ExpectSuccess(Run("plan.dxf plan.emf"));
  ExpectSuccess(Run("-d out --jobs 1 --to emf --report report.json plan.dxf"));
  EXPECT_EQ(Contents("plan.emf"), Contents("out/plan.emf"));
}

TEST_F(PictureModule, without_it_each_picture_says_so_and_earlier_files_stay) {
  for (const std::string kind : {"png", "svg", "pdf"}) {
    Write("plan.emf", "");
    Write("plan." + kind, "an earlier result");
    ExpectNoPicture(Run("--" + kind + " plan." + kind + " plan.dxf plan.emf"), "plan." + kind,
                    "libhexlume_pictures.so");
    EXPECT_EQ("an earlier result", Contents("plan." + kind));
    EXPECT_TRUE(Contains(ListingOf("plan.emf"), "LineTo("));
  }
  for (const auto& entry : fs::directory_iterator(".")) EXPECT_NE(".tmp", entry.path().extension());
}

TEST_F(PictureModule, without_it_many_drawings_have_their_metafiles) {
  fs::copy_file("plan.dxf", "other.dxf");
  const Outcome outcome = Run("-d out --jobs 2 --to emf,png --report report.json plan.dxf other.dxf");
  ExpectNoPicture(outcome, "plan.png", "libhexlume_pictures.so");
  ExpectNoPicture(outcome, "other.png", "libhexlume_pictures.so");
  EXPECT_TRUE(Contains(ListingOf("out/plan.emf"), "LineTo("));
  EXPECT_TRUE(Contains(ListingOf("out/other.emf"), "LineTo("));
  EXPECT_FALSE(Exists("out/plan.png"));
  EXPECT_TRUE(Contains(Contents("report.json"), "not-written"));
}

TEST_F(PictureModule, without_it_there_is_no_book) {
  Write("book.pdf", "an earlier result");
  ExpectNoPicture(Run("--pdf-book book.pdf plan.dxf"), "book.pdf", "libhexlume_pictures.so");
  EXPECT_EQ("an earlier result", Contents("book.pdf"));
}

TEST_F(PictureModule, a_damaged_one_is_not_loaded) {
  Write(moduleFile, "damaged");
  ExpectNoPicture(Run("--png plan.png plan.dxf plan.emf"), "plan.png", "libhexlume_pictures.so");
  EXPECT_FALSE(Exists("plan.png"));
}

TEST_F(PictureModule, one_of_another_version_is_not_taken) {
  using namespace std::string_literals;
  std::string module = Contents((BuiltFolder() / moduleFile).string());
  const std::string version = "\0"s + HEXLUME_VERSION + "\0"s;
  size_t places = 0;
  for (size_t at = 0; (at = module.find(version, at)) != std::string::npos; ++places) module[at + 1] = '9';
  ASSERT_EQ(1u, places);
  Write(moduleFile, module);
  ExpectNoPicture(Run("--png plan.png plan.dxf plan.emf"), "plan.png",
                  "it is of version 9" + std::string(HEXLUME_VERSION).substr(1));
}

TEST_F(PictureModule, is_found_in_the_folder_of_the_libraries) {
  fs::create_symlink(BuiltFolder() / moduleFile, moduleFile);
  ExpectSuccess(Run("--png plan.png plan.dxf plan.emf"));
  EXPECT_GT(SizeOfPicture("plan.png").width, 0u);
}

}  // namespace
}  // namespace hexlume::picture_module_linux_test
