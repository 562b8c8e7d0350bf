// The engines that other programs are, with programs in their place that note what they are called with.
#include <gtest/gtest.h>

#include <filesystem>

#include "batch/batch_run.h"
#include "support/run_command.h"

namespace hexlume::engines_test {
namespace {

namespace fs = std::filesystem;

class BatchEngines : public BatchRun {
 protected:
  void SetUp() override {
    BatchRun::SetUp();
    fs::create_directory("bin");
    // An array job whose tasks run at once, one after the other.
    Script("sbatch", R"sh(
printf '%s\n' "$@" >>sbatch.log
for word; do
  case "$word" in
    --array=*) last=${word#--array=1-} last=${last%%%*} ;;
    --wrap=*) command=${word#--wrap=} ;;
  esac
done
i=1
while [ $i -le $last ]; do
  SLURM_ARRAY_TASK_ID=$i sh -c "$command" >>tasks.log 2>&1
  i=$((i + 1))
done
echo 17
)sh");
    Script("squeue", "cat queue 2>/dev/null || true");
    Script("scontrol", "echo 'MaxArraySize            = 3'");
  }

  static void Script(const std::string& name, const std::string& body) {
    Write("bin/" + name, "#!/bin/sh\n" + body + '\n');
    fs::permissions("bin/" + name, fs::perms::owner_all);
  }

