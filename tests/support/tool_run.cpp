#include "support/tool_run.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "support/run_command.h"
#include "tools/hexlume/metafile/metafile_listing.h"

namespace hexlume {
namespace {

std::filesystem::path programFolder;

uint32_t BigEndian(const std::string& bytes, size_t offset) {
  uint32_t number = 0;
  for (size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<uint8_t>(bytes[offset + i]);
  return number;
}

// Without what a sanitizer's look for leaks says of a thread that ends at that moment.
std::string WithoutEndedThreads(const std::string& messages) {
  std::istringstream lines(messages);
  std::string kept, line;
  while (std::getline(lines, line)) {
    if (line.find("==Unable to get registers from thread ") == std::string::npos)
      kept += line + (lines.eof() ? "" : "\n");
  }
  return kept;
}

}  // namespace

void ToolRun::SetUp() {
  const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
  folder = std::filesystem::temp_directory_path() / "hexlume_tool_tests" / test->name();
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  std::filesystem::current_path(folder);
}

void ToolRun::TearDown() {
  std::filesystem::current_path(programFolder);
  // A process that Wine starts for its desktop can still be in it. The next run of the test removes what is left.
  std::error_code error;
  std::filesystem::remove_all(folder, error);
}

Outcome ToolRun::RunToolIn(const std::filesystem::path& programs, const std::string& arguments) {
  const int status = RunCommand((programs / "hexlume").string(), arguments + " >out.txt 2>err.txt");
  Outcome outcome{status, Contents("out.txt"), Contents("err.txt")};
  outcome.err.erase(std::remove(outcome.err.begin(), outcome.err.end(), '\r'), outcome.err.end());
  outcome.err = WithoutEndedThreads(outcome.err);
  return outcome;
}

Outcome ToolRun::RunReal(const std::string& arguments) {
  return RunToolIn(programFolder, arguments);
}

Outcome ToolRun::RunScripted(const std::string& arguments) {
  return RunToolIn(programFolder.parent_path() / "scripted" / "bin", arguments);
}

std::string ToolRun::CallOf(const std::string& options) {
  const Outcome outcome = RunScripted("--list " + options + " plan.dxf");
  ExpectSuccess(outcome);
  return outcome.out;
}

std::string ToolRun::Beginning(const std::string& frame, const std::string& call) {
  return "Frame(" + frame + ")\nSetMapMode(MM_HIMETRIC)\nMoveToEx(" + call + ")\n";
}

std::string ToolRun::Told(const std::vector<int>& arguments) {
  std::string lines;
  for (const int argument : arguments) lines += "LineTo(" + std::to_string(argument) + ", -1000)\n";
  return lines;
}

void ToolRun::ExpectSuccess(const Outcome& outcome) {
  EXPECT_EQ(0, outcome.status);
  EXPECT_EQ("", outcome.err);
}

void ToolRun::ExpectFailure(const Outcome& outcome, int status, const std::string& message) {
  EXPECT_EQ(status, outcome.status);
  EXPECT_EQ(message, outcome.err);
}

void ToolRun::ExpectWrongUsage(const std::string& arguments, const std::string& trouble) {
  SCOPED_TRACE(arguments);
  const Outcome outcome = RunScripted(arguments);
  EXPECT_EQ(64, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, trouble)) << outcome.err;
  EXPECT_TRUE(Contains(outcome.err, "hexlume --help")) << outcome.err;
  EXPECT_EQ("", outcome.out);
}

std::filesystem::path ProgramFolder() {
  return programFolder;
}

std::string Contents(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

bool Exists(const std::string& file) {
  return std::ifstream(file).good();
}

void Write(const std::string& file, const std::string& contents) {
  std::ofstream(file, std::ios::binary) << contents;
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::string ListingOf(const std::string& file) {
  const std::string bytes = Contents(file);
  std::ostringstream out;
  EXPECT_TRUE(ListMetafile(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size(), out)) << file;
  return out.str();
}

PictureSize SizeOfPicture(const std::string& file) {
  const std::string bytes = Contents(file);
  if (bytes.size() < 24 || bytes.substr(0, 8) != "\x89PNG\r\n\x1A\n") return {0, 0};
  return {BigEndian(bytes, 16), BigEndian(bytes, 20)};
}

}  // namespace hexlume

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  hexlume::programFolder = std::filesystem::absolute(argv[0]).parent_path();
  return RUN_ALL_TESTS();
}
