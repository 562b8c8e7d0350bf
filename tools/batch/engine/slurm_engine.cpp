// Chunks as the tasks of array jobs of Slurm.
#include <algorithm>
#include <ctime>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>

#include "tools/batch/base/error.h"
#include "tools/batch/base/interrupt.h"
#include "tools/batch/base/text.h"
#include "tools/batch/engine/engine.h"
#include "tools/batch/engine/program.h"
#include "tools/batch/plan/folder.h"
#include "tools/hexlume/system/sha256.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {
namespace {

constexpr int interval = 250;  // milliseconds

// In the names of log files Slurm replaces %A and others.
std::string LogPattern(const std::string& path) {
  std::string pattern;
  for (const char letter : path) pattern += letter == '%' ? std::string("%%") : std::string(1, letter);
  return pattern;
}

std::string FirstLine(const std::string& text) {
  return text.substr(0, std::min(text.find('\n'), text.size()));
}

std::vector<int64_t> ReadChunkList(const std::string& path) {
  std::ifstream stream(path);
  std::vector<int64_t> chunks;
  for (int64_t chunk = 0; stream >> chunk;) chunks.push_back(chunk);
  return chunks;
}

class SlurmEngine : public Engine {
 public:
  SlurmEngine(const Plan& read, const RunOrder& given, const std::string& details)
      : plan(read), order(given), partition(details), family("hexlume-" + NumberOf(given.folder) + '-') {}

  void Run(const std::vector<int64_t>& chunks, const Tick& tick) override {
    const auto queued = QueuedChunks();
    if (!queued) throw EngineError("squeue fails: " + trouble);
    std::vector<int64_t> wanted;
    for (const int64_t chunk : chunks)
      if (queued->count(chunk) == 0) wanted.push_back(chunk);
    Submit(wanted, tick);
    if (order.waits) Wait(tick);
  }

 private:
  static std::string NumberOf(const std::string& folder) {
    constexpr size_t length = 8;
    return Sha256(folder).substr(0, length);
  }

  // Array jobs have at most so many tasks as the cluster allows.
  void Submit(const std::vector<int64_t>& chunks, const Tick& tick) {
    const size_t most = MostTasks();
    for (size_t start = 0; start < chunks.size(); start += most) {
      const size_t end = std::min(start + most, chunks.size());
      const std::vector<int64_t> part(chunks.begin() + static_cast<ptrdiff_t>(start),
                                      chunks.begin() + static_cast<ptrdiff_t>(end));
      // A cluster takes a number of jobs only. The next ones wait for those before.
      while (!SubmitArray(part)) {
        if (start == 0 || !order.waits) throw EngineError("sbatch fails: " + trouble);
        WaitForSome(tick);
      }
    }
  }

  size_t MostTasks() {
    const Printed config = Ask({"scontrol", "show", "config"});
    constexpr size_t usual = 1001;
    size_t most = usual;
    const size_t at = config.output.find("MaxArraySize");
    if (at != std::string::npos)
      most = std::strtoul(config.output.c_str() +
                              std::min(config.output.find_first_of("0123456789", at), config.output.size()),
                          nullptr, 10);
    return std::max<size_t>(most, 2) - 1;
  }

  bool SubmitArray(const std::vector<int64_t>& chunks) {
    const std::string name = family + SubmissionName();
    const std::string list = LogPath(order, name + ".list");
    WriteChunkList(list, chunks);
    const Printed answer = Ask(Command(name, list, chunks));
    trouble = FirstLine(answer.errors);
    if (answer.exit == 0 && !order.isQuiet)
      std::cerr << "hexlume-batch: submitted " << chunks.size() << " chunks as job "
                << FirstLine(answer.output) << '\n';
    return answer.exit == 0;
  }

