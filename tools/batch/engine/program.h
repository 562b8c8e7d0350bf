// Other programs that this one starts.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace hexlume::batch {

struct ProgramOrder {
  std::vector<std::string> words;  // the program, searched as the shell does, and its arguments
  std::string log;  // a file to which its output and errors are added; empty: those of this process
};

// Throws EngineError if the program can't be started.
pid_t StartProgram(const ProgramOrder& order);

struct ProgramEnd {
  pid_t process;
  int exit;  // exit status, or 128 and the signal that has ended it
  bool isKilled;
};

// What has ended since the last call. Doesn't wait.
std::optional<ProgramEnd> NextEnd();

struct Printed {
  int exit;
  std::string output, errors;
};
// Runs a program to its end. Throws EngineError if there is no such program.
Printed OutputOf(const std::vector<std::string>& words);

// Sends SIGTERM, and SIGKILL to what is still there after some seconds.
void EndPrograms(const std::vector<pid_t>& processes);

}  // namespace hexlume::batch
