// What the program says of the drawings.
#include <gtest/gtest.h>

#include <filesystem>

#include "batch/batch_run.h"

namespace hexlume::report_test {
namespace {

class BatchReport : public BatchRun {};

TEST_F(BatchReport, csv_has_a_line_for_each_drawing) {
  WriteDrawing("in/a, b.dxf");
  WriteText("in/c.dxf", "no drawing\n");
  ExpectDone(RunBatch("plan in --out batch --to emf,png:64 --no-hash"));
  const std::string in = std::filesystem::current_path().string() + "/in/";
  const std::string size = std::to_string(std::filesystem::file_size("in/a, b.dxf"));
  const Outcome before = RunBatch("report batch");
  EXPECT_EQ("path,status,message,size,sha256,emf,png,host\n\"" + in +
                "a, b.dxf\",left,the drawing has no result yet," + size + ",,,,\n" + in +
                "c.dxf,left,the drawing has no result yet,11,,,,\n",
            before.out);
  RunBatch("run batch");
  const Outcome after = RunBatch("report batch");
  EXPECT_TRUE(Contains(after.out, "\"" + in + "a, b.dxf\",ok,," + size + ",")) << after.out;
  EXPECT_TRUE(Contains(after.out, ",\"out/a, b.emf\",\"out/a, b.png\",")) << after.out;
  EXPECT_TRUE(Contains(after.out, in + "c.dxf,no-dxf,the file is no DXF: it has no section,11,"))
      << after.out;
}

TEST_F(BatchReport, only_the_failed_ones_if_they_are_asked_for) {
  WriteText("in/0.dxf", "no drawing\n");
  PlanDrawings(3, 2);
  EXPECT_TRUE(Report("--failed").empty()) << "those without a result haven't failed";
  RunBatch("run batch");
  EXPECT_EQ(1u, Report("--failed").count("0.dxf"));
  EXPECT_EQ(1u, Report("--failed").size());
}

TEST_F(BatchReport, a_path_of_any_bytes_can_be_found_again) {
  WriteDrawing("in/\xFF.dxf");
  ExpectDone(RunBatch("plan in --out batch"));
  ExpectDone(RunBatch("run batch"));
  const Json line = Report().begin()->second;
  // "/\xFF.dxf"
  const std::string digits = line["pathBytes"];
  EXPECT_EQ("2fff2e647866", digits.substr(digits.size() - 12));
  EXPECT_TRUE(Contains(RunBatch("report batch").out, "in/\xFF.dxf,ok"));
}

TEST_F(BatchReport, the_page_names_the_failed_drawings) {
  WriteText("in/<b>.dxf", "no drawing\n");
  WriteDrawing("in/100%.dxf");
  ExpectDone(RunBatch("plan in --out batch --to emf,png:64"));
  RunBatch("run batch");
  const Outcome outcome = RunBatch("report batch --open");
  ExpectDone(outcome);
  EXPECT_EQ(std::filesystem::current_path().string() + "/batch/report.html\n", outcome.out);
  const std::string page = Contents("batch/report.html");
  EXPECT_TRUE(Contains(page, "1 of 2 drawings are converted"));
  EXPECT_TRUE(
      Contains(page, "in/&lt;b&gt;.dxf</td><td>no-dxf</td><td>the file is no DXF: it has no section"));
  EXPECT_TRUE(Contains(page, "href=\"out/100%25.emf\""));
  EXPECT_TRUE(Contains(page, "src=\"out/100%25.png\""));
  EXPECT_FALSE(Contains(page, "<b>"));
}

TEST_F(BatchReport, the_status_for_people_has_the_reasons) {
  WriteText("in/0.dxf", "no drawing\n");
  PlanDrawings(3, 2);
  RunBatch("chunk batch 1");
  const Outcome outcome = RunBatch("status batch");
  ExpectDone(outcome);
  EXPECT_EQ(
      "drawings        4\n"
      "done            1\n"
      "failed          1\n"
      "  no-dxf        1\n"
      "running         0 in 0 chunks on 0 machines\n"
      "left            2 in 1 of 2 chunks\n",
      outcome.out);
}

// Two processes that are at work on chunk 1: the one that has more counts, and both rates.
TEST_F(BatchReport, the_status_shows_who_is_at_work) {
  PlanDrawings(3, 2);
  const auto head = [](const char* host, int done) {
    std::string text = R"({"chunk":1,"drawings":2,"statuses":{"ok":)" + std::to_string(done) +
                       R"(},"key":")" + Json::parse(Contents("key"))["key"].get<std::string>() +
                       R"(","host":")" + host +
                       R"(","process":1,"started":1000,"updated":1010,"converted":5})";
    text.resize(2047, ' ');
    return text + '\n';
  };
  ExpectDone(RunBatch("chunk batch 2"));
  Write("key", Contents("batch/results/00002.jsonl").substr(0, 2048));
  Write("batch/results/00001.one-1.part", head("one", 0));
  Write("batch/results/00001.other-1.part", head("other", 1));
  const Json status = Status();
  EXPECT_EQ(2, status["done"]);
  EXPECT_EQ(1, status["left"]);
  EXPECT_EQ(1, status["running"]);
  EXPECT_EQ(1, status["runningChunks"]);
  EXPECT_EQ((std::vector<std::string>{"one", "other"}), status["hosts"]);
  // Twice 5 drawings in 10 s.
  EXPECT_DOUBLE_EQ(1, status["rate"].get<double>());
  EXPECT_EQ(1, status["secondsLeft"]);
}

}  // namespace
}  // namespace hexlume::report_test
