#include "tools/hexlume/archive/state_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <nlohmann/json.hpp>

#include "tools/hexlume/system/path_text.h"

namespace hexlume {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* fileName = ".hexlume-state";
constexpr const char* lineStart = "{\"id\":\"";
constexpr size_t idLength = 16;

// 64 bits of the text, in hexadecimal digits.
std::string NumberOf(const std::string& text) {
  uint64_t hash = 0xCBF29CE484222325;
  for (const char letter : text) hash = (hash ^ static_cast<uint8_t>(letter)) * 0x100000001B3;
  std::string digits;
  for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789abcdef"[hash >> shift & 15];
  return digits;
}

// A path may have bytes that aren't UTF-8. The line is compared with one that was made in the same way.
std::string Dumped(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json DrawingPart(const std::string& place, const Job& job, const FileStamp& drawing) {
  return {{"place", place},
          {"drawing", AbsolutePath(job.drawing)},
          {"size", drawing.size},
          {"modified", drawing.modified}};
}

// None if a result isn't there.
std::optional<Json> OutputsPart(const Job& job) {
  Json outputs = Json::array();
  for (const PictureOrder& output : job.outputs) {
    const auto stamp = StampOf(output.file);
    if (!stamp) return std::nullopt;
    outputs.push_back({output.kind ? output.kind->option : "emf", stamp->size, stamp->modified});
  }
  return outputs;
}

// All of a line but the report: the line of an unchanged drawing begins so.
std::optional<std::string> StateOf(const std::string& place, const Job& job, const FileStamp& drawing,
                                   const std::string& key) {
  const std::optional<Json> outputs = OutputsPart(job);
  if (!outputs) return std::nullopt;
  Json json = DrawingPart(place, job, drawing);
  json["key"] = key;
  json["outputs"] = *outputs;
  const std::string object = Dumped(json);
  return lineStart + NumberOf(place) + "\"," + object.substr(1, object.size() - 2) + ",\"report\":";
}

}  // namespace

StateFile::StateFile(const std::string& folder, const std::string& resultKey)
    : path(Joined(folder, fileName)), key(NumberOf(resultKey)) {
  ReadIndex();
  writing = OpenFile(path, "ab");
  if (!writing) throw OutputError(path, std::strerror(errno));
  if (hasOpenLine) std::fputc('\n', writing.get());
}

void StateFile::ReadIndex() {
  reading = OpenFile(path, "rb");
  if (!reading) return;
  const size_t startLength = std::strlen(lineStart);
  std::string start;  // of the line at hand
  int64_t offset = 0, lineOffset = 0;
  char chunk[65536];
  while (const size_t got = std::fread(chunk, 1, sizeof chunk, reading.get())) {
    const char* at = chunk;
    const char* const end = chunk + got;
    while (at < end) {
      const char* const stop = std::find(at, end, '\n');
      const size_t wanted = startLength + idLength - std::min(start.size(), startLength + idLength);
      start.append(at, std::min(static_cast<size_t>(stop - at), wanted));
      offset += stop - at;
      hasOpenLine = stop == end;
      at = stop;
      if (hasOpenLine) break;
      if (start.size() == startLength + idLength && start.compare(0, startLength, lineStart) == 0)
        offsets[start.substr(startLength)] = lineOffset;
      ++lines;
      ++at;
      lineOffset = ++offset;
      start.clear();
    }
  }
}

std::string StateFile::LineAt(int64_t offset) {
  std::string line;
  if (!SeekFile(reading.get(), offset, SEEK_SET)) return line;
  char chunk[4096];
  while (std::fgets(chunk, sizeof chunk, reading.get())) {
    line += chunk;
    if (line.back() == '\n') return line.substr(0, line.size() - 1);
  }
  return "";
}

std::optional<std::string> StateFile::FindUnchanged(const std::string& place, const Job& job) {
  const auto found = offsets.find(NumberOf(place));
  if (found == offsets.end()) return std::nullopt;
  const auto drawing = StampOf(job.drawing);
  if (!drawing || drawing->kind != FileKind::file) return std::nullopt;
  const auto state = StateOf(place, job, *drawing, key);
  if (!state) return std::nullopt;
  const std::string line = LineAt(found->second);
  if (line.compare(0, state->size(), *state) != 0 || line.back() != '}') return std::nullopt;
  const std::string report = line.substr(state->size(), line.size() - state->size() - 1);
  return report == "null" ? "" : report;
}

void StateFile::Add(const std::string& place, const Job& job, const DrawingResult& result) {
  const auto state = StateOf(place, job, result.drawing, key);
  if (!state) return;
  const std::string line = *state + (result.report.empty() ? "null" : result.report) + "}\n";
  if (std::fwrite(line.data(), 1, line.size(), writing.get()) != line.size() ||
      std::fflush(writing.get()) != 0)
    throw OutputError(path, std::strerror(errno));
}

void StateFile::Finish() {
  writing.reset();
  offsets.clear();
  lines = 0;
  ReadIndex();
  constexpr size_t few = 1000;
  if (lines < 2 * offsets.size() + few) return;
  std::vector<int64_t> kept;
  for (const auto& [id, offset] : offsets) kept.push_back(offset);
  std::sort(kept.begin(), kept.end());
  std::vector<uint8_t> bytes;
  for (const int64_t offset : kept) {
    const std::string line = LineAt(offset) + '\n';
    bytes.insert(bytes.end(), line.begin(), line.end());
  }
  reading.reset();
  WriteWholeFile(path, bytes);
}

}  // namespace hexlume
