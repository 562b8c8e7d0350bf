// One call of a host: its drawing as the conversions open it, how far they are, and when they must end.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>

#include "driver/text_source.h"
#include "host/arguments.h"
#include "host/recent_format.h"
#include "platform/utf8_file.h"

namespace hexlume {

enum class RunEnd { none, cancelled, timeLimit, strokeLimit, byteLimit };

// The path by which the conversions ask for the host's drawing.
constexpr const char* drawingPath = "drawing";

// Each opening of the drawing begins a pass. There is one run at a time.
class HostRun {
 public:
  HostRun(const HostInput& input, const HostOptions& options, int32_t passes);
  ~HostRun();
  HostRun(const HostRun&) = delete;
  HostRun& operator=(const HostRun&) = delete;

  // The drawing's bytes, or -1 with trouble set if it can't be opened.
  int64_t Size();

  // Opens the drawing without beginning a pass.
  std::unique_ptr<TextSource> Open(FormatChanges& changes);
  // As it is, whatever the format.
  std::unique_ptr<TextSource> OpenRaw();

  // Opens the drawing for the next pass.
  std::unique_ptr<TextSource> BeginPass();
  // Reports the end of a pass; whole: whether it has come to the drawing's end.
  void EndPass(bool whole);

  // The passes until this one have a share of the time: the first of two conversions has half of it.
  void ShareTime(int32_t parts) { timeParts = parts; }
  // Begins another conversion: what ended the one before counts no more, unless it was the host.
  void Restart();

  bool Look();
  int64_t Milliseconds() const;

  FileTrouble trouble = FileTrouble::none;
  bool readFailed = false;
  RunEnd end = RunEnd::none;
  int32_t endPass = 0;  // in which the run ended
  int32_t pass = 0;
  FormatChanges changes;  // of this pass

 private:
  bool Report(int64_t done);
  void EndBy(RunEnd reason);

  const HostInput& input;
  const HostOptions& options;
  const int32_t passes;
  const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point reported = start;
  int32_t timeParts = 1;
  int64_t total = 0;
  int64_t done = 0;
};

// The line of the file, from 1, that has this position of the text. Opens the drawing again.
int64_t LineAt(HostRun& run, int64_t position);

// The line at which the text ends.
int64_t LastLine(HostRun& run);

}  // namespace hexlume
