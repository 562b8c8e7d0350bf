#include "tools/hexlume/options.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <set>

// It would part the values of an option that may be repeated, and the names of drawings, at every comma.
#define CXXOPTS_VECTOR_DELIMITER '\0'
#include <cxxopts.hpp>

#include "tools/hexlume/options_system.h"
#include "tools/hexlume/system.h"

namespace hexlume {
namespace {

struct OptionDeclaration {
  const char* name;
  const char* argument;  // its name in the help; nullptr for an option that takes none
  const char* help;
  bool repeatable = false;
};

constexpr OptionDeclaration conversionOptions[] = {
    {"d", "DIR", "Write the metafile of every drawing to DIR/<its name>.emf"},
    {"view", "L,T,R,B", "Convert only this part of the sheet, in hundredths of a millimetre"},
    {"full-size", nullptr, "Draw the model at full size, without the scale that the drawing tells"},
    {"rotate", nullptr, "Convert, then turn by 180 degrees; the turned one is the result"},
    {"mono", nullptr, "Draw everything in black"},
    {"half-width", nullptr, "Draw texts with half-width cells"},
    {"whole-text", nullptr, "With --view: leave out texts that don't lie wholly inside"},
    {"dialog-font", "N", "Font of the dialogs: 1 for the system's, another number for their own"},
};

constexpr OptionDeclaration answers[] = {
    {"scale", "N", "The scale 1:N of a drawing beyond A0, N from 1 to 1000"},
    {"hide-layer", "NAME", "Leave out this layer; repeat it for others", true},
    {"hide-line-type", "FAMILY",
     "Leave out lines that are solid, dotted, dashed, chain or double-chain; repeat it for others", true},
};

constexpr OptionDeclaration resultOptions[] = {
    {"dpi", "N", "Dots per inch of a picture in pixels (default 96)"},
    {"size", "N", "The longest side of a picture in pixels, instead of --dpi"},
    {"list", nullptr, "List the calls in the metafile on standard output, one a line"},
    {"version", nullptr, "Show the version"},
    {"h,help", nullptr, "Show this help"},
};

void AddOption(cxxopts::OptionAdder& add, const OptionDeclaration& option) {
  if (!option.argument) {
    add(option.name, option.help);
  } else if (option.repeatable) {
    add(option.name, option.help, cxxopts::value<std::vector<std::string>>(), option.argument);
  } else {
    add(option.name, option.help, cxxopts::value<std::string>(), option.argument);
  }
}

// "svg-text"
std::string TextOptionOf(const PictureKind& kind) {
  return kind.option + std::string("-text");
}

cxxopts::Options Declare() {
  cxxopts::Options options("hexlume", "Turns ASCII DXF drawings into Windows enhanced metafiles.\n");
  options.custom_help("[options]");
  options.positional_help("DRAWING.dxf [OUTPUT.emf]\n  hexlume [options] -d DIR DRAWING.dxf...");
  auto add = options.add_options();
  for (const OptionDeclaration& option : conversionOptions) AddOption(add, option);
  add("dialogs", "Show dialogs: 1 (also without N) for all of them, another number for the scale only",
      cxxopts::value<std::string>()->implicit_value("1"), "N");
  for (const OptionDeclaration& option : answers) AddOption(add, option);
  for (const PictureKind& kind : PictureKinds()) AddOption(add, {kind.option, "FILE", kind.help});
  for (const PictureKind& kind : PictureKinds())
    if (kind.canKeepTexts)
      AddOption(add, {TextOptionOf(kind).c_str(), nullptr, "Keep texts as texts in that file"});
  for (const OptionDeclaration& option : resultOptions) AddOption(add, option);
  add("drawings", "", cxxopts::value<std::vector<std::string>>());
  options.parse_positional("drawings");
  return options;
}

constexpr const char* helpTail = R"(
Without OUTPUT.emf the metafile goes beside the drawing, with the extension .emf; with --list or
a picture only these are made then. Several drawings, with -d, are converted in the order given.

Exit status:
   0  all is well
   2  a drawing could be measured, but not opened again to be drawn
  11  a fault left the library
  16  the user cancelled a dialog
  30  a file can't be read or is no drawing, or a fault ended the drawing
  64  wrong usage
  73  an output can't be written
When several drawings are converted, it tells of the last one that failed.
)";

int32_t ParseNumber(const std::string& option, const std::string& text, int32_t least, int32_t most) {
  int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < least || number > most) {
    throw UsageError(option + " needs a whole number from " + std::to_string(least) + " to " +
                     std::to_string(most) + ", not '" + text + "'");
  }
  return number;
}

