// What became of the drawings of a chunk: a file of JSON objects, one a line. The first line sums the others up; it is as
// long as any may become, so that it can be written again while lines are added, and read without them.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace hexlume::batch {

struct ResultHead {
  int64_t chunk = 0;
  int64_t drawings = 0;                     // that the chunk has
  std::map<std::string, int64_t> statuses;  // with the number of drawings
  std::string key;                          // that of the plan then
  std::string host;
  int64_t process = 0;
  int64_t started = 0, updated = 0;  // in seconds, in the time of the host
  int64_t converted = 0;             // since it started; the others had their results already

  int64_t Count() const;  // drawings that have a result
  int64_t Done() const;   // those of them that are converted
  int64_t Failed() const { return Count() - Done(); }
  bool IsComplete() const { return Count() == drawings; }
};

// None if the file has no whole first line.
std::optional<ResultHead> ReadHead(const std::string& path);

// Gives each whole line but the first one.
void ReadResultLines(const std::string& path, const std::function<void(const std::string& line)>& take);

// A new file. Its first line is written by Update() and Finish(). All functions throw OutputError.
class ResultFile {
 public:
  ResultFile(const std::string& path, const ResultHead& head);
  ~ResultFile();
  ResultFile(const ResultFile&) = delete;
  ResultFile& operator=(const ResultFile&) = delete;

  // The head counts the status.
  void Add(const std::string& line, const std::string& status);

  // Writes the first line again.
  void Update();

  // Gives the file its name. Nothing may be added after it.
  void Finish(const std::string& finalPath);

  ResultHead head;

 private:
  void WriteAt(int64_t place, const std::string& bytes);

  std::string path;
  int file;
  int64_t end = 0;  // of the lines, after the first one
};

}  // namespace hexlume::batch
