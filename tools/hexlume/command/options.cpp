#include "tools/hexlume/command/options.h"

#include <algorithm>
#include <limits>
#include <locale>

// It would part the values of an option that may be repeated, and the names of drawings, at every comma.
#define CXXOPTS_VECTOR_DELIMITER '\0'
#include <cxxopts.hpp>

#include "tools/hexlume/command/option_table.h"
#include "tools/hexlume/command/option_values.h"
#include "tools/hexlume/command/options_system.h"
#include "tools/hexlume/command/suggestion.h"
#include "tools/hexlume/drawing/drawing_source.h"
#include "tools/hexlume/picture/picture_book.h"

namespace hexlume {
namespace {

void AddOption(cxxopts::OptionAdder& add, const OptionRow& option) {
  if (!option.argument) {
    add(option.name, "");
  } else if (option.repeatable) {
    add(option.name, "", cxxopts::value<std::vector<std::string>>());
  } else if (option.implied) {
    add(option.name, "", cxxopts::value<std::string>()->implicit_value(option.implied));
  } else {
    add(option.name, "", cxxopts::value<std::string>());
  }
}

cxxopts::Options Declare() {
  cxxopts::Options options("hexlume");
  auto add = options.add_options();
  for (const OptionRow& option : OptionTable()) AddOption(add, option);
  add("drawings", "", cxxopts::value<std::vector<std::string>>());
  options.parse_positional("drawings");
  return options;
}

std::string WithHyphens(const std::string& option) {
  return (option.size() == 1 ? "-" : "--") + option;
}

std::optional<std::string> TextOf(const cxxopts::ParseResult& parsed, const char* option) {
  if (parsed.count(option) == 0) return std::nullopt;
  if (parsed.count(option) > 1) throw UsageError(WithHyphens(option) + " is given more than once");
  return parsed[option].as<std::string>();
}

void ReadConversion(const cxxopts::ParseResult& parsed, Options& options) {
  constexpr int32_t lowest = std::numeric_limits<int32_t>::min();
  constexpr int32_t highest = std::numeric_limits<int32_t>::max();
  options.fullSize = parsed["full-size"].as<bool>();
  options.rotate = parsed["rotate"].as<bool>();
  options.monochrome = parsed["mono"].as<bool>();
  options.halfWidth = parsed["half-width"].as<bool>();
  options.wholeText = parsed["whole-text"].as<bool>();
  options.fit = parsed["fit"].as<bool>();
  if (const auto view = TextOf(parsed, "view")) options.view = ParseView(*view);
  if (const auto number = TextOf(parsed, "dialogs")) {
    options.dialogs = ParseNumber("--dialogs", *number, lowest, highest);
  }
  if (const auto number = TextOf(parsed, "dialog-font")) {
    options.dialogFont = static_cast<uint8_t>(ParseNumber("--dialog-font", *number, 0, 255));
  }
}

std::vector<std::string> TextsOf(const cxxopts::ParseResult& parsed, const char* option) {
  if (parsed.count(option) == 0) return {};
  return parsed[option].as<std::vector<std::string>>();
}

void ReadAnswers(const cxxopts::ParseResult& parsed, Options& options) {
  DialogAnswers& given = options.dialogAnswers;
  if (const auto number = TextOf(parsed, "scale")) given.scale = ParseNumber("--scale", *number, 1, 1000);
  for (const std::string& text : TextsOf(parsed, "hide-layer")) {
    if (text.empty()) throw UsageError("--hide-layer needs the name of a layer");
    given.hiddenLayers.push_back(text);
  }
  for (const std::string& text : TextsOf(parsed, "hide-line-type"))
    given.hiddenFamilies.push_back(ParseFamily(text));
}

void CheckConversion(const Options& options) {
  if (options.view && options.fullSize) throw UsageError("--view and --full-size exclude each other");
  if (options.view && options.rotate) throw UsageError("--view and --rotate exclude each other");
  if (options.wholeText && !options.view) throw UsageError("--whole-text needs --view");
  if (options.fit && options.dialogs != 0) throw UsageError("--fit and --dialogs exclude each other");
}

void ReadInputs(const cxxopts::ParseResult& parsed, Options& options) {
  options.inputs = TextsOf(parsed, "drawings");
  options.recursive = parsed["recursive"].as<bool>();
  options.filesFrom = TextOf(parsed, "files-from");
  options.nullSeparated = parsed["null"].as<bool>();
  if (options.nullSeparated && !options.filesFrom) throw UsageError("--null needs --files-from");
  if (const auto format = TextOf(parsed, "format")) {
    options.asIs = *format == "as-is";
    if (!options.asIs && *format != "auto")
      throw UsageError("--format needs auto or as-is, not '" + *format + "'");
  }
}

bool HasPixels(const Options& options) {
  for (const PictureOrder& picture : options.pictures)
    if (picture.kind->hasPixels) return true;
  for (const PictureKind* const kind : options.kinds)
    if (kind && kind->hasPixels) return true;
  return false;
}

void ReadPixels(const cxxopts::ParseResult& parsed, Options& options) {
  constexpr int32_t longest = 20000;
  const auto dpi = TextOf(parsed, "dpi"), size = TextOf(parsed, "size");
  if (dpi && size) throw UsageError("--dpi and --size exclude each other");
  if ((dpi || size) && !HasPixels(options))
    throw UsageError((dpi ? "--dpi" : "--size") + std::string(" needs --png"));
  if (dpi) options.pictureSettings.dotsPerInch = ParseNumber("--dpi", *dpi, 1, 100000);
  if (size) options.pictureSettings.longestSide = ParseNumber("--size", *size, 1, longest);
}

void ReadPictures(const cxxopts::ParseResult& parsed, Options& options) {
  for (const PictureKind& kind : PictureKinds())
    if (const auto file = TextOf(parsed, kind.option)) options.pictures.push_back({&kind, *file});
  if (const auto kinds = TextOf(parsed, "to")) options.kinds = ParseKinds(*kinds);
  if (!options.kinds.empty() && !options.pictures.empty())
    throw UsageError("--to and --" + std::string(options.pictures.front().kind->option) +
                     " exclude each other");
  ReadPixels(parsed, options);
}

// Only the systems whose pictures can keep texts have the option.
void ReadTexts(const cxxopts::ParseResult& parsed, Options& options) {
  const auto canKeep = [](const PictureKind* kind) { return kind && kind->canKeepTexts; };
  const auto& kinds = PictureKinds();
  if (std::none_of(kinds.begin(), kinds.end(), [&](const PictureKind& kind) { return canKeep(&kind); }))
    return;
  options.pictureSettings.keepsTexts = parsed["svg-text"].as<bool>();
  if (!options.pictureSettings.keepsTexts) return;
  const auto& pictures = options.pictures;
  if (std::none_of(pictures.begin(), pictures.end(),
                   [&](const PictureOrder& picture) { return canKeep(picture.kind); }) &&
      std::none_of(options.kinds.begin(), options.kinds.end(), canKeep))
    throw UsageError("--svg-text needs --svg");
}

void ReadOutputs(const cxxopts::ParseResult& parsed, Options& options) {
  options.list = parsed["list"].as<bool>();
  options.folder = TextOf(parsed, "d");
  if (options.folder && options.folder->empty()) throw UsageError("-d needs the name of a folder");
  ReadPictures(parsed, options);
  ReadTexts(parsed, options);
  if (HasPictureBooks()) options.book = TextOf(parsed, "pdf-book");
}

void ReadMany(const cxxopts::ParseResult& parsed, Options& options) {
  constexpr int32_t mostSeconds = 1000000;
  constexpr int32_t mostJobs = 60;
  if (const auto number = TextOf(parsed, "jobs")) options.jobs = ParseNumber("--jobs", *number, 0, mostJobs);
  if (const auto number = TextOf(parsed, "time-limit"))
    options.timeLimit = ParseNumber("--time-limit", *number, 1, mostSeconds);
  if (const auto size = TextOf(parsed, "memory-limit"))
    options.memoryLimit = ParseSize("--memory-limit", *size);
  options.skipUnchanged = parsed["skip-unchanged"].as<bool>();
  options.report = TextOf(parsed, "report");
  options.quiet = parsed["quiet"].as<bool>();
}

void CheckMany(const Options& options) {
  const bool needsOwnProcess = options.list || options.dialogs != 0;
  const bool asksForWorkers = options.jobs.value_or(0) > 0 || options.timeLimit || options.memoryLimit;
  if (needsOwnProcess && asksForWorkers)
    throw UsageError(std::string(options.list ? "--list" : "--dialogs") +
                     " can't be used with --jobs, --time-limit or --memory-limit");
  if (options.jobs == 0 && (options.timeLimit || options.memoryLimit))
    throw UsageError("--time-limit and --memory-limit need worker processes, not --jobs 0");
  if (options.skipUnchanged && !options.folder) throw UsageError("--skip-unchanged needs -d DIR");
  if (options.skipUnchanged && needsOwnProcess)
    throw UsageError("--skip-unchanged can't be used with --list or --dialogs");
  if (options.skipUnchanged && options.book)
    throw UsageError("--skip-unchanged can't be used with --pdf-book, which needs all drawings");
  if (options.dialogs != 0 && options.report) throw UsageError("--report can't be used with --dialogs");
}

// The name of the option in the message of the reader of the command line.
std::string QuotedName(const std::string& message) {
  const std::string opening = cxxopts::LQUOTE, closing = cxxopts::RQUOTE;
  const size_t start = message.find(opening);
  const size_t end = message.find(closing, start + opening.size());
  if (start == std::string::npos || end == std::string::npos) return "";
  return message.substr(start + opening.size(), end - start - opening.size());
}

std::vector<std::string> AllNames() {
  std::vector<std::string> names;
  for (const OptionRow& option : OptionTable())
    for (const std::string& name : NamesOf(option)) names.push_back((name.size() == 1 ? "-" : "--") + name);
  return names;
}

const OptionRow* FindOption(const std::string& name) {
  for (const OptionRow& option : OptionTable())
    for (const std::string& known : NamesOf(option))
      if (known == name) return &option;
  return nullptr;
}

bool NeedsArgument(const OptionRow* option) {
  return option && option->argument && !option->implied;
}

// The length of short options in one word up to the first that needs an argument; 0 if none does.
size_t EndOfShortOptions(const std::string& word) {
  if (word.size() < 2 || word[0] != '-' || word[1] == '-') return 0;
  for (size_t i = 1; i < word.size(); ++i) {
    const OptionRow* const option = FindOption(word.substr(i, 1));
    if (!option) return 0;
    if (NeedsArgument(option)) return i + 1;
  }
  return 0;
}

bool ArgumentFollows(const std::string& word) {
  return EndOfShortOptions(word) != 0 ||
         (word.compare(0, 2, "--") == 0 && NeedsArgument(FindOption(word.substr(2))));
}

// Parts a short option from its argument in the same word, as in -dplans/out: without regular expressions, the reader of the
// command line takes only letters and digits there.
std::vector<std::string> PartShortOptions(const std::vector<std::string>& arguments) {
  std::vector<std::string> words;
  for (auto word = arguments.begin(); word != arguments.end(); ++word) {
    if (*word == "--") {
      words.insert(words.end(), word, arguments.end());
      break;
    }
    const size_t end = EndOfShortOptions(*word);
    if (end != 0 && end < word->size()) {
      words.push_back(word->substr(0, end));
      words.push_back(word->substr(end));
    } else {
      words.push_back(*word);
      if (ArgumentFollows(*word) && word + 1 != arguments.end()) words.push_back(*++word);
    }
  }
  return words;
}

// The first option that there isn't in a word that the reader of the command line doesn't understand.
std::string UnknownOption(const std::string& word) {
  if (word.compare(0, 2, "--") == 0) return word.substr(0, word.find('='));
  size_t place = 1;
  while (place + 1 < word.size() && FindOption(word.substr(place, 1))) ++place;
  const bool isLetter = std::isalnum(word[place], std::locale::classic());
  return isLetter ? '-' + word.substr(place, 1) : word;
}

[[noreturn]] void RefuseOption(const std::string& name) {
  throw UsageError("there is no option " + name + Suggestion(name, AllNames()));
}

cxxopts::ParseResult Parse(const std::vector<std::string>& arguments) {
  const std::vector<std::string> parted = PartShortOptions(arguments);
  std::vector<const char*> words = {"hexlume"};
  for (const std::string& word : parted) words.push_back(word.c_str());
  try {
    return Declare().parse(static_cast<int>(words.size()), words.data());
  } catch (const cxxopts::exceptions::no_such_option& trouble) {
    RefuseOption(WithHyphens(QuotedName(trouble.what())));
  } catch (const cxxopts::exceptions::invalid_option_syntax& trouble) {
    RefuseOption(UnknownOption(QuotedName(trouble.what())));
  } catch (const cxxopts::exceptions::exception& trouble) {
    throw UsageError(trouble.what());
  }
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
  const cxxopts::ParseResult parsed = Parse(arguments);
  Options options;
  options.showHelp = parsed["help"].as<bool>();
  options.showVersion = parsed["version"].as<bool>();
  if (options.showHelp || options.showVersion) return options;
  ReadInputs(parsed, options);
  ReadConversion(parsed, options);
  CheckConversion(options);
  ReadAnswers(parsed, options);
  if (options.dialogs != 0) CheckAnswersToDialogs(options);
  ReadOutputs(parsed, options);
  ReadMany(parsed, options);
  CheckMany(options);
  return options;
}

std::string ResultKey(const Options& options) {
  std::string key = "hexlume " HEXLUME_VERSION;
  const auto add = [&key](const std::string& part) { key += '\n' + part; };
  add(options.asIs ? "as-is" : "auto");
  if (options.view)
    for (const int32_t edge :
         {options.view->left, options.view->top, options.view->right, options.view->bottom})
      add(std::to_string(edge));
  for (const bool flag : {options.fullSize, options.rotate, options.monochrome, options.halfWidth,
                          options.wholeText, options.fit, options.pictureSettings.keepsTexts})
    add(flag ? "1" : "0");
  add(std::to_string(options.dialogAnswers.scale));
  for (const std::string& layer : options.dialogAnswers.hiddenLayers) add("layer " + layer);
  for (const int32_t family : options.dialogAnswers.hiddenFamilies) add("family " + std::to_string(family));
  for (const PictureKind* const kind : options.kinds) add(kind ? kind->option : "emf");
  if (HasPixels(options)) {
    add(std::to_string(options.pictureSettings.dotsPerInch));
    add(std::to_string(options.pictureSettings.longestSide.value_or(0)));
  }
  return key;
}

}  // namespace hexlume
