#include "support/run_command.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>

namespace hexlume {

int RunCommand(const std::string& program, const std::string& arguments) {
  const std::string command = "'" + program + "' " + arguments;
  const int status = std::system(command.c_str());
  // As a shell reports a program that a signal has ended.
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

void GrowFile(const std::string& file, int64_t size) {
  std::filesystem::resize_file(file, static_cast<uintmax_t>(size));
}

std::string JapaneseName() {
  return "\u56F3\u9762\u8868";
}

std::string JapaneseMessage() {
  return "\u56F3\u9762\u8868";
}

}  // namespace hexlume