View ParseView(const std::string& text) {
  int32_t edges[4];
  const char* at = text.data();
  const char* const end = at + text.size();
  for (int i = 0; i < 4; ++i) {
    const auto [stop, error] = std::from_chars(at, end, edges[i]);
    const bool separated = i < 3 ? stop != end && *stop == ',' : stop == end;
    if (error != std::errc() || !separated) {
      throw UsageError("--view needs four whole numbers L,T,R,B, not '" + text + "'");
    }
    at = stop + (i < 3);
  }
  if (edges[0] > edges[2]) throw UsageError("--view needs a left edge that isn't right of the right one");
  if (edges[1] > edges[3]) throw UsageError("--view needs a top edge that isn't below the bottom one");
  return {edges[0], edges[1], edges[2], edges[3]};
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
  if (const auto view = TextOf(parsed, "view")) options.view = ParseView(*view);
  if (const auto number = TextOf(parsed, "dialogs")) {
    options.dialogs = ParseNumber("--dialogs", *number, lowest, highest);
  }
  if (const auto number = TextOf(parsed, "dialog-font")) {
    options.dialogFont = static_cast<uint8_t>(ParseNumber("--dialog-font", *number, 0, 255));
  }
}

struct Family {
  const char* name;
  int32_t number;
};

constexpr Family families[] = {
    {"solid", 0}, {"dotted", 2}, {"dashed", 1}, {"chain", 3}, {"double-chain", 4},
};

int32_t ParseFamily(const std::string& text) {
  const auto found = std::find_if(std::begin(families), std::end(families),
                                  [&text](const Family& family) { return family.name == text; });
  if (found != std::end(families)) return found->number;
  throw UsageError("--hide-line-type needs solid, dotted, dashed, chain or double-chain, not '" + text + "'");
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
    given.hiddenLayers.push_back(Utf8Text(text));
  }
  for (const std::string& text : TextsOf(parsed, "hide-line-type"))
    given.hiddenFamilies.push_back(ParseFamily(text));
}

void CheckConversion(const Options& options) {
  if (options.view && options.fullSize) throw UsageError("--view and --full-size exclude each other");
  if (options.view && options.rotate) throw UsageError("--view and --rotate exclude each other");
  if (options.wholeText && !options.view) throw UsageError("--whole-text needs --view");
}

// Replaces the extension of a path.
std::string WithExtension(const std::string& path, const std::string& extension) {
  const size_t name = FileNameStart(path);
  const size_t point = path.rfind('.');
  const bool hasExtension = point != std::string::npos && point > name;
  return path.substr(0, hasExtension ? point : std::string::npos) + extension;
}

bool LooksLikeADrawing(const std::string& path) {
  return PathKey(path) == PathKey(WithExtension(path, ".dxf"));
}

Job SingleJob(const std::vector<std::string>& files, const Options& options) {
  if (files.size() > 2) throw UsageError("several drawings need -d DIR");
  if (files.size() == 2) {
    // Probably two drawings without -d. The second one must not be overwritten.
    if (LooksLikeADrawing(files[1])) {
      throw UsageError("the output '" + files[1] + "' looks like a drawing; several drawings need -d DIR");
    }
    return {files[0], files[1]};
  }
  if (options.list || !options.pictures.empty()) return {files[0], std::nullopt};
  return {files[0], WithExtension(files[0], ".emf")};
}

std::vector<Job> JobsInFolder(const std::vector<std::string>& drawings, std::string folder) {
  if (folder.empty()) throw UsageError("-d needs the name of a folder");
  if (folder.back() != '/') folder += '/';
  std::vector<Job> jobs;
  for (const std::string& drawing : drawings) {
    jobs.push_back({drawing, folder + WithExtension(drawing.substr(FileNameStart(drawing)), ".emf")});
  }
  return jobs;
}