  std::vector<std::string> Command(const std::string& name, const std::string& list,
                                   const std::vector<int64_t>& chunks) const {
    constexpr int64_t secondsInAMinute = 60;
    const std::string workers = std::to_string(std::max(order.jobs, 1));
    const std::string limit = order.limit > 0 ? '%' + std::to_string(order.limit) : "";
    const int64_t minutes = (TimeLimitOf(plan, chunks) + secondsInAMinute - 1) / secondsInAMinute;
    std::vector<std::string> words = {"sbatch",
                                      "--parsable",
                                      "--requeue",
                                      "--open-mode=append",
                                      "--job-name=" + name,
                                      "--chdir=" + order.folder,
                                      "--array=1-" + std::to_string(chunks.size()) + limit,
                                      "--time=" + std::to_string(minutes),
                                      "--cpus-per-task=" + workers,
                                      "--output=" + LogPattern(LogPath(order, "slurm-")) + "%A_%a.log"};
    if (!partition.empty()) words.push_back("--partition=" + partition);
    words.insert(words.end(), order.engineOptions.begin(), order.engineOptions.end());
    words.push_back("--wrap=exec " + Quoted(order.program) + " chunk " + Quoted(order.folder) +
                    " \"$(sed -n \"${SLURM_ARRAY_TASK_ID}p\" " + Quoted(list) + ")\" --jobs " + workers);
    return words;
  }

  static Printed Ask(const std::vector<std::string>& words) {
    try {
      return OutputOf(words);
    } catch (const EngineError& error) {
      throw EngineError(std::string(error.what()) + "; is Slurm installed? (apt-get install slurm-client)");
    }
  }

  // The chunks that wait in the queue or are being converted. None if the controller doesn't answer.
  std::optional<std::set<int64_t>> QueuedChunks() {
    const Printed answer = Ask({"squeue", "--noheader", "--array", "--me", "--format=%K|%j|%r"});
    trouble = FirstLine(answer.errors);
    if (answer.exit != 0) return std::nullopt;
    std::set<int64_t> chunks;
    std::istringstream tasks(answer.output);
    for (std::string line; std::getline(tasks, line);) TakeTask(line, chunks);
    queuedCount = chunks.size();
    return chunks;
  }

  // The chunks of an array job.
  const std::vector<int64_t>& ListOf(const std::string& name) {
    const auto [found, isNew] = lists.try_emplace(name);
    if (isNew) found->second = ReadChunkList(LogPath(order, name + ".list"));
    return found->second;
  }

  void TakeTask(const std::string& line, std::set<int64_t>& chunks) {
    const size_t first = line.find('|'), second = line.find('|', first + 1);
    if (second == std::string::npos || line.compare(first + 1, family.size(), family) != 0) return;
    // A task that is held doesn't go on by itself.
    const std::string reason = line.substr(second + 1);
    if (reason.find("held") != std::string::npos || reason.find("Held") != std::string::npos) return;
    const std::vector<int64_t>& list = ListOf(line.substr(first + 1, second - first - 1));
    const size_t task = std::strtoul(line.c_str(), nullptr, 10);
    if (task >= 1 && task <= list.size()) chunks.insert(list[task - 1]);
  }

  // Until no chunk is in the queue, or no drawing is left. While the controller doesn't answer, it goes on.
  void Wait(const Tick& tick) {
    for (;;) {
      if (Pause(tick)) return;
      const auto queued = QueuedChunks();
      NoteSilence(!queued);
      if (queued && queued->empty()) return;
    }
  }

  void WaitForSome(const Tick& tick) {
    const auto before = QueuedChunks();
    for (;;) {
      Pause(tick);
      const auto now = QueuedChunks();
      if (now && (!before || now->size() < before->size())) return;
    }
  }

  bool Pause(const Tick& tick) {
    // A long queue is much work for the controller.
    constexpr size_t least = 2, most = 60, tasksInASecond = 500;
    const size_t seconds = std::min(least + queuedCount / tasksInASecond, most);
    const std::time_t end = std::time(nullptr) + static_cast<std::time_t>(seconds);
    while (std::time(nullptr) < end) {
      CheckInterrupt();
      Sleep(interval);
      if (tick()) return true;
    }
    return false;
  }

  void NoteSilence(bool isNow) {
    if (isNow && !isSilent) std::cerr << "hexlume-batch: Slurm doesn't answer: " << trouble << "; waiting\n";
    isSilent = isNow;
  }

  const Plan& plan;
  const RunOrder& order;
  const std::string partition;
  const std::string family;  // what the names of all array jobs of this batch begin with
  std::map<std::string, std::vector<int64_t>> lists;
  std::string trouble;     // of the last call
  size_t queuedCount = 0;  // at the last call
  bool isSilent = false;
};

}  // namespace

std::unique_ptr<Engine> MakeSlurmEngine(const Plan& plan, const RunOrder& order, const std::string& details) {
  return std::make_unique<SlurmEngine>(plan, order, details);
}

}  // namespace hexlume::batch
