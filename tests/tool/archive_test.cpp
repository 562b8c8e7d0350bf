// The tool with many drawings: folders, lists, workers and reports.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "host/host_drawings.h"
#include "support/endless_drawing.h"
#include "support/run_command.h"
#include "support/tool_run.h"

namespace hexlume::archive_test {
namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;

class Archive : public ToolRun {
 protected:
  void SetUp() override {
    ToolRun::SetUp();
    fs::create_directory("out");
  }
};

void WriteDrawing(const std::string& path, int32_t lines = 1) {
  if (fs::path(path).has_parent_path()) fs::create_directories(fs::path(path).parent_path());
  Write(path, A3(Lines(lines)));
}

size_t LinesIn(const std::string& metafile) {
  return Count(ListingOf(metafile), "LineTo(");
}

std::vector<Json> ReportIn(const std::string& text) {
  std::vector<Json> report;
  size_t start = 0;
  for (size_t stop = text.find('\n'); stop != std::string::npos; stop = text.find('\n', start)) {
    report.push_back(Json::parse(text.substr(start, stop - start)));
    start = stop + 1;
  }
  EXPECT_EQ(text.size(), start) << "the last line isn't whole";
  return report;
}

// The line of a drawing.
Json LineOf(const std::vector<Json>& report, const std::string& path) {
  for (const Json& line : report)
    if (line["path"] == path) return line;
  ADD_FAILURE() << "no line for " << path;
  return {};
}

// Folders, lists and wildcards.

TEST_F(Archive, the_tree_of_a_folder_is_kept) {
  WriteDrawing("in/a.dxf", 1);
  WriteDrawing("in/sub/deep/b.DXF", 2);
  WriteDrawing("in/sub/a.dxf", 3);
  Write("in/notes.txt", "no drawing");
  ExpectSuccess(RunReal("-d out --recursive in"));
  EXPECT_EQ(1u, LinesIn("out/a.emf"));
  EXPECT_EQ(2u, LinesIn("out/sub/deep/b.emf"));
  EXPECT_EQ(3u, LinesIn("out/sub/a.emf"));
  EXPECT_FALSE(Exists("out/notes.emf"));
}

TEST_F(Archive, a_folder_needs_recursive) {
  WriteDrawing("in/a.dxf");
  const Outcome outcome = RunReal("-d out in");
  EXPECT_EQ(33, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "in: not-a-file: ")) << outcome.err;
}

TEST_F(Archive, drawings_of_one_name_do_not_collide) {
  WriteDrawing("one/plan.dxf", 1);
  WriteDrawing("two/PLAN.dxf", 2);
  WriteDrawing("three/other.dxf", 3);
  ExpectSuccess(RunReal("-d out one/plan.dxf two/PLAN.dxf three/other.dxf"));
  EXPECT_EQ(1u, LinesIn("out/one/plan.emf"));
  EXPECT_EQ(2u, LinesIn("out/two/PLAN.emf"));
  EXPECT_EQ(3u, LinesIn("out/other.emf"));
}

TEST_F(Archive, drawings_that_differ_in_their_extension_keep_it) {
  WriteDrawing("plan.dxf", 1);
  WriteDrawing("plan.txt", 2);
  ExpectSuccess(RunReal("-d out plan.dxf plan.txt"));
  EXPECT_EQ(1u, LinesIn("out/plan.dxf.emf"));
  EXPECT_EQ(2u, LinesIn("out/plan.txt.emf"));
}

TEST_F(Archive, a_drawing_given_twice_is_converted_once) {
  WriteDrawing("plan.dxf");
  const Outcome outcome = RunReal("-d out --report - plan.dxf ./plan.dxf out/../plan.dxf");
  ExpectSuccess(outcome);
  EXPECT_EQ(1u, ReportIn(outcome.out).size());
}

TEST_F(Archive, a_list_can_be_longer_than_a_command_line) {
  std::string list, nullList;
  for (int i = 0; i < 300; ++i) {
    const std::string name = "drawings/drawing number " + std::to_string(i) + ".dxf";
    WriteDrawing(name);
    list += name + "\r\n";
    nullList += name + '\0';
  }
  Write("list.txt", list);
  ExpectSuccess(RunReal("-d out --files-from list.txt"));
  EXPECT_TRUE(Exists("out/drawing number 299.emf"));
  fs::remove_all("out");
  fs::create_directory("out");
  Write("list.txt", nullList);
  ExpectSuccess(RunReal("-d out --files-from - --null <list.txt"));
  EXPECT_TRUE(Exists("out/drawing number 0.emf"));
  EXPECT_TRUE(Exists("out/drawing number 299.emf"));
}