void CheckOutputs(const Options& options) {
  std::set<std::string> taken;
  for (const Job& job : options.jobs) taken.insert(PathKey(job.drawing));
  const auto claim = [&taken](const std::string& output) {
    if (!taken.insert(PathKey(output)).second) {
      throw UsageError("the output '" + output + "' is also a drawing or another output");
    }
  };
  for (const Job& job : options.jobs) {
    if (job.metafile) claim(*job.metafile);
  }
  for (const PictureOrder& picture : options.pictures) claim(picture.file);
}

void ReadPixels(const cxxopts::ParseResult& parsed, Options& options) {
  constexpr int32_t longest = 20000;
  const auto& pictures = options.pictures;
  const auto hasPixels = [](const PictureOrder& picture) { return picture.kind->hasPixels; };
  const auto dpi = TextOf(parsed, "dpi"), size = TextOf(parsed, "size");
  if (dpi && size) throw UsageError("--dpi and --size exclude each other");
  if ((dpi || size) && std::none_of(pictures.begin(), pictures.end(), hasPixels))
    throw UsageError((dpi ? "--dpi" : "--size") + std::string(" needs --png"));
  if (dpi) options.pictureSettings.dotsPerInch = ParseNumber("--dpi", *dpi, 1, 100000);
  if (size) options.pictureSettings.longestSide = ParseNumber("--size", *size, 1, longest);
}

void ReadPictures(const cxxopts::ParseResult& parsed, Options& options) {
  for (const PictureKind& kind : PictureKinds()) {
    const auto file = TextOf(parsed, kind.option);
    if (file) options.pictures.push_back({&kind, *file});
    if (!kind.canKeepTexts || !parsed[TextOptionOf(kind)].as<bool>()) continue;
    if (!file) throw UsageError("--" + TextOptionOf(kind) + " needs --" + kind.option);
    options.pictureSettings.keepsTexts = true;
  }
  ReadPixels(parsed, options);
}

void ReadOutputs(const cxxopts::ParseResult& parsed, Options& options) {
  options.list = parsed["list"].as<bool>();
  ReadPictures(parsed, options);
  if (parsed.count("drawings") == 0) throw UsageError("no drawing is given");
  const auto& files = parsed["drawings"].as<std::vector<std::string>>();
  if (const auto folder = TextOf(parsed, "d")) {
    options.jobs = JobsInFolder(files, *folder);
  } else {
    options.jobs = {SingleJob(files, options)};
  }
  if (options.jobs.size() > 1 && !options.pictures.empty()) {
    throw UsageError("--" + std::string(options.pictures.front().kind->option) + " takes a single drawing");
  }
  CheckOutputs(options);
}

cxxopts::ParseResult Parse(int argc, const char* const* argv) {
  try {
    return Declare().parse(argc, argv);
  } catch (const cxxopts::exceptions::exception& trouble) {
    throw UsageError(trouble.what());
  }
}

}  // namespace

Options ParseOptions(int argc, const char* const* argv) {
  const cxxopts::ParseResult parsed = Parse(argc, argv);
  Options options;
  options.showHelp = parsed["help"].as<bool>();
  options.showVersion = parsed["version"].as<bool>();
  if (options.showHelp || options.showVersion) return options;
  ReadConversion(parsed, options);
  CheckConversion(options);
  ReadAnswers(parsed, options);
  if (options.dialogs != 0) CheckAnswersToDialogs(options);
  ReadOutputs(parsed, options);
  return options;
}

std::string HelpText() {
  std::string text = Declare().help();
  // cxxopts prints a blank before the equals sign, which the command line doesn't allow.
  const std::string shown = "--dialogs [=N(=1)]", typed = "--dialogs[=N]";
  if (const size_t at = text.find(shown); at != std::string::npos)
    text.replace(at, shown.size(), typed + std::string(shown.size() - typed.size(), ' '));
  return text + helpTail;
}

}  // namespace hexlume
