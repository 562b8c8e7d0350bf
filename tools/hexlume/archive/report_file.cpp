#include "tools/hexlume/archive/report_file.h"

#include <cerrno>
#include <cstring>

#include "tools/hexlume/drawing/drawing_source.h"
#include "tools/hexlume/system/file_output.h"

namespace hexlume {

ReportFile::ReportFile(const std::optional<std::string>& given) : name(given.value_or("")) {
  if (!given || name == standardStream) return;
  file = OpenFile(name, "wb");
  if (!file) throw OutputError(name, std::strerror(errno));
}

void ReportFile::Add(const std::string& line) {
  if (name.empty()) return;
  const std::string ended = line + '\n';
  if (!file) return WriteToStandardOutput(ended.data(), ended.size());
  // A line is never left in parts.
  if (std::fwrite(ended.data(), 1, ended.size(), file.get()) != ended.size() || std::fflush(file.get()) != 0)
    throw OutputError(name, std::strerror(errno));
}

}  // namespace hexlume
