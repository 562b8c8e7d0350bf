// The engines that start chunks. None of them converts anything itself.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tools/batch/plan/plan.h"

namespace hexlume::batch {

struct RunOrder {
  std::string folder;                      // from the root
  std::string engine;                      // as the user gave it: NAME[:DETAILS]
  std::string program;                     // hexlume-batch on the machines
  int32_t jobs = 0;                        // worker processes for one chunk; 0: the engine's choice
  int32_t limit = 0;                       // chunks at the same time; 0: as many as the engine allows
  std::vector<std::string> engineOptions;  // for the program of the engine
  bool waits = true;
  bool isQuiet = false;
};

class Engine {
 public:
  // Returns whether all drawings have results.
  using Tick = std::function<bool()>;

  virtual ~Engine() = default;

  // Lets each of the chunks be converted. Returns once all have ended, well or badly: the results say it. If the order doesn't
  // wait, returns once they are submitted. Calls tick some times a second. Throws EngineError and Interrupted.
  virtual void Run(const std::vector<int64_t>& chunks, const Tick& tick) = 0;
};

// Throws UsageError if there is no such engine.
std::unique_ptr<Engine> MakeEngine(const Plan& plan, const RunOrder& order);

std::unique_ptr<Engine> MakeLocalEngine(const RunOrder& order, const std::string& details);
std::unique_ptr<Engine> MakeSshEngine(const Plan& plan, const RunOrder& order, const std::string& details);
std::unique_ptr<Engine> MakeSlurmEngine(const Plan& plan, const RunOrder& order, const std::string& details);

// An upper limit for one of the chunks in seconds, far above what it takes: an engine ends one that hangs.
int64_t TimeLimitOf(const Plan& plan, const std::vector<int64_t>& chunks);

// A file in the logs.
std::string LogPath(const RunOrder& order, const std::string& name);

// The name of one submission: no other one has it.
std::string SubmissionName();

// Writes the numbers of the chunks, one in each line. Throws OutputError.
void WriteChunkList(const std::string& path, const std::vector<int64_t>& chunks);

}  // namespace hexlume::batch
