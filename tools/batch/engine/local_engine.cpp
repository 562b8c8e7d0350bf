// Chunks in processes of this machine.
#include <signal.h>

#include <algorithm>
#include <deque>
#include <map>

#include "tools/batch/base/error.h"
#include "tools/batch/base/interrupt.h"
#include "tools/batch/engine/engine.h"
#include "tools/batch/engine/program.h"
#include "tools/hexlume/command/option_values.h"
#include "tools/hexlume/drawing/status.h"
#include "tools/hexlume/system/own_path.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {
namespace {

constexpr int32_t mostProcesses = 1000;
constexpr int mostStarts = 3;
constexpr int interval = 20;  // milliseconds

class LocalEngine : public Engine {
 public:
  LocalEngine(const RunOrder& given, int32_t wanted) : order(given), processes(wanted) {}

  void Run(const std::vector<int64_t>& chunks, const Tick& tick) override {
    waiting.assign(chunks.begin(), chunks.end());
    // Few chunks have several workers each.
    const auto atOnce = static_cast<int32_t>(std::min<size_t>(static_cast<size_t>(processes), chunks.size()));
    const int32_t workers = order.jobs > 0 ? order.jobs : (processes + atOnce - 1) / std::max(atOnce, 1);
    try {
      while (!waiting.empty() || !running.empty()) {
        CheckInterrupt();
        while (!waiting.empty() && static_cast<int32_t>(running.size()) < atOnce) Start(workers);
        Sleep(interval);
        while (const auto end = NextEnd()) Take(*end);
        tick();
      }
    } catch (...) {
      EndAll();
      throw;
    }
  }

 private:
  void Start(int32_t workers) {
    const int64_t chunk = waiting.front();
    waiting.pop_front();
    ProgramOrder program;
    program.words = {
        OwnPath(), "chunk",        order.folder, std::to_string(chunk), "--jobs", std::to_string(workers),
        "--quiet", "--with-parent"};
    ++starts[chunk];
    running[StartProgram(program)] = chunk;
  }

  void Take(const ProgramEnd& end) {
    const auto found = running.find(end.process);
    if (found == running.end()) return;
    const int64_t chunk = found->second;
    running.erase(found);
    if (end.isKilled && starts[chunk] < mostStarts) waiting.push_back(chunk);
    // The next chunks would fail in the same way.
    if (end.exit == StatusOf(notWrittenStatus).exit) waiting.clear();
  }

  void EndAll() {
    std::vector<pid_t> left;
    for (const auto& [process, chunk] : running) left.push_back(process);
    EndPrograms(left);
    running.clear();
  }

  const RunOrder& order;
  const int32_t processes;
  std::deque<int64_t> waiting;
  std::map<pid_t, int64_t> running;
  std::map<int64_t, int> starts;
};

}  // namespace

std::unique_ptr<Engine> MakeLocalEngine(const RunOrder& order, const std::string& details) {
  int32_t processes =
      details.empty() ? ProcessorCount() : ParseNumber("local:JOBS", details, 1, mostProcesses);
  if (order.limit > 0) processes = std::min(processes, order.limit);
  return std::make_unique<LocalEngine>(order, processes);
}

}  // namespace hexlume::batch
