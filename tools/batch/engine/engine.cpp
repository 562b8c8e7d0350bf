#include "tools/batch/engine/engine.h"

#include <unistd.h>

#include <algorithm>
#include <ctime>

#include "tools/batch/plan/folder.h"
#include "tools/hexlume/command/suggestion.h"
#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/path_text.h"

namespace hexlume::batch {

std::unique_ptr<Engine> MakeEngine(const Plan& plan, const RunOrder& order) {
  const size_t colon = std::min(order.engine.find(':'), order.engine.size());
  const std::string name = order.engine.substr(0, colon);
  const std::string details = colon < order.engine.size() ? order.engine.substr(colon + 1) : "";
  if (name == "local") return MakeLocalEngine(order, details);
  if (name == "ssh") return MakeSshEngine(plan, order, details);
  if (name == "slurm") return MakeSlurmEngine(plan, order, details);
  throw UsageError("--engine needs local[:JOBS], ssh:HOST[,HOST...] or slurm[:PARTITION], not '" +
                   order.engine + "'" + Suggestion(name, {"local", "ssh", "slurm"}));
}

int64_t TimeLimitOf(const Plan& plan, const std::vector<int64_t>& chunks) {
  constexpr int64_t least = 600, ofADrawing = 4, bytesInASecond = 250000;
  const int64_t ofOneThatHangs = 2 * ParseOptions(plan.WorkerArguments()).timeLimit.value_or(60);
  int64_t longest = 0;
  for (const int64_t number : chunks) {
    const PlannedChunk& chunk = plan.ChunkOf(number);
    longest = std::max(longest,
                       least + ofOneThatHangs + ofADrawing * chunk.drawings + chunk.bytes / bytesInASecond);
  }
  return longest;
}

std::string LogPath(const RunOrder& order, const std::string& name) {
  return Joined(LogsPath(order.folder), name);
}

std::string SubmissionName() {
  static int count = 0;
  char time[32];
  const std::time_t now = std::time(nullptr);
  std::strftime(time, sizeof time, "%Y%m%dT%H%M%S", std::localtime(&now));
  return time + ('-' + std::to_string(getpid())) + '-' + std::to_string(++count);
}

void WriteChunkList(const std::string& path, const std::vector<int64_t>& chunks) {
  std::string lines;
  for (const int64_t chunk : chunks) lines += std::to_string(chunk) + '\n';
  WriteWholeFile(path, {lines.begin(), lines.end()});
}

}  // namespace hexlume::batch
