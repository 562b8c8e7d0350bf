// The command-line tool started by the shell. Beside the test program is the tool with the real library;
// in the folder "scripted" of the build it has a library that does what the drawing's name says, and writes into the
// metafile what it was called with: see scripted_library.cpp.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace hexlume {

struct Outcome {
  int status;
  std::string out, err;  // standard error with plain line ends
};

struct PictureSize {
  uint32_t width, height;
};

// Each test works in a folder of its own, which is the current one.
class ToolRun : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  static Outcome RunToolIn(const std::filesystem::path& programs, const std::string& arguments);
  static Outcome RunReal(const std::string& arguments);
  static Outcome RunScripted(const std::string& arguments);

  // With the scripted library: what it was called with, as it is in the listing.
  static std::string CallOf(const std::string& options);
  static std::string Beginning(const std::string& frame, const std::string& call);
  static std::string Told(const std::vector<int>& arguments);

  static void ExpectSuccess(const Outcome& outcome);
  static void ExpectFailure(const Outcome& outcome, int status, const std::string& message);
  static void ExpectWrongUsage(const std::string& arguments, const std::string& trouble);

 private:
  std::filesystem::path folder;
};

// Where the tool is, beside the test program.
std::filesystem::path ProgramFolder();

std::string Contents(const std::string& file);
bool Exists(const std::string& file);
void Write(const std::string& file, const std::string& contents);
bool Contains(const std::string& text, const std::string& part);

// What the tool would list of the metafile in a file.
std::string ListingOf(const std::string& file);

// Of a PNG file; 0 by 0 if it is none.
PictureSize SizeOfPicture(const std::string& file);

}  // namespace hexlume
