// Plans, and their conversion on this machine.
#include <gtest/gtest.h>

#include <filesystem>

#include "batch/batch_run.h"
#include "host/host_drawings.h"
#include "support/endless_drawing.h"
#include "support/run_command.h"

namespace hexlume::batch_test {
namespace {

namespace fs = std::filesystem;

class BatchOnThisMachine : public BatchRun {};

size_t LinesIn(const std::string& metafile) {
  return Count(ListingOf(metafile), "LineTo(");
}

TEST_F(BatchOnThisMachine, an_archive_is_converted_in_chunks) {
  PlanDrawings(5, 2);
  EXPECT_EQ(3, Status()["chunks"]);
  EXPECT_EQ(5, Status()["left"]);
  const Outcome outcome = RunBatch("run batch --engine local:2");
  ExpectDone(outcome);
  EXPECT_EQ("5 done, 0 failed, 0 left\n", outcome.out);
  for (size_t i = 1; i <= 5; ++i) EXPECT_EQ(i, LinesIn("batch/out/" + std::to_string(i) + ".emf"));
  EXPECT_EQ(5, Status()["done"]);
  EXPECT_EQ(3, Status()["finishedChunks"]);
  for (const char* const chunk : {"1", "2", "3"})
    EXPECT_TRUE(Exists(std::string("batch/results/0000") + chunk + ".jsonl"));
}

TEST_F(BatchOnThisMachine, outputs_are_those_of_the_tool) {
  WriteDrawing("in/sub/a.dxf", 1);
  WriteDrawing("in/sub/A.DXF", 2);
  WriteDrawing("in/two words/new\nline.dxf", 3);
  WriteDrawing("in/" + JapaneseName() + "/it's.dxf", 4);
  WriteDrawing("in/bytes\xFF.dxf", 5);
  fs::create_directory("plain");
  ExpectSuccess(RunReal("-d plain --recursive --to emf,png --size 64 --mono in"));
  ExpectDone(RunBatch("plan in --out batch --to emf,png:64 --mono"));
  ExpectDone(RunBatch("run batch"));
  EXPECT_EQ(0, RunCommand("diff", "-r --exclude=.hexlume-state plain batch/out"));
}

TEST_F(BatchOnThisMachine, a_broken_drawing_fails_and_the_others_do_not) {
  WriteText("in/0.dxf", "no drawing\n");
  PlanDrawings(2, 500);
  const Outcome outcome = RunBatch("run batch");
  EXPECT_EQ(1, outcome.status);
  EXPECT_EQ("2 done, 1 failed, 0 left\n", outcome.out);
  const auto report = Report();
  ASSERT_EQ(3u, report.size());
  EXPECT_EQ("no-dxf", report.at("0.dxf")["status"]);
  EXPECT_EQ("the file is no DXF: it has no section", report.at("0.dxf")["message"]);
  EXPECT_EQ("ok", report.at("1.dxf")["status"]);
  EXPECT_EQ(1, Status()["statuses"]["no-dxf"]);
}

TEST_F(BatchOnThisMachine, what_has_a_result_is_passed_over) {
  PlanDrawings(3, 2);
  ExpectDone(RunBatch("run batch"));
  fs::last_write_time("batch/out/1.emf", fs::file_time_type());
  ExpectDone(RunBatch("chunk batch 1"));
  ExpectDone(RunBatch("run batch"));
  EXPECT_EQ(fs::file_time_type(), fs::last_write_time("batch/out/1.emf"));
}

TEST_F(BatchOnThisMachine, a_chunk_makes_outputs_again_that_are_not_there) {
  PlanDrawings(3, 3);
  ExpectDone(RunBatch("run batch"));
  fs::remove("batch/out/2.emf");
  Write("batch/out/3.emf", "other");
  const Outcome outcome = RunBatch("chunk batch 1");
  ExpectDone(outcome);
  EXPECT_EQ("chunk 1: 3 done, 0 failed\n", outcome.out);
  EXPECT_EQ(2u, LinesIn("batch/out/2.emf"));
  EXPECT_EQ(3u, LinesIn("batch/out/3.emf"));
}

// A process that was ended has left its part; what it has isn't converted again.
TEST_F(BatchOnThisMachine, a_chunk_goes_on_where_another_was_ended) {
  PlanDrawings(3, 3);
  ExpectDone(RunBatch("run batch"));
  std::string result = Contents("batch/results/00001.jsonl");
  const size_t lastLine = result.rfind('\n', result.size() - 2) + 1;
  Write("batch/results/00001.elsewhere-1.part", result.substr(0, lastLine + 20));
  fs::remove("batch/results/00001.jsonl");
  for (const char* const name : {"1", "2", "3"})
    fs::last_write_time(std::string("batch/out/") + name + ".emf", fs::file_time_type());
  ExpectDone(RunBatch("run batch"));
  const bool isKept[] = {fs::last_write_time("batch/out/1.emf") == fs::file_time_type(),
                         fs::last_write_time("batch/out/2.emf") == fs::file_time_type(),
                         fs::last_write_time("batch/out/3.emf") == fs::file_time_type()};
  EXPECT_EQ(2, isKept[0] + isKept[1] + isKept[2]) << "of three results two were whole";
  EXPECT_EQ(3u, Report().size());
}

TEST_F(BatchOnThisMachine, results_of_an_ended_process_are_cleaned_away) {
  PlanDrawings(1, 1);
  const auto old = fs::file_time_type::clock::now() - std::chrono::hours(2);
  fs::create_directories("batch/out");
  for (const char* const path : {"batch/results/00001.elsewhere-1.part", "batch/out/.hexlume-123-45-6.tmp"}) {
    Write(path, "half");
    fs::last_write_time(path, old);
  }
  Write("batch/out/.hexlume-123-46-7.tmp", "of a machine that is at work");
  ExpectDone(RunBatch("run batch"));
  EXPECT_FALSE(Exists("batch/results/00001.elsewhere-1.part"));
  EXPECT_FALSE(Exists("batch/out/.hexlume-123-45-6.tmp"));
  EXPECT_TRUE(Exists("batch/out/.hexlume-123-46-7.tmp"));
}

TEST_F(BatchOnThisMachine, a_drawing_that_takes_too_long_costs_one_line) {
  WriteDrawing("in/1.dxf");
  WriteText("in/2.dxf", EndlessDrawing());
  WriteDrawing("in/3.dxf");
  ExpectDone(RunBatch("plan in --out batch --time-limit 1 --memory-limit 8G"));
  EXPECT_EQ(1, RunBatch("run batch").status);
  const auto report = Report();
  EXPECT_EQ("ok", report.at("1.dxf")["status"]);
  EXPECT_EQ("time-limit", report.at("2.dxf")["status"]);
  EXPECT_EQ("ok", report.at("3.dxf")["status"]);
}

TEST_F(BatchOnThisMachine, a_list_can_give_the_drawings) {
  WriteDrawing("in/1.dxf");
  WriteDrawing("in/two\nlines.dxf");
  Write("list", std::string("in/1.dxf\0in/two\nlines.dxf\0", 26));
  const Outcome outcome = RunBatch("plan --files-from list --null --out batch");
  ExpectDone(outcome);
  EXPECT_EQ("2 drawings in 1 chunks\n", outcome.out);
}

TEST_F(BatchOnThisMachine, wrong_usage_makes_nothing) {
  WriteDrawing("in/1.dxf");
  for (const char* const arguments :
       {"", "fly", "plan in", "plan --out batch in --to gif", "plan --out batch in --chunk 0",
        "plan --out batch nothing", "plan --out batch in --dialogs", "run", "run in out", "chunk in",
        "retry in", "report in --format xml"}) {
    const Outcome outcome = RunBatch(arguments);
    EXPECT_TRUE(outcome.status == 64 || outcome.status == 74) << arguments << ": " << outcome.status;
    EXPECT_NE("", outcome.err) << arguments;
    EXPECT_FALSE(Exists("batch/plan.db")) << arguments;
  }
}

TEST_F(BatchOnThisMachine, a_command_that_is_almost_right_is_named) {
  const Outcome outcome = RunBatch("statsu batch");
  EXPECT_EQ(64, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "did you mean status?")) << outcome.err;
}

TEST_F(BatchOnThisMachine, a_plan_is_never_written_over) {
  PlanDrawings(1, 1);
  const std::string plan = Contents("batch/plan.db");
  const Outcome outcome = RunBatch("plan in --out batch");
  EXPECT_EQ(74, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "there is a plan already")) << outcome.err;
  EXPECT_EQ(plan, Contents("batch/plan.db"));
}

