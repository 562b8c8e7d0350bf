// All options of the command line in one table, from which the reader of the command line, the help, the manual page and
// the completion of the shell are made.
#pragma once

#include <string>
#include <vector>

namespace hexlume {

enum class ArgumentKind { none, text, file, folder, number, choice };

struct OptionRow {
  const char* group;
  const char* name;      // without hyphens; a short one and a long one with a comma between
  const char* argument;  // its name in the help; nullptr for an option that takes none
  ArgumentKind kind;
  const char* help;     // for the short list; begins with a capital, without a full stop
  const char* more;     // what the manual adds; may be empty
  bool repeatable;      // others may be given once
  const char* implied;  // the argument if none is given after an equals sign; nullptr if it is needed
  const char* choices;  // of ArgumentKind::choice, with blanks between
};

// The options of this system, the groups together.
const std::vector<OptionRow>& OptionTable();

// The name with its hyphens, the long one if there are two.
std::string HyphenatedName(const OptionRow& option);

// How the option is written, for example "-d DIR" or "--dialogs[=N]".
std::string WrittenForm(const OptionRow& option);

// The long names and the short ones, without hyphens.
std::vector<std::string> NamesOf(const OptionRow& option);

}  // namespace hexlume
