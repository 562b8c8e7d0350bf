// Drawings that change, results that are taken back, storage that fails.
#include <gtest/gtest.h>

#include <filesystem>

#include "batch/batch_run.h"
#include "host/host_drawings.h"
#include "support/run_command.h"

namespace hexlume::changes_test {
namespace {

namespace fs = std::filesystem;

class BatchChanges : public BatchRun {};

size_t LinesIn(const std::string& metafile) {
  return Count(ListingOf(metafile), "LineTo(");
}

TEST_F(BatchChanges, a_drawing_that_changes_after_the_plan_is_not_converted) {
  PlanDrawings(3, 3);
  WriteDrawing("in/2.dxf", 7);
  EXPECT_EQ(1, RunBatch("run batch").status);
  EXPECT_EQ("changed", Report().at("2.dxf")["status"]);
  EXPECT_FALSE(Exists("batch/out/2.emf"));
  EXPECT_EQ(1, Status()["failed"]);
}

TEST_F(BatchChanges, retry_takes_a_changed_drawing_as_it_is) {
  PlanDrawings(3, 3);
  WriteDrawing("in/2.dxf", 7);
  RunBatch("run batch");
  const Outcome outcome = RunBatch("retry batch --failed");
  ExpectDone(outcome);
  EXPECT_EQ("1 drawings will be converted again by hexlume-batch run\n", outcome.out);
  EXPECT_EQ(1, Status()["left"]);
  ExpectDone(RunBatch("run batch"));
  EXPECT_EQ(7u, LinesIn("batch/out/2.emf"));
}

TEST_F(BatchChanges, a_drawing_that_is_taken_away_is_not_found_until_it_is_back) {
  PlanDrawings(2, 2);
  fs::rename("in/1.dxf", "away");
  EXPECT_EQ(1, RunBatch("run batch").status);
  EXPECT_EQ("not-found", Report().at("1.dxf")["status"]);
  ExpectDone(RunBatch("retry batch --failed"));
  EXPECT_EQ(1, RunBatch("run batch").status);
  fs::rename("away", "in/1.dxf");
  ExpectDone(RunBatch("retry batch --failed"));
  ExpectDone(RunBatch("run batch"));
}

TEST_F(BatchChanges, a_time_alone_changes_nothing_for_a_hash) {
  PlanDrawings(1, 1);
  fs::last_write_time("in/1.dxf", fs::file_time_type());
  ExpectDone(RunBatch("run batch"));
}

TEST_F(BatchChanges, without_a_hash_the_time_counts) {
  PlanDrawings(1, 1, "--no-hash");
  fs::last_write_time("in/1.dxf", fs::file_time_type());
  EXPECT_EQ(1, RunBatch("run batch").status);
  EXPECT_EQ("changed", Report().at("1.dxf")["status"]);
  ExpectDone(RunBatch("retry batch --failed"));
  ExpectDone(RunBatch("run batch"));
}

TEST_F(BatchChanges, retry_leaves_what_is_done) {
  WriteText("in/0.dxf", "no drawing\n");
  PlanDrawings(3, 2);
  RunBatch("run batch");
  const std::string other = Contents("batch/results/00002.jsonl");
  ExpectDone(RunBatch("retry batch --failed"));
  EXPECT_EQ(other, Contents("batch/results/00002.jsonl"));
  EXPECT_EQ(3, Status()["done"]);
  EXPECT_EQ(0, Status()["failed"]);
  EXPECT_EQ(1, Status()["left"]);
}

TEST_F(BatchChanges, retry_can_raise_a_limit) {
  PlanDrawings(1, 1, "--time-limit 5 --mono");
  WriteText("in/1.dxf", "no drawing\n");
  RunBatch("run batch");
  ExpectDone(RunBatch("retry batch --failed --time-limit 77"));
  RunBatch("run batch");
  const std::string plan = Contents("batch/plan.db");
  EXPECT_TRUE(Contains(plan, "--time-limit=77"));
  EXPECT_FALSE(Contains(plan, "--time-limit=5"));
  EXPECT_TRUE(Contains(plan, "--mono"));
  EXPECT_EQ(64, RunBatch("retry batch --failed --time-limit soon").status);
}

TEST_F(BatchChanges, retry_all_converts_everything_again) {
  PlanDrawings(3, 2);
  ExpectDone(RunBatch("run batch"));
  ExpectDone(RunBatch("retry batch --all"));
  EXPECT_EQ(3, Status()["left"]);
  fs::last_write_time("batch/out/1.emf", fs::file_time_type());
  ExpectDone(RunBatch("run batch"));
  EXPECT_NE(fs::file_time_type(), fs::last_write_time("batch/out/1.emf"));
}

TEST_F(BatchChanges, retry_waits_for_the_end_of_a_chunk) {
  PlanDrawings(1, 1);
  Write("batch/results/00001.elsewhere-1.part", "at work");
  const Outcome outcome = RunBatch("retry batch --all");
  EXPECT_EQ(74, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "is being converted on elsewhere")) << outcome.err;
}

TEST_F(BatchChanges, a_plan_of_another_version_is_refused) {
  PlanDrawings(1, 1);
  ASSERT_EQ(0,
            RunCommand("python3",
                       "-c 'import sqlite3; d = sqlite3.connect(\"batch/plan.db\"); "
                       "d.execute(\"UPDATE setting SET value = CAST(? AS BLOB) WHERE name = ?\", (\"0.9\", "
                       "\"version\")); d.commit()'"));
  for (const char* const command : {"run batch", "chunk batch 1", "retry batch --failed"}) {
    const Outcome outcome = RunBatch(command);
    EXPECT_EQ(74, outcome.status) << command;
    EXPECT_TRUE(Contains(outcome.err, "hexlume-batch 0.9 has made the plan")) << outcome.err;
  }
  ExpectDone(RunBatch("retry batch --all"));
  ExpectDone(RunBatch("run batch"));
}

// One drawing whose output can't be written costs one line.
TEST_F(BatchChanges, an_output_that_can_not_be_written_is_a_fault_of_its_drawing) {
  PlanDrawings(2, 2);
  fs::create_directories("batch/out/1.emf");
  EXPECT_EQ(1, RunBatch("run batch").status);
  const auto report = Report();
  EXPECT_EQ("not-written", report.at("1.dxf")["status"]);
  EXPECT_EQ("ok", report.at("2.dxf")["status"]);
}

// All drawings would fail in the same way.
TEST_F(BatchChanges, a_full_storage_ends_the_chunk_without_results) {
  if (RunCommand("test", "-w /dev/full") != 0) GTEST_SKIP() << "there is no device that is always full";
  PlanDrawings(2, 2);
  fs::create_directories("batch/out");
  fs::create_symlink("/dev/full", "batch/out/1.emf");
  const Outcome outcome = RunBatch("run batch");
  EXPECT_EQ(1, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "No space left on device")) << outcome.err;
  EXPECT_EQ(0, Status()["failed"]);
  fs::remove("batch/out/1.emf");
  ExpectDone(RunBatch("run batch"));
}

TEST_F(BatchChanges, a_pipe_is_no_drawing) {
  ASSERT_EQ(0, RunCommand("mkfifo", "pipe.dxf"));
  WriteDrawing("1.dxf");
  ExpectDone(RunBatch("plan pipe.dxf 1.dxf --out batch"));
  EXPECT_EQ(1, RunBatch("run batch").status);
  EXPECT_EQ("not-a-file", Report().at("pipe.dxf")["status"]);
  EXPECT_EQ("ok", Report().at("1.dxf")["status"]);
}

}  // namespace
}  // namespace hexlume::changes_test
