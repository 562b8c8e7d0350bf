// The tool as a user runs it: on Windows the user answers the dialogs.
#include <gtest/gtest.h>

#include "support/tool_run.h"

namespace hexlume {
namespace {

using CommandLineAnswersWindows = ToolRun;

TEST_F(CommandLineAnswersWindows, dialogs_are_answered_by_the_user) {
  for (const char* const answer : {"--scale 50", "--hide-layer a", "--hide-line-type solid"})
    ExpectWrongUsage(std::string("--dialogs ") + answer + " plan.dxf",
                     "--scale, --hide-layer and --hide-line-type answer without --dialogs");
}

}  // namespace
}  // namespace hexlume
