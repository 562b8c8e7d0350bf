#include "tools/batch/plan/folder.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "tools/batch/base/error.h"
#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/path_text.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {
namespace {

constexpr const char* resultSuffix = ".jsonl";
constexpr const char* partSuffix = ".part";

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string ChunkName(int64_t chunk) {
  constexpr size_t width = 5;
  const std::string digits = std::to_string(chunk);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

// The form of OwnPartPath() and ResultPath().
std::optional<ResultFileName> Parsed(const std::string& folder, const std::string& name) {
  const std::string path = Joined(folder, name);
  const int64_t chunk = std::strtoll(name.c_str(), nullptr, 10);
  if (chunk <= 0) return std::nullopt;
  if (name == ChunkName(chunk) + resultSuffix) return ResultFileName{path, chunk, false, "", 0};
  const size_t start = name.find('.'), hyphen = name.rfind('-');
  if (!EndsWith(name, partSuffix) || start == std::string::npos || hyphen == std::string::npos ||
      hyphen < start)
    return std::nullopt;
  const std::string host = name.substr(start + 1, hyphen - start - 1);
  return ResultFileName{path, chunk, true, host, std::strtoll(name.c_str() + hyphen + 1, nullptr, 10)};
}

// One that has ended stays in the list of processes until somebody asks how.
bool IsProcess(int64_t process) {
  if (kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH) return false;
  const File file = OpenFile("/proc/" + std::to_string(process) + "/stat", "r");
  char state = ' ';
  return !file || std::fscanf(file.get(), "%*d (%*[^)]) %c", &state) != 1 || state != 'Z';
}

// Seconds since the file was written last, in the time of this machine.
int64_t AgeOf(const std::string& path) {
  constexpr int64_t unitsInASecond = 1000000000;
  const auto stamp = StampOf(path);
  return stamp ? std::time(nullptr) - stamp->modified / unitsInASecond : 0;
}

}  // namespace

std::string PlanPath(const std::string& folder) {
  return Joined(folder, "plan.db");
}

std::string LogsPath(const std::string& folder) {
  return Joined(folder, "logs");
}

std::string ResultsPath(const std::string& folder) {
  return Joined(folder, "results");
}

std::string ResultPath(const std::string& folder, int64_t chunk) {
  return Joined(ResultsPath(folder), ChunkName(chunk) + resultSuffix);
}

std::string OwnPartPath(const std::string& folder, int64_t chunk) {
  return Joined(ResultsPath(folder),
                ChunkName(chunk) + '.' + HostName() + '-' + std::to_string(getpid()) + partSuffix);
}

std::vector<ResultFileName> ResultFiles(const std::string& folder) {
  const std::string results = ResultsPath(folder);
  const auto entries = EntriesOf(results);
  if (!entries) throw FolderError(results + ": the folder can't be read");
  std::vector<ResultFileName> files;
  for (const FolderEntry& entry : *entries)
    if (auto file = Parsed(results, entry.name)) files.push_back(std::move(*file));
  return files;
}

std::vector<ResultFileName> ResultFilesOf(const std::string& folder, int64_t chunk) {
  std::vector<ResultFileName> files = ResultFiles(folder);
  const auto isOther = [chunk](const ResultFileName& file) { return file.chunk != chunk; };
  files.erase(std::remove_if(files.begin(), files.end(), isOther), files.end());
  return files;
}

Life LifeOf(const ResultFileName& part) {
  constexpr int64_t silence = 60, end = 600;
  if (part.host == HostName() && !IsProcess(part.process)) return Life::ended;
  const int64_t age = AgeOf(part.path);
  if (age < silence) return Life::running;
  return age < end ? Life::silent : Life::ended;
}

std::string HostName() {
  static const std::string host = [] {
    char name[256] = "";
    gethostname(name, sizeof name - 1);
    std::string plain = *name ? name : "unknown";
    for (char& letter : plain)
      if (!std::isalnum(static_cast<unsigned char>(letter)) && letter != '.') letter = '_';
    return plain;
  }();
  return host;
}

std::string TemporaryPath(const std::string& path) {
  return path + '.' + HostName() + '-' + std::to_string(getpid()) + ".tmp";
}

void RenameWhole(const std::string& temporary, const std::string& path) {
  const int file = open(temporary.c_str(), O_RDONLY | O_CLOEXEC);
  bool isDone = file >= 0 && fsync(file) == 0;
  if (file >= 0) close(file);
  isDone = isDone && rename(temporary.c_str(), path.c_str()) == 0;
  if (!isDone) throw OutputError(path, std::strerror(errno));
}

}  // namespace hexlume::batch
