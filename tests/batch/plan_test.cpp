#include "tools/batch/plan/plan.h"

#include <gtest/gtest.h>

#include <fstream>

#include "batch/temporary_folder.h"
#include "tools/batch/base/error.h"
#include "tools/batch/engine/engine.h"
#include "tools/batch/plan/folder.h"

namespace hexlume::batch::plan_test {
namespace {

class BatchPlan : public testing::Test {
 protected:
  void Make(int64_t drawings, int64_t chunkSize) const {
    PlanWriter writer(folder.path, settings, chunkSize);
    for (int64_t i = 1; i <= drawings; ++i)
      writer.Add({0, "/in/" + std::to_string(i) + ".dxf", std::to_string(i), 100 * i, i, i == 2 ? "" : "ab"});
    writer.Finish();
  }

  TemporaryFolder folder;
  PlanSettings settings = {{"--to=emf,png", "--size=64"}, false};
};

TEST_F(BatchPlan, drawings_are_in_chunks) {
  Make(7, 3);
  const Plan plan(folder.path);
  ASSERT_EQ(3u, plan.Chunks().size());
  EXPECT_EQ(7, plan.DrawingCount());
  // The second one has drawings 4 to 6: 400 + 500 + 600 bytes.
  EXPECT_EQ(4, plan.ChunkOf(2).first);
  EXPECT_EQ(3, plan.ChunkOf(2).drawings);
  EXPECT_EQ(1500, plan.ChunkOf(2).bytes);
  EXPECT_EQ(1, plan.ChunkOf(3).drawings);
  EXPECT_THROW(plan.ChunkOf(4), FolderError);
  EXPECT_THROW(plan.ChunkOf(0), FolderError);
}

TEST_F(BatchPlan, a_full_last_chunk_is_the_last) {
  Make(6, 3);
  EXPECT_EQ(2u, Plan(folder.path).Chunks().size());
}

TEST_F(BatchPlan, a_drawing_is_read_as_it_was_written) {
  const std::string path = std::string("/in/\xFF\n'") + ".dxf";
  PlanWriter writer(folder.path, settings, 3);
  writer.Add({0, path, "\xFF\n'", 12, -5, "cd"});
  writer.Finish();
  const Plan plan(folder.path);
  const PlannedDrawing drawing = plan.DrawingsOf(plan.ChunkOf(1)).at(0);
  EXPECT_EQ(1, drawing.number);
  EXPECT_EQ(path, drawing.path);
  EXPECT_EQ("\xFF\n'", drawing.place);
  EXPECT_EQ(12, drawing.size);
  EXPECT_EQ(-5, drawing.modified);
  EXPECT_EQ("cd", drawing.sha256);
}

TEST_F(BatchPlan, no_plan_is_seen_before_it_is_whole) {
  PlanWriter writer(folder.path, settings, 3);
  EXPECT_THROW(Plan plan(folder.path), FolderError);
  writer.Finish();
  EXPECT_EQ(0, Plan(folder.path).DrawingCount());
}

TEST_F(BatchPlan, a_plan_that_is_given_up_leaves_nothing) {
  { PlanWriter writer(folder.path, settings, 3); }
  EXPECT_TRUE(std::filesystem::is_empty(folder.path));
}

TEST_F(BatchPlan, a_file_that_is_no_plan_is_refused) {
  std::ofstream(PlanPath(folder.path)) << "no database, but long enough to be looked at as one by a reader";
  EXPECT_THROW(Plan plan(folder.path), FolderError);
}

TEST_F(BatchPlan, the_key_depends_on_what_changes_results) {
  Make(1, 1);
  const std::string key = Plan(folder.path).Key();
  EXPECT_EQ(16u, key.size());
  settings.arguments.push_back("--time-limit=5");
  Make(1, 1);
  EXPECT_EQ(key, Plan(folder.path).Key());
  settings.arguments.push_back("--mono");
  Make(1, 1);
  EXPECT_NE(key, Plan(folder.path).Key());
  settings.arguments.pop_back();
  settings.hasContents = true;
  Make(1, 1);
  EXPECT_NE(key, Plan(folder.path).Key());
}

TEST_F(BatchPlan, a_change_is_seen_whole_or_not_at_all) {
  Make(2, 2);
  const auto fail = [this](Database& database) {
    SetSettings(database, {{"--to=pdf"}, false});
    throw FolderError("in between");
  };
  EXPECT_THROW(ChangePlan(folder.path, fail), FolderError);
  EXPECT_EQ(settings.arguments, Plan(folder.path).Settings().arguments);
  ChangePlan(folder.path, [](Database& database) { SetDrawing(database, {2, "", "", 9, 8, "ef"}); });
  const Plan plan(folder.path);
  const PlannedDrawing drawing = plan.DrawingsOf(plan.ChunkOf(1)).at(1);
  EXPECT_EQ("/in/2.dxf", drawing.path);
  EXPECT_EQ(9, drawing.size);
  EXPECT_EQ("ef", drawing.sha256);
}

TEST_F(BatchPlan, the_time_limit_of_a_chunk_grows_with_it) {
  Make(7, 3);
  const Plan plan(folder.path);
  // 600 s, twice the 60 s of a drawing, 4 s for each of 3 drawings; 1500 bytes are less than a second.
  EXPECT_EQ(600 + 120 + 12, TimeLimitOf(plan, {2}));
  EXPECT_EQ(600 + 120 + 12, TimeLimitOf(plan, {1, 2, 3}));
  EXPECT_EQ(600 + 120 + 4, TimeLimitOf(plan, {3}));
}

}  // namespace
}  // namespace hexlume::batch::plan_test
