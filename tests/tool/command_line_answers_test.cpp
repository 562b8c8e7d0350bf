// Answers without dialogs on the command line: the host library converts, the scripted one isn't called.
#include <gtest/gtest.h>

#include <string>

#include "host/host_drawings.h"
#include "support/tool_run.h"

namespace hexlume {
namespace {

class CommandLineAnswers : public ToolRun {
 protected:
  // The listing of a drawing with these options.
  static std::string Listed(const std::string& options, const std::string& bytes) {
    Write("plan.dxf", bytes);
    const Outcome outcome = RunReal("--list " + options + " plan.dxf");
    ExpectSuccess(outcome);
    return outcome.out;
  }
};

// A line on layer A and one on layer B, which is off.
std::string TwoLayers() {
  return DrawingBytes(a3Header +
                      "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n2 A\n70 0\n62 1\n0 LAYER\n2 B\n70 "
                      "0\n62 -5\n0 LAYER\n2 C\n70 0\n62 3\n0 ENDTAB\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n" +
                      Line("8 A\n") + Line("8 B\n") + Line("8 C\n") + end);
}

TEST_F(CommandLineAnswers, help_names_the_options) {
  const std::string help = RunScripted("--help").out;
  for (const char* option : {"--scale N", "--hide-layer NAME", "--hide-line-type FAMILY"})
    EXPECT_TRUE(Contains(help, option)) << option;
}

TEST_F(CommandLineAnswers, a_hidden_layer_is_left_out_with_those_that_are_off) {
  EXPECT_EQ(3u, Count(Listed("", TwoLayers()), "LineTo"));
  const std::string shown = Listed("--hide-layer A", TwoLayers());
  EXPECT_EQ(1u, Count(shown, "LineTo"));
  EXPECT_TRUE(Contains(shown, "0x00FF00"));
}

TEST_F(CommandLineAnswers, a_hidden_line_type_is_left_out) {
  EXPECT_EQ(0u, Count(Listed("--hide-line-type solid", TwoLayers()), "LineTo"));
  EXPECT_EQ(2u, Count(Listed("--hide-line-type chain --hide-line-type dotted", TwoLayers()), "LineTo"));
}

// 100,000 by 50,000 at 1:200.
TEST_F(CommandLineAnswers, the_scale_is_that_of_a_drawing_beyond_a0) {
  const std::string large = DrawingBytes(
      "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 100000\n20 50000\n0 ENDSEC\n"
      "0 SECTION\n2 ENTITIES\n" +
      Line() + end);
  EXPECT_EQ(0u, Listed("--scale 200", large).find("Frame(0, 0, 50000, 25000)"));
  EXPECT_EQ(0u, Listed("--dialogs=0 --scale 200", large).find("Frame(0, 0, 50000, 25000)"));
}

TEST_F(CommandLineAnswers, go_with_the_other_options) {
  EXPECT_EQ(0u, Listed("--hide-layer A --view 0,0,500,29700", TwoLayers()).find("Frame(0, 0, 500, 29700)"));
  EXPECT_FALSE(Contains(Listed("--hide-layer A --mono", TwoLayers()), "0x00FF00"));
  EXPECT_NE(Listed("--hide-layer A", TwoLayers()), Listed("--hide-layer A --rotate", TwoLayers()));
  Write("plan.dxf", TwoLayers());
  ExpectSuccess(RunReal("--hide-layer A --png plan.png plan.dxf plan.emf"));
  EXPECT_EQ(Listed("--hide-layer A", TwoLayers()), ListingOf("plan.emf"));
  EXPECT_NE(0u, SizeOfPicture("plan.png").width);
}

TEST_F(CommandLineAnswers, a_layer_that_is_not_there_is_named) {
  Write("plan.dxf", TwoLayers());
  ExpectFailure(
      RunReal("--hide-layer NOWHERE plan.dxf"), 0,
      "hexlume: plan.dxf: warning: no-such-layer: no layer has the name 'NOWHERE' that --hide-layer gives\n");
}

TEST_F(CommandLineAnswers, a_drawing_that_fails_has_its_status_and_sentence) {
  ExpectFailure(RunReal("--hide-layer A missing.dxf"), 32,
                "hexlume: missing.dxf: not-found: there is no such file\n");
  Write("plan.dxf", "no drawing");
  ExpectFailure(RunReal("--hide-layer A plan.dxf"), 39,
                "hexlume: plan.dxf: no-dxf: the file is no DXF: it has no section\n");
  EXPECT_FALSE(Exists("plan.emf"));
}

TEST_F(CommandLineAnswers, that_cannot_be) {
  ExpectWrongUsage("--scale 0 plan.dxf", "--scale needs a whole number from 1 to 1000, not '0'");
  ExpectWrongUsage("--scale 1001 plan.dxf", "--scale needs a whole number");
  ExpectWrongUsage("--scale 1:50 plan.dxf", "--scale needs a whole number");
  ExpectWrongUsage("--hide-layer \"\" plan.dxf", "--hide-layer needs the name of a layer");
  ExpectWrongUsage("--hide-line-type wavy plan.dxf",
                   "--hide-line-type needs solid, dotted, dashed, chain or double-chain, not 'wavy'");
}

}  // namespace
}  // namespace hexlume
