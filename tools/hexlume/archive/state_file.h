// What was converted into a folder, in the file .hexlume-state there: so that drawings that haven't changed since can be
// passed over. Each line is a JSON object for one drawing; of several for the same drawing the last one counts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "tools/hexlume/archive/job_plan.h"
#include "tools/hexlume/drawing/drawing_run.h"
#include "tools/hexlume/system/system.h"

namespace hexlume {

class StateFile {
 public:
  // resultKey is the same for options that give the same results. Throws OutputError if the file can't be written.
  StateFile(const std::string& folder, const std::string& resultKey);

  // Whether the drawing and its results are as they were then. Returns the line of the report of then, which is empty if
  // there was none.
  std::optional<std::string> FindUnchanged(const std::string& place, const Job& job);

  void Add(const std::string& place, const Job& job, const DrawingResult& result);

  // Removes lines that don't count any more, if they are many.
  void Finish();

 private:
  void ReadIndex();
  std::string LineAt(int64_t offset);

  std::string path;
  std::string key;
  std::unordered_map<std::string, int64_t> offsets;  // of the last line for a place, by its id
  size_t lines = 0;
  bool hasOpenLine = false;  // the end of the tool has cut off the last line
  File reading, writing;
};

}  // namespace hexlume
