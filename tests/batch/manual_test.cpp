// What is made from the table of commands.
#include <gtest/gtest.h>

#include <sstream>

#include "batch/batch_run.h"
#include "support/run_command.h"

namespace hexlume::manual_test {
namespace {

class BatchManual : public BatchRun {
 protected:
  // What bash offers for the last of the words.
  static std::string Completion(const std::string& words) {
    Write("complete.bash",
          ". " HEXLUME_MANUAL_DIR "/hexlume-batch.bash\nCOMP_WORDS=(" + words +
              ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_hexlume_batch\necho \"${COMPREPLY[*]}\"\n");
    EXPECT_EQ(0, RunCommand("bash", "complete.bash >completed.txt"));
    return Contents("completed.txt");
  }
};

TEST_F(BatchManual, the_page_has_every_option_of_the_help_and_no_mistake) {
  EXPECT_EQ(0, RunCommand("groff", "-man -ww -Tascii -P-cbou " HEXLUME_MANUAL_DIR
                                   "/hexlume-batch.1 >manual.txt 2>mistakes.txt"));
  EXPECT_EQ("", Contents("mistakes.txt"));
  const std::string manual = Contents("manual.txt");
  std::istringstream help(RunBatch("--help").out);
  int count = 0;
  for (std::string word; help >> word;) {
    if (word.compare(0, 2, "--") != 0 || word.size() == 2) continue;
    EXPECT_TRUE(Contains(manual, word)) << word;
    ++count;
  }
  EXPECT_GT(count, 30);
}

TEST_F(BatchManual, completion_knows_commands_and_their_options) {
  EXPECT_EQ("report retry\n", Completion("hexlume-batch re").substr(0, 13));
  EXPECT_EQ("--engine\n", Completion("hexlume-batch run --e"));
  EXPECT_EQ("--hide-layer --hide-line-type\n", Completion("hexlume-batch plan --hide"));
  EXPECT_EQ("\n", Completion("hexlume-batch chunk --with"));
}

}  // namespace
}  // namespace hexlume::manual_test
