#include "tools/batch/command/command_line.h"

#include <algorithm>

// It would part the names of drawings at every comma.
#define CXXOPTS_VECTOR_DELIMITER '\0'
#include <cxxopts.hpp>

#include "tools/batch/base/error.h"
#include "tools/hexlume/command/option_table.h"
#include "tools/hexlume/command/option_values.h"
#include "tools/hexlume/drawing/status.h"

namespace hexlume::batch {
namespace {

// Of hexlume. Those that a plan has not are about files, dialogs and processes.
constexpr const char* conversionNames[] = {
    "format", "dpi",  "size",       "svg-text", "view",       "whole-text",     "full-size",  "fit",
    "rotate", "mono", "half-width", "scale",    "hide-layer", "hide-line-type", "time-limit", "memory-limit"};
constexpr const char* operandsName = "operands";

std::vector<OptionRow> ConversionRows() {
  std::vector<OptionRow> rows;
  for (const OptionRow& row : OptionTable())
    for (const char* const name : conversionNames)
      if (std::string(name) == row.name) rows.push_back(row);
  return rows;
}

void Declare(cxxopts::OptionAdder& add, const std::string& name, bool hasArgument) {
  if (hasArgument)
    add(name, "", cxxopts::value<std::vector<std::string>>());
  else
    add(name, "");
}

cxxopts::ParseResult Parse(const CommandForm& form, const std::vector<std::string>& arguments) {
  cxxopts::Options options("hexlume-batch");
  auto add = options.add_options();
  for (const CommandOption& option : form.options) Declare(add, option.name, option.argument != nullptr);
  if (form.takesConversion)
    for (const OptionRow& row : ConversionRows()) Declare(add, row.name, row.argument != nullptr);
  Declare(add, operandsName, true);
  options.parse_positional(operandsName);
  std::vector<const char*> words = {"hexlume-batch"};
  for (const std::string& argument : arguments) words.push_back(argument.c_str());
  try {
    return options.parse(static_cast<int>(words.size()), words.data());
  } catch (const cxxopts::exceptions::exception& trouble) {
    throw UsageError(std::string(form.name) + ": " + trouble.what());
  }
}

std::vector<std::string> TextsOf(const cxxopts::ParseResult& parsed, const std::string& option) {
  if (parsed.count(option) == 0) return {};
  return parsed[option].as<std::vector<std::string>>();
}

std::string Padded(const std::string& text) {
  constexpr size_t width = 30;
  return text + std::string(text.size() < width ? width - text.size() : 1, ' ');
}

}  // namespace

const std::vector<CommandForm>& Commands() {
  static const std::vector<CommandForm> commands = {
      {"plan",
       "ARCHIVE...",
       "List the drawings of folders, in chunks",
       {{"out", "DIR", "Folder of the batch, on storage that all machines see", true},
        {"to", "KINDS", "Results, with commas: emf, png, png:256, svg, pdf (default emf)", true},
        {"chunk", "N", "Drawings in a chunk (default 500)", true},
        {"contents", nullptr, "Keep what is in each drawing: its texts, layers, entities", true},
        {"no-hash", nullptr, "Know drawings by their size and time, not by their SHA-256", true},
        {"files-from", "LIST", "Read the names of drawings from a file, - for standard input", true},
        {"null", nullptr, "With --files-from: names end with a byte 0", true},
        {"jobs", "N", "Drawings that are read at the same time (default: the processors)", true}},
       true},
      {"run",
       "DIR [-- OPTIONS OF sbatch OR parallel]",
       "Convert what has no result yet",
       {{"engine", "ENGINE", "local[:JOBS], ssh:HOST[,HOST...] or slurm[:PARTITION]", true},
        {"wait", nullptr, "With slurm: wait for the end", true},
        {"jobs", "N", "Worker processes for a chunk", true},
        {"limit", "N", "Chunks at the same time: with ssh on each machine, otherwise in all", true},
        {"program", "PATH", "hexlume-batch on the machines (default: the path of this one)", true},
        {"quiet", nullptr, "Show failures only", true}},
       false},
      {"status",
       "DIR",
       "Show how far it is",
       {{"watch", nullptr, "Show it again every two seconds until all is done", true},
        {"json", nullptr, "Print a JSON object", true}},
       false},
      {"report",
       "DIR",
       "Print what became of each drawing",
       {{"failed", nullptr, "Only drawings that have failed", true},
        {"format", "FORMAT", "csv or jsonl (default csv)", true},
        {"open", nullptr, "Write DIR/report.html, and show it where there is a screen", true}},
       false},
      {"retry",
       "DIR",
       "Take results back, so that run converts the drawings again",
       {{"failed", nullptr, "Those of drawings that have failed or changed", true},
        {"all", nullptr, "Those of all drawings", true},
        {"time-limit", "SECONDS", "From now on give a drawing up after this time", true},
        {"memory-limit", "SIZE", "From now on give a drawing up beyond this memory", true}},
       false},
      {"chunk",
       "DIR N",
       "Convert one chunk on this machine; engines start this",
       {{"jobs", "N", "Worker processes (default: the processors)", true},
        {"quiet", nullptr, "Show failures only", true},
        {"with-parent", nullptr, "", false}},
       false},
  };
  return commands;
}

CommandLine::CommandLine(const CommandForm& form, const std::vector<std::string>& arguments) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  const cxxopts::ParseResult parsed = Parse(form, {arguments.begin(), end});
  if (end != arguments.end()) rest.assign(end + 1, arguments.end());
  operands = TextsOf(parsed, operandsName);
  for (const CommandOption& option : form.options) {
    if (parsed.count(option.name) > 1)
      throw UsageError(std::string("--") + option.name + " can be given once only");
    if (parsed.count(option.name) == 1)
      values[option.name] = option.argument ? TextsOf(parsed, option.name)[0] : "";
  }
  if (!form.takesConversion) return;
  for (const OptionRow& row : ConversionRows()) {
    const std::string name = std::string("--") + row.name;
    for (const std::string& value : row.argument ? TextsOf(parsed, row.name) : std::vector<std::string>())
      conversion.push_back(name + '=' + value);
    if (!row.argument && parsed.count(row.name) > 0) conversion.push_back(name);
  }
}