TEST_F(Archive, wildcards_are_expanded_by_the_tool) {
  WriteDrawing("in/a.dxf");
  WriteDrawing("in/b.dxf");
  WriteDrawing("in2/c.dxf");
  Write("in/notes.txt", "");
  ExpectSuccess(RunReal("-d out \"in*/*.dxf\""));
  for (const char* name : {"out/a.emf", "out/b.emf", "out/c.emf"}) EXPECT_TRUE(Exists(name)) << name;
  const Outcome none = RunReal("-d out \"in/*.dwg\"");
  EXPECT_EQ(32, none.status);
}

TEST_F(Archive, wrong_usage) {
  ExpectWrongUsage("--files-from list.txt", "several drawings need -d DIR");
  ExpectWrongUsage("-d . --files-from nowhere.txt", "can't be read: nowhere.txt");
  ExpectWrongUsage("-d . --null a.dxf", "--null needs --files-from");
  ExpectWrongUsage("--skip-unchanged a.dxf", "--skip-unchanged needs -d DIR");
  ExpectWrongUsage("-d . --list --jobs 2 a.dxf", "--list can't be used with --jobs");
  ExpectWrongUsage("-d . --jobs 0 --time-limit 1 a.dxf", "need worker processes");
  ExpectWrongUsage("-d . --jobs 61 a.dxf", "--jobs needs a whole number from 0 to 60");
  ExpectWrongUsage("-d . --memory-limit 2T a.dxf", "--memory-limit needs a size");
  ExpectWrongUsage("--format utf8 a.dxf", "--format needs auto or as-is, not 'utf8'");
  ExpectWrongUsage("-d . --to pgn a.dxf", "not 'pgn'; did you mean png?");
  ExpectWrongUsage("--to png a.dxf a.emf", "an OUTPUT can't be given");
  ExpectWrongUsage("--to png --png a.png a.dxf", "--to and --png exclude each other");
  ExpectWrongUsage("-d . --report a.dxf b.dxf", "looks like a drawing");
  ExpectWrongUsage("-d . plan.emf other.dxf", "the output './plan.emf' is also a drawing or another output");
}

// Kinds of results.

TEST_F(Archive, several_kinds_at_once) {
  WriteDrawing("in/a.dxf");
  WriteDrawing("in/b.dxf");
  ExpectSuccess(RunReal("-d out --to png,emf --dpi 30 in/a.dxf in/b.dxf"));
  // 420 mm at 30 dots per inch: 496.06.
  EXPECT_EQ(496u, SizeOfPicture("out/b.png").width);
  EXPECT_EQ(1u, LinesIn("out/b.emf"));
  ExpectSuccess(RunReal("--to png in/a.dxf"));
  EXPECT_NE(0u, SizeOfPicture("in/a.png").width);
  EXPECT_FALSE(Exists("in/a.emf"));
}

// Workers.

TEST_F(Archive, workers_convert_what_the_exports_convert) {
  for (int i = 1; i <= 40; ++i) WriteDrawing("in/" + std::to_string(i) + ".dxf", i);
  ExpectSuccess(RunReal("-d out --jobs 3 --recursive in"));
  fs::create_directory("here");
  ExpectSuccess(RunReal("-d here --jobs 0 --recursive in"));
  for (int i = 1; i <= 40; ++i) {
    const std::string name = std::to_string(i) + ".emf";
    EXPECT_EQ(static_cast<size_t>(i), LinesIn("out/" + name));
    EXPECT_EQ(Contents("here/" + name), Contents("out/" + name));
  }
}

TEST_F(Archive, a_drawing_that_takes_too_long_is_given_up) {
  WriteDrawing("in/a.dxf");
  Write("in/b.dxf", EndlessDrawing());
  for (int i = 0; i < 10; ++i) WriteDrawing("in/c" + std::to_string(i) + ".dxf");
  const Outcome outcome =
      RunReal("-d out --jobs 1 --time-limit 1 --memory-limit 20G --report - --recursive in");
  EXPECT_EQ(45, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "b.dxf: time-limit: ")) << outcome.err;
  const std::vector<Json> report = ReportIn(outcome.out);
  EXPECT_EQ(12u, report.size());
  EXPECT_EQ("time-limit", LineOf(report, "in/b.dxf")["status"]);
  EXPECT_FALSE(Exists("out/b.emf"));
  for (int i = 0; i < 10; ++i) EXPECT_TRUE(Exists("out/c" + std::to_string(i) + ".emf")) << i;
}