TEST_F(BatchOnThisMachine, a_folder_without_a_plan_is_refused) {
  for (const char* const command : {"run", "status", "report", "retry --all"}) {
    const Outcome outcome = RunBatch(std::string(command) + " nowhere");
    EXPECT_EQ(74, outcome.status) << command;
    EXPECT_TRUE(Contains(outcome.err, "there is no plan")) << outcome.err;
  }
}

TEST_F(BatchOnThisMachine, contents_are_kept_if_they_are_asked_for) {
  PlanDrawings(2, 2, "--contents");
  ExpectDone(RunBatch("run batch"));
  const Json line = Report().at("2.dxf");
  EXPECT_EQ(420, line["sheet"]["width"]);
  EXPECT_EQ(2, line["strokes"]);
  EXPECT_EQ(64u, line["sha256"].get<std::string>().size());
}

TEST_F(BatchOnThisMachine, the_last_command_that_is_interrupted_goes_on_later) {
  PlanDrawings(200, 5, "--to png:2000");
  const std::string program = (ProgramFolder() / "hexlume-batch").string();
  // The shell lets what it starts in the background ignore SIGINT.
  Write("interrupt.sh", "env --default-signal=INT '" + program +
                            "' run batch --engine local:2 >out.txt 2>err.txt &\n" +
                            "while [ -z \"$(ls batch/out)\" ]; do sleep 0.02; done\nkill -INT $!\nwait $!\n");
  EXPECT_EQ(130, RunCommand("sh", "interrupt.sh"));
  EXPECT_TRUE(Contains(Contents("err.txt"), "interrupted")) << Contents("err.txt");
  const Json status = Status();
  EXPECT_GT(status["left"], 0);
  EXPECT_EQ(0, status["runningChunks"]);
  ExpectDone(RunBatch("run batch --engine local:2"));
  EXPECT_EQ(200u, Report().size());
}

}  // namespace
}  // namespace hexlume::batch_test
