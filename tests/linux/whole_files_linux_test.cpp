// Results are there whole or not at all, also when the tool is ended.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "host/host_drawings.h"
#include "support/tool_run.h"
#include "tools/hexlume/metafile/metafile_listing.h"

namespace hexlume::whole_files_linux_test {
namespace {

namespace fs = std::filesystem;

using WholeFiles = ToolRun;

size_t FilesIn(const std::string& folder) {
  return static_cast<size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

// Files that were begun beside those that they replace.
size_t BegunFiles() {
  size_t count = 0;
  for (const auto& entry : fs::recursive_directory_iterator(".")) count += entry.path().extension() == ".tmp";
  return count;
}

// The system ends a process that writes more than 4 blocks of 512 or 1024 bytes into a file.
TEST_F(WholeFiles, a_kill_in_the_middle_of_a_write_leaves_the_earlier_file) {
  Write("small.dxf", A3(Lines(1)));
  Write("large.dxf", A3(Lines(10000)));
  ExpectSuccess(RunReal("small.dxf plan.emf"));
  const std::string before = Contents("plan.emf");
  const std::string tool = ProgramFolder().string() + "/hexlume";
  EXPECT_NE(
      0, std::system(("(ulimit -c 0; ulimit -f 4; '" + tool + "' large.dxf plan.emf) 2>/dev/null").c_str()));
  EXPECT_TRUE(before == Contents("plan.emf"));
  // What was begun is removed by the next run in that folder.
  EXPECT_EQ(1u, BegunFiles());
  ExpectSuccess(RunReal("-d . --jobs 1 large.dxf"));
  EXPECT_EQ(0u, BegunFiles());
}

TEST_F(WholeFiles, a_full_device_leaves_nothing) {
  Write("plan.dxf", A3(Lines(1)));
  const Outcome outcome = RunReal("plan.dxf /dev/full");
  EXPECT_EQ(73, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "/dev/full: can't be written: ")) << outcome.err;
  const Outcome piped = RunReal("plan.dxf - 1>/dev/full");
  EXPECT_EQ(1u, FilesIn(".") - 2);  // beside the streams that the test keeps
}

TEST_F(WholeFiles, a_full_standard_output_is_said_of_the_help_too) {
  for (const char* const option : {"--help", "--version"}) {
    const std::string tool = ProgramFolder().string() + "/hexlume";
    const int status = std::system(("'" + tool + "' " + option + " >/dev/full 2>said.txt").c_str());
    EXPECT_EQ(73, WEXITSTATUS(status));
    EXPECT_TRUE(Contains(Contents("said.txt"), "standard output: can't be written: "));
  }
}

TEST_F(WholeFiles, a_link_stays_and_its_file_is_replaced) {
  Write("plan.dxf", A3(Lines(1)));
  fs::create_directory("there");
  Write("there/real.emf", "before");
  fs::create_symlink("there/real.emf", "plan.emf");
  ExpectSuccess(RunReal("plan.dxf"));
  EXPECT_TRUE(fs::is_symlink("plan.emf"));
  EXPECT_EQ(1u, Count(ListingOf("there/real.emf"), "LineTo("));
}

TEST_F(WholeFiles, a_file_keeps_its_permissions) {
  Write("plan.dxf", A3(Lines(1)));
  Write("plan.emf", "before");
  ASSERT_EQ(0, chmod("plan.emf", 0640));
  ExpectSuccess(RunReal("plan.dxf"));
  struct stat file = {};
  ASSERT_EQ(0, stat("plan.emf", &file));
  EXPECT_EQ(0640u, file.st_mode & 0777);
}

TEST_F(WholeFiles, a_pipe_is_read_once) {
  Write("plan.dxf", A3(Lines(3)));
  ExpectSuccess(RunReal("plan.dxf"));
  for (const char* call : {"/dev/stdin a.emf <plan.dxf", "- a.emf <plan.dxf"}) {
    ExpectSuccess(RunReal(call));
    EXPECT_EQ(Contents("plan.emf"), Contents("a.emf"));
  }
  ASSERT_EQ(0, mkfifo("pipe", 0600));
  ASSERT_EQ(0, std::system("cat plan.dxf >pipe &"));
  ExpectSuccess(RunReal("pipe b.emf"));
  EXPECT_EQ(Contents("plan.emf"), Contents("b.emf"));
  // Pipes among many drawings, in workers.
  ASSERT_EQ(0, std::system("cat plan.dxf >pipe &"));
  fs::create_directory("out");
  ExpectSuccess(RunReal("-d out --jobs 2 pipe plan.dxf"));
  EXPECT_EQ(Contents("plan.emf"), Contents("out/pipe.emf"));
  ExpectFailure(RunReal("- c.emf </dev/null"), 35, "hexlume: -: empty: the file is empty\n");
}

// Starts the tool and kills it, workers and all, after so many milliseconds.
void KillAfter(const std::vector<std::string>& arguments, int milliseconds) {
  const std::string tool = ProgramFolder().string() + "/hexlume";
  const pid_t process = fork();
  if (process == 0) {
    std::vector<const char*> words = {tool.c_str()};
    for (const std::string& argument : arguments) words.push_back(argument.c_str());
    words.push_back(nullptr);
    execv(tool.c_str(), const_cast<char* const*>(words.data()));
    _exit(127);
  }
  usleep(static_cast<useconds_t>(milliseconds) * 1000);
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
}

bool IsWhole(const fs::path& metafile) {
  std::ifstream file(metafile, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  std::ostringstream listing;
  return ListMetafile(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size(), listing);
}

TEST_F(WholeFiles, a_run_that_is_killed_goes_on_where_it_ended) {
  constexpr int count = 300;
  for (int i = 0; i < count; ++i) {
    const std::string folder = "in/図面 " + std::to_string(i % 7);
    fs::create_directories(folder);
    Write(folder + "/" + std::to_string(i) + ".dxf", i % 100 == 99 ? "broken" : A3(Lines(200 + i)));
  }
  fs::create_directory("out");
  const std::vector<std::string> call = {"-d",          "out",    "--jobs",           "2",
                                         "--recursive", "in",     "--skip-unchanged", "--report",
                                         "report.json", "--quiet"};
  for (const int milliseconds : {30, 60, 90}) KillAfter(call, milliseconds);
  for (const auto& entry : fs::recursive_directory_iterator("out"))
    if (entry.path().extension() == ".emf") {
      EXPECT_TRUE(IsWhole(entry.path())) << entry.path();
    }
  const Outcome last = RunReal("-d out --jobs 2 --recursive in --skip-unchanged --report report.json");
  EXPECT_EQ(39, last.status);
  std::set<std::string> paths;
  size_t lines = 0, failed = 0;
  std::ifstream report("report.json");
  for (std::string line; std::getline(report, line); ++lines) {
    const auto json = nlohmann::json::parse(line);
    paths.insert(json["path"]);
    failed += json["status"] != "ok";
  }
  EXPECT_EQ(static_cast<size_t>(count), lines);
  EXPECT_EQ(static_cast<size_t>(count), paths.size());
  EXPECT_EQ(3u, failed);
  size_t metafiles = 0;
  for (const auto& entry : fs::recursive_directory_iterator("out")) {
    if (entry.path().extension() == ".emf") ++metafiles;
    EXPECT_NE(".tmp", entry.path().extension()) << entry.path();
  }
  EXPECT_EQ(static_cast<size_t>(count) - 3, metafiles);
}

}  // namespace
}  // namespace hexlume::whole_files_linux_test
