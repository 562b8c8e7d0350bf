// Measures the library's speed and prints a table in Markdown: hexlume_speed --help says how.
#include <getopt.h>
#include <sys/utsname.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>

#include "bench/speed/bare_reader.h"
#include "bench/speed/rows.h"

namespace {

using namespace hexlume::bench;
using Names = std::vector<std::string>;

constexpr const char* usage = R"(usage: hexlume_speed [OPTION ...]

Converts drawings of its own with the tool beside it, each time in a new process, and prints how long that takes beside
programs that do the least that must be done. What is compared runs alternately, and the fastest of several runs counts.

  --rows NAMES   only these rows, with commas between them; "goals" and "growth" are all rows of a table
  --runs N       runs of each program (5), four times as many for the goals
  --quick        a tenth of the items
  --cpu          processor time in place of wall-clock time, for a machine that is busy with other work
  --drawings DIR writes the drawings of the goals' rows into this folder, for other programs, and ends
  --tool PATH    another tool, for example that of an earlier build
  --help         this

Drawings and metafiles, up to 2 GB, are made in a scratch folder in TMPDIR or /tmp, and removed.
)";

enum Option {
  rowsOption = 256,
  runsOption,
  quickOption,
  cpuOption,
  toolOption,
  drawingsOption,
  bareReaderOption,
  helpOption
};

constexpr option optionTable[] = {
    {"rows", required_argument, nullptr, rowsOption},
    {"runs", required_argument, nullptr, runsOption},
    {"quick", no_argument, nullptr, quickOption},
    {"cpu", no_argument, nullptr, cpuOption},
    {"tool", required_argument, nullptr, toolOption},
    {"drawings", required_argument, nullptr, drawingsOption},
    {"bare-reader", required_argument, nullptr, bareReaderOption},  // for the processes of this program
    {"help", no_argument, nullptr, helpOption},
    {},
};

[[noreturn]] void EndWithUsage(std::FILE* stream, int code) {
  std::fputs(usage, stream);
  std::string names;
  for (const Names& rows : {GoalRows(), GrowthRows()})
    for (const std::string& row : rows) names += ' ' + row;
  std::fprintf(stream, "\nrows:%s\n", names.c_str());
  std::exit(code);
}

bool Contains(const Names& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

Names SplitAtCommas(const std::string& text) {
  Names names;
  std::istringstream words(text);
  for (std::string word; std::getline(words, word, ',');) names.push_back(word);
  return names;
}

// The program is in build/PRESET/bin of the project.
Settings ReadSettings(int argc, char** argv) {
  Settings settings;
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  settings.program = program;
  settings.tool = program.parent_path() / "hexlume";
  settings.root = program.parent_path().parent_path().parent_path().parent_path();
  for (int option; (option = getopt_long(argc, argv, "", optionTable, nullptr)) != -1;) {
    switch (option) {
      case rowsOption: settings.rows = SplitAtCommas(optarg); break;
      case runsOption: settings.runs = std::max(std::atoi(optarg), 1); break;
      case quickOption: settings.divisor = 10; break;
      case cpuOption: settings.processorTime = true; break;
      case toolOption: settings.tool = std::filesystem::absolute(optarg); break;
      case drawingsOption: settings.drawings = optarg; break;
      case bareReaderOption: std::exit(ReadBarely(optarg) < 0 ? 1 : 0);
      case helpOption: EndWithUsage(stdout, 0);
      default: EndWithUsage(stderr, 64);
    }
  }
  if (optind < argc) EndWithUsage(stderr, 64);
  return settings;
}

// Those of a table that were asked for.
Names Chosen(const Settings& settings, const char* table, const Names& rows) {
  if (settings.rows.empty() || Contains(settings.rows, table)) return rows;
  Names chosen;
  for (const std::string& row : rows)
    if (Contains(settings.rows, row)) chosen.push_back(row);
  return chosen;
}

void CheckRows(const Settings& settings) {
  for (const std::string& row : settings.rows)
    if (row != "goals" && row != "growth" && !Contains(GoalRows(), row) && !Contains(GrowthRows(), row))
      throw std::runtime_error("there is no row " + row + "; see --help");
}

std::string ProcessorName() {
  std::ifstream info("/proc/cpuinfo");
  for (std::string line; std::getline(info, line);)
    if (line.rfind("model name", 0) == 0 && line.find(": ") != std::string::npos)
      return line.substr(line.find(": ") + 2);
  utsname system;
  return uname(&system) == 0 ? system.machine : "unknown";
}

void PrintConditions(const Settings& settings) {
  char date[16];
  const std::time_t now = std::time(nullptr);
  std::strftime(date, sizeof date, "%Y-%m-%d", std::gmtime(&now));
  std::printf("%s, %u processors, %s. %s time of the fastest of %d runs, in the second table of %d%s.\n",
              date, std::thread::hardware_concurrency(), ProcessorName().c_str(),
              settings.processorTime ? "Processor" : "Wall-clock", GoalRuns(settings), settings.runs,
              settings.divisor > 1 ? ", of drawings with a tenth of the items" : "");
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const Settings settings = ReadSettings(argc, argv);
    CheckRows(settings);
    if (!settings.drawings.empty()) {
      WriteDrawings(settings);
      return 0;
    }
    // An interrupt also ends the program that is measured, which ends this one in order, without its scratch folder.
    for (const int interrupt : {SIGINT, SIGTERM}) std::signal(interrupt, [](int) {});
    PrintConditions(settings);
    Runner runner(settings);
    MeasureGoals(runner, Chosen(settings, "goals", GoalRows()));
    MeasureGrowth(runner, Chosen(settings, "growth", GrowthRows()));
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "hexlume_speed: %s\n", error.what());
    return 1;
  }
}
