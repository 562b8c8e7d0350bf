#include "tools/batch/results/result_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "batch/temporary_folder.h"
#include "tools/batch/plan/folder.h"
#include "tools/batch/results/earlier_results.h"

namespace hexlume::batch::result_file_test {
namespace {

class BatchResults : public testing::Test {
 protected:
  BatchResults() {
    std::filesystem::create_directory(ResultsPath(folder.path));
    head.chunk = 12;
    head.drawings = 3;
    head.key = "key";
    head.host = "host";
  }

  static std::string LineOf(int64_t number, const std::string& status) {
    return R"({"number":)" + std::to_string(number) + R"(,"status":")" + status +
           R"(","sha256":"ab","outputs":[{"path":"out/1.emf","size":4}]})";
  }

  static std::vector<std::string> LinesIn(const std::string& path) {
    std::vector<std::string> lines;
    ReadResultLines(path, [&lines](const std::string& line) { lines.push_back(line); });
    return lines;
  }

  TemporaryFolder folder;
  ResultHead head;
};

TEST_F(BatchResults, the_first_line_sums_up) {
  const std::string path = OwnPartPath(folder.path, 12), result = ResultPath(folder.path, 12);
  ResultFile file(path, head);
  file.Add("{}", "ok");
  file.Update();
  EXPECT_EQ(1, ReadHead(path)->Count());
  file.Add("{}", "no-dxf");
  file.Add("{}", "ok");
  EXPECT_EQ(1, ReadHead(path)->Count()) << "it is written by Update";
  file.Finish(result);
  EXPECT_FALSE(std::filesystem::exists(path));
  const auto read = ReadHead(result);
  EXPECT_EQ(12, read->chunk);
  EXPECT_EQ(2, read->Done());
  EXPECT_EQ(1, read->Failed());
  EXPECT_TRUE(read->IsComplete());
  EXPECT_EQ(3u, LinesIn(result).size());
}

TEST_F(BatchResults, a_line_that_is_cut_off_is_no_line) {
  const std::string path = OwnPartPath(folder.path, 12);
  {
    ResultFile file(path, head);
    file.Add(std::string(100000, 'x'), "ok");
    file.Update();
  }
  std::ofstream(path, std::ios::app) << "{\"number\":";
  EXPECT_EQ(1u, LinesIn(path).size());
  EXPECT_EQ(100000u, LinesIn(path)[0].size());
}

TEST_F(BatchResults, a_file_without_a_whole_first_line_has_no_head) {
  const std::string path = ResultPath(folder.path, 12);
  EXPECT_FALSE(ReadHead(path));
  std::ofstream(path) << "{\"chunk\":12}\n";
  EXPECT_FALSE(ReadHead(path));
  std::ofstream(path) << std::string(5000, '\0');
  EXPECT_FALSE(ReadHead(path));
}

TEST_F(BatchResults, files_are_known_by_their_names) {
  for (const char* const name :
       {"00012.jsonl", "100000.jsonl", "00012.a-b.c-77.part", "notes.txt", "12.jsonl", "00012.part"})
    std::ofstream(ResultsPath(folder.path) + '/' + name) << '\n';
  EXPECT_EQ(3u, ResultFiles(folder.path).size());
  const auto files = ResultFilesOf(folder.path, 12);
  ASSERT_EQ(2u, files.size());
  const ResultFileName& part = files[files[0].isPart ? 0 : 1];
  EXPECT_TRUE(part.isPart);
  EXPECT_EQ("a-b.c", part.host);
  EXPECT_EQ(77, part.process);
}

TEST_F(BatchResults, a_part_of_an_ended_process_is_told_from_one_at_work) {
  const std::string path = OwnPartPath(folder.path, 1);
  std::ofstream(path) << '\n';
  EXPECT_EQ(Life::running, LifeOf({path, 1, true, HostName(), getpid()}));
  // No process has so high a number.
  EXPECT_EQ(Life::ended, LifeOf({path, 1, true, HostName(), 0x7FFFFFFF}));
  EXPECT_EQ(Life::running, LifeOf({path, 1, true, "elsewhere", 0x7FFFFFFF}));
  const auto written = std::filesystem::last_write_time(path);
  std::filesystem::last_write_time(path, written - std::chrono::seconds(70));
  EXPECT_EQ(Life::silent, LifeOf({path, 1, true, "elsewhere", 1}));
  std::filesystem::last_write_time(path, written - std::chrono::seconds(700));
  EXPECT_EQ(Life::ended, LifeOf({path, 1, true, "elsewhere", 1}));
}

TEST_F(BatchResults, earlier_results_of_all_files_count_once) {
  {
    ResultFile result(OwnPartPath(folder.path, 12), head);
    result.Add(LineOf(1, "ok"), "ok");
    result.Finish(ResultPath(folder.path, 12));
    ResultFile part(OwnPartPath(folder.path, 12), head);
    part.Add(LineOf(1, "ok"), "ok");
    part.Add(LineOf(2, "no-dxf"), "no-dxf");
    part.Add("no JSON", "ok");
    part.Update();
  }
  const auto results = ReadEarlierResults(ResultFilesOf(folder.path, 12), "key");
  ASSERT_EQ(2u, results.size());
  EXPECT_EQ("ok", results.at(1).status);
  EXPECT_EQ("no-dxf", results.at(2).status);
  EXPECT_EQ("ab", results.at(2).sha256);
  EXPECT_EQ(std::vector<int64_t>{4}, results.at(2).outputSizes);
  EXPECT_TRUE(ReadEarlierResults(ResultFilesOf(folder.path, 12), "other").empty());
}

TEST_F(BatchResults, outputs_must_be_there_with_their_sizes) {
  const std::string output = folder.path + "/1.emf";
  EarlierResult result;
  result.outputSizes = {4};
  const Job job = {"1.dxf", {{nullptr, output}}, {}, false};
  EXPECT_FALSE(HasOutputs(result, job));
  std::ofstream(output) << "four";
  EXPECT_TRUE(HasOutputs(result, job));
  std::ofstream(output) << "fives";
  EXPECT_FALSE(HasOutputs(result, job));
  result.outputSizes.clear();
  EXPECT_TRUE(HasOutputs(result, job)) << "a failed drawing has none";
}

}  // namespace
}  // namespace hexlume::batch::result_file_test
