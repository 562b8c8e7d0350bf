// The tool as a user runs it: what only the native one has.
#include <gtest/gtest.h>

#include <string>

#include "support/text_drawing.h"
#include "support/tool_run.h"

namespace hexlume::command_line_linux_test {
namespace {

using CommandLineLinux = ToolRun;

TEST_F(CommandLineLinux, help_names_the_options) {
  const std::string help = RunScripted("--help").out;
  for (const char* option : {"--svg FILE", "--pdf FILE"}) EXPECT_TRUE(Contains(help, option)) << option;
}

// Pictures.

TEST_F(CommandLineLinux, a_png_has_its_resolution) {
  ExpectSuccess(RunScripted("--png plan.png plan.dxf"));
  // 96 dots to an inch are 3779.5 to a metre; the last four bytes are the checksum that goes with 3780.
  const std::string chunk("\0\0\0\x09pHYs\0\0\x0E\xC4\0\0\x0E\xC4\x01\x95\x2B\x0E\x1B", 21);
  const std::string png = Contents("plan.png");
  EXPECT_TRUE(Contains(png.substr(0, png.find("IDAT")), chunk));
}

TEST_F(CommandLineLinux, an_svg_has_the_size_of_the_frame) {
  ExpectSuccess(RunScripted("--svg plan.svg plan.dxf"));
  const std::string svg = Contents("plan.svg");
  EXPECT_TRUE(Contains(svg, "<svg ")) << svg.substr(0, 500);
  EXPECT_TRUE(Contains(svg, "width=\"210mm\""));
  EXPECT_TRUE(Contains(svg, "height=\"297mm\""));
  EXPECT_TRUE(Contains(svg, "<path "));
  EXPECT_FALSE(Exists("plan.emf"));
}

TEST_F(CommandLineLinux, a_pdf_has_the_size_of_the_frame) {
  ExpectSuccess(RunScripted("--pdf plan.pdf plan.dxf"));
  const std::string pdf = Contents("plan.pdf");
  EXPECT_EQ(0u, pdf.find("%PDF-"));
  EXPECT_TRUE(Contains(pdf, "0 0 595.27"));
  EXPECT_TRUE(Contains(pdf, "%%EOF"));
}

TEST_F(CommandLineLinux, all_pictures_at_once) {
  ExpectSuccess(RunScripted("--png a.png --svg a.svg --pdf a.pdf --dpi 30 plan.dxf a.emf"));
  for (const char* file : {"a.png", "a.svg", "a.pdf", "a.emf"}) EXPECT_TRUE(Exists(file)) << file;
}

TEST_F(CommandLineLinux, pictures_of_strokes_need_a_frame_of_a_size_that_can_be) {
  ExpectFailure(RunScripted("--svg plan.svg --view 5,0,5,100 plan.dxf"), 73,
                "hexlume: plan.svg: can't be written: the metafile's frame is empty\n");
  // 14400 points are 508000 hundredths.
  ExpectSuccess(RunScripted("--pdf plan.pdf --view 0,0,508000,100 plan.dxf"));
  ExpectFailure(
      RunScripted("--pdf other.pdf --view 0,0,100,508001 plan.dxf"), 73,
      "hexlume: other.pdf: can't be written: the picture would be larger than 14400 points (5080 mm) on "
      "a side\n");
  EXPECT_FALSE(Exists("other.pdf"));
}

TEST_F(CommandLineLinux, wrong_usage_of_pictures) {
  ExpectWrongUsage("--svg a.svg --dpi 30 plan.dxf", "--dpi needs --png");
  ExpectWrongUsage("-d . --pdf a.pdf a.dxf b.dxf", "--pdf takes a single drawing; --to pdf takes many");
  ExpectWrongUsage("--svg a --pdf ./A plan.dxf", "the output './A' is also a drawing or another output");
}

// Answers to the dialogs.

TEST_F(CommandLineLinux, answers_reach_the_library) {
  ExpectSuccess(
      RunScripted("--dialogs --scale 50 --hide-layer 図面 --hide-layer a,b --hide-line-type solid "
                  "--hide-line-type dotted --hide-line-type dashed --hide-line-type chain --hide-line-type "
                  "double-chain plan.dxf"));
  EXPECT_EQ(
      "scale 50\nlayer \x90\x7D\x96\xCA\nlayer a,b\n"
      "family 0\nfamily 2\nfamily 1\nfamily 3\nfamily 4\n",
      Contents("answers.txt"));
}

TEST_F(CommandLineLinux, a_hidden_layer_that_a_drawing_has_not_got_is_named) {
  const std::string start =
      "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n";
  const std::string end = "0 SECTION\n2 ENTITIES\n0 LINE\n8 A\n10 0\n20 0\n11 9\n21 9\n0 ENDSEC\n0 EOF\n";
  // Switched off, a layer isn't offered, but is there.
  Write("a.dxf", DrawingBytes(start +
                              "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n2 A\n62 7\n0 LAYER\n2 OFF\n62 "
                              "-7\n0 ENDTAB\n0 ENDSEC\n" +
                              end));
  Write("b.dxf", DrawingBytes(start + end));
  ExpectSuccess(RunReal("--dialogs --hide-layer A --hide-layer OFF a.dxf"));
  const Outcome outcome =
      RunReal("-d . --dialogs --hide-layer a --hide-layer OFF --hide-layer 寸法 a.dxf b.dxf");
  EXPECT_EQ(0, outcome.status);
  const auto message = [](const std::string& drawing, const std::string& layer) {
    return "hexlume: " + drawing + ": warning: no-such-layer: no layer has the name '" + layer +
           "' that --hide-layer gives\n";
  };
  EXPECT_EQ(message("a.dxf", "a") + message("a.dxf", "寸法") + message("b.dxf", "a") +
                message("b.dxf", "OFF") + message("b.dxf", "寸法"),
            outcome.err);
}

TEST_F(CommandLineLinux, a_hidden_layer_is_not_looked_for_in_what_is_no_drawing) {
  Write("a.dxf", "");
  ExpectFailure(RunReal("--dialogs --hide-layer A a.dxf"), 35, "hexlume: a.dxf: empty: the file is empty\n");
}

TEST_F(CommandLineLinux, without_answers_the_user_changes_nothing) {
  ExpectSuccess(RunScripted("--dialogs plan.dxf"));
  EXPECT_EQ("scale 0\n", Contents("answers.txt"));
}

TEST_F(CommandLineLinux, the_scale_is_asked_for_by_any_dialog) {
  ExpectSuccess(RunScripted("--dialogs=2 --scale 1000 plan.dxf"));
  EXPECT_EQ("scale 1000\n", Contents("answers.txt"));
}

TEST_F(CommandLineLinux, answers_need_the_dialog_that_asks) {
  ExpectWrongUsage("--dialogs=2 --hide-layer a plan.dxf", "--hide-layer needs --dialogs=1, or no dialogs");
  ExpectWrongUsage("--dialogs=2 --hide-line-type solid plan.dxf",
                   "--hide-line-type needs --dialogs=1, or no dialogs");
}

// Without dialogs the host library takes any name.
TEST_F(CommandLineLinux, a_name_that_no_layer_can_have_hides_none) {
  ExpectFailure(RunReal("--hide-layer 😀 missing.dxf"), 32,
                "hexlume: missing.dxf: not-found: there is no such file\n");
}

TEST_F(CommandLineLinux, answers_that_cannot_be) {
  ExpectWrongUsage("--dialogs --hide-layer 😀 plan.dxf", "code page 932 can hold, not '😀'");
  ExpectWrongUsage("--dialogs --hide-layer \"$(printf '\\377')\" plan.dxf",
                   "--hide-layer needs a name in UTF-8");
}

}  // namespace
}  // namespace hexlume::command_line_linux_test
