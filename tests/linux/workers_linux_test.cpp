// Worker processes that end in the middle of a drawing, and the progress on a terminal.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>

#include "host/host_drawings.h"
#include "support/endless_drawing.h"
#include "support/tool_run.h"

namespace hexlume::workers_linux_test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// The tool in a process that a test can end. Its standard error is the descriptor, if one is given.
pid_t Start(const std::vector<std::string>& arguments, int standardError = -1) {
  const std::string tool = ProgramFolder().string() + "/hexlume";
  std::vector<const char*> words = {tool.c_str()};
  for (const std::string& argument : arguments) words.push_back(argument.c_str());
  words.push_back(nullptr);
  const pid_t process = fork();
  if (process == 0) {
    if (standardError >= 0) dup2(standardError, STDERR_FILENO);
    execv(tool.c_str(), const_cast<char* const*>(words.data()));
    _exit(127);
  }
  return process;
}

int StatusAtEnd(pid_t process) {
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// The only worker; 0 if there is none.
pid_t WorkerOf(pid_t process) {
  const std::string number = std::to_string(process);
  std::ifstream children("/proc/" + number + "/task/" + number + "/children");
  pid_t worker = 0;
  children >> worker;
  return worker;
}

// Gone, or ended and not yet waited for.
bool HasEnded(pid_t process) {
  const std::string stat = Contents("/proc/" + std::to_string(process) + "/stat");
  return stat.empty() || Contains(stat, ") Z ");
}

bool Waits(const std::function<bool()>& condition) {
  for (int i = 0; i < 2000 && !condition(); ++i) std::this_thread::sleep_for(5ms);
  return condition();
}

class Workers : public ToolRun {
 protected:
  void SetUp() override {
    ToolRun::SetUp();
    fs::create_directory("in");
    fs::create_directory("out");
    Write("in/a.dxf", A3(Lines(1)));
    Write("in/b.dxf", EndlessDrawing());
    Write("in/c.dxf", A3(Lines(3)));
    Write("in/d.dxf", A3(Lines(4)));
  }

  // With a worker that converts the second drawing.
  static pid_t StartAtEndless() {
    const pid_t process = Start({"-d", "out", "--jobs", "1", "--memory-limit", "20G", "--recursive", "in",
                                 "--report", "report.json", "--quiet"});
    EXPECT_TRUE(Waits([] { return Exists("out/a.emf") && !Contents("report.json").empty(); }));
    std::this_thread::sleep_for(100ms);
    return process;
  }
};

TEST_F(Workers, one_that_crashes_costs_one_drawing) {
  const pid_t process = StartAtEndless();
  kill(WorkerOf(process), SIGSEGV);
  EXPECT_EQ(48, StatusAtEnd(process));
  std::map<std::string, std::string> statuses;
  std::ifstream report("report.json");
  size_t lines = 0;
  for (std::string line; std::getline(report, line); ++lines) {
    const auto json = nlohmann::json::parse(line);
    statuses[json["path"]] = json["status"];
  }
  EXPECT_EQ(4u, lines);
  const std::map<std::string, std::string> expected = {
      {"in/a.dxf", "ok"}, {"in/b.dxf", "crashed"}, {"in/c.dxf", "ok"}, {"in/d.dxf", "ok"}};
  EXPECT_EQ(expected, statuses);
  for (const char* name : {"a", "c", "d"}) EXPECT_TRUE(Exists(std::string("out/") + name + ".emf")) << name;
  EXPECT_FALSE(Exists("out/b.emf"));
}

TEST_F(Workers, they_end_with_the_tool) {
  const pid_t process = StartAtEndless();
  const pid_t worker = WorkerOf(process);
  EXPECT_FALSE(HasEnded(worker));
  kill(process, SIGKILL);
  EXPECT_EQ(-1, StatusAtEnd(process));
  EXPECT_TRUE(Waits([worker] { return HasEnded(worker); }));
}

// What the tool writes to a terminal.
std::string OnTerminal(const std::vector<std::string>& arguments) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  EXPECT_EQ(0, grantpt(terminal));
  EXPECT_EQ(0, unlockpt(terminal));
  const int tool = open(ptsname(terminal), O_RDWR | O_NOCTTY);
  const pid_t process = Start(arguments, tool);
  close(tool);
  std::string text;
  char part[4096];
  for (ssize_t got = 0; (got = read(terminal, part, sizeof part)) > 0;)
    text.append(part, static_cast<size_t>(got));
  close(terminal);
  EXPECT_EQ(0, StatusAtEnd(process));
  return text;
}

TEST_F(Workers, progress_is_shown_on_a_terminal) {
  fs::remove("in/b.dxf");
  const std::string shown = OnTerminal({"-d", "out", "--jobs", "2", "--recursive", "in"});
  EXPECT_TRUE(Contains(shown, "\r3/3 done, ")) << shown;
  EXPECT_TRUE(Contains(shown, "/s")) << shown;
  EXPECT_EQ("", OnTerminal({"-d", "out", "--jobs", "2", "--quiet", "--recursive", "in"}));
  // A single drawing has none.
  EXPECT_EQ("", OnTerminal({"in/a.dxf"}));
}

}  // namespace
}  // namespace hexlume::workers_linux_test
