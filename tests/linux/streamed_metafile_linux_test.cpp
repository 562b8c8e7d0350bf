// A metafile of more than one megabyte goes to its file while it is drawn. On standard output it comes from memory.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <string>

#include "host/host_drawings.h"
#include "support/tool_run.h"

namespace hexlume::streamed_metafile_linux_test {
namespace {

namespace fs = std::filesystem;

// 30,000 lines are 2,880,000 bytes: three pieces.
constexpr int32_t lines = 30000;

// After the lines comes a block that contains itself, which ends the drawing.
std::string EndlessDrawing() {
  return DrawingBytes(a3Header +
                      "0 SECTION\n2 BLOCKS\n0 BLOCK\n2 B\n10 0\n20 0\n0 INSERT\n2 B\n0 ENDBLK\n0 ENDSEC\n" +
                      "0 SECTION\n2 ENTITIES\n" + Lines(lines) + "0 INSERT\n2 B\n" + end);
}

size_t FilesIn(const std::string& folder) {
  return static_cast<size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

// Not every file system has files without a name.
bool HasNamelessFiles() {
  const int file = open(".", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
  if (file >= 0) close(file);
  return file >= 0;
}

class StreamedMetafile : public ToolRun {
 protected:
  void SetUp() override {
    ToolRun::SetUp();
    Write("plan.dxf", A3(Lines(lines)));
    fs::create_directory("out");
  }

  // In memory, as standard output takes it at the end.
  static std::string WholeOf(const std::string& arguments) { return RunReal(arguments + " -").out; }

  // The shell's settings hold for the tool alone.
  static int RunWith(const std::string& settings, const std::string& arguments) {
    const std::string tool = ProgramFolder().string() + "/hexlume";
    const std::string command = "(" + settings + "; exec '" + tool + "' " + arguments + ") 2>err.txt";
    return std::system(command.c_str());
  }
};

TEST_F(StreamedMetafile, is_the_one_of_standard_output) {
  for (const std::string options :
       {"", "--rotate ", "--full-size --mono ", "--view 0,0,42000,29700 ", "--half-width --dialogs "}) {
    ExpectSuccess(RunReal(options + "plan.dxf out/plan.emf"));
    const std::string written = Contents("out/plan.emf");
    EXPECT_LT(lines * 90u, written.size()) << options;
    EXPECT_TRUE(WholeOf(options + "plan.dxf") == written) << options;
  }
  EXPECT_EQ(1u, FilesIn("out"));
}

// Each 512 or 1024 bytes: the limit is within the second or the fourth piece.
constexpr const char* fileLimit = "ulimit -c 0; ulimit -f 2500";

TEST_F(StreamedMetafile, leaves_the_earlier_file_where_the_disk_is_full) {
  Write("out/plan.emf", "before");
  for (const std::string options : {"", "--rotate "}) {
    const int status = RunWith(std::string("trap '' XFSZ; ") + fileLimit, options + "plan.dxf out/plan.emf");
    EXPECT_EQ(73, WEXITSTATUS(status));
    EXPECT_EQ("hexlume: out/plan.emf: can't be written: File too large\n", Contents("err.txt"));
    EXPECT_EQ("before", Contents("out/plan.emf"));
    EXPECT_EQ(1u, FilesIn("out"));
  }
}

// The system ends a process that writes more.
TEST_F(StreamedMetafile, leaves_nothing_when_the_process_is_killed) {
  Write("out/plan.emf", "before");
  const int status = RunWith(fileLimit, "plan.dxf out/plan.emf");
  EXPECT_FALSE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ("before", Contents("out/plan.emf"));
  EXPECT_EQ(HasNamelessFiles() ? 1u : 2u, FilesIn("out"));
}

TEST_F(StreamedMetafile, has_what_was_drawn_before_a_fault) {
  Write("endless.dxf", EndlessDrawing());
  ExpectFailure(
      RunReal("endless.dxf out/plan.emf"), 30,
      "hexlume: endless.dxf: warning: bound: Blocks within blocks are too deep. The drawing ends "
      "here.\n"
      "hexlume: endless.dxf: fault: a fault ended the drawing; what was drawn up to there is kept\n");
  const std::string written = Contents("out/plan.emf");
  EXPECT_LE(static_cast<size_t>(lines), Count(ListingOf("out/plan.emf"), "LineTo("));
  EXPECT_TRUE(WholeOf("endless.dxf") == written);
}

TEST_F(StreamedMetafile, is_dropped_if_a_fault_leaves_the_library) {
  Write("endless.dxf", EndlessDrawing());
  Write("out/plan.emf", "before");
  EXPECT_EQ(11, RunReal("--full-size endless.dxf out/plan.emf").status);
  EXPECT_EQ("before", Contents("out/plan.emf"));
  EXPECT_EQ(1u, FilesIn("out"));
}

TEST_F(StreamedMetafile, replaces_the_file_of_a_link_with_its_permissions) {
  Write("out/real.emf", "before");
  ASSERT_EQ(0, chmod("out/real.emf", 0640));
  fs::create_symlink("out/real.emf", "plan.emf");
  ExpectSuccess(RunReal("plan.dxf"));
  EXPECT_TRUE(fs::is_symlink("plan.emf"));
  struct stat file = {};
  ASSERT_EQ(0, stat("out/real.emf", &file));
  EXPECT_EQ(0640u, file.st_mode & 0777);
  EXPECT_TRUE(WholeOf("plan.dxf") == Contents("out/real.emf"));
}

TEST_F(StreamedMetafile, is_written_into_a_pipe_at_the_end) {
  ASSERT_EQ(0, mkfifo("pipe", 0600));
  ASSERT_EQ(0, std::system("cat pipe >read.emf &"));
  ExpectSuccess(RunReal("plan.dxf pipe"));
  EXPECT_TRUE(fs::is_fifo("pipe"));
  const std::string whole = WholeOf("plan.dxf");
  for (int tries = 0; tries < 100 && Contents("read.emf").size() < whole.size(); ++tries) usleep(50000);
  EXPECT_TRUE(whole == Contents("read.emf"));
}

TEST_F(StreamedMetafile, stays_in_memory_for_other_results) {
  ExpectSuccess(RunReal("plan.dxf out/plan.emf --svg out/plan.svg"));
  EXPECT_TRUE(WholeOf("plan.dxf") == Contents("out/plan.emf"));
  EXPECT_TRUE(Contains(Contents("out/plan.svg"), "</svg>"));
}

TEST_F(StreamedMetafile, makes_the_folders_of_a_tree) {
  fs::create_directories("in/deep/er");
  fs::rename("plan.dxf", "in/deep/er/plan.dxf");
  ExpectSuccess(RunReal("--jobs 0 --recursive in -d out"));
  EXPECT_TRUE(WholeOf("in/deep/er/plan.dxf") == Contents("out/deep/er/plan.emf"));
}

TEST_F(StreamedMetafile, of_a_drawing_beside_its_sheet_is_looked_through) {
  std::string beside;
  for (int32_t i = 0; i < lines; ++i) beside += "0 POINT\n10 900\n20 900\n";
  Write("beside.dxf", A3(beside));
  const Outcome outcome = RunReal("beside.dxf out/plan.emf");
  EXPECT_EQ(RunReal("beside.dxf -").err, outcome.err);
  EXPECT_TRUE(Contains(outcome.err, "beside-sheet")) << outcome.err;
}

}  // namespace
}  // namespace hexlume::streamed_metafile_linux_test
