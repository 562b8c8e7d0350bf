#include "tools/batch/engine/program.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "tools/batch/base/error.h"
#include "tools/batch/base/interrupt.h"

namespace hexlume::batch {
namespace {

constexpr int interval = 50;  // milliseconds

struct Actions {
  Actions() { posix_spawn_file_actions_init(&files); }
  ~Actions() { posix_spawn_file_actions_destroy(&files); }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;

  posix_spawn_file_actions_t files;
};

std::vector<char*> PointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::string Contents(std::FILE* stream) {
  std::string text;
  char piece[4096];
  std::rewind(stream);
  while (const size_t got = std::fread(piece, 1, sizeof piece, stream)) text.append(piece, got);
  return text;
}

pid_t Spawn(const ProgramOrder& order, const Actions& actions) {
  std::vector<std::string> words = order.words;
  pid_t process = 0;
  const int error =
      posix_spawnp(&process, words[0].c_str(), &actions.files, nullptr, PointersTo(words).data(), environ);
  if (error != 0) throw EngineError(order.words[0] + " can't be started: " + std::strerror(error));
  return process;
}

ProgramEnd EndOf(pid_t process, int state) {
  constexpr int signalBase = 128;
  if (WIFSIGNALED(state)) return {process, signalBase + WTERMSIG(state), true};
  return {process, WEXITSTATUS(state), false};
}

bool HasEnded(pid_t process, int& state) {
  return waitpid(process, &state, WNOHANG) == process;
}

}  // namespace

pid_t StartProgram(const ProgramOrder& order) {
  constexpr mode_t allowed = 0666;
  Actions actions;
  posix_spawn_file_actions_addopen(&actions.files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  if (!order.log.empty()) {
    posix_spawn_file_actions_addopen(&actions.files, STDOUT_FILENO, order.log.c_str(),
                                     O_WRONLY | O_CREAT | O_APPEND, allowed);
    posix_spawn_file_actions_adddup2(&actions.files, STDOUT_FILENO, STDERR_FILENO);
  }
  return Spawn(order, actions);
}

std::optional<ProgramEnd> NextEnd() {
  int state = 0;
  const pid_t process = waitpid(-1, &state, WNOHANG);
  if (process <= 0) return std::nullopt;
  return EndOf(process, state);
}

Printed OutputOf(const std::vector<std::string>& words) {
  const auto closed = [](std::FILE* file) { std::fclose(file); };
  const std::unique_ptr<std::FILE, decltype(closed)> output(std::tmpfile(), closed),
      errors(std::tmpfile(), closed);
  if (!output || !errors) throw EngineError(words[0] + " can't be started: " + std::strerror(errno));
  Actions actions;
  posix_spawn_file_actions_addopen(&actions.files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions.files, fileno(output.get()), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions.files, fileno(errors.get()), STDERR_FILENO);
  const pid_t process = Spawn({words, ""}, actions);
  int state = 0;
  while (!HasEnded(process, state)) Sleep(interval);
  return {EndOf(process, state).exit, Contents(output.get()), Contents(errors.get())};
}

void EndPrograms(const std::vector<pid_t>& processes) {
  constexpr int patience = 10000;  // milliseconds
  std::vector<pid_t> left = processes;
  int state = 0;
  const auto hasEnded = [&state](pid_t process) { return HasEnded(process, state); };
  for (const pid_t process : left) kill(process, SIGTERM);
  for (int waited = 0; waited < patience && !left.empty(); waited += interval) {
    left.erase(std::remove_if(left.begin(), left.end(), hasEnded), left.end());
    if (!left.empty()) Sleep(interval);
  }
  for (const pid_t process : left) {
    kill(process, SIGKILL);
    waitpid(process, &state, 0);
  }
}

}  // namespace hexlume::batch