TEST_F(Archive, a_drawing_that_takes_too_much_memory_is_given_up) {
  WriteDrawing("in/a.dxf");
  Write("in/b.dxf", EndlessDrawing());
  WriteDrawing("in/c.dxf");
  const Outcome outcome = RunReal("-d out --jobs 1 --memory-limit 200M --recursive in");
  EXPECT_EQ(45, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "b.dxf: memory-limit: ")) << outcome.err;
  EXPECT_TRUE(Exists("out/a.emf"));
  EXPECT_TRUE(Exists("out/c.emf"));
}

TEST_F(Archive, the_status_is_that_of_the_last_drawing_in_the_list_that_failed) {
  Write("a.dxf", "");
  Write("b.dxf", "no drawing");
  WriteDrawing("c.dxf");
  EXPECT_EQ(39, RunReal("-d out a.dxf b.dxf c.dxf").status);
  EXPECT_EQ(35, RunReal("-d out c.dxf b.dxf a.dxf").status);
}

TEST_F(Archive, a_limit_holds_for_a_single_drawing_too) {
  Write("a.dxf", EndlessDrawing());
  EXPECT_EQ(45, RunReal("--time-limit 1 --memory-limit 20G a.dxf").status);
  WriteDrawing("b.dxf", 2);
  ExpectSuccess(RunReal("--time-limit 20 - - <b.dxf >b.emf"));
}

// Unchanged drawings.

TEST_F(Archive, unchanged_drawings_are_passed_over) {
  WriteDrawing("in/a.dxf", 1);
  WriteDrawing("in/b.dxf", 1);
  Write("in/c.dxf", "");
  const std::string run = "-d out --skip-unchanged --recursive --report - in ";
  EXPECT_EQ(35, RunReal(run).status);
  WriteDrawing("in/b.dxf", 22);
  const std::vector<Json> second = ReportIn(RunReal(run).out);
  ASSERT_EQ(3u, second.size());
  EXPECT_EQ(true, LineOf(second, "in/a.dxf")["unchanged"]);
  EXPECT_EQ(1, LineOf(second, "in/a.dxf")["strokes"]);
  EXPECT_EQ(false, LineOf(second, "in/b.dxf")["unchanged"]);
  EXPECT_EQ(22, LineOf(second, "in/b.dxf")["strokes"]);
  EXPECT_EQ("empty", LineOf(second, "in/c.dxf")["status"]);
  EXPECT_EQ(22u, LinesIn("out/b.emf"));
}

TEST_F(Archive, a_changed_result_or_option_is_a_change) {
  WriteDrawing("in/a.dxf", 1);
  const std::string run = "-d out --skip-unchanged --recursive --report - in ";
  const auto isUnchanged = [&](const std::string& options) {
    return LineOf(ReportIn(RunReal(run + options).out), "in/a.dxf")["unchanged"].get<bool>();
  };
  EXPECT_FALSE(isUnchanged(""));
  EXPECT_TRUE(isUnchanged(""));
  EXPECT_FALSE(isUnchanged("--mono"));
  EXPECT_FALSE(isUnchanged(""));
  Write("out/a.emf", "spoilt");
  EXPECT_FALSE(isUnchanged(""));
  fs::remove("out/a.emf");
  EXPECT_FALSE(isUnchanged(""));
  EXPECT_FALSE(isUnchanged("--to emf,png"));
  EXPECT_TRUE(isUnchanged("--to emf,png"));
}

// The end of the tool can cut off its last line.
TEST_F(Archive, a_state_that_is_cut_off_costs_one_drawing) {
  WriteDrawing("in/a.dxf", 1);
  WriteDrawing("in/b.dxf", 1);
  const std::string run = "-d out --jobs 1 --skip-unchanged --recursive --report - in ";
  ExpectSuccess(RunReal(run));
  const std::string state = Contents("out/.hexlume-state");
  Write("out/.hexlume-state", state.substr(0, state.size() - 10));
  const std::vector<Json> report = ReportIn(RunReal(run).out);
  EXPECT_EQ(true, LineOf(report, "in/a.dxf")["unchanged"]);
  EXPECT_EQ(false, LineOf(report, "in/b.dxf")["unchanged"]);
  for (const Json& line : ReportIn(RunReal(run).out)) EXPECT_EQ(true, line["unchanged"]);
}

