#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hexlume::bench {

struct Settings {
  std::vector<std::string> rows;  // their names; empty for all
  int runs = 5;                   // of the rows about growth
  int64_t divisor = 1;            // of the numbers of items
  bool processorTime = false;     // instead of wall-clock time
  std::string program;            // this one
  std::string root;               // the project's folder
  std::string tool;               // the native one
  std::string drawings;           // a folder that receives drawings; empty to measure
};

// For the rows with goals: other work of the machine moves the fastest of a few runs by a tenth.
inline int GoalRuns(const Settings& settings) {
  return settings.runs * 4;
}

}  // namespace hexlume::bench
