// The tool as a user runs it, seen by its exit status, its streams and its files: what goes wrong.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "support/run_command.h"
#include "support/text_drawing.h"
#include "support/tool_run.h"

namespace hexlume::command_line_errors_test {
namespace {

using CommandLineErrors = ToolRun;

// A sheet of A3 without a section of entities, and one with a line.
const std::string header =
    DrawingBytes("0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n");
const std::string entities =
    DrawingBytes("0 SECTION\n2 ENTITIES\n0 LINE\n8 0\n10 10\n20 10\n11 400\n21 200\n0 ENDSEC\n0 EOF\n");

// Failures.

TEST_F(CommandLineErrors, a_drawing_that_cannot_be_opened_again) {
  ExpectFailure(
      RunScripted("returns2.dxf"), 2,
      "hexlume: returns2.dxf: not-opened: the drawing could be measured, but not opened again to be drawn\n");
}

TEST_F(CommandLineErrors, a_cancelled_dialog) {
  ExpectFailure(RunScripted("--dialogs returns16.dxf"), 16,
                "hexlume: returns16.dxf: cancelled: cancelled in a dialog\n");
}

TEST_F(CommandLineErrors, no_drawing_for_a_reason_that_nobody_knows) {
  Write("returns30.dxf", header + entities);
  ExpectFailure(
      RunScripted("returns30.dxf"), 30,
      "hexlume: returns30.dxf: fault: the file can't be read or is no drawing, or a fault ended it\n");
}

TEST_F(CommandLineErrors, a_code_that_nobody_knows) {
  ExpectFailure(RunScripted("returns99.dxf"), 99,
                "hexlume: returns99.dxf: unknown: the library returned 99\n");
}

TEST_F(CommandLineErrors, a_failed_conversion_leaves_the_output_alone) {
  Write("returns30.dxf", header + entities);
  Write("returns30.emf", "before");
  EXPECT_EQ(30, RunScripted("returns30.dxf").status);
  EXPECT_EQ("before", Contents("returns30.emf"));
}

TEST_F(CommandLineErrors, a_drawing_that_a_fault_ended_is_written_as_far_as_it_goes) {
  ExpectFailure(RunScripted("begun.dxf"), 30,
                "hexlume: begun.dxf: fault: a fault ended the drawing; what was drawn up to there is kept\n");
  EXPECT_TRUE(Contains(ListingOf("begun.emf"), "\nLineTo("));
}

TEST_F(CommandLineErrors, a_drawing_that_a_fault_ended_is_not_turned) {
  Write("begun.dxf", header + entities);
  EXPECT_EQ(30, RunScripted("--rotate begun.dxf").status);
  EXPECT_FALSE(Exists("begun.emf"));
}

TEST_F(CommandLineErrors, a_fault_that_leaves_the_library) {
  ExpectFailure(RunScripted("fault11.dxf"), 11, "hexlume: fault11.dxf: fault: fault 11 left the library\n");
  EXPECT_FALSE(Exists("fault11.emf"));
  const Outcome tooLong = RunScripted("--full-size fault-1.dxf");
  EXPECT_EQ(11, tooLong.status);
  EXPECT_TRUE(
      Contains(tooLong.err, "hexlume: fault-1.dxf: fault: fault -1 left the library: a text is too long"));
}

// The host library, which would draw all of this one, isn't asked whether memory ran out.
TEST_F(CommandLineErrors, a_drawing_that_a_bound_ended_is_converted_once) {
  Write("bounded-begun.dxf", header + entities);
  const Outcome begun = RunScripted("bounded-begun.dxf");
  EXPECT_EQ(30, begun.status);
  EXPECT_TRUE(Contains(begun.err, "bounded-begun.dxf: warning: bound: ")) << begun.err;
  Write("bounded-fault11.dxf", header + entities);
  EXPECT_EQ(11, RunScripted("bounded-fault11.dxf").status);
}

// The nine exports take 259 bytes.
TEST_F(CommandLineErrors, a_long_path_is_converted_as_a_short_one) {
  Write("a.dxf", header + entities);
  std::string path;
  while (path.size() < 260) path += "./";
  ExpectSuccess(RunReal("--full-size " + path + "a.dxf out.emf"));
  ExpectSuccess(RunReal("--full-size a.dxf"));
  EXPECT_EQ(Contents("a.emf"), Contents("out.emf"));
}

TEST_F(CommandLineErrors, a_fault_while_turning) {
  ExpectFailure(RunScripted("--rotate unturnable.dxf"), 11,
                "hexlume: unturnable.dxf: fault: fault 11 left the library\n");
  EXPECT_FALSE(Exists("unturnable.emf"));
}

TEST_F(CommandLineErrors, the_others_are_converted_all_the_same) {
  Write("returns30.dxf", header + entities);
  const Outcome outcome =
      RunScripted("--jobs 0 -d . fault11.dxf a.dxf returns30.dxf b.dxf other-fault11.dxf returns2.dxf c.dxf");
  EXPECT_EQ(2, outcome.status);  // of the last one that failed
  EXPECT_EQ(4, std::count(outcome.err.begin(), outcome.err.end(), '\n'));
  EXPECT_TRUE(Exists("a.emf"));
  EXPECT_TRUE(Exists("b.emf"));
  EXPECT_TRUE(Exists("c.emf"));
}

// Files that are no ASCII DXF, or not all of one.

TEST_F(CommandLineErrors, an_empty_file) {
  Write("a.dxf", "");
  ExpectFailure(RunReal("a.dxf"), 35, "hexlume: a.dxf: empty: the file is empty\n");
  const std::string japanese = JapaneseName() + ".dxf";
  Write(japanese, "");
  ExpectFailure(RunReal(japanese), 35, "hexlume: " + JapaneseMessage() + ".dxf: empty: the file is empty\n");
}

TEST_F(CommandLineErrors, a_binary_dxf) {
  // The sentinel of 22 bytes, and a group 0 "SECTION".
  const std::string start("AutoCAD Binary DXF\r\n\x1A\0", 22);
  const std::string message =
      "hexlume: a.dxf: binary-dxf: the file is a binary DXF; only an ASCII DXF can be converted\n";
  Write("a.dxf", start + std::string("\0\0SECTION\0", 10));
  ExpectFailure(RunReal("a.dxf"), 37, message);
  ExpectFailure(RunReal("--full-size a.dxf"), 37, message);
  ExpectFailure(RunReal("--view 0,0,100,100 a.dxf"), 37, message);
  Write("a.dxf", start);
  ExpectFailure(RunReal("a.dxf"), 37, message);
}

TEST_F(CommandLineErrors, a_dwg) {
  for (const char* version : {"AC1009", "AC1015", "AC1032"}) {
    Write("a.dxf", version + std::string("\0\0\0\0\x06\n\x1A\0\n", 9));
    ExpectFailure(RunReal("a.dxf"), 36,
                  "hexlume: a.dxf: dwg: the file is a DWG; only an ASCII DXF can be converted\n");
  }
}

TEST_F(CommandLineErrors, a_compressed_file) {
  for (const char* start : {"\x1F\x8B\x08", "PK\x03\x04", "BZh9"}) {
    Write("a.dxf", start + std::string(100, '\xEE'));
    ExpectFailure(RunReal("a.dxf"), 38,
                  "hexlume: a.dxf: compressed: the file is compressed; unpack it first\n");
  }
}

TEST_F(CommandLineErrors, what_is_no_dxf) {
  for (const char* bytes : {"AC", "0 EOF\n", "1 ENTITIES\n0 EOF\n", "{}"}) {
    Write("a.dxf", DrawingBytes(bytes));
    ExpectFailure(RunReal("a.dxf"), 39, "hexlume: a.dxf: no-dxf: the file is no DXF: it has no section\n");
    EXPECT_FALSE(Exists("a.emf"));
  }
}

TEST_F(CommandLineErrors, a_file_without_entities_that_has_no_size) {
  Write("a.dxf", DrawingBytes("0 SECTION\n2 HEADER\n0 ENDSEC\n0 EOF\n"));
  ExpectFailure(
      RunReal("a.dxf"), 40,
      "hexlume: a.dxf: no-entities: the file has no ENTITIES section, so there is nothing to draw\n");
  EXPECT_FALSE(Exists("a.emf"));
}

TEST_F(CommandLineErrors, tables_without_a_layer_table) {
  Write("a.dxf", DrawingBytes("0 SECTION\n2 TABLES\n0 ENDSEC\n0 EOF\n"));
  ExpectFailure(
      RunReal("a.dxf"), 41,
      "hexlume: a.dxf: no-layers: the drawing has tables, but no layer table, and can't be converted\n");
}

TEST_F(CommandLineErrors, a_drawing_that_ends_in_its_layers) {
  // Ten lines: five groups.
  Write("a.dxf", DrawingBytes("0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n"));
  ExpectFailure(RunReal("a.dxf"), 42,
                "hexlume: a.dxf: cut-off: the drawing is cut off before anything can be drawn (line 10)\n");
}

TEST_F(CommandLineErrors, a_drawing_without_its_end_mark_is_converted_with_a_warning) {
  const std::string whole = header + entities;
  Write("a.dxf", whole.substr(0, whole.size() - std::string("0\nEOF\n").size()));
  const Outcome outcome = RunReal("a.dxf");
  EXPECT_EQ(0, outcome.status);
  EXPECT_EQ("hexlume: a.dxf: warning: cut-off: the drawing ends without its end mark: it may be cut off\n",
            outcome.err);
  EXPECT_TRUE(Contains(ListingOf("a.emf"), "\nLineTo("));
  EXPECT_EQ("", RunReal("--quiet a.dxf").err);
  // What comes after the mark or after it without a line end doesn't matter.
  for (const std::string& end : {std::string(), std::string("\n\n  \n"), std::string(5000, '\n')}) {
    Write("a.dxf", whole.substr(0, whole.size() - 1) + (end.empty() ? "" : "\r\n") + end);
    ExpectSuccess(RunReal("a.dxf"));
  }
}

TEST_F(CommandLineErrors, a_missing_file_and_a_folder) {
  ExpectFailure(RunReal("a.dxf"), 32, "hexlume: a.dxf: not-found: there is no such file\n");
  std::filesystem::create_directory("b.dxf");
  ExpectFailure(RunReal("b.dxf"), 33,
                "hexlume: b.dxf: not-a-file: this is a folder or a device, not a file\n");
}

TEST_F(CommandLineErrors, a_file_without_entities_that_has_a_size_gives_an_empty_sheet) {
  // A layer may have the section's name, and what is after the text's end doesn't count.
  for (const std::string& end :
       {std::string("0\nEOF\n"), std::string("8\nENTITIES\n"), "\x1A\n" + entities}) {
    Write("a.dxf", header + end);
    const Outcome outcome = RunReal("a.dxf");
    EXPECT_EQ(0, outcome.status);
    EXPECT_EQ(0u, outcome.err.find("hexlume: a.dxf: warning: no-entities: the file has no ENTITIES section"))
        << outcome.err;
    EXPECT_EQ("Frame(0, 0, 42000, 29700)\n", ListingOf("a.emf"));
  }
}

TEST_F(CommandLineErrors, an_empty_section_entities_is_one) {
  Write("a.dxf", header + "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n");
  ExpectSuccess(RunReal("a.dxf"));
}

TEST_F(CommandLineErrors, a_drawing_that_fails_for_another_reason_has_its_general_message) {
  Write("returns30.dxf", header + entities);
  ExpectFailure(
      RunScripted("returns30.dxf"), 30,
      "hexlume: returns30.dxf: fault: the file can't be read or is no drawing, or a fault ended it\n");
}

constexpr int64_t twoGb = int64_t{1} << 31;
const std::string tooLarge = "too-large: the file is larger than 2 GB; what is beyond isn't read\n";

TEST_F(CommandLineErrors, a_file_beyond_2_gb_is_converted_as_far_as_it_is_read) {
  // The text ends early, so that the rest needs neither time nor memory.
  Write("a.dxf", header + entities + '\x1A');
  GrowFile("a.dxf", twoGb - 1);
  ExpectSuccess(RunReal("a.dxf"));
  GrowFile("a.dxf", twoGb);
  const Outcome outcome = RunReal("a.dxf");
  EXPECT_EQ(0, outcome.status);
  EXPECT_EQ("hexlume: a.dxf: warning: " + tooLarge, outcome.err);
  EXPECT_TRUE(Contains(ListingOf("a.emf"), "\nLineTo("));
}

TEST_F(CommandLineErrors, a_file_beyond_2_gb_that_fails) {
  Write("a.dxf", "\x1A");
  GrowFile("a.dxf", 3 * twoGb);
  ExpectFailure(RunReal("a.dxf"), 43, "hexlume: a.dxf: too-large: the file is larger than 2 GB\n");
}

TEST_F(CommandLineErrors, a_file_says_nothing_of_other_failures) {
  Write("returns16.dxf", "");
  ExpectFailure(RunScripted("returns16.dxf"), 16,
                "hexlume: returns16.dxf: cancelled: cancelled in a dialog\n");
  Write("fault11.dxf", "");
  ExpectFailure(RunScripted("fault11.dxf"), 11, "hexlume: fault11.dxf: fault: fault 11 left the library\n");
}

// Outputs that can't be written. The reason is the system's own words.

void ExpectNotWritten(const Outcome& outcome, const std::string& output) {
  EXPECT_EQ(73, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "hexlume: " + output + ": can't be written: ")) << outcome.err;
  EXPECT_EQ(1, std::count(outcome.err.begin(), outcome.err.end(), '\n')) << outcome.err;
}

TEST_F(CommandLineErrors, an_output_in_a_folder_that_does_not_exist) {
  ExpectNotWritten(RunScripted("plan.dxf nowhere/plan.emf"), "nowhere/plan.emf");
  ExpectNotWritten(RunScripted("--png nowhere/plan.png plan.dxf"), "nowhere/plan.png");
  EXPECT_FALSE(Exists("nowhere"));
}

TEST_F(CommandLineErrors, an_output_that_is_a_folder) {
  std::filesystem::create_directory("plan.emf");
  ExpectNotWritten(RunScripted("plan.dxf"), "plan.emf");
}

TEST_F(CommandLineErrors, a_folder_for_several_that_does_not_exist) {
  ExpectFailure(RunScripted("-d nowhere a.dxf b.dxf"), 73,
                "hexlume: nowhere: can't be written: there is no such folder\n");
}

TEST_F(CommandLineErrors, of_two_troubles_the_later_one_counts) {
  std::filesystem::create_directory("a.emf");
  EXPECT_EQ(32, RunReal("--jobs 0 -d . a.dxf missing.dxf").status);
  Write("a.dxf", header + entities);
  EXPECT_EQ(73, RunReal("--jobs 0 -d . missing.dxf a.dxf").status);
  EXPECT_EQ(73, RunScripted("begun.dxf nowhere/begun.emf").status);
}

// Wrong usage.

TEST_F(CommandLineErrors, options_that_do_not_exist_or_lack_their_value) {
  ExpectWrongUsage("--colour plan.dxf", "there is no option --colour\n");
  ExpectWrongUsage("--a.b plan.dxf", "there is no option --a.b");
  ExpectWrongUsage("-plan.dxf", "there is no option -p");
  ExpectWrongUsage("-hx/y", "there is no option -x");
  ExpectWrongUsage("--pngg a.png plan.dxf", "there is no option --pngg; did you mean --png?");
  ExpectWrongUsage("--full plan.dxf", "there is no option --full; did you mean --full-size?");
  ExpectWrongUsage("--mnoo plan.dxf", "did you mean --mono?");
  ExpectWrongUsage("-x plan.dxf", "x");
  ExpectWrongUsage("plan.dxf --view", "view");
  ExpectWrongUsage("plan.dxf -d", "is missing an argument");
}

TEST_F(CommandLineErrors, values_that_are_no_numbers) {
  ExpectWrongUsage("--dialogs=some plan.dxf", "--dialogs needs a whole number");
  ExpectWrongUsage("--dialogs=2147483648 plan.dxf", "--dialogs needs a whole number");
  ExpectWrongUsage("--dialog-font 256 plan.dxf",
                   "--dialog-font needs a whole number from 0 to 255, not '256'");
  ExpectWrongUsage("--dialog-font -1 plan.dxf", "--dialog-font needs a whole number");
  ExpectWrongUsage("--png a.png --dpi 0 plan.dxf", "--dpi needs a whole number");
  ExpectWrongUsage("--png a.png --dpi 96.5 plan.dxf", "--dpi needs a whole number");
}

TEST_F(CommandLineErrors, views_that_are_no_four_numbers) {
  for (const char* view : {"1,2,3", "1,2,3,4,5", "1,2,3,", "1,2,3,x", "1;2;3;4", "1,2,3,9999999999", "x"}) {
    ExpectWrongUsage(std::string("--view \"") + view + "\" plan.dxf",
                     std::string("--view needs four whole numbers L,T,R,B, not '") + view + "'");
  }
}

TEST_F(CommandLineErrors, views_that_are_inverted) {
  ExpectWrongUsage("--view 10,10,5,20 plan.dxf",
                   "--view needs a left edge that isn't right of the right one");
  ExpectWrongUsage("--view 10,10,20,5 plan.dxf", "--view needs a top edge that isn't below the bottom one");
}

TEST_F(CommandLineErrors, options_given_more_than_once) {
  ExpectWrongUsage("--png a.png --png b.png plan.dxf", "--png is given more than once");
  ExpectWrongUsage("-d . -d .. plan.dxf", "-d is given more than once");
  ExpectWrongUsage("--view 0,0,1,1 --view 0,0,2,2 plan.dxf", "--view is given more than once");
}

TEST_F(CommandLineErrors, options_that_exclude_or_need_each_other) {
  ExpectWrongUsage("--view 0,0,1,1 --full-size plan.dxf", "--view and --full-size exclude each other");
  ExpectWrongUsage("--view 0,0,1,1 --rotate plan.dxf", "--view and --rotate exclude each other");
  ExpectWrongUsage("--whole-text plan.dxf", "--whole-text needs --view");
  ExpectWrongUsage("--dpi 300 plan.dxf", "--dpi needs --png");
  ExpectWrongUsage("-d . --png a.png a.dxf b.dxf", "--png takes a single drawing");
}

TEST_F(CommandLineErrors, drawings_missing_or_too_many) {
  ExpectWrongUsage("", "no drawing is given");
  ExpectWrongUsage("-d .", "no drawing is given");
  ExpectWrongUsage("a.dxf b.emf c.dxf", "several drawings need -d DIR");
  ExpectWrongUsage("a.dxf b.DXF", "the output 'b.DXF' looks like a drawing");
  ExpectWrongUsage("-d \"\" a.dxf", "-d needs the name of a folder");
}

TEST_F(CommandLineErrors, no_output_may_overwrite_a_drawing_or_another_output) {
  ExpectWrongUsage("plan.emf", "the output 'plan.emf' is also a drawing or another output");
  ExpectWrongUsage("plan ./PLAN", "'./PLAN'");
  ExpectWrongUsage("--png plan.dxf plan.dxf", "'plan.dxf'");
  ExpectWrongUsage("--png a.emf plan.dxf a.emf", "'a.emf'");
}

}  // namespace
}  // namespace hexlume::command_line_errors_test
