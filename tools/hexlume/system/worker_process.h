// A worker as the process sees it that has started it.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/hexlume/command/options.h"

namespace hexlume {

struct WorkerError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class WorkerProcess {
 public:
  // Throws WorkerError if no process can be started. memoryLimit is in bytes.
  static std::unique_ptr<WorkerProcess> Start(int64_t memoryLimit);

  // Ends the process.
  virtual ~WorkerProcess() = default;

  // The worker reads at once, so this doesn't wait for long. What a worker that has ended is sent is lost.
  virtual void Send(const std::string& bytes) = 0;

  // What has come since the last call, without waiting.
  virtual std::string Receive() = 0;

  // Whether the process has ended and all that it sent is received.
  virtual bool HasEnded() const = 0;

  // In bytes; 0 if the system doesn't say.
  virtual int64_t MemoryInUse() const = 0;
};

// Waits until one of the workers has sent something or has ended, at most so long.
void WaitForWorkers(const std::vector<WorkerProcess*>& workers, int milliseconds);

int64_t MemoryLimitOf(const Options& options);

// Called by the worker itself. It ends with the other process, asks nobody when it crashes, and fails to get the memory that the
// other process would notice too late: the limit itself is kept by that one.
void PrepareWorker(int64_t memoryLimit);

}  // namespace hexlume
