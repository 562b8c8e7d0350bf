// The files in the folder of a batch, which all machines see:
//
//   plan.db                    the plan
//   out/                       the outputs, in the tree of the archive
//   results/00012.jsonl        what became of the drawings of chunk 12
//   results/00012.HOST-PROCESS.part   the same while a process converts them
//   logs/                      what the engines and their processes say
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hexlume::batch {

// The folder of outputs, in the folder of the batch.
constexpr const char* outputsName = "out";

std::string PlanPath(const std::string& folder);
std::string LogsPath(const std::string& folder);
std::string ResultsPath(const std::string& folder);

// The whole results of a chunk.
std::string ResultPath(const std::string& folder, int64_t chunk);

// Those that this process writes.
std::string OwnPartPath(const std::string& folder, int64_t chunk);

struct ResultFileName {
  std::string path;
  int64_t chunk;
  bool isPart;
  std::string host;  // of a part
  int64_t process;
};

// All files of results, or those of one chunk. Throws FolderError.
std::vector<ResultFileName> ResultFiles(const std::string& folder);
std::vector<ResultFileName> ResultFilesOf(const std::string& folder, int64_t chunk);

enum class Life {
  running,  // its process is there, as far as can be seen
  silent,   // perhaps: on another machine, and not heard of for a minute
  ended,
};

// Whether the process of a part is still at work.
Life LifeOf(const ResultFileName& part);

// The name of this machine, with nothing but letters, digits, points and underlines.
std::string HostName();

// A name beside a file for its next contents. It is this process's own.
std::string TemporaryPath(const std::string& path);

// Writes all that the system still holds of a file and gives it its name. Throws OutputError.
void RenameWhole(const std::string& temporary, const std::string& path);

}  // namespace hexlume::batch