// The report.

TEST_F(Archive, the_report_describes_a_drawing) {
  const std::string bytes = DrawingBytes(
      "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n"
      "0 ENDSEC\n0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n2 A\n70 0\n62 -5\n6 DASHED\n"
      "0 ENDTAB\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n" +
      Line("8 A\n") + Line("8 A\n") + "0 TEXT\n8 A\n10 5\n20 5\n40 5\n1 plan 7\n0 3DFACE\n8 A\n" + end);
  Write("a.dxf", bytes);
  const Json line = ReportIn(RunReal("--report - a.dxf a.emf").out).at(0);
  EXPECT_EQ("a.dxf", line["path"]);
  EXPECT_EQ("ok", line["status"]);
  EXPECT_EQ("", line["message"]);
  EXPECT_EQ(bytes.size(), line["size"]);
  EXPECT_EQ(64u, line["sha256"].get<std::string>().size());
  EXPECT_EQ("a.emf", line["outputs"][0]["path"]);
  EXPECT_EQ(Contents("a.emf").size(), line["outputs"][0]["size"]);
  EXPECT_EQ("AC1015", line["version"]);
  EXPECT_EQ((Json{{"width", 420.0}, {"height", 297.0}}), line["sheet"]);
  EXPECT_EQ((Json{{"unitsPerMillimetre", 1.0}, {"denominator", 1}}), line["scale"]);
  EXPECT_EQ((Json{{"name", "A"}, {"color", -5}, {"shown", false}, {"lineType", "DASHED"}}),
            line["layers"][0]);
  EXPECT_EQ(2, line["strokes"]);
  const auto kind = [&line](const std::string& name) {
    for (const Json& row : line["entities"])
      if (row["kind"] == name) return row;
    return Json();
  };
  EXPECT_EQ(2, kind("LINE")["count"]);
  EXPECT_EQ(true, kind("LINE")["drawn"]);
  EXPECT_EQ(1, kind("3DFACE")["count"]);
  EXPECT_EQ(false, kind("3DFACE")["drawn"]);
  EXPECT_EQ("plan 7", line["texts"][0]["text"]);
  EXPECT_EQ("A", line["texts"][0]["layer"]);
  EXPECT_LE(0.0, line["milliseconds"].get<double>());
}

TEST_F(Archive, the_report_has_each_drawing_once) {
  for (int i = 0; i < 50; ++i) WriteDrawing("in/" + std::to_string(i) + ".dxf");
  Write("in/50.dxf", "AC1015 is a DWG");
  EXPECT_EQ(36, RunReal("-d out --jobs 2 --recursive in --report report.json").status);
  std::vector<std::string> paths;
  for (const Json& line : ReportIn(Contents("report.json"))) paths.push_back(line["path"]);
  EXPECT_EQ(51u, paths.size());
  std::sort(paths.begin(), paths.end());
  EXPECT_EQ(paths.end(), std::adjacent_find(paths.begin(), paths.end()));
  EXPECT_EQ("dwg", LineOf(ReportIn(Contents("report.json")), "in/50.dxf")["status"]);
}

TEST_F(Archive, there_is_no_progress_in_a_file) {
  for (int i = 0; i < 20; ++i) WriteDrawing("in/" + std::to_string(i) + ".dxf");
  ExpectSuccess(RunReal("-d out --recursive in"));
}

// Pipes.

TEST_F(Archive, standard_input_and_output) {
  WriteDrawing("a.dxf", 3);
  ExpectSuccess(RunReal("a.dxf"));
  ExpectSuccess(RunReal("- b.emf <a.dxf"));
  EXPECT_EQ(Contents("a.emf"), Contents("b.emf"));
  for (const char* arguments : {"- <a.dxf", "- - <a.dxf", "a.dxf -"}) {
    const Outcome outcome = RunReal(arguments);
    ExpectSuccess(outcome);
    EXPECT_EQ(Contents("a.emf"), outcome.out);
  }
  const Outcome picture = RunReal("--png - - <a.dxf");
  EXPECT_EQ(0u, picture.out.find("\x89PNG\r\n\x1A\n"));
  EXPECT_TRUE(Contains(RunReal("--list - <a.dxf").out, "LineTo("));
  ExpectWrongUsage("--list - - <a.dxf", "standard output takes one result only");
}

