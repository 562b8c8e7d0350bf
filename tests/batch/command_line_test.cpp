#include "tools/batch/command/command_line.h"

#include <gtest/gtest.h>

#include "tools/hexlume/command/options.h"

namespace hexlume::batch::command_line_test {
namespace {

CommandLine Parsed(const std::string& command, const std::vector<std::string>& arguments) {
  for (const CommandForm& form : Commands())
    if (command == form.name) return {form, arguments};
  throw UsageError("no command");
}

TEST(BatchCommandLine, options_and_operands_are_told_apart) {
  const CommandLine line = Parsed("plan", {"one", "--out", "folder", "two, three", "--no-hash"});
  EXPECT_EQ((std::vector<std::string>{"one", "two, three"}), line.Operands());
  EXPECT_EQ("folder", line.Text("out"));
  EXPECT_TRUE(line.Has("no-hash"));
  EXPECT_FALSE(line.Has("null"));
  EXPECT_EQ(500, line.Number("chunk", 1, 1000, 500));
}

TEST(BatchCommandLine, options_of_the_conversion_are_passed_on) {
  const CommandLine line =
      Parsed("plan", {"--view=-1,0,2,3", "--hide-layer", "A", "--hide-layer", "B", "--mono"});
  EXPECT_EQ((std::vector<std::string>{"--view=-1,0,2,3", "--mono", "--hide-layer=A", "--hide-layer=B"}),
            line.Conversion());
}

TEST(BatchCommandLine, what_is_after_two_hyphens_is_for_the_engine) {
  const CommandLine line = Parsed("run", {"folder", "--engine", "slurm", "--", "--account=x", "--engine"});
  EXPECT_EQ((std::vector<std::string>{"folder"}), line.Operands());
  EXPECT_EQ((std::vector<std::string>{"--account=x", "--engine"}), line.Rest());
}

TEST(BatchCommandLine, wrong_usage_is_refused) {
  EXPECT_THROW(Parsed("plan", {"--dialogs"}), UsageError);
  EXPECT_THROW(Parsed("run", {"--mono"}), UsageError);
  EXPECT_THROW(Parsed("plan", {"--chunk", "5", "--chunk", "6"}), UsageError);
  EXPECT_THROW(Parsed("plan", {"--chunk", "five"}).Number("chunk", 1, 9, 5), UsageError);
}

TEST(BatchCommandLine, the_help_has_all_commands) {
  for (const CommandForm& form : Commands())
    EXPECT_NE(std::string::npos, BatchHelp().find(std::string("hexlume-batch ") + form.name));
  EXPECT_EQ(std::string::npos, BatchHelp().find("with-parent"));
}

}  // namespace
}  // namespace hexlume::batch::command_line_test
