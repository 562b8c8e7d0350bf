// The tool as a user runs it, seen by its exit status, its streams and its files: options and results.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/run_command.h"
#include "support/tool_run.h"

namespace hexlume::command_line_test {
namespace {

using CommandLine = ToolRun;

const std::string a4 = "0, 0, 21000, 29700";

// What the tool says of itself.

TEST_F(CommandLine, version) {
  const Outcome outcome = RunReal("--version");
  ExpectSuccess(outcome);
  EXPECT_EQ("hexlume " HEXLUME_VERSION "\n", outcome.out);
}

TEST_F(CommandLine, help_names_every_option_and_exit_status) {
  const Outcome outcome = RunReal("--help");
  ExpectSuccess(outcome);
  for (const char* word : {"DRAWING.dxf [OUTPUT.emf]",
                           "-d DIR",
                           "--view L,T,R,B",
                           "--full-size",
                           "--rotate",
                           "--mono",
                           "--half-width",
                           "--whole-text",
                           "--dialogs[=N] ",
                           "--dialog-font",
                           "--png FILE",
                           "--dpi N",
                           "--list",
                           "--version",
                           "--help",
                           " 0 ",
                           " 2 ",
                           "11 ",
                           "16 ",
                           "30 ",
                           "64 ",
                           "73 "}) {
    EXPECT_TRUE(Contains(outcome.out, word)) << word;
  }
}

TEST_F(CommandLine, help_has_a_short_form) {
  EXPECT_EQ(RunReal("--help").out, RunReal("-h").out);
}

TEST_F(CommandLine, standard_output_has_plain_line_ends) {
  EXPECT_FALSE(Contains(RunReal("--help").out, "\r"));
  EXPECT_FALSE(Contains(RunScripted("--list plan.dxf").out, "\r"));
}

// What the options ask of the library.

TEST_F(CommandLine, without_options_the_sheet_is_converted) {
  EXPECT_EQ(Beginning(a4, "1, 0") + Told({0, 0, 0}), CallOf(""));
}

TEST_F(CommandLine, mono_and_half_width) {
  EXPECT_EQ(Beginning(a4, "1, 0") + Told({0, 0, 1}), CallOf("--mono"));
  EXPECT_EQ(Beginning(a4, "1, 0") + Told({0, 1, 0}), CallOf("--half-width"));
}

TEST_F(CommandLine, dialogs_takes_its_number_behind_an_equals_sign_only) {
  EXPECT_EQ(Beginning(a4, "1, 0") + Told({1, 0, 0}), CallOf("--dialogs"));
  EXPECT_EQ(Beginning(a4, "1, 0") + Told({-2, 0, 0}), CallOf("--dialogs=-2"));
  ExpectSuccess(RunScripted("--dialogs 2"));
  EXPECT_EQ(Beginning(a4, "1, 0") + Told({1, 0, 0}), ListingOf("2.emf"));
}

TEST_F(CommandLine, dialog_font) {
  EXPECT_EQ(Beginning(a4, "1, 255") + Told({0, 0, 0}), CallOf("--dialog-font 255"));
}

TEST_F(CommandLine, full_size) {
  EXPECT_EQ(Beginning(a4, "4, 0") + Told({1, 1, 1}), CallOf("--full-size --dialogs --half-width --mono"));
}

TEST_F(CommandLine, view) {
  EXPECT_EQ(Beginning("-10, -20, 300, 400", "2, 0") + Told({0, 0, 0, 0}), CallOf("--view -10,-20,300,400"));
  EXPECT_EQ(Beginning("1, 2, 3, 4", "2, 0") + Told({1, 1, 1, 1}),
            CallOf("--view=1,2,3,4 --dialogs --half-width --mono --whole-text"));
}

TEST_F(CommandLine, rotate_gives_the_turned_one) {
  EXPECT_EQ(Beginning(a4, "3, 0") + Told({0}), CallOf("--rotate"));
  EXPECT_EQ(Beginning(a4, "3, 0") + Told({1}), CallOf("--rotate --full-size --mono"));
}

// Where the results go.

TEST_F(CommandLine, without_an_output_the_metafile_goes_beside_the_drawing) {
  std::filesystem::create_directory("sub.folder");
  ExpectSuccess(RunScripted("sub.folder/plan.v2.dxf"));
  EXPECT_EQ(Beginning(a4, "1, 0") + Told({0, 0, 0}), ListingOf("sub.folder/plan.v2.emf"));
  ExpectSuccess(RunScripted("sub.folder/plan"));
  EXPECT_TRUE(Exists("sub.folder/plan.emf"));
}

TEST_F(CommandLine, the_output_goes_where_it_is_told) {
  std::filesystem::create_directory("sub");
  ExpectSuccess(RunScripted("plan.dxf sub/other.name"));
  EXPECT_TRUE(Exists("sub/other.name"));
  EXPECT_FALSE(Exists("plan.emf"));
}

TEST_F(CommandLine, an_absolute_path) {
  const std::string here = std::filesystem::current_path().string();
  ExpectSuccess(RunScripted("\"" + here + "/plan.dxf\""));
  EXPECT_TRUE(Exists("plan.emf"));
  ExpectSuccess(RunScripted("plan.dxf \"" + here + "/other.emf\""));
  EXPECT_TRUE(Exists("other.emf"));
}

TEST_F(CommandLine, an_output_is_written_anew) {
  Write("plan.emf", std::string(100000, 'x'));
  ExpectSuccess(RunScripted("plan.dxf"));
  EXPECT_EQ(Beginning(a4, "1, 0") + Told({0, 0, 0}), ListingOf("plan.emf"));
  EXPECT_GT(1000u, Contents("plan.emf").size());
}

TEST_F(CommandLine, a_listing_alone_writes_no_file) {
  EXPECT_NE("", CallOf(""));
  EXPECT_FALSE(Exists("plan.emf"));
}

TEST_F(CommandLine, a_picture_alone_writes_no_metafile) {
  ExpectSuccess(RunScripted("--png plan.png plan.dxf"));
  EXPECT_TRUE(Exists("plan.png"));
  EXPECT_FALSE(Exists("plan.emf"));
}

TEST_F(CommandLine, metafile_listing_and_picture_at_once) {
  const Outcome outcome = RunScripted("--list --png plan.png plan.dxf plan.emf");
  ExpectSuccess(outcome);
  EXPECT_EQ(ListingOf("plan.emf"), outcome.out);
  EXPECT_TRUE(Exists("plan.png"));
}

TEST_F(CommandLine, several_drawings_go_into_a_folder) {
  std::filesystem::create_directory("out");
  ExpectSuccess(RunScripted("--jobs 0 -d out one.dxf elsewhere/two.DXF three"));
  EXPECT_TRUE(Exists("out/one.emf"));
  EXPECT_TRUE(Exists("out/two.emf"));
  EXPECT_TRUE(Exists("out/three.emf"));
  ExpectSuccess(RunScripted("four.dxf -d out/"));
  EXPECT_TRUE(Exists("out/four.emf"));
}

TEST_F(CommandLine, a_folder_may_be_written_in_the_word_of_its_option) {
  std::filesystem::create_directories("out/deep");
  ExpectSuccess(RunScripted("-dout one.dxf"));
  EXPECT_TRUE(Exists("out/one.emf"));
  ExpectSuccess(RunScripted("-dout/deep two.dxf"));
  EXPECT_TRUE(Exists("out/deep/two.emf"));
}

TEST_F(CommandLine, what_an_option_takes_is_not_parted) {
  std::filesystem::create_directory("-dout");
  ExpectSuccess(RunScripted("--png -dout/a.png plan.dxf"));
  EXPECT_TRUE(Exists("-dout/a.png"));
  ExpectSuccess(RunScripted("-- -d.dxf"));
  EXPECT_TRUE(Exists("-d.emf"));
}

TEST_F(CommandLine, several_listings_are_headed_by_their_drawings) {
  const Outcome outcome = RunScripted("--list -d . two.dxf one.dxf");
  ExpectSuccess(outcome);
  const std::string listing = Beginning(a4, "1, 0") + Told({0, 0, 0});
  EXPECT_EQ("# two.dxf\n" + listing + "# one.dxf\n" + listing, outcome.out);
  EXPECT_TRUE(Exists("one.emf"));
}

TEST_F(CommandLine, a_single_listing_from_a_folder_has_no_heading) {
  EXPECT_EQ(Beginning(a4, "1, 0") + Told({0, 0, 0}), RunScripted("--list -d . one.dxf").out);
}

TEST_F(CommandLine, a_name_may_hold_a_comma) {
  ExpectSuccess(RunScripted("one,two.dxf"));
  EXPECT_TRUE(Exists("one,two.emf"));
}

TEST_F(CommandLine, a_drawing_behind_two_hyphens_may_begin_with_one) {
  ExpectSuccess(RunScripted("-- -plan.dxf"));
  EXPECT_TRUE(Exists("-plan.emf"));
}

const std::string japanese = JapaneseName();

TEST_F(CommandLine, japanese_names) {
  ExpectSuccess(RunScripted(japanese + ".dxf"));
  EXPECT_TRUE(Exists(japanese + ".emf"));
  ASSERT_EQ(0, std::system(("mkdir " + japanese).c_str()));
  ExpectSuccess(RunScripted("-d " + japanese + " " + japanese + ".dxf"));
  EXPECT_TRUE(Exists(japanese + "/" + japanese + ".emf"));
  ExpectSuccess(RunScripted(japanese + "/plan.dxf"));
  EXPECT_TRUE(Exists(japanese + "/plan.emf"));
  ExpectSuccess(RunScripted("--png " + japanese + ".png plan.dxf"));
  EXPECT_NE(0u, SizeOfPicture(japanese + ".png").width);
}

TEST_F(CommandLine, a_japanese_name_in_a_listing_and_in_a_message) {
  EXPECT_TRUE(Contains(RunScripted("--list -d . a.dxf " + japanese + ".dxf").out,
                       "# " + JapaneseMessage() + ".dxf\n"));
  EXPECT_TRUE(Contains(RunScripted(japanese + "returns16.dxf").err,
                       "hexlume: " + JapaneseMessage() + "returns16.dxf: "));
}

// Pictures.

TEST_F(CommandLine, a_picture_has_the_size_of_the_frame) {
  ExpectSuccess(RunScripted("--png plan.png plan.dxf"));
  EXPECT_EQ(794u, SizeOfPicture("plan.png").width);    // 210 mm at 96 dpi: 793.7
  EXPECT_EQ(1123u, SizeOfPicture("plan.png").height);  // 297 mm: 1122.5
  ExpectSuccess(RunScripted("--png plan.png --dpi 254 --view 0,0,1000,2000 plan.dxf"));
  EXPECT_EQ(100u, SizeOfPicture("plan.png").width);
  EXPECT_EQ(200u, SizeOfPicture("plan.png").height);
}

TEST_F(CommandLine, a_tiny_frame_gives_a_picture_of_one_pixel) {
  ExpectSuccess(RunScripted("--png plan.png --dpi 1 --view 0,0,1,1 plan.dxf"));
  EXPECT_EQ(1u, SizeOfPicture("plan.png").width);
  EXPECT_EQ(1u, SizeOfPicture("plan.png").height);
}

TEST_F(CommandLine, an_empty_frame_gives_no_picture) {
  ExpectFailure(RunScripted("--png plan.png --view 5,0,5,100 plan.dxf"), 73,
                "hexlume: plan.png: can't be written: the metafile's frame is empty\n");
  EXPECT_FALSE(Exists("plan.png"));
}

TEST_F(CommandLine, a_picture_too_large) {
  ExpectFailure(
      RunScripted("--png plan.png --dpi 100000 plan.dxf"), 73,
      "hexlume: plan.png: can't be written: the picture would be larger than 20000 pixels on a side\n");
  EXPECT_FALSE(Exists("plan.png"));
}

// The real library.

// A sheet of 420 by 297 with a single line.
constexpr const char* oneLine =
    "0\nSECTION\n2\nHEADER\n9\n$EXTMIN\n10\n0.0\n20\n0.0\n9\n$EXTMAX\n10\n420.0\n20\n297.0\n"
    "9\n$LIMMIN\n10\n0.0\n20\n0.0\n9\n$LIMMAX\n10\n420.0\n20\n297.0\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n62\n1\n10\n10.0\n20\n10.0\n11\n400.0\n21\n200."
    "0\n0\nENDSEC\n0\nEOF\n";

TEST_F(CommandLine, a_line_is_converted_listed_and_pictured) {
  Write("plan.dxf", oneLine);
  const Outcome outcome = RunReal("--list --png plan.png plan.dxf plan.emf");
  ExpectSuccess(outcome);
  EXPECT_EQ(0u, outcome.out.find("Frame("));
  EXPECT_TRUE(Contains(outcome.out, "\nMoveToEx("));
  EXPECT_TRUE(Contains(outcome.out, "\nLineTo("));
  EXPECT_EQ(ListingOf("plan.emf"), outcome.out);
  EXPECT_NE(0u, SizeOfPicture("plan.png").width);
}

TEST_F(CommandLine, a_view_is_the_frame_of_its_metafile) {
  Write("plan.dxf", oneLine);
  const Outcome outcome = RunReal("--list --view 100,200,20000,15000 plan.dxf");
  ExpectSuccess(outcome);
  EXPECT_EQ(0u, outcome.out.find("Frame(100, 200, 20000, 15000)\n"));
}

TEST_F(CommandLine, a_drawing_is_turned) {
  Write("plan.dxf", oneLine);
  const Outcome upright = RunReal("--list plan.dxf");
  const Outcome turned = RunReal("--list --rotate plan.dxf");
  ExpectSuccess(turned);
  EXPECT_TRUE(Contains(turned.out, "\nLineTo("));
  EXPECT_NE(upright.out, turned.out);
}

TEST_F(CommandLine, mono_is_black) {
  Write("plan.dxf", oneLine);
  EXPECT_TRUE(Contains(RunReal("--list plan.dxf").out, ", 0x0000FF)"));
  const std::string black = RunReal("--list --mono plan.dxf").out;
  EXPECT_TRUE(Contains(black, ", 0x000000)"));
  EXPECT_FALSE(Contains(black, ", 0x0000FF)"));
}

TEST_F(CommandLine, mono_does_not_stay_for_the_next_start) {
  Write("plan.dxf", oneLine);
  EXPECT_EQ(0, RunReal("--mono plan.dxf").status);
  EXPECT_TRUE(Contains(RunReal("--list plan.dxf").out, ", 0x0000FF)"));
}

TEST_F(CommandLine, a_japanese_drawing_name) {
  Write(japanese + ".dxf", oneLine);
  ExpectSuccess(RunReal(japanese + ".dxf"));
  EXPECT_TRUE(Contains(ListingOf(japanese + ".emf"), "\nLineTo("));
}

}  // namespace
}  // namespace hexlume::command_line_test
