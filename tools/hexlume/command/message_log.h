// What the tool writes for the user on standard error: messages, and on a terminal the progress of many drawings.
#pragma once

#include <chrono>
#include <string>

namespace hexlume {

struct Progress {
  size_t total = 0, done = 0, failed = 0, unchanged = 0;
};

class MessageLog {
 public:
  explicit MessageLog(bool isQuiet) : quiet(isQuiet) {}
  ~MessageLog() { ClearProgress(); }
  MessageLog(const MessageLog&) = delete;
  MessageLog& operator=(const MessageLog&) = delete;

  void Failure(const std::string& words);
  void Warning(const std::string& words);

  // Shows the progress, at most some times a second.
  void Show(const Progress& progress);

 private:
  using Clock = std::chrono::steady_clock;

  void Print(const std::string& words);
  void ClearProgress();

  bool quiet;
  size_t shownLength = 0;
  Clock::time_point start = Clock::now();
  Clock::time_point shownAt;
};

// The line without what clears an earlier one: drawings done, failed and passed over, the rate and the time that is left.
std::string ProgressLine(const Progress& progress, double seconds);

}  // namespace hexlume
