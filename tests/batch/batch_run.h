// hexlume-batch started by the shell, in a folder of each test's own.
#pragma once

#include <nlohmann/json.hpp>

#include "support/tool_run.h"

namespace hexlume {

class BatchRun : public ToolRun {
 protected:
  using Json = nlohmann::json;

  // environment has assignments for the shell.
  static Outcome RunBatch(const std::string& arguments, const std::string& environment = "");

  // Makes folders for the file too.
  static void WriteText(const std::string& path, const std::string& text);

  // A drawing with so many lines.
  static void WriteDrawing(const std::string& path, int32_t lines = 1);

  // Drawings 1.dxf, 2.dxf ... in the folder "in", and a plan of it in the folder "batch".
  static void PlanDrawings(int32_t count, int32_t chunkSize, const std::string& options = "");

  static void ExpectDone(const Outcome& outcome) {
    EXPECT_EQ(0, outcome.status) << outcome.out << outcome.err;
  }

  static Json Status();

  // The lines of the report by the names of their drawings.
  static std::map<std::string, Json> Report(const std::string& options = "");
};

}  // namespace hexlume
