// Chunks on machines that are reached by ssh, started by GNU parallel.
#include <algorithm>
#include <cctype>

#include "tools/batch/base/error.h"
#include "tools/batch/base/interrupt.h"
#include "tools/batch/base/text.h"
#include "tools/batch/engine/engine.h"
#include "tools/batch/engine/program.h"
#include "tools/batch/plan/folder.h"

namespace hexlume::batch {
namespace {

constexpr int interval = 250;  // milliseconds
constexpr int64_t grace = 60;  // seconds
constexpr int failure = 255;   // of GNU parallel itself; less is the number of chunks that have failed

// GNU parallel would ask each machine for the number of its processors, with a program that is seldom there.
std::string WithCount(const std::string& host) {
  size_t digits = 0;
  while (digits < host.size() && std::isdigit(static_cast<unsigned char>(host[digits]))) ++digits;
  return digits > 0 && digits < host.size() && host[digits] == '/' ? host : "1/" + host;
}

std::vector<std::string> HostsIn(const std::string& details) {
  std::vector<std::string> hosts;
  size_t start = 0;
  while (start <= details.size()) {
    const size_t end = std::min(details.find(',', start), details.size());
    if (end > start) hosts.push_back(WithCount(details.substr(start, end - start)));
    start = end + 1;
  }
  if (hosts.empty()) throw UsageError("--engine ssh needs hosts: ssh:HOST[,HOST...]");
  return hosts;
}

class SshEngine : public Engine {
 public:
  SshEngine(const Plan& read, const RunOrder& given, const std::string& details)
      : plan(read), order(given), hosts(HostsIn(details)) {
    // GNU parallel replaces what is in braces.
    if ((order.folder + order.program).find('{') != std::string::npos)
      throw UsageError("--engine ssh can't be used with a path that has braces: " + order.folder);
  }

  void Run(const std::vector<int64_t>& chunks, const Tick& tick) override {
    const std::string name = "ssh-" + SubmissionName();
    const std::string list = LogPath(order, name + ".list");
    WriteChunkList(list, chunks);
    ProgramOrder program;
    program.log = LogPath(order, name + ".log");
    program.words = Command(list, LogPath(order, name + ".joblog"), TimeLimitOf(plan, chunks));
    Watch(Start(program), program.log, tick);
  }

 private:
  std::vector<std::string> Command(const std::string& list, const std::string& joblog,
                                   int64_t timeLimit) const {
    std::vector<std::string> words = {"parallel",    "--plain",
                                      "--will-cite", "--joblog",
                                      joblog,        "--resume-failed",
                                      "--retries",   "3",
                                      "--timeout",   std::to_string(timeLimit + grace),
                                      "-a",          list};
    for (const std::string& host : hosts) words.insert(words.end(), {"--sshlogin", host});
    if (order.limit > 0) words.insert(words.end(), {"--jobs", std::to_string(order.limit)});
    words.insert(words.end(), order.engineOptions.begin(), order.engineOptions.end());
    std::string command = Quoted(order.program) + " chunk " + Quoted(order.folder) + " {}";
    if (order.jobs > 0) command += " --jobs " + std::to_string(order.jobs);
    words.push_back(command);
    return words;
  }

  static pid_t Start(const ProgramOrder& program) {
    try {
      return StartProgram(program);
    } catch (const EngineError& error) {
      throw EngineError(std::string(error.what()) +
                        "; is GNU parallel installed? (apt-get install parallel)");
    }
  }

  void Watch(pid_t process, const std::string& log, const Tick& tick) const {
    try {
      for (;;) {
        CheckInterrupt();
        if (const auto end = NextEnd()) {
          if (end->exit == failure) throw EngineError("GNU parallel has failed; see " + log);
          return;
        }
        Sleep(interval);
        tick();
      }
    } catch (const Interrupted&) {
      EndPrograms({process});
      throw;
    }
  }

  const Plan& plan;
  const RunOrder& order;
  const std::vector<std::string> hosts;
};

}  // namespace

std::unique_ptr<Engine> MakeSshEngine(const Plan& plan, const RunOrder& order, const std::string& details) {
  return std::make_unique<SshEngine>(plan, order, details);
}

}  // namespace hexlume::batch
