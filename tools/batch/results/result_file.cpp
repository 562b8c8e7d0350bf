#include "tools/batch/results/result_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <nlohmann/json.hpp>
#include <utility>

#include "tools/batch/plan/folder.h"
#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {
namespace {

using Json = nlohmann::ordered_json;

// There are two dozen statuses.
constexpr size_t headSize = 2048;

std::string TextOf(const ResultHead& head) {
  Json json = {{"chunk", head.chunk},     {"drawings", head.drawings},  {"done", head.Done()},
               {"failed", head.Failed()}, {"statuses", head.statuses},  {"key", head.key},
               {"host", head.host},       {"process", head.process},    {"started", head.started},
               {"updated", head.updated}, {"converted", head.converted}};
  std::string text = json.dump();
  text.resize(headSize - 1, ' ');
  return text + '\n';
}

// Throws what the JSON library throws.
ResultHead HeadOf(const Json& json) {
  ResultHead head;
  head.chunk = json.at("chunk");
  head.drawings = json.at("drawings");
  head.statuses = json.at("statuses").get<std::map<std::string, int64_t>>();
  head.key = json.at("key");
  head.host = json.at("host");
  head.process = json.at("process");
  head.started = json.at("started");
  head.updated = json.at("updated");
  head.converted = json.at("converted");
  return head;
}

}  // namespace

int64_t ResultHead::Count() const {
  int64_t count = 0;
  for (const auto& [status, number] : statuses) count += number;
  return count;
}

int64_t ResultHead::Done() const {
  const auto done = statuses.find("ok");
  return done == statuses.end() ? 0 : done->second;
}

std::optional<ResultHead> ReadHead(const std::string& path) {
  const File file = OpenFile(path, "rb");
  if (!file) return std::nullopt;
  char bytes[headSize];
  if (std::fread(bytes, 1, headSize, file.get()) != headSize) return std::nullopt;
  try {
    return HeadOf(Json::parse(bytes, bytes + headSize));
  } catch (const Json::exception&) {
    return std::nullopt;
  }
}

void ReadResultLines(const std::string& path, const std::function<void(const std::string& line)>& take) {
  const File file = OpenFile(path, "rb");
  if (!file || !SeekFile(file.get(), headSize, SEEK_SET)) return;
  std::string line;
  char piece[65536];
  while (std::fgets(piece, sizeof piece, file.get())) {
    line += piece;
    if (line.back() != '\n') continue;
    line.pop_back();
    take(line);
    line.clear();
  }
}

ResultFile::ResultFile(const std::string& given, const ResultHead& first) : head(first), path(given) {
  constexpr mode_t allowed = 0666;
  file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, allowed);
  if (file < 0) throw OutputError(path, std::strerror(errno));
}

ResultFile::~ResultFile() {
  if (file >= 0) close(file);
}

void ResultFile::Add(const std::string& line, const std::string& status) {
  WriteAt(static_cast<int64_t>(headSize) + end, line + '\n');
  end += static_cast<int64_t>(line.size()) + 1;
  ++head.statuses[status];
}

void ResultFile::Update() {
  head.updated = std::time(nullptr);
  WriteAt(0, TextOf(head));
}

void ResultFile::Finish(const std::string& finalPath) {
  Update();
  const bool isClosed = close(std::exchange(file, -1)) == 0;
  if (!isClosed) throw OutputError(path, std::strerror(errno));
  RenameWhole(path, finalPath);
}

void ResultFile::WriteAt(int64_t place, const std::string& bytes) {
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t written =
        pwrite(file, bytes.data() + done, bytes.size() - done, place + static_cast<int64_t>(done));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) throw OutputError(path, std::strerror(errno));
    done += static_cast<size_t>(written);
  }
}

}  // namespace hexlume::batch