std::optional<std::string> CommandLine::Text(const std::string& option) const {
  const auto found = values.find(option);
  if (found == values.end()) return std::nullopt;
  return found->second;
}

int32_t CommandLine::Number(const std::string& option, int32_t least, int32_t most, int32_t otherwise) const {
  const auto text = Text(option);
  return text ? ParseNumber("--" + option, *text, least, most) : otherwise;
}

const std::vector<ExitRow>& ExitRows() {
  static const std::vector<ExitRow> rows = {
      {0, "all is well; of run: every drawing is converted, or all chunks are submitted"},
      {notAllDoneExit, "of run: drawings have failed or are left"},
      {StatusOf(notAllowedStatus).exit, "of plan: a folder can't be read; the others are planned"},
      {StatusOf(noMemoryStatus).exit, "there isn't enough memory"},
      {StatusOf(crashedStatus).exit, "of chunk: a worker process can't be started"},
      {StatusOf(usageStatus).exit, "wrong usage; nothing was done"},
      {engineMissingExit, "the engine isn't installed, or refuses the work"},
      {StatusOf(notWrittenStatus).exit, "an output or a result can't be written"},
      {unreadableExit, "the plan or a result can't be read, or is in use"},
      {interruptedExit, "interrupted; the same command goes on"},
  };
  return rows;
}

std::vector<std::string> ConversionForms() {
  std::vector<std::string> forms;
  for (const OptionRow& row : ConversionRows()) forms.push_back(hexlume::WrittenForm(row));
  return forms;
}

std::string WrittenForm(const CommandOption& option) {
  return std::string("--") + option.name + (option.argument ? std::string(" ") + option.argument : "");
}

std::string BatchHelp() {
  std::string help = "Converts archives of ASCII DXF drawings on many machines.\n";
  for (const CommandForm& command : Commands()) {
    help += std::string("\n  hexlume-batch ") + command.name + ' ' + command.operands + "\n      " +
            command.help + '\n';
    for (const CommandOption& option : command.options)
      if (option.isShown) help += "        " + Padded(WrittenForm(option)) + option.help + '\n';
    if (!command.takesConversion) continue;
    help += "      and options of hexlume:\n";
    for (const std::string& form : ConversionForms()) help += "        " + form + '\n';
  }
  help += "\nExit status:\n";
  for (const ExitRow& row : ExitRows()) {
    const std::string number = std::to_string(row.exit);
    help += std::string(number.size() < 5 ? 5 - number.size() : 1, ' ') + number + "  " + row.meaning + '\n';
  }
  return help;
}

}  // namespace hexlume::batch
