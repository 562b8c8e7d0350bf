#include "batch/batch_run.h"

#include <filesystem>
#include <sstream>

#include "host/host_drawings.h"
#include "support/run_command.h"

namespace hexlume {

Outcome BatchRun::RunBatch(const std::string& arguments, const std::string& environment) {
  const std::string program = (ProgramFolder() / "hexlume-batch").string();
  const int status =
      RunCommand("env", environment + " '" + program + "' " + arguments + " >out.txt 2>err.txt");
  return {status, Contents("out.txt"), Contents("err.txt")};
}

void BatchRun::WriteText(const std::string& path, const std::string& text) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  if (!folder.empty()) std::filesystem::create_directories(folder);
  Write(path, text);
}

void BatchRun::WriteDrawing(const std::string& path, int32_t lines) {
  WriteText(path, A3(Lines(lines)));
}

void BatchRun::PlanDrawings(int32_t count, int32_t chunkSize, const std::string& options) {
  for (int32_t i = 1; i <= count; ++i) WriteDrawing("in/" + std::to_string(i) + ".dxf", i);
  ExpectDone(RunBatch("plan in --out batch --chunk " + std::to_string(chunkSize) + ' ' + options));
}

BatchRun::Json BatchRun::Status() {
  return Json::parse(RunBatch("status batch --json").out);
}

std::map<std::string, BatchRun::Json> BatchRun::Report(const std::string& options) {
  const Outcome outcome = RunBatch("report batch --format jsonl " + options);
  ExpectDone(outcome);
  std::map<std::string, Json> report;
  std::istringstream lines(outcome.out);
  for (std::string line; std::getline(lines, line);) {
    const Json json = Json::parse(line);
    const std::string name = std::filesystem::path(json["path"].get<std::string>()).filename().string();
    EXPECT_TRUE(report.emplace(name, json).second) << name << " is there twice";
  }
  return report;
}

}  // namespace hexlume
