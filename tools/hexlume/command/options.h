// The options of the command line.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/hexlume/command/dialog_answers.h"
#include "tools/hexlume/picture/picture.h"

namespace hexlume {

// A part of the sheet in hundredths of a millimetre.
struct View {
  int32_t left, top, right, bottom;
};

// A result of a conversion and its file, "-" for standard output.
struct PictureOrder {
  const PictureKind* kind;  // nullptr: the metafile
  std::string file;
};

struct Options {
  // Inputs, as they are given.
  std::vector<std::string> inputs;
  bool recursive = false;
  std::optional<std::string> filesFrom;
  bool nullSeparated = false;
  bool asIs = false;

  // Results: in a folder or beside the drawing, by their kinds, or in files that are named one by one.
  std::optional<std::string> folder;
  std::vector<const PictureKind*> kinds;  // of --to; nullptr: the metafile
  std::vector<PictureOrder> pictures;
  PictureSettings pictureSettings;
  std::optional<std::string> book;
  bool list = false;

  std::optional<View> view;
  bool fullSize = false;
  bool rotate = false;
  bool monochrome = false;
  bool halfWidth = false;
  bool wholeText = false;
  bool fit = false;
  int32_t dialogs = 0;
  std::optional<uint8_t> dialogFont;
  DialogAnswers dialogAnswers;

  std::optional<int32_t> jobs;
  std::optional<int32_t> timeLimit;    // seconds
  std::optional<int64_t> memoryLimit;  // bytes
  bool skipUnchanged = false;
  std::optional<std::string> report;
  bool quiet = false;

  bool showVersion = false;
  bool showHelp = false;
};

// Describes what is wrong with the command line.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// What starts a process of the tool as a worker. It is the first argument and isn't for users.
constexpr const char* workerArgument = "--worker";

// arguments doesn't have the program's name.
Options ParseOptions(const std::vector<std::string>& arguments);

// A text that is the same for all options that give the same results.
std::string ResultKey(const Options& options);

}  // namespace hexlume