// A LINE takes 96 bytes. Windows writes metafiles of more than 1 MB itself, but not into a pipe.
TEST_F(Archive, a_large_metafile_is_the_same_in_a_file_and_in_a_pipe) {
  WriteDrawing("a.dxf", 12000);
  Write("a.emf", "an earlier result");
  ExpectSuccess(RunReal("a.dxf"));
  const std::string metafile = Contents("a.emf");
  EXPECT_LT(size_t{12000 * 96}, metafile.size());
  const Outcome outcome = RunReal("a.dxf -");
  ExpectSuccess(outcome);
  EXPECT_TRUE(metafile == outcome.out);
  for (const auto& entry : fs::directory_iterator(".")) EXPECT_NE(".tmp", entry.path().extension());
}

// Recent drawings.

constexpr const char* recentStart =
    "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1032\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n"
    "0 SECTION\n2 ENTITIES\n0 TEXT\n8 0\n10 5\n20 5\n40 5\n1 ";

TEST_F(Archive, a_recent_drawing_in_utf8_has_its_characters) {
  Write("a.dxf", DrawingBytes(recentStart + std::string("図面番号\n") + end));
  EXPECT_TRUE(Contains(RunReal("--list a.dxf").out, "\"図面番号\""));
  EXPECT_TRUE(Contains(RunReal("--list --format auto - <a.dxf").out, "\"図面番号\""));
  EXPECT_FALSE(Contains(RunReal("--list --format as-is a.dxf").out, "\"図面番号\""));
  EXPECT_FALSE(Contains(RunReal("--list --format as-is - <a.dxf").out, "\"図面番号\""));
}

TEST_F(Archive, a_recent_drawing_that_is_not_utf8_is_read_as_it_is) {
  // 図面 in code page 932.
  Write("a.dxf", DrawingBytes(recentStart + std::string("\x90\x7D\x96\xCA\n") + end));
  const Outcome outcome = RunReal("--list a.dxf");
  EXPECT_EQ(0, outcome.status);
  EXPECT_TRUE(Contains(outcome.out, "\"図面\""));
  EXPECT_TRUE(Contains(outcome.err, "hexlume: a.dxf: warning: not-utf8: ")) << outcome.err;
  EXPECT_EQ(outcome.out, RunReal("--list --format as-is a.dxf").out);
}

TEST_F(Archive, what_was_replaced_is_counted) {
  Write("a.dxf", DrawingBytes(recentStart + std::string("a\U0001F600b\n101 Embedded Object\n50 30\n") + end));
  const Outcome outcome = RunReal("--report - a.dxf a.emf");
  EXPECT_TRUE(Contains(outcome.err, "warning: substituted: 1 characters")) << outcome.err;
  const Json line = ReportIn(outcome.out).at(0);
  EXPECT_EQ(1, line["substituted"]);
  EXPECT_EQ(1, line["embedded"]);
}

// Both libraries name a bound: the nine exports convert a single drawing, the host library makes a report.
TEST_F(Archive, a_bound_that_is_reached_is_named) {
  Write("a.dxf", A3("0 SPLINE\n74 400000\n11 1\n21 1\n" + Line()));
  const std::string words = "A spline has too many points and was left out.";
  const Outcome plain = RunReal("a.dxf a.emf");
  EXPECT_EQ(0, plain.status);
  EXPECT_EQ("hexlume: a.dxf: warning: bound: " + words + "\n", plain.err);
  const Outcome reported = RunReal("--report - a.dxf b.emf");
  EXPECT_TRUE(Contains(reported.err, "warning: bound: Line ")) << reported.err;
  const Json remark = ReportIn(reported.out).at(0)["remarks"].at(0);
  EXPECT_EQ("bound", remark["name"]);
  EXPECT_TRUE(Contains(remark["message"], words));
  // Also where the drawing ends by it and there is no result.
  std::string splines;
  for (int32_t i = 0; i < 60; ++i) splines += "0 SPLINE\n74 330000\n11 5\n21 5\n";
  Write("b.dxf", A3(splines));
  for (const std::string report : {"", "--report c.jsonl "}) {
    const Outcome ended = RunReal("--full-size " + report + "b.dxf c.emf");
    EXPECT_EQ(11, ended.status);
    EXPECT_TRUE(Contains(ended.err, "The metafile would be larger than a conversion makes it.")) << ended.err;
  }
  Write("c.dxf", A3(Line()));
  EXPECT_EQ("", RunReal("c.dxf d.emf").err);
}

}  // namespace
}  // namespace hexlume::archive_test
