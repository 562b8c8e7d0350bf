#include "bench/speed/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <thread>

extern char** environ;

namespace hexlume::bench {

namespace {

[[noreturn]] void Fail(const Command& command, const std::string& words) {
  std::string line;
  for (const std::string& argument : command) line += argument + ' ';
  throw std::runtime_error(line + words);
}

pid_t Start(const Command& command) {
  std::vector<char*> arguments;
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  pid_t process = 0;
  const int error = posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) Fail(command, std::strerror(error));
  return process;
}

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

void CheckSuccess(const Command& command, int status) {
  if (WIFSIGNALED(status)) Fail(command, "was ended by signal " + std::to_string(WTERMSIG(status)));
  if (WEXITSTATUS(status) != 0) Fail(command, "ended with code " + std::to_string(WEXITSTATUS(status)));
}

// 0 if the process has ended.
int64_t OwnMemory(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  std::string word;
  int64_t kilobytes = 0;
  while (status >> word)
    if (word == "RssAnon:") status >> kilobytes;
  return kilobytes * 1024;
}

}  // namespace

Usage RunProcess(const Command& command) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t process = Start(command);
  int status = 0;
  rusage used = {};
  while (wait4(process, &status, 0, &used) < 0)
    if (errno != EINTR) Fail(command, std::strerror(errno));
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
  CheckSuccess(command, status);
  return {wall.count(), Seconds(used.ru_utime) + Seconds(used.ru_stime), used.ru_maxrss * int64_t{1024}};
}

int64_t PeakOfOwnMemory(const Command& command) {
  const pid_t process = Start(command);
  int64_t peak = 0;
  int status = 0;
  while (waitpid(process, &status, WNOHANG) == 0) {
    peak = std::max(peak, OwnMemory(process));
    std::this_thread::sleep_for(std::chrono::microseconds(500));
  }
  CheckSuccess(command, status);
  return peak;
}

}  // namespace hexlume::bench
