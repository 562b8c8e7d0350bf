// The options of the command line.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/hexlume/dialog_answers.h"
#include "tools/hexlume/picture.h"

namespace hexlume {

// A part of the sheet in hundredths of a millimetre.
struct View {
  int32_t left, top, right, bottom;
};

// A drawing, and the file for its metafile: none if only a listing or a picture is wanted.
struct Job {
  std::string drawing;
  std::optional<std::string> metafile;
};

// A picture and its file.
struct PictureOrder {
  const PictureKind* kind;
  std::string file;
};

struct Options {
  // Without dialogs only the host library takes answers to them.
  bool NeedsHostLibrary() const { return dialogs == 0 && dialogAnswers.IsGiven(); }

  std::vector<Job> jobs;  // in the order given

  std::optional<View> view;
  bool fullSize = false;
  bool rotate = false;
  bool monochrome = false;
  bool halfWidth = false;
  bool wholeText = false;
  int32_t dialogs = 0;
  std::optional<uint8_t> dialogFont;
  DialogAnswers dialogAnswers;

  std::vector<PictureOrder> pictures;
  int32_t dotsPerInch = 96;
  bool list = false;

  bool showVersion = false;
  bool showHelp = false;
};

// Describes what is wrong with the command line.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

Options ParseOptions(int argc, const char* const* argv);

std::string HelpText();

}  // namespace hexlume