  static Outcome Run(const std::string& arguments) { return RunBatch(arguments, "PATH=\"$PWD/bin:$PATH\""); }
};

TEST_F(BatchEngines, slurm_gets_array_jobs_as_long_as_it_takes) {
  PlanDrawings(5, 1);
  const Outcome outcome = Run("run batch --engine slurm:night --wait --limit 7 --jobs 2 -- --account=abc");
  ExpectDone(outcome);
  EXPECT_EQ("5 done, 0 failed, 0 left\n", outcome.out);
  // At most MaxArraySize - 1 tasks: 2, 2 and 1.
  const std::string log = Contents("sbatch.log");
  EXPECT_TRUE(Contains(log, "--array=1-2%7\n")) << log;
  EXPECT_TRUE(Contains(log, "--array=1-1%7\n")) << log;
  EXPECT_TRUE(Contains(log, "--requeue\n")) << log;
  EXPECT_TRUE(Contains(log, "--partition=night\n")) << log;
  EXPECT_TRUE(Contains(log, "--cpus-per-task=2\n")) << log;
  EXPECT_TRUE(Contains(log, "--account=abc\n")) << log;
  // 600 + 120 + 4 seconds, in whole minutes.
  EXPECT_TRUE(Contains(log, "--time=13\n")) << log;
  EXPECT_TRUE(Contains(Contents("tasks.log"), "chunk 5: 1 done, 0 failed\n"));
}

TEST_F(BatchEngines, slurm_gets_only_what_is_left) {
  PlanDrawings(4, 1);
  ExpectDone(RunBatch("chunk batch 1"));
  ExpectDone(RunBatch("chunk batch 3"));
  ExpectDone(Run("run batch --engine slurm --wait"));
  EXPECT_EQ("chunk 2: 1 done, 0 failed\nchunk 4: 1 done, 0 failed\n", Contents("tasks.log"));
}

TEST_F(BatchEngines, slurm_is_not_asked_when_nothing_is_left) {
  PlanDrawings(1, 1);
  ExpectDone(RunBatch("run batch"));
  ExpectDone(Run("run batch --engine slurm --wait"));
  EXPECT_FALSE(Exists("sbatch.log"));
}

TEST_F(BatchEngines, without_wait_the_run_ends_when_all_is_submitted) {
  WriteText("in/0.dxf", "no drawing\n");
  PlanDrawings(1, 1);
  EXPECT_EQ(0, Run("run batch --engine slurm").status);
  EXPECT_EQ(1, Run("run batch --engine slurm --wait").status) << "a drawing has failed";
}

TEST_F(BatchEngines, chunks_that_are_queued_are_not_submitted_again) {
  PlanDrawings(4, 1);
  Script("sbatch", "printf '%s\\n' \"$@\" >>sbatch.log; echo 17");
  ExpectDone(Run("run batch --engine slurm"));
  std::string list;
  for (const auto& entry : fs::directory_iterator("batch/logs"))
    if (Contents(entry.path().string()) == "3\n4\n") list = entry.path().stem().string();
  ASSERT_NE("", list) << "the second list";
  // Its second task, chunk 4, waits; the first one is held and doesn't go on by itself. Chunks 1 to 3 are left.
  Write("queue", "1|" + list + "|JobHeldAdmin\n2|" + list + "|Resources\n1|other|None\n");
  fs::remove("sbatch.log");
  ExpectDone(Run("run batch --engine slurm"));
  const std::string log = Contents("sbatch.log");
  EXPECT_TRUE(Contains(log, "--array=1-2\n") && Contains(log, "--array=1-1\n")) << log;
}

TEST_F(BatchEngines, an_engine_that_refuses_says_why) {
  PlanDrawings(1, 1);
  Script("sbatch", "echo 'sbatch: error: invalid partition' >&2; exit 1");
  const Outcome outcome = Run("run batch --engine slurm:nowhere --wait");
  EXPECT_EQ(69, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "invalid partition")) << outcome.err;
}

TEST_F(BatchEngines, an_engine_that_is_not_installed_is_named) {
  PlanDrawings(1, 1);
  for (const char* const name : {"sbatch", "squeue", "scontrol"}) fs::remove(std::string("bin/") + name);
  for (const char* const word : {"env", "sh"})
    fs::create_symlink(std::string("/bin/") + word, std::string("bin/") + word);
  const Outcome slurm = RunBatch("run batch --engine slurm", "PATH=\"$PWD/bin\"");
  EXPECT_EQ(69, slurm.status);
  EXPECT_TRUE(Contains(slurm.err, "apt-get install slurm-client")) << slurm.err;
  const Outcome ssh = RunBatch("run batch --engine ssh:host", "PATH=\"$PWD/bin\"");
  EXPECT_EQ(69, ssh.status);
  EXPECT_TRUE(Contains(ssh.err, "apt-get install parallel")) << ssh.err;
}

TEST_F(BatchEngines, ssh_gets_what_is_left_and_a_log_of_jobs) {
  PlanDrawings(3, 1);
  ExpectDone(RunBatch("chunk batch 2"));
  Script("parallel", R"sh(
printf '%s\n' "$@" >parallel.log
while [ $# -gt 1 ]; do
  [ "$1" != -a ] || list=$2
  shift
done
while read -r chunk; do
  sh -c "$(echo "$1" | sed "s/{}/$chunk/")"
done <"$list"
)sh");
  ExpectDone(Run("run batch --engine ssh:one,8/user@two:22 -- --nice 5"));
  const std::string log = Contents("parallel.log");
  for (const char* const words : {"--resume-failed\n", "--sshlogin\n1/one\n", "--sshlogin\n8/user@two:22\n",
                                  "--nice\n5\n", "--timeout\n784\n"})
    EXPECT_TRUE(Contains(log, words)) << words << " isn't in " << log;
  EXPECT_EQ(3, Status()["done"]);
}

TEST_F(BatchEngines, a_run_that_gets_no_further_ends) {
  PlanDrawings(2, 1);
  Script("sbatch", "echo >>count; echo 17");
  const Outcome outcome = Run("run batch --engine slurm --wait");
  EXPECT_EQ(1, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "no chunk gets further")) << outcome.err;
  EXPECT_EQ("\n", Contents("count"));
}

TEST_F(BatchEngines, an_engine_that_there_is_not_is_refused) {
  PlanDrawings(1, 1);
  const Outcome outcome = RunBatch("run batch --engine slrum");
  EXPECT_EQ(64, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "did you mean slurm?")) << outcome.err;
  EXPECT_EQ(64, RunBatch("run batch --engine ssh").status);
  EXPECT_EQ(64, RunBatch("run batch --engine local:0").status);
}

}  // namespace
}  // namespace hexlume::engines_test
