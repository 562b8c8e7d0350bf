// What all rows need: drawings in a scratch folder, commands that convert them, and the fastest of several runs.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/speed/drawings.h"
#include "bench/speed/process.h"
#include "bench/speed/settings.h"

namespace hexlume::bench {

// A scratch folder in TMPDIR that is removed with all that is in it.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::filesystem::path path;
};

// A program and the file that it makes, which each run makes anew.
struct Work {
  Command command;
  std::string output;   // removed before a run
  std::string drawing;  // read before a run, so that it is in the system's cache; empty for none
};

struct Measured {
  double seconds = 0;      // of the fastest run, of the clock of the settings
  double wallSeconds = 0;  // of the fastest run
  int64_t peakBytes = 0;   // of the run that needed least memory
};

class Runner {
 public:
  explicit Runner(const Settings& settings) : settings(settings) {}

  // The path of a drawing, which is written unless it is there.
  std::string Drawing(const std::string& name, Draw draw, int64_t items);
  static void Remove(const std::string& drawing);

  Work Conversion(const std::string& drawing) const;
  Work BareReader(const std::string& drawing) const;

  // Runs all works alternately, so that a machine that is busy for a moment slows down all of them.
  std::vector<Measured> Measure(const std::vector<Work>& works, int runs) const;

  const Settings& settings;

 private:
  ScratchFolder scratch;
};

// The length of a work's file.
int64_t SizeOfOutput(const Work& work);

}  // namespace hexlume::bench
