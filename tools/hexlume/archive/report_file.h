// The file of --report: a line for each drawing, written as soon as it is known.
#pragma once

#include <optional>
#include <string>

#include "tools/hexlume/system/system.h"

namespace hexlume {

class ReportFile {
 public:
  // No name: no report is wanted. "-" is standard output. Throws OutputError, as Add() does.
  explicit ReportFile(const std::optional<std::string>& name);

  void Add(const std::string& line);

 private:
  std::string name;
  File file;
};

}  // namespace hexlume
